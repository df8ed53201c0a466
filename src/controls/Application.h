// The application object: what no handler caught ends the running event in an error box, never the process.
#pragma once

#include <QApplication>

class MessageBoxes;

class Application final : public QApplication
{
    Q_OBJECT
public:
    Application(int &argc, char **argv, MessageBoxes &boxes);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    MessageBoxes &boxes_;
};
