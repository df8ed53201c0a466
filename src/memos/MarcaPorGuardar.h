// A red button of a note that has something unsaved: a bar, or words on it. It gets a frame under the pointer and
// with the keyboard.
#pragma once

#include <QToolButton>

class MarcaPorGuardar final : public QToolButton
{
    Q_OBJECT
public:
    using QToolButton::QToolButton;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
