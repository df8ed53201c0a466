// A label that tells when its text changes.
#pragma once

#include <QLabel>

class Label : public QLabel
{
    Q_OBJECT
public:
    using QLabel::QLabel;

    void setCaption(const QString &text)
    {
        if (text == this->text()) return;
        setText(text);
        Q_EMIT Change();
    }

Q_SIGNALS:
    void Change();
};
