// How a run of synchronising came out, as it is shown and remembered.
#pragma once

#include "carddav/RemoteError.h"

#include <QString>

struct ResultadoDaSincronizacao {
    enum class Fim {
        Feita,
        Cancelada,
        Erro,         // of network or server: see erro
        Perguntar,    // so much was deleted on one side that nothing was deleted on the other before somebody
                      // agrees
        SemGrupo,     // the group is not there any more, or not for this user
        Base,         // the database refused: see falha
        Noutro,       // another copy of the program has begun a run of the group, and goes on with it
        OutraEscolha, // the account has another book or group by now
    };

    Fim fim = Fim::Feita;
    RemoteError erro;
    QString falha;

    // Contacts and cards.
    int adicionados = 0; // here
    int alterados = 0;
    int eliminados = 0;
    int adicionados_la = 0; // there
    int alterados_la = 0;
    int eliminados_la = 0;
    int conflitos = 0;
    int retidos = 0;   // not received, for want of a right
    int recusados = 0; // not taken by the server, or not handed over
    bool com_cautela = false;

    // With Fim::Perguntar: so many of so many, here or there.
    bool pergunta_la = false;
    int pergunta_quantos = 0;
    int pergunta_de_quantos = 0;

    bool Mudou_Aqui() const { return adicionados + alterados + eliminados > 0; }
    bool Cedeu() const { return fim == Fim::Noutro || fim == Fim::OutraEscolha; }
    bool Mudou_La() const { return adicionados_la + alterados_la + eliminados_la > 0; }

    // As the database remembers it; without the causes that are in no language.
    QString Texto() const;
    static ResultadoDaSincronizacao Do_Texto(const QString &texto);
};
