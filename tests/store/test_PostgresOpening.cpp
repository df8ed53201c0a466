// The way to a server: what is told of one that can't be reached, isn't trusted, or doesn't let anybody in; and one
// that goes and comes again.
#include "store/Certificados.h"
#include "store/Intermediario.h"
#include "store/postgres/PostgresStore.h"
#include "store/TabelaNoServidor.h"
#include "testlib/Servidor.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <dlfcn.h>
#include <netdb.h>
#include <QTcpServer>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

namespace
{
constexpr auto slow_name = "devagar.exemplo";
constexpr milliseconds slow_lookup(1500);
} // namespace

// In the place of the system's own, for the whole program: one name is found late, and is this machine.
extern "C" int getaddrinfo(const char *name, const char *service, const addrinfo *hints, addrinfo **found)
{
    using Real = int(const char *, const char *, const addrinfo *, addrinfo **);
    static auto *const real = reinterpret_cast<Real *>(::dlsym(RTLD_NEXT, "getaddrinfo"));
    const bool slow = name != nullptr && qstrcmp(name, slow_name) == 0;
    if (slow) std::this_thread::sleep_for(slow_lookup);
    return real(slow ? "127.0.0.1" : name, service, hints, found);
}

class TestPostgresOpening : public QObject
{
    Q_OBJECT

    std::unique_ptr<Servidor> server_; // its own: what is told to it would disturb others
    QUrl address_;
    std::unique_ptr<TabelaNoServidor> base_;
    QTemporaryDir folder_;

    static PostgresPatience Curta()
    {
        return {milliseconds(1500), milliseconds(1500), milliseconds(3000), {milliseconds(50), milliseconds(200)}};
    }
    QString Ficheiro(const QString &name) const { return folder_.filePath(name); }
    void Arrancar()
    {
        QVERIFY(server_->Correr("start"));
        address_ = QUrl(server_->Perguntar("address"));
        qputenv("PGPASSFILE", (server_->Pasta() + u"/senhas"_s).toUtf8());
    }
    void Dizer(const QString &sql) const { TabelaNoServidor::Correr_Em(address_, sql); }
    void Regras(const QString &lines) const
    {
        const QString file = TabelaNoServidor::Correr_Em(address_, u"SHOW hba_file"_s);
        Dizer(u"COPY (SELECT regexp_split_to_table('%1', '\n')) TO '%2'"_s.arg(lines, file));
        Dizer(u"SELECT pg_reload_conf()"_s);
        QTest::qWait(200); // each new connection has it once the server has read it
    }
    void Cifrar(const QString &certificate) const
    {
        const QString fault = certificados::Dar_Ao_Servidor(address_, Ficheiro(certificate));
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
    QString Com(const QString &options, const QString &host = u"127.0.0.1"_s, const QString &base = {}) const
    {
        return u"postgresql://morvex_ensaio@%1:%2/%3?%4"_s.arg(host)
            .arg(address_.port())
            .arg(base.isEmpty() ? base_->Nome() : base, options);
    }
    static constexpr std::nullopt_t aberta_ = std::nullopt; // what an opening that succeeds tells
    static std::optional<Failure::Kind> Abrir(const QString &address)
    {
        return teste::Especie_Da_Falha([&] { PostgresStore::open(address, Curta())->schemaNumber(); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (TabelaNoServidor::Do_Servidor().isEmpty()) QSKIP("the tests' database server does not run");
        server_ = std::make_unique<Servidor>("postgres");
        Arrancar();
        base_ = std::make_unique<TabelaNoServidor>(address_);
        QCOMPARE(certificados::Fazer(Ficheiro(u"authority"_s), u"authority"_s), QString());
        QCOMPARE(certificados::Fazer(Ficheiro(u"stranger"_s), u"stranger"_s), QString());
        QCOMPARE(certificados::Fazer(Ficheiro(u"server"_s), u"localhost"_s, Ficheiro(u"authority"_s)), QString());
    }
    void cleanupTestCase()
    {
        base_.reset();
        server_.reset();
    }

    void nobody_listens()
    {
        QTcpServer free;
        free.listen(QHostAddress::LocalHost);
        const quint16 port = free.serverPort();
        free.close();
        QCOMPARE(Abrir(u"postgresql://127.0.0.1:%1/morvex"_s.arg(port)), Failure::Kind::ServerRefused);
    }
    void nobody_knows_the_name()
    {
        QCOMPARE(Abrir(u"postgresql://nenhures..aqui/morvex"_s), Failure::Kind::ServerUnknown);
    }
    void a_name_that_nobody_knows_and_a_server_that_is_silent_are_told_apart()
    {
        const auto said = [](const QString &address) {
            return teste::Falha_Dita([&] { openNow(PostgresAddress(address), {}, Deadline(milliseconds(500))); });
        };
        QCOMPARE(said(u"postgresql://nenhures..aqui,algures..ali/morvex"_s),
                 QStringList({u"PostgresStore"_s, u"Nobody knows a host named algures..ali"_s}));
        Intermediario network(base_->Porta());
        network.modo = Intermediario::Cala;
        QCOMPARE(said(base_->Morada(network.Porta())),
                 QStringList({u"PostgresStore"_s, u"The server does not answer"_s}));
    }
    void a_name_is_looked_up()
    {
        QCOMPARE(Abrir(Com({}, u"localhost"_s)), aberta_);
        HostLookup lookup({u"localhost"_s, u"nenhures..aqui"_s});
        QTRY_VERIFY(lookup.done());
        QCOMPARE(lookup.found().value(u"localhost"_s).value(0).protocol(), QAbstractSocket::IPv4Protocol);
        QVERIFY(lookup.found().contains(u"nenhures..aqui"_s));
        QVERIFY(lookup.found().value(u"nenhures..aqui"_s).isEmpty());
    }
    void a_server_that_says_nothing_is_waited_for_no_longer_than_the_patience()
    {
        Intermediario network(base_->Porta());
        network.modo = Intermediario::Cala;
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(Abrir(base_->Morada(network.Porta())), Failure::Kind::ServerLost);
        QVERIFY2(clock.elapsed() < 2 * Curta().opening.count(), QByteArray::number(clock.elapsed()));
    }
    // Who knows the name is not the server: what is heard there is no sign of its life.
    void a_name_that_is_found_late_gives_the_server_no_more_time()
    {
        constexpr milliseconds silence(2500);
        Intermediario network(base_->Porta());
        network.modo = Intermediario::Cala;
        const PostgresAddress address(
            u"postgresql://%1:%2/morvex?sslmode=disable"_s.arg(QLatin1StringView(slow_name))
                .arg(network.Porta()));
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(
            teste::Especie_Da_Falha([&] { openNow(address, {}, Deadline(milliseconds(20000), silence)); }),
            Failure::Kind::ServerLost);
        QVERIFY2(clock.elapsed() >= silence.count() - 50, QByteArray::number(clock.elapsed()));
        QVERIFY2(clock.elapsed() < (silence + slow_lookup).count(), QByteArray::number(clock.elapsed()));
        QTRY_VERIFY(network.ligacoes > 0); // it was found
    }
    void what_listens_and_is_no_such_server()
    {
        QTcpServer other;
        other.listen(QHostAddress::LocalHost);
        connect(&other, &QTcpServer::newConnection, &other, [&] { other.nextPendingConnection()->close(); });
        QCOMPARE(Abrir(u"postgresql://127.0.0.1:%1/morvex"_s.arg(other.serverPort())), Failure::Kind::ServerLost);
    }
    void there_is_no_such_base()
    {
        QCOMPARE(Abrir(Com({}, u"127.0.0.1"_s, u"nenhuma"_s)), Failure::Kind::ServerNoDatabase);
    }

    void the_password_is_missing_wrong_or_in_a_file_that_others_read()
    {
        QFile file(Ficheiro(u"passwords"_s));
        const QString address = Com(u"passfile="_s + file.fileName());
        QCOMPARE(Abrir(address), Failure::Kind::ServerNoPassword);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("*:*:*:morvex_ensaio:errada\n");
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
        QCOMPARE(Abrir(address), Failure::Kind::ServerPassword);
        for (const auto others : {QFile::ReadGroup, QFile::WriteGroup, QFile::ExeGroup, QFile::ReadOther,
                                  QFile::WriteOther, QFile::ExeOther}) {
            file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | others);
            QCOMPARE(Abrir(address), Failure::Kind::ServerPasswordFile);
        }
    }
    void one_of_several_servers_is_enough()
    {
        QCOMPARE(Abrir(u"postgresql://morvex_ensaio@nenhures..aqui,localhost:%1/%2?sslmode=prefer"_s.arg(address_.port())
                           .arg(base_->Nome())),
                 aberta_);
    }
    void what_the_library_does_not_understand_is_a_broken_address()
    {
        QCOMPARE(Abrir(Com(u"sslmode=quase"_s)), Failure::Kind::AddressBroken);
    }
    void the_server_is_quoted_without_places_in_its_source()
    {
        try {
            PostgresStore::open(Com({}, u"127.0.0.1"_s, u"nenhuma"_s), Curta());
            QFAIL("it was opened");
        } catch (const Failure &failure) {
            QVERIFY2(failure.description().contains("nenhuma"_L1), qPrintable(failure.description()));
            QVERIFY2(!failure.description().contains(".c:"_L1), qPrintable(failure.description()));
        }
    }
    void the_server_does_not_let_this_user_in()
    {
        Regras(u"host postgres all all scram-sha-256"_s);
        QCOMPARE(Abrir(Com({})), Failure::Kind::ServerForbidden);
        Regras(u"host all all all scram-sha-256"_s);
        QCOMPARE(Abrir(Com({})), aberta_);
    }

    void a_server_without_encryption_is_not_trusted_where_it_is_asked_for()
    {
        QCOMPARE(Abrir(Com(u"sslmode=verify-full&sslrootcert="_s + Ficheiro(u"authority.crt"_s))),
                 Failure::Kind::ServerCertificate);
    }
    void a_certificate_is_asked_for_its_name_and_its_authority()
    {
        Cifrar(u"server"_s);
        const QString full = u"sslmode=verify-full&sslrootcert="_s;
        const QString right = full + Ficheiro(u"authority.crt"_s);
        QCOMPARE(Abrir(Com(right, u"localhost"_s)), aberta_);
        QCOMPARE(Abrir(Com(right)), Failure::Kind::ServerCertificate);              // by its number: another name
        QCOMPARE(Abrir(Com(right + u"&hostaddr=127.0.0.1"_s, u"outro"_s)), Failure::Kind::ServerCertificate);
        QCOMPARE(Abrir(Com(full + Ficheiro(u"stranger.crt"_s), u"localhost"_s)), Failure::Kind::ServerCertificate);
        QCOMPARE(Abrir(Com(full + Ficheiro(u"none.crt"_s), u"localhost"_s)), Failure::Kind::ServerCertificate);
    }
    void a_server_that_takes_nothing_in_the_clear()
    {
        Cifrar(u"server"_s);
        Regras(u"local all all trust\nhostssl all all all scram-sha-256\nhostnossl all all all reject"_s);
        QCOMPARE(Abrir(Com(u"sslmode=disable"_s)), Failure::Kind::ServerForbidden);
        QCOMPARE(Abrir(Com(u"sslmode=verify-full&sslrootcert="_s + Ficheiro(u"authority.crt"_s), u"localhost"_s)),
                 aberta_);
        Regras(u"local all all trust\nhost all all all scram-sha-256"_s);
    }

    void a_server_that_is_stopped_and_started_again_is_found_again()
    {
        Intermediario network(base_->Porta());
        QList<Reach> reached;
        const auto store = PostgresStore::open(base_->Morada(network.Porta()), Curta());
        store->listen({{}, [&](Reach reach) { reached << reach; }});
        store->execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {u"Ana"_s});
        Dizer(u"CHECKPOINT"_s); // this server is told not to care for a power cut
        QVERIFY(server_->Correr("stop"));
        QTRY_COMPARE(reached, QList{Reach::Lost});
        VERIFICAR_FALHA(store->query(u"SELECT * FROM T"_s, {}), Failure::StoreError);
        Arrancar();
        network.Mudar_De_Servidor(static_cast<quint16>(address_.port()));
        QTRY_COMPARE_WITH_TIMEOUT(reached, (QList{Reach::Lost, Reach::There}), 10000);
        QCOMPARE(store->query(u"SELECT Nome FROM T"_s, {}).Fields("Nome").text(), u"Ana"_s);
    }
};

MORVEX_TESTE(TestPostgresOpening)
#include "test_PostgresOpening.moc"
