#include "janela/Janela.h"

Janela::Janela() { setupUi(this); }

Janela::~Janela() = default;
