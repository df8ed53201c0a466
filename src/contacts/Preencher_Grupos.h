// Fills a combo box with the groups that the session's user sees, ordered by name: the shared ones and his or
// her own.
#pragma once

class ComboBox;
class Geral;

enum class DadosDoItem { Sem, Com }; // whether each row carries its group's ID in ItemData

// Adds behind what the combo holds already.
void Preencher_Grupos(Geral &geral, ComboBox &combo, DadosDoItem dados);

// The same with IDs and the first row chosen, where there is one.
void Oferecer_Grupos(Geral &geral, ComboBox &combo);
