// Adding a user: the checks, the row, the initial settings, and what the first one takes over.
#include "contacts/Preencher_Grupos.h"
#include "data/Codificar_Pass.h"
#include "Diario.h"
#include "FormulariosUtilizador.h"
#include "controls/ComboBox.h"
#include "Posses.h"
#include "session/frmNovoUser.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace formularios_utilizador;
using namespace Qt::StringLiterals;

class TestFrmNovoUser : public QObject
{
    Q_OBJECT

    static void Preencher(frmNovoUser &form, const QString &nome, const QString &senha1,
                          const QString &senha2)
    {
        form.campos->txtUser->setText(nome);
        form.campos->txtPass1->setText(senha1);
        form.campos->txtPass2->setText(senha2);
    }

    // The form filled in and confirmed, with those boxes ticked.
    static void Criar(Sistema &s, const QString &nome, const QStringList &caixas = {})
    {
        frmNovoUser form(s.geral, s.plataforma);
        Preencher(form, nome, u"segredo7"_s, u"segredo7"_s);
        for (const QString &caixa : caixas)
            form.findChild<QCheckBox *>(caixa)->setChecked(true);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    static QStringList Grupos_Visiveis(Sistema &s)
    {
        ComboBox combo;
        Preencher_Grupos(s.geral, combo, DadosDoItem::Com);
        QStringList nomes;
        for (int i = 0; i < combo.ListCount(); ++i)
            nomes << combo.List(i);
        return nomes;
    }

private Q_SLOTS:
    // The design has them in Portuguese.
    void as_legendas_vem_dos_textos()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s);
        frmNovoUser form(s.geral, s.plataforma);
        const auto &c = *form.campos;
        QCOMPARE(form.windowTitle(), s.Texto(89));
        QCOMPARE(c.lblUser->text(), s.Texto(94));
        QCOMPARE(c.lblPass1->text(), s.Texto(90) + u':');
        QCOMPARE(c.lblPass2->text(), s.Texto(91));
        QCOMPARE(c.FrameDireitos->title(), s.Texto(99));
        QCOMPARE(c.cbAdicionar->text(), s.Texto(95));
        QCOMPARE(c.cbEditar->text(), s.Texto(96));
        QCOMPARE(c.cbEliminar->text(), s.Texto(97));
        QCOMPARE(c.cbGrupos->text(), s.Texto(98));
        QCOMPARE(c.cbUtilizadores->text(), s.Texto(103));
        QCOMPARE(c.cbSystemTray->text(), s.Texto(92));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), s.Texto(43));
        QCOMPARE(c.txtPass1->echoMode(), QLineEdit::Password);
        QCOMPARE(c.txtPass2->echoMode(), QLineEdit::Password);
    }

    void o_primeiro_chama_se_admin_e_pode_tudo()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        QCOMPARE(form.campos->txtUser->text(), u"Admin"_s);
        QCOMPARE(form.campos->txtUser->selectedText(), u"Admin"_s);
        QVERIFY(form.cmdOk->isEnabled());
        for (const QCheckBox *caixa : form.campos->Direitos()) {
            QVERIFY(caixa->isChecked());
            QVERIFY(!caixa->isEnabled());
        }
        QVERIFY(!form.campos->cbSystemTray->isChecked());
        QVERIFY(form.campos->cbSystemTray->isEnabled());
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    void quem_vai_aos_campos_vai_ao_nome()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        form.cmdOk->setFocus();
        form.campos->setFocus();
        QVERIFY(form.campos->txtUser->hasFocus());
    }

    void o_segundo_comeca_sem_nome_e_sem_direitos()
    {
        Sistema s;
        s.Novo_Utilizador(u"Admin"_s, u"x"_s);
        frmNovoUser form(s.geral, s.plataforma);
        QVERIFY(form.campos->txtUser->text().isEmpty());
        QVERIFY(!form.cmdOk->isEnabled());
        for (const QCheckBox *caixa : form.campos->Direitos()) {
            QVERIFY(!caixa->isChecked());
            QVERIFY(caixa->isEnabled());
        }
    }

    void ok_so_com_um_nome_escrito()
    {
        Sistema s;
        s.Novo_Utilizador(u"Admin"_s, u"x"_s);
        frmNovoUser form(s.geral, s.plataforma);
        form.campos->txtUser->setText(u"R"_s);
        QVERIFY(form.cmdOk->isEnabled());
        form.campos->txtUser->clear();
        QVERIFY(!form.cmdOk->isEnabled());
    }

    void senhas_diferentes_sao_recusadas_e_o_escrito_fica()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        Preencher(form, u"Rui"_s, u"segredo7"_s, u"Segredo7"_s);
        Recusar(s, form, 93);
        QCOMPARE(form.campos->txtUser->text(), u"Rui"_s);
        QCOMPARE(form.campos->txtPass1->text(), u"segredo7"_s);
        QCOMPARE(form.campos->txtPass2->text(), u"Segredo7"_s);
        QVERIFY(s.geral.SessaoActual.Utilizador.isEmpty());
    }

    void a_repeticao_recusada_fica_escolhida_para_que_a_seguinte_a_substitua()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        Preencher(form, u"Rui"_s, u"segredo7"_s, u"Segredo7"_s);
        Recusar(s, form, 93);
        QVERIFY(form.campos->txtPass2->hasFocus());
        QCOMPARE(form.campos->txtPass2->selectedText(), u"Segredo7"_s);
    }

    void nome_que_ja_existe_e_recusado()
    {
        Sistema s;
        s.Novo_Utilizador(u"Rui"_s, u"x"_s);
        s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        frmNovoUser form(s.geral, s.plataforma);
        form.campos->cbSystemTray->setChecked(true);
        Preencher(form, u"Ana"_s, u"y"_s, u"y"_s);
        Recusar(s, form, 100);
        QVERIFY(!s.geral.SessaoActual.PedirPassSystemTray);
    }

    // Names differ by case at the login, while the database finds both.
    void nome_com_outras_maiusculas_e_outro_utilizador_e_tem_a_sua_configuracao()
    {
        Sistema s;
        const int minuscula = s.Novo_Utilizador(u"ana"_s, u"x"_s);
        Criar(s, u"Ana"_s);
        const int maiuscula = s.Ultimo_Id(u"TblUsers"_s);
        QVERIFY(maiuscula != minuscula);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify%1"_s.arg(maiuscula), u"minutos"_s), u"60"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify%1"_s.arg(minuscula), u"minutos"_s), QString());
    }

    void cada_caixa_vai_para_a_sua_coluna_data() { Dados_De_Cada_Caixa(); }
    void cada_caixa_vai_para_a_sua_coluna()
    {
        QFETCH(QString, caixa);
        QFETCH(QString, linha);
        Sistema s;
        s.Novo_Utilizador(u"Admin"_s, u"x"_s);
        Criar(s, u"Rui"_s, {caixa});
        QCOMPARE(s.Linhas(u"SELECT Utilizador, Pass FROM TblUsers WHERE ID>1"_s),
                 QStringList{u"Rui|"_s + Codificar_Pass(u"segredo7"_s)});
        QCOMPARE(Caixas_Gravadas(s, 2), linha);
    }

    void a_senha_nunca_fica_em_claro()
    {
        Sistema s;
        Criar(s, u"Rui"_s);
        QVERIFY(!s.Linhas(u"SELECT Pass FROM TblUsers"_s).contains(u"segredo7"_s));
    }

    void senha_vazia_e_aceite_dois_vazios_sao_iguais()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        form.cmdOk->click();
        QCOMPARE(s.Linhas(u"SELECT Utilizador, Pass FROM TblUsers"_s), QStringList{u"Admin|"_s});
    }

    void a_preferencia_do_tabuleiro_da_sessao_segue_o_novo_utilizador()
    {
        Sistema s;
        s.Novo_Utilizador(u"Maria"_s, u"x"_s);
        s.Entrar(u"Maria"_s);
        Criar(s, u"Rui"_s, {u"cbSystemTray"_s});
        QVERIFY(s.geral.SessaoActual.PedirPassSystemTray);
        Criar(s, u"Ana"_s);
        QVERIFY(!s.geral.SessaoActual.PedirPassSystemTray);
    }

    void a_sessao_sem_nome_toma_o_do_novo_e_o_id_fica()
    {
        Sistema s;
        Criar(s, u"Admin"_s);
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Admin"_s);
        QCOMPARE(s.geral.SessaoActual.IdUtilizador, u"0"_s);
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
        QCOMPARE(s.geral.de.Rs("cmdVerIDUtilizador").State(), Recordset::Closed);
        Criar(s, u"Rui"_s);
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Admin"_s);
    }

    void a_configuracao_inicial_do_novo_utilizador()
    {
        Sistema s;
        s.Novo_Utilizador(u"Admin"_s, u"x"_s);
        Criar(s, u"Rui"_s);
        const QString id = QString::number(s.Ultimo_Id(u"TblUsers"_s));
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify"_s + id, u"activo"_s), u"1"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify"_s + id, u"minutos"_s), u"60"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"messenger"_s + id, u"activo"_s), u"0"_s);
    }

    void o_primeiro_com_o_nome_admin_fica_com_tudo_e_todos_os_direitos()
    {
        Sistema s;
        posses::Dar_Um_De_Cada(s, 0);
        posses::Dar_Um_De_Cada(s, 7); // left over from a user who is gone: taken too
        s.Novo_Utilizador(u"Alguém"_s, u"x"_s);
        s.Escrever(u"DELETE FROM TblUsers"_s);
        frmNovoUser form(s.geral, s.plataforma);
        form.cmdOk->click();
        QCOMPARE(
            s.Linhas(
                u"SELECT ID, Utilizador, Adicionar, Editar, Eliminar, Grupos, Utilizadores FROM TblUsers"_s),
            QStringList{u"2|Admin|1|1|1|1|1"_s});
        QCOMPARE(posses::Donos_De_Tudo(s), QStringList(4, u"2"_s));
    }

    void os_quatro_updates_na_sua_ordem()
    {
        Sistema s;
        posses::Dar_Um_De_Cada(s, 0);
        Diario diario(s, {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblEmails"_s, u"TblGrupos"_s});
        Criar(s, u"Admin"_s);
        const QStringList ordem{u"INSERT TblUsers"_s, u"UPDATE TblMemos"_s, u"UPDATE TblTarefas"_s,
                                u"UPDATE TblEmails"_s, u"UPDATE TblGrupos"_s};
        QCOMPARE(diario.Escritas(), ordem);
    }

    // The settings come before the hand-over, which may fail.
    void a_configuracao_esta_escrita_antes_de_o_primeiro_tomar_posse()
    {
        Sistema s;
        posses::Dar_Um_De_Cada(s, 0);
        s.Recusar(u"UPDATE"_s, u"TblMemos"_s);
        frmNovoUser form(s.geral, s.plataforma);
        form.show();
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(s.caixas.Todas_Vistas());
        const QString id = QString::number(s.Ultimo_Id(u"TblUsers"_s));
        QCOMPARE(posses::Donos(s, u"TblMemos"_s), u"0"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"emailnotify"_s + id, u"minutos"_s), u"60"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"messenger"_s + id, u"activo"_s), u"0"_s);
    }

    void o_segundo_nao_tira_nada_a_ninguem()
    {
        Sistema s;
        const int admin = s.Novo_Utilizador(u"Admin"_s, u"x"_s);
        posses::Dar_Um_De_Cada(s, admin);
        const QStringList antes = posses::Donos_De_Tudo(s);
        Criar(s, u"Rui"_s, {u"cbEditar"_s});
        QCOMPARE(posses::Donos_De_Tudo(s), antes);
    }

    void o_segundo_tem_os_direitos_marcados_e_ve_so_os_grupos_partilhados_e_os_seus()
    {
        Sistema s;
        Criar(s, u"Admin"_s);
        Criar(s, u"Rui"_s, {u"cbEditar"_s, u"cbGrupos"_s});
        s.Entrar(u"Rui"_s);
        const Sessao &rui = s.geral.SessaoActual;
        QVERIFY(!rui.Adicionar && rui.Editar && !rui.Eliminar && rui.Grupos && !rui.Utilizadores);
        QCOMPARE(Grupos_Visiveis(s), QStringList());
        s.Novo_Grupo(u"De todos"_s);
        s.Novo_Grupo(u"Meu"_s, rui.IdUtilizador.toInt());
        QCOMPARE(Grupos_Visiveis(s), (QStringList{u"De todos"_s, u"Meu"_s}));
    }

    void cancelar_nao_grava_nada_data()
    {
        QTest::addColumn<bool>("pelo_botao");
        QTest::newRow("cancelar") << true;
        QTest::newRow("escape") << false;
    }
    void cancelar_nao_grava_nada()
    {
        QFETCH(bool, pelo_botao);
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        form.show();
        if (pelo_botao)
            form.cmdCancelar->click();
        else
            QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT * FROM TblUsers"_s), QStringList());
        QVERIFY(s.geral.SessaoActual.Utilizador.isEmpty());
    }

    void os_temporizadores_param_e_voltam_a_andar()
    {
        Sistema s;
        const Temporizadores &t = s.geral.temporizadores;
        QSignalSpy iniciar_mail(&t, &Temporizadores::IniciarMail);
        frmNovoUser form(s.geral, s.plataforma);
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        form.show();
        form.cmdCancelar->click();
        QVERIFY(t.timerTarefas.Enabled() && t.timerPonto.Enabled());
        QCOMPARE(iniciar_mail.count(), 1);
    }

    void comando_que_falha_da_o_erro_e_o_formulario_fica()
    {
        Sistema s;
        frmNovoUser form(s.geral, s.plataforma);
        form.show();
        s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
        QCOMPARE(form.campos->txtUser->text(), u"Admin"_s);
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        Sistema s;
        s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
        VERIFICAR_FALHA(frmNovoUser(s.geral, s.plataforma), Failure::StoreError);
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled() && s.geral.temporizadores.timerPonto.Enabled());
    }
};

MORVEX_TESTE(TestFrmNovoUser)
#include "test_frmNovoUser.moc"
