// The share of the main window that keeps a group of the book and a book on a server the same: on command, at
// the start, every so many minutes. Off unless the user has turned it on. A failure of a run that began by
// itself is told once, by a card, until one succeeds.
#pragma once

#include "carddav/Discovery.h"
#include "carddav/RemoteBook.h"
#include "sincronizacao/Sincronizacao.h"

#include <QPointer>
#include <QTimer>

class frmPopupSincronizacao;
class Janela;
struct Platform;

// The way to servers.
struct ServidoresDeLivros {
    std::function<std::unique_ptr<RemoteBook>(const QUrl &livro, const RemoteAccount &conta)> abrir;
    // Given up when what it returns is let go.
    std::function<std::shared_ptr<void>(const QString &endereco, const RemoteAccount &conta,
                                        const Discovery::Answer &resposta)>
        procurar;
};
ServidoresDeLivros Servidores_Da_Rede();

class Sincronizador final : public QObject
{
    Q_OBJECT
public:
    Sincronizador(Janela &janela, Geral &geral, Platform &platform,
                  ServidoresDeLivros servidores = Servidores_Da_Rede());
    ~Sincronizador() override;

    // The start of the program is over.
    void Iniciar();
    // The user has chosen anew.
    void Retomar_Relogio();

    // The session's user is no more: neither is the password on the server, in the desktop's store.
    void Esquecer_Palavra_Passe();

    // Shows the form of choices and returns when it was closed.
    void Abrir();

    // A run of the session's user. False where there is no account, book or password for one, or one goes on.
    bool Comecar(Sincronizacao::Modo modo, bool por_si = false);
    void Cancelar();
    bool A_Correr() const { return corrida_ != nullptr; }

    // The click on the card, by another way than the mouse. Whether there was one to take it.
    bool Responder();

    const ServidoresDeLivros &Servidores() const { return servidores_; }

Q_SIGNALS:
    void Progresso(int feitos, int de_quantos);
    void Acabou(const ResultadoDaSincronizacao &resultado);
    void ContactosMudados();  // the list must be read anew
    void GruposMudados();     // so must the filter
    void Abrir_Sincronizar(); // the card was clicked: the user wants to see

private:
    void Relogio();
    void Terminada(const ResultadoDaSincronizacao &resultado);
    void Dizer_Falha(const ResultadoDaSincronizacao &resultado);
    std::optional<ContaSincronizada> Conta();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ServidoresDeLivros servidores_;
    std::unique_ptr<Sincronizacao> corrida_;
    QTimer relogio_{this};
    QPointer<frmPopupSincronizacao> popup_;
    bool por_si_ = false; // the run that goes on began by itself
    bool falha_dita_ = false;
    bool a_espera_ = false; // the time came while a form held the timers
};
