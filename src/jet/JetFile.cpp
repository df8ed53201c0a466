#include "jet/JetFile.h"

#include "jet/JetTable.h"

namespace
{
constexpr quint32 catalogue = 2; // the page of its definition
constexpr qint64 aTable = 1;
constexpr qint64 ofTheSystem = 0x80000002;

// The cell of that column, which must hold that type.
template<class Type>
Type cellOf(const JetFile::Table &table, const std::vector<JetFile::Cell> &row, const char *column)
{
    const qsizetype index = table.columns.indexOf(QLatin1String(column));
    if (index < 0) raiseDamage("the catalogue lacks a column");
    const auto *value = std::get_if<Type>(&row[static_cast<std::size_t>(index)]);
    if (value == nullptr) raiseDamage("the catalogue lacks a value");
    return *value;
}
} // namespace

JetFile::JetFile(const QString &path) : pages_(path)
{
    constexpr qint64 pageMask = 0xffffff;
    const Table entries = readJetTable(pages_, catalogue);
    for (const auto &entry : entries.rows) {
        if (cellOf<qint64>(entries, entry, "Type") != aTable) continue;
        if (cellOf<qint64>(entries, entry, "Flags") & ofTheSystem) continue;
        const auto name = cellOf<QString>(entries, entry, "Name");
        names_ << name;
        definitions_[name.toCaseFolded()] =
            static_cast<quint32>(cellOf<qint64>(entries, entry, "Id") & pageMask);
    }
}

QStringList JetFile::tables() const { return names_; }

JetFile::Table JetFile::read(const QString &name) const { return readJetTable(pages_, definitionOf(name)); }

void JetFile::read(const QString &name, Sink &sink) const { readJetTable(pages_, definitionOf(name), sink); }

quint32 JetFile::definitionOf(const QString &name) const
{
    const auto definition = definitions_.find(name.toCaseFolded());
    if (definition == definitions_.end()) raiseDamage("there is no such table");
    return definition->second;
}
