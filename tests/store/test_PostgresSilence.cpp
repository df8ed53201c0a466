// A server that is away and says nothing of it, told from one that takes its time: the first is given up within a second
// and a half, whatever is waited for, and the second is not.
#include "store/Certificados.h"
#include "store/Intermediario.h"
#include "store/TabelaNoServidor.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/Pausas.h"
#include "testlib/Servidor.h"
#include "testlib/Teste.h"

#include <csignal>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

class TestPostgresSilence : public QObject
{
    Q_OBJECT

    using Work = std::function<void(PostgresStore &)>;

    std::unique_ptr<Servidor> server_; // its own: what is done to it would disturb others
    QUrl address_;
    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<Intermediario> network_;
    std::unique_ptr<PostgresStore> store_;
    QList<Reach> reached_;

    static inline const QString insert_ = u"INSERT INTO T (Nome) VALUES (?)"_s;
    static constexpr milliseconds once_ = PostgresPatience().silence;
    static constexpr milliseconds late_{1200}; // how much later than that this machine may get to it

    static PostgresPatience Propria()
    {
        PostgresPatience patience;
        patience.command = milliseconds(9000);
        patience.list = milliseconds(15000);
        patience.tries = {milliseconds(50), milliseconds(100), milliseconds(200)};
        return patience;
    }
    void Abrir(const QString &address)
    {
        store_ = PostgresStore::open(address, Propria());
        store_->listen({{}, [this](Reach reach) { reached_ << reach; }});
        store_->execute(insert_, {u"Ana"_s});
        reached_.clear();
    }
    template<class Doing> static qint64 Demora(const Doing &doing)
    {
        QElapsedTimer clock;
        clock.start();
        doing();
        return clock.elapsed();
    }
    // Lost, after that long.
    static void Perde(const std::function<void()> &doing, milliseconds after = once_)
    {
        std::optional<Failure::Kind> kind;
        const qint64 took = Demora([&] { kind = teste::Especie_Da_Falha(doing); });
        QCOMPARE(kind, Failure::Kind::ServerLost);
        QVERIFY2(took >= after.count() - 50 && took < (after + late_).count(), QByteArray::number(took));
    }
    bool Volta() { return QTest::qWaitFor([&] { return reached_.endsWith(Reach::There); }, 10000); }
    QString Dizer(const QString &sql) const { return TabelaNoServidor::Correr_Em(address_, sql); }
    QByteArray Diario() const
    {
        QFile file(server_->Pasta() + u"/dados/server.log"_s);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?");
    }
    // The server's processes, of which the first has made the others.
    std::vector<pid_t> Processos() const
    {
        QFile first(server_->Pasta() + u"/dados/postmaster.pid"_s);
        if (!first.open(QIODevice::ReadOnly)) return {};
        const QByteArray id = first.readLine().trimmed();
        std::vector<pid_t> all{id.toInt()};
        QFile children(u"/proc/%1/task/%1/children"_s.arg(QString::fromLatin1(id)));
        if (children.open(QIODevice::ReadOnly))
            for (const QByteArray &one : children.readAll().split(' '))
                if (one.toInt() > 0) all.push_back(one.toInt());
        return all;
    }
    struct Stopped {
        explicit Stopped(std::vector<pid_t> all) : all_(std::move(all))
        {
            for (const pid_t one : all_)
                ::kill(one, SIGSTOP);
        }
        ~Stopped()
        {
            for (const pid_t one : all_)
                ::kill(one, SIGCONT);
        }
        Stopped(const Stopped &) = delete;
        Stopped &operator=(const Stopped &) = delete;
        std::vector<pid_t> all_;
    };

private Q_SLOTS:
    void initTestCase()
    {
        if (TabelaNoServidor::Do_Servidor().isEmpty()) QSKIP("the tests' database server does not run");
        server_ = std::make_unique<Servidor>("postgres");
        QVERIFY(server_->Correr("start"));
        address_ = QUrl(server_->Perguntar("address"));
        qputenv("PGPASSFILE", (server_->Pasta() + u"/senhas"_s).toUtf8());
        base_ = std::make_unique<TabelaNoServidor>(address_);
    }
    void init()
    {
        base_->Correr(u"TRUNCATE t RESTART IDENTITY; TRUNCATE gravacoes"_s);
        network_ = std::make_unique<Intermediario>(base_->Porta());
        Abrir(base_->Morada(network_->Porta()));
    }
    void cleanup()
    {
        store_.reset();
        network_.reset();
    }
    void cleanupTestCase()
    {
        base_.reset();
        server_.reset();
    }

    void a_second_and_a_half_hold_the_silence_and_what_a_handler_does_besides()
    {
        QVERIFY(PostgresPatience().silence <= milliseconds(1400));
        QVERIFY(PostgresPatience().silence >= milliseconds(1000));
    }

    void a_silent_network_is_given_up_whatever_is_waited_for_data()
    {
        QTest::addColumn<Work>("work");
        const auto reads = [](const QString &sql) {
            return Work([sql](PostgresStore &store) { store.query(sql, {u"1"_s}); });
        };
        QTest::newRow("a row") << reads(u"SELECT Nome FROM T WHERE Nome = ?"_s);
        QTest::newRow("a list") << reads(u"SELECT Nome FROM T WHERE Nome > ? ORDER BY Nome"_s);
        QTest::newRow("a search") << reads(u"SELECT Nome FROM T WHERE Nome LIKE ?"_s);
        QTest::newRow("all of them") << reads(u"SELECT Nome, ? AS x FROM T"_s);
        QTest::newRow("a write") << Work([](PostgresStore &store) { store.execute(insert_, {u"Rui"_s}); });
        QTest::newRow("whether it can be written") << Work([](PostgresStore &store) { store.tryWriting(); });
        QTest::newRow("an import") << Work([](PostgresStore &store) {
            store.gathering([&] {
                for (int i = 0; i < 1000; ++i)
                    store.execute(insert_, {QString::number(i)});
            });
        });
        QTest::newRow("the beginning of all or nothing") << Work([](PostgresStore &store) {
            store.allOrNothing([&] { store.execute(insert_, {u"Rui"_s}); });
        });
        QTest::newRow("a report") << Work(
            [](PostgresStore &store) { store.query(u"SELECT count(*) AS n FROM T"_s, {}); });
    }
    void a_silent_network_is_given_up_whatever_is_waited_for()
    {
        QFETCH(Work, work);
        network_->modo = Intermediario::Cala;
        Perde([&] { work(*store_); });
        QTRY_COMPARE(reached_, QList{Reach::Lost});
    }
    void silence_within_all_or_nothing_is_given_up_once()
    {
        Perde([&] {
            store_->allOrNothing([&] {
                store_->execute(insert_, {u"Rui"_s});
                network_->modo = Intermediario::Cala;
                skipFailure([&] { store_->execute(insert_, {u"Eva"_s}); });
                store_->execute(insert_, {u"Zita"_s});
            });
        });
    }
    void silence_at_the_end_of_all_or_nothing_is_given_up_once()
    {
        Perde([&] {
            store_->allOrNothing([&] {
                store_->execute(insert_, {u"Rui"_s});
                network_->modo = Intermediario::Engole_Respostas;
            });
        });
    }
    void behind_a_silence_nothing_waits_any_more()
    {
        network_->modo = Intermediario::Cala;
        skipFailure([&] { store_->schemaNumber(); });
        const auto all = [&] {
            for (int i = 0; i < 20; ++i) {
                QCOMPARE(teste::Especie_Da_Falha([&] { store_->execute(insert_, {u"Rui"_s}); }), Failure::Kind::ServerLost);
                QCOMPARE(teste::Especie_Da_Falha([&] { store_->schemaNumber(); }), Failure::Kind::ServerLost);
                QCOMPARE(teste::Especie_Da_Falha([&] { store_->allOrNothing([] {}); }), Failure::Kind::ServerLost);
            }
        };
        QVERIFY(Demora(all) < 60 * 50);
    }
    // The old connection was cut, and the new one finds nobody.
    void a_cut_and_then_silence_are_one_silence_together_data()
    {
        QTest::addColumn<bool>("writes");
        QTest::newRow("a read") << false;
        QTest::newRow("a write") << true;
    }
    void a_cut_and_then_silence_are_one_silence_together()
    {
        QFETCH(bool, writes);
        network_->Cortar();
        network_->modo = Intermediario::Cala;
        Perde([&] { writes ? store_->execute(insert_, {u"Rui"_s}) : void(store_->schemaNumber()); });
    }
    // What the connections of one program find out they know all together.
    void a_report_into_silence_is_given_up_once_and_the_others_know_it()
    {
        const QString address = base_->Morada(network_->Porta());
        network_->modo = Intermediario::Cala;
        Perde([&] { PostgresStore::openReadOnly(address, Propria()); });
        const auto others = [&] {
            QCOMPARE(teste::Especie_Da_Falha([&] { store_->schemaNumber(); }), Failure::Kind::ServerLost);
            QCOMPARE(teste::Especie_Da_Falha([&] { PostgresStore::openReadOnly(address, Propria()); }), Failure::Kind::ServerLost);
        };
        QVERIFY(Demora(others) < 300);
        QTRY_COMPARE(reached_, QList{Reach::Lost});
        network_->modo = Intermediario::Passa;
        QVERIFY(Volta());
        QCOMPARE(PostgresStore::openReadOnly(address, Propria())->schemaNumber(), 2);
    }
    void what_one_connection_waits_for_in_vain_no_other_waits_for()
    {
        const auto other = PostgresStore::open(base_->Morada(network_->Porta()), Propria());
        network_->modo = Intermediario::Cala;
        Perde([&] { store_->schemaNumber(); });
        const auto ask = [&] {
            QCOMPARE(teste::Especie_Da_Falha([&] { other->schemaNumber(); }), Failure::Kind::ServerLost);
        };
        QVERIFY(Demora(ask) < 300);
    }
    void the_server_of_another_address_is_not_lost_with_it()
    {
        Intermediario other(base_->Porta());
        const auto elsewhere = PostgresStore::open(base_->Morada(other.Porta()), Propria());
        network_->modo = Intermediario::Cala;
        skipFailure([&] { store_->schemaNumber(); });
        QCOMPARE(elsewhere->schemaNumber(), 2);
        QCOMPARE(PostgresStore::openReadOnly(base_->Morada(other.Porta()), Propria())->schemaNumber(), 2);
    }
    void a_backup_into_silence_is_given_up_once_and_the_others_know_it()
    {
        const QTemporaryDir folder;
        const FileCopy copy{folder.filePath(u"copy.mdb"_s), {u"CREATE TABLE T (ID INTEGER, Nome TEXT)"_s},
                            {{u"T"_s, {u"ID"_s, u"Nome"_s}, false}}, {}};
        network_->modo = Intermediario::Cala;
        Perde([&] { store_->copyTo(copy); });
        QVERIFY(!QFile::exists(copy.file));
        QVERIFY(Demora([&] { skipFailure([&] { store_->schemaNumber(); }); }) < 300);
    }
    // Four seconds belong to whoever starts the program, or tries an address.
    void an_opening_that_a_person_waits_for_has_its_own_patience()
    {
        network_->modo = Intermediario::Cala;
        PostgresPatience patience;
        patience.opening = milliseconds(2500);
        Perde([&] { PostgresStore::open(base_->Morada(network_->Porta()), patience); }, patience.opening);
    }
    void a_server_that_only_takes_its_time_is_waited_for()
    {
        const int before = network_->ligacoes;
        QCOMPARE(store_->query(u"SELECT 7 AS n, pg_sleep(3)::text AS x WHERE 1 = ?"_s, {qint64{1}}).Fields("n").number(), 7);
        QVERIFY(network_->ligacoes >= before + 2); // it was asked again and again whether it is there
        QVERIFY(reached_.isEmpty());
        QCOMPARE(store_->schemaNumber(), 2);
    }
    void within_the_machine_it_is_asked_as_well()
    {
        QFile file(server_->Pasta() + u"/tomada"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        Abrir(QString::fromUtf8(file.readAll()).trimmed().replace(u"/postgres?"_s, u'/' + base_->Nome() + u'?'));
        QCOMPARE(store_->query(u"SELECT 7 AS n, pg_sleep(2.5)::text AS x WHERE 1 = ?"_s, {qint64{1}}).Fields("n").number(), 7);
        const Stopped stopped(Processos());
        Perde([&] { store_->schemaNumber(); });
    }
    void a_lock_that_another_desk_holds_is_waited_for()
    {
        std::thread holder([address = base_->Morada()] {
            TabelaNoServidor::Correr_Em(QUrl(address), u"BEGIN; LOCK TABLE t; SELECT pg_sleep(2.2); COMMIT"_s);
        });
        QTRY_COMPARE(base_->Numero(u"SELECT count(*) FROM pg_locks WHERE relation = 't'::regclass AND "
                                   "mode = 'AccessExclusiveLock' AND granted"_s),
                     1);
        store_->execute(insert_, {u"Rui"_s});
        holder.join();
        QCOMPARE(base_->Valor(u"SELECT string_agg(nome, ',' ORDER BY id) FROM t"_s), u"Ana,Rui"_s);
        QCOMPARE(store_->lostWrites(), 0);
    }
    void a_command_that_takes_longer_than_its_patience_is_lost_though_the_server_is_there()
    {
        PostgresPatience patience = Propria();
        patience.command = milliseconds(2200);
        store_ = PostgresStore::open(base_->Morada(network_->Porta()), patience);
        Perde([&] { store_->query(u"SELECT pg_sleep(6)::text AS x WHERE 1 = ?"_s, {qint64{1}}); }, patience.command);
    }
    void a_list_may_take_longer_than_a_look_at_a_row_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::newRow("in an order") << u"SELECT Nome, pg_sleep(1.5)::text FROM T WHERE ID > ? ORDER BY Nome"_s;
        QTest::newRow("a search") << u"SELECT Nome, pg_sleep(1.5)::text FROM T WHERE ID > ? AND Nome LIKE '%'"_s;
        QTest::newRow("all of them") << u"SELECT Nome, ? AS x, pg_sleep(1.5)::text FROM T"_s;
    }
    void a_list_may_take_longer_than_a_look_at_a_row()
    {
        QFETCH(QString, sql);
        PostgresPatience patience = Propria();
        patience.command = milliseconds(800);
        store_ = PostgresStore::open(base_->Morada(network_->Porta()), patience);
        const QString one = u"SELECT Nome, pg_sleep(1.5)::text FROM T WHERE ID > ?"_s;
        QCOMPARE(store_->query(sql, {u"0"_s}).RecordCount(), 1);
        QCOMPARE(teste::Especie_Da_Falha([&] { store_->query(one, {qint64{0}}); }), Failure::Kind::ServerLost);
    }
    void silence_in_the_midst_of_a_long_command_is_given_up_too()
    {
        std::thread network([this] {
            std::this_thread::sleep_for(milliseconds(2200));
            network_->modo = Intermediario::Cala;
        });
        std::optional<Failure::Kind> kind;
        const qint64 took = Demora([&] {
            kind = teste::Especie_Da_Falha([&] { store_->query(u"SELECT pg_sleep(9)::text AS x FROM T"_s, {}); });
        });
        network.join();
        QCOMPARE(kind, Failure::Kind::ServerLost);
        QVERIFY2(took > 2200 && took < (milliseconds(2200) + once_ + late_).count(), QByteArray::number(took));
    }
    // The server answers over the connection that is open, and lets nobody else in.
    void what_arrives_is_a_sign_of_life()
    {
        network_->Mudar_De_Servidor(1);
        const Recordset rows = store_->query(
            u"SELECT repeat('x', 20000) AS x, pg_sleep(0.6)::text AS s FROM generate_series(1, 5)"_s, {});
        QCOMPARE(rows.RecordCount(), 5);
        Perde([&] { store_->query(u"SELECT pg_sleep(6)::text AS x"_s, {}); }); // and here nothing arrives
    }
    void a_stopped_server_is_given_up_and_found_again()
    {
        {
            const Stopped stopped(Processos());
            Perde([&] { store_->schemaNumber(); });
            QTRY_COMPARE(reached_, QList{Reach::Lost});
        }
        QVERIFY(Volta());
        QCOMPARE(store_->schemaNumber(), 2);
    }
    void who_is_no_longer_let_in_is_answered_all_the_same()
    {
        const QString file = Dizer(u"SHOW hba_file"_s);
        const QByteArray before = [&] {
            QFile from(file);
            return from.open(QIODevice::ReadOnly) ? from.readAll() : QByteArray();
        }();
        const auto rules = [&](const QByteArray &lines) {
            QFile to(file);
            QVERIFY(to.open(QIODevice::WriteOnly));
            to.write(lines);
            to.close();
            ::kill(Processos().front(), SIGHUP);
            QTest::qWait(300);
        };
        rules("host all all all reject\n");
        QCOMPARE(teste::Especie_Da_Falha([&] { PostgresStore::open(base_->Morada(), Propria()); }), Failure::Kind::ServerForbidden);
        QCOMPARE(store_->query(u"SELECT 7 AS n, pg_sleep(2.5)::text AS x WHERE 1 = ?"_s, {qint64{1}}).Fields("n").number(), 7);
        rules(before);
    }
    void the_servers_log_says_nothing_of_it_data()
    {
        QTest::addColumn<bool>("enciphered");
        QTest::newRow("in the clear") << false;
        QTest::newRow("enciphered") << true;
    }
    void the_servers_log_says_nothing_of_it()
    {
        QFETCH(bool, enciphered);
        const QTemporaryDir folder;
        if (enciphered) {
            QCOMPARE(certificados::Fazer(folder.filePath(u"server"_s), u"localhost"_s), QString());
            QCOMPARE(certificados::Dar_Ao_Servidor(address_, folder.filePath(u"server"_s)), QString());
            Abrir(base_->Morada(network_->Porta()) + u"?sslmode=require"_s);
        }
        const QByteArray before = Diario();
        const int connections = network_->ligacoes;
        store_->query(u"SELECT pg_sleep(3)::text AS x WHERE 1 = ?"_s, {qint64{1}});
        QVERIFY(network_->ligacoes > connections);
        QTest::qWait(300);
        QCOMPARE(Diario(), before);
    }
    // The row that says so is not yet settled: whoever comes back asks for it, and goes on without waiting.
    void what_still_runs_on_the_server_holds_nobody_up_who_comes_back()
    {
        base_->Correr(u"CREATE FUNCTION demorar() RETURNS trigger LANGUAGE plpgsql AS "
                      "$f$ BEGIN PERFORM pg_sleep(3.5); RETURN NEW; END $f$; "
                      "CREATE TRIGGER demorar BEFORE INSERT ON t FOR EACH ROW EXECUTE FUNCTION demorar()"_s);
        network_->modo = Intermediario::Engole_Respostas;
        Perde([&] { store_->execute(insert_, {u"Rui"_s}); });
        network_->Cortar();
        network_->modo = Intermediario::Passa;
        Pausas pauses;
        QVERIFY(Volta());
        QVERIFY2(pauses.maior < 500, QByteArray::number(pauses.maior));
        QCOMPARE(store_->fateOf(1), Fate::Arrived);
        base_->Correr(u"DROP TRIGGER demorar ON t; DROP FUNCTION demorar()"_s);
    }
};

MORVEX_TESTE(TestPostgresSilence)
#include "test_PostgresSilence.moc"
