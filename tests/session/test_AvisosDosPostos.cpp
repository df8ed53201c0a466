// What other desks change, as it reaches this desk's window: everything follows, and nobody's selection,
// focus or typed text is taken.
#include "contacts/frmAddEdit.h"
#include "session/AvisosDosPostos.h"
#include "session/Posto.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using What = StoreChange::What;

class TestAvisosDosPostos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_contacto_novo_noutro_posto_aparece_e_a_escolha_fica()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[30]));
        p.lista.verticalScrollBar()->setValue(27);
        p.lista.setFocus();
        p.servidor.Esquecer();
        p.Muda(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s, u"tbllista"_s, What::Added, {99});
        QCOMPARE(p.lista.ListCount(), 51);
        QCOMPARE(p.lista.List(0), u"Aaa"_s);
        QCOMPARE(p.lista.ItemData(p.lista.ListIndex()), p.ids[30]);
        QCOMPARE(p.lista.verticalScrollBar()->value(), 28); // the same row at the same height
        QCOMPARE(p.s.geral.IndiceContacto, p.lista.ListIndex());
        QCOMPARE(p.s.geral.IDContacto, qint16(p.ids[30]));
        QVERIFY(p.lista.hasFocus());
        QVERIFY(p.janela.lblContador->text().endsWith(u" 51"_s));
        QCOMPARE(p.servidor.Comandos(), 1); // the card is the same
    }

    void o_contacto_do_cartao_que_muda_so_se_le_uma_vez()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.servidor.Esquecer();
        p.Muda(u"UPDATE TblLista SET Website='novo.pt' WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s,
               What::Changed, {p.ids[5]});
        QCOMPARE(p.janela.txtWebsite->text(), u"novo.pt"_s);
        QCOMPARE(p.servidor.Comandos(), 1);
    }

    void o_que_nao_mudou_no_cartao_guarda_o_seu_lugar()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.janela.txtObs->verticalScrollBar()->setValue(9);
        p.janela.txtObs->selectAll();
        p.Muda(u"UPDATE TblLista SET Website='novo.pt' WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s,
               What::Changed, {p.ids[5]});
        QCOMPARE(p.janela.txtObs->verticalScrollBar()->value(), 9);
        QVERIFY(p.janela.txtObs->textCursor().hasSelection());
    }

    void o_contacto_do_cartao_com_outro_nome_muda_de_linha()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.Muda(u"UPDATE TblLista SET Nome='Zzz' WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s, What::Changed,
               {p.ids[5]});
        QCOMPARE(p.lista.List(49), u"Zzz"_s);
        QCOMPARE(p.lista.ListIndex(), 49);
        QCOMPARE(p.s.geral.IndiceContacto, 49);
    }

    void o_contacto_do_cartao_que_desaparece_leva_o_seu_cartao()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        QVERIFY(p.janela.cmdEditar->isEnabled());
        p.Muda(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s, What::Removed, {p.ids[5]});
        QCOMPARE(p.lista.ListCount(), 49);
        QCOMPARE(p.lista.ListIndex(), -1);
        QVERIFY(!p.janela.cmdEditar->isEnabled());
        QCOMPARE(p.Obs(), QString());
    }

    void sem_escolha_nada_se_escolhe()
    {
        Posto p;
        p.lista.setListIndex(-1);
        p.lista.verticalScrollBar()->setValue(20);
        p.Muda(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(p.ids[2]), u"tbllista"_s, What::Removed, {p.ids[2]});
        QCOMPARE(p.lista.ListIndex(), -1);
        QCOMPARE(p.lista.verticalScrollBar()->value(), 19);
    }

    void o_que_vem_em_rajada_le_se_uma_so_vez()
    {
        Posto p;
        for (int i = 0; i < 20; ++i) {
            p.s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s);
            p.servidor.Mudou(u"tbllista"_s, What::Added, {100 + i});
        }
        QCOMPARE(p.servidor.Comandos(), 0);
        p.Recolher();
        QCOMPARE(p.servidor.Comandos(), 1);
        QCOMPARE(p.lista.ListCount(), 70);
        QVERIFY(!p.avisos.TimerRecolha.Enabled());
    }

    void a_frente_de_um_formulario_nada_muda_e_depois_sim()
    {
        Posto p;
        QDialog formulario(&p.janela);
        accoes::Quando_Abrir<QDialog>([&](QDialog &aberto) {
            p.Muda(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s, u"tbllista"_s, What::Added,
                   {99});
            QCOMPARE(p.lista.ListCount(), 50);
            QVERIFY(p.avisos.TimerRecolha.Enabled()); // it asks again
            aberto.reject();
        });
        formulario.exec();
        p.Recolher();
        QCOMPARE(p.lista.ListCount(), 51);
    }

    void enquanto_se_escreve_na_procura_a_lista_espera()
    {
        Posto p;
        p.janela.txtProcura->setFocus();
        QTest::keyClicks(p.janela.txtProcura, u"Nome 4"_s);
        const int escolhido = p.lista.ItemData(p.lista.ListIndex());
        p.Muda(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s, u"tbllista"_s, What::Added, {99});
        QCOMPARE(p.lista.ListCount(), 50);
        Disparar(p.avisos.TimerEscrita); // nobody has typed for a while
        p.Recolher();
        QCOMPARE(p.lista.ListCount(), 51);
        QCOMPARE(p.janela.txtProcura->text(), u"Nome 4"_s);
        QVERIFY(p.janela.txtProcura->hasFocus());
        QCOMPARE(p.lista.ItemData(p.lista.ListIndex()), escolhido);
    }

    void um_grupo_novo_entra_no_filtro_e_o_escolhido_fica()
    {
        Posto p;
        p.janela.ComboGrupos->setListIndex(2);
        const QString escolhido = p.janela.ComboGrupos->currentText();
        const int antes = p.janela.ComboGrupos->ListCount();
        p.Muda(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('AAA', 0)"_s, u"tblgrupos"_s,
               What::Added, {99});
        QCOMPARE(p.janela.ComboGrupos->ListCount(), antes + 1);
        QCOMPARE(p.janela.ComboGrupos->List(1), u"AAA"_s);
        QCOMPARE(p.janela.ComboGrupos->currentText(), escolhido);
    }

    void o_grupo_escolhido_que_desaparece_da_lugar_a_todos()
    {
        Posto p;
        p.janela.ComboGrupos->ChooseText(
            p.s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID=6"_s).value(0));
        QCOMPARE(p.lista.ListCount(), 50);
        p.s.Escrever(u"UPDATE TblLista SET Grupo=5"_s);
        p.Muda(u"DELETE FROM TblGrupos WHERE ID=6"_s, u"tblgrupos"_s, What::Removed, {6});
        QCOMPARE(p.janela.ComboGrupos->ListIndex(), 0);
        QCOMPARE(p.lista.ListCount(), 50);
        QCOMPARE(p.s.geral.GrupoActual, u"0"_s);
    }

    void o_editor_aberto_diz_o_e_fica_como_esta()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"a meio"_s);
            p.Muda(u"UPDATE TblLista SET Website='x' WHERE ID=%1"_s.arg(p.ids[6]), u"tbllista"_s,
                   What::Changed, {p.ids[6]});
            QVERIFY(!editor.lblAviso->isVisible()); // another contact
            p.Muda(u"UPDATE TblLista SET Website='x' WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s,
                   What::Changed, {p.ids[5]});
            QCOMPARE(editor.lblAviso->text(), p.s.Texto(451));
            QVERIFY(editor.lblAviso->isVisible());
            p.Muda(u"DELETE FROM TblLista WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s, What::Removed,
                   {p.ids[5]});
            QCOMPARE(editor.lblAviso->text(), p.s.Texto(452));
            QCOMPARE(editor.txtNome->text(), u"a meio"_s);
            editor.reject();
        });
        p.janela.cmdEditar->click();
        p.Recolher();
        QCOMPARE(p.Linha(p.ids[5]), -1);
    }

    // After a return of the server nobody knows what was missed: the editor looks for itself.
    void quando_tudo_pode_ter_mudado_o_editor_so_o_diz_se_for_verdade_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<bool>("volta");
        QTest::addColumn<int>("texto");
        const QString mudado = u"UPDATE TblLista SET Website='x' WHERE ID=%1"_s;
        const QString outro = u"UPDATE TblLista SET Website='x' WHERE ID<>%1"_s;
        const QString eliminado = u"DELETE FROM TblLista WHERE ID=%1"_s;
        for (const bool volta : {true, false}) {
            const QByteArray como = volta ? "o servidor volta, " : "muitos de uma vez, ";
            QTest::newRow(como + "mudado") << mudado << volta << 451;
            QTest::newRow(como + "mudaram os outros") << outro << volta << 0;
            QTest::newRow(como + "eliminado") << eliminado << volta << 452;
        }
    }
    void quando_tudo_pode_ter_mudado_o_editor_so_o_diz_se_for_verdade()
    {
        QFETCH(QString, sql);
        QFETCH(bool, volta);
        QFETCH(int, texto);
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"a meio"_s);
            if (volta) p.servidor.Perder();
            p.s.Escrever(sql.arg(p.ids[5]));
            if (volta)
                p.servidor.Voltar();
            else
                p.servidor.Mudou(u"tbllista"_s);
            p.Recolher();
            QCOMPARE(editor.lblAviso->isVisible(), texto != 0);
            if (texto != 0) QCOMPARE(editor.lblAviso->text(), p.s.Texto(qint16(texto)));
            QCOMPARE(editor.txtNome->text(), u"a meio"_s);
            p.servidor.Esquecer();
            p.Recolher();
            QCOMPARE(p.servidor.Comandos(), 0); // it looks once
            editor.reject();
        });
        p.janela.cmdEditar->click();
    }

    void o_que_o_proprio_editor_escreveu_nao_e_de_outro_posto()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"Ana"_s);
            p.servidor.Perder_A_Proxima_Resposta();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            QVERIFY(editor.isVisible());
            p.servidor.Voltar();
            p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[5]});
            p.Recolher();
            QVERIFY(!editor.lblAviso->isVisible());
            editor.txtNome->setText(u"Ana Sousa"_s);         // meanwhile
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton); // nobody is asked which of both stays
            QVERIFY(!editor.isVisible());
        });
        p.janela.cmdEditar->click();
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista WHERE ID=%1"_s.arg(p.ids[5])),
                 QStringList{u"Ana Sousa"_s});
    }

    void um_contacto_novo_no_editor_nao_pergunta_por_nada()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            p.servidor.Esquecer();
            p.Muda(u"UPDATE TblLista SET Website='x'"_s, u"tbllista"_s, What::Changed, {p.ids[5]});
            p.servidor.Mudou(u"tbllista"_s);
            p.Recolher();
            QCOMPARE(p.servidor.Comandos(), 0);
            QVERIFY(!editor.lblAviso->isVisible());
            editor.reject();
        });
        p.janela.cmdNovo->click();
    }

    void com_um_menu_aberto_nada_muda_e_depois_sim()
    {
        Posto p;
        QMenu menu;
        menu.addAction(u"x"_s);
        menu.popup({});
        p.Muda(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s, u"tbllista"_s, What::Added, {99});
        QCOMPARE(p.lista.ListCount(), 50);
        menu.close();
        p.Recolher();
        QCOMPARE(p.lista.ListCount(), 51);
    }

    void cada_letra_faz_a_lista_esperar_de_novo_e_so_o_que_se_escreve()
    {
        Posto p;
        p.janela.txtProcura->setText(u"Nome"_s); // by the program
        QVERIFY(!p.avisos.TimerEscrita.Enabled());
        p.janela.txtProcura->setFocus();
        QTest::keyClicks(p.janela.txtProcura, u"x"_s);
        QVERIFY(p.avisos.TimerEscrita.Enabled());
        QTest::qSleep(200);
        const int restava = p.avisos.TimerEscrita.remainingTime();
        QTest::keyClicks(p.janela.txtProcura, u"y"_s);
        QVERIFY(p.avisos.TimerEscrita.remainingTime() > restava);
        QCOMPARE(p.avisos.TimerEscrita.interval(), 1500);
        QCOMPARE(p.avisos.TimerRecolha.interval(), 300);
    }

    void enquanto_se_escreve_os_grupos_esperam_e_o_resto_nao()
    {
        Posto p;
        p.janela.txtProcura->setFocus();
        QTest::keyClicks(p.janela.txtProcura, u"Nome 4"_s);
        const int antes = p.janela.ComboGrupos->ListCount();
        p.s.Escrever(u"UPDATE TblConfig SET Remetente='Rua Nova'"_s);
        p.s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('AAA', 0)"_s);
        p.servidor.Mudou(u"tblconfig"_s);
        p.servidor.Mudou(u"tblgrupos"_s);
        p.servidor.Mudou(u"tblemails"_s); // of which nothing is shown
        p.Recolher();
        QCOMPARE(p.s.geral.RemetenteBD, u"Rua Nova"_s);
        QCOMPARE(p.janela.ComboGrupos->ListCount(), antes);
        Disparar(p.avisos.TimerEscrita);
        p.Recolher();
        QCOMPARE(p.janela.ComboGrupos->ListCount(), antes + 1);
        QVERIFY(!p.avisos.TimerRecolha.Enabled());
    }

    void o_que_nada_mostra_nao_fica_por_dizer()
    {
        Posto p;
        p.servidor.Mudou(u"tblemails"_s);
        QVERIFY(p.avisos.TimerRecolha.Enabled());
        p.Recolher();
        QVERIFY(!p.avisos.TimerRecolha.Enabled());
        QCOMPARE(p.servidor.Comandos(), 0);
    }

    void o_que_falha_numa_parte_nao_tira_nada_as_outras()
    {
        Posto p;
        p.s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s);
        for (const QString &tabela : {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblConfig"_s})
            p.s.Escrever(u"ALTER TABLE %1 RENAME TO X%1"_s.arg(tabela));
        p.servidor.Mudou(QString());
        p.Recolher();
        QCOMPARE(p.lista.List(0), u"Aaa"_s);
        for (const QString &tabela : {u"TblUsers"_s, u"TblMemos"_s, u"TblTarefas"_s, u"TblConfig"_s})
            p.s.Escrever(u"ALTER TABLE X%1 RENAME TO %1"_s.arg(tabela));
    }

    void depois_de_tudo_so_se_le_o_que_se_nomeia()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.servidor.Mudou(u"tbllista"_s);
        p.Recolher();
        p.servidor.Esquecer();
        p.Muda(u"UPDATE TblLista SET Website='x' WHERE ID=%1"_s.arg(p.ids[6]), u"tbllista"_s, What::Changed,
               {p.ids[6]});
        const int alheio = p.servidor.Comandos();
        p.Muda(u"UPDATE TblLista SET Website='x' WHERE ID=%1"_s.arg(p.ids[5]), u"tbllista"_s, What::Changed,
               {p.ids[5]});
        p.servidor.Esquecer();
        p.Muda(u"UPDATE TblLista SET Website='y' WHERE ID=%1"_s.arg(p.ids[6]), u"tbllista"_s, What::Changed,
               {p.ids[6]});
        QCOMPARE(p.servidor.Comandos(), alheio); // the card was not read again
        QCOMPARE(alheio, 1);
    }

    void sem_servidor_nada_se_pergunta_ate_ele_voltar()
    {
        Posto p;
        p.servidor.Perder();
        QVERIFY(!p.avisos.TimerRecolha.Enabled());
        p.servidor.Voltar();
        QVERIFY(p.avisos.TimerRecolha.Enabled());
    }

    void antes_de_comecar_nada_se_diz_e_depois_tudo()
    {
        Posto p;
        AvisosDosPostos avisos(p.s.geral, *p.janela.txtProcura, nullptr); // the last one that listens is told
        QSignalSpy contactos(&avisos, &AvisosDosPostos::Contactos);
        p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[5]});
        QVERIFY(!avisos.TimerRecolha.Enabled());
        avisos.Comecar();
        QVERIFY(avisos.TimerRecolha.Enabled());
        Disparar(avisos.TimerRecolha);
        QCOMPARE(contactos.size(), 1);
        QCOMPARE(contactos[0][0].value<QSet<int>>(), QSet<int>{p.ids[5]});
        QCOMPARE(contactos[0][1].toBool(), false);
    }

    void quem_ouve_sabe_se_podem_ser_mais_do_que_os_nomeados()
    {
        Posto p;
        QSignalSpy contactos(&p.avisos, &AvisosDosPostos::Contactos);
        QSignalSpy mudados(&p.avisos, &AvisosDosPostos::ContactosMudadosAgora);
        p.servidor.Mudou(u"tbllista"_s); // too many to be named
        p.Recolher();
        QCOMPARE(contactos.size(), 1);
        QCOMPARE(contactos[0][1].toBool(), true);
        QCOMPARE(mudados.size(), 1);
        QCOMPARE(mudados[0][1].toBool(), true);
        p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[5]});
        p.Recolher();
        QCOMPARE(contactos[1][1].toBool(), false);
        QCOMPARE(mudados[1][0].value<QSet<int>>(), QSet<int>{p.ids[5]});
        QCOMPARE(mudados[1][1].toBool(), false);
    }

    void cada_coisa_diz_se_so_do_que_aconteceu()
    {
        Posto p;
        QSignalSpy contactos(&p.avisos, &AvisosDosPostos::Contactos);
        QSignalSpy mudados(&p.avisos, &AvisosDosPostos::ContactosMudadosAgora);
        QSignalSpy eliminados(&p.avisos, &AvisosDosPostos::ContactosEliminadosAgora);
        p.servidor.Mudou(u"tbllista"_s, What::Added, {p.ids[1]});
        p.Recolher();
        QCOMPARE(mudados.size(), 0);
        QCOMPARE(eliminados.size(), 0);
        p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[2]});
        p.Recolher();
        QCOMPARE(mudados.size(), 1);
        QCOMPARE(mudados[0][0].value<QSet<int>>(), QSet<int>{p.ids[2]});
        QCOMPARE(eliminados.size(), 0);
        p.servidor.Mudou(u"tbllista"_s, What::Removed, {p.ids[3]});
        p.Recolher();
        QCOMPARE(mudados.size(), 1);
        QCOMPARE(eliminados.size(), 1);
        QCOMPARE(eliminados[0][0].value<QSet<int>>(), QSet<int>{p.ids[3]});
        QCOMPARE(contactos.size(), 3);
        p.servidor.Mudou(u"tblgrupos"_s, What::Changed, {p.ids[4]}); // another table's numbers
        p.Recolher();
        QCOMPARE(mudados.size(), 1);
        QCOMPARE(contactos.size(), 3);
    }

    void o_que_se_soube_enquanto_se_escrevia_diz_se_depois_inteiro()
    {
        Posto p;
        QSignalSpy contactos(&p.avisos, &AvisosDosPostos::Contactos);
        QSignalSpy mudados(&p.avisos, &AvisosDosPostos::ContactosMudadosAgora);
        p.janela.txtProcura->setFocus();
        QTest::keyClicks(p.janela.txtProcura, u"N"_s);
        p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[5]});
        p.Recolher();
        QCOMPARE(contactos.size(), 0);
        QCOMPARE(mudados.size(), 1); // an open editor hears it at once
        p.servidor.Mudou(u"tbllista"_s, What::Changed, {p.ids[6]});
        p.Recolher();
        Disparar(p.avisos.TimerEscrita);
        p.Recolher();
        QCOMPARE(contactos.size(), 1);
        QCOMPARE(contactos[0][0].value<QSet<int>>(), (QSet<int>{p.ids[5], p.ids[6]}));
        QCOMPARE(contactos[0][1].toBool(), false);
    }

    void quem_falha_a_ouvir_nao_cala_os_que_vem_depois_data()
    {
        QTest::addColumn<int>("quem");
        for (const int quem : {0, 1, 2, 3, 4, 5})
            QTest::addRow("%d", quem) << quem;
    }
    void quem_falha_a_ouvir_nao_cala_os_que_vem_depois()
    {
        QFETCH(int, quem);
        Posto p;
        int ouvidos = 0;
        const auto ouvir = [&](int um) {
            ++ouvidos;
            if (um == quem) throw Failure(Failure::StoreError, {}, {});
        };
        connect(&p.avisos, &AvisosDosPostos::Tarefas, this, [&] { ouvir(0); });
        connect(&p.avisos, &AvisosDosPostos::Utilizadores, this, [&] { ouvir(1); });
        connect(&p.avisos, &AvisosDosPostos::Configuracao, this, [&] { ouvir(2); });
        connect(&p.avisos, &AvisosDosPostos::Memos, this, [&] { ouvir(3); });
        connect(&p.avisos, &AvisosDosPostos::Grupos, this, [&] { ouvir(4); });
        connect(&p.avisos, &AvisosDosPostos::Contactos, this, [&] { ouvir(5); });
        p.servidor.Mudou(QString());
        p.Recolher();
        QCOMPARE(ouvidos, 6);
        p.Recolher();
        QCOMPARE(ouvidos, 6); // nor is it told again
    }

    // Whoever was taken away must not see what the others have changed.
    void os_utilizadores_vem_antes_do_resto()
    {
        Posto p;
        QStringList ordem;
        connect(&p.avisos, &AvisosDosPostos::Utilizadores, this, [&] { ordem << u"utilizadores"_s; });
        connect(&p.avisos, &AvisosDosPostos::Memos, this, [&] { ordem << u"memos"_s; });
        connect(&p.avisos, &AvisosDosPostos::Configuracao, this, [&] { ordem << u"configuracao"_s; });
        connect(&p.avisos, &AvisosDosPostos::Grupos, this, [&] { ordem << u"grupos"_s; });
        connect(&p.avisos, &AvisosDosPostos::Contactos, this, [&] { ordem << u"contactos"_s; });
        connect(&p.avisos, &AvisosDosPostos::Tarefas, this, [&] { ordem << u"tarefas"_s; });
        p.servidor.Mudou(QString());
        p.Recolher();
        QCOMPARE(ordem, (QStringList{u"tarefas"_s, u"utilizadores"_s, u"configuracao"_s, u"memos"_s,
                                     u"grupos"_s, u"contactos"_s}));
    }

    void as_definicoes_dos_envelopes_seguem()
    {
        Posto p;
        p.Muda(u"UPDATE TblConfig SET Remetente='Rua Nova'"_s, u"tblconfig"_s, What::Changed, {1});
        QCOMPARE(p.s.geral.RemetenteBD, u"Rua Nova"_s);
    }

    void depois_de_o_servidor_voltar_tudo_se_le_uma_vez()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.servidor.Perder();
        p.s.Escrever(u"UPDATE TblLista SET Website='novo.pt', Nome='Aaa' WHERE ID=%1"_s.arg(p.ids[5]));
        p.s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('AAA', 0)"_s);
        p.servidor.Voltar();
        p.servidor.Esquecer();
        p.Recolher();
        QCOMPARE(p.lista.List(0), u"Aaa"_s);
        QCOMPARE(p.janela.txtWebsite->text(), u"novo.pt"_s);
        QCOMPARE(p.janela.ComboGrupos->List(1), u"AAA"_s);
        QVERIFY2(p.servidor.Comandos() <= 8, qPrintable(p.servidor.pedidos.join(u'\n')));
        p.servidor.Esquecer();
        p.Recolher();
        QCOMPARE(p.servidor.Comandos(), 0);
    }

    void depois_de_o_servidor_voltar_o_cartao_segue_ainda_que_a_lista_seja_a_mesma()
    {
        Posto p;
        p.lista.setListIndex(p.Linha(p.ids[5]));
        p.servidor.Perder();
        p.s.Escrever(u"UPDATE TblLista SET Website='novo.pt' WHERE ID=%1"_s.arg(p.ids[5]));
        p.servidor.Voltar();
        p.Recolher();
        QCOMPARE(p.janela.txtWebsite->text(), u"novo.pt"_s);
    }

    void o_que_ninguem_nomeia_le_se_tudo()
    {
        Posto p;
        p.s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s);
        p.s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('AAA', 0)"_s);
        p.servidor.Mudou(QString());
        p.Recolher();
        QCOMPARE(p.lista.List(0), u"Aaa"_s);
        QCOMPARE(p.janela.ComboGrupos->List(1), u"AAA"_s);
    }

    void num_ficheiro_ninguem_ouve_nada()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        janela.Inicio().Executar();
        auto &avisos = *janela.findChild<AvisosDosPostos *>();
        avisos.Comecar();
        s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('Aaa', 6)"_s);
        QVERIFY(!avisos.TimerRecolha.Enabled());
        QVERIFY(!janela.lblServidor->isVisible());
    }
};

MORVEX_TESTE(TestAvisosDosPostos)
#include "test_AvisosDosPostos.moc"
