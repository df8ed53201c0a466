// When the icon comes, told by a notification area that the test itself announces on a bus of its own. What
// the icon looks like only a real screen shows.
#include "platform/DesktopTray.h"
#include "testlib/Teste.h"

#include <QDBusConnection>
#include <QMenu>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
class Area : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered MEMBER presente)

public:
    // A host registers itself, and whoever waits for one is told.
    void Chegar()
    {
        presente = true;
        Q_EMIT StatusNotifierHostRegistered();
    }

    bool presente = false;

Q_SIGNALS:
    void StatusNotifierHostRegistered();
};

// An icon with its menu. Opening the menu of an icon that is not there tells nobody.
struct Icone {
    Icone()
    {
        QObject::connect(&tabuleiro, &Tray::menuAboutToOpen, [this](Tray::Look look) { vistos << look; });
    }
    QList<Tray::Look> Abrir_Menu()
    {
        vistos.clear();
        Q_EMIT menu.aboutToShow();
        return vistos;
    }

    QMenu menu;
    QList<Tray::Look> vistos;
    DesktopTray tabuleiro{QIcon(), QIcon()};
};
const QList<Tray::Look> nenhum;
const QList<Tray::Look> um{Tray::Look::Picture1};
constexpr int paciencia = 3000; // ms
} // namespace

class TestDesktopTray : public QObject
{
    Q_OBJECT

    QProcess barramento_;
    Area area_;

private Q_SLOTS:
    void initTestCase()
    {
        if (QStandardPaths::findExecutable(u"dbus-daemon"_s).isEmpty()) QSKIP("no dbus-daemon");
        barramento_.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(barramento_.waitForReadyRead());
        qputenv("DBUS_SESSION_BUS_ADDRESS", barramento_.readLine().trimmed());
        QDBusConnection bus = QDBusConnection::sessionBus();
        QVERIFY(bus.registerObject(u"/StatusNotifierWatcher"_s, &area_,
                                   QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSignals));
        QVERIFY(bus.registerService(u"org.kde.StatusNotifierWatcher"_s));
    }
    void init() { area_.presente = false; }
    void cleanupTestCase()
    {
        barramento_.kill();
        barramento_.waitForFinished();
    }

    void onde_ha_area_o_icone_vem_logo()
    {
        area_.presente = true;
        Icone icone;
        icone.tabuleiro.add(Tray::Look::Picture1, u"dica"_s, &icone.menu);
        QCOMPARE(icone.Abrir_Menu(), um);
    }
    void onde_nao_ha_area_o_icone_espera_que_ela_venha()
    {
        Icone icone;
        icone.tabuleiro.add(Tray::Look::Picture1, u"dica"_s, &icone.menu);
        QCOMPARE(icone.Abrir_Menu(), nenhum);
        area_.Chegar();
        QTRY_COMPARE_WITH_TIMEOUT(icone.Abrir_Menu(), um, paciencia);
    }
    void um_icone_retirado_antes_de_a_area_vir_ja_nao_vem()
    {
        Icone icone;
        icone.tabuleiro.add(Tray::Look::Picture1, u"dica"_s, &icone.menu);
        icone.tabuleiro.remove(Tray::Look::Picture1);
        area_.Chegar();
        QTRY_VERIFY_WITH_TIMEOUT(icone.tabuleiro.hasHost(), paciencia);
        QCOMPARE(icone.Abrir_Menu(), nenhum);
    }
    void retirar_o_icone_do_outro_aspecto_nao_retira_este()
    {
        Icone icone;
        icone.tabuleiro.add(Tray::Look::Picture1, u"dica"_s, &icone.menu);
        icone.tabuleiro.remove(Tray::Look::Picture2);
        area_.Chegar();
        QTRY_COMPARE_WITH_TIMEOUT(icone.Abrir_Menu(), um, paciencia);
    }
    void o_menu_diz_com_que_aspecto_esta_o_icone()
    {
        area_.presente = true;
        Icone icone;
        icone.tabuleiro.add(Tray::Look::Picture1, u"dica"_s, &icone.menu);
        icone.tabuleiro.remove(Tray::Look::Picture1);
        icone.tabuleiro.add(Tray::Look::Picture2, u"dica"_s, &icone.menu);
        QCOMPARE(icone.Abrir_Menu(), QList{Tray::Look::Picture2});
    }
};

MORVEX_TESTE(TestDesktopTray)
#include "test_DesktopTray.moc"
