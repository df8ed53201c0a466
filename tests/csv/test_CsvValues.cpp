// Numbers and dates that spreadsheets have rewritten.
#include "csv/CsvValues.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int este_ano = 2026;
}

class TestCsvValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_numero_em_notacao_cientifica_reconhece_se()
    {
        for (const auto &celula : {u"3,51912E+11"_s, u"3.51912e+11"_s, u" 9,1E+8 "_s})
            QVERIFY2(isScientificNumber(celula), qPrintable(celula));
        for (const auto &celula :
             {u"351912345678"_s, u"+351912"_s, u"3,5"_s, u"E+11"_s, u"33,5E+11"_s, u"3,5E11"_s})
            QVERIFY2(!isScientificNumber(celula), qPrintable(celula));
    }

    void a_ordem_das_datas_ve_se_na_coluna_inteira_data()
    {
        QTest::addColumn<QStringList>("coluna");
        QTest::addColumn<DateOrder>("usual");
        QTest::addColumn<DateOrder>("ordem");
        const auto dia = DateOrder::DayFirst;
        const auto mes = DateOrder::MonthFirst;
        QTest::newRow("dia acima de doze") << QStringList{u"4/3/75"_s, u"13/3/75"_s} << mes << dia;
        QTest::newRow("mês primeiro") << QStringList{u"4/3/75"_s, QString(), u"3/13/75"_s} << dia << mes;
        QTest::newRow("nada o diz, dia") << QStringList{u"4/3/75"_s, u"1975-13-30"_s} << dia << dia;
        QTest::newRow("nada o diz, mês") << QStringList{u"4/3/75"_s} << mes << mes;
        QTest::newRow("contradição") << QStringList{u"13/3/75"_s, u"3/13/75"_s} << mes << mes;
        QTest::newRow("doze à frente não o diz") << QStringList{u"12/3/75"_s} << mes << mes;
        QTest::newRow("doze atrás não o diz") << QStringList{u"3/12/75"_s} << dia << dia;
        QTest::newRow("treze de Dezembro") << QStringList{u"13/12/75"_s} << mes << dia;
        QTest::newRow("Dezembro, treze") << QStringList{u"12/13/75"_s} << dia << mes;
        QTest::newRow("vazia") << QStringList{} << mes << mes;
        QTest::newRow("impossível não conta") << QStringList{u"31/31/75"_s, u"30/1/75"_s} << mes << dia;
    }
    void a_ordem_das_datas_ve_se_na_coluna_inteira()
    {
        QFETCH(QStringList, coluna);
        QFETCH(DateOrder, usual);
        QFETCH(DateOrder, ordem);
        QCOMPARE(dateOrder(coluna, usual), ordem);
    }

    void uma_data_le_se_na_ordem_da_coluna_data()
    {
        QTest::addColumn<QString>("celula");
        QTest::addColumn<DateOrder>("ordem");
        QTest::addColumn<int>("dia");
        QTest::addColumn<int>("mes");
        QTest::addColumn<int>("ano");
        const auto dia = DateOrder::DayFirst;
        const auto mes = DateOrder::MonthFirst;
        QTest::newRow("ISO") << u"1975-03-04"_s << mes << 4 << 3 << 1975;
        QTest::newRow("ISO sem ano") << u" --03-04"_s << dia << 4 << 3 << 0;
        QTest::newRow("ISO com hora") << u"1975-03-04T00:00"_s << dia << 4 << 3 << 1975;
        QTest::newRow("dia primeiro") << u"4/3/1975"_s << dia << 4 << 3 << 1975;
        QTest::newRow("mês primeiro") << u"4/3/1975"_s << mes << 3 << 4 << 1975;
        QTest::newRow("pontos") << u"04.03.1975"_s << dia << 4 << 3 << 1975;
        QTest::newRow("dois algarismos") << u"4-3-75"_s << dia << 4 << 3 << 1975;
        QTest::newRow("deste século") << u"4/3/26"_s << dia << 4 << 3 << 2026;
        QTest::newRow("ainda não") << u"4/3/27"_s << dia << 4 << 3 << 1927;
        QTest::newRow("com hora") << u"4/3/1975 0:00:00"_s << dia << 4 << 3 << 1975;
        QTest::newRow("sem ano") << u"29/2"_s << dia << 29 << 2 << 0;
        QTest::newRow("sem ano, com ponto") << u"4.3."_s << dia << 4 << 3 << 0;
        QTest::newRow("ISO com traços") << u"1975/3/4"_s << mes << 4 << 3 << 1975;
        QTest::newRow("ISO com pontos") << u"1975.03.04"_s << mes << 4 << 3 << 1975;
        QTest::newRow("ISO com espaço e hora") << u"1975-03-04 00:00"_s << dia << 4 << 3 << 1975;
        QTest::newRow("ISO sem ano nem traço") << u"--0229"_s << dia << 29 << 2 << 0;
        QTest::newRow("ano zero do século") << u"4/3/00"_s << dia << 4 << 3 << 2000;
        QTest::newRow("29 de Fevereiro de um ano bissexto") << u"29/2/2024"_s << dia << 29 << 2 << 2024;
    }
    void uma_data_le_se_na_ordem_da_coluna()
    {
        QFETCH(QString, celula);
        QFETCH(DateOrder, ordem);
        QFETCH(int, dia);
        QFETCH(int, mes);
        QFETCH(int, ano);
        QCOMPARE(csvDate(celula, ordem, este_ano), (CsvDate{dia, mes, ano}));
    }

    void uma_data_por_preencher_nao_diz_nada() { QCOMPARE(CsvDate(), (CsvDate{0, 0, 0})); }

    void uma_data_vazia_ou_impossivel_nao_e_nenhuma()
    {
        for (const auto &celula :
             {u""_s, u"0/0/00"_s, u"00/00/0000"_s, u"0000-00-00"_s, u"0000-03-04"_s, u"31/2/1975"_s, u"13/13/1975"_s,
              u"29/2/2023"_s, u"4/3/975"_s, u"ontem"_s, u"1975"_s, u"1-2/1975"_s})
            QVERIFY2(!csvDate(celula, DateOrder::DayFirst, este_ano), qPrintable(celula));
    }
};

MORVEX_TESTE(TestCsvValues)
#include "test_CsvValues.moc"
