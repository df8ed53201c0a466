// The date step of a repetition, against the calendar of the standard library.
#include "reminders/Calendario.h"
#include "reminders/Repeticao.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
QStringList Datas(const QString &IDRepeticao, QDate data, int passos)
{
    QStringList datas;
    for (int i = 0; i < passos; ++i) {
        data = Data_Seguinte(IDRepeticao, data).value();
        datas << data.toString(u"d-M-yyyy");
    }
    return datas;
}
} // namespace

class TestRepeticao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void todos_os_dias_de_nove_anos_dao_o_passo_do_oraculo_data()
    {
        QTest::addColumn<QString>("IDRepeticao");
        for (const char *id : {"2", "3", "4", "5"})
            QTest::newRow(id) << QString::fromLatin1(id);
    }
    void todos_os_dias_de_nove_anos_dao_o_passo_do_oraculo()
    {
        QFETCH(QString, IDRepeticao);
        for (QDate data(2023, 1, 1); data.year() < 2032; data = data.addDays(1))
            QCOMPARE(Data_Seguinte(IDRepeticao, data).value(), calendario::Data_Seguinte(IDRepeticao, data));
    }

    void o_fim_do_seculo_sem_dia_29_da_o_passo_do_oraculo()
    {
        for (const auto &id : {u"2"_s, u"3"_s, u"4"_s, u"5"_s})
            for (QDate data(2099, 1, 1); data < QDate(2101, 1, 1); data = data.addDays(1))
                QCOMPARE(Data_Seguinte(id, data).value(), calendario::Data_Seguinte(id, data));
    }

    void a_mensal_de_31_de_janeiro_fica_no_dia_28()
    {
        QCOMPARE(Datas(u"4"_s, {2027, 1, 31}, 4),
                 (QStringList{u"28-2-2027"_s, u"28-3-2027"_s, u"28-4-2027"_s, u"28-5-2027"_s}));
    }

    void num_ano_bissexto_fica_no_dia_29()
    {
        QCOMPARE(Datas(u"4"_s, {2028, 1, 31}, 3),
                 (QStringList{u"29-2-2028"_s, u"29-3-2028"_s, u"29-4-2028"_s}));
    }

    void a_anual_de_29_de_fevereiro_nao_volta_ao_dia_29()
    {
        QCOMPARE(Datas(u"5"_s, {2028, 2, 29}, 4),
                 (QStringList{u"28-2-2029"_s, u"28-2-2030"_s, u"28-2-2031"_s, u"28-2-2032"_s}));
    }

    void qualquer_outro_texto_nao_tem_passo()
    {
        for (const auto &id : {u""_s, u"0"_s, u"1"_s, u"6"_s, u"02"_s, u" 2"_s, u"22"_s})
            QVERIFY2(!Data_Seguinte(id, {2027, 1, 1}), qPrintable(id));
    }
};

MORVEX_TESTE(TestRepeticao)
#include "test_Repeticao.moc"
