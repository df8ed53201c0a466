// How cards are fetched and written, whatever the server is like.
#include "Asking.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace asking;

class TestCards : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cards_are_fetched_by_the_hundred()
    {
        Book book(250);
        const Fetched cards = fetch(book.local, book.hrefs(250));
        QCOMPARE(nameOf(cards.error), u"None"_s);
        QCOMPARE(cards.told, 250);
        QCOMPARE(cards.ends, 1);
        QList<qsizetype> asked;
        for (const Pedido &question : std::as_const(book.server.pedidos))
            asked << question.corpo.count("<D:href>");
        QCOMPARE(asked, (QList<qsizetype>{100, 100, 50}));
        QCOMPARE(book.server.Verbos(), (QList<QByteArray>{"REPORT", "REPORT", "REPORT"}));
        const RemoteCard one = cards.cards.value(book.href(u"7.vcf"_s));
        QCOMPARE(one.text, card("C7").replace("\r\n", "\n")); // as an answer in XML brings line ends
        QCOMPARE(one.etag, QByteArray("\"e7\""));
        QVERIFY(!one.error);
    }

    void names_with_strange_signs_are_fetched_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"a@b.vcf", "a b.vcf", "é.vcf", "100%.vcf", "a&b<c>\"'.vcf", "a+b;c=d.vcf", "a#b?c.vcf"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }
    void names_with_strange_signs_are_fetched()
    {
        QFETCH(QString, name);
        Book book;
        for (const bool asksMany : {true, false}) {
            book.remote.conhece_multiget = asksMany;
            book.remote.Por(name.toUtf8(), card("X"));
            const Changes changes = changesSince(book.local, {});
            QCOMPARE(changes.changed.size(), 1);
            const QString href = changes.changed[0].href;
            const Fetched cards = fetch(book.local, {href});
            QVERIFY2(!cards.error, qPrintable(nameOf(cards.error)));
            QCOMPARE(cards.told, 1);
            QVERIFY2(cards.cards.value(href).text.contains("FN:X"), qPrintable(href));
            const Written state = replace(book.local, href, cards.cards.value(href).etag, card("Y"));
            QCOMPARE(nameOf(state.error), u"None"_s);
            QCOMPARE(book.remote.cartoes.size(), 1);
        }
    }

    void a_server_that_refuses_to_give_many_gives_them_singly()
    {
        Book book(20);
        book.remote.conhece_multiget = false;
        const Fetched cards = fetch(book.local, book.hrefs(20));
        QVERIFY(!cards.error);
        QCOMPARE(cards.cards.size(), 20);
        QCOMPARE(cards.cards.value(book.href(u"3.vcf"_s)).text, card("C3"));
        QCOMPARE(book.server.Verbos().count("GET"), 20);
        QCOMPARE(book.server.pedidos.constLast()["cache-control"], QByteArray("no-cache")); // of nobody between
        fetch(book.local, book.hrefs(2));
        QCOMPARE(book.server.Verbos().count("REPORT"), 1); // what it refused once it is not asked again
    }

    void every_card_is_told_once_with_what_is_the_matter_with_it()
    {
        Book book(5);
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            const QByteArray name = asked.caminho.mid(book.remote.livro.size());
            if (asked.verbo == "GET" && name == "2.vcf") return Resposta{403};
            if (asked.verbo == "GET" && name == "3.vcf")
                return Resposta{200, "<html>log in</html>", {"Content-Type: text/html"}};
            if (asked.verbo == "GET" && name == "4.vcf") return Resposta{500};
            return std::nullopt;
        };
        book.remote.conhece_multiget = false;
        QStringList hrefs = book.hrefs(5);
        hrefs << book.href(u"gone.vcf"_s) << hrefs.constFirst(); // one is named twice
        const Fetched cards = fetch(book.local, hrefs);
        QVERIFY(!cards.error);
        QCOMPARE(cards.told, 6);
        QStringList kinds;
        for (const RemoteCard &one : cards.cards)
            kinds << nameOf(one.error);
        QCOMPARE(kinds, (QStringList{u"None"_s, u"Forbidden"_s, u"Malformed"_s, u"Server"_s, u"None"_s,
                                     u"NotFound"_s}));
        QVERIFY(cards.cards.value(book.href(u"4.vcf"_s)).text.isEmpty());
    }

    // A page of a network that asks its guests to log in may have anything in it.
    void what_comes_for_a_card_is_judged_by_its_kind_and_its_beginning_data()
    {
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QByteArray>("before"); // the card
        QTest::addColumn<QString>("detail");    // none for a card
        QTest::newRow("a card") << QByteArray("text/vcard") << QByteArray() << QString();
        QTest::newRow("of no kind") << QByteArray() << QByteArray(" \r\n") << QString();
        QTest::newRow("with a mark") << QByteArray("text/x-vcard; charset=utf-8") << QByteArray("\xEF\xBB\xBF")
                                     << QString();
        QTest::newRow("a page") << QByteArray("text/HTML; charset=utf-8") << QByteArray()
                                << u"no card, but text/html"_s;
        QTest::newRow("a stricter page") << QByteArray("application/xhtml+xml") << QByteArray()
                                         << u"no card, but application/xhtml+xml"_s;
        QTest::newRow("something before it") << QByteArray("text/vcard") << QByteArray("x")
                                             << u"no card, but text/vcard"_s;
    }
    void what_comes_for_a_card_is_judged_by_its_kind_and_its_beginning()
    {
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, before);
        QFETCH(QString, detail);
        Book book;
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "GET") return Resposta{501};
            return Resposta{200, before + card("A"), {"Content-Type: " + type}};
        };
        const RemoteCard found = fetch(book.local, book.hrefs(1)).cards.value(book.href(u"1.vcf"_s));
        QCOMPARE(nameOf(found.error), detail.isEmpty() ? u"None"_s : u"Malformed"_s);
        QCOMPARE(found.error.detail, detail);
    }

    void whoever_waits_behind_a_fetching_that_ends_has_his_turn()
    {
        Book book;
        int written = 0;
        bool first = true;
        book.remote.conhece_multiget = false;
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "GET") return std::nullopt;
            for (int number = 0; number < 8 && first; ++number)
                book.local.create(book.local.hrefFor(u"n%1"_s.arg(number)), card("A"),
                                  [&](const RemoteError &error, const RemoteWritten &) { written += error ? 0 : 1; });
            first = false;
            return Resposta{401};
        };
        QCOMPARE(nameOf(fetch(book.local, book.hrefs(30)).error), u"Password"_s);
        await([&] { return written == 8; });
        QCOMPARE(written, 8);
    }

    void what_an_answer_for_many_leaves_open_is_asked_singly()
    {
        Book book(4);
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            const QByteArray at = book.remote.livro;
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(at + "1.vcf", "<c:address-data>BEGIN:VCARD</c:address-data>") + // told twice
                LivroDav::Uma(at + "1.vcf", "<c:address-data>BEGIN:VCARD again</c:address-data>") +
                LivroDav::Uma(at + "2.vcf", "<d:getetag>1</d:getetag>") + // without the card
                LivroDav::Uma(at + "3.vcf", "<c:address-data> </c:address-data>") +
                LivroDav::Uma(at + "never-asked.vcf", "<c:address-data>BEGIN:VCARD</c:address-data>")));
        };
        const Fetched cards = fetch(book.local, book.hrefs(4));
        QCOMPARE(cards.told, 4);
        QCOMPARE(cards.cards.value(book.href(u"1.vcf"_s)).text, QByteArray("BEGIN:VCARD"));
        QCOMPARE(cards.cards.value(book.href(u"2.vcf"_s)).text, card("C2"));
        QCOMPARE(cards.cards.value(book.href(u"3.vcf"_s)).text, card("C3"));
        QCOMPARE(cards.cards.value(book.href(u"4.vcf"_s)).text, card("C4"));
    }

    // A control character in one card makes XML of all unreadable.
    void a_slip_in_one_card_does_not_cost_the_others()
    {
        Book book(250);
        book.remote.Por("105.vcf", card("C\x01"
                                        "105"));
        const Fetched cards = fetch(book.local, book.hrefs(250));
        QVERIFY(!cards.error);
        QCOMPARE(cards.cards.size(), 250);
        QCOMPARE(cards.cards.value(book.href(u"105.vcf"_s)).text, card("C\x01"
                                                                       "105"));
        QCOMPARE(book.server.Verbos().count("REPORT"), 3);
        QCOMPARE(book.server.Verbos().count("GET"), 100);
    }

    void nothing_asked_for_is_told_at_once_but_not_within_the_call()
    {
        Book book;
        bool ended = false;
        book.local.fetch(
            {}, [](const QList<RemoteCard> &) {}, [&](const RemoteError &error) { ended = !error; });
        QVERIFY(!ended);
        QTRY_VERIFY(ended);
        QVERIFY(book.server.pedidos.isEmpty());
    }

    void a_new_card_is_created_only_where_there_is_none()
    {
        Book book;
        const QString href = book.local.hrefFor(u"uid-1"_s);
        QCOMPARE(href, book.href(u"uid-1.vcf"_s));
        const Written first = create(book.local, href, card("Ana"));
        QCOMPARE(nameOf(first.error), u"None"_s);
        QCOMPARE(first.href, href);
        QCOMPARE(first.etag, QByteArray("\"e1\""));
        QVERIFY(first.text.isEmpty());
        QCOMPARE(book.remote.cartoes.value(href.toLatin1()).texto, card("Ana"));
        QCOMPARE(book.server.pedidos.last()["content-type"], QByteArray("text/vcard; charset=utf-8"));
        const Written second = create(book.local, href, card("Rui"));
        QCOMPARE(nameOf(second.error), u"Changed"_s);
        QCOMPARE(book.remote.cartoes.value(href.toLatin1()).texto, card("Ana"));
    }

    void a_changed_card_is_replaced_only_in_the_state_last_seen()
    {
        Book book(1);
        const QString href = book.href(u"1.vcf"_s);
        const Written first = replace(book.local, href, "\"e1\"", card("Outra"));
        QCOMPARE(nameOf(first.error), u"None"_s);
        QCOMPARE(first.etag, QByteArray("\"e2\""));
        const Written late = replace(book.local, href, "\"e1\"", card("Tarde"));
        QCOMPARE(nameOf(late.error), u"Changed"_s);
        QCOMPARE(late.error.status, 412);
        QCOMPARE(book.remote.cartoes.value(href.toLatin1()).texto, card("Outra"));
        QCOMPARE(nameOf(replace(book.local, href, {}, card("Sem marca")).error), u"None"_s);
        book.remote.Tirar("1.vcf");
        QCOMPARE(nameOf(replace(book.local, href, {}, card("Nada")).error), u"Changed"_s);
        QVERIFY(book.remote.cartoes.isEmpty());
    }

    void a_card_that_is_gone_counts_as_changed_to_whoever_wants_to_replace_it()
    {
        Book book;
        book.remote.antes = [](const Pedido &) -> std::optional<Resposta> { return Resposta{404}; };
        QCOMPARE(nameOf(replace(book.local, book.href(u"1.vcf"_s), "\"e1\"", card("A")).error), u"Changed"_s);
    }

    void an_answer_without_a_mark_is_completed_by_fetching_the_card()
    {
        Book book(1);
        book.remote.da_etag_ao_escrever = false;
        book.remote.reescreve = true;
        const QString href = book.local.hrefFor(u"n"_s);
        const Written created = create(book.local, href, "BEGIN:VCARD\r\nX-ABLabel:a\r\nEND:VCARD\r\n");
        QCOMPARE(created.etag, QByteArray("\"e2\""));
        QCOMPARE(created.text, QByteArray("BEGIN:VCARD\r\nX-ABLABEL:a\r\nEND:VCARD\r\n"));
        const Written replaced = replace(book.local, book.href(u"1.vcf"_s), "\"e1\"", card("B"));
        QCOMPARE(replaced.etag, QByteArray("\"e3\""));
        QCOMPARE(replaced.text, card("B"));
    }

    void a_card_is_written_even_where_its_state_cannot_be_learned()
    {
        Book book;
        book.remote.da_etag_ao_escrever = false;
        book.remote.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            return asked.verbo == "GET" ? std::optional(Resposta{500, "sorry", {"ETag: \"of the page\""}})
                                        : std::nullopt;
        };
        const Written created = create(book.local, book.local.hrefFor(u"n"_s), card("A"));
        QCOMPARE(nameOf(created.error), u"None"_s);
        QVERIFY(created.etag.isEmpty() && created.text.isEmpty());
        QCOMPARE(book.remote.cartoes.size(), 1);
    }

    void a_deletion_that_is_refused_within_a_list_is_told()
    {
        Book book(1);
        book.remote.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "DELETE") return std::nullopt;
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Sem(book.remote.livro + "1.vcf", "423 Locked")));
        };
        const RemoteError refused = remove(book.local, book.href(u"1.vcf"_s), {}).error;
        QCOMPARE(nameOf(refused), u"Server"_s);
        QCOMPARE(refused.status, 207);
        QCOMPARE(refused.detail, u"not deleted"_s);
    }

    void what_a_list_says_of_a_deletion_counts_by_its_status_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<QString>("kind");
        QTest::newRow("done") << QByteArray("204 No Content") << u"None"_s;
        QTest::newRow("elsewhere") << QByteArray("399 X") << u"None"_s;
        QTest::newRow("bad") << QByteArray("400 Bad Request") << u"Server"_s;
        QTest::newRow("there was none") << QByteArray("404 Not Found") << u"None"_s;
        QTest::newRow("broken") << QByteArray("500 X") << u"Server"_s;
    }
    void what_a_list_says_of_a_deletion_counts_by_its_status()
    {
        QFETCH(QByteArray, status);
        QFETCH(QString, kind);
        Book book(1);
        book.remote.antes = [&](const Pedido &) -> std::optional<Resposta> {
            return Resposta::Xml(LivroDav::Multistatus(LivroDav::Sem(book.remote.livro + "1.vcf", status)));
        };
        QCOMPARE(nameOf(remove(book.local, book.href(u"1.vcf"_s), {}).error), kind);
    }

    // A card counts as written only where the server says so.
    void only_three_words_say_that_a_card_is_written_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("written");
        for (const int status : {200, 201, 204})
            QTest::addRow("%d", status) << status << true;
        for (const int status : {202, 203, 205, 206, 208})
            QTest::addRow("%d", status) << status << false;
    }
    void only_three_words_say_that_a_card_is_written()
    {
        QFETCH(int, status);
        QFETCH(bool, written);
        Book book;
        book.remote.antes = [&](const Pedido &) -> std::optional<Resposta> {
            return Resposta{status, {}, {"ETag: \"9\"", "Location: /dav/ana/contactos/other.vcf"}};
        };
        const QString href = book.local.hrefFor(u"n"_s);
        const Written state = create(book.local, href, card("A"));
        QCOMPARE(nameOf(state.error), written ? u"None"_s : u"Malformed"_s);
        QCOMPARE(state.error.detail, written ? QString() : u"not written"_s);
        QCOMPARE(state.error.status, written ? 0 : status);
        // Only what is new can have got another name.
        if (written) QCOMPARE(state.href, status == 201 ? book.href(u"other.vcf"_s) : href);
    }

    void whether_a_card_is_gone_cannot_be_asked_without_the_password()
    {
        Book book(1);
        book.remote.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            return Resposta{asked.verbo == "DELETE" ? 412 : 401};
        };
        QCOMPARE(nameOf(remove(book.local, book.href(u"1.vcf"_s), "\"e1\"").error), u"Password"_s);
        book.remote.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            return Resposta{asked.verbo == "DELETE" ? 412 : 500};
        };
        const RemoteError error = remove(book.local, book.href(u"1.vcf"_s), "\"e1\"").error;
        QCOMPARE(nameOf(error), u"Changed"_s);
        QCOMPARE(error.status, 412);
        QCOMPARE(book.server.pedidos.constLast()["depth"], QByteArray("0"));
        QVERIFY(book.server.pedidos.constLast().corpo.contains("<D:prop><D:getetag/></D:prop>"));
    }

    void a_server_may_choose_the_name_itself()
    {
        Book book;
        book.remote.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "PUT") return std::nullopt;
            return Resposta{201, {}, {"Location: /dav/ana/contactos/own%40name.vcf", "ETag: W/\"9\""}};
        };
        const Written created = create(book.local, book.local.hrefFor(u"n"_s), card("A"));
        QCOMPARE(created.href, book.href(u"own%40name.vcf"_s));
        QCOMPARE(created.etag, QByteArray("\"9\""));
    }

    void a_card_is_removed_only_in_the_state_last_seen_and_may_be_gone_already()
    {
        Book book(2);
        const QString href = book.href(u"1.vcf"_s);
        QCOMPARE(nameOf(remove(book.local, href, "\"other\"").error), u"Changed"_s);
        QVERIFY(book.remote.cartoes.contains(href.toLatin1()));
        QCOMPARE(nameOf(remove(book.local, href, "\"e1\"").error), u"None"_s);
        QVERIFY(!book.remote.cartoes.contains(href.toLatin1()));
        QCOMPARE(nameOf(remove(book.local, href, "\"e1\"").error), u"None"_s); // the server says 412
        QCOMPARE(nameOf(remove(book.local, href, {}).error), u"None"_s);       // the server says 404
        QCOMPARE(nameOf(remove(book.local, book.href(u"2.vcf"_s), {}).error), u"None"_s);
        QVERIFY(book.remote.cartoes.isEmpty());
    }

    // A server that answers the question after it with a list, and one whose list does not name it as gone.
    void a_card_that_is_gone_may_be_told_within_a_list_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("kind");
        const QByteArray name("/dav/ana/contactos/1.vcf");
        QTest::newRow("gone") << LivroDav::Sem(name) << u"None"_s;
        QTest::newRow("locked") << LivroDav::Sem(name, "423 Locked") << u"Changed"_s;
        QTest::newRow("there") << LivroDav::Uma(name, "<d:getetag>\"9\"</d:getetag>") << u"Changed"_s;
        QTest::newRow("nothing") << QByteArray() << u"Changed"_s;
        QTest::newRow("two") << LivroDav::Sem(name) + LivroDav::Sem(name) << u"Changed"_s;
    }
    void a_card_that_is_gone_may_be_told_within_a_list()
    {
        QFETCH(QByteArray, answer);
        QFETCH(QString, kind);
        Book book(1);
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo == "DELETE") return Resposta{412};
            return Resposta::Xml(LivroDav::Multistatus(answer));
        };
        QCOMPARE(nameOf(remove(book.local, book.href(u"1.vcf"_s), "\"e1\"").error), kind);
    }

    void refusals_are_told_by_their_kind_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("kind");
        const auto row = [](const char *name, int status, const char *condition, const char *kind) {
            const QByteArray body = *condition
                                        ? QByteArray("<d:error xmlns:d='DAV:'><") + condition + "/></d:error>"
                                        : QByteArray();
            QTest::newRow(name) << status << body << QString::fromLatin1(kind);
        };
        row("forbidden", 403, "", "Forbidden");
        row("read only", 405, "", "Forbidden");
        row("full", 507, "", "NoRoom");
        row("quota", 403, "d:quota-not-exceeded", "NoRoom");
        row("card too large", 413, "", "NoRoom");
        row("card too large for the book", 403, "c:max-resource-size", "NoRoom");
        row("bad card", 400, "", "NotAccepted");
        row("bad card, by name", 403, "c:valid-address-data", "NotAccepted");
        row("unknown version", 415, "c:supported-address-data", "NotAccepted");
        row("same person under another name", 409, "c:no-uid-conflict", "Changed");
        row("book is gone", 409, "", "NotFound");
        row("locked", 423, "", "Server");
        row("too many", 429, "", "Server");
        row("broken", 500, "", "Server");
        row("down", 503, "", "Server");
        row("nonsense", 200 + 7, "", "Malformed");
        row("not modified", 304, "", "Malformed");
    }
    void refusals_are_told_by_their_kind()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, body);
        QFETCH(QString, kind);
        Book book;
        book.remote.antes = [&](const Pedido &) -> std::optional<Resposta> { return Resposta{status, body}; };
        const Written created = create(book.local, book.local.hrefFor(u"n"_s), card("A"));
        QCOMPARE(nameOf(created.error), kind);
        QCOMPARE(created.error.status, status);
        QVERIFY(!created.error.concernsAll());
    }

    void names_of_new_cards_need_no_code_data()
    {
        QTest::addColumn<QString>("uid");
        QTest::addColumn<bool>("plain");
        QTest::newRow("uuid") << u"8f4c1c1e-5c1b-4f5e-9d1a-0c1e2d3f4a5b"_s << true;
        QTest::newRow("urn") << u"urn:uuid:8f4c1c1e"_s << false;
        QTest::newRow("path") << u"../../etc/passwd"_s << false;
        QTest::newRow("hidden") << u".htaccess"_s << false;
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("as long as may be") << QString(100, u'x') << true;
        QTest::newRow("longer") << QString(101, u'x') << false;
        QTest::newRow("letters") << u"ção"_s << false;
    }
    void names_of_new_cards_need_no_code()
    {
        QFETCH(QString, uid);
        QFETCH(bool, plain);
        Book book;
        const QString name = book.local.hrefFor(uid).mid(book.href({}).size());
        QCOMPARE(book.local.hrefFor(uid), book.href(name));
        QCOMPARE(name == uid + u".vcf"_s, plain);
        QVERIFY2(QRegularExpression(u"^[A-Za-z0-9][A-Za-z0-9._~-]*\\.vcf$"_s).match(name).hasMatch(),
                 qPrintable(name));
        QCOMPARE(book.local.hrefFor(uid), book.local.hrefFor(uid));
    }

    // So that the name has room in the folder of any server.
    void a_name_of_a_hundred_letters_stays_and_a_longer_one_is_shortened()
    {
        const Book book;
        const QString longest(100, u'a');
        QCOMPARE(book.local.hrefFor(longest), book.href(longest + u".vcf"_s));
        const QString shortened = book.local.hrefFor(longest + u'a');
        QVERIFY(shortened.size() < book.href(longest).size());
        QVERIFY(shortened != book.local.hrefFor(longest + u'b'));
    }

    void a_card_of_twenty_megabytes_goes_there_and_comes_back()
    {
        Book book;
        const QByteArray large =
            card("A").replace("END:", "PHOTO;ENCODING=b:" + QByteArray(20 << 20, 'A') + "\r\nEND:");
        const QString href = book.local.hrefFor(u"n"_s);
        QCOMPARE(nameOf(create(book.local, href, large).error), u"None"_s);
        QVERIFY(book.remote.cartoes.value(href.toLatin1()).texto == large);
        for (const bool asksMany : {true, false}) {
            book.remote.conhece_multiget = asksMany;
            const QByteArray text = fetch(book.local, {href}).cards.value(href).text;
            QCOMPARE(text.size(), asksMany ? large.size() - large.count('\r') : large.size());
        }
    }

    void at_most_six_are_under_way_at_one_time()
    {
        Book book;
        LivroDav slow;
        ServidorHttp server([&slow](const Pedido &asked) {
            Resposta answer = slow(asked);
            answer.atraso = 20;
            return answer;
        });
        AddressBook local(QUrl(server.Endereco(u"/dav/ana/contactos/"_s)), {});
        int written = 0;
        QStringList order;
        for (int number = 0; number < 30; ++number)
            local.create(local.hrefFor(QString::number(number)), card("A"),
                         [&](const RemoteError &error, const RemoteWritten &) { written += error ? 0 : 1; });
        QTRY_COMPARE_WITH_TIMEOUT(written, 30, patience);
        QCOMPARE(server.mais_ao_mesmo_tempo, 6);
        QCOMPARE(slow.cartoes.size(), 30);
    }
};

MORVEX_TESTE(TestCards)
#include "test_Cards.moc"
