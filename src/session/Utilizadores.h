// The commands over users of the main window's menu, behind the right that they need.
#pragma once

#include <QObject>

class Geral;
class QWidget;
struct Platform;

class Utilizadores final : public QObject
{
    Q_OBJECT
public:
    // The window must hold the menu entries CriarUtilizadores, EditarUtilizadores and EliminarUtilizadores.
    Utilizadores(QWidget &janela, Geral &geral, Platform &platform);

    // Shows the form of a new user. Whoever calls has asked for the right.
    void Mostrar_frmNovoUser();

private:
    void CriarUtilizadores_Click();
    void EditarUtilizadores_Click();
    void EliminarUtilizadores_Click();

    bool Tem_Direito_A_Utilizadores();
    bool Pode_Escolher_Utilizador();

    QWidget &janela_;
    Geral &geral_;
    Platform &platform_;
};
