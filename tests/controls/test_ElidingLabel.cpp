// What a label shows of a text that is too long for it.
#include "controls/ElidingLabel.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int width = 160;
constexpr int lines = 3;

struct Three_Lines {
    explicit Three_Lines(const QString &text)
    {
        label.setTextFormat(Qt::PlainText);
        label.setWordWrap(true);
        label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label.resize(width, lines * label.fontMetrics().lineSpacing() + 6); // not enough for a fourth
        label.setText(text);
    }
    ElidingLabel label;
};

void Compare_With_A_Plain_One(ElidingLabel &label)
{
    QLabel plain(label.text());
    plain.setTextFormat(label.textFormat());
    plain.setWordWrap(label.wordWrap());
    plain.setAlignment(label.alignment());
    plain.setIndent(label.indent());
    plain.resize(label.size());
    QCOMPARE(label.grab().toImage(), plain.grab().toImage());
}

const QString ellipsis(u'\u2026');
} // namespace

class TestElidingLabel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_text_that_fits_looks_as_on_any_label_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << QString();
        QTest::newRow("one line") << u"Water the plants"_s;
        QTest::newRow("wrapped") << u"Water the plants and then go to the market"_s;
        QTest::newRow("no markup") << u"<b>a</b> & b &c"_s;
        QTest::newRow("lines of its own") << u"one\ntwo\nthree"_s;
    }
    void a_text_that_fits_looks_as_on_any_label()
    {
        QFETCH(QString, text);
        Three_Lines t(text);
        Compare_With_A_Plain_One(t.label);
    }

    void a_title_that_fits_keeps_its_indent()
    {
        ElidingLabel label(u"Shopping"_s);
        label.setIndent(4);
        label.resize(width, 16);
        Compare_With_A_Plain_One(label);
    }

    void a_title_at_either_end_or_between_is_where_any_label_has_it_data()
    {
        QTest::addColumn<int>("side");
        QTest::newRow("left") << int{Qt::AlignLeft};
        QTest::newRow("right") << int{Qt::AlignRight};
        QTest::newRow("between") << int{Qt::AlignHCenter};
    }
    void a_title_at_either_end_or_between_is_where_any_label_has_it()
    {
        QFETCH(int, side);
        for (const int indent : {0, 5}) {
            ElidingLabel label(u"Shopping"_s);
            label.setAlignment(static_cast<Qt::Alignment>(side) | Qt::AlignVCenter);
            label.setIndent(indent);
            label.resize(width, 16);
            Compare_With_A_Plain_One(label);
        }
    }

    void the_last_line_that_fits_ends_in_dots()
    {
        Three_Lines t(u"Call the dentist about the appointment "_s.repeated(9));
        const QStringList shown = t.label.shownText().split(u'\n');
        QCOMPARE(shown.size(), lines);
        QVERIFY(shown.last().endsWith(ellipsis));
        QVERIFY(!shown.first().contains(ellipsis));
        for (const QString &line : shown)
            QVERIFY(t.label.fontMetrics().horizontalAdvance(line.trimmed()) <= width);
    }

    void lines_beyond_the_last_one_run_on_in_it()
    {
        const Three_Lines t(u"one\r\ntwo\r\nthree\r\nfour"_s);
        QCOMPARE(t.label.shownText(), u"one\ntwo\nthree four"_s);
        const Three_Lines longer(u"one\ntwo\nthree\nfour is the longest line of all of them"_s);
        QVERIFY(longer.label.shownText().startsWith("one\ntwo\nthree four"_L1));
        QVERIFY(longer.label.shownText().endsWith(ellipsis));
    }

    void blanks_at_the_end_of_the_last_line_make_no_dots()
    {
        const QString text = u"one\ntwo\nthree"_s + QString(80, u' ');
        const Three_Lines t(text);
        QVERIFY(t.label.fontMetrics().horizontalAdvance(text.section(u'\n', 2)) > width);
        QCOMPARE(t.label.shownText(), text);
    }

    void a_word_without_an_end_is_broken()
    {
        const Three_Lines t(QString(200, u'w'));
        const QStringList shown = t.label.shownText().split(u'\n');
        QCOMPARE(shown.size(), lines);
        QVERIFY(shown.last().endsWith(ellipsis));
    }

    void one_line_without_wrapping_is_cut_where_it_ends()
    {
        ElidingLabel label(u"Everything that is needed for the feast"_s);
        label.resize(width / 2, 16);
        QVERIFY(label.shownText().startsWith("Every"_L1));
        QVERIFY(label.shownText().endsWith(ellipsis));
        QCOMPARE(label.text(), u"Everything that is needed for the feast"_s);
    }

    void without_any_room_it_shows_what_it_can()
    {
        ElidingLabel label(u"Shopping"_s);
        label.resize(0, 0);
        QVERIFY(label.shownText().size() <= 1);
    }
};

MORVEX_TESTE(TestElidingLabel)
#include "test_ElidingLabel.moc"
