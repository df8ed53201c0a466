// Whose colours the windows have, on a system whose toolkit always finds some.
#include "controls/Palettes.h"
#include "platform/ColourScheme.h"
#include "testlib/Teste.h"

class TestColours : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void they_are_the_program_s_own_whatever_the_toolkit_found()
    {
        QVERIFY(ColourScheme::wantsOwnColours(false));
        QVERIFY(ColourScheme::wantsOwnColours(true));
    }

    void dark_windows_are_dark_and_light_ones_light_again()
    {
        auto &application = static_cast<Application &>(*qApp);
        const QPalette light = QApplication::palette();
        application.setDark(true);
        QCOMPARE(QApplication::palette().color(QPalette::Window), darkPalette().color(QPalette::Window));
        application.setDark(false);
        QCOMPARE(QApplication::palette().color(QPalette::Window), light.color(QPalette::Window));
    }
};

MORVEX_TESTE(TestColours)
#include "test_Colours.moc"
