// The filter of a file dialog, from the program's form to the toolkit's.
#include "platform/Dialogs.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_filtro_passa_a_forma_da_biblioteca_data()
    {
        QTest::addColumn<QString>("filter");
        QTest::addColumn<QString>("result");
        QTest::newRow("one") << u"Texto|*.txt"_s << u"Texto (*.txt)"_s;
        QTest::newRow("two patterns") << u"Imagens|*.bmp;*.gif"_s << u"Imagens (*.bmp *.gif)"_s;
        QTest::newRow("two entries") << u"Texto|*.txt|Dados|*.dat"_s << u"Texto (*.txt);;Dados (*.dat)"_s;
        QTest::newRow("patterns in the description") << u"Sons (*.wav)|*.wav"_s << u"Sons (*.wav)"_s;
        QTest::newRow("description without a pattern") << u"Texto"_s << u""_s;
        QTest::newRow("nothing") << u""_s << u""_s;
    }
    void o_filtro_passa_a_forma_da_biblioteca()
    {
        QFETCH(QString, filter);
        QFETCH(QString, result);
        QCOMPARE(toolkitFilter(filter), result);
    }
};

MORVEX_TESTE(TestDialogs)
#include "test_Dialogs.moc"
