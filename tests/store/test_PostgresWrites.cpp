// Writing to a server: alone, gathered in portions, and all or nothing.
#include "store/TabelaNoServidor.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

class TestPostgresWrites : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<PostgresStore> store_;

    static inline const QString insert_ = u"INSERT INTO T (Nome, Idade) VALUES (?, ?)"_s;
    void Inserir(const QString &name, const StoreValue &age = qint64{0}) { store_->execute(insert_, {name, age}); }
    QString Nomes() const
    {
        return base_->Valor(u"SELECT string_agg(nome, ',' ORDER BY id) FROM t"_s);
    }
    int Quantos() const { return base_->Numero(u"SELECT count(*) FROM t"_s); }
    // Long enough for a loaded machine, short for a person who waits for the test. Nobody asks meanwhile whether the
    // server is there, which would be trips as well.
    static PostgresPatience Curta()
    {
        return {milliseconds(2000), milliseconds(1200), milliseconds(4000), {milliseconds(100)}, milliseconds::zero()};
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
        store_ = PostgresStore::open(base_->Morada(), Curta());
    }
    void cleanup() { store_.reset(); }
    void cleanupTestCase() { base_.reset(); }

    void one_write_is_there_when_it_returns_and_takes_one_trip()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()), Curta());
        network.atraso = 50000; // us: no answer to the first words comes before the last ones have gone
        const int before = network.viagens;
        Inserir(u"Ana"_s);
        QCOMPARE(network.viagens - before, 1); // listening, preparing and its key among it
        QCOMPARE(Nomes(), u"Ana"_s);
        QCOMPARE(store_->written(insert_), 1);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes"_s), 1);
        Inserir(u"Rui"_s);
        store_->query(u"SELECT * FROM T"_s, {});
        QCOMPARE(network.viagens - before, 3);
    }
    void gathered_writes_take_a_trip_for_hundreds()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()), Curta());
        const int before = network.viagens;
        store_->gathering([&] {
            for (int i = 0; i < 900; ++i)
                Inserir(u"N%1"_s.arg(i));
        });
        QCOMPARE(Quantos(), 900);
        QVERIFY2(network.viagens - before < 40, QByteArray::number(network.viagens - before));
        QCOMPARE(store_->written(insert_), 900);
        QCOMPARE(store_->mark().here, 900);
    }
    void a_keyed_row_and_its_key_are_there_together_or_not_at_all()
    {
        const QUuid good = QUuid::createUuid();
        const QUuid bad = QUuid::createUuid();
        Inserir(u"Ana"_s); // whose own key is none of these
        QVERIFY(store_->keys().isEmpty());
        const auto write = [&] {
            store_->executeKeyed(insert_, {u"Rui"_s, qint64{0}}, good);
            skipFailure([&] { store_->executeKeyed(insert_, {u"Eva"_s, u"none"_s}, bad); });
        };
        const auto forget = [&] {
            store_->dropKeys({good});
            QVERIFY(store_->keys().isEmpty());
            base_->Correr(u"DELETE FROM t WHERE nome = 'Rui'"_s);
        };
        write();
        QCOMPARE(store_->keys(), QSet<QUuid>{good});
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        QCOMPARE(store_->written(insert_), 2);
        QVERIFY(!skipFailure([&] { store_->executeKeyed(insert_, {u"Rui"_s, qint64{0}}, good); }));
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        forget();
        QVERIFY(!skipFailure([&] { store_->gathering(write); }));
        QCOMPARE(store_->keys(), QSet<QUuid>{good});
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        forget();
        store_->allOrNothing(write);
        QCOMPARE(store_->keys(), QSet<QUuid>{good});
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        forget();
        QVERIFY(base_->Numero(u"SELECT count(*) FROM gravacoes"_s) > 0); // those of others stay
    }
    void a_key_is_gone_with_its_row_and_free_again()
    {
        const QUuid gone = QUuid::createUuid();
        const QUuid changed = QUuid::createUuid();
        store_->executeKeyed(insert_, {u"Ana"_s, qint64{0}}, gone);
        store_->executeKeyed(insert_, {u"Rui"_s, qint64{0}}, changed);
        store_->execute(u"UPDATE T SET Nome = 'Ruy' WHERE Nome = 'Rui'"_s, {});
        store_->execute(u"DELETE FROM T WHERE Nome = 'Ana'"_s, {});
        Inserir(u"Eva"_s); // behind it, with no key
        QCOMPARE(store_->keys(), QSet<QUuid>{changed});
        store_->executeKeyed(insert_, {u"Ana"_s, qint64{0}}, gone);
        QCOMPARE(store_->keys(), (QSet<QUuid>{changed, gone}));
        QCOMPARE(Nomes(), u"Ruy,Eva,Ana"_s);
    }
    void keys_are_kept_for_a_month()
    {
        store_->executeKeyed(insert_, {u"Rui"_s, qint64{0}}, QUuid::createUuid());
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes WHERE quando > now() + interval '29 days'"_s),
                 1);
        base_->Correr(u"UPDATE gravacoes SET quando = quando - interval '30 days'"_s);
        QVERIFY(store_->keys().isEmpty());
    }
    // Between a contact and what belongs to it no portion ends.
    void a_portion_ends_before_a_keyed_row_and_not_behind_it_data()
    {
        QTest::addColumn<int>("before");
        for (const int before : {298, 299, 300, 301})
            QTest::addRow("%d", before) << before;
    }
    void a_portion_ends_before_a_keyed_row_and_not_behind_it()
    {
        QFETCH(int, before);
        store_->gathering([&] {
            for (int i = 0; i < before; ++i)
                Inserir(u"N"_s);
            const int sent = Quantos();
            store_->executeKeyed(insert_, {u"Rui"_s, qint64{0}}, QUuid::createUuid());
            QCOMPARE(Quantos(), sent);
            Inserir(u"Its card"_s);
            QCOMPARE(base_->Numero(u"SELECT count(*) % 2 FROM t WHERE nome IN ('Rui', 'Its card')"_s), 0);
            for (int i = 0; i < 900; ++i)
                store_->executeKeyed(insert_, {u"K"_s, qint64{0}}, QUuid::createUuid());
            QVERIFY(Quantos() >= 600); // they end somewhere
        });
        QCOMPARE(Quantos(), before + 902);
    }
    void what_was_gathered_is_there_before_it_is_asked_for()
    {
        store_->gathering([&] {
            Inserir(u"Ana"_s);
            QCOMPARE(Quantos(), 0);
            QCOMPARE(store_->query(u"SELECT ID FROM T WHERE Nome = ?"_s, {u"ana"_s}).RecordCount(), 1);
            QCOMPARE(Quantos(), 1);
            Inserir(u"Rui"_s);
            QCOMPARE(store_->lastId(), 2);
        });
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void of_a_portion_the_failing_one_is_told_and_all_others_are_written_data()
    {
        QTest::addColumn<int>("failing");
        QTest::newRow("the first") << 0;
        QTest::newRow("in the middle") << 7;
        QTest::newRow("the last") << 19;
    }
    void of_a_portion_the_failing_one_is_told_and_all_others_are_written()
    {
        QFETCH(int, failing);
        QString source;
        try {
            store_->gathering([&] {
                for (int i = 0; i < 20; ++i)
                    if (i == failing)
                        store_->execute(u"INSERT INTO T (Nome, Idade) VALUES ('mau', ?)"_s, {u"no number"_s});
                    else
                        Inserir(u"N%1"_s.arg(i));
            });
        } catch (const Failure &failure) {
            source = failure.source();
        }
        QVERIFY(source.contains("'mau'"_L1));
        QCOMPARE(Quantos(), 19);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t WHERE nome = 'mau'"_s), 0);
        QCOMPARE(store_->written(insert_), 19);
    }
    void of_several_failing_ones_the_first_is_told()
    {
        QString source;
        try {
            store_->gathering([&] {
                for (const char *name : {"a", "x", "b", "y", "z", "c"})
                    store_->execute(u"INSERT INTO T (Nome, Idade) VALUES ('%1', ?)"_s.arg(QLatin1String(name)),
                                    {*name < 'x' ? StoreValue(qint64{1}) : StoreValue(u"none"_s)});
            });
        } catch (const Failure &failure) {
            source = failure.source();
        }
        QVERIFY2(source.contains("'x'"_L1), qPrintable(source));
        QCOMPARE(Nomes(), u"a,b,c"_s);
    }
    void in_order_nothing_is_written_behind_the_one_that_is_refused_data()
    {
        QTest::addColumn<int>("refused");
        for (const int one : {0, 1, 299, 300, 450, 999})
            QTest::addRow("%d", one) << one;
    }
    void in_order_nothing_is_written_behind_the_one_that_is_refused()
    {
        QFETCH(int, refused);
        QVERIFY(teste::Especie_Da_Falha([&] {
                    store_->gatheringInOrder([&] {
                        for (int i = 0; i < 1000; ++i)
                            Inserir(QString::number(i), i == refused ? StoreValue(u"none"_s) : qint64{0});
                    });
                }).has_value());
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), refused);
        Inserir(u"behind"_s);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), refused + 1);
        store_->gathering([&] { // which keeps to no order
            skipFailure([&] { Inserir(u"x"_s, u"none"_s); });
            Inserir(u"Rui"_s);
            skipFailure([&] { store_->schemaNumber(); });
        });
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), refused + 2);
    }
    // A refusal stands before what ended the work later, and is what is told.
    void in_order_the_first_that_failed_is_told_and_what_stands_before_it_is_written()
    {
        const auto gathered = [&](const std::function<void()> &between) {
            store_->gatheringInOrder([&] {
                Inserir(u"Ana"_s);
                between();
                throw Failure(7, {}, {});
            });
        };
        VERIFICAR_FALHA(gathered([] {}), 7);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), 1);
        VERIFICAR_FALHA(gathered([&] { Inserir(u"x"_s, u"none"_s); }),
                        Failure::StoreError);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), 2);
    }
    void who_skips_a_failing_one_goes_on_within_the_gathering()
    {
        store_->gathering([&] {
            Inserir(u"Ana"_s);
            Inserir(u"Rui"_s, u"none"_s);
            QVERIFY(!skipFailure([&] { store_->query(u"SELECT * FROM T"_s, {}); }));
            Inserir(u"Eva"_s);
        });
        QCOMPARE(Nomes(), u"Ana,Eva"_s);
    }
    void work_that_raises_leaves_what_it_wrote()
    {
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     store_->gathering([&] {
                         Inserir(u"Ana"_s);
                         throw Failure(1, {}, {}, Failure::Kind::DatabaseOlder);
                     });
                 }),
                 Failure::Kind::DatabaseOlder);
        QCOMPARE(Nomes(), u"Ana"_s);
    }
    void large_pictures_do_not_pile_up()
    {
        const QByteArray picture(1 << 20, 'x');
        store_->gathering([&] {
            for (int i = 0; i < 9; ++i)
                store_->execute(u"INSERT INTO T (Imagem) VALUES (?)"_s, {picture});
            QVERIFY(Quantos() >= 8); // they went in twos and fours, not all at the end
        });
        QCOMPARE(base_->Numero(u"SELECT sum(length(imagem)) FROM t"_s), 9 << 20);
    }
    void long_texts_do_not_pile_up_and_short_ones_behind_them_go_together()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()), Curta());
        const QString text(1 << 20, u'x');
        store_->gathering([&] {
            for (int i = 0; i < 4; ++i)
                Inserir(text);
            QCOMPARE(Quantos(), 4);
            const int before = network.viagens;
            for (int i = 0; i < 200; ++i)
                Inserir(u"N"_s);
            QVERIFY2(network.viagens - before < 10, QByteArray::number(network.viagens - before));
        });
        QCOMPARE(Quantos(), 204);
    }
    void a_picture_larger_than_any_buffer_on_the_way_arrives()
    {
        store_ = PostgresStore::open(base_->Morada(), {milliseconds(4000),
                                                       milliseconds(30000),
                                                       milliseconds(30000),
                                                       {milliseconds(100)},
                                                       milliseconds::zero()});
        const QByteArray picture(40 << 20, 'x');
        store_->execute(u"INSERT INTO T (Imagem) VALUES (?)"_s, {picture});
        QCOMPARE(base_->Numero(u"SELECT length(imagem) FROM t"_s), 40 << 20);
    }
    void what_is_refused_at_the_end_alone_is_refused()
    {
        base_->Correr(u"CREATE TABLE u (n integer UNIQUE DEFERRABLE INITIALLY DEFERRED)"_s);
        const QString insert = u"INSERT INTO u VALUES (?)"_s;
        const auto add = [&](qint64 n) { store_->execute(insert, {n}); };
        add(1);
        QVERIFY(!skipFailure([&] { add(1); }));
        QCOMPARE(store_->written(insert), 1);
        QVERIFY(!skipFailure([&] {
            store_->gathering([&] {
                for (const qint64 n : {2, 1, 3, 1, 4})
                    add(n);
            });
        }));
        QCOMPARE(base_->Valor(u"SELECT string_agg(n::text, ',' ORDER BY n) FROM u"_s), u"1,2,3,4"_s);
        QVERIFY(!skipFailure([&] {
            store_->gatheringInOrder([&] {
                for (const qint64 n : {7, 1, 8})
                    add(n);
            });
        }));
        QCOMPARE(base_->Valor(u"SELECT string_agg(n::text, ',' ORDER BY n) FROM u"_s), u"1,2,3,4,7"_s);
        base_->Correr(u"DELETE FROM u WHERE n = 7"_s);
        const auto all = [&] {
            store_->allOrNothing([&] {
                add(5);
                add(1);
            });
        };
        QCOMPARE(teste::Falha_Dita(all).value(0), u"COMMIT"_s);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM u"_s), 4);
        add(5); // nothing was left open
        base_->Correr(u"DROP TABLE u"_s);
    }
    void a_write_that_touches_no_row_moves_no_mark()
    {
        Inserir(u"Ana"_s);
        Inserir(u"Rui"_s);
        const StoreMark before = store_->mark();
        store_->execute(u"UPDATE T SET Idade = 1 WHERE ID > 99"_s, {});
        QVERIFY(store_->mark() == before);
        store_->execute(u"UPDATE T SET Idade = 1"_s, {});
        QCOMPARE(store_->mark().here, before.here + 2);
    }
    void all_or_nothing_within_itself_is_an_error_and_harms_nothing()
    {
        store_->allOrNothing([&] {
            Inserir(u"Ana"_s);
            QVERIFY(!skipFailure([&] { store_->allOrNothing([] {}); }));
            store_->tryWriting(); // it is within a transaction that can be written
            Inserir(u"Rui"_s);
        });
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void all_or_nothing_within_a_gathering_stands_behind_what_was_gathered()
    {
        store_->allOrNothing([] {}); // it knows the tables from now on, and need not ask for them
        store_->gathering([&] {
            Inserir(u"Ana"_s);
            QVERIFY(!skipFailure([&] {
                store_->allOrNothing([&] {
                    Inserir(u"Rui"_s);
                    QVERIFY(!skipFailure([&] { Inserir(u"x"_s, u"none"_s); })); // told at once, and not with a portion
                    QCOMPARE(Quantos(), 1);
                    throw Failure(7, {}, {});
                });
            }));
            Inserir(u"Eva"_s);
        });
        QCOMPARE(Nomes(), u"Ana,Eva"_s);
    }
    // In another order than a portion's they would wait for one another.
    void all_or_nothing_and_portions_wait_for_the_same_turn()
    {
        std::thread holder([address = base_->Morada()] {
            TabelaNoServidor::Correr_Em(QUrl(address), u"BEGIN; SELECT pg_advisory_xact_lock(2004); SELECT pg_sleep(3.5); COMMIT"_s);
        });
        QTRY_COMPARE(base_->Numero(u"SELECT count(*) FROM pg_locks WHERE locktype = 'advisory' AND granted AND "
                                   "database = (SELECT oid FROM pg_database WHERE datname = current_database())"_s),
                     1);
        const auto portion = [&] { store_->gathering([&] { Inserir(u"Eva"_s); }); };
        QCOMPARE(teste::Especie_Da_Falha([&] { store_->allOrNothing([&] { Inserir(u"Rui"_s); }); }),
                 Failure::Kind::DatabaseLocked);
        QCOMPARE(teste::Falha_Dita([&] { store_->allOrNothing([] {}); }).value(0), u"BEGIN"_s);
        Inserir(u"Ana"_s); // which needs no turn, and finds nothing left of the other
        QCOMPARE(Nomes(), u"Ana"_s);
        QCOMPARE(teste::Especie_Da_Falha(portion), Failure::Kind::DatabaseLocked);
        holder.join();
        portion();
        store_->allOrNothing([&] { Inserir(u"Rui"_s); });
        QCOMPARE(Nomes(), u"Ana,Eva,Rui"_s);
    }
    // They are its administrator's, who may bring the schema up to date meanwhile.
    void all_or_nothing_keeps_nobody_from_the_servers_own_tables()
    {
        const auto others = [&](const QString &sql) { base_->Correr(u"SET lock_timeout = 300; "_s + sql); };
        store_->allOrNothing([&] {
            Inserir(u"Ana"_s);
            others(u"UPDATE morvex_esquema SET numero = numero"_s);
            others(u"INSERT INTO gravacoes (chave) VALUES (gen_random_uuid())"_s);
            QVERIFY(!skipFailure([&] { others(u"UPDATE t SET idade = 1"_s); }));
        });
    }
    void what_was_gathered_of_all_that_became_nothing_is_nothing()
    {
        QVERIFY(!skipFailure([&] {
            store_->allOrNothing([&] {
                store_->gathering([&] {
                    Inserir(u"Ana"_s);
                    throw Failure(7, {}, {});
                });
            });
        }));
        Inserir(u"Rui"_s);
        QCOMPARE(Nomes(), u"Rui"_s);
    }

    void all_is_there_or_nothing()
    {
        store_->allOrNothing([&] {
            Inserir(u"Ana"_s);
            Inserir(u"Rui"_s);
            QCOMPARE(store_->query(u"SELECT * FROM T"_s, {}).RecordCount(), 2);
            QCOMPARE(Quantos(), 0);
        });
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     store_->allOrNothing([&] {
                         Inserir(u"Eva"_s);
                         throw Failure(1, {}, {}, Failure::Kind::DatabaseOlder);
                     });
                 }),
                 Failure::Kind::DatabaseOlder);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        QCOMPARE(store_->written(insert_), 2);
        Inserir(u"Eva"_s); // it is not within anything any more
        QCOMPARE(Nomes(), u"Ana,Rui,Eva"_s);
    }
    void a_failing_statement_within_all_harms_no_other()
    {
        store_->allOrNothing([&] {
            Inserir(u"Ana"_s);
            QVERIFY(!skipFailure([&] { Inserir(u"Rui"_s, u"none"_s); }));
            QVERIFY(!skipFailure([&] { store_->query(u"SELECT * FROM Nenhuma"_s, {}); }));
            Inserir(u"Eva"_s);
        });
        QCOMPARE(Nomes(), u"Ana,Eva"_s);
    }
    void gathering_within_all_is_part_of_it()
    {
        const auto twenty = [&] {
            store_->gathering([&] {
                for (int i = 0; i < 20; ++i)
                    Inserir(u"N"_s, i == 5 ? StoreValue(u"none"_s) : StoreValue(qint64{i}));
            });
        };
        QVERIFY(!skipFailure([&] {
            store_->allOrNothing([&] { twenty(); });
        }));
        QCOMPARE(Quantos(), 0);
        store_->allOrNothing([&] { skipFailure(twenty); });
        QCOMPARE(Quantos(), 19);
        QCOMPARE(store_->written(insert_), 19);
    }
    void from_the_beginning_of_all_nobody_else_writes_and_everybody_reads()
    {
        Inserir(u"Ana"_s);
        const auto other = PostgresStore::open(base_->Morada(), Curta());
        store_->allOrNothing([&] {
            QCOMPARE(teste::Especie_Da_Falha([&] { other->execute(insert_, {u"Rui"_s, qint64{1}}); }), Failure::Kind::DatabaseLocked);
            QCOMPARE(other->query(u"SELECT * FROM T"_s, {}).RecordCount(), 1);
            other->tryWriting(); // a key alone waits for nobody
        });
        other->execute(insert_, {u"Rui"_s, qint64{1}});
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void two_desks_that_write_in_opposite_order_wait_for_one_another_and_lose_nothing_data()
    {
        QTest::addColumn<bool>("asOne");
        QTest::newRow("gathered by both") << false;
        QTest::newRow("all or nothing by one of them") << true;
    }
    void two_desks_that_write_in_opposite_order_wait_for_one_another_and_lose_nothing()
    {
        QFETCH(bool, asOne);
        base_->Correr(u"CREATE TABLE u (id integer, idade integer); INSERT INTO u VALUES (1, 0); "
                      "INSERT INTO t (id, idade) VALUES (1, 0)"_s);
        std::atomic<int> failures = 0;
        const auto desk = [&](const QString &first, const QString &second, bool together) {
            const auto store = PostgresStore::open(base_->Morada());
            for (int i = 0; i < 40; ++i) {
                const auto work = [&] {
                    for (const QString &table : {first, second})
                        store->execute(u"UPDATE %1 SET idade = idade + 1 WHERE id = 1"_s.arg(table), {});
                };
                if (!skipFailure([&] { together ? store->allOrNothing(work) : store->gathering(work); })) ++failures;
            }
        };
        std::thread other([&] { desk(u"u"_s, u"t"_s, asOne); });
        desk(u"t"_s, u"u"_s, false);
        other.join();
        QCOMPARE(failures, 0);
        QCOMPARE(base_->Valor(u"SELECT (SELECT idade FROM t) || ' ' || (SELECT idade FROM u)"_s), u"80 80"_s);
        base_->Correr(u"DROP TABLE u"_s);
    }
    void who_may_write_nothing_is_told_once_for_a_gathering()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::openReadOnly(base_->Morada(network.Porta()), Curta());
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     store_->gathering([&] {
                         for (int i = 0; i < 200; ++i)
                             Inserir(u"N"_s);
                     });
                 }),
                 Failure::Kind::DatabaseReadOnly);
        QCOMPARE(Quantos(), 0);
        QVERIFY2(network.viagens < 20, QByteArray::number(network.viagens)); // not once for each of them
        store_.reset();
    }
    void a_gathering_that_waits_in_vain_for_its_turn_writes_what_comes_behind()
    {
        std::atomic<bool> held = false;
        std::thread other([&] {
            const auto store = PostgresStore::open(base_->Morada(), Curta());
            store->allOrNothing([&] {
                held = true;
                QThread::msleep(1200); // longer than one wait, shorter than two
            });
        });
        while (!held)
            QThread::msleep(1);
        store_->gathering([&] {
            for (const char16_t *name : {u"a", u"b", u"c"})
                Inserir(QString::fromUtf16(name));
            QVERIFY(!skipFailure([&] { store_->query(u"SELECT * FROM T"_s, {}); })); // it tells of the first
        });
        other.join();
        QCOMPARE(Nomes(), u"b,c"_s);
    }
    void a_lock_is_waited_for_once_where_that_is_asked_for()
    {
        Inserir(u"Ana"_s);
        const auto other = PostgresStore::open(base_->Morada(), Curta());
        QElapsedTimer clock;
        const auto again = [&] {
            clock.start();
            const auto kind = teste::Especie_Da_Falha([&] { other->execute(u"UPDATE T SET Idade = 1"_s, {}); });
            return std::pair(kind, clock.elapsed());
        };
        const milliseconds wait = Curta().command * 3 / 4;
        store_->allOrNothing([&] {
            other->waitingOnce([&] {
                const auto [first, firstTook] = again();
                const auto [second, secondTook] = again();
                QCOMPARE(first, Failure::Kind::DatabaseLocked);
                QCOMPARE(second, Failure::Kind::DatabaseLocked);
                QVERIFY2(firstTook >= wait.count() - 50, QByteArray::number(firstTook));
                QVERIFY2(secondTook < wait.count() / 2, QByteArray::number(secondTook));
            });
            QVERIFY(again().second >= wait.count() - 50); // behind it as before it
            QVERIFY(!skipFailure([&] {
                other->waitingOnce([&] {
                    again();
                    throw Failure(7, {}, {});
                });
            }));
            QVERIFY(again().second >= wait.count() - 50);
            other->waitingOnce([&] {
                QVERIFY(!skipFailure([&] { other->execute(u"UPDATE Nenhuma SET a = 1"_s, {}); })); // no lock
                QVERIFY(again().second >= wait.count() - 50);
            });
        });
    }
    void after_a_write_that_arrived_a_lock_is_waited_for_again_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("alone") << 0;
        QTest::newRow("gathered") << 1;
        QTest::newRow("all or nothing") << 2;
    }
    void after_a_write_that_arrived_a_lock_is_waited_for_again()
    {
        QFETCH(int, way);
        Inserir(u"Ana"_s);
        const auto other = PostgresStore::open(base_->Morada(), Curta());
        const auto write = [&] { other->execute(u"UPDATE T SET Idade = 1"_s, {}); };
        const auto waited = [&] {
            QElapsedTimer clock;
            clock.start();
            store_->allOrNothing([&] { skipFailure(write); });
            return clock.elapsed();
        };
        const qint64 wait = (Curta().command * 3 / 4).count();
        other->waitingOnce([&] {
            QVERIFY(waited() >= wait - 50);
            if (way == 0) write();
            if (way == 1) other->gathering(write);
            if (way == 2) other->allOrNothing(write);
            QVERIFY(waited() >= wait - 50);
        });
    }
    void whether_anything_can_be_written_is_tried_without_a_trace()
    {
        store_->tryWriting();
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM gravacoes"_s), 0);
        QCOMPARE(Quantos(), 0);
        const auto reader = PostgresStore::openReadOnly(base_->Morada(), Curta());
        QCOMPARE(teste::Especie_Da_Falha([&] { reader->tryWriting(); }), Failure::Kind::DatabaseReadOnly);
        QCOMPARE(reader->query(u"SELECT * FROM T"_s, {}).RecordCount(), 0); // no transaction is left open
        base_->Correr(u"DROP ROLE IF EXISTS m_leitor; CREATE ROLE m_leitor LOGIN PASSWORD 'leitor'; "
                      "GRANT SELECT ON t TO m_leitor"_s);
        qputenv("PGPASSWORD", "leitor");
        const auto role = PostgresStore::open(base_->Morada(0, u"m_leitor"_s), Curta());
        qunsetenv("PGPASSWORD");
        QCOMPARE(role->query(u"SELECT * FROM T"_s, {}).RecordCount(), 0); // what it may not forget is no hindrance
        QCOMPARE(teste::Especie_Da_Falha([&] { role->tryWriting(); }), Failure::Kind::DatabaseReadOnly);
        QCOMPARE(role->query(u"SELECT ID FROM T"_s, {}).RecordCount(), 0); // no transaction is left open
        QCOMPARE(teste::Especie_Da_Falha([&] { role->execute(insert_, {u"Ana"_s, qint64{1}}); }), Failure::Kind::DatabaseReadOnly);
        base_->Correr(u"REVOKE ALL ON t FROM m_leitor; DROP ROLE m_leitor"_s);
    }
    void a_mark_moves_with_own_rows_and_asks_nobody()
    {
        Intermediario network(base_->Porta());
        store_ = PostgresStore::open(base_->Morada(network.Porta()), Curta());
        Inserir(u"Ana"_s);
        const int before = network.viagens;
        const StoreMark first = store_->mark();
        QVERIFY(store_->mark() == first);
        Inserir(u"Rui"_s);
        QVERIFY(store_->mark() != first);
        QCOMPARE(network.viagens - before, 1);
    }
};

MORVEX_TESTE(TestPostgresWrites)
#include "test_PostgresWrites.moc"
