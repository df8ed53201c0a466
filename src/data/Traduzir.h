// Words that stand in the code, for a form's controls.
#pragma once

#include "platform/Translations.h"

class Geral;

// In the active language; blank while none is active, as the texts of the table are.
QString Traduzir(const Translations &palavras, const Geral &geral);
