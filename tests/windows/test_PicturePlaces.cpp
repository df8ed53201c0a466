// Where the picture of a contact lies, as its path is written there.
#include "platform/Picture.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestPicturePlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_complete_path_stands_as_it_is_and_all_others_below_the_program_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("place");
        QTest::newRow("disk") << u"C:\\fotos\\ana.png"_s << u"C:\\fotos\\ana.png"_s;
        QTest::newRow("disk, as Linux writes it") << u"C:/fotos/ana.png"_s << u"C:/fotos/ana.png"_s;
        QTest::newRow("share") << u"\\\\servidor\\fotos\\ana.png"_s << u"\\\\servidor\\fotos\\ana.png"_s;
        QTest::newRow("from the root of some disk") << u"\\fotos\\ana.png"_s << u"D:/dados//fotos/ana.png"_s;
        QTest::newRow("below") << u"fotos\\ana.png"_s << u"D:/dados/fotos/ana.png"_s;
        QTest::newRow("below, as Linux writes it") << u"fotos/ana.png"_s << u"D:/dados/fotos/ana.png"_s;
    }
    void a_complete_path_stands_as_it_is_and_all_others_below_the_program()
    {
        QFETCH(QString, stored);
        QFETCH(QString, place);
        QCOMPARE(pictureFile(u"D:/dados"_s, stored), place);
    }
};

QTEST_GUILESS_MAIN(TestPicturePlaces)
#include "test_PicturePlaces.moc"
