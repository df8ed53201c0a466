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
        QCOMPARE(c.s.geral.de.Rs("cmdProcurarMorada").State(), Recordset::Closed);
        QCOMPARE(c.s.geral.de.Rs("cmdListarNomes").State(), Recordset::Closed);
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

    void cada_palavra_vem_na_sua_lingua_data()
    {
        QTest::addColumn<QString>("titulo");
        QTest::addColumn<QString>("folha");
        QTest::addColumn<QString>("primeira");
        QTest::addColumn<QString>("com_remetente");
        QTest::addColumn<QString>("um_de_fora");
        QTest::addColumn<QString>("varios_de_fora");
        QTest::newRow("PortuguesPT") << u"Imprimir etiquetas"_s << u"&Folha:"_s << u"Primeira &etiqueta:"_s
                                     << u"Com o &remetente"_s << u"1 contacto sem morada fica de fora."_s
                                     << u"%1 contactos sem morada ficam de fora."_s;
        QTest::newRow("PortuguesBR") << u"Imprimir etiquetas"_s << u"&Folha:"_s << u"Primeira &etiqueta:"_s
                                     << u"Com o &remetente"_s << u"1 contato sem endereço fica de fora."_s
                                     << u"%1 contatos sem endereço ficam de fora."_s;
        QTest::newRow("InglesUK") << u"Print labels"_s << u"S&heet:"_s << u"&First label:"_s
                                  << u"With the sende&r"_s << u"1 contact without an address is left out."_s
                                  << u"%1 contacts without an address are left out."_s;
        QTest::newRow("EspanholES") << u"Imprimir etiquetas"_s << u"&Hoja:"_s << u"Primera &etiqueta:"_s
                                    << u"Con el &remitente"_s << u"1 contacto sin dirección queda fuera."_s
                                    << u"%1 contactos sin dirección quedan fuera."_s;
        QTest::newRow("ItalianoIT") << u"Stampa etichette"_s << u"&Foglio:"_s << u"Prima &etichetta:"_s
                                    << u"Con il &mittente"_s << u"1 contatto senza indirizzo resta escluso."_s
                                    << u"%1 contatti senza indirizzo restano esclusi."_s;
        QTest::newRow("FrancesFR") << u"Imprimer des étiquettes"_s << u"&Feuille\u00a0:"_s
                                   << u"Pr&emière étiquette\u00a0:"_s << u"Avec l’e&xpéditeur"_s
                                   << u"1 contact sans adresse est omis."_s
                                   << u"%1 contacts sans adresse sont omis."_s;
        QTest::newRow("AlemaoDE") << u"Etiketten drucken"_s << u"&Bogen:"_s << u"&Erstes Etikett:"_s
                                  << u"&Mit Absender"_s << u"1 Kontakt ohne Adresse entfällt."_s
                                  << u"%1 Kontakte ohne Adresse entfallen."_s;
    }
    void cada_palavra_vem_na_sua_lingua()
    {
        QFETCH(QString, varios_de_fora);
        ComEtiquetas c(QString::fromLatin1(QTest::currentDataTag()));
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        QTEST(c.Abrir().lblDeFora->text(), "um_de_fora");
        QTEST(c.form->windowTitle(), "titulo");
        QTEST(c.form->lblFormato->text(), "folha");
        QTEST(c.form->lblPrimeira->text(), "primeira");
        QTEST(c.form->cbRemetente->text(), "com_remetente");
        c.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}});
        QCOMPARE(c.Abrir().lblDeFora->text(), varios_de_fora.replace(u"%1"_s, u"2"_s));
    }

    void cada_folha_diz_as_suas_medidas_e_tem_a_sua_definicao()
    {
        ComEtiquetas c;
        frmEtiquetas &form = c.Abrir();
        form.CheckBoxPrevisualizar->setChecked(true);
        const QStringList medidas{u"3 × 8 (70 × 37 mm)"_s, u"3 × 7 (63.5 × 38.1 mm)"_s,
                                  u"2 × 7 (99.1 × 38.1 mm)"_s};
        QStringList oferecidas;
        for (int i = 0; i < form.ComboFormato->ListCount(); ++i) {
            oferecidas << form.ComboFormato->List(i);
            form.ComboFormato->setListIndex(i);
            form.cmdImprimir->click();
        }
        QCOMPARE(oferecidas, medidas);
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s),
                 (QStringList{u"etiquetas_3x8.rpt"_s, u"etiquetas_3x7.rpt"_s, u"etiquetas_2x7.rpt"_s}));
    }

    // Blanks round a line are no part of the sender, nor is a line of blanks.
    void o_remetente_vai_numa_linha_e_a_primeira_etiqueta_e_a_escolhida()
    {
        ComEtiquetas c;
        c.s.geral.RemetenteBD = u" Ana \r\n \r\nRua Nova\r\nPorto\r\n"_s;
        frmEtiquetas &form = c.Abrir();
        form.CheckBoxPrevisualizar->setChecked(true);
        form.txtPrimeira->setValue(7);
        form.cmdImprimir->click();
        form.cbRemetente->setChecked(false);
        form.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ParameterFields"_s),
                 (QStringList{u"22 remetente;Ana · Rua Nova · Porto;TRUE"_s, u"23 primeira;7;TRUE"_s,
                              u"22 remetente;;TRUE"_s, u"23 primeira;7;TRUE"_s}));
        QCOMPARE(form.txtPrimeira->minimum(), 1);
    }

    // Nobody counts as somebody with an address: one of all of them, whoever the group shows.
    void so_o_seleccionado_conta_quando_so_ele_se_imprime()
    {
        ComEtiquetas c;
        c.s.Escrever(u"DELETE FROM TblLista"_s);
        const int sem = c.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        const int com = c.s.Novo_Contacto({{u"Nome"_s, u"Eva"_s}, {u"Morada"_s, u"Rua"_s}});
        c.s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}});
        c.s.geral.IDContacto = static_cast<qint16>(sem);
        frmEtiquetas &form = c.Abrir();
        QCOMPARE(form.lblDeFora->text(), u"2 contactos sem morada ficam de fora."_s);
        form.opcoes->OptionSelecionado->setChecked(true);
        QCOMPARE(form.lblDeFora->text(), u"1 contacto sem morada fica de fora."_s);
        form.opcoes->OptionTodos->setChecked(true);
        QCOMPARE(form.lblDeFora->text(), u"2 contactos sem morada ficam de fora."_s);
        c.s.geral.IDContacto = static_cast<qint16>(com);
        form.opcoes->OptionSelecionado->setChecked(true);
        QCOMPARE(form.lblDeFora->text(), QString());
    }

    void o_estilo_nao_se_escolhe_para_etiquetas()
    {
        ComEtiquetas c;
        const frmEtiquetas &form = c.Abrir();
        QVERIFY(!form.opcoes->FrameEstilo->isVisibleTo(&form));
        QVERIFY(form.opcoes->FrameIntervalo->isVisibleTo(&form));
    }
};

MORVEX_TESTE(TestFrmEtiquetas)
#include "test_frmEtiquetas.moc"
