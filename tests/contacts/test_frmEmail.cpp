// The choice between a contact's two addresses.
#include "contacts/frmEmail.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestFrmEmail : public QObject
{
    Q_OBJECT

    struct Escolha {
        Sistema s;
        frmEmail form{s.geral, s.plataforma, u"um@x.example"_s, u"dois@x.example"_s};
    };

private Q_SLOTS:
    void as_legendas_vem_dos_textos_e_da_ficha()
    {
        Escolha e;
        QCOMPARE(e.form.windowTitle(), e.s.Texto(55));
        QCOMPARE(e.form.lblLegenda1->text(), e.s.Texto(58));
        QCOMPARE(e.form.cmdCancelar->text(), e.s.Texto(43));
        QCOMPARE(e.form.OptionEmail1->text(), u"um@x.example"_s);
        QCOMPARE(e.form.OptionEmail2->text(), u"dois@x.example"_s);
    }

    void nada_esta_escolhido_e_o_ok_espera_por_uma_escolha()
    {
        Escolha e;
        e.form.show();
        QVERIFY(!e.form.OptionEmail1->isChecked() && !e.form.OptionEmail2->isChecked());
        QVERIFY(!e.form.cmdOk->isEnabled());
        e.form.OptionEmail2->click();
        QVERIFY(e.form.cmdOk->isEnabled());
    }

    void ok_escreve_ao_endereco_escolhido_data()
    {
        QTest::addColumn<int>("opcao");
        QTest::addColumn<QString>("alvo");
        QTest::newRow("primeiro") << 1 << u"mailto:um@x.example"_s;
        QTest::newRow("segundo") << 2 << u"mailto:dois@x.example"_s;
    }
    void ok_escreve_ao_endereco_escolhido()
    {
        QFETCH(int, opcao);
        QFETCH(QString, alvo);
        Escolha e;
        e.form.show();
        (opcao == 1 ? e.form.OptionEmail1 : e.form.OptionEmail2)->click();
        e.form.cmdOk->click();
        QCOMPARE(e.s.shell.abertos, QStringList{alvo});
        QVERIFY(!e.form.isVisible());
    }

    void um_e_comercial_no_endereco_aparece_e_chega_inteiro()
    {
        Sistema s;
        frmEmail form(s.geral, s.plataforma, u"rock&roll@x.example"_s, u"b@x.example"_s);
        QCOMPARE(form.OptionEmail1->text(),
                 u"rock&&roll@x.example"_s); // shown with one &, without a mnemonic
        form.OptionEmail1->click();
        form.cmdOk->click();
        QCOMPARE(s.shell.abertos, QStringList{u"mailto:rock&roll@x.example"_s});
    }

    void sair_sem_ok_nao_escreve_a_ninguem_data()
    {
        QTest::addColumn<bool>("pelo_botao");
        QTest::newRow("cancelar") << true;
        QTest::newRow("escape") << false;
    }
    void sair_sem_ok_nao_escreve_a_ninguem()
    {
        QFETCH(bool, pelo_botao);
        Escolha e;
        e.form.show();
        e.form.OptionEmail1->click();
        if (pelo_botao)
            e.form.cmdCancelar->click();
        else
            QTest::keyClick(&e.form, Qt::Key_Escape);
        QVERIFY(!e.form.isVisible());
        QVERIFY(e.s.shell.abertos.isEmpty());
    }

    void os_temporizadores_param_enquanto_esta_aberto()
    {
        Escolha e;
        QVERIFY(!e.s.geral.temporizadores.timerTarefas.Enabled());
        e.form.show();
        e.form.cmdCancelar->click();
        QVERIFY(e.s.geral.temporizadores.timerTarefas.Enabled());
    }

    void um_carregamento_que_falha_nao_deixa_o_alarme_parado()
    {
        Sistema s;
        s.Perder_Texto(43);
        VERIFICAR_FALHA(frmEmail(s.geral, s.plataforma, u"a@x.example"_s, u"b@x.example"_s),
                        Failure::InvalidUseOfNull);
        QVERIFY(s.geral.temporizadores.timerTarefas.Enabled() && s.geral.temporizadores.timerPonto.Enabled());
    }
};

MORVEX_TESTE(TestFrmEmail)
#include "test_frmEmail.moc"
