// The labels dialog: what it says to the report control, and whom it leaves out.
#include "ComRelatorios.h"
#include "printing/frmEtiquetas.h"
#include "testlib/SeteLinguas.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComEtiquetas : ComRelatorios {
    using ComRelatorios::ComRelatorios;

    frmEtiquetas &Abrir()
    {
        form = std::make_unique<frmEtiquetas>(s.geral, relatorio, ListaNomes);
        form->show();
        return *form;
    }

    std::unique_ptr<frmEtiquetas> form;
};
} // namespace

class TestFrmEtiquetas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void na_impressora_diz_tudo_na_sua_ordem()
    {
        ComEtiquetas c;
        c.s.geral.RemetenteBD = u"Ana\r\nPorto"_s;
        c.Abrir().cmdImprimir->click();
        QCOMPARE(c.relatorio.historia,
                 (QStringList{u"ReportFileName etiquetas_3x8.rpt"_s,
                              u"ParameterFields 22 remetente;Ana · Porto;TRUE"_s,
                              u"ParameterFields 23 primeira;1;TRUE"_s, u"Connect morvex.mdb"_s,
                              u"DataFiles 0 morvex.mdb"_s, u"ReplaceSelectionFormula {TblLista.Morada}<>''"_s,
                              u"SortFields 0 +{TblLista.Nome}"_s, u"PrinterSelect"_s, u"Destination 1"_s,
                              u"Action 1"_s}));
        QVERIFY(!c.form->isVisible());
    }

    void para_os_temporizadores_enquanto_esta_aberto()
    {
        ComEtiquetas c;
        c.Abrir();
        QVERIFY(c.Temporizadores_Parados());
        c.form->cmdCancelar->click();
        QVERIFY(c.Temporizadores_Ligados());
    }

    void um_dialogo_que_nao_se_consegue_carregar_deixa_os_temporizadores_a_andar()
    {
        ComEtiquetas c;
        c.s.Escrever(u"DROP TABLE TblGrupos"_s);
        QVERIFY_THROWS_EXCEPTION(Failure, c.Abrir());
        QVERIFY(c.Temporizadores_Ligados());
    }

    void a_previsao_deixa_o_dialogo_aberto()
    {
        ComEtiquetas c;
        c.Abrir().CheckBoxPrevisualizar->setChecked(true);
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"WindowTitle"_s), QStringList{c.Titulo_Da_Previsao()});
        QVERIFY(c.form->isVisible());
    }

    void um_grupo_limita_as_etiquetas_e_a_conta_dos_que_ficam_de_fora()
    {
        ComEtiquetas c;
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        const int id = c.Grupo(u"Vizinhos"_s);
        c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Grupo"_s, id}});
        c.s.Novo_Contacto({{u"Nome"_s, u"Eva"_s}, {u"Grupo"_s, id}, {u"Morada"_s, u"Rua"_s}});
        for (const auto &nome : {u"Rui"_s, u"Zita"_s})
            c.s.Novo_Contacto({{u"Nome"_s, nome}, {u"Grupo"_s, 1}});
        frmEtiquetas &form = c.Abrir();
        QCOMPARE(form.lblDeFora->text(), u"3 contactos sem morada ficam de fora."_s);
        form.opcoes->ComboGrupos->ChooseText(u"Vizinhos"_s);
        QCOMPARE(form.lblDeFora->text(), u"1 contacto sem morada fica de fora."_s);
        form.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReplaceSelectionFormula"_s),
                 QStringList{u"{TblLista.Grupo}=%1 and {TblLista.Morada}<>''"_s.arg(id)});
    }

    void quando_ninguem_fica_de_fora_nada_se_diz()
    {
        ComEtiquetas c;
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        c.s.Novo_Contacto({{u"Nome"_s, u"Eva"_s}, {u"Morada"_s, u"Rua"_s}});
        QCOMPARE(c.Abrir().lblDeFora->text(), QString());
    }

    void a_primeira_etiqueta_e_uma_das_da_folha()
    {
        ComEtiquetas c;
        frmEtiquetas &form = c.Abrir();
        for (const int cabem : {24, 21, 14}) {
            QCOMPARE(form.txtPrimeira->maximum(), cabem);
            form.ComboFormato->setListIndex((form.ComboFormato->ListIndex() + 1) % 3);
        }
    }

    void um_remetente_de_amostra_nao_vai_para_as_etiquetas()
    {
        ComEtiquetas c;
        c.s.geral.RemetenteBD = u"Write your address here (sender)"_s;
        QVERIFY(!c.Abrir().cbRemetente->isChecked());
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ParameterFields"_s).first(), u"22 remetente;;TRUE"_s);
    }

    void nenhuma_letra_serve_duas_vezes_data() { Em_Cada_Lingua(); }
    void nenhuma_letra_serve_duas_vezes()
    {
        QFETCH(QString, idioma);
        ComEtiquetas c(idioma);
        frmEtiquetas &form = c.Abrir();
        QStringList letras;
        for (const QString &legenda :
             {form.opcoes->OptionTodos->text(), form.opcoes->OptionSelecionado->text(),
              form.lblFormato->text(), form.lblPrimeira->text(), form.cbRemetente->text(),
              form.CheckBoxPrevisualizar->text(), form.cmdImprimir->text(), form.cmdCancelar->text()}) {
            QVERIFY(legenda.contains(u'&'));
            letras << legenda.section(u'&', 1).first(1).toLower();
        }
        QCOMPARE(letras.removeDuplicates(), 0);
    }
};

MORVEX_TESTE(TestFrmEtiquetas)
#include "test_frmEtiquetas.moc"
