// The process: makes the services of the desktop, the process-wide values and the main window, and lets it
// run.
#include "session/FimDaSessao.h"
#include "session/Main.h"
#include "data/Geral.h"
#include "controls/Application.h"
#include "platform/DesktopRegistry.h"
#include "platform/DesktopSessionEnd.h"
#include "platform/DesktopSound.h"
#include "platform/DesktopTray.h"
#include "mail/PopMailNotification.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "platform/PurpleMessenger.h"
#include "platform/SingleInstance.h"
#include "platform/WindowsRegistry.h"

#include <QIcon>

namespace
{
#ifdef Q_OS_WIN
using OwnRegistry = WindowsRegistry;
#else
using OwnRegistry = DesktopRegistry;
#endif
} // namespace

int main(int argc, char **argv)
{
    // Notes, popups and the tray need a desktop on which a window may choose its own place.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb;wayland");

    DesktopMessageBoxes boxes;
    Application application(argc, argv, boxes);
    SystemClock clock;
    DesktopDialogs dialogs;
    DesktopShell shell;
    DesktopSound sound;
    OwnRegistry registry;
    OwnProcess process;
    PurpleMessenger messenger;
    DesktopTray tray(QIcon(QStringLiteral(":/imagens/tray/morvex_tray.svg")),
                     QIcon(QStringLiteral(":/imagens/tray/morvex_tray_trancado.svg")));

    const ProgramFolder folder(ProgramFolder::current(QStringLiteral(MORVEX_INSTALLED_DATA)));
    SingleInstance instance(folder.path());
    if (!instance.claim()) return 0; // the one that runs comes to the front
    Geral geral(folder.path());
    boxes.setLanguage([&geral] { return geral.IdiomaActual; });
    PopMailNotification mail(geral.Ficheiro(QStringLiteral("correio.json")),
                             [&geral] { return geral.IdiomaActual; });
    Platform platform{clock, boxes, dialogs, shell, sound, registry, mail, messenger, process, tray};

    DesktopSessionEnd sessionEnd;
    const FimDaSessao fim(sessionEnd, geral, platform);
    Main janela(geral, platform);
    QObject::connect(&instance, &SingleInstance::startedAgain, &janela, &Main::Chamar);
    janela.Carregar();
    return Application::exec();
}
