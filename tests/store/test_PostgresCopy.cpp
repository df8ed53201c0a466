// The data of a server as a file: a snapshot, made while others write.
#include "store/TabelaNoServidor.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "store/sqlite/SqliteStore.h"
#include "testlib/Teste.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

class TestPostgresCopy : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<PostgresStore> store_;
    std::unique_ptr<QTemporaryDir> folder_;

    FileCopy Copia(std::function<void(int)> progress = {}) const
    {
        return {folder_->filePath(u"copy.mdb"_s),
                {u"CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Nome TEXT COLLATE MORVEX, Idade INTEGER, "
                 "Peso REAL, Imagem BLOB) STRICT"_s},
                {{u"T"_s, {u"ID"_s, u"Nome"_s, u"Idade"_s, u"Peso"_s, u"Imagem"_s}, true}},
                std::move(progress), 7};
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void init()
    {
        base_->Correr(u"TRUNCATE t RESTART IDENTITY; CREATE OR REPLACE FUNCTION morvex_maior_id(qual text) RETURNS integer "
                      "LANGUAGE plpgsql AS $f$ DECLARE n integer; BEGIN EXECUTE format('SELECT coalesce(max(id), 0) FROM "
                      "%I', lower(qual)) INTO n; RETURN n; END $f$"_s);
        folder_ = std::make_unique<QTemporaryDir>();
        store_ = PostgresStore::open(base_->Morada());
    }
    void cleanup() { store_.reset(); }
    void cleanupTestCase() { base_.reset(); }

    void the_copy_holds_every_cell_and_the_counter()
    {
        const QByteArray picture = QByteArray::fromHex("0001ff5c2700");
        store_->execute(u"INSERT INTO T (Nome, Idade, Peso, Imagem) VALUES (?, ?, ?, ?)"_s,
                        {u"Zoë 'a' \\ 𐐀"_s, qint64{-5}, 8.25, picture});
        store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {std::monostate()});
        store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"gone"_s});
        store_->execute(u"DELETE FROM T WHERE ID = 3"_s, {});
        // The counter of a real schema remembers what the table no longer shows.
        base_->Correr(u"CREATE OR REPLACE FUNCTION morvex_maior_id(qual text) RETURNS integer LANGUAGE sql AS 'SELECT 3'"_s);
        store_->copyTo(Copia());
        const auto file = SqliteStore::open(Copia().file);
        Recordset rs = file->query(u"SELECT * FROM T ORDER BY ID"_s, {});
        QCOMPARE(rs.RecordCount(), 2);
        QCOMPARE(rs.Fields("Nome").text(), u"Zoë 'a' \\ 𐐀"_s);
        QCOMPARE(rs.Fields("Idade").number(), -5);
        QCOMPARE(rs.Fields("Peso").text(), u"8.25"_s);
        QCOMPARE(rs.Fields("Imagem").bytes(), picture);
        rs.MoveNext();
        QVERIFY(rs.Fields("Nome").isNull());
        QVERIFY(rs.Fields("Imagem").isNull());
        QCOMPARE(file->highestId(u"T"_s), 3);
        QCOMPARE(file->schemaNumber(), 7);
        file->execute(u"INSERT INTO T (Nome) VALUES ('next')"_s, {});
        QCOMPARE(file->lastId(), 4);
    }
    // Whatever was read of the tables before: each counter is asked for behind the rows of its table.
    void the_counter_of_every_table_comes_even_of_an_empty_one()
    {
        base_->Correr(u"CREATE TABLE u (id integer PRIMARY KEY, nome text)"_s);
        base_->Correr(u"CREATE OR REPLACE FUNCTION morvex_maior_id(qual text) RETURNS integer LANGUAGE sql AS "
                      "'SELECT CASE qual WHEN ''U'' THEN 7 ELSE 3 END'"_s);
        store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"one"_s});
        FileCopy copia = Copia();
        copia.create << u"CREATE TABLE U (ID INTEGER PRIMARY KEY AUTOINCREMENT, Nome TEXT) STRICT"_s;
        copia.tables.push_back({u"U"_s, {u"ID"_s, u"Nome"_s}, true});
        store_->copyTo(copia);
        base_->Correr(u"DROP TABLE u"_s);
        const auto file = SqliteStore::open(copia.file);
        QCOMPARE(file->highestId(u"T"_s), 3);
        QCOMPARE(file->highestId(u"U"_s), 7);
    }
    void others_write_meanwhile_and_the_copy_is_of_one_moment()
    {
        base_->Correr(u"INSERT INTO t (nome) SELECT 'n' || i FROM generate_series(1, 5000) i"_s);
        QList<int> seen;
        store_->copyTo(Copia([&](int percent) {
            seen << percent;
            if (percent % 10 == 0) store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"later"_s}); // this desk too
        }));
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), 5010);
        const auto file = SqliteStore::open(Copia().file);
        QCOMPARE(file->query(u"SELECT count(*) AS n FROM T"_s, {}).Fields("n").number(), 5000);
        QCOMPARE(seen.size(), 100);
        QCOMPARE(seen.last(), 100);
        QVERIFY(std::is_sorted(seen.begin(), seen.end()));
    }
    void what_is_written_to_a_table_while_another_is_copied_is_not_in_the_copy()
    {
        base_->Correr(u"CREATE TABLE u (nome text); INSERT INTO u VALUES ('b'), ('c'), ('a'); "
                      "INSERT INTO t (nome) SELECT 'n' FROM generate_series(1, 100) i"_s);
        bool written = false;
        FileCopy both = Copia([&](int) {
            if (!std::exchange(written, true)) base_->Correr(u"INSERT INTO u VALUES ('later')"_s);
        });
        both.create << u"CREATE TABLE U (Nome TEXT)"_s;
        both.tables << FileCopy::Table{u"U"_s, {u"Nome"_s}, false}; // it has no counter to ask for
        store_->copyTo(both);
        base_->Correr(u"DROP TABLE u"_s);
        const auto file = SqliteStore::open(both.file);
        Recordset rs = file->query(u"SELECT Nome FROM U"_s, {});
        QStringList names;
        for (; !rs.Eof(); rs.MoveNext())
            names << rs.Fields("Nome").text();
        QCOMPARE(names, (QStringList{u"a"_s, u"b"_s, u"c"_s})); // in their order, wherever the server has put them
        QVERIFY(written);
    }
    void a_table_may_take_longer_than_a_desks_command()
    {
        base_->Correr(u"INSERT INTO t (nome) SELECT repeat('n', 1000) FROM generate_series(1, 20000) i; "
                      "ALTER DATABASE %1 SET statement_timeout = '400ms'"_s.arg(base_->Nome()));
        store_->copyTo(Copia([](int percent) {
            if (percent == 1) QTest::qSleep(900);
        }));
        base_->Correr(u"ALTER DATABASE %1 RESET statement_timeout"_s.arg(base_->Nome()));
        QCOMPARE(SqliteStore::open(Copia().file)->query(u"SELECT count(*) AS n FROM T"_s, {}).Fields("n").number(), 20000);
    }
    void what_was_gathered_is_in_the_copy()
    {
        store_->gathering([&] {
            store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"Ana"_s});
            store_->copyTo(Copia());
        });
        QCOMPARE(SqliteStore::open(Copia().file)->query(u"SELECT * FROM T"_s, {}).RecordCount(), 1);
    }
    void a_table_that_the_server_refuses_ends_the_copy_and_leaves_no_file()
    {
        FileCopy wrong = Copia();
        wrong.create << u"CREATE TABLE U (Nada TEXT)"_s;
        wrong.tables.first().columns << u"Nada"_s; // it can be counted, and not be read
        VERIFICAR_FALHA(store_->copyTo(wrong), Failure::StoreError);
        QVERIFY(!QFile::exists(wrong.file));
    }
    void from_a_lost_server_nothing_is_copied_and_nothing_is_waited_for()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()),
                                     {milliseconds(8000), milliseconds(200), milliseconds(200), {milliseconds(60000)}});
        network.modo = Intermediario::Cala;
        skipFailure([&] { store_->schemaNumber(); });
        QElapsedTimer clock;
        clock.start();
        VERIFICAR_FALHA(store_->copyTo(Copia()), Failure::StoreError);
        QVERIFY2(clock.elapsed() < 4000, QByteArray::number(clock.elapsed()));
        QVERIFY(!QFile::exists(Copia().file));
    }
    void an_empty_book_is_copied_too_and_goes_on_counting_where_the_server_was()
    {
        base_->Correr(u"CREATE OR REPLACE FUNCTION morvex_maior_id(qual text) RETURNS integer LANGUAGE sql AS 'SELECT 7'"_s);
        store_->copyTo(Copia());
        const auto file = SqliteStore::open(Copia().file);
        QCOMPARE(file->query(u"SELECT * FROM T"_s, {}).RecordCount(), 0);
        file->execute(u"INSERT INTO T (Nome) VALUES ('next')"_s, {});
        QCOMPARE(file->lastId(), 8);
    }
    void a_copy_that_is_called_off_leaves_no_file_and_harms_nothing()
    {
        base_->Correr(u"INSERT INTO t (nome) SELECT 'n' || i FROM generate_series(1, 500) i"_s);
        VERIFICAR_FALHA(store_->copyTo(Copia([](int percent) {
            if (percent == 50) throw Failure(7, {}, {});
        })),
                        7);
        QVERIFY(!QFile::exists(Copia().file));
        QCOMPARE(store_->query(u"SELECT count(*) AS n FROM T"_s, {}).Fields("n").number(), 500);
    }
    void a_copy_whose_server_falls_silent_ends_and_leaves_no_file()
    {
        base_->Correr(u"INSERT INTO t (nome) SELECT repeat('n', 1000) FROM generate_series(1, 20000) i"_s);
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()),
                                     {milliseconds(2000), milliseconds(500), milliseconds(1000), {milliseconds(50)}});
        VERIFICAR_FALHA(store_->copyTo(Copia([&](int percent) {
            if (percent == 1) network.modo = Intermediario::Cala;
        })),
                        Failure::StoreError);
        QVERIFY(!QFile::exists(Copia().file));
    }
    void a_file_that_is_there_is_left_alone()
    {
        QFile file(Copia().file);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("mine");
        file.close();
        VERIFICAR_FALHA(store_->copyTo(Copia()), Failure::StoreError);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "mine");
    }
    void a_file_copies_itself_in_the_same_way()
    {
        store_->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"Ana"_s});
        store_->copyTo(Copia());
        const auto first = SqliteStore::open(Copia().file);
        FileCopy second = Copia();
        second.file = folder_->filePath(u"second.mdb"_s);
        first->copyTo(second);
        QCOMPARE(SqliteStore::open(second.file)->query(u"SELECT Nome FROM T"_s, {}).Fields("Nome").text(), u"Ana"_s);
        VERIFICAR_FALHA(first->copyTo(second), Failure::StoreError);
    }
};

MORVEX_TESTE(TestPostgresCopy)
#include "test_PostgresCopy.moc"
