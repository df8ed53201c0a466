// Removing a user: the three cases, and what becomes of that user's things.
#include "contacts/Preencher_Grupos.h"
#include "controls/ComboBox.h"
#include "Diario.h"
#include "Posses.h"
#include "session/frmDeleteUser.h"
#include "session/Titulo.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/PalavraPasseDoServidor.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using posses::Numero;

namespace
{
// Whom the form deletes, and how.
enum class Caso {
    Ultimo_Com_Tarefas_E_Memos,
    Ultimo_So_Com_Tarefas,
    Ultimo_So_Com_Memos,
    Ultimo_Sem_Nada,
    Outro_Sem_Linhas,   // the query finds nothing, though the user has tasks
    Outro_Sem_Pergunta, // the user has neither tasks nor memos
    Outro_Responde_Sim,
};
} // namespace
Q_DECLARE_METATYPE(Caso)

class TestFrmDeleteUser : public QObject
{
    Q_OBJECT

    // The shipped memo of nobody would be somebody's tasks' partner in the query.
    static void Esvaziar(Sistema &s)
    {
        for (const QString &tabela : {u"TblMemos"_s, u"TblTarefas"_s, u"TblEmails"_s})
            s.Escrever(u"DELETE FROM "_s + tabela);
    }

    static void Escolher(frmDeleteUser &form, int id)
    {
        for (int i = 0; i < form.ComboUsers->ListCount(); ++i)
            if (form.ComboUsers->ItemData(i) == id) return form.ComboUsers->setListIndex(i);
        QFAIL("no such user");
    }

    static void Eliminar(Sistema &s, int id)
    {
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        Escolher(form, id);
        form.show();
        form.cmdOk->click();
        QVERIFY(!form.isVisible());
    }

    // A system of one user, who is logged in and owns everything.
    static int Um_So(Sistema &s)
    {
        Esvaziar(s);
        const int id = s.Novo_Utilizador(u"Ana"_s, u"x"_s, u"11111"_s, true);
        s.geral.de.Executar("cmdUpdateGrupos", {Numero(id)});
        s.Entrar(u"Ana"_s);
        return id;
    }

    // Somebody logged in, and another user beside: that one's ID.
    static int Outro(Sistema &s)
    {
        Um_So(s);
        return s.Novo_Utilizador(u"Rui"_s, u"x"_s);
    }

    static int Nomes_Visiveis(Sistema &s)
    {
        Recordset &rs = s.geral.de.Abrir("cmdListarTodosContactos", {s.geral.SessaoActual.IdUtilizador});
        const int total = rs.RecordCount();
        rs.Close();
        return total;
    }

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        Sistema s(Sistema::Estado::Semeado, u"FrancesFR"_s); // the design has them in Portuguese
        Outro(s);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        QCOMPARE(form.windowTitle(), s.Texto(108));
        QCOMPARE(form.Label1->text(), s.Texto(109));
        QCOMPARE(form.cmdOk->text(), u"&Ok"_s);
        QCOMPARE(form.cmdCancelar->text(), s.Texto(43));
        QCOMPARE(form.ComboUsers->ListCount(), 2);
        QCOMPARE(form.ComboUsers->currentText(), u"Ana"_s);
        QCOMPARE(form.ComboUsers->List(1), u"Rui"_s);
        QCOMPARE(s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    void o_ultimo_elimina_se_e_devolve_tudo_a_ninguem_nesta_ordem()
    {
        Sistema s;
        const int id = Um_So(s);
        posses::Dar_Um_De_Cada(s, id);
        Diario diario(s, {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblEmails"_s, u"TblGrupos"_s});
        Eliminar(s, id);
        QCOMPARE(posses::Donos_De_Tudo(s), QStringList(4, u"0"_s));
        const QStringList ordem{u"UPDATE TblMemos"_s, u"UPDATE TblTarefas"_s, u"UPDATE TblEmails"_s,
                                u"UPDATE TblGrupos"_s, u"DELETE TblUsers"_s};
        QCOMPARE(diario.Escritas(), ordem);
    }

    void o_ultimo_deixa_a_sessao_sem_nome_com_o_id_e_os_direitos()
    {
        Sistema s;
        const int id = Um_So(s);
        s.geral.VersaoBD = u"9.9"_s;
        QWidget janela;
        janela.setWindowTitle(u"Morvex 9.9 Ana"_s);
        frmDeleteUser form(s.geral, s.plataforma, janela);
        form.cmdOk->click();
        const Sessao &sessao = s.geral.SessaoActual;
        QCOMPARE(sessao.Utilizador, QString());
        QVERIFY(!sessao.PedirPassSystemTray);
        QCOMPARE(sessao.IdUtilizador, Numero(id));
        QVERIFY(sessao.Adicionar && sessao.Editar && sessao.Eliminar && sessao.Grupos && sessao.Utilizadores);
        QCOMPARE(janela.windowTitle(), u"Morvex 9.9 "_s);
    }

    void o_unico_sem_tarefas_nem_memos_deixa_os_grupos_perdidos_e_a_lista_vazia()
    {
        Sistema s;
        const int id = Um_So(s);
        QCOMPARE_NE(Nomes_Visiveis(s), 0);
        Eliminar(s, id);
        QCOMPARE(posses::Donos(s, u"TblGrupos"_s), Numero(id));
        s.geral.SessaoActual = Sessao(); // the next start, without users
        QCOMPARE(Nomes_Visiveis(s), 0);
        QCOMPARE_NE(s.Linhas(u"SELECT ID FROM TblLista"_s).size(), 0);
    }

    void quem_esta_na_sessao_nao_se_elimina_enquanto_houver_outros()
    {
        Sistema s;
        Outro(s);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        s.caixas.Espera(s.Texto(107), 16, s.Texto(108));
        form.show();
        form.cmdOk->click();
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), (QStringList{u"Ana"_s, u"Rui"_s}));
    }

    void renomeado_na_sua_sessao_ja_se_elimina_como_outro()
    {
        Sistema s;
        Outro(s);
        const int ana = s.geral.SessaoActual.IdUtilizador.toInt();
        s.Escrever(u"UPDATE TblUsers SET Utilizador='Anabela' WHERE ID=%1"_s.arg(ana));
        Eliminar(s, ana);
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), QStringList{u"Rui"_s});
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Ana"_s);
    }

    // Nobody of the session's name is left, so not even the last row is "the last user".
    void renomeado_e_unico_elimina_se_como_outro_e_nada_volta_a_ninguem()
    {
        Sistema s;
        const int ana = Um_So(s);
        s.Escrever(u"UPDATE TblUsers SET Utilizador='Anabela'"_s);
        Eliminar(s, ana);
        QCOMPARE(s.Linhas(u"SELECT * FROM TblUsers"_s), QStringList());
        QCOMPARE(posses::Donos(s, u"TblGrupos"_s), Numero(ana));
        QCOMPARE(s.geral.SessaoActual.Utilizador, u"Ana"_s);
        QVERIFY(s.geral.SessaoActual.PedirPassSystemTray);
    }

    // The query pairs each task with each memo, whoever's.
    void a_pergunta_vem_so_com_linhas_nas_duas_tabelas_data()
    {
        QTest::addColumn<int>("tarefas_do_outro");
        QTest::addColumn<int>("memos_do_outro");
        QTest::addColumn<int>("tarefas_alheias");
        QTest::addColumn<int>("memos_alheios");
        QTest::addColumn<bool>("pergunta");
        QTest::newRow("nada") << 0 << 0 << 0 << 0 << false;
        QTest::newRow("so tarefas") << 2 << 0 << 0 << 0 << false;
        QTest::newRow("so memos") << 0 << 2 << 0 << 0 << false;
        QTest::newRow("tarefas, e memos de alguem") << 1 << 0 << 0 << 1 << true;
        QTest::newRow("memos, e tarefas de alguem") << 0 << 1 << 1 << 0 << true;
        QTest::newRow("ambas do outro") << 1 << 1 << 0 << 0 << true;
        QTest::newRow("ambas de alguem") << 0 << 0 << 3 << 3 << false;
    }
    void a_pergunta_vem_so_com_linhas_nas_duas_tabelas()
    {
        QFETCH(int, tarefas_do_outro);
        QFETCH(int, memos_do_outro);
        QFETCH(int, tarefas_alheias);
        QFETCH(int, memos_alheios);
        QFETCH(bool, pergunta);
        Sistema s;
        const int rui = Outro(s);
        const int ana = s.geral.SessaoActual.IdUtilizador.toInt();
        for (int i = 0; i < tarefas_do_outro; ++i)
            posses::Nova_Tarefa(s, rui);
        for (int i = 0; i < memos_do_outro; ++i)
            posses::Novo_Memo(s, rui);
        for (int i = 0; i < tarefas_alheias; ++i)
            posses::Nova_Tarefa(s, ana);
        for (int i = 0; i < memos_alheios; ++i)
            posses::Novo_Memo(s, ana);
        if (pergunta) s.caixas.Espera(s.Texto(173), 36, s.Texto(108), answer::yes);
        Eliminar(s, rui);
        QVERIFY(s.caixas.Todas_Vistas());
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), QStringList{u"Ana"_s});
    }

    void responder_nao_volta_ao_formulario_sem_nada_feito()
    {
        Sistema s;
        const int rui = Outro(s);
        posses::Dar_Um_De_Cada(s, rui);
        Diario diario(s, {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblEmails"_s, u"TblGrupos"_s});
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        Escolher(form, rui);
        form.show();
        s.caixas.Espera(s.Texto(173), 36, s.Texto(108), answer::no);
        form.cmdOk->click();
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
        QCOMPARE(diario.Escritas(), QStringList());
        QCOMPARE(form.ComboUsers->currentText(), u"Rui"_s);
    }

    void responder_sim_elimina_nesta_ordem_e_so_o_que_e_do_outro()
    {
        Sistema s;
        const int rui = Outro(s);
        const int ana = s.geral.SessaoActual.IdUtilizador.toInt();
        posses::Dar_Um_De_Cada(s, rui);
        posses::Dar_Um_De_Cada(s, ana);
        Diario diario(s, {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblEmails"_s, u"TblGrupos"_s});
        s.caixas.Espera(s.Texto(173), 36, s.Texto(108), answer::yes);
        Eliminar(s, rui);
        const QStringList ordem{u"DELETE TblTarefas"_s, u"DELETE TblMemos"_s, u"DELETE TblEmails"_s,
                                u"DELETE TblUsers"_s};
        QCOMPARE(diario.Escritas(), ordem);
        const QStringList donos{Numero(ana), Numero(ana), Numero(ana), Numero(ana) + u',' + Numero(rui)};
        QCOMPARE(posses::Donos_De_Tudo(s), donos);
    }

    void sem_pergunta_o_utilizador_vai_antes_das_suas_contas()
    {
        Sistema s;
        const int rui = Outro(s);
        posses::Nova_Conta(s, rui);
        Diario diario(s, {u"TblUsers"_s, u"TblEmails"_s});
        Eliminar(s, rui);
        QCOMPARE(diario.Escritas(), (QStringList{u"DELETE TblUsers"_s, u"DELETE TblEmails"_s}));
    }

    void a_conta_num_servidor_de_livros_vai_com_o_utilizador_e_a_dos_outros_fica()
    {
        Sistema s;
        const int rui = Outro(s);
        for (const int id : {rui, s.geral.SessaoActual.IdUtilizador.toInt()}) {
            MemoriaDaSincronizacao memoria(s.geral.de, QString::number(id));
            ContaSincronizada conta;
            conta.PalavraPasse = u"segredo"_s;
            memoria.Guardar(conta);
            memoria.Guardar(Par{u"/a"_s, 1, {}, {}, {}, {}});
            memoria.Apontar({Ocorrencia::Ilegivel, 0, u"x"_s, {}, {}, {}, {}});
        }
        Eliminar(s, rui);
        for (const QString &tabela : {u"TblSincronizacao"_s, u"TblSincronizados"_s, u"TblOcorrencias"_s})
            QCOMPARE(s.Linhas(u"SELECT IdUtilizador FROM "_s + tabela),
                     QStringList{s.geral.SessaoActual.IdUtilizador});
    }

    // The accounts go last: should that fail, nobody is logged in any more who is not in the table.
    void o_ultimo_deixa_a_sessao_antes_de_as_suas_contas_irem()
    {
        Sistema s;
        const int id = Um_So(s);
        posses::Nova_Conta(s, id);
        s.Recusar(u"DELETE"_s, u"TblEmails"_s);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        form.show();
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(s.caixas.Todas_Vistas());
        QCOMPARE(s.Linhas(u"SELECT Utilizador FROM TblUsers"_s), QStringList());
        QCOMPARE(s.geral.SessaoActual.Utilizador, QString());
        QCOMPARE(janela.windowTitle(), Titulo(s.geral));
    }

    // What becomes of a deleted user's things. "-" is gone; the user's own ID stands as "dele".
    void o_destino_das_coisas_de_um_eliminado_data()
    {
        QTest::addColumn<Caso>("caso");
        QTest::addColumn<QStringList>("destinos"); // tasks, memos, mail accounts, groups
        const auto ficam = u"dele"_s;
        const auto de_ninguem = u"0"_s;
        const auto idas = u"-"_s;
        QTest::newRow("ultimo, a consulta acha linhas")
            << Caso::Ultimo_Com_Tarefas_E_Memos
            << QStringList{de_ninguem, de_ninguem, de_ninguem, de_ninguem};
        QTest::newRow("ultimo, so com tarefas")
            << Caso::Ultimo_So_Com_Tarefas << QStringList{ficam, idas, idas, ficam};
        QTest::newRow("ultimo, so com memos")
            << Caso::Ultimo_So_Com_Memos << QStringList{idas, ficam, idas, ficam};
        QTest::newRow("ultimo, sem tarefas nem memos")
            << Caso::Ultimo_Sem_Nada << QStringList{idas, idas, idas, ficam};
        QTest::newRow("outro, a consulta nao acha linhas")
            << Caso::Outro_Sem_Linhas << QStringList{ficam, idas, idas, ficam};
        QTest::newRow("outro, nada se pergunta")
            << Caso::Outro_Sem_Pergunta << QStringList{idas, idas, idas, ficam};
        QTest::newRow("outro, resposta sim")
            << Caso::Outro_Responde_Sim << QStringList{idas, idas, idas, ficam};
    }
    void o_destino_das_coisas_de_um_eliminado()
    {
        QFETCH(Caso, caso);
        QFETCH(QStringList, destinos);
        Sistema s;
        const bool outro = caso >= Caso::Outro_Sem_Linhas;
        const int id = outro ? Outro(s) : Um_So(s);
        const bool ambas = caso == Caso::Ultimo_Com_Tarefas_E_Memos || caso == Caso::Outro_Responde_Sim;
        const bool tarefas = ambas || caso == Caso::Ultimo_So_Com_Tarefas || caso == Caso::Outro_Sem_Linhas;
        if (tarefas) posses::Nova_Tarefa(s, id);
        if (ambas || caso == Caso::Ultimo_So_Com_Memos) posses::Novo_Memo(s, id);
        posses::Nova_Conta(s, id);
        const int grupo = s.Novo_Grupo(u"Dele"_s, id);
        const int contacto = s.Novo_Contacto({{u"Nome"_s, u"Do grupo dele"_s}, {u"Grupo"_s, grupo}});
        for (const QString &seccao : {u"emailnotify"_s, u"messenger"_s, u"som"_s})
            s.geral.ini.Escrever_Ini(seccao + Numero(id), u"activo"_s, u"1"_s);
        if (caso == Caso::Outro_Responde_Sim) s.caixas.Espera(s.Texto(173), 36, s.Texto(108), answer::yes);

        Eliminar(s, id);

        QCOMPARE(s.geral.de.Rs("cmdVerificarTarefasMemos").State(), Recordset::Closed);
        QCOMPARE(s.Linhas(u"SELECT ID FROM TblUsers WHERE ID=%1"_s.arg(id)), QStringList());
        const auto destino = [&](const QString &donos) {
            return donos.isEmpty() ? u"-"_s : donos == Numero(id) ? u"dele"_s : donos;
        };
        const QString dono_do_grupo =
            s.Linhas(u"SELECT IdUtilizador FROM TblGrupos WHERE ID=%1"_s.arg(grupo)).join(u',');
        QCOMPARE(
            (QStringList{destino(posses::Donos(s, u"TblTarefas"_s)), destino(posses::Donos(s, u"TblMemos"_s)),
                         destino(posses::Donos(s, u"TblEmails"_s)), destino(dono_do_grupo)}),
            destinos);
        // A group of an owner who is gone is invisible to all, with its contacts; one of nobody is seen by
        // all.
        s.geral.SessaoActual.IdUtilizador = outro ? s.geral.SessaoActual.IdUtilizador : u"0"_s;
        Recordset &rs = s.geral.de.Abrir("cmdListarTodosContactos", {s.geral.SessaoActual.IdUtilizador});
        bool visto = false;
        for (; !rs.Eof(); rs.MoveNext())
            visto = visto || rs.Fields("ID").number() == contacto;
        QCOMPARE(visto, destinos[3] == u"0");
        for (const QString &seccao : {u"emailnotify"_s, u"messenger"_s, u"som"_s})
            QCOMPARE(s.geral.ini.Ler_Ini(seccao + Numero(id), u"activo"_s), u"1"_s);
    }

    void cancelar_nao_elimina_nada()
    {
        Sistema s;
        Outro(s);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        form.show();
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
        QCOMPARE(s.Linhas(u"SELECT ID FROM TblUsers"_s).size(), 2);
    }

    void a_palavra_passe_no_porta_chaves_vai_com_o_utilizador_data()
    {
        QTest::addColumn<bool>("ultimo");
        QTest::newRow("the last one") << true;
        QTest::newRow("another one") << false;
    }
    void a_palavra_passe_no_porta_chaves_vai_com_o_utilizador()
    {
        QFETCH(bool, ultimo);
        Sistema s;
        s.segredos.ha = true;
        const int id = ultimo ? Um_So(s) : Outro(s);
        ContaSincronizada conta;
        conta.Endereco = u"dav.example"_s;
        const QString quem = std::exchange(s.geral.SessaoActual.IdUtilizador, Numero(id));
        PalavraPasseDoServidor(s.geral, s.segredos).Guardar(conta, u"dele"_s);
        s.geral.SessaoActual.IdUtilizador = u"99"_s; // somebody else's stays
        PalavraPasseDoServidor(s.geral, s.segredos).Guardar(conta, u"de outro"_s);
        s.geral.SessaoActual.IdUtilizador = quem;
        Eliminar(s, id);
        QCOMPARE(s.segredos.guardados.values(), QStringList{u"de outro"_s});
    }

    // The alarm stays off after this form: it says "stop" at both ends.
    void os_temporizadores_param_e_ficam_parados()
    {
        Sistema s;
        const int rui = Outro(s);
        const Temporizadores &t = s.geral.temporizadores;
        QSignalSpy iniciar_mail(&t, &Temporizadores::IniciarMail);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        s.geral.temporizadores.Gerir_Temporizadores(u"start"_s);
        Escolher(form, rui);
        form.show();
        form.cmdOk->click();
        QVERIFY(!t.timerTarefas.Enabled() && !t.timerPonto.Enabled());
        QCOMPARE(iniciar_mail.count(), 1); // the one above
    }

    void comando_que_falha_da_o_erro_e_o_formulario_fica()
    {
        Sistema s;
        Outro(s);
        QWidget janela;
        frmDeleteUser form(s.geral, s.plataforma, janela);
        form.ComboUsers->setListIndex(1);
        form.show();
        s.Escrever(u"ALTER TABLE TblUsers RENAME TO Fora"_s);
        s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdOk, Qt::LeftButton);
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }
};

MORVEX_TESTE(TestFrmDeleteUser)
#include "test_frmDeleteUser.moc"
