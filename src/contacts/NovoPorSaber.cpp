#include "contacts/NovoPorSaber.h"

#include "data/DE.h"
#include "platform/Failure.h"

#include <utility>

void NovoPorSaber::Vigiar(const QString &Nome, const std::function<void()> &escrever)
{
    try {
        escrever();
    } catch (const Failure &falha) {
        por_saber_ = falha.kind() == Failure::Kind::ServerLost;
        Nome_ = Nome;
        throw;
    }
}

void NovoPorSaber::Servidor_De_Volta()
{
    if (!std::exchange(por_saber_, false)) return;
    chegou_ = de_.Escrita_Perdida() == Fate::Arrived;
}

QString NovoPorSaber::ID()
{
    if (!chegou_) return {};
    int ultimo = 0;
    Recordset &rs = de_.Abrir("cmdProcurarNome", {Nome_});
    for (; !rs.Eof(); rs.MoveNext())
        if (rs.Fields("Nome").textOrEmpty() == Nome_) ultimo = std::max(ultimo, rs.Fields("ID").number());
    rs.Close();
    return ultimo == 0 ? QString() : QString::number(ultimo);
}
