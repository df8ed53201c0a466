#include "sincronizacao/ExpedicaoDeCartoes.h"

#include "cards/ContactosVisiveis.h"
#include "data/Geral.h"
#include "sincronizacao/CartaoRecebido.h"
#include "sincronizacao/JuncaoDeTres.h"

#include <algorithm>
#include <QElapsedTimer>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int no_caminho_ao_principio = 12;
constexpr int no_caminho_no_maximo = 48;
constexpr qint64 fatia = 25; // ms that the program may be held up
constexpr int tentativas_no_maximo = 3;
constexpr int recusas_no_maximo = 5; // one after the other: this server takes nothing
} // namespace

ExpedicaoDeCartoes::ExpedicaoDeCartoes(CorridaEmCurso &corrida, RemoteBook &livro,
                                       RecepcaoDeCartoes &recepcao, std::function<void()> avisar)
    : c_(corrida),
      livro_(livro),
      recepcao_(recepcao),
      avisar_(std::move(avisar)),
      saida_(corrida.geral, {}, {CardVersion::V30, true, true, true}),
      janela_(no_caminho_ao_principio)
{
}

int ExpedicaoDeCartoes::Preparar()
{
    int a_eliminar = 0;
    const std::map<int, ColunasDoContacto> todos = c_.grupo.Todos();
    for (const auto &[href, par] : c_.pares.Todos()) {
        if (par.estado != Par::Acordado) continue;
        const auto contacto = todos.find(par.IDContacto);
        if (contacto == todos.end()) {
            if (c_.circunstancias.cautela) continue;
            fila_.push_back({Que::Eliminado, par.IDContacto, href, 0, false, {}, {}, {}});
            ++a_eliminar;
        } else if (!Dizem_O_Mesmo(contacto->second, par.acordo)) {
            fila_.push_back({Que::Alterado, par.IDContacto, href, 0, false, {}, {}, {}});
        }
    }
    for (const auto &[ID, colunas] : todos)
        if (c_.pares.De_Contacto(ID) == nullptr) fila_.push_back({Que::Novo, ID, {}, 0, false, {}, {}, {}});
    todos_ = static_cast<int>(fila_.size());
    return a_eliminar;
}

// A write is as dear as a card's whole journey: those that have come back wait until half of the way is free,
// and are remembered together with those that go next.
bool ExpedicaoDeCartoes::Passo()
{
    if (2 * no_caminho_ > janela_) return true;
    std::vector<Envio> prontos;
    if (!voltas_.empty() || !fila_.empty())
        c_.Escrever([&] {
            Guardar_Voltas();
            if (!erro_) prontos = Aviar();
        });
    for (const Envio &envio : prontos)
        Enviar(envio);
    if (erro_) {
        livro_.cancel(); // what becomes of those on their way the next run will see
        return false;
    }
    if (!fila_.empty() && no_caminho_ < janela_) avisar_();
    return no_caminho_ > 0 || !fila_.empty();
}

// What has been remembered of them before they go tells the next run, should this one end now, what became of
// them.
std::vector<ExpedicaoDeCartoes::Envio> ExpedicaoDeCartoes::Aviar()
{
    QElapsedTimer tempo;
    tempo.start();
    std::vector<Envio> prontos;
    while (!fila_.empty() && no_caminho_ + static_cast<int>(prontos.size()) < janela_ &&
           tempo.elapsed() < fatia) {
        Envio envio = std::move(fila_.front());
        fila_.pop_front();
        if (Cartao_Para(envio))
            prontos.push_back(std::move(envio));
        else
            Feito();
    }
    return prontos;
}

// Everything is asked anew: somebody may have changed it since. False where there is nothing to do any more.
bool ExpedicaoDeCartoes::Cartao_Para(Envio &envio)
{
    const auto linha = c_.grupo.Ler(envio.ID);
    const bool esta_ca = linha && c_.grupo.E_Deste_Grupo(*linha);
    if (envio.que != Que::Eliminado) return esta_ca && Cartao_Do_Contacto(envio, linha->colunas);
    const Par *par = c_.pares.De_Href(envio.href);
    if (par == nullptr || par->estado != Par::Acordado || esta_ca) return false;
    envio.etag = par->etag;
    return true;
}

bool ExpedicaoDeCartoes::Cartao_Do_Contacto(Envio &envio, const ColunasDoContacto &colunas)
{
    const Par *par = c_.pares.De_Contacto(envio.ID);
    ContactoDoLivro contacto{envio.ID, {colunas, {}, {}, {}}};
    if (const auto guardado = Pessoa_Do_Cartao(c_.grupo.Cartao(envio.ID), c_.idioma))
        contacto.contacto.colunas = Alinhado(colunas, guardado->lido.colunas);
    envio.colunas = colunas;
    if (envio.que == Que::Alterado) {
        if (par == nullptr || par->estado != Par::Acordado || Dizem_O_Mesmo(colunas, par->acordo))
            return false;
        // What another book's card says goes into that one: this book's would lose what it alone knows.
        envio.por_ver = Resumo_Do_Cartao(c_.grupo.Cartao(envio.ID)) != par->resumo;
        envio.etag = par->etag;
        if (!envio.por_ver) envio.cartao = saida_.Escrever(contacto);
        return true;
    }
    envio.por_ver = false;
    envio.cartao = saida_.Escrever(contacto);
    envio.href = par == nullptr ? livro_.hrefFor(c_.grupo.UID(envio.ID)) : par->href;
    if (par == nullptr && c_.pares.De_Href(envio.href) != nullptr) { // another one's of the same UID
        c_.grupo.Dar_Outro_UID(envio.ID);
        envio.cartao = saida_.Escrever(contacto);
        envio.href = livro_.hrefFor(c_.grupo.UID(envio.ID));
    }
    c_.pares.Guardar({envio.href, envio.ID, {}, Par::AEnviar, Resumo_Do_Cartao(envio.cartao), colunas});
    return true;
}

void ExpedicaoDeCartoes::Enviar(const Envio &envio)
{
    if (envio.por_ver) return Pedir(envio);
    ++no_caminho_;
    const auto escrito = [this, envio](const RemoteError &erro, const RemoteWritten &onde) {
        Chegou({envio, erro, onde, false, {}, false});
    };
    switch (envio.que) {
    case Que::Novo:
        return livro_.create(envio.href, envio.cartao, escrito);
    case Que::Alterado:
        return livro_.replace(envio.href, envio.etag, envio.cartao, escrito);
    case Que::Eliminado:
        return livro_.remove(envio.href, envio.etag, [this, envio](const RemoteError &erro) {
            Chegou({envio, erro, {}, true, {}, false});
        });
    }
}

void ExpedicaoDeCartoes::Chegou(Volta volta)
{
    --no_caminho_;
    voltas_.push_back(std::move(volta));
    avisar_();
}

void ExpedicaoDeCartoes::Guardar_Voltas()
{
    std::deque<Volta> voltas = std::exchange(voltas_, {});
    for (Volta &volta : voltas)
        Tratar(volta);
}

void ExpedicaoDeCartoes::Tratar(Volta &volta)
{
    if (volta.foi_pedido) return Pedido(volta);
    if (volta.erro.kind == RemoteError::Kind::Changed || volta.erro.kind == RemoteError::Kind::NotFound)
        return Pedir(volta.envio);
    if (volta.erro) return Recusado(volta);
    recusas_seguidas_ = 0;
    janela_ = std::min(janela_ + 1, no_caminho_no_maximo); // this server takes what comes
    if (volta.eliminado)
        Eliminado(volta.envio);
    else
        Escrito(volta);
    Feito();
}

// The contact counts as it went, whatever has become of it since.
void ExpedicaoDeCartoes::Escrito(const Volta &volta)
{
    const Envio &envio = volta.envio;
    const QString href = volta.escrito.href.isEmpty() ? envio.href : volta.escrito.href;
    if (href != envio.href) c_.pares.Eliminar(envio.href);
    const bool sem_marca = volta.escrito.etag.isEmpty();
    c_.pares.Guardar({href, envio.ID, volta.escrito.etag, sem_marca ? Par::PorVer : Par::Acordado,
                      Resumo_Do_Cartao(envio.cartao), envio.colunas});
    if (c_.grupo.Ler(envio.ID)) c_.grupo.Guardar_Cartao(envio.ID, c_.grupo.UID(envio.ID), envio.cartao);
    // As it lies there by now; the server may have written it in its own way, or somebody else has been
    // there.
    if (!volta.escrito.text.isEmpty()) recepcao_.Tratar(href, volta.escrito.etag, volta.escrito.text);
    ++(envio.que == Que::Novo ? c_.resultado.adicionados_la : c_.resultado.alterados_la);
}

void ExpedicaoDeCartoes::Eliminado(const Envio &envio)
{
    c_.pares.Eliminar(envio.href);
    ++c_.resultado.eliminados_la;
}

void ExpedicaoDeCartoes::Recusado(const Volta &volta)
{
    const bool acabou = volta.erro.concernsAll() || ++recusas_seguidas_ >= recusas_no_maximo;
    if (acabou && !erro_) erro_ = volta.erro;
    Feito();
    if (volta.erro.concernsAll()) return;
    janela_ = no_caminho_ao_principio;
    ++c_.resultado.recusados;
    c_.Apontar({Ocorrencia::Recusado, volta.envio.ID, volta.envio.colunas[Coluna::Nome], {}, {}, {}, {}});
}

// The card is another one than the agreed, or gone: it is looked at, and all is decided anew.
void ExpedicaoDeCartoes::Pedir(const Envio &envio)
{
    if (envio.tentativas + 1 >= tentativas_no_maximo) return Feito();
    ++no_caminho_;
    auto volta = std::make_shared<Volta>();
    volta->envio = envio;
    volta->foi_pedido = true;
    livro_.fetch(
        {envio.href}, [volta](const QList<RemoteCard> &cartoes) { volta->pedido += cartoes; },
        [this, volta](const RemoteError &erro) {
            volta->erro = erro;
            Chegou(*volta);
        });
}

void ExpedicaoDeCartoes::Pedido(const Volta &volta)
{
    if (volta.erro) return Recusado(volta);
    const Envio &envio = volta.envio;
    const bool ainda_la = !volta.pedido.isEmpty() && !volta.pedido.constFirst().error;
    if (ainda_la) {
        const RemoteCard &cartao = volta.pedido.constFirst();
        if (envio.que == Que::Novo) { // somebody else's of that name: nothing was ever agreed about it
            c_.pares.Eliminar(envio.href);
            c_.livres.emplace(envio.ID, envio.colunas);
        }
        recepcao_.Tratar(envio.href, cartao.etag, cartao.text);
    } else {
        c_.pares.Eliminar(envio.href);
        if (envio.que == Que::Alterado)
            c_.Apontar({Ocorrencia::EliminadoLa, envio.ID, envio.colunas[Coluna::Nome], {}, {}, {}, {}});
    }
    Outra_Vez(envio);
}

void ExpedicaoDeCartoes::Outra_Vez(Envio envio)
{
    ++envio.tentativas;
    if (envio.que == Que::Eliminado) {
        const Par *o_mesmo = c_.pares.De_Href(envio.href);
        if (o_mesmo == nullptr || o_mesmo->IDContacto != envio.ID) return Feito();
        return fila_.push_back(std::move(envio));
    }
    const Par *par = c_.pares.De_Contacto(envio.ID);
    envio.que = par == nullptr || par->estado == Par::AEnviar ? Que::Novo : Que::Alterado;
    if (par != nullptr) envio.href = par->href;
    fila_.push_back(std::move(envio));
}
