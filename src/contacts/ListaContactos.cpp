#include "contacts/ListaContactos.h"

#include "contacts/CartaoContacto.h"
#include "contacts/Preencher_Grupos.h"
#include "data/Geral.h"
#include "janela/Janela.h"
#include "platform/Failure.h"
#include "store/Row.h"

#include <optional>
#include <QLabel>
#include <QScrollBar>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_todos_os_grupos = 48;
constexpr qint16 texto_contador = 49;

bool Os_Mesmos(const ListBox &lista, const ListItems &nomes)
{
    if (lista.ListCount() != nomes.count()) return false;
    for (int i = 0; i < nomes.count(); ++i)
        if (lista.ItemData(i) != nomes.data(i) || lista.ListUtf8(i) != nomes.text(i)) return false;
    return true;
}

int Linha_De(const ListBox &lista, int id)
{
    for (int i = 0; i < lista.ListCount(); ++i)
        if (lista.ItemData(i) == id) return i;
    return -1;
}

// What is selected in a list, and which row is to stay where it is on the screen: the selected one while it is in
// view, otherwise the one at the top.
class LugarNoEcra
{
public:
    explicit LugarNoEcra(const ListBox &lista) : topo_(lista.verticalScrollBar()->value())
    {
        const int linha = lista.ListIndex();
        if (linha >= 0) escolhido_ = lista.ItemData(linha);
        const QModelIndex escolha = lista.model()->index(linha, 0);
        const bool a_vista = linha >= 0 && lista.viewport()->rect().intersects(lista.visualRect(escolha));
        const int firme = a_vista ? linha : topo_;
        if (firme >= lista.ListCount()) return;
        firme_ = lista.ItemData(firme);
        altura_ = firme - topo_;
    }

    bool Tinha_Escolha() const { return escolhido_.has_value(); }

    // Without a click: nobody has chosen anything.
    void Repor(ListBox &lista) const
    {
        const QSignalBlocker sem_clique(lista);
        if (const int linha = escolhido_ ? Linha_De(lista, *escolhido_) : -1; linha >= 0) lista.setListIndex(linha);
        const int firme = firme_ ? Linha_De(lista, *firme_) : -1;
        lista.doItemsLayout(); // or the bar does not know its range yet
        lista.verticalScrollBar()->setValue(firme >= 0 ? firme - altura_ : topo_);
    }

private:
    int topo_; // rows above the view
    int altura_ = 0;
    std::optional<int> escolhido_, firme_; // IDs
};
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
    std::optional<Lidos> lidos;
    if (geral_.de.Num_Servidor()) lidos = Ler();
    Limpar_Dados();
    Preencher_Listas(lidos ? *lidos : Ler());
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
        geral_.de.Percorrer_Nomes(geral_.SessaoActual.IdUtilizador, acrescentar);
    else
        geral_.de.Percorrer("cmdListarNomes", {geral_.GrupoActual}, acrescentar);
    return nomes;
}

ListaContactos::Lidos ListaContactos::Ler()
{
    const Connection::Mark marca = geral_.de.Marca();
    return {marca, Ler_Nomes()};
}

// The twin holds the same rows, and shares them.
void ListaContactos::Preencher_Listas(const Lidos &lidos)
{
    marca_ = lidos.marca;
    ListaNomes.setItems(lidos.nomes);
    ListaNomes2.setItems(lidos.nomes);
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
    Carregar_Tabela();
}

bool ListaContactos::Cartao_A_Vista() const
{
    const int linha = ListaNomes.ListIndex();
    return linha >= 0 && ListaNomes.ItemData(linha) == geral_.IDContacto;
}

// One question instead of two, as long as its name and group are those of before.
bool ListaContactos::So_Mudou_O_Cartao()
{
    const QString grupo = cartao_.NomeGrupo();
    const auto Nome = cartao_.Reler();
    return Nome && *Nome == ListaNomes.List(ListaNomes.ListIndex()) && cartao_.NomeGrupo() == grupo;
}

void ListaContactos::Seguir_Contactos(const QSet<int> &mudados, bool talvez_outros)
{
    const bool so_o_do_cartao = !talvez_outros && Cartao_A_Vista() && mudados == QSet<int>{geral_.IDContacto};
    if (so_o_do_cartao && So_Mudou_O_Cartao()) return;
    Reler();
    const bool mudou = talvez_outros || mudados.contains(geral_.IDContacto) || !Cartao_A_Vista();
    if (ListaNomes.ListIndex() >= 0 && mudou && !so_o_do_cartao) cartao_.Reler();
}

void ListaContactos::Reler()
{
    const Lidos lidos = Ler();
    if (Os_Mesmos(ListaNomes, lidos.nomes)) {
        marca_ = lidos.marca;
        return;
    }
    const LugarNoEcra lugar(ListaNomes);
    Preencher_Listas(lidos);
    lugar.Repor(ListaNomes);
    if (const int linha = ListaNomes.ListIndex(); linha >= 0)
        geral_.IndiceContacto = linha;
    else if (lugar.Tinha_Escolha())
        Largar_Cartao();
    Mostrar_Contador();
}

void ListaContactos::Largar_Cartao()
{
    cartao_.Limpar();
    skipFailure([&] { cartao_.Mostrar_Foto_Por_Omissao(); });
}

void ListaContactos::Seguir_Grupos()
{
    if (!Trocar_Grupos()) return;
    Reler();
    if (Cartao_A_Vista()) cartao_.Reler();
}

// Whether they are others at all. Without a click: the list follows on its own.
bool ListaContactos::Trocar_Grupos()
{
    std::vector<std::pair<QString, int>> grupos;
    Recordset &rs = geral_.de.Abrir("cmdListarGrupos", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        grupos.emplace_back(rs.Fields("NomeGrupo").textOrEmpty(), rs.Fields("ID").number());
    rs.Close();
    std::vector<std::pair<QString, int>> antes;
    for (int i = 1; i < ComboGrupos.ListCount(); ++i)
        antes.emplace_back(ComboGrupos.List(i), ComboGrupos.ItemData(i));
    if (grupos == antes) return false;

    const QSignalBlocker sem_clique(ComboGrupos);
    const int escolhido = ComboGrupos.ListIndex() < 0 ? 0 : ComboGrupos.ItemData(ComboGrupos.ListIndex());
    ComboGrupos.Clear();
    Acrescentar_Todos_Os_Grupos();
    int linha = 0;
    for (const auto &[nome, id] : grupos) {
        ComboGrupos.AddItem(nome);
        ComboGrupos.SetItemData(ComboGrupos.NewIndex(), id);
        if (id == escolhido) linha = ComboGrupos.NewIndex();
    }
    ComboGrupos.setListIndex(linha);
    return true;
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
