// The menu entries over users: what they answer without users, and the forms that they open.
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmNovoUser.h"
#include "session/Titulo.h"
#include "session/Utilizadores.h"
#include "testlib/Accoes.h"
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestUtilizadores : public QObject
{
    Q_OBJECT

    template<class Formulario> static void Verificar_Formulario(ComJanela &c, QAction &entrada)
    {
        bool veio = false;
        accoes::Quando_Abrir<Formulario>([&](Formulario &form) {
            veio = true;
            QVERIFY(!c.janela.isEnabled());
            QVERIFY(form.isEnabled());
            form.cmdCancelar->click();
        });
        entrada.trigger();
        QVERIFY(veio);
        QVERIFY(c.janela.isEnabled());
        QCOMPARE(c.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
    }

    static void As_Duas_Entradas()
    {
        QTest::addColumn<QString>("entrada");
        QTest::newRow("editar") << u"EditarUtilizadores"_s;
        QTest::newRow("eliminar") << u"EliminarUtilizadores"_s;
    }

    // The entry answers with that box and no form comes.
    static void Ouvir(ComJanela &c, int texto)
    {
        QFETCH(QString, entrada);
        c.janela.setWindowTitle(u"Morvex 1.0 "_s);
        c.s.caixas.Espera(c.s.Texto(texto), 16, u"Morvex"_s);
        c.janela.findChild<QAction *>(entrada)->trigger();
        QCOMPARE(c.s.geral.de.Rs("cmdVerUsers").State(), Recordset::Closed);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QVERIFY(c.janela.isEnabled());
    }

private Q_SLOTS:
    void sem_utilizadores_nao_ha_quem_escolher_data() { As_Duas_Entradas(); }
    void sem_utilizadores_nao_ha_quem_escolher()
    {
        ComJanela c;
        Ouvir(c, 106);
    }

    void sem_direito_nem_se_pergunta_se_ha_utilizadores_data() { As_Duas_Entradas(); }
    void sem_direito_nem_se_pergunta_se_ha_utilizadores()
    {
        ComJanela c;
        c.s.geral.SessaoActual.Utilizadores = false;
        Ouvir(c, 102);
    }

    void cada_entrada_abre_o_seu_formulario_diante_da_janela_desactivada()
    {
        ComJanela c;
        Verificar_Formulario<frmNovoUser>(c, *c.janela.CriarUtilizadores);
        c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        Verificar_Formulario<frmEditUser>(c, *c.janela.EditarUtilizadores);
        Verificar_Formulario<frmDeleteUser>(c, *c.janela.EliminarUtilizadores);
    }

    void o_que_outro_posto_muda_no_utilizador_vale_na_sessao_e_no_titulo()
    {
        ComJanela c;
        const int id = c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        c.s.Entrar(u"Ana"_s);
        ::Utilizadores utilizadores(c.janela, c.s.geral, c.s.plataforma);
        const QSignalSpy eliminado(&utilizadores, &::Utilizadores::Eliminado);
        c.s.Escrever(u"UPDATE TblUsers SET Utilizador='Ana Maria', Editar=0 WHERE ID=%1"_s.arg(id));
        utilizadores.Seguir();
        QCOMPARE(c.s.geral.SessaoActual.Utilizador, u"Ana Maria"_s);
        QVERIFY(!c.s.geral.SessaoActual.Editar);
        QVERIFY(c.janela.windowTitle().contains(u"Ana Maria"_s));
        QCOMPARE(c.janela.windowTitle(), Titulo(c.s.geral));
        QCOMPARE(c.s.geral.de.Rs("cmdEditarUser").State(), Recordset::Closed);
        QCOMPARE(eliminado.count(), 0);
        c.s.Escrever(u"DELETE FROM TblUsers"_s);
        utilizadores.Seguir();
        QCOMPARE(eliminado.count(), 1);
    }

    // Nobody has logged in, or the first user was made in this session, which goes on as the one of nobody's things.
    void uma_sessao_sem_linha_sua_nao_tem_nenhuma_a_perder_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("id");
        QTest::newRow("nobody") << QString() << u"0"_s;
        QTest::newRow("the first user") << u"Admin"_s << u"0"_s;
        QTest::newRow("the last one is gone") << QString() << u"7"_s;
    }
    void uma_sessao_sem_linha_sua_nao_tem_nenhuma_a_perder()
    {
        QFETCH(QString, nome);
        QFETCH(QString, id);
        ComJanela c;
        c.s.geral.SessaoActual.Utilizador = nome;
        c.s.geral.SessaoActual.IdUtilizador = id;
        ::Utilizadores utilizadores(c.janela, c.s.geral, c.s.plataforma);
        const QSignalSpy eliminado(&utilizadores, &::Utilizadores::Eliminado);
        utilizadores.Seguir();
        QCOMPARE(eliminado.count(), 0);
        QCOMPARE(c.s.geral.SessaoActual.Utilizador, nome);
    }
};

MORVEX_TESTE(TestUtilizadores)
#include "test_Utilizadores.moc"
