// One run: what has changed on the server comes into the group, what has changed in the group goes to the
// server. It works by events and in slices, writes nothing while a form holds the timers, and remembers what
// it did as it does it: wherever it ends, the next run goes on from there. So it does where two copies of the
// program, or two users' accounts, have the same group in hand at the same time: the one that began last goes
// on, and the other one ends.
#pragma once

#include "carddav/RemoteBook.h"
#include "sincronizacao/CartaoRecebido.h"
#include "sincronizacao/ExpedicaoDeCartoes.h"
#include "sincronizacao/PlanoDaRecepcao.h"

#include <deque>
#include <memory>
#include <QElapsedTimer>
#include <QObject>

class Sincronizacao final : public QObject
{
    Q_OBJECT
public:
    enum class Modo {
        Normal,
        ApagarMuitos, // somebody has agreed to it
        SemApagar,    // nothing is deleted anywhere: what is missing on one side comes back to it
    };

    // The book is this run's from now on.
    Sincronizacao(Geral &geral, const Clock &relogio, std::unique_ptr<RemoteBook> livro, Modo modo,
                  QObject *dono = nullptr);
    ~Sincronizacao() override;

    // Terminada comes later, once, unless this is deleted before.
    void Comecar();
    // Ends it as soon as possible; what is done stays.
    void Cancelar();

Q_SIGNALS:
    void Progresso(int feitos, int de_quantos); // 0 of 0 as long as nobody knows
    void Terminada(const ResultadoDaSincronizacao &resultado);

private:
    // A large group is read in several of them, each of which must take no longer than nobody notices.
    enum class Fase { Parada, AEspera, OPlano, ASala, ARecepcao, OsPares, OsEnvios, AExpedicao, Fim };

    void Agendar();
    void Passo();
    void Passo_Da_Fase();
    void Abrir();
    bool Tomar_A_Corrida();
    void Pedir_Mudancas();
    void Mudancas(const RemoteError &erro, const RemoteChanges &mudancas);
    void Planear();
    void Preparar_A_Recepcao();
    void Pedir_Cartoes();
    void Receber();
    void Receber_Um(const RemoteCard &cartao);
    void Sem_Cartao(const RemoteCard &cartao);
    void Arrumar_Os_Pares();
    void Apagar_Aqui(const QString &href);
    bool Ha_Que_Perguntar(bool la, qsizetype quantos);
    qsizetype Quantos_A_Apagar_Aqui() const;
    void Largar(const QString &href);
    void Reter(const QString &href, Par::Estado estado);
    void Preparar_A_Expedicao();
    void Expedir();
    void Acabar(ResultadoDaSincronizacao::Fim fim);
    void Acabar_Com(const RemoteError &erro);
    ResultadoDaSincronizacao::Fim Porque_Cede();
    void Guardar_Fim();

    Geral &geral_;
    const Clock &relogio_;
    std::unique_ptr<RemoteBook> livro_;
    Modo modo_;
    Fase fase_ = Fase::Parada;
    bool agendado_ = false;
    std::unique_ptr<CorridaEmCurso> c_;
    std::unique_ptr<RecepcaoDeCartoes> recepcao_;
    std::unique_ptr<ExpedicaoDeCartoes> expedicao_;
    ContaSincronizada conta_;
    EstadoDaConta estado_;
    RemoteChanges mudancas_;
    PlanoDaRecepcao plano_;
    std::deque<RemoteCard> chegados_;
    bool tudo_chegou_ = false;
    RemoteError erro_da_recepcao_;
    int recebidos_ = 0;
};
