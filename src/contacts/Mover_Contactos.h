// Emptying one group into another.
#pragma once

class Geral;
class QString;
class QWidget;
struct Platform;

// Puts every contact of the one group into the other; both are given by their IDs in digits. Where they are
// the same, says so in front of the owner and does nothing: false.
bool Mover_Contactos(Geral &geral, Platform &platform, const QString &origem, const QString &destino,
                     QWidget *dono);
