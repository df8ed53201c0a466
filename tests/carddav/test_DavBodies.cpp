// The questions as they go to a server: verb, headers and body, letter by letter.
#include "Asking.h"
#include "carddav/DavBodies.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace asking;

namespace
{
const QUrl url(u"https://dav.example.org/b/"_s);
const QByteArray spaces = " xmlns:D=\"DAV:\" xmlns:C=\"urn:ietf:params:xml:ns:carddav\"";

QByteArray document(const QByteArray &root, const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<" + root + spaces + ">" + content + "</" + root +
           ">";
}
} // namespace

class TestDavBodies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_question_is_worded_as_servers_read_it_data()
    {
        QTest::addColumn<DavRequest>("request");
        QTest::addColumn<QByteArray>("verb");
        QTest::addColumn<QByteArray>("depth");
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("properties of the thing itself")
            << dav::propfind(url, "0", "<D:getetag/>") << QByteArray("PROPFIND") << QByteArray("0")
            << document("D:propfind", "<D:prop><D:getetag/></D:prop>");
        QTest::newRow("properties of what is in it")
            << dav::propfind(url, "1", "<D:displayname/>") << QByteArray("PROPFIND") << QByteArray("1")
            << document("D:propfind", "<D:prop><D:displayname/></D:prop>");
        QTest::newRow("what has happened since")
            << dav::syncCollection(url, "t&1") << QByteArray("REPORT") << QByteArray("0")
            << document("D:sync-collection",
                        "<D:sync-token>t&amp;1</D:sync-token><D:sync-level>1</D:sync-level>"
                        "<D:prop><D:getetag/></D:prop>");
        QTest::newRow("many cards") << dav::multiget(url, {u"/b/1.vcf"_s, u"/b/a&b.vcf"_s})
                                    << QByteArray("REPORT") << QByteArray("1")
                                    << document("C:addressbook-multiget",
                                                "<D:prop><D:getetag/><C:address-data/></D:prop>"
                                                "<D:href>/b/1.vcf</D:href><D:href>/b/a&amp;b.vcf</D:href>");
    }
    void a_question_is_worded_as_servers_read_it()
    {
        QFETCH(DavRequest, request);
        QCOMPARE(request.url, url);
        QTEST(request.verb, "verb");
        QTEST(request.body, "body");
        QCOMPARE(request.bodyType, QByteArray("application/xml; charset=utf-8"));
        QFETCH(QByteArray, depth);
        QCOMPARE(request.headers, (QList<std::pair<QByteArray, QByteArray>>{{"Depth", depth}}));
        QVERIFY(!request.isCard && !request.writes());
    }

    void a_card_is_asked_for_written_and_deleted()
    {
        const DavRequest got = dav::get(url);
        QCOMPARE(got.verb, QByteArray("GET"));
        QCOMPARE(got.headers, (QList<std::pair<QByteArray, QByteArray>>{
                                  {"Accept", "text/vcard, text/x-vcard;q=0.9, */*;q=0.1"}}));
        QVERIFY(got.isCard && got.body.isEmpty() && got.bodyType.isEmpty() && !got.writes());
        const DavRequest put = dav::put(url, "card");
        QCOMPARE(put.verb, QByteArray("PUT"));
        QCOMPARE(put.body, QByteArray("card"));
        QCOMPARE(put.bodyType, QByteArray("text/vcard; charset=utf-8"));
        QVERIFY(!put.isCard && put.headers.isEmpty() && put.writes());
        const DavRequest removed = dav::remove(url);
        QCOMPARE(removed.verb, QByteArray("DELETE"));
        QVERIFY(!removed.isCard && removed.headers.isEmpty() && removed.body.isEmpty() && removed.writes());
    }

    // A small answer must not unfold into a large one, and nobody is to be known again by what he was given.
    void whoever_asks_says_who_he_is_wants_nothing_packed_and_keeps_no_mark_of_the_server()
    {
        LivroDav remote;
        remote.conhece_multiget = false;
        ServidorHttp server([&](const Pedido &asked) {
            Resposta answer = remote(asked);
            answer.cabecalhos << "Set-Cookie: seen=1; Path=/";
            return answer;
        });
        AddressBook book(QUrl(server.Endereco(u"/dav/ana/contactos/"_s)), {});
        changesSince(book, {});
        create(book, book.hrefFor(u"n"_s), card("A"));
        fetch(book, {book.hrefFor(u"n"_s)});
        remove(book, book.hrefFor(u"n"_s), {});
        QCOMPARE(server.Verbos(), (QList<QByteArray>{"REPORT", "PUT", "REPORT", "GET", "DELETE"}));
        for (const Pedido &asked : std::as_const(server.pedidos)) {
            QCOMPARE(asked["user-agent"], QByteArray("Morvex"));
            QCOMPARE(asked["accept-encoding"], QByteArray("identity"));
            QVERIFY(!asked.cabecalhos.contains("cookie"));
        }
        QCOMPARE(server.pedidos.at(0)["depth"], QByteArray("0"));
        QCOMPARE(server.pedidos.at(0)["content-type"], QByteArray("application/xml; charset=utf-8"));
        QCOMPARE(server.pedidos.at(1)["if-none-match"], QByteArray("*"));
        QCOMPARE(server.pedidos.at(2)["depth"], QByteArray("1"));
        QCOMPARE(server.pedidos.at(1)["content-length"], QByteArray::number(card("A").size()));
        for (const int withoutBody : {3, 4})
            QVERIFY(!server.pedidos.at(withoutBody).cabecalhos.contains("content-length"));
    }

    // What is not asked for a server need not tell.
    void the_list_is_asked_for_kinds_and_marks_and_the_search_for_books_and_the_ways_to_them()
    {
        LivroDav remote;
        remote.conhece_sync = false;
        ServidorHttp server(std::ref(remote));
        AddressBook book(QUrl(server.Endereco(u"/dav/ana/contactos/"_s)), {});
        changesSince(book, {});
        const Pedido list = server.pedidos.constLast();
        QCOMPARE(list["depth"], QByteArray("1"));
        QCOMPARE(list.corpo, document("D:propfind", "<D:prop><D:resourcetype/><D:getetag/></D:prop>"));

        ServidorHttp empty([](const Pedido &) { return Resposta{404}; });
        QCOMPARE(nameOf(find(empty.Endereco(u"/start/"_s)).error), u"NoBook"_s);
        const QByteArray told = "<D:resourcetype/><D:displayname/><D:current-user-privilege-set/>";
        const QByteArray ways = "<D:current-user-principal/><C:addressbook-home-set/>";
        QStringList asked;
        for (const Pedido &one : std::as_const(empty.pedidos)) {
            asked << QString::fromLatin1(one.caminho + ' ' + one["depth"]);
            QCOMPARE(one.corpo,
                     document("D:propfind",
                              "<D:prop>" + told + (one["depth"] == "0" ? ways : QByteArray()) + "</D:prop>"));
        }
        QCOMPARE(asked, (QStringList{u"/start/ 0"_s, u"/start/ 1"_s, u"/.well-known/carddav 0"_s,
                                     u"/.well-known/carddav 1"_s, u"/ 0"_s, u"/ 1"_s}));
    }
};

MORVEX_TESTE(TestDavBodies)
#include "test_DavBodies.moc"
