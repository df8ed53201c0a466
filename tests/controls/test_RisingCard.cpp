// The card that rises from the bottom of the primary screen, on a desktop of two screens of which the primary
// one begins neither at the left nor at the top.
#include "controls/RisingCard.h"
#include "controls/Units.h"
#include "testlib/Disparar.h"
#include "testlib/Teste.h"

#include <QAccessible>
#include <QPushButton>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

namespace
{
constexpr QRect primary{1024, 200, 1600, 900};
constexpr int screenWidth = 1600 * 15;
constexpr int screenHeight = 900 * 15;

struct Card {
    explicit Card(QSize size = {176, 111}, int timeout = 60000) : card(mainWindow, timeout)
    {
        card.resize(size);
        mainWindow.setEnabled(false);
        QObject::connect(&card, &RisingCard::Click, [this] { ++clicks; });
        QObject::connect(&card, &RisingCard::Unloaded, [this] { ++unloads; });
    }
    void riseToTheEnd()
    {
        card.rise();
        while (card.TimerUp.Enabled())
            Disparar(card.TimerUp);
    }
    QPoint expectedPosition() const
    {
        return primary.topLeft() + QPoint(pixels(card.Left()), pixels(card.Top()));
    }

    QWidget mainWindow;
    RisingCard card;
    int clicks = 0;
    int unloads = 0;
};

// Another window of the program, with a text to write in and a button.
struct Window {
    Window()
    {
        QObject::connect(&button, &QPushButton::clicked, [this] { ++presses; });
        window.show();
        if (!QTest::qWaitForWindowActive(&window))
            QTest::qFail("the window did not come", __FILE__, __LINE__);
        if (QApplication::focusWidget() != nullptr) QApplication::focusWidget()->clearFocus();
    }

    QWidget window;
    QLineEdit text{&window};
    QPushButton button{&window};
    int presses = 0;
};

bool onTop(const RisingCard &card) { return card.windowHandle()->flags() & Qt::WindowStaysOnTopHint; }
} // namespace

class TestRisingCard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_desktop_has_two_screens()
    {
        QCOMPARE(QGuiApplication::screens().size(), 2);
        QCOMPARE(QGuiApplication::primaryScreen()->geometry(), primary);
    }

    void before_its_rise_nothing_moves_it()
    {
        const Card c;
        QVERIFY(!c.card.TimerUp.Enabled() && !c.card.TimerDown.Enabled() && !c.card.TimerTimeout.Enabled());
        QCOMPARE(QPoint(c.card.Left(), c.card.Top()), QPoint(0, 0));
        QCOMPARE(c.card.TimerTimeout.timerType(), Qt::PreciseTimer);
    }

    void it_is_white_with_a_plain_frame_and_dark_letters_whatever_the_desktop()
    {
        const Card c;
        for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
            QCOMPARE(c.card.palette().color(role), QColor(Qt::white));
        QCOMPARE(c.card.palette().color(QPalette::WindowText), QColor(0x202830));
        QCOMPARE(c.card.frameStyle(), int{QFrame::Box} | int{QFrame::Plain});
    }

    void it_begins_below_the_edge_of_the_primary_screen_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("left");
        QTest::newRow("tasks") << QSize(176, 111) << screenWidth - 2640 - 100;
        QTest::newRow("mail") << QSize(174, 111) << screenWidth - 2610 - 100;
    }
    void it_begins_below_the_edge_of_the_primary_screen()
    {
        QFETCH(QSize, size);
        QFETCH(int, left);
        Card c(size);
        c.card.rise();
        QCOMPARE(c.card.Top(), screenHeight + 10);
        QCOMPARE(c.card.Left(), left);
        QCOMPARE(c.card.pos(), c.expectedPosition());
        QVERIFY(c.card.TimerUp.Enabled());
        QCOMPARE(c.card.TimerUp.interval(), 10);
        QVERIFY(!c.card.TimerDown.Enabled() && !c.card.TimerTimeout.Enabled());
    }

    void it_rises_by_fifty_twips_a_tick_and_stops_after_34()
    {
        Card c;
        c.card.rise();
        c.card.show();
        for (int tick = 1; tick <= 34; ++tick) {
            QVERIFY2(c.card.TimerUp.Enabled(), qPrintable(QString::number(tick)));
            QVERIFY(!onTop(c.card));
            Disparar(c.card.TimerUp);
            QCOMPARE(c.card.Top(), screenHeight + 10 - 50 * tick);
            QCOMPARE(c.card.pos(), c.expectedPosition());
        }
        QVERIFY(!c.card.TimerUp.Enabled());
        QCOMPARE(c.card.Top(), screenHeight - 1690);
        QCOMPARE(screenHeight - (c.card.Top() + 1665), 25);
    }

    void it_rises_until_less_than_ten_twips_of_it_are_below_the_edge_data()
    {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("ticks");
        QTest::newRow("just ten below, after 33") << 110 << 33;
        QTest::newRow("one pixel more") << 111 << 34;
        QTest::newRow("five below, after 34") << 113 << 34;
        QTest::newRow("twenty below, after 34") << 114 << 35;
    }
    void it_rises_until_less_than_ten_twips_of_it_are_below_the_edge()
    {
        QFETCH(const int, height);
        Card c({176, height});
        c.riseToTheEnd();
        QTEST((screenHeight + 10 - c.card.Top()) / 50, "ticks");
    }

    void at_its_stop_it_comes_on_top_and_stays_visible()
    {
        Card c;
        c.card.show();
        c.riseToTheEnd();
        QVERIFY(onTop(c.card));
        QVERIFY(c.card.isVisible());
        QCOMPARE(c.card.TimerUp.interval(), 3000);
    }

    void a_card_that_rose_hidden_is_on_top_once_it_shows()
    {
        Card c;
        c.riseToTheEnd();
        c.card.show();
        QVERIFY(onTop(c.card));
        QCOMPARE(c.card.pos(), c.expectedPosition());
    }

    void it_sinks_by_fifty_twips_a_tick_and_unloads_after_34()
    {
        Card c;
        c.card.show();
        c.riseToTheEnd();
        c.card.sink();
        QCOMPARE(c.card.TimerDown.interval(), 10);
        for (int tick = 1; tick <= 34; ++tick) {
            QVERIFY(c.card.TimerDown.Enabled() && !c.mainWindow.isEnabled());
            QCOMPARE(c.unloads, 0);
            Disparar(c.card.TimerDown);
            QCOMPARE(c.card.Top(), screenHeight - 1690 + 50 * tick);
        }
        QCOMPARE(c.card.Top(), screenHeight + 10);
        QVERIFY(!c.card.TimerDown.Enabled());
        QVERIFY(c.mainWindow.isEnabled());
        QVERIFY(!c.card.isVisible());
        QCOMPARE(c.unloads, 1);
    }

    void a_sink_asked_for_during_the_rise_waits_for_its_end()
    {
        Card c;
        c.card.show();
        c.card.rise();
        c.card.sink();
        Disparar(c.card.TimerUp);
        Disparar(c.card.TimerDown);
        QCOMPARE(c.card.Top(), screenHeight + 10 - 50);
        QTRY_COMPARE(c.unloads, 1);
        QCOMPARE(c.card.Top(), screenHeight + 10);
    }

    void a_card_that_has_something_new_to_show_turns_round_data()
    {
        QTest::addColumn<int>("ticks"); // of the sink, before it turns
        QTest::newRow("before the first step") << 0;
        QTest::newRow("half-way") << 17;
        QTest::newRow("almost gone") << 33;
    }
    void a_card_that_has_something_new_to_show_turns_round()
    {
        QFETCH(int, ticks);
        Card c;
        c.card.show();
        c.riseToTheEnd();
        c.card.sink();
        for (int tick = 0; tick < ticks; ++tick)
            Disparar(c.card.TimerDown);
        c.card.stayUp();
        QVERIFY(!c.card.TimerDown.Enabled());
        QCOMPARE(c.card.TimerUp.Enabled(), ticks > 0);
        if (ticks > 0) QCOMPARE(c.card.TimerUp.interval(), 10);
        QTRY_VERIFY(!c.card.TimerUp.Enabled());
        QCOMPARE(c.card.Top(), screenHeight - 1690);
        QCOMPARE(c.unloads, 0);
        QVERIFY(c.card.isVisible());
    }

    void a_card_that_is_not_sinking_stays_as_it_is()
    {
        Card c;
        c.card.show();
        c.card.rise();
        c.card.stayUp();
        QVERIFY(c.card.TimerUp.Enabled());
        while (c.card.TimerUp.Enabled())
            Disparar(c.card.TimerUp);
        c.card.stayUp();
        QVERIFY(!c.card.TimerUp.Enabled() && !c.card.TimerDown.Enabled());
        QCOMPARE(c.card.Top(), screenHeight - 1690);
    }

    void a_sink_called_off_during_the_rise_does_not_come()
    {
        Card c;
        c.card.show();
        c.card.rise();
        c.card.sink();
        c.card.stayUp();
        QVERIFY(c.card.TimerUp.Enabled() && !c.card.TimerDown.Enabled());
    }

    void the_timers_of_their_own_bring_it_up_and_away()
    {
        Card c({174, 111}, 50);
        c.card.show();
        c.card.rise();
        QTRY_COMPARE(c.card.Top(), screenHeight - 1690);
        c.card.TimerTimeout.setEnabled(true);
        QTRY_COMPARE(c.unloads, 1);
        QVERIFY(c.mainWindow.isEnabled());
    }

    void a_hidden_card_sinks_too()
    {
        Card c;
        c.riseToTheEnd();
        c.card.sink();
        while (c.card.TimerDown.Enabled())
            Disparar(c.card.TimerDown);
        QCOMPARE(c.unloads, 1);
        QVERIFY(c.mainWindow.isEnabled());
    }

    void a_left_click_on_the_card_or_on_what_it_shows_is_its_click()
    {
        Card c;
        QLabel label(u"text"_s, &c.card);
        c.card.show();
        QTest::mouseClick(&c.card, Qt::LeftButton);
        QCOMPARE(c.clicks, 1);
        QTest::mouseClick(&label, Qt::LeftButton);
        QCOMPARE(c.clicks, 2);
    }

    void the_window_system_does_not_close_it()
    {
        Card c;
        c.card.show();
        c.riseToTheEnd();
        QCloseEvent fromOutside;
        QSpontaneKeyEvent::setSpontaneous(&fromOutside);
        qApp->notify(&c.card, &fromOutside);
        QVERIFY(!fromOutside.isAccepted());
        QVERIFY(c.card.isVisible());
        QCOMPARE(c.unloads, 0);
    }

    void another_button_and_a_release_outside_are_none()
    {
        Card c;
        c.card.show();
        QTest::mouseClick(&c.card, Qt::RightButton);
        QTest::mousePress(&c.card, Qt::LeftButton);
        QTest::mouseRelease(&c.card, Qt::LeftButton, {}, {-5, -5});
        QCOMPARE(c.clicks, 0);
    }

    void it_never_takes_the_keyboard()
    {
        Card c;
        QVERIFY(c.card.testAttribute(Qt::WA_ShowWithoutActivating));
        QVERIFY(c.card.windowFlags() & Qt::WindowDoesNotAcceptFocus);
        QVERIFY(c.card.windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(c.card.windowType(), Qt::Tool);
    }

    void enter_and_space_in_any_window_are_its_click_while_the_main_window_is_disabled_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("return") << Qt::Key_Return;
        QTest::newRow("enter") << Qt::Key_Enter;
        QTest::newRow("space") << Qt::Key_Space;
    }
    void enter_and_space_in_any_window_are_its_click_while_the_main_window_is_disabled()
    {
        QFETCH(Qt::Key, key);
        Card c;
        Window w;
        c.card.show();
        QTest::keyClick(&w.window, key, key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
        QCOMPARE(c.clicks, 1);
        w.button.setFocus();
        QTest::keyClick(&w.button, key);
        QCOMPARE(c.clicks, 2);
        QCOMPARE(w.presses, 0);
    }

    void other_keys_and_a_key_held_down_are_not()
    {
        Card c;
        Window w;
        c.card.show();
        QTest::keyClick(&w.window, Qt::Key_A);
        QTest::keyClick(&w.window, Qt::Key_Return, Qt::ControlModifier);
        QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
        QCoreApplication::sendEvent(&w.window, &repeated);
        QCOMPARE(c.clicks, 0);
    }

    void a_text_that_is_being_written_keeps_its_keys()
    {
        Card c;
        Window w;
        c.card.show();
        w.text.setFocus();
        QTest::keyClick(&w.text, Qt::Key_Space);
        QCOMPARE(w.text.text(), u" "_s);
        QCOMPARE(c.clicks, 0);
    }

    void with_the_main_window_enabled_a_control_keeps_its_keys()
    {
        Card c;
        Window w;
        c.mainWindow.setEnabled(true);
        c.card.show();
        w.button.setFocus();
        QTest::keyClick(&w.button, Qt::Key_Space);
        QCOMPARE(w.presses, 1);
        QCOMPARE(c.clicks, 0);
    }

    void a_form_that_waits_for_an_answer_keeps_its_keys()
    {
        Card c;
        QDialog form;
        form.setModal(true);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        c.card.show();
        QTest::keyClick(&form, Qt::Key_Space);
        QCOMPARE(c.clicks, 0);
    }

    void an_answer_reaches_only_a_card_that_is_there_to_stay()
    {
        Card c;
        QVERIFY(!c.card.answer());
        c.card.show();
        QVERIFY(c.card.answer());
        QCOMPARE(c.clicks, 1);
        c.card.sink();
        QVERIFY(!c.card.answer());
        QCOMPARE(c.clicks, 1);
    }

    void to_a_screen_reader_it_is_an_alert_with_the_words_that_it_announces()
    {
        Card c;
        for (const QString &words : {u"Water"_s, u"Sow"_s}) {
            c.card.announce(words);
            const QAccessibleInterface *alert = QAccessible::queryAccessibleInterface(&c.card);
            QVERIFY(alert != nullptr);
            QCOMPARE(alert->role(), QAccessible::AlertMessage);
            QCOMPARE(alert->text(QAccessible::Name), words);
        }
    }
};

int main(int argc, char **argv)
{
    QTemporaryFile screens(QStringLiteral("screens-XXXXXX")); // here: what stands behind a colon is another argument
    if (!screens.open()) return 1;
    screens.write(R"({"screens": [
        {"name": "first", "x": 1024, "y": 200, "width": 1600, "height": 900,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "second", "x": 0, "y": 0, "width": 1024, "height": 768,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QDir().relativeFilePath(screens.fileName()).toUtf8());
    teste::CaixasDaAplicacao boxes;
    Application application(argc, argv, boxes);
    TestRisingCard tests;
    return QTest::qExec(&tests, argc, argv);
}
#include "test_RisingCard.moc"
