// One running program a folder. Starting it again on the same folder calls the one that runs.
#pragma once

#include <QLockFile>
#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

class SingleInstance final : public QObject
{
    Q_OBJECT
public:
    // The folder is the program's own; what stands for it is kept in the user's runtime folder, so that two
    // people on one machine do not call each other.
    explicit SingleInstance(const QString &programFolder);
    SingleInstance(const QString &programFolder, const QString &runtimeFolder);
    ~SingleInstance() override;

    // What a later start wants of the first.
    struct Call {
        QStringList files;   // absolute paths to open
        bool forward = true; // the first is to come to the front
    };

    // True for the first, which from then on hears of later starts. What a program that crashed left behind
    // is taken over. False for a later one: the first was called, and there is nothing left to do. Where the
    // first cannot be reached, or nothing can be kept at all, the program runs rather than not.
    bool claim(const Call &call);

Q_SIGNALS:
    // The program was started another time on this folder, with those files to open; there may be none.
    void startedAgain(const QStringList &files);

private:
    bool callFirst(const Call &call) const;
    void listen();
    void answer(QLocalSocket &caller);
    void hear(const QByteArray &message);

    QString path_;    // stands for this program in the user's folder
    QString address_; // of the socket
    QLockFile lock_;  // held as long as the process lives, so it cannot be mistaken for a stale one
    QLocalServer *server_;
};
