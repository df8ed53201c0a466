#include "store/sqlite/WantedFunction.h"

#include <sqlite3.h>

namespace
{
std::string_view textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    if (text == nullptr) return {};
    return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void ask(sqlite3_context *context, int, sqlite3_value **arguments)
{
    const auto &wanted = *static_cast<const Wanted *>(sqlite3_user_data(context));
    if (!wanted) return sqlite3_result_error(context, "Nobody says what is wanted", -1);
    sqlite3_result_int(context, wanted(textOf(arguments[0]), textOf(arguments[1])) ? 1 : 0);
}
} // namespace

void registerWanted(sqlite3 *connection, Wanted &wanted)
{
    constexpr int arguments = 2;
    sqlite3_create_function(connection, "wanted", arguments, SQLITE_UTF8, &wanted, ask, nullptr, nullptr);
}
