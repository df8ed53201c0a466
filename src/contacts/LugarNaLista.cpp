#include "contacts/LugarNaLista.h"

#include "contacts/ListaContactos.h"
#include "data/Geral.h"
#include "janela/Janela.h"

using namespace Qt::StringLiterals;

namespace
{
int Linha_Com(const ListBox &lista, int id)
{
    for (int i = 0; i < lista.ListCount(); ++i)
        if (lista.ItemData(i) == id) return i;
    return -1;
}
} // namespace

LugarNaLista::LugarNaLista(Janela &janela, Geral &geral, ListaContactos &lista)
    : geral_(geral),
      lista_(lista),
      ListaNomes(*janela.ListaNomes),
      ListaNomes2(*janela.ListaNomes2),
      ComboGrupos(*janela.ComboGrupos)
{
}

// With many contacts reading the names is what takes time, so a twin that holds them already is not filled
// anew.
int LugarNaLista::Lugar_Do_Novo(const QString &Nome, const QString &IDGrupo)
{
    if (IDGrupo != geral_.GrupoActual && ComboGrupos.ListIndex() != 0) ComboGrupos.setListIndex(0);
    if (!lista_.Em_Dia()) Ler_Nomes();
    ListaNomes2.AddItem(Nome);
    ListaNomes2.setListIndex(ListaNomes2.NewIndex());
    return ListaNomes2.ListIndex();
}

// Into the twin alone, as they are now: another copy of the program may have changed them.
void LugarNaLista::Ler_Nomes()
{
    ListaNomes2.Clear();
    ListaNomes2.setItems(lista_.Ler_Nomes());
}

void LugarNaLista::Mostrar_Novo(int IndiceNovoContacto)
{
    lista_.Carregar_Tabela();
    ListaNomes.setListIndex(IndiceNovoContacto);
}

void LugarNaLista::Mostrar_Editado(const QString &IDGrupo) { Mostrar(geral_.IDContacto, IDGrupo); }

void LugarNaLista::Mostrar(int ID, const QString &IDGrupo)
{
    const QString grupo_a_vista = ComboGrupos.ChosenItemData();
    if (grupo_a_vista != "0"_L1 && grupo_a_vista != IDGrupo) ComboGrupos.setListIndex(0);
    lista_.Carregar_Tabela();
    const int linha = Linha_Com(ListaNomes2, ID);
    ListaNomes2.setListIndex(linha);
    ListaNomes.setListIndex(linha);
}
