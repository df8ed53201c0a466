// What can be done to the contact on the card, other than editing it: delete it, write to it, open its page,
// see its picture large. One command each for the menu, the toolbar, the right-click menu, the button and the
// link on the card.
#pragma once

#include <QObject>

class CartaoContacto;
class DesfazerEliminacao;
class Geral;
class Janela;
class ListaContactos;
class ListBox;
class QLineEdit;
struct Platform;

class AccoesContacto final : public QObject
{
    Q_OBJECT
public:
    AccoesContacto(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista,
                   CartaoContacto &cartao, DesfazerEliminacao &desfazer);

private:
    void cmdEliminar_Click();
    void Email_Click();
    void Website_Click();
    void Linha_Click(const QLineEdit *linha);
    void Thumb_Click();
    void cmdData_Click();

    bool Confirma_Eliminar(int linha);

    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    CartaoContacto &cartao_;
    DesfazerEliminacao &desfazer_;
    Janela &janela_;
    ListBox &ListaNomes;
    QLineEdit &txtEmail1, &txtEmail2, &txtWebsite;
};
