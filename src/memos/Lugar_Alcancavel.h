// Where a note may stand so that a hand can reach it: screens come and go between two starts.
#pragma once

#include <QList>
#include <QRect>

// The place for the top left corner of a note of that size and place. It is the note's own while enough of
// its title strip lies on one of the screens; otherwise the nearest place on them where that is so.
QPoint Lugar_Alcancavel(const QRect &nota, int altura_do_titulo, const QList<QRect> &ecras);
