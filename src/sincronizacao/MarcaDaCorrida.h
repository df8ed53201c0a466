// How many runs there have been, told beside the database: in config.ini, for the session's user. A database
// that was put back from an older copy is known by it.
#pragma once

class Geral;

class MarcaDaCorrida
{
public:
    explicit MarcaDaCorrida(Geral &geral) : geral_(geral) {}

    int Ler(); // 0 where nothing is known
    void Escrever(int corrida);

private:
    Geral &geral_;
};
