// A prepared statement of the store, for Connection alone: the wrapper of the store's library makes an object
// of each cell that is read, and hides what lies underneath.
#pragma once

#include "store/Values.h"

#include <string>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

class Statement
{
public:
    // All of these raise SQLite::Exception for what the store refuses.
    Statement(sqlite3 *store, const std::string &sql);
    ~Statement();
    Statement(const Statement &) = delete;
    Statement &operator=(const Statement &) = delete;

    int parameterCount() const;
    void bind(int place, const StoreValue &value); // places count from 1

    bool step(); // on to the next row; false behind the last one
    void run();  // for a statement that has no rows

    // Ready for its next use, with nothing locked and no value bound.
    void release();

    sqlite3_stmt *handle() const { return handle_; } // the cells are read from it

private:
    void check(int result) const;

    sqlite3 *store_;
    std::vector<QByteArray> bound_; // what the store reads where it stands, and does not copy
    sqlite3_stmt *handle_ = nullptr;
};
