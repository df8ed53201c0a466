// The commands over groups of the main window's menu, behind the right that they need.
#pragma once

#include <QObject>

class DesfazerEliminacao;
class Geral;
class Janela;
class ListaContactos;
class QDialog;
struct Platform;

class Grupos final : public QObject
{
    Q_OBJECT
public:
    Grupos(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista,
           DesfazerEliminacao &desfazer);

    // The form of a new group, modally. Asks for no right.
    void Mostrar_frmNovoGrupo();

Q_SIGNALS:
    // The form of a new user is wanted, modally. A group form waits behind it, hidden; the right was asked
    // for.
    void CriarUtilizador();

private:
    void CriarGrupos_Click();
    void EditarGrupos_Click();
    void EliminarGrupos_Click();

    bool Tem_Direito_A_Grupos();
    void Criar_Utilizador(QDialog &form);

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    DesfazerEliminacao &desfazer_;
};
