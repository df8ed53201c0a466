#include "store/sqlite/FileName.h"

#include <QDir>

// Beyond 260 characters, the side file's included, the system wants to be told that a path is meant as it
// stands.
std::string storeFileName(const QString &path)
{
    constexpr qsizetype short_ = 240;
    const QString whole = QDir::toNativeSeparators(QDir::cleanPath(QDir(path).absolutePath()));
    if (whole.size() < short_) return path.toStdString();
    if (whole.startsWith(QLatin1String("\\\\?\\"))) return whole.toStdString();
    const bool share = whole.startsWith(QLatin1String("\\\\"));
    return ((share ? QStringLiteral("\\\\?\\UNC") : QStringLiteral("\\\\?\\")) +
            (share ? whole.sliced(1) : whole))
        .toStdString();
}
