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
        QCOMPARE(form.ProgressBar1->accessibleName(), s.Texto(242));
    }

    void a_janela_de_tras_ouve_tudo_como_se_estivesse_so()
    {
        struct Dono : QWidget {
            bool event(QEvent *evento) override
            {
                if (evento->type() == QEvent::User) ++ouvidos;
                return QWidget::event(evento);
            }
            int ouvidos = 0;
        };
        Sistema s;
        Dono dono;
        const frmLoading form(s.geral, &dono);
        QEvent evento(QEvent::User);
        QCoreApplication::sendEvent(&dono, &evento);
        QCOMPARE(dono.ouvidos, 1);
    }

    void os_tiques_comecam_quando_aparece()
    {
        Sistema s;
        frmLoading form(s.geral);
        QCOMPARE(form.Timer1.interval(), 100);
        QVERIFY(!form.Timer1.Enabled());
        form.show();
        QVERIFY(form.Timer1.Enabled());
    }

    void a_barra_cresce_um_em_cada_tique()
    {
        Sistema s;
        frmLoading form(s.geral);
        form.setValor(1);
        form.show();
        QSignalSpy tiques(&form.Timer1, &QTimer::timeout);
        QTRY_VERIFY(tiques.size() >= 3);
        QCOMPARE(form.Valor(), 1 + static_cast<int>(tiques.size()));
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
        QVERIFY(!form.Timer1.Enabled());
    }
};

MORVEX_TESTE(TestFrmLoading)
#include "test_frmLoading.moc"
