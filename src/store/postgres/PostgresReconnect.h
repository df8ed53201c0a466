// The way back to a server that was lost: tried again and again, ever more seldom, without the window noticing.
#pragma once

#include "store/postgres/PostgresOpening.h"

#include <functional>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

class PostgresReconnect final : public QObject
{
    Q_OBJECT
public:
    PostgresReconnect(PostgresAddress address, QStringList settings, PostgresPatience patience);
    ~PostgresReconnect() override;

    // The first try comes after the first of the waits. Not to be called while it is active.
    void begin();
    void stop();
    bool active() const { return active_; }
    int tries() const { return tries_; } // since it began

    // Called once, with a connection that is open; no more is tried then.
    std::function<void(PostgresConnection)> opened;

private:
    void beginTry();
    void proceed();
    void watch();
    void giveUpTry();
    void endTry();

    PostgresAddress address_;
    QStringList settings_;
    PostgresPatience patience_;
    std::unique_ptr<PostgresOpening> opening_; // while one is on its way
    QSocketNotifier *notifier_ = nullptr;      // of its socket; a child, since it may go in its own slot
    QTimer nextTry_;
    QTimer tooLong_;
    bool active_ = false;
    int tries_ = 0;
};
