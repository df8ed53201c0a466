// Measures the list's report with 32,767 contacts: its first page on the screen, its count of pages, and its
// PDF beside the floor of the same run, the same texts painted by a bare painter. Usage: bench_relatorio
// [number of contacts]
#include "platform/report/ReportPages.h"
#include "platform/report/ReportPrinting.h"
#include "platform/store/Connection.h"

#include <cstdio>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
double Memoria_MB()
{
    QFile ficheiro(u"/proc/self/status"_s);
    if (!ficheiro.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray &linha : ficheiro.readAll().split('\n'))
        if (linha.startsWith("VmHWM:")) return linha.simplified().split(' ').value(1).toDouble() / 1024;
    return 0;
}

QString Base_Cheia(const QTemporaryDir &pasta, int quantos)
{
    const QString base = pasta.filePath(u"morvex.mdb"_s);
    QFile::copy(QStringLiteral(MORVEX_ENVIADOS "/morvex.mdb"), base);
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.Open();
    ligacao.execute(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
        "INSERT INTO TblLista (Nome, Telefone1, Telefone2, Fax, Telemovel1, Telemovel2, Telemovel3) "
        "SELECT 'Contacto ' || (i * 7919 % 32767) || ' da Conceição', '+351 22 ' || (1000000 + i), '', "
        "'22 ' || (2000000 + i), '+351 91 ' || (3000000 + i), '', '' FROM n"_s,
        {qint64{quantos}});
    return base;
}

void Pintar_Primeira(ReportPages &pages)
{
    constexpr double escala = 1280.0 / 16840;
    QImage ecra(1280, 905, QImage::Format_RGB32);
    QPainter painter(&ecra);
    painter.scale(escala, escala);
    pages.paint(painter, 0, ReportPages::OnScreen);
}

// The floor: the same texts at the same places, page by page, and nothing else.
void Pintar_Nua(const ReportPages &pages, const QString &pdf)
{
    constexpr int resolucao = 1200;
    constexpr double escala = resolucao / 1440.0;
    constexpr double altura = 325;
    constexpr double fundo = 9400;
    QPdfWriter writer(pdf);
    writer.setResolution(resolucao);
    QPainter painter(&writer);
    painter.setFont(pages.definition().detail.rows.front().elements.front().font);
    double y = altura;
    painter.scale(escala, escala);
    for (const std::vector<QString> &registo : pages.rows().records) {
        double x = 0;
        for (const QString &texto : registo) {
            if (!texto.isEmpty()) painter.drawText(QPointF(x, y), texto);
            x += 1950;
        }
        y += altura;
        if (y < fundo) continue;
        writer.newPage();
        y = altura;
    }
}
} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const int quantos = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 32767;
    const QTemporaryDir pasta;
    const QString base = Base_Cheia(pasta, quantos);

    QElapsedTimer relogio;
    relogio.start();
    ReportDefinition definition = readReportDefinition(QStringLiteral(MORVEX_ENVIADOS "/lista.rpt"));
    ReportData data(definition, base, {}, {u"+{TblLista.Nome}"_s});
    ReportPages pages(std::move(definition), std::move(data), {}, QDate(2027, 2, 1));
    Pintar_Primeira(pages);
    std::printf("first page   %6lld ms\n", relogio.restart());
    pages.count();
    std::printf("%5d pages  %6lld ms   memory %.0f MB\n", pages.found(), relogio.restart(), Memoria_MB());
    writePdf(pages, u"Lista"_s, pasta.filePath(u"lista.pdf"_s), [](int, int) { return true; });
    const qint64 pdf = relogio.restart();
    std::printf("PDF          %6lld ms   memory %.0f MB\n", pdf, Memoria_MB());
    Pintar_Nua(pages, pasta.filePath(u"nua.pdf"_s));
    const qint64 nua = relogio.elapsed();
    std::printf("bare painter %6lld ms   PDF takes %.2f of it\n", nua,
                static_cast<double>(pdf) / static_cast<double>(nua));
}
