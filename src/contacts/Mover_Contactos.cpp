#include "contacts/Mover_Contactos.h"

#include "data/Geral.h"
#include "platform/Platform.h"

#include <QWidget>

bool Pode_Mover(Geral &geral, Platform &platform, const QString &origem, const QString &destino,
                QWidget *dono)
{
    if (origem != destino) return true;
    platform.boxes.show(geral.Ler_Idioma(120), box::stop, dono->windowTitle(), dono);
    return false;
}

void Mover_Contactos(Geral &geral, const QString &origem, const QString &destino)
{
    geral.de.Executar("cmdChangeGroup", {destino, origem});
}
