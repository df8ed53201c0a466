// Notes, tasks, users and presence of a server, as each desk follows them.
#include "online/Presenca.h"
#include "reminders/frmListaTarefas.h"
#include "reminders/frmPopup.h"
#include "session/frmLogin.h"
#include "session/Posto.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QAction>

using namespace Qt::StringLiterals;
using What = StoreChange::What;

namespace
{
const QString memo =
    u"INSERT INTO TblMemos (Titulo, Descricao, LeftForm, TopForm, Width, Height, FontName, "
    "FontSize, FontBold, FontItalic, CorFundo, Utilizador) VALUES ('%1', 'texto', 1500, 1500, "
    "3000, 3000, 'Arial', 8, 0, 0, 8454143, 0)"_s;
const QString tarefa = u"INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) VALUES "
                       "('%1', '%2', '09:00:00', 0, 1)"_s;

frmMemo *Nota(const QString &titulo)
{
    for (frmMemo *nota : Abertos<frmMemo>())
        if (nota->lblTitle->text() == titulo) return nota;
    return nullptr;
}

struct PostoComMemo : Posto {
    PostoComMemo()
    {
        Muda(memo.arg(u"Um"_s), u"tblmemos"_s, What::Added, {1});
        nota = Nota(u"Um"_s);
    }
    frmMemo *nota = nullptr;
};
} // namespace

class TestOQueOsPostosPartilham : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_memo_novo_do_mesmo_utilizador_abre_sem_tomar_o_teclado()
    {
        PostoComMemo p;
        QVERIFY(p.nota != nullptr);
        QVERIFY(!p.nota->isActiveWindow());
        QCOMPARE(p.nota->txtMemo->toPlainText(), u"texto"_s);
    }

    void um_memo_segue_a_sua_linha()
    {
        PostoComMemo p;
        QVERIFY(p.nota != nullptr);
        const auto antes = Abertos<frmMemo>().size();
        p.Muda(u"UPDATE TblMemos SET Descricao='outro'"_s, u"tblmemos"_s, What::Changed, {1});
        QCOMPARE(p.nota->txtMemo->toPlainText(), u"outro"_s);
        QCOMPARE(Abertos<frmMemo>().size(), antes);
    }

    void um_memo_sem_linha_fecha_se()
    {
        PostoComMemo p;
        p.Muda(u"DELETE FROM TblMemos"_s, u"tblmemos"_s, What::Removed, {1});
        QVERIFY(Abertos<frmMemo>().isEmpty());
    }

    void o_que_se_escreveu_num_memo_nao_se_perde()
    {
        PostoComMemo p;
        QVERIFY(p.nota != nullptr);
        p.nota->txtMemo->setPlainText(u"a meio"_s);
        p.Muda(u"UPDATE TblMemos SET Descricao='outro'"_s, u"tblmemos"_s, What::Changed, {1});
        QCOMPARE(p.nota->txtMemo->toPlainText(), u"a meio"_s);
    }

    void um_memo_por_guardar_que_perde_a_linha_recebe_outra()
    {
        PostoComMemo p;
        QVERIFY(p.nota != nullptr);
        p.nota->txtMemo->setPlainText(u"a meio"_s);
        p.Muda(u"DELETE FROM TblMemos"_s, u"tblmemos"_s, What::Removed, {1});
        QVERIFY(p.nota->isVisible());
        p.nota->cmdGuardar->click();
        QCOMPARE(p.s.Linhas(u"SELECT Descricao FROM TblMemos"_s), QStringList{u"a meio"_s});
    }

    void um_aviso_cuja_tarefa_foi_tratada_noutro_posto_desce()
    {
        Posto p;
        p.Muda(tarefa.arg(u"Uma"_s, u"2027-01-31"_s), u"tbltarefas"_s, What::Added, {1});
        Disparar(p.s.geral.temporizadores.timerTarefas);
        QCOMPARE(Abertos<frmPopup>().size(), 1);
        frmPopup *popup = Abertos<frmPopup>().constFirst();
        p.Muda(u"UPDATE TblTarefas SET Data='2027-03-01'"_s, u"tbltarefas"_s, What::Changed, {1});
        QVERIFY(popup->TimerDown.Enabled());
    }

    void um_aviso_com_outra_tarefa_vencida_fica_e_mostra_essa()
    {
        Posto p;
        p.s.Escrever(tarefa.arg(u"Outra"_s, u"2027-01-30"_s));
        p.Muda(tarefa.arg(u"Uma"_s, u"2027-01-31"_s), u"tbltarefas"_s, What::Added, {2});
        Disparar(p.s.geral.temporizadores.timerTarefas);
        frmPopup *popup = Abertos<frmPopup>().value(0);
        QVERIFY(popup != nullptr);
        QCOMPARE(popup->lblTarefa->text(), u"Uma"_s);
        p.Muda(u"DELETE FROM TblTarefas WHERE Tarefa='Uma'"_s, u"tbltarefas"_s, What::Removed, {2});
        QVERIFY(!popup->TimerDown.Enabled());
        Disparar(p.s.geral.temporizadores.timerTarefas);
        QCOMPARE(popup->lblTarefa->text(), u"Outra"_s);
    }

    void a_tarefa_que_este_posto_escreve_toca_no_seu_minuto()
    {
        Posto p;
        Disparar(p.s.geral.temporizadores.timerTarefas);
        p.s.geral.de.Executar("cmdAdicionarTarefa",
                              {u"Minha"_s, u"01-02-2027"_s, u"09:00"_s, u"0"_s, u"1"_s});
        Disparar(p.s.geral.temporizadores.timerTarefas);
        QCOMPARE(Abertos<frmPopup>().size(), 1);
    }

    void a_lista_de_tarefas_aberta_segue_e_a_escolha_fica()
    {
        Posto p;
        p.s.Escrever(tarefa.arg(u"Uma"_s, u"2027-03-02"_s));
        p.s.Escrever(tarefa.arg(u"Duas"_s, u"2027-03-03"_s));
        accoes::Quando_Abrir<frmListaTarefas>([&](frmListaTarefas &lista) {
            QTreeWidget &itens = *lista.ListViewTarefas;
            itens.setCurrentItem(itens.topLevelItem(1));
            p.Muda(tarefa.arg(u"Antes"_s, u"2027-03-01"_s), u"tbltarefas"_s, What::Added, {9});
            QCOMPARE(itens.topLevelItemCount(), 3);
            QCOMPARE(itens.selectedItems().value(0)->text(0), u"Duas"_s);
            lista.reject();
        });
        p.janela.ListaTarefas->trigger();
    }

    void os_direitos_de_quem_entrou_seguem()
    {
        Posto p;
        const int id = p.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        p.s.Entrar(u"Ana"_s);
        QVERIFY(p.s.geral.SessaoActual.Eliminar);
        p.Muda(u"UPDATE TblUsers SET Eliminar=0, Utilizador='Ana Rita'"_s, u"tblusers"_s, What::Changed,
               {id});
        QVERIFY(!p.s.geral.SessaoActual.Eliminar);
        QVERIFY(p.s.geral.SessaoActual.Editar);
        QVERIFY(p.janela.windowTitle().endsWith(u" Ana Rita"_s));
    }

    void quem_foi_eliminado_noutro_posto_tem_de_entrar_de_novo()
    {
        PostoComMemo p;
        const int ana = p.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        const int rui = p.s.Novo_Utilizador(u"Rui"_s, u"y"_s);
        p.s.Novo_Grupo(u"Só do Rui"_s, rui);
        p.s.Entrar(u"Ana"_s);
        p.s.caixas.Espera(p.s.Texto(453), box::exclamation, u"Morvex"_s);
        accoes::Quando_Abrir<frmLogin>([](frmLogin &login) {
            login.txtUser->setText(u"Rui"_s);
            login.txtPass->setText(u"y"_s);
            login.cmdOk->click();
        });
        p.s.segredos.guardados[u"sincronizacao %1 %2"_s.arg(ana).arg(p.s.geral.de.Ficheiro())] = u"segredo"_s;
        p.Muda(u"DELETE FROM TblUsers WHERE ID=%1"_s.arg(ana), u"tblusers"_s, What::Removed, {ana});
        QVERIFY(p.s.segredos.guardados.isEmpty()); // nor does the desktop keep anything of hers
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.s.geral.SessaoActual.Utilizador, u"Rui"_s);
        QVERIFY(p.janela.windowTitle().endsWith(u" Rui"_s));
        QVERIFY(p.janela.ComboGrupos->findText(u"Só do Rui"_s) >= 0);
        QVERIFY(Abertos<frmMemo>().isEmpty()); // they were another's
    }

    void sem_utilizadores_ninguem_perde_a_sessao()
    {
        Posto p;
        p.Muda(u"INSERT INTO TblUsers (Utilizador, Pass) VALUES ('Ana', 'x')"_s, u"tblusers"_s, What::Added,
               {1});
        QCOMPARE(p.s.geral.SessaoActual.IdUtilizador, u"0"_s);
        QVERIFY(p.s.geral.SessaoActual.Eliminar);
    }

    void a_presenca_escreve_so_o_que_mudou()
    {
        Posto p;
        p.s.Escrever(u"UPDATE TblLista SET Email1='a@x.pt', MSNMessenger='2' WHERE ID=%1"_s.arg(p.ids[0]));
        p.s.Escrever(u"UPDATE TblLista SET Email2='B@x.pt', MSNMessenger='2' WHERE ID=%1"_s.arg(p.ids[1]));
        p.s.geral.MessengerActivo = 1;
        p.s.mensageiro.contactos = {{u"a@x.pt"_s, 2}, {u"b@x.pt"_s, 10}, {u"desconhecido@x.pt"_s, 2}};
        auto &presenca = *p.janela.findChild<Presenca *>();
        presenca.SincronizarMessenger();
        QCOMPARE(p.servidor.Comandos(), 2); // a question and one write
        QCOMPARE(p.s.Linhas(u"SELECT MSNMessenger FROM TblLista WHERE ID=%1"_s.arg(p.ids[1])),
                 QStringList{u"10"_s});
    }

    void o_cartao_a_vista_nao_escreve_a_mesma_presenca_duas_vezes()
    {
        Posto p;
        p.s.Escrever(u"UPDATE TblLista SET Email1='a@x.pt', MSNMessenger='1' WHERE ID=%1"_s.arg(p.ids[0]));
        p.s.geral.MessengerActivo = 1;
        p.s.mensageiro.contactos = {{u"a@x.pt"_s, 2}};
        p.lista.setListIndex(p.Linha(p.ids[0]));
        p.servidor.Esquecer();
        for (int i = 0; i < 3; ++i)
            Disparar(p.s.geral.temporizadores.TimerStatusOfContact);
        QCOMPARE(p.servidor.Comandos(), 1);
        QCOMPARE(p.s.Linhas(u"SELECT MSNMessenger FROM TblLista WHERE ID=%1"_s.arg(p.ids[0])),
                 QStringList{u"2"_s});
    }

    void um_posto_sem_mensageiro_nao_apaga_a_presenca_dos_outros()
    {
        Posto p;
        p.s.Escrever(u"UPDATE TblLista SET Email1='a@x.pt', MSNMessenger='2' WHERE ID=%1"_s.arg(p.ids[0]));
        p.s.geral.MessengerActivo = 0;
        p.lista.setListIndex(p.Linha(p.ids[0]));
        p.servidor.Esquecer();
        Disparar(p.s.geral.temporizadores.TimerStatusOfContact);
        QCOMPARE(p.servidor.Comandos(), 0);
    }
};

MORVEX_TESTE(TestOQueOsPostosPartilham)
#include "test_OQueOsPostosPartilham.moc"
