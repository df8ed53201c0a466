#include "platform/MessageBoxes.h"

#include "platform/ErrorText.h"
#include "platform/Failure.h"
#include "platform/Translations.h"

#include <algorithm>
#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

namespace
{
constexpr int iconMask = 0xf0;
constexpr int buttonMask = 0x0f;
constexpr int shareOfScreen = 60; // percent of its height, for a text
constexpr int widestShare = 80;   // percent of its width

constexpr Translations retryWords{u"&Tentar de novo", u"&Tentar de novo", u"&Try again", u"&Reintentar",
                                  u"&Riprova",        u"&Réessayer",      u"&Erneut versuchen"};
constexpr Translations leaveWords{u"&Sair", u"&Sair",    u"&Leave",  u"&Salir",
                                  u"&Esci", u"&Quitter", u"&Beenden"};

QMessageBox::Icon iconOf(int flags)
{
    switch (flags & iconMask) {
    case box::stop:
        return QMessageBox::Critical;
    case box::question:
        return QMessageBox::Question;
    case box::exclamation:
        return QMessageBox::Warning;
    case box::information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

void dress(QMessageBox &box, const QString &text, int flags, const QString &title)
{
    box.setIcon(iconOf(flags));
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText); // a contact's name is never markup
    box.setText(text);
}

void showInSmall(QLabel *label)
{
    if (label == nullptr) return;
    constexpr int smaller = 2; // pixels
    QFont letters = label->font();
    letters.setPixelSize(letters.pixelSize() - smaller);
    label->setFont(letters);
    label->setTextFormat(Qt::PlainText);
}

// A length that was drawn for letters of eleven pixels.
int withLetters(const QWidget &box, int pixels) { return pixels * box.fontInfo().pixelSize() / 11; }

// The toolkit breaks the lines at a width of its own, which has room for few words in large letters.
void widenWithLetters(const QMessageBox &box, QLabel &label)
{
    constexpr int lineOfText = 420; // pixels
    const int ofText = label.fontMetrics().size(Qt::TextExpandTabs, label.text()).width();
    label.setMinimumWidth(std::min({ofText, withLetters(box, lineOfText),
                                    box.screen()->availableGeometry().width() * widestShare / 100}));
}

// The report of a merge can have a line for each of thousands of rows. A text too tall for the screen
// scrolls, so that the buttons stay in reach.
void keepButtonsOnScreen(QMessageBox &box)
{
    const int textWidth = withLetters(box, 480);
    auto *label = box.findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    const int place = label != nullptr && grid != nullptr ? grid->indexOf(label) : -1;
    if (place < 0) return;
    const int room = box.screen()->availableGeometry().height() * shareOfScreen / 100;
    label->setWordWrap(true);
    if (label->heightForWidth(textWidth) <= room) return widenWithLetters(box, *label);

    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    grid->getItemPosition(place, &row, &column, &rows, &columns);
    auto *scroll = new QScrollArea(&box);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidgetResizable(true);
    scroll->setMinimumSize(textWidth, room);
    scroll->setWidget(label);
    grid->addWidget(scroll, row, column, rows, columns);
}

int askToRetry(QMessageBox &box, const QString &language)
{
    auto *retry = box.addButton(translated(retryWords, language), QMessageBox::AcceptRole);
    auto *leave = box.addButton(translated(leaveWords, language), QMessageBox::RejectRole);
    box.setDefaultButton(retry);
    box.setEscapeButton(leave);
    box.exec();
    return box.clickedButton() == retry ? answer::retry : answer::leave;
}
} // namespace

int MessageBoxes::show(const QString &text, int flags, QWidget *owner)
{
    return show(text, flags, QApplication::applicationDisplayName(), owner);
}

DesktopMessageBoxes::DesktopMessageBoxes() : language_([] { return QString(); }) {}

void DesktopMessageBoxes::setLanguage(std::function<QString()> language) { language_ = std::move(language); }

int DesktopMessageBoxes::show(const QString &text, int flags, const QString &title, QWidget *owner)
{
    QMessageBox box(owner);
    dress(box, text, flags, title);
    keepButtonsOnScreen(box);
    if ((flags & buttonMask) == box::retryLeave) return askToRetry(box, spokenLanguage(language_()));
    if ((flags & buttonMask) != box::yesNo) {
        box.exec();
        return answer::ok;
    }
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes ? answer::yes : answer::no;
}

void DesktopMessageBoxes::showError(const Failure &failure)
{
    const ErrorText text = errorText(failure, spokenLanguage(language_()));
    QMessageBox box;
    dress(box, text.words, box::stop, QApplication::applicationDisplayName());
    box.setInformativeText(text.details);
    showInSmall(box.findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel")));
    box.exec();
}
