// The first form of a new installation: its flags, and how it is left.
#include "controls/Scale.h"
#include "data/frmSeleccionarIdioma.h"
#include "platform/Failure.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QFile>

using namespace Qt::StringLiterals;

class TestFrmSeleccionarIdioma : public QObject
{
    Q_OBJECT

    static QToolButton &Bandeira(const frmSeleccionarIdioma &form)
    {
        return *form.findChild<QToolButton *>(QLatin1String(QTest::currentDataTag()));
    }
    static QStringList Contagens(Sistema &s)
    {
        return s.Linhas(u"SELECT (SELECT Idioma FROM TblConfig), (SELECT count(*) FROM TblRepeticao), "
                        "(SELECT count(*) FROM TblGrupos), (SELECT count(*) FROM TblMemos), "
                        "(SELECT count(*) FROM TblLista)"_s);
    }

private Q_SLOTS:
    void as_palavras_sao_fixas()
    {
        Sistema s(Sistema::Estado::Vazio);
        const frmSeleccionarIdioma form(s.geral, s.plataforma);
        QCOMPARE(form.windowTitle(), u"MORVEX - Idioma | Language"_s);
        QCOMPARE(form.Label1->text(), u"Escolha o idioma | Choose the language"_s);
    }

    void cada_bandeira_tem_figura_nome_e_teclado()
    {
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        const auto bandeiras = form.findChildren<QToolButton *>();
        QCOMPARE(bandeiras.size(), 7);
        for (const QToolButton *bandeira : bandeiras) {
            QVERIFY(!bandeira->icon().pixmap(32).isNull());
            QVERIFY(!bandeira->accessibleName().isEmpty());
            QVERIFY(bandeira->focusPolicy() & Qt::TabFocus);
        }
    }

    void uma_bandeira_disponivel_enche_a_base_e_fecha_data()
    {
        QTest::addColumn<QString>("contagens");
        QTest::newRow("cmdPT") << u"PortuguesPT|5|6|1|3"_s;
        QTest::newRow("cmdBR") << u"PortuguesBR|5|6|1|2"_s;
        QTest::newRow("cmdUK") << u"InglesUK|5|6|1|2"_s;
        QTest::newRow("cmdFR") << u"FrancesFR|5|6|1|2"_s;
    }
    void uma_bandeira_disponivel_enche_a_base_e_fecha()
    {
        QFETCH(QString, contagens);
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        Bandeira(form).click();
        QCOMPARE(Contagens(s), QStringList{contagens});
        QVERIFY(!form.isVisible());
        QCOMPARE(s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s), u""_s);
    }

    void Enter_escolhe_a_bandeira_que_tem_o_teclado_data()
    {
        QTest::addColumn<Qt::Key>("tecla");
        QTest::newRow("Enter") << Qt::Key_Enter;
        QTest::newRow("Return") << Qt::Key_Return;
    }
    void Enter_escolhe_a_bandeira_que_tem_o_teclado()
    {
        QFETCH(Qt::Key, tecla);
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.cmdUK->setFocus();
        QTest::keyClick(form.cmdUK, tecla);
        QCOMPARE(Contagens(s), QStringList{u"InglesUK|5|6|1|2"_s});
        QVERIFY(!form.isVisible());
    }

    void com_letras_do_dobro_tem_o_dobro_do_tamanho()
    {
        Sistema s(Sistema::Estado::Vazio);
        const frmSeleccionarIdioma desenhado(s.geral, s.plataforma);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        scale::setLetters(2 * scale::standardLetters);
        const frmSeleccionarIdioma maior(s.geral, s.plataforma);
        QCOMPARE(maior.cmdUK->size(), 2 * desenhado.cmdUK->size());
        QCOMPARE(maior.cmdUK->pos(), 2 * desenhado.cmdUK->pos());
    }

    void outra_tecla_nao_escolhe_a_bandeira_nem_Enter_sem_nenhuma()
    {
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.cmdUK->setFocus();
        QTest::keyClick(form.cmdUK, Qt::Key_X);
        form.cmdUK->clearFocus();
        QTest::keyClick(&form, Qt::Key_Return);
        QVERIFY(form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"0"_s});
    }

    void uma_bandeira_indisponivel_repete_a_mensagem_e_nada_muda_data()
    {
        QTest::addColumn<int>("vezes");
        for (const char *bandeira : {"cmdDE", "cmdES", "cmdIT"})
            QTest::newRow(bandeira) << 3;
    }
    void uma_bandeira_indisponivel_repete_a_mensagem_e_nada_muda()
    {
        QFETCH(int, vezes);
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        for (int vez = 1; vez <= vezes; ++vez) {
            s.caixas.Espera(u"Idioma não disponível | Language not avaiable"_s, 16,
                            u"MORVEX - Idioma | Language"_s);
            Bandeira(form).click();
            QVERIFY(s.caixas.Todas_Vistas());
        }
        QVERIFY(form.isVisible());
        QCOMPARE(s.geral.CaminhoBD, u""_s); // not even the database was opened
        QCOMPARE(Contagens(s), QStringList{u"|0|0|0|0"_s});
    }

    void fechar_sem_escolher_nada_semeia_e_os_textos_ficam_vazios()
    {
        Sistema s(Sistema::Estado::Vazio);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        form.close();
        QVERIFY(!form.isVisible());
        QCOMPARE(Contagens(s), QStringList{u"|0|0|0|0"_s});
        Recordset &rs = s.geral.de.Abrir("cmdVerConfig");
        s.geral.IdiomaActual = rs.Fields("Idioma").text();
        QCOMPARE(s.geral.Ler_Idioma(43), u""_s);
    }

    void ao_abrir_param_os_temporizadores_e_ao_fechar_so_voltam_dois_data()
    {
        QTest::addColumn<bool>("com_bandeira");
        QTest::newRow("cmdUK") << true;
        QTest::newRow("close box") << false;
    }
    void ao_abrir_param_os_temporizadores_e_ao_fechar_so_voltam_dois()
    {
        QFETCH(bool, com_bandeira);
        Sistema s(Sistema::Estado::Vazio);
        Temporizadores &t = s.geral.temporizadores;
        t.TimerMailNotification.setEnabled(true);
        QSignalSpy correio(&t, &Temporizadores::IniciarMail);
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled() && !t.TimerMailNotification.Enabled());
        form.show();
        if (com_bandeira)
            Bandeira(form).click();
        else
            form.close();
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled());
        QVERIFY(!t.TimerMailNotification.Enabled());
        QCOMPARE(correio.size(), 0);
    }

    void sem_base_a_bandeira_mostra_o_erro_e_o_processo_termina()
    {
        Sistema s(Sistema::Estado::Vazio);
        QVERIFY(QFile::remove(s.Base()));
        frmSeleccionarIdioma form(s.geral, s.plataforma);
        form.show();
        s.caixas.Espera_Erro(Failure::StoreError);
        form.cmdPT->click();
        QVERIFY(s.processo.Terminou());
        QVERIFY(!QFile::exists(s.Base()));
    }

    void outro_clique_na_mesma_instalacao_insere_tudo_outra_vez()
    {
        Sistema s(Sistema::Estado::Vazio);
        for (int vez = 1; vez <= 2; ++vez) {
            frmSeleccionarIdioma form(s.geral, s.plataforma);
            form.cmdUK->click();
        }
        QCOMPARE(Contagens(s), QStringList{u"InglesUK|10|12|2|4"_s});
    }
};

MORVEX_TESTE(TestFrmSeleccionarIdioma)
#include "test_frmSeleccionarIdioma.moc"
