// Puts the selection of the contact list on a contact that was written. A reload loses the selection, and
// where a name falls the hidden sorted twin of the list tells: a row of the twin is the same row of the list.
#pragma once

class ComboBox;
class Geral;
class Janela;
class ListaContactos;
class ListBox;
class QString;

class LugarNaLista
{
public:
    LugarNaLista(Janela &janela, Geral &geral, ListaContactos &lista);

    // The row on which a name will fall once it is added to that group. If the filter shows another group it
    // goes back to all groups first, so that the contact will be listed.
    int Lugar_Do_Novo(const QString &Nome, const QString &IDGrupo);

    // Loads the list anew and opens the card of that row.
    void Mostrar_Novo(int IndiceNovoContacto);

    // Loads the list anew and opens the card of IDContacto. If the contact has left the group on view the
    // filter goes back to all groups first. A contact that isn't listed any more selects nothing.
    void Mostrar_Editado(const QString &IDGrupo);

    // The same for the contact of that ID.
    void Mostrar(int ID, const QString &IDGrupo);

private:
    void Ler_Nomes();

    Geral &geral_;
    ListaContactos &lista_;
    ListBox &ListaNomes, &ListaNomes2;
    ComboBox &ComboGrupos;
};
