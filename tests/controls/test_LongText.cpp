// Texts of several lines: what a box gives back to the store.
#include "controls/LongText.h"
#include "testlib/Teste.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

class TestLongText : public QObject
{
    Q_OBJECT

    static QString Mixed_Lines(qsizetype size)
    {
        QString text;
        while (text.size() < size)
            text += u"one\r\ntwo\nthree\rfour\u00a0five\u2028six\n\n"_s;
        return text;
    }

private Q_SLOTS:
    void o_que_ninguem_mudou_volta_como_veio_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::newRow("empty") << QString(u""_s);
        QTest::newRow("one line") << u"one"_s;
        QTest::newRow("CR LF at the end") << u"one\r\n"_s;
        QTest::newRow("100 KB of mixed line ends") << Mixed_Lines(100 * 1024);
    }
    void o_que_ninguem_mudou_volta_como_veio()
    {
        QFETCH(QString, stored);
        QPlainTextEdit box;
        LongText text;
        text.load(box, stored);
        QCOMPARE(text.stored(box), stored);
    }

    void o_que_se_escreve_parte_as_linhas_com_cr_e_lf()
    {
        QPlainTextEdit box;
        const LongText text;
        QTest::keyClicks(&box, u"one"_s);
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClicks(&box, u"two"_s);
        QTest::keyClick(&box, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(&box, u"three"_s);
        QCOMPARE(text.stored(box), u"one\r\ntwo\r\nthree"_s);
    }

    void uma_letra_mudada_iguala_os_fins_de_linha_e_nada_mais()
    {
        QPlainTextEdit box;
        LongText text;
        text.load(box, u"12\u00a0rue\nLisboa\r\nPorto"_s);
        box.textCursor().insertText(u"n.º "_s);
        QCOMPARE(text.stored(box), u"n.º 12\u00a0rue\r\nLisboa\r\nPorto"_s);
    }

    void apagar_tudo_da_um_texto_vazio()
    {
        QPlainTextEdit box;
        LongText text;
        text.load(box, u"one\r\ntwo"_s);
        box.clear();
        QCOMPARE(text.stored(box), QString());
    }
};

MORVEX_TESTE(TestLongText)
#include "test_LongText.moc"
