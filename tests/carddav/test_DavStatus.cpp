// What an answer means: its status, its body where a card was asked for, and what can go wrong.
#include "Asking.h"
#include "carddav/CardAnswer.h"
#include "carddav/DavStatus.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace asking;

class TestDavStatus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_status_has_its_meaning_data()
    {
        QTest::addColumn<QByteArray>("verb");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("kind");
        const auto row = [](const char *verb, int status, const char *kind) {
            QTest::addRow("%s %d", verb, status) << QByteArray(verb) << status << QString::fromLatin1(kind);
        };
        for (const char *verb : {"PROPFIND", "REPORT", "GET", "PUT", "DELETE"}) {
            for (const int good : {200, 201, 204, 207, 299, 301, 302, 303, 307, 308})
                row(verb, good, "None");
            for (const int strange : {100, 199, 300, 304, 305, 306, 309, 399})
                row(verb, strange, "Malformed");
            row(verb, 401, "Password");
            row(verb, 403, "Forbidden");
            for (const int gone : {404, 409, 410})
                row(verb, gone, "NotFound");
            row(verb, 412, "Changed");
            row(verb, 507, "NoRoom");
            for (const int broken : {402, 423, 429, 500, 502, 503})
                row(verb, broken, "Server");
        }
        for (const int unknown : {405, 501}) {
            row("PROPFIND", unknown, "NoBook");
            row("REPORT", unknown, "NoBook");
            row("GET", unknown, "Forbidden");
            row("PUT", unknown, "Forbidden");
            row("DELETE", unknown, "Forbidden");
        }
        row("PUT", 413, "NoRoom");
        for (const int bad : {400, 415, 422})
            row("PUT", bad, "NotAccepted");
        for (const int of_a_card_alone : {400, 413, 415, 422})
            row("REPORT", of_a_card_alone, "Server");
    }
    void a_status_has_its_meaning()
    {
        QFETCH(QByteArray, verb);
        QFETCH(int, status);
        QFETCH(QString, kind);
        const RemoteError error = errorOfStatus(status, {}, verb);
        QCOMPARE(nameOf(error), kind);
        QCOMPARE(error.status, error ? status : 0);
        QCOMPARE(error.detail, error ? u"HTTP %1"_s.arg(status) : QString());
    }

    void the_name_of_a_refusal_counts_for_a_card_alone_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("kind");
        QTest::newRow("same person") << QByteArray("no-uid-conflict") << u"Changed"_s;
        QTest::newRow("card too large") << QByteArray("max-resource-size") << u"NoRoom"_s;
        QTest::newRow("full") << QByteArray("quota-not-exceeded") << u"NoRoom"_s;
        QTest::newRow("bad card") << QByteArray("valid-address-data") << u"NotAccepted"_s;
        QTest::newRow("unknown version") << QByteArray("supported-address-data") << u"NotAccepted"_s;
        QTest::newRow("another") << QByteArray("need-privileges") << u"Forbidden"_s;
    }
    void the_name_of_a_refusal_counts_for_a_card_alone()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, kind);
        const QByteArray body = "<d:error xmlns:d='DAV:'><x:" + name + "/></d:error>";
        QCOMPARE(nameOf(errorOfStatus(403, body, "PUT")), kind);
        QCOMPARE(nameOf(errorOfStatus(403, body, "REPORT")), u"Forbidden"_s);
    }

    void what_concerns_the_way_or_the_password_concerns_all()
    {
        const QStringList all{u"Address"_s,     u"NoNetwork"_s, u"NoSuchHost"_s,  u"Refused"_s,
                              u"Interrupted"_s, u"TimedOut"_s,  u"Certificate"_s, u"Unencrypted"_s,
                              u"Elsewhere"_s,   u"Password"_s};
        QStringList told;
        for (int kind = 0; kind <= int(Kind::Server); ++kind)
            if (RemoteError{Kind(kind), 0, {}}.concernsAll()) told << nameOf(Kind(kind));
        QCOMPARE(told, all);
    }

    void only_a_card_is_taken_for_one_data()
    {
        QTest::addColumn<int>("status");
        QTest::addColumn<QByteArray>("type");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("cause"); // none for a card
        const QByteArray text = card("Ana");
        QTest::newRow("card") << 200 << QByteArray("text/vcard") << text << QString();
        QTest::newRow("of an old type") << 200 << QByteArray("text/x-vcard") << text << QString();
        QTest::newRow("of no type") << 200 << QByteArray() << text << QString();
        QTest::newRow("in small letters") << 200 << QByteArray("text/vcard") << text.toLower() << QString();
        QTest::newRow("behind a mark")
            << 200 << QByteArray("text/vcard") << "\xEF\xBB\xBF" + text << QString();
        QTest::newRow("behind a line") << 200 << QByteArray("text/vcard") << "\r\n" + text << QString();
        QTest::newRow("page") << 200 << QByteArray("text/html") << text << u"no card, but text/html"_s;
        QTest::newRow("page in XML") << 200 << QByteArray("application/xhtml+xml") << text
                                     << u"no card, but application/xhtml+xml"_s;
        QTest::newRow("page as a card")
            << 200 << QByteArray("text/vcard") << QByteArray("<html>") << u"no card, but text/vcard"_s;
        QTest::newRow("nothing") << 200 << QByteArray("text/vcard") << QByteArray()
                                 << u"no card, but text/vcard"_s;
        QTest::newRow("written, not shown")
            << 204 << QByteArray("text/vcard") << text << u"no card, but text/vcard"_s;
    }
    void only_a_card_is_taken_for_one()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, type);
        QFETCH(QByteArray, body);
        QFETCH(QString, cause);
        DavAnswer answer;
        answer.status = status;
        answer.type = type;
        answer.body = body;
        const RemoteError error = errorOfCard(answer);
        QCOMPARE(nameOf(error), cause.isEmpty() ? u"None"_s : u"Malformed"_s);
        QCOMPARE(error.detail, cause);
        QCOMPARE(error.status, cause.isEmpty() ? 0 : status);
        answer.error = {Kind::Forbidden, 403, {}};
        QCOMPARE(nameOf(errorOfCard(answer)), u"Forbidden"_s);
    }
};

MORVEX_TESTE(TestDavStatus)
#include "test_DavStatus.moc"
