// A picture that answers a click, and without a mouse the keys that press a button. Where it has the keyboard
// it shows so.
#pragma once

#include <QLabel>

class PictureLabel : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

Q_SIGNALS:
    void Click();

protected:
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
