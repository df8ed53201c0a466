#include "platform/ProgramFolder.h"

#include "platform/WritableFolder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace
{
constexpr char settingsName[] = "config.ini";

bool holdsSettings(const QString &folder) { return QFileInfo::exists(fileIn(folder, QLatin1String(settingsName))); }

QString choose(const ProgramFolder::Surroundings &surroundings)
{
    if (!surroundings.override.isEmpty()) return QDir::cleanPath(surroundings.override);
    const QString &own = surroundings.executableFolder;
    const bool shippedHere = own != surroundings.installedData && holdsSettings(own);
    const bool writable = isWritableFolder(own);
    // A system folder of programs is writable for an administrator, and still no place for data.
    const bool ofTheSystem = QDir(own).dirName() == QLatin1String("bin") &&
                             QFileInfo::exists(surroundings.installedData);
    return shippedHere || (writable && !ofTheSystem) ? own : surroundings.userData;
}

// The files come one by one and the settings last: a filling that was cut short is taken up again.
void fill(const QString &folder, const QString &shipped)
{
    QDir().mkpath(folder);
    QStringList names = QDir(shipped).entryList(QDir::Files);
    names.removeOne(QLatin1String(settingsName));
    names << QLatin1String(settingsName);
    for (const QString &name : names) {
        const QString target = fileIn(folder, name);
        if (QFile::copy(fileIn(shipped, name), target))
            QFile::setPermissions(target, QFile::permissions(target) | QFileDevice::WriteOwner);
    }
}
} // namespace

ProgramFolder::ProgramFolder(const Surroundings &surroundings)
    : surroundings_(surroundings), path_(choose(surroundings))
{
    if (!holdsSettings(path_) && path_ != surroundings.installedData) fill(path_, surroundings.installedData);
}

QString ProgramFolder::shipped(const QString &name) const
{
    for (const QString &folder : {path_, surroundings_.executableFolder, surroundings_.installedData})
        if (QFileInfo::exists(fileIn(folder, name))) return fileIn(folder, name);
    return {};
}

ProgramFolder::Surroundings ProgramFolder::current(const QString &installedData)
{
    const QString own = QCoreApplication::applicationDirPath();
    return {qEnvironmentVariable("MORVEX_HOME"), own,
            QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/morvex"),
            QDir::cleanPath(QDir(own).absoluteFilePath(installedData))};
}

QString fileIn(const QString &folder, const QString &name) { return folder + u'/' + name; }
