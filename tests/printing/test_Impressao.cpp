// The main window's printing: which entry opens what, and the one report control that they all share.
#include "ComRelatorios.h"
#include "printing/frmEnvelope.h"
#include "printing/frmEtiquetas.h"
#include "printing/frmImprimir.h"
#include "printing/Impressao.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComImpressao : ComRelatorios {
    ComImpressao()
    {
        janela.setWindowTitle(u"Morvex 1.0"_s);
        new Impressao(janela, s.geral, s.plataforma, relatorio);
    }

    // The entry's form, and what is done in it. It must come, in front of a disabled window.
    template<class Formulario>
    void Abrir(const QString &entrada, const std::function<void(Formulario &)> &accao)
    {
        bool veio = false;
        accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
            veio = true;
            QVERIFY(!janela.isEnabled());
            QVERIFY(form.isEnabled());
            accao(form);
            form.close();
        });
        janela.findChild<QAction *>(entrada)->trigger();
        QVERIFY(veio);
        QVERIFY(janela.isEnabled());
    }

    void Recusar_Envelope(const QString &entrada)
    {
        s.caixas.Espera(s.Texto(165) + u"\r\n"_s + s.Texto(166), 16, u"Morvex 1.0"_s);
        janela.findChild<QAction *>(entrada)->trigger();
        QVERIFY(s.caixas.Todas_Vistas());
        QVERIFY(janela.isEnabled());
    }
};

void Nada(frmEnvelope &) {}
} // namespace

class TestImpressao : public QObject
{
    Q_OBJECT

    template<class Form> static void Corre_Com_A_Janela_Ligada(const QString &entrada, void (*imprimir)(Form &))
    {
        ComImpressao c;
        bool correu = false;
        c.relatorio.ao_correr = [&] {
            correu = true;
            QVERIFY(c.janela.isEnabled());
        };
        c.Abrir<Form>(entrada, imprimir);
        QVERIFY(correu);
    }

private Q_SLOTS:
    void a_entrada_e_o_botao_abrem_o_dialogo_com_todos_os_nomes()
    {
        ComImpressao c;
        c.Escolher_Contacto(5);
        for (const auto &entrada : {u"ImprimirLista"_s, u"imprimir"_s})
            c.Abrir<frmImprimir>(entrada,
                                 [](frmImprimir &form) { QVERIFY(form.opcoes->OptionTodos->isChecked()); });
    }

    void o_botao_direito_carrega_primeiro_e_escolhe_depois_o_nome_seleccionado()
    {
        ComImpressao c;
        c.Escolher_Contacto(5);
        c.Abrir<frmImprimir>(u"RightClickPrintContacto"_s, [](frmImprimir &form) {
            QVERIFY(form.opcoes->OptionSelecionado->isChecked());
            QVERIFY(!form.opcoes->ComboGrupos->isEnabled());
            QCOMPARE(form.opcoes->ComboGrupos->ListIndex(), 0);
            QCOMPARE(form.opcoes->txtGrupoID->text(), u"%"_s);
        });
    }

    void o_botao_direito_sem_contacto_escolhe_a_opcao_mesmo_desligada()
    {
        ComImpressao c;
        c.Abrir<frmImprimir>(u"RightClickPrintContacto"_s, [](frmImprimir &form) {
            QVERIFY(!form.opcoes->OptionSelecionado->isEnabled());
            QVERIFY(form.opcoes->OptionSelecionado->isChecked());
            QVERIFY(!form.opcoes->ComboGrupos->isEnabled());
        });
    }

    void a_impressao_directa_de_etiquetas_corre_com_a_janela_ja_ligada()
    {
        Corre_Com_A_Janela_Ligada<frmEtiquetas>(u"ImprimirEtiquetas"_s, [](frmEtiquetas &form) {
            form.CheckBoxPrevisualizar->setChecked(false);
            form.cmdImprimir->click();
        });
    }

    void a_impressao_directa_corre_com_a_janela_ja_ligada()
    {
        Corre_Com_A_Janela_Ligada<frmImprimir>(u"ImprimirLista"_s,
                                               [](frmImprimir &form) { form.cmdImprimir->click(); });
    }

    void as_tres_entradas_abrem_o_envelope()
    {
        ComImpressao c;
        c.Escolher_Contacto(5);
        for (const auto &entrada : {u"ImprimirEnvelope"_s, u"imprimir_envelope"_s, u"RightClickEnvelope"_s})
            c.Abrir<frmEnvelope>(entrada, Nada);
    }

    void sem_contacto_escolhido_o_envelope_nao_abre()
    {
        ComImpressao c;
        c.ListaNomes.AddItem(u"Abel"_s);
        for (const auto &entrada : {u"ImprimirEnvelope"_s, u"imprimir_envelope"_s, u"RightClickEnvelope"_s})
            c.Recusar_Envelope(entrada);
    }

    void os_temporizadores_ficam_parados_depois_de_um_envelope_ate_outro_formulario_os_ligar()
    {
        ComImpressao c;
        c.Escolher_Contacto(5);
        c.Abrir<frmEnvelope>(u"ImprimirEnvelope"_s, Nada);
        QVERIFY(c.Temporizadores_Parados());
        c.Abrir<frmImprimir>(u"ImprimirLista"_s, [](frmImprimir &) {});
        QVERIFY(c.Temporizadores_Ligados());
    }

    void o_envelope_deixa_no_controlo_os_rotulos_e_a_ordem_da_impressao_anterior()
    {
        ComImpressao c;
        c.Escolher_Contacto(5);
        c.Abrir<frmImprimir>(u"ImprimirLista"_s, [](frmImprimir &form) { form.cmdImprimir->click(); });
        c.relatorio.historia.clear();
        c.Abrir<frmEnvelope>(u"ImprimirEnvelope"_s, [](frmEnvelope &form) { form.cmdImprimir->click(); });
        QVERIFY(c.relatorio.Ditos(u"ParameterFields"_s).isEmpty());
        QVERIFY(c.relatorio.Ditos(u"SortFields"_s).isEmpty());
        QCOMPARE(c.relatorio.Ditos(u"Action"_s).size(), 1);
    }

    void as_etiquetas_abrem_se_no_fim_do_menu_e_sem_contacto_escolhido()
    {
        ComImpressao c;
        QCOMPARE(c.janela.Imprimir->actions().last(), c.janela.ImprimirEtiquetas);
        c.Abrir<frmEtiquetas>(u"ImprimirEtiquetas"_s, [](frmEtiquetas &form) { form.cmdImprimir->click(); });
        QCOMPARE(c.relatorio.Ditos(u"Action"_s).size(), 1);
        QVERIFY(c.janela.isEnabled());
    }
};

MORVEX_TESTE(TestImpressao)
#include "test_Impressao.moc"
