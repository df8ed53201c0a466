#include "store/sqlite/Statement.h"

#include <sqlite3.h>
#include <SQLiteCpp/Exception.h>

Statement::Statement(sqlite3 *store, const std::string &sql) : store_(store)
{
    check(sqlite3_prepare_v2(store, sql.c_str(), static_cast<int>(sql.size()), &handle_, nullptr));
}

Statement::~Statement() { sqlite3_finalize(handle_); }

int Statement::parameterCount() const { return sqlite3_bind_parameter_count(handle_); }

void Statement::bind(int place, const StoreValue &value)
{
    if (const auto *number = std::get_if<qint64>(&value)) {
        check(sqlite3_bind_int64(handle_, place, *number));
    } else if (const auto *real = std::get_if<double>(&value)) {
        check(sqlite3_bind_double(handle_, place, *real));
    } else if (const auto *text = std::get_if<QString>(&value)) {
        bound_.push_back(text->toUtf8());
        check(sqlite3_bind_text(handle_, place, bound_.back().constData(),
                                static_cast<int>(bound_.back().size()),
                                SQLITE_STATIC)); // NOLINT: the library's own cast
    } else if (const auto *bytes = std::get_if<QByteArray>(&value)) {
        bound_.push_back(*bytes);
        check(sqlite3_bind_blob(handle_, place, bound_.back().constData(),
                                static_cast<int>(bound_.back().size()),
                                SQLITE_STATIC)); // NOLINT: the library's own cast
    } else {
        check(sqlite3_bind_null(handle_, place));
    }
}

bool Statement::step()
{
    const int result = sqlite3_step(handle_);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) throw SQLite::Exception(store_, result);
    return false;
}

void Statement::run()
{
    if (step()) throw SQLite::Exception("A statement that should only write has rows");
}

void Statement::release()
{
    sqlite3_reset(handle_); // tells once more what the last step has told
    sqlite3_clear_bindings(handle_);
    bound_.clear();
}

void Statement::check(int result) const
{
    if (result != SQLITE_OK) throw SQLite::Exception(store_, result);
}
