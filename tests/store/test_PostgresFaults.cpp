// A server that falls silent, is cut off, restarts or dies, and what becomes of a write whose answer was lost.
#include "store/TabelaNoServidor.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/Pausas.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

class TestPostgresFaults : public QObject
{
    Q_OBJECT

    std::unique_ptr<TabelaNoServidor> base_;
    std::unique_ptr<Intermediario> network_;
    std::unique_ptr<PostgresStore> store_;
    QList<Reach> reached_;
    QList<StoreChange> changes_;

    static constexpr milliseconds command_{1500};
    static inline const QString insert_ = u"INSERT INTO T (Nome, Idade) VALUES (?, ?)"_s;

    static PostgresPatience Curta()
    {
        return {milliseconds(2000), command_, command_ * 2,
                {milliseconds(50), milliseconds(100), milliseconds(200)}};
    }
    void Comecar()
    {
        store_.reset();
        base_->Correr(u"TRUNCATE t RESTART IDENTITY; TRUNCATE gravacoes"_s);
        store_ = PostgresStore::open(base_->Morada(network_->Porta()), Curta());
        store_->listen({[this](const StoreChange &change) { changes_ << change; },
                        [this](Reach reach) { reached_ << reach; }});
        Inserir(u"Ana"_s);
        reached_.clear();
        changes_.clear();
    }
    void Inserir(const QString &name) { store_->execute(insert_, {name, qint64{0}}); }
    Recordset Ler() { return store_->query(u"SELECT Nome FROM T WHERE ID > ?"_s, {qint64{0}}); }
    QString Nomes() const { return base_->Valor(u"SELECT string_agg(nome, ',' ORDER BY id) FROM t"_s); }
    Fate Destino() const { return store_->fateOf(store_->lostWrites()); } // of the last one that was lost
    template<class Work> static qint64 Demora(const Work &work)
    {
        QElapsedTimer clock;
        clock.start();
        work();
        return clock.elapsed();
    }
    bool Volta() { return QTest::qWaitFor([&] { return reached_.endsWith(Reach::There); }, 30000); }
    void Matar_Ligacoes() const
    {
        base_->Correr(u"SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() "
                      "AND pid <> pg_backend_pid()"_s);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString missing = TabelaNoServidor::Falta(); !missing.isEmpty()) QSKIP(qPrintable(missing));
        base_ = std::make_unique<TabelaNoServidor>();
    }
    void init()
    {
        network_ = std::make_unique<Intermediario>(base_->Porta());
        // The patience that is right for a test is short for a machine that does much else.
        QVERIFY(QTest::qWaitFor([this] { return skipFailure([this] { Comecar(); }); }, 30000));
    }
    void cleanup()
    {
        store_.reset();
        network_.reset();
    }
    void cleanupTestCase() { base_.reset(); }

    void silence_is_waited_for_once_and_everything_behind_fails_at_once()
    {
        network_->modo = Intermediario::Cala;
        std::optional<Failure::Kind> kind;
        const qint64 took = Demora([&] { kind = teste::Especie_Da_Falha([&] { Ler(); }); });
        QCOMPARE(kind, Failure::Kind::ServerLost);
        QVERIFY2(took >= Curta().silence.count() - 20 && took < command_.count() * 2, QByteArray::number(took));
        for (int i = 0; i < 20; ++i) {
            const qint64 again = Demora([&] { kind = teste::Especie_Da_Falha([&] { i % 2 == 0 ? Inserir(u"Rui"_s) : void(Ler()); }); });
            QCOMPARE(kind, Failure::Kind::ServerLost);
            QVERIFY2(again < command_.count() / 4, QByteArray::number(again));
        }
        QVERIFY(reached_.isEmpty()); // nobody is told inside of a command
        QTRY_COMPARE(reached_, QList{Reach::Lost});
    }
    void a_try_into_silence_is_given_up_for_the_next_one()
    {
        store_ = PostgresStore::open(base_->Morada(network_->Porta()),
                                     {milliseconds(600), milliseconds(300), milliseconds(300), {milliseconds(50)}});
        network_->modo = Intermediario::Cala;
        skipFailure([&] { Ler(); });
        const int before = network_->ligacoes;
        QTRY_VERIFY_WITH_TIMEOUT(network_->ligacoes >= before + 3, 15000);
    }
    void the_waits_begin_anew_with_each_loss()
    {
        const milliseconds soon(50);
        store_ = PostgresStore::open(base_->Morada(network_->Porta()),
                                     {milliseconds(4000), command_, command_, {soon, soon, soon, std::chrono::minutes(5)}});
        store_->listen({{}, [this](Reach reach) { reached_ << reach; }});
        for (int loss = 0; loss < 3; ++loss) {
            reached_.clear();
            network_->modo = Intermediario::Recusa;
            QTRY_COMPARE(reached_, QList{Reach::Lost});
            const int before = network_->ligacoes;
            QTRY_VERIFY(network_->ligacoes > before); // one try in vain
            network_->modo = Intermediario::Passa;
            QVERIFY(Volta());
        }
    }
    void whoever_ended_the_connection_is_quoted_without_places_in_a_source()
    {
        Matar_Ligacoes();
        try {
            Inserir(u"Rui"_s);
            QFAIL("it was written");
        } catch (const Failure &failure) {
            QVERIFY(!failure.description().isEmpty());
            QVERIFY2(!failure.description().contains(".c:"_L1), qPrintable(failure.description()));
        }
    }
    void it_comes_back_by_itself_and_says_that_all_may_have_changed()
    {
        network_->modo = Intermediario::Cala;
        skipFailure([&] { Ler(); });
        QTRY_COMPARE(reached_, QList{Reach::Lost});
        network_->modo = Intermediario::Recusa;
        QTest::qWait(300);
        network_->modo = Intermediario::Passa;
        QVERIFY(Volta());
        QTRY_COMPARE(changes_.size(), 1);
        QCOMPARE(changes_.first().table, QString());
        QVERIFY(changes_.first().all);
        QCOMPARE(Ler().RecordCount(), 1);
        // It listens again.
        base_->Correr(u"INSERT INTO t (nome) VALUES ('Rui')"_s);
        QTRY_COMPARE(changes_.size(), 2);
        QCOMPARE(changes_.last().table, u"t"_s);
    }
    // What was open when the server went can't be settled as soon as it is there.
    void who_can_not_settle_what_is_open_is_not_back()
    {
        PostgresSession session(base_->Morada(network_->Porta()), {}, Curta(), Deadline(milliseconds(4000)));
        QList<Reach> reached;
        session.listen({{}, [&](Reach reach) { reached << reach; }});
        int calls = 0;
        session.cameBack = [&] {
            if (++calls < 3) throw Failure(Failure::StoreError, {}, {});
        };
        session.lose();
        QVERIFY(QTest::qWaitFor([&] { return reached.endsWith(Reach::There); }, 30000));
        QCOMPARE(calls, 3);
        QCOMPARE(reached.count(Reach::There), 1);
        QVERIFY(!session.lost());
    }
    void the_window_never_stands_still_while_it_is_tried_again()
    {
        network_->modo = Intermediario::Cala;
        skipFailure([&] { Ler(); });
        Pausas pauses;
        QTest::qWait(1500); // several tries into the silence
        network_->modo = Intermediario::Passa;
        QVERIFY(Volta());
        QVERIFY2(pauses.maior < 500, QByteArray::number(pauses.maior));
    }
    void the_tries_become_ever_more_seldom()
    {
        network_->modo = Intermediario::Recusa;
        QTRY_COMPARE(reached_, QList{Reach::Lost});
        const int before = network_->ligacoes;
        QTest::qWait(1500);
        const int tries = network_->ligacoes - before;
        QVERIFY2(tries >= 2 && tries <= 9, QByteArray::number(tries)); // at 50, 150, and then each 200 ms
    }
    void a_read_over_a_connection_that_was_cut_is_asked_again_over_a_new_one()
    {
        Matar_Ligacoes();
        QCOMPARE(Ler().RecordCount(), 1);
        QTRY_VERIFY(!changes_.isEmpty()); // something may have been missed
        QVERIFY(changes_.first().all);
        QVERIFY(reached_.isEmpty());
    }
    void a_write_over_a_connection_that_was_cut_is_not_repeated()
    {
        Matar_Ligacoes();
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost);
        QCOMPARE(Destino(), Fate::NotArrived);
        QCOMPARE(Nomes(), u"Ana"_s);
        Inserir(u"Rui"_s); // the connection is there again
        QCOMPARE(store_->lostWrites(), 1); // what became of it stays known
        QCOMPARE(store_->fateOf(1), Fate::NotArrived);
        QCOMPARE(store_->fateOf(0), Fate::None);
        QCOMPARE(store_->fateOf(2), Fate::None);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void a_connection_that_is_cut_while_nobody_asks_is_noticed_and_made_anew()
    {
        network_->Cortar();
        QTRY_COMPARE(reached_, QList{Reach::Lost});
        QVERIFY(Volta());
        QCOMPARE(Ler().RecordCount(), 1);
    }
    void a_write_whose_answer_is_cut_off_is_found_to_have_arrived_and_is_there_once()
    {
        network_->modo = Intermediario::Corta_Ao_Pedir;
        Inserir(u"Rui"_s);
        QCOMPARE(network_->cortes, 1);
        QCOMPARE(Destino(), Fate::Arrived);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        network_->modo = Intermediario::Corta_A_Resposta;
        Inserir(u"Eva"_s);
        QCOMPARE(network_->cortes, 2);
        QCOMPARE(Nomes(), u"Ana,Rui,Eva"_s);
        QCOMPARE(store_->written(insert_), 3);
        QCOMPARE(store_->mark().here, 3); // each of them, though nobody said how many rows
    }
    void a_write_into_silence_is_told_as_unknown_until_the_server_is_back()
    {
        network_->modo = Intermediario::Engole_Respostas;
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost);
        QCOMPARE(Destino(), Fate::Unknown);
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost); // pressed once more: not sent
        QCOMPARE(Destino(), Fate::Unknown);
        network_->modo = Intermediario::Recusa;
        network_->modo = Intermediario::Passa;
        QVERIFY(Volta());
        QCOMPARE(Destino(), Fate::Arrived);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void a_write_that_never_reached_the_server_is_told_so_and_never_comes_after_all()
    {
        network_->modo = Intermediario::Cala;
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost);
        network_->modo = Intermediario::Passa; // what was kept back arrives now, or is cut off by its connection's end
        QVERIFY(Volta());
        QVERIFY(Destino() == Fate::Arrived || Destino() == Fate::NotArrived);
        QCOMPARE(Nomes(), Destino() == Fate::Arrived ? u"Ana,Rui"_s : u"Ana"_s);
        QTest::qWait(200);
        QCOMPARE(Nomes(), Destino() == Fate::Arrived ? u"Ana,Rui"_s : u"Ana"_s);
    }
    void a_write_that_still_runs_on_the_server_is_decided_by_its_key()
    {
        // The row stands, uncommitted, while the connection is lost and found.
        base_->Correr(u"CREATE FUNCTION demorar() RETURNS trigger LANGUAGE plpgsql AS "
                      "$f$ BEGIN PERFORM pg_sleep(1.8); RETURN NEW; END $f$; "
                      "CREATE TRIGGER demorar BEFORE INSERT ON t FOR EACH ROW EXECUTE FUNCTION demorar()"_s);
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost);
        base_->Correr(u"DROP TRIGGER demorar ON t; DROP FUNCTION demorar()"_s); // waits for the other as well
        QVERIFY(Volta());
        QTRY_VERIFY(Destino() != Fate::Unknown);
        QCOMPARE(Nomes(), Destino() == Fate::Arrived ? u"Ana,Rui"_s : u"Ana"_s);
    }
    // What asks for the key takes it, and must know its own hand when it asks again.
    void a_write_that_did_not_arrive_stays_so_where_the_answer_about_it_is_lost_as_well()
    {
        Matar_Ligacoes();
        QTest::qSleep(200); // the network has closed its end by then
        network_->palavras = "INSERT 0 1";
        network_->modo = Intermediario::Corta_A_Que_Diz;
        QCOMPARE(teste::Especie_Da_Falha([&] { Inserir(u"Rui"_s); }), Failure::Kind::ServerLost);
        QCOMPARE(network_->cortes, 1);
        QCOMPARE(Destino(), Fate::Unknown);
        QVERIFY(Volta());
        QCOMPARE(Destino(), Fate::NotArrived);
        QCOMPARE(Nomes(), u"Ana"_s);
        QCOMPARE(store_->written(insert_), 1);
    }
    void a_portion_goes_on_behind_the_last_one_that_is_known_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("the commit is cut off") << int(Intermediario::Corta_Ao_Pedir);
        QTest::newRow("its answer is cut off") << int(Intermediario::Corta_A_Resposta);
    }
    void a_portion_goes_on_behind_the_last_one_that_is_known()
    {
        QFETCH(int, mode);
        store_->gathering([&] {
            for (int i = 0; i < 1000; ++i) {
                if (i == 350 || i == 750) network_->modo = static_cast<Intermediario::Modo>(mode);
                Inserir(QString::number(i));
            }
        });
        QCOMPARE(network_->cortes, 2);
        QCOMPARE(base_->Numero(u"SELECT count(*) FROM t"_s), 1001);
        QCOMPARE(base_->Numero(u"SELECT count(DISTINCT nome) FROM t"_s), 1001);
    }
    void a_portion_that_was_sent_once_more_and_answered_has_lost_nothing()
    {
        Matar_Ligacoes();
        store_->gathering([&] {
            Inserir(u"Rui"_s);
            Inserir(u"Eva"_s);
        });
        QCOMPARE(Nomes(), u"Ana,Rui,Eva"_s);
        QCOMPARE(store_->lostWrites(), 0);
    }
    void of_a_portion_that_was_sent_once_more_the_last_sending_counts()
    {
        Matar_Ligacoes();
        network_->palavras = "UPDATE 1"; // of the portion itself, which comes that far the second time
        network_->modo = Intermediario::Corta_A_Que_Diz;
        store_->gathering([&] {
            Inserir(u"Rui"_s);
            store_->execute(u"UPDATE T SET Idade = ? WHERE Nome = ?"_s, {qint64{7}, u"Rui"_s});
        });
        QCOMPARE(network_->cortes, 1);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
        QCOMPARE(store_->lostWrites(), 1);
        QCOMPARE(store_->fateOf(1), Fate::Arrived);
    }
    void a_gathering_that_loses_the_server_ends_and_has_written_whole_portions()
    {
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     store_->gathering([&] {
                         for (int i = 0; i < 1000; ++i) {
                             if (i == 650) network_->modo = Intermediario::Recusa;
                             Inserir(QString::number(i));
                         }
                     });
                 }),
                 Failure::Kind::ServerLost);
        const int written = base_->Numero(u"SELECT count(*) FROM t"_s) - 1;
        QVERIFY2(written > 0 && written % 300 == 0, QByteArray::number(written));
    }
    void all_or_nothing_is_nothing_where_the_connection_is_cut_within()
    {
        QCOMPARE(teste::Especie_Da_Falha([&] {
                     store_->allOrNothing([&] {
                         Inserir(u"Rui"_s);
                         network_->Cortar();
                         skipFailure([&] { Inserir(u"Eva"_s); });
                         Inserir(u"Zita"_s);
                     });
                 }),
                 Failure::Kind::ServerLost);
        QVERIFY(Volta());
        QCOMPARE(Nomes(), u"Ana"_s);
        Inserir(u"Rui"_s);
        QCOMPARE(Nomes(), u"Ana,Rui"_s);
    }
    void all_or_nothing_is_all_where_the_answer_to_its_end_is_cut_off()
    {
        store_->allOrNothing([&] {
            Inserir(u"Rui"_s);
            Inserir(u"Eva"_s);
            network_->modo = Intermediario::Corta_Ao_Pedir;
        });
        QCOMPARE(network_->cortes, 1);
        QCOMPARE(Nomes(), u"Ana,Rui,Eva"_s);
        Inserir(u"Zita"_s);
        QCOMPARE(Nomes(), u"Ana,Rui,Eva,Zita"_s);
    }
    void a_slow_network_is_not_a_lost_one()
    {
        network_->atraso = 200'000;
        Inserir(u"Rui"_s);
        QCOMPARE(Ler().RecordCount(), 2);
        QVERIFY(reached_.isEmpty());
    }
    void closing_a_lost_store_waits_for_nothing()
    {
        network_->modo = Intermediario::Cala;
        skipFailure([&] { Ler(); });
        QTest::qWait(150); // a try is on its way
        QVERIFY(Demora([&] { store_.reset(); }) < 500);
    }
};

MORVEX_TESTE(TestPostgresFaults)
#include "test_PostgresFaults.moc"
