// Whether the desktop asks for dark windows, told by a portal on a bus of the test's own.
#include "controls/Palettes.h"
#include "platform/ColourScheme.h"
#include "testlib/Teste.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QProcess>
#include <QSignalSpy>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

// What a portal's settings offer: the question, and the news.
class Portal final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    uint esquema = 0;
    int perguntas = 0;

public Q_SLOTS:
    Q_SCRIPTABLE QDBusVariant Read(const QString &, const QString &)
    {
        ++perguntas;
        return QDBusVariant(QVariant::fromValue(QDBusVariant(esquema)));
    }

Q_SIGNALS:
    Q_SCRIPTABLE void SettingChanged(const QString &space, const QString &key, const QDBusVariant &value);
};

class TestColourScheme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty()) QSKIP("dbus-daemon is not installed");
        barramento_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(barramento_.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", barramento_.readAllStandardOutput().trimmed());
        ligacao_ =
            QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"), u"portal"_s);
        QVERIFY(ligacao_.isConnected());
    }

    void cleanup()
    {
        ligacao_.unregisterService(u"org.freedesktop.portal.Desktop"_s);
        ligacao_.unregisterObject(caminho_);
        Aplicacao().setDark(false);
    }

    void cleanupTestCase()
    {
        barramento_.terminate();
        barramento_.waitForFinished();
    }

    void um_ambiente_sem_portal_nao_diz_nada_e_nao_demora()
    {
        ColourScheme esquema;
        QSignalSpy dito(&esquema, &ColourScheme::darkTold);
        QElapsedTimer relogio;
        relogio.start();
        esquema.watch();
        QVERIFY(relogio.elapsed() < 1000); // the bus itself waits for 25 s
        QTest::qWait(200);
        QCOMPARE(dito.size(), 0);
    }

    void o_portal_diz_o_que_o_ambiente_pede_data()
    {
        QTest::addColumn<uint>("valor");
        QTest::addColumn<bool>("escuro");
        QTest::newRow("nada") << 0U << false;
        QTest::newRow("escuro") << 1U << true;
        QTest::newRow("claro") << 2U << false;
    }
    void o_portal_diz_o_que_o_ambiente_pede()
    {
        QFETCH(uint, valor);
        QFETCH(bool, escuro);
        Portal portal;
        Abrir(portal, valor);
        ColourScheme esquema;
        QSignalSpy dito(&esquema, &ColourScheme::darkTold);
        esquema.watch();
        QCOMPARE(portal.perguntas, 0); // nobody waits for the answer
        QVERIFY(dito.wait());
        QCOMPARE(dito.first().first().toBool(), escuro);
    }

    void a_mudanca_chega_enquanto_o_programa_corre()
    {
        Portal portal;
        Abrir(portal, 0);
        ColourScheme esquema;
        QSignalSpy dito(&esquema, &ColourScheme::darkTold);
        QObject::connect(&esquema, &ColourScheme::darkTold, &Aplicacao(), &Application::setDark);
        esquema.watch();
        QVERIFY(dito.wait());
        Q_EMIT portal.SettingChanged(u"org.gnome.desktop.interface"_s, u"color-scheme"_s, QDBusVariant(1U));
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"accent-color"_s, QDBusVariant(1U));
        QTest::qWait(100);
        QCOMPARE(dito.size(), 1); // these two settings are not asked for
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s, QDBusVariant(1U));
        QVERIFY(dito.wait());
        QCOMPARE(qApp->palette().color(QPalette::Window), darkPalette().color(QPalette::Window));
        Q_EMIT portal.SettingChanged(u"org.freedesktop.appearance"_s, u"color-scheme"_s, QDBusVariant(2U));
        QVERIFY(dito.wait());
        QVERIFY(qApp->palette().color(QPalette::Window) != darkPalette().color(QPalette::Window));
    }

private:
    static Application &Aplicacao() { return *static_cast<Application *>(qApp); }

    void Abrir(Portal &portal, uint valor)
    {
        portal.esquema = valor;
        QVERIFY(ligacao_.registerObject(caminho_, &portal, QDBusConnection::ExportScriptableContents));
        QVERIFY(ligacao_.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    const QString caminho_ = u"/org/freedesktop/portal/desktop"_s;
    QProcess barramento_;
    QDBusConnection ligacao_{u"none"_s};
};

MORVEX_TESTE(TestColourScheme)
#include "test_ColourScheme.moc"
