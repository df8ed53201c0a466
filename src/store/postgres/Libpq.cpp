#include "store/postgres/Libpq.h"

#include "platform/Failure.h"

#include <QLibrary>

namespace
{
// It is looked for anew as long as it is missing: somebody may install it meanwhile.
struct Library : QLibrary {
    Library() : QLibrary(QStringLiteral("pq"), 5) { load(); }
};
} // namespace

bool libpq::isHere() { return Library().isLoaded(); }

QFunctionPointer libpq::entry(const char *name)
{
    Library library;
    const QFunctionPointer found = library.resolve(name);
    if (found == nullptr)
        throw Failure(Failure::StoreError, QStringLiteral("libpq"),
                      QStringLiteral("%1: %2").arg(QLatin1StringView(name), library.errorString()),
                      Failure::Kind::ServerLibraryMissing);
    return found;
}
