// Every way to every command that needs a right: menus, toolbar, buttons, keys, mouse. Without the right
// there is the refusal and nothing else; with it alone the way is open.
#include "testlib/ComJanela.h"
#include "testlib/Teste.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace
{
// One way to a guarded command of the main window.
struct Caminho {
    const char *nome;
    bool Sessao::*direito;
    std::function<void(ComJanela &)> ir;
};

Caminho Accao(const char *nome, bool Sessao::*direito)
{
    return {nome, direito,
            [nome](ComJanela &c) { c.janela.findChild<QAction *>(QLatin1String(nome))->trigger(); }};
}

Caminho Botao(const char *nome, bool Sessao::*direito)
{
    return {nome, direito,
            [nome](ComJanela &c) { c.janela.findChild<QAbstractButton *>(QLatin1String(nome))->click(); }};
}

Caminho Tecla(const char *nome, Qt::Key tecla, QString controlo, bool Sessao::*direito)
{
    return {nome, direito, [=](ComJanela &c) {
                auto *alvo = c.janela.findChild<QWidget *>(controlo);
                alvo->setFocus();
                QTest::keyClick(alvo, tecla);
            }};
}

void Duplo_Clique(ComJanela &c)
{
    ListBox &nomes = *c.janela.ListaNomes;
    const QPoint linha = nomes.visualRect(nomes.model()->index(nomes.ListIndex(), 0)).center();
    QTest::mouseClick(nomes.viewport(), Qt::LeftButton, {}, linha);
    QTest::mouseDClick(nomes.viewport(), Qt::LeftButton, {}, linha);
}

// The menu of the right button, brought up over the chosen row, and then the entry in it.
Caminho Botao_Direito(const char *entrada, bool Sessao::*direito)
{
    return {entrada, direito, [entrada](ComJanela &c) {
                c.Carregar_Na_Linha(c.janela.ListaNomes->ListIndex(), Qt::RightButton);
                QTRY_COMPARE(QApplication::activePopupWidget(), c.janela.RightClick);
                c.janela.RightClick->setActiveAction(c.janela.findChild<QAction *>(QLatin1String(entrada)));
                QTest::keyClick(c.janela.RightClick, Qt::Key_Return);
            }};
}

std::vector<Caminho> Caminhos()
{
    return {
        Botao("cmdNovo", &Sessao::Adicionar),
        Accao("NovoContacto", &Sessao::Adicionar),
        Accao("novo_contacto", &Sessao::Adicionar),
        Botao("cmdEditar", &Sessao::Editar),
        Accao("EditarContacto", &Sessao::Editar),
        Accao("editar_contacto", &Sessao::Editar),
        Botao_Direito("RightClickEditar", &Sessao::Editar),
        Tecla("F2 na lista", Qt::Key_F2, u"ListaNomes"_s, &Sessao::Editar),
        Tecla("F2 na procura", Qt::Key_F2, u"txtProcura"_s, &Sessao::Editar),
        {"duplo clique", &Sessao::Editar, Duplo_Clique},
        Botao("cmdEliminar", &Sessao::Eliminar),
        Accao("EliminarContacto", &Sessao::Eliminar),
        Accao("eliminar_contacto", &Sessao::Eliminar),
        Botao_Direito("RightClickEliminar", &Sessao::Eliminar),
        Tecla("Delete na lista", Qt::Key_Delete, u"ListaNomes"_s, &Sessao::Eliminar),
        Tecla("Delete na procura", Qt::Key_Delete, u"txtProcura"_s, &Sessao::Eliminar),
        Accao("ImportarContactos", &Sessao::Adicionar),
        Accao("Duplicados", &Sessao::Editar),
        Accao("CriarGrupos", &Sessao::Grupos),
        Accao("EditarGrupos", &Sessao::Grupos),
        Accao("EliminarGrupos", &Sessao::Grupos),
        Accao("CriarUtilizadores", &Sessao::Utilizadores),
        Accao("EditarUtilizadores", &Sessao::Utilizadores),
        Accao("EliminarUtilizadores", &Sessao::Utilizadores),
    };
}

// Commands of menus, toolbar and tray that need no right.
const QStringList livres{u"ImprimirLista"_s,
                         u"ImprimirEnvelope"_s,
                         u"ImprimirEtiquetas"_s,
                         u"Importar"_s,
                         u"Exportar"_s,
                         u"ExportarContactos"_s,
                         u"Sincronizar"_s,
                         u"RightClickCopiarCartao"_s,
                         u"RightClickQR"_s,
                         u"Fechar"_s,
                         u"Sair"_s,
                         u"procurar"_s,
                         u"Email"_s,
                         u"Website"_s,
                         u"mnuMessenger"_s,
                         u"Anterior"_s,
                         u"Seguinte"_s,
                         u"mnuMailNotification"_s,
                         u"Aniversarios"_s,
                         u"Memo"_s,
                         u"NovaTarefa"_s,
                         u"ListaTarefas"_s,
                         u"mnuBackup"_s,
                         u"Opcoes"_s,
                         u"TopicosAjuda"_s,
                         u"Sugerir"_s,
                         u"Leiame"_s,
                         u"Sobre"_s,
                         u"RightClickEmail"_s,
                         u"RightClickMessenger"_s,
                         u"RightClickWebsite"_s,
                         u"RightClickPrintContacto"_s,
                         u"RightClickEnvelope"_s,
                         u"SystemTrayAbrirMorvex"_s,
                         u"SystemTrayProcurar"_s,
                         u"SystemTrayNovaTarefa"_s,
                         u"SystemTrayListaTarefas"_s,
                         u"SystemTrayMemo"_s,
                         u"SystemTraySobre"_s,
                         u"SystemTraySair"_s,
                         u"cima"_s,
                         u"baixo"_s,
                         u"imprimir"_s,
                         u"imprimir_envelope"_s,
                         u"enviar_email"_s,
                         u"messenger"_s,
                         u"visitar_website"_s,
                         u"keyCheckMail"_s,
                         u"aniversarios"_s,
                         u"memo"_s,
                         u"nova_tarefa"_s,
                         u"opcoes"_s,
                         u"ajuda"_s};

// What a refused command may not touch: every table that the program writes, and the settings.
QStringList Retrato(Sistema &s)
{
    QStringList retrato;
    for (const char16_t *tabela : {u"TblLista", u"TblGrupos", u"TblUsers", u"TblMemos", u"TblTarefas",
                                   u"TblEmails", u"TblConfig", u"TblRepeticao"})
        retrato += s.Linhas(u"SELECT * FROM %1 ORDER BY ID"_s.arg(QString::fromUtf16(tabela)));
    QFile config(s.Ficheiro(u"config.ini"_s));
    if (config.open(QIODevice::ReadOnly)) retrato << QString::fromLatin1(config.readAll());
    return retrato;
}

// Closes every form that comes while it lives, and counts them.
class Porteiro
{
public:
    Porteiro()
    {
        QObject::connect(&ronda_, &QTimer::timeout, [this] {
            if (QWidget *form = QApplication::activeModalWidget()) {
                ++formularios;
                form->close();
            }
        });
        ronda_.start(10);
    }
    int formularios = 0;

private:
    QTimer ronda_;
};

// A user of the session, with those rights, before two contacts of which the first is on the card.
void Entrar(ComJanela &c, bool todos, bool Sessao::*excepto)
{
    c.s.Novo_Utilizador(u"Ana"_s, u"x"_s);
    c.s.Entrar(u"Ana"_s);
    Sessao &sessao = c.s.geral.SessaoActual;
    for (bool Sessao::*direito :
         {&Sessao::Adicionar, &Sessao::Editar, &Sessao::Eliminar, &Sessao::Grupos, &Sessao::Utilizadores})
        sessao.*direito = direito == excepto ? !todos : todos;
    c.s.Novo_Contacto({{u"Nome"_s, u"Berta"_s}});
    c.Mostrar({{u"Nome"_s, u"Abel"_s}});
    c.janela.setWindowTitle(u"Morvex 1.0 Ana"_s);
    c.janela.show();
    QVERIFY(QTest::qWaitForWindowActive(&c.janela));
}
} // namespace

class TestDireitos : public QObject
{
    Q_OBJECT

    static void Um_Por_Caminho()
    {
        QTest::addColumn<int>("numero");
        const std::vector<Caminho> caminhos = Caminhos();
        for (std::size_t i = 0; i < caminhos.size(); ++i)
            QTest::newRow(caminhos[i].nome) << static_cast<int>(i);
    }

    static Caminho Este()
    {
        QFETCH(int, numero);
        return Caminhos()[static_cast<std::size_t>(numero)];
    }

private Q_SLOTS:
    void cada_comando_e_livre_ou_guardado()
    {
        ComJanela c;
        QStringList conhecidos = livres;
        conhecidos << u"DesfazerEliminar"_s; // needs the right of what it undoes; tested where that is
        for (const Caminho &caminho : Caminhos())
            conhecidos << QLatin1String(caminho.nome);
        for (const QAction *accao : c.janela.findChildren<QAction *>())
            if (!accao->objectName().isEmpty() && accao->menu() == nullptr)
                QVERIFY2(conhecidos.contains(accao->objectName()), qPrintable(accao->objectName()));
    }

    void sem_o_direito_ha_a_recusa_e_nada_muda_data() { Um_Por_Caminho(); }
    void sem_o_direito_ha_a_recusa_e_nada_muda()
    {
        ComJanela c;
        const Caminho caminho = Este();
        Entrar(c, true, caminho.direito);
        const QStringList antes = Retrato(c.s);
        const Porteiro porteiro;
        c.s.caixas.Espera(c.s.Texto(102), 16, u"Morvex"_s);
        caminho.ir(c);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(porteiro.formularios, 0);
        QCOMPARE(Retrato(c.s), antes);
        QVERIFY(c.janela.isVisible() && c.janela.isEnabled());
        QCOMPARE(c.janela.ListaNomes->ListCount(), 2);
        QCOMPARE(c.janela.ListaNomes->ListIndex(), 0);
    }

    void so_com_o_direito_o_caminho_esta_aberto_data() { Um_Por_Caminho(); }
    void so_com_o_direito_o_caminho_esta_aberto()
    {
        ComJanela c;
        const Caminho caminho = Este();
        Entrar(c, false, caminho.direito);
        const bool elimina = caminho.direito == &Sessao::Eliminar;
        if (elimina) c.s.caixas.Espera(c.s.Texto(54) + u" Abel?"_s, 36, u"Morvex 1.0 Ana"_s, answer::no);
        const Porteiro porteiro;
        caminho.ir(c);
        QVERIFY(c.s.caixas.Todas_Vistas());
        QCOMPARE(porteiro.formularios, elimina ? 0 : 1);
    }
};

MORVEX_TESTE(TestDireitos)
#include "test_Direitos.moc"
