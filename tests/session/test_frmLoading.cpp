// The small window of the start: its bar, and how it goes away by itself.
#include "session/frmLoading.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestFrmLoading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mostra_o_seu_texto_na_lingua_activa()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s);
        const frmLoading form(s.geral);
        QCOMPARE(form.Label1->text(), s.Texto(242));
        QCOMPARE(form.Valor(), 0);
        QCOMPARE(form.ProgressBar1->maximum(), 100);
    }

    void antes_de_aparecer_a_barra_esta_parada()
    {
        Sistema s;
        const frmLoading form(s.geral);
        QTest::qWait(250);
        QCOMPARE(form.Valor(), 0);
    }

    void a_barra_cresce_um_em_cada_decimo_de_segundo()
    {
        Sistema s;
        frmLoading form(s.geral);
        form.setValor(1);
        form.show();
        QElapsedTimer tempo;
        tempo.start();
        QTRY_COMPARE(form.Valor(), 4);
        QVERIFY2(tempo.elapsed() > 200 && tempo.elapsed() < 2000,
                 qPrintable(QString::number(tempo.elapsed())));
        QVERIFY(form.isVisible());
    }

    void a_janela_fecha_se_um_tique_depois_de_a_barra_estar_cheia()
    {
        Sistema s;
        frmLoading form(s.geral);
        form.show();
        form.setValor(99);
        QTRY_COMPARE(form.Valor(), 100);
        QVERIFY(form.isVisible());
        QTRY_VERIFY(!form.isVisible());
        QCOMPARE(form.Valor(), 100);
    }
};

MORVEX_TESTE(TestFrmLoading)
#include "test_frmLoading.moc"
