// The login: who gets in, who doesn't, and how the form is left.
#include "session/frmLogin.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestFrmLogin : public QObject
{
    Q_OBJECT

    static void Preencher(frmLogin &form, const QString &nome, const QString &senha)
    {
        form.txtUser->setText(nome);
        form.txtPass->setText(senha);
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Sistema s;
        s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        frmLogin form(s.geral, s.plataforma);
        QCOMPARE(form.windowTitle(), u"Morvex - Login"_s);
        QCOMPARE(form.Label1->text(), s.Texto(94));
        QCOMPARE(form.Label2->text(), s.Texto(90) + u':');
        QCOMPARE(form.cmdCancelar->text(), s.Texto(43));
        QCOMPARE(form.txtPass->echoMode(), QLineEdit::Password);
    }

    void a_senha_mostra_se_em_asteriscos_sobre_o_amarelo_do_foco()
    {
        Sistema s;
        frmLogin form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.txtPass->setText(u"abc"_s);
        QCOMPARE(form.txtPass->displayText(), u"***"_s);
        const auto fundo = [&] {
            const QImage campo = form.txtPass->grab().toImage();
            return campo.pixelColor(campo.width() - campo.height() / 2, campo.height() / 2);
        };
        form.txtPass->setFocus();
        QCOMPARE(fundo(), QColor(0xFF, 0xFF, 0xC0));
        form.txtUser->setFocus();
        QCOMPARE(fundo(), QColor(Qt::white));
    }

    void ok_so_com_um_nome_escrito()
    {
        Sistema s;
        frmLogin form(s.geral, s.plataforma);
        QVERIFY(!form.cmdOk->isEnabled());
        form.txtUser->setText(u"M"_s);
        QVERIFY(form.cmdOk->isEnabled());
        form.txtUser->clear();
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void a_linha_certa_enche_a_sessao()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int id = s.Novo_Utilizador(u"Maria"_s, u"segredo7"_s, u"10101"_s, true);
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Maria"_s, u"segredo7"_s);
        form.show();
        form.cmdOk->click();
        const Sessao &sessao = s.geral.SessaoActual;
        QCOMPARE(sessao.Utilizador, u"Maria"_s);
        QCOMPARE(sessao.IdUtilizador, QString::number(id));
        QVERIFY(sessao.PedirPassSystemTray);
        QVERIFY(sessao.Adicionar && !sessao.Editar && sessao.Eliminar && !sessao.Grupos && sessao.Utilizadores);
        QVERIFY(!form.isVisible());
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
        QVERIFY(!s.processo.Terminou());
    }

    void senha_errada_mostra_a_recusa_e_devolve_o_foco()
    {
        Sistema s;
        s.Novo_Utilizador(u"Maria"_s, u"segredo7"_s);
        frmLogin form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Preencher(form, u"Maria"_s, u"outra"_s);
        s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
        form.cmdOk->click();
        QVERIFY(form.txtPass->hasFocus());
        QVERIFY(form.isVisible());
        QVERIFY(s.geral.SessaoActual.Utilizador.isEmpty());
        QVERIFY(!s.processo.Terminou());

        form.txtPass->setText(u"segredo7"_s);
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Maria"_s);
    }

    void uma_senha_recusada_fica_escolhida_para_que_a_seguinte_a_substitua()
    {
        Sistema s;
        s.Novo_Utilizador(u"Maria"_s, u"segredo7"_s);
        frmLogin form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Preencher(form, u"Maria"_s, u"outra"_s);
        s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
        form.cmdOk->click();
        QTest::keyClicks(form.txtPass, u"segredo7"_s);
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Maria"_s);
    }

    void uma_reabertura_tem_o_nome_e_espera_pela_senha()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"um"_s);
        s.Entrar(u"Ana"_s);
        frmLogin form(s.geral, s.plataforma);
        form.Fixar_Utilizador(u"Ana"_s);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QCOMPARE(form.txtUser->text(), u"Ana"_s);
        QVERIFY(form.txtPass->hasFocus());
        s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
        form.cmdOk->click();
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
        form.txtPass->setText(u"um"_s);
        const QSignalSpy reaberta(&form, &frmLogin::Reaberta);
        form.cmdOk->click();
        QCOMPARE(reaberta.count(), 1);
        QVERIFY(!form.isVisible());
    }

    void nome_errado_recusa_com_o_mesmo_texto()
    {
        Sistema s;
        s.Novo_Utilizador(u"Maria"_s, u"segredo7"_s);
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Mario"_s, u"segredo7"_s);
        s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
        form.cmdOk->click();
        QVERIFY(s.caixas.Todas_Vistas());
    }

    void o_nome_e_a_senha_comparam_se_com_maiusculas()
    {
        Sistema s;
        s.Novo_Utilizador(u"Maria"_s, u"segredo7"_s);
        frmLogin form(s.geral, s.plataforma);
        for (const auto &[nome, senha] : {std::pair{u"maria"_s, u"segredo7"_s}, {u"Maria"_s, u"Segredo7"_s}}) {
            Preencher(form, nome, senha);
            s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
            form.cmdOk->click();
        }
        QVERIFY(s.caixas.Todas_Vistas());
    }

    void utilizador_sem_senha_entra_com_a_caixa_vazia()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, QString());
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Ana"_s, QString());
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Ana"_s);
    }

    void senha_nula_na_base_vale_como_vazia()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.Escrever(u"UPDATE TblUsers SET Pass=NULL"_s);
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Ana"_s, QString());
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Ana"_s);
    }

    void dois_do_mesmo_nome_vale_a_primeira_linha_cuja_senha_bate()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"um"_s);
        const int segunda = s.Novo_Utilizador(u"Ana"_s, u"dois"_s);
        s.Novo_Utilizador(u"Ana"_s, u"dois"_s);
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Ana"_s, u"dois"_s);
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.IdUtilizador, QString::number(segunda));
    }

    void senha_com_acentos_fica_em_claro_nos_acentos()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"çáü"_s);
        QCOMPARE(s.Linhas(u"SELECT Pass FROM TblUsers"_s), QStringList{u"çáü"_s});
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Ana"_s, u"çáü"_s);
        form.cmdOk->click();
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Ana"_s);
    }

    void sair_sem_sessao_termina_o_processo_data()
    {
        QTest::addColumn<bool>("pelo_botao");
        QTest::newRow("cancelar") << true;
        QTest::newRow("escape") << false;
    }
    void sair_sem_sessao_termina_o_processo()
    {
        QFETCH(bool, pelo_botao);
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"um"_s);
        frmLogin form(s.geral, s.plataforma);
        form.show();
        bool antes_de_fechar = false;
        s.processo.ao_acabar = [&] { antes_de_fechar = antes_de_fechar || form.isVisible(); };
        if (pelo_botao)
            form.cmdCancelar->click();
        else
            QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(s.processo.Terminou());
        QVERIFY(antes_de_fechar);
    }

    void fechar_a_janela_sem_sessao_termina_o_processo()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"um"_s);
        frmLogin form(s.geral, s.plataforma);
        form.show();
        form.close();
        QVERIFY(s.processo.Terminou());
    }

    void cancelar_uma_reabertura_repoe_os_temporizadores()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"um"_s);
        s.Entrar(u"Ana"_s);
        frmLogin form(s.geral, s.plataforma);
        form.Fixar_Utilizador(u"Ana"_s);
        QVERIFY(!form.txtUser->isEnabled());
        QVERIFY(!s.geral.temporizadores.timerTarefas.Enabled());
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!s.processo.Terminou());
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled());
        QVERIFY(s.geral.temporizadores.timerPonto.Enabled());
    }

    void sem_base_o_ok_mostra_o_erro_e_termina()
    {
        Sistema s(Sistema::Estado::Sem_Base);
        s.geral.CaminhoBD = s.Base();
        frmLogin form(s.geral, s.plataforma);
        Preencher(form, u"Ana"_s, u"um"_s);
        s.caixas.Espera_Erro(Failure::StoreError);
        form.cmdOk->click();
        QVERIFY(s.processo.Terminou());
    }
};

MORVEX_TESTE(TestFrmLogin)
#include "test_frmLogin.moc"
