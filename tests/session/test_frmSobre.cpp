// The about form.
#include "controls/Controls.h"
#include "platform/Failure.h"
#include "session/frmSobre.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QShortcut>
#include <QTextOption>

using namespace Qt::StringLiterals;

class TestFrmSobre : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mostra_nome_e_versao_na_lingua_activa()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s);
        s.geral.VersaoBD = u"7.5"_s;
        const frmSobre form(s.geral, nullptr);
        QCOMPARE(form.windowTitle(), withoutMnemonic(s.Texto(156)));
        QCOMPARE(form.lblNome->text(), u"Morvex"_s);
        QCOMPARE(form.lblVersao->text(), u"7.5"_s);
        QCOMPARE(form.cmdFechar->text(), s.Texto(135));
    }

    void diz_a_pasta_dos_dados_e_sobre_que_assenta_e_deixa_se_copiar()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s);
        frmSobre form(s.geral, nullptr);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        const QString sqlite = Connection::storeVersion();
        const QString texto = form.txtPormenores->toPlainText();
        // The box gives a no-break space back as a common one.
        QVERIFY(texto.startsWith(u"Dossier des données :\n"_s + QDir::toNativeSeparators(s.geral.Pasta) + u'\n'));
        QVERIFY2(texto.contains(u"Qt "_s + QString::fromLatin1(qVersion()) + u", SQLite "_s + sqlite +
                                u", ICU "_s),
                 qPrintable(texto));
        QVERIFY(QRegularExpression(u"ICU [0-9]+\\.[0-9]"_s).match(texto).hasMatch());
        QVERIFY(form.cmdFechar->hasFocus());

        form.txtPormenores->setFocus();
        QTest::keyClick(form.txtPormenores, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(form.txtPormenores, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), texto);
    }

    void fecha_se_pelo_botao_e_por_Escape()
    {
        Sistema s;
        frmSobre form(s.geral, nullptr);
        form.show();
        form.cmdFechar->click();
        QVERIFY(!form.isVisible());
        form.show();
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }

    void a_janela_principal_fica_desligada_enquanto_ele_esta_a_frente_data()
    {
        QTest::addColumn<QString>("entrada");
        QTest::newRow("menu") << u"Sobre"_s;
        QTest::newRow("tabuleiro") << u"SystemTraySobre"_s;
    }
    void a_janela_principal_fica_desligada_enquanto_ele_esta_a_frente()
    {
        QFETCH(QString, entrada);
        Sistema s;
        Main janela(s.geral, s.plataforma);
        bool visto = false;
        accoes::Quando_Abrir<frmSobre>([&](frmSobre &form) {
            visto = !janela.isEnabled() && form.isModal();
            form.cmdFechar->click();
        });
        control<QAction>(janela, entrada).trigger();
        QVERIFY(visto);
        QVERIFY(janela.isEnabled());
    }

    void sem_um_dos_seus_textos_o_formulario_nao_abre()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        janela.show();
        s.Perder_Texto(135);
        QShortcut atalho(Qt::Key_F12, &janela);
        connect(&atalho, &QShortcut::activated, janela.Sobre, &QAction::trigger);
        QVERIFY(QTest::qWaitForWindowActive(&janela));
        s.caixas.Espera_Erro(Failure::InvalidUseOfNull);
        QTest::keyClick(&janela, Qt::Key_F12); // a form that came would wait here for ever
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(janela.isEnabled());
    }

    void a_pasta_dos_dados_e_dita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("legenda");
        QTest::newRow("PortuguesPT") << u"Pasta dos dados:"_s;
        QTest::newRow("PortuguesBR") << u"Pasta dos dados:"_s;
        QTest::newRow("InglesUK") << u"Data folder:"_s;
        QTest::newRow("EspanholES") << u"Carpeta de datos:"_s;
        QTest::newRow("ItalianoIT") << u"Cartella dei dati:"_s;
        QTest::newRow("FrancesFR") << u"Dossier des données\u00A0:"_s;
        QTest::newRow("AlemaoDE") << u"Datenordner:"_s;
    }
    void a_pasta_dos_dados_e_dita_em_cada_lingua()
    {
        QFETCH(QString, legenda);
        Sistema s;
        s.geral.IdiomaActual = QString::fromLatin1(QTest::currentDataTag());
        const frmSobre form(s.geral, nullptr);
        // The box gives a no-break space back as a common one.
        QCOMPARE(form.txtPormenores->toPlainText().section(u'\n', 0, 0), legenda.replace(QChar(0xa0), u' '));
        QCOMPARE(form.txtPormenores->wordWrapMode(), QTextOption::WrapAnywhere);
        QCOMPARE(form.txtPormenores->accessibleName(), form.windowTitle());
    }
};

MORVEX_TESTE(TestFrmSobre)
#include "test_frmSobre.moc"
