// The alert card: the acknowledgement of each repetition, and the ways that leave the task as it was.
#include "reminders/ComTarefas.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmTarefas.h"
#include "report/ReportData.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace
{
struct ComCartao : ComTarefas {
    using ComTarefas::ComTarefas;

    // The card of a new task, filled as the popup does it.
    frmTarefas &Abrir(const QString &data, const QString &IDRepeticao, const QString &repeticao = {})
    {
        id = Nova(u"Regar"_s, data, u"09:00"_s, IDRepeticao);
        form = std::make_unique<frmTarefas>(s.geral, s.plataforma, janela, relatorio);
        form->txtIDTarefa->setText(QString::number(id));
        form->txtTarefa->setPlainText(u"Regar"_s);
        form->lblData->setText(data);
        form->lblHora->setText(u"09:00"_s);
        form->txtIDRepeticao->setText(IDRepeticao);
        form->lblRepeticao->setText(repeticao);
        form->show();
        return *form;
    }

    std::unique_ptr<frmTarefas> form;
    int id = 0;
};
} // namespace

class TestFrmTarefas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComCartao c;
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        QCOMPARE(form.windowTitle(), c.s.Texto(178));
        QCOMPARE(form.Label1->text(), c.s.Texto(167));
        QCOMPARE(form.Label2->text(), c.s.Texto(168));
        QCOMPARE(form.Label3->text(), c.s.Texto(169));
        QCOMPARE(form.Label4->text(), c.s.Texto(174));
        QCOMPARE(form.cmdEditar->text(), c.s.Texto(179));
        QCOMPARE(form.cmdEliminar->text(), c.s.Texto(183));
        QCOMPARE(form.cmdImprimirTarefa->text(), c.s.Texto(80));
        QCOMPARE(form.cmdImprimir->text(), u"&Ok"_s);
        QVERIFY(!form.txtIDTarefa->isVisible() && !form.txtIDRepeticao->isVisible());
    }

    void confirmar_passa_a_tarefa_ao_periodo_seguinte_data()
    {
        QTest::addColumn<QString>("IDRepeticao");
        QTest::addColumn<QString>("data");
        QTest::addColumn<QStringList>("depois");
        QTest::newRow("sem repetição desaparece") << u"1"_s << u"01-02-2027"_s << QStringList{};
        QTest::newRow("diária") << u"2"_s << u"31-12-2026"_s << QStringList{u"Regar|2027-01-01|09:00:00|2"_s};
        QTest::newRow("semanal") << u"3"_s << u"27-02-2028"_s
                                 << QStringList{u"Regar|2028-03-05|09:00:00|3"_s};
        QTest::newRow("mensal") << u"4"_s << u"31-01-2027"_s << QStringList{u"Regar|2027-02-28|09:00:00|4"_s};
        QTest::newRow("anual") << u"5"_s << u"29-02-2028"_s << QStringList{u"Regar|2029-02-28|09:00:00|5"_s};
        QTest::newRow("desconhecida fica")
            << u"6"_s << u"01-02-2027"_s << QStringList{u"Regar|2027-02-01|09:00:00|6"_s};
    }
    void confirmar_passa_a_tarefa_ao_periodo_seguinte()
    {
        QFETCH(QString, IDRepeticao);
        QFETCH(QString, data);
        QFETCH(QStringList, depois);
        ComCartao c;
        c.Abrir(data, IDRepeticao).cmdImprimir->click();
        QCOMPARE(c.Tarefas(), depois);
        QVERIFY(!c.form->isVisible());
    }

    void a_semanal_confirmada_mais_tarde_mantem_o_dia_da_semana()
    {
        ComCartao c;
        c.Agora(u"06-02-2027 15:00"_s);                        // a Saturday
        c.Abrir(u"01-02-2027"_s, u"3"_s).cmdImprimir->click(); // of a Monday
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-08|09:00:00|3"_s});
    }

    void a_diaria_confirmada_as_tres_volta_as_nove_do_dia_seguinte()
    {
        ComCartao c;
        c.Agora(u"01-02-2027 15:00"_s);
        c.Abrir(u"01-02-2027"_s, u"2"_s).cmdImprimir->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-02|09:00:00|2"_s});
    }

    void confirmar_grava_o_texto_como_esta_no_cartao_e_o_utilizador_da_sessao()
    {
        ComCartao c;
        c.s.geral.SessaoActual.IdUtilizador = u"3"_s;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"2"_s);
        form.txtTarefa->setPlainText(u"Regar o vaso"_s);
        form.cmdImprimir->click();
        QCOMPARE(c.s.Linhas(u"SELECT Tarefa, Utilizador FROM TblTarefas"_s),
                 QStringList{u"Regar o vaso|3"_s});
    }

    void confirmar_nao_elimina_a_de_outro_utilizador()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        c.s.geral.SessaoActual.IdUtilizador = u"3"_s;
        form.cmdImprimir->click();
        QCOMPARE(c.Tarefas().size(), 1);
    }

    void eliminar_leva_tambem_as_repeticoes_futuras()
    {
        ComCartao c;
        c.Abrir(u"01-02-2027"_s, u"2"_s).cmdEliminar->click();
        QVERIFY(c.Tarefas().isEmpty());
        QVERIFY(!c.form->isVisible());
    }

    void escape_e_o_fecho_deixam_a_tarefa_como_estava()
    {
        ComCartao c;
        QTest::keyClick(&c.Abrir(u"01-02-2027"_s, u"1"_s), Qt::Key_Escape);
        QVERIFY(!c.form->isVisible());
        c.form->show();
        c.form->close();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:00:00|1"_s});
    }

    void um_erro_ao_confirmar_deixa_cartao_e_tarefa_como_estavam()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"2"_s);
        c.Perder(u"TblTarefas"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(form.cmdImprimir, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
        c.Recuperar(u"TblTarefas"_s);
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:00:00|2"_s});
    }

    void a_data_le_se_antes_de_tudo_mesmo_para_eliminar()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        form.lblData->setText(u"32-02-2027"_s);
        c.s.caixas.Espera_Erro(Failure::TypeMismatch);
        QTest::mouseClick(form.cmdImprimir, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(c.Tarefas().size(), 1);
    }

    void depois_do_ultimo_ano_nao_ha_data_e_a_tarefa_fica()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"31-12-9999"_s, u"2"_s);
        c.s.caixas.Espera_Erro(Failure::TypeMismatch);
        QTest::mouseClick(form.cmdImprimir, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|9999-12-31|09:00:00|2"_s});
    }

    void imprimir_diz_tudo_na_sua_ordem()
    {
        ComCartao c;
        c.Abrir(u"01-02-2027"_s, u"2"_s).cmdImprimirTarefa->click();
        QCOMPARE(c.relatorio.historia,
                 (QStringList{u"ReportFileName tarefa.rpt"_s,
                              u"ParameterFields 0 repeticao;%1;TRUE"_s.arg(c.s.Texto(181)),
                              u"ParameterFields 1 utilizador;%1;TRUE"_s.arg(c.s.Texto(94)),
                              u"ParameterFields 2 tarefa;%1;TRUE"_s.arg(c.s.Texto(182)),
                              u"Connect "_s + QFileInfo(c.s.Base()).fileName(),
                              u"DataFiles 0 "_s + QFileInfo(c.s.Base()).fileName(),
                              u"ReplaceSelectionFormula {TblTarefas.ID}=%1"_s.arg(c.id), u"Destination 0"_s,
                              u"WindowTitle Pré-Visualizar Impressão"_s, u"WindowState 2"_s,
                              u"WindowShowPrintBtn 1"_s, u"WindowShowRefreshBtn 1"_s,
                              u"WindowShowSearchBtn 0"_s, u"Action 1"_s}));
    }

    void o_titulo_da_previsao_e_o_mesmo_em_todas_as_linguas()
    {
        ComCartao c(u"AlemaoDE"_s);
        c.Abrir(u"01-02-2027"_s, u"2"_s).cmdImprimirTarefa->click();
        QCOMPARE(c.relatorio.Ditos(u"WindowTitle"_s), QStringList{u"Pré-Visualizar Impressão"_s});
        QVERIFY(c.relatorio.Ditos(u"ParameterFields"_s).contains(u"2 tarefa;Aufgabe;TRUE"_s));
    }

    void a_seleccao_da_impressao_apanha_uma_so_tarefa_pelo_seu_ID()
    {
        ComCartao c;
        const QString primeira = QString::number(c.Nova(u"Podar"_s, u"01-02-2027"_s, u"09:00"_s));
        for (int i = 0; i < 12; ++i) // with IDs that begin alike among them
            c.Nova(u"Outra"_s, u"01-02-2027"_s, u"09:00"_s);
        c.Abrir(u"01-02-2027"_s, u"2"_s).txtIDTarefa->setText(primeira);
        c.form->cmdImprimirTarefa->click();
        const QString seleccao = c.relatorio.Ditos(u"ReplaceSelectionFormula"_s).value(0);
        QCOMPARE(seleccao, u"{TblTarefas.ID}="_s + primeira);
        ReportDefinition tarefas;
        tarefas.table = u"TblTarefas"_s;
        tarefas.fields = {{u"TblTarefas"_s, u"Tarefa"_s}};
        const ReportData dados(tarefas, c.s.Base(), seleccao, {});
        QCOMPARE(dados.size(), std::size_t{1});
        QCOMPARE(dados.field(0, 0), u"Podar"_s);
    }

    void imprimir_deixa_o_cartao_e_a_tarefa_como_estavam()
    {
        ComCartao c;
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        form.cmdImprimirTarefa->click();
        QVERIFY(form.isVisible());
        QCOMPARE(form.txtTarefa->toPlainText(), u"Regar"_s);
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:00:00|1"_s});
    }

    void sem_caminho_na_sessao_a_impressao_deixa_la_o_da_pasta_do_programa()
    {
        ComCartao c;
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        c.s.geral.CaminhoBD.clear();
        form.cmdImprimirTarefa->click();
        QCOMPARE(c.s.geral.CaminhoBD, c.s.Ficheiro(u"morvex.mdb"_s));
    }

    void uma_falha_da_impressao_chega_a_caixa_de_erros_e_o_cartao_fica()
    {
        ComCartao c;
        c.relatorio.falha = true;
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        c.s.caixas.Espera_Erro(Failure::FileNotFound);
        QTest::mouseClick(form.cmdImprimirTarefa, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }

    void editar_leva_o_cartao_ao_formulario_e_gravar_fecha_os_dois()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"3"_s, u"Semanalmente"_s);
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            QCOMPARE(c.s.geral.ModoTarefa, u"Edit"_s);
            QCOMPARE(edicao.txtIDTarefa->text(), QString::number(c.id));
            QCOMPARE(edicao.txtTarefa->textCursor().selectedText(), u"Regar"_s);
            QCOMPARE(edicao.DataTarefa->date(), QDate(2027, 2, 1));
            QCOMPARE(edicao.HoraTarefa->time(), QTime(9, 0));
            QCOMPARE(edicao.ComboRepeticao->currentText(), u"Semanalmente"_s);
            edicao.DataTarefa->setDate({2027, 2, 4});
            edicao.cmdOk->click();
        });
        form.cmdEditar->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-04|09:00:00|3"_s});
        QVERIFY(!form.isVisible());
    }

    void uma_edicao_cancelada_deixa_o_cartao_e_a_tarefa()
    {
        ComCartao c;
        frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"3"_s, u"Semanalmente"_s);
        accoes::Quando_Abrir<frmAddEditTarefa>([](frmAddEditTarefa &edicao) { edicao.cmdCancelar->click(); });
        form.cmdEditar->click();
        QVERIFY(form.isVisible());
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:00:00|3"_s});
    }

    void adiar_oferece_tres_prazos_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("adiar");
        QTest::addColumn<QString>("minutos");
        QTest::newRow("PortuguesPT") << u"&Adiar"_s << u"minutos"_s;
        QTest::newRow("PortuguesBR") << u"&Adiar"_s << u"minutos"_s;
        QTest::newRow("InglesUK") << u"&Snooze"_s << u"minutes"_s;
        QTest::newRow("EspanholES") << u"&Posponer"_s << u"minutos"_s;
        QTest::newRow("ItalianoIT") << u"&Posticipa"_s << u"minuti"_s;
        QTest::newRow("FrancesFR") << u"&Reporter"_s << u"minutes"_s;
        QTest::newRow("AlemaoDE") << u"&Später erinnern"_s << u"Minuten"_s;
    }
    void adiar_oferece_tres_prazos_em_cada_lingua()
    {
        QFETCH(QString, adiar);
        QFETCH(QString, minutos);
        ComCartao c(QString::fromLatin1(QTest::currentDataTag()));
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        QCOMPARE(form.cmdAdiar->text(), adiar);
        QStringList prazos;
        for (const QAction *entrada : form.cmdAdiar->menu()->actions())
            prazos << entrada->text();
        QCOMPARE(prazos, (QStringList{u"5 "_s + minutos, u"15 "_s + minutos, u"60 "_s + minutos}));
        QStringList letras;
        for (const QPushButton *botao : form.findChildren<QPushButton *>())
            letras << botao->shortcut().toString();
        QCOMPARE(letras.size(), 5);
        QCOMPARE(letras.removeDuplicates(), 0);
    }

    void o_botao_de_adiar_vem_depois_dos_outros()
    {
        ComCartao c;
        const frmTarefas &form = c.Abrir(u"01-02-2027"_s, u"1"_s);
        for (const QPushButton *dado :
             {form.cmdImprimirTarefa, form.cmdEditar, form.cmdEliminar, form.cmdImprimir})
            QVERIFY(dado->geometry().right() < form.cmdAdiar->geometry().left());
        QCOMPARE(form.cmdImprimirTarefa->nextInFocusChain(), form.cmdAdiar);
    }
};

MORVEX_TESTE(TestFrmTarefas)
#include "test_frmTarefas.moc"
