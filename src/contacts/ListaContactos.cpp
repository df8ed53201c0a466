#include "contacts/ListaContactos.h"

#include "contacts/CartaoContacto.h"
#include "contacts/Preencher_Grupos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_todos_os_grupos = 48;
constexpr qint16 texto_contador = 49;

void Acrescentar(ListBox &lista, const QString &nome, int id)
{
    lista.AddItem(nome);
    lista.setItemData(lista.NewIndex(), id);
}
} // namespace

ListaContactos::ListaContactos(Janela &janela, Geral &geral, CartaoContacto &cartao)
    : QObject(&janela),
      geral_(geral),
      cartao_(cartao),
      ListaNomes(*janela.ListaNomes),
      ListaNomes2(*janela.ListaNomes2),
      ComboGrupos(*janela.ComboGrupos),
      lblContador(*janela.lblContador)
{
    connect(&ComboGrupos, &ComboBox::Click, this, &ListaContactos::Carregar_Tabela);
}

void ListaContactos::Carregar_Tabela()
{
    Limpar_Dados();
    Preencher_Listas();
    cartao_.Mostrar_Foto_Por_Omissao();
    Mostrar_Contador();
    if (ListaNomes.ListCount() == 1) ListaNomes.setListIndex(0);
}

void ListaContactos::Mostrar_Contador()
{
    lblContador.setText(geral_.Ler_Idioma(texto_contador) + u' ' + QString::number(ListaNomes.ListCount()));
}

Recordset &ListaContactos::Abrir_Nomes()
{
    geral_.GrupoActual = QString::number(ComboGrupos.ItemData(ComboGrupos.ListIndex()));
    return geral_.GrupoActual.toInt() == 0
               ? geral_.de.Abrir("cmdListarTodosContactos", {geral_.SessaoActual.IdUtilizador})
               : geral_.de.Abrir("cmdListarNomes", {geral_.GrupoActual});
}

void ListaContactos::Preencher_Listas()
{
    marca_ = geral_.de.Marca();
    Recordset &rs = Abrir_Nomes();
    const ListBox::Filling enchendo(ListaNomes);
    const ListBox::Filling enchendo2(ListaNomes2);
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString nome = rs.Fields("Nome").textOrEmpty();
        const int id = rs.Fields("ID").number();
        Acrescentar(ListaNomes, nome, id);
        Acrescentar(ListaNomes2, nome, id);
    }
    rs.Close();
}

bool ListaContactos::Em_Dia() const
{
    return marca_ == geral_.de.Marca() && ListaNomes.ListCount() == ListaNomes2.ListCount();
}

void ListaContactos::Limpar_Dados()
{
    marca_ = {};
    ListaNomes.Clear();
    ListaNomes2.Clear();
    cartao_.Limpar();
}

void ListaContactos::Carregar_Grupos()
{
    ComboGrupos.Clear();
    Acrescentar_Todos_Os_Grupos();
    Preencher_Grupos(geral_, ComboGrupos, DadosDoItem::Com);
    ComboGrupos.setListIndex(0);
}

void ListaContactos::Carregar_Grupos_Ao_Iniciar()
{
    skipFailure([&] { Acrescentar_Todos_Os_Grupos(); });
    skipFailure([&] { Preencher_Grupos(geral_, ComboGrupos, DadosDoItem::Com); });
    ComboGrupos.setListIndex(0);
}

void ListaContactos::Acrescentar_Todos_Os_Grupos()
{
    ComboGrupos.AddItem(geral_.Ler_Idioma(texto_todos_os_grupos));
}

void ListaContactos::Refrescar()
{
    Carregar_Grupos();
    Limpar_Dados();
    Carregar_Tabela();
}

void ListaContactos::Contacto_Anterior()
{
    const int actual = ListaNomes.ListIndex();
    ListaNomes.setListIndex(actual == 0 ? ListaNomes.ListCount() - 1 : actual - 1);
}

void ListaContactos::Contacto_Seguinte()
{
    const int actual = ListaNomes.ListIndex();
    ListaNomes.setListIndex(actual == ListaNomes.ListCount() - 1 ? 0 : actual + 1);
}
