// The client against real servers: one that asks for a password and rewrites cards, and one that keeps them
// as they are.
#include "Asking.h"
#include "testlib/Pausas.h"
#include "testlib/Servidor.h"
#include "testlib/Teste.h"
#include "vcard/CardNormalForm.h"
#include "vcard/CardReader.h"

#include <map>

using namespace Qt::StringLiterals;
using namespace asking;

namespace
{
const RemoteAccount ana{u"ana"_s, u"segredo9"_s};
constexpr qint64 blocked = 250; // ms: longer than a busy machine's hiccup

QByteArray normal(const QByteArray &text)
{
    const CardFile file = CardReader().read(text);
    return file.cards.size() == 1 ? normalForm(file.cards.front()) : "not one card: " + text;
}

// A server of one kind, running, with a book without cards.
struct Running {
    explicit Running(const QString &kind) : kind_(kind), script("carddav")
    {
        start();
        book = std::make_unique<AddressBook>(
            QUrl(address(kind == "radicale"_L1 ? u"/ana/contactos/"_s : u"/ana/contacts/addressbook/"_s)),
            ana);
    }
    void start() { script.Correr("start", {kind_, QString::number(port)}); }
    QString address(const QString &path) const { return u"http://127.0.0.1:%1%2"_s.arg(port).arg(path); }
    std::unique_ptr<AddressBook> another() const
    {
        return std::make_unique<AddressBook>(QUrl(address(book->hrefFor(u"x"_s).section(u'/', 0, -2) + u'/')),
                                             ana);
    }

    QString kind_;
    Servidor script;
    quint16 port = Servidor::Porta_Livre();
    std::unique_ptr<AddressBook> book;
};

QByteArray fullCard(const QByteArray &uid)
{
    return "BEGIN:VCARD\r\nVERSION:3.0\r\nPRODID:-//Morvex//EN\r\nUID:" + uid +
           "\r\nFN:José Conceição\\, o alto\r\nN:Conceição;José;;;\r\nTEL;TYPE=HOME,VOICE:+351 21 000 00 "
           "00\r\n"
           "TEL;TYPE=CELL:912345678\r\nitem1.EMAIL:a@b.pt\r\nitem1.X-ABLabel:casa\r\nNOTE:um\\ndois\\;três € "
           "😀\r\n"
           "ADR;TYPE=HOME:;;Rua A\\, 1;Lisboa;;1000-001;Portugal\r\nX-PROPRIO;X-P=1:fica\r\n"
           "PHOTO;ENCODING=b;TYPE=PNG:iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk\r\n"
           " +M9QDwADhgGAWjR9awAAAABJRU5ErkJggg==\r\nREV:2024-01-01T00:00:00Z\r\nEND:VCARD\r\n";
}
} // namespace

class TestServidoresCarddav : public QObject
{
    Q_OBJECT

    std::map<QString, std::unique_ptr<Running>> running_;

    // One server of each kind serves most tests: it takes seconds to start. Its book is emptied.
    const Running &of(const QString &kind)
    {
        std::unique_ptr<Running> &server = running_[kind];
        if (!server) server = std::make_unique<Running>(kind);
        int open = 0;
        const Changes there = changesSince(*server->book, {});
        for (const RemoteMember &one : there.changed) {
            ++open;
            server->book->remove(one.href, {}, [&open](const RemoteError &) { --open; });
        }
        await([&open] { return open == 0; });
        return *server;
    }
    static void bothKinds()
    {
        QTest::addColumn<QString>("kind");
        for (const char *kind : {"radicale", "xandikos"})
            QTest::newRow(kind) << QString::fromLatin1(kind);
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const QString &program : {u"radicale"_s, u"xandikos"_s})
            if (QStandardPaths::findExecutable(program).isEmpty())
                QSKIP(qPrintable(program + u" is not installed"_s));
    }

    void the_book_is_found_from_the_server_the_home_and_the_book_data() { bothKinds(); }
    void the_book_is_found_from_the_server_the_home_and_the_book()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        const QString own = server.book->hrefFor(u"x"_s).section(u'/', 0, -2) + u'/';
        for (const QString &typed :
             {server.address(u"/"_s), server.address({}), server.address(u"/ana/"_s), server.address(own),
              server.address(own.chopped(1)), u"127.0.0.1:%1"_s.arg(server.port)}) {
            const Found found = find(typed, ana);
            QVERIFY2(!found.error,
                     qPrintable(typed + u' ' + nameOf(found.error) + u' ' + found.error.detail));
            QCOMPARE(found.books.size(), 1);
            QCOMPARE(found.books[0].address.toString(QUrl::FullyEncoded), server.address(own));
            QVERIFY(found.books[0].mayWrite);
        }
    }

    void a_wrong_password_is_told()
    {
        const Running &server = of(u"radicale"_s);
        QCOMPARE(nameOf(find(server.address(u"/"_s), {u"ana"_s, u"errada"_s}).error), u"Password"_s);
        AddressBook wrong(QUrl(server.address(u"/ana/contactos/"_s)), {u"ana"_s, u"errada"_s});
        QCOMPARE(nameOf(changesSince(wrong, {}).error), u"Password"_s);
        QCOMPARE(nameOf(create(wrong, wrong.hrefFor(u"1"_s), fullCard("1")).error), u"Password"_s);
    }

    void a_book_that_is_not_there_is_told_data() { bothKinds(); }
    void a_book_that_is_not_there_is_told()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        AddressBook none(QUrl(server.address(u"/ana/nada/"_s)), ana);
        QCOMPARE(nameOf(changesSince(none, {}).error), u"NotFound"_s);
    }

    void what_is_uploaded_comes_back_the_same_in_what_it_says_data() { bothKinds(); }
    void what_is_uploaded_comes_back_the_same_in_what_it_says()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        const QString href = server.book->hrefFor(u"uid-1"_s);
        const Written created = create(*server.book, href, fullCard("uid-1"));
        QVERIFY2(!created.error, qPrintable(created.error.detail));
        QCOMPARE(created.href, href);
        QVERIFY(!created.etag.isEmpty());
        const Changes changes = changesSince(*server.book, {});
        QCOMPARE(changes.changed.size(), 1);
        QCOMPARE(changes.changed[0].href, href);
        QCOMPARE(changes.changed[0].etag, created.etag);
        const RemoteCard card = fetch(*server.book, {href}).cards.value(href);
        QCOMPARE(card.etag, created.etag);
        QCOMPARE(normal(card.text), normal(fullCard("uid-1")));
    }

    void edits_and_deletions_of_another_program_are_told_data() { bothKinds(); }
    void edits_and_deletions_of_another_program_are_told()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        for (const char *uid : {"1", "2", "3"})
            QVERIFY(
                !create(*server.book, server.book->hrefFor(QString::fromLatin1(uid)), fullCard(uid)).error);
        const Changes first = changesSince(*server.book, {});
        QVERIFY(first.whole);
        QCOMPARE(first.names(), (QStringList{u"1.vcf"_s, u"2.vcf"_s, u"3.vcf"_s}));
        QVERIFY(!first.token.isEmpty());
        const Changes nothing = changesSince(*server.book, first.token);
        QVERIFY(!nothing.error && !nothing.whole && nothing.changed.isEmpty() && nothing.removed.isEmpty());

        const auto telephone = server.another();
        const QString edited = server.book->hrefFor(u"2"_s);
        const QByteArray etag = fetch(*telephone, {edited}).cards.value(edited).etag;
        QVERIFY(!replace(*telephone, edited, etag, fullCard("2").replace("alto", "baixo")).error);
        QVERIFY(!remove(*telephone, server.book->hrefFor(u"3"_s), {}).error);
        QVERIFY(!create(*telephone, server.book->hrefFor(u"4"_s), fullCard("4")).error);
        const Changes next = changesSince(*server.book, nothing.token);
        QVERIFY(!next.whole);
        QCOMPARE(next.names(), (QStringList{u"2.vcf"_s, u"4.vcf"_s}));
        QCOMPARE(next.removed, QStringList{server.book->hrefFor(u"3"_s)});
        QVERIFY(normal(fetch(*server.book, {edited}).cards.value(edited).text).contains("baixo"));
        QCOMPARE(nameOf(fetch(*server.book, next.removed).cards.value(next.removed[0]).error), u"NotFound"_s);
    }

    void conflicts_are_told_and_nothing_is_written_data() { bothKinds(); }
    void conflicts_are_told_and_nothing_is_written()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        const QString href = server.book->hrefFor(u"1"_s);
        const Written first = create(*server.book, href, fullCard("1"));
        QCOMPARE(nameOf(create(*server.book, href, fullCard("1")).error), u"Changed"_s);
        const Written theirs =
            replace(*server.another(), href, first.etag, fullCard("1").replace("alto", "baixo"));
        QVERIFY(!theirs.error && theirs.etag != first.etag);
        QCOMPARE(nameOf(replace(*server.book, href, first.etag, fullCard("1")).error), u"Changed"_s);
        QCOMPARE(nameOf(remove(*server.book, href, first.etag).error), u"Changed"_s);
        QVERIFY(normal(fetch(*server.book, {href}).cards.value(href).text).contains("baixo"));
        QCOMPARE(nameOf(remove(*server.book, href, theirs.etag).error), u"None"_s);
        QCOMPARE(nameOf(remove(*server.book, href, theirs.etag).error), u"None"_s);
        QCOMPARE(nameOf(replace(*server.book, href, theirs.etag, fullCard("1")).error), u"Changed"_s);
        QVERIFY(changesSince(*server.book, {}).changed.isEmpty());
    }

    void a_token_that_is_none_brings_the_whole_book_data() { bothKinds(); }
    void a_token_that_is_none_brings_the_whole_book()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        QVERIFY(!create(*server.book, server.book->hrefFor(u"1"_s), fullCard("1")).error);
        for (const QByteArray &token : {QByteArray("http://radicale.org/ns/sync/" + QByteArray(64, '0')),
                                        QByteArray(40, 'a'), QByteArray("rubbish <&>")}) {
            const Changes changes = changesSince(*server.book, token);
            QVERIFY2(!changes.error, qPrintable(nameOf(changes.error) + changes.error.detail));
            QVERIFY(changes.whole);
            QCOMPARE(changes.names(), QStringList{u"1.vcf"_s});
        }
    }

    void strange_uids_are_no_hindrance_data() { bothKinds(); }
    void strange_uids_are_no_hindrance()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        const QStringList uids{u"urn:uuid:1"_s, u"../../x"_s, u"ção 😀"_s, u"a@b"_s, QString(300, u'x')};
        QStringList hrefs;
        for (const QString &uid : uids) {
            hrefs << server.book->hrefFor(uid);
            const Written created = create(*server.book, hrefs.constLast(), fullCard(uid.toUtf8()));
            QVERIFY2(!created.error, qPrintable(uid + created.error.detail));
        }
        const Changes changes = changesSince(*server.book, {});
        QCOMPARE(changes.changed.size(), uids.size());
        const Fetched cards = fetch(*server.book, hrefs);
        for (qsizetype at = 0; at < uids.size(); ++at)
            QCOMPARE(normal(cards.cards.value(hrefs[at]).text), normal(fullCard(uids[at].toUtf8())));
    }

    void a_hundred_cards_go_there_and_come_back_without_keeping_anybody_waiting_data() { bothKinds(); }
    void a_hundred_cards_go_there_and_come_back_without_keeping_anybody_waiting()
    {
        QFETCH(QString, kind);
        const Running &server = of(kind);
        const Pausas pauses;
        QElapsedTimer clock;
        clock.start();
        int written = 0, failed = 0;
        QStringList hrefs;
        for (int number = 0; number < 100; ++number) {
            hrefs << server.book->hrefFor(u"u%1"_s.arg(number));
            server.book->create(
                hrefs.constLast(), fullCard("u" + QByteArray::number(number)),
                [&](const RemoteError &error, const RemoteWritten &) { ++(error ? failed : written); });
        }
        await([&] { return written + failed == 100; });
        QCOMPARE(written, 100);
        const qint64 up = clock.restart();
        QCOMPARE(changesSince(*server.book, {}).changed.size(), 100);
        const Fetched cards = fetch(*server.book, hrefs);
        QCOMPARE(cards.told, 100);
        for (const RemoteCard &card : cards.cards)
            QVERIFY(!card.error);
        qInfo("up %lld ms, down %lld ms, longest pause %lld ms", up, clock.elapsed(), pauses.maior);
        QVERIFY2(pauses.maior < blocked, qPrintable(QString::number(pauses.maior)));
    }

    void an_upload_that_the_end_of_the_server_cut_off_goes_on_where_it_stopped_data() { bothKinds(); }
    void an_upload_that_the_end_of_the_server_cut_off_goes_on_where_it_stopped()
    {
        QFETCH(QString, kind);
        Running server(kind);
        QMap<QString, RemoteError::Kind> outcome;
        for (int number = 0; number < 60; ++number) {
            const QString href = server.book->hrefFor(u"u%1"_s.arg(number));
            server.book->create(href, fullCard("u" + QByteArray::number(number)),
                                [&outcome, href](const RemoteError &error, const RemoteWritten &) {
                                    outcome[href] = error.kind;
                                });
        }
        await([&] { return outcome.size() >= 10; });
        // The store of the other one does not outlive a power cut without somebody's help.
        QVERIFY(server.script.Correr(kind == "radicale"_L1 ? "kill" : "stop"));
        await([&] { return outcome.size() == 60; });
        for (const RemoteError::Kind kindOfEnd : std::as_const(outcome))
            QVERIFY2(kindOfEnd == Kind::None || kindOfEnd == Kind::Refused || kindOfEnd == Kind::Interrupted,
                     qPrintable(nameOf(kindOfEnd)));
        QVERIFY(outcome.values().contains(Kind::Refused));
        server.start();
        const Changes there = changesSince(*server.book, {});
        QVERIFY2(!there.error, qPrintable(nameOf(there.error)));
        QStringList missing = outcome.keys();
        for (const RemoteMember &one : there.changed)
            missing.removeAll(one.href);
        for (auto one = outcome.cbegin(); one != outcome.cend(); ++one)
            QVERIFY(one.value() != Kind::None || !missing.contains(one.key())); // what was promised is there
        for (const QString &href : std::as_const(missing)) {
            const QByteArray uid = href.section(u'/', -1).chopped(4).toLatin1();
            const Written again = create(*server.book, href, fullCard(uid));
            QVERIFY2(!again.error, qPrintable(again.error.detail));
        }
        QCOMPARE(changesSince(*server.book, {}).changed.size(), 60);
    }

    void a_server_that_is_not_running_is_told()
    {
        Running server(u"xandikos"_s);
        QVERIFY(server.script.Correr("stop"));
        QCOMPARE(nameOf(changesSince(*server.book, {}).error), u"Refused"_s);
        QCOMPARE(nameOf(find(server.address(u"/"_s), ana).error), u"Refused"_s);
    }
};

MORVEX_TESTE(TestServidoresCarddav)
#include "test_servidores_carddav.moc"
