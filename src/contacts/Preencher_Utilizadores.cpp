#include "contacts/Preencher_Utilizadores.h"

#include "data/Geral.h"
#include "controls/ComboBox.h"

void Acrescentar_Utilizadores(Geral &geral, ComboBox &combo)
{
    Recordset &rs = geral.de.Abrir("cmdVerUsers");
    for (; !rs.Eof(); rs.MoveNext()) {
        combo.AddItem(rs.Fields("Utilizador").textOrEmpty());
        combo.SetItemData(combo.NewIndex(), rs.Fields("ID").number());
    }
    rs.Close();
}

void Preencher_Utilizadores(Geral &geral, ComboBox &combo)
{
    combo.Clear();
    combo.AddItem(geral.Ler_Idioma(272));
    Acrescentar_Utilizadores(geral, combo);
    combo.setListIndex(0);
}
