#include "cards/EscolhasGuardadas.h"

#include <utility>

void EscolhasGuardadas::Guardar(const std::vector<ContactoAImportar> &contactos)
{
    escolhas_.clear();
    for (const ContactoAImportar &contacto : contactos)
        escolhas_.push_back({contacto.veredicto, contacto.escolha, contacto.com});
}

void EscolhasGuardadas::Repor(std::vector<ContactoAImportar> &contactos)
{
    const std::vector<Guardada> escolhas = std::exchange(escolhas_, {});
    if (escolhas.size() != contactos.size()) return;
    for (std::size_t i = 0; i < contactos.size(); ++i) {
        const Guardada &guardada = escolhas[i];
        ContactoAImportar &contacto = contactos[i];
        const bool serve = guardada.veredicto == contacto.veredicto &&
                           (contacto.quem.empty() || guardada.com < contacto.quem.size());
        if (!serve) continue;
        contacto.escolha = guardada.escolha;
        contacto.com = guardada.com;
    }
}
