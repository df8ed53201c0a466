// Icons that are read when they are first drawn. The toolkit's own read each drawing twice when it is named,
// and once more when it is drawn, and most of a window's icons are out of sight at first.
#pragma once

#include <QIcon>

class QIconEngine;

// The icon in that file of ours, a drawing in SVG.
QIcon drawnIcon(const QString &path);

// What draws it, for whoever makes icons of it. The icon owns it.
QIconEngine *drawnIconEngine(const QString &path);

// Gives each control and command below that object the icon that its form names as its "imagem".
void giveDrawnIcons(QObject &form);
