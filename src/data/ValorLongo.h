// Values that config.ini cannot give back whole: the form that would write one refuses it first.
#pragma once

class Geral;
class QString;
class QWidget;
struct Platform;

// Whether a later read gives all of it.
bool Cabe_No_Ini(const QString &valor);

// The box that says why a value is not taken. Its words are in the program: older databases do not have them,
// and it may come where there is none.
void Recusar_Valor_Longo(const QString &valor, const Geral &geral, Platform &platform, QWidget *dono);
