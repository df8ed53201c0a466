// While one lives, no file of this process grows beyond so many bytes, as on a full disk.
#pragma once

#include <csignal>
#include <sys/resource.h>

class DiscoCheio
{
public:
    // False on a system without such a limit: the test is skipped then.
    static bool Possivel() { return true; }

    explicit DiscoCheio(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiscoCheio()
    {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    DiscoCheio(const DiscoCheio &) = delete;
    DiscoCheio &operator=(const DiscoCheio &) = delete;

private:
    rlimit before_{};
    void (*handler_)(int);
};
