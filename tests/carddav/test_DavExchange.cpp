// The way to a server: redirects, password and encryption.
#include "Asking.h"
#include "carddav/DavBodies.h"
#include "carddav/DavConnection.h"
#include "testlib/Teste.h"

#include <QNetworkProxy>

using namespace Qt::StringLiterals;
using namespace asking;

Q_DECLARE_METATYPE(LivroDav::Entrada)

namespace
{
const RemoteAccount ana{u"ana"_s, u"segredo9"_s};

const QString path = u"/dav/ana/contactos/"_s;

QUrl at(const ServidorHttp &server) { return QUrl(server.Endereco(path)); }

QString kindOfChanges(const QUrl &address, const RemoteAccount &account = {})
{
    AddressBook book(address, account);
    return nameOf(changesSince(book, {}).error);
}
} // namespace

class TestDavExchange : public QObject
{
    Q_OBJECT

    Identidade identity_;
    QSslConfiguration before_ = QSslConfiguration::defaultConfiguration();

    void trustTheServer() const
    {
        QSslConfiguration trusting = before_;
        trusting.addCaCertificate(identity_.certificado);
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    static QUrl encrypted(const ServidorHttp &server) // by the name that the certificate bears
    {
        return QUrl(u"https://localhost:%1%2"_s.arg(server.serverPort()).arg(path));
    }

private Q_SLOTS:
    void cleanup() { QSslConfiguration::setDefaultConfiguration(before_); }

    void a_redirected_question_stays_what_it_is_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {301, 302, 303, 307, 308})
            QTest::addRow("%d", status) << status;
    }
    void a_redirected_question_stays_what_it_is()
    {
        QFETCH(int, status);
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        remote.livro = "/moved/";
        ServidorHttp server([&](const Pedido &asked) {
            if (!asked.caminho.startsWith("/dav/ana/contactos/")) return remote(asked);
            return Resposta::Para(u"/moved/"_s + QString::fromLatin1(asked.caminho.mid(path.size())), status);
        });
        remote.Por("1.vcf", card("A"));
        AddressBook book(at(server), ana);
        const Changes changes = changesSince(book, {});
        QCOMPARE(nameOf(changes.error), u"None"_s);
        QCOMPARE(changes.names(), QStringList{u"1.vcf"_s});
        const Pedido &last = server.pedidos.constLast();
        QCOMPARE(last.verbo, QByteArray("REPORT"));
        QCOMPARE(last.caminho, QByteArray("/moved/"));
        QVERIFY(last.corpo.contains("sync-collection"));
        QCOMPARE(nameOf(create(book, book.hrefFor(u"n"_s), card("B")).error), u"None"_s);
        QCOMPARE(remote.cartoes.value("/moved/n.vcf").texto, card("B"));
        QCOMPARE(nameOf(remove(book, book.hrefFor(u"n"_s), {}).error), u"None"_s);
        QVERIFY(!remote.cartoes.contains("/moved/n.vcf"));
    }

    void another_server_gets_neither_password_nor_cards_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {301, 302, 303, 307, 308})
            QTest::addRow("%d", status) << status;
    }
    void another_server_gets_neither_password_nor_cards()
    {
        QFETCH(int, status);
        LivroDav there;
        there.entrada = LivroDav::Entrada::Basica;
        ServidorHttp second(std::ref(there));
        ServidorHttp first([&](const Pedido &asked) {
            LivroDav door;
            door.entrada = LivroDav::Entrada::Basica;
            door.antes = [&](const Pedido &inside) -> std::optional<Resposta> {
                if (inside["authorization"].isEmpty()) return std::nullopt;
                return Resposta::Para(second.Endereco(QString::fromLatin1(inside.caminho)), status);
            };
            return door(asked);
        });
        AddressBook book(at(first), ana);
        const Changes changes = changesSince(book, {});
        QCOMPARE(nameOf(changes.error), u"Elsewhere"_s);
        QCOMPARE(changes.error.detail, second.Endereco(path));
        QCOMPARE(changes.error.status, 401);
        QVERIFY(!second.pedidos.isEmpty());
        second.pedidos.clear();
        const Written created = create(book, book.hrefFor(u"n"_s), card("B"));
        QCOMPARE(nameOf(created.error), u"Elsewhere"_s);
        QCOMPARE(nameOf(remove(book, book.hrefFor(u"n"_s), {}).error), u"Elsewhere"_s);
        QVERIFY(second.pedidos.isEmpty()); // it does not even hear of it
        fetch(book, {book.hrefFor(u"n"_s)});
        for (const Pedido &asked : std::as_const(second.pedidos))
            QVERIFY(asked["authorization"].isEmpty());
    }

    void an_open_book_elsewhere_can_be_read()
    {
        LivroDav there;
        there.Por("1.vcf", card("A"));
        ServidorHttp second(std::ref(there));
        ServidorHttp first([&](const Pedido &) { return Resposta::Para(second.Endereco(path), 308); });
        AddressBook book(at(first), ana);
        QCOMPARE(changesSince(book, {}).names(), QStringList{u"1.vcf"_s});
    }

    void what_stands_below_a_redirect_is_no_answer()
    {
        ServidorHttp server([&](const Pedido &asked) -> Resposta {
            if (asked.caminho.startsWith("/moved/")) return {403};
            return {307, "<no-uid-conflict/>", {"Location: /moved/n.vcf"}};
        });
        AddressBook book(at(server), ana);
        const RemoteError error = create(book, book.hrefFor(u"n"_s), card("B")).error;
        QCOMPARE(error.status, 403);
        QCOMPARE(nameOf(error), u"Forbidden"_s);
    }

    void redirects_in_a_circle_end_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<int>("times"); // that somebody is asked
        QTest::newRow("to itself") << path << 11;
        QTest::newRow("on and on") << u"next/"_s << 11;
        QTest::newRow("to nowhere") << QString() << 11; // which is to itself
        QTest::newRow("to a file") << u"file:///etc/passwd"_s << 1;
        QTest::newRow("to another kind of server") << u"ftp://127.0.0.1/"_s << 1;
        QTest::newRow("to no address") << u"http://"_s << 1;
    }
    void redirects_in_a_circle_end()
    {
        QFETCH(QString, target);
        QFETCH(int, times);
        ServidorHttp server([&](const Pedido &) { return Resposta::Para(target); });
        AddressBook book(at(server), {});
        const RemoteError error = changesSince(book, {}).error;
        QCOMPARE(nameOf(error), u"Malformed"_s);
        QVERIFY2(error.detail.startsWith(u"redirected from "_s + server.Endereco()) &&
                     error.detail.contains(u" to "_s),
                 qPrintable(error.detail));
        QCOMPARE(server.pedidos.size(), times);
    }

    void encryption_is_never_left_data()
    {
        QTest::addColumn<QString>("host");
        QTest::newRow("the same server") << u"localhost"_s;
        QTest::newRow("another") << u"127.0.0.1"_s;
    }
    void encryption_is_never_left()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        QFETCH(QString, host);
        trustTheServer();
        LivroDav plain;
        ServidorHttp clear(std::ref(plain));
        ServidorHttp server([&](const Pedido &) {
            return Resposta::Para(u"http://%1:%2/"_s.arg(host).arg(clear.serverPort()));
        });
        server.Cifrar(identity_);
        AddressBook book(encrypted(server), ana);
        QCOMPARE(nameOf(changesSince(book, {}).error), u"Unencrypted"_s);
        QCOMPARE(nameOf(create(book, book.hrefFor(u"n"_s), card("A")).error), u"Unencrypted"_s);
        QVERIFY(clear.pedidos.isEmpty());
    }

    void a_home_is_not_looked_for_where_it_would_be_in_the_clear()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        trustTheServer();
        LivroDav plain;
        ServidorHttp clear(std::ref(plain));
        ServidorHttp server([&](const Pedido &) {
            return Resposta::Xml(LivroDav::Multistatus(LivroDav::Uma(
                "/", "<c:addressbook-home-set><d:href>" + clear.Endereco(u"/dav/ana/"_s).toUtf8() +
                         "</d:href></c:addressbook-home-set>")));
        });
        server.Cifrar(identity_);
        QCOMPARE(nameOf(find(encrypted(server).toString(), ana).error), u"Unencrypted"_s);
        QVERIFY(clear.pedidos.isEmpty());
    }

    void the_way_into_encryption_is_taken_with_the_password()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        trustTheServer();
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        ServidorHttp server(std::ref(remote));
        server.Cifrar(identity_);
        ServidorHttp door([&](const Pedido &asked) {
            return Resposta::Para(
                u"https://localhost:%1%2"_s.arg(server.serverPort()).arg(QString::fromLatin1(asked.caminho)),
                301);
        });
        AddressBook book(QUrl(u"http://localhost:%1%2"_s.arg(door.serverPort()).arg(path)), ana);
        QCOMPARE(nameOf(changesSince(book, {}).error), u"None"_s);
        QCOMPARE(nameOf(create(book, book.hrefFor(u"n"_s), card("A")).error), u"None"_s);
        QCOMPARE(remote.cartoes.size(), 1);
        for (const Pedido &asked : std::as_const(door.pedidos))
            QVERIFY(asked["authorization"].isEmpty());
    }

    void a_name_alone_or_a_password_alone_is_told_too_data()
    {
        QTest::addColumn<QString>("user");
        QTest::addColumn<QString>("password");
        QTest::newRow("a name alone") << u"ana"_s << QString();
        QTest::newRow("a password alone") << QString() << u"segredo9"_s;
    }
    void a_name_alone_or_a_password_alone_is_told_too()
    {
        QFETCH(QString, user);
        QFETCH(QString, password);
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        remote.utilizador = user.toUtf8();
        remote.senha = password.toUtf8();
        ServidorHttp server(std::ref(remote));
        QCOMPARE(kindOfChanges(at(server), {user, password}), u"None"_s);
    }

    // What ends a deletion may announce a length, and brings nothing.
    void an_answer_that_has_no_body_by_its_nature_is_not_cut_off()
    {
        ServidorHttp server([](const Pedido &) { return Resposta{204, {}, {"Content-Length: 5"}}; });
        AddressBook book(at(server), {});
        QCOMPARE(nameOf(remove(book, book.hrefFor(u"n"_s), {}).error), u"None"_s);
    }

    void name_and_password_are_told_when_asked_for_data()
    {
        QTest::addColumn<LivroDav::Entrada>("way");
        QTest::addColumn<QString>("password");
        for (const auto &[name, way] : {std::pair("Basic", LivroDav::Entrada::Basica),
                                        std::pair("Digest", LivroDav::Entrada::Digest)}) {
            QTest::addRow("%s", name) << way << u"segredo9"_s;
            QTest::addRow("%s, colon and quote", name) << way << u"a:b\"c\\d"_s;
            QTest::addRow("%s, accents", name) << way << u"paixão"_s;
            QTest::addRow("%s, beyond Latin", name) << way << u"пароль€"_s;
        }
    }
    void name_and_password_are_told_when_asked_for()
    {
        QFETCH(LivroDav::Entrada, way);
        QFETCH(QString, password);
        LivroDav remote;
        remote.entrada = way;
        remote.senha = password.toUtf8();
        ServidorHttp server(std::ref(remote));
        AddressBook book(at(server), {u"ana"_s, password});
        QCOMPARE(nameOf(changesSince(book, {}).error), u"None"_s);
        const QByteArray large = card("A") + QByteArray(300000, 'x');
        const QString href = book.hrefFor(u"n"_s);
        QCOMPARE(nameOf(create(book, href, large).error), u"None"_s);
        QCOMPARE(remote.cartoes.value(href.toLatin1()).texto.size(), large.size());
        QCOMPARE(fetch(book, {href}).cards.size(), 1);
        QCOMPARE(nameOf(remove(book, href, "\"e1\"").error), u"None"_s);
        QCOMPARE(server.pedidos.size(), 5); // asked once, told unasked ever after
    }

    // A large book is thousands of questions.
    void a_question_that_was_answered_is_let_go()
    {
        LivroDav remote;
        ServidorHttp server(std::ref(remote));
        DavConnection connection(at(server), {}, {});
        int answers = 0;
        for (int number = 0; number < 20; ++number)
            connection.send(dav::get(at(server)), this, [&answers](const DavAnswer &) { ++answers; });
        await([&] { return answers == 20; });
        QCOMPARE(answers, 20);
        QTRY_VERIFY(connection.children().isEmpty());
    }

    // Servers close what has been idle for a while, and often just when it is wanted again.
    void a_connection_that_the_server_has_closed_is_made_again()
    {
        LivroDav remote;
        ServidorHttp server([&](const Pedido &asked) {
            Resposta answer = remote(asked);
            answer.cabecalhos << "Content-Length: " + QByteArray::number(answer.corpo.size());
            answer.depois = Resposta::Depois::Fecha; // without having said so
            return answer;
        });
        AddressBook book(at(server), {});
        for (int number = 0; number < 20; ++number) {
            const QString href = book.hrefFor(QString::number(number));
            const Written created = create(book, href, card(QByteArray(30000, 'x')));
            QVERIFY2(!created.error, qPrintable(nameOf(created.error) + created.error.detail));
            QVERIFY(!replace(book, href, created.etag, card("A")).error);
        }
        QCOMPARE(remote.cartoes.size(), 20);
    }

    void a_wrong_password_is_tried_once_data()
    {
        QTest::addColumn<LivroDav::Entrada>("way");
        QTest::newRow("Basic") << LivroDav::Entrada::Basica;
        QTest::newRow("Digest") << LivroDav::Entrada::Digest;
    }
    void a_wrong_password_is_tried_once()
    {
        QFETCH(LivroDav::Entrada, way);
        LivroDav remote;
        remote.entrada = way;
        ServidorHttp server(std::ref(remote));
        AddressBook book(at(server), {u"ana"_s, u"errada"_s});
        const Changes changes = changesSince(book, {});
        QCOMPARE(nameOf(changes.error), u"Password"_s);
        QVERIFY(changes.error.concernsAll());
        QVERIFY(!changes.error.detail.contains(u"errada"_s));
        QCOMPARE(server.pedidos.size(), 2);
        QCOMPARE(kindOfChanges(at(server)), u"Password"_s); // without any
    }

    void a_password_that_changes_in_between_is_told()
    {
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        ServidorHttp server(std::ref(remote));
        AddressBook book(at(server), ana);
        QCOMPARE(nameOf(changesSince(book, {}).error), u"None"_s);
        remote.senha = "outra";
        QCOMPARE(nameOf(changesSince(book, {}).error), u"Password"_s);
        QVERIFY(server.pedidos.size() <= 6);
    }

    void a_certificate_of_nobody_known_is_refused()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        ServidorHttp server(std::ref(remote));
        server.Cifrar(identity_);
        AddressBook book(encrypted(server), ana);
        const Changes changes = changesSince(book, {});
        QCOMPARE(nameOf(changes.error), u"Certificate"_s);
        QCOMPARE(changes.error.status, 0); // no answer came
        QVERIFY(!changes.error.detail.isEmpty());
        QCOMPARE(nameOf(find(encrypted(server).toString(), ana).error), u"Certificate"_s);
        QVERIFY(server.pedidos.isEmpty());
    }

    void all_that_speaks_against_a_certificate_is_told()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        LivroDav remote;
        ServidorHttp server(std::ref(remote));
        server.Cifrar(identity_);
        AddressBook book(at(server), ana); // nobody known has signed it, and it is for another name
        const QStringList reasons = changesSince(book, {}).error.detail.split(u"; "_s);
        QCOMPARE(reasons.size(), 2);
        QVERIFY(!reasons.contains(QString()) && reasons.at(0) != reasons.at(1));
    }

    void a_certificate_of_somebody_else_is_refused()
    {
        if (!Identidade::Possivel()) QSKIP("no server shows a certificate here");
        trustTheServer();
        LivroDav remote;
        ServidorHttp server(std::ref(remote));
        server.Cifrar(identity_);
        QCOMPARE(kindOfChanges(at(server), ana),
                 u"Certificate"_s); // it is for localhost, and this is an address
        QVERIFY(server.pedidos.isEmpty());
        QCOMPARE(kindOfChanges(encrypted(server), ana), u"None"_s);
    }

    void encryption_with_one_who_does_not_know_it_fails_as_such()
    {
        if (!Identidade::Possivel()) QSKIP("who asks for encryption is not told here that nobody knows it");
        LivroDav remote;
        ServidorHttp server(std::ref(remote));
        QCOMPARE(kindOfChanges(encrypted(server), ana), u"Certificate"_s);
    }

    void a_port_where_nobody_listens_is_refused()
    {
        quint16 port = 0;
        {
            QTcpServer somebody;
            somebody.listen(QHostAddress::LocalHost);
            port = somebody.serverPort();
        }
        const QString address = u"http://127.0.0.1:%1/"_s.arg(port);
        QCOMPARE(kindOfChanges(QUrl(address)), u"Refused"_s);
        QCOMPARE(nameOf(find(address).error), u"Refused"_s);
        QCOMPARE(find(address).error.status, 0); // no answer came
    }

    void a_proxy_that_does_not_let_through_is_a_refusal_data()
    {
        QTest::addColumn<Resposta>("answer");
        QTest::newRow("wants a password of its own")
            << Resposta{407, {}, {"Proxy-Authenticate: Basic realm=\"x\"", "Content-Length: 0"}};
        QTest::newRow("was refused itself") << Resposta{503, {}, {"Content-Length: 0"}};
    }
    void a_proxy_that_does_not_let_through_is_a_refusal()
    {
        QFETCH(Resposta, answer);
        ServidorHttp proxy([&](const Pedido &) { return answer; });
        QNetworkProxy::setApplicationProxy({QNetworkProxy::HttpProxy, u"127.0.0.1"_s, proxy.serverPort()});
        const auto without = qScopeGuard([] { QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy); });
        QCOMPARE(kindOfChanges(QUrl(u"http://192.0.2.1/livro/"_s), ana), u"Refused"_s); // an address of nobody
        QVERIFY(proxy.Verbos().contains("CONNECT"));
        for (const Pedido &asked : proxy.pedidos)
            QVERIFY(!asked.cabecalhos.contains("proxy-authorization"));
    }

    void a_network_that_no_way_leads_to_is_none()
    {
        // To an address of many machines nothing is ever connected, whatever networks there are.
        QCOMPARE(kindOfChanges(QUrl(u"http://224.0.0.1/livro/"_s)), u"NoNetwork"_s);
    }

    void a_host_that_is_none_is_told()
    {
        const QString kind = nameOf(find(u"http://nobody.invalid/"_s).error);
        QVERIFY2(kind == u"NoSuchHost"_s || kind == u"NoNetwork"_s,
                 qPrintable(kind)); // as this machine is connected
    }
};

MORVEX_TESTE(TestDavExchange)
#include "test_DavExchange.moc"
