#include "contacts/ListaContactos.h"

#include "contacts/CartaoContacto.h"
#include "contacts/Preencher_Grupos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "store/Row.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_todos_os_grupos = 48;
constexpr qint16 texto_contador = 49;
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

ListItems ListaContactos::Ler_Nomes()
{
    ListItems nomes;
    int coluna_nome = -1;
    int coluna_id = -1;
    const auto acrescentar = [&](const Row &linha) {
        if (coluna_id < 0) {
            coluna_nome = linha.column("Nome");
            coluna_id = linha.column("ID");
        }
        nomes.append(linha.utf8(coluna_nome), static_cast<int>(linha.number(coluna_id)));
    };
    geral_.GrupoActual = QString::number(ComboGrupos.ItemData(ComboGrupos.ListIndex()));
    if (geral_.GrupoActual.toInt() == 0)
        geral_.de.Percorrer("cmdListarTodosContactos", {geral_.SessaoActual.IdUtilizador}, acrescentar);
    else
        geral_.de.Percorrer("cmdListarNomes", {geral_.GrupoActual}, acrescentar);
    return nomes;
}

// The twin holds the same rows, and shares them.
void ListaContactos::Preencher_Listas()
{
    marca_ = geral_.de.Marca();
    const ListItems nomes = Ler_Nomes();
    ListaNomes.setItems(nomes);
    ListaNomes2.setItems(nomes);
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
