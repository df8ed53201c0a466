// Hiding the main window in the notification area and bringing it back, through the password where the user
// asked for one.
#pragma once

#include <QObject>

class Geral;
class QMenu;
class QWidget;
struct Platform;

class SystemTray final : public QObject
{
    Q_OBJECT
public:
    // The window to hide and the menu of the icon; both belong to the caller.
    SystemTray(QWidget &janela, QMenu &MenuSystemTray, Geral &geral, Platform &platform);

    // The ordinary icon, with that tip.
    void Adicionar_Icone(const QString &dica);

    // Hides the window. With the user's password preference set, locks it too and shows the other icon.
    void Minimizar_Tray();

    // Brings a hidden window back, through frmLogin if the user's preference asks for the password.
    void Restaurar_Janela();

    bool TrayBloqueado() const { return TrayBloqueado_; }

private:
    void Botao_Esquerdo(bool trancado);
    void Mostrar_Janela();
    void Reabrir(const QString &legenda);

    QWidget &janela_;
    QMenu &MenuSystemTray_;
    Geral &geral_;
    Platform &platform_;
    bool TrayBloqueado_ = false;
    bool ocupado_ = false; // a message is at work: further ones are dropped
};
