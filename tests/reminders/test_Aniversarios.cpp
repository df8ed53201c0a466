// When the list of birthdays appears by itself, and what each of its three callers shows.
#include "reminders/Aniversarios.h"
#include "reminders/ComTarefas.h"
#include "reminders/frmAniversarios.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComAniversarios : ComTarefas {
    ComAniversarios()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.geral.AvisoAniversarios = u"0"_s;
        s.geral.DiasAniversarios = 7;
        Agora(u"11-05-2027 00:00"_s);
    }
    void Contacto(const QString &Nome, const QString &Dia)
    {
        s.Novo_Contacto({{u"Nome"_s, Nome}, {u"Dia"_s, Dia}, {u"Mes"_s, u"5"_s}});
    }
    void Tique() { Disparar(s.geral.temporizadores.timerAniversarios); }

    frmAniversarios *Lista() const
    {
        auto *form = Aberto<frmAniversarios>();
        return form != nullptr && form->isVisible() ? form : nullptr;
    }

    Aniversarios *aniversarios = new Aniversarios(janela, s.geral, s.plataforma);
};

int Linhas_Da_Lista(const frmAniversarios *form) { return form->ListViewAniversarios->topLevelItemCount(); }
} // namespace

class TestAniversarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_meia_noite_so_com_aviso_0_data()
    {
        QTest::addColumn<QString>("aviso");
        QTest::addColumn<bool>("mostra");
        QTest::newRow("ao iniciar e à meia-noite") << u"0"_s << true;
        QTest::newRow("só ao iniciar") << u"1"_s << false;
        QTest::newRow("nunca") << u"2"_s << false;
        QTest::newRow("sem escolha") << QString() << false;
    }
    void a_meia_noite_so_com_aviso_0()
    {
        QFETCH(QString, aviso);
        QFETCH(bool, mostra);
        ComAniversarios c;
        c.s.geral.AvisoAniversarios = aviso;
        c.Contacto(u"Ana"_s, u"11"_s);
        c.Tique();
        QCOMPARE(c.Lista() != nullptr, mostra);
    }

    void so_no_primeiro_minuto_do_dia()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"11"_s);
        for (const auto &momento : {u"10-05-2027 23:59"_s, u"11-05-2027 00:01"_s, u"11-05-2027 12:00"_s}) {
            c.Agora(momento);
            c.Tique();
            QVERIFY(c.Lista() == nullptr);
        }
        c.Agora(u"11-05-2027 00:00"_s);
        c.s.relogio.Avancar_Segundos(59);
        c.Tique();
        QVERIFY(c.Lista() != nullptr);
        QVERIFY(!c.Lista()->isModal());
    }

    void um_segundo_tique_enche_a_mesma_janela()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"11"_s);
        c.Tique();
        const frmAniversarios *lista = c.Lista();
        c.Contacto(u"Rui"_s, u"12"_s);
        c.Tique();
        QCOMPARE(c.Lista(), lista);
        QCOMPARE(Linhas_Da_Lista(lista), 2);
    }

    void uma_lista_vazia_nao_aparece_e_nao_para_o_alarme()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"25"_s);
        c.Tique();
        QVERIFY(c.Lista() == nullptr);
        QVERIFY(c.Temporizadores_Ligados());
    }

    void um_erro_da_base_a_meia_noite_nao_se_mostra()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"11"_s);
        c.Perder(u"TblLista"_s);
        c.Tique();
        QVERIFY(c.Lista() == nullptr);
        c.Recuperar(u"TblLista"_s);
        c.Tique();
        QVERIFY(c.Lista() != nullptr);
    }

    // The form loads and then has no word for "of": it stays out of sight.
    void uma_lista_que_nao_se_enche_nao_deixa_o_alarme_parado_data()
    {
        QTest::addColumn<bool>("ao_iniciar");
        QTest::newRow("à meia-noite") << false;
        QTest::newRow("ao iniciar") << true;
    }
    void uma_lista_que_nao_se_enche_nao_deixa_o_alarme_parado()
    {
        QFETCH(bool, ao_iniciar);
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"11"_s);
        c.s.Perder_Texto(176);
        if (ao_iniciar)
            VERIFICAR_FALHA(c.aniversarios->Mostrar_Ao_Iniciar(), Failure::InvalidUseOfNull);
        else
            c.Tique();
        QVERIFY(c.Lista() == nullptr);
        QVERIFY(c.Temporizadores_Ligados());
    }

    void o_menu_mostra_sempre_mesmo_vazia_e_com_aviso_2()
    {
        ComAniversarios c;
        c.s.geral.AvisoAniversarios = u"2"_s;
        c.aniversarios->Mostrar();
        QCOMPARE(Linhas_Da_Lista(c.Lista()), 0);
        QVERIFY(!c.Lista()->isModal());
        QVERIFY(c.janela.isEnabled());
        c.Contacto(u"Ana"_s, u"11"_s);
        c.aniversarios->Mostrar();
        QCOMPARE(Linhas_Da_Lista(c.Lista()), 1);
        QVERIFY(c.Lista()->ListViewAniversarios->selectedItems().isEmpty());
        QCOMPARE(c.s.geral.de.Rs("cmdListarAniversarios").State(), Recordset::Closed);
    }

    void o_menu_esvazia_o_que_ja_passou()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"11"_s);
        c.aniversarios->Mostrar();
        c.Agora(u"12-05-2027 10:00"_s);
        c.aniversarios->Mostrar();
        QCOMPARE(Linhas_Da_Lista(c.Lista()), 0);
    }

    void o_menu_traz_para_a_frente_a_que_ja_esta_aberta()
    {
        ComAniversarios c;
        c.aniversarios->Mostrar();
        auto &form = *Aberto<frmAniversarios>();
        QWidget outra;
        outra.show();
        outra.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&outra));
        const Subidas subidas(form);
        c.aniversarios->Mostrar();
        QCOMPARE(subidas.vezes, 1);
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QCOMPARE(Aberto<frmAniversarios>(), &form);
        form.close();
    }

    void depois_de_fechada_nasce_outra()
    {
        ComAniversarios c;
        c.aniversarios->Mostrar();
        c.Lista()->cmdFechar->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(Aberto<frmAniversarios>() == nullptr);
        QVERIFY(c.Temporizadores_Ligados());
        c.aniversarios->Mostrar();
        QVERIFY(c.Lista() != nullptr);
        QVERIFY(c.Temporizadores_Parados());
    }

    void ao_iniciar_e_modal_com_a_primeira_escolhida()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"12"_s);
        c.Contacto(u"Rui"_s, u"11"_s);
        int linhas = 0;
        accoes::Quando_Abrir<frmAniversarios>([&](frmAniversarios &form) {
            linhas = Linhas_Da_Lista(&form);
            QVERIFY(form.isModal());
            QCOMPARE(form.ListViewAniversarios->selectedItems().value(0)->text(0), u"Ana"_s);
            QVERIFY(!form.Thumb->pixmap(Qt::ReturnByValue).isNull());
            form.cmdFechar->click();
        });
        c.aniversarios->Mostrar_Ao_Iniciar();
        QCOMPARE(linhas, 2);
    }

    void ao_iniciar_sem_aniversarios_nada_se_mostra()
    {
        ComAniversarios c;
        c.Contacto(u"Ana"_s, u"18"_s);
        c.aniversarios->Mostrar_Ao_Iniciar();
        QVERIFY(Aberto<frmAniversarios>() == nullptr);
    }
};

MORVEX_TESTE(TestAniversarios)
#include "test_Aniversarios.moc"
