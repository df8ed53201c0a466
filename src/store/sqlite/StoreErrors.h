// The errors of the store's library as Failure.
#pragma once

#include "store/Raising.h"
#include "store/sqlite/FailureKind.h"

#include <SQLiteCpp/Exception.h>

namespace raising
{
// Runs that; the path is the database file's.
template<class Work> auto around(const QString &path, const QString &source, const Work &work)
{
    try {
        return work();
    } catch (const SQLite::Exception &error) {
        failure(QString::fromUtf8(error.what()), source, kindOf(error, path));
    }
}
} // namespace raising
