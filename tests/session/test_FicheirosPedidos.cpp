// Files that the program is started with: what each kind opens, and what they wait for.
#include "cards/frmCampos.h"
#include "cards/frmImportarContactos.h"
#include "interchange/FicheirosPedidos.h"
#include "interchange/frmImportar.h"
#include "interchange/frmImportar2.h"
#include "interchange/Intercambio.h"
#include "session/frmLogin.h"
#include "session/frmSobre.h"
#include "session/Main.h"
#include "session/SystemTray.h"
#include "testlib/Accoes.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;

namespace
{
constexpr int espera = 550; // ms, more than the queue lets pass before it opens a form

void Entrar(const frmLogin &login)
{
    if (login.txtUser->isEnabled()) login.txtUser->setText(u"Ana"_s);
    login.txtPass->setText(u"x"_s);
    login.cmdOk->click();
}

// A program that was started with those files, by a user who wants the password in the tray or by none.
struct Programa {
    explicit Programa(const QStringList &ficheiros = {}) : janela(s.geral, s.plataforma)
    {
        janela.Abrir_Depois(ficheiros);
    }
    void Com_Utilizador() { s.Novo_Utilizador(u"Ana"_s, u"x"_s, u"11111"_s, true); }

    QString Cartao() const
    {
        QFile ficheiro(s.Ficheiro(u"Ana.vcf"_s));
        if (!ficheiro.open(QIODevice::WriteOnly)) QTest::qFail("no card was written", __FILE__, __LINE__);
        ficheiro.write("BEGIN:VCARD\nFN:Ana Nova\nEND:VCARD\n");
        return ficheiro.fileName();
    }

    // Notes the path of each import form that comes, and closes it.
    void Anotar(int quantos)
    {
        if (quantos > 0)
            Quando_Abrir<frmImportar>([this, quantos](frmImportar &form) {
                caminhos << form.txtCaminho->text();
                Anotar(quantos - 1);
                form.cmdCancelar->click();
            });
    }

    Sistema s;
    Main janela;
    QStringList caminhos;
};

// Whether no form comes for as long as the queue would need to open one. One that comes is closed.
bool Nada_Abre()
{
    bool passou = false;
    bool abriu = false;
    QTimer::singleShot(espera, qApp, [&] {
        QWidget *form = QApplication::activeModalWidget();
        passou = true;
        abriu = form != nullptr;
        if (abriu) form->close();
    });
    while (!passou)
        QTest::qWait(10);
    return !abriu;
}
} // namespace

class TestFicheirosPedidos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What becomes of a file

    void uma_base_ou_um_texto_abre_a_importacao_ja_preenchida_data()
    {
        QTest::addColumn<QString>("caminho");
        QTest::newRow("database") << u"/casa/antiga.mdb"_s;
        QTest::newRow("text") << u"/casa/antiga.dat"_s;
        QTest::newRow("capital letters") << u"/casa/ANTIGA.MDB"_s;
    }
    void uma_base_ou_um_texto_abre_a_importacao_ja_preenchida()
    {
        QFETCH(QString, caminho);
        Programa p;
        p.janela.Carregar();
        bool veio = false;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            veio = true;
            QCOMPARE(form.txtCaminho->text(), caminho);
            QVERIFY(form.cmdSeguinte->isEnabled());
            QCOMPARE(form.windowTitle(), p.s.Texto(82));
            QVERIFY(!p.janela.isEnabled());
            QCOMPARE(p.janela.findChild<Intercambio *>()->FileName, caminho);
            form.cmdCancelar->click();
        });
        p.janela.findChild<FicheirosPedidos *>()->Abrir(caminho);
        QVERIFY(veio);
        QVERIFY(p.janela.isEnabled());
    }

    void nada_se_importa_sem_o_formulario_confirmar()
    {
        Programa p;
        const QString caminho = p.s.Ficheiro(u"normal.dat"_s);
        QVERIFY(QFile::copy(QFINDTESTDATA("fixtures/dat/normal.dat"), caminho));
        QFile::setPermissions(caminho, QFile::ReadOwner | QFile::WriteOwner);
        p.janela.Carregar();
        const QStringList antes = p.s.Linhas(u"SELECT * FROM TblLista"_s);
        Quando_Abrir<frmImportar>([](frmImportar &form) {
            Quando_Abrir<frmImportar2>([](frmImportar2 &segunda) { segunda.cmdCancelar->click(); });
            form.cmdSeguinte->click();
        });
        p.janela.findChild<FicheirosPedidos *>()->Abrir(caminho);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
        Quando_Abrir<frmImportar>([](frmImportar &form) {
            Quando_Abrir<frmImportar2>([](frmImportar2 &segunda) { segunda.cmdSeguinte->click(); });
            form.cmdSeguinte->click();
        });
        p.janela.findChild<FicheirosPedidos *>()->Abrir(caminho);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblLista"_s).size(), antes.size() + 50);
    }

    void um_cartao_abre_a_importacao_de_contactos_e_nada_se_escreve_sem_ela()
    {
        Programa p;
        p.janela.Carregar();
        const QString caminho = p.Cartao();
        const QStringList antes = p.s.Linhas(u"SELECT * FROM TblLista"_s);
        bool veio = false;
        Quando_Abrir<frmImportarContactos>([&](frmImportarContactos &form) {
            veio = true;
            QCOMPARE(form.txtCaminho->text(), QDir::toNativeSeparators(caminho));
            QTRY_COMPARE(form.Lista->model()->rowCount(), 1);
            form.cmdCancelar->click();
        });
        p.janela.findChild<FicheirosPedidos *>()->Abrir(caminho);
        QVERIFY(veio);
        QCOMPARE(p.s.Linhas(u"SELECT * FROM TblLista"_s), antes);
    }

    void uma_tabela_abre_os_campos_antes_da_importacao()
    {
        Programa p;
        p.janela.Carregar();
        const QString caminho = p.s.Ficheiro(u"Ana.CSV"_s);
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write("Name,E-mail\nAna,ana@exemplo.pt\n");
        ficheiro.close();
        int linhas = 0;
        Quando_Abrir<frmCampos>([&](frmCampos &campos) {
            Quando_Abrir<frmImportarContactos>([&](frmImportarContactos &form) {
                QTRY_COMPARE(form.Lista->model()->rowCount(), 1);
                linhas = form.Lista->model()->rowCount();
                form.cmdCancelar->click();
            });
            campos.cmdOk->click();
        });
        p.janela.findChild<FicheirosPedidos *>()->Abrir(caminho);
        QCOMPARE(linhas, 1);
    }

    void so_estas_terminacoes_tem_resposta()
    {
        QStringList terminacoes = FicheirosPedidos::Terminacoes();
        terminacoes.sort();
        QCOMPARE(terminacoes, (QStringList{u"csv"_s, u"dat"_s, u"mdb"_s, u"vcf"_s}));
        Programa p;
        p.janela.Carregar();
        p.janela.findChild<FicheirosPedidos *>()->Abrir(u"/casa/carta.doc"_s);
        QVERIFY(p.s.caixas.vistas.isEmpty());
    }

    // What they wait for

    void os_ficheiros_do_inicio_abrem_depois_dele_um_a_seguir_ao_outro()
    {
        Programa p({u"/a.mdb"_s, u"/b.dat"_s});
        QVERIFY(Nada_Abre());
        p.janela.Carregar();
        QVERIFY(p.caminhos.isEmpty());
        p.Anotar(2);
        QTRY_COMPARE(p.caminhos, (QStringList{u"/a.mdb"_s, u"/b.dat"_s}));
        QVERIFY(Nada_Abre());
    }

    void com_o_login_do_inicio_aberto_esperam()
    {
        Programa p({u"/a.mdb"_s});
        p.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
        Quando_Abrir<frmLogin>([&](const frmLogin &login) {
            p.janela.Chamar({u"/b.mdb"_s});
            QTest::qWait(espera);
            QVERIFY(p.janela.isHidden());
            Entrar(login);
        });
        p.janela.Carregar();
        p.Anotar(2);
        QTRY_COMPARE(p.caminhos, (QStringList{u"/a.mdb"_s, u"/b.mdb"_s}));
    }

    void uma_segunda_vez_com_ficheiros_traz_a_janela_e_abre_os()
    {
        Programa p;
        p.janela.Carregar();
        p.janela.hide();
        p.Anotar(1);
        p.janela.Chamar({u"/a.mdb"_s});
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
        QVERIFY(p.janela.isVisible());

        QVERIFY(Nada_Abre()); // and the same for whoever comes when those are done
        p.janela.hide();
        p.Anotar(1);
        p.janela.Chamar({u"/b.mdb"_s});
        QTRY_COMPARE(p.caminhos, (QStringList{u"/a.mdb"_s, u"/b.mdb"_s}));
        QVERIFY(p.janela.isVisible());
    }

    // A form that came with the window would lose the keyboard to it.
    void o_formulario_vem_um_pouco_depois_da_janela()
    {
        Programa p;
        p.janela.Carregar();
        QElapsedTimer relogio;
        relogio.start();
        qint64 ao_fim_de = 0;
        Quando_Abrir<frmImportar>([&](frmImportar &form) {
            ao_fim_de = relogio.elapsed();
            form.cmdCancelar->click();
        });
        p.janela.Chamar({u"/a.mdb"_s});
        QTRY_VERIFY(ao_fim_de > 0);
        QVERIFY2(ao_fim_de >= 350, qPrintable(QString::number(ao_fim_de))); // twice the queue's pause
    }

    void um_formulario_aberto_fecha_se_primeiro()
    {
        Programa p;
        p.janela.Carregar();
        Quando_Abrir<frmSobre>([&](frmSobre &sobre) {
            p.janela.Chamar({u"/a.mdb"_s});
            QTest::qWait(espera);
            QCOMPARE(QApplication::activeModalWidget(), &sobre);
            sobre.accept();
        });
        p.janela.Sobre->trigger();
        p.Anotar(1);
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
    }

    // Not every form disables the window.
    void um_formulario_a_frente_de_uma_janela_viva_fecha_se_primeiro()
    {
        Programa p;
        p.janela.Carregar();
        QDialog formulario(&p.janela);
        formulario.setModal(true);
        formulario.show();
        bool passou = false;
        bool outro = false;
        QTimer::singleShot(espera, qApp, [&] {
            QWidget *frente = QApplication::activeModalWidget();
            passou = true;
            outro = frente != &formulario;
            if (outro && frente != nullptr) frente->close();
        });
        p.janela.Chamar({u"/a.mdb"_s});
        QTRY_VERIFY(passou);
        QVERIFY(!outro);
        p.Anotar(1);
        formulario.close();
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
    }

    void um_menu_aberto_fecha_se_primeiro()
    {
        Programa p;
        p.janela.Carregar();
        p.janela.RightClick->popup({});
        p.janela.Chamar({u"/a.mdb"_s});
        QVERIFY(Nada_Abre());
        p.Anotar(1);
        p.janela.RightClick->close();
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
    }

    void uma_janela_que_um_formulario_ao_lado_desactivou_espera()
    {
        Programa p;
        p.janela.Carregar();
        p.janela.setEnabled(false);
        p.janela.Chamar({u"/a.mdb"_s});
        QVERIFY(Nada_Abre());
        p.Anotar(1);
        p.janela.setEnabled(true);
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
    }

    void trancada_pede_primeiro_a_senha()
    {
        Programa p;
        p.Com_Utilizador();
        Quando_Abrir<frmLogin>(Entrar);
        p.janela.Carregar();
        p.janela.close();
        bool pediu = false;
        Quando_Abrir<frmLogin>([&](const frmLogin &login) {
            pediu = true;
            QVERIFY(p.caminhos.isEmpty());
            Entrar(login);
            p.Anotar(1);
        });
        p.janela.Chamar({u"/a.mdb"_s});
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
        QVERIFY(pediu);
        QVERIFY(p.janela.isVisible());
    }

    void um_cartao_espera_pelo_formulario_aberto_e_trancada_pela_senha()
    {
        Programa p;
        p.Com_Utilizador();
        Quando_Abrir<frmLogin>(Entrar);
        p.janela.Carregar();
        const QString caminho = p.Cartao();
        QStringList passos;
        const auto importacao = [&](frmImportarContactos &form) {
            passos << u"form"_s;
            form.cmdCancelar->click();
        };
        Quando_Abrir<frmSobre>([&](frmSobre &sobre) {
            p.janela.Chamar({caminho});
            QTest::qWait(espera);
            QVERIFY(passos.isEmpty());
            Quando_Abrir<frmImportarContactos>(importacao);
            sobre.accept();
        });
        p.janela.Sobre->trigger();
        QTRY_COMPARE(passos, QStringList{u"form"_s});
        p.janela.close();
        Quando_Abrir<frmLogin>([&](const frmLogin &login) {
            passos << u"senha"_s;
            Quando_Abrir<frmImportarContactos>(importacao);
            Entrar(login);
        });
        p.janela.Chamar({caminho});
        QTRY_COMPARE(passos, (QStringList{u"form"_s, u"senha"_s, u"form"_s}));
    }

    void sem_a_senha_nada_se_abre_nem_depois()
    {
        Programa p;
        p.Com_Utilizador();
        Quando_Abrir<frmLogin>(Entrar);
        p.janela.Carregar();
        p.janela.close();
        int pedidos = 0;
        Quando_Abrir<frmLogin>([&](frmLogin &login) {
            ++pedidos;
            login.cmdCancelar->click();
        });
        p.janela.Chamar({u"/a.mdb"_s, u"/b.mdb"_s});
        QTRY_COMPARE(pedidos, 1);
        QVERIFY(Nada_Abre());
        QVERIFY(p.janela.isHidden());
        Quando_Abrir<frmLogin>(Entrar);
        p.janela.Chamar();
        QVERIFY(p.janela.isVisible());
        QVERIFY(Nada_Abre());
    }

    // Starting hidden

    void minimizado_desta_vez_a_janela_fica_no_tabuleiro_e_a_opcao_como_estava()
    {
        Programa p;
        p.s.geral.MinimizarDestaVez = true;
        p.janela.Carregar();
        QVERIFY(p.janela.isHidden());
        QVERIFY(p.s.tabuleiro.historia.constFirst().startsWith(u"+1"_s));
        QVERIFY(p.s.geral.MinimizarArranque != u"sim"_s);
        QVERIFY(p.s.geral.ini.Ler_Ini(u"arranque"_s, u"minimizar"_s) != u"sim"_s);
    }

    void minimizado_desta_vez_quem_quer_a_senha_fica_trancado()
    {
        Programa p;
        p.Com_Utilizador();
        p.s.geral.MinimizarDestaVez = true;
        Quando_Abrir<frmLogin>(Entrar);
        p.janela.Carregar();
        QVERIFY(p.janela.isHidden());
        QVERIFY(p.janela.findChild<SystemTray *>()->TrayBloqueado());
    }

    void um_ficheiro_traz_a_janela_de_um_inicio_minimizado()
    {
        Programa p({u"/a.mdb"_s});
        p.s.geral.MinimizarDestaVez = true;
        p.janela.Carregar();
        QVERIFY(p.janela.isHidden());
        p.Anotar(1);
        QTRY_COMPARE(p.caminhos, QStringList{u"/a.mdb"_s});
        QVERIFY(p.janela.isVisible());
    }
};

MORVEX_TESTE(TestFicheirosPedidos)
#include "test_FicheirosPedidos.moc"
