// A caption as it is read: without the sign before the letter that triggers it.
#include "platform/Caption.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestCaption : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_single_sign_goes_and_a_double_one_stands_for_itself_data()
    {
        QTest::addColumn<QString>("plain");
        for (const auto &[caption, plain] :
             {std::pair{"&Ficheiro", "Ficheiro"}, {"Fi&cheiro", "Ficheiro"}, {"Nova", "Nova"}, {"A && B", "A & B"},
              {"&A && &B", "A & B"}, {"A &", "A &"}, {"&", "&"}, {"&&", "&"}, {"", ""}, {"&&&x", "&x"}})
            QTest::newRow(caption) << QString::fromLatin1(plain);
    }
    void a_single_sign_goes_and_a_double_one_stands_for_itself()
    {
        QTEST(withoutMnemonic(QString::fromLatin1(QTest::currentDataTag())), "plain");
    }
};

QTEST_APPLESS_MAIN(TestCaption)
#include "test_Caption.moc"
