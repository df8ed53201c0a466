// The calls of this system's libraries cannot be stood in for, so no process dies at a chosen one.
#pragma once

#include <string>

namespace morte_no_disco
{
constexpr bool Possivel() { return false; }

inline bool armada = false;
inline std::string mudancas;

inline void Armar(int) {}
} // namespace morte_no_disco
