#include "controls/EmptyText.h"

#include "controls/Contrast.h"

#include <QAbstractItemView>
#include <QPainter>

namespace
{
constexpr int margin = 8; // pixels to the edge of the list

QColor quietLetters(const QWidget &viewport)
{
    QColor letters = viewport.palette().color(QPalette::PlaceholderText);
    letters.setAlpha(255);
    return readableOn(letters, viewport.palette().color(viewport.backgroundRole()));
}
} // namespace

EmptyText::EmptyText(QAbstractItemView &view) : QObject(&view), view_(view)
{
    const QAbstractItemModel &model = *view.model();
    connect(&model, &QAbstractItemModel::rowsInserted, this, &EmptyText::refresh);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &EmptyText::refresh);
    connect(&model, &QAbstractItemModel::modelReset, this, &EmptyText::refresh);
}

void EmptyText::set(const QString &text)
{
    text_ = text;
    refresh();
}

QString EmptyText::shown() const { return view_.model()->rowCount() == 0 ? text_ : QString(); }

void EmptyText::paint() const
{
    const QString text = shown();
    if (text.isEmpty()) return;
    const QWidget &viewport = *view_.viewport();
    QPainter painter(view_.viewport());
    painter.setPen(quietLetters(viewport));
    painter.drawText(viewport.rect().adjusted(margin, margin, -margin, -margin),
                     Qt::AlignCenter | Qt::TextWordWrap, text);
}

void EmptyText::refresh()
{
    const QString text = shown();
    if (view_.accessibleDescription() == text) return;
    view_.setAccessibleDescription(text);
    view_.viewport()->update();
}
