#include "data/Direitos.h"

#include "data/Geral.h"
#include "platform/Platform.h"

#include <QWidget>

bool Tem_Direito(bool direito, Geral &geral, Platform &platform, QWidget *dono)
{
    if (!direito) platform.boxes.show(geral.Ler_Idioma(102), box::stop, dono);
    return direito;
}
