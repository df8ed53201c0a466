// A statement while it runs. Frees it for its next use, whatever became of this one, so that no lock stays
// behind.
#pragma once

#include "store/sqlite/Statement.h"

#include <vector>

class Running
{
public:
    // Raises Failure where there are not as many values as the statement has places.
    Running(Statement &statement, const std::vector<StoreValue> &values);
    ~Running() { statement_.release(); }
    Running(const Running &) = delete;
    Running &operator=(const Running &) = delete;

private:
    Statement &statement_;
};
