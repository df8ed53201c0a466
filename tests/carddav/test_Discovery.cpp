// Address books are found from whatever address a person knows.
#include "Asking.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace asking;

namespace
{
const RemoteAccount ana{u"ana"_s, u"segredo9"_s};

QStringList addressesOf(const Found &found)
{
    QStringList result;
    for (const FoundBook &book : found.books)
        result << book.address.path(QUrl::FullyEncoded);
    return result;
}
} // namespace

class TestDiscovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_book_is_found_from_the_server_the_home_and_the_book_data()
    {
        QTest::addColumn<QString>("path");
        for (const char *path : {"/", "", "/dav/ana/", "/dav/ana", "/dav/ana/contactos/",
                                 "/dav/ana/contactos", "/dav/pessoas/ana/", "/nothing/here/"})
            QTest::newRow(*path ? path : "none") << QString::fromLatin1(path);
    }
    void the_book_is_found_from_the_server_the_home_and_the_book()
    {
        QFETCH(QString, path);
        LivroDav book;
        book.entrada = LivroDav::Entrada::Basica;
        book.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.caminho == "/dav/ana") return Resposta::Para(u"/dav/ana/"_s);
            if (asked.caminho == "/dav/ana/contactos") return Resposta::Para(u"/dav/ana/contactos/"_s, 302);
            return std::nullopt;
        };
        ServidorHttp server(std::ref(book));
        const Found found = find(server.Endereco(path), ana);
        QCOMPARE(nameOf(found.error), u"None"_s);
        QCOMPARE(addressesOf(found), QStringList{u"/dav/ana/contactos/"_s});
        QCOMPARE(found.books[0].name, u"Contactos"_s);
        QVERIFY(found.books[0].mayWrite);
        QVERIFY(!found.books[0].exposed); // it does not leave this machine
        QCOMPARE(found.answers, 1);
    }

    void an_address_without_a_scheme_is_enough_on_this_machine()
    {
        LivroDav book;
        ServidorHttp server(std::ref(book));
        QCOMPARE(addressesOf(find(u"127.0.0.1:%1"_s.arg(server.serverPort()))),
                 QStringList{u"/dav/ana/contactos/"_s});
    }

    void what_is_no_address_is_told_and_nothing_is_asked()
    {
        const Found found = find(u"ftp://x/"_s);
        QCOMPARE(nameOf(found.error), u"Address"_s);
        QCOMPARE(found.error.status, 0); // nobody was asked
        QVERIFY(found.books.isEmpty());
    }

    void the_servers_own_word_leads_to_the_book()
    {
        LivroDav book;
        book.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.caminho == "/.well-known/carddav") return Resposta::Para(u"/remote.php/dav/"_s);
            if (asked.caminho == "/remote.php/dav/")
                return Resposta::Xml(LivroDav::Multistatus(
                    LivroDav::Uma("/remote.php/dav/", "<d:current-user-principal><d:href>/dav/pessoas/ana/</"
                                                      "d:href></d:current-user-principal>")));
            if (asked.caminho == "/")
                return Resposta{200, "<html>welcome</html>", {"Content-Type: text/html"}};
            return std::nullopt;
        };
        ServidorHttp server(std::ref(book));
        QCOMPARE(addressesOf(find(server.Endereco())), QStringList{u"/dav/ana/contactos/"_s});
    }

    void a_book_of_somebody_elses_home_is_preferred_to_ones_own()
    {
        LivroDav book;
        book.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.caminho != "/dav/rui/") return std::nullopt;
            const QByteArray own = "<d:current-user-principal><d:href>" + book.principal +
                                   "</d:href></d:current-user-principal>";
            const QByteArray shared = LivroDav::Uma(
                "/dav/rui/equipa/", "<d:resourcetype><d:collection/><c:addressbook/></d:resourcetype>"
                                    "<d:current-user-privilege-set><d:privilege><d:read/></d:privilege>"
                                    "</d:current-user-privilege-set>");
            return Resposta::Xml(LivroDav::Multistatus(LivroDav::Uma("/dav/rui/", own) +
                                                       (asked["depth"] == "1" ? shared : QByteArray())));
        };
        ServidorHttp server(std::ref(book));
        const Found found = find(server.Endereco(u"/dav/rui/"_s));
        QCOMPARE(addressesOf(found), QStringList{u"/dav/rui/equipa/"_s});
        QCOMPARE(found.books[0].name, u"equipa"_s); // it has no name of its own
        QVERIFY(!found.books[0].mayWrite);
    }

    void a_book_that_tells_no_rights_is_taken_to_be_writable()
    {
        LivroDav book;
        book.antes = [](const Pedido &) -> std::optional<Resposta> {
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma("/b/", "<d:resourcetype><c:addressbook/></d:resourcetype>")));
        };
        ServidorHttp server(std::ref(book));
        QVERIFY(find(server.Endereco()).books.value(0, FoundBook{{}, {}, false}).mayWrite);
    }

    void a_book_is_named_once_and_a_calendar_is_none()
    {
        LivroDav book;
        book.antes = [](const Pedido &) -> std::optional<Resposta> {
            const QByteArray one = "<d:resourcetype><d:collection/><c:addressbook/></d:resourcetype>";
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Uma("/b@/", one) +
                                      LivroDav::Uma("/c/", "<d:resourcetype><d:collection/><x:calendar "
                                                           "xmlns:x='urn:ietf:params:xml:ns:caldav'/>"
                                                           "</d:resourcetype>") +
                                      "<d:response><d:href>/b%40/</d:href><d:propstat><d:prop>" + one +
                                      "</d:prop></d:propstat></d:response>"));
        };
        ServidorHttp server(std::ref(book));
        QCOMPARE(addressesOf(find(server.Endereco())), QStringList{u"/b%40/"_s});
    }

    void a_server_without_address_books_is_told_apart_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("kind");
        QTest::newRow("web pages") << 200 << QByteArray("<html/>") << u"NoBook"_s;
        QTest::newRow("does not know the question") << 405 << QByteArray() << u"NoBook"_s;
        QTest::newRow("nothing there") << 404 << QByteArray() << u"NoBook"_s;
        QTest::newRow("empty list") << 207 << LivroDav::Multistatus({}) << u"NoBook"_s;
        QTest::newRow("rubbish") << 207 << QByteArray("rubbish") << u"NoBook"_s;
        QTest::newRow("not for this person") << 403 << QByteArray() << u"Forbidden"_s;
        QTest::newRow("it is broken") << 500 << QByteArray() << u"Server"_s;
        QTest::newRow("it is down") << 503 << QByteArray() << u"Server"_s;
    }
    void a_server_without_address_books_is_told_apart()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, kind);
        ServidorHttp server([=](const Pedido &) { return Resposta{status, body}; });
        const Found found = find(server.Endereco());
        QCOMPARE(nameOf(found.error), kind);
        QVERIFY(found.books.isEmpty());
    }

    // Of several refusals the first is told, but a wrong password before all; what tells nothing, never.
    void of_several_refusals_one_is_told_data()
    {
        QTest::addColumn<QList<int>>("statuses"); // at and in the place, the server's word, its root
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("questions");
        QTest::newRow("the first") << QList<int>{403, 500, 500, 500, 500, 500} << u"Forbidden"_s << 6;
        QTest::newRow("the first that tells anything")
            << QList<int>{404, 405, 412, 500, 403, 403} << u"Server"_s << 6;
        QTest::newRow("a password behind another") << QList<int>{403, 401} << u"Password"_s << 2;
        QTest::newRow("none") << QList<int>{404, 410, 405, 501, 412, 404} << u"NoBook"_s << 6;
    }
    void of_several_refusals_one_is_told()
    {
        QFETCH(QList<int>, statuses);
        QFETCH(QString, kind);
        QFETCH(int, questions);
        ServidorHttp server([&](const Pedido &) { return Resposta{statuses.takeFirst()}; });
        const Found found = find(server.Endereco(u"/start/"_s), ana);
        QCOMPARE(nameOf(found.error), kind);
        QCOMPARE(server.pedidos.size(), questions);
        if (kind != u"NoBook"_s) return;
        QCOMPARE(found.error.detail, server.Endereco(u"/start/"_s));
        QCOMPARE(found.error.status, 0); // no one answer says it
    }

    void a_place_that_hangs_up_does_not_end_the_search_but_the_first()
    {
        LivroDav book;
        book.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.caminho == "/start/") return Resposta{404};
            if (asked.caminho.startsWith("/.well-known/"))
                return Resposta{0, {}, {}, Resposta::Depois::Fecha, "\n"};
            return std::nullopt;
        };
        ServidorHttp server(std::ref(book));
        QCOMPARE(addressesOf(find(server.Endereco(u"/start/"_s))), QStringList{u"/dav/ana/contactos/"_s});
        const Found found = find(server.Endereco(u"/.well-known/"_s));
        QCOMPARE(nameOf(found.error), u"Interrupted"_s);
    }

    void a_wrong_password_ends_the_search_at_once()
    {
        LivroDav book;
        book.entrada = LivroDav::Entrada::Basica;
        ServidorHttp server(std::ref(book));
        QCOMPARE(nameOf(find(server.Endereco(), {u"ana"_s, u"errada"_s}).error), u"Password"_s);
        QCOMPARE(server.pedidos.size(), 2); // without it, and with it
    }

    void a_password_that_turns_out_wrong_on_the_way_ends_the_search()
    {
        LivroDav book;
        book.entrada = LivroDav::Entrada::Basica;
        book.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            return asked.caminho == "/open/" ? std::optional(Resposta{404}) : std::nullopt;
        };
        ServidorHttp server(std::ref(book));
        QCOMPARE(nameOf(find(server.Endereco(u"/open/"_s), {u"ana"_s, u"errada"_s}).error), u"Password"_s);
        QCOMPARE(server.pedidos.size(), 4); // at and in the open place, then without the password and with it
    }

    void an_address_that_leads_to_another_server_does_not_end_the_search()
    {
        LivroDav there;
        there.entrada = LivroDav::Entrada::Basica;
        ServidorHttp second(std::ref(there));
        LivroDav book;
        book.antes = [&second](const Pedido &asked) -> std::optional<Resposta> {
            if (!asked.caminho.startsWith("/start/")) return std::nullopt;
            return Resposta::Para(second.Endereco(QString::fromLatin1(asked.caminho)));
        };
        ServidorHttp server(std::ref(book));
        QCOMPARE(addressesOf(find(server.Endereco(u"/start/"_s), ana)),
                 QStringList{u"/dav/ana/contactos/"_s});
        QVERIFY(!second.pedidos.isEmpty());
    }

    void a_server_that_does_not_answer_is_not_asked_at_every_place()
    {
        ServidorHttp server([](const Pedido &) { return Resposta::Calada(); });
        RemoteLimits limits;
        limits.stillness = std::chrono::milliseconds(300);
        QCOMPARE(nameOf(find(server.Endereco(), ana, limits).error), u"TimedOut"_s);
        QCOMPARE(server.pedidos.size(), 1);
    }

    void a_home_on_another_server_is_told_and_gets_no_password()
    {
        LivroDav there;
        there.entrada = LivroDav::Entrada::Basica;
        ServidorHttp second(std::ref(there));
        LivroDav here;
        here.entrada = LivroDav::Entrada::Basica;
        here.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.caminho != "/" || asked["authorization"].isEmpty()) return std::nullopt;
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma("/", "<c:addressbook-home-set><d:href>" +
                                       u"http://localhost:%1/dav/ana/"_s.arg(second.serverPort()).toUtf8() +
                                       "</d:href></c:addressbook-home-set>")));
        };
        ServidorHttp first(std::ref(here));
        here.casa = here.livro = here.principal = "/none/";
        const Found found = find(first.Endereco(), ana);
        QCOMPARE(nameOf(found.error), u"Elsewhere"_s);
        QCOMPARE(found.error.detail, u"http://localhost:%1/dav/ana/"_s.arg(second.serverPort()));
        QVERIFY(!second.pedidos.isEmpty());
        for (const Pedido &asked : std::as_const(second.pedidos))
            QVERIFY(asked["authorization"].isEmpty());
        // Agreed to, it is an address like any other.
        QCOMPARE(addressesOf(find(found.error.detail, ana)), QStringList{u"/dav/ana/contactos/"_s});
    }

    void a_book_on_another_server_is_not_offered_as_one_of_this_data()
    {
        QTest::addColumn<bool>("redirected");
        QTest::newRow("named by this one") << false;
        QTest::newRow("found where this one leads") << true;
    }
    void a_book_on_another_server_is_not_offered_as_one_of_this()
    {
        QFETCH(bool, redirected);
        LivroDav there; // open to all
        ServidorHttp second(std::ref(there));
        const QString other = u"http://localhost:%1/dav/ana/contactos/"_s.arg(second.serverPort());
        ServidorHttp first([&](const Pedido &) {
            if (redirected) return Resposta::Para(other);
            return Resposta::Xml(
                LivroDav::Multistatus("<d:response><d:href>" + other.toUtf8() +
                                      "</d:href><d:propstat><d:prop><d:resourcetype><c:addressbook/></"
                                      "d:resourcetype></d:prop></d:propstat>"
                                      "</d:response>"));
        });
        const Found found = find(first.Endereco(), ana);
        QCOMPARE(nameOf(found.error), u"Elsewhere"_s);
        QCOMPARE(found.error.detail, other);
        QVERIFY(found.books.isEmpty());
    }

    void a_server_that_leads_on_and_on_is_left()
    {
        int number = 0;
        ServidorHttp server([&number](const Pedido &) {
            const QByteArray next = "/" + QByteArray::number(++number) + "/";
            return Resposta::Xml(LivroDav::Multistatus(LivroDav::Uma(
                "/", "<d:current-user-principal><d:href>" + next + "</d:href></d:current-user-principal>")));
        });
        QCOMPARE(nameOf(find(server.Endereco()).error), u"NoBook"_s);
        QCOMPARE(server.pedidos.size(), 30);
    }

    void a_search_may_be_given_up_at_any_moment()
    {
        LivroDav book;
        ServidorHttp server([&book](const Pedido &asked) {
            Resposta answer = book(asked);
            answer.atraso = 30;
            return answer;
        });
        for (const int wait : {0, 1, 10, 40, 70}) {
            bool told = false;
            {
                Discovery discovery(server.Endereco(), ana);
                discovery.start([&told](const RemoteError &, const QList<FoundBook> &) { told = true; });
                QTest::qWait(wait);
            }
            QTest::qWait(80);
            QVERIFY(!told);
        }
        QTRY_COMPARE(server.Ligacoes(), 0);
    }

    void the_answer_may_delete_the_search()
    {
        LivroDav book;
        ServidorHttp server(std::ref(book));
        auto discovery = std::make_unique<Discovery>(server.Endereco(), ana);
        bool told = false;
        discovery->start([&](const RemoteError &, const QList<FoundBook> &books) {
            discovery.reset();
            told = books.size() == 1;
        });
        QTRY_VERIFY(told);
    }
};

MORVEX_TESTE(TestDiscovery)
#include "test_Discovery.moc"
