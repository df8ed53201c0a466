#include "controls/ElidingLabel.h"

#include <algorithm>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>

QString ElidingLabel::shownText() const
{
    const int width = room().width();
    const int most =
        std::max(1, (room().height() + fontMetrics().leading()) / std::max(1, fontMetrics().lineSpacing()));
    QString whole = text();
    whole.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\n', QChar::LineSeparator);
    QTextLayout layout(whole, font(), this);
    QTextOption option;
    option.setWrapMode(wordWrap() ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap);
    layout.setTextOption(option);

    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid() && lines.size() < most;
         line = layout.createLine()) {
        line.setLineWidth(width);
        const int end = line.textStart() + line.textLength();
        const bool lacksRoom =
            line.naturalTextWidth() > width || (lines.size() + 1 == most && end < whole.size());
        QString shown = whole.mid(line.textStart(), lacksRoom ? -1 : line.textLength());
        if (shown.endsWith(QChar::LineSeparator)) shown.chop(1);
        shown.replace(QChar::LineSeparator, u' ');
        lines << (lacksRoom ? fontMetrics().elidedText(shown, Qt::ElideRight, width) : shown);
    }
    layout.endLayout();
    return lines.join(u'\n');
}

void ElidingLabel::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event); // NOLINT(bugprone-parent-virtual-call): the label would draw its whole text
    QPainter painter(this);
    style()->drawItemText(&painter, room(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shownText(), foregroundRole());
}

QRect ElidingLabel::room() const
{
    const QRect inner = contentsRect().adjusted(margin(), margin(), -margin(), -margin());
    const int before = std::max(0, indent());
    return inner.adjusted(alignment() & Qt::AlignLeft ? before : 0, 0,
                          alignment() & Qt::AlignRight ? -before : 0, 0);
}
