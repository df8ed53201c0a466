#include "store/Raising.h"

void raising::failure(const QString &description, const QString &source, Failure::Kind kind)
{
    throw Failure(Failure::StoreError, source.isEmpty() ? QStringLiteral("Connection") : source, description,
                  kind);
}
