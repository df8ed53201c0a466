// The data on a server: what is read and written there is what a file would read and write.
#include "store/Connection.h"
#include "store/postgres/PostgresStore.h"
#include "store/TabelaNoServidor.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <QTemporaryFile>

using namespace Qt::StringLiterals;

class TestPostgresStore : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<PostgresStore> store_;

    // Of a machine with much else to do; nothing here is about time.
    static inline const PostgresPatience paciente_{std::chrono::seconds(60), std::chrono::seconds(60),
                                                   std::chrono::seconds(60), {std::chrono::seconds(1)}};

    static inline const QString inserir_ = u"INSERT INTO T (Nome, Idade) VALUES (?, ?)"_s;
    void Inserir(const QString &name, qint64 age = 0) { store_->execute(inserir_, {name, age}); }
    QStringList Nomes(const QString &rest = u"ORDER BY Nome, ID"_s, const Store::Values &values = {})
    {
        Recordset rs = store_->query(u"SELECT ID, Nome FROM T "_s + rest, values);
        QStringList names;
        for (; !rs.Eof(); rs.MoveNext())
            names << rs.Fields("Nome").textOrEmpty();
        return names;
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void init()
    {
        base_->Correr(u"TRUNCATE t RESTART IDENTITY; TRUNCATE gravacoes"_s);
        store_ = PostgresStore::open(base_->Morada(), paciente_);
    }
    void cleanup() { store_.reset(); }
    void cleanupTestCase() { base_.reset(); }

    void every_kind_of_value_comes_back_as_it_went()
    {
        const QByteArray picture = QByteArray::fromHex("0001ff5c2700");
        const QString text = u"Zoë \\ 'quoted' \"twice\" % ẞ 𐐀 \t"_s;
        store_->execute(u"INSERT INTO T (Nome, Idade, Peso, Imagem) VALUES (?, ?, ?, ?)"_s,
                        {text, qint64{-2147483648}, 8.25, picture});
        store_->execute(u"INSERT INTO T (Nome, Idade, Peso, Imagem) VALUES (?, ?, ?, ?)"_s,
                        {QString(u""_s), std::monostate(), 0.1, QByteArray("")});
        store_->execute(u"INSERT INTO T (Peso) VALUES (?)"_s, {1.0 / 3});
        Recordset rs = store_->query(u"SELECT * FROM T ORDER BY ID"_s, {});
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.Fields("Nome").text(), text);
        QCOMPARE(rs.Fields("IDADE").number(), -2147483647 - 1);
        QCOMPARE(rs.Fields("Peso").text(), u"8.25"_s);
        QCOMPARE(rs.Fields("Imagem").bytes(), picture);
        rs.MoveNext();
        QVERIFY(!rs.Fields("Nome").isNull());
        QCOMPARE(rs.Fields("Nome").text(), QString());
        QVERIFY(rs.Fields("Idade").isNull());
        QCOMPARE(rs.Fields("Peso").text(), u"0.1"_s);
        QVERIFY(!rs.Fields("Imagem").isNull());
        QCOMPARE(store_->query(u"SELECT Peso = 1::float8 / 3 AS same FROM T WHERE ID = 3"_s, {}).Fields("same").number(), 1);
    }
    void every_type_of_the_server_is_what_it_says_data()
    {
        QTest::addColumn<QString>("text");
        for (const auto &[sql, text] : {std::pair("true", "1"), {"false", "0"}, {"5::smallint", "5"}, {"6::integer", "6"},
                                        {"7::bigint", "7"}, {"8::oid", "8"}, {"1.5::real", "1.5"}, {"2.5::float8", "2.5"},
                                        {"3::numeric", "3"}, {"3.5::numeric", "3.5"}, {"'9 a'::text", "9 a"}})
            QTest::newRow(sql) << QString::fromLatin1(text);
    }
    void every_type_of_the_server_is_what_it_says()
    {
        QFETCH(QString, text);
        const QString sql = u"SELECT %1 AS x, 'b' AS nome"_s.arg(QLatin1String(QTest::currentDataTag()));
        const Recordset rs = store_->query(sql, {});
        QCOMPARE(rs.Fields("x").text(), text);
        if (!text.contains(u' ')) QCOMPARE(rs.Fields("x").number(), static_cast<int>(text.toDouble()));
        store_->rows(sql, {}, [&](const Row &row) {
            QCOMPARE(row.field(0).text(), text);
            QCOMPARE(row.bytes(1), "b"); // of a text it is what stands there
        });
    }
    void a_picture_that_is_not_there_has_no_bytes()
    {
        Inserir(u"Ana"_s);
        store_->rows(u"SELECT Imagem FROM T"_s, {}, [](const Row &row) { QVERIFY(row.bytes(0).empty()); });
    }
    void texts_beyond_the_first_few_hundred_are_run_and_not_kept()
    {
        for (int i = 0; i < 450; ++i)
            QCOMPARE(store_->query(u"SELECT %1 AS n"_s.arg(i), {}).Fields("n").number(), i);
        const Recordset kept = store_->query(u"SELECT count(*) AS n FROM pg_prepared_statements"_s, {});
        QVERIFY(kept.Fields("n").number() >= 390 && kept.Fields("n").number() <= 400);
        QCOMPARE(store_->query(u"SELECT 449 AS n"_s, {}).Fields("n").number(), 449);
    }
    void what_the_server_notes_beside_its_answer_is_not_printed()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        const int before = ::dup(STDERR_FILENO);
        ::dup2(file.handle(), STDERR_FILENO);
        const bool done = skipFailure([&] { store_->execute(u"DROP TABLE IF EXISTS nenhuma"_s, {}); });
        ::dup2(before, STDERR_FILENO);
        ::close(before);
        QVERIFY(done);
        QCOMPARE(file.size(), 0);
    }
    void names_and_texts_are_written_as_the_server_has_them()
    {
        const Dialect &dialect = store_->dialect();
        QCOMPARE(dialect.name(u"Na\"me"_s), u"\"na\"\"me\""_s);
        Inserir(u"Ana"_s);
        const QString text = dialect.asText(u"Peso"_s);
        QCOMPARE(store_->query(u"SELECT %1 AS x FROM T"_s.arg(text), {}).Fields("x").text(), QString());
        QVERIFY(!store_->query(u"SELECT %1 AS x FROM T"_s.arg(text), {}).Fields("x").isNull());
    }
    void a_server_without_a_number_of_steps_has_had_none()
    {
        base_->Correr(u"DELETE FROM morvex_esquema"_s);
        QCOMPARE(store_->schemaNumber(), 0);
        base_->Correr(u"INSERT INTO morvex_esquema VALUES (2)"_s);
    }
    void a_column_that_was_dropped_is_none()
    {
        base_->Correr(u"ALTER TABLE t ADD COLUMN velha integer; ALTER TABLE t DROP COLUMN velha"_s);
        QCOMPARE(store_->columns(u"T"_s).size(), 5);
    }
    void a_zero_character_is_taken_out_and_what_stands_behind_it_stays()
    {
        Inserir(QString(u"Ana"_s) + QChar::Null + u"bela"_s);
        QCOMPARE(Nomes(), QStringList{u"Anabela"_s});
    }
    void order_and_comparison_are_those_of_the_file()
    {
        for (const QString &name : {u"Zita"_s, u"ANDRÉ"_s, u"andre"_s, u"Álvaro"_s, u"alvaro"_s})
            Inserir(name);
        store_->execute(u"INSERT INTO T (Idade) VALUES (?)"_s, {qint64{1}});
        QCOMPARE(Nomes(), (QStringList{QString(), u"alvaro"_s, u"Álvaro"_s, u"andre"_s, u"ANDRÉ"_s, u"Zita"_s}));
        QCOMPARE(Nomes(u"WHERE Nome = ?"_s, {u"andré"_s}), QStringList{u"ANDRÉ"_s});
        QCOMPARE(Nomes(u"WHERE Nome LIKE ?"_s, {u"%VAR%"_s}).size(), 2);
        QCOMPARE(Nomes(u"WHERE Idade LIKE ?"_s, {u"%"_s}).size(), 6);
    }
    void a_count_is_a_number_and_a_star_behind_delete_is_dropped()
    {
        Inserir(u"Ana"_s);
        QCOMPARE(store_->query(u"SELECT COUNT(ID) AS Total FROM T"_s, {}).Fields("Total").number(), 1);
        store_->execute(u"DELETE * FROM T WHERE (Nome = ?)"_s, {u"ana"_s});
        QCOMPARE(Nomes(), QStringList());
    }
    void rows_are_handed_on_and_the_unwanted_ones_kept_back()
    {
        for (int age = 1; age <= 5; ++age)
            Inserir(u"N%1"_s.arg(age), age);
        QStringList seen;
        store_->rows(u"SELECT Nome, Idade FROM T WHERE Idade > ? ORDER BY ID"_s, {qint64{3}}, [&](const Row &row) {
            seen << QString::fromUtf8(row.utf8(row.column("nome"))) + QString::number(row.number(row.column("Idade")));
        });
        QCOMPARE(seen, (QStringList{u"N44"_s, u"N55"_s}));
        seen.clear();
        const auto hear = [&](const Row &row) { seen << row.field(row.column("Nome")).text(); };
        const auto nobody = [](std::string_view, std::string_view) { return false; };
        const QString older = u"SELECT * FROM T WHERE Idade > ? ORDER BY ID"_s;
        QVERIFY(store_->rowsWanted(
            older, {qint64{1}}, u"T.Nome, Idade"_s,
            [](std::string_view name, std::string_view age) { return name == "N3" || age == "5"; }, hear));
        QVERIFY(store_->rowsWanted(older, {qint64{1}}, u"Nome, Idade"_s, nobody, hear)); // there are, none wanted
        QVERIFY(!store_->rowsWanted(older, {qint64{99}}, u"Nome, Idade"_s, nobody, hear));
        QCOMPARE(seen, (QStringList{u"N3"_s, u"N5"_s}));
    }
    void a_refused_statement_says_why_and_harms_nothing()
    {
        Inserir(u"Ana"_s);
        VERIFICAR_FALHA(store_->query(u"SELECT * FROM Nenhuma"_s, {}), Failure::StoreError);
        VERIFICAR_FALHA(store_->execute(u"INSERT INTO T (ID) VALUES (?)"_s, {qint64{1}}), Failure::StoreError);
        VERIFICAR_FALHA(store_->query(u"SELECT ID FROM T WHERE ID = ?"_s, {}), Failure::StoreError);
        QCOMPARE(Nomes(), QStringList{u"Ana"_s});
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes"_s), 1); // that of the refused one went with it
    }
    void each_refusal_of_the_store_says_what_happened()
    {
        const auto said = [](const std::function<void()> &work) { return teste::Falha_Dita(work); };
        QCOMPARE(said([&] { store_->query(u"SELECT ID FROM T WHERE ID = ?"_s, {}); }),
                 QStringList({u"Connection"_s, u"0 values for 1 parameters"_s}));
        QCOMPARE(said([&] { store_->setSchemaNumber(3); }),
                 QStringList({store_->place(), u"The schema of a server is its administrator's"_s}));
        QCOMPARE(said([&] { store_->allOrNothing([&] { store_->allOrNothing([] {}); }); }),
                 QStringList({u"Connection"_s, u"All or nothing was begun already"_s}));
        QTemporaryFile file;
        QVERIFY(file.open());
        FileCopy copy;
        copy.file = file.fileName();
        QCOMPARE(said([&] { store_->copyTo(copy); }),
                 QStringList({file.fileName(), u"The file exists already: "_s + file.fileName()}));
        QVERIFY(file.exists());
    }
    void numbers_of_rows_and_the_schema_are_asked_in_the_servers_words()
    {
        QCOMPARE(store_->highestId(u"T"_s), 0);
        Inserir(u"Ana"_s);
        Inserir(u"Rui"_s);
        QCOMPARE(store_->lastId(), 2);
        QCOMPARE(store_->highestId(u"T"_s), 2);
        store_->execute(u"DELETE FROM T WHERE ID = ?"_s, {qint64{2}});
        store_->giveAgainBehind(u"T"_s, 1);
        Inserir(u"Eva"_s);
        QCOMPARE(store_->lastId(), 2);
        QCOMPARE(store_->columns(u"T"_s),
                 (QStringList{u"id"_s, u"nome"_s, u"idade"_s, u"peso"_s, u"imagem"_s}));
        QCOMPARE(store_->columns(u"Nenhuma"_s), QStringList());
        QCOMPARE(store_->indexes(u"T"_s), QStringList{u"t_pkey"_s});
        QCOMPARE(store_->indexes(u"Nenhuma"_s), QStringList());
        QCOMPARE(store_->schemaNumber(), 2);
        VERIFICAR_FALHA(store_->setSchemaNumber(3), Failure::StoreError);
        QCOMPARE(store_->schemaNumber(), 2);
    }
    void columns_that_were_added_meanwhile_do_not_stop_what_was_prepared()
    {
        Inserir(u"Ana"_s);
        QCOMPARE(store_->query(u"SELECT * FROM T"_s, {}).Row().size(), 5);
        base_->Correr(u"ALTER TABLE t ADD COLUMN versao integer NOT NULL DEFAULT 7"_s);
        QCOMPARE(store_->query(u"SELECT * FROM T"_s, {}).Fields("Versao").number(), 7);
        base_->Correr(u"ALTER TABLE t DROP COLUMN versao"_s);
        QCOMPARE(store_->query(u"SELECT * FROM T"_s, {}).Row().size(), 5);
    }
    void what_the_address_sets_for_a_session_stays_beside_what_the_store_sets()
    {
        const auto setting = [](PostgresStore &store, const char *name) {
            return store.query(u"SELECT current_setting('%1') AS s"_s.arg(QLatin1String(name)), {}).Fields("s").text();
        };
        const auto own = PostgresStore::open(base_->Morada() + u"?options=-c%20work_mem%3D7777kB"_s, paciente_);
        QCOMPARE(setting(*own, "work_mem"), u"7777kB"_s);
        QCOMPARE(setting(*own, "lock_timeout"), u"45s"_s); // three quarters of a command's patience
        QCOMPARE(setting(*store_, "lock_timeout"), u"45s"_s);
    }
    void a_refusal_is_told_by_its_first_line()
    {
        base_->Correr(u"CREATE OR REPLACE FUNCTION recusar() RETURNS integer LANGUAGE plpgsql AS "
                      "$f$ BEGIN RAISE EXCEPTION E'one \\ntwo' USING DETAIL = 'three'; END $f$"_s);
        try {
            store_->query(u"SELECT recusar() AS x"_s, {});
            QFAIL("it was not refused");
        } catch (const Failure &failure) {
            QCOMPARE(failure.description(), u"one"_s);
            QCOMPARE(failure.source(), u"SELECT recusar() AS x"_s);
        }
    }
    void keys_of_yesterday_go_at_the_opening_and_those_of_today_stay()
    {
        base_->Correr(u"INSERT INTO gravacoes VALUES (gen_random_uuid(), now() - interval '25 hours'), "
                      "(gen_random_uuid(), now() - interval '23 hours')"_s);
        PostgresStore::openReadOnly(base_->Morada())->schemaNumber();
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes"_s), 2);
        PostgresStore::open(base_->Morada())->schemaNumber();
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes"_s), 1);
    }
    void a_connection_reaches_it_by_its_address()
    {
        Connection connection;
        connection.setDataSource(base_->Morada());
        QVERIFY(connection.isServer());
        connection.Open();
        connection.execute(inserir_, {u"Ana"_s, qint64{3}});
        QCOMPARE(connection.query(u"SELECT Nome FROM T"_s, {}).Fields("Nome").text(), u"Ana"_s);
        QCOMPARE(connection.file(), base_->Morada());
        Connection looking;
        looking.setDataSource(base_->Morada());
        looking.OpenReadOnly();
        QCOMPARE(teste::Especie_Da_Falha([&] { looking.execute(inserir_, {u"Rui"_s, qint64{3}}); }),
                 Failure::Kind::DatabaseReadOnly);
        QCOMPARE(looking.query(u"SELECT COUNT(*) AS n FROM T"_s, {}).Fields("n").number(), 1);
    }
};

MORVEX_TESTE(TestPostgresStore)
#include "test_PostgresStore.moc"
