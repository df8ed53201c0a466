// The hidden window by which the installer and the system end the program.
#include "platform/EndSignals.h"

#include <QDir>
#include <QTest>
#include <windows.h>

class TestEndSignals : public QObject
{
    Q_OBJECT

    static HWND window()
    {
        const QString folder = QDir::toNativeSeparators(QCoreApplication::applicationDirPath());
        return FindWindowW(L"MorvexEnd", folder.toStdWString().c_str());
    }

private Q_SLOTS:
    void closing_the_window_asks_for_the_end()
    {
        int asked = 0;
        const EndSignals signals_([&asked] { ++asked; });
        QVERIFY(window() != nullptr);
        PostMessageW(window(), WM_CLOSE, 0, 0);
        QTRY_COMPARE(asked, 1);
        QVERIFY(window() != nullptr); // whoever ends decides when
    }

    void the_window_goes_with_the_object_and_a_new_one_can_come()
    {
        for (int i = 0; i < 2; ++i) {
            const EndSignals signals_([] {});
            QVERIFY(window() != nullptr);
        }
        QVERIFY(window() == nullptr);
    }
};

QTEST_MAIN(TestEndSignals)
#include "test_EndSignals.moc"
