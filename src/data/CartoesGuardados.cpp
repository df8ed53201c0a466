#include "data/CartoesGuardados.h"

#include "data/DE.h"
#include "store/Row.h"

void CartoesGuardados::Guardar(const CartaoGuardado &cartao)
{
    de_.Executar("cmdGuardarCartao", {cartao.IDContacto, cartao.UID, cartao.cartao});
}

void CartoesGuardados::Guardar_Do_Novo(const QString &UID, const QByteArray &cartao)
{
    de_.Executar("cmdGuardarCartaoDoNovo", {UID, cartao});
}

std::optional<CartaoGuardado> CartoesGuardados::Ler(const QString &IDContacto)
{
    if (!de_.Em_Dia()) return std::nullopt;
    Recordset &rs = de_.Abrir("cmdLerCartao", {IDContacto});
    std::optional<CartaoGuardado> cartao;
    if (!rs.Eof())
        cartao = CartaoGuardado{IDContacto, rs.Fields("UID").textOrEmpty(), rs.Fields("cartao").bytes()};
    rs.Close();
    return cartao;
}

void CartoesGuardados::Percorrer(
    const std::function<void(const QString &IDContacto, const QString &UID)> &linha)
{
    if (!de_.Em_Dia()) return;
    de_.Percorrer("cmdListarCartoes", {}, [&](const Row &row) {
        linha(row.field(row.column("IDContacto")).text(), row.field(row.column("UID")).textOrEmpty());
    });
}

void CartoesGuardados::Eliminar(const QString &IDContacto)
{
    if (!de_.Em_Dia()) return;
    de_.Executar("cmdEliminarCartao", {IDContacto});
}

void CartoesGuardados::Eliminar_Do_Grupo(const QString &IDGrupo)
{
    if (!de_.Em_Dia()) return;
    de_.Executar("cmdEliminarCartoesByGroup", {IDGrupo});
}
