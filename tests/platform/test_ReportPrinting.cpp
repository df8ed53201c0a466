// Printing where there is no printer: it is said, and nothing is asked.
#include "platform/report/ReportPages.h"
#include "platform/report/ReportPrinting.h"
#include "platform/store/NewDatabase.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestReportPrinting : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;

    ReportPages Relatorio()
    {
        const QString path = folder_.filePath(u"r.rpt"_s);
        const QString base = folder_.filePath(u"base.mdb"_s);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(
                "<report table='T'><detail><row height='300'><text>{T.Nome}</text></row></detail></report>");
        file.close();
        if (!QFile::exists(base)) createDatabase(base, {u"CREATE TABLE T (Nome TEXT)"_s});
        const ReportDefinition definition = readReportDefinition(path);
        return {definition, ReportData(definition, base, {}, {}), {}, QDate(2027, 2, 1)};
    }

private Q_SLOTS:
    // Nobody listens there, whatever printers the machine has.
    void initTestCase() { qputenv("CUPS_SERVER", "127.0.0.1:1"); }

    void sem_impressora_nao_se_imprime()
    {
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio();
        bool painted = false;
        const auto watch = [&](int, int) { return painted = true; };
        QCOMPARE(printer.print(pages, u"Titulo"_s, watch), PrintResult::NoPrinter);
        QVERIFY(!painted);
    }
    void sem_impressora_nao_se_pergunta()
    {
        DesktopReportPrinter printer;
        QCOMPARE(printer.choose(nullptr), PrintResult::NoPrinter);
    }
};

MORVEX_TESTE(TestReportPrinting)
#include "test_ReportPrinting.moc"
