// A database of a test program on the tests' server, as a desk finds it that an administrator has set up:
// copied of a model, given to one installation after the other, each time as new, and dropped when the
// program ends.
#pragma once

#include "store/Connection.h"

#include <memory>
#include <QString>

class BaseDoPrograma
{
public:
    // Whether this run of the program is for a server (MORVEX_SERVIDOR).
    static bool Pedida();

    // What an installation finds in it.
    enum class Linhas {
        Vazias,   // as it was made: the texts and the one row of the settings
        Semeadas, // what a first run in Portuguese adds
    };

    // One that nobody else has at the moment, as new. Fails the whole program where there is no server.
    static BaseDoPrograma &Tomar(Linhas linhas);
    // Nobody needs it any longer.
    void Largar() { tomada_ = false; }
    bool Tomada() const { return tomada_; }

    explicit BaseDoPrograma(QString nome);
    ~BaseDoPrograma();
    BaseDoPrograma(const BaseDoPrograma &) = delete;
    BaseDoPrograma &operator=(const BaseDoPrograma &) = delete;

    // The address by which a desk opens it, with no more rights than a desk has, and one under which there is
    // nothing.
    QString Do_Posto() const;
    QString De_Nenhuma() const;

    // Past the program, with the owner's rights.
    Connection &Da_Dona() { return dona_; }

private:
    bool Limpa(Linhas linhas);
    void Refazer();

    QString nome_;
    bool tomada_ = false;
    Connection dona_;
};
