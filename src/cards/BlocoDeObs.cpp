#include "cards/BlocoDeObs.h"

#include "cards/RotulosDoCartao.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QString Com_CR_LF(const QString &texto)
{
    if (!texto.contains(u'\n') && !texto.contains(u'\r')) return texto;
    QString simples = texto;
    simples.replace("\r\n"_L1, "\n"_L1).replace(u'\r', u'\n');
    return simples.replace("\n"_L1, "\r\n"_L1);
}

BlocoDeObs BlocoDeObs::Separar(const QString &obs)
{
    if (obs.isEmpty()) return {};
    const QString texto = Com_CR_LF(obs);
    const QStringList todas = texto.split(u"\r\n"_s);
    const auto marca = std::find_if(todas.begin(), todas.end(), rotulos_do_cartao::E_Marca);
    if (marca == todas.end()) return {texto, {}};
    BlocoDeObs bloco{todas.first(marca - todas.begin()).join(u"\r\n"_s), {}};
    QStringList linhas;
    for (auto linha = marca + 1; linha != todas.end(); ++linha)
        if (!linha->trimmed().isEmpty() && !rotulos_do_cartao::E_Marca(*linha)) linhas << *linha;
    bloco.Juntar(linhas);
    return bloco;
}

void BlocoDeObs::Juntar(const QStringList &novas)
{
    for (const QString &linha : novas)
        if (!linhas.contains(linha)) linhas << linha;
}

bool BlocoDeObs::Acrescentar(const BlocoDeObs &outro)
{
    const qsizetype antes = linhas.size();
    const bool tem_nota = !nota.contains(outro.nota);
    if (tem_nota) nota = nota.isEmpty() ? outro.nota : nota + u"\r\n"_s + outro.nota;
    Juntar(outro.linhas);
    return tem_nota || linhas.size() > antes;
}

QString BlocoDeObs::Texto(const QString &idioma) const
{
    if (linhas.isEmpty()) return nota;
    QStringList todas;
    if (!nota.isEmpty()) todas << nota;
    todas << rotulos_do_cartao::Marca(idioma) << linhas;
    return todas.join(u"\r\n"_s);
}
