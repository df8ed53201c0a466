// A label of plain text that never shows half a line or half a word: what does not fit ends in dots.
#pragma once

#include <QLabel>

class ElidingLabel : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

    // What of the text is in view, its lines separated by \n.
    QString shownText() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect room() const; // for the letters, in pixels
};
