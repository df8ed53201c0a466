// Compound files, read back by following their tables from sector to sector, as another program does.
#include "report/writers/CompoundFile.h"
#include "testlib/Teste.h"

#include <QtEndian>

using namespace Qt::StringLiterals;

namespace
{
constexpr quint32 fim = 0xFFFFFFFE;
constexpr quint32 livre = 0xFFFFFFFF;
constexpr int no_cabecalho = 109; // sector numbers of the allocation table that the header holds
constexpr int numeros = 128;      // that a sector holds

struct Ficheiro {
    explicit Ficheiro(QByteArray conteudo) : bytes(std::move(conteudo))
    {
        for (int i = 0; i < no_cabecalho; ++i)
            Juntar_Tabela(Numero(-1, 19 + i));
        sobra = static_cast<int>(Numero(-1, 18));
        for (quint32 lista = Numero(-1, 17); lista != fim; lista = Numero(lista, numeros - 1)) {
            listas << lista;
            if (listas.size() > sobra) return; // a chain that does not end
            for (int i = 0; i < numeros - 1; ++i)
                Juntar_Tabela(Numero(lista, i));
        }
    }
    // A number of a sector; those of the header come before sector 0.
    quint32 Numero(qint64 sector, int lugar) const
    {
        const qint64 onde = (sector + 1) * 512 + lugar * 4;
        return onde + 4 <= bytes.size() ? qFromLittleEndian<quint32>(bytes.constData() + onde) : livre;
    }
    void Juntar_Tabela(quint32 sector)
    {
        if (sector != livre) tabela << sector;
    }
    quint32 Depois(quint32 sector) const { return Numero(tabela.value(sector / numeros), sector % numeros); }
    // What the first entry behind the root names.
    QByteArray Fluxo() const
    {
        const quint32 pasta = Numero(-1, 12);
        const qint64 entrada = (qint64{pasta} + 1) * 512 + 128;
        QByteArray lido;
        for (auto sector = qFromLittleEndian<quint32>(bytes.constData() + entrada + 116);
             sector != fim && lido.size() <= bytes.size(); sector = Depois(sector))
            lido += bytes.mid((qint64{sector} + 1) * 512, 512);
        return lido.first(
            std::min<qsizetype>(lido.size(), qFromLittleEndian<quint32>(bytes.constData() + entrada + 120)));
    }

    QByteArray bytes;
    QList<quint32> tabela;
    QList<quint32> listas;
    int sobra = 0;
};
} // namespace

class TestCompoundFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void de_um_ficheiro_de_qualquer_tamanho_le_se_o_que_la_foi_posto_data()
    {
        QTest::addColumn<int>("tamanho");
        QTest::addColumn<int>("listas");
        QTest::newRow("eight sectors") << 4096 << 0;
        QTest::newRow("one byte more") << 4097 << 0;
        QTest::newRow("the first table full to its end") << 126 * 512 << 0;
        QTest::newRow("a second table begun") << 127 * 512 << 0;
        QTest::newRow("as many tables as the header holds") << 13841 * 512 << 0;
        QTest::newRow("one more") << 13850 * 512 << 1;
        QTest::newRow("a list of tables full") << 29970 * 512 << 1;
        QTest::newRow("a second list") << 30000 * 512 << 2;
        QTest::newRow("a third list") << 47000 * 512 << 3;
    }
    void de_um_ficheiro_de_qualquer_tamanho_le_se_o_que_la_foi_posto()
    {
        QFETCH(const int, tamanho);
        QFETCH(const int, listas);
        QByteArray fluxo(tamanho, '\0');
        for (int i = 0; i + 4 <= tamanho; i += 4)
            qToLittleEndian(i, fluxo.data() + i);

        const Ficheiro lido(compoundFile(u"Livro"_s, fluxo));
        QCOMPARE(lido.bytes.size() % 512, 0);
        QVERIFY(lido.Fluxo() == fluxo);
        QCOMPARE(lido.sobra, listas);
        QCOMPARE(lido.listas.size(), listas);
        QCOMPARE(static_cast<int>(lido.Numero(-1, 11)), static_cast<int>(lido.tabela.size()));
        // Each sector is accounted for, and none that is not there.
        const qsizetype sectores = lido.bytes.size() / 512 - 1;
        for (qsizetype i = 0; i < lido.tabela.size() * numeros; ++i)
            if ((lido.Depois(static_cast<quint32>(i)) != livre) != (i < sectores))
                QFAIL(qPrintable(u"sector %1 of %2"_s.arg(i).arg(sectores)));
        for (const quint32 sector : lido.tabela)
            QCOMPARE(lido.Depois(sector), 0xFFFFFFFDu);
        for (const quint32 sector : lido.listas)
            QCOMPARE(lido.Depois(sector), 0xFFFFFFFCu);
    }
    void um_fluxo_curto_acaba_em_zeros()
    {
        const Ficheiro lido(compoundFile(u"Livro"_s, QByteArray("abc")));
        QCOMPARE(lido.Fluxo(), QByteArray("abc") + QByteArray(4093, '\0'));
    }
};

MORVEX_TESTE(TestCompoundFile)
#include "test_CompoundFile.moc"
