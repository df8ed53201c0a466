// Hiding the main window in the notification area and bringing it back, through the password where the user
// asked for one. Where no host shows the icon the window is minimised instead of hidden, so that it stays
// within reach, and hides as soon as one comes.
#pragma once

#include <functional>
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

    // What a left click on the icon does before all else: true if that was enough.
    void Antes_De_Mostrar(std::function<bool()> responder) { responder_ = std::move(responder); }

    // The ordinary icon, with that tip.
    void Adicionar_Icone(const QString &dica);

    // Hides the window, or minimises it for want of a host. With the user's password preference set, locks it
    // too and shows the other icon.
    void Minimizar_Tray();

    // Brings a hidden window back, through frmLogin if the user's preference asks for the password. While
    // that stands open, further calls do nothing.
    void Restaurar_Janela();

    // For whom has something to show in the window: reopens it the locked way if it was locked, otherwise
    // restores it from minimised and shows it from hidden.
    void Trazer_Janela();

    // For whom opens something of the user's without the window: asks for the password if it is locked.
    // Whether it is open afterwards.
    bool Destrancar();

    bool TrayBloqueado() const { return TrayBloqueado_; }

    bool eventFilter(QObject *janela, QEvent *evento) override;

private:
    void Recolher();
    void Hospedeiro_Chegou();
    void Hospedeiro_Partiu();
    void Trazida_Por_Fora();
    void Tapar();
    void Botao_Esquerdo_No_Icone();
    void Mostrar_Janela();
    void Pedir_Senha();
    void Reabrir(const QString &legenda);

    QWidget &janela_;
    QMenu &MenuSystemTray_;
    Geral &geral_;
    Platform &platform_;
    std::function<bool()> responder_ = [] { return false; };
    QWidget *tapume_ = nullptr; // lies over the content of a locked window that stands in the task list
    bool TrayBloqueado_ = false;
    bool recolhida_ = false; // out of view, by this class
    bool NaBarra_ = false;   // minimised, because no host would show the way back
    bool ocupado_ = false;   // a message is at work: further ones are dropped
};
