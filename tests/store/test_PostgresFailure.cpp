// What the server's codes mean for a person.
#include "store/postgres/PostgresFailure.h"

#include <QtTest>

using enum Failure::Kind;

class TestPostgresFailure : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void each_code_has_its_kind_data()
    {
        QTest::addColumn<int>("kind");
        const auto row = [](const char *code, Failure::Kind kind) { QTest::newRow(code) << int(kind); };
        row("08000", ServerLost);
        row("08006", ServerLost);
        row("08P01", Other); // it has understood that it does not understand
        row("57P01", ServerLost);
        row("57P02", ServerLost);
        row("57P05", ServerLost);
        row("25P03", ServerLost);
        row("57P03", ServerRefused);
        row("53300", ServerRefused);
        row("28P01", ServerPassword);
        row("28000", ServerForbidden);
        row("3D000", ServerNoDatabase);
        row("55P03", DatabaseLocked);
        row("55006", DatabaseLocked);
        row("40001", DatabaseLocked);
        row("40P01", DatabaseLocked);
        row("53100", DiskFull);
        row("25006", DatabaseReadOnly);
        row("42501", DatabaseReadOnly);
        row("XX001", DatabaseDamaged);
        row("XX002", DatabaseDamaged);
        row("57014", Other); // it took too long for the server, which is there
        row("53200", Other);
        row("23505", Other);
        row("XX000", Other);
    }
    void each_code_has_its_kind()
    {
        QFETCH(int, kind);
        QCOMPARE(int(kindOfState(QTest::currentDataTag())), kind);
    }
    void no_code_is_a_connection_that_broke() { QCOMPARE(int(kindOfState({})), int(ServerLost)); }
    void a_lost_server_has_words_of_its_own_where_the_library_has_none()
    {
        for (const QString &reason : {QString(), QStringLiteral("reset by peer")}) {
            try {
                raiseLost(reason);
            } catch (const Failure &failure) {
                QCOMPARE(int(failure.kind()), int(ServerLost));
                QVERIFY(failure.description().contains(
                    reason.isEmpty() ? QStringLiteral("no longer answers") : reason));
            }
        }
    }
};

QTEST_APPLESS_MAIN(TestPostgresFailure)
#include "test_PostgresFailure.moc"
