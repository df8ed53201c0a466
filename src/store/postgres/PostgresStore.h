// The data on a server that several desks share. The statements are those of the file, said in the server's words
// (PostgresDialect). No call waits longer than the store's patience: a server that is silent for as long is lost,
// and every call fails at once until it has come back by itself.
#pragma once

#include "store/postgres/PostgresSession.h"
#include "store/Store.h"

#include <QHash>

class PostgresStore final : public Store
{
public:
    // Raises Failure with the reason why there is no connection.
    static std::unique_ptr<PostgresStore> open(const QString &address, const PostgresPatience &patience = {});
    // The server itself refuses its writes. In the middle of work: a silent server is waited for no longer than by a
    // command, and one that another store has lost not at all.
    static std::unique_ptr<PostgresStore> openReadOnly(const QString &address, const PostgresPatience &patience = {});

    QString place() const override { return PostgresAddress::shown(address_); }
    Recordset query(const QString &sql, const Values &values) override;
    void rows(const QString &sql, const Values &values, const EachRow &row) override;
    bool rowsWanted(const QString &sql, const Values &values, const QString &columns, const Wanted &wanted,
                    const EachRow &row) override;
    void execute(const QString &sql, Values values) override;
    void executeKeyed(const QString &sql, Values values, const QUuid &key) override;
    QSet<QUuid> keys() override;
    void dropKeys(const QSet<QUuid> &keys) override;
    StoreMark mark() override;
    int written(const QString &sql) const override { return written_.value(sql); }
    int undone() const override { return 0; } // what is read of a portion is in the data
    void tryWriting() override;
    void waitingOnce(const Work &work) override;
    void gathering(const Work &work) override;
    void gatheringInOrder(const Work &work) override;
    void allOrNothing(const Work &work) override;
    qint64 lastId() override;
    qint64 highestId(const QString &table) override;
    void giveAgainBehind(const QString &table, qint64 last) override;
    QStringList columns(const QString &table) override;
    QStringList indexes(const QString &table) override;
    int schemaNumber() override;
    void setSchemaNumber(int steps) override;
    void copyTo(const FileCopy &copy) override;
    const Dialect &dialect() const override;
    void listen(const Listener &listener) override { session_.listen(listener); }
    int lostWrites() const override { return static_cast<int>(fates_.size()); }
    Fate fateOf(int lost) const override;

private:
    using Commands = std::vector<PostgresCommand>;
    struct Said {
        QString sql;
        std::size_t parameters = 0;
    };
    struct Write {
        QString sql; // as the caller has it
        PostgresCommand command;
    };

    PostgresStore(QString address, const QStringList &settings, const PostgresPatience &patience,
                  const Deadline &opening);
    static std::unique_ptr<PostgresStore> make(const QString &address, QStringList settings,
                                               const PostgresPatience &patience, const Deadline &opening);

    PostgresCommand said(const QString &sql, Values values);
    PostgresResult answer(const PostgresCommand &command, std::chrono::milliseconds patience);
    PostgresResult within(const PostgresCommand &command, std::chrono::milliseconds patience);
    Recordset ownQuestion(const QString &sql, Values values);
    QStringList names(const QString &sql, const QString &table);

    static std::chrono::milliseconds lockPatience(const PostgresPatience &patience);

    bool isFull() const;
    void gather(Write write);
    void sendOrGather(Write write);
    void sendAlone(const Write &write);
    PostgresAnswers sendKeyed(const QString &keep, const Commands &commands, const Deadline &deadline);
    bool settle(const QString &key, const Deadline &deadline);
    void settleDoubt(std::chrono::milliseconds lockPatience, const Deadline &deadline);
    void count(const Write &write, const PGresult *answer);
    [[noreturn]] void refuse(const PGresult *refusal, const QString &source);

    void flush();
    void sendPortion(std::vector<Write> writes);
    void requireLock(const PGresult *refusal, const QString &source);
    PostgresAnswers tryPortion(std::span<const Write> writes);
    PostgresAnswers tryPortionWithin(std::span<const Write> writes, const Deadline &deadline);
    void sendOneByOne(std::vector<Write> writes);
    void keepBehind(std::size_t refused, std::vector<Write> writes);
    void endGathering(std::exception_ptr raised);

    void begin();
    void commit();
    void rollBack();
    const QString &lockOfAll();
    void wait(bool atAll);

    QString address_;
    PostgresSession session_;
    QHash<QString, Said> said_; // the server's words for a statement
    bool gathering_ = false;
    bool inOrder_ = false;          // what stands behind a refusal is not written
    bool waitsOnce_ = false;
    bool waits_ = true;             // for a lock
    std::optional<int> transaction_; // the connection on which all or nothing was begun
    std::vector<Write> portion_;    // not yet sent
    qsizetype weight_ = 0;          // of it, in bytes
    QHash<QString, int> written_;   // how often each statement is in the data
    qint64 rowsWritten_ = 0;
    QString doubt_;                 // the key of a write whose answer was lost; empty where there is none
    QString taken_;                 // that says that it was free, and has been taken here
    std::vector<Fate> fates_;       // of the writes that lost their answer; the doubt is the last one's
    QString lockOfAll_;
};
