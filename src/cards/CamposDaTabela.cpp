#include "cards/CamposDaTabela.h"

#include "cards/RotulosDoCartao.h"
#include "data/Geral.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_para_obs = 352;
constexpr qint16 texto_especie = 371;
constexpr qint16 texto_outra = 389;

bool Tem_Lugar(CsvField campo) { return campo == CsvField::Address || isAddressPart(campo); }

QString Do_Cartao(Rotulo rotulo, const Geral &geral)
{
    return geral.IdiomaActual.isEmpty() ? QString() : rotulos_do_cartao::Em(rotulo, geral.IdiomaActual);
}

QString Palavra_Do_Nome(CsvField campo, Geral &geral)
{
    switch (campo) {
    case CsvField::FullName:
        return Do_Cartao(Rotulo::NomeCompleto, geral);
    case CsvField::GivenName:
        return geral.Ler_Idioma(358);
    case CsvField::MiddleName:
        return geral.Ler_Idioma(359);
    case CsvField::FamilyName:
        return geral.Ler_Idioma(360);
    case CsvField::NamePrefix:
        return geral.Ler_Idioma(361);
    case CsvField::NameSuffix:
        return geral.Ler_Idioma(362);
    default:
        return Do_Cartao(Rotulo::Alcunha, geral);
    }
}

QString Palavra_Da_Morada(CsvField campo, Geral &geral)
{
    switch (campo) {
    case CsvField::Street:
        return geral.Ler_Idioma(363);
    case CsvField::PostCode:
        return geral.Ler_Idioma(364);
    case CsvField::City:
        return geral.Ler_Idioma(365);
    case CsvField::Region:
        return geral.Ler_Idioma(366);
    case CsvField::Country:
        return geral.Ler_Idioma(367);
    default:
        return Do_Cartao(Rotulo::Morada, geral);
    }
}

QString Palavra_Do_Campo(CsvField campo, Geral &geral)
{
    if (Tem_Lugar(campo)) return Palavra_Da_Morada(campo, geral);
    switch (campo) {
    case CsvField::Phone:
        return Do_Cartao(Rotulo::Telefone, geral);
    case CsvField::Mobile:
        return Do_Cartao(Rotulo::Telemovel, geral);
    case CsvField::Fax:
        return Do_Cartao(Rotulo::Fax, geral);
    case CsvField::Email:
        return Do_Cartao(Rotulo::Email, geral);
    case CsvField::Website:
        return Do_Cartao(Rotulo::Website, geral);
    case CsvField::Birthday:
        return Do_Cartao(Rotulo::Aniversario, geral);
    case CsvField::BirthDay:
        return geral.Ler_Idioma(368);
    case CsvField::BirthMonth:
        return geral.Ler_Idioma(369);
    case CsvField::BirthYear:
        return geral.Ler_Idioma(370);
    case CsvField::Note:
        return geral.Ler_Idioma(37);
    case CsvField::Group:
        return Do_Cartao(Rotulo::Categorias, geral);
    default:
        return Palavra_Do_Nome(campo, geral);
    }
}

QString Palavra_Do_Lugar(CsvPlace lugar, Geral &geral)
{
    if (lugar == CsvPlace::Home) return Do_Cartao(Rotulo::Casa, geral);
    return lugar == CsvPlace::Work ? Do_Cartao(Rotulo::Trabalho, geral) : geral.Ler_Idioma(texto_outra);
}
} // namespace

const std::vector<CsvColumn> &campos_da_tabela::Todos()
{
    static const std::vector<CsvColumn> todos = [] {
        using enum CsvField;
        std::vector<CsvColumn> campos{{}};
        for (const CsvField campo :
             {FullName, GivenName, MiddleName, FamilyName, NamePrefix, NameSuffix, Nickname, Phone, Mobile,
              Fax, Email, Website, Birthday, BirthDay, BirthMonth, BirthYear, Note, Group})
            campos.push_back({campo, CsvPlace::None, 0, false});
        for (const CsvPlace lugar : {CsvPlace::None, CsvPlace::Home, CsvPlace::Work, CsvPlace::Other})
            for (const CsvField campo : {Address, Street, PostCode, City, Region, Country})
                campos.push_back({campo, lugar, 0, false});
        return campos;
    }();
    return todos;
}

bool campos_da_tabela::Vai_Para_Obs(const CsvColumn &coluna)
{
    return coluna.field == CsvField::Unknown || coluna.field == CsvField::Detail ||
           coluna.field == CsvField::Photo;
}

QString campos_da_tabela::Palavra(const CsvColumn &coluna, Geral &geral)
{
    if (Vai_Para_Obs(coluna)) return geral.Ler_Idioma(texto_para_obs);
    QString palavra = Palavra_Do_Campo(coluna.field, geral);
    if (coluna.number > 0) palavra += u' ' + QString::number(coluna.number);
    if (coluna.isLabel) return u"%1 (%2)"_s.arg(palavra, geral.Ler_Idioma(texto_especie));
    if (!Tem_Lugar(coluna.field) || coluna.place == CsvPlace::None) return palavra;
    return u"%1 (%2)"_s.arg(palavra, Palavra_Do_Lugar(coluna.place, geral));
}

int campos_da_tabela::Escolha_De(const CsvColumn &coluna)
{
    if (Vai_Para_Obs(coluna)) return 0;
    const std::vector<CsvColumn> &todos = Todos();
    const CsvPlace lugar = Tem_Lugar(coluna.field) ? coluna.place : CsvPlace::None;
    const auto achada = std::find_if(todos.begin(), todos.end(), [&](const CsvColumn &escolha) {
        return !coluna.isLabel && coluna.number == 0 && escolha.field == coluna.field &&
               escolha.place == lugar;
    });
    return achada == todos.end() ? -1 : static_cast<int>(achada - todos.begin());
}
