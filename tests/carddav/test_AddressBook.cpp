// What a book has and what has happened in it, whatever the server is like.
#include "Asking.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace asking;

class TestAddressBook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_whole_book_is_told_at_first_and_then_only_what_happened()
    {
        Book book(3);
        const Changes first = changesSince(book.local, {});
        QCOMPARE(nameOf(first.error), u"None"_s);
        QVERIFY(first.whole);
        QCOMPARE(first.names(), (QStringList{u"1.vcf"_s, u"2.vcf"_s, u"3.vcf"_s}));
        QCOMPARE(first.changed.value(0).etag, QByteArray("\"e1\""));
        QCOMPARE(first.token, book.remote.Token());

        const Changes none = changesSince(book.local, first.token);
        QVERIFY(!none.whole && none.changed.isEmpty() && none.removed.isEmpty() && !none.error);

        book.remote.Por("2.vcf", card("outra"));
        book.remote.Por("4.vcf", card("nova"));
        book.remote.Tirar("3.vcf");
        const Changes next = changesSince(book.local, none.token);
        QVERIFY(!next.whole);
        QCOMPARE(next.names(), (QStringList{u"2.vcf"_s, u"4.vcf"_s}));
        QCOMPARE(next.removed, QStringList{book.href(u"3.vcf"_s)});
        QCOMPARE(next.answers, 1);
    }

    void a_token_that_the_server_has_forgotten_brings_the_whole_book_data()
    {
        QTest::addColumn<int>("status");
        for (const int status : {400, 403, 404, 409, 410, 412, 500, 507})
            QTest::addRow("%d", status) << status;
    }
    void a_token_that_the_server_has_forgotten_brings_the_whole_book()
    {
        QFETCH(int, status);
        Book book(2);
        const Changes first = changesSince(book.local, {});
        book.remote.Tirar("1.vcf");
        book.remote.estado_do_token = status;
        const Changes next = changesSince(book.local, first.token);
        QCOMPARE(nameOf(next.error), u"None"_s);
        QVERIFY(next.whole);
        QCOMPARE(next.names(), QStringList{u"2.vcf"_s});
        QVERIFY(next.removed.isEmpty());
        QCOMPARE(next.token, book.remote.Token());
    }

    void a_token_that_was_never_one_brings_the_whole_book()
    {
        Book book(2);
        const Changes changes = changesSince(book.local, "<&\" rubbish \xC3\xA9");
        QVERIFY(changes.whole && !changes.error);
        QCOMPARE(changes.names().size(), 2);
    }

    void a_server_without_such_questions_is_asked_for_its_list_data()
    {
        QTest::addColumn<bool>("withToken");
        QTest::newRow("at first") << false;
        QTest::newRow("with a token of before") << true;
    }
    void a_server_without_such_questions_is_asked_for_its_list()
    {
        QFETCH(bool, withToken);
        Book book(3);
        book.remote.conhece_sync = false;
        const Changes changes = changesSince(book.local, withToken ? book.remote.Token() : QByteArray());
        QCOMPARE(nameOf(changes.error), u"None"_s);
        QVERIFY(changes.whole && changes.token.isEmpty());
        QCOMPARE(changes.names().size(), 3);
        QCOMPARE(changes.changed.value(2).etag, QByteArray("\"e3\""));
        QCOMPARE(book.server.Verbos().last(), QByteArray("PROPFIND"));
    }

    void where_another_question_would_fare_no_better_none_is_asked_data()
    {
        QTest::addColumn<Resposta>("answer");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("questions");
        QTest::newRow("leads to no address") << Resposta::Para(u"ftp://x/"_s) << u"Malformed"_s << 1;
        QTest::newRow("broken list") << Resposta::Xml("<d:multistatus xmlns:d='DAV:'>") << u"Malformed"_s
                                     << 1;
        QTest::newRow("too much") << Resposta{207, {}, {"Content-Length: 9999999999"}, Resposta::Depois::Cala}
                                  << u"TooBig"_s << 1;
        QTest::newRow("password") << Resposta{401} << u"Password"_s << 1;
        QTest::newRow("not for this person") << Resposta{403} << u"Forbidden"_s << 2;
        QTest::newRow("broken") << Resposta{500} << u"Server"_s << 2;
        QTest::newRow("page") << Resposta{200, "<html/>", {"Content-Type: text/html"}} << u"Malformed"_s << 2;
    }
    void where_another_question_would_fare_no_better_none_is_asked()
    {
        QFETCH(Resposta, answer);
        QFETCH(QString, kind);
        QFETCH(int, questions);
        Book book;
        book.remote.antes = [&](const Pedido &) { return std::optional(answer); };
        const Changes changes = changesSince(book.local, {});
        QCOMPARE(nameOf(changes.error), kind);
        QCOMPARE(book.server.pedidos.size(), questions);
        QCOMPARE(changes.answers, 1);
    }

    // What it told of the book until then would be half of a list.
    void a_server_that_stops_knowing_its_own_tokens_is_asked_for_its_list()
    {
        Book book(2);
        book.remote.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            if (!asked.corpo.contains("<D:sync-token></D:sync-token>")) return Resposta{403};
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(book.remote.livro + "gone.vcf", "<d:getetag>1</d:getetag>") +
                LivroDav::Sem(book.remote.livro, "507 Insufficient Storage") +
                "<d:sync-token>p1</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, "t0");
        QVERIFY(!changes.error && changes.whole && changes.token.isEmpty());
        QCOMPARE(changes.names(), (QStringList{u"1.vcf"_s, u"2.vcf"_s}));
        QCOMPARE(book.server.Verbos(), (QList<QByteArray>{"REPORT", "REPORT", "REPORT", "PROPFIND"}));
    }

    void what_was_told_before_a_token_was_refused_counts_no_more()
    {
        Book book(2);
        book.remote.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.corpo.contains("<D:sync-token></D:sync-token>")) return std::nullopt;
            if (asked.corpo.contains("p1")) return Resposta{403};
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(book.remote.livro + "1.vcf", "<d:getetag>old</d:getetag>") +
                LivroDav::Uma(book.remote.livro + "gone.vcf", "<d:getetag>1</d:getetag>") +
                LivroDav::Sem(book.remote.livro, "507 Insufficient Storage") +
                "<d:sync-token>p1</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, "t0");
        QVERIFY(!changes.error && changes.whole);
        QCOMPARE(changes.names(), (QStringList{u"1.vcf"_s, u"2.vcf"_s}));
        QCOMPARE(changes.token, book.remote.Token());
        QCOMPARE(book.server.Verbos(), (QList<QByteArray>{"REPORT", "REPORT", "REPORT"}));
    }

    void a_card_is_gone_by_either_word_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::newRow("not found") << QByteArray("404 Not Found");
        QTest::newRow("gone") << QByteArray("410 Gone");
    }
    void a_card_is_gone_by_either_word()
    {
        QFETCH(QByteArray, status);
        Book book(1);
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            const QByteArray gone = LivroDav::Sem(book.remote.livro + "1.vcf", status);
            if (asked.corpo.contains("multiget")) return Resposta::Xml(LivroDav::Multistatus(gone));
            return Resposta::Xml(LivroDav::Multistatus(gone + "<d:sync-token>t</d:sync-token>"));
        };
        QCOMPARE(changesSince(book.local, "t0").removed, QStringList{book.href(u"1.vcf"_s)});
        const Changes whole = changesSince(book.local, {});
        QVERIFY(whole.whole && whole.changed.isEmpty() && whole.removed.isEmpty());
        const Fetched cards = fetch(book.local, book.hrefs(1));
        QCOMPARE(nameOf(cards.cards.value(book.href(u"1.vcf"_s)).error), u"NotFound"_s);
        QCOMPARE(cards.cards.value(book.href(u"1.vcf"_s)).error.status, status.first(3).toInt());
    }

    void an_address_without_its_last_stroke_is_the_same_book()
    {
        Book book(1);
        AddressBook other(QUrl(book.server.Endereco(u"/dav/ana/contactos"_s)), {});
        QCOMPARE(changesSince(other, {}).names(), QStringList{u"1.vcf"_s});
        QCOMPARE(book.server.pedidos.constLast().caminho, book.remote.livro);
        QCOMPARE(other.hrefFor(u"n"_s), book.local.hrefFor(u"n"_s));
    }

    void a_list_without_marks_names_the_cards_all_the_same()
    {
        Book book(2);
        book.remote.da_etag_na_lista = false;
        const Changes changes = changesSince(book.local, {});
        QCOMPARE(changes.names().size(), 2);
        QVERIFY(changes.changed.value(0).etag.isEmpty());
    }

    void an_answer_without_a_token_means_the_whole_book_next_time()
    {
        Book book(2);
        book.remote.da_token = false;
        const Changes changes = changesSince(book.local, {});
        QVERIFY(!changes.error && changes.whole && changes.token.isEmpty());
        QCOMPARE(changes.names().size(), 2);
    }

    void an_answer_that_is_cut_off_is_continued()
    {
        Book book(25);
        book.remote.por_pagina = 10;
        const Changes first = changesSince(book.local, {});
        QVERIFY(!first.error && first.whole);
        QCOMPARE(first.names().size(), 25);
        QCOMPARE(first.token, book.remote.Token());
        QCOMPARE(book.server.pedidos.size(), 3);
        for (int number = 1; number <= 12; ++number)
            book.remote.Tirar(QByteArray::number(number) + ".vcf");
        const Changes next = changesSince(book.local, first.token);
        QVERIFY(!next.whole);
        QCOMPARE(next.removed.size(), 12);
    }

    void a_card_that_a_server_holds_back_is_none_of_those_that_changed()
    {
        Book book;
        int questions = 0;
        book.remote.antes = [&](const Pedido &) -> std::optional<Resposta> {
            if (++questions > 1) return Resposta::Xml(LivroDav::Multistatus("<d:sync-token>t2</d:sync-token>"));
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Sem(book.remote.livro + "1.vcf", "507 Insufficient Storage") +
                                      "<d:sync-token>t1</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, "t0");
        QVERIFY(!changes.error && changes.changed.isEmpty() && changes.removed.isEmpty());
        QCOMPARE(changes.token, QByteArray("t2"));
        QCOMPARE(questions, 2);
    }

    void a_server_that_never_gets_on_is_asked_for_its_list()
    {
        Book book(3);
        book.remote.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(book.remote.livro + "1.vcf", "<d:getetag>old</d:getetag>") +
                LivroDav::Uma(book.remote.livro + "gone.vcf", "<d:getetag>1</d:getetag>") +
                LivroDav::Sem(book.remote.livro, "507 Insufficient Storage") +
                "<d:sync-token>always the same</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, {});
        QVERIFY(!changes.error && changes.whole);
        QCOMPARE(changes.names(), (QStringList{u"1.vcf"_s, u"2.vcf"_s, u"3.vcf"_s}));
        QCOMPARE(book.server.Verbos(), (QList<QByteArray>{"REPORT", "REPORT", "PROPFIND"}));
    }

    // Otherwise all that it leaves out would be taken for deleted.
    void a_list_that_is_not_whole_is_an_error_data()
    {
        QTest::addColumn<Resposta>("answer");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("cause");
        QTest::newRow("cut off")
            << Resposta::Xml(LivroDav::Multistatus(
                   LivroDav::Uma("/dav/ana/contactos/", "<d:resourcetype><d:collection/></d:resourcetype>") +
                   LivroDav::Uma("/dav/ana/contactos/a.vcf", "<d:getetag>1</d:getetag>") +
                   LivroDav::Sem("/dav/ana/contactos/", "507 Insufficient Storage")))
            << u"Server"_s << 507 << u"the list of cards is cut off"_s;
        QTest::newRow("without the book itself")
            << Resposta::Xml(LivroDav::Multistatus({})) << u"Malformed"_s << 207 << u"no list of cards"_s;
        QTest::newRow("with cards, without the book itself")
            << Resposta::Xml(LivroDav::Multistatus(
                   LivroDav::Uma("/dav/ana/contactos/a.vcf", "<d:getetag>1</d:getetag>")))
            << u"Malformed"_s << 207 << u"no list of cards"_s;
        QTest::newRow("that says it is not there")
            << Resposta::Xml(LivroDav::Multistatus(LivroDav::Sem("http://x/b/"))) << u"NotFound"_s << 207
            << QString();
        QTest::newRow("that says it is gone")
            << Resposta::Xml(LivroDav::Multistatus(LivroDav::Sem("http://x/b/", "410 Gone"))) << u"NotFound"_s
            << 207 << QString();
        QTest::newRow("that says it may not be seen")
            << Resposta::Xml(LivroDav::Multistatus(LivroDav::Sem("http://x/b/", "403 Forbidden")))
            << u"Malformed"_s << 207 << u"no list of cards"_s;
        QTest::newRow("page") << Resposta{200, "<html/>", {"Content-Type: text/html"}} << u"Malformed"_s
                              << 200 << u"no list of cards"_s;
        QTest::newRow("broken") << Resposta::Xml("<d:multistatus xmlns:d=\"DAV:\">") << u"Malformed"_s << 207
                                << u"the answer ends too early"_s;
        QTest::newRow("book is gone") << Resposta{404} << u"NotFound"_s << 404 << u"HTTP 404"_s;
        QTest::newRow("not for this person") << Resposta{403} << u"Forbidden"_s << 403 << u"HTTP 403"_s;
        QTest::newRow("server is down") << Resposta{503} << u"Server"_s << 503 << u"HTTP 503"_s;
    }
    void a_list_that_is_not_whole_is_an_error()
    {
        QFETCH(Resposta, answer);
        QFETCH(QString, kind);
        Book book(3);
        book.remote.conhece_sync = false;
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            return asked.verbo == "PROPFIND" ? std::optional(answer) : std::nullopt;
        };
        const Changes changes = changesSince(book.local, {});
        QCOMPARE(nameOf(changes.error), kind);
        QTEST(changes.error.status, "status");
        QTEST(changes.error.detail, "cause");
        QVERIFY(changes.changed.isEmpty() && changes.token.isEmpty());
    }

    void a_list_needs_the_book_itself_as_a_folder_or_as_a_book_data()
    {
        QTest::addColumn<QByteArray>("kind");
        QTest::newRow("folder") << QByteArray("<d:collection/>");
        QTest::newRow("book") << QByteArray("<c:addressbook/>");
    }
    void a_list_needs_the_book_itself_as_a_folder_or_as_a_book()
    {
        QFETCH(QByteArray, kind);
        Book book;
        book.remote.conhece_sync = false;
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "PROPFIND") return std::nullopt;
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(book.remote.livro, "<d:resourcetype>" + kind + "</d:resourcetype>")));
        };
        const Changes changes = changesSince(book.local, {});
        QVERIFY2(!changes.error, qPrintable(changes.error.detail));
        QVERIFY(changes.whole && changes.changed.isEmpty());
    }

    void a_card_that_may_not_be_seen_is_not_taken_for_deleted()
    {
        Book book(1);
        book.remote.antes = [](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Sem("/dav/ana/contactos/x.vcf", "403 Forbidden") +
                                      "<d:sync-token>t</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, "t0");
        QCOMPARE(changes.names(), QStringList{u"x.vcf"_s});
        QVERIFY(changes.removed.isEmpty());
    }

    void folders_and_the_book_itself_are_no_cards()
    {
        Book book(1);
        book.remote.antes = [&book](const Pedido &) -> std::optional<Resposta> {
            return Resposta::Xml(LivroDav::Multistatus(
                LivroDav::Uma(book.remote.livro, {}) + LivroDav::Uma(book.remote.livro.chopped(1), {}) +
                LivroDav::Uma(book.remote.livro + "sub/", {}) +
                LivroDav::Uma(book.remote.livro + "other",
                              "<d:resourcetype><d:collection/></d:resourcetype>") +
                LivroDav::Uma(book.remote.livro + "a@b.vcf", "<d:getetag>1</d:getetag>") +
                "<d:response><d:href>http://inside.invalid/dav/ana/contactos/a%40b.vcf</"
                "d:href><d:propstat><d:prop>"
                "<d:getetag>2</d:getetag></d:prop></d:propstat></d:response><d:sync-token>t</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, {});
        QCOMPARE(changes.names(), QStringList{u"a%40b.vcf"_s});
        QCOMPARE(changes.changed.value(0).etag, QByteArray("\"2\""));
    }

    void a_server_that_goes_on_for_ever_is_asked_for_its_list()
    {
        Book book(3);
        int number = 0;
        book.remote.antes = [&](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Sem(book.remote.livro, "507 Insufficient Storage") +
                                      "<d:sync-token>" + QByteArray::number(++number) + "</d:sync-token>"));
        };
        QCOMPARE(changesSince(book.local, {}).names().size(), 3);
        QCOMPARE(number, 1000);
    }
};

MORVEX_TESTE(TestAddressBook)
#include "test_AddressBook.moc"
