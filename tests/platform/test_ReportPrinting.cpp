// Printing on a real spooler of the test's own, and where there is no printer.
#include "platform/report/ReportPages.h"
#include "platform/report/ReportPrinting.h"
#include "platform/store/NewDatabase.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
QString Saida(const QString &programa, const QStringList &argumentos)
{
    QProcess processo;
    processo.start(programa, argumentos);
    processo.waitForFinished();
    return QString::fromUtf8(processo.readAllStandardOutput());
}

// The spooler of tests/servidores, in a folder that others may enter. The toolkit knows one spooler a
// process, so there is one for all tests, and none as long as it hasn't been started.
class Impressora
{
public:
    Impressora()
    {
        QFile::setPermissions(pasta_.path(), QFileDevice::Permissions(0x7755));
        QTcpServer livre;
        livre.listen(QHostAddress::LocalHost);
        porta_ = QString::number(livre.serverPort());
        livre.close();
        qputenv("CUPS_SERVER", "127.0.0.1:" + porta_.toLatin1());
    }
    ~Impressora()
    {
        if (pronta_) Mandar(u"stop"_s);
    }
    Impressora(const Impressora &) = delete;
    Impressora &operator=(const Impressora &) = delete;

    bool Pronta()
    {
        if (!pronta_) pronta_ = Mandar(u"start"_s);
        return pronta_;
    }
    bool Mandar(const QString &comando) const
    {
        return QProcess::execute(QStringLiteral(MORVEX_SERVIDORES "/impressora"),
                                 {comando, pasta_.path(), porta_}) == 0;
    }
    // What the printer got last: "pdf", or "txt" for what was asked of it.
    QString Ultimo_Trabalho(const QString &tipo) const
    {
        Mandar(u"wait"_s);
        const QDir trabalhos(pasta_.filePath(u"jobs"_s));
        return trabalhos.filePath(trabalhos.entryList({u"*."_s + tipo}, QDir::Files, QDir::Name).value(0));
    }
    void Esvaziar() const
    {
        for (const QFileInfo &ficheiro : QDir(pasta_.filePath(u"jobs"_s)).entryInfoList(QDir::Files))
            QFile::remove(ficheiro.filePath());
    }

    static bool Possivel()
    {
        const auto ha = [](const char *nome, const QStringList &onde) {
            return !QStandardPaths::findExecutable(QLatin1StringView(nome), onde).isEmpty();
        };
        return geteuid() == 0 && ha("cupsd", {u"/usr/sbin"_s}) && ha("lpstat", {}) && ha("pdftotext", {}) &&
               QFile::exists(u"/usr/share/ppd/cupsfilters/Generic-PDF_Printer-PDF.ppd"_s);
    }

private:
    QTemporaryDir pasta_;
    QString porta_;
    bool pronta_ = false;
};
} // namespace

class TestReportPrinting : public QObject
{
    Q_OBJECT

    Impressora impressora_;
    QTemporaryDir folder_;

    ReportPages Relatorio(const QString &papel = {})
    {
        const QString path = folder_.filePath(u"r.rpt"_s);
        const QString base = folder_.filePath(u"base.mdb"_s);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write((u"<report table='T'>"_s + papel +
                        "<detail newpage='yes'><row height='300'><text left='1440' top='1440' width='5000' "
                        "height='300'>"
                        "{T.Nome} {page}/{pages}</text></row></detail></report>")
                           .toUtf8());
        file.close();
        if (!QFile::exists(base))
            createDatabase(base,
                           {u"CREATE TABLE T (Nome TEXT)"_s, u"INSERT INTO T VALUES ('Zita'), ('Rui')"_s});
        const ReportDefinition definition = readReportDefinition(path);
        return {definition, ReportData(definition, base, {}, {}), {}, QDate(2027, 2, 1)};
    }
    static bool Continuar(int, int) { return true; }

private Q_SLOTS:
    void cleanup() { impressora_.Esvaziar(); }

    // These two come first: nobody listens yet, whatever printers the machine has.

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
    void a_impressora_por_omissao_recebe_as_paginas()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        const QString pdf = impressora_.Ultimo_Trabalho(u"pdf"_s);
        QCOMPARE(Saida(u"pdftotext"_s, {pdf, u"-"_s}).simplified(), u"Zita 1/2 Rui 2/2"_s);
        QFile pedido(impressora_.Ultimo_Trabalho(u"txt"_s));
        QVERIFY(pedido.open(QIODevice::ReadOnly));
        const QByteArray opcoes = pedido.readAll();
        QVERIFY2(opcoes.contains("title=Titulo") && opcoes.contains("media=A4"), opcoes.constData());
    }
    void o_texto_fica_no_seu_lugar_da_folha()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        const QString caixas =
            Saida(u"pdftotext"_s, {u"-bbox"_s, impressora_.Ultimo_Trabalho(u"pdf"_s), u"-"_s});
        const QRegularExpression palavra(u"xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>Zita<"_s);
        const auto achada = palavra.match(caixas);
        QVERIFY2(achada.hasMatch(), qPrintable(caixas));
        constexpr double polegada = 72; // points: 1,440 twips from either edge
        QVERIFY2(std::abs(achada.captured(1).toDouble() - polegada) < 2, qPrintable(achada.captured(0)));
        QVERIFY2(std::abs(achada.captured(2).toDouble() - polegada) < 6, qPrintable(achada.captured(0)));
    }
    void um_envelope_vai_como_envelope()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio(u"<paper size='DL' orientation='landscape'/>"_s);
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QFile pedido(impressora_.Ultimo_Trabalho(u"txt"_s));
        QVERIFY(pedido.open(QIODevice::ReadOnly));
        const QByteArray opcoes = pedido.readAll();
        QVERIFY2(opcoes.contains("media=EnvDL"), opcoes.constData());
    }
    // The last one: the printer stays closed.
    void um_trabalho_recusado_e_notado()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta() && impressora_.Mandar(u"reject"_s));
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Rejected);
    }
};

MORVEX_TESTE(TestReportPrinting)
#include "test_ReportPrinting.moc"
