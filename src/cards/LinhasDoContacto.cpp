#include "cards/LinhasDoContacto.h"

#include "cards/RotulosDoCartao.h"
#include "data/Geral.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_nome = 27;
constexpr qint16 texto_janeiro = 14;
constexpr qint16 texto_obs = 37;
constexpr qint16 texto_grupo = 42; // ends in a colon

QString Aniversario(const ColunasDoContacto &colunas, Geral &geral)
{
    constexpr int meses = 12;
    const int mes = colunas[Coluna::Mes].toInt();
    const bool e_mes = mes >= 1 && mes <= meses;
    QStringList partes{colunas[Coluna::Dia],
                       e_mes ? geral.Ler_Idioma(static_cast<qint16>(texto_janeiro + mes - 1))
                             : colunas[Coluna::Mes],
                       colunas[Coluna::Ano]};
    partes.removeAll(QString());
    return partes.join(u' ');
}
} // namespace

QString linhas_do_contacto::Rotulo(Linha linha, Geral &geral)
{
    using R = ::Rotulo;
    const auto palavra = [&](R rotulo) { // blank while no language is active, as the texts of the table are
        const QString &idioma = geral.IdiomaActual;
        return idioma.isEmpty() ? QString() : rotulos_do_cartao::Em(rotulo, idioma);
    };
    switch (linha) {
    case Linha::Nome:
        return geral.Ler_Idioma(texto_nome);
    case Linha::Telefone:
        return palavra(R::Telefone);
    case Linha::Fax:
        return palavra(R::Fax);
    case Linha::Telemovel:
        return palavra(R::Telemovel);
    case Linha::Email:
        return palavra(R::Email);
    case Linha::Website:
        return palavra(R::Website);
    case Linha::Morada:
        return palavra(R::Morada);
    case Linha::Aniversario:
        return palavra(R::Aniversario);
    case Linha::Obs:
        return geral.Ler_Idioma(texto_obs);
    case Linha::Fotografia:
        return palavra(R::Fotografia);
    case Linha::Grupo:
        break;
    }
    return geral.Ler_Idioma(texto_grupo).remove(u':').trimmed();
}

std::vector<Coluna> linhas_do_contacto::Colunas(Linha linha)
{
    using enum Coluna;
    switch (linha) {
    case Linha::Nome:
        return {Nome};
    case Linha::Telefone:
        return {Telefone1, Telefone2};
    case Linha::Fax:
        return {Fax};
    case Linha::Telemovel:
        return {Telemovel1, Telemovel2, Telemovel3};
    case Linha::Email:
        return {Email1, Email2};
    case Linha::Website:
        return {Website};
    case Linha::Morada:
        return {Morada};
    case Linha::Aniversario:
        return {Dia, Mes, Ano};
    case Linha::Obs:
        return {Obs};
    case Linha::Fotografia:
        return {Fotografia};
    case Linha::Grupo:
        return {IDGrupo};
    }
    return {};
}

QStringList linhas_do_contacto::Valores(Linha linha, const ColunasDoContacto &colunas, Geral &geral)
{
    if (linha == Linha::Aniversario) {
        const QString data = Aniversario(colunas, geral);
        return data.isEmpty() ? QStringList() : QStringList{data};
    }
    QStringList valores;
    for (const Coluna coluna : Colunas(linha))
        for (const QString &valor : colunas[coluna].split(u'\n'))
            valores << valor.trimmed();
    valores.removeAll(QString());
    return valores;
}
