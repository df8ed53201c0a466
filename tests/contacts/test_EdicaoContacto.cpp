// The ways to the editor of contacts: each opens it in its mode, and none without the right.
#include "contacts/EdicaoContacto.h"
#include "contacts/Editor.h"
#include "contacts/frmNovoGrupo.h"
#include "controls/Controls.h"
#include "testlib/Teste.h"

class TestEdicaoContacto : public QObject
{
    Q_OBJECT

    using Caminho = std::function<void(Editor &)>;

    static void Linha(const char *caso, const QString &modo, const Caminho &caminho)
    {
        QTest::newRow(caso) << modo << caminho;
    }
    static Caminho Botao(const QString &nome)
    {
        return [nome](Editor &e) { control<QAbstractButton>(e.janela, nome).click(); };
    }
    static Caminho Comando(const QString &nome)
    {
        return [nome](Editor &e) { control<QAction>(e.janela, nome).trigger(); };
    }
    static void F2(Editor &e) { QTest::keyClick(&e.janela, Qt::Key_F2); }
    static void Duplo_Clique(Editor &e)
    {
        ListBox &nomes = *e.janela.ListaNomes;
        const QPoint lugar = nomes.visualRect(nomes.model()->index(nomes.ListIndex(), 0)).center();
        QTest::mouseClick(nomes.viewport(), Qt::LeftButton, {}, lugar);
        QTest::mouseDClick(nomes.viewport(), Qt::LeftButton, {}, lugar);
    }
    static void Caminhos()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<Caminho>("caminho");
        for (const auto &[caso, nome] :
             {std::pair{"NovoContacto", u"NovoContacto"_s}, {"novo_contacto", u"novo_contacto"_s}})
            Linha(caso, u"Add"_s, Comando(nome));
        Linha("cmdNovo", u"Add"_s, Botao(u"cmdNovo"_s));
        Linha("cmdEditar", u"Edit"_s, Botao(u"cmdEditar"_s));
        Linha("EditarContacto", u"Edit"_s, Comando(u"EditarContacto"_s));
        Linha("editar_contacto", u"Edit"_s, Comando(u"editar_contacto"_s));
        Linha("RightClickEditar", u"Edit"_s, Comando(u"RightClickEditar"_s));
        Linha("F2", u"Edit"_s, F2);
        Linha("duplo clique", u"Edit"_s, Duplo_Clique);
    }

    // The main window on the screen with one of two contacts on the card.
    static void Preparar(Editor &e)
    {
        e.janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&e.janela));
        e.s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}});
        e.Mostrar({{u"Nome"_s, u"Rui"_s}});
        e.janela.ListaNomes->setFocus();
    }

    // Does it, and closes a form that opens all the same: its opening fails the test.
    static void Tentar(const Caminho &caminho, Editor &e)
    {
        QObject guarda;
        QTimer::singleShot(0, &guarda, [] {
            QWidget *aberto = QApplication::activeModalWidget();
            if (aberto == nullptr) return;
            QTest::qFail("a form opened", __FILE__, __LINE__);
            aberto->close();
        });
        caminho(e);
    }

private Q_SLOTS:
    void cada_caminho_abre_o_editor_uma_vez_no_seu_modo_data() { Caminhos(); }
    void cada_caminho_abre_o_editor_uma_vez_no_seu_modo()
    {
        QFETCH(QString, modo);
        QFETCH(Caminho, caminho);
        Editor e;
        Preparar(e);
        int vezes = 0;
        const auto editar = [&](frmAddEdit &form) {
            ++vezes;
            QCOMPARE(e.s.geral.ModoContacto, modo);
            QCOMPARE(form.windowTitle(), e.s.Texto(modo == u"Add"_s ? 26 : 53));
            QCOMPARE(form.txtNome->text(), modo == u"Add"_s ? QString() : u"Rui"_s);
        };
        Editor::Abrir([&] { caminho(e); }, editar);
        QCOMPARE(vezes, 1);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(e.janela.isEnabled());
    }

    void depois_do_editor_o_teclado_volta_onde_estava_data()
    {
        QTest::addColumn<bool>("gravar");
        QTest::newRow("ok") << true;
        QTest::newRow("cancelar") << false;
    }
    void depois_do_editor_o_teclado_volta_onde_estava()
    {
        QFETCH(bool, gravar);
        Editor e;
        Preparar(e);
        const auto sair = [&](frmAddEdit &form) {
            QVERIFY(QTest::qWaitForWindowActive(&form));
            (gravar ? form.cmdOk : form.cmdCancelar)->click();
        };
        Editor::Abrir([&] { F2(e); }, sair);
        QCOMPARE(e.janela.focusWidget(), e.janela.ListaNomes);
        QCOMPARE(e.Escolhido(), u"Rui"_s);
        QTest::keyClick(e.janela.ListaNomes, Qt::Key_Up);
        QCOMPARE(e.Escolhido(), u"Ana"_s);
    }

    void sem_o_direito_cada_caminho_recusa_e_nada_muda_data() { Caminhos(); }
    void sem_o_direito_cada_caminho_recusa_e_nada_muda()
    {
        QFETCH(QString, modo);
        QFETCH(Caminho, caminho);
        Editor e;
        Preparar(e);
        Sessao &sessao = e.s.geral.SessaoActual;
        (modo == u"Add"_s ? sessao.Adicionar : sessao.Editar) = false;
        e.s.geral.ModoContacto = u"antes"_s;
        QSignalSpy correio(&e.s.geral.temporizadores, &Temporizadores::IniciarMail);
        const QStringList antes = e.s.Linhas(u"SELECT * FROM TblLista"_s);
        e.s.caixas.Espera(e.s.Texto(102), 16, u"Morvex"_s);
        Tentar(caminho, e);
        QVERIFY(e.s.caixas.Todas_Vistas());
        QCOMPARE(e.s.geral.ModoContacto, u"antes"_s);
        QCOMPARE(e.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
        QCOMPARE(e.Escolhido(), u"Rui"_s);
        QCOMPARE(correio.size(), 0); // no form was opened and closed
        QVERIFY(e.janela.isEnabled());
    }

    void um_direito_nao_vale_pelo_outro()
    {
        Editor e;
        Preparar(e);
        e.s.geral.SessaoActual.Editar = false;
        e.Novo([](frmAddEdit &) {});
        e.s.geral.SessaoActual.Editar = true;
        e.s.geral.SessaoActual.Adicionar = false;
        e.Editar([](frmAddEdit &) {});
    }

    void sem_contacto_no_cartao_nao_se_edita_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<Caminho>("caminho");
        Linha("F2", u"Edit"_s, F2);
        Linha("cmdEditar", u"Edit"_s, Botao(u"cmdEditar"_s));
        Linha("RightClickEditar", u"Edit"_s, Comando(u"RightClickEditar"_s));
    }
    void sem_contacto_no_cartao_nao_se_edita()
    {
        QFETCH(Caminho, caminho);
        Editor e;
        Preparar(e);
        e.lista.Carregar_Tabela();
        Tentar(caminho, e);
        QVERIFY(e.s.geral.ModoContacto.isEmpty());
    }

    void novo_vale_com_a_lista_vazia()
    {
        Editor e;
        QVERIFY(e.janela.cmdNovo->isEnabled());
        QVERIFY(e.janela.NovoContacto->isEnabled());
        QVERIFY(e.janela.novo_contacto->isEnabled());
        e.Novo([](frmAddEdit &) {});
    }

    void sem_grupos_abre_se_o_formulario_de_um_novo()
    {
        Editor e;
        e.janela.ComboGrupos->Clear();
        e.s.caixas.Espera(u"Nehum grupo criado"_s, 48, e.s.Texto(26));
        bool abriu = false;
        accoes::Quando_Abrir<frmNovoGrupo>([&](frmNovoGrupo &form) {
            abriu = true;
            form.close();
        });
        e.janela.cmdNovo->click();
        QVERIFY(abriu);
        QVERIFY(e.janela.isEnabled());
    }
};

MORVEX_TESTE(TestEdicaoContacto)
#include "test_EdicaoContacto.moc"
