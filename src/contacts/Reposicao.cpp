#include "contacts/Reposicao.h"

#include "data/CartoesGuardados.h"
#include "data/Geral.h"
#include "data/LinhaComId.h"
#include "platform/Failure.h"
#include "platform/TextOrder.h"

#include <algorithm>

namespace
{
constexpr std::string_view lista = "TblLista";
constexpr std::string_view grupos = "TblGrupos";
constexpr std::string_view cartoes = "TblCartoes";

std::optional<LinhaInteira> Grupo_Com_Id(DE &de, const QString &ID)
{
    return ID.isEmpty() ? std::nullopt : Linha_Com_Id(de, grupos, ID);
}

// The group a contact lies in and its presence change by themselves; all else makes it the same contact.
bool Iguais(LinhaInteira a, LinhaInteira b)
{
    for (LinhaInteira *linha : {&a, &b})
        for (const std::string_view coluna : {"Grupo", "MSNMessenger"})
            linha->erase(coluna);
    return a == b;
}

QString Repor_Linha(DE &de, std::string_view tabela, LinhaInteira linha, Numero numero)
{
    QString ID = linha_inteira::Texto(linha, "ID");
    if (const std::optional<LinhaInteira> aqui = Linha_Com_Id(de, tabela, ID)) {
        if (Iguais(*aqui, linha)) return ID;
        if (numero == Numero::OMesmo) throw NumeroOcupado();
        linha["ID"] = std::monostate();
    }
    return de.Repor_Inteira(tabela, linha);
}

std::map<QString, LinhaInteira> Cartoes_De(DE &de, const LinhasInteiras &contactos)
{
    std::map<QString, LinhaInteira> todos;
    if (!de.Em_Dia()) return todos;
    for (const LinhaInteira &contacto : contactos) {
        const QString ID = linha_inteira::Texto(contacto, "ID");
        for (LinhaInteira &cartao : de.Ler_Inteiras(cartoes, "IDContacto", ID))
            todos[ID] = std::move(cartao);
    }
    return todos;
}

// With its card, which goes to the ID under which the contact comes back. Returns that ID.
QString Repor_Com_Cartao(DE &de, const Eliminacao &eliminacao, const LinhaInteira &contacto, Numero numero)
{
    QString ID = Repor_Linha(de, lista, contacto, numero);
    const auto achado = eliminacao.cartoes.find(linha_inteira::Texto(contacto, "ID"));
    if (achado == eliminacao.cartoes.end() || !de.Ler_Inteiras(cartoes, "IDContacto", ID).empty()) return ID;
    LinhaInteira cartao = achado->second;
    cartao["IDContacto"] = Value(ID).convertedTo(ColumnType::Long);
    de.Repor_Inteira(cartoes, cartao);
    return ID;
}

// Of the groups that the user sees: the same one, one of its name, the first.
LinhaInteira Grupo_A_Vista(Geral &geral, const LinhaInteira &antes)
{
    LinhasInteiras a_vista;
    Recordset &rs = geral.de.Abrir("cmdListarGrupos", {geral.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        a_vista.push_back(linha_inteira::Da_Linha(grupos, rs));
    rs.Close();
    if (a_vista.empty()) throw SemGrupo();

    const auto procurar = [&](const auto &serve) {
        return std::find_if(a_vista.begin(), a_vista.end(), serve);
    };
    const QString nome = linha_inteira::Texto(antes, "NomeGrupo");
    auto achado = procurar([&](const LinhaInteira &g) { return g.at("ID") == antes.at("ID"); });
    if (achado == a_vista.end())
        achado = procurar([&](const LinhaInteira &g) {
            return compareText(linha_inteira::Texto(g, "NomeGrupo"), nome) == 0;
        });
    return achado == a_vista.end() ? a_vista.front() : *achado;
}

LinhaInteira Contacto_Com_Id(DE &de, const QString &ID)
{
    std::optional<LinhaInteira> linha = Linha_Com_Id(de, lista, ID);
    if (!linha) throw Failure(Failure::StoreError, ID, QStringLiteral("No contact has the ID %1").arg(ID));
    return std::move(*linha);
}

// As it was before it took in the other, unless somebody has changed it since. Returns whether it is.
bool Separar(DE &de, const Juncao &juncao)
{
    const QString ID = linha_inteira::Texto(juncao.antes, "ID");
    const LinhasInteiras agora = de.Ler_Inteiras(lista, "ID", ID);
    if (agora.empty() || !Iguais(agora.front(), juncao.depois)) return false;
    LinhaInteira antes = juncao.antes;
    antes["MSNMessenger"] = agora.front().at("MSNMessenger");
    if (agora.front().at("Grupo") != juncao.depois.at("Grupo")) antes["Grupo"] = agora.front().at("Grupo");
    de.Executar("cmdEliminarNome", {ID});
    de.Repor_Inteira(lista, antes);
    if (juncao.veio_o_cartao) CartoesGuardados(de).Eliminar(ID);
    return true;
}

Reposto Repor_Contacto(Geral &geral, const Eliminacao &eliminacao, Numero numero)
{
    Reposto reposto;
    LinhaInteira contacto = eliminacao.contactos.front();
    if (eliminacao.grupo) { // a contact that lay in no group comes back as it was
        const LinhaInteira grupo = Grupo_A_Vista(geral, *eliminacao.grupo);
        if (grupo.at("ID") != eliminacao.grupo->at("ID")) {
            reposto.noutro_grupo = true;
            reposto.grupo_em_falta = linha_inteira::Texto(*eliminacao.grupo, "NomeGrupo");
            reposto.outro_grupo = linha_inteira::Texto(grupo, "NomeGrupo");
        }
        contacto["Grupo"] = grupo.at("ID");
    }
    reposto.IDGrupo = linha_inteira::Texto(contacto, "Grupo");
    reposto.ID = Repor_Com_Cartao(geral.de, eliminacao, contacto, numero);
    reposto.ficou_junto = eliminacao.juncao && !Separar(geral.de, *eliminacao.juncao);
    return reposto;
}

// Of the contacts that were moved those come back that are still where they were moved to.
Reposto Repor_Grupo(DE &de, const Eliminacao &eliminacao, Numero numero)
{
    const QString grupo = Repor_Linha(de, grupos, *eliminacao.grupo, numero);
    const StoreValue ID = Value(grupo).convertedTo(ColumnType::Long);
    for (LinhaInteira contacto : eliminacao.contactos) {
        contacto["Grupo"] = ID;
        if (eliminacao.destino.isEmpty())
            Repor_Com_Cartao(de, eliminacao, contacto, numero);
        else
            de.Repor_No_Grupo(linha_inteira::Texto(contacto, "ID"), grupo, eliminacao.destino);
    }
    Reposto reposto;
    reposto.IDGrupo = grupo;
    return reposto;
}
} // namespace

Eliminacao Retrato_Do_Contacto(Geral &geral, const QString &ID)
{
    Eliminacao eliminacao{.IdUtilizador = geral.SessaoActual.IdUtilizador,
                          .grupo = {},
                          .contactos = geral.de.Ler_Inteiras(lista, "ID", ID),
                          .cartoes = {},
                          .destino = {},
                          .vai_o_grupo = false,
                          .juncao = {}};
    eliminacao.cartoes = Cartoes_De(geral.de, eliminacao.contactos);
    if (!eliminacao.contactos.empty())
        eliminacao.grupo =
            Grupo_Com_Id(geral.de, linha_inteira::Texto(eliminacao.contactos.front(), "Grupo"));
    return eliminacao;
}

Eliminacao Retrato_Do_Grupo(Geral &geral, const QString &ID, const QString &destino)
{
    Eliminacao eliminacao{.IdUtilizador = geral.SessaoActual.IdUtilizador,
                          .grupo = Grupo_Com_Id(geral.de, ID),
                          .contactos = geral.de.Ler_Inteiras(lista, "Grupo", ID),
                          .cartoes = {},
                          .destino = destino,
                          .vai_o_grupo = true,
                          .juncao = {}};
    if (destino.isEmpty()) eliminacao.cartoes = Cartoes_De(geral.de, eliminacao.contactos);
    return eliminacao;
}

Juncao Antes_De_Juntar(DE &de, const QString &ID)
{
    return {Contacto_Com_Id(de, ID), {}, !CartoesGuardados(de).Ler(ID).has_value()};
}

void Depois_De_Juntar(DE &de, Juncao &juncao)
{
    const QString ID = linha_inteira::Texto(juncao.antes, "ID");
    juncao.depois = Contacto_Com_Id(de, ID);
    juncao.veio_o_cartao = juncao.veio_o_cartao && CartoesGuardados(de).Ler(ID).has_value();
}

Reposto Repor(Geral &geral, const Eliminacao &eliminacao, Numero numero, Tentativa &tentativa)
{
    tentativa.escrita.Correr([&] {
        tentativa.reposto = eliminacao.vai_o_grupo ? Repor_Grupo(geral.de, eliminacao, numero)
                                                   : Repor_Contacto(geral, eliminacao, numero);
    });
    return tentativa.reposto;
}
