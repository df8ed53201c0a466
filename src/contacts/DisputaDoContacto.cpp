#include "contacts/DisputaDoContacto.h"

#include "data/Geral.h"
#include "platform/Picture.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using disputa_do_contacto::coluna_fotografia;
using disputa_do_contacto::coluna_grupo;

namespace
{
struct CampoDoEditor {
    EncontroDeLinhas::Campo colunas;
    qint16 texto;         // number of its caption
    const char *palavras; // or the caption itself
};

// In the order of the columns.
const std::vector<CampoDoEditor> &Campos_Do_Editor()
{
    static const std::vector<CampoDoEditor> campos{
        {{0}, 27, nullptr},           {{1}, 28, nullptr},
        {{2}, 29, nullptr},           {{3}, 0, "Fax"},
        {{4}, 30, nullptr},           {{5}, 31, nullptr},
        {{6}, 32, nullptr},           {{7, 8, 9}, 38, nullptr},
        {{10}, 0, "E-mail 1"},        {{11}, 0, "E-mail 2"},
        {{12}, 34, nullptr},          {{13}, 36, nullptr},
        {{14}, 37, nullptr},          {{coluna_fotografia}, 35, nullptr},
        {{coluna_grupo}, 42, nullptr}};
    return campos;
}

// One caption ends in a colon.
QString Rotulo(const CampoDoEditor &campo, Geral &geral)
{
    if (campo.palavras != nullptr) return QLatin1StringView(campo.palavras);
    return geral.Ler_Idioma(campo.texto).remove(u':').trimmed();
}

QString Nome_Do_Grupo(Geral &geral, const QString &ID)
{
    Recordset &rs = geral.de.Abrir("cmdVerGrupo", {ID});
    QString nome = rs.Eof() ? QString() : rs.Fields("NomeGrupo").textOrEmpty();
    rs.Close();
    return nome;
}

QString A_Ler(const CampoDoEditor &campo, const QStringList &linha, Geral &geral)
{
    if (campo.colunas.front() == qsizetype{coluna_grupo}) return Nome_Do_Grupo(geral, linha[coluna_grupo]);
    QStringList partes;
    for (const qsizetype coluna : campo.colunas)
        partes << linha[coluna];
    partes.removeAll(QString());
    return partes.join(u'-');
}
} // namespace

LinhaEditada::Forma disputa_do_contacto::Forma()
{
    EncontroDeLinhas::Campos campos;
    for (const CampoDoEditor &campo : Campos_Do_Editor())
        campos.push_back(campo.colunas);
    return {"TblLista",
            {"Nome", "Telefone1", "Telefone2", "Fax", "Telemovel1", "Telemovel2", "Telemovel3", "Dia", "Mes",
             "Ano", "Email1", "Email2", "Website", "Morada", "Obs", "Fotografia", "Grupo"},
            campos};
}

QStringList disputa_do_contacto::Em_Lista(const Valores &valores) { return {valores.begin(), valores.end()}; }

disputa_do_contacto::Valores disputa_do_contacto::Da_Lista(const QStringList &lista)
{
    Valores valores;
    std::copy(lista.begin(), lista.end(), valores.begin());
    return valores;
}

CamposDisputados disputa_do_contacto::Campos(const LinhaEditada::Disputa &disputa, Geral &geral,
                                             const std::function<Picture(const QString &)> &imagem)
{
    CamposDisputados campos;
    for (const std::size_t lugar : disputa.campos) {
        const CampoDoEditor &campo = Campos_Do_Editor()[lugar];
        const bool e_fotografia = campo.colunas.front() == qsizetype{coluna_fotografia};
        campos[lugar] = {Rotulo(campo, geral), A_Ler(campo, disputa.la, geral),
                         A_Ler(campo, disputa.aqui, geral),
                         e_fotografia ? imagem : std::function<Picture(const QString &)>()};
    }
    return campos;
}
