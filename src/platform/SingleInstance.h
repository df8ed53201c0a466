// One running program a folder. Starting it again on the same folder calls the one that runs.
#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>

class QLocalServer;

class SingleInstance final : public QObject
{
    Q_OBJECT
public:
    // The folder is the program's own; what stands for it is kept in the user's runtime folder, so that two
    // people on one machine do not call each other.
    explicit SingleInstance(const QString &programFolder);
    SingleInstance(const QString &programFolder, const QString &runtimeFolder);
    ~SingleInstance() override;

    // True for the first, which from then on hears of later starts. What a program that crashed left behind
    // is taken over. False for a later one: the first was called, and there is nothing left to do. Where the
    // first cannot be reached, or nothing can be kept at all, the program runs rather than not.
    bool claim();

Q_SIGNALS:
    void startedAgain();

private:
    bool callFirst() const;
    void listen();

    QString address_; // of the socket
    QLockFile lock_;  // held as long as the process lives, so it cannot be mistaken for a stale one
    QLocalServer *server_;
};
