// The end that comes from outside: the desktop's session ends, or somebody asks the process to go.
#pragma once

#include <QObject>

class SessionEnd : public QObject
{
    Q_OBJECT
public:
    // A session that is about to end and can still be held up.
    class Logout
    {
    public:
        virtual ~Logout() = default;

        // Whether the desktop waits while a question stands. Asked only right before one.
        virtual bool mayAsk() = 0;
        // The session is to go on.
        virtual void refuse() = 0;
    };

    using QObject::QObject;

Q_SIGNALS:
    // What is not saved yet is to be saved now. The process goes on: somebody else may still refuse.
    void loggingOut(SessionEnd::Logout &logout);
    // The process has to end now, and nobody can be asked.
    void ending();
};
