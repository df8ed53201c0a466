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

    void a_server_that_never_gets_on_is_asked_for_its_list()
    {
        Book book(3);
        book.remote.antes = [&book](const Pedido &asked) -> std::optional<Resposta> {
            if (asked.verbo != "REPORT") return std::nullopt;
            return Resposta::Xml(
                LivroDav::Multistatus(LivroDav::Sem(book.remote.livro, "507 Insufficient Storage") +
                                      "<d:sync-token>always the same</d:sync-token>"));
        };
        const Changes changes = changesSince(book.local, {});
        QVERIFY(!changes.error && changes.whole);
        QCOMPARE(changes.names().size(), 3);
        QCOMPARE(book.server.Verbos(), (QList<QByteArray>{"REPORT", "REPORT", "PROPFIND"}));
    }

    // Otherwise all that it leaves out would be taken for deleted.
    void a_list_that_is_not_whole_is_an_error_data()
    {
        QTest::addColumn<Resposta>("answer");
        QTest::addColumn<QString>("kind");
        QTest::newRow("cut off")
            << Resposta::Xml(LivroDav::Multistatus(
                   LivroDav::Uma("/dav/ana/contactos/", "<d:resourcetype><d:collection/></d:resourcetype>") +
                   LivroDav::Uma("/dav/ana/contactos/a.vcf", "<d:getetag>1</d:getetag>") +
                   LivroDav::Sem("/dav/ana/contactos/", "507 Insufficient Storage")))
            << u"Server"_s;
        QTest::newRow("without the book itself")
            << Resposta::Xml(LivroDav::Multistatus({})) << u"Malformed"_s;
        QTest::newRow("with cards, without the book itself")
            << Resposta::Xml(LivroDav::Multistatus(
                   LivroDav::Uma("/dav/ana/contactos/a.vcf", "<d:getetag>1</d:getetag>")))
            << u"Malformed"_s;
        QTest::newRow("that says it is not there")
            << Resposta::Xml(LivroDav::Multistatus(LivroDav::Sem("http://x/b/"))) << u"NotFound"_s;
        QTest::newRow("page") << Resposta{200, "<html/>", {"Content-Type: text/html"}} << u"Malformed"_s;
        QTest::newRow("broken") << Resposta::Xml("<d:multistatus xmlns:d=\"DAV:\">") << u"Malformed"_s;
        QTest::newRow("book is gone") << Resposta{404} << u"NotFound"_s;
        QTest::newRow("not for this person") << Resposta{403} << u"Forbidden"_s;
        QTest::newRow("server is down") << Resposta{503} << u"Server"_s;
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
        QVERIFY(changes.changed.isEmpty() && changes.token.isEmpty());
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
