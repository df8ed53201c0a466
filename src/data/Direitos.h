// Asks for the rights of the session, at the moment in which the user acts: no button is ever disabled for
// want of one.
#pragma once

class Geral;
class QWidget;
struct Platform;

// Passes the right on. Without it the user reads the refusal first, titled like the window in front of which
// it stands.
bool Tem_Direito(bool direito, Geral &geral, Platform &platform, QWidget *dono);
