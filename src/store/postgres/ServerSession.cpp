#include "store/postgres/ServerSession.h"

#include "store/postgres/PostgresOpening.h"
#include "store/Raising.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace
{
// The server's own numbers for the types of cells.
enum Type : Oid { Bytes = 17, Int8 = 20, Int2 = 21, Int4 = 23, Float4 = 700, Float8 = 701 };

bool good(const PostgresResult &result) { return result && !isRefusal(result.get()); }

QByteArray unescaped(const char *cell)
{
    std::size_t size = 0;
    unsigned char *bytes = libpq::unescapeBytea(reinterpret_cast<const unsigned char *>(cell), &size);
    QByteArray copy(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size));
    libpq::freemem(bytes);
    return copy;
}

StoreValue cell(const PGresult *result, int row, int column)
{
    if (libpq::getisnull(result, row, column) != 0) return std::monostate();
    const char *text = libpq::getvalue(result, row, column);
    switch (libpq::ftype(result, column)) {
    case Int2:
    case Int4:
    case Int8:
        return QByteArray::fromRawData(text, libpq::getlength(result, row, column)).toLongLong();
    case Float4:
    case Float8:
        return QByteArray::fromRawData(text, libpq::getlength(result, row, column)).toDouble();
    case Bytes:
        return unescaped(text);
    default:
        return QString::fromUtf8(text, libpq::getlength(result, row, column));
    }
}

// Those of a result of one row.
ServerSession::Values cells(const PGresult *result)
{
    ServerSession::Values values;
    for (int i = 0; i < libpq::nfields(result); ++i)
        values.push_back(cell(result, 0, i));
    return values;
}

// A value as the server reads it from text; Null stands apart.
QByteArray asText(const StoreValue &value)
{
    if (const auto *number = std::get_if<qint64>(&value)) return QByteArray::number(*number);
    if (const auto *number = std::get_if<double>(&value))
        return QByteArray::number(*number, 'g', QLocale::FloatingPointShortest);
    if (const auto *text = std::get_if<QString>(&value)) return text->toUtf8();
    if (const auto *bytes = std::get_if<QByteArray>(&value)) return "\\x" + bytes->toHex();
    return {};
}

// A cell of a row that is copied in: what parts cells and rows stands behind a backslash.
void appendCopied(QByteArray &line, const StoreValue &value)
{
    if (std::holds_alternative<std::monostate>(value)) line += "\\N";
    for (const char c : asText(value)) {
        switch (c) {
        case '\\':
            line += "\\\\";
            break;
        case '\t':
            line += "\\t";
            break;
        case '\n':
            line += "\\n";
            break;
        case '\r':
            line += "\\r";
            break;
        default:
            line += c;
        }
    }
}

void appendCopied(QByteArray &lines, const ServerSession::Values &row)
{
    for (std::size_t i = 0; i < row.size(); ++i) {
        if (i > 0) lines += '\t';
        appendCopied(lines, row[i]);
    }
    lines += '\n';
}

// Whether all was well. What is answered has to be taken, or the next command is refused.
bool takeAnswers(PGconn *connection)
{
    bool all = true;
    while (PGresult *result = libpq::getResult(connection))
        all = good(PostgresResult(result)) && all;
    return all;
}
} // namespace

struct ServerSession::Line {
    PostgresConnection connection;
};

ServerSession::ServerSession(const QString &address)
    : place_(PostgresAddress::shown(address)), line_(std::make_unique<Line>())
{
    constexpr std::chrono::seconds patience(10);
    line_->connection = openNow(PostgresAddress(address), {}, Deadline(patience));
    libpq::setNoticeProcessor(
        line_->connection.get(), [](void *, const char *) {}, nullptr);
}

ServerSession::~ServerSession() = default;

void ServerSession::raise(const QString &sql) const
{
    PGconn *connection = line_->connection.get();
    const QString reason = QString::fromUtf8(libpq::errorMessage(connection)).trimmed();
    if (libpq::status(connection) != CONNECTION_OK) raiseLost(reason);
    raising::failure(reason, sql);
}

void ServerSession::run(const QString &sql)
{
    if (!good(PostgresResult(libpq::exec(line_->connection.get(), sql.toUtf8().constData())))) raise(sql);
}

Recordset ServerSession::query(const QString &sql, const Values &values)
{
    std::vector<QByteArray> texts;
    std::vector<const char *> pointers;
    for (const StoreValue &value : values)
        texts.push_back(asText(value));
    for (std::size_t i = 0; i < values.size(); ++i)
        pointers.push_back(std::holds_alternative<std::monostate>(values[i]) ? nullptr
                                                                             : texts[i].constData());
    const PostgresResult result(libpq::execParams(line_->connection.get(), sql.toUtf8().constData(),
                                                  static_cast<int>(values.size()), nullptr, pointers.data(),
                                                  nullptr, nullptr, 0));
    if (!good(result)) raise(sql);
    std::vector<QByteArray> columns;
    columns.reserve(static_cast<std::size_t>(libpq::nfields(result.get())));
    for (int i = 0; i < libpq::nfields(result.get()); ++i)
        columns.emplace_back(libpq::fname(result.get(), i));
    Cells cells;
    for (int row = 0; row < libpq::ntuples(result.get()); ++row)
        for (int i = 0; i < libpq::nfields(result.get()); ++i)
            cells.add(cell(result.get(), row, i));
    return {std::move(columns), std::move(cells)};
}

void ServerSession::each(const QString &sql, const std::function<void(const Values &)> &row)
{
    PGconn *connection = line_->connection.get();
    if (libpq::sendQuery(connection, sql.toUtf8().constData()) == 0) raise(sql);
    libpq::setSingleRowMode(connection);
    std::exception_ptr stopped;
    bool all = true;
    while (PGresult *answer = libpq::getResult(connection)) {
        const PostgresResult result(answer);
        all = good(result) && all;
        if (libpq::resultStatus(answer) != PGRES_SINGLE_TUPLE || stopped) continue; // what is sent has to be taken
        try {
            row(cells(answer));
        } catch (...) {
            stopped = std::current_exception();
        }
    }
    if (stopped) std::rethrow_exception(stopped);
    if (!all) raise(sql);
}

void ServerSession::copyIn(const QString &table, const QStringList &columns,
                           const std::function<void(const Give &)> &rows)
{
    constexpr qsizetype portion = 1 << 18;
    const QString sql = u"COPY %1 (%2) FROM STDIN"_s.arg(table, columns.join(u", "_s));
    PGconn *connection = line_->connection.get();
    if (const PostgresResult result(libpq::exec(connection, sql.toUtf8().constData()));
        libpq::resultStatus(result.get()) != PGRES_COPY_IN)
        raise(sql);
    QByteArray lines;
    const auto send = [&] {
        if (libpq::putCopyData(connection, lines.constData(), static_cast<int>(lines.size())) != 1) raise(sql);
        lines.clear();
    };
    try {
        rows([&](const Values &row) {
            appendCopied(lines, row);
            if (lines.size() > portion) send();
        });
        send();
    } catch (...) {
        libpq::putCopyEnd(connection, "given up");
        takeAnswers(connection);
        throw;
    }
    if (libpq::putCopyEnd(connection, nullptr) != 1 || !takeAnswers(connection)) raise(sql);
}

void ServerSession::within(const QString &begin, const std::function<void()> &work)
{
    run(begin);
    try {
        work();
        run(u"COMMIT"_s);
    } catch (...) {
        const PostgresResult undone(libpq::exec(line_->connection.get(), "ROLLBACK"));
        throw;
    }
}

void ServerSession::together(const std::function<void()> &work) { within(u"BEGIN"_s, work); }

void ServerSession::snapshot(const std::function<void()> &work)
{
    within(u"BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY"_s, work);
}

QString ServerSession::quoted(const QString &text)
{
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

QString ServerSession::name(const QString &text)
{
    return u'"' + QString(text).replace(u'"', u"\"\""_s) + u'"';
}
