#include "controls/ReachablePlace.h"

#include <algorithm>
#include <limits>
#include <QGuiApplication>
#include <QScreen>

namespace
{
constexpr int widthOfGrasp = 60; // pixels of a title that a pointer finds and grasps

// The nearest corner of the strip with which a grasp of it lies on the screen.
QPoint brought(const QRect &title, int grasp, const QRect &screen)
{
    const int left = screen.left() - (title.width() - grasp);
    const int right = std::max(left, screen.left() + screen.width() - grasp);
    const int bottom = std::max(screen.top(), screen.top() + screen.height() - title.height());
    return {std::clamp(title.left(), left, right), std::clamp(title.top(), screen.top(), bottom)};
}
} // namespace

QList<QRect> availableScreens()
{
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens << screen->availableGeometry();
    return screens;
}

QPoint reachablePlace(const QRect &window, int titleHeight, const QList<QRect> &screens)
{
    const QRect title(window.topLeft(), QSize(window.width(), titleHeight));
    const int grasp = std::min(title.width(), widthOfGrasp);
    QPoint best = window.topLeft();
    int least = std::numeric_limits<int>::max();
    for (const QRect &screen : screens) {
        const QPoint place = brought(title, grasp, screen);
        const int distance = (place - title.topLeft()).manhattanLength();
        if (distance >= least) continue;
        least = distance;
        best = place;
    }
    return best;
}
