// For an edition of the program that reaches no server.
#include "testlib/BaseDoPrograma.h"

bool BaseDoPrograma::Pedida() { return false; }

BaseDoPrograma &BaseDoPrograma::Tomar(Linhas) { qFatal("This edition reaches no server."); }

BaseDoPrograma::BaseDoPrograma(QString nome) : nome_(std::move(nome)) {}

BaseDoPrograma::~BaseDoPrograma() = default;

QString BaseDoPrograma::Do_Posto() const { return {}; }

QString BaseDoPrograma::De_Nenhuma() const { return {}; }
