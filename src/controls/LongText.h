// A text of several lines on its way between the store, which parts lines by carriage return and line feed,
// and the text box in which a person changes it.
#pragma once

#include <QString>

class QPlainTextEdit;

class LongText
{
public:
    void load(QPlainTextEdit &box, const QString &stored);

    // What goes back to the store. A text that nobody changed goes back as it came, whatever its line ends.
    QString stored(const QPlainTextEdit &box) const;

private:
    QString loaded_;
    QString shown_; // what the box made of it
};
