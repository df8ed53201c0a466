// Takes contacts out of the book, a few at a time, so that whoever shows the progress stays awake. Until it
// is concluded nothing of it can be seen, and when it is given up nothing ever was.
#pragma once

#include "interchange/CartoesDeSaida.h"
#include "interchange/ContactosVisiveis.h"
#include "interchange/DestinosDeSaida.h"
#include "interchange/TabelaDeSaida.h"

#include <memory>

enum class FormatoDeSaida { Cartao3, Cartao4, TabelaExcel, TabelaOutros };

struct PedidoDeSaida {
    QList<int> contactos; // by their IDs, in the order of the file
    FormatoDeSaida formato = FormatoDeSaida::Cartao3;
    bool com_fotografias = true; // cards only, as the next
    bool um_por_contacto = false;
    QString alvo; // the file, or then the folder
};

class ExportacaoDeContactos
{
public:
    // Raises Failure as DestinosDeSaida do, and where the book can't be read.
    ExportacaoDeContactos(Geral &geral, PedidoDeSaida pedido);

    int Quantos() const { return static_cast<int>(pedido_.contactos.size()); }
    int Feitos() const { return feitos_; }
    bool Acabou() const { return feitos_ == Quantos(); }

    // Goes on for about so many milliseconds, and for one contact at least.
    void Avancar(int milissegundos);

    // The files are in their place when this returns.
    void Concluir() { destino_->Concluir(); }

    // A contact that is gone by the time of its turn, or hidden from the user, is not written.
    int Escritos() const { return escritos_; }
    int Fotografias_De_Fora() const { return cartoes_ ? cartoes_->Fotografias_De_Fora() : 0; }

private:
    void Escrever(int ID);

    Geral &geral_;
    PedidoDeSaida pedido_;
    ContactosVisiveis visiveis_;
    std::unique_ptr<CartoesDeSaida> cartoes_; // one of these two
    std::unique_ptr<TabelaDeSaida> tabela_;
    std::unique_ptr<DestinoDeSaida> destino_;
    int feitos_ = 0;
    int escritos_ = 0;
};
