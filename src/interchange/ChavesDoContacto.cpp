#include "interchange/ChavesDoContacto.h"

#include "interchange/NomeDobrado.h"

#include <QSet>

using namespace Qt::StringLiterals;

QString ChavesDoContacto::Do_Nome(const QString &nome)
{
    static const QSet<QString> particulas{u"de"_s,  u"da"_s,  u"do"_s,  u"dos"_s, u"das"_s, u"e"_s,
                                          u"di"_s,  u"del"_s, u"von"_s, u"van"_s, u"dr"_s,  u"dra"_s,
                                          u"eng"_s, u"sr"_s,  u"sra"_s, u"mr"_s,  u"mrs"_s};
    QStringList palavras = Nome_Dobrado(nome).split(u' ', Qt::SkipEmptyParts);
    palavras.removeIf([](const QString &palavra) { return particulas.contains(palavra); });
    palavras.sort();
    return palavras.join(u' ');
}

QString ChavesDoContacto::Do_Numero(const QString &numero)
{
    constexpr qsizetype menor = 7;
    constexpr qsizetype maior = 9; // without the country
    QString algarismos;
    for (const QChar sinal : numero)
        if (sinal.isDigit()) algarismos += sinal;
    if (algarismos.startsWith("00"_L1)) algarismos.remove(0, 2);
    return algarismos.size() < menor ? QString() : algarismos.right(maior);
}

QString ChavesDoContacto::Do_Email(const QString &email) { return email.trimmed().toLower(); }

ChavesDoContacto ChavesDoContacto::De(const ColunasDoContacto &colunas)
{
    ChavesDoContacto chaves{Do_Nome(colunas[Coluna::Nome]), {}, {}};
    const auto por = [](QStringList &lista, const QString &chave) {
        if (!chave.isEmpty() && !lista.contains(chave)) lista << chave;
    };
    for (const Coluna coluna : ColunasDoContacto::numeros)
        if (!colunas[coluna].isEmpty()) por(chaves.numeros, Do_Numero(colunas[coluna]));
    for (const Coluna coluna : ColunasDoContacto::emails)
        if (!colunas[coluna].isEmpty()) por(chaves.emails, Do_Email(colunas[coluna]));
    return chaves;
}
