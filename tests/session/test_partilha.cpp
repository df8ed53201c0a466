// Several people on one installation, over several lives of the program: who sees which contacts after each
// step. What each may see is worked out here from the bare tables, without the program's own queries.
#include "contacts/frmEditGroup.h"
#include "contacts/frmNovoGrupo.h"
#include "Posses.h"
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmNovoUser.h"
#include "Vida.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace
{
struct Visivel {
    QStringList contactos;
    QStringList grupos;
};

// A group without an owner is everybody's, any other its owner's alone; a contact goes with its group.
Visivel Pela_Regra(Sistema &s, int utilizador)
{
    Visivel visivel;
    QMap<int, QString> grupos;
    Recordset rs = s.Ler(u"SELECT * FROM TblGrupos"_s);
    for (; !rs.Eof(); rs.MoveNext()) {
        const int dono = rs.Fields("IdUtilizador").number();
        if (dono == 0 || dono == utilizador) grupos[rs.Fields("ID").number()] = rs.Fields("NomeGrupo").text();
    }
    rs = s.Ler(u"SELECT * FROM TblLista"_s);
    for (; !rs.Eof(); rs.MoveNext())
        if (grupos.contains(rs.Fields("Grupo").number())) visivel.contactos << rs.Fields("Nome").text();
    visivel.contactos.sort();
    visivel.grupos = grupos.values();
    visivel.grupos.sort();
    return visivel;
}
} // namespace

class TestPartilha : public QObject
{
    Q_OBJECT

    std::unique_ptr<Sistema> s;
    QMap<QString, QString> senhas; // of the users that there are, by name

    // Each user starts the program anew and sees what is his or hers; without users nobody is asked.
    void Comparar_Com_A_Regra(const char *passo)
    {
        const QStringList nomes = senhas.isEmpty() ? QStringList{QString()} : senhas.keys();
        for (const QString &nome : nomes) {
            Vida vida(*s, nome, senhas.value(nome));
            QCOMPARE(vida.geral.SessaoActual.Utilizador, nome);
            const Visivel visivel = Pela_Regra(*s, vida.geral.SessaoActual.IdUtilizador.toInt());
            const QByteArray onde = passo + (", " + nome.toUtf8());
            QVERIFY2(vida.Grupos() == visivel.grupos, onde.constData());
            QVERIFY2(vida.Contactos() == visivel.contactos, onde + ": " +
                                                                vida.Contactos().join(u',').toUtf8() + " / " +
                                                                visivel.contactos.join(u',').toUtf8());
            QStringList por_grupos; // each contact under exactly one row of the filter
            for (int linha = 1; linha < vida.janela.ComboGrupos->ListCount(); ++linha)
                por_grupos << vida.Contactos(linha);
            por_grupos.sort();
            QVERIFY2(por_grupos == visivel.contactos, onde.constData());
        }
    }

    void Criar_Utilizador(Vida &vida, const QString &nome, const QStringList &direitos = {})
    {
        vida.Fazer<frmNovoUser>(*vida.janela.CriarUtilizadores, [&](frmNovoUser &form) {
            form.campos->txtUser->setText(nome);
            form.campos->txtPass1->setText(nome.toLower());
            form.campos->txtPass2->setText(nome.toLower());
            for (const QString &direito : direitos)
                form.findChild<QCheckBox *>(direito)->setChecked(true);
            form.cmdOk->click();
        });
        senhas[nome] = nome.toLower();
    }

    // A group with one contact in it. The owner is a row of the form's combo.
    void Criar_Grupo(Vida &vida, const QString &nome, const QString &dono)
    {
        vida.Fazer<frmNovoGrupo>(*vida.janela.CriarGrupos, [&](frmNovoGrupo &form) {
            form.txtGrupo->setText(nome);
            form.ComboUsers->ChooseText(dono);
            form.cmdOk->click();
        });
        s->Novo_Contacto({{u"Nome"_s, u"De "_s + nome}, {u"Grupo"_s, s->Ultimo_Id(u"TblGrupos"_s)}});
    }

    void Eliminar_Utilizador(Vida &vida, const QString &nome)
    {
        vida.Fazer<frmDeleteUser>(*vida.janela.EliminarUtilizadores, [&](frmDeleteUser &form) {
            form.ComboUsers->ChooseText(nome);
            form.cmdOk->click();
        });
        senhas.remove(nome);
    }

    // From no users to a first one and a second one, with groups of all kinds.
    void Povoar()
    {
        s = std::make_unique<Sistema>();
        senhas.clear();
        s->Novo_Contacto({{u"Nome"_s, u"Abel"_s}, {u"Grupo"_s, 1}});
        s->Novo_Contacto({{u"Nome"_s, u"Sem grupo"_s}, {u"Grupo"_s, 99}}); // nobody ever sees it
        {
            Vida vida(*s);
            Criar_Utilizador(vida, u"Admin"_s);
            QCOMPARE(vida.Contactos(), QStringList()); // the session is still nobody's
        }
        Vida vida(*s, u"Admin"_s, u"admin"_s);
        Criar_Utilizador(vida, u"Rui"_s, {u"cbEditar"_s, u"cbGrupos"_s});
        Criar_Grupo(vida, u"De todos"_s, s->Texto(272));
        Criar_Grupo(vida, u"Do Rui"_s, u"Rui"_s);
        Criar_Grupo(vida, u"Do Admin"_s, u"Admin"_s);
    }

private Q_SLOTS:
    void cada_um_ve_o_partilhado_e_o_seu_de_passo_em_passo()
    {
        s = std::make_unique<Sistema>();
        senhas.clear();
        s->Novo_Contacto({{u"Nome"_s, u"Abel"_s}, {u"Grupo"_s, 1}});
        Comparar_Com_A_Regra("no users");
        {
            Vida vida(*s);
            QCOMPARE_NE(vida.Contactos(), QStringList());
            Criar_Utilizador(vida, u"Admin"_s);
            QCOMPARE(vida.Contactos(), QStringList()); // its data has just gone to the new user
            QCOMPARE(vida.janela.windowTitle().trimmed(), u"Morvex "_s + vida.geral.VersaoBD);
        }
        Comparar_Com_A_Regra("first user");
        {
            Vida vida(*s, u"Admin"_s, u"admin"_s);
            QVERIFY(vida.Contactos().contains(u"Abel"_s));
            Criar_Utilizador(vida, u"Rui"_s, {u"cbEditar"_s, u"cbGrupos"_s});
        }
        Comparar_Com_A_Regra("second user");
        {
            Vida vida(*s, u"Rui"_s, u"rui"_s);
            const Sessao &rui = vida.geral.SessaoActual;
            QVERIFY(!rui.Adicionar && rui.Editar && !rui.Eliminar && rui.Grupos && !rui.Utilizadores);
            QCOMPARE(vida.Grupos(), QStringList());
            Criar_Grupo(vida, u"De todos"_s, s->Texto(272));
            Criar_Grupo(vida, u"Do Rui"_s, u"Rui"_s);
            Criar_Grupo(vida, u"Do Admin"_s, u"Admin"_s);
            QCOMPARE(vida.Grupos(), (QStringList{u"De todos"_s, u"Do Rui"_s}));
        }
        Comparar_Com_A_Regra("private and shared groups");
    }

    void dar_um_grupo_partilhado_a_um_so_tira_o_aos_outros()
    {
        Povoar();
        Comparar_Com_A_Regra("before");
        {
            Vida vida(*s, u"Rui"_s, u"rui"_s);
            s->caixas.Espera(s->Texto(262) + u" De todos "_s + s->Texto(263) + u" Rui"_s, 48, s->Texto(122));
            vida.Fazer<frmEditGroup>(*vida.janela.EditarGrupos, [](frmEditGroup &form) {
                form.ComboGrupos->ChooseText(u"De todos"_s);
                form.OptionChangeUser->click();
                form.ComboUsers->ChooseText(u"Rui"_s);
                form.cmdOk->click();
            });
        }
        Comparar_Com_A_Regra("after");
    }

    void mudar_o_nome_de_quem_esta_na_sessao_nao_muda_o_que_ve()
    {
        Povoar();
        {
            Vida vida(*s, u"Admin"_s, u"admin"_s);
            const QStringList antes = vida.Contactos();
            vida.Fazer<frmEditUser>(*vida.janela.EditarUtilizadores, [](frmEditUser &form) {
                form.ComboUsers->ChooseText(u"Admin"_s);
                form.campos->txtUser->setText(u"Chefe"_s);
                form.campos->txtPass1->setText(u"novo"_s);
                form.campos->txtPass2->setText(u"novo"_s);
                form.cmdOk->click();
            });
            QCOMPARE(vida.geral.SessaoActual.Utilizador, u"Admin"_s);
            QCOMPARE(vida.Contactos(), antes);
            senhas.remove(u"Admin"_s);
            senhas[u"Chefe"_s] = u"novo"_s;
        }
        Comparar_Com_A_Regra("renamed");
    }

    void renomeado_na_sessao_elimina_se_a_si_proprio_como_outro()
    {
        Povoar();
        {
            Vida vida(*s, u"Admin"_s, u"admin"_s);
            vida.Fazer<frmEditUser>(*vida.janela.EditarUtilizadores, [](frmEditUser &form) {
                form.ComboUsers->ChooseText(u"Admin"_s);
                form.campos->txtUser->setText(u"Chefe"_s);
                form.cmdOk->click();
            });
            senhas.remove(u"Admin"_s);
            Eliminar_Utilizador(vida, u"Chefe"_s);
        }
        QCOMPARE(senhas.keys(), QStringList{u"Rui"_s});
        Comparar_Com_A_Regra("only the other is left");
    }

    void o_ultimo_elimina_se_data()
    {
        QTest::addColumn<bool>("com_tarefa");
        QTest::newRow("com uma tarefa tudo volta a todos") << true;
        QTest::newRow("sem tarefas a lista vem vazia") << false;
    }
    void o_ultimo_elimina_se()
    {
        QFETCH(bool, com_tarefa);
        Povoar();
        {
            Vida vida(*s, u"Admin"_s, u"admin"_s);
            Eliminar_Utilizador(vida, u"Rui"_s);
        }
        Comparar_Com_A_Regra("another user deleted");
        {
            Vida vida(*s, u"Admin"_s, u"admin"_s);
            QVERIFY(!vida.Grupos().contains(u"Do Rui"_s));
            if (com_tarefa) posses::Nova_Tarefa(*s, vida.geral.SessaoActual.IdUtilizador.toInt());
            Eliminar_Utilizador(vida, u"Admin"_s);
            QCOMPARE(vida.janela.windowTitle(), u"Morvex "_s + vida.geral.VersaoBD + u' ');
        }
        QVERIFY(senhas.isEmpty());
        Comparar_Com_A_Regra("no users again");
        Vida vida(*s);
        // The shared group was nobody's all the time; the others come back only where there was a task.
        QCOMPARE(vida.Contactos().contains(u"De De todos"_s), true);
        QCOMPARE(vida.Contactos().contains(u"Abel"_s), com_tarefa);
        QCOMPARE(vida.Contactos().contains(u"De Do Rui"_s), com_tarefa);
    }
};

MORVEX_TESTE(TestPartilha)
#include "test_partilha.moc"
