// What the server's codes mean for a person.
#include "store/postgres/PostgresFailure.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/FalhaDita.h"

#include <QTest>

using enum Failure::Kind;

class TestPostgresFailure : public QObject
{
    Q_OBJECT

    // One that no server has given.
    static PostgresResult Answer(ExecStatusType status)
    {
        static const libpq::Function<decltype(::PQmakeEmptyPGresult)> make("PQmakeEmptyPGresult");
        return PostgresResult(make(nullptr, status));
    }

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
    void an_answer_is_a_refusal_or_none_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("refusal");
        QTest::newRow("an error") << int(PGRES_FATAL_ERROR) << true;
        QTest::newRow("what the library does not understand") << int(PGRES_BAD_RESPONSE) << true;
        QTest::newRow("done") << int(PGRES_COMMAND_OK) << false;
        QTest::newRow("rows") << int(PGRES_TUPLES_OK) << false;
        QTest::newRow("a note") << int(PGRES_NONFATAL_ERROR) << false;
    }
    void an_answer_is_a_refusal_or_none()
    {
        QFETCH(int, status);
        const PostgresResult answer = Answer(static_cast<ExecStatusType>(status));
        QTEST(isRefusal(answer.get()), "refusal");
    }
    void a_refusal_that_the_server_did_not_write_has_no_code()
    {
        const PostgresResult answer = Answer(PGRES_FATAL_ERROR);
        QVERIFY(stateOf(answer.get()).empty());
        QCOMPARE(teste::Falha_Dita([&] { raiseRefusal(answer.get(), QStringLiteral("SELECT 1")); }),
                 QStringList({QStringLiteral("SELECT 1"), QString()}));
    }
    void a_lost_server_has_words_of_its_own_where_the_library_has_none()
    {
        const auto said = [](const QString &reason) { return teste::Falha_Dita([&] { raiseLost(reason); }); };
        const QString store = QStringLiteral("PostgresStore");
        QCOMPARE(said({}), QStringList({store, QStringLiteral("The server no longer answers")}));
        QCOMPARE(said(QStringLiteral("reset by peer")), QStringList({store, QStringLiteral("reset by peer")}));
        QCOMPARE(teste::Especie_Da_Falha([] { raiseLost({}); }), ServerLost);
    }
};

QTEST_APPLESS_MAIN(TestPostgresFailure)
#include "test_PostgresFailure.moc"
