// F1 in any form of the program: the installed page about that form.
#pragma once

#include <QObject>

class Geral;
struct Platform;

class TeclaDeAjuda final : public QObject
{
    Q_OBJECT

public:
    // Hears the keys of the whole program for as long as it lives.
    TeclaDeAjuda(QObject &dono, const Geral &geral, Platform &platform);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    const Geral &geral_;
    Platform &platform_;
};
