#include "contacts/Preencher_Grupos.h"

#include "data/Geral.h"
#include "controls/ComboBox.h"

void Preencher_Grupos(Geral &geral, ComboBox &combo, DadosDoItem dados)
{
    Recordset &rs = geral.de.Abrir("cmdListarGrupos", {geral.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext()) {
        combo.AddItem(rs.Fields("NomeGrupo").textOrEmpty());
        if (dados == DadosDoItem::Com) combo.SetItemData(combo.NewIndex(), rs.Fields("ID").number());
    }
    rs.Close();
}

void Oferecer_Grupos(Geral &geral, ComboBox &combo)
{
    Preencher_Grupos(geral, combo, DadosDoItem::Com);
    if (combo.ListCount() > 0) combo.setListIndex(0);
}
