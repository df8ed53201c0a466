// One small page fetched by a plain GET: what is asked, and what is taken for an answer.
#include "platform/HttpGet.h"
#include "testlib/Disparar.h"

#include <QTcpServer>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
// Answers each connection with those bytes, and ends it.
struct Server : QTcpServer {
    explicit Server(QByteArray bytes) : answer(std::move(bytes))
    {
        listen(QHostAddress::LocalHost);
        QObject::connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            ++connections;
            QObject::connect(socket, &QIODevice::readyRead, socket, [this, socket] {
                asked += socket->readAll();
                if (!asked.endsWith("\r\n\r\n") || silent) return;
                socket->write(answer);
                socket->disconnectFromHost();
            });
        });
    }

    QByteArray answer;
    QByteArray asked;
    int connections = 0;
    bool silent = false;
};
} // namespace

class TestHttpGet : public QObject
{
    Q_OBJECT

    static QByteArray fetched(const QByteArray &answer)
    {
        Server server(answer);
        HttpGet get;
        QSignalSpy finished(&get, &HttpGet::finished);
        get.start(u"127.0.0.1"_s, server.serverPort(), u"/page.ini"_s, u"Agent"_s);
        if (!finished.wait() || finished.size() != 1 || get.isRunning()) return "not once";
        return finished.takeFirst().constFirst().toByteArray();
    }

private Q_SLOTS:
    void the_page_stands_behind_the_headers_data()
    {
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<QByteArray>("page");
        QTest::newRow("a page") << QByteArray("HTTP/1.0 200 OK\r\nA: b\r\n\r\npage\r\n\r\nend")
                                << QByteArray("page\r\n\r\nend");
        QTest::newRow("whatever its status") << QByteArray("HTTP/1.1 404 No\r\n\r\nnone") << QByteArray("none");
        QTest::newRow("an empty one") << QByteArray("HTTP/1.0 200 OK\r\n\r\n") << QByteArray();
        QTest::newRow("no end of its headers") << QByteArray("HTTP/1.0 200 OK\r\npage") << QByteArray();
        QTest::newRow("another language") << QByteArray("220 ready\r\n\r\npage") << QByteArray();
        QTest::newRow("nothing") << QByteArray() << QByteArray();
    }
    void the_page_stands_behind_the_headers()
    {
        QFETCH(QByteArray, answer);
        QTEST(fetched(answer), "page");
    }

    void that_the_server_answers_is_said_once()
    {
        Server server({});
        server.silent = true;
        HttpGet get;
        QSignalSpy answered(&get, &HttpGet::answered);
        QSignalSpy finished(&get, &HttpGet::finished);
        get.start(u"127.0.0.1"_s, server.serverPort(), u"/"_s, {});
        QTRY_VERIFY(!server.asked.isEmpty());
        QVERIFY(answered.isEmpty());
        auto *socket = server.findChild<QTcpSocket *>();
        socket->write("HTTP/1.0 200 OK\r\n");
        QVERIFY(answered.wait());
        socket->write("\r\npage");
        socket->disconnectFromHost();
        QVERIFY(finished.wait());
        QCOMPARE(finished.constFirst().constFirst().toByteArray(), "page");
        QCOMPARE(answered.size(), 1);
    }

    void it_takes_64_kib_with_the_headers_and_no_byte_more()
    {
        const QByteArray headers("HTTP/1.0 200 OK\r\n\r\n");
        const QByteArray page(64 * 1024 - headers.size(), 'x');
        QCOMPARE(fetched(headers + page), page);
        QCOMPARE(fetched(headers + page + 'x'), QByteArray());
    }

    void it_asks_for_the_page_by_host_and_agent()
    {
        Server server("HTTP/1.0 200 OK\r\n\r\npage");
        HttpGet get;
        QSignalSpy finished(&get, &HttpGet::finished);
        get.start(u"127.0.0.1"_s, server.serverPort(), u"/page.ini"_s, u"Agent 1"_s);
        QVERIFY(get.isRunning());
        QVERIFY(finished.wait());
        QCOMPARE(server.asked, "GET /page.ini HTTP/1.0\r\nHost: 127.0.0.1\r\nUser-Agent: Agent 1\r\n\r\n");
    }

    void while_one_runs_another_is_not_begun_and_afterwards_it_is()
    {
        Server server("HTTP/1.0 200 OK\r\n\r\npage");
        HttpGet get;
        QVERIFY(!get.isRunning());
        QSignalSpy finished(&get, &HttpGet::finished);
        for (int times = 1; times <= 2; ++times) {
            server.asked.clear();
            get.start(u"127.0.0.1"_s, server.serverPort(), u"/one"_s, {});
            get.start(u"127.0.0.1"_s, server.serverPort(), u"/other"_s, {});
            QVERIFY(finished.wait());
            QCOMPARE(finished.takeFirst().constFirst().toByteArray(), "page"); // nothing of the one before
            QVERIFY(finished.isEmpty() && !get.isRunning());
            QCOMPARE(server.connections, times);
            QVERIFY(server.asked.startsWith("GET /one "));
        }
    }

    void where_nobody_listens_the_page_is_empty()
    {
        quint16 port = 0;
        {
            const Server server({});
            port = server.serverPort();
        }
        HttpGet get;
        QSignalSpy finished(&get, &HttpGet::finished);
        get.start(u"127.0.0.1"_s, port, u"/"_s, {});
        QTRY_COMPARE(finished.size(), 1);
        QCOMPARE(finished.constFirst().constFirst().toByteArray(), QByteArray());
        QVERIFY(!get.isRunning());
    }

    void a_server_that_is_silent_is_left_after_15_seconds()
    {
        Server server({});
        server.silent = true;
        HttpGet get;
        QSignalSpy finished(&get, &HttpGet::finished);
        get.start(u"127.0.0.1"_s, server.serverPort(), u"/"_s, {});
        QTRY_VERIFY(!server.asked.isEmpty());
        auto *limit = get.findChild<QTimer *>();
        QVERIFY(limit->isActive() && limit->isSingleShot());
        QCOMPARE(limit->interval(), 15000);
        Disparar(*limit);
        QCOMPARE(finished.size(), 1);
        QVERIFY(!get.isRunning() && !limit->isActive());
        QTRY_COMPARE(server.findChild<QTcpSocket *>()->state(), QAbstractSocket::UnconnectedState); // it is let go
        QCOMPARE(finished.constFirst().constFirst().toByteArray(), QByteArray());
    }

    void whoever_goes_away_hears_nothing_more()
    {
        Server server({});
        server.silent = true;
        int heard = 0;
        {
            HttpGet get;
            connect(&get, &HttpGet::finished, this, [&heard] { ++heard; });
            get.start(u"127.0.0.1"_s, server.serverPort(), u"/"_s, {});
            QTRY_COMPARE(server.connections, 1);
        }
        QCOMPARE(heard, 0);
    }
};

QTEST_GUILESS_MAIN(TestHttpGet)
#include "test_HttpGet.moc"
