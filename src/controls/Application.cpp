#include "controls/Application.h"

#include "controls/FocusColour.h"
#include "controls/Palettes.h"
#include "controls/Scale.h"
#include "controls/Style.h"
#include "platform/ColourScheme.h"
#include "platform/Failure.h"
#include "platform/MessageBoxes.h"

#include <QFont>
#include <QIcon>
#include <QScreen>

// The pictures are compiled into a library, and a library's pictures announce themselves only when asked to.
static void announcePictures() { Q_INIT_RESOURCE(imagens); }

namespace
{
// The main window has a line for as long as the server is away: no box for each click. In front of a form that line
// is not to be seen, and somebody waits there for what was asked.
bool saidInTheWindow(const Failure &failure)
{
    return failure.kind() == Failure::Kind::ServerLost && QApplication::activeModalWidget() == nullptr;
}
} // namespace

Application::Application(int &argc, char **argv, MessageBoxes &boxes)
    : QApplication(argc, argv), boxes_(boxes)
{
    announcePictures();
    // Not the display name: the toolkit would add it to every window's caption.
    setApplicationName(QStringLiteral("Morvex"));
    setDesktopFileName(QStringLiteral("morvex"));
    setWindowIcon(QIcon(QStringLiteral(":/imagens/morvex.svg")));
    setQuitOnLastWindowClosed(false);
    setStyle(new Style);
    ownPalette_ = ColourScheme::wantsOwnColours(palette() == style()->standardPalette());
    setDark(false);
    scale::setLetters(scale::lettersFor(font(), primaryScreen()->logicalDotsPerInchY()));
    FocusColour::install(*this);
}

void Application::setDark(bool dark)
{
    if (ownPalette_) setPalette(dark ? darkPalette() : lightPalette(style()->standardPalette()));
}

bool Application::notify(QObject *receiver, QEvent *event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const Failure &failure) {
        if (!saidInTheWindow(failure)) boxes_.showError(failure);
    } catch (const std::exception &error) {
        boxes_.showError(Failure(Failure::StoreError, QString(), QString::fromLocal8Bit(error.what())));
    }
    return true;
}
