// The mail checker against a real server: in the clear, encrypted on the way, and from the first byte.
#include "mail/MailTexts.h"
#include "mail/PopMailNotification.h"
#include "testlib/Pausas.h"
#include "testlib/Servidor.h"
#include "testlib/Teste.h"

#include <QSslConfiguration>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr PopMailNotification::Pace quick{1s, 300ms, {}};
constexpr int watching = 10000; // ms
constexpr qint64 blocked = 250; // ms: a busy machine's hiccup is shorter

QString textOf(MailError error) { return mailErrorText(error, u"InglesUK"_s); }

struct Watch {
    Watch(const QString &server, const QString &file, const QString &password = u"segredo9"_s)
        : mail(
              file, [] { return u"InglesUK"_s; }, quick)
    {
        mail.setServidor(server);
        mail.setConta(u"ana"_s);
        mail.setSenha(password);
        mail.setActivo(true);
    }

    int newMessages()
    {
        [[maybe_unused]] const bool inTime =
            QTest::qWaitFor([this] { return mail.NumeroMensagens() > 0 || mail.Falhou(); }, watching);
        return mail.TemCorreio() ? mail.NumeroMensagens() : 0;
    }
    QString failure()
    {
        [[maybe_unused]] const bool inTime =
            QTest::qWaitFor([this] { return mail.NumeroMensagens() > 0 || mail.Falhou(); }, watching);
        return mail.TextoErro();
    }

    PopMailNotification mail;
    Pausas pauses;
};
} // namespace

class TestServidorPop3 : public QObject
{
    Q_OBJECT

    std::unique_ptr<Servidor> clear_, encrypted_;
    std::unique_ptr<QTemporaryDir> folder_;
    QSslConfiguration before_;
    quint16 clearPort_ = 0, stlsPort_ = 0, tlsPort_ = 0;

    QString file() const { return folder_->filePath(u"correio.json"_s); }
    QString address(const QString &way) const
    {
        if (way == "plain"_L1) return u"127.0.0.1:"_s + QString::number(clearPort_);
        if (way == "STLS"_L1) return u"localhost:"_s + QString::number(stlsPort_);
        return u"pop3s://localhost:"_s + QString::number(tlsPort_);
    }
    bool both(const char *command, const QStringList &arguments)
    {
        return clear_->Correr(command, arguments) && encrypted_->Correr(command, arguments);
    }
    void trustTheServer() const
    {
        QSslConfiguration trusting = before_;
        QVERIFY(trusting.addCaCertificates(encrypted_->Pasta() + u"/ca.pem"_s));
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    static void everyWay()
    {
        QTest::addColumn<QString>("way");
        for (const char *way : {"plain", "STLS", "POP3S"})
            QTest::newRow(way) << QString::fromLatin1(way);
    }

private Q_SLOTS:
    void initTestCase()
    {
        const QString missing = Servidor::Falta({u"dovecot"_s, u"openssl"_s});
        if (!missing.isEmpty()) QSKIP(qPrintable(missing));
        before_ = QSslConfiguration::defaultConfiguration();
        clear_ = std::make_unique<Servidor>("pop3");
        encrypted_ = std::make_unique<Servidor>("pop3");
        clearPort_ = Servidor::Porta_Livre();
        QVERIFY(clear_->Correr("start", {QString::number(clearPort_), u"0"_s}));
        stlsPort_ = Servidor::Porta_Livre();
        tlsPort_ = Servidor::Porta_Livre();
        QVERIFY(encrypted_->Correr("start", {QString::number(stlsPort_), QString::number(tlsPort_)}));
    }

    void init()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        QVERIFY(both("user", {u"ana"_s, u"segredo9"_s}));
        trustTheServer();
    }

    void cleanupTestCase() { QSslConfiguration::setDefaultConfiguration(before_); }

    void the_messages_are_counted_data()
    {
        QTest::addColumn<QString>("way");
        QTest::addColumn<int>("messages");
        for (const char *way : {"plain", "STLS", "POP3S"})
            for (const int messages : {0, 1, 2, 500})
                QTest::addRow("%s, %d", way, messages) << QString::fromLatin1(way) << messages;
    }
    void the_messages_are_counted()
    {
        QFETCH(QString, way);
        QFETCH(int, messages);
        QVERIFY(both("deliver", {u"ana"_s, QString::number(messages)}));
        Watch watch(address(way), file());
        if (messages > 0)
            QCOMPARE(watch.newMessages(), messages);
        else
            QTest::qWait(700);
        QVERIFY(!watch.mail.Falhou());
        QCOMPARE(watch.mail.TemCorreio(), messages > 0);
        QVERIFY2(watch.pauses.maior < blocked, qPrintable(QString::number(watch.pauses.maior)));
    }

    void a_wrong_password_is_told_data() { everyWay(); }
    void a_wrong_password_is_told()
    {
        QFETCH(QString, way);
        Watch watch(address(way), file(), u"outra"_s);
        QCOMPARE(watch.failure(), textOf(MailError::Refused));
    }

    void new_mail_is_found_while_it_watches_and_announced_once_data() { everyWay(); }
    void new_mail_is_found_while_it_watches_and_announced_once()
    {
        QFETCH(QString, way);
        QVERIFY(both("deliver", {u"ana"_s, u"2"_s}));
        {
            Watch watch(address(way), file());
            QCOMPARE(watch.newMessages(), 2);
        }
        Watch again(address(way), file()); // as after a restart of the program
        QTest::qWait(700);
        QVERIFY(!again.mail.TemCorreio());
        QVERIFY(both("deliver", {u"ana"_s, u"1"_s}));
        QCOMPARE(again.newMessages(), 1);
    }

    void a_certificate_of_nobody_known_is_remembered_on_the_way_and_refused_from_the_first_byte()
    {
        QSslConfiguration::setDefaultConfiguration(before_);
        QVERIFY(both("deliver", {u"ana"_s, u"1"_s}));
        QCOMPARE(Watch(address(u"POP3S"_s), file()).failure(), textOf(MailError::Certificate));
        QCOMPARE(Watch(address(u"STLS"_s), file()).newMessages(), 1);

        QVERIFY(encrypted_->Correr("stop"));
        QVERIFY(encrypted_->Correr("certificate"));
        QVERIFY(encrypted_->Correr("start", {QString::number(stlsPort_), QString::number(tlsPort_)}));
        QCOMPARE(Watch(address(u"STLS"_s), file()).failure(), textOf(MailError::Certificate));
        trustTheServer(); // an authority that is known may give out another one
        Watch trusting(address(u"STLS"_s), file());
        QTest::qWait(700);
        QVERIFY(!trusting.mail.Falhou());
    }

    void an_account_once_encrypted_is_not_asked_for_in_the_clear()
    {
        const QString stls = address(u"STLS"_s);
        QVERIFY(both("deliver", {u"ana"_s, u"1"_s}));
        QCOMPARE(Watch(stls, file()).newMessages(), 1);
        QVERIFY(encrypted_->Correr("stop"));
        QVERIFY(encrypted_->Correr("start", {QString::number(stlsPort_), u"0"_s}));
        QCOMPARE(Watch(stls, file()).failure(), textOf(MailError::NotEncrypted));
        QVERIFY(encrypted_->Correr("stop"));
        QVERIFY(encrypted_->Correr("start", {QString::number(stlsPort_), QString::number(tlsPort_)}));
    }
};

MORVEX_TESTE(TestServidorPop3)
#include "test_servidor_pop3.moc"
