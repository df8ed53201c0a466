// The messenger against a real server and real clients, up to the picture on the card and the column of the
// row.
#include "platform/PurpleMessenger.h"

#include "platform/Platform.h"
#include "platform/SessionBus.h"
#include "session/Main.h"
#include "testlib/Disparar.h"
#include "testlib/Servidor.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <atomic>
#include <csignal>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QThread>

using namespace Qt::StringLiterals;

namespace
{
const QString bea = u"bea@localhost"_s;
constexpr qint64 patient = 300; // ms that a client which hangs may cost

// A program with one contact on the card, and the real messenger.
struct Programa {
    Programa()
    {
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Novo_Contacto({{u"Nome"_s, Value(u"Bea"_s)}, {u"Email1"_s, Value(bea)}});
        main.Carregar();
        s.geral.MessengerActivo = 1;
    }
    QString Coluna() { return s.Linhas(u"SELECT MSNMessenger FROM TblLista"_s).value(0); }
    // Ticks until the column has that value, as the program's own clock would.
    bool Chega_A(const QString &codigo)
    {
        return QTest::qWaitFor(
            [&] {
                Disparar(s.geral.temporizadores.TimerStatusOfContact);
                return Coluna() == codigo;
            },
            8000);
    }

    Sistema s;
    PurpleMessenger messenger;
    Platform plataforma = com(s.plataforma, messenger);
    Main main{s.geral, plataforma};

private:
    static Platform com(const Platform &p, MessengerAPI &messenger)
    {
        return {p.clock,    p.boxes, p.dialogs, p.shell,   p.sound,
                p.registry, p.mail,  messenger, p.process, p.tray, p.secrets};
    }
};

// What the client itself answers, past the messenger.
QVariant ask(const QString &method, const QVariantList &arguments = {})
{
    QDBusMessage question = QDBusMessage::createMethodCall(u"im.pidgin.purple.PurpleService"_s,
                                                           u"/im/pidgin/purple/PurpleObject"_s,
                                                           u"im.pidgin.purple.PurpleInterface"_s, method);
    question.setArguments(arguments);
    return QDBusConnection::sessionBus().call(question, QDBus::Block, 2000).arguments().value(0);
}
QList<int> numbers(const QString &method) { return qdbus_cast<QList<int>>(ask(method)); }

// A client with one account and one buddy, on that bus until it goes: it knows a kind of presence that nobody else
// does, and refuses what it is told to. It answers from a thread of its own, for who asks waits.
class OddClient : public QDBusVirtualObject
{
public:
    explicit OddClient(const QString &bus) : bus_(QDBusConnection::connectToBus(bus, name))
    {
        moveToThread(&thread_);
        thread_.start();
        stands_ = bus_.registerVirtualObject(u"/im/pidgin/purple/PurpleObject"_s, this) &&
                  bus_.registerService(u"im.pidgin.purple.PurpleService"_s);
    }
    ~OddClient() override
    {
        QDBusConnection::disconnectFromBus(name);
        thread_.quit();
        thread_.wait();
    }
    OddClient(const OddClient &) = delete;
    OddClient &operator=(const OddClient &) = delete;

    bool stands() const { return stands_; }
    QString introspect(const QString & /*path*/) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override
    {
        const QString asked = message.member();
        ++questions;
        if (asked == u"PurpleConversationPresent"_s) presented = true;
        if (asked == refuses) return bus.send(message.createErrorReply(QDBusError::Failed, u"not now"_s));
        QVariant answer = 1;
        if (asked == u"PurpleAccountsGetAllActive"_s || asked == u"PurpleFindBuddies"_s)
            answer = QVariant::fromValue(QList<int>{1});
        if (asked == u"PurpleBuddyGetName"_s) answer = bea;
        if (asked == u"PurpleStatusTypeGetPrimitive"_s) answer = primitive.load();
        if (asked == u"PurplePresenceIsIdle"_s) answer = idle.load();
        return bus.send(message.createReply(answer));
    }

    QString refuses; // a question
    std::atomic<int> primitive = 99;
    std::atomic<int> idle = 1;
    std::atomic<int> questions = 0;
    std::atomic<bool> presented = false; // a conversation

private:
    inline static const QString name = u"odd client"_s;
    QThread thread_;
    QDBusConnection bus_;
    bool stands_ = false;
};

qint64 msOf(const std::function<void()> &work)
{
    QElapsedTimer clock;
    clock.start();
    work();
    return clock.elapsed();
}

// What the work costs on a machine that has nothing else to do: to wait for an answer costs its time each time, to be
// kept waiting by others does not.
qint64 lowestMsOf(const std::function<void()> &work) { return std::min({msOf(work), msOf(work), msOf(work)}); }
} // namespace

class TestPurpleMessenger : public QObject
{
    Q_OBJECT

    std::unique_ptr<Servidor> server_, ana_, bea_;

private Q_SLOTS:
    void initTestCase()
    {
        const QString missing = Servidor::Falta({u"prosody"_s, u"finch"_s, u"tmux"_s, u"dbus-daemon"_s});
        if (!missing.isEmpty()) QSKIP(qPrintable(missing));
        server_ = std::make_unique<Servidor>("xmpp");
        const QString port = QString::number(Servidor::Porta_Livre());
        QVERIFY(server_->Correr("start", {port}));
        ana_ = std::make_unique<Servidor>("mensageiro");
        bea_ = std::make_unique<Servidor>("mensageiro");
        QVERIFY(ana_->Correr("start", {u"ana"_s, port}));
        QVERIFY(bea_->Correr("start", {u"bea"_s, port}));
        qputenv("DBUS_SESSION_BUS_ADDRESS", ana_->Perguntar("bus").toUtf8());
    }

    void each_presence_is_seen_in_picture_and_column_data()
    {
        QTest::addColumn<QString>("status");
        QTest::addColumn<int>("idle");
        QTest::addColumn<QString>("code");
        QTest::addColumn<int>("picture");
        QTest::newRow("online") << u"available"_s << 0 << u"2"_s << 18;
        QTest::newRow("away") << u"away"_s << 0 << u"34"_s << 20;
        QTest::newRow("busy") << u"busy"_s << 0 << u"10"_s << 19;
        QTest::newRow("away for long") << u"extended"_s << 0 << u"34"_s << 20;
        QTest::newRow("idle") << u"available"_s << 600 << u"18"_s << 20;
        QTest::newRow("online again") << u"available"_s << 0 << u"2"_s << 18;
        QTest::newRow("offline") << u"offline"_s << 0 << u"1"_s << 21;
        QTest::newRow("back") << u"available"_s << 0 << u"2"_s << 18;
    }
    void each_presence_is_seen_in_picture_and_column()
    {
        QFETCH(QString, status);
        QFETCH(int, idle);
        QFETCH(QString, code);
        QFETCH(int, picture);
        QVERIFY(bea_->Correr("status", {status}));
        if (status == "available"_L1) QVERIFY(bea_->Correr("idle", {QString::number(idle)}));
        Programa p;
        QVERIFY2(p.Chega_A(code), qPrintable(p.Coluna()));
        QCOMPARE(p.main.messenger->property("Image").toInt(), picture);
        QCOMPARE(p.main.imgEmail1->icon().pixmap(16).toImage(),
                 QIcon(u":/imagens/toolbar/messenger_%1.svg"_s.arg(picture)).pixmap(16).toImage());
    }

    // Contacts are stored with these numbers.
    void each_presence_has_its_number()
    {
        using enum MessengerAPI::Status;
        QCOMPARE((QList<int>{Unknown, Offline, Online, Busy, Idle, Away}), (QList<int>{0, 1, 2, 10, 18, 34}));
    }

    void the_place_of_a_device_is_no_part_of_the_address()
    {
        PurpleMessenger messenger;
        QCOMPARE(messenger.status(bea + u"/teste"_s), std::optional<int>(MessengerAPI::Online));
    }

    void an_address_that_nobody_knows_has_no_status()
    {
        PurpleMessenger messenger;
        QVERIFY(!messenger.status(u"nobody@localhost"_s));
        QVERIFY(!messenger.status(QString()));
    }

    void all_contacts_are_walked()
    {
        PurpleMessenger messenger;
        QStringList seen;
        for (const auto &[address, status] : messenger.contacts())
            seen << address + u' ' + QString::number(status);
        seen.sort();
        QVERIFY2(seen.contains(bea + u" 2"_s), qPrintable(seen.join(u'|')));
        QVERIFY2(seen.contains(u"rui@localhost 1"_s), qPrintable(seen.join(u'|')));
    }

    void a_conversation_opens()
    {
        const auto before = numbers(u"PurpleGetIms"_s).size();
        PurpleMessenger().openConversation(bea);
        QTRY_COMPARE(numbers(u"PurpleGetIms"_s).size(), before + 1);
    }

    void a_conversation_is_with_the_person_and_not_with_a_device()
    {
        const auto before = numbers(u"PurpleGetIms"_s);
        PurpleMessenger().openConversation(u"rui@localhost/teste"_s);
        QTRY_COMPARE(numbers(u"PurpleGetIms"_s).size(), before.size() + 1);
        for (const int conversation : numbers(u"PurpleGetIms"_s))
            if (!before.contains(conversation))
                QCOMPARE(ask(u"PurpleConversationGetName"_s, {conversation}).toString(), u"rui@localhost"_s);
    }

    void a_client_that_hangs_costs_one_short_wait_and_is_left_alone()
    {
        const pid_t client = ana_->Perguntar("pid").toInt();
        QVERIFY(client > 1);
        QCOMPARE(::kill(client, SIGSTOP), 0);
        PurpleMessenger messenger;
        messenger.status(bea);
        const qint64 later = lowestMsOf([&] {
            for (int i = 0; i < 20; ++i)
                messenger.status(bea);
            messenger.contacts();
            messenger.openConversation(bea);
        });
        const qint64 asked = lowestMsOf([] { PurpleMessenger().status(bea); });
        const qint64 walk = lowestMsOf([] { PurpleMessenger().contacts(); });
        const qint64 talk = lowestMsOf([] { PurpleMessenger().openConversation(bea); });
        QCOMPARE(::kill(client, SIGCONT), 0);
        QVERIFY2(later < 200, qPrintable(QString::number(later)));
        QVERIFY2(asked < patient, qPrintable(QString::number(asked)));
        QVERIFY2(walk < patient, qPrintable(QString::number(walk)));
        QVERIFY2(talk < patient, qPrintable(QString::number(talk)));
    }

    // The last one: the client does not come back.
    void without_a_client_nothing_waits_and_none_is_started()
    {
        QVERIFY(ana_->Correr("end"));
        PurpleMessenger messenger;
        QTRY_VERIFY(!messenger.status(bea));
        const qint64 spent = lowestMsOf([&] {
            for (int i = 0; i < 20; ++i)
                messenger.status(bea);
            QVERIFY(messenger.contacts().isEmpty());
            messenger.openConversation(bea);
        });
        QVERIFY2(spent < 100, qPrintable(QString::number(spent)));
        QTest::qWait(500);
        QVERIFY(!QFile::exists(ana_->Pasta() + u"/started"_s));
    }

    // Of others that come in the place of the client.
    void a_presence_of_no_known_kind_is_unknown()
    {
        const OddClient client(ana_->Perguntar("bus"));
        QVERIFY(client.stands());
        PurpleMessenger messenger;
        QCOMPARE(messenger.status(bea), std::optional<int>(MessengerAPI::Unknown));
        const QList<MessengerAPI::Contact> contacts = messenger.contacts();
        QCOMPARE(contacts.size(), 1);
        QCOMPARE(contacts.constFirst().address, bea);
        QCOMPARE(contacts.constFirst().status, int{MessengerAPI::Unknown});
    }

    void each_kind_of_presence_is_one_of_ours_data()
    {
        using enum MessengerAPI::Status;
        QTest::addColumn<int>("primitive");
        QTest::addColumn<int>("status");
        QTest::addColumn<int>("whenIdle");
        QTest::newRow("unset") << 0 << int{Unknown} << int{Unknown};
        QTest::newRow("offline") << 1 << int{Offline} << int{Offline};
        QTest::newRow("available") << 2 << int{Online} << int{Idle};
        QTest::newRow("unavailable") << 3 << int{Busy} << int{Busy};
        QTest::newRow("invisible") << 4 << int{Offline} << int{Offline};
        QTest::newRow("away") << 5 << int{Away} << int{Away};
        QTest::newRow("away for long") << 6 << int{Away} << int{Away};
        QTest::newRow("mobile") << 7 << int{Online} << int{Idle};
        QTest::newRow("tune") << 8 << int{Unknown} << int{Unknown};
    }
    void each_kind_of_presence_is_one_of_ours()
    {
        QFETCH(const int, primitive);
        QFETCH(const int, status);
        QFETCH(const int, whenIdle);
        OddClient client(ana_->Perguntar("bus"));
        QVERIFY(client.stands());
        client.primitive = primitive;
        PurpleMessenger messenger;
        QCOMPARE(messenger.status(bea), std::optional<int>(whenIdle));
        client.idle = 0;
        QCOMPARE(messenger.status(bea), std::optional<int>(status));
    }

    void a_conversation_comes_to_the_front()
    {
        const OddClient client(ana_->Perguntar("bus"));
        QVERIFY(client.stands());
        PurpleMessenger().openConversation(bea);
        QTRY_VERIFY(client.presented);
    }

    void a_client_that_comes_after_it_was_missed_is_asked_at_once()
    {
        PurpleMessenger messenger;
        QVERIFY(!messenger.status(bea));
        const OddClient client(ana_->Perguntar("bus"));
        QVERIFY(client.stands());
        QVERIFY(messenger.status(bea));
    }

    void a_client_that_refuses_an_answer_is_left_alone_data()
    {
        QTest::addColumn<QString>("refuses");
        for (const char *question : {"PurpleAccountsGetAllActive", "PurpleFindBuddies", "PurpleBuddyGetName",
                                     "PurplePresenceIsIdle", "PurpleStatusTypeGetPrimitive"})
            QTest::newRow(question) << QString::fromLatin1(question);
    }
    void a_client_that_refuses_an_answer_is_left_alone()
    {
        QFETCH(QString, refuses);
        OddClient client(ana_->Perguntar("bus"));
        QVERIFY(client.stands());
        client.refuses = refuses;
        PurpleMessenger messenger;
        QVERIFY(messenger.contacts().isEmpty());
        client.refuses.clear();
        const int asked = client.questions;
        QVERIFY(asked > 0);
        QVERIFY(messenger.contacts().isEmpty());
        QVERIFY(!messenger.status(bea));
        QCOMPARE(client.questions.load(), asked);
        QCOMPARE(PurpleMessenger().contacts().size(), 1); // to whom it has refused nothing it answers
    }

    void without_a_bus_nobody_is_asked_for_one()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
        QVERIFY(!sessionBusIsThere());
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        const QTemporaryDir runtime;
        qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
        QVERIFY(!sessionBusIsThere());
        QFile bus(runtime.filePath(u"bus"_s));
        QVERIFY(bus.open(QIODevice::WriteOnly));
        QVERIFY(sessionBusIsThere());
    }
};

MORVEX_TESTE(TestPurpleMessenger)
#include "test_PurpleMessenger.moc"
