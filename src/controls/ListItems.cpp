#include "controls/ListItems.h"

#include "platform/MakeRoom.h"
#include "platform/TextOrder.h"

#include <algorithm>

namespace
{
// Many contacts share a name, which the letters tell faster than their order.
bool before(std::string_view a, std::string_view b) { return a != b && compareUtf8(a, b) < 0; }
} // namespace

ListItems::ListItems() : table_(new Table) {}

void ListItems::setData(int index, int data) { table_->rows[static_cast<std::size_t>(index)].data = data; }

void ListItems::insert(int index, std::string_view utf8, int data)
{
    Table &table = *table_;
    const Row row{table.letters.size(), static_cast<uint32_t>(utf8.size()), data};
    table.letters += utf8;
    table.rows.insert(table.rows.begin() + index, row);
}

// Thousands of times in a row, when a large book is read.
void ListItems::append(std::string_view utf8, int data)
{
    Table &table = *table_;
    makeRoom(table.rows, 1);
    makeRoom(table.letters, utf8.size());
    table.rows.push_back({table.letters.size(), static_cast<uint32_t>(utf8.size()), data});
    table.letters += utf8;
}

void ListItems::remove(int index) { table_->rows.erase(table_->rows.begin() + index); }

// Rows mostly arrive in order already: then nothing changes, and who shares them goes on sharing.
void ListItems::sort()
{
    const Table &read = *table_.constData();
    const auto inOrder = [](const Table &table) {
        return [&table](const Row &a, const Row &b) { return before(table.textOf(a), table.textOf(b)); };
    };
    if (std::is_sorted(read.rows.begin(), read.rows.end(), inOrder(read))) return;
    Table &table = *table_;
    std::stable_sort(table.rows.begin(), table.rows.end(), inOrder(table));
}

// For the same reason the last row is asked first.
int ListItems::placeOf(std::string_view utf8) const
{
    const auto &rows = table_->rows;
    if (rows.empty() || !before(utf8, text(count() - 1))) return count();
    const auto place =
        std::upper_bound(rows.begin(), rows.end(), utf8,
                         [this](std::string_view a, const Row &b) { return before(a, table_->textOf(b)); });
    return static_cast<int>(place - rows.begin());
}
