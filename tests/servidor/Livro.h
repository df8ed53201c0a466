// A book with whatever makes a file and a server differ: accents, forms, signs of patterns, Null and empty,
// ties, numbers that went, rows that point nowhere, pictures and cards.
#pragma once

#include "data/BaseNova.h"
#include "data/DE.h"
#include "data/Sementes.h"
#include "data/Textos.h"

#include <QRandomGenerator>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace livro
{
inline const QStringList nomes{u"Ana"_s,
                               u"ANA"_s,
                               u"ana"_s,
                               u"Ânia"_s,
                               u"André"_s,
                               u"andre"_s,
                               u"ÁLVARO"_s,
                               u"Álvaro"_s,
                               u"Zé"_s,
                               u"zé"_s,
                               u"Ze"_s,
                               u"Conceição"_s,
                               u"coração"_s,
                               u"O'Neill"_s,
                               u"100% Lda"_s,
                               u"a_b"_s,
                               u"C:\\pasta"_s,
                               u"Straße"_s,
                               u"STRASSE"_s,
                               u"ΟΔΟΣ"_s,
                               u"οδος"_s,
                               u"ΑΘΗΝΑ"_s,
                               u"Москва"_s,
                               u"МОСКВА"_s,
                               u"İstanbul"_s,
                               u"istanbul"_s,
                               u"ılık"_s,
                               u"ſalz"_s,
                               u"Œuvre"_s,
                               u"œuvre"_s,
                               u"Ñandú"_s,
                               u"\u0301acento"_s,
                               u"a\u0301b"_s,
                               u"日本"_s,
                               u"שלום"_s,
                               u""_s,
                               u" espaço"_s,
                               u"espaço "_s,
                               u"\ttab"_s,
                               u"linha\r\nlinha"_s,
                               u"µ"_s,
                               u"\U0001F600 riso"_s,
                               u"d'Ávila \"x\""_s,
                               u"$1 ?"_s,
                               u"-- nada"_s,
                               u"/* nada */"_s,
                               u"\\"_s,
                               u"\\N"_s,
                               u"%"_s,
                               u"_"_s};

inline const QStringList padroes{
    u"%"_s,     u""_s,    u"ana"_s,   u"ANA"_s,          u"%an%"_s,   u"an%"_s,  u"%É"_s,  u"%é%"_s,
    u"_na"_s,   u"__"_s,  u"%\\%"_s,  u"\\"_s,           u"C:\\%"_s,  u"%\\"_s,  u"%'%"_s, u"100%"_s,
    u"100_%"_s, u"%ç%"_s, u"%ÇÃ%"_s,  u"straß_"_s,       u"%σ"_s,     u"οδος"_s, u"i%"_s,  u"İ%"_s,
    u"%ſ%"_s,   u"μ"_s,   u"%мос%"_s, u"%\U0001F600%"_s, u"%\r\n%"_s, u"%?%"_s};

// Makes the file and fills it. The numbers of what went leave gaps, and the highest ones are gone.
inline void Fazer(QString ficheiro)
{
    base_nova::Criar(ficheiro, u"1.0"_s, Textos_Do_Programa());
    DE de(ficheiro, QString());
    sementes::Semear(de, sementes::PT());
    QRandomGenerator acaso(7);
    const auto um = [&](const QStringList &de_quais) {
        return de_quais[acaso.bounded(int(de_quais.size()))];
    };
    de.Juntar([&] {
        for (int i = 0; i < 200; ++i) {
            const QString nome = i < nomes.size() ? nomes[i] : um(nomes) + u' ' + um(nomes);
            const Value nada = i % 7 == 0 ? Value(nullptr) : Value(um(nomes));
            de.Executar("cmdAdicionarNome",
                        {i % 31 == 3 ? Value(nullptr) : Value(nome), QString::number(210000000 + i * 37),
                         nada, nada, u"91"_s + QString::number(i), nada, nada, QString::number(i % 31),
                         QString::number(i % 13), QString(), um(nomes).toLower() + u"@a.pt"_s, nada,
                         u"www."_s + um(nomes), um(nomes), um(nomes) + u"\r\n"_s + um(nomes),
                         i % 5 == 0 ? u"bd:"_s + QString::number(i) : QString(),
                         i % 50 == 9 ? 99 : 1 + i % 12});
        }
        for (int i = 0; i < 6; ++i)
            de.Executar("cmdInserirGrupo", {nomes[i * 3], i % 4});
        for (const QString &nome : {u"Maria"_s, u"maria"_s, u"José"_s, u"Rui"_s})
            de.Executar("cmdAdicionarUser", {nome, u"x"_s, true, false, 1, u"Sim"_s, u"Não"_s, 0});
        for (int i = 0; i < 30; ++i)
            de.Executar("cmdAdicionarTarefa",
                        {um(nomes),
                         QString(u"%1-0%2-2027"_s).arg(1 + i % 3, 2, 10, QChar(u'0')).arg(1 + i % 4),
                         QString(u"%1:30"_s).arg(8 + i % 5, 2, 10, QChar(u'0')), i % 4, 1 + i % 5});
        for (int i = 0; i < 11; ++i)
            de.Executar("cmdAdicionarMemo", {um(nomes), um(nomes), 0.1 * i, u"8,25"_s, 2775, u"1185"_s,
                                             u"Tahoma"_s, u"8.5"_s, i % 2, u"False"_s, 65535 + i, i % 4});
        for (int i = 0; i < 6; ++i)
            de.Executar("cmdInserirEmail",
                        {um(nomes) + u"@b.pt"_s, u"pop.b.pt"_s, um(nomes), um(nomes), i % 3});
        for (int i = 0; i < 5; ++i) {
            QByteArray imagem(3000, char(i));
            for (int b = 0; b < 256; ++b)
                imagem[b] = char(b);
            de.Executar("cmdGuardarFotografia", {u"bd:"_s + QString::number(i * 5), imagem});
            de.Executar("cmdGuardarCartao", {10 + i, u"uid-%1"_s.arg(i),
                                             QByteArray("BEGIN:VCARD\r\nN:\\;x\t\\.\r\nEND:VCARD\r\n")});
        }
        de.Executar("cmdGuardarDiferentes", {3, 4});
        de.Executar("cmdGuardarDiferentes", {1, 9});
    });
    for (const int ID : {5, 77, 202, 203})
        de.Executar("cmdEliminarNome", {ID});
    de.Executar("cmdEliminarEmail", {6});
    de.Fechar_Ligacao();
}
} // namespace livro
