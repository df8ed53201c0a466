#include "report/ReportLanguage.h"

#include "platform/Caption.h"
#include "report/ReportDefinition.h"
#include "report/ReportWords.h"
#include "store/Connection.h"

using namespace Qt::StringLiterals;

namespace
{
bool hasColumn(Connection &connection, const QString &table, const QString &column)
{
    return connection.columns(table).contains(column, Qt::CaseInsensitive);
}

QString headOf(const QString &caption)
{
    QString head = withoutMnemonic(caption).trimmed();
    if (head.endsWith(u':')) head = head.chopped(1).trimmed();
    return head;
}

// Empty for a text that is missing.
QString textOf(Connection &connection, const ReportTexts &texts, const QString &language, int number)
{
    const auto quoted = connection.dialect().name;
    const QString sql = u"SELECT %1 AS said FROM %2 WHERE %3 = ?"_s.arg(quoted(language), quoted(texts.table),
                                                                        quoted(texts.key));
    Recordset rs = connection.query(sql, {number});
    return rs.Eof() ? QString() : headOf(rs.Fields("said").textOrEmpty());
}
} // namespace

void sayInLanguage(ReportDefinition &definition, const QString &database, const QString &language)
{
    definition.pageOfPages = reportWord(ReportWord::PageOfPages, language);
    definition.dayFormat = reportWord(ReportWord::DayFormat, language);
    const ReportTexts &texts = definition.texts;
    if (texts.table.isEmpty()) return;
    Connection connection;
    connection.setDataSource(database);
    connection.OpenReadOnly();
    if (!hasColumn(connection, texts.table, language) || !hasColumn(connection, texts.table, texts.key))
        return;
    const auto say = [&](QString &words, int number) {
        const QString said = textOf(connection, texts, language, number);
        if (!said.isEmpty()) words = said;
    };
    if (texts.title != 0) say(definition.title, texts.title);
    for (auto it = texts.parameters.begin(); it != texts.parameters.end(); ++it)
        say(definition.parameters[it.key()], it.value());
}
