#include "platform/DesktopRegistry.h"

#include "platform/ReplaceFile.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
bool isRunKey(Registry::Root root, const QString &key)
{
    return root == Registry::Root::CurrentUser &&
           key.compare("Software\\Microsoft\\Windows\\CurrentVersion\\Run"_L1, Qt::CaseInsensitive) == 0;
}

// Within a quoted argument of Exec these four signs are escaped, the backslash itself once more by the file,
// and
// "%" stands for a field code unless doubled.
QString quotedForExec(const QString &path)
{
    QString quoted = path;
    quoted.replace(u'\\', "\\\\\\\\"_L1)
        .replace(u'"', "\\\\\""_L1)
        .replace(u'`', "\\\\`"_L1)
        .replace(u'$', "\\\\$"_L1);
    return u'"' + quoted.replace(u'%', "%%"_L1) + u'"';
}

// Some desktops look for the program before they take "%%" for one sign, and would not find it; behind
// another program they don't look.
QString execOf(const QString &path)
{
    return (path.contains(u'%') ? u"env "_s : QString()) + quotedForExec(path);
}

QString unquotedFromExec(const QString &exec)
{
    QString path = exec.mid(1, exec.size() - 2);
    path.replace("%%"_L1, "%"_L1)
        .replace("\\\\$"_L1, "$"_L1)
        .replace("\\\\`"_L1, "`"_L1)
        .replace("\\\\\""_L1, "\""_L1);
    return path.replace("\\\\\\\\"_L1, "\\"_L1);
}
} // namespace

DesktopRegistry::DesktopRegistry()
    : folder_(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + u"/autostart"_s)
{
}

QString DesktopRegistry::readString(Root root, const QString &key, const QString &name)
{
    QFile file(entry(name));
    if (!isRunKey(root, key) || !file.open(QIODevice::ReadOnly)) return {};
    static const QRegularExpression exec(u"^Exec=(?:env )?(\".*\")$"_s, QRegularExpression::MultilineOption);
    const auto match = exec.match(QString::fromUtf8(file.readAll()));
    return match.hasMatch() ? unquotedFromExec(match.captured(1)) : QString();
}

bool DesktopRegistry::writeString(Root root, const QString &key, const QString &name, const QString &value)
{
    if (!isRunKey(root, key) || !QDir().mkpath(folder_)) return false;
    const QString text =
        u"[Desktop Entry]\nType=Application\nVersion=1.0\nName=%1\nExec=%2\nIcon=morvex\nTerminal=false\n"_s;
    return replaceFile(entry(name), text.arg(name, execOf(value)).toUtf8());
}

bool DesktopRegistry::deleteValue(Root root, const QString &key, const QString &name)
{
    return isRunKey(root, key) && QFile::remove(entry(name));
}

QString DesktopRegistry::entry(const QString &name) const
{
    return folder_ + u'/' + QString(name).replace(u'/', u'_') + u".desktop"_s;
}
