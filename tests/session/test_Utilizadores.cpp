// The menu entries over users: what they answer without users, and the forms that they open.
#include "session/frmDeleteUser.h"
#include "session/frmEditUser.h"
#include "session/frmNovoUser.h"
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
};

MORVEX_TESTE(TestUtilizadores)
#include "test_Utilizadores.moc"
