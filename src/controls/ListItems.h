// The rows of a list box, packed: a large book costs its letters and 16 bytes a row, not an object each.
// Copies share their rows until one of them changes.
#pragma once

#include <QSharedData>
#include <QSharedDataPointer>
#include <string>
#include <string_view>
#include <vector>

class ListItems
{
public:
    ListItems();

    int count() const { return static_cast<int>(table_->rows.size()); }
    std::string_view text(int index) const { return table_->textOf(row(index)); } // until the rows change
    int data(int index) const { return row(index).data; }

    void setData(int index, int data);
    void insert(int index, std::string_view utf8, int data = 0);
    void append(std::string_view utf8, int data);
    void remove(int index);

    // In the order of names, equal ones in the order that they have.
    void sort();
    // The place of one more row in that order: behind its equals.
    int placeOf(std::string_view utf8) const;

private:
    struct Row {
        std::size_t start = 0; // among the letters
        uint32_t length = 0;   // of UTF-8
        int data = 0;
    };
    struct Table : QSharedData {
        std::string letters; // those of a removed row stay until the table goes
        std::vector<Row> rows;
        std::string_view textOf(const Row &row) const
        {
            return std::string_view(letters).substr(row.start, row.length);
        }
    };
    const Row &row(int index) const { return table_->rows[static_cast<std::size_t>(index)]; }

    QSharedDataPointer<Table> table_;
};
