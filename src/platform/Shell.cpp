#include "platform/Shell.h"

#include "platform/MailProgram.h"

#include <array>
#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{
// What stands before a colon is often a host ("www.example:8080"), so a scheme must look like one.
bool hasScheme(const QString &target)
{
    return target.startsWith("mailto:"_L1, Qt::CaseInsensitive) || target.contains("://"_L1);
}

// The desktop wants a scheme; people and their contacts leave it out.
QUrl addressOf(const QString &target)
{
    if (QDir::isAbsolutePath(target)) return QUrl::fromLocalFile(target);
    return {hasScheme(target) ? target : u"http://"_s + target};
}

struct SettingsProgram {
    const char *desktop; // as $XDG_CURRENT_DESKTOP names it; empty where the program asks for none
    const char *program;
    const char *arguments; // separated by blanks
};

constexpr std::array settingsOfDateAndTime = std::to_array<SettingsProgram>({
    {"GNOME", "gnome-control-center", "datetime"},
    {"KDE", "systemsettings", "kcm_clock"},
    {"KDE", "systemsettings5", "kcm_clock"},
    {"X-Cinnamon", "cinnamon-settings", "calendar"},
    {"MATE", "mate-time-admin", ""},
    {"LXQt", "lxqt-admin-time", ""},
    {"", "time-admin", ""},
    {"", "rundll32.exe", "shell32.dll,Control_RunDLL timedate.cpl"},
});

// Another desktop's settings are no use even where they are installed: they refuse to start, or set nothing.
bool fits(const SettingsProgram &settings)
{
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':');
    return *settings.desktop == '\0' || desktops.contains(QLatin1StringView(settings.desktop));
}

bool start(const SettingsProgram &settings)
{
    const QString path = QStandardPaths::findExecutable(QLatin1StringView(settings.program));
    if (path.isEmpty()) return false;
    QProcess process;
    process.setProgram(path);
    process.setArguments(QString(QLatin1StringView(settings.arguments)).split(u' ', Qt::SkipEmptyParts));
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}
} // namespace

void DesktopShell::open(const QString &target) { QDesktopServices::openUrl(addressOf(target)); }

void DesktopShell::openDateAndTimeSettings()
{
    for (const SettingsProgram &settings : settingsOfDateAndTime)
        if (fits(settings) && start(settings)) return;
}

void DesktopShell::openMailProgram() { startMailProgram(); }
