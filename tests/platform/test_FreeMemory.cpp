// What was freed goes back to the system.
#include "platform/FreeMemory.h"
#include "testlib/Teste.h"

#include <array>
#include <QFile>

using namespace Qt::StringLiterals;

namespace
{
double Memoria_MB()
{
    constexpr double pagina = 4096 / 1e6;
    QFile ficheiro(u"/proc/self/statm"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    return ficheiro.readAll().split(' ').value(1).toDouble() * pagina;
}

using Pedaco = std::array<char, 1000>; // small ones come out of the heap, large ones have pages of their own
} // namespace

class TestFreeMemory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_que_foi_libertado_por_baixo_do_que_ainda_serve_volta_ao_sistema()
    {
#ifndef Q_OS_LINUX
        QSKIP("the memory of a process is read from /proc");
#endif
        std::vector<std::unique_ptr<Pedaco>> pedacos;
        for (int i = 0; i < 40000; ++i) {
            pedacos.push_back(std::make_unique<Pedaco>());
            pedacos.back()->fill('x');
        }
        pedacos.erase(pedacos.begin(), pedacos.end() - 1); // the last one holds the heap's end
        const double antes = Memoria_MB();
        returnFreeMemory();
        const double depois = Memoria_MB();
        QVERIFY2(depois < antes - 30, qPrintable(u"%1 MB before, %2 MB after"_s.arg(antes).arg(depois)));
        QCOMPARE(pedacos.back()->front(), 'x');
    }
};

MORVEX_TESTE(TestFreeMemory)
#include "test_FreeMemory.moc"
