// The check of a birthday as it is typed.
#include "contacts/DataAniversario.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestDataAniversario : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passa_uma_data_e_nada_mais_data()
    {
        QTest::addColumn<QString>("Dia");
        QTest::addColumn<QString>("Mes");
        QTest::addColumn<QString>("Ano");
        QTest::addColumn<bool>("passa");
        const auto linha = [](const char *caso, const QString &Dia, const QString &Mes, const QString &Ano,
                              bool passa) { QTest::newRow(caso) << Dia << Mes << Ano << passa; };

        linha("as tres vazias", u""_s, u""_s, u""_s, true);
        linha("data completa", u"17"_s, u"5"_s, u"1975"_s, true);
        linha("com zeros", u"07"_s, u"05"_s, u"1975"_s, true);
        linha("ano de dois algarismos", u"17"_s, u"5"_s, u"75"_s, false);
        linha("ano de cinco algarismos", u"17"_s, u"5"_s, u"19755"_s, false);
        linha("ano com um branco", u"17"_s, u"5"_s, u"197 "_s, false);
        linha("ano antes de todos", u"17"_s, u"5"_s, u"0000"_s, false);
        linha("ano 99", u"17"_s, u"5"_s, u"0099"_s, false);
        linha("ano 100, o primeiro", u"17"_s, u"5"_s, u"0100"_s, true);
        linha("branco antes do dia", u" 7"_s, u"5"_s, u"1975"_s, false);
        linha("branco depois do dia", u"7 "_s, u"5"_s, u"1975"_s, false);
        linha("branco antes do mes", u"17"_s, u" 5"_s, u""_s, false);
        linha("branco depois do mes", u"17"_s, u"5 "_s, u""_s, false);
        linha("branco antes do ano", u"17"_s, u"5"_s, u" 975"_s, false);
        linha("dia de tres algarismos", u"017"_s, u"5"_s, u"1975"_s, false);
        linha("mes de tres algarismos", u"17"_s, u"005"_s, u"1975"_s, false);
        linha("letra depois do mes", u"17"_s, u"5a"_s, u"1975"_s, false);
        linha("letra antes do mes sem ano", u"17"_s, u"m5"_s, u""_s, false);
        linha("sinal no mes", u"17"_s, u"+5"_s, u""_s, false);
        linha("fim de linha no mes", u"17"_s, u"5\n"_s, u"1975"_s, false);
        linha("fim de linha no ano", u"17"_s, u"5"_s, u"1975\n"_s, false);
        linha("29 de fevereiro de ano bissexto", u"29"_s, u"2"_s, u"2000"_s, true);
        linha("29 de fevereiro de ano comum", u"29"_s, u"2"_s, u"1900"_s, false);
        linha("31 de abril", u"31"_s, u"4"_s, u"1975"_s, false);
        linha("mes 13", u"2"_s, u"13"_s, u"1975"_s, false);
        linha("dia zero", u"0"_s, u"5"_s, u"1975"_s, false);
        linha("29 de fevereiro sem ano", u"29"_s, u"2"_s, u""_s, true);
        linha("31 de fevereiro sem ano", u"31"_s, u"2"_s, u""_s, false);
        linha("30 de fevereiro sem ano", u"30"_s, u"2"_s, u""_s, false);
        linha("31 de dezembro sem ano", u"31"_s, u"12"_s, u""_s, true);
        linha("dia sozinho", u"17"_s, u""_s, u""_s, false);
        linha("mes sozinho", u""_s, u"5"_s, u""_s, false);
        linha("ano sozinho", u""_s, u""_s, u"1975"_s, false);
        linha("mes e ano sem dia", u""_s, u"5"_s, u"1975"_s, false);
        linha("dia e ano sem mes", u"17"_s, u""_s, u"1975"_s, false);
        linha("letras no dia", u"a"_s, u"5"_s, u"1975"_s, false);
        linha("mes por extenso", u"17"_s, u"Maio"_s, u"1975"_s, false);
        linha("letras no ano", u"17"_s, u"5"_s, u"abcd"_s, false);
        linha("sinal", u"+7"_s, u"5"_s, u"1975"_s, false);
        linha("brancos", u" "_s, u" "_s, u" "_s, false);
        linha("algarismos arabes", u"١٧"_s, u"٥"_s, u""_s, false);
        linha("fim de linha", u"7\n"_s, u"5"_s, u""_s, false);
    }
    void passa_uma_data_e_nada_mais()
    {
        QFETCH(QString, Dia);
        QFETCH(QString, Mes);
        QFETCH(QString, Ano);
        QTEST(Aniversario_Valido(Dia, Mes, Ano), "passa");
    }
};

MORVEX_TESTE(TestDataAniversario)
#include "test_DataAniversario.moc"
