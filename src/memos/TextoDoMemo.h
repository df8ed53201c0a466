// The text of a note. Its letters and its scroll bar end above the note's buttons, which stand on its lowest
// strip.
#pragma once

#include <QPlainTextEdit>

class TextoDoMemo final : public QPlainTextEdit
{
    Q_OBJECT
public:
    explicit TextoDoMemo(QWidget *parent = nullptr);
};
