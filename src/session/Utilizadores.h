// The commands over users of the main window's menu, behind the right that they need.
#pragma once

#include <QObject>

class Geral;
class Janela;
struct Platform;

class Utilizadores final : public QObject
{
    Q_OBJECT
public:
    Utilizadores(Janela &janela, Geral &geral, Platform &platform);

    // Shows the form of a new user. Whoever calls has asked for the right.
    void Mostrar_frmNovoUser();

    // Another desk has changed users: the session's own rights and name are those of its row now.
    void Seguir();

Q_SIGNALS:
    // The session's user is gone.
    void Eliminado();

private:
    void CriarUtilizadores_Click();
    void EditarUtilizadores_Click();
    void EliminarUtilizadores_Click();

    bool Tem_Direito_A_Utilizadores();
    bool Pode_Escolher_Utilizador();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
};
