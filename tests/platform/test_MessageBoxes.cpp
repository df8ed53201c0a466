// The message boxes of the desktop: icons, answers, and what a long text does to them.
#include "platform/MessageBoxes.h"

#include "controls/Scale.h"
#include "platform/Failure.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;
using accoes::Quando_Abrir;

class TestMessageBoxes : public QObject
{
    Q_OBJECT

    DesktopMessageBoxes boxes_;

    static QString Lines(int count)
    {
        QStringList lines;
        for (int i = 1; i <= count; ++i)
            lines << u"Grupo criado: %1"_s.arg(i);
        return lines.join(u"\r\n"_s);
    }

private Q_SLOTS:
    void the_flags_choose_the_icon_data()
    {
        QTest::addColumn<int>("flags");
        QTest::addColumn<int>("icon");
        QTest::newRow("none") << 0 << int{QMessageBox::NoIcon};
        QTest::newRow("stop") << 16 << int{QMessageBox::Critical};
        QTest::newRow("exclamation") << 48 << int{QMessageBox::Warning};
        QTest::newRow("information") << 64 << int{QMessageBox::Information};
    }
    void the_flags_choose_the_icon()
    {
        QFETCH(int, flags);
        QFETCH(int, icon);
        Quando_Abrir<QMessageBox>([icon](QMessageBox &box) {
            QCOMPARE(int{box.icon()}, icon);
            QCOMPARE(box.windowTitle(), u"Título"_s);
            QCOMPARE(box.textFormat(), Qt::PlainText);
            QCOMPARE(box.text(), u"<b>um</b>"_s);
            box.button(QMessageBox::Ok)->click();
        });
        QCOMPARE(boxes_.show(u"<b>um</b>"_s, flags, u"Título"_s, nullptr), answer::ok);
    }

    void flags_and_answers_are_the_numbers_that_messages_carry()
    {
        QCOMPARE((QList<int>{box::ok, box::stop, box::exclamation, box::information}), (QList<int>{0, 16, 48, 64}));
        QCOMPARE(int{box::question | box::yesNo}, 36);
        QCOMPARE(int{box::exclamation | box::yesNo}, 52);
        QCOMPARE(int{box::stop | box::retryLeave}, 21);
        QCOMPARE((QList<int>{answer::ok, answer::leave, answer::retry, answer::yes, answer::no}),
                 (QList<int>{1, 2, 4, 6, 7}));
    }

    void a_question_closed_without_an_answer_is_no()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::Yes)->click(); });
        QCOMPARE(boxes_.show(u"?"_s, box::question | box::yesNo, {}, nullptr), answer::yes);
        Quando_Abrir<QMessageBox>([](QMessageBox &box) { box.button(QMessageBox::No)->click(); });
        QCOMPARE(boxes_.show(u"?"_s, box::question | box::yesNo, {}, nullptr), answer::no);
        Quando_Abrir<QMessageBox>([](QMessageBox &box) { box.close(); });
        QCOMPARE(boxes_.show(u"?"_s, box::question | box::yesNo, {}, nullptr), answer::no);
    }

    void a_box_that_is_closed_without_an_answer_takes_the_way_out()
    {
        constexpr int flags = box::stop | box::retryLeave;
        const auto press = [](const QString &caption) {
            Quando_Abrir<QMessageBox>([caption](QMessageBox &box) {
                for (QAbstractButton *button : box.buttons())
                    if (button->text() == caption) return button->click();
                QTest::qFail("no such button", __FILE__, __LINE__);
                box.close();
            });
        };
        press(u"&Try again"_s);
        QCOMPARE(boxes_.show(u"?"_s, flags, {}, nullptr), answer::retry);
        press(u"&Leave"_s);
        QCOMPARE(boxes_.show(u"?"_s, flags, {}, nullptr), answer::leave);
        Quando_Abrir<QMessageBox>([](QMessageBox &box) { box.close(); });
        QCOMPARE(boxes_.show(u"?"_s, flags, {}, nullptr), answer::leave);
    }

    void another_try_is_offered_first_and_in_each_language_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("retry");
        QTest::addColumn<QString>("leave");
        const auto row = [](const char *language, const QString &retry, const QString &leave) {
            QTest::newRow(language) << QString::fromLatin1(language) << retry << leave;
        };
        row("PortuguesPT", u"&Tentar de novo"_s, u"&Sair"_s);
        row("PortuguesBR", u"&Tentar de novo"_s, u"&Sair"_s);
        row("InglesUK", u"&Try again"_s, u"&Leave"_s);
        row("EspanholES", u"&Reintentar"_s, u"&Salir"_s);
        row("ItalianoIT", u"&Riprova"_s, u"&Esci"_s);
        row("FrancesFR", u"&Réessayer"_s, u"&Quitter"_s);
        row("AlemaoDE", u"&Erneut versuchen"_s, u"&Beenden"_s);
    }
    void another_try_is_offered_first_and_in_each_language()
    {
        QFETCH(QString, language);
        QFETCH(QString, retry);
        QFETCH(QString, leave);
        boxes_.setLanguage([language] { return language; });
        Quando_Abrir<QMessageBox>([&](QMessageBox &box) {
            const auto close = qScopeGuard([&] { box.close(); });
            QCOMPARE(box.defaultButton()->text(), retry);
            QCOMPARE(box.escapeButton()->text(), leave);
            QCOMPARE(box.buttons().size(), 2);
        });
        QCOMPARE(boxes_.show(u"?"_s, box::stop | box::retryLeave, {}, nullptr), answer::leave);
        boxes_.setLanguage([] { return QString(); });
    }

    void a_text_taller_than_the_screen_scrolls_and_the_button_stays_in_reach_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<bool>("scrolls");
        QTest::newRow("a short one") << 12 << false;
        QTest::newRow("500 lines") << 500 << true;
    }
    void a_text_taller_than_the_screen_scrolls_and_the_button_stays_in_reach()
    {
        QFETCH(int, lines);
        QFETCH(bool, scrolls);
        Quando_Abrir<QMessageBox>([&](QMessageBox &box) {
            QCoreApplication::processEvents();
            const QSize screen = box.screen()->availableSize();
            QVERIFY(box.height() < screen.height() * 8 / 10);
            const auto *button = box.button(QMessageBox::Ok);
            QVERIFY(box.rect().contains(button->geometry()));
            QCOMPARE(box.text(), Lines(lines));
            const auto *scroll = box.findChild<QScrollArea *>();
            QCOMPARE(scroll != nullptr, scrolls);
            if (scrolls) {
                QVERIFY(scroll->verticalScrollBar()->maximum() > screen.height());
                QCOMPARE(qobject_cast<QLabel *>(scroll->widget())->text(), Lines(lines));
                QVERIFY(!scroll->geometry().intersects(button->parentWidget()->geometry()));
            }
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.show(Lines(lines), box::exclamation, {}, nullptr);
    }

    void a_long_text_has_as_many_lines_in_large_letters_as_in_standard_ones()
    {
        const QString text = u"Grupo criado: Fornecedores. "_s.repeated(12);
        QList<int> lines;
        for (const int letters : {scale::standardLetters, 13, 15}) {
            scale::setLetters(letters);
            Quando_Abrir<QMessageBox>([&](QMessageBox &box) {
                QCoreApplication::processEvents();
                const auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
                lines << label->height() / label->fontMetrics().lineSpacing();
                QVERIFY(box.width() < box.screen()->availableSize().width());
                box.button(QMessageBox::Ok)->click();
            });
            boxes_.show(text, box::information, {}, nullptr);
        }
        scale::setLetters(scale::standardLetters);
        QVERIFY(lines[0] > 2);
        QVERIFY2(lines[1] <= lines[0] && lines[2] <= lines[0], qPrintable(QDebug::toString(lines)));
    }

    void a_line_is_as_wide_as_its_letters_want_and_never_wider_than_four_fifths_of_the_screen_data()
    {
        QTest::addColumn<int>("letters"); // pixels
        QTest::addColumn<int>(
            "width"); // of the text, in hundredths of the screen; 0 for 420 pixels of the standard
        QTest::newRow("standard") << scale::standardLetters << 0;
        QTest::newRow("three times as large") << 3 * scale::standardLetters << 80;
    }
    void a_line_is_as_wide_as_its_letters_want_and_never_wider_than_four_fifths_of_the_screen()
    {
        QFETCH(int, letters);
        QFETCH(int, width);
        scale::setLetters(letters);
        Quando_Abrir<QMessageBox>([&](QMessageBox &box) {
            const auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
            const int screen = box.screen()->availableSize().width();
            QVERIFY(420 * 100 / 80 < screen && screen < 420 * 3 * 100 / 80);
            QCOMPARE(label->minimumWidth(), width == 0 ? 420 : screen * width / 100);
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.show(u"Grupo criado: Fornecedores. "_s.repeated(6), box::information, {}, nullptr);
        scale::setLetters(scale::standardLetters);
    }

    void a_short_text_takes_no_more_than_its_own_width()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            const auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
            QCOMPARE(label->minimumWidth(), label->fontMetrics().size(0, u"Contacto gravado."_s).width());
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.show(u"Contacto gravado."_s, box::information, {}, nullptr);
    }

    void what_scrolls_takes_three_fifths_of_the_screens_height()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            const auto *scroll = box.findChild<QScrollArea *>();
            QVERIFY(scroll != nullptr);
            QCOMPARE(scroll->minimumSize(), QSize(480, box.screen()->availableSize().height() * 60 / 100));
            QCOMPARE(scroll->frameShape(), QFrame::NoFrame);
            QCOMPARE(scroll->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
            QCoreApplication::processEvents();
            QCOMPARE(scroll->widget()->width(), scroll->viewport()->width());
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.show(Lines(500), box::exclamation, {}, nullptr);
    }

    void a_line_without_an_end_is_broken_and_scrolls_too()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            QCoreApplication::processEvents();
            QVERIFY(box.findChild<QScrollArea *>() != nullptr);
            QVERIFY(box.width() < box.screen()->availableSize().width());
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.show(u"palavra "_s.repeated(5000), box::exclamation, {}, nullptr);
    }

    void a_question_offers_yes_first_and_the_others_only_ok()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            QCOMPARE(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
            QCOMPARE(box.defaultButton(), box.button(QMessageBox::Yes));
            QCOMPARE(int{box.icon()}, int{QMessageBox::Question});
            box.close();
        });
        boxes_.show(u"?"_s, box::question | box::yesNo, {}, nullptr);
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            QCOMPARE(box.standardButtons(), QMessageBox::Ok);
            box.close();
        });
        QCOMPARE(boxes_.show(u"."_s, box::information, {}, nullptr), answer::ok);
    }

    void a_box_without_a_title_has_the_programs_name()
    {
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            QVERIFY(!box.windowTitle().isEmpty());
            QCOMPARE(box.windowTitle(), QApplication::applicationDisplayName());
            box.close();
        });
        MessageBoxes &boxes = boxes_;
        QCOMPARE(boxes.show(u"."_s, box::ok, nullptr), answer::ok);
    }

    void an_error_is_cut_to_what_a_person_can_read()
    {
        const QString bytes = QString(u'\0') + QString(200'000, u'x') + u"\n\n"_s.repeated(5000);
        Quando_Abrir<QMessageBox>([](QMessageBox &box) {
            const QString shown = box.text() + box.informativeText();
            QVERIFY(shown.size() < 1500);
            QVERIFY(!shown.contains(u'\0'));
            QVERIFY(box.text().startsWith(u"A separator is missing: "_s));
            QVERIFY(box.text().endsWith(u'…'));
            QVERIFY(box.informativeText().contains(u"13"_s));
            QVERIFY(box.findChild<QScrollArea *>() == nullptr);
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.showError(Failure(13, bytes, u"A separator is missing: "_s + bytes));
    }

    void a_short_error_is_shown_whole_and_its_number_and_source_in_small()
    {
        bool seen = false;
        Quando_Abrir<QMessageBox>([&seen](QMessageBox &box) {
            seen = true;
            QCOMPARE(box.text(), u"\"x\" is no date"_s);
            QCOMPARE(box.informativeText(), u"13 · Value"_s);
            QCOMPARE(box.windowTitle(), QApplication::applicationDisplayName());
            QCOMPARE(int{box.icon()}, int{QMessageBox::Critical});
            const auto *small = box.findChild<QLabel *>(u"qt_msgbox_informativelabel"_s);
            const auto *large = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
            QCOMPARE(small->font().pixelSize(), large->font().pixelSize() - 2);
            QCOMPARE(small->textFormat(), Qt::PlainText);
            box.button(QMessageBox::Ok)->click();
        });
        boxes_.showError(Failure(13, u"Value"_s, u"\"x\" is no date"_s));
        QVERIFY(seen);
    }

    void what_a_person_can_mend_is_said_in_the_active_language_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("words");
        QTest::newRow("Portuguese") << u"PortuguesPT"_s << u"O disco está cheio"_s;
        QTest::newRow("German") << u"AlemaoDE"_s << u"Der Datenträger ist voll"_s;
        QTest::newRow("none yet: the desktop's") << u""_s << u"The disk is full"_s;
    }
    void what_a_person_can_mend_is_said_in_the_active_language()
    {
        QFETCH(QString, language);
        QFETCH(QString, words);
        DesktopMessageBoxes boxes;
        boxes.setLanguage([language] { return language; });
        Quando_Abrir<QMessageBox>([words](QMessageBox &box) {
            QVERIFY2(box.text().startsWith(words), qUtf8Printable(box.text()));
            QVERIFY(!box.text().contains(u"database or disk is full"_s));
            QCOMPARE(box.informativeText(), u"-2147467259 · Connection\ndatabase or disk is full"_s);
            box.button(QMessageBox::Ok)->click();
        });
        boxes.showError(Failure(Failure::StoreError, u"Connection"_s, u"database or disk is full"_s,
                                Failure::Kind::DiskFull));
    }
};

MORVEX_TESTE(TestMessageBoxes)
#include "test_MessageBoxes.moc"
