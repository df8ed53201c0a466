// How wide the columns of a list become on a page.
#pragma once

#include <optional>
#include <vector>

struct ColumnNeed {
    double whole = 0; // of its widest cell
    double least = 0; // narrower than this it is not to become
};

// Each column as wide as it needs to be, if they have room beside one another; otherwise the widest of them
// give way until they have. Nothing where there is too little room even so.
std::optional<std::vector<double>> columnWidths(const std::vector<ColumnNeed> &needs, double room);
