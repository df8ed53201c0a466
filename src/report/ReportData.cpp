#include "report/ReportData.h"

#include "platform/Failure.h"
#include "report/SelectionFormula.h"
#include "store/Connection.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
[[noreturn]] void raise(const QString &what) { throw Failure(Failure::ItemNotFound, u"ReportData"_s, what); }

QString quotedText(const QString &text) { return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\''; }

// The fields of a definition as expressions of the store. Only names that the database has ever reach a
// statement.
class Fields
{
public:
    Fields(const ReportDefinition &definition, Connection &connection)
        : definition_(definition), connection_(connection), dialect_(connection.dialect())
    {
        if (!has(definition.table, {})) raise(u"The database has no table %1"_s.arg(definition.table));
    }

    const Dialect &dialect() const { return dialect_; }

    // Empty when there is no such field. A row that a look-up doesn't find has Null fields.
    QString sql(const QString &table, const QString &column)
    {
        if (!has(table, column)) return {};
        if (same(table, definition_.table)) return own(column);
        for (const ReportLookup &lookup : definition_.lookups)
            if (same(lookup.table, table)) return lookedUp(lookup, column);
        return {};
    }

private:
    static bool same(const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

    QString own(const QString &column) const
    {
        return dialect_.name(definition_.table) + u'.' + dialect_.name(column);
    }

    QString lookedUp(const ReportLookup &lookup, const QString &column)
    {
        const QString &missing = !has(lookup.table, lookup.key) ? lookup.key : lookup.field;
        if (!has(lookup.table, lookup.key) ||
            (!lookup.field.isEmpty() && !has(definition_.table, lookup.field)))
            raise(u"The look-up of %1 names a field that isn't there: %2"_s.arg(lookup.table, missing));
        const QString other = lookup.field.isEmpty() ? quotedText(lookup.value) : own(lookup.field);
        return u"(SELECT %1 FROM %2 AS found WHERE found.%3 = %4 LIMIT 1)"_s.arg(
                   u"found."_s + dialect_.name(column), dialect_.name(lookup.table),
                   dialect_.name(lookup.key), other) +
               dialect_.byOurOrder;
    }

    // Whether the table has the column; without a column, whether there is the table.
    bool has(const QString &table, const QString &column)
    {
        const QString key = table.toLower();
        if (!columns_.contains(key)) {
            for (const QString &name : connection_.columns(table))
                columns_[key].insert(name.toLower());
        }
        const QSet<QString> &known = columns_[key];
        return column.isEmpty() ? !known.isEmpty() : known.contains(column.toLower());
    }

    const ReportDefinition &definition_;
    Connection &connection_;
    const Dialect &dialect_;
    QHash<QString, QSet<QString>> columns_;
};

QString shownFields(const ReportDefinition &definition, Fields &fields)
{
    QStringList list;
    for (const ReportField &field : definition.fields) {
        const QString sql = fields.sql(field.table, field.column);
        if (sql.isEmpty()) raise(u"The database has no field %1.%2"_s.arg(field.table, field.column));
        list << fields.dialect().asText(sql);
    }
    return list.isEmpty() ? u"''"_s : list.join(u", "_s);
}

QString order(const QStringList &sort, Fields &fields)
{
    QStringList list;
    for (const QString &field : sort) {
        const QString name = field.mid(2, field.size() - 3);
        const bool shaped = (field.startsWith("+{"_L1) || field.startsWith("-{"_L1)) && field.endsWith(u'}');
        const QString sql = shaped ? fields.sql(name.section(u'.', 0, 0), name.section(u'.', 1)) : QString();
        if (sql.isEmpty()) raise(u"There is no such field to sort by: %1"_s.arg(field));
        list << sql + (field.startsWith(u'-') ? u" DESC"_s : u""_s);
    }
    list << fields.dialect().rowOrder;
    return list.join(u", "_s);
}
} // namespace

ReportData::ReportData(const ReportDefinition &definition, const QString &database, const QString &selection,
                       const QStringList &sort)
    : width_(std::max<std::size_t>(definition.fields.size(), 1))
{
    Connection connection;
    connection.setDataSource(database);
    connection.OpenReadOnly();
    Fields fields(definition, connection);

    QString sql = u"SELECT "_s + shownFields(definition, fields) + u" FROM "_s +
                  fields.dialect().name(definition.table);
    const SelectionCondition condition = compileSelection(
        selection, [&](const QString &table, const QString &column) { return fields.sql(table, column); });
    if (!condition.sql.isEmpty()) sql += u" WHERE "_s + condition.sql;
    sql += u" ORDER BY "_s + order(sort, fields);

    Recordset rs = connection.query(sql, condition.values);
    cells_.reserve(static_cast<std::size_t>(rs.RecordCount()) * width_);
    for (; !rs.Eof(); rs.MoveNext())
        for (QString &cell : rs.Row())
            cells_.push_back(std::move(cell));
}
