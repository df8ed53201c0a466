// The notice of a due task: what its load does, where a click is one, what the card shows, and its end.
#include "controls/Units.h"
#include "reminders/ComPopup.h"

#include <QScreen>

using namespace Qt::StringLiterals;

namespace
{
struct Com_Popup : ComTarefas {
    using ComTarefas::ComTarefas;

    // The notice of a new task, filled as the cycle of alarms does it.
    frmPopup &Abrir(const QString &IDRepeticao = u"1"_s)
    {
        id = Nova(u"Regar"_s, u"01-02-2027"_s, u"09:00"_s, IDRepeticao);
        popup = std::make_unique<frmPopup>(s.geral, s.plataforma, janela, relatorio);
        popup->txtIDTarefa->setText(QString::number(id));
        janela.setEnabled(false);
        popup->show();
        return *popup;
    }

    std::unique_ptr<frmPopup> popup;
    int id = 0;
};

int Altura_Do_Ecra() { return twips(QGuiApplication::primaryScreen()->geometry().height()); }
int Largura_Do_Ecra() { return twips(QGuiApplication::primaryScreen()->geometry().width()); }
} // namespace

class TestFrmPopup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ao_carregar_para_os_temporizadores_e_comeca_a_subir()
    {
        Com_Popup c;
        Temporizadores &t = c.s.geral.temporizadores;
        t.TimerMailNotification.setEnabled(true);
        t.TimerMailNotification3.setEnabled(true);
        const frmPopup &popup = c.Abrir();
        QVERIFY(c.Temporizadores_Parados());
        QVERIFY(!t.TimerMailNotification.Enabled() && !t.TimerMailNotification3.Enabled());
        QCOMPARE(popup.lblMensagem->text(), c.s.Texto(172));
        QVERIFY(popup.TimerUp.Enabled() && !popup.TimerDown.Enabled());
        QCOMPARE(popup.TimerPisca.interval(), 500);
        QVERIFY(popup.TimerPisca.Enabled());
        QCOMPARE(popup.TimerTimeout.interval(), 60000);
        QVERIFY(!popup.TimerTimeout.Enabled());
    }

    void tem_o_tamanho_do_desenho_e_nasce_sob_a_margem_direita()
    {
        Com_Popup c;
        const frmPopup &popup = c.Abrir();
        QCOMPARE(twips(popup.width()), 2640);
        QCOMPARE(twips(popup.height()), 1665);
        QCOMPARE(popup.Top(), Altura_Do_Ecra() + 10);
        QCOMPARE(popup.Left(), Largura_Do_Ecra() - 2740);
    }

    void sobe_trinta_e_quatro_passos_e_so_entao_fica_por_cima()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        int passos = 0;
        for (; popup.TimerUp.Enabled(); ++passos) {
            QVERIFY(!(popup.windowHandle()->flags() & Qt::WindowStaysOnTopHint));
            Disparar(popup.TimerUp);
        }
        QCOMPARE(passos, 34);
        QCOMPARE(popup.Top(), Altura_Do_Ecra() - 1690);
        QVERIFY(popup.windowHandle()->flags() & Qt::WindowStaysOnTopHint);
    }

    void toca_o_som_do_programa_ou_o_do_utilizador_data()
    {
        QTest::addColumn<QString>("SomTarefa");
        QTest::newRow("programa") << QString();
        QTest::newRow("utilizador") << u"/sons/galo.wav"_s;
    }
    void toca_o_som_do_programa_ou_o_do_utilizador()
    {
        QFETCH(QString, SomTarefa);
        Com_Popup c;
        c.s.geral.SomTarefa = SomTarefa;
        c.Abrir();
        QCOMPARE(c.s.som.tocados,
                 QStringList{SomTarefa.isEmpty() ? c.s.Ficheiro(u"tarefa.wav"_s) : SomTarefa});
    }

    void sem_o_texto_fica_o_do_desenho_e_sobe_na_mesma()
    {
        Com_Popup c;
        c.s.Perder_Texto(172);
        const frmPopup popup(c.s.geral, c.s.plataforma, c.janela, c.relatorio);
        QCOMPARE(popup.lblMensagem->text(), u"Existem novas tarefas !"_s);
        QVERIFY(popup.TimerUp.Enabled());
    }

    void o_formulario_a_imagem_e_os_dois_textos_sao_clicaveis_data()
    {
        QTest::addColumn<QString>("onde");
        for (const char *nome : {"frmPopup", "Image1", "lblMensagem", "lblTarefa"})
            QTest::newRow(nome) << QString::fromLatin1(nome);
    }
    void o_formulario_a_imagem_e_os_dois_textos_sao_clicaveis()
    {
        QFETCH(QString, onde);
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Subir(popup);
        QWidget *alvo = onde == "frmPopup"_L1 ? &popup : popup.findChild<QWidget *>(onde);
        bool aberto = false;
        Clicar(*alvo, [&](frmTarefas &cartao) {
            aberto = true;
            cartao.reject();
        });
        QVERIFY(aberto);
        QVERIFY(popup.TimerDown.Enabled());
    }

    void uma_tarefa_comprida_acaba_em_reticencias()
    {
        Com_Popup c;
        const frmPopup &popup = c.Abrir();
        popup.lblTarefa->setText(u"Telefonar ao dentista por causa da consulta "_s.repeated(5));
        QVERIFY(popup.lblTarefa->shownText().endsWith(u'\u2026'));
    }

    void a_data_e_a_hora_nao_sao_clicaveis()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Subir(popup);
        for (QLabel *surda : {popup.lblData, popup.lblHora})
            QTest::mouseClick(surda, Qt::LeftButton);
        QVERIFY(!popup.TimerDown.Enabled());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void imprimir_no_cartao_deixa_o_aviso_e_o_cartao_como_estavam()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Subir(popup);
        const QPoint lugar = popup.pos();
        Clicar(popup, [&](frmTarefas &cartao) {
            cartao.cmdImprimirTarefa->click();
            QCOMPARE(c.relatorio.Ditos(u"Action"_s).size(), 1);
            QVERIFY(cartao.isVisible() && popup.isVisible());
            QCOMPARE(popup.pos(), lugar);
            QVERIFY(!popup.TimerDown.Enabled());
            QVERIFY(!c.janela.isEnabled());
            cartao.reject();
        });
        QCOMPARE(c.Tarefas(), QStringList{u"Regar|2027-02-01|09:00:00|1"_s});
    }

    void o_cartao_le_a_tarefa_de_novo()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir(u"3"_s);
        c.s.Escrever(
            u"UPDATE TblTarefas SET Tarefa='Podar', Data='2027-01-31', Hora='08:30:00', IDRepeticao=4"_s);
        Clicar(popup, [&](frmTarefas &cartao) {
            QCOMPARE(cartao.txtIDTarefa->text(), QString::number(c.id));
            QCOMPARE(cartao.txtTarefa->toPlainText(), u"Podar"_s);
            QCOMPARE(cartao.lblData->text(), u"31-01-2027"_s);
            QCOMPARE(cartao.lblHora->text(), u"08:30"_s);
            QCOMPARE(cartao.txtIDRepeticao->text(), u"4"_s);
            QCOMPARE(cartao.lblRepeticao->text(), u"Mensalmente"_s);
            QCOMPARE(c.s.geral.de.Rs("cmdVerTarefa").State(), Recordset::Closed);
            QCOMPARE(c.s.geral.de.Rs("cmdVerRepeticao").State(), Recordset::Closed);
            cartao.reject();
        });
    }

    void uma_repeticao_sem_nome_ou_uma_hora_nula_abrem_o_cartao_na_mesma()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir(u"9"_s);
        c.s.Escrever(u"UPDATE TblTarefas SET Tarefa=NULL, Hora=NULL"_s);
        Clicar(popup, [](frmTarefas &cartao) {
            QCOMPARE(cartao.txtIDRepeticao->text(), u"9"_s);
            QVERIFY(cartao.lblRepeticao->text().isEmpty());
            QVERIFY(cartao.lblHora->text().isEmpty());
            cartao.cmdEliminar->click();
        });
        QVERIFY(c.Tarefas().isEmpty());
    }

    void uma_tarefa_que_ja_nao_existe_deixa_descer_o_aviso_sem_cartao()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        c.s.Escrever(u"DELETE FROM TblTarefas"_s);
        QTest::mouseClick(&popup, Qt::LeftButton);
        QVERIFY(popup.TimerDown.Enabled());
    }

    void um_erro_da_base_no_clique_mostra_se_e_o_aviso_espera()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        c.Perder(u"TblTarefas"_s);
        c.s.caixas.Espera_Erro(Failure::StoreError);
        QTest::mouseClick(&popup, Qt::LeftButton);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(popup.isVisible() && !popup.TimerDown.Enabled());
    }

    void um_clique_durante_a_subida_abre_o_cartao_e_a_subida_acaba_atras()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Disparar(popup.TimerUp);
        Clicar(popup, [&](frmTarefas &cartao) {
            QVERIFY(popup.TimerUp.Enabled());
            QTRY_VERIFY(!popup.TimerUp.Enabled());
            QCOMPARE(popup.Top(), Altura_Do_Ecra() - 1690);
            QVERIFY(cartao.isVisible());
            cartao.reject();
        });
        QVERIFY(popup.TimerDown.Enabled());
    }

    void um_cartao_despachado_antes_do_fim_da_subida_nao_prende_o_aviso()
    {
        Com_Popup c;
        QSignalSpy fim(&c.Abrir(), &RisingCard::Unloaded);
        Clicar(*c.popup, [](frmTarefas &cartao) { cartao.reject(); });
        QVERIFY(c.popup->TimerUp.Enabled());
        QTRY_COMPARE(fim.count(), 1);
        QVERIFY(c.janela.isEnabled());
    }

    void com_o_cartao_aberto_o_aviso_fica_no_lugar_e_so_depois_desce()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Subir(popup);
        Clicar(popup, [&](frmTarefas &cartao) {
            QTest::qWait(100);
            QVERIFY(popup.isVisible());
            QCOMPARE(popup.Top(), Altura_Do_Ecra() - 1690);
            QTest::mouseClick(&popup, Qt::LeftButton); // opens no second card
            QVERIFY(!popup.TimerDown.Enabled());
            cartao.reject();
        });
        QVERIFY(popup.TimerDown.Enabled());
    }

    void um_clique_durante_a_descida_nao_abre_nada()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        Subir(popup);
        popup.sink();
        QTest::mouseClick(&popup, Qt::LeftButton);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

    void fechar_o_cartao_de_fora_nao_confirma()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        popup.Fechar_Cartao(); // without a card nothing happens
        QVERIFY(!popup.TimerDown.Enabled());
        Clicar(popup, [&](frmTarefas &) { popup.Fechar_Cartao(); });
        QCOMPARE(c.Tarefas().size(), 1);
        QVERIFY(popup.TimerDown.Enabled());
    }

    void no_fim_da_descida_activa_main_liga_os_temporizadores_e_o_correio()
    {
        Com_Popup c;
        frmPopup &popup = c.Abrir();
        QSignalSpy correio(&c.s.geral.temporizadores, &Temporizadores::ReiniciarMail);
        bool activa_antes_do_correio = false;
        connect(&c.s.geral.temporizadores, &Temporizadores::ReiniciarMail, &popup,
                [&] { activa_antes_do_correio = c.janela.isEnabled() && c.Temporizadores_Ligados(); });
        Subir(popup);
        Clicar(popup, [](frmTarefas &cartao) { cartao.reject(); });
        QVERIFY(!c.janela.isEnabled());
        QVERIFY(c.Temporizadores_Parados());
        Descer(popup);
        QVERIFY(c.janela.isEnabled());
        QCOMPARE(correio.count(), 1);
        QVERIFY(activa_antes_do_correio);
        QVERIFY(!popup.isVisible());
    }
};

MORVEX_TESTE(TestFrmPopup)
#include "test_frmPopup.moc"
