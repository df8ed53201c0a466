// Measures the list's report with many contacts: its preview, its PDF and its exported files, the files of
// the full sheets, and the previews of several sheets a page, of labels and of the list with groups. Each
// part runs in a process of its own, so that the memory it says is its own peak, and stands beside its floor
// in the same run: for the PDF the same texts painted by a bare painter, for the rest the same texts read by
// a bare query and, for a file, as many bytes written. Usage: bench_relatorio [number of contacts]
#include "platform/Clock.h"
#include "platform/Dialogs.h"
#include "platform/MessageBoxes.h"
#include "platform/ReplaceFile.h"
#include "report/CrystalReport.h"
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportPrinting.h"
#include "report/ReportView.h"
#include "store/Connection.h"

#include <cstdio>
#include <ctime>
#include <QApplication>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
const auto ordem = u"+{TblLista.Nome}"_s;

struct Medida {
    double ms = 0;
    double cpu = 0;   // ms of the processor, which a busy machine stretches less
    double MB = 0;    // the peak of the process
    qint64 bytes = 0; // of the file
};

double Memoria_MB()
{
    QFile ficheiro(u"/proc/self/status"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray &linha : ficheiro.readAll().split('\n'))
        if (linha.startsWith("VmHWM:")) return linha.simplified().split(' ').value(1).toDouble() / 1024;
    return 0;
}

class Cronometro
{
public:
    // What has passed since it was made, with the process's peak of memory.
    Medida Parar(qint64 bytes = 0) const
    {
        return {Agora(CLOCK_MONOTONIC) - inicio_, Agora(CLOCK_PROCESS_CPUTIME_ID) - cpu_, Memoria_MB(),
                bytes};
    }

private:
    static double Agora(clockid_t relogio)
    {
        timespec agora{};
        clock_gettime(relogio, &agora);
        return static_cast<double>(agora.tv_sec) * 1e3 + static_cast<double>(agora.tv_nsec) / 1e6;
    }

    double inicio_ = Agora(CLOCK_MONOTONIC);
    double cpu_ = Agora(CLOCK_PROCESS_CPUTIME_ID);
};

QString Definicao(const QString &nome) { return QStringLiteral(MORVEX_ENVIADOS "/") + nome + u".rpt"_s; }

QString Base_Cheia(const QTemporaryDir &pasta, int quantos)
{
    QString base = pasta.filePath(u"morvex.mdb"_s);
    QFile::copy(QStringLiteral(MORVEX_ENVIADOS "/morvex.mdb"), base);
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.Open();
    ligacao.execute(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
        "INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3, Dia, "
        "Mes, Ano, "
        "Email1, Email2, Website, Morada, Obs, Fotografia, Grupo) "
        "SELECT 'Contacto ' || (i * 7919 % 32767) || ' da Conceição', '+351 22 ' || (1000000 + i), '', "
        "'22 ' || (2000000 + i), '+351 91 ' || (3000000 + i), '', '', '5', '03', 1900 + i % 100, "
        "'contacto' || i || '@example.org', '', 'http://www.example.org/' || i, "
        "'Rua Direita ' || i || char(13, 10) || '1000-001 Lisboa', "
        "'Nota ' || i || ': ' || replace(hex(zeroblob(73)), '00', 'ção '), '', 1 FROM n"_s,
        {qint64{quantos}});
    return base;
}

// Answers every question for a file with the same one.
class SempreOMesmo final : public Dialogs
{
public:
    explicit SempreOMesmo(QString ficheiro) : ficheiro_(std::move(ficheiro)) {}
    std::optional<QString> openFile(const QString &, const QString &, QWidget *) override { return {}; }
    std::optional<QString> saveFile(const QString &, const QString &, QWidget *) override
    {
        return ficheiro_;
    }
    std::optional<QString> folder(const QString &, const QString &, QWidget *) override { return {}; }
    std::optional<QFont> font(const QFont &, QWidget *) override { return {}; }
    std::optional<QColor> colour(const QColor &, QWidget *) override { return {}; }
    std::optional<QString> input(const QString &, const QString &, QWidget *) override { return {}; }

private:
    QString ficheiro_;
};

// The report control as the program has it, with all that a run of it needs.
struct Controlo {
    Controlo(const QString &definicao, const QString &base, const QString &ficheiro) : dialogos(ficheiro)
    {
        relatorio.setReportFileName(Definicao(definicao));
        relatorio.setConnect(base);
        relatorio.setDataFiles(0, base);
        relatorio.setSortFields(0, ordem);
    }
    DesktopMessageBoxes caixas;
    SempreOMesmo dialogos;
    SystemClock relogio;
    CrystalReport relatorio{caixas, dialogos, relogio, [] { return u"PortuguesPT"_s; }};
};

// Notes when the widget has been painted for the first time.
class PrimeiraPintura final : public QObject
{
public:
    explicit PrimeiraPintura(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *widget, QEvent *evento) override
    {
        if (evento->type() != QEvent::Paint || pintado) return false;
        widget->removeEventFilter(this);
        QCoreApplication::sendEvent(widget, evento);
        pintado = true;
        return true;
    }
    bool pintado = false;
};

// From the order to run until the first page is on the screen; the memory at the end of a look at every tenth
// page.
Medida Previsao(const QString &definicao, const QString &base)
{
    Controlo c(definicao, base, {});
    c.relatorio.setWindowState(ReportControl::maximised);
    const Cronometro cronometro;
    c.relatorio.setAction(1);
    auto *vista = c.relatorio.preview()->findChild<ReportView *>();
    const PrimeiraPintura pintura(*vista->viewport());
    while (!pintura.pintado)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Medida medida = cronometro.Parar();
    while (!vista->pages()->complete())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int pagina = 0; pagina < vista->pages()->found(); pagina += 10) {
        vista->goTo(pagina);
        QCoreApplication::processEvents();
    }
    medida.MB = Memoria_MB();
    return medida;
}

Medida Exportacao(const QString &definicao, int tipo, const QString &base)
{
    const QString ficheiro = base + u".saida"_s;
    Controlo c(definicao, base, ficheiro);
    c.relatorio.setDestination(ReportControl::File);
    c.relatorio.setPrintFileType(tipo);
    const Cronometro cronometro;
    c.relatorio.setAction(1);
    return cronometro.Parar(QFileInfo(ficheiro).size());
}

Medida Pdf(const QString &base)
{
    const ReportDefinition definicao = readReportDefinition(Definicao(u"lista"_s));
    ReportPages paginas(definicao, ReportData(definicao, base, {}, {ordem}), {}, SystemClock().today());
    const QString pdf = base + u".pdf"_s;
    const Cronometro cronometro;
    writePdf(paginas, u"Lista"_s, pdf, [](int, int) { return true; });
    return cronometro.Parar(QFileInfo(pdf).size());
}

// The floor of the PDF: the same texts at the same places, page by page, and nothing else.
Medida Pdf_Nu(const QString &base)
{
    constexpr int resolucao = 1200;
    constexpr double escala = resolucao / 1440.0;
    constexpr double altura = 325;
    constexpr double fundo = 9400;
    const ReportDefinition definicao = readReportDefinition(Definicao(u"lista"_s));
    const ReportData dados(definicao, base, {}, {ordem});
    const QString pdf = base + u".pdf"_s;
    const Cronometro cronometro;
    {
        QPdfWriter writer(pdf);
        writer.setResolution(resolucao);
        QPainter painter(&writer);
        painter.setFont(definicao.detail.rows.front().elements.front().font);
        painter.scale(escala, escala);
        double y = altura;
        for (std::size_t registo = 0; registo < dados.size(); ++registo) {
            for (std::size_t campo = 0; campo < definicao.fields.size(); ++campo) {
                const QString &texto = dados.field(registo, campo);
                if (!texto.isEmpty())
                    painter.drawText(QPointF(1950.0 * static_cast<double>(campo), y), texto);
            }
            y += altura;
            if (y < fundo) continue;
            writer.newPage();
            y = altura;
        }
    }
    return cronometro.Parar(QFileInfo(pdf).size());
}

// The floor of the rest: the texts of the report's fields by one query, and that many bytes in a file.
Medida Leitura_Nua(const QString &definicao, const QString &base, qint64 bytes)
{
    QStringList colunas;
    for (const ReportField &campo : readReportDefinition(Definicao(definicao)).fields)
        colunas << campo.table + u'.' + campo.column;
    const Cronometro cronometro;
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.OpenReadOnly();
    std::vector<QStringList> registos;
    for (Recordset rs =
             ligacao.query(u"SELECT %1 FROM TblLista LEFT JOIN TblGrupos ON TblGrupos.ID = TblLista.Grupo "
                           "LEFT JOIN TblConfig ON TblConfig.ID = 1 "
                           "ORDER BY TblLista.Nome, TblLista.ID"_s.arg(colunas.join(u", "_s)),
                           {});
         !rs.Eof(); rs.MoveNext())
        registos.push_back(rs.Row());
    if (bytes > 0) replaceFile(base + u".saida"_s, QByteArray(bytes, 'x'));
    return cronometro.Parar(bytes);
}

Medida Parte(const QString &nome, const QString &base, qint64 bytes)
{
    const QString definicao = nome.section(u' ', 1);
    if (nome.startsWith(u"preview"_s)) return Previsao(definicao, base);
    if (nome == u"PDF"_s) return Pdf(base);
    if (nome == u"bare-painter"_s) return Pdf_Nu(base);
    if (nome.startsWith(u"XLS"_s)) return Exportacao(definicao, ReportControl::Spreadsheet, base);
    if (nome.startsWith(u"TXT"_s)) return Exportacao(definicao, ReportControl::Text, base);
    if (nome.startsWith(u"DOC"_s)) return Exportacao(definicao, ReportControl::Document, base);
    return Leitura_Nua(definicao, base, bytes);
}

// The part in a process of its own, which says its measures in one line.
Medida Correr(const QString &nome, const QString &base, qint64 bytes = 0)
{
    QProcess processo;
    processo.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    processo.start(QCoreApplication::applicationFilePath(),
                   {u"--part"_s, nome, base, QString::number(bytes)});
    processo.waitForFinished(-1);
    const QList<QByteArray> dito = processo.readAllStandardOutput().simplified().split(' ');
    return {dito.value(0).toDouble(), dito.value(1).toDouble(), dito.value(2).toDouble(),
            dito.value(3).toLongLong()};
}

void Mostrar(const QString &nome, const Medida &medida, const Medida &chao)
{
    std::printf("%-22s %6.0f ms, %6.0f of CPU   floor %6.0f ms, %6.0f of CPU   %5.2f of its CPU   "
                "peak %4.0f MB, floor %4.0f MB   file %5.1f MB\n",
                qPrintable(nome), medida.ms, medida.cpu, chao.ms, chao.cpu,
                medida.cpu / std::max(chao.cpu, 1.0), medida.MB, chao.MB,
                static_cast<double>(medida.bytes) / 1e6);
    std::fflush(stdout);
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList argumentos = QCoreApplication::arguments();
    if (argumentos.value(1) == u"--part"_s) {
        const Medida medida =
            Parte(argumentos.value(2), argumentos.value(3), argumentos.value(4).toLongLong());
        std::printf("%f %f %f %lld\n", medida.ms, medida.cpu, medida.MB, medida.bytes);
        return 0;
    }
    const int quantos = argumentos.size() > 1 ? argumentos[1].toInt() : 32767;
    const QTemporaryDir pasta;
    const QString base = Base_Cheia(pasta, quantos);
    std::printf("%d contacts\n", quantos);
    for (const auto &definicao : {u"lista"_s, u"fichas"_s, u"etiquetas_3x8"_s, u"contactos"_s})
        Mostrar(u"preview "_s + definicao, Correr(u"preview "_s + definicao, base),
                Correr(u"read "_s + definicao, base));
    Mostrar(u"PDF"_s, Correr(u"PDF"_s, base), Correr(u"bare-painter"_s, base));
    for (const auto &definicao : {u"lista"_s, u"memo"_s})
        for (const auto &tipo : {u"XLS "_s, u"TXT "_s, u"DOC "_s}) {
            const Medida medida = Correr(tipo + definicao, base);
            Mostrar(tipo + definicao, medida, Correr(u"read "_s + definicao, base, medida.bytes));
        }
}
