// The print dialog: what it says to the report control, in its order, and what it does to itself around the
// run.
#include "ComRelatorios.h"
#include "printing/frmImprimir.h"
#include "testlib/SeteLinguas.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComDialogo : ComRelatorios {
    using ComRelatorios::ComRelatorios;

    frmImprimir &Abrir()
    {
        form = std::make_unique<frmImprimir>(s.geral, relatorio, ListaNomes);
        form->show();
        return *form;
    }
    frmImprimir &Abrir_Com_Previsao()
    {
        Abrir().CheckBoxPrevisualizar->setChecked(true);
        return *form;
    }

    QStringList Rotulos_Da_Ficha()
    {
        QStringList rotulos = Rotulos_Da_Lista();
        rotulos << u"6 email1;E-mail 1;TRUE"_s << u"7 email2;E-mail 2;TRUE"_s
                << u"8 website;%1;TRUE"_s.arg(s.Texto(34)) << u"9 aniversario;%1;TRUE"_s.arg(s.Texto(38));
        for (int mes = 1; mes <= 12; ++mes)
            rotulos << u"%1 mes%2;%3;TRUE"_s.arg(9 + mes).arg(mes, 2, 10, QChar(u'0')).arg(s.Texto(13 + mes));
        return rotulos;
    }

    // What follows the labels, up to the destination.
    static QStringList Dados(const QString &seleccao)
    {
        return {u"Connect morvex.mdb"_s, u"DataFiles 0 morvex.mdb"_s, u"ReplaceSelectionFormula"_s,
                (u"ReplaceSelectionFormula "_s + seleccao).trimmed()};
    }
    static QStringList Fim() { return {u"SortFields 0 +{TblLista.Nome}"_s, u"Action 1"_s}; }
    QStringList Previsao()
    {
        return {u"Destination 0"_s, u"WindowTitle "_s + Titulo_Da_Previsao(), u"WindowState 2"_s,
                u"WindowShowPrintBtn 1"_s};
    }

    std::unique_ptr<frmImprimir> form;
};
} // namespace

class TestFrmImprimir : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_legendas_vem_dos_textos()
    {
        ComDialogo c;
        const frmImprimir &form = c.Abrir();
        QCOMPARE(form.windowTitle(), c.s.Texto(73).remove(u'&'));
        QCOMPARE(form.CheckBoxPrevisualizar->text(), c.s.Texto(77));
        QCOMPARE(form.cmdImprimir->text(), c.s.Texto(80));
        QCOMPARE(form.cmdCancelar->text(), c.s.Texto(43));
        QVERIFY(!form.CheckBoxPrevisualizar->isChecked());
    }

    void liga_os_temporizadores_ao_carregar_e_ao_fechar()
    {
        ComDialogo c;
        Temporizadores &t = c.s.geral.temporizadores;
        QSignalSpy iniciar_mail(&t, &Temporizadores::IniciarMail);
        t.Gerir_Temporizadores(u"stop"_s);
        frmImprimir &form = c.Abrir();
        QVERIFY(c.Temporizadores_Ligados());
        QCOMPARE(iniciar_mail.count(), 1);
        t.Gerir_Temporizadores(u"stop"_s);
        form.cmdCancelar->click();
        QVERIFY(!form.isVisible());
        QVERIFY(c.Temporizadores_Ligados());
        QCOMPARE(iniciar_mail.count(), 2);
    }

    void a_ficha_na_previsao_diz_tudo_na_sua_ordem()
    {
        ComDialogo c;
        c.Abrir_Com_Previsao().cmdImprimir->click();
        QCOMPARE(c.relatorio.historia, QStringList{u"ReportFileName memo.rpt"_s} +
                                           Ao_Membro(u"ParameterFields"_s, c.Rotulos_Da_Ficha()) +
                                           c.Dados({}) + c.Previsao() + c.Fim());
    }

    void a_lista_na_impressora_diz_tudo_na_sua_ordem()
    {
        ComDialogo c;
        c.Abrir().opcoes->OptionLista->click();
        c.form->cmdImprimir->click();
        const QStringList impressora{u"PrinterSelect"_s, u"Destination 1"_s};
        QCOMPARE(c.relatorio.historia, QStringList{u"ReportFileName lista.rpt"_s} +
                                           Ao_Membro(u"ParameterFields"_s, c.Rotulos_Da_Lista()) +
                                           c.Dados({}) + impressora + c.Fim());
    }

    void os_rotulos_seguem_a_lingua()
    {
        ComDialogo c(u"AlemaoDE"_s);
        c.Abrir_Com_Previsao().cmdImprimir->click();
        const QStringList ditos = c.relatorio.Ditos(u"ParameterFields"_s);
        QCOMPARE(ditos, c.Rotulos_Da_Ficha());
        QVERIFY(ditos.contains(u"9 aniversario;Geburtstag;TRUE"_s));
        QVERIFY(ditos.contains(u"21 mes12;Dezember;TRUE"_s));
    }

    void varias_fichas_por_pagina_sao_outra_definicao_com_os_mesmos_rotulos()
    {
        ComDialogo c;
        c.Abrir_Com_Previsao().cbVariasPorPagina->click();
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s), QStringList{u"fichas.rpt"_s});
        QCOMPARE(c.relatorio.Ditos(u"ParameterFields"_s), c.Rotulos_Da_Ficha());
    }

    void so_as_fichas_cabem_varias_na_pagina()
    {
        ComDialogo c;
        c.Abrir_Com_Previsao().cbVariasPorPagina->click();
        c.form->opcoes->OptionLista->click();
        QVERIFY(!c.form->cbVariasPorPagina->isEnabled());
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s), QStringList{u"lista.rpt"_s});
    }

    void a_lista_com_grupos_tem_o_nome_do_grupo_por_titulo()
    {
        ComDialogo c;
        c.Grupo(u"Vizinhos"_s);
        c.Abrir_Com_Previsao().opcoes->OptionContactos->click();
        c.form->cmdImprimir->click();
        c.form->opcoes->ComboGrupos->ChooseText(u"Vizinhos"_s);
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s),
                 (QStringList{u"contactos.rpt"_s, u"contactos.rpt"_s}));
        QCOMPARE(c.relatorio.Ditos(u"ParameterFields"_s),
                 (QStringList{u"24 titulo;Todos os grupos;TRUE"_s, u"24 titulo;Vizinhos;TRUE"_s}));
    }

    void nenhuma_letra_serve_duas_vezes_data() { Em_Cada_Lingua(); }
    // Nor in frmExportar, which offers the same options beside captions of its own.
    void nenhuma_letra_serve_duas_vezes()
    {
        QFETCH(QString, idioma);
        ComDialogo c(idioma);
        const frmImprimir &form = c.Abrir();
        const OpcoesRelatorio &o = *form.opcoes;
        const QStringList opcoes{o.OptionTodos->text(), o.OptionSelecionado->text(), o.OptionLista->text(),
                                 o.OptionContactos->text()};
        const QStringList da_impressao{form.CheckBoxPrevisualizar->text(), form.cbVariasPorPagina->text(),
                                       form.cmdImprimir->text(), form.cmdCancelar->text()};
        const QStringList da_exportacao{c.s.Texto(257), c.s.Texto(135)};
        for (const QStringList &legendas : {opcoes + da_impressao, opcoes + da_exportacao}) {
            QStringList letras;
            for (const QString &legenda : legendas)
                letras << legenda.section(u'&', 1).first(1).toLower();
            QCOMPARE(letras.removeDuplicates(), 0);
        }
    }

    void um_grupo_escolhido_limita_os_registos()
    {
        ComDialogo c;
        const int id = c.Grupo(u"Vizinhos"_s);
        c.Abrir_Com_Previsao().opcoes->ComboGrupos->ChooseText(u"Vizinhos"_s);
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReplaceSelectionFormula"_s),
                 (QStringList{{}, u"{TblLista.Grupo}=%1"_s.arg(id)}));
    }

    void o_contacto_123_da_a_seleccao_sem_espaco_antes_do_numero()
    {
        ComDialogo c;
        c.Escolher_Contacto(123);
        c.Abrir_Com_Previsao().opcoes->OptionSelecionado->click();
        c.form->cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReplaceSelectionFormula"_s), (QStringList{{}, u"{TblLista.ID} =123"_s}));
    }

    void sem_contacto_escolhido_o_nome_seleccionado_esta_desligado()
    {
        ComDialogo c;
        QVERIFY(!c.Abrir().opcoes->OptionSelecionado->isEnabled());
    }

    void todos_os_grupos_nao_limita_nada_nem_aos_grupos_do_utilizador()
    {
        ComDialogo c;
        const int ana = c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        c.s.Novo_Grupo(u"De outro"_s, ana + 1);
        c.s.Entrar(u"Ana"_s);
        c.Abrir_Com_Previsao().cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReplaceSelectionFormula"_s), (QStringList{{}, {}}));
    }

    void cancelar_a_escolha_da_impressora_nao_trava_a_impressao()
    {
        ComDialogo c;
        c.Abrir().cmdImprimir->click(); // the control says nothing of what was answered
        const qsizetype escolha = c.relatorio.historia.indexOf(u"PrinterSelect"_s);
        QCOMPARE(c.relatorio.historia.sliced(escolha + 1), QStringList{u"Destination 1"_s} + c.Fim());
    }

    void a_previsao_deixa_o_dialogo_aberto_e_pode_repetir_se()
    {
        ComDialogo c;
        frmImprimir &form = c.Abrir_Com_Previsao();
        form.cmdImprimir->click();
        QVERIFY(form.isVisible());
        form.opcoes->OptionLista->click();
        form.cmdImprimir->click();
        QCOMPARE(c.relatorio.Ditos(u"ReportFileName"_s), (QStringList{u"memo.rpt"_s, u"lista.rpt"_s}));
        QCOMPARE(c.relatorio.Ditos(u"Action"_s).size(), 2);
    }

    void a_impressao_directa_fecha_o_dialogo_antes_de_correr()
    {
        ComDialogo c;
        frmImprimir &form = c.Abrir();
        c.s.geral.temporizadores.Gerir_Temporizadores(u"stop"_s);
        bool correu = false;
        c.relatorio.ao_correr = [&] {
            correu = true;
            QVERIFY(!form.isVisible());
            QVERIFY(c.Temporizadores_Ligados()); // unloaded too
        };
        form.cmdImprimir->click();
        QVERIFY(correu);
    }

    void sem_caminho_na_sessao_fica_o_da_pasta_do_programa()
    {
        ComDialogo c;
        frmImprimir &form = c.Abrir_Com_Previsao();
        c.s.geral.CaminhoBD.clear();
        form.cmdImprimir->click();
        QCOMPARE(c.s.geral.CaminhoBD, c.s.Ficheiro(u"morvex.mdb"_s));
        QCOMPARE(c.relatorio.Ditos(u"Connect"_s), QStringList{u"morvex.mdb"_s});
    }

    void uma_falha_do_relatorio_chega_a_caixa_de_erros()
    {
        ComDialogo c;
        c.relatorio.falha = true;
        frmImprimir &form = c.Abrir_Com_Previsao();
        c.s.caixas.Espera_Erro(Failure::FileNotFound);
        QTest::mouseClick(form.cmdImprimir, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(form.isVisible());
    }

    void varias_fichas_por_pagina_vem_na_sua_lingua_data()
    {
        QTest::addColumn<QString>("legenda");
        QTest::newRow("PortuguesPT") << u"&Várias fichas por página"_s;
        QTest::newRow("PortuguesBR") << u"Várias &fichas por página"_s;
        QTest::newRow("InglesUK") << u"Several s&heets a page"_s;
        QTest::newRow("EspanholES") << u"Varias &fichas por página"_s;
        QTest::newRow("ItalianoIT") << u"Più sche&de per pagina"_s;
        QTest::newRow("FrancesFR") << u"Plusieurs &fiches par page"_s;
        QTest::newRow("AlemaoDE") << u"&Mehrere Kontakte je Seite"_s;
    }
    void varias_fichas_por_pagina_vem_na_sua_lingua()
    {
        ComDialogo c(QString::fromLatin1(QTest::currentDataTag()));
        QTEST(c.Abrir().cbVariasPorPagina->text(), "legenda");
    }
};

MORVEX_TESTE(TestFrmImprimir)
#include "test_frmImprimir.moc"
