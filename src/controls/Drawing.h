// A drawing among the program's resources, as points.
#pragma once

#include <QImage>

// As large as it fits into that many points, in its own proportions. Null where there is no such drawing.
QImage drawing(const QString &path, const QSize &room);
