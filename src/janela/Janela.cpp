#include "janela/Janela.h"

#include "controls/DrawnIcon.h"

Janela::Janela()
{
    setupUi(this);
    giveDrawnIcons(*this);
}

Janela::~Janela() = default;
