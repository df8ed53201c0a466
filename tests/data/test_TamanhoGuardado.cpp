// The size that a person gave a window: what is kept of it, when, and what comes back.
#include "controls/Units.h"
#include "data/ReadWriteINI.h"
#include "data/TamanhoGuardado.h"
#include "testlib/Teste.h"

#include <QResizeEvent>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestTamanhoGuardado : public QObject
{
    Q_OBJECT

    // A window of 100 by 80 pixels at least, and the file that keeps its size.
    struct Janela {
        Janela() { janela.setMinimumSize(100, 80); }
        void Escrever(const QString &largura, const QString &altura)
        {
            ini.Escrever_Ini(u"lista"_s, u"largura"_s, largura);
            ini.Escrever_Ini(u"lista"_s, u"altura"_s, altura);
        }
        QStringList Escritas() { return {ini.Ler_Ini(u"lista"_s, u"largura"_s), ini.Ler_Ini(u"lista"_s, u"altura"_s)}; }

        QTemporaryDir pasta;
        ReadWriteINI ini{pasta.path()};
        QWidget janela;
        TamanhoGuardado *guardado = new TamanhoGuardado(janela, ini, u"lista"_s);
    };
    static QString Em_Twips(int pontos) { return QString::number(twips(pontos)); }

private Q_SLOTS:
    void a_folga_e_o_que_se_guardou_acima_do_menor_tamanho_data()
    {
        QTest::addColumn<QString>("largura");
        QTest::addColumn<QString>("altura");
        QTest::addColumn<QSize>("folga");
        const auto linha = [](const char *nome, const QString &largura, const QString &altura, QSize folga) {
            QTest::newRow(nome) << largura << altura << folga;
        };
        linha("nothing kept", {}, {}, QSize(0, 0));
        linha("a size", Em_Twips(300), Em_Twips(95), QSize(200, 15));
        linha("one that is the least", Em_Twips(100), Em_Twips(80), QSize(0, 0));
        linha("a width below the least", Em_Twips(40), Em_Twips(95), QSize(0, 15));
        linha("no number", u"largo"_s, u"alto"_s, QSize(0, 0));
        linha("less than nothing", u"-3000"_s, u"-1"_s, QSize(0, 0));
        linha("the largest", Em_Twips(32767), Em_Twips(32767), QSize(32667, 32687));
        linha("beyond it", Em_Twips(32768), Em_Twips(100000), QSize(32667, 32687));
    }
    void a_folga_e_o_que_se_guardou_acima_do_menor_tamanho()
    {
        QFETCH(QString, largura);
        QFETCH(QString, altura);
        Janela j;
        j.Escrever(largura, altura);
        QTEST(j.guardado->Folga(), "folga");
    }

    // Whoever has no least size may have none kept.
    void sem_menor_tamanho_e_sem_nada_guardado_a_folga_e_nenhuma()
    {
        Janela j;
        j.janela.setMinimumSize(0, 0);
        QCOMPARE(j.guardado->Folga(), QSize(0, 0));
    }

    void o_fim_de_um_arrasto_guarda_se_e_volta()
    {
        Janela j;
        j.janela.show();
        j.janela.resize(150, 90);
        QTest::qWait(600);
        QCOMPARE(j.Escritas(), QStringList({QString(), QString()})); // nobody has asked for it yet
        j.guardado->Folga();
        QElapsedTimer relogio;
        relogio.start();
        for (int largura = 200; largura <= 220; ++largura) {
            j.janela.resize(largura, 160);
            QCoreApplication::processEvents();
        }
        const QStringList antes = j.Escritas();
        if (relogio.elapsed() < 300) QCOMPARE(antes, QStringList({QString(), QString()})); // it goes on
        QTRY_COMPARE(j.Escritas(), QStringList({Em_Twips(220), Em_Twips(160)}));
        QCOMPARE(TamanhoGuardado(j.janela, j.ini, u"lista"_s).Folga(), QSize(120, 80));
    }

    // As what stands in a window that is not up yet is told.
    void um_tamanho_sabe_se_tambem_sem_se_ver_e_o_controlo_sabe_o_na_mesma()
    {
        struct Controlo : QWidget {
            void resizeEvent(QResizeEvent *) override { ++vezes; }
            int vezes = 0;
        } controlo;
        const QTemporaryDir pasta;
        ReadWriteINI ini(pasta.path());
        (new TamanhoGuardado(controlo, ini, u"lista"_s))->Folga();
        QCoreApplication::processEvents();
        controlo.setGeometry(0, 0, 180, 120);
        QResizeEvent evento(controlo.size(), QSize(100, 80));
        QCoreApplication::sendEvent(&controlo, &evento);
        QCOMPARE(controlo.vezes, 1);
        QTRY_COMPARE(ini.Ler_Ini(u"lista"_s, u"largura"_s), Em_Twips(180));
    }

    void so_um_tamanho_novo_de_uma_janela_que_nao_enche_o_ecra_se_escreve()
    {
        Janela j;
        j.Escrever(Em_Twips(300), Em_Twips(200));
        j.guardado->Folga();
        j.janela.show();
        j.Escrever(u"4501"_s, u"3001"_s); // whatever is written now is seen
        j.janela.resize(310, 200);
        j.janela.resize(300, 200);
        QTest::qWait(600);
        QCOMPARE(j.Escritas(), QStringList({u"4501"_s, u"3001"_s}));
        j.janela.showMaximized();
        QTest::qWait(600);
        QCOMPARE(j.Escritas(), QStringList({u"4501"_s, u"3001"_s}));
        j.janela.showNormal();
        j.janela.resize(300, 210);
        QTRY_COMPARE(j.Escritas(), QStringList({Em_Twips(300), Em_Twips(210)}));
    }
};

MORVEX_TESTE(TestTamanhoGuardado)
#include "test_TamanhoGuardado.moc"
