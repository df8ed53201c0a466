#include "cards/ChavesDoContacto.h"

#include "cards/NomeDobrado.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <QStringTokenizer>

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

// Takes a text sign by sign. The end scatters, so that sums of digests are digests as well.
class Resumo
{
public:
    void Tomar(char16_t sinal) { soma_ = (soma_ ^ sinal) * 0x100000001B3; }

    ChaveCurta Chave_Do_Texto() const
    {
        quint64 soma = soma_;
        soma = (soma ^ (soma >> 33)) * 0xFF51AFD7ED558CCD;
        soma = (soma ^ (soma >> 33)) * 0xC4CEB9FE1A85EC53;
        return Marcada(soma ^ (soma >> 33));
    }

    // No telephone is that long.
    static ChaveCurta Marcada(quint64 soma) { return soma | quint64{1} << 63; }

private:
    quint64 soma_ = 0xCBF29CE484222325;
};

// The digits that tell a number from others, whichever the script's; empty where they are too few.
class Algarismos
{
public:
    explicit Algarismos(QStringView numero)
    {
        for (const QChar sinal : numero)
            if (sinal.isDigit()) todos_.append(QChar(u'0' + sinal.digitValue()));
    }

    QStringView Da_Chave() const
    {
        constexpr qsizetype menor = 7;
        constexpr qsizetype maior = 9; // without the country
        QStringView chave(todos_.data(), todos_.size());
        if (chave.startsWith("00"_L1)) chave = chave.sliced(2);
        return chave.size() < menor ? QStringView() : chave.last(std::min(chave.size(), maior));
    }

private:
    QVarLengthArray<QChar, 64> todos_;
};

// A one before the digits keeps the zeros with which they may begin.
ChaveCurta Chave_Do_Numero(QStringView numero)
{
    const Algarismos algarismos(numero);
    const QStringView da_chave = algarismos.Da_Chave();
    if (da_chave.isEmpty()) return 0;
    constexpr ChaveCurta dez = 10;
    return std::accumulate(da_chave.begin(), da_chave.end(), ChaveCurta{1},
                           [](ChaveCurta chave, QChar algarismo) {
                               return chave * dez + static_cast<ChaveCurta>(algarismo.unicode() - u'0');
                           });
}

ChaveCurta Chave_Do_Email(QStringView email)
{
    email = email.trimmed();
    Resumo resumo;
    for (const QChar sinal : email) {
        if (sinal.unicode() >= 0x80) return ChavesDoContacto::De_Um_Texto(email.toString().toLower());
        resumo.Tomar(sinal >= u'A' && sinal <= u'Z' ? sinal.unicode() | 0x20 : sinal.unicode());
    }
    return email.isEmpty() ? 0 : resumo.Chave_Do_Texto();
}

template<class Chaves> void Por(Chaves &chaves, ChaveCurta chave)
{
    if (chave != 0 && !chaves.contains(chave)) chaves.append(chave);
}
} // namespace

ChaveCurta ChavesDoContacto::De_Um_Texto(QStringView texto)
{
    Resumo resumo;
    for (const QChar sinal : texto)
        resumo.Tomar(sinal.unicode());
    return texto.isEmpty() ? 0 : resumo.Chave_Do_Texto();
}

ChavesDoContacto::Palavras ChavesDoContacto::Das_Palavras(const QString &nome)
{
    const QString dobrado = Nome_Dobrado(nome);
    Palavras palavras;
    for (const QStringView palavra : qTokenize(dobrado, u' ', Qt::SkipEmptyParts))
        if (!E_Particula(palavra)) palavras.append(De_Um_Texto(palavra));
    return palavras;
}

QString ChavesDoContacto::Do_Numero(const QString &numero)
{
    return Algarismos(numero).Da_Chave().toString();
}

QString ChavesDoContacto::Do_Email(const QString &email) { return email.trimmed().toLower(); }

// The sum of its words knows nothing of their order.
ChavesDoContacto ChavesDoContacto::De(const ColunasDoContacto &colunas)
{
    ChavesDoContacto chaves = Sem_Nome(colunas);
    const Palavras palavras = Das_Palavras(colunas[Coluna::Nome]);
    if (!palavras.isEmpty())
        chaves.nome = Resumo::Marcada(std::accumulate(palavras.begin(), palavras.end(), ChaveCurta{0}));
    return chaves;
}

ChavesDoContacto ChavesDoContacto::Sem_Nome(const ColunasDoContacto &colunas)
{
    ChavesDoContacto chaves;
    for (const Coluna coluna : ColunasDoContacto::numeros)
        if (!colunas[coluna].isEmpty()) Por(chaves.numeros, Chave_Do_Numero(colunas[coluna]));
    for (const Coluna coluna : ColunasDoContacto::emails)
        if (!colunas[coluna].isEmpty()) Por(chaves.emails, Chave_Do_Email(colunas[coluna]));
    return chaves;
}
