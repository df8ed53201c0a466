// Nothing here keeps the files of one process from growing.
#pragma once

using rlim_t = unsigned long long;

class DiscoCheio
{
public:
    static bool Possivel() { return false; }
    explicit DiscoCheio(rlim_t) {}
};
