#include "cards/DuplicadosDoLivro.h"

#include "cards/LinhaDaAgenda.h"
#include "contacts/DesfazerEliminacao.h"
#include "data/CartoesGuardados.h"
#include "data/Geral.h"
#include "data/LinhaComId.h"
#include "platform/Failure.h"
#include "store/Row.h"

#include <limits>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
constexpr std::string_view lista = "TblLista";

struct JaNaoEAssim : std::exception {
};

ColunasDoContacto Colunas_Da(const LinhaInteira &linha)
{
    ColunasDoContacto colunas;
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        colunas.valores[i] = linha_inteira::Texto(linha, ColunasDoContacto::na_tabela[i]);
    return colunas;
}

// Only what is compared: of a large book little is held at a time.
ColunasDoContacto Comparadas(const Row &linha)
{
    using enum Coluna;
    ColunasDoContacto colunas;
    for (const Coluna coluna :
         {Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, Email1, Email2}) {
        const char *nome = ColunasDoContacto::na_tabela[static_cast<std::size_t>(coluna)];
        const std::string_view valor = linha.utf8(linha.column(nome));
        colunas[coluna] = QString::fromUtf8(valor.data(), static_cast<qsizetype>(valor.size()));
    }
    return colunas;
}

// Presence changes by itself.
bool Igual(const std::optional<LinhaInteira> &agora, LinhaInteira antes)
{
    if (!agora) return false;
    LinhaInteira esta = *agora;
    for (LinhaInteira *linha : {&esta, &antes})
        linha->erase("MSNMessenger");
    return esta == antes;
}

QString Juntos(const QString &um, const QString &outro) { return um + u' ' + outro; }

QSet<QString> Diferentes(DE &de)
{
    QSet<QString> pares;
    skipFailure([&] { // an older database that takes no writing has none
        de.Percorrer("cmdListarDiferentes", {}, [&](const Row &linha) {
            pares.insert(Juntos(linha.field(linha.column("IDContacto")).text(),
                                linha.field(linha.column("IDOutro")).text()));
        });
    });
    return pares;
}
} // namespace

DuplicadosDoLivro::DuplicadosDoLivro(Geral &geral, DesfazerEliminacao &desfazer)
    : geral_(geral), desfazer_(desfazer)
{
    Procurar();
}

void DuplicadosDoLivro::Procurar()
{
    Recordset &rs = geral_.de.Abrir("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        grupos_.insert(rs.Fields("ID").text(), rs.Fields("NomeGrupo").textOrEmpty());
    rs.Close();

    std::vector<QString> IDs; // ascending
    ParesDuplicados procura;
    geral_.de.Percorrer_A_Vista(geral_.SessaoActual.IdUtilizador, 0, std::numeric_limits<int>::max(),
                                [&](const Row &linha) {
                                    IDs.push_back(linha.field(linha.column("ID")).text());
                                    procura.Juntar(Comparadas(linha));
                                });
    const QSet<QString> diferentes = Diferentes(geral_.de);
    for (const ParDuplicado &par : procura.Pares())
        if (!diferentes.contains(Juntos(IDs[par.um], IDs[par.outro])))
            pares_.push_back({IDs[par.um], IDs[par.outro], par.indicio});
}

QString DuplicadosDoLivro::Nome_Do_Grupo(const LinhaInteira &contacto) const
{
    return grupos_.value(linha_inteira::Texto(contacto, "Grupo"));
}

bool DuplicadosDoLivro::A_Vista(const LinhaInteira &linha) const
{
    return grupos_.contains(linha_inteira::Texto(linha, "Grupo"));
}

std::optional<DuplicadosDoLivro::Aberto> DuplicadosDoLivro::Abrir()
{
    for (; actual_ < pares_.size(); ++actual_) {
        const Par &par = pares_[actual_];
        const auto linha = Linha_Com_Id(geral_.de, lista, par.ID);
        const auto outra = Linha_Com_Id(geral_.de, lista, par.outroID);
        if (linha && outra && A_Vista(*linha) && A_Vista(*outra))
            return Aberto{par.ID,     par.outroID, *linha, *outra, Colunas_Da(*linha), Colunas_Da(*outra),
                          par.indicio};
    }
    return std::nullopt;
}

bool DuplicadosDoLivro::Juntar(const Aberto &par, const ColunasDoContacto &colunas)
{
    try {
        desfazer_.Juntar_Contactos(par.ID, par.outroID, [&] { Escrever(par, colunas); });
    } catch (const JaNaoEAssim &) {
        return false;
    }
    return true;
}

void DuplicadosDoLivro::Escrever(const Aberto &par, const ColunasDoContacto &colunas)
{
    DE &de = geral_.de;
    if (!Igual(Linha_Com_Id(de, lista, par.ID), par.linha) ||
        !Igual(Linha_Com_Id(de, lista, par.outroID), par.outra_linha))
        throw JaNaoEAssim();
    linha_da_agenda::Escrever(de, par.ID, {colunas, {}});
    CartoesGuardados cartoes(de);
    if (!cartoes.Ler(par.ID))
        if (auto cartao = cartoes.Ler(par.outroID)) {
            cartao->IDContacto = par.ID;
            cartoes.Guardar(*cartao);
        }
    cartoes.Eliminar(par.outroID);
    de.Executar("cmdEliminarNome", {par.outroID});
}

void DuplicadosDoLivro::Guardar_Diferentes(const Aberto &par)
{
    geral_.de.Tudo_Ou_Nada([&] { geral_.de.Executar("cmdGuardarDiferentes", {par.ID, par.outroID}); });
}
