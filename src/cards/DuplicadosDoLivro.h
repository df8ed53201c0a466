// The pairs of contacts of the book that may be one person, and what a person decides of each. Only contacts
// that the session's user sees.
#pragma once

#include "cards/JuncaoDeContactos.h"
#include "cards/ParesDuplicados.h"
#include "data/LinhaInteira.h"

#include <optional>

class DesfazerEliminacao;
class Geral;

class DuplicadosDoLivro
{
public:
    // A pair as it is shown.
    struct Aberto {
        QString ID; // of the contact that stays: the older one
        QString outroID;
        LinhaInteira linha;
        LinhaInteira outra_linha;
        ColunasDoContacto colunas;
        ColunasDoContacto outras_colunas;
        Indicio indicio = Indicio::Nome;
    };

    // Reads the book and finds the pairs, without those that were found to be different people.
    DuplicadosDoLivro(Geral &geral, DesfazerEliminacao &desfazer);

    std::size_t Quantos() const { return pares_.size(); }
    std::size_t Actual() const { return actual_; } // how many have passed

    // The pair in hand as it stands in the book now. Pairs of which somebody is gone are passed over; nothing
    // where there is none any more.
    std::optional<Aberto> Abrir();
    void Seguinte() { ++actual_; }
    QString Nome_Do_Grupo(const LinhaInteira &contacto) const;

    // All of it or nothing, and undone as a deletion is: the contact stays with these columns, and with the
    // other's kept card where it has none; the other one goes. False, and nothing is done, where either is
    // not any more what it was when it was opened. Raises Failure.
    bool Juntar(const Aberto &par, const ColunasDoContacto &colunas);

    // Remembered in the database, for every user.
    void Guardar_Diferentes(const Aberto &par);

private:
    struct Par {
        QString ID;
        QString outroID;
        Indicio indicio;
    };

    void Procurar();
    bool A_Vista(const LinhaInteira &linha) const;
    void Escrever(const Aberto &par, const ColunasDoContacto &colunas);

    Geral &geral_;
    DesfazerEliminacao &desfazer_;
    QHash<QString, QString> grupos_; // names by ID, of those that the user sees
    std::vector<Par> pares_;
    std::size_t actual_ = 0;
};
