// What a presence code shows on the main window: card and presence poll show it alike.
#pragma once

class QIcon;
class QObject;
class QString;

namespace estado_messenger
{
// Image index of the toolbar's button. "" and "0" are no presence; a code that nobody knows looks like
// online.
int Imagem(const QString &codigo);

// Whether there is somebody to talk to: the button and the menu entries are enabled then.
bool Ligado(const QString &codigo);

// Whether somebody is signed in there: online, busy, idle, away, or a code that nobody knows.
bool Presente(const QString &codigo);

// The picture of the code beside a mail address: without a presence the plain one of every mail row.
QIcon Retrato(const QString &codigo);

// Sets picture and state of the toolbar's button "messenger", and the state of mnuMessenger and
// RightClickMessenger.
void Mostrar(const QObject &janela, const QString &codigo);
} // namespace estado_messenger
