// What a presence code means and looks like.
#pragma once

class QIcon;
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

// The picture of the toolbar's button.
QIcon Botao(const QString &codigo);

// The picture of the code beside a mail address: without a presence the plain one of every mail row.
QIcon Retrato(const QString &codigo);
} // namespace estado_messenger
