#include "session/SystemTray.h"

#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/frmLogin.h"

#include <QEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QWidget>
#include <QWindow>

namespace
{
// A window that filled the screen before it was hidden fills it again.
void Mostrar(QWidget &janela)
{
    janela.setWindowState(janela.windowState() & ~Qt::WindowMinimized);
    janela.show();
}

void Permitir(const QMenu &menu, bool permitido)
{
    for (QAction *entrada : menu.actions())
        entrada->setEnabled(permitido);
}
} // namespace

SystemTray::SystemTray(QWidget &janela, QMenu &MenuSystemTray, Geral &geral, Platform &platform)
    : QObject(&janela), janela_(janela), MenuSystemTray_(MenuSystemTray), geral_(geral), platform_(platform)
{
    connect(&platform_.tray, &Tray::leftButtonDown, this, [this](Tray::Look look) {
        if (!ocupado_ && responder_()) return;
        if (look == Tray::Look::Picture2)
            Restaurar_Janela();
        else
            Botao_Esquerdo_No_Icone();
    });
    connect(&platform_.tray, &Tray::menuAboutToOpen, this, [this] {
        if (janela_.isVisible()) janela_.activateWindow();
    });
    connect(&platform_.tray, &Tray::hostCame, this, &SystemTray::Hospedeiro_Chegou);
    connect(&platform_.tray, &Tray::hostGone, this, &SystemTray::Hospedeiro_Partiu);
    janela_.installEventFilter(this);
}

void SystemTray::Adicionar_Icone(const QString &dica)
{
    platform_.tray.add(Tray::Look::Picture1, dica, &MenuSystemTray_);
}

void SystemTray::Minimizar_Tray()
{
    TrayBloqueado_ = geral_.SessaoActual.PedirPassSystemTray;
    Recolher();
    if (!TrayBloqueado_) return;
    platform_.tray.remove(Tray::Look::Picture1);
    platform_.tray.add(Tray::Look::Picture2, janela_.windowTitle(), &MenuSystemTray_);
}

void SystemTray::Recolher()
{
    recolhida_ = true;
    NaBarra_ = !platform_.tray.hasHost();
    if (!NaBarra_) return janela_.hide();
    if (TrayBloqueado_) Tapar();
    janela_.showMinimized();
    // A window that finds its size as it first shows loses the state on its way to the window manager.
    janela_.windowHandle()->setWindowStates(Qt::WindowMinimized);
}

// Task lists show small pictures of windows, and a window that is brought back by one is seen before anything
// can be asked: neither is to show what is locked.
void SystemTray::Tapar()
{
    if (tapume_ == nullptr) {
        tapume_ = new QWidget(&janela_);
        tapume_->setAutoFillBackground(true);
    }
    tapume_->setGeometry(janela_.rect());
    tapume_->raise();
    tapume_->show();
    tapume_->repaint();
}

// Who has brought the window back keeps it.
void SystemTray::Hospedeiro_Chegou()
{
    if (NaBarra_ && janela_.isMinimized()) Recolher();
}

void SystemTray::Hospedeiro_Partiu()
{
    if (recolhida_ && !janela_.isVisible()) Recolher();
}

bool SystemTray::eventFilter(QObject *, QEvent *evento)
{
    if (evento->type() == QEvent::WindowStateChange && NaBarra_ && !janela_.isMinimized()) Trazida_Por_Fora();
    if (evento->type() == QEvent::Resize && tapume_ != nullptr) tapume_->setGeometry(janela_.rect());
    return false;
}

// The task list knows nothing of passwords. A locked window goes down again, and the login comes.
void SystemTray::Trazida_Por_Fora()
{
    if (!TrayBloqueado_) {
        NaBarra_ = recolhida_ = false;
        return;
    }
    const auto pedir = [this] {
        if (!NaBarra_) return;
        Recolher();
        Restaurar_Janela();
    };
    QMetaObject::invokeMethod(this, pedir, Qt::QueuedConnection);
}

void SystemTray::Botao_Esquerdo_No_Icone()
{
    if (!ocupado_) Mostrar_Janela();
}

void SystemTray::Mostrar_Janela()
{
    NaBarra_ = recolhida_ = false;
    if (tapume_ != nullptr) tapume_->hide();
    if (!janela_.isVisible() || janela_.isMinimized()) Mostrar(janela_);
    janela_.raise();
    janela_.activateWindow();
}

void SystemTray::Restaurar_Janela()
{
    const bool a_vista = janela_.isVisible() && !NaBarra_;
    if (ocupado_ || a_vista) return;
    if (geral_.SessaoActual.PedirPassSystemTray)
        Pedir_Senha();
    else
        Mostrar_Janela();
}

void SystemTray::Trazer_Janela()
{
    if (TrayBloqueado_) return Restaurar_Janela();
    if (!janela_.isVisible() || janela_.isMinimized()) Mostrar(janela_);
}

bool SystemTray::Destrancar()
{
    if (TrayBloqueado_) Restaurar_Janela();
    return !TrayBloqueado_;
}

// A modal form lets further messages of the icon arrive while it stands open. Some hosts draw the menu
// themselves and open it without asking, so its entries are dead meanwhile.
void SystemTray::Pedir_Senha()
{
    const QScopedValueRollback guarda(ocupado_, true);
    Permitir(MenuSystemTray_, false);
    const auto devolver = qScopeGuard([this] { Permitir(MenuSystemTray_, true); });
    frmLogin login(geral_, platform_);
    login.Fixar_Utilizador(geral_.SessaoActual.Utilizador);
    connect(&login, &frmLogin::Reaberta, this, &SystemTray::Reabrir);
    login.exec();
}

// The tip is the login form's caption until the icon is next added.
void SystemTray::Reabrir(const QString &legenda)
{
    platform_.tray.remove(Tray::Look::Picture2);
    Adicionar_Icone(legenda);
    TrayBloqueado_ = false;
    Mostrar_Janela();
}
