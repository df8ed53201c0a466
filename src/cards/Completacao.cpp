#include "cards/Completacao.h"

#include "cards/BlocoDeObs.h"
#include "cards/ColunasLivres.h"
#include "cards/NumeroDoCartao.h"
#include "cards/RotulosDoCartao.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
template<class Chaves> bool Tem_Outras(const Chaves &chaves, const Chaves &as_dele)
{
    return std::any_of(chaves.begin(), chaves.end(),
                       [&](ChaveCurta chave) { return !as_dele.contains(chave); });
}

QStringList Valores_Por_Chave(const ColunasDoContacto &colunas, std::span<const Coluna> quais,
                              ChaveDoValor chave)
{
    QStringList chaves;
    for (const Coluna coluna : quais)
        if (!colunas[coluna].isEmpty()) chaves << chave(colunas[coluna]);
    return chaves;
}

bool Tem_Obs_Novas(const ColunasDoContacto &novas, const ColunasDoContacto &outro)
{
    if (novas[Coluna::Obs].isEmpty()) return false;
    return BlocoDeObs::Separar(outro[Coluna::Obs]).Acrescentar(BlocoDeObs::Separar(novas[Coluna::Obs]));
}

bool Tem_Colunas_Novas(const ColunasDoContacto &novas, const ColunasDoContacto &outro)
{
    for (const Coluna coluna : {Coluna::Website, Coluna::Morada, Coluna::Dia, Coluna::Fotografia})
        if (!novas[coluna].isEmpty() && outro[coluna].isEmpty()) return true;
    return Tem_Obs_Novas(novas, outro);
}

// Numbers and mails into their free columns; what finds none becomes a line. What the other has in a column
// of another kind comes no second time.
QStringList Encher_Todas(ColunasDoContacto &inteiras, const ColunasDoContacto &novas, const QString &idioma)
{
    const QStringList numeros =
        Valores_Por_Chave(inteiras, ColunasDoContacto::numeros, ChavesDoContacto::Do_Numero);
    const QStringList emails =
        Valores_Por_Chave(inteiras, ColunasDoContacto::emails, ChavesDoContacto::Do_Email);
    QStringList linhas;
    const auto encher = [&](std::span<const Coluna> colunas, ChaveDoValor chave, const QStringList &ja_la,
                            Rotulo rotulo) {
        for (const QString &valor : Encher_Livres(inteiras, novas, colunas, chave, ja_la))
            linhas << rotulos_do_cartao::Em(rotulo, idioma) + u": "_s + valor;
    };
    for (const EspecieDeNumero especie :
         {EspecieDeNumero::Telefone, EspecieDeNumero::Fax, EspecieDeNumero::Telemovel})
        encher(Colunas_Da_Especie(especie), ChavesDoContacto::Do_Numero, numeros, Rotulo_Da_Especie(especie));
    encher(ColunasDoContacto::emails, ChavesDoContacto::Do_Email, emails, Rotulo::Email);
    return linhas;
}

void Juntar_Obs(QString &obs, const QString &novas, const QStringList &linhas, const QString &idioma)
{
    if (novas.isEmpty() && linhas.isEmpty()) return;
    BlocoDeObs novo = BlocoDeObs::Separar(novas);
    novo.Juntar(linhas);
    BlocoDeObs bloco = BlocoDeObs::Separar(obs);
    if (bloco.Acrescentar(novo)) obs = bloco.Texto(idioma);
}
} // namespace

Completacao Completado(const ColunasDoContacto &outro, const ChavesDoContacto &as_dele,
                       const ColunasDoContacto &novas, const ChavesDoContacto &as_novas,
                       const QString &idioma)
{
    Completacao completacao{outro, {}};
    if (!Tem_Outras(as_novas.numeros, as_dele.numeros) && !Tem_Outras(as_novas.emails, as_dele.emails) &&
        !Tem_Colunas_Novas(novas, outro))
        return completacao;
    ColunasDoContacto &inteiras = completacao.colunas;
    const QStringList linhas = Encher_Todas(inteiras, novas, idioma);
    for (const Coluna coluna : {Coluna::Website, Coluna::Morada, Coluna::Fotografia})
        if (inteiras[coluna].isEmpty()) inteiras[coluna] = novas[coluna];
    if (inteiras[Coluna::Dia].isEmpty())
        for (const Coluna coluna : {Coluna::Dia, Coluna::Mes, Coluna::Ano})
            inteiras[coluna] = novas[coluna];
    Juntar_Obs(inteiras[Coluna::Obs], novas[Coluna::Obs], linhas, idioma);
    for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i)
        if (inteiras.valores[i] != outro.valores[i])
            completacao.preenchidas.push_back(static_cast<Coluna>(i));
    return completacao;
}
