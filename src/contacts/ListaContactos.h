// The contact list of the main window: names, their hidden sorted twin, the group filter and the counter.
// Everything else about contacts hangs on it: whoever changes a contact or a group reloads it, which loses
// the selection, and puts the selection back by hand.
#pragma once

#include "controls/ListItems.h"
#include "store/Connection.h"

#include <QObject>

class CartaoContacto;
class ComboBox;
class Geral;
class Janela;
class ListBox;
class QLabel;

class ListaContactos final : public QObject
{
    Q_OBJECT
public:
    ListaContactos(Janela &janela, Geral &geral, CartaoContacto &cartao);

    // Reads the names of the chosen group anew, always from empty. A single contact is selected and shown, of
    // two or more none. Raises Failure where a command fails or the picture for want of one is missing.
    void Carregar_Tabela();

    // How many names the list has, over the buttons.
    void Mostrar_Contador();

    // The names of the group in the filter with their ID. That of the group becomes GrupoActual.
    ListItems Ler_Nomes();

    // Whether both lists hold the names as they are now: another copy of the program may have changed them.
    bool Em_Dia() const;

    // Empties both lists and the card.
    void Limpar_Dados();

    // Fills the group filter anew, all groups first, and chooses these, which loads the list.
    void Carregar_Grupos();

    // The same for the start of the program: what fails is skipped. Without the text for all groups the first
    // group is chosen.
    void Carregar_Grupos_Ao_Iniciar();

    // After a change of groups that may have moved or taken contacts: filter, card and list anew.
    void Refrescar();

    // The row before or behind the selected one, round the ends of the list.
    void Contacto_Anterior();
    void Contacto_Seguinte();

private:
    void Acrescentar_Todos_Os_Grupos();
    void Preencher_Listas();

    Geral &geral_;
    CartaoContacto &cartao_;
    ListBox &ListaNomes, &ListaNomes2;
    ComboBox &ComboGrupos;
    QLabel &lblContador;
    Connection::Mark marca_; // of the database, when the lists were read
};
