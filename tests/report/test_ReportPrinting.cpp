// Printing on a real spooler of the test's own, and where there is no printer.
#include "report/ReportPages.h"
#include "report/ReportPrinting.h"
#include "store/NewDatabase.h"
#include "testlib/Accoes.h"
#include "testlib/Teste.h"

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPrintDialog>
#include <QProcess>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
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
    // A shipped envelope for one contact.
    ReportPages Envelope(const QString &nome, const QHash<QString, QString> &parametros = {})
    {
        const QString base = folder_.filePath(u"envelope.mdb"_s);
        if (!QFile::exists(base))
            createDatabase(base,
                           {u"CREATE TABLE TblConfig (ID INTEGER, Remetente TEXT, Destinatario TEXT)"_s,
                            u"INSERT INTO TblConfig VALUES (1, 'Origem', '')"_s,
                            u"CREATE TABLE TblLista (ID INTEGER, Nome TEXT, Morada TEXT)"_s,
                            u"INSERT INTO TblLista VALUES (7, 'Zita', 'Lisboa'), (8, 'Rui', 'Porto')"_s});
        const ReportDefinition definition =
            readReportDefinition(qEnvironmentVariable("MORVEX_ENVIADOS") + u'/' + nome + u".rpt"_s);
        return {definition, ReportData(definition, base, u"{TblLista.ID} =7"_s, {}), parametros,
                QDate(2027, 2, 1)};
    }
    static bool Continuar(int, int) { return true; }

    QByteArray Pedido() const
    {
        QFile pedido(impressora_.Ultimo_Trabalho(u"txt"_s));
        return pedido.open(QIODevice::ReadOnly) ? pedido.readAll() : QByteArray();
    }
    QString Texto_Do_Trabalho() const
    {
        return Saida(u"pdftotext"_s, {impressora_.Ultimo_Trabalho(u"pdf"_s), u"-"_s}).simplified();
    }
    // Where a word begins on a landscape sheet, in millimetres from its top left. The spooler has turned the
    // sheet a quarter: its left edge lies at the bottom of the printed page.
    QPointF Lugar_Deitado(const QString &palavra) const
    {
        constexpr double pontos_por_mm = 72 / 25.4;
        constexpr double comprimento = 297;
        const QString caixas =
            Saida(u"pdftotext"_s, {u"-bbox"_s, impressora_.Ultimo_Trabalho(u"pdf"_s), u"-"_s});
        const QRegularExpression caixa(u"xMin=\"([\\d.]+)\"[^>]* yMax=\"([\\d.]+)\">%1<"_s.arg(palavra));
        const auto achada = caixa.match(caixas);
        if (!achada.hasMatch()) QTest::qFail(qPrintable(caixas), __FILE__, __LINE__);
        return {comprimento - achada.captured(2).toDouble() / pontos_por_mm,
                achada.captured(1).toDouble() / pontos_por_mm};
    }
    // In whole millimetres.
    static double Longe(QPointF lugar, QPointF esperado)
    {
        return std::round(QLineF(lugar, esperado).length());
    }
    // Answers the dialog of the printers.
    static void No_Dialogo(const QString &impressora, int copias,
                           QDialog::DialogCode resposta = QDialog::Accepted)
    {
        accoes::Quando_Abrir<QPrintDialog>([=](QPrintDialog &dialogo) {
            dialogo.findChild<QComboBox *>(u"printers"_s)->setCurrentText(impressora);
            dialogo.findChild<QSpinBox *>(u"copies"_s)->setValue(copias);
            resposta == QDialog::Accepted ? dialogo.accept() : dialogo.reject();
        });
    }

    // Answers it with that file, which stands behind all printers; of all pages, or of those from one to another.
    static void Escolher_O_Ficheiro(const QString &pdf, int primeira = 0, int ultima = 0)
    {
        accoes::Quando_Abrir<QPrintDialog>([=](QPrintDialog &dialogo) {
            auto *impressoras = dialogo.findChild<QComboBox *>(u"printers"_s);
            impressoras->setCurrentIndex(impressoras->count() - 1);
            dialogo.findChild<QLineEdit *>(u"filename"_s)->setText(pdf);
            if (primeira > 0) {
                dialogo.findChild<QRadioButton *>(u"printRange"_s)->setChecked(true);
                dialogo.findChild<QSpinBox *>(u"to"_s)->setValue(ultima);
                dialogo.findChild<QSpinBox *>(u"from"_s)->setValue(primeira);
            }
            dialogo.accept();
        });
    }

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
    void a_quinta_etiqueta_sai_no_seu_lugar_da_folha()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        constexpr double pontos_por_mm = 72 / 25.4;
        DesktopReportPrinter printer;
        ReportPages pages = Envelope(u"etiquetas_3x8"_s, {{u"primeira"_s, u"5"_s}});
        QCOMPARE(printer.print(pages, u"Etiquetas"_s, Continuar), PrintResult::Done);
        QCOMPARE(Texto_Do_Trabalho(), u"Zita Lisboa"_s);
        const QString caixas =
            Saida(u"pdftotext"_s, {u"-bbox"_s, impressora_.Ultimo_Trabalho(u"pdf"_s), u"-"_s});
        const QRegularExpression palavra(u"xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>Zita<"_s);
        const auto achada = palavra.match(caixas);
        QVERIFY2(achada.hasMatch(), qPrintable(caixas));
        // Second column and second row, and the label's own edge: 3.5 mm and 8.8 mm.
        const QPointF lugar(achada.captured(1).toDouble() / pontos_por_mm,
                            achada.captured(2).toDouble() / pontos_por_mm);
        QCOMPARE(Longe(lugar, {70 + 3.5, 0.5 + 37 + 8.8}), 0.0);
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
        for (const auto &nome : {u"Zita"_s, u"Rui"_s}) { // on a sheet each
            const QRegularExpression palavra(u"xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>%1<"_s.arg(nome));
            const auto achada = palavra.match(caixas);
            QVERIFY2(achada.hasMatch(), qPrintable(caixas));
            constexpr double polegada = 72; // points: 1,440 twips from either edge
            QVERIFY2(std::abs(achada.captured(1).toDouble() - polegada) < 2, qPrintable(achada.captured(0)));
            QVERIFY2(std::abs(achada.captured(2).toDouble() - polegada) < 6, qPrintable(achada.captured(0)));
        }
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
    void a_impressora_escolhida_recebe_duas_copias()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        No_Dialogo(u"Segunda"_s, 2);
        QCOMPARE(printer.choose(nullptr), PrintResult::Done);
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QVERIFY2(Pedido().contains("printer=Segunda") && Pedido().contains("copies=2"), Pedido());
        QCOMPARE(Texto_Do_Trabalho(), u"Zita 1/2 Rui 2/2 Zita 1/2 Rui 2/2"_s);
    }
    void desistir_da_escolha_deixa_a_impressora_de_antes()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        No_Dialogo(u"Segunda"_s, 1);
        QCOMPARE(printer.choose(nullptr), PrintResult::Done);
        No_Dialogo(u"Captura"_s, 3, QDialog::Rejected);
        QCOMPARE(printer.choose(nullptr), PrintResult::Cancelled);
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QVERIFY2(Pedido().contains("printer=Segunda"), Pedido());
        QVERIFY2(Pedido().contains("copies=1"), Pedido());
    }
    void uma_impressao_parada_nao_chega_a_impressora()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, [](int page, int) { return page < 1; }),
                 PrintResult::Cancelled);
        QVERIFY(Pedido().isEmpty());
    }
    void um_ficheiro_no_lugar_da_impressora_fica_inteiro_ou_como_estava()
    {
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        const QString pdf = folder_.filePath(u"saida.pdf"_s);
        DesktopReportPrinter printer;
        Escolher_O_Ficheiro(pdf);
        QCOMPARE(printer.choose(nullptr), PrintResult::Done);
        QFile velho(pdf);
        QVERIFY(velho.open(QIODevice::WriteOnly));
        velho.write("velho");
        velho.close();
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, [](int page, int) { return page < 1; }),
                 PrintResult::Cancelled);
        QVERIFY(velho.open(QIODevice::ReadOnly));
        QCOMPARE(velho.readAll(), "velho");
        velho.close();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QCOMPARE(Saida(u"pdftotext"_s, {pdf, u"-"_s}).simplified(), u"Zita 1/2 Rui 2/2"_s);
        QVERIFY(Pedido().isEmpty());
    }
    void so_se_imprimem_as_paginas_escolhidas_data()
    {
        QTest::addColumn<int>("primeira");
        QTest::addColumn<int>("ultima");
        QTest::addColumn<QString>("texto");
        QTest::newRow("the first") << 1 << 1 << u"Zita 1/2"_s;
        QTest::newRow("the second") << 2 << 2 << u"Rui 2/2"_s;
        QTest::newRow("both") << 1 << 2 << u"Zita 1/2 Rui 2/2"_s;
        QTest::newRow("more than there are") << 2 << 9 << u"Rui 2/2"_s;
    }
    void so_se_imprimem_as_paginas_escolhidas()
    {
        QFETCH(const int, primeira);
        QFETCH(const int, ultima);
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        const QString pdf = folder_.filePath(u"algumas.pdf"_s);
        DesktopReportPrinter printer;
        Escolher_O_Ficheiro(pdf, primeira, ultima);
        QCOMPARE(printer.choose(nullptr), PrintResult::Done);
        ReportPages pages = Relatorio();
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QTEST(Saida(u"pdftotext"_s, {pdf, u"-"_s}).simplified(), "texto");
    }
    void as_tres_alimentacoes_poem_o_envelope_no_seu_lugar_da_folha_data()
    {
        QTest::addColumn<double>("do_topo"); // mm from the top of the landscape sheet to that of the envelope
        QTest::newRow("envelope_left") << 0.0;
        QTest::newRow("envelope_center") << 50.0;
        QTest::newRow("envelope_right") << 100.0;
    }
    void as_tres_alimentacoes_poem_o_envelope_no_seu_lugar_da_folha()
    {
        QFETCH(double, do_topo);
        if (!Impressora::Possivel()) QSKIP("a spooler of its own needs root and the spooler's packages");
        QVERIFY(impressora_.Pronta());
        DesktopReportPrinter printer;
        ReportPages pages = Envelope(QString::fromLatin1(QTest::currentDataTag()));
        QCOMPARE(printer.print(pages, u"Titulo"_s, Continuar), PrintResult::Done);
        QVERIFY2(Pedido().contains("media=A4"), Pedido());
        QCOMPARE(Texto_Do_Trabalho(), u"Origem Zita Lisboa"_s);
        constexpr double da_esquerda = 77; // of the sheet, where the envelope begins
        QCOMPARE(Longe(Lugar_Deitado(u"Origem"_s), {da_esquerda + 10, do_topo + 10}), 0.0);
        QCOMPARE(Longe(Lugar_Deitado(u"Zita"_s), {da_esquerda + 110, do_topo + 50}), 0.0);
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
