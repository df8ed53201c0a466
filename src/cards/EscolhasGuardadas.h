// What a person had decided about the contacts of a file, kept while the file is read in another way.
#pragma once

#include "cards/ImportacaoDeContactos.h"

class EscolhasGuardadas
{
public:
    void Guardar(const std::vector<ContactoAImportar> &contactos);
    // Where it still fits; once.
    void Repor(std::vector<ContactoAImportar> &contactos);
    void Esquecer() { escolhas_.clear(); }

private:
    struct Guardada {
        Veredicto veredicto;
        Escolha escolha;
        std::size_t com;
    };
    std::vector<Guardada> escolhas_;
};
