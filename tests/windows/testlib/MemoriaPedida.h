// The library's own malloc is not to be stood in for here: nothing is measured.
#pragma once

#include <cstddef>

namespace memoria
{
class Medida
{
public:
    Medida() {} // NOLINT(modernize-use-equals-default): one that is constant wants a constructor
    static bool Possivel() { return false; }
    std::size_t Maximo() const { return 0; }
    static bool Tirada(std::size_t, std::size_t) { return true; }
};
} // namespace memoria
