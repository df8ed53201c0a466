// The export dialog: what it says to the report control, in its order, and its silence about what fails
// there.
#include "controls/Controls.h"
#include "interchange/frmExportar.h"
#include "printing/ComRelatorios.h"
#include "printing/frmImprimir.h"
#include "session/Main.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComExportar : ComRelatorios {
    using ComRelatorios::ComRelatorios;

    frmExportar &Abrir()
    {
        form = std::make_unique<frmExportar>(s.geral, relatorio, ListaNomes);
        form->show();
        return *form;
    }

    std::unique_ptr<frmExportar> form;
};
} // namespace

class TestFrmExportar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComExportar c(u"FrancesFR"_s); // the design has them in Portuguese
        const frmExportar &form = c.Abrir();
        const QString exportar = c.s.Texto(257);
        QCOMPARE(form.windowTitle(), QString(exportar).remove(u'&'));
        QCOMPARE(form.frameExportar->title(), QString(exportar).remove(u'&'));
        QCOMPARE(form.cmdExportar->text(), exportar);
        QCOMPARE(form.cmdFechar->text(), c.s.Texto(135));
        QCOMPARE(form.opcoes->FrameIntervalo->title(), c.s.Texto(74));
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        ComExportar c;
        c.s.Perder_Texto(135);
        QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled());
        VERIFICAR_FALHA(c.Abrir(), Failure::InvalidUseOfNull);
        QVERIFY(c.s.geral.temporizadores.timerTarefas.Enabled());
    }

    void os_tres_formatos_sao_os_mesmos_em_todas_as_linguas_e_o_primeiro_esta_escolhido()
    {
        ComExportar c;
        const ComboBox &combo = *c.Abrir().ComboExportar;
        QCOMPARE(combo.ListCount(), 3);
        const QStringList nomes{u"Excel (XLS)"_s, u"Texto (TXT)"_s, u"Word (DOC)"_s};
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(combo.List(i), nomes[i]);
            QCOMPARE(combo.ItemData(i), i);
        }
        QCOMPARE(combo.ListIndex(), 0);
    }

    void exportar_diz_tudo_na_sua_ordem_e_deixa_o_dialogo_aberto_data()
    {
        QTest::addColumn<int>("formato");
        QTest::addColumn<QString>("tipo");
        QTest::newRow("folha") << 0 << u"25"_s;
        QTest::newRow("texto") << 1 << u"2"_s;
        QTest::newRow("documento") << 2 << u"17"_s;
    }
    void exportar_diz_tudo_na_sua_ordem_e_deixa_o_dialogo_aberto()
    {
        QFETCH(int, formato);
        QFETCH(QString, tipo);
        ComExportar c;
        c.Escolher_Contacto(123);
        frmExportar &form = c.Abrir();
        form.ComboExportar->setListIndex(formato);
        form.opcoes->OptionLista->click();
        form.opcoes->OptionSelecionado->click();
        form.cmdExportar->click();
        const QString base = QFileInfo(c.s.Base()).fileName();
        QCOMPARE(c.relatorio.historia,
                 (QStringList{u"ReportFileName lista.rpt"_s, u"Connect "_s + base, u"DataFiles 0 "_s + base,
                              u"ReplaceSelectionFormula"_s,
                              u"ReplaceSelectionFormula {TblLista.ID} =123"_s, u"PrintFileType "_s + tipo,
                              u"Destination 2"_s, u"SortFields 0 +{TblLista.Nome}"_s, u"Action 1"_s}));
        QVERIFY(form.isVisible());
    }

    void um_grupo_escolhido_limita_os_registos()
    {
        ComExportar c;
        const int id = c.Grupo(u"Vizinhos"_s);
        c.Abrir().opcoes->ComboGrupos->ChooseText(u"Vizinhos"_s);
        c.form->cmdExportar->click();
        QCOMPARE(c.relatorio.Ditos(u"ReplaceSelectionFormula"_s),
                 (QStringList{{}, u"{TblLista.Grupo}=%1"_s.arg(id)}));
    }

    void sem_contacto_escolhido_o_nome_seleccionado_esta_desligado()
    {
        ComExportar c;
        QVERIFY(!c.Abrir().opcoes->OptionSelecionado->isEnabled());
    }

    void sem_caminho_na_sessao_fica_o_da_pasta_do_programa()
    {
        ComExportar c;
        frmExportar &form = c.Abrir();
        c.s.geral.CaminhoBD.clear();
        form.cmdExportar->click();
        QCOMPARE(c.s.geral.CaminhoBD, c.s.Ficheiro(u"morvex.mdb"_s));
    }

    void uma_falha_do_relatorio_deixa_o_dialogo_aberto_sem_uma_palavra()
    {
        ComExportar c;
        c.relatorio.falha = true;
        frmExportar &form = c.Abrir();
        QTest::mouseClick(form.cmdExportar, Qt::LeftButton); // a box would fail the test
        QCOMPARE(c.relatorio.historia.last(), u"Action 1"_s);
        QVERIFY(form.isVisible());
    }

    void a_ficha_sem_impressao_anterior_nao_tem_nenhum_dos_rotulos()
    {
        ComExportar c;
        c.Abrir().cmdExportar->click();
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s), QStringList{u"memo.rpt"_s});
        QVERIFY(c.relatorio.Ditos(u"ParameterFields"_s).isEmpty());
    }

    void o_destino_fica_em_ficheiro_ate_a_impressao_seguinte()
    {
        ComExportar c;
        c.Abrir().cmdExportar->click();
        c.form->cmdFechar->click();
        QCOMPARE(c.relatorio.Ditos(u"Destination"_s), QStringList{u"2"_s});
        frmImprimir imprimir(c.s.geral, c.relatorio, c.ListaNomes);
        QCOMPARE(c.relatorio.Ditos(u"Destination"_s), QStringList{u"2"_s});
        imprimir.CheckBoxPrevisualizar->setChecked(true);
        imprimir.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"Destination"_s), (QStringList{u"2"_s, u"0"_s}));
    }

    void para_os_temporizadores_ao_carregar_e_liga_os_ao_fechar()
    {
        ComExportar c;
        frmExportar &form = c.Abrir();
        QVERIFY(c.Temporizadores_Parados());
        form.cmdFechar->click();
        QVERIFY(!form.isVisible());
        QVERIFY(c.Temporizadores_Ligados());
    }

    void a_entrada_abre_o_dialogo_sem_desligar_a_janela()
    {
        Sistema s;
        Main janela(s.geral, s.plataforma);
        bool veio = false;
        accoes::Quando_Abrir<frmExportar>([&](frmExportar &form) {
            veio = true;
            QVERIFY(janela.isEnabled());
            form.cmdFechar->click();
        });
        control<QAction>(janela, u"Exportar"_s).trigger();
        QVERIFY(veio);
    }
};

MORVEX_TESTE(TestFrmExportar)
#include "test_frmExportar.moc"
