// Size and time, servers that misbehave, and giving up.
#include "Asking.h"
#include "testlib/Pausas.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace asking;

namespace
{
constexpr qint64 blocked = 1500; // ms: longer than a busy machine's hiccup, shorter than what is waited for

RemoteLimits soon()
{
    RemoteLimits limits;
    limits.stillness = 300ms;
    limits.request = 1500ms;
    return limits;
}

const QString path = u"/dav/ana/contactos/"_s;

QUrl at(const ServidorHttp &server) { return QUrl(server.Endereco(path)); }

RemoteError errorOfChanges(const QUrl &address, const RemoteLimits &limits)
{
    AddressBook book(address, {}, limits);
    return changesSince(book, {}).error;
}

bool saysAsMuch(const QString &detail, const QString &cause)
{
    return QRegularExpression(QRegularExpression::wildcardToRegularExpression(cause))
               .match(detail)
               .hasMatch() &&
           !detail.isEmpty();
}

Resposta listed() { return Resposta::Xml(LivroDav::Multistatus("<d:sync-token>t</d:sync-token>")); }
} // namespace

class TestPatience : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_server_that_misbehaves_is_told_data()
    {
        using Depois = Resposta::Depois;
        QTest::addColumn<Resposta>("answer");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("cause"); // for whoever looks for it; * for what the toolkit words
        QTest::newRow("silent") << Resposta::Calada() << u"TimedOut"_s << u"nothing moved any more"_s;
        QTest::newRow("stops in the middle")
            << Resposta{207, "<d:multistatus", {"Content-Length: 1000"}, Depois::Cala} << u"TimedOut"_s
            << u"nothing moved any more"_s;
        QTest::newRow("drips for ever")
            << Resposta{207, LivroDav::Multistatus({}).chopped(16), {}, Depois::Pinga} << u"TimedOut"_s
            << u"the request took too long"_s;
        QTest::newRow("floods") << Resposta{207, LivroDav::Multistatus({}).chopped(16), {}, Depois::Sem_Fim}
                                << u"TooBig"_s << u"more than * bytes"_s;
        QTest::newRow("announces too much") << Resposta{207, {}, {"Content-Length: 9999999999"}, Depois::Cala}
                                            << u"TooBig"_s << u"9999999999 bytes announced"_s;
        QTest::newRow("announces too much of an error")
            << Resposta{300, {}, {"Content-Length: 9999999999"}, Depois::Cala} << u"TimedOut"_s
            << u"nothing moved any more"_s;
        QTest::newRow("hangs up in the middle")
            << Resposta{207, "<d:multistatus", {"Content-Length: 1000"}, Depois::Fecha} << u"Interrupted"_s
            << u"*"_s;
        QTest::newRow("hangs up in the middle of pieces")
            << Resposta{0,
                        {},
                        {},
                        Depois::Fecha,
                        "HTTP/1.1 207 X\r\nTransfer-Encoding: chunked\r\n\r\n100\r\n<d:multistatus"}
            << u"Interrupted"_s << u"*"_s;
        QTest::newRow("hangs up at once")
            << Resposta{0, {}, {}, Depois::Fecha, "\n"} << u"Interrupted"_s << u"*"_s;
        QTest::newRow("speaks something else")
            << Resposta{0, {}, {}, Depois::Nada, "220 mail.example.org ESMTP\r\n"} << u"Interrupted"_s
            << u"*"_s;
        QTest::newRow("compressed unasked") << Resposta{207, listed().corpo, {"Content-Encoding: gzip"}}
                                            << u"Malformed"_s << u"encoded as gzip"_s;
        QTest::newRow("hangs up before the end that it announced")
            << Resposta{207, listed().corpo, {"Content-Length: 1000"}, Depois::Fecha} << u"Interrupted"_s
            << u"*"_s;
        QTest::newRow("page of a network for guests")
            << Resposta{200, "<html>log in</html>", {"Content-Type: text/html"}} << u"Malformed"_s
            << u"no list of cards"_s;
        QTest::newRow("entity bomb") << Resposta::Xml(
                                            "<!DOCTYPE a [<!ENTITY b 'c'>]><d:multistatus xmlns:d='DAV:'/>")
                                     << u"Malformed"_s << u"the answer brings a document type or an entity"_s;
        QTest::newRow("broken") << Resposta::Xml("<d:multistatus xmlns:d='DAV:'><x>") << u"Malformed"_s
                                << u"the answer ends too early"_s;
        QTest::newRow("broken, with much behind")
            << Resposta::Xml("<d:multistatus xmlns:d='DAV:'></x>" + QByteArray(1 << 20, ' '))
            << u"Malformed"_s << u"*"_s;
        QTest::newRow("error without end")
            << Resposta{500, "x", {}, Depois::Sem_Fim} << u"TooBig"_s << u"more than * bytes"_s;
        QTest::newRow("headers that drip for ever")
            << Resposta{0, {}, {}, Depois::Pinga, "HTTP/1.1 207 X\r\nX-A: "} << u"TimedOut"_s
            << u"nothing moved any more"_s;
        QTest::newRow("headers without end")
            << Resposta{0, {}, {}, Depois::Sem_Fim, "HTTP/1.1 207 X\r\nX-A: "} << u"TimedOut"_s
            << u"nothing moved any more"_s;
    }
    void a_server_that_misbehaves_is_told()
    {
        QFETCH(Resposta, answer);
        QFETCH(QString, kind);
        QFETCH(QString, cause);
        ServidorHttp server([&](const Pedido &) { return answer; });
        RemoteLimits limits = soon();
        if (kind != "TimedOut"_L1) limits.stillness = limits.request = 10min; // they need the time they need
        limits.listing = 2 << 20;
        const RemoteError error = errorOfChanges(at(server), limits);
        QCOMPARE(nameOf(error), kind);
        QVERIFY2(saysAsMuch(error.detail, cause), qPrintable(error.detail));
        QTRY_COMPARE(server.Ligacoes(), 0);
    }

    void a_silent_server_is_given_up_by_who_brought_it_nothing_too()
    {
        ServidorHttp server([](const Pedido &) { return Resposta::Calada(); });
        AddressBook book(at(server), {}, soon());
        const RemoteError error = remove(book, path + u"1.vcf"_s, {}).error;
        QCOMPARE(nameOf(error), u"TimedOut"_s);
        QCOMPARE(error.detail, u"nothing moved any more"_s);
    }

    void half_a_minute_of_silence_and_a_quarter_of_an_hour_altogether_are_borne()
    {
        const RemoteLimits limits;
        QCOMPARE(limits.stillness, 30s);
        QCOMPARE(limits.request, 15min);
        QCOMPARE(limits.card, qint64{32} * 1024 * 1024);
        QCOMPARE(limits.listing, qint64{256} * 1024 * 1024);
    }

    void as_much_as_the_limit_is_taken_and_a_byte_more_is_not_data()
    {
        QTest::addColumn<bool>("announced");
        QTest::newRow("announced") << true;
        QTest::newRow("until it hangs up") << false;
    }
    void as_much_as_the_limit_is_taken_and_a_byte_more_is_not()
    {
        QFETCH(bool, announced);
        const auto end = announced ? Resposta::Depois::Nada : Resposta::Depois::Fecha;
        const QByteArray list = listed().corpo, one = card("A");
        ServidorHttp server([&](const Pedido &asked) {
            if (asked.verbo == "GET") return Resposta{200, one, {"Content-Type: text/vcard"}, end};
            return asked.corpo.contains("multiget") ? Resposta{501} : Resposta{207, list, {}, end};
        });
        for (const int more : {0, 1}) {
            RemoteLimits limits;
            limits.listing = list.size() - more;
            limits.card = one.size() - more;
            AddressBook book(at(server), {}, limits);
            QCOMPARE(nameOf(changesSince(book, {}).error), more > 0 ? u"TooBig"_s : u"None"_s);
            const QString href = path + u"1.vcf"_s;
            QCOMPARE(nameOf(fetch(book, {href}).cards.value(href).error), more > 0 ? u"TooBig"_s : u"None"_s);
        }
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
        QCOMPARE(nameOf(errorOfChanges(at(server), limits)), u"None"_s);
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
        QCOMPARE(cards.cards.value(path + u"2.vcf"_s).error.status, asksMany ? 0 : 200); // the answer itself is good
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
        QVERIFY(asked <= 17);                // six were under way, and one began as the first of them ended
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
        ServidorHttp server([](const Pedido &) {
            Resposta answer = listed();
            answer.atraso = 3000;
            return answer;
        });
        AddressBook book(at(server), {});
        const Pausas pauses;
        QCOMPARE(nameOf(changesSince(book, {}).error), u"None"_s);
        QVERIFY2(pauses.maior < blocked, qPrintable(QString::number(pauses.maior)));
    }

    void a_list_four_times_as_long_takes_no_more_than_in_proportion()
    {
        LivroDav remote;
        QByteArray lists[2];
        for (int number = 0; number < 8000; ++number) {
            remote.Por(QByteArray::number(number) + ".vcf", card("A"));
            if (number == 1999) lists[0] = remote({"PROPFIND", path.toLatin1(), {{"depth", "1"}}, {}}).corpo;
        }
        lists[1] = remote({"PROPFIND", path.toLatin1(), {{"depth", "1"}}, {}}).corpo;
        double times[2] = {};
        for (const int which : {0, 1})
            times[which] = Tempo_Gasto([&] {
                ServidorHttp server([&](const Pedido &) { return Resposta::Xml(lists[which]); });
                AddressBook book(at(server), {});
                QCOMPARE(changesSince(book, {}).changed.size(), which == 0 ? 2000 : 8000);
            });
        qInfo("2000: %.0f us, 8000: %.0f us", times[0], times[1]);
        QVERIFY(times[1] < 10 * times[0]);
    }
};

MORVEX_TESTE(TestPatience)
#include "test_Patience.moc"
