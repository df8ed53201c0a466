// What all parts of one run of synchronising have in their hands.
#pragma once

#include "sincronizacao/DecisaoDaSincronizacao.h"
#include "sincronizacao/GrupoLocal.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/ResultadoDaSincronizacao.h"

#include <exception>
#include <functional>
#include <QSet>

class Clock;

// Another run of the same group has begun since, at another desk or in another copy of the program, be it of
// this account or of another user's: it goes on from what is there by now, and this one must write nothing
// more. So it is where the account has chosen another book or group.
struct Ultrapassada : std::exception {
};

// The pairs, in memory and in the database at once. What changes them must run within
// CorridaEmCurso::Escrever.
class ParesEmMao
{
public:
    explicit ParesEmMao(MemoriaDaSincronizacao &memoria);

    const std::map<QString, Par> &Todos() const { return pares_; } // by href
    const Par *De_Href(const QString &href) const;                 // null without one
    const Par *De_Contacto(int ID) const;

    void Guardar(const Par &par);
    void Eliminar(const QString &href);

private:
    MemoriaDaSincronizacao &memoria_;
    std::map<QString, Par> pares_;
    std::map<int, QString> hrefs_; // by the contact
};

struct CorridaEmCurso {
    CorridaEmCurso(Geral &geral, const Clock &relogio, int IDGrupo);

    // All that a run writes is written within this, as one. Raises Ultrapassada, and what DE::Tudo_Ou_Nada
    // does.
    void Escrever(const std::function<void()> &trabalho);

    // Tells of something once: what would be so at every run stands in the list already. Within Escrever.
    void Apontar(Ocorrencia ocorrencia);

    Geral &geral;
    const Clock &relogio;
    MemoriaDaSincronizacao memoria;
    ParesEmMao pares;
    GrupoLocal grupo;
    Circunstancias circunstancias;
    ResultadoDaSincronizacao resultado;
    QString idioma;
    std::map<int, ColunasDoContacto> livres; // contacts of the group that no card goes with, by ID
    QSet<QString> sumidos;                   // cards of pairs that are not there any more, by href
    int posse = 0; // what the account's count says as long as no other run has begun

private:
    bool Outro_Comecou();

    int IDGrupo_;
    std::map<QString, int> dos_outros_; // what the counts of others with this group said at the beginning
    QSet<QString> ditas_;
};
