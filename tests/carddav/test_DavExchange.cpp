// The way to a server and back: redirects, password, encryption, size and time, and giving up.
#include "Asking.h"
#include "carddav/DavConnection.h"
#include "testlib/Pausas.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace asking;

Q_DECLARE_METATYPE(LivroDav::Entrada)

namespace
{
const RemoteAccount ana{u"ana"_s, u"segredo9"_s};
constexpr qint64 blocked = 250; // ms: longer than a busy machine's hiccup

RemoteLimits soon()
{
    RemoteLimits limits;
    limits.stillness = 300ms;
    limits.request = 1500ms;
    return limits;
}

const QString path = u"/dav/ana/contactos/"_s;

QUrl at(const ServidorHttp &server) { return QUrl(server.Endereco(path)); }

// What a server makes of every way to use a book.
QString kindOfChanges(const QUrl &address, const RemoteAccount &account = {}, const RemoteLimits &limits = {})
{
    AddressBook book(address, account, limits);
    return nameOf(changesSince(book, {}).error);
}

Resposta listed() { return Resposta::Xml(LivroDav::Multistatus("<d:sync-token>t</d:sync-token>")); }
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

    void redirects_in_a_circle_end_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("to itself") << path;
        QTest::newRow("on and on") << u"next/"_s;
        QTest::newRow("to nowhere") << QString();
        QTest::newRow("to a file") << u"file:///etc/passwd"_s;
        QTest::newRow("to no address") << u"http://"_s;
    }
    void redirects_in_a_circle_end()
    {
        QFETCH(QString, target);
        ServidorHttp server([&](const Pedido &) { return Resposta::Para(target); });
        QCOMPARE(kindOfChanges(at(server)), u"Malformed"_s);
        QVERIFY(server.pedidos.size() <= 11);
    }

    void encryption_is_never_left_data()
    {
        QTest::addColumn<QString>("host");
        QTest::newRow("the same server") << u"localhost"_s;
        QTest::newRow("another") << u"127.0.0.1"_s;
    }
    void encryption_is_never_left()
    {
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

    void the_way_into_encryption_is_taken_with_the_password()
    {
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
        LivroDav remote;
        remote.entrada = LivroDav::Entrada::Basica;
        ServidorHttp server(std::ref(remote));
        server.Cifrar(identity_);
        AddressBook book(encrypted(server), ana);
        const Changes changes = changesSince(book, {});
        QCOMPARE(nameOf(changes.error), u"Certificate"_s);
        QVERIFY(!changes.error.detail.isEmpty());
        QCOMPARE(nameOf(find(encrypted(server).toString(), ana).error), u"Certificate"_s);
        QVERIFY(server.pedidos.isEmpty());
    }

    void a_certificate_of_somebody_else_is_refused()
    {
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
    }

    void a_host_that_is_none_is_told()
    {
        const QString kind = nameOf(find(u"http://nobody.invalid/"_s).error);
        QVERIFY2(kind == u"NoSuchHost"_s || kind == u"NoNetwork"_s,
                 qPrintable(kind)); // as this machine is connected
    }

    void a_server_that_misbehaves_is_told_data()
    {
        using Depois = Resposta::Depois;
        QTest::addColumn<Resposta>("answer");
        QTest::addColumn<QString>("kind");
        QTest::newRow("silent") << Resposta::Calada() << u"TimedOut"_s;
        QTest::newRow("stops in the middle")
            << Resposta{207, "<d:multistatus", {"Content-Length: 1000"}, Depois::Cala} << u"TimedOut"_s;
        QTest::newRow("drips for ever")
            << Resposta{207, LivroDav::Multistatus({}).chopped(16), {}, Depois::Pinga} << u"TimedOut"_s;
        QTest::newRow("floods") << Resposta{207, LivroDav::Multistatus({}).chopped(16), {}, Depois::Sem_Fim}
                                << u"TooBig"_s;
        QTest::newRow("announces too much")
            << Resposta{207, {}, {"Content-Length: 9999999999"}, Depois::Cala} << u"TooBig"_s;
        QTest::newRow("hangs up in the middle")
            << Resposta{207, "<d:multistatus", {"Content-Length: 1000"}, Depois::Fecha} << u"Interrupted"_s;
        QTest::newRow("hangs up at once") << Resposta{0, {}, {}, Depois::Fecha, "\n"} << u"Interrupted"_s;
        QTest::newRow("speaks something else")
            << Resposta{0, {}, {}, Depois::Nada, "220 mail.example.org ESMTP\r\n"} << u"Interrupted"_s;
        QTest::newRow("compressed unasked")
            << Resposta{207, "xx", {"Content-Encoding: gzip"}} << u"Malformed"_s;
        QTest::newRow("page of a network for guests")
            << Resposta{200, "<html>log in</html>", {"Content-Type: text/html"}} << u"Malformed"_s;
        QTest::newRow("entity bomb") << Resposta::Xml(
                                            "<!DOCTYPE a [<!ENTITY b 'c'>]><d:multistatus xmlns:d='DAV:'/>")
                                     << u"Malformed"_s;
        QTest::newRow("broken") << Resposta::Xml("<d:multistatus xmlns:d='DAV:'><x>") << u"Malformed"_s;
        QTest::newRow("broken, with much behind")
            << Resposta::Xml("<d:multistatus xmlns:d='DAV:'></x>" + QByteArray(1 << 20, ' '))
            << u"Malformed"_s;
        QTest::newRow("error without end") << Resposta{500, "x", {}, Depois::Sem_Fim} << u"TooBig"_s;
        QTest::newRow("headers without end")
            << Resposta{0, {}, {}, Depois::Sem_Fim, "HTTP/1.1 207 X\r\nX-A: "} << u"TimedOut"_s;
    }
    void a_server_that_misbehaves_is_told()
    {
        QFETCH(Resposta, answer);
        QFETCH(QString, kind);
        ServidorHttp server([&](const Pedido &) { return answer; });
        RemoteLimits limits = soon();
        limits.listing = 4 << 20;
        QCOMPARE(kindOfChanges(at(server), {}, limits), kind);
        QTRY_COMPARE(server.Ligacoes(), 0);
    }

    void what_goes_on_slowly_is_not_given_up()
    {
        ServidorHttp server([](const Pedido &) {
            Resposta answer = listed();
            answer.atraso = 200;
            return answer;
        });
        RemoteLimits limits = soon();
        limits.stillness = 5000ms;
        limits.request = 20000ms;
        QCOMPARE(kindOfChanges(at(server), {}, limits), u"None"_s);
    }

    void a_card_beyond_the_limit_is_left_and_the_others_are_fetched_data()
    {
        QTest::addColumn<bool>("asksMany");
        QTest::newRow("many") << true;
        QTest::newRow("singly") << false;
    }
    void a_card_beyond_the_limit_is_left_and_the_others_are_fetched()
    {
        QFETCH(bool, asksMany);
        LivroDav remote;
        remote.conhece_multiget = asksMany;
        remote.Por("1.vcf", card("A"));
        remote.Por("2.vcf", card(QByteArray(5000, 'B')));
        remote.Por("3.vcf", card("C"));
        ServidorHttp server(std::ref(remote));
        RemoteLimits limits;
        limits.card = 4000;
        AddressBook book(at(server), {}, limits);
        const Fetched cards = fetch(book, {path + u"1.vcf"_s, path + u"2.vcf"_s, path + u"3.vcf"_s});
        QVERIFY(!cards.error);
        QCOMPARE(cards.told, 3);
        QCOMPARE(nameOf(cards.cards.value(path + u"2.vcf"_s).error), u"TooBig"_s);
        QVERIFY(cards.cards.value(path + u"2.vcf"_s).text.isEmpty());
        QVERIFY(cards.cards.value(path + u"3.vcf"_s).text.contains("FN:C"));
    }

    void an_answer_for_many_beyond_the_limit_is_asked_for_singly()
    {
        LivroDav remote;
        for (const char *name : {"1.vcf", "2.vcf", "3.vcf"})
            remote.Por(name, card(QByteArray(3000, 'B')));
        ServidorHttp server(std::ref(remote));
        RemoteLimits limits;
        limits.listing = 8000;
        AddressBook book(at(server), {}, limits);
        const Fetched cards = fetch(book, {path + u"1.vcf"_s, path + u"2.vcf"_s, path + u"3.vcf"_s});
        QVERIFY(!cards.error);
        QCOMPARE(cards.told, 3);
        QCOMPARE(server.Verbos().count("GET"), 3);
        for (const RemoteCard &one : cards.cards)
            QVERIFY(!one.error);
    }

    void the_end_of_the_way_ends_the_whole_fetching()
    {
        LivroDav remote;
        remote.conhece_multiget = false;
        for (int number = 0; number < 30; ++number)
            remote.Por(QByteArray::number(number) + ".vcf", card("A"));
        int asked = 0;
        remote.antes = [&asked](const Pedido &question) -> std::optional<Resposta> {
            return question.verbo == "GET" && ++asked > 10 ? std::optional(Resposta::Calada()) : std::nullopt;
        };
        ServidorHttp server(std::ref(remote));
        AddressBook book(at(server), {}, soon());
        QStringList hrefs;
        for (int number = 0; number < 30; ++number)
            hrefs << path + u"%1.vcf"_s.arg(number);
        const Fetched cards = fetch(book, hrefs);
        QCOMPARE(nameOf(cards.error), u"TimedOut"_s);
        QCOMPARE(cards.ends, 1);
        QCOMPARE(cards.told, 10);
        QTest::qWait(100);
        QVERIFY(asked <= 16);                // nothing is asked any more
        QTRY_VERIFY(server.Ligacoes() <= 1); // one that waits for the next question
    }

    void giving_up_leaves_nothing_running_data()
    {
        QTest::addColumn<int>("wait");
        for (const int wait : {0, 1, 5, 20, 50, 120})
            QTest::addRow("after %d ms", wait) << wait;
    }
    void giving_up_leaves_nothing_running()
    {
        QFETCH(int, wait);
        LivroDav remote;
        for (int number = 0; number < 20; ++number)
            remote.Por(QByteArray::number(number) + ".vcf", card("A"));
        ServidorHttp server([&](const Pedido &asked) {
            Resposta answer = remote(asked);
            answer.atraso = 15;
            return answer;
        });
        int told = 0;
        const auto ask = [&](RemoteBook &book) {
            book.changesSince({}, [&](const RemoteError &, const RemoteChanges &) { ++told; });
            book.fetch(
                {path + u"1.vcf"_s}, [&](const QList<RemoteCard> &) { ++told; },
                [&](const RemoteError &) { ++told; });
            book.fetch(
                {}, [&](const QList<RemoteCard> &) {}, [&](const RemoteError &) { ++told; });
            for (int number = 0; number < 20; ++number)
                book.create(book.hrefFor(u"n%1"_s.arg(number)), card(QByteArray(100000, 'x')),
                            [&](const RemoteError &, const RemoteWritten &) { ++told; });
            book.remove(path + u"1.vcf"_s, {}, [&](const RemoteError &) { ++told; });
        };
        AddressBook cancelled(at(server), {});
        ask(cancelled);
        {
            AddressBook deleted(at(server), {});
            ask(deleted);
            QTest::qWait(wait);
        }
        cancelled.cancel();
        const int before = told;
        QTest::qWait(150);
        QCOMPARE(told, before);
        const qsizetype heard = server.pedidos.size();
        QTest::qWait(100);
        QCOMPARE(server.pedidos.size(), heard);
        QCOMPARE(nameOf(changesSince(cancelled, {}).error), u"None"_s); // it can be used again
    }

    void an_answer_may_give_up_or_delete_the_book_data()
    {
        QTest::addColumn<QString>("when");
        QTest::addColumn<bool>("deletes");
        for (const char *when : {"changes", "portion", "single", "end", "written", "removed"})
            for (const bool deletes : {false, true})
                QTest::addRow("%s, %s", when, deletes ? "deleted" : "given up")
                    << QString::fromLatin1(when) << deletes;
    }
    void an_answer_may_give_up_or_delete_the_book()
    {
        QFETCH(QString, when);
        QFETCH(bool, deletes);
        LivroDav remote;
        remote.conhece_multiget = when != "single"_L1;
        for (int number = 0; number < 150; ++number)
            remote.Por(QByteArray::number(number) + ".vcf", card("A"));
        ServidorHttp server(std::ref(remote));
        auto book = std::make_unique<AddressBook>(at(server), RemoteAccount{});
        int told = 0;
        const auto answer = [&] {
            ++told;
            if (deletes)
                book.reset();
            else
                book->cancel();
        };
        QStringList hrefs;
        for (int number = 0; number < 150; ++number)
            hrefs << path + u"%1.vcf"_s.arg(number);
        const bool ofFetch = when == "portion"_L1 || when == "single"_L1;
        if (when == "changes"_L1)
            book->changesSince({}, [&](const RemoteError &, const RemoteChanges &) { answer(); });
        else if (ofFetch || when == "end"_L1)
            book->fetch(
                hrefs, [&](const QList<RemoteCard> &) { ofFetch ? answer() : void(); },
                [&](const RemoteError &) { answer(); });
        else if (when == "written"_L1)
            for (int number = 0; number < 9; ++number)
                book->create(book->hrefFor(u"n%1"_s.arg(number)), card("B"),
                             [&](const RemoteError &, const RemoteWritten &) { answer(); });
        else
            for (const QString &href : std::as_const(hrefs))
                book->remove(href, {}, [&](const RemoteError &) { answer(); });
        QTRY_VERIFY_WITH_TIMEOUT(told > 0, patience);
        QTest::qWait(100);
        QCOMPARE(told, 1);
    }

    void the_interface_is_never_kept_waiting()
    {
        LivroDav remote;
        for (int number = 0; number < 5000; ++number)
            remote.Por(QByteArray::number(number) + ".vcf", card("A"));
        const QByteArray list = remote({"PROPFIND", path.toLatin1(), {{"depth", "1"}}, {}}).corpo;
        ServidorHttp server([&](const Pedido &) { return Resposta::Xml(list); });
        AddressBook book(at(server), {});
        const Pausas pauses;
        QCOMPARE(changesSince(book, {}).changed.size(), 5000);
        QVERIFY2(pauses.maior < blocked, qPrintable(QString::number(pauses.maior)));
    }
};

MORVEX_TESTE(TestDavExchange)
#include "test_DavExchange.moc"
