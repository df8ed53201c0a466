// Fills a combo box with the users, each row carrying its user's ID in ItemData, in the order of the table.
#pragma once

class ComboBox;
class Geral;

// Adds behind what the combo holds already.
void Acrescentar_Utilizadores(Geral &geral, ComboBox &combo);

// For choosing a group's owner: anew, with a first row of ItemData 0 for all users, which is chosen.
void Preencher_Utilizadores(Geral &geral, ComboBox &combo);
