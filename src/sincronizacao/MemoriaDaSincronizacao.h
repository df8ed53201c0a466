// What the database remembers of synchronising: whose group goes with which book, and for each contact in it
// how it and its card were when the two last said the same.
#pragma once

#include "cards/ColunasDoContacto.h"

#include <map>
#include <optional>
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <vector>

class DE;

// What a user has chosen.
struct ContaSincronizada {
    QString Endereco;
    QString Nome;         // on the server
    QString PalavraPasse; // scrambled; empty where the desktop keeps it
    QString Livro;        // its address; empty as long as none was chosen
    QString NomeDoLivro;
    int IDGrupo = 0; // 0 for none
    bool Ligada = false;
    bool AoArrancar = false;
    int Minutos = 0; // between two runs; 0 for never by itself

    bool operator==(const ContaSincronizada &) const = default;
};

// Where the last run stood.
struct EstadoDaConta {
    QByteArray Testemunho; // the server's word for the state up to which all was received
    int Corrida = 0;       // counts the runs; below 0 while a database that was put back is not up to date
    QString UltimaVez;     // ISO, local time; empty for never
    QString Resultado;     // of the last run, as ResultadoDaSincronizacao writes it
};

// A contact and its card.
struct Par {
    enum Estado : int { // or what a newer program wrote
        Acordado,
        AEnviar,       // the card is on its way to the server, for the first time
        PorVer,        // the card has to be asked for, whatever the server says has changed
        Retido,        // its changes wait for a right that the user has not
        ApagadoRetido, // the same for its deletion there
        Ignorado,      // the card is no person's, or can't be read
    };
    QString href;
    int IDContacto = 0; // 0 for none
    QByteArray etag;
    Estado estado = Acordado;
    QByteArray resumo;        // of the card of the agreement, by Resumo_Do_Cartao
    ColunasDoContacto acordo; // the contact at the agreement, without its group
};

// Something that a person should know of.
struct Ocorrencia {
    enum Que : int { // or what a newer program wrote
        Conflito = 1,  // of a column: the server's value stayed, ours went to Obs
        EliminadoLa,   // changed here, deleted there: it is there again
        EliminadoAqui, // changed there, deleted here: it is here again
        SemDireito,    // not received: the user may not do that
        Recusado,      // the server did not take the card
        NaoCabe,       // the numbers of contacts are used up
        Ilegivel,      // the card can't be read
        NaoRecebido,   // the server did not hand the card over
    };
    Que que = Conflito;
    int IDContacto = 0;
    QString Nome;
    QString Campo; // the column of a conflict, as the table names it
    QString Aqui;  // its values
    QString La;
    QString Quando; // ISO, local time
};

// An equal one for two cards that say the same, however they are written. Empty for what is no card.
QByteArray Resumo_Do_Cartao(const QByteArray &cartao);

class MemoriaDaSincronizacao
{
public:
    MemoriaDaSincronizacao(DE &de, QString IdUtilizador);

    // An older database that takes no writing has none.
    std::optional<ContaSincronizada> Conta();
    EstadoDaConta Estado();
    // How many runs those of other users who have chosen that group have begun, by the user.
    std::map<QString, int> Corridas_Dos_Outros(int IDGrupo);
    // Another book or group than before is a new beginning: the pairs are forgotten, and a run that goes on
    // writes nothing more. All of these raise Failure where the database takes no writing.
    void Guardar(const ContaSincronizada &conta);
    void Guardar_Corrida(int corrida);
    void Guardar_Resultado(const EstadoDaConta &estado);
    // All that this class remembers of the user.
    void Esquecer();

    std::vector<Par> Pares();
    void Guardar(const Par &par);
    void Eliminar_Par(const QString &href);

    std::vector<Ocorrencia> Ocorrencias(); // the newest first
    void Apontar(const Ocorrencia &ocorrencia);
    void Limpar_Ocorrencias();

private:
    QString Chave(const QString &href) const;

    DE &de_;
    QString IdUtilizador_;
};
