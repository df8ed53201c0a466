// The form of one task: what it offers, when it refuses, what it writes and what it leaves behind.
#include "contacts/frmConflito.h"
#include "reminders/ComTarefas.h"
#include "reminders/frmAddEditTarefa.h"
#include "testlib/FalhaDita.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComFormulario : ComTarefas {
    explicit ComFormulario(const QString &modo = u"Add"_s, const QString &idioma = u"PortuguesPT"_s)
    {
        s.geral.IdiomaActual = idioma;
        s.geral.ModoTarefa = modo;
        form = std::make_unique<frmAddEditTarefa>(s.geral, s.plataforma, janela, nullptr);
        form->show();
    }
    void Escrever(const QString &tarefa, QDate data, QTime hora) const
    {
        form->txtTarefa->setPlainText(tarefa);
        form->DataTarefa->setDate(data);
        form->HoraTarefa->setTime(hora);
    }
    void Espera_Recusa() { s.caixas.Espera(s.Texto(170), 16, QApplication::applicationDisplayName()); }

    std::unique_ptr<frmAddEditTarefa> form;
};

// The form of a task of the fifth at half past ten.
struct UmaTarefaAberta : ComFormulario {
    UmaTarefaAberta() : ComFormulario(u"Edit"_s)
    {
        const int id = Nova(u"Telefonar"_s, u"05-02-2027"_s, u"10:30"_s);
        form->Preencher({.ID = QString::number(id),
                         .Tarefa = u"Telefonar"_s,
                         .Data = u"05-02-2027"_s,
                         .Hora = u"10:30"_s,
                         .NomeRepeticao = form->ComboRepeticao->List(0)});
    }
};

// As they lie in the file, which another version of the program may have left.
QByteArray Rascunhos_Guardados(const Sistema &s)
{
    QFile ficheiro(s.Ficheiro(u"rascunho.json"_s));
    return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
}

const QDate hoje{2027, 2, 1}; // the installation's clock stands at nine o'clock of that day
} // namespace

class TestFrmAddEditTarefa : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComFormulario c(u"Add"_s, u"AlemaoDE"_s); // the form is drawn in Portuguese
        QCOMPARE(c.form->windowTitle(), u"Neue Aufgabe"_s);
        QCOMPARE(c.form->cmdOk->text(), u"&Ok"_s);
        QCOMPARE(c.form->cmdCancelar->text(), c.s.Texto(43));
        QCOMPARE(c.form->lblTarefa->text(), c.s.Texto(167));
        QCOMPARE(c.form->lblData->text(), c.s.Texto(168));
        QCOMPARE(c.form->lblHora->text(), c.s.Texto(169));
        QCOMPARE(c.form->lblRepeticao->text(), c.s.Texto(174));
        QVERIFY(!c.form->txtIDTarefa->isVisible());
    }

    void no_modo_edit_o_titulo_e_outro_e_os_campos_esperam()
    {
        ComFormulario c(u"Edit"_s);
        QCOMPARE(c.form->windowTitle(), c.s.Texto(171));
        QCOMPARE(c.form->ComboRepeticao->ListIndex(), -1);
        QVERIFY(c.form->txtTarefa->toPlainText().isEmpty());
    }

    void uma_nova_comeca_agora_e_sem_repeticao()
    {
        ComFormulario c;
        QCOMPARE(c.form->DataTarefa->date(), hoje);
        QCOMPARE(c.form->HoraTarefa->time(), QTime(9, 0));
        QCOMPARE(c.form->HoraTarefa->text(), u"09:00"_s);
        QCOMPARE(c.form->ComboRepeticao->ListIndex(), 0);
    }

    void as_repeticoes_vem_por_ordem_com_o_seu_numero()
    {
        ComFormulario c;
        QStringList linhas;
        for (int i = 0; i < c.form->ComboRepeticao->ListCount(); ++i)
            linhas << QString::number(c.form->ComboRepeticao->ItemData(i)) + u'|' +
                          c.form->ComboRepeticao->List(i);
        QCOMPARE(linhas, c.s.Linhas(u"SELECT ID, Nome FROM TblRepeticao ORDER BY ID"_s));
        QCOMPARE(linhas.size(), 5);
        QCOMPARE(c.s.geral.de.Rs("cmdListarRepeticao").State(), Recordset::Closed);
    }

    void uma_tecla_na_repeticao_perde_se_e_a_seta_escolhe()
    {
        ComFormulario c;
        QTest::keyClicks(c.form->ComboRepeticao, u"semanal"_s);
        QCOMPARE(c.form->ComboRepeticao->ListIndex(), 0);
        QTest::keyClick(c.form->ComboRepeticao, Qt::Key_Down);
        QCOMPARE(c.form->ComboRepeticao->ListIndex(), 1);
    }

    void ok_so_com_uma_descricao()
    {
        ComFormulario c;
        QVERIFY(!c.form->cmdOk->isEnabled());
        QTest::keyClicks(c.form->txtTarefa, u"a"_s);
        QVERIFY(c.form->cmdOk->isEnabled());
        QTest::keyClick(c.form->txtTarefa, Qt::Key_Backspace);
        QVERIFY(!c.form->cmdOk->isEnabled());
    }

    void enter_na_descricao_parte_a_linha_e_fora_dela_confirma()
    {
        ComFormulario c;
        QVERIFY(QTest::qWaitForWindowActive(c.form.get()));
        c.Escrever(u"a"_s, hoje, {9, 1});
        c.form->txtTarefa->setFocus();
        QVERIFY(!c.form->cmdOk->isDefault());
        QTest::keyClick(c.form->txtTarefa, Qt::Key_Return);
        QVERIFY(c.form->isVisible());
        QCOMPARE(c.form->txtTarefa->toPlainText(), u"\na"_s);
        c.form->ComboRepeticao->setFocus();
        QVERIFY(c.form->cmdOk->isDefault());
        QTest::keyClick(c.form->ComboRepeticao, Qt::Key_Return);
        QVERIFY(!c.form->isVisible());
        QCOMPARE(c.Tarefas().size(), 1);
    }

    void o_minuto_presente_e_recusado_e_o_seguinte_aceite()
    {
        ComFormulario c;
        c.s.relogio.Avancar_Segundos(59);
        c.Escrever(u"Regar"_s, hoje, {9, 0});
        c.Espera_Recusa();
        c.form->cmdOk->click();
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(c.form->isVisible());
        QVERIFY(c.Tarefas().isEmpty());
        c.form->HoraTarefa->setTime({9, 1});
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:01:00|1"_s});
        QVERIFY(!c.form->isVisible());
    }

    void recusada_a_data_tem_o_foco()
    {
        ComFormulario c;
        QVERIFY(QTest::qWaitForWindowActive(c.form.get()));
        c.Escrever(u"Regar"_s, hoje.addDays(-1), {23, 59});
        c.form->ComboRepeticao->setFocus();
        c.Espera_Recusa();
        c.form->cmdOk->click();
        QVERIFY(c.form->DataTarefa->hasFocus());
        QVERIFY(c.Temporizadores_Parados());
    }

    void os_segundos_da_hora_presente_nao_contam()
    {
        ComFormulario c;
        c.Escrever(u"Regar"_s, hoje, {9, 0, 59});
        c.Espera_Recusa();
        c.form->cmdOk->click();
        QVERIFY(c.Tarefas().isEmpty());
    }

    void um_dia_a_frente_conta_mais_do_que_a_hora()
    {
        ComFormulario c;
        c.Escrever(u"Regar"_s, hoje.addDays(1), {0, 0});
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-02|00:00:00|1"_s});
    }

    // Lisbon has no 01:30 on 28 March 2027.
    void a_hora_que_a_primavera_salta_tem_o_seu_lugar()
    {
        ComFormulario c;
        c.Agora(u"28-03-2027 00:59"_s);
        c.Escrever(u"Regar"_s, {2027, 3, 28}, {1, 30});
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-03-28|01:30:00|1"_s});

        ComFormulario d;
        d.Agora(u"28-03-2027 02:00"_s);
        d.Escrever(u"Regar"_s, {2027, 3, 28}, {1, 30});
        d.Espera_Recusa();
        d.form->cmdOk->click();
        QVERIFY(d.Tarefas().isEmpty());
    }

    void uma_nova_fica_com_o_utilizador_da_sessao_e_a_repeticao_escolhida()
    {
        ComFormulario c;
        c.s.geral.SessaoActual.IdUtilizador = u"7"_s;
        c.Escrever(u"Dar \"o\" 'nó'\nà corda"_s, {2028, 2, 29}, {23, 59});
        c.form->ComboRepeticao->setListIndex(4);
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Dar \"o\" 'nó'\r\nà corda|2028-02-29|23:59:00|5"_s});
        QCOMPARE(c.s.Linhas(u"SELECT Utilizador FROM TblTarefas"_s), QStringList{u"7"_s});
    }

    void editar_muda_a_linha_e_so_essa()
    {
        ComFormulario c(u"Edit"_s);
        const int outra = c.Nova(u"Outra"_s, u"01-03-2027"_s, u"10:00"_s);
        const int id = c.Nova(u"Regar"_s, u"02-02-2027"_s, u"10:00"_s, u"3"_s);
        QVERIFY(outra != id);
        c.form->Preencher({.ID = QString::number(id),
                           .Tarefa = u"Regar"_s,
                           .Data = u"02-02-2027"_s,
                           .Hora = u"10:00"_s,
                           .NomeRepeticao = u"Semanalmente"_s});
        QCOMPARE(c.form->ComboRepeticao->ListIndex(), 2);
        QCOMPARE(c.form->txtTarefa->textCursor().selectedText(), u"Regar"_s);
        c.Escrever(u"Regar mais"_s, {2027, 2, 3}, {11, 30});
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(),
                 (QStringList{u"Outra|2027-03-01|10:00:00|1"_s, u"Regar mais|2027-02-03|11:30:00|3"_s}));
    }

    void editar_uma_atrasada_sem_a_adiantar_e_recusado()
    {
        ComFormulario c(u"Edit"_s);
        const int id = c.Nova(u"Regar"_s, u"30-01-2027"_s, u"10:00"_s);
        c.form->Preencher({QString::number(id), u"Regar"_s, u"30-01-2027"_s, u"10:00"_s, u"Não"_s});
        c.Espera_Recusa();
        c.form->cmdOk->click();
        QVERIFY(c.form->isVisible());
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-01-30|10:00:00|1"_s});
        c.form->DataTarefa->setDate({2027, 2, 1});
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|10:00:00|1"_s});
    }

    void uma_data_em_falta_e_um_erro_de_quem_a_traz()
    {
        ComFormulario c(u"Edit"_s);
        VERIFICAR_FALHA(c.form->Preencher({u"1"_s, u"a"_s, QString(), u"10:00"_s, u"Não"_s}),
                        Failure::TypeMismatch);
        VERIFICAR_FALHA(c.form->Preencher({u"1"_s, u"a"_s, u"01-01-2027"_s, QString(), u"Não"_s}),
                        Failure::TypeMismatch);
        const auto dita = [&](const QString &data, const QString &hora) {
            return teste::Falha_Dita([&] { c.form->Preencher({u"1"_s, u"a"_s, data, hora, u"Não"_s}); });
        };
        QCOMPARE(dita(u"32-01-2027"_s, u"10:00"_s),
                 (QStringList{u"TblTarefas"_s, u"\"32-01-2027\" is not dd-MM-yyyy"_s}));
        QCOMPARE(dita(u"01-01-2027"_s, u"25:00"_s),
                 (QStringList{u"TblTarefas"_s, u"\"25:00\" is not HH:mm"_s}));
    }

    void uma_repeticao_desconhecida_nao_grava_nada()
    {
        ComFormulario c(u"Edit"_s);
        c.form->Preencher({u"1"_s, u"a"_s, u"01-01-2028"_s, u"10:00"_s, u"Às vezes"_s});
        c.s.caixas.Espera_Erro(Failure::InvalidPropertyValue);
        QTest::mouseClick(c.form->cmdOk, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(c.form->isVisible());
    }

    void abrir_para_os_temporizadores_do_alarme_e_do_correio()
    {
        ComTarefas c;
        c.s.geral.temporizadores.TimerMailNotification.setEnabled(true);
        c.s.geral.ModoTarefa = u"Add"_s;
        frmAddEditTarefa form(c.s.geral, c.s.plataforma, c.janela, nullptr);
        QVERIFY(c.Temporizadores_Parados());
        QVERIFY(!c.s.geral.temporizadores.TimerMailNotification.Enabled());
    }

    void fechar_activa_main_e_no_modo_add_recomeca_tudo_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<int>("reinicios");
        QTest::newRow("Add") << u"Add"_s << 1;
        QTest::newRow("Edit") << u"Edit"_s << 0;
    }
    void fechar_activa_main_e_no_modo_add_recomeca_tudo()
    {
        QFETCH(QString, modo);
        QFETCH(int, reinicios);
        ComFormulario c(modo);
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::IniciarMail);
        c.janela.setEnabled(false);
        c.form->cmdCancelar->click();
        QVERIFY(!c.form->isVisible());
        QVERIFY(c.janela.isEnabled());
        QCOMPARE(correio.count(), reinicios);
        QCOMPARE(c.Temporizadores_Ligados(), reinicios == 1);
        QVERIFY(c.Tarefas().isEmpty());
    }

    void gravar_no_modo_edit_liga_so_o_alarme_e_o_ponto()
    {
        ComFormulario c(u"Edit"_s);
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::IniciarMail);
        c.form->Preencher({u"1"_s, u"a"_s, u"01-01-2028"_s, u"10:00"_s, u"Não"_s});
        c.form->cmdOk->click();
        QVERIFY(c.Temporizadores_Ligados());
        QCOMPARE(correio.count(), 0);
    }

    void escape_e_o_fecho_da_janela_valem_o_cancelar()
    {
        ComFormulario c;
        c.janela.setEnabled(false);
        QTest::keyClick(c.form.get(), Qt::Key_Escape);
        QVERIFY(c.janela.isEnabled() && !c.form->isVisible());

        ComFormulario d;
        d.janela.setEnabled(false);
        d.form->close();
        QVERIFY(d.janela.isEnabled() && d.Temporizadores_Ligados());
    }

    void um_erro_da_base_deixa_o_formulario_aberto()
    {
        ComFormulario c;
        c.Escrever(u"Regar"_s, hoje, {10, 0});
        c.Perder(u"TblTarefas"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(c.form->cmdOk, Qt::LeftButton);
        QVERIFY(c.form->isVisible());
        QCOMPARE(c.form->txtTarefa->toPlainText(), u"Regar"_s);
        c.Recuperar(u"TblTarefas"_s);
        c.form->cmdOk->click();
        QCOMPARE(c.Tarefas().size(), 1);
    }

    void um_carregamento_que_falha_so_deixa_o_alarme_parado_a_quem_editava_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<bool>("religa");
        QTest::newRow("Add") << u"Add"_s << true;
        QTest::newRow("Edit") << u"Edit"_s << false; // the list or the card is still open
    }
    void um_carregamento_que_falha_so_deixa_o_alarme_parado_a_quem_editava()
    {
        QFETCH(QString, modo);
        QFETCH(bool, religa);
        ComTarefas c;
        c.s.geral.ModoTarefa = modo;
        c.Perder(u"TblRepeticao"_s);
        VERIFICAR_FALHA(frmAddEditTarefa(c.s.geral, c.s.plataforma, c.janela, nullptr), Failure::StoreError);
        QCOMPARE(c.Temporizadores_Ligados(), religa);
        QCOMPARE(c.Temporizadores_Parados(), !religa);
    }

    // Two desks

    void eliminada_la_guarda_se_como_nova_se_se_quiser_data()
    {
        QTest::addColumn<int>("resposta");
        QTest::newRow("sim") << int{answer::yes};
        QTest::newRow("nao") << int{answer::no};
    }
    void eliminada_la_guarda_se_como_nova_se_se_quiser()
    {
        QFETCH(int, resposta);
        UmaTarefaAberta c;
        c.s.Escrever(u"DELETE FROM TblTarefas"_s);
        c.form->txtTarefa->setPlainText(u"Telefonar já"_s);
        c.s.caixas.Espera(c.s.Texto(430), box::question | box::yesNo, c.form->windowTitle(), resposta);
        c.form->cmdOk->click();
        const bool guardada = resposta == answer::yes;
        QCOMPARE(c.form->isVisible(), !guardada);
        QCOMPARE(c.form->txtTarefa->toPlainText(), u"Telefonar já"_s);
        QCOMPARE(c.Tarefas(),
                 guardada ? QStringList{u"Telefonar já|2027-02-05|10:30:00|1"_s} : QStringList());
        QVERIFY(c.s.caixas.Todas_Vistas());
    }

    void eliminada_la_sem_nada_escrito_aqui_fecha_sem_perguntar()
    {
        UmaTarefaAberta c;
        c.s.Escrever(u"DELETE FROM TblTarefas"_s);
        c.form->cmdOk->click();
        QVERIFY(!c.form->isVisible());
        QCOMPARE(c.Tarefas(), QStringList());
    }

    void o_que_so_um_dos_postos_mudou_junta_se()
    {
        UmaTarefaAberta c;
        c.s.Escrever(u"UPDATE TblTarefas SET Data='2027-02-12'"_s); // its alarm was answered there
        c.form->txtTarefa->setPlainText(u"Telefonar já"_s);
        c.form->cmdOk->click();
        QVERIFY(!c.form->isVisible());
        QCOMPARE(c.Tarefas(), QStringList{u"Telefonar já|2027-02-12|10:30:00|1"_s});
    }

    void o_mesmo_mudado_nos_dois_postos_pergunta_se_data()
    {
        QTest::addColumn<QString>("escolha");
        QTest::addColumn<QString>("ficou");
        QTest::newRow("o meu") << u"meu"_s << u"Telefonar|2027-02-06|10:30:00|2"_s;
        QTest::newRow("o do outro") << u"deles"_s << u"Telefonar|2027-02-12|10:30:00|2"_s;
        QTest::newRow("voltar") << u"voltar"_s << u"Telefonar|2027-02-12|10:30:00|1"_s;
    }
    void o_mesmo_mudado_nos_dois_postos_pergunta_se()
    {
        QFETCH(QString, escolha);
        QFETCH(QString, ficou);
        UmaTarefaAberta c;
        c.s.Escrever(u"UPDATE TblTarefas SET Data='2027-02-12'"_s);
        c.form->DataTarefa->setDate({2027, 2, 6});
        c.form->ComboRepeticao->setListIndex(1); // only here
        QStringList lida;
        accoes::Quando_Abrir<frmConflito>([&](frmConflito &conflito) {
            const QTreeWidgetItem &item = *conflito.lvCampos->topLevelItem(0);
            lida = {conflito.Label1->text(), item.text(0), item.text(1), item.text(2)};
            if (escolha == "deles"_L1) conflito.cmdDeles->click();
            escolha == "voltar"_L1 ? conflito.cmdVoltar->click() : conflito.cmdGuardar->click();
        });
        c.form->cmdOk->click();
        QCOMPARE(lida,
                 QStringList({c.s.Texto(431), u"Data"_s, u"12-02-2027 10:30"_s, u"06-02-2027 10:30"_s}));
        QCOMPARE(c.Tarefas(), QStringList{ficou});
        QCOMPARE(c.form->isVisible(), escolha == "voltar"_L1);
    }

    void um_rascunho_so_se_oferece_a_tarefa_em_que_foi_escrito_data()
    {
        QTest::addColumn<int>("escrita"); // the task in which it was typed; 0 for a new one
        QTest::addColumn<int>("aberta");
        QTest::addColumn<bool>("oferece");
        QTest::newRow("nova na nova") << 0 << 0 << true;
        QTest::newRow("nova numa que se edita") << 0 << 1 << false;
        QTest::newRow("editada na mesma") << 1 << 1 << true;
        QTest::newRow("editada noutra") << 1 << 2 << false;
        QTest::newRow("editada na nova") << 1 << 0 << false;
    }
    void um_rascunho_so_se_oferece_a_tarefa_em_que_foi_escrito()
    {
        QFETCH(int, escrita);
        QFETCH(int, aberta);
        QFETCH(bool, oferece);
        ComTarefas c;
        const QList<int> ids{0, c.Nova(u"Telefonar"_s, u"05-02-2027"_s, u"10:30"_s),
                             c.Nova(u"Regar"_s, u"05-02-2027"_s, u"10:30"_s)};
        const auto abrir = [&](int qual) {
            c.s.geral.ModoTarefa = qual == 0 ? u"Add"_s : u"Edit"_s;
            auto form = std::make_unique<frmAddEditTarefa>(c.s.geral, c.s.plataforma, c.janela, nullptr);
            if (qual != 0)
                form->Preencher({QString::number(ids[qual]), u"Como estava"_s, u"05-02-2027"_s, u"10:30"_s,
                                 form->ComboRepeticao->List(0)});
            form->show();
            QCoreApplication::processEvents();
            return form;
        };
        {
            const auto form = abrir(escrita);
            form->txtTarefa->setPlainText(u"Por confirmar"_s);
            QVERIFY(c.s.geral.rascunhos.Guardar()); // and the process ends
            const QByteArray registo = escrita == 0 ? "nova"_ba : QByteArray::number(ids[escrita]);
            QVERIFY(Rascunhos_Guardados(c.s).contains("\"tarefa " + registo + '"'));
        }
        const QString titulo = c.s.Texto(aberta == 0 ? 149 : 171).remove(u'&');
        if (oferece) c.s.caixas.Espera_Qualquer(box::question | box::yesNo, titulo, answer::yes);
        const auto form = abrir(aberta);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(form->txtTarefa->toPlainText() == u"Por confirmar"_s, oferece);
    }
};

MORVEX_TESTE(TestFrmAddEditTarefa)
#include "test_frmAddEditTarefa.moc"
