// What other desks change: read from the server's notices, and heard while the program waits for nothing.
#include "store/TabelaNoServidor.h"
#include "store/postgres/PostgresNotices.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/Teste.h"

#include <thread>

using namespace Qt::StringLiterals;

class TestPostgresNotices : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<PostgresStore> store_, other_;
    QList<StoreChange> changes_;

    static inline const QString insert_ = u"INSERT INTO T (Nome) VALUES (?)"_s;
    static StoreChange Mudou(int id, StoreChange::What what) { return {u"t"_s, what, {id}, false}; }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void init()
    {
        base_->Correr(u"TRUNCATE t RESTART IDENTITY"_s);
        store_ = PostgresStore::open(base_->Morada());
        other_ = PostgresStore::open(base_->Morada());
        changes_.clear();
        store_->listen({[this](const StoreChange &change) { changes_ << change; }, {}});
        store_->schemaNumber(); // it listens from its first command on
    }
    void cleanup()
    {
        store_.reset();
        other_.reset();
    }
    void cleanupTestCase() { base_.reset(); }

    void a_notice_names_table_kind_and_rows_data()
    {
        using enum StoreChange::What;
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<bool>("known");
        QTest::addColumn<StoreChange>("change");
        const auto row = [](const char *name, const char *payload, const StoreChange &change) {
            QTest::newRow(name) << QByteArray(payload) << true << change;
        };
        row("one row changed", "tbllista u 77", {u"tbllista"_s, Changed, {77}, false});
        row("two rows added", "tbltarefas i 7,8", {u"tbltarefas"_s, Added, {7, 8}, false});
        row("many removed", "tblmemos d *", {u"tblmemos"_s, Removed, {}, true});
        row("a table in capitals", "TblUsers u 1", {u"tblusers"_s, Changed, {1}, false});
        for (const char *payload : {"", "tbllista", "tbllista u", "tbllista x 1", "tbllista u 1,", "tbllista u a",
                                    " u 1", "tbllista u 1 2"})
            QTest::newRow(qPrintable(u"none: '%1'"_s.arg(QLatin1String(payload))))
                << QByteArray(payload) << false << StoreChange();
    }
    void a_notice_names_table_kind_and_rows()
    {
        QFETCH(QByteArray, payload);
        QFETCH(StoreChange, change);
        const auto found = changeIn(payload);
        QTEST(found.has_value(), "known");
        if (found) QVERIFY(*found == change);
    }

    void what_another_desk_writes_is_heard_within_a_second()
    {
        using enum StoreChange::What;
        QElapsedTimer clock;
        clock.start();
        other_->execute(insert_, {u"Ana"_s});
        QTRY_COMPARE(changes_.size(), 1);
        QVERIFY2(clock.elapsed() < 1000, QByteArray::number(clock.elapsed()));
        QVERIFY(changes_[0] == Mudou(1, Added));
        other_->execute(u"UPDATE T SET Nome = 'Eva' WHERE ID = 1"_s, {});
        other_->execute(u"DELETE FROM T WHERE ID = 1"_s, {});
        QTRY_COMPARE(changes_.size(), 3);
        QVERIFY(changes_[1] == Mudou(1, Changed));
        QVERIFY(changes_[2] == Mudou(1, Removed));
    }
    void what_this_desk_writes_is_not_told_to_it()
    {
        store_->execute(insert_, {u"Ana"_s});
        other_->execute(insert_, {u"Rui"_s});
        QTRY_COMPARE(changes_.size(), 1);
        QVERIFY(changes_[0] == Mudou(2, StoreChange::What::Added));
    }
    void what_comes_with_an_answer_is_heard_behind_the_command_and_not_within_it()
    {
        other_->execute(insert_, {u"Ana"_s});
        QTest::qSleep(100); // it has come, and no event was handled
        store_->query(u"SELECT * FROM T"_s, {});
        QVERIFY(changes_.isEmpty());
        QCoreApplication::processEvents();
        QCOMPARE(changes_.size(), 1);
    }
    void nothing_is_told_within_a_gathering_even_where_events_are_handled()
    {
        store_->gathering([&] {
            store_->execute(insert_, {u"Ana"_s});
            other_->execute(insert_, {u"Rui"_s});
            QTest::qWait(200);
            QVERIFY(changes_.isEmpty());
        });
        QVERIFY(changes_.isEmpty());
        QTRY_COMPARE(changes_.size(), 1);
    }
    void what_was_heard_before_a_gathering_is_not_told_within_it_either()
    {
        other_->execute(insert_, {u"Rui"_s});
        QTest::qSleep(100);
        store_->query(u"SELECT * FROM T"_s, {}); // heard, and to be told by the next event
        store_->gathering([&] {
            QTest::qWait(100);
            QVERIFY(changes_.isEmpty());
        });
        QTRY_COMPARE(changes_.size(), 1);
    }
    void the_same_change_twice_is_told_once()
    {
        other_->execute(insert_, {u"Ana"_s});
        QTRY_COMPARE(changes_.size(), 1);
        for (const char *name : {"Eva", "Rui", "Zita"})
            other_->execute(u"UPDATE T SET Nome = '%1' WHERE ID = 1"_s.arg(QLatin1String(name)), {});
        QTest::qSleep(200);
        store_->query(u"SELECT * FROM T"_s, {});
        QTRY_COMPARE(changes_.size(), 2);
        QTest::qWait(100);
        QCOMPARE(changes_.size(), 2);
        QVERIFY(changes_[1] == Mudou(1, StoreChange::What::Changed));
    }
    void the_mark_moves_with_what_others_write_before_anybody_is_told()
    {
        const StoreMark before = store_->mark();
        other_->execute(insert_, {u"Ana"_s});
        QTest::qSleep(100);
        const StoreMark after = store_->mark();
        QVERIFY(after != before);
        QCOMPARE(after.here, before.here);
        QVERIFY(store_->mark() == after);
        QTRY_COMPARE(changes_.size(), 1);
        QVERIFY(store_->mark() == after);
    }
    void whoever_is_told_may_ask_at_once()
    {
        int rows = 0;
        store_->listen({[&](const StoreChange &) { rows = store_->query(u"SELECT * FROM T"_s, {}).RecordCount(); }, {}});
        other_->execute(insert_, {u"Ana"_s});
        QTRY_COMPARE(rows, 1);
    }
};

MORVEX_TESTE(TestPostgresNotices)
#include "test_PostgresNotices.moc"
