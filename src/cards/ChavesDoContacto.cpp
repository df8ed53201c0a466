#include "cards/ChavesDoContacto.h"

#include "cards/NomeDobrado.h"

#include <algorithm>
#include <array>
#include <QStringTokenizer>
#include <QVarLengthArray>

using namespace Qt::StringLiterals;

namespace
{
bool E_Particula(QStringView palavra)
{
    static constexpr std::array particulas{"de"_L1,  "da"_L1,  "do"_L1,  "dos"_L1, "das"_L1, "e"_L1,
                                           "di"_L1,  "del"_L1, "von"_L1, "van"_L1, "dr"_L1,  "dra"_L1,
                                           "eng"_L1, "sr"_L1,  "sra"_L1, "mr"_L1,  "mrs"_L1};
    return palavra.size() <= 3 &&
           std::find(particulas.begin(), particulas.end(), palavra) != particulas.end();
}
} // namespace

QString ChavesDoContacto::Do_Nome(const QString &nome)
{
    const QString dobrado = Nome_Dobrado(nome);
    QVarLengthArray<QStringView, 8> palavras;
    for (const QStringView palavra : qTokenize(dobrado, u' ', Qt::SkipEmptyParts))
        if (!E_Particula(palavra)) palavras.append(palavra);
    std::sort(palavras.begin(), palavras.end());
    QString chave;
    chave.reserve(dobrado.size());
    for (const QStringView palavra : palavras) {
        if (!chave.isEmpty()) chave += u' ';
        chave += palavra;
    }
    return chave;
}

QString ChavesDoContacto::Do_Numero(const QString &numero)
{
    constexpr qsizetype menor = 7;
    constexpr qsizetype maior = 9; // without the country
    QVarLengthArray<QChar, 64> algarismos;
    for (const QChar sinal : numero)
        if (sinal.isDigit()) algarismos.append(sinal);
    QStringView chave(algarismos.data(), algarismos.size());
    if (chave.startsWith("00"_L1)) chave = chave.sliced(2);
    return chave.size() < menor ? QString() : chave.last(std::min(chave.size(), maior)).toString();
}

QString ChavesDoContacto::Do_Email(const QString &email) { return email.trimmed().toLower(); }

ChavesDoContacto ChavesDoContacto::De(const ColunasDoContacto &colunas)
{
    ChavesDoContacto chaves = Sem_Nome(colunas);
    chaves.nome = Do_Nome(colunas[Coluna::Nome]);
    return chaves;
}

ChavesDoContacto ChavesDoContacto::Sem_Nome(const ColunasDoContacto &colunas)
{
    ChavesDoContacto chaves;
    const auto por = [](QStringList &lista, const QString &chave) {
        if (!chave.isEmpty() && !lista.contains(chave)) lista << chave;
    };
    for (const Coluna coluna : ColunasDoContacto::numeros)
        if (!colunas[coluna].isEmpty()) por(chaves.numeros, Do_Numero(colunas[coluna]));
    for (const Coluna coluna : ColunasDoContacto::emails)
        if (!colunas[coluna].isEmpty()) por(chaves.emails, Do_Email(colunas[coluna]));
    return chaves;
}
