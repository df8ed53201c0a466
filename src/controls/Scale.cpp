#include "controls/Scale.h"

#include "controls/ScrolledForm.h"

#include <algorithm>
#include <cmath>
#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QToolBar>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace
{
constexpr double standardDesktop = 12; // pixels: nine points at 96 dots an inch
constexpr double pointsAnInch = 72;

// From the edges, so that neighbours that touch go on touching.
QRect scaledPlace(const QRect &place)
{
    const QPoint end = place.topLeft() + QPoint(place.width(), place.height());
    const QPoint corner(scale::scaled(place.x()), scale::scaled(place.y()));
    return {corner, QSize(scale::scaled(end.x()) - corner.x(), scale::scaled(end.y()) - corner.y())};
}

// Of the form's own design; what the toolkit makes inside its controls looks after itself.
bool isDesigned(const QObject &object)
{
    return !object.objectName().isEmpty() && !object.objectName().startsWith("qt_"_L1);
}

void applyLimits(QWidget &widget)
{
    const QSize least = widget.minimumSize();
    const QSize most = widget.maximumSize();
    const auto limit = [](int pixels) { return pixels == QWIDGETSIZE_MAX ? pixels : scale::scaled(pixels); };
    widget.setMaximumSize(limit(most.width()), limit(most.height()));
    widget.setMinimumSize(scale::scaled(least));
}

void applyLetters(QWidget &widget)
{
    QFont letters = widget.font();
    if (letters.pointSizeF() <= 0) return; // those of the application
    letters.setPointSizeF(letters.pointSizeF() * scale::factor());
    widget.setFont(letters);
}

void applyInside(QWidget &widget)
{
    if (auto *button = qobject_cast<QAbstractButton *>(&widget);
        button != nullptr && !button->icon().isNull())
        button->setIconSize(scale::scaled(button->iconSize()));
    if (auto *bar = qobject_cast<QToolBar *>(&widget)) bar->setIconSize(scale::scaled(bar->iconSize()));
    if (auto *label = qobject_cast<QLabel *>(&widget); label != nullptr && label->indent() > 0)
        label->setIndent(scale::scaled(label->indent()));
    if (const auto *tree = qobject_cast<QTreeView *>(&widget))
        tree->header()->setDefaultSectionSize(scale::scaled(tree->header()->defaultSectionSize()));
    applyLetters(widget);
}

void applySpacing(QLayout &layout)
{
    layout.setContentsMargins(layout.contentsMargins() * scale::factor());
    if (auto *grid = qobject_cast<QGridLayout *>(&layout)) {
        grid->setHorizontalSpacing(scale::scaled(grid->horizontalSpacing()));
        grid->setVerticalSpacing(scale::scaled(grid->verticalSpacing()));
    } else if (auto *pairs = qobject_cast<QFormLayout *>(&layout)) {
        pairs->setHorizontalSpacing(scale::scaled(pairs->horizontalSpacing()));
        pairs->setVerticalSpacing(scale::scaled(pairs->verticalSpacing()));
    } else if (qobject_cast<QBoxLayout *>(&layout) != nullptr && layout.spacing() > 0) {
        layout.setSpacing(scale::scaled(layout.spacing()));
    }
}

void applyScale(QWidget &form)
{
    if (form.testAttribute(Qt::WA_Resized)) form.resize(scale::scaled(form.size()));
    applyLimits(form);
    for (QWidget *widget : form.findChildren<QWidget *>()) {
        if (!isDesigned(*widget) || widget->isWindow()) continue;
        applyLimits(*widget);
        if (widget->parentWidget()->layout() == nullptr) widget->setGeometry(scaledPlace(widget->geometry()));
        applyInside(*widget);
    }
    for (QLayout *layout : form.findChildren<QLayout *>())
        if (isDesigned(*layout)) applySpacing(*layout);
}
} // namespace

int scale::lettersFor(const QFont &desktop, double dotsPerInch)
{
    const double pixels =
        desktop.pixelSize() > 0 ? desktop.pixelSize() : desktop.pointSizeF() * dotsPerInch / pointsAnInch;
    const long letters = std::lround(standardLetters * pixels / standardDesktop);
    return static_cast<int>(std::clamp<long>(letters, standardLetters, long{standardLetters} * largestFactor));
}

void scale::setLetters(int pixels)
{
    QFont letters = QApplication::font();
    letters.setPixelSize(pixels);
    QApplication::setFont(letters);
}

double scale::factor()
{
    const int letters = QApplication::font().pixelSize();
    return letters > 0 ? static_cast<double>(letters) / standardLetters : 1;
}

int scale::scaled(int pixels) { return static_cast<int>(std::lround(pixels * factor())); }

QSize scale::scaled(QSize size) { return {scaled(size.width()), scaled(size.height())}; }

void scale::apply(QWidget &form)
{
    if (factor() != 1) applyScale(form);
    ScrolledForm::keepOnScreen(form);
}
