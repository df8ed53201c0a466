#include "data/Comandos.h"

#include "data/Esquema.h"

#include <algorithm>

// The catalogue against itself, at compile time: what a reader of the table takes for granted.
namespace
{
constexpr std::size_t Contar(std::string_view texto, char sinal)
{
    return static_cast<std::size_t>(std::count(texto.begin(), texto.end(), sinal));
}

constexpr bool Um_nome_por_parametro(const EntradaDoCatalogo &entrada)
{
    const std::size_t nomes = entrada.parametros.empty() ? 0 : Contar(entrada.parametros, ' ') + 1;
    return Contar(entrada.sql, '?') == nomes;
}

constexpr bool Linhas_so_de_um_SELECT(const EntradaDoCatalogo &entrada)
{
    return entrada.sql.starts_with("SELECT") == (entrada.linhas == Linhas::ComLinhas);
}

static_assert(std::all_of(comandos::catalogo.begin(), comandos::catalogo.end(), Um_nome_por_parametro));
static_assert(std::all_of(comandos::catalogo.begin(), comandos::catalogo.end(), Linhas_so_de_um_SELECT));
} // namespace
