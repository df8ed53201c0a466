// What is to be received, told by what the server says has changed and by what has changed here: which cards
// to ask for, which contacts go, which pairs are none any more.
#pragma once

#include "sincronizacao/CorridaEmCurso.h"

#include <QStringList>

struct RemoteChanges;

struct PlanoDaRecepcao {
    QStringList a_pedir;          // names of cards
    QStringList a_apagar_aqui;    // of pairs whose contact goes
    QStringList a_largar;         // of pairs that end, with whatever is there still to be sent
    QStringList a_reter;          // of pairs whose changes there the user may not have
    QStringList apagados_retidos; // the same for deletions there
    QStringList ganham;           // of those in a_largar: changed here, deleted there
    int acordados = 0;            // pairs of a contact and a card
};

// Reads no card and writes nothing. Also tells the run which contacts no card goes with, and which cards are
// there no more.
PlanoDaRecepcao Planear_A_Recepcao(CorridaEmCurso &corrida, const RemoteChanges &mudancas);
