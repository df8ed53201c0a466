// The share of the main window by which contacts leave the book: into files, on to the clipboard, and as a
// code on the screen.
#pragma once

#include "interchange/CartoesDeSaida.h"
#include "interchange/ContactosVisiveis.h"

#include <QObject>

class Janela;
struct Platform;

class SaidaDeContactos final : public QObject
{
    Q_OBJECT
public:
    SaidaDeContactos(Janela &janela, Geral &geral, Platform &platform);

private:
    void ExportarContactos_Click();
    void RightClickCopiarCartao_Click();
    void RightClickQR_Click();

    // The one that is selected in the list, and its card. Nothing where none is, and a message has said so.
    struct Escolhido {
        ColunasDoContacto colunas;
        QByteArray cartao;
    };
    std::optional<Escolhido> Ler_Escolhido(CartoesDeSaida::Opcoes opcoes);

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
};
