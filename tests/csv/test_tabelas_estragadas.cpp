// Damaged tables: whatever is done to one, it is read in a moment, and what was read survives being written.
#include "csv/CsvHeaders.h"
#include "csv/CsvReader.h"
#include "csv/CsvValues.h"
#include "csv/CsvWriter.h"
#include "testlib/Estragador.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QStringEncoder>

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

QList<QByteArray> Pedacos()
{
    return {"\r\n", "\n",     "\r",          "\"",       "\"\"",
            "'",    ";",      ",",           "\t",       "\xC3",
            "|",    "=",      "sep=",        "\xFF\xFE", QByteArray(1, '\0'),
            "9E+9", "31/2/1", "\xEF\xBB\xBF"};
}
} // namespace

class TestTabelasEstragadas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nenhum_estrago_para_o_leitor_nem_perde_uma_celula_ao_escrever()
    {
        Estragador estragador(Pedacos());
        const CsvHeaders cabecalhos;
        const QList<QByteArray> originais = Originais();
        double mais_lento = 0; // microseconds
        std::size_t linhas = 0;
        for (int i = 0; i < Estragador::Quantos(); ++i) {
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
        qInfo("%d files, %zu rows, the slowest %.1f ms", Estragador::Quantos(), linhas, mais_lento / 1000);
        QVERIFY(linhas > static_cast<std::size_t>(Estragador::Quantos()));
        constexpr double um_segundo = 1e6;
        QVERIFY(mais_lento < um_segundo);
    }
};

MORVEX_TESTE(TestTabelasEstragadas)
#include "test_tabelas_estragadas.moc"
