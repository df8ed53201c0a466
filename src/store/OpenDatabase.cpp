#include "store/OpenDatabase.h"

#include <QRegularExpression>

namespace
{
// The dialect of the commands lets DELETE name the columns to delete; a row goes as a whole.
QString translated(const QString &sql)
{
    static const QRegularExpression starredDelete(QStringLiteral("^\\s*DELETE\\s+\\*\\s+FROM\\b"),
                                                  QRegularExpression::CaseInsensitiveOption);
    return QString(sql).replace(starredDelete, QStringLiteral("DELETE FROM"));
}

void bindAll(Statement &statement, const std::vector<StoreValue> &values)
{
    if (statement.parameterCount() != static_cast<int>(values.size()))
        raising::failure(
            QStringLiteral("%1 values for %2 parameters").arg(values.size()).arg(statement.parameterCount()));
    for (std::size_t i = 0; i < values.size(); ++i)
        statement.bind(static_cast<int>(i) + 1, values[i]);
}
} // namespace

void raising::failure(const QString &description, const QString &source, Failure::Kind kind)
{
    throw Failure(Failure::StoreError, source.isEmpty() ? QStringLiteral("Connection") : source, description,
                  kind);
}

void raising::closed() { failure(QStringLiteral("The connection is closed")); }

Statement &Connection::Database::statement(const QString &sql)
{
    auto &kept = statements[sql];
    if (!kept) kept = std::make_shared<Statement>(handle.getHandle(), translated(sql).toStdString());
    return *kept;
}

Running::Running(Statement &statement, const std::vector<StoreValue> &values) : statement_(statement)
{
    bindAll(statement_, values);
}
