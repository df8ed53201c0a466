// What was freed goes back to the system.
#include "platform/FreeMemory.h"
#include "testlib/MemoriaSolta.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestFreeMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_que_foi_libertado_por_baixo_do_que_ainda_serve_volta_ao_sistema()
    {
        const MemoriaSolta solta;
        const double antes = MemoriaSolta::MB();
        returnFreeMemory();
        const double depois = MemoriaSolta::MB();
        QVERIFY(solta.Inteiro());
        if (!MemoriaSolta::Mede_Se()) return; // there only that nothing is lost can be told
        QVERIFY2(depois < antes - 0.75 * MemoriaSolta::MB_soltos,
                 qPrintable(u"%1 MB before, %2 MB after"_s.arg(antes).arg(depois)));
    }
};

MORVEX_TESTE(TestFreeMemory)
#include "test_FreeMemory.moc"
