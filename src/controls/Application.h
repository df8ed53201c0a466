// The application object: what no handler caught ends the running event in an error box, never the process.
#pragma once

#include <QApplication>

class MessageBoxes;

class Application final : public QApplication
{
    Q_OBJECT
public:
    Application(int &argc, char **argv, MessageBoxes &boxes);

    // Dark windows or light ones. A desktop that gives the toolkit a palette of its own has chosen already.
    void setDark(bool dark);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    MessageBoxes &boxes_;
    bool ownPalette_ = false;
};
