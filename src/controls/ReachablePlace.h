// Where a window may stand so that a hand can reach it: screens come and go, between two starts and while it
// is hidden.
#pragma once

#include <QList>
#include <QRect>

// The parts of the desktop's screens that a window may cover.
QList<QRect> availableScreens();

// The place for the top left corner of a window of that size and place. It is the window's own while enough
// of its title strip lies on one of the screens; otherwise the nearest place on them where that is so.
QPoint reachablePlace(const QRect &window, int titleHeight, const QList<QRect> &screens);
