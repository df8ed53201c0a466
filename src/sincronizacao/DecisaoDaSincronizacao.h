// What becomes of one contact and its card on the server, told by what has happened on either side since the
// two were last the same. It knows neither database nor server.
#pragma once

#include <QtGlobal>

// Of one side, against the last agreement. A contact without a card is one whose card is gone, and the other
// way round: with no agreement the one that there is has changed.
enum class Lado { Igual, Mudado, Apagado };

enum class Accao {
    Nada,
    Receber,     // the card's changes into the contact
    ReceberNovo, // the card as a new contact
    Juntar,      // both have changed: column by column
    ApagarAqui,
    Enviar,
    EnviarNovo,
    ApagarLa,
    Esquecer, // it is gone on both sides
    Reter,    // the user may not do here what it would take: for another time
};

struct Circunstancias {
    bool cautela = false; // the memory is older than what happened: nothing is deleted anywhere
    bool adicionar = true;
    bool editar = true;
    bool eliminar = true; // the rights of the user
};

// A change wins against a deletion.
Accao Decidir(Lado aqui, Lado la, const Circunstancias &circunstancias = {});

// So many of so many deleted at once are more likely an accident than a wish.
bool Sao_Demasiadas(qsizetype eliminadas, qsizetype de_quantas);
