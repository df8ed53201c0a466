#include "session/Main.h"

#include "contacts/AccoesContacto.h"
#include "contacts/CartaoContacto.h"
#include "contacts/DesfazerEliminacao.h"
#include "contacts/EdicaoContacto.h"
#include "contacts/Grupos.h"
#include "contacts/ListaContactos.h"
#include "contacts/Pesquisa.h"
#include "contacts/ProcuraRapida.h"
#include "controls/DisabledWindow.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "interchange/Intercambio.h"
#include "memos/Memos.h"
#include "online/CicloCorreio.h"
#include "online/Presenca.h"
#include "online/VerificarVersao.h"
#include "platform/FreeMemory.h"
#include "platform/Platform.h"
#include "printing/Impressao.h"
#include "reminders/Lembretes.h"
#include "report/CrystalReport.h"
#include "session/Ajuda.h"
#include "session/Arranque.h"
#include "session/frmOpcoes.h"
#include "session/frmSobre.h"
#include "session/Sair.h"
#include "session/SystemTray.h"
#include "session/Utilizadores.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace
{
constexpr unsigned cor_ponto_apagado = 0xF8F8F8;
constexpr unsigned cor_ponto_aceso = 0;

void Pintar(QWidget &ponto, unsigned cor)
{
    QPalette palette = ponto.palette();
    palette.setColor(QPalette::Window, colour(cor));
    ponto.setPalette(palette);
}

std::unique_ptr<CrystalReport> Novo_Relatorio(Geral &geral, Platform &platform, QWidget &janela)
{
    return std::make_unique<CrystalReport>(
        platform.boxes, platform.dialogs, platform.clock, [&geral] { return geral.IdiomaActual; }, &janela);
}
} // namespace

Main::Main(Geral &geral, Platform &platform)
    : geral_(geral),
      platform_(platform),
      CrystalReport1(Novo_Relatorio(geral, platform, *this)),
      relatorioDaTarefa_(Novo_Relatorio(geral, platform, *this))
{
    Pintar(*PontoTarefas, cor_ponto_apagado);
    cartao_ = new CartaoContacto(*this, geral_, platform_);
    lista_ = new ListaContactos(*this, geral_, *cartao_);
    tray_ = new SystemTray(*this, *MenuSystemTray, geral_, platform_);
    lembretes_ = new Lembretes(*this, geral_, platform_, *relatorioDaTarefa_);
    memos_ = new Memos(*this, geral_, platform_);
    presenca_ = new Presenca(*this, geral_, platform_);
    correio_ = new CicloCorreio(*this, geral_, platform_);

    auto *utilizadores = new ::Utilizadores(*this, geral_, platform_); // not the menus of these names
    auto *desfazer = new DesfazerEliminacao(*this, geral_, platform_, *lista_);
    auto *grupos = new ::Grupos(*this, geral_, platform_, *lista_, *desfazer);
    auto *edicao = new EdicaoContacto(*this, geral_, platform_, *lista_);

    auto *pesquisa = new Pesquisa(*this, geral_, platform_);
    procuraRapida_ = new ProcuraRapida(*this, geral_, platform_, *lista_);
    new AccoesContacto(*this, geral_, platform_, *lista_, *cartao_, *desfazer);

    new Impressao(*this, geral_, platform_, *CrystalReport1);
    auto *intercambio = new Intercambio(*this, geral_, platform_, *CrystalReport1);
    new VerificarVersao(*this, geral_, platform_, QStringLiteral(MORVEX_WEB_HOST));

    connect(intercambio, &Intercambio::ContactosMudados, lista_, [this] {
        lista_->Limpar_Dados();
        lista_->Carregar_Tabela();
    });
    connect(pesquisa, &Pesquisa::Trazer_Main, tray_, &SystemTray::Trazer_Janela);
    connect(procuraRapida_, &ProcuraRapida::Minimizar_Tray, tray_, &SystemTray::Minimizar_Tray);
    connect(desfazer, &DesfazerEliminacao::Eliminado, procuraRapida_, &ProcuraRapida::Tomar_Eliminacao);
    connect(edicao, &EdicaoContacto::Sem_Grupos, grupos, &::Grupos::Mostrar_frmNovoGrupo);
    connect(grupos, &::Grupos::CriarUtilizador, utilizadores, &::Utilizadores::Mostrar_frmNovoUser);
    connect(&geral_.temporizadores.timerPonto, &QTimer::timeout, this, &Main::timerPonto_Timer);
    connect(correio_, &CicloCorreio::Abrir_Opcoes, this, [this] {
        if (tray_->Destrancar()) Opcoes_Click(); // its card is in view while the window is locked
    });
    connect(cartao_, &CartaoContacto::OutrosEnderecos, presenca_, &Presenca::Mostrar_Guardado);
    connect(ListaNomes, &ListBox::RightButtonUp, this, [this](const QPoint &lugar) {
        if (ListaNomes->ListIndex() >= 0) RightClick->popup(lugar);
    });
    tray_->Antes_De_Mostrar([this] { return Responder_A_Aviso(); });
    Ligar_Menus();
    Ligar_Teclas();
}

Main::~Main() = default;

void Main::Ligar_Menus()
{
    connect(Fechar, &QAction::triggered, tray_, &SystemTray::Minimizar_Tray);
    connect(Sair, &QAction::triggered, this, [this] { ::Sair(geral_, platform_, this); });
    connect(SystemTraySair, &QAction::triggered, Sair, &QAction::trigger);
    connect(SystemTrayAbrirMorvex, &QAction::triggered, tray_, &SystemTray::Restaurar_Janela);

    for (QAction *anterior : {Anterior, cima})
        connect(anterior, &QAction::triggered, lista_, &ListaContactos::Contacto_Anterior);
    for (QAction *seguinte : {Seguinte, baixo})
        connect(seguinte, &QAction::triggered, lista_, &ListaContactos::Contacto_Seguinte);

    for (QAction *abrir : {Opcoes, opcoes})
        connect(abrir, &QAction::triggered, this, &Main::Opcoes_Click);
    for (QAction *topicos : {TopicosAjuda, this->ajuda})
        connect(topicos, &QAction::triggered, this,
                [this] { ::ajuda::TopicosAjuda(geral_, platform_.shell); });
    connect(Sugerir, &QAction::triggered, this, [this] { ::ajuda::Sugerir(platform_.shell); });
    connect(Leiame, &QAction::triggered, this, [this] { ::ajuda::Leiame(geral_, platform_.shell); });
    for (QAction *sobre : {Sobre, SystemTraySobre})
        connect(sobre, &QAction::triggered, this, &Main::Sobre_Click);
}

void Main::Ligar_Teclas()
{
    const auto tecla = [this](Qt::Key codigo, auto accao) {
        auto *atalho = new QShortcut(codigo, this);
        connect(atalho, &QShortcut::activated, this, accao);
        connect(procuraRapida_, &ProcuraRapida::KeyPreview, atalho, &QShortcut::setEnabled);
    };
    tecla(Qt::Key_F2, [this] { cmdEditar->click(); }); // a disabled button takes no click
    tecla(Qt::Key_Delete, [this] { cmdEliminar->click(); });
    tecla(Qt::Key_Escape, [this] { tray_->Minimizar_Tray(); });
}

Arranque Main::Inicio()
{
    return {*this, geral_, platform_, {*lista_, *memos_, *tray_, *lembretes_, *presenca_, *correio_}};
}

void Main::Carregar()
{
    Inicio().Executar();
    returnFreeMemory(); // the start read names and birthdays; from here on the program mostly waits
    if (geral_.MinimizarArranque != u"sim"_s) show();
}

bool Main::Responder_A_Aviso() { return lembretes_->Responder() || correio_->Responder(); }

void Main::Chamar()
{
    QWidget *frente = QApplication::activeModalWidget();
    if (frente == nullptr && Responder_A_Aviso()) return;
    if (frente == nullptr) {
        tray_->Trazer_Janela();
        frente = this;
    }
    frente->raise();
    frente->activateWindow();
}

// Only Sair ends the program. When the whole desktop session ends, nobody holds it up.
void Main::closeEvent(QCloseEvent *event)
{
    if (qGuiApp->isSavingSession() || !isVisible()) return;
    tray_->Minimizar_Tray();
    event->ignore();
}

void Main::timerPonto_Timer()
{
    const bool aceso = EstadoPonto == "1"_L1;
    Pintar(*PontoTarefas, aceso ? cor_ponto_apagado : cor_ponto_aceso);
    EstadoPonto = aceso ? u"2"_s : u"1"_s;
}

void Main::Opcoes_Click()
{
    const DisabledWindow desactivada(*this);
    frmOpcoes(geral_, platform_, *this).exec();
}

void Main::Sobre_Click()
{
    const DisabledWindow desactivada(*this);
    frmSobre(geral_, this).exec();
}
