// A month of edits on both sides, with a run every day, for twenty different months.
#include "sincronizacao/MesDeGente.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestMesSimulado : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void no_fim_do_mes_os_lados_sao_iguais_e_nada_falta_data()
    {
        QTest::addColumn<quint32>("semente");
        for (quint32 semente = 1; semente <= 20; ++semente)
            QTest::addRow("seed %u", semente) << semente;
    }
    void no_fim_do_mes_os_lados_sao_iguais_e_nada_falta()
    {
        QFETCH(quint32, semente);
        MesaDaSincronizacao m;
        m.servidor.devolve_o_texto = semente % 2 == 0;
        m.servidor.da_marcas = semente % 5 != 0;
        if (semente % 3 == 0) m.servidor.da_testemunhos = false;
        MesDeGente gente(m, semente);
        gente.Povoar(30);
        int conflitos = 0;
        for (int dia = 0; dia < 30; ++dia) {
            for (int i = 0; i < 10; ++i)
                gente.Alguma_Coisa();
            if (dia % 7 == 3) m.servidor.epoca += 'x'; // the server forgets its tokens
            conflitos += m.Correr().conflitos;
        }
        m.Correr();
        m.Correr();
        const auto fim = m.Correr();
        QVERIFY(!fim.Mudou_Aqui() && !fim.Mudou_La());
        const QStringList faltas = gente.Faltas();
        QVERIFY2(faltas.isEmpty(), qPrintable(faltas.join(u'\n')));
        QVERIFY(gente.Vivos() > 60);
        QCOMPARE(m.Ocorrencias().filter(QRegularExpression(u"^1\\|"_s)).size(), conflitos); // each was told
    }
};

MORVEX_TESTE(TestMesSimulado)
#include "test_MesSimulado.moc"
