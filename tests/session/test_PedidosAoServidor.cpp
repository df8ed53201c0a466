// How many trips to a server each action costs: on a slow line they are what is waited for.
#include "contacts/frmAddEdit.h"
#include "contacts/frmProcurar.h"
#include "session/Arranque.h"
#include "session/frmOpcoes.h"
#include "testlib/ComJanela.h"
#include "testlib/Disparar.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Posto {
    Posto() { servidor.Servir(s.geral); }

    Sistema s;
    ServidorFalso servidor{s.Base()};
};

// The window as it stands after a start, with a contact to be shown.
struct PostoAberto : Posto {
    PostoAberto()
    {
        janela.Inicio().Executar();
        servidor.Esquecer();
    }
    ListaContactos &Lista() { return *janela.findChild<ListaContactos *>(); }

    Main janela{s.geral, s.plataforma};
};
} // namespace

class TestPedidosAoServidor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Settings, users, texts, groups, list, notes, birthdays.
    void o_arranque_faz_sete()
    {
        Posto p;
        p.s.geral.IdiomaActual.clear();
        Main janela(p.s.geral, p.s.plataforma);
        janela.Inicio().Executar();
        QVERIFY2(p.servidor.Comandos() <= 7, qPrintable(p.servidor.pedidos.join(u'\n')));
        QVERIFY(p.servidor.Comandos() >= 6);
        QCOMPARE(p.servidor.enderecos.size(), 1);
        QCOMPARE(janela.cmdNovo->text(), p.s.Texto(45));
    }

    void um_cartao_faz_um()
    {
        PostoAberto p;
        p.janela.ListaNomes->setListIndex(0);
        QCOMPARE(p.servidor.Comandos(), 1);
        QVERIFY(!p.janela.txtGrupo->text().isEmpty());
    }

    void a_lista_de_novo_faz_um()
    {
        PostoAberto p;
        p.s.Novo_Contacto({{u"Nome"_s, u"Outro"_s}});
        p.servidor.Esquecer();
        p.Lista().Carregar_Tabela();
        QCOMPARE(p.servidor.Comandos(), 1);
    }

    void o_editor_faz_tres()
    {
        PostoAberto p;
        p.janela.ListaNomes->setListIndex(0);
        p.servidor.Esquecer();
        p.s.geral.ModoContacto = u"Edit"_s;
        frmAddEdit editor(p.janela, p.s.geral, p.s.plataforma, p.Lista());
        QVERIFY(editor.Carregar());
        QVERIFY2(p.servidor.Comandos() <= 3, qPrintable(p.servidor.pedidos.join(u'\n')));
        QCOMPARE(editor.txtNome->text(), p.janela.ListaNomes->List(0));
    }

    void as_opcoes_fazem_um()
    {
        PostoAberto p;
        frmOpcoes opcoes(p.s.geral, p.s.plataforma, p.janela);
        QVERIFY2(p.servidor.Comandos() <= 1, qPrintable(p.servidor.pedidos.join(u'\n')));
        QCOMPARE(opcoes.lblIdioma->text(), p.s.Texto(240));
    }

    void a_procura_que_se_abre_nao_faz_nenhum()
    {
        PostoAberto p;
        frmProcurar procura(p.janela, p.s.geral, p.s.plataforma);
        procura.Abrir();
        QCOMPARE(p.servidor.pedidos, QStringList());
        QVERIFY(procura.Aberta());
    }

    void o_alarme_faz_um_por_minuto_e_nao_um_por_segundo()
    {
        PostoAberto p;
        for (int segundo = 0; segundo < 60; ++segundo) {
            p.s.relogio.Avancar_Segundos(1);
            Disparar(p.s.geral.temporizadores.timerTarefas);
        }
        QVERIFY2(p.servidor.Comandos() <= 2, qPrintable(p.servidor.pedidos.join(u'\n')));
        QVERIFY(p.servidor.Comandos() >= 1);
    }
};

MORVEX_TESTE(TestPedidosAoServidor)
#include "test_PedidosAoServidor.moc"
