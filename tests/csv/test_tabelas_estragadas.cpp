// Damaged tables: whatever is done to one, it is read in a moment, and what was read survives being written.
// MORVEX_ESTRAGOS sets how many are tried.
#include "csv/CsvHeaders.h"
#include "csv/CsvReader.h"
#include "csv/CsvValues.h"
#include "csv/CsvWriter.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QStringEncoder>
#include <random>

using namespace Qt::StringLiterals;

namespace
{
QList<QByteArray> Originais()
{
    const QString texto =
        u"Nome;Phone 1 - Label;Phone 1 - Value;Aniversário;Notas\r\n"
        "\"Sá, Ana\";Móvel;+351 912 345 678;4/3/75;\"uma \"\"nota\"\"\r\nde duas linhas\"\r\n"
        "'=Rui;;3,51912E+11;0/0/00;'@x\r\n\r\n;;\r\n"_s;
    QStringEncoder utf16(QStringEncoder::Utf16LE);
    return {texto.toUtf8(), "\xEF\xBB\xBF" + texto.toUtf8(), texto.toLatin1(), QByteArray(utf16(texto)),
            "sep=|\r\n" + QString(texto).replace(u';', u'|').toUtf8()};
}

class Estragador
{
public:
    QByteArray operator()(QByteArray bytes)
    {
        for (int i = Ao_Acaso(6); i >= 0; --i)
            Estragar(bytes);
        return bytes;
    }

private:
    int Ao_Acaso(qsizetype limite)
    {
        return limite <= 0 ? 0 : static_cast<int>(acaso_() % static_cast<std::uint32_t>(limite));
    }

    void Estragar(QByteArray &bytes)
    {
        static const QList<QByteArray> pedacos{
            "\r\n", "\n",     "\r",          "\"",       "\"\"",
            "'",    ";",      ",",           "\t",       "\xC3",
            "|",    "=",      "sep=",        "\xFF\xFE", QByteArray(1, '\0'),
            "9E+9", "31/2/1", "\xEF\xBB\xBF"};
        const int onde = Ao_Acaso(bytes.size() + 1);
        switch (Ao_Acaso(6)) {
        case 0: // one byte
            if (onde < bytes.size()) bytes[onde] = static_cast<char>(Ao_Acaso(256));
            break;
        case 1: // a piece goes
            bytes.remove(onde, Ao_Acaso(40));
            break;
        case 2: // a piece comes twice
            bytes.insert(onde, bytes.mid(Ao_Acaso(bytes.size() + 1), Ao_Acaso(200)));
            break;
        case 3: // the end is missing
            if (Ao_Acaso(4) == 0) bytes.truncate(onde);
            break;
        default:
            bytes.insert(onde, pedacos.at(Ao_Acaso(pedacos.size())));
        }
    }

    std::mt19937 acaso_{20240229};
};

int Quantos()
{
    constexpr int na_suite = 2000;
    const int pedidos = qEnvironmentVariableIntValue("MORVEX_ESTRAGOS");
    return pedidos > 0 ? pedidos : na_suite;
}
} // namespace

class TestTabelasEstragadas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nenhum_estrago_para_o_leitor_nem_perde_uma_celula_ao_escrever()
    {
        Estragador estragador;
        const CsvHeaders cabecalhos;
        const QList<QByteArray> originais = Originais();
        double mais_lento = 0; // microseconds
        std::size_t linhas = 0;
        for (int i = 0; i < Quantos(); ++i) {
            const QByteArray ficheiro = estragador(originais.at(i % originais.size()));
            CsvTable lida;
            mais_lento = std::max(mais_lento, Tempo_Gasto([&] { lida = readCsv(ficheiro); }, 1));
            linhas += lida.rows.size();
            for (const QStringList &linha : lida.rows) {
                QVERIFY(!linha.isEmpty());
                QCOMPARE(cabecalhos.columns(linha).size(), static_cast<std::size_t>(linha.size()));
                const auto data = csvDate(linha.last(), dateOrder(linha, DateOrder::DayFirst), 2026);
                QVERIFY(!data ||
                        (data->day >= 1 && data->day <= 31 && data->month >= 1 && data->month <= 12));
            }
            const CsvTable relida =
                readCsv(writtenCsv(lida.rows, CsvDialect::Excel), {{}, u';', lida.hasHeader});
            QCOMPARE(relida.rows, lida.rows);
        }
        qInfo("%d files, %zu rows, the slowest %.1f ms", Quantos(), linhas, mais_lento / 1000);
        QVERIFY(linhas > static_cast<std::size_t>(Quantos()));
        constexpr double um_segundo = 1e6;
        QVERIFY(mais_lento < um_segundo);
    }
};

MORVEX_TESTE(TestTabelasEstragadas)
#include "test_tabelas_estragadas.moc"
