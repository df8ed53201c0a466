// The window while the server is away: one quiet line, what is shown stays, what was typed stays.
#include "contacts/DesfazerEliminacao.h"
#include "contacts/frmAddEdit.h"
#include "contacts/frmProcurar.h"
#include "interchange/Intercambio.h"
#include "memos/frmMemo.h"
#include "reminders/frmPopup.h"
#include "session/Arranque.h"
#include "session/AvisosDosPostos.h"
#include "session/frmOpcoes.h"
#include "session/Main.h"
#include "testlib/Accoes.h"
#include "testlib/Disparar.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QAction>

using namespace Qt::StringLiterals;

namespace
{
struct Posto {
    Posto()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        for (const QString &nome : {u"Ana"_s, u"Bia"_s, u"Cid"_s})
            ids << s.Novo_Contacto({{u"Nome"_s, nome}, {u"Website"_s, nome + u".pt"_s}});
        servidor.Servir(s.geral);
        janela.Inicio().Executar();
        janela.findChild<AvisosDosPostos *>()->Comecar();
        janela.show();
        janela.ListaNomes->setListIndex(0);
    }

    // As a person would, so that what nobody catches reaches the application.
    void Clicar_Na_Linha(int linha)
    {
        ListBox &lista = *janela.ListaNomes;
        QTest::mouseClick(lista.viewport(), Qt::LeftButton, {},
                          lista.visualRect(lista.model()->index(linha, 0)).center());
    }

    Sistema s;
    ServidorFalso servidor{s.Base()};
    QList<int> ids;
    Main janela{s.geral, s.plataforma};
};
} // namespace

class TestSemServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void uma_linha_calada_diz_o_ate_o_servidor_voltar()
    {
        Posto p;
        QVERIFY(!p.janela.lblServidor->isVisible());
        p.servidor.Perder();
        QVERIFY(p.janela.lblServidor->isVisible());
        QCOMPARE(p.janela.lblServidor->text(), u"Sem ligação ao servidor"_s);
        p.servidor.Voltar();
        QVERIFY(!p.janela.lblServidor->isVisible());
    }

    // No box came: one that nobody announced would fail the test.
    void o_cartao_fica_o_que_era_e_pertence_ao_mesmo_contacto()
    {
        Posto p;
        p.servidor.Perder();
        p.Clicar_Na_Linha(2);
        QCOMPARE(p.janela.txtWebsite->text(), u"Ana.pt"_s);
        QCOMPARE(p.s.geral.IDContacto, qint16(p.ids[0]));
        QVERIFY(p.janela.cmdEditar->isEnabled());
        p.servidor.Voltar();
        Disparar(p.janela.findChild<AvisosDosPostos *>()->TimerRecolha);
        QCOMPARE(p.janela.txtWebsite->text(), u"Cid.pt"_s); // the row that is selected
        QCOMPARE(p.s.geral.IDContacto, qint16(p.ids[2]));
    }

    void outro_grupo_nao_esvazia_a_lista()
    {
        Posto p;
        p.servidor.Perder();
        p.janela.ComboGrupos->setFocus();
        QTest::keyClick(p.janela.ComboGrupos, Qt::Key_Down);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 3);
        QCOMPARE(p.janela.txtWebsite->text(), u"Ana.pt"_s);
    }

    void o_eliminado_nao_fica_a_vista_quando_a_lista_ja_nao_se_deixa_ler()
    {
        Posto p;
        QObject::connect(p.janela.findChild<DesfazerEliminacao *>(), &DesfazerEliminacao::Eliminado, &p.janela,
                         [&] { p.servidor.Perder(); });
        p.s.caixas.Espera_Qualquer(box::question | box::yesNo, p.janela.windowTitle(), answer::yes);
        QTest::mouseClick(p.janela.cmdEliminar, Qt::LeftButton);
        QVERIFY(p.s.caixas.Todas_Vistas());
        QCOMPARE(p.janela.ListaNomes->ListCount(), 0);
        QVERIFY(!p.janela.cmdEliminar->isEnabled());
        p.servidor.Voltar();
        Disparar(p.janela.findChild<AvisosDosPostos *>()->TimerRecolha);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 2);
    }

    void o_fim_de_uma_importacao_nao_esvazia_a_lista()
    {
        Posto p;
        p.servidor.Perder();
        VERIFICAR_FALHA(Q_EMIT p.janela.findChild<Intercambio *>()->ContactosMudados(), Failure::StoreError);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 3);
        QCOMPARE(p.janela.txtWebsite->text(), u"Ana.pt"_s);
    }

    void a_procura_cala_se()
    {
        Posto p;
        frmProcurar procura(p.janela, p.s.geral, p.s.plataforma);
        procura.Abrir();
        procura.txtProcurar->setText(u"Bia"_s);
        p.servidor.Perder();
        QTest::mouseClick(procura.cmdProcurar, Qt::LeftButton);
        QCOMPARE(p.janela.ListaNomes->ListCount(), 3);
        p.servidor.Voltar();
        QTest::mouseClick(procura.cmdProcurar, Qt::LeftButton);
        QCOMPARE(procura.ListaNomes->ListCount(), 1);
    }

    void o_editor_fica_aberto_com_o_que_se_escreveu()
    {
        Posto p;
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"Ana Maria"_s);
            p.servidor.Perder();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            QVERIFY(editor.isVisible());
            QVERIFY(p.s.caixas.Todas_Vistas()); // in front of the form it is told
            QCOMPARE(editor.txtNome->text(), u"Ana Maria"_s);
            p.servidor.Voltar();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            QVERIFY(!editor.isVisible());
        });
        p.janela.cmdEditar->click();
        QCOMPARE(p.janela.ListaNomes->List(0), u"Ana Maria"_s);
    }

    // The answer alone was lost: pressing OK once more must not make a second contact.
    void um_contacto_novo_que_ja_tinha_chegado_nao_fica_em_dobro()
    {
        Posto p;
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"Eva"_s);
            p.servidor.Perder_A_Proxima_Resposta();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            QVERIFY(editor.isVisible());
            p.servidor.Voltar();
            editor.txtWebsite->setText(u"eva.pt"_s); // meanwhile
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            QVERIFY(!editor.isVisible());
        });
        p.janela.cmdNovo->click();
        QCOMPARE(p.s.Linhas(u"SELECT Nome, Website FROM TblLista WHERE Nome='Eva'"_s),
                 QStringList{u"Eva|eva.pt"_s});
        QCOMPARE(p.janela.txtWebsite->text(), u"eva.pt"_s);
    }

    void um_contacto_novo_que_nao_chegou_escreve_se()
    {
        Posto p;
        p.s.caixas.Espera_Erro(Failure::StoreError);
        accoes::Quando_Abrir<frmAddEdit>([&](frmAddEdit &editor) {
            editor.txtNome->setText(u"Eva"_s);
            p.servidor.Perder();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
            p.servidor.Voltar();
            QTest::mouseClick(editor.cmdOk, Qt::LeftButton);
        });
        p.janela.cmdNovo->click();
        QCOMPARE(p.s.Linhas(u"SELECT Nome FROM TblLista WHERE Nome='Eva'"_s), QStringList{u"Eva"_s});
    }

    void um_editor_que_nao_se_le_nao_abre()
    {
        Posto p;
        p.servidor.Perder();
        QTest::mouseClick(p.janela.cmdEditar, Qt::LeftButton);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(p.janela.isEnabled());
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
    }

    void as_opcoes_nao_terminam_o_processo()
    {
        Posto p;
        p.servidor.Perder();
        QVERIFY(!skipFailure([&] { frmOpcoes opcoes(p.s.geral, p.s.plataforma, p.janela); }));
        QVERIFY(!p.s.processo.Terminou());
        QVERIFY(p.s.geral.temporizadores.timerTarefas.Enabled());
    }

    void o_alarme_toca_pelo_que_ja_leu()
    {
        Posto p;
        p.s.Escrever(u"INSERT INTO TblTarefas (Tarefa, Data, Hora, Utilizador, IDRepeticao) VALUES "
                     "('Ligar ao banco', '2027-02-01', '09:30:00', 0, 1)"_s);
        Disparar(p.s.geral.temporizadores.timerTarefas);
        p.servidor.Perder();
        p.s.relogio.Avancar_Minutos(29);
        Disparar(p.s.geral.temporizadores.timerTarefas);
        QVERIFY(Popup() == nullptr);
        p.s.relogio.Avancar_Minutos(1);
        Disparar(p.s.geral.temporizadores.timerTarefas);
        QVERIFY(Popup() != nullptr);
        QCOMPARE(Popup()->lblTarefa->text(), u"Ligar ao banco"_s);
    }

    void um_memo_por_guardar_guarda_se_quando_o_servidor_volta()
    {
        Posto p;
        p.s.dialogos.textos << u"Compras"_s;
        p.janela.Memo->trigger();
        frmMemo *nota = Nota(u"Compras"_s);
        QVERIFY(nota != nullptr);
        nota->cmdGuardar->click();
        p.servidor.Perder();
        nota->txtMemo->setPlainText(u"leite"_s);
        QTest::mouseClick(nota->cmdGuardar, Qt::LeftButton); // no box
        QVERIFY(nota->isVisible());
        QVERIFY(nota->cmdPorGuardar->isVisible());
        p.servidor.Voltar();
        QVERIFY(!nota->cmdPorGuardar->isVisible());
        QCOMPARE(p.s.Linhas(u"SELECT Descricao FROM TblMemos WHERE Titulo='Compras'"_s),
                 QStringList{u"leite"_s});
    }

private:
    static frmPopup *Popup()
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *popup = qobject_cast<frmPopup *>(janela); popup != nullptr && popup->isVisible())
                return popup;
        return nullptr;
    }
    static frmMemo *Nota(const QString &titulo)
    {
        for (QWidget *janela : QApplication::topLevelWidgets())
            if (auto *nota = qobject_cast<frmMemo *>(janela);
                nota != nullptr && nota->isVisible() && nota->lblTitle->text() == titulo)
                return nota;
        return nullptr;
    }
};

MORVEX_TESTE(TestSemServidor)
#include "test_SemServidor.moc"
