// The way out of the program.
#pragma once

class Geral;
class QWidget;
struct Platform;

// Warns of pending tasks, which ring only while the program runs. On No the program goes on; otherwise the tray
// icons go and the process ends at once, with nothing left to save.
void Sair(Geral &geral, Platform &platform, QWidget *dono);
