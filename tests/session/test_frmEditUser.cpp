// Changing a user: what the form shows, what it refuses, and what a confirmation writes.
#include "data/Codificar_Pass.h"
#include "FormulariosUtilizador.h"
#include "session/frmEditUser.h"
#include "session/frmLogin.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace formularios_utilizador;
using namespace Qt::StringLiterals;

class TestFrmEditUser : public QObject
{
    Q_OBJECT

    static bool Entra(Sistema &s, const QString &nome, const QString &senha)
    {
        s.geral.SessaoActual.Utilizador.clear();
        frmLogin form(s.geral, s.plataforma);
        form.txtUser->setText(nome);
        form.txtPass->setText(senha);
        form.cmdOk->click();
        return s.geral.SessaoActual.Utilizador == nome;
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Sistema s;
        s.geral.IdiomaActual = u"AlemaoDE"_s; // the form is drawn in Portuguese
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        QCOMPARE(form.windowTitle(), s.Texto(104));
        QCOMPARE(form.Label1->text(), s.Texto(105));
        QCOMPARE(form.campos->lblUser->text(), s.Texto(94));
        QCOMPARE(form.campos->cbSystemTray->text(), s.Texto(92));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), s.Texto(43));
    }

    void a_lista_segue_a_tabela_e_mostra_o_primeiro()
    {
        Sistema s;
        const int rui = s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const int ana = s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        QCOMPARE(form.ComboUsers->ListCount(), 2);
        QCOMPARE(form.ComboUsers->List(0), u"Rui"_s);
        QCOMPARE(form.ComboUsers->ItemData(0), rui);
        QCOMPARE(form.ComboUsers->List(1), u"Ana"_s);
        QCOMPARE(form.ComboUsers->ItemData(1), ana);
        QCOMPARE(form.campos->txtUser->text(), u"Rui"_s);
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
        QCOMPARE(s.geral.de.Rs("cmdEditarUser").State(), Recordset::Closed);
    }

    void escolher_mostra_a_linha_com_a_senha_codificada()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Novo_Utilizador(u"Ana"_s, u"segredo7"_s, u"10110"_s, true);
        frmEditUser form(s.geral, s.plataforma);
        form.ComboUsers->setListIndex(1);
        const auto &c = *form.campos;
        QCOMPARE(c.txtUser->text(), u"Ana"_s);
        QCOMPARE(c.txtPass1->text(), Codificar_Pass(u"segredo7"_s));
        QCOMPARE(c.txtPass2->text(), Codificar_Pass(u"segredo7"_s));
        QVERIFY(c.cbAdicionar->isChecked());
        QVERIFY(!c.cbEditar->isChecked());
        QVERIFY(c.cbEliminar->isChecked());
        QVERIFY(c.cbGrupos->isChecked());
        QVERIFY(!c.cbUtilizadores->isChecked());
        QVERIFY(c.cbSystemTray->isChecked());
    }

    void cada_caixa_mostra_a_sua_coluna_data() { Dados_De_Cada_Caixa(); }
    void cada_caixa_mostra_a_sua_coluna()
    {
        QFETCH(QString, caixa);
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s, u"00000"_s);
        s.Escrever(u"UPDATE TblUsers SET %1=1"_s.arg(caixa.mid(2)));
        const frmEditUser form(s.geral, s.plataforma);
        QStringList marcadas;
        for (const QCheckBox *uma : form.campos->findChildren<QCheckBox *>())
            if (uma->isChecked()) marcadas << uma->objectName();
        QCOMPARE(marcadas, QStringList{caixa});
    }

    void senha_nula_na_base_mostra_se_vazia()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.Escrever(u"UPDATE TblUsers SET Pass=NULL"_s);
        frmEditUser form(s.geral, s.plataforma);
        QCOMPARE(form.campos->txtPass1->text(), QString());
        QCOMPARE(form.campos->txtPass2->text(), QString());
    }

    void o_unico_utilizador_nao_pode_perder_direitos()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const frmEditUser form(s.geral, s.plataforma);
        for (const QCheckBox *caixa : form.campos->Direitos())
            QVERIFY(!caixa->isEnabled());
        QVERIFY(form.campos->cbSystemTray->isEnabled());
    }

    void com_dois_utilizadores_os_direitos_estao_livres()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        const frmEditUser form(s.geral, s.plataforma);
        for (const QCheckBox *caixa : form.campos->Direitos())
            QVERIFY(caixa->isEnabled());
    }

    void confirmar_escreve_cada_campo_na_sua_coluna_data() { Dados_De_Cada_Caixa(); }
    void confirmar_escreve_cada_campo_na_sua_coluna()
    {
        QFETCH(QString, caixa);
        QFETCH(QString, linha);
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Novo_Utilizador(u"Ana"_s, u"x"_s, u"00000"_s);
        const QStringList rui = s.Linhas(u"SELECT * FROM TblUsers WHERE ID=1"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.ComboUsers->setListIndex(1);
        form.campos->txtUser->setText(u"Ana Maria"_s);
        form.campos->txtPass1->setText(u"nova9"_s);
        form.campos->txtPass2->setText(u"nova9"_s);
        form.findChild<QCheckBox *>(caixa)->setChecked(true);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT Utilizador, Pass FROM TblUsers WHERE ID=2"_s),
                 QStringList{u"Ana Maria|"_s + Codificar_Pass(u"nova9"_s)});
        QCOMPARE(Caixas_Gravadas(s, 2), linha);
        QCOMPARE(s.Linhas(u"SELECT * FROM TblUsers WHERE ID=1"_s), rui);
    }

    void guardar_sem_tocar_na_senha_codifica_a_outra_vez()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"segredo7"_s);
        const QString uma_vez = Codificar_Pass(u"segredo7"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.cmdOk->click();
        QCOMPARE(s.Linhas(u"SELECT Pass FROM TblUsers"_s), QStringList{Codificar_Pass(uma_vez)});
        QVERIFY(Entra(s, u"Ana"_s, uma_vez));
        s.caixas.Espera(s.Texto(101), 16, u"Login"_s);
        QVERIFY(!Entra(s, u"Ana"_s, u"segredo7"_s));
    }

    void mudar_para_um_nome_em_uso_e_recusado()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.campos->txtUser->setText(u"Ana"_s);
        form.campos->cbSystemTray->setChecked(true);
        Recusar(s, form, 100);
        QCOMPARE(form.campos->txtUser->text(), u"Ana"_s);
        QVERIFY(!s.geral.SessaoActual.PedirPassSystemTray);
    }

    void manter_o_proprio_nome_e_permitido()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.ComboUsers->setListIndex(1);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), (QStringList{u"Rui"_s, u"Ana"_s}));
    }

    void senhas_diferentes_sao_recusadas()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.campos->txtPass1->setText(u"nova9"_s);
        Recusar(s, form, 93);
        QCOMPARE(form.campos->txtPass1->text(), u"nova9"_s);
    }

    void sem_nome_nao_ha_ok()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        QVERIFY(form.cmdOk->isEnabled());
        form.campos->txtUser->clear();
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void a_preferencia_do_tabuleiro_segue_qualquer_utilizador_editado()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s, u"11111"_s, true);
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.Entrar(u"Ana"_s);
        frmEditUser(s.geral, s.plataforma).cmdOk->click(); // Rui, untouched
        QVERIFY(s.geral.SessaoActual.PedirPassSystemTray);
        frmEditUser form(s.geral, s.plataforma);
        form.campos->cbSystemTray->setChecked(false);
        form.cmdOk->click();
        QVERIFY(!s.geral.SessaoActual.PedirPassSystemTray);
    }

    void os_direitos_e_o_nome_da_sessao_nao_mudam_com_a_propria_linha()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Entrar(u"Ana"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.campos->txtUser->setText(u"Outra"_s);
        for (QCheckBox *caixa : form.campos->Direitos())
            caixa->setChecked(false);
        form.cmdOk->click();
        const Sessao &sessao = s.geral.SessaoActual;
        QCOMPARE(s.Linhas(u"SELECT Utilizador, Adicionar FROM TblUsers WHERE ID=1"_s),
                 QStringList{u"Outra|0"_s});
        QCOMPARE(sessao.Utilizador, u"Ana"_s);
        QVERIFY(sessao.Adicionar && sessao.Editar && sessao.Eliminar && sessao.Grupos && sessao.Utilizadores);
    }

    void cancelar_nao_grava_nada()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const QStringList antes = s.Linhas(u"SELECT * FROM TblUsers"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.campos->txtUser->setText(u"Outra"_s);
        form.campos->cbSystemTray->setChecked(true);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT * FROM TblUsers"_s), antes);
        QVERIFY(!s.geral.SessaoActual.PedirPassSystemTray);
    }

    // The alarm stays off after this form: it says "stop" at both ends.
    void os_temporizadores_param_e_ficam_parados()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const Temporizadores &t = s.geral.temporizadores;
        QSignalSpy iniciar_mail(&t, &Temporizadores::IniciarMail);
        frmEditUser form(s.geral, s.plataforma);
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        QCOMPARE(iniciar_mail.count(), 1); // the one above
    }

    void comando_que_falha_da_o_erro_e_o_formulario_fica()
    {
        Sistema s;
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmEditUser form(s.geral, s.plataforma);
        form.show();
        s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }
};

MORVEX_TESTE(TestFrmEditUser)
#include "test_frmEditUser.moc"
