// Texts in the encodings that files come in.
#include "platform/TextEncoding.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestTextEncoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_become_text_and_text_bytes_data()
    {
        QTest::addColumn<QByteArray>("encoding");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("western") << QByteArray("windows-1252") << QByteArray("Jo\xE3o \x80") << u"João €"_s;
        QTest::newRow("cyrillic") << QByteArray("KOI8-R") << QByteArray("\xE1\xCE\xCE\xC1") << u"Анна"_s;
        QTest::newRow("japanese") << QByteArray("Shift_JIS") << QByteArray("\x93\xFA\x96\x7B") << u"日本"_s;
        QTest::newRow("four bytes") << QByteArray("GB18030") << QByteArray("\x94\x39\xDA\x33") << u"💩"_s;
        QTest::newRow("utf-8") << QByteArray("utf-8") << QByteArray("Jo\xC3\xA3o") << u"João"_s;
        QTest::newRow("utf-16") << QByteArray("utf-16le") << QByteArray("J\0\xE3\0", 4) << u"Jã"_s;
        QTest::newRow("nothing") << QByteArray("windows-1252") << QByteArray("") << u""_s;
    }
    void bytes_become_text_and_text_bytes()
    {
        QFETCH(QByteArray, encoding);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        const DecodedText decoded = decodedText(bytes, encoding);
        QVERIFY(decoded.known);
        QVERIFY(decoded.sound);
        QCOMPARE(decoded.text, text);
        QCOMPARE(encodedText(text, encoding), bytes);
    }

    // Old settings hold them, and must come back as they were.
    void the_five_free_places_of_the_western_code_page_stay_themselves()
    {
        const QByteArray bytes("\x81\x8D\x8F\x90\x9D");
        const DecodedText decoded = decodedText(bytes, "windows-1252");
        QVERIFY(decoded.sound);
        QCOMPARE(decoded.text, QString(u"\u0081\u008D\u008F\u0090\u009D"_s));
        QCOMPARE(encodedText(decoded.text, "windows-1252"), bytes);
    }

    void the_name_may_be_written_in_any_way()
    {
        QCOMPARE(decodedText("\xE3", "WINDOWS 1252").text, u"ã"_s);
        QCOMPARE(decodedText("\xC3\xA3", "UTF8").text, u"ã"_s);
    }

    void an_unknown_name_is_told()
    {
        for (const QByteArray &name : {QByteArray("x-nothing"), QByteArray(""), QByteArray("locale")}) { // this machine's
            QVERIFY(!decodedText("a", name).known);
            QVERIFY(encodedText(u"a"_s, name).isEmpty());
        }
    }

    void bytes_without_a_meaning_are_told_and_stand_as_one_mark()
    {
        for (const char *encoding : {"Shift_JIS", "utf-8"}) {
            const DecodedText decoded = decodedText("a\xFF"
                                                    "b",
                                                    encoding);
            QVERIFY(decoded.known);
            QVERIFY(!decoded.sound);
            QCOMPARE(decoded.text, u"a\uFFFDb"_s);
        }
    }

    void half_a_character_at_the_end_is_told()
    {
        QVERIFY(!decodedText("a\x93", "Shift_JIS").sound);
        QVERIFY(!decodedText("a\xC3", "utf-8").sound);
    }

    void a_character_that_the_encoding_has_not_becomes_a_question_mark()
    {
        QCOMPARE(encodedText(u"a日b"_s, "windows-1252"), QByteArray("a?b"));
        QCOMPARE(encodedText(u"a"_s + u"😀"_s.left(1), "windows-1252"), QByteArray("a?")); // half a one
    }
};

QTEST_APPLESS_MAIN(TestTextEncoding)
#include "test_TextEncoding.moc"
