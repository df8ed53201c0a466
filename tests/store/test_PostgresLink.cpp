// One connection to the server, without the store above it.
#include "store/postgres/PostgresLink.h"
#include "store/postgres/PostgresOpening.h"
#include "store/TabelaNoServidor.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using std::chrono::seconds;

class TestPostgresLink : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;

    PostgresLink Ligar() const
    {
        return PostgresLink(openNow(PostgresAddress(base_->Morada()), {}, Deadline(seconds(60))));
    }
    static PostgresResult Pedir(PostgresLink &link, const QString &sql)
    {
        return link.run({sql, {}}, Deadline(seconds(60)));
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void cleanupTestCase() { base_.reset(); }

    void rows_come_one_by_one_and_the_connection_goes_on_behind_them()
    {
        PostgresLink link = Ligar();
        int rows = 0;
        link.stream({u"SELECT generate_series(1, 1000)"_s, {}}, PostgresPatience(), [&](const PGresult *one) {
            QCOMPARE(libpq::ntuples(one), 1);
            ++rows;
        });
        QCOMPARE(rows, 1000);
        QCOMPARE(libpq::ntuples(Pedir(link, u"SELECT 1"_s).get()), 1);
    }
    // What is still on its way would answer the next command.
    void whoever_gives_up_in_the_middle_of_the_rows_has_no_connection_any_more()
    {
        PostgresLink link = Ligar();
        VERIFICAR_FALHA(link.stream({u"SELECT generate_series(1, 1000)"_s, {}}, PostgresPatience(),
                                    [](const PGresult *) { throw Failure(7, {}, {}); }),
                        7);
        QVERIFY(!link.alive());
        QCOMPARE(teste::Especie_Da_Falha([&] { Pedir(link, u"SELECT 1"_s); }), Failure::Kind::ServerLost);
    }
    void rows_that_end_in_a_refusal_are_refused()
    {
        PostgresLink link = Ligar();
        int rows = 0;
        VERIFICAR_FALHA(link.stream({u"SELECT 1 / (3 - i) FROM generate_series(1, 5) i"_s, {}}, PostgresPatience(),
                                    [&](const PGresult *) { ++rows; }),
                        Failure::StoreError);
        QVERIFY(link.alive());
        QCOMPARE(libpq::ntuples(Pedir(link, u"SELECT 1"_s).get()), 1);
    }
    void what_goes_ahead_costs_no_trip_and_harms_nothing_where_it_is_refused()
    {
        PostgresLink link = Ligar();
        link.ahead(u"SELECT * FROM nenhuma"_s);
        link.ahead(u"SET work_mem = '5555kB'"_s);
        const PostgresResult result = Pedir(link, u"SELECT current_setting('work_mem')"_s);
        QCOMPARE(libpq::getvalue(result.get(), 0, 0), "5555kB");
    }
    void a_server_that_has_gone_is_heard_of_without_asking()
    {
        PostgresLink link = Ligar();
        QVERIFY(link.hear());
        base_->Correr(u"SELECT pg_terminate_backend(%1)"_s.arg(link.process()));
        QTRY_VERIFY(!link.hear());
        link.drop();
        QVERIFY(!link.hear());
    }
    void a_server_that_has_ended_the_connection_says_so_as_a_loss()
    {
        PostgresLink link = Ligar();
        QCOMPARE(teste::Especie_Da_Falha([&] { Pedir(link, u"SELECT pg_terminate_backend(pg_backend_pid())"_s); }),
                 Failure::Kind::ServerLost);
        QVERIFY(!link.alive());
    }
};

MORVEX_TESTE(TestPostgresLink)
#include "test_PostgresLink.moc"
