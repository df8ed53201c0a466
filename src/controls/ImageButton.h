// A push button with a picture to the left of its caption, which may run over two lines.
#pragma once

#include <QPushButton>

class ImageButton : public QPushButton
{
    Q_OBJECT
public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override;
};
