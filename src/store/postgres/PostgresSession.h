// What a store has of its server: one connection, lost and found again, and what others announce through it. Once it
// is lost every command fails at once (Failure::Kind::ServerLost), until it has come back by itself.
#pragma once

#include "store/postgres/PostgresLink.h"
#include "store/postgres/PostgresReconnect.h"
#include "store/Store.h"

#include <memory>
#include <QObject>
#include <QSocketNotifier>

class PostgresSession final : public QObject
{
public:
    using Commands = std::span<const PostgresCommand>;

    // Opens the connection and waits for that, no longer than the last one says. The settings are what each session
    // of the server begins with.
    PostgresSession(const QString &address, QStringList settings, PostgresPatience patience, const Deadline &opening);
    ~PostgresSession() override;

    const PostgresPatience &patience() const { return patience_; }

    // For what only reads: attemptTwice for one. Raises Failure for what is refused, too.
    PostgresResult ask(const PostgresCommand &command, std::chrono::milliseconds patience);

    // One trip, never repeated. Raises Failure only where no answer came (ServerLost): whoever catches it says by
    // reopen() or lose() how it goes on.
    PostgresAnswers attempt(Commands commands, const Deadline &deadline);

    // The same for what may be done twice without harm: where the connection turns out to be cut, it is done once
    // more over a new one, within the same deadline.
    PostgresAnswers attemptTwice(Commands commands, const Deadline &deadline);

    // Opens a new connection where the old one was cut and time is left. False where that is of no use; the way
    // back is then tried on its own.
    bool reopen(const Deadline &deadline);
    void lose();
    bool lost() const { return reconnect_.active(); }

    // Whether another session has lost that server: none waits for a silence that one has waited for.
    static bool isLost(const QString &address);

    // Another one with each connection: what was begun on an earlier one is gone.
    int generation() const { return generation_; }

    // Goes ahead of the next trip.
    void ahead(const QString &sql);

    // While one of these lives nobody hears anything.
    class Hold
    {
    public:
        explicit Hold(PostgresSession &session) : session_(session) { ++session_.held_; }
        ~Hold()
        {
            --session_.held_;
            session_.tellSoon();
        }
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;

    private:
        PostgresSession &session_;
    };

    // How many changes others have announced, those included that have arrived but not been heard.
    qint64 noticed();
    void listen(const Store::Listener &listener) { listener_ = listener; }

    // Called whenever the way back is found, before anybody hears of it. May raise Failure where the connection is
    // lost again.
    std::function<void()> cameBack;

private:
    PostgresAnswers lastAttempt(Commands commands, const Deadline &deadline);
    void take(PostgresConnection connection);
    void loseOthers();
    void comeBack(PostgresConnection connection);
    void hear();
    void collectNotices();
    void missSome();
    void note(const StoreChange &change);
    void tellSoon();
    void tell();

    PostgresPatience patience_;
    QString text_; // of the address
    PostgresAddress address_;
    QStringList settings_;
    std::unique_ptr<PostgresLink> link_;
    std::unique_ptr<QSocketNotifier> notifier_;
    PostgresReconnect reconnect_;
    Store::Listener listener_;
    std::vector<StoreChange> news_;   // not yet told
    std::optional<Reach> reach_;      // not yet told
    qint64 noticed_ = 0;
    int generation_ = 0;
    int held_ = 0;
    bool telling_ = false; // soon
    static inline std::vector<PostgresSession *> all_; // of this process, each of them open once
};
