// Tables as they are written for a spreadsheet and for other programs.
#include "csv/CsvReader.h"
#include "csv/CsvWriter.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestCsvWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_excel_recebe_pontos_e_virgulas_e_a_marca()
    {
        QCOMPARE(writtenCsv({{u"Nome"_s, u"Nota"_s}, {u"Zé"_s, u"a \"b\""_s}}, CsvDialect::Excel),
                 QByteArray("\xEF\xBB\xBF\"Nome\";\"Nota\"\r\n\"Zé\";\"a \"\"b\"\"\"\r\n"));
    }

    void os_outros_recebem_virgulas_sem_marca()
    {
        QCOMPARE(writtenCsv({{u"a"_s, QString()}}, CsvDialect::Plain), QByteArray("\"a\",\"\"\r\n"));
    }

    void uma_celula_que_seria_formula_leva_um_apostrofo_e_um_numero_nao()
    {
        QCOMPARE(writtenCsv({{u"=1"_s, u"@a"_s, u"\tb"_s, u"\rc"_s, u"+351"_s, u"-1"_s, u"'x"_s}},
                            CsvDialect::Plain),
                 QByteArray("\"'=1\",\"'@a\",\"'\tb\",\"'\rc\",\"+351\",\"-1\",\"'x\"\r\n"));
    }

    void o_que_se_escreve_le_se_igual()
    {
        const std::vector<QStringList> linhas{
            {u"Nome"_s, u"Nota"_s, u"Outra"_s},
            {u"=Zé; \"o, bom\""_s, u"um\ndois\n"_s, u"'=três"_s},
            {u"''@"_s, QString(), u" espaço "_s},
            {QString(), QString(), QString()},
        };
        for (const CsvDialect dialecto : {CsvDialect::Excel, CsvDialect::Plain}) {
            const CsvTable lida = readCsv(writtenCsv(linhas, dialecto));
            QCOMPARE(lida.rows, linhas);
            QVERIFY(lida.hasHeader);
        }
    }
};

MORVEX_TESTE(TestCsvWriter)
#include "test_CsvWriter.moc"
