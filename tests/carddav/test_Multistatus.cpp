// What is read of a server's answers, and what is refused in them.
#include "carddav/Multistatus.h"
#include "testlib/LivroDav.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr qint64 largest = qint64{32} << 20;

struct Read {
    bool good = false;
    QString why;
    QList<DavResponse> responses;
    QByteArray syncToken;
};

Read read(const QByteArray &answer, qsizetype piece = 16384, qint64 largestCard = largest)
{
    MultistatusReader reader(largestCard);
    bool good = true;
    for (qsizetype at = 0; good && at < answer.size(); at += piece)
        good = reader.add(answer.mid(at, piece));
    good = good && reader.finish();
    return {good, reader.why(), reader.responses(), reader.syncToken()};
}

QByteArray properties(const QByteArray &content)
{
    return LivroDav::Multistatus(LivroDav::Uma("/x", content));
}
} // namespace

class TestMultistatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void all_that_matters_is_read_whatever_pieces_it_comes_in_data()
    {
        QTest::addColumn<int>("piece");
        for (const int piece : {1, 2, 3, 7, 64, 100000})
            QTest::addRow("%d bytes", piece) << piece;
    }
    void all_that_matters_is_read_whatever_pieces_it_comes_in()
    {
        QFETCH(int, piece);
        const QByteArray answer = LivroDav::Multistatus(
            LivroDav::Uma("/livro/",
                          "<d:resourcetype><d:collection/><c:addressbook/></d:resourcetype>"
                          "<d:displayname>Família  &amp; amigos €</d:displayname>"
                          "<d:current-user-principal><d:href>/ana/</d:href></d:current-user-principal>"
                          "<c:addressbook-home-set><d:href>/a/</d:href><d:href>/b/</d:href>"
                          "</c:addressbook-home-set>"
                          "<d:current-user-privilege-set><d:privilege><d:read/></d:privilege>"
                          "<d:privilege><d:write-content/></d:privilege>"
                          "</d:current-user-privilege-set>") +
            LivroDav::Uma("/livro/a.vcf",
                          "<d:getetag>W/&quot;7&quot;</d:getetag><c:address-data>BEGIN:VCARD\r\n"
                          "FN:Zoë &lt;x&gt;\nEND:VCARD</c:address-data>") +
            LivroDav::Sem("/livro/b.vcf") + "<d:sync-token>t&amp;1</d:sync-token>");
        const Read found = read(answer, piece);
        QVERIFY2(found.good, qPrintable(found.why));
        QCOMPARE(found.responses.size(), 3);
        QCOMPARE(found.syncToken, QByteArray("t&1"));
        const DavResponse &book = found.responses[0];
        QVERIFY(book.isBook && book.isCollection && book.tellsRights && book.mayWrite);
        QCOMPARE(book.name, u"Família & amigos €"_s);
        QCOMPARE(book.principal, u"/ana/"_s);
        QCOMPARE(book.homes, (QStringList{u"/a/"_s, u"/b/"_s}));
        const DavResponse &card = found.responses[1];
        QCOMPARE(card.href, u"/livro/a.vcf"_s);
        QCOMPARE(card.etag, QByteArray("\"7\""));
        QVERIFY(card.hasCard && !card.isBook);
        QCOMPARE(card.card, QByteArray("BEGIN:VCARD\nFN:Zoë <x>\nEND:VCARD"));
        QCOMPARE(found.responses[2].status, 404);
    }

    void properties_that_could_not_be_told_are_none()
    {
        const Read found = read(LivroDav::Multistatus(
            "<d:response><d:href>/x</d:href><d:propstat><d:prop><d:getetag>\"1\"</d:getetag></d:prop>"
            "<d:status>HTTP/1.1 200 "
            "OK</d:status></d:propstat><d:propstat><d:prop><d:displayname>no</d:displayname>"
            "<c:address-data/><d:getetag/></d:prop><d:status>HTTP/1.1 404 Not Found</d:status></d:propstat>"
            "</d:response>"));
        QVERIFY(found.good);
        QCOMPARE(found.responses.size(), 1);
        QCOMPARE(found.responses[0].etag, QByteArray("\"1\""));
        QCOMPARE(found.responses[0].status, 0);
        QVERIFY(!found.responses[0].hasCard && found.responses[0].name.isEmpty());
    }

    void reading_is_no_right_to_write()
    {
        const Read found =
            read(properties("<d:current-user-privilege-set><d:privilege><d:read/></d:privilege>"
                            "</d:current-user-privilege-set>"));
        QVERIFY(found.responses.value(0).tellsRights && !found.responses.value(0).mayWrite);
    }

    void a_right_to_write_has_many_names_and_counts_only_among_the_rights_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<bool>("mayWrite");
        const auto rights = [](const QByteArray &inside) {
            return "<d:current-user-privilege-set>" + inside + "</d:current-user-privilege-set>";
        };
        for (const char *right : {"all", "write", "write-content", "bind"})
            QTest::newRow(right) << rights("<d:privilege><d:" + QByteArray(right) + "/></d:privilege>")
                                 << true;
        for (const char *right : {"read", "unbind", "write-acl", "write-properties"})
            QTest::newRow(right) << rights("<d:privilege><d:" + QByteArray(right) + "/></d:privilege>")
                                 << false;
        QTest::newRow("of no privilege") << rights("<d:write/>") << false;
        QTest::newRow("elsewhere") << QByteArray("<d:x><d:privilege><d:write/></d:privilege></d:x>") << false;
    }
    void a_right_to_write_has_many_names_and_counts_only_among_the_rights()
    {
        QFETCH(QByteArray, content);
        QTEST(read(properties(content)).responses.value(0).mayWrite, "mayWrite");
    }

    void a_word_counts_only_in_its_place_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("kind") << QByteArray("<d:x><d:collection/><c:addressbook/></d:x>");
        QTest::newRow("name") << QByteArray("<d:x><d:displayname>a</d:displayname></d:x>");
        QTest::newRow("mark") << QByteArray("<d:x><d:getetag>a</d:getetag></d:x>");
        QTest::newRow("card") << QByteArray("<d:x><c:address-data>a</c:address-data></d:x>");
        QTest::newRow("address") << QByteArray("<d:x><d:href>/other</d:href></d:x>");
        QTest::newRow("status") << QByteArray("<d:x><d:status>HTTP/1.1 404 X</d:status></d:x>");
        QTest::newRow("token") << QByteArray("<d:sync-token>t</d:sync-token>");
    }
    void a_word_counts_only_in_its_place()
    {
        QFETCH(QByteArray, content);
        const Read found = read(properties(content));
        QVERIFY2(found.good, qPrintable(found.why));
        QCOMPARE(found.responses.size(), 1);
        const DavResponse &one = found.responses[0];
        QCOMPARE(one.href, u"/x"_s);
        QCOMPARE(one.status, 0);
        QVERIFY(!one.isCollection && !one.isBook && !one.hasCard && !one.tellsRights && !one.mayWrite);
        QVERIFY(one.name.isEmpty() && one.etag.isEmpty() && one.card.isEmpty() && one.homes.isEmpty());
        QVERIFY(one.principal.isEmpty() && found.syncToken.isEmpty());
    }

    void what_is_said_beside_the_status_of_a_thing_does_not_change_it()
    {
        const Read found = read(LivroDav::Multistatus(
            "<d:response><d:href>/x</d:href><d:status>HTTP/1.1 404 Not Found</d:status>"
            "<d:responsedescription>It is 410 years gone</d:responsedescription></d:response>"));
        QVERIFY2(found.good, qPrintable(found.why));
        QCOMPARE(found.responses.value(0).status, 404);
    }

    void a_value_is_what_stands_between_its_own_marks_alone()
    {
        const Read found = read(properties("  <c:address-data>FN:Ana</c:address-data>\n  "
                                           "<d:displayname><d:x>no</d:x></d:displayname>"));
        QVERIFY2(found.good, qPrintable(found.why));
        QCOMPARE(found.responses.value(0).card, QByteArray("FN:Ana"));
        QCOMPARE(found.responses.value(0).name, QString());
    }

    void an_answer_that_is_refused_is_read_no_further()
    {
        MultistatusReader reader(largest);
        QVERIFY(!reader.add("<x xmlns:d=\"DAV:\">"));
        QVERIFY(!reader.add("<d:response><d:href>/x</d:href></d:response></x>") && !reader.finish());
        QVERIFY(reader.responses().isEmpty());
    }

    void properties_count_where_their_status_is_good_data()
    {
        QTest::addColumn<QByteArray>("status");
        QTest::addColumn<bool>("counts");
        QTest::newRow("none") << QByteArray() << true;
        for (const int good : {200, 204, 299})
            QTest::addRow("%d", good) << "HTTP/1.1 " + QByteArray::number(good) + " OK" << true;
        for (const int bad : {100, 199, 300, 403, 404, 500})
            QTest::addRow("%d", bad) << "HTTP/1.1 " + QByteArray::number(bad) + " X" << false;
        QTest::newRow("blanks before") << QByteArray("  HTTP/1.1   200 OK") << true;
        QTest::newRow("without words") << QByteArray("HTTP/1.1 404") << false;
    }
    void properties_count_where_their_status_is_good()
    {
        QFETCH(QByteArray, status);
        const QByteArray told = status.isEmpty() ? QByteArray() : "<d:status>" + status + "</d:status>";
        const Read found =
            read(LivroDav::Multistatus("<d:response><d:href>/x</d:href><d:propstat><d:prop><d:displayname>A"
                                       "</d:displayname></d:prop>" +
                                       told + "</d:propstat></d:response>"));
        QVERIFY2(found.good, qPrintable(found.why));
        QTEST(!found.responses.value(0).name.isEmpty(), "counts");
    }

    void another_namespace_is_another_word()
    {
        const Read found = read("<m xmlns='x:y'/>");
        QVERIFY(!found.good);
        const Read foreign =
            read("<d:multistatus xmlns:d='DAV:'><d:response><d:href>/x</d:href><d:propstat><d:prop>"
                 "<getetag>1</getetag></d:prop></d:propstat></d:response></d:multistatus>");
        QVERIFY(foreign.good);
        QVERIFY(foreign.responses.value(0).etag.isEmpty());
    }

    void what_is_no_answer_of_a_book_is_refused_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QString>("why"); // none where the reader of XML words it
        const QString brings = u"the answer brings a document type or an entity"_s;
        QByteArray bomb = "<?xml version=\"1.0\"?><!DOCTYPE m [<!ENTITY a \"aaaaaaaaaa\">";
        for (char name = 'b'; name < 'k'; ++name)
            bomb += QByteArray("<!ENTITY ") + name + " \"" +
                    QByteArray("&" + QByteArray(1, char(name - 1)) + ";").repeated(10) + "\">";
        bomb +=
            "]><d:multistatus xmlns:d=\"DAV:\"><d:response><d:href>&j;</d:href></d:response></d:multistatus>";
        QTest::newRow("entity bomb") << bomb << brings;
        QTest::newRow("file entity")
            << QByteArray("<?xml version=\"1.0\"?><!DOCTYPE m [<!ENTITY a SYSTEM \"file:///etc/passwd\">]>"
                          "<d:multistatus "
                          "xmlns:d=\"DAV:\"><d:response><d:href>&a;</d:href></d:response></d:multistatus>")
            << brings;
        QTest::newRow("document type alone")
            << QByteArray("<!DOCTYPE d:multistatus><d:multistatus xmlns:d=\"DAV:\"/>") << brings;
        QTest::newRow("unknown entity") << properties("<d:displayname>&eacute;</d:displayname>") << QString();
        QTest::newRow("not closed") << QByteArray(
                                           "<d:multistatus xmlns:d=\"DAV:\"><d:response></d:multistatus>")
                                    << QString();
        QTest::newRow("cut off") << properties("<d:getetag>\"1\"</d:getetag>").chopped(30)
                                 << u"the answer ends too early"_s;
        QTest::newRow("two roots") << LivroDav::Multistatus({}) + "<x/>" << QString();
        QTest::newRow("empty") << QByteArray() << u"the answer ends too early"_s;
        QTest::newRow("page") << QByteArray("<html><body>Log in</body></html>")
                              << u"the answer is no multistatus"_s;
        QTest::newRow("json") << QByteArray("{\"error\":1}") << QString();
        QTest::newRow("not UTF-8") << properties("<d:displayname>Jos\xE9 Silva</d:displayname>") << QString();
        QTest::newRow("half a character") << properties("<d:displayname>\xC3</d:displayname>") << QString();
        QTest::newRow("control character") << properties("<d:displayname>a\x01</d:displayname>") << QString();
        QTest::newRow("undeclared prefix")
            << QByteArray("<d:multistatus><d:response/></d:multistatus>") << QString();
        QTest::newRow("very deep") << QByteArray("<d:multistatus xmlns:d=\"DAV:\">") +
                                          QByteArray("<a>").repeated(1000) +
                                          QByteArray("</a>").repeated(1000) + "</d:multistatus>"
                                   << u"the answer is nested too deeply"_s;
        QTest::newRow("too many things")
            << LivroDav::Multistatus(QByteArray("<d:response/>").repeated(200002))
            << u"the answer names too many things"_s;
    }
    void what_is_no_answer_of_a_book_is_refused()
    {
        QFETCH(QByteArray, answer);
        const Read found = read(answer);
        QVERIFY(!found.good);
        QVERIFY(!found.why.isEmpty());
        QFETCH(QString, why);
        if (!why.isEmpty()) QCOMPARE(found.why, why);
    }

    void sixty_four_levels_are_read_and_one_more_is_refused()
    {
        const auto levels = [](int count) {
            return "<d:multistatus xmlns:d=\"DAV:\">" + QByteArray("<a>").repeated(count - 1) +
                   QByteArray("</a>").repeated(count - 1) + "</d:multistatus>";
        };
        QVERIFY(read(levels(64)).good);
        QVERIFY(!read(levels(65)).good);
    }

    void two_hundred_thousand_things_are_read_and_nothing_behind_them()
    {
        const QByteArray things = QByteArray("<d:response/>").repeated(200'000);
        QCOMPARE(read(LivroDav::Multistatus(things)).responses.size(), 200'000);
        QVERIFY(!read(LivroDav::Multistatus(things + "<d:x/>")).good);
    }

    void a_text_of_a_million_letters_is_kept_and_a_longer_one_is_dropped()
    {
        const auto nameOfLetters = [](qsizetype letters) {
            return read(properties("<d:displayname>" + QByteArray(letters, 'x') + "</d:displayname>"))
                .responses.value(0)
                .name.size();
        };
        QCOMPARE(nameOfLetters(1 << 20), 1 << 20);
        QCOMPARE(nameOfLetters((1 << 20) + 1), 0);
    }

    void a_card_beyond_the_limit_is_named_and_not_kept()
    {
        const Read found =
            read(LivroDav::Multistatus(
                     LivroDav::Uma("/a", "<c:address-data>" + QByteArray(2000, 'x') + "</c:address-data>") +
                     LivroDav::Uma("/b", "<c:address-data>" + QByteArray(1000, 'x') + "</c:address-data>")),
                 16, 1000);
        QVERIFY(found.good);
        QVERIFY(found.responses.value(0).hasCard && found.responses.value(0).isCardTooBig);
        QVERIFY(found.responses.value(0).card.isEmpty());
        QVERIFY(!found.responses.value(1).isCardTooBig);
        QCOMPARE(found.responses.value(1).card.size(), 1000);
    }

    // A text that comes in thousands of pieces must not be copied anew with each of them.
    void twenty_megabytes_in_small_pieces_take_no_longer_than_in_large_ones()
    {
        QByteArray lines;
        while (lines.size() < (20 << 20))
            lines += " QUJDREVGR0hJSktMTU5PUFFSU1RVVldYWVphYmNkZWZnaGlqa2xtbm9wcXJzdHV2d3h5\r\n";
        const QByteArray answer = properties("<c:address-data>" + lines + "</c:address-data>");
        QElapsedTimer clock;
        clock.start();
        QVERIFY(read(answer, answer.size()).good);
        const qint64 large = clock.restart();
        const Read found = read(answer, 8192);
        const qint64 small = clock.elapsed();
        QVERIFY(found.good);
        QCOMPARE(found.responses.value(0).card.size(), lines.size() - lines.count('\r'));
        qInfo("large %lld ms, small %lld ms", large, small);
        QVERIFY(small < 20 * (large + 100));
    }
};

MORVEX_TESTE(TestMultistatus)
#include "test_Multistatus.moc"
