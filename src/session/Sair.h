// The way out of the program.
#pragma once

class Geral;
class QWidget;
struct Platform;

// Warns of pending tasks, which ring only while the program runs. On No the program goes on; otherwise the tray
// icons go and the process ends at once, with nothing left to save. It ends too, after the error box, where the
// tasks can't be read: a broken database must not keep anybody in.
void Sair(Geral &geral, Platform &platform, QWidget *dono);
