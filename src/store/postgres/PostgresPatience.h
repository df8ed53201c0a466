// How long is waited for a server, and when it is tried again. One place, so that a test need not wait as long.
#pragma once

#include <chrono>
#include <vector>

// What is left of a time that has begun to run. Where a silence is named it is over as well once nothing was heard of
// the server for as long, since the beginning or since the last word: whoever waits notes each.
class Deadline
{
public:
    using milliseconds = std::chrono::milliseconds;

    explicit Deadline(milliseconds patience, milliseconds silence = milliseconds::zero())
        : begin_(Clock::now()),
          patience_(patience),
          silence_(silence),
          heard_(begin_)
    {
    }

    milliseconds left() const
    {
        const milliseconds whole = until(begin_ + patience_);
        return asksForLife() ? std::min(whole, until(heard_ + silence_)) : whole;
    }

    void heard() const { heard_ = Clock::now(); }
    bool silent() const { return asksForLife() && until(heard_ + silence_) == milliseconds::zero(); }

    // Until it is time to ask whether the server is there at all: early enough for an answer.
    bool asksForLife() const { return silence_ > milliseconds::zero(); }
    milliseconds untilAsking() const { return until(heard_ + silence_ * 2 / 5); }

private:
    using Clock = std::chrono::steady_clock;

    static milliseconds until(Clock::time_point moment)
    {
        return std::max(std::chrono::ceil<milliseconds>(moment - Clock::now()), milliseconds::zero());
    }

    Clock::time_point begin_;
    milliseconds patience_;
    milliseconds silence_;
    mutable Clock::time_point heard_; // of what is waited for, not of the time that is allowed
};

struct PostgresPatience {
    std::chrono::milliseconds opening{4000}; // with name, encryption and password
    std::chrono::milliseconds command{4000}; // for one command's answer
    std::chrono::milliseconds list{15000};   // for that of a list, a search, or many commands at once
    // Between one try to come back and the next; the last one goes on for ever.
    std::vector<std::chrono::milliseconds> tries{std::chrono::seconds(1), std::chrono::seconds(2),
                                                 std::chrono::seconds(5), std::chrono::seconds(10),
                                                 std::chrono::seconds(30)};
    // For a server of which nothing is heard, whatever is waited for in the middle of work. With what the program does
    // besides, it is no longer than a second and a half that the window stands still.
    std::chrono::milliseconds silence{1300};

    Deadline within(std::chrono::milliseconds patience) const { return Deadline(patience, silence); }
    Deadline forOpening() const { return within(opening); }
    Deadline forCommand() const { return within(command); }
    Deadline forList() const { return within(list); }
};
