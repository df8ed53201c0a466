#include "contacts/Mover_Contactos.h"

#include "data/Geral.h"
#include "platform/Platform.h"

#include <QWidget>

bool Mover_Contactos(Geral &geral, Platform &platform, const QString &origem, const QString &destino,
                     QWidget *dono)
{
    if (origem == destino) {
        platform.boxes.show(geral.Ler_Idioma(120), box::stop, dono->windowTitle(), dono);
        return false;
    }
    geral.de.Executar("cmdChangeGroup", {destino, origem});
    return true;
}
