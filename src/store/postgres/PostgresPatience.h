// How long is waited for a server, and when it is tried again. One place, so that a test need not wait as long.
#pragma once

#include <chrono>
#include <vector>

struct PostgresPatience {
    std::chrono::milliseconds opening{4000}; // with name, encryption and password
    std::chrono::milliseconds command{4000}; // for one command's answer
    std::chrono::milliseconds list{15000};   // for that of a list, a search, or many commands at once
    // Between one try to come back and the next; the last one goes on for ever.
    std::vector<std::chrono::milliseconds> tries{std::chrono::seconds(1), std::chrono::seconds(2),
                                                 std::chrono::seconds(5), std::chrono::seconds(10),
                                                 std::chrono::seconds(30)};
};

// What is left of a time that has begun to run.
class Deadline
{
public:
    explicit Deadline(std::chrono::milliseconds patience) : end_(std::chrono::steady_clock::now() + patience) {}

    std::chrono::milliseconds left() const
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end_ - std::chrono::steady_clock::now());
        return std::max(left, std::chrono::milliseconds::zero());
    }

private:
    std::chrono::steady_clock::time_point end_;
};
