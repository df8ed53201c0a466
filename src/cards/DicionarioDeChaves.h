// Who has a key, of many thousands of keys that are asked for and added one by one: nearly all of them are
// one person's, and most that are asked for nobody has. A key is known to be missing by eight bytes of its
// house, where the toolkit's table reads the other keys on its way: half of what comparing a large import
// costs.
#pragma once

#include <cstdint>
#include <QString>
#include <vector>

class DicionarioDeChaves
{
public:
    // Makes room for so many keys, which spares it the growing.
    void Contar_Com(std::size_t quantas);

    void Apontar(const QString &chave, std::size_t lugar);

    // In the order in which they were pointed at; nobody for a key that was never seen, nor for one that more
    // than so many have.
    std::vector<std::size_t> Quem(const QString &chave, std::size_t quando_muito = SIZE_MAX) const;

private:
    struct Entrada {
        QString chave;
        std::size_t primeiro;
        std::vector<std::size_t> outros; // those behind it
    };
    struct Casa {
        quint32 resumo = 0; // a part of the key's hash
        quint32 qual = 0;   // entry, from 1; 0: free
    };

    // The house of that key, or the free one where it belongs. There is always a free one.
    std::size_t Casa_De(const QString &chave, std::size_t resumo) const;
    const Entrada *Procurar(const QString &chave) const;
    void Crescer(std::size_t casas);

    std::vector<Casa> casas_; // a power of two of them, or none
    std::vector<Entrada> entradas_;
};
