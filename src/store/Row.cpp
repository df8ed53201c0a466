#include "store/Row.h"

#include "platform/Failure.h"

int Row::column(const char *name) const
{
    for (int i = 0; i < columns(); ++i)
        if (qstricmp(this->name(i), name) == 0) return i;
    throw Failure(Failure::ItemNotFound, QStringLiteral("Row"),
                  QStringLiteral("No column named %1").arg(QLatin1String(name)));
}

void Row::addTo(Cells &cells) const
{
    for (int i = 0; i < columns(); ++i)
        addTo(cells, i);
}

std::vector<QByteArray> Row::columnNames() const
{
    std::vector<QByteArray> names;
    names.reserve(static_cast<std::size_t>(columns()));
    for (int i = 0; i < columns(); ++i)
        names.emplace_back(name(i));
    return names;
}
