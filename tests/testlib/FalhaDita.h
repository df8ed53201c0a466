// What a failure says of itself: a person reads it under the program's own words, or sends it in.
#pragma once

#include "platform/Failure.h"

#include <QStringList>

namespace teste
{
// Source and description of the failure that the work raises; nothing where it raises none.
template<class Work> QStringList Falha_Dita(const Work &work)
{
    try {
        work();
    } catch (const Failure &failure) {
        return {failure.source(), failure.description()};
    }
    return {};
}
} // namespace teste
