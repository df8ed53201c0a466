// The contact list of the main window: names, their hidden sorted twin, the group filter and the counter.
// Everything else about contacts hangs on it: whoever changes a contact or a group reloads it, which loses
// the selection, and puts the selection back by hand.
#pragma once

#include "controls/ListItems.h"
#include "store/Connection.h"

#include <QObject>
#include <QSet>

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

    // Reads the names of the chosen group anew, always from empty; a server that is away takes no names away. A single contact is selected and shown, of
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

    // Another desk has changed these contacts, or some that nobody named: list and card anew. The selection stays
    // on its contact, without a click, and the list at its place; a contact that is gone takes its card with it.
    void Seguir_Contactos(const QSet<int> &mudados, bool talvez_outros);

    // Another desk has changed groups: filter, list and card anew. The chosen group stays; where it is gone all
    // groups are shown.
    void Seguir_Grupos();

    // The row before or behind the selected one, round the ends of the list.
    void Contacto_Anterior();
    void Contacto_Seguinte();

private:
    void Acrescentar_Todos_Os_Grupos();
    struct Lidos {
        Connection::Mark marca; // of the database, when they were read
        ListItems nomes;
    };
    Lidos Ler();
    void Preencher_Listas(const Lidos &lidos);
    bool Cartao_A_Vista() const;
    bool So_Mudou_O_Cartao();
    void Reler();
    bool Trocar_Grupos();
    void Largar_Cartao();

    Geral &geral_;
    CartaoContacto &cartao_;
    ListBox &ListaNomes, &ListaNomes2;
    ComboBox &ComboGrupos;
    QLabel &lblContador;
    Connection::Mark marca_; // of the database, when the lists were read
};
