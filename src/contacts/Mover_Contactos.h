// Emptying one group into another. Both are given by their IDs in digits.
#pragma once

class Geral;
class QString;
class QWidget;
struct Platform;

// Whether they are two. Where they are the same, says so in front of the owner.
bool Pode_Mover(Geral &geral, Platform &platform, const QString &origem, const QString &destino,
                QWidget *dono);

// Puts every contact of the one group into the other. Asks and says nothing.
void Mover_Contactos(Geral &geral, const QString &origem, const QString &destino);
