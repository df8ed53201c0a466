// The process: reads what it was told, makes the services of the desktop, the process-wide values and the
// main window, and lets it run.
#include "session/FimDaSessao.h"
#include "session/Main.h"
#include "controls/Application.h"
#include "data/Geral.h"
#include "data/Idiomas.h"
#include "interchange/FicheirosPedidos.h"
#include "mail/PopMailNotification.h"
#include "platform/ColourScheme.h"
#include "platform/CommandLine.h"
#include "platform/DesktopSessionEnd.h"
#include "platform/DesktopSound.h"
#include "platform/DesktopTray.h"
#include "platform/OwnServices.h"
#include "platform/Platform.h"
#include "platform/ProgramFolder.h"
#include "platform/SingleInstance.h"
#include "platform/Terminal.h"
#include "platform/ToolkitLanguage.h"
#include "platform/Translations.h"

#include <QIcon>

namespace
{
constexpr int notUnderstood = 2; // the exit code

// No language is active yet, so the desktop's is spoken.
CommandLine readCommandLine(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QString language = spokenLanguage({});
    if (const Idioma *known = idiomas::Procurar(language))
        useToolkitLanguage(QString::fromUtf16(known->codigo), language == QLatin1StringView("PortuguesPT"));
    return {QCoreApplication::arguments(), FicheirosPedidos::Terminacoes(), QStringLiteral(MORVEX_VERSION),
            language};
}

int refuse(const QString &why, int argc, char **argv)
{
    terminal::print(terminal::Stream::Complaint, why);
    if (terminal::startedFromDesktop()) {
        DesktopMessageBoxes boxes;
        const Application application(argc, argv, boxes);
        boxes.MessageBoxes::show(why.trimmed(), box::stop, nullptr);
    }
    return notUnderstood;
}

int run(const CommandLine &line, int argc, char **argv)
{
    DesktopMessageBoxes boxes;
    Application application(argc, argv, boxes);
    ColourScheme scheme;
    QObject::connect(&scheme, &ColourScheme::darkTold, &application, &Application::setDark);
    scheme.watch();
    SystemClock clock;
    DesktopDialogs dialogs;
    DesktopShell shell;
    DesktopSound sound;
    const auto registry = own_services::registry();
    const auto secrets = own_services::secrets();
    OwnProcess process;
    const auto messenger = own_services::messenger();
    DesktopTray tray(QIcon(QStringLiteral(":/imagens/tray/morvex_tray.svg")),
                     QIcon(QStringLiteral(":/imagens/tray/morvex_tray_trancado.svg")));

    const ProgramFolder folder(ProgramFolder::current(QStringLiteral(MORVEX_INSTALLED_DATA)));
    SingleInstance instance(folder.path());
    if (!instance.claim({line.files(), !line.minimized()})) return 0; // the one that runs has heard of it
    Geral geral(folder.path());
    geral.MinimizarDestaVez = line.minimized();
    geral.PastaDoManual = folder.shipped(QStringLiteral("manual"));
    boxes.setLanguage([&geral] { return geral.IdiomaActual; });
    PopMailNotification mail(geral.Ficheiro(QStringLiteral("correio.json")),
                             [&geral] { return geral.IdiomaActual; });
    Platform platform{clock, boxes,      dialogs, shell, sound,   *registry,
                      mail,  *messenger, process, tray,  *secrets};

    DesktopSessionEnd sessionEnd;
    const FimDaSessao fim(sessionEnd, geral, platform);
    Main janela(geral, platform);
    QObject::connect(&instance, &SingleInstance::startedAgain, &janela, &Main::Chamar);
    janela.Abrir_Depois(line.files());
    janela.Carregar();
    return Application::exec();
}
} // namespace

int main(int argc, char **argv)
{
    own_services::chooseDesktop();
    const CommandLine line = readCommandLine(argc, argv);
    if (line.kind() == CommandLine::Kind::Refusal) return refuse(line.text(), argc, argv);
    if (line.kind() == CommandLine::Kind::Run) return run(line, argc, argv);
    terminal::print(terminal::Stream::Answer, line.text());
    return 0;
}
