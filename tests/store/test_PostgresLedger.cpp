// Ten desks write at once over a network that is cut again and again, to a server that dies in between. Each keeps a
// ledger of what it was told: nothing that was acknowledged is lost, nothing is there twice, and nothing is there that
// was told not to be.
#include "store/TabelaNoServidor.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "testlib/Servidor.h"
#include "testlib/Teste.h"

#include <csignal>
#include <QProcess>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace
{
const QString insert = u"INSERT INTO T (Nome) VALUES (?)"_s;

// One desk. Prints "+name" for what was written, "-name" for what was not, and "#name number" for the number of a row
// that it was told.
class Desk
{
public:
    Desk(const QString &address, QString name)
        : name_(std::move(name)),
          store_(PostgresStore::open(address, {milliseconds(3000), milliseconds(1000), milliseconds(2000),
                                               {milliseconds(30), milliseconds(60)}}))
    {
    }

    void work(qint64 forMs)
    {
        QElapsedTimer clock;
        clock.start();
        for (int turn = 0; clock.elapsed() < forMs; ++turn) {
            QCoreApplication::processEvents();
            const QStringList names = turn % 5 == 0 ? nextNames(7) : nextNames(1);
            write(names, turn % 10 == 0);
        }
    }

private:
    QStringList nextNames(int count)
    {
        QStringList names;
        for (int i = 0; i < count; ++i)
            names << u"%1-%2"_s.arg(name_).arg(++last_);
        return names;
    }
    void write(const QStringList &names, bool asOne)
    {
        const int lostBefore = store_->lostWrites();
        const auto all = [&] {
            for (const QString &name : names)
                store_->execute(insert, {name});
        };
        try {
            if (asOne)
                store_->allOrNothing(all);
            else if (names.size() > 1)
                store_->gathering(all);
            else
                all();
            tell(names, '+');
            if (!asOne && names.size() == 1) tellNumber(names.first());
        } catch (const Failure &failure) {
            tellOutcome(names, asOne, failure, lostBefore);
        }
    }
    // Of a gathering that was refused for a lock, a part may have been written.
    void tellOutcome(const QStringList &names, bool asOne, const Failure &failure, int lostBefore)
    {
        if (failure.kind() == Failure::Kind::ServerLost) {
            waitUntilThere();
            return tell(names, store_->fateOf(lostBefore + 1) == Fate::Arrived ? '+' : '-');
        }
        if (asOne || names.size() == 1) return tell(names, '-');
        waitUntilThere();
        for (const QString &name : names)
            tell({name}, store_->query(u"SELECT ID FROM T WHERE Nome = ?"_s, {name}).RecordCount() > 0 ? '+' : '-');
    }
    void waitUntilThere()
    {
        while (!skipFailure([this] { store_->query(u"SELECT 1 AS One"_s, {}); }))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
    }
    void tellNumber(const QString &name)
    {
        skipFailure([&] {
            if (const qint64 number = store_->lastId(); number > 0)
                std::printf("#%s %lld\n", name.toUtf8().constData(), number);
        });
    }
    static void tell(const QStringList &names, char sign)
    {
        for (const QString &name : names)
            std::printf("%c%s\n", sign, name.toUtf8().constData());
        std::fflush(stdout);
    }

    QString name_;
    std::unique_ptr<PostgresStore> store_;
    int last_ = 0;
};
} // namespace

class TestPostgresLedger : public QObject
{
    Q_OBJECT

    std::unique_ptr<Servidor> server_;
    std::unique_ptr<TabelaNoServidor> base_;

    static void Perturbar(Intermediario &network, int turn)
    {
        switch (turn % 5) {
        case 0:
            network.modo = Intermediario::Corta_Ao_Pedir;
            break;
        case 1:
            network.modo = Intermediario::Corta_A_Resposta;
            break;
        case 2:
            network.Cortar();
            break;
        case 3:
            network.modo = Intermediario::Engole_Respostas;
            QThread::msleep(60);
            network.modo = Intermediario::Recusa;
            QThread::msleep(20);
            network.modo = Intermediario::Passa;
            break;
        default:
            network.modo = Intermediario::Cala;
            QThread::msleep(60);
            network.modo = Intermediario::Passa;
        }
    }
    // As a crash takes it: all connections go, and what was acknowledged stays.
    void Matar_Um_Processo() const
    {
        const int process = base_->Numero(u"SELECT pid FROM pg_stat_activity WHERE datname = current_database() AND "
                                          "pid <> pg_backend_pid() LIMIT 1"_s);
        if (process > 0) ::kill(process, SIGKILL);
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (TabelaNoServidor::Do_Servidor().isEmpty()) QSKIP("the tests' database server does not run");
        server_ = std::make_unique<Servidor>("postgres");
        QVERIFY(server_->Correr("start"));
        qputenv("PGPASSFILE", (server_->Pasta() + u"/senhas"_s).toUtf8());
        base_ = std::make_unique<TabelaNoServidor>(QUrl(server_->Perguntar("address")));
        base_->Correr(u"ALTER DATABASE %1 SET synchronous_commit = on"_s.arg(base_->Nome()));
    }
    void cleanupTestCase()
    {
        base_.reset();
        server_.reset();
    }

    void nothing_acknowledged_is_lost_and_nothing_is_there_twice()
    {
        constexpr int desks = 10;
        constexpr int worksFor = 8000; // ms
        Intermediario network(base_->Porta());
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int i = 0; i < desks; ++i) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            processes.back()->start(QCoreApplication::applicationFilePath(),
                                    {u"desk"_s, base_->Morada(network.Porta()), u"d%1"_s.arg(i),
                                     QString::number(worksFor)});
        }
        QElapsedTimer clock;
        clock.start();
        bool killed = false;
        int disturbed = 0;
        for (; clock.elapsed() < worksFor - 1500; ++disturbed) {
            QTest::qWait(150 + int(QRandomGenerator::global()->bounded(150)));
            if (!killed && clock.elapsed() > worksFor / 2) {
                skipFailure([&] { Matar_Um_Processo(); });
                killed = true;
            }
            Perturbar(network, disturbed);
        }
        network.modo = Intermediario::Passa;

        QMap<QString, int> acknowledged;
        QSet<QString> denied;
        QHash<QString, QString> numbers;
        for (const auto &process : processes) {
            QVERIFY(process->waitForFinished(60000));
            QCOMPARE(process->exitCode(), 0);
            for (const QByteArray &line : process->readAllStandardOutput().split('\n')) {
                const QString rest = QString::fromUtf8(line.mid(1));
                if (line.startsWith('+')) ++acknowledged[rest];
                if (line.startsWith('-')) denied << rest;
                if (line.startsWith('#')) numbers.insert(rest.section(u' ', 0, 0), rest.section(u' ', 1));
            }
        }

        QMap<QString, int> there;
        QHash<QString, QString> numbersThere;
        const auto store = PostgresStore::open(base_->Morada());
        Recordset rs = store->query(u"SELECT ID, Nome FROM T"_s, {});
        for (; !rs.Eof(); rs.MoveNext()) {
            ++there[rs.Fields("Nome").text()];
            numbersThere.insert(rs.Fields("Nome").text(), rs.Fields("ID").text());
        }
        qInfo("%lld acknowledged, %lld denied, %d disturbances, %d cut within a commit, %lld numbers",
              qint64(acknowledged.size()), qint64(denied.size()), disturbed, int(network.cortes),
              qint64(numbers.size()));
        QVERIFY(acknowledged.size() > 200);
        QVERIFY(network.cortes > 0);
        for (auto name = acknowledged.cbegin(); name != acknowledged.cend(); ++name)
            QVERIFY2(there.value(name.key()) == 1, qPrintable(name.key() + u" is there %1 times"_s.arg(there[name.key()])));
        for (const QString &name : denied)
            QVERIFY2(!there.contains(name), qPrintable(name + u" was told not to be there"_s));
        QCOMPARE(there.size(), acknowledged.size());
        for (auto number = numbers.cbegin(); number != numbers.cend(); ++number)
            QCOMPARE(numbersThere.value(number.key()), number.value());
        QCOMPARE(QSet<QString>(numbers.begin(), numbers.end()).size(), numbers.size());
    }
};

int main(int argc, char **argv)
{
    if (argc == 5 && qstrcmp(argv[1], "desk") == 0) {
        const QCoreApplication application(argc, argv);
        std::unique_ptr<Desk> desk;
        while (!skipFailure([&] {
            desk = std::make_unique<Desk>(QString::fromUtf8(argv[2]), QString::fromUtf8(argv[3]));
        })) // the network may be cut just now
            QThread::msleep(10);
        desk->work(QByteArray(argv[4]).toInt());
        return 0;
    }
    teste::CaixasDaAplicacao caixas;
    const Application application(argc, argv, caixas);
    TestPostgresLedger testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_PostgresLedger.moc"
