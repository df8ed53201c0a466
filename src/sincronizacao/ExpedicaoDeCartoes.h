// What has to go to the server: contacts changed here, new ones, and the cards of those that are gone. A few
// at a time are on their way; what came of each is remembered with the next write.
#pragma once

#include "carddav/RemoteBook.h"
#include "cards/CartoesDeSaida.h"
#include "sincronizacao/CorridaEmCurso.h"

#include <deque>
#include <functional>
#include <QObject>

class RecepcaoDeCartoes;

class ExpedicaoDeCartoes
{
public:
    // Calls avisar, from the event loop, whenever there is something to remember or to send.
    ExpedicaoDeCartoes(CorridaEmCurso &corrida, RemoteBook &livro, RecepcaoDeCartoes &recepcao,
                       std::function<void()> avisar);

    // Compares the group with the memory. Nothing has been sent yet. Returns how many cards would be deleted.
    int Preparar();

    // Remembers what has come back, prepares what is next and sends it. False when there is nothing more, or
    // the rest has no sense: see Erro. Raises Failure where the database refuses.
    bool Passo();

    // Of the connection, or of a server that takes nothing.
    const RemoteError &Erro() const { return erro_; }

    int Feitos() const { return feitos_; }
    int Todos() const { return todos_; }

private:
    enum class Que { Novo, Alterado, Eliminado };
    struct Envio {
        Que que = Que::Novo;
        int ID = 0;
        QString href; // of a new one once it is known
        int tentativas = 0;
        bool por_ver = false; // the card has to be looked at before it is written
        // As it went.
        QByteArray etag;
        QByteArray cartao;
        ColunasDoContacto colunas;
    };
    struct Volta { // what became of it
        Envio envio;
        RemoteError erro;
        RemoteWritten escrito;
        bool eliminado = false;   // the answer to a removal
        QList<RemoteCard> pedido; // the card as it is there, where it was asked for
        bool foi_pedido = false;
    };

    std::vector<Envio> Aviar();
    bool Cartao_Para(Envio &envio);
    bool Cartao_Do_Contacto(Envio &envio, const ColunasDoContacto &colunas);
    void Enviar(const Envio &envio);
    void Guardar_Voltas();
    void Tratar(Volta &volta);
    void Escrito(const Volta &volta);
    void Eliminado(const Envio &envio);
    void Recusado(const Volta &volta);
    void Pedir(const Envio &envio);
    void Pedido(const Volta &volta);
    void Outra_Vez(Envio envio);
    void Feito() { ++feitos_; }
    void Chegou(Volta volta);

    CorridaEmCurso &c_;
    RemoteBook &livro_;
    RecepcaoDeCartoes &recepcao_;
    std::function<void()> avisar_;
    CartoesDeSaida saida_;
    std::deque<Envio> fila_;
    std::deque<Volta> voltas_;
    RemoteError erro_;
    int no_caminho_ = 0;
    int janela_; // so many may be on their way
    int feitos_ = 0;
    int todos_ = 0;
    int recusas_seguidas_ = 0;
};
