// The frames that the system draws, dark or light with the program's windows.
#include "platform/DarkFrames.h"

#include <QTest>
#include <QWindow>

class TestDarkFrames : public QObject
{
    Q_OBJECT

    using Told = QList<std::pair<WId, bool>>;

private Q_SLOTS:
    void a_window_that_is_there_follows_each_change()
    {
        Told told;
        DarkFrames frames([&told](WId window, bool dark) { told << std::pair(window, dark); });
        QWindow window;
        window.create();
        QVERIFY(told.isEmpty()); // it is light by nature
        frames.setDark(true);
        frames.setDark(true);
        frames.setDark(false);
        QCOMPARE(told, (Told{{window.winId(), true}, {window.winId(), false}}));
    }

    void a_window_that_comes_while_it_is_dark_comes_dark()
    {
        Told told;
        DarkFrames frames([&told](WId window, bool dark) { told << std::pair(window, dark); });
        frames.setDark(true);
        QWindow window;
        window.create();
        QCOMPARE(told, (Told{{window.winId(), true}}));
    }

    void a_window_within_another_has_no_frame()
    {
        Told told;
        DarkFrames frames([&told](WId window, bool dark) { told << std::pair(window, dark); });
        QWindow window;
        window.create();
        QWindow before(&window);
        before.create();
        frames.setDark(true);
        QWindow behind(&window);
        behind.create();
        QCOMPARE(told, (Told{{window.winId(), true}}));
    }

    void a_window_that_goes_is_told_nothing_more()
    {
        Told told;
        DarkFrames frames([&told](WId window, bool dark) { told << std::pair(window, dark); });
        frames.setDark(true);
        {
            QWindow window;
            window.create();
            QCOMPARE(told.size(), 1);
        }
        QCOMPARE(told.size(), 1);
    }

    void one_that_was_never_made_is_not_made_for_it()
    {
        Told told;
        DarkFrames frames([&told](WId window, bool dark) { told << std::pair(window, dark); });
        const QWindow window;
        frames.setDark(true);
        QVERIFY(told.isEmpty());
        QVERIFY(window.handle() == nullptr);
    }
};

QTEST_MAIN(TestDarkFrames)
#include "test_DarkFrames.moc"
