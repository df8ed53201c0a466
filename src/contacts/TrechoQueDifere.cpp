#include "contacts/TrechoQueDifere.h"

#include <algorithm>
#include <QStringList>

namespace
{
constexpr qsizetype mais_letras = 300;
constexpr qsizetype mais_linhas = 8;
constexpr qsizetype antes_da_diferenca = 40; // letters

QString Sem_Retornos(QString texto) { return texto.remove(u'\r'); }

qsizetype Onde_Se_Separam(const QString &um, const QString &outro)
{
    return std::mismatch(um.begin(), um.end(), outro.begin(), outro.end()).first - um.begin();
}

bool E_Curto(const QString &texto) { return texto.size() <= mais_letras && texto.count(u'\n') < mais_linhas; }
} // namespace

QString Trecho_Que_Difere(const QString &texto, const QString &outro)
{
    QString inteiro = Sem_Retornos(texto);
    if (E_Curto(inteiro)) return inteiro;
    qsizetype inicio =
        std::max(qsizetype{0}, Onde_Se_Separam(inteiro, Sem_Retornos(outro)) - antes_da_diferenca);
    if (inicio > 0 && inteiro[inicio].isLowSurrogate()) --inicio; // no half character
    QString trecho = inteiro.mid(inicio, mais_letras).section(u'\n', 0, mais_linhas - 1);
    const bool acaba = inicio + trecho.size() == inteiro.size();
    if (!acaba && !trecho.isEmpty() && trecho.back().isHighSurrogate()) trecho.chop(1);
    if (inicio > 0) trecho.prepend(u'…');
    return acaba ? trecho : trecho + u'…';
}
