// One connection for whoever sets a database up: what it sends and takes, and how it says what went wrong.
#include "store/postgres/ServerSession.h"
#include "store/TabelaNoServidor.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/Teste.h"

#include <QSet>

using namespace Qt::StringLiterals;

class TestServerSession : public QObject
{
    Q_OBJECT

    using Values = ServerSession::Values;

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<ServerSession> session_;

    int Quantos() const { return base_->Numero(u"SELECT count(*) FROM t"_s); }
    QString Nomes() const { return base_->Valor(u"SELECT string_agg(nome, ',' ORDER BY id) FROM t"_s); }
    void Copiar(const std::function<void(const ServerSession::Give &)> &rows)
    {
        session_->copyIn(u"t"_s, {u"nome"_s, u"idade"_s, u"peso"_s, u"imagem"_s}, rows);
    }
    // That it can be asked again.
    bool Serve() { return session_->query(u"SELECT 1 AS n"_s).Fields("n").number() == 1; }
    // What it says of a refusal.
    static std::pair<QString, QString> Recusa(const std::function<void()> &work)
    {
        try {
            work();
        } catch (const Failure &failure) {
            return {failure.description(), failure.source()};
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void init()
    {
        base_->Correr(u"TRUNCATE t RESTART IDENTITY"_s);
        session_ = std::make_unique<ServerSession>(base_->Morada());
    }
    void cleanup() { session_.reset(); }
    void cleanupTestCase() { base_.reset(); }

    void it_says_where_it_is_without_a_password()
    {
        QVERIFY(session_->place().contains(base_->Nome()));
        QCOMPARE(teste::Especie_Da_Falha([&] { ServerSession(u"postgresql://a@127.0.0.1:1/b"_s); }),
                 Failure::Kind::ServerRefused);
    }
    void cells_come_as_what_they_are()
    {
        const Recordset rs =
            session_->query(u"SELECT 7::int2 AS a, -8::int4 AS b, 9000000000::int8 AS c, 0.5::float4 AS d, "
                            "0.1::float8 AS e, 'ção'::text AS f, '\\x00ff5c'::bytea AS g, NULL::int4 AS h, "
                            "''::text AS i"_s);
        const auto cell = [&](const char *name) { return rs.Fields(name); };
        QCOMPARE(cell("a").text(), u"7"_s);
        QCOMPARE(cell("b").number(), -8);
        QCOMPARE(cell("c").text(), u"9000000000"_s);
        QCOMPARE(cell("d").real(), 0.5);
        QCOMPARE(cell("e").text(), u"0.1"_s);
        QCOMPARE(cell("f").text(), u"ção"_s);
        QCOMPARE(cell("g").bytes(), QByteArray("\x00\xff\x5c", 3));
        QVERIFY(cell("h").isNull());
        QVERIFY(!cell("i").isNull());
        session_->each(
            u"SELECT 7::int2, 9000000000::int8, 0.5::float4, 0.1::float8, 'x'::text, '\\x00'::bytea, NULL"_s,
            [](const Values &row) {
                QVERIFY(row == (Values{qint64{7}, qint64{9000000000}, 0.5, 0.1, u"x"_s, QByteArray(1, '\0'),
                                       std::monostate()}));
            });
    }
    void values_go_as_what_they_are()
    {
        const Recordset rs = session_->query(
            u"SELECT $1::bigint + 1 AS a, $2::float8 * 2 AS b, upper($3) AS c, length($4::bytea) AS d, "
            "$5::int IS NULL AS e, $6 = '' AS f"_s,
            {qint64{9000000000}, 0.1, u"ção"_s, QByteArray("\x00\\'", 3), std::monostate(), u""_s});
        QCOMPARE(rs.Row(), (QStringList{u"9000000001"_s, u"0.2"_s, u"ÇÃO"_s, u"3"_s, u"t"_s, u"t"_s}));
    }
    void rows_come_all_and_in_their_order()
    {
        Recordset rs =
            session_->query(u"SELECT n FROM generate_series(1, $1) AS n ORDER BY n DESC"_s, {qint64{3}});
        QCOMPARE(rs.RecordCount(), 3);
        QStringList all;
        for (; !rs.Eof(); rs.MoveNext())
            all << rs.Fields("n").text();
        QCOMPARE(all, (QStringList{u"3"_s, u"2"_s, u"1"_s}));
        QVERIFY(session_->query(u"SELECT 1 AS n WHERE false"_s).Eof());
    }
    void several_statements_run_together_and_a_refusal_names_reason_and_statement()
    {
        session_->run(u"INSERT INTO t (nome) VALUES ('Ana'); INSERT INTO t (nome) VALUES ('Rui')"_s);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        const QString wrong = u"SELECT * FROM nenhuma"_s;
        const auto named = [&](const std::function<void()> &work) {
            const auto [reason, source] = Recusa(work);
            QVERIFY2(reason.contains("nenhuma"_L1) && reason == reason.trimmed(), qPrintable(reason));
            QCOMPARE(source, wrong);
            QVERIFY(Serve());
        };
        named([&] { session_->run(wrong); });
        named([&] { session_->query(wrong); });
        named([&] { session_->each(wrong, [](const Values &) {}); });
        QVERIFY(Recusa([&] {
                    session_->copyIn(u"nenhuma"_s, {u"x"_s},
                                     [](const auto &) { QFAIL("no rows are asked for"); });
                }).second.startsWith("COPY nenhuma (x)"_L1));
        QVERIFY(Serve());
    }
    void a_server_that_ends_the_connection_is_lost_and_not_a_refusal()
    {
        base_->Correr(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = "
                      u"current_database() AND pid "
                      "<> pg_backend_pid()"_s);
        QCOMPARE(teste::Especie_Da_Falha([&] { session_->run(u"SELECT 1"_s); }), Failure::Kind::ServerLost);
    }
    void each_row_is_handed_on_once_and_who_stops_leaves_the_line_clean()
    {
        int rows = 0;
        session_->each(u"SELECT n FROM generate_series(1, 5000) AS n ORDER BY n"_s,
                       [&](const Values &row) { QVERIFY(row == Values{qint64{++rows}}); });
        QCOMPARE(rows, 5000);
        rows = 0;
        VERIFICAR_FALHA(session_->each(u"SELECT n FROM generate_series(1, 5000) AS n"_s,
                                       [&](const Values &) {
                                           if (++rows == 3) throw Failure(7, {}, {});
                                       }),
                        7);
        QCOMPARE(rows, 3);
        QVERIFY(Serve());
    }
    void what_fails_in_the_midst_of_the_rows_is_told_behind_them()
    {
        int rows = 0;
        const QString sql = u"SELECT 1 / (4 - n) FROM generate_series(1, 5) AS n"_s;
        QCOMPARE(Recusa([&] { session_->each(sql, [&](const Values &) { ++rows; }); }).second, sql);
        QCOMPARE(rows, 3);
        QVERIFY(Serve());
    }
    void what_is_copied_in_is_what_was_given()
    {
        const QString difficult = u"a\tb\nc\rd\\e\\N'\"ção\U0001F600"_s;
        Copiar([&](const ServerSession::Give &give) {
            give({difficult, qint64{-5}, 0.1, QByteArray("\x00\\\t\xff", 4)});
            give({u""_s, std::monostate(), std::monostate(), std::monostate()});
            give({std::monostate(), qint64{1}, 8.25, QByteArray()});
            give({u"\\N"_s, qint64{2}, 1e300, QByteArray("x")});
        });
        Recordset rs = session_->query(u"SELECT nome, idade, peso, imagem FROM t ORDER BY id"_s);
        QCOMPARE(rs.RecordCount(), 4);
        QCOMPARE(rs.Fields("nome").text(), difficult);
        QCOMPARE(rs.Fields("idade").number(), -5);
        QCOMPARE(rs.Fields("peso").text(), u"0.1"_s);
        QCOMPARE(rs.Fields("imagem").bytes(), QByteArray("\x00\\\t\xff", 4));
        rs.MoveNext();
        QVERIFY(!rs.Fields("nome").isNull());
        QVERIFY(rs.Fields("idade").isNull() && rs.Fields("imagem").isNull());
        rs.MoveNext();
        QVERIFY(rs.Fields("nome").isNull());
        QVERIFY(!rs.Fields("imagem").isNull());
        rs.MoveNext();
        QCOMPARE(rs.Fields("nome").text(), u"\\N"_s);
        QCOMPARE(rs.Fields("peso").real(), 1e300);
    }
    void more_than_a_portion_is_copied_in_and_none_is()
    {
        const QString long_text(5000, u'x');
        Copiar([&](const ServerSession::Give &give) {
            for (int i = 0; i < 300; ++i)
                give({long_text, qint64{i}, 0.0, QByteArray()});
        });
        QCOMPARE(base_->Numero(u"SELECT sum(length(nome)) FROM t"_s), 300 * 5000);
        QCOMPARE(base_->Numero(u"SELECT count(DISTINCT idade) FROM t"_s), 300);
        Copiar([](const ServerSession::Give &) {});
        QCOMPARE(Quantos(), 300);
    }
    void of_what_is_given_up_or_refused_nothing_is_copied()
    {
        VERIFICAR_FALHA(Copiar([](const ServerSession::Give &give) {
                            give({u"Ana"_s, qint64{1}, 0.0, QByteArray()});
                            throw Failure(7, {}, {});
                        }),
                        7);
        int rows = 0; // the strictest of those that come next: it takes no line on which something is left over
        session_->each(u"SELECT 1"_s, [&](const Values &) { ++rows; });
        QCOMPARE(rows, 1);
        const auto [reason, source] = Recusa([&] {
            Copiar([](const ServerSession::Give &give) {
                give({u"Ana"_s, qint64{1}, 0.0, QByteArray()});
                give({u"Rui"_s, u"none"_s, 0.0, QByteArray()});
            });
        });
        QVERIFY2(reason.contains("none"_L1), qPrintable(reason));
        QVERIFY(source.startsWith("COPY t (nome, idade, peso, imagem)"_L1));
        QVERIFY(Serve());
        QCOMPARE(Quantos(), 0);
    }
    void all_is_there_or_nothing()
    {
        session_->together([&] {
            session_->run(u"INSERT INTO t (nome) VALUES ('Ana')"_s);
            QCOMPARE(Quantos(), 0);
        });
        QCOMPARE(Nomes(), u"Ana"_s);
        VERIFICAR_FALHA(session_->together([&] {
            session_->run(u"INSERT INTO t (nome) VALUES ('Rui')"_s);
            throw Failure(7, {}, {});
        }),
                        7);
        QVERIFY(Recusa([&] {
                    session_->together([&] {
                        session_->run(u"INSERT INTO t (nome) VALUES ('Rui')"_s);
                        session_->run(u"SELECT * FROM nenhuma"_s);
                    });
                }).second.contains("nenhuma"_L1));
        session_->run(u"INSERT INTO t (nome) VALUES ('Eva')"_s); // nothing was left open
        QCOMPARE(Nomes(), u"Ana,Eva"_s);
    }
    void a_snapshot_is_of_one_moment_and_writes_nothing()
    {
        session_->snapshot([&] {
            QCOMPARE(session_->query(u"SELECT count(*) AS n FROM t"_s).Fields("n").number(), 0);
            base_->Correr(u"INSERT INTO t (nome) VALUES ('Ana')"_s);
            QCOMPARE(session_->query(u"SELECT count(*) AS n FROM t"_s).Fields("n").number(), 0);
        });
        QVERIFY(!Recusa([&] {
                     session_->snapshot([&] { session_->run(u"INSERT INTO t (nome) VALUES ('Rui')"_s); });
                 }).first.isEmpty());
        session_->run(u"INSERT INTO t (nome) VALUES ('Eva')"_s);
        QCOMPARE(Nomes(), u"Ana,Eva"_s);
    }
    void texts_and_names_stand_between_their_quotes()
    {
        QCOMPARE(ServerSession::quoted(u"d'água ''"_s), u"'d''água '''''"_s);
        QCOMPARE(ServerSession::name(u"a\"b"_s), u"\"a\"\"b\""_s);
    }
};

MORVEX_TESTE(TestServerSession)
#include "test_ServerSession.moc"
