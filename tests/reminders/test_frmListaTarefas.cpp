// The list of tasks: how it is filled, and what its buttons do.
#include "controls/DisabledWindow.h"
#include "controls/Scale.h"
#include "data/Idiomas.h"
#include "reminders/ComTarefas.h"
#include "reminders/frmAddEditTarefa.h"
#include "reminders/frmListaTarefas.h"

#include <QHeaderView>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace
{
struct ComLista : ComTarefas {
    using ComTarefas::ComTarefas;

    frmListaTarefas &Abrir()
    {
        form = std::make_unique<frmListaTarefas>(s.geral, s.plataforma, janela);
        form->show();
        return *form;
    }
    QStringList Itens() const
    {
        QStringList itens;
        for (int i = 0; i < form->ListViewTarefas->topLevelItemCount(); ++i) {
            const QTreeWidgetItem &item = *form->ListViewTarefas->topLevelItem(i);
            itens << QStringList{item.text(0), item.text(1), item.text(2), item.text(3)}.join(u'|');
        }
        return itens;
    }
    QStringList Cabecas() const
    {
        const QTreeWidgetItem &cabeca = *form->ListViewTarefas->headerItem();
        return {cabeca.text(0), cabeca.text(1), cabeca.text(2), cabeca.text(3)};
    }
    bool Com_Icone(int linha) const { return !form->ListViewTarefas->topLevelItem(linha)->icon(0).isNull(); }
    void Escolher(int linha) const
    {
        form->ListViewTarefas->setCurrentItem(form->ListViewTarefas->topLevelItem(linha));
    }

    void Clicar_Duas_Vezes(int linha) const
    {
        QTreeWidget &lista = *form->ListViewTarefas;
        const QPoint lugar = lista.visualItemRect(lista.topLevelItem(linha)).center();
        QTest::mouseClick(lista.viewport(), Qt::LeftButton, {}, lugar);
        QTest::mouseDClick(lista.viewport(), Qt::LeftButton, {}, lugar);
    }

    std::unique_ptr<frmListaTarefas> form;
};
} // namespace

class TestFrmListaTarefas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComLista c;
        const frmListaTarefas &form = c.Abrir();
        QCOMPARE(form.cmdCriar->text(), c.s.Texto(185));
        QCOMPARE(form.cmdEditar->text(), c.s.Texto(179));
        QCOMPARE(form.cmdEliminar->text(), c.s.Texto(183));
        QCOMPARE(form.cmdFechar->text(), c.s.Texto(135));
        QCOMPARE(form.Label1->text(), u"Lista de tarefas"_s);
        QCOMPARE(form.windowTitle(), u"Lista de tarefas"_s);
    }

    void as_colunas_comecam_com_as_suas_larguras_e_cada_linha_tem_lugar_para_o_icone()
    {
        ComLista c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"23:59"_s);
        const frmListaTarefas &form = c.Abrir();
        const QTreeWidget &lista = *form.ListViewTarefas;
        QCOMPARE(lista.columnWidth(0), 240);
        QCOMPARE(lista.columnWidth(1), 80);
        QCOMPARE(lista.columnWidth(2), 55);
        QCOMPARE(lista.topLevelItem(0)->sizeHint(0).height(), 18);
    }

    void sem_tarefas_a_lista_di_lo_em_cada_lingua()
    {
        QSet<QString> frases;
        for (const Idioma &idioma : idiomas::todos) {
            ComLista c(QString::fromLatin1(idioma.coluna));
            const frmListaTarefas &form = c.Abrir();
            frases << form.ListViewTarefas->accessibleDescription();
            QCOMPARE(form.ListViewTarefas->topLevelItemCount(), 0);
        }
        QVERIFY(!frases.contains(QString()));
        QVERIFY(frases.contains(u"Não existem tarefas."_s));
        QVERIFY(frases.contains(u"Es sind keine Aufgaben vorhanden."_s));
        QCOMPARE(frases.size(), 7);
    }

    void as_linhas_vem_por_data_e_hora_e_so_as_da_sessao()
    {
        ComLista c;
        c.Nova(u"Depois"_s, u"03-02-2027"_s, u"08:00"_s, u"4"_s);
        c.Nova(u"Tarde"_s, u"02-02-2027"_s, u"18:30"_s);
        c.Nova(u"Cedo"_s, u"02-02-2027"_s, u"08:05"_s, u"2"_s);
        c.Nova(u"De outro"_s, u"02-02-2027"_s, u"08:05"_s, u"2"_s, u"5"_s);
        c.Abrir();
        QCOMPARE(c.Itens(),
                 (QStringList{u"Cedo|02-02-2027|08:05|Diariamente"_s, u"Tarde|02-02-2027|18:30|Não"_s,
                              u"Depois|03-02-2027|08:00|Mensalmente"_s}));
        QCOMPARE(c.Cabecas(), (QStringList{c.s.Texto(182), c.s.Texto(177), c.s.Texto(180), c.s.Texto(181)}));
        QCOMPARE(c.s.geral.de.Rs("cmdListarTarefas").State(), Recordset::Closed);
    }

    void so_a_de_hoje_tem_icone_mesmo_depois_de_tocar()
    {
        ComLista c;
        c.Nova(u"Ontem"_s, u"31-01-2027"_s, u"23:59"_s);
        c.Nova(u"Hoje, já tocou"_s, u"01-02-2027"_s, u"00:00"_s);
        c.Nova(u"Hoje"_s, u"01-02-2027"_s, u"23:59"_s);
        c.Nova(u"Amanhã"_s, u"02-02-2027"_s, u"00:00"_s);
        c.Abrir();
        QVERIFY(!c.Com_Icone(0));
        QVERIFY(c.Com_Icone(1));
        QVERIFY(c.Com_Icone(2));
        QVERIFY(!c.Com_Icone(3));
    }

    void com_e_sem_icone_o_texto_comeca_no_mesmo_sitio()
    {
        ComLista c;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"23:59"_s);
        c.Nova(u"Regar"_s, u"02-02-2027"_s, u"23:59"_s);
        const frmListaTarefas &form = c.Abrir();
        form.cmdFechar->setFocus();
        const QTreeWidget &lista = *form.ListViewTarefas;
        const QImage imagem = lista.viewport()->grab().toImage();
        const auto a_direita_do_icone = [&](int linha) {
            QRect lugar = lista.visualItemRect(lista.topLevelItem(linha));
            lugar.setLeft(22);
            lugar.setRight(lista.columnWidth(0) - 1);
            return imagem.copy(lugar);
        };
        QVERIFY(c.Com_Icone(0) && !c.Com_Icone(1));
        QCOMPARE(a_direita_do_icone(0), a_direita_do_icone(1));
        QVERIFY(a_direita_do_icone(0).convertToFormat(QImage::Format_Indexed8).colorCount() > 1); // letters
    }

    void o_ultimo_titulo_le_se_inteiro_data()
    {
        QTest::addColumn<QString>("idioma");
        QTest::addColumn<int>("letras");
        QTest::addColumn<int>("tarefas");
        for (const char *idioma : {"PortuguesPT", "FrancesFR", "AlemaoDE"})
            for (const int letras : {11, 17})
                for (const int tarefas : {1, 40}) // which fit, and which want a scroll bar
                    QTest::addRow("%s, %d, %d", idioma, letras, tarefas)
                        << QString::fromLatin1(idioma) << letras << tarefas;
    }
    void o_ultimo_titulo_le_se_inteiro()
    {
        QFETCH(QString, idioma);
        QFETCH(int, letras);
        QFETCH(int, tarefas);
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        scale::setLetters(letras);
        ComLista c;
        c.s.geral.IdiomaActual = idioma;
        for (int i = 0; i < tarefas; ++i)
            c.Nova(u"Regar"_s, u"01-02-2027"_s, u"23:59"_s);
        const QTreeWidget &lista = *c.Abrir().ListViewTarefas;
        QCoreApplication::processEvents();
        const QHeaderView &titulos = *lista.header();
        QCOMPARE(titulos.model()->headerData(3, Qt::Horizontal).toString(), c.s.geral.Ler_Idioma(181));
        QVERIFY(titulos.sectionSize(3) >= titulos.sectionSizeHint(3));
        QVERIFY2(titulos.length() <= lista.viewport()->width(),
                 qPrintable(QString::number(titulos.length())));
        QVERIFY(titulos.sectionSize(0) >= scale::scaled(120));
        const int precisa = std::max(titulos.sectionSizeHint(3), titulos.defaultSectionSize());
        const bool cedeu = titulos.sectionSize(0) < scale::scaled(240);
        QCOMPARE(cedeu, letras > 11);
        if (cedeu && tarefas == 40) QCOMPARE(titulos.sectionSize(3), precisa); // beside the scroll bar
    }

    void onde_o_ecra_e_pequeno_a_descricao_fica_com_metade_do_seu_lugar()
    {
        const auto repor = qScopeGuard([] { scale::setLetters(scale::standardLetters); });
        scale::setLetters(2 * scale::standardLetters);
        ComLista c;
        c.s.geral.IdiomaActual = u"AlemaoDE"_s;
        c.Nova(u"Regar"_s, u"01-02-2027"_s, u"23:59"_s);
        QCOMPARE(c.Abrir().ListViewTarefas->header()->sectionSize(0), 240); // of 480
    }

    void uma_lista_lida_de_novo_fica_onde_estava_com_e_sem_escolha_data()
    {
        QTest::addColumn<int>("escolhida"); // -1: none
        for (const int linha : {-1, 0, 39})
            QTest::addRow("%d", linha) << linha;
    }
    void uma_lista_lida_de_novo_fica_onde_estava_com_e_sem_escolha()
    {
        QFETCH(int, escolhida);
        ComLista c;
        for (int i = 0; i < 40; ++i)
            c.Nova(u"Tarefa %1"_s.arg(i), u"01-03-2027"_s, u"%1:00"_s.arg(i / 2, 2, 10, QLatin1Char('0')));
        frmListaTarefas &form = c.Abrir();
        QTreeWidget &lista = *form.ListViewTarefas;
        if (escolhida >= 0) c.Escolher(escolhida);
        lista.verticalScrollBar()->setValue(7);
        c.Nova(u"Ainda outra"_s, u"02-03-2027"_s, u"08:00"_s);
        form.Refrescar();
        QCOMPARE(lista.topLevelItemCount(), 41);
        QCOMPARE(lista.verticalScrollBar()->value(), 7);
        QCOMPARE(lista.selectedItems().value(0), lista.topLevelItem(escolhida));
    }

    void uma_coluna_nula_da_uma_celula_vazia()
    {
        ComLista c;
        c.Nova(u"x"_s, u"02-02-2027"_s, u"08:00"_s);
        c.s.Escrever(u"UPDATE TblTarefas SET Tarefa=NULL, Data=NULL, Hora=NULL"_s);
        c.s.Escrever(u"UPDATE TblRepeticao SET Nome=NULL WHERE ID=1"_s);
        c.Abrir();
        QCOMPARE(c.Itens(), QStringList{u"|||"_s});
        QVERIFY(!c.Com_Icone(0));
    }

    void uma_descricao_de_varias_linhas_ocupa_uma_e_edita_se_inteira()
    {
        ComLista c;
        c.Nova(u"Regar\r\nPodar"_s, u"02-02-2027"_s, u"08:00"_s);
        frmListaTarefas &form = c.Abrir();
        QCOMPARE(c.Itens(), QStringList{u"Regar Podar|02-02-2027|08:00|Não"_s});
        accoes::Quando_Abrir<frmAddEditTarefa>([](frmAddEditTarefa &edicao) {
            QCOMPARE(edicao.txtTarefa->toPlainText(), u"Regar\nPodar"_s);
            edicao.cmdOk->click();
        });
        c.Escolher(0);
        form.cmdEditar->click();
        QCOMPARE(c.Tarefas(), QStringList{u"Regar\r\nPodar|2027-02-02|08:00:00|1"_s});
    }

    void sem_tarefas_a_lista_fica_como_foi_desenhada()
    {
        ComLista c;
        c.Abrir();
        QVERIFY(c.Itens().isEmpty());
        QCOMPARE(c.Cabecas(), (QStringList{QString(), QString(), QString(), QString()}));
    }

    void eliminar_nao_pergunta_nada()
    {
        ComLista c;
        c.Nova(u"Fica"_s, u"02-02-2027"_s, u"08:00"_s);
        c.Nova(u"Vai"_s, u"03-02-2027"_s, u"08:00"_s, u"2"_s);
        frmListaTarefas &form = c.Abrir();
        c.Escolher(1);
        form.cmdEliminar->click();
        QCOMPARE(c.Itens(), QStringList{u"Fica|02-02-2027|08:00|Não"_s});
        QCOMPARE(c.Tarefas(), QStringList{u"Fica|2027-02-02|08:00:00|1"_s});
    }

    void eliminar_a_ultima_esvazia_a_lista()
    {
        ComLista c;
        c.Nova(u"Vai"_s, u"03-02-2027"_s, u"08:00"_s);
        frmListaTarefas &form = c.Abrir();
        c.Escolher(0);
        form.cmdEliminar->click();
        QVERIFY(c.Itens().isEmpty());
        QVERIFY(c.Tarefas().isEmpty());
    }

    void editar_e_eliminar_sem_escolha_nao_fazem_nada()
    {
        ComLista c;
        c.Nova(u"Fica"_s, u"02-02-2027"_s, u"08:00"_s);
        frmListaTarefas &form = c.Abrir();
        form.cmdEditar->click();
        form.cmdEliminar->click();
        QCOMPARE(c.Tarefas().size(), 1);
        QVERIFY(c.s.geral.ModoTarefa.isEmpty());
    }

    void editar_leva_a_linha_ao_formulario_data()
    {
        QTest::addColumn<bool>("por_duplo_clique");
        QTest::newRow("botao") << false;
        QTest::newRow("duplo clique") << true;
    }
    void editar_leva_a_linha_ao_formulario()
    {
        QFETCH(bool, por_duplo_clique);
        ComLista c;
        const int id = c.Nova(u"Regar"_s, u"02-02-2027"_s, u"08:00"_s, u"5"_s);
        frmListaTarefas &form = c.Abrir();
        c.Escolher(0);
        QSignalSpy editada(&form, &frmListaTarefas::TarefaEditada);
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            QCOMPARE(c.s.geral.ModoTarefa, u"Edit"_s);
            QCOMPARE(edicao.txtIDTarefa->text(), QString::number(id));
            QCOMPARE(edicao.txtTarefa->toPlainText(), u"Regar"_s);
            QCOMPARE(edicao.txtTarefa->textCursor().selectedText(), u"Regar"_s);
            QCOMPARE(edicao.DataTarefa->date(), QDate(2027, 2, 2));
            QCOMPARE(edicao.HoraTarefa->time(), QTime(8, 0));
            QCOMPARE(edicao.ComboRepeticao->currentText(), u"Anualmente"_s);
            edicao.HoraTarefa->setTime({8, 30});
            edicao.cmdOk->click();
        });
        if (por_duplo_clique)
            c.Clicar_Duas_Vezes(0);
        else
            form.cmdEditar->click();
        QCOMPARE(c.Itens(), QStringList{u"Regar|02-02-2027|08:30|Anualmente"_s});
        QCOMPARE(editada.count(), 1);
        QVERIFY(c.Temporizadores_Ligados()); // the saved edit starts them under the list
    }

    void uma_edicao_cancelada_nao_muda_nada_e_deixa_os_temporizadores_parados()
    {
        ComLista c;
        c.Nova(u"Regar"_s, u"02-02-2027"_s, u"08:00"_s);
        frmListaTarefas &form = c.Abrir();
        c.Escolher(0);
        QSignalSpy editada(&form, &frmListaTarefas::TarefaEditada);
        accoes::Quando_Abrir<frmAddEditTarefa>([](frmAddEditTarefa &edicao) { edicao.cmdCancelar->click(); });
        form.cmdEditar->click();
        QCOMPARE(c.Itens(), QStringList{u"Regar|02-02-2027|08:00|Não"_s});
        QCOMPARE(editada.count(), 0);
        QVERIFY(c.Temporizadores_Parados());
        form.cmdFechar->click();
        QVERIFY(c.Temporizadores_Ligados());
    }

    void criar_abre_uma_nova_e_enche_de_novo()
    {
        ComLista c;
        frmListaTarefas &form = c.Abrir();
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            QCOMPARE(c.s.geral.ModoTarefa, u"Add"_s);
            edicao.txtTarefa->setPlainText(u"Nova"_s);
            edicao.HoraTarefa->setTime({23, 0});
            edicao.cmdOk->click();
        });
        form.cmdCriar->click();
        QCOMPARE(c.Itens(), QStringList{u"Nova|01-02-2027|23:00|Não"_s});
        QVERIFY(c.Com_Icone(0));
    }

    void um_resultado_sem_linhas_depois_de_criar_deixa_a_lista_como_estava()
    {
        ComLista c;
        c.Nova(u"Regar"_s, u"02-02-2027"_s, u"08:00"_s);
        frmListaTarefas &form = c.Abrir();
        accoes::Quando_Abrir<frmAddEditTarefa>([&](frmAddEditTarefa &edicao) {
            c.s.Escrever(u"DELETE FROM TblTarefas"_s); // another copy of the program
            edicao.cmdCancelar->click();
        });
        form.cmdCriar->click();
        QCOMPARE(c.Itens(), QStringList{u"Regar|02-02-2027|08:00|Não"_s});
    }

    void abrir_para_os_temporizadores_e_fechar_recomeca_e_activa_main_data()
    {
        QTest::addColumn<bool>("escape");
        QTest::newRow("cmdFechar") << false;
        QTest::newRow("Esc") << true;
    }
    void abrir_para_os_temporizadores_e_fechar_recomeca_e_activa_main()
    {
        QFETCH(bool, escape);
        ComLista c;
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::IniciarMail);
        frmListaTarefas &form = c.Abrir();
        DisabledWindow::disable(c.janela);
        QVERIFY(c.Temporizadores_Parados());
        if (escape)
            QTest::keyClick(&form, Qt::Key_Escape);
        else
            form.cmdFechar->click();
        QVERIFY(!form.isVisible());
        QVERIFY(c.Temporizadores_Ligados());
        QVERIFY(c.janela.isEnabled());
        QCOMPARE(correio.count(), 1);
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComLista c;
        c.Perder(u"TblTarefas"_s);
        VERIFICAR_FALHA(c.Abrir(), Failure::StoreError);
        QVERIFY(c.Temporizadores_Ligados());
    }

    void a_lista_vazia_diz_o_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("frase");
        QTest::newRow("PortuguesPT") << u"Não existem tarefas."_s;
        QTest::newRow("PortuguesBR") << u"Não há tarefas."_s;
        QTest::newRow("InglesUK") << u"There are no tasks."_s;
        QTest::newRow("EspanholES") << u"No hay tareas."_s;
        QTest::newRow("ItalianoIT") << u"Non ci sono attività."_s;
        QTest::newRow("FrancesFR") << u"Il n’y a aucune tâche."_s;
        QTest::newRow("AlemaoDE") << u"Es sind keine Aufgaben vorhanden."_s;
    }
    void a_lista_vazia_diz_o_em_cada_lingua()
    {
        ComLista c(QString::fromLatin1(QTest::currentDataTag()));
        QTEST(c.Abrir().ListViewTarefas->accessibleDescription(), "frase");
    }
};

MORVEX_TESTE(TestFrmListaTarefas)
#include "test_frmListaTarefas.moc"
