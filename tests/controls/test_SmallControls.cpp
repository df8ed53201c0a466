// The small controls: what each tells of the mouse and of the keys, and what it draws.
#include "controls/Controls.h"
#include "controls/DisabledWindow.h"
#include "controls/DragLabel.h"
#include "controls/IconLabel.h"
#include "controls/ImageButton.h"
#include "controls/Label.h"
#include "controls/ModalForm.h"
#include "controls/Palettes.h"
#include "controls/PictureLabel.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "controls/WholeCharacters.h"
#include "testlib/Pinturas.h"
#include "testlib/Teste.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QScopeGuard>
#include <QTextEdit>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{
QPixmap Plain(const QColor &colour, QSize size)
{
    QPixmap pixmap(size);
    pixmap.fill(colour);
    return pixmap;
}

void Send(QWidget &widget, QEvent::Type type, QPoint place, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, place, widget.mapToGlobal(place), button, held, Qt::NoModifier);
    QApplication::sendEvent(&widget, &event);
}
void Release(QWidget &widget, QPoint place, Qt::MouseButton button)
{
    Send(widget, QEvent::MouseButtonRelease, place, button, Qt::NoButton);
}

// A desktop on which the letters that trigger a caption are underlined, or are not.
class Underlining : public QProxyStyle
{
public:
    explicit Underlining(int answer) : QProxyStyle(u"Fusion"_s), answer_(answer) {}
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override
    {
        return hint == SH_UnderlineShortcut ? answer_
                                            : QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    int answer_;
};

// From the first row with dark letters to the last one.
std::pair<int, int> Rows_Of_Letters(QWidget &widget)
{
    const QImage seen = widget.grab().toImage();
    std::pair rows{-1, -1};
    for (int y = 3; y < seen.height() - 3; ++y)
        for (int x = 6; x < seen.width() - 6; ++x)
            if (seen.pixelColor(x, y).lightness() < 100) {
                if (rows.first < 0) rows.first = y;
                rows.second = y;
            }
    return rows;
}

QColor Ground(const QWidget &field) { return field.palette().color(QPalette::Base); }

// Somebody whom each event makes fail.
class Failing : public QObject
{
public:
    template<class Thrown> bool hears(const Thrown &thrown)
    {
        fail_ = [thrown] { throw thrown; };
        QEvent said(QEvent::User);
        return QCoreApplication::sendEvent(this, &said);
    }
    bool event(QEvent *) override
    {
        fail_();
        return false;
    }

private:
    std::function<void()> fail_;
};

// A window whose fields can take the keyboard.
template<class Field> struct InAWindow {
    InAWindow()
    {
        field.move(0, 40);
        window.show();
        window.activateWindow();
        other.setFocus();
        QCoreApplication::processEvents();
    }
    QWidget window;
    QPushButton other{&window};
    Field field{&window};
};
} // namespace

class TestSmallControls : public QObject
{
    Q_OBJECT

    template<class Clicked> static void Check_Clicks(Clicked &widget)
    {
        widget.resize(20, 10);
        QSignalSpy clicks(&widget, &Clicked::Click);
        Release(widget, {19, 9}, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
        Release(widget, {5, 5}, Qt::RightButton);
        Release(widget, {20, 5}, Qt::LeftButton);
        Release(widget, {5, -1}, Qt::LeftButton);
        QCOMPARE(clicks.count(), 1);
    }

    template<class Field>
    static void Check_Colour(bool coloured, const std::function<void(Field &)> &make = {})
    {
        InAWindow<Field> in;
        if (make) make(in.field);
        const QColor before = Ground(in.field);
        in.field.setFocus();
        QCoreApplication::processEvents();
        QVERIFY(in.field.hasFocus());
        QCOMPARE(Ground(in.field), coloured ? QColor(0xff, 0xff, 0xc0) : before);
        in.other.setFocus();
        QCoreApplication::processEvents();
        QCOMPARE(Ground(in.field), before);
    }

private Q_SLOTS:
    void a_button_without_picture_and_caption_still_looks_like_one()
    {
        ImageButton button;
        button.resize(60, 30);
        const QImage drawn = button.grab().toImage();
        QImage plain(drawn.size(), drawn.format());
        plain.fill(drawn.pixelColor(30, 15));
        QVERIFY(drawn != plain);
    }

    void only_the_left_button_let_go_inside_clicks_a_picture()
    {
        IconLabel icon;
        Check_Clicks(icon);
        PictureLabel picture;
        Check_Clicks(picture);
    }

    void an_icon_is_drawn_in_the_middle_and_pale_where_it_is_disabled()
    {
        IconLabel label;
        label.resize(20, 10);
        label.setIcon(QIcon(Plain(Qt::red, {10, 10})));
        QCOMPARE(label.grab().toImage().pixelColor(10, 5), QColor(Qt::red));
        QVERIFY(label.grab().toImage().pixelColor(4, 5) != QColor(Qt::red));
        QVERIFY(label.grab().toImage().pixelColor(15, 5) != QColor(Qt::red));
        label.setEnabled(false);
        QVERIFY(label.grab().toImage().pixelColor(10, 5) != QColor(Qt::red));
    }

    void the_keys_that_press_a_button_click_a_picture_once()
    {
        PictureLabel picture;
        QSignalSpy clicks(&picture, &PictureLabel::Click);
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
            QTest::keyClick(&picture, key);
        QCOMPARE(clicks.count(), 3);
        QTest::keyClick(&picture, Qt::Key_A);
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(&picture, &held);
        QCOMPARE(clicks.count(), 3);
    }

    void a_picture_with_the_keyboard_has_a_frame_of_two_pixels()
    {
        InAWindow<PictureLabel> in;
        in.field.setFocusPolicy(Qt::StrongFocus);
        in.field.resize(40, 30);
        in.field.setPixmap(Plain(Qt::green, {40, 30}));
        const auto column = [&] {
            const QImage seen = in.field.grab().toImage();
            return QList<QColor>{seen.pixelColor(0, 15),  seen.pixelColor(1, 15),  seen.pixelColor(2, 15),
                                 seen.pixelColor(37, 15), seen.pixelColor(38, 15), seen.pixelColor(39, 15)};
        };
        const QColor picture(Qt::green);
        QCOMPARE(column(), QList<QColor>(6, picture));
        in.field.setFocus();
        const QColor frame = in.field.palette().color(QPalette::Highlight);
        QCOMPARE(column(), (QList<QColor>{frame, frame, picture, picture, frame, frame}));
    }

    void a_drag_tells_where_the_corner_belongs_and_that_it_has_ended()
    {
        DragLabel label(u"Title"_s);
        label.setGeometry(100, 100, 60, 20);
        QSignalSpy dragged(&label, &DragLabel::Dragged);
        QSignalSpy dropped(&label, &DragLabel::Dropped);
        Send(label, QEvent::MouseButtonPress, {7, 4}, Qt::LeftButton, Qt::LeftButton);
        Send(label, QEvent::MouseMove, {17, 34}, Qt::NoButton, Qt::LeftButton);
        QCOMPARE(dragged.takeFirst().at(0).toPoint(), label.mapToGlobal(QPoint(10, 30)));
        Release(label, {18, 35}, Qt::RightButton);
        QCOMPARE(dropped.count(), 0);
        Release(label, {18, 35}, Qt::LeftButton);
        QCOMPARE(dragged.takeFirst().at(0).toPoint(), label.mapToGlobal(QPoint(11, 31)));
        QCOMPARE(dropped.count(), 1);
        Release(label, {18, 35}, Qt::LeftButton); // the drag is over
        QCOMPARE(dragged.count() + dropped.count(), 1);
    }

    void a_mere_click_and_another_button_drag_nothing()
    {
        DragLabel label(u"Title"_s);
        QSignalSpy dragged(&label, &DragLabel::Dragged);
        QSignalSpy dropped(&label, &DragLabel::Dropped);
        Send(label, QEvent::MouseButtonPress, {7, 4}, Qt::LeftButton, Qt::LeftButton);
        Release(label, {7, 4}, Qt::LeftButton);
        Send(label, QEvent::MouseMove, {17, 34}, Qt::NoButton, Qt::RightButton);
        Send(label, QEvent::MouseMove, {17, 34}, Qt::NoButton, Qt::NoButton);
        QCOMPARE(dragged.count() + dropped.count(), 0);
    }

    // Six pixels before the picture, and as many between it and the caption.
    void a_button_has_its_picture_left_of_its_caption()
    {
        ImageButton button;
        button.resize(120, 30);
        button.setIconSize({16, 16});
        button.setIcon(QIcon(Plain(Qt::red, {16, 16})));
        const QImage bare = button.grab().toImage();
        QVERIFY(bare.pixelColor(5, 15) != QColor(Qt::red));
        QCOMPARE(bare.pixelColor(6, 15), QColor(Qt::red));
        QCOMPARE(bare.pixelColor(21, 15), QColor(Qt::red));
        QVERIFY(bare.pixelColor(22, 15) != QColor(Qt::red));
        QCOMPARE(bare.pixelColor(14, 7), QColor(Qt::red));
        QVERIFY(bare.pixelColor(14, 6) != QColor(Qt::red));

        button.setText(u"HHHHHH"_s);
        const QImage written = button.grab().toImage();
        int first = bare.width();
        for (int y = 4; y < 26; ++y)
            for (int x = 22; x < first; ++x)
                if (written.pixel(x, y) != bare.pixel(x, y)) first = x;
        QVERIFY2(first >= 27 && first <= 30, qPrintable(QString::number(first)));
        button.setEnabled(false);
        QVERIFY(button.grab().toImage().pixelColor(14, 15) != QColor(Qt::red));
    }

    void a_caption_too_wide_for_a_button_runs_over_two_lines()
    {
        ImageButton button;
        button.resize(60, 40);
        button.setText(u"HHHH HHHH"_s);
        const auto rows = [&] {
            const QImage seen = button.grab().toImage();
            int written = 0;
            for (int y = 3; y < 37; ++y) {
                bool letters = false;
                for (int x = 6; x < 54; ++x)
                    letters = letters || seen.pixelColor(x, y).lightness() < 100;
                written += letters ? 1 : 0;
            }
            return written;
        };
        const int two = rows();
        button.setText(u"HHHH"_s);
        QVERIFY(rows() > 0);
        QCOMPARE(two, 2 * rows());
    }

    void a_caption_stands_as_high_as_that_of_a_label_beside_it()
    {
        for (const int height : {30, 31}) {
            ImageButton button;
            button.setText(u"HHHH"_s);
            QLabel label(u"HHHH"_s);
            for (QWidget *each : {static_cast<QWidget *>(&button), static_cast<QWidget *>(&label)})
                each->resize(60, height);
            QCOMPARE(Rows_Of_Letters(button), Rows_Of_Letters(label));
        }
    }

    void the_letter_that_triggers_a_button_is_underlined_where_the_desktop_wants_it()
    {
        Underlining does(1);
        Underlining does_not(0);
        ImageButton button;
        button.resize(60, 30);
        const auto seen = [&button](QStyle &style, const QString &caption) {
            button.setStyle(&style);
            button.setText(caption);
            return button.grab().toImage();
        };
        QCOMPARE(seen(does_not, u"&Hoje"_s), seen(does_not, u"Hoje"_s));
        QVERIFY(seen(does, u"&Hoje"_s) != seen(does, u"Hoje"_s));
        button.setStyle(nullptr);
    }

    void another_icon_is_seen_at_once()
    {
        IconLabel label;
        label.resize(20, 10);
        label.show();
        QVERIFY(QTest::qWaitForWindowExposed(&label));
        QTest::qWait(50);
        const Pinturas paintings(label);
        label.setIcon(QIcon(Plain(Qt::red, {10, 10})));
        QTRY_VERIFY(paintings.vezes > 0);
    }

    void a_label_tells_of_another_text_alone()
    {
        Label label;
        QSignalSpy changes(&label, &Label::Change);
        label.setCaption(u"5"_s);
        label.setCaption(u"5"_s);
        QCOMPARE(changes.count(), 1);
        label.setCaption(u"6"_s);
        QCOMPARE(changes.count(), 2);
        QCOMPARE(label.text(), u"6"_s);
    }

    void a_field_drops_half_a_character_and_keeps_the_cursor()
    {
        QLineEdit field;
        keepWholeCharacters(field);
        const QString smile = u"😀"_s;
        field.setText(u"ab"_s + smile.left(1));
        QCOMPARE(field.text(), u"ab"_s);
        field.setText(smile.mid(1) + u"a"_s + smile + u"b"_s + smile.left(1) + u"c"_s);
        QCOMPARE(field.text(), u"a"_s + smile + u"bc"_s);
        field.setText(smile);
        QCOMPARE(field.text(), smile);
        field.setMaxLength(3);
        field.setText(u"ab"_s);
        field.setCursorPosition(1);
        field.insert(smile); // only half of it has room
        QCOMPARE(field.text(), u"ab"_s);
        field.setMaxLength(4);
        field.setText(u"abc"_s);
        field.setCursorPosition(1);
        field.insert(smile);
        QCOMPARE(field.text(), u"abc"_s);
        QCOMPARE(field.cursorPosition(), 2); // and not at the end
        field.setText(smile.left(1) + u"a"_s + smile);
        QCOMPARE(field.text(), u"a"_s + smile);
    }

    void each_kind_of_field_has_the_colour_of_the_keyboard()
    {
        Check_Colour<QLineEdit>(true);
        Check_Colour<QPlainTextEdit>(true);
        Check_Colour<QTextEdit>(true);
        Check_Colour<QComboBox>(true);
        Check_Colour<QDateTimeEdit>(true);
    }
    void what_is_no_field_keeps_its_colour()
    {
        Check_Colour<QPushButton>(false);
        Check_Colour<QLineEdit>(false, [](QLineEdit &field) { field.setReadOnly(true); });
        Check_Colour<QPlainTextEdit>(false, [](QPlainTextEdit &field) { field.setReadOnly(true); });
        Check_Colour<QTextEdit>(false, [](QTextEdit &field) { field.setReadOnly(true); });
        Check_Colour<QLineEdit>(false, [](QLineEdit &field) { field.setProperty("ownBackground", true); });
    }

    void a_field_reached_by_tab_has_all_its_text_marked()
    {
        InAWindow<QLineEdit> in;
        in.field.setText(u"Ana"_s);
        QTest::keyClick(&in.other, Qt::Key_Tab);
        QCOMPARE(in.field.selectedText(), u"Ana"_s);
    }

    void a_control_that_is_not_there_is_named()
    {
        QWidget form;
        form.setObjectName("frmTeste"_L1);
        try {
            control<QLineEdit>(form, u"txtNome"_s);
            QFAIL("there was one");
        } catch (const Failure &failure) {
            QCOMPARE(failure.number(), int{Failure::ItemNotFound});
            QCOMPARE(failure.source(), u"frmTeste"_s);
            QCOMPARE(failure.description(), u"No control named txtNome"_s);
        }
    }

    void a_hidden_control_keeps_its_place()
    {
        QWidget hidden;
        keepPlaceWhenHidden(hidden);
        QVERIFY(hidden.sizePolicy().retainSizeWhenHidden());
    }

    void a_form_that_hides_in_between_stays_the_running_one()
    {
        QDialog form;
        QStringList seen;
        QTimer::singleShot(0, &form, [&] {
            seen << (form.windowModality() == Qt::ApplicationModal && form.isVisible() ? u"shown"_s
                                                                                       : u"not"_s);
            form.hide();
            QTimer::singleShot(20, &form, [&] {
                seen << u"back"_s;
                form.show();
                form.accept();
            });
        });
        runModal(form);
        QCOMPARE(seen, (QStringList{u"shown"_s, u"back"_s}));
        QCOMPARE(form.result(), int{QDialog::Accepted});
    }

    void a_window_is_disabled_alone_and_gets_its_keyboard_back()
    {
        InAWindow<QLineEdit> in;
        in.field.setFocus();
        QDialog in_front(&in.window);
        QDialog switched_off(&in.window);
        switched_off.setEnabled(false);
        {
            const DisabledWindow disabled(in.window);
            QVERIFY(!in.window.isEnabled() && in_front.isEnabled() && !switched_off.isEnabled());
            QCOMPARE(in.window.focusWidget(), nullptr);
        }
        QVERIFY(in.window.isEnabled());
        QCOMPARE(in.window.focusWidget(), &in.field);
    }

    void a_window_without_a_keyboard_of_its_own_gets_none_back()
    {
        QWidget window;
        window.show();
        {
            const DisabledWindow disabled(window);
        }
        QVERIFY(window.isEnabled());
        QCOMPARE(window.focusWidget(), nullptr);
    }

    void a_control_that_went_meanwhile_gets_no_keyboard()
    {
        InAWindow<QLineEdit> in;
        in.field.setFocus();
        {
            const DisabledWindow disabled(in.window);
            in.field.hide();
        }
        QVERIFY(in.window.focusWidget() != &in.field);
    }

    void a_control_that_took_the_keyboard_meanwhile_keeps_it()
    {
        InAWindow<QLineEdit> in;
        in.field.setFocus();
        {
            const DisabledWindow disabled(in.window);
            in.window.setEnabled(true);
            in.other.setFocus();
        }
        QCOMPARE(in.window.focusWidget(), &in.other);
    }

    void what_nobody_caught_is_told_in_a_box_and_the_program_goes_on()
    {
        CaixasFalsas boxes;
        const auto back = qScopeGuard([before = std::exchange(teste::caixas_actuais, &boxes)] {
            teste::caixas_actuais = before;
        });
        Failing somebody;
        boxes.Espera_Erro(Failure::ItemNotFound);
        QVERIFY(somebody.hears(Failure(Failure::ItemNotFound, u"x"_s, u"y"_s)));
        boxes.Espera_Erro(Failure::StoreError);
        QVERIFY(somebody.hears(std::runtime_error("no room")));
        QVERIFY(boxes.Todas_Vistas());
    }

    void that_the_server_went_is_told_in_a_box_only_in_front_of_a_form()
    {
        CaixasFalsas boxes;
        const auto back = qScopeGuard([before = std::exchange(teste::caixas_actuais, &boxes)] {
            teste::caixas_actuais = before;
        });
        const Failure gone(Failure::StoreError, u"x"_s, u"y"_s, Failure::Kind::ServerLost);
        Failing somebody;
        QVERIFY(somebody.hears(gone)); // the main window has a line for it
        QDialog form;
        form.setModal(true);
        form.show();
        boxes.Espera_Erro(Failure::StoreError);
        QVERIFY(somebody.hears(gone));
        boxes.Espera_Erro(Failure::ItemNotFound);
        QVERIFY(somebody.hears(Failure(Failure::ItemNotFound, u"x"_s, u"y"_s)));
        QVERIFY(boxes.Todas_Vistas());
    }

    void the_program_has_its_name_its_picture_and_goes_on_without_a_window()
    {
        QCOMPARE(QApplication::applicationName(), u"Morvex"_s);
        QCOMPARE(QGuiApplication::desktopFileName(), u"morvex"_s);
        QVERIFY(!QGuiApplication::quitOnLastWindowClosed());
        QCOMPARE(QApplication::windowIcon().pixmap(32).toImage(),
                 QIcon(u":/imagens/morvex.svg"_s).pixmap(32).toImage());
        QVERIFY(!QApplication::windowIcon().pixmap(32).isNull());
        QCOMPARE(QApplication::font().pixelSize(), scale::standardLetters);
        QCOMPARE(qApp->palette().color(QPalette::Link),
                 lightPalette(qApp->style()->standardPalette()).color(QPalette::Link));
    }
};

MORVEX_TESTE(TestSmallControls)
#include "test_SmallControls.moc"
