#include "session/SystemTray.h"

#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/frmLogin.h"

#include <QMenu>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QWidget>

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
}

void SystemTray::Adicionar_Icone(const QString &dica)
{
    platform_.tray.add(Tray::Look::Picture1, dica, &MenuSystemTray_);
}

void SystemTray::Minimizar_Tray()
{
    janela_.hide();
    TrayBloqueado_ = false;
    if (!geral_.SessaoActual.PedirPassSystemTray) return;
    TrayBloqueado_ = true;
    platform_.tray.remove(Tray::Look::Picture1);
    platform_.tray.add(Tray::Look::Picture2, janela_.windowTitle(), &MenuSystemTray_);
}

void SystemTray::Botao_Esquerdo_No_Icone()
{
    if (!ocupado_) Mostrar_Janela();
}

void SystemTray::Mostrar_Janela()
{
    if (!janela_.isVisible() || janela_.isMinimized()) Mostrar(janela_);
    janela_.raise();
    janela_.activateWindow();
}

void SystemTray::Restaurar_Janela()
{
    if (ocupado_ || janela_.isVisible()) return;
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
