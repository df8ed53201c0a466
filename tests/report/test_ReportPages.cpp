// Reports on their pages: what stands on which page, where lines break, what closes up. The text is read back
// from PDF files that the pages were painted into.
#include "report/ReportLanguage.h"
#include "report/ReportLines.h"
#include "report/ReportPages.h"
#include "report/ReportPrinting.h"
#include "store/Connection.h"
#include "store/NewDatabase.h"
#include "testlib/Teste.h"

#include <array>
#include <memory>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QtMath>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestReportPages : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;
    std::unique_ptr<Connection> database_;

    QString Base() const { return folder_.filePath(u"base.mdb"_s); }

    void Juntar(const QString &nome, const QString &obs, const QString &foto = {})
    {
        database_->execute(u"INSERT INTO T (Nome, Obs, Foto) VALUES (?, ?, ?)"_s, {nome, obs, foto});
    }

    void Juntar_Muitos(int quantos)
    {
        database_->execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                           "INSERT INTO T (Nome, Obs, Foto) SELECT 'Nome ' || i, '', '' FROM n"_s,
                           {qint64{quantos}});
    }
    // A page of 10,000 twips between page header and footer of 500 each, with this inside.
    std::unique_ptr<ReportPages> Relatorio(const QString &faixas,
                                           const QHash<QString, QString> &parametros = {},
                                           const ReportLayout::HeldPictures &guardadas = {})
    {
        const QString path = folder_.filePath(u"r.rpt"_s);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write((u"<report title='Titulo' table='T'>"
                        "<paper left='1000' right='1000' top='3000' bottom='2840'/>"
                        "<parameter name='rotulo' default='Rotulo'/><parameter name='mes05' default='Maio'/>"
                        "<pageheader height='500'/>"_s +
                        faixas + u"<pagefooter height='500'/></report>"_s)
                           .toUtf8());
        file.close();
        ReportDefinition definition = readReportDefinition(path);
        ReportData data(definition, Base(), {}, {});
        return std::make_unique<ReportPages>(std::move(definition), std::move(data), parametros,
                                             QDate(2027, 2, 1), QString(), guardadas);
    }
    // The pages of a report as a PDF reader sees them; nothing where there is no such reader.
    QStringList Texto_Das_Paginas(ReportPages &pages)
    {
        const QString pdf = folder_.filePath(u"r.pdf"_s);
        if (writePdf(pages, u"Titulo"_s, pdf, [](int, int) { return true; }) != PrintResult::Done) return {};
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, pdf, u"-"_s});
        reader.waitForFinished();
        QStringList texts = QString::fromUtf8(reader.readAllStandardOutput()).split(u'\f');
        texts.removeLast(); // behind the last page's end
        for (QString &text : texts)
            text = text.simplified();
        return texts;
    }
    bool Ha_Leitor() const { return !QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty(); }

    QImage Pintar(ReportPages &pages, int page, ReportPages::Medium medium) const
    {
        constexpr double scale = 0.05;
        QImage image((pages.paper() * scale).toSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(scale, scale);
        pages.paint(painter, page, medium);
        return image;
    }

    void Guardar_Foto(int largura, int altura) const
    {
        QImage foto(largura, altura, QImage::Format_RGB32);
        foto.fill(Qt::red);
        QVERIFY(foto.save(folder_.filePath(u"foto.png"_s)));
    }
    // Whether a picture of so many dots stands in the file, as it is written there.
    bool Tem_No_Pdf(ReportPages &pages, int largura, int altura) const
    {
        const QString pdf = folder_.filePath(u"r.pdf"_s);
        if (writePdf(pages, u"Titulo"_s, pdf, [](int, int) { return true; }) != PrintResult::Done) return false;
        QFile file(pdf);
        return file.open(QIODevice::ReadOnly) &&
               file.readAll().contains(u"/Width %1\n/Height %2\n"_s.arg(largura).arg(altura).toLatin1());
    }
    // Each line of text and where it stands, in whole twips from the corner of the body.
    static QStringList Lugares(const ReportPage &page)
    {
        QStringList lugares;
        for (const ReportPage::Text &texto : page.texts())
            lugares << u"%1: %2, %3"_s.arg(texto.line)
                           .arg(qRound(texto.area.left()) - 1000)
                           .arg(qRound(texto.area.top()) - 3500);
        return lugares;
    }
    static double Passo() { return FontMeasure(standardReportFont()).spacing(); }

    static QImage Folha_Branca(const QImage &como)
    {
        QImage branca(como.size(), como.format());
        branca.fill(Qt::white);
        return branca;
    }

    static constexpr QLatin1StringView uma_linha{
        "<detail><row height='1000'><text width='5000' height='300'>{T.Nome}</text></row></detail>"};

    static QString Linhas(int quantas)
    {
        QStringList linhas;
        for (int i = 1; i <= quantas; ++i)
            linhas << u"linha %1"_s.arg(i);
        return linhas.join("\r\n"_L1);
    }
    const QString cresce_junto_ =
        u"<detail together='yes'><row height='400'><text width='5000' height='300'>{T.Nome}</text></row>"
        "<row height='300'><text width='9800' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s;
    const QString em_colunas_ =
        u"<detail columns='3' width='3000' height='4000' first='rotulo'><row height='4000'>"
        "<text width='2000' height='300'>{T.Nome}</text></row></detail>"_s;
    // Room for three lines of ten points, or for six of five.
    const QString encolhe_ = u"<detail><row height='900'><text width='5000' height='740' least='5' "
                             "closelines='yes'>{T.Obs}</text></row></detail>"_s;

private Q_SLOTS:
    void init()
    {
        database_.reset();
        QFile::remove(Base());
        createDatabase(Base(),
                       {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT, Obs TEXT, Foto TEXT) STRICT"_s});
        database_ = std::make_unique<Connection>();
        database_->setConnectionString(u"Data Source='%1'"_s.arg(Base()));
        database_->Open();
    }

    void sem_registos_ha_uma_pagina()
    {
        const auto pages = Relatorio(uma_linha);
        QVERIFY(pages->complete());
        QCOMPARE(pages->count(), 1);
    }

    void cabem_dez_linhas_numa_pagina_data()
    {
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("expected");
        QTest::newRow("1") << 1 << 1;
        QTest::newRow("10") << 10 << 1;
        QTest::newRow("11") << 11 << 2;
        QTest::newRow("20") << 20 << 2;
        QTest::newRow("21") << 21 << 3;
        QTest::newRow("32767") << 32767 << 3277;
    }

    void cabem_dez_linhas_numa_pagina()
    {
        QFETCH(int, records);
        Juntar_Muitos(records);
        QTEST(Relatorio(uma_linha)->count(), "expected");
    }

    void so_a_primeira_pagina_e_procurada_ao_abrir()
    {
        Juntar_Muitos(100);
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(pages->found(), 1);
        QVERIFY(!pages->complete());
        Pintar(*pages, 0, ReportPages::OnScreen);
        QCOMPARE(pages->found(), 1);
        pages->findNext();
        QCOMPARE(pages->found(), 2);
    }

    void sabe_em_que_pagina_esta_um_registo()
    {
        Juntar_Muitos(25);
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(pages->pageOf(0), 0);
        QCOMPARE(pages->pageOf(9), 0);
        QCOMPARE(pages->pageOf(10), 1);
        QCOMPARE(pages->pageOf(24), 2);
    }

    void cada_registo_comeca_uma_pagina()
    {
        Juntar_Muitos(3);
        QCOMPARE(Relatorio(u"<detail newpage='yes'><row height='1000'><text>{T.Nome}</text></row></detail>"_s)
                     ->count(),
                 3);
    }

    void uma_linha_mais_alta_do_que_a_folha_nao_prende_o_relatorio()
    {
        Juntar_Muitos(3);
        QCOMPARE(Relatorio(u"<detail><row height='50000'><text>{T.Nome}</text></row></detail>"_s)->count(),
                 3);
    }

    // Each record leaves 5 of its page's 10,000 twips for its rule of 10.
    void um_traco_que_nao_cabe_nao_abre_outra_pagina_data()
    {
        QTest::addColumn<int>("registos");
        QTest::newRow("no fim") << 1;
        QTest::newRow("antes de outro registo") << 2;
    }
    void um_traco_que_nao_cabe_nao_abre_outra_pagina()
    {
        QFETCH(int, registos);
        for (int i = 0; i < registos; ++i)
            Juntar(u"a\nb"_s, {});
        const QString faixa = u"<detail><row height='%1'><text width='5000' height='300' grow='yes'>{T.Nome}"
                              "</text></row><row height='10'><line width='5000'/></row></detail>"_s;
        const auto pages = Relatorio(faixa.arg(9995));
        QCOMPARE(pages->count(), registos);
        for (int page = 0; page < pages->count(); ++page)
            QCOMPARE(pages->page(page).lines(), (QStringList{u"a"_s, u"b"_s}));
    }

    void um_registo_que_nao_cabe_no_resto_passa_inteiro()
    {
        Juntar_Muitos(3);
        QCOMPARE(Relatorio(u"<detail><row height='2000'/><row height='2000'/></detail>"_s)->count(), 2);
    }

    void linhas_vazias_fecham_e_rotulos_nao_contam()
    {
        constexpr auto faixa =
            "<detail><row height='4000'><text>{T.Nome}</text></row>"
            "<row height='6000' closeup='yes'><text>{?rotulo}</text><text>{T.Obs}</text></row></detail>"_L1;
        for (int i = 0; i < 2; ++i)
            Juntar(u"Ana"_s, u" \r\n "_s);
        QCOMPARE(Relatorio(faixa)->count(), 1);
        Juntar(u"Rui"_s, u"nota"_s);
        QCOMPARE(Relatorio(faixa)->count(), 2);
    }

    void o_texto_da_pagina_le_se_de_volta()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        for (const char16_t *nome : {u"Ωμέγα", u"Жанна", u"Ana, \"a\" <b> & {c}"})
            Juntar(QString::fromUtf16(nome), {});
        const auto pages =
            Relatorio(u"<detail newpage='yes'><row height='1000'>"
                      "<text width='9000' height='300'>{T.Nome}</text>"
                      "<text top='400' width='9000' height='300'>{page}/{pages} {date} {{x}}</text>"
                      "</row></detail>"_s);
        QCOMPARE(Texto_Das_Paginas(*pages),
                 (QStringList{u"Ωμέγα 1/3 01-02-2027 {x}"_s, u"Жанна 2/3 01-02-2027 {x}"_s,
                              u"Ana, \"a\" <b> & {c} 3/3 01-02-2027 {x}"_s}));
    }

    void cabecalho_e_rodape_estao_em_cada_pagina()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        Juntar_Muitos(11);
        const QString faixas =
            u"<pageheader><row height='500'><text width='5000' height='300'>cabeca</text></row></pageheader>"_s +
            uma_linha +
            u"<reportfooter><row height='300'><text width='5000' height='300'>total</text></row></reportfooter>"_s;
        const QStringList texts = Texto_Das_Paginas(*Relatorio(faixas));
        QCOMPARE(texts.size(), 2);
        QVERIFY(texts[0].startsWith("cabeca Nome 1 "_L1));
        QCOMPARE(texts[1], u"cabeca Nome 11 total"_s);
    }

    void os_parametros_dados_valem_mais_do_que_os_do_ficheiro()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        Juntar(u"05"_s, u"13"_s);
        const QString faixa = u"<detail><row height='1000'><text width='9000' height='300'>"
                              "{?rotulo} {?mes{T.Nome}} {?mes{T.Obs}}</text></row></detail>"_s;
        QCOMPARE(Texto_Das_Paginas(*Relatorio(faixa)), QStringList{u"Rotulo Maio 13"_s});
        QCOMPARE(Texto_Das_Paginas(*Relatorio(faixa, {{u"rotulo"_s, u"Etikett"_s}, {u"outro"_s, u"x"_s}})),
                 QStringList{u"Etikett Maio 13"_s});
    }

    // Twenty twips to the point, from either edge.
    void no_ficheiro_pdf_cada_palavra_esta_no_seu_lugar_da_folha()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        for (const auto &nome : {u"Zita"_s, u"Rui"_s})
            Juntar(nome, {});
        const auto pages = Relatorio(u"<detail newpage='yes'><row height='9000'><text left='8000' top='8000' "
                                     "width='2000' height='300'>{T.Nome}</text></row></detail>"_s);
        const QString pdf = folder_.filePath(u"lugares.pdf"_s);
        QCOMPARE(writePdf(*pages, u"x"_s, pdf, [](int, int) { return true; }), PrintResult::Done);
        QProcess reader;
        reader.start(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s});
        QVERIFY(reader.waitForFinished());
        static const QRegularExpression palavra(u"xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\"[^>]*>(\\w+)<"_s);
        QStringList nomes;
        for (const auto &achada : palavra.globalMatch(QString::fromUtf8(reader.readAllStandardOutput()))) {
            QVERIFY2(qAbs(achada.captured(1).toDouble() - 450) < 0.15, qPrintable(achada.captured(0)));
            QVERIFY2(qAbs(achada.captured(2).toDouble() - 575) < 6, qPrintable(achada.captured(0)));
            nomes << achada.captured(3);
        }
        QCOMPARE(nomes, (QStringList{u"Zita"_s, u"Rui"_s}));
    }

    void o_ficheiro_pdf_diz_o_seu_titulo()
    {
        if (QStandardPaths::findExecutable(u"pdfinfo"_s).isEmpty()) QSKIP("there is no pdfinfo");
        Juntar_Muitos(1);
        const QString pdf = folder_.filePath(u"titulo.pdf"_s);
        const auto pages = Relatorio(uma_linha);
        QVERIFY(writePdf(*pages, u"Lista de Évora"_s, pdf, [](int, int) { return true; }) == PrintResult::Done);
        QProcess reader;
        reader.start(u"pdfinfo"_s, {u"-enc"_s, u"UTF-8"_s, pdf});
        QVERIFY(reader.waitForFinished());
        const QString said = QString::fromUtf8(reader.readAllStandardOutput());
        QVERIFY2(said.contains(QRegularExpression(u"^Title: +Lista de Évora$"_s, QRegularExpression::MultilineOption)),
                 qPrintable(said));
    }

    void um_parametro_com_dois_algarismos_acha_se_tambem_por_um_so()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        for (const auto &mes : {u"05"_s, u"5"_s, u"6"_s, u"Maio"_s, u"13"_s, u"0"_s, u"1"_s, u"9"_s, u"x"_s})
            Juntar(mes, {});
        const QString faixa = u"<detail newpage='yes'><row height='1000'><text width='9000' height='300'>"
                              "{?mes{T.Nome:00}}/{T.Nome:00}</text></row></detail>"_s;
        QCOMPARE(Texto_Das_Paginas(*Relatorio(faixa)),
                 (QStringList{u"Maio/05"_s, u"Maio/05"_s, u"6/06"_s, u"Maio/Maio"_s, u"13/13"_s, u"0/0"_s,
                              u"1/01"_s, u"9/09"_s, u"x/x"_s}));
    }

    void datas_e_horas_leem_se_como_no_programa()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        Juntar(u"2027-12-31"_s, u"09:05:00"_s);
        const QString faixa =
            u"<detail><row height='1000'><text width='9000' height='300'>{T.Nome:date} {T.Obs:time}</text></row></detail>"_s;
        QCOMPARE(Texto_Das_Paginas(*Relatorio(faixa)), QStringList{u"31-12-2027 09:05"_s});
    }

    void um_texto_comprido_corre_por_varias_paginas_sem_perder_nada()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        QStringList palavras;
        for (int i = 0; i < 12'000; ++i)
            palavras << u"p%1"_s.arg(i);
        const QString obs = palavras.join(u' ');
        Juntar(u"Ana"_s, obs);
        Juntar(u"Rui"_s, u"curta"_s);
        const auto pages = Relatorio(
            u"<detail><row height='400'><text width='5000' height='300'>{T.Nome}</text></row>"
            "<row height='300'><text width='9800' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s);
        const QStringList texts = Texto_Das_Paginas(*pages);
        QVERIFY(texts.size() > 10);
        QCOMPARE(texts.join(u' '), u"Ana "_s + obs + u" Rui curta"_s);
    }

    void cem_mil_letras_sem_espaco_partem_se()
    {
        Juntar(u"Ana"_s, QString(100'000, u'x'));
        const auto pages = Relatorio(
            u"<detail><row height='300'><text width='9800' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s);
        QVERIFY(pages->count() > 10);
    }

    void linhas_em_branco_dentro_do_texto_fecham()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        Juntar(u"Ana"_s, u"Rua A\r\n\r\n  \r\nLisboa\r\n"_s);
        const QString texto =
            u"<detail><row height='900'><text width='5000' height='%1' %2>{T.Obs}</text></row></detail>"_s;
        QCOMPARE(Texto_Das_Paginas(*Relatorio(texto.arg(u"520"_s, u"closelines='yes'"_s))),
                 QStringList{u"Rua A Lisboa"_s});
        QCOMPARE(Texto_Das_Paginas(*Relatorio(texto.arg(u"520"_s, u""_s))), QStringList{u"Rua A"_s});
    }

    void o_que_nao_cabe_acaba_em_reticencias()
    {
        if (!Ha_Leitor()) QSKIP("there is no pdftotext");
        Juntar(u"abcdefghijklmnopqrstuvwxyz"_s, {});
        const QStringList texts = Texto_Das_Paginas(*Relatorio(
            u"<detail><row height='900'><text width='1000' height='300'>{T.Nome}</text></row></detail>"_s));
        QVERIFY(texts.value(0).startsWith("abc"_L1));
        QVERIFY(texts.value(0).endsWith(u'\u2026'));
    }

    void o_que_e_so_do_ecra_nao_vai_para_o_papel()
    {
        Juntar(u"Ana"_s, {});
        const auto pages = Relatorio(
            u"<detail><row height='3000'><box left='500' top='500' width='3000' height='2000' thickness='60' on='screen'/></row></detail>"_s);
        const QImage ecra = Pintar(*pages, 0, ReportPages::OnScreen);
        QVERIFY(ecra != Folha_Branca(ecra));
        QCOMPARE(Pintar(*pages, 0, ReportPages::OnPaper), Folha_Branca(ecra));
    }

    void a_fotografia_e_pintada_e_uma_que_falta_deixa_o_lugar_vazio()
    {
        Guardar_Foto(400, 200);
        const QString faixa =
            u"<detail newpage='yes'><row height='3000'><picture width='2000' height='2000' %1>{T.Foto}</picture></row></detail>"_s;
        Juntar(u"Ana"_s, {}, u"foto.png"_s);
        Juntar(u"Rui"_s, {}, u"nada.png"_s);
        Juntar(u"Zita"_s, {}, u""_s);
        const auto pages = Relatorio(faixa.arg(u""_s));
        const QImage primeira = Pintar(*pages, 0, ReportPages::OnPaper);
        QCOMPARE(primeira.pixelColor(100, 190),
                 QColor(Qt::red)); // 1000, 3500 + 300 twips: within the upper half
        QCOMPARE(primeira.pixelColor(100, 250),
                 QColor(Qt::white)); // below: it isn't distorted to the whole area
        QCOMPARE(Pintar(*pages, 1, ReportPages::OnPaper), Folha_Branca(primeira));
        QCOMPARE(Pintar(*pages, 2, ReportPages::OnPaper), Folha_Branca(primeira));
        const auto outra = Relatorio(faixa.arg(u"fallback='foto.png'"_s));
        QCOMPARE(Pintar(*outra, 1, ReportPages::OnPaper), primeira);
    }

    void uma_fotografia_guardada_pinta_se_dos_seus_bytes_e_le_se_so_ao_pintar()
    {
        Guardar_Foto(400, 200);
        QFile ficheiro(folder_.filePath(u"foto.png"_s));
        QVERIFY(ficheiro.open(QIODevice::ReadOnly));
        const QByteArray bytes = ficheiro.readAll();
        QStringList pedidas;
        const auto guardadas = [&](const QString &nome) {
            pedidas << nome;
            return nome == "bd:1"_L1   ? bytes
                   : nome == "bd:2"_L1 ? QByteArray("nada de imagem")
                                       : QByteArray();
        };
        for (const QString &foto : {u"bd:1"_s, u"bd:2"_s, u"bd:3"_s, u"foto.png"_s})
            Juntar(u"Ana"_s, {}, foto);
        const auto pages = Relatorio(
            u"<detail newpage='yes'><row height='3000'><picture width='2000' height='2000'>{T.Foto}</picture></row></detail>"_s,
            {}, guardadas);
        QCOMPARE(pages->count(), 4);
        QCOMPARE(pedidas, QStringList());
        const QImage primeira = Pintar(*pages, 0, ReportPages::OnPaper);
        QCOMPARE(pedidas, QStringList{u"bd:1"_s});
        QCOMPARE(primeira.pixelColor(100, 190), QColor(Qt::red));
        QCOMPARE(Pintar(*pages, 1, ReportPages::OnPaper), Folha_Branca(primeira));
        QCOMPARE(Pintar(*pages, 2, ReportPages::OnPaper), Folha_Branca(primeira));
        QCOMPARE(Pintar(*pages, 3, ReportPages::OnPaper), primeira);
    }

    void uma_fotografia_com_barras_invertidas_esta_abaixo_da_pasta_da_definicao()
    {
        QVERIFY(QDir(folder_.path()).mkdir(u"fotos"_s));
        QImage foto(400, 200, QImage::Format_RGB32);
        foto.fill(Qt::red);
        QVERIFY(foto.save(folder_.filePath(u"fotos/ana.png"_s)));
        Juntar(u"Ana"_s, {}, u"fotos\\ana.png"_s);
        const auto pages = Relatorio(
            u"<detail newpage='yes'><row height='3000'><picture width='2000' height='2000'>{T.Foto}</picture></row></detail>"_s);
        QCOMPARE(Pintar(*pages, 0, ReportPages::OnPaper).pixelColor(100, 190), QColor(Qt::red));
    }

    void uma_fotografia_pequena_fica_do_seu_tamanho()
    {
        Guardar_Foto(40, 20);
        Juntar(u"Ana"_s, {}, u"foto.png"_s);
        const auto pages = Relatorio(u"<detail><row height='3000'><picture width='2000' height='2000'>"
                                     "{T.Foto}</picture></row></detail>"_s);
        const QImage folha = Pintar(*pages, 0, ReportPages::OnPaper);
        // 600 by 300 twips, at the top right of an area that ends at 3000
        QCOMPARE(folha.pixelColor(149, 176), QColor(Qt::red));
        QCOMPARE(folha.pixelColor(121, 188), QColor(Qt::red));
        QCOMPARE(folha.pixelColor(118, 180), QColor(Qt::white));
        QCOMPARE(folha.pixelColor(140, 192), QColor(Qt::white));
    }

    void um_desenho_da_lugar_a_imagem_de_reserva_data()
    {
        QTest::addColumn<QString>("ficheiro");
        QTest::newRow("svg") << u"desenho.svg"_s;
        QTest::newRow("com outro nome") << u"desenho.jpg"_s;
    }
    void um_desenho_da_lugar_a_imagem_de_reserva()
    {
        QFETCH(QString, ficheiro);
        Guardar_Foto(400, 200);
        QFile desenho(folder_.filePath(ficheiro));
        QVERIFY(desenho.open(QIODevice::WriteOnly));
        desenho.write("<svg xmlns='http://www.w3.org/2000/svg' width='400' height='200'>"
                      "<rect width='400' height='200' fill='blue'/></svg>");
        desenho.close();
        Juntar(u"Ana"_s, {}, ficheiro);
        const auto pages = Relatorio(u"<detail><row height='3000'><picture width='2000' height='2000' "
                                     "fallback='foto.png'>{T.Foto}</picture></row></detail>"_s);
        QCOMPARE(Pintar(*pages, 0, ReportPages::OnPaper).pixelColor(100, 190), QColor(Qt::red));
    }

    void o_que_esta_na_pagina_pode_perguntar_se()
    {
        Juntar(u"Ana"_s, {});
        const ReportPage page =
            Relatorio(u"<pageheader><row height='500'><line top='400' width='9000' thickness='30'/></row>"
                      "</pageheader><detail><row height='800'><box width='100' height='90' on='screen'/>"
                      "<text left='2000' top='100' width='5000' height='300' align='right'>{T.Nome}</text>"
                      "<picture left='10' width='20' height='30'>a.png</picture></row></detail>"_s)
                ->page(0);
        QCOMPARE(page.items.size(), 4U);
        QCOMPARE(std::get<ReportPage::Stroke>(page.items[0].what).line, QLineF(1000, 3400, 10000, 3400));
        QCOMPARE(std::get<ReportPage::Frame>(page.items[1].what).area, QRectF(1000, 3500, 100, 90));
        QVERIFY(page.items[1].screenOnly && !page.items[0].screenOnly);
        const ReportPage::Text texto = page.texts().at(0);
        QCOMPARE(page.lines(), QStringList{u"Ana"_s});
        QCOMPARE(texto.area.topRight(), QPointF(8000, 3600));
        QVERIFY(texto.area.width() > 200 && texto.area.width() < 900);
        QVERIFY(texto.baseline > texto.area.top() && texto.baseline < texto.area.bottom());
        const auto &foto = std::get<ReportPage::Picture>(page.items[3].what);
        QCOMPARE(foto.area, QRectF(1010, 3500, 20, 30));
        QCOMPARE(foto.file, folder_.filePath(u"a.png"_s));
    }

    void uma_pagina_que_nao_ha_esta_vazia()
    {
        Juntar_Muitos(11);
        const auto pages = Relatorio(uma_linha);
        QVERIFY(pages->page(-1).items.empty());
        QVERIFY(pages->page(2).items.empty());
        QCOMPARE(pages->page(1).lines(), QStringList{u"Nome 11"_s});
    }

    void uma_linha_partida_nao_leva_consigo_o_espaco()
    {
        Juntar(u"Ana"_s, u"palavra palavra palavra  palavra"_s);
        const ReportPage page =
            Relatorio(u"<detail><row height='300'><text width='1000' height='300' align='right' grow='yes'>"
                      "{T.Obs}</text></row></detail>"_s)
                ->page(0);
        QCOMPARE(page.lines(), QStringList(4, u"palavra"_s));
        for (const auto &texto : page.texts())
            QCOMPARE(texto.area.right(), 2000.0);
    }

    void um_texto_que_cabe_nao_encolhe()
    {
        Juntar(u"Ana"_s, Linhas(3));
        const auto textos = Relatorio(encolhe_)->page(0).texts();
        QCOMPARE(textos.size(), 3U);
        QCOMPARE(textos[0].font.pixelSize(), 200);
    }

    void um_texto_de_mais_linhas_encolhe_ate_caber()
    {
        Juntar(u"Ana"_s, Linhas(4));
        const ReportPage page = Relatorio(encolhe_)->page(0);
        const auto textos = page.texts();
        QCOMPARE(page.lines().size(), 4);
        QVERIFY(page.lost.isEmpty());
        for (const auto &texto : textos) {
            QVERIFY(texto.font.pixelSize() < 200 && texto.font.pixelSize() >= 100);
            QVERIFY(QRectF(1000, 3500, 5000, 740).contains(texto.area));
        }
        QCOMPARE(textos[1].area.top(), textos[0].area.bottom());
        // No smaller than need be: half a point more and the last line would stand outside.
        const double maior =
            textos[0].area.height() * (textos[0].font.pixelSize() + 10) / textos[0].font.pixelSize();
        QVERIFY(maior * 4 > 740);
    }

    void uma_letra_encolhe_ate_um_ponto_onde_se_deixa()
    {
        Juntar(u"Ana"_s, Linhas(25));
        const ReportPage page =
            Relatorio(u"<detail><row height='900'><text width='5000' height='740' least='1'>{T.Obs}</text></row>"
                      "</detail>"_s)
                ->page(0);
        QCOMPARE(page.lines(), Linhas(25).split(u"\r\n"_s));
        QVERIFY(page.lost.isEmpty() && page.texts().front().font.pixelSize() < 40);
    }

    void o_que_nem_na_letra_mais_pequena_cabe_fica_dito()
    {
        Juntar(u"Ana"_s, Linhas(9));
        const auto pages = Relatorio(encolhe_);
        const ReportPage page = pages->page(0);
        QCOMPARE(page.texts().at(0).font.pixelSize(), 100);
        QCOMPARE(page.lines() + page.lost, Linhas(9).split("\r\n"_L1));
        QVERIFY(page.lines().size() >= 5 && page.lost.size() >= 2);
        QCOMPARE(pages->lost(), page.lost);
    }

    // Whatever is being found, each page is asked with its own number: nine pages need only one figure.
    void o_numero_de_uma_pagina_tem_o_lugar_do_seu_proprio_numero()
    {
        Juntar_Muitos(90);
        const QString faixas = u"<pageheader height='500'><row height='400'><text width='%1' height='300' "
                               "least='9.9'>{page}</text></row></pageheader>"_s +
                               uma_linha;
        const int um = qCeil(QFontMetricsF(standardReportFont()).horizontalAdvance(u'8'));
        const auto nove = Relatorio(faixas.arg(um * 3 / 2));
        QCOMPARE(nove->count(), 9);
        QCOMPARE(nove->lost(), QStringList());
        Juntar_Muitos(10);
        const auto dez = Relatorio(faixas.arg(um * 3 / 2));
        QCOMPARE(dez->count(), 10);
        QCOMPARE(dez->lost().size(), 1);
    }

    void enquanto_se_procuram_as_paginas_o_seu_numero_e_reticencias()
    {
        Juntar_Muitos(20);
        const auto pages = Relatorio(u"<pageheader height='500'><row height='400'><text width='5000' height='300'>"
                                     "{pageofpages}</text></row></pageheader>"_s +
                                     uma_linha);
        QCOMPARE(pages->page(0).lines().value(0), u"1 / …"_s);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(pages->page(0).lines().value(0), u"1 / 2"_s);
    }

    void o_rodape_esta_em_cada_pagina_por_baixo_de_tudo()
    {
        Juntar_Muitos(11);
        const auto pages = Relatorio(uma_linha + u"<pagefooter height='500'><row height='500'><text width='5000' "
                                                 "height='300'>pe</text></row></pagefooter>"_s);
        QCOMPARE(pages->count(), 2);
        for (int page = 0; page < 2; ++page) {
            const ReportPage folha = pages->page(page);
            QCOMPARE(folha.lines().last(), u"pe"_s);
            QCOMPARE(folha.texts().back().area.top(), 16840.0 - 2840 - 500); // above the lower margin
        }
    }

    // Two records that fill the body to its last twip share a page, one twip more and they do not.
    void o_que_fica_junto_enche_a_pagina_ate_ao_fim_data()
    {
        QTest::addColumn<int>("altura");
        QTest::addColumn<int>("paginas");
        QTest::newRow("tudo") << 4600 << 1;
        QTest::newRow("mais um") << 4601 << 2;
    }
    void o_que_fica_junto_enche_a_pagina_ate_ao_fim()
    {
        QFETCH(int, altura);
        Juntar_Muitos(2);
        const auto pages =
            Relatorio(u"<detail together='yes'><row height='400'><text width='5000' height='300'>{T.Nome}</text></row>"
                      "<row height='%1'><text width='5000' height='300'>x</text></row></detail>"_s.arg(altura));
        QTEST(pages->count(), "paginas");
    }

    void um_texto_que_se_mede_por_letras_tem_a_largura_de_todas()
    {
        FontMeasure medida(standardReportFont());
        for (const QString &texto : {u"Avenida"_s, u"Αυγή"_s, u"Тётя"_s, u"Ana Sá"_s}) {
            double soma = 0;
            for (const QChar letra : texto)
                soma += QFontMetricsF(standardReportFont()).horizontalAdvance(letra);
            QCOMPARE(medida.advance(texto), soma);
        }
    }

    void o_que_se_perde_conta_se_em_todas_as_paginas()
    {
        for (int i = 0; i < 20; ++i)
            Juntar(u"Ana"_s, Linhas(9));
        const auto pages = Relatorio(encolhe_);
        const qsizetype linhas = pages->page(0).lines().size() / 11; // of each of the eleven on a page
        QCOMPARE(pages->lost().size(), 20 * (9 - linhas));
        QVERIFY(pages->complete());
    }

    void a_continuacao_de_um_registo_tem_a_sua_cabeca()
    {
        QStringList linhas;
        for (int i = 0; i < 100; ++i)
            linhas << u"p%1"_s.arg(i);
        Juntar(u"Ana"_s, linhas.join(u'\n'));
        Juntar(u"Rui"_s, u"curta"_s);
        const auto pages = Relatorio(
            u"<continued><row height='600'><text width='5000' "
            u"height='300'>({T.Nome})</text></row></continued>"
            "<detail newpage='yes'><row height='400'><text width='5000' height='300'>{T.Nome}</text></row>"
            "<row height='300'><text width='9800' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s);
        QCOMPARE(pages->count(), 4);
        QStringList lidas = pages->page(0).lines();
        QCOMPARE(lidas.takeFirst(), u"Ana"_s);
        for (int i = 1; i < 3; ++i) {
            const auto textos = pages->page(i).texts();
            QCOMPARE(textos[0].line, u"(Ana)"_s);
            QCOMPARE(textos[0].area.topLeft(), QPointF(1000, 3500));
            QCOMPARE(textos[1].area.top(), 3500.0 + 600);
            QVERIFY(textos.back().area.bottom() <= 3500 + 10'000);
            lidas << pages->page(i).lines().sliced(1);
        }
        QCOMPARE(lidas, linhas);
        QCOMPARE(pages->page(3).lines(), (QStringList{u"Rui"_s, u"curta"_s}));
    }

    void o_fim_do_relatorio_nao_continua_nenhum_registo()
    {
        Juntar(u"Ana"_s, {});
        const auto pages =
            Relatorio(u"<continued><row height='600'><text width='5000' height='300'>continua</text>"
                      "</row></continued>"_s +
                      uma_linha +
                      u"<reportfooter><row height='8000'/><row height='8000'><text width='5000' "
                      "height='300'>fim</text></row></reportfooter>"_s);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(pages->page(1).lines(), QStringList{u"fim"_s});
    }

    void sob_a_cabeca_da_continuacao_cabe_sempre_uma_linha()
    {
        Juntar(u"Ana"_s, {});
        const auto pages =
            Relatorio(u"<continued height='9700'/><detail><row height='9000'/><row height='9000'/>"
                      "<row height='9000'/></detail>"_s);
        QCOMPARE(pages->count(), 3);
    }

    void sem_registos_a_pagina_di_lo()
    {
        ReportPages pages(Relatorio(uma_linha)->definition(), Relatorio(uma_linha)->data(), {},
                          QDate(2027, 2, 1), u"Nada a imprimir."_s);
        QCOMPARE(pages.page(0).lines(), QStringList{u"Nada a imprimir."_s});
    }

    void o_aviso_fica_longe_da_beira_de_uma_folha_sem_margens()
    {
        Relatorio(u"<paper orientation='landscape'/>"_s + uma_linha);
        const ReportDefinition definition = readReportDefinition(folder_.filePath(u"r.rpt"_s));
        ReportPages pages(definition, ReportData(definition, Base(), {}, {}), {}, QDate(2027, 2, 1),
                          u"Nada a imprimir."_s);
        const QRectF area = pages.page(0).texts().at(0).area;
        QVERIFY(area.left() >= 850 && area.top() >= 850);
    }

    // In twips: 850 from the edges, or at the margin where that is further in.
    void o_aviso_tem_o_seu_lugar_e_a_sua_cor_data()
    {
        QTest::addColumn<QString>("papel");
        QTest::addColumn<QPointF>("canto");
        QTest::newRow("without margins") << u"<paper/>"_s << QPointF(850, 1000);
        QTest::newRow("with wide ones") << u"<paper left='1000' top='1500'/>"_s << QPointF(1000, 1650);
        QTest::newRow("with narrow ones") << u"<paper left='700' top='800'/>"_s << QPointF(850, 1000);
    }
    void o_aviso_tem_o_seu_lugar_e_a_sua_cor()
    {
        QFETCH(QString, papel);
        const QString path = folder_.filePath(u"aviso.rpt"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write((u"<report table='T'>"_s + papel + uma_linha + u"</report>"_s).toUtf8());
        file.close();
        const ReportDefinition definition = readReportDefinition(path);
        ReportPages pages(definition, ReportData(definition, Base(), {}, {}), {}, QDate(2027, 2, 1),
                          u"Nada a imprimir."_s);
        const auto texts = pages.page(0).texts();
        QCOMPARE(texts.size(), 1U);
        QTEST(texts.front().area.topLeft(), "canto");
        QCOMPARE(texts.front().colour, 0x606060U);
    }

    // Of 9,000 twips as many lines as have room below what stands above them in their row.
    void um_texto_que_cresce_comeca_abaixo_do_que_esta_por_cima_dele()
    {
        Juntar(u"Ana"_s, Linhas(200));
        const auto linhas_com = [&](int topo) {
            const auto pages = Relatorio(
                u"<detail><row height='%1'><text top='%2' width='9800' height='300' grow='yes'>{T.Obs}</text>"
                "</row></detail>"_s.arg(topo + 300)
                    .arg(topo));
            return pages->page(0).texts();
        };
        const auto de_cima = linhas_com(0);
        const double passo = de_cima.at(1).baseline - de_cima.at(0).baseline;
        const auto corpo = Relatorio(uma_linha)->definition().bodyHeight();
        for (const int topo : {0, 1000, 3333}) {
            const auto textos = linhas_com(topo);
            QCOMPARE(static_cast<int>(textos.size()), static_cast<int>((corpo - topo) / passo));
            QCOMPARE(textos.front().area.top(), 3500.0 + topo);
        }
    }

    // Half a point at a time, twenty twips to the point, down to the least.
    void uma_letra_encolhe_de_meio_em_meio_ponto()
    {
        QSet<int> vistas;
        for (int linhas = 1; linhas <= 9; ++linhas) {
            database_->execute(u"DELETE FROM T"_s, {});
            Juntar(u"Ana"_s, Linhas(linhas));
            vistas << Relatorio(encolhe_)->page(0).texts().at(0).font.pixelSize();
        }
        for (const int letra : vistas)
            QVERIFY2(letra % 10 == 0 && letra >= 100 && letra <= 200, qPrintable(QString::number(letra)));
        QVERIFY2(vistas.contains(200) && vistas.contains(100) && vistas.size() > 3,
                 qPrintable(QDebug::toString(vistas)));
    }

    void as_linhas_da_exportacao_sao_os_registos_na_sua_ordem()
    {
        Juntar_Muitos(3);
        const ReportRows rows = Relatorio(uma_linha)->rows();
        QCOMPARE(rows.title, u"Titulo"_s);
        QCOMPARE(rows.heads, QStringList{u"Nome"_s});
        QCOMPARE(rows.fields, QStringList{u"T.Nome"_s});
        QCOMPARE(rows.records,
                 (std::vector<std::vector<QString>>{{u"Nome 1"_s}, {u"Nome 2"_s}, {u"Nome 3"_s}}));
    }

    // Every hundredth page that is found, and each one that is written.
    void a_escrita_de_um_PDF_diz_em_que_pagina_vai()
    {
        Juntar_Muitos(2150);
        const auto pages = Relatorio(uma_linha);
        QStringList procura;
        QStringList escrita;
        const auto ver = [&](int page, int found) {
            QStringList &onde = pages->complete() ? escrita : procura;
            onde << u"%1/%2"_s.arg(page).arg(found);
            return true;
        };
        QCOMPARE(writePdf(*pages, u"x"_s, folder_.filePath(u"r.pdf"_s), ver), PrintResult::Done);
        QCOMPARE(procura, (QStringList{u"0/100"_s, u"0/200"_s}));
        QCOMPARE(escrita.size(), 215);
        QCOMPARE(escrita.first(), u"0/215"_s);
        QCOMPARE(escrita.last(), u"214/215"_s);
        const auto parar = Relatorio(uma_linha);
        QCOMPARE(writePdf(*parar, u"x"_s, folder_.filePath(u"parado.pdf"_s),
                          [](int, int found) { return found < 200; }),
                 PrintResult::Cancelled);
        QCOMPARE(parar->found(), 200);
        QVERIFY(!QFile::exists(folder_.filePath(u"parado.pdf"_s)));
    }

    void com_registos_nao_se_diz_que_nao_ha()
    {
        Juntar(u"Ana"_s, {});
        ReportPages pages(Relatorio(uma_linha)->definition(), Relatorio(uma_linha)->data(), {},
                          QDate(2027, 2, 1), u"Nada a imprimir."_s);
        QCOMPARE(pages.page(0).lines(), QStringList{u"Ana"_s});
    }

    void um_registo_que_fica_junto_passa_inteiro_para_a_pagina_seguinte()
    {
        Juntar(u"Ana"_s, Linhas(20));
        Juntar(u"Rui"_s, Linhas(30));
        const auto pages = Relatorio(cresce_junto_);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(pages->page(0).lines(), QStringList{u"Ana"_s} + Linhas(20).split(u"\r\n"_s));
        QCOMPARE(pages->page(1).lines(), QStringList{u"Rui"_s} + Linhas(30).split(u"\r\n"_s));
    }

    void um_registo_que_fica_junto_e_nao_cabe_em_pagina_nenhuma_comeca_uma_e_continua()
    {
        Juntar(u"Ana"_s, Linhas(3));
        Juntar(u"Rui"_s, Linhas(60));
        const auto pages = Relatorio(cresce_junto_);
        QCOMPARE(pages->count(), 3);
        QCOMPARE(pages->page(0).lines().size(), 4);
        QCOMPARE(pages->page(1).lines().first(), u"Rui"_s);
        QCOMPARE(pages->page(1).lines().sliced(1) + pages->page(2).lines(), Linhas(60).split(u"\r\n"_s));
    }

    void em_colunas_enche_se_cada_linha_antes_da_seguinte()
    {
        Juntar_Muitos(8);
        const auto pages = Relatorio(em_colunas_);
        QCOMPARE(pages->count(), 2); // three columns, two rows
        const auto textos = pages->page(0).texts();
        QCOMPARE(textos.size(), 6U);
        for (std::size_t i = 0; i < textos.size(); ++i) {
            const auto numero = static_cast<int>(i);
            QCOMPARE(textos[i].line, u"Nome %1"_s.arg(numero + 1));
            QCOMPARE(textos[i].area.topLeft(),
                     QPointF(1000 + 3000 * (numero % 3), 3500 + 4000 * (numero / 3)));
        }
        QCOMPARE(pages->page(1).lines(), (QStringList{u"Nome 7"_s, u"Nome 8"_s}));
        QCOMPARE(pages->page(1).texts().front().area.topLeft(), QPointF(1000, 3500));
        QCOMPARE(pages->pageOf(6), 1);
    }

    void na_primeira_folha_os_lugares_ja_usados_ficam_livres_data()
    {
        QTest::addColumn<QPointF>("lugar");
        QTest::addColumn<int>("na_primeira");
        QTest::newRow("1") << QPointF(1000, 3500) << 6;
        QTest::newRow("5") << QPointF(4000, 7500) << 2;
        QTest::newRow("6") << QPointF(7000, 7500) << 1;
        QTest::newRow("99") << QPointF(7000, 7500) << 1; // there are but six
        QTest::newRow("0") << QPointF(1000, 3500) << 6;
    }
    void na_primeira_folha_os_lugares_ja_usados_ficam_livres()
    {
        QFETCH(QPointF, lugar);
        QFETCH(int, na_primeira);
        Juntar_Muitos(8);
        const auto pages =
            Relatorio(em_colunas_, {{u"rotulo"_s, QString::fromLatin1(QTest::currentDataTag())}});
        QCOMPARE(pages->page(0).lines().size(), na_primeira);
        QCOMPARE(pages->page(0).texts().front().area.topLeft(), lugar);
        QCOMPARE(pages->page(1).texts().front().area.topLeft(), QPointF(1000, 3500));
    }

    void o_cabecalho_do_relatorio_tira_lugares_a_primeira_folha()
    {
        Juntar_Muitos(4);
        const auto pages = Relatorio(u"<reportheader><row height='3000'/></reportheader>"_s + em_colunas_,
                                     {{u"rotulo"_s, u"99"_s}});
        QCOMPARE(pages->page(0).lines(), QStringList{u"Nome 1"_s});
        QCOMPARE(pages->page(0).texts().front().area.topLeft(), QPointF(7000, 6500)); // there are but three
        QCOMPARE(pages->page(1).texts().front().area.topLeft(), QPointF(1000, 3500));
    }

    void depois_das_colunas_o_fim_fica_abaixo_da_ultima_linha()
    {
        Juntar_Muitos(1);
        const auto pages = Relatorio(em_colunas_ + u"<reportfooter><row height='300'><text width='5000' "
                                                   "height='300'>fim</text></row></reportfooter>"_s);
        QCOMPARE(pages->page(0).texts().back().area.topLeft(), QPointF(1000, 7500));
    }

    void de_varios_campos_aparece_o_primeiro_que_nao_esta_vazio()
    {
        Juntar(u"Ana"_s, u"nota"_s);
        Juntar(u" "_s, u"nota"_s);
        const auto pages = Relatorio(
            u"<detail><row height='400'><text width='5000' height='300'>{T.Nome|Foto|Obs}</text></row></detail>"_s);
        QCOMPARE(pages->page(0).lines(), (QStringList{u"Ana"_s, u"nota"_s}));
    }

    void a_pagina_e_o_dia_dizem_se_na_lingua()
    {
        Juntar_Muitos(20);
        const auto como =
            Relatorio(uma_linha + u"<reportfooter><row height='300'><text width='5000' "
                                  "height='300'>{today}, {pageofpages}</text></row></reportfooter>"_s);
        ReportDefinition definition = como->definition();
        sayInLanguage(definition, Base(), u"AlemaoDE"_s);
        ReportPages pages(definition, como->data(), {}, QDate(2027, 2, 1));
        QCOMPARE(pages.count(), 3);
        QCOMPARE(pages.page(2).lines(), QStringList{u"01.02.2027, Seite 3 von 3"_s});
    }

    void os_registos_saem_como_texto()
    {
        Juntar(u" Ana "_s, u"uma\r\nduas\rtrês"_s);
        const ReportRows rows =
            Relatorio(
                u"<detail><row height='300'><text head='{?rotulo}'>{T.Nome}</text><text>fixo</text></row>"
                "<row closeup='yes'><text width='100' height='100'>{T.Obs}</text></row></detail>"_s,
                {{u"rotulo"_s, u"Etikett"_s}})
                ->rows();
        QCOMPARE(rows.title, u"Titulo"_s);
        QCOMPARE(rows.heads, (QStringList{u"Etikett"_s, u"Obs"_s}));
        QCOMPARE(rows.fields, (QStringList{u"T.Nome"_s, u"T.Obs"_s}));
        QCOMPARE(rows.records.size(), 1U);
        QCOMPARE(rows.records[0], (std::vector<QString>{u"Ana"_s, u"uma\nduas\ntrês"_s}));
    }

    void um_pdf_interrompido_deixa_o_ficheiro_antigo()
    {
        Juntar_Muitos(100);
        const QString pdf = folder_.filePath(u"velho.pdf"_s);
        QFile file(pdf);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("velho");
        file.close();
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(writePdf(*pages, u"x"_s, pdf, [](int page, int) { return page < 5; }),
                 PrintResult::Cancelled);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), "velho");
    }

    void enquanto_as_paginas_se_contam_diz_se_de_cem_em_cem_quantas_sao()
    {
        Juntar_Muitos(2050);
        QStringList dito;
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(writePdf(*pages, u"x"_s, folder_.filePath(u"r.pdf"_s),
                          [&](int page, int found) {
                              if (page == 0) dito << QString::number(found);
                              return page == 0;
                          }),
                 PrintResult::Cancelled);
        QCOMPARE(pages->found(), 205);
        QCOMPARE(dito.join(u' '), u"100 200 205"_s); // the last as the first page is painted
    }

    void um_pdf_que_nao_se_pode_gravar_e_recusado()
    {
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(writePdf(*pages, u"x"_s, folder_.filePath(u"nada/r.pdf"_s), [](int, int) { return true; }),
                 PrintResult::Rejected);
    }

    // A growing text begins below what stands over it in its row and keeps below it what the row has there.
    void uma_linha_que_cresce_guarda_o_que_tem_por_cima_e_por_baixo_data()
    {
        QTest::addColumn<int>("linhas");
        for (const int linhas : {0, 1, 3, 5})
            QTest::addRow("%d", linhas) << linhas;
    }
    void uma_linha_que_cresce_guarda_o_que_tem_por_cima_e_por_baixo()
    {
        QFETCH(const int, linhas);
        for (int i = 0; i < 2; ++i)
            Juntar(u"lado"_s, linhas == 0 ? QString() : Linhas(linhas));
        const auto pages = Relatorio(
            u"<detail><row height='1000'><text top='100' width='5000' height='300' grow='yes'>{T.Obs}</text>"
            "<text left='6000' top='50' width='900' height='300'>{T.Nome}</text></row>"
            "<row height='300'><text left='10' width='5000' height='300'>depois</text></row></detail>"_s);
        QCOMPARE(pages->count(), 1);
        QStringList esperados;
        double topo = 0;
        for (int registo = 0; registo < 2; ++registo) {
            for (int i = 0; i < linhas; ++i)
                esperados << u"linha %1: 0, %2"_s.arg(i + 1).arg(qRound(topo + 100 + i * Passo()));
            esperados << u"lado: 6000, %1"_s.arg(qRound(topo + 50));
            topo += std::max(1000.0, 100 + linhas * Passo() + 600);
            esperados << u"depois: 10, %1"_s.arg(qRound(topo));
            topo += 300;
        }
        QCOMPARE(Lugares(pages->page(0)), esperados);
    }

    void o_que_continua_na_pagina_seguinte_comeca_no_alto_dela()
    {
        Juntar(u"lado"_s, Linhas(60));
        const auto pages = Relatorio(
            u"<detail><row height='1000'><text top='100' width='5000' height='300' grow='yes'>{T.Obs}</text>"
            "<text left='6000' width='900' height='300'>{T.Nome}</text></row>"
            "<row height='300'><text left='10' width='5000' height='300'>depois</text></row></detail>"_s);
        QCOMPARE(pages->count(), 2);
        const int na_primeira = static_cast<int>((10'000 - 100) / Passo());
        QStringList primeira;
        for (int i = 0; i < na_primeira; ++i)
            primeira << u"linha %1: 0, %2"_s.arg(i + 1).arg(qRound(100 + i * Passo()));
        QCOMPARE(Lugares(pages->page(0)), primeira + QStringList{u"lado: 6000, 0"_s});
        QStringList segunda;
        for (int i = na_primeira; i < 60; ++i)
            segunda << u"linha %1: 0, %2"_s.arg(i + 1).arg(qRound((i - na_primeira) * Passo()));
        segunda << u"depois: 10, %1"_s.arg(qRound((60 - na_primeira) * Passo() + 600));
        QCOMPARE(Lugares(pages->page(1)), segunda);
    }

    // Where a row is to begin, and how high its band is, counts from the beginning of the record and no more.
    void a_linha_que_ja_nao_coube_comeca_no_alto_da_pagina_seguinte()
    {
        const int cabem = static_cast<int>(10'000 / Passo());
        Juntar(u"Ana"_s, Linhas(cabem));
        Juntar(u"Rui"_s, {});
        const auto pages = Relatorio(
            u"<detail height='2500'><row height='300'><text width='5000' height='300' grow='yes'>{T.Obs}</text></row>"
            "<row height='1000' from='500'><text width='5000' height='300'>{T.Nome}</text></row></detail>"_s);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(pages->page(0).lines().size(), cabem);
        QCOMPARE(Lugares(pages->page(1)), (QStringList{u"Ana: 0, 0"_s, u"Rui: 0, 1500"_s}));
    }

    // There is room for two lines and a half.
    void tres_linhas_passam_juntas_e_quatro_separam_se_data()
    {
        QTest::addColumn<int>("linhas");
        QTest::addColumn<int>("ficam");
        QTest::newRow("two") << 2 << 2;
        QTest::newRow("three") << 3 << 0;
        QTest::newRow("four") << 4 << 2;
    }
    void tres_linhas_passam_juntas_e_quatro_separam_se()
    {
        QFETCH(const int, linhas);
        QFETCH(const int, ficam);
        Juntar(u"Ana"_s, Linhas(linhas));
        const auto pages = Relatorio(
            u"<detail><row height='%1'><text width='5000' height='300'>{T.Nome}</text></row>"
            "<row height='300'><text width='5000' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s.arg(
                qRound(10'000 - 2.5 * Passo())));
        const QStringList todas = Linhas(linhas).split(u"\r\n"_s);
        QCOMPARE(pages->page(0).lines(), QStringList{u"Ana"_s} + todas.first(ficam));
        QCOMPARE(pages->page(1).lines(), todas.sliced(ficam));
    }

    void onde_nem_uma_linha_tem_lugar_cada_pagina_leva_uma()
    {
        Juntar(u"Ana"_s, Linhas(3));
        const auto pages = Relatorio(
            u"<paper top='12000' bottom='3640'/><font name='g' size='20'/>"
            "<detail><row height='200'><text width='9000' height='200' font='g' grow='yes'>{T.Obs}</text></row>"
            "</detail>"_s);
        QCOMPARE(pages->definition().bodyHeight(), 200.0);
        QCOMPARE(pages->count(), 3);
        for (int page = 0; page < 3; ++page)
            QCOMPARE(pages->page(page).lines(), QStringList{u"linha %1"_s.arg(page + 1)});
    }

    // From the beginning of its own band, and only where the row shows.
    void uma_linha_nao_comeca_antes_do_lugar_que_diz()
    {
        Juntar(u"Ana"_s, u"nota"_s);
        Juntar(u"Rui"_s, {});
        const auto pages = Relatorio(
            u"<detail><row height='300' from='1'><text width='5000' height='300'>{T.Nome}</text></row>"
            "<row height='300' from='2000' closeup='yes'><text width='5000' height='300'>{T.Obs}</text></row>"
            "<row height='300' from='500'><text width='5000' height='300'>fim</text></row></detail>"_s);
        QCOMPARE(pages->count(), 1);
        QCOMPARE(Lugares(pages->page(0)), (QStringList{u"Ana: 0, 1"_s, u"nota: 0, 2000"_s, u"fim: 0, 2300"_s,
                                                       u"Rui: 0, 2601"_s, u"fim: 0, 3100"_s}));
    }

    void um_registo_tao_alto_como_a_pagina_comeca_uma()
    {
        Juntar(u"Ana"_s, {});
        const auto pages = Relatorio(
            u"<reportheader><row height='1000'><text width='5000' height='300'>cabeca</text></row></reportheader>"
            "<detail><row height='5000'><text width='5000' height='300'>um</text></row>"
            "<row height='5000'><text width='5000' height='300'>dois</text></row></detail>"_s);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(pages->page(0).lines(), QStringList{u"cabeca"_s});
        QCOMPARE(Lugares(pages->page(1)), (QStringList{u"um: 0, 0"_s, u"dois: 0, 5000"_s}));
    }

    // With a height of its own the band takes more than its rows; where all of them close up, that is all.
    void uma_faixa_e_pelo_menos_tao_alta_como_diz()
    {
        for (int i = 0; i < 5; ++i)
            Juntar(u"%1"_s.arg(i), {});
        const auto pages = Relatorio(
            u"<detail height='2500'><row height='300'><text width='5000' height='300'>{T.Nome}</text></row>"
            "</detail>"_s);
        QCOMPARE(pages->count(), 2);
        QCOMPARE(Lugares(pages->page(0)),
                 (QStringList{u"0: 0, 0"_s, u"1: 0, 2500"_s, u"2: 0, 5000"_s, u"3: 0, 7500"_s}));
    }

    // At the head of its record it is what the record begins with.
    void um_traco_que_comeca_o_registo_passa_com_ele()
    {
        Juntar(u"Ana"_s, {});
        const auto pages =
            Relatorio(u"<reportheader><row height='8000'/></reportheader>"
                      "<detail><row height='3000'><line width='500'/></row><row height='9000'>"
                      "<text width='5000' height='300'>{T.Nome}</text></row></detail>"_s);
        QVERIFY(pages->page(0).items.empty());
        QCOMPARE(pages->page(1).items.size(), 1U);
        QVERIFY(std::holds_alternative<ReportPage::Stroke>(pages->page(1).items[0].what));
    }

    void o_que_se_repete_em_cada_pagina_tem_as_suas_linhas_umas_sob_as_outras()
    {
        Juntar(u"Ana"_s, {});
        Juntar(u"Rui"_s, {});
        const QString duas = u"<row height='200'><text width='5000' height='300'>%1 {T.Nome}</text></row>"
                             "<row height='300'><text left='20' width='5000' height='300'>%1 2</text></row>"_s;
        const auto pages = Relatorio(u"<pageheader height='500'>"_s + duas.arg(u"cima"_s) +
                                     u"</pageheader><detail newpage='yes'><row height='300'>"
                                     "<text width='5000' height='300'>{T.Nome}</text></row></detail>"
                                     "<pagefooter height='500'>"_s + duas.arg(u"baixo"_s) + u"</pagefooter>"_s);
        QCOMPARE(pages->count(), 2);
        for (const auto &[page, nome] : {std::pair{0, u"Ana"_s}, {1, u"Rui"_s}})
            QCOMPARE(Lugares(pages->page(page)),
                     (QStringList{u"cima %1: 0, -500"_s.arg(nome), u"cima 2: 20, -300"_s, nome + u": 0, 0"_s,
                                  u"baixo %1: 0, 10000"_s.arg(nome), u"baixo 2: 20, 10200"_s}));
    }

    void cada_texto_fica_a_esquerda_ao_meio_ou_a_direita()
    {
        Juntar(u"Ana"_s, {});
        const auto textos =
            Relatorio(u"<detail><row height='900'><text left='100' width='5000' height='300'>{T.Nome}</text>"
                      "<text left='100' top='300' width='5000' height='300' align='centre'>{T.Nome}</text>"
                      "<text left='100' top='600' width='5000' height='300' align='right'>{T.Nome}</text></row>"
                      "</detail>"_s)
                ->page(0)
                .texts();
        QCOMPARE(textos.size(), 3U);
        FontMeasure medida(standardReportFont());
        const double largura = medida.advance(u"Ana"_s);
        for (std::size_t i = 0; i < 3; ++i) {
            QCOMPARE(textos[i].area.left(), 1100 + (5000 - largura) / 2 * static_cast<double>(i));
            QCOMPARE(textos[i].area.width(), largura);
            QCOMPARE(textos[i].area.height(), medida.spacing());
            QCOMPARE(textos[i].baseline, 3500 + 300 * static_cast<double>(i) + medida.ascent());
        }
    }

    // Between the margins, or 850 twips from the edges where that is less.
    void um_aviso_comprido_enche_a_largura_entre_as_margens_data()
    {
        QTest::addColumn<QString>("papel");
        QTest::addColumn<double>("esquerda");
        QTest::addColumn<double>("largura");
        QTest::newRow("without margins") << u"<paper top='1500'/>"_s << 850.0 << 11'900.0 - 1700;
        QTest::newRow("with wide ones") << u"<paper left='1000' top='1500' right='3000'/>"_s << 1000.0
                                        << 11'900.0 - 4000;
        QTest::newRow("with one narrow one") << u"<paper left='2000' top='1500' right='400'/>"_s << 2000.0
                                             << 11'900.0 - 2000 - 850;
    }
    void um_aviso_comprido_enche_a_largura_entre_as_margens()
    {
        QFETCH(const QString, papel);
        QFETCH(const double, esquerda);
        QFETCH(const double, largura);
        const auto como = Relatorio(papel + uma_linha +
                                    u"<reportfooter><row height='300'><text width='5000' height='300'>fim</text>"
                                    "</row></reportfooter>"_s);
        const QString aviso = u"nada de nada "_s.repeated(15).trimmed();
        ReportPages pages(como->definition(), como->data(), {}, QDate(2027, 2, 1), aviso);
        QCOMPARE(pages.count(), 1);
        auto textos = pages.page(0).texts();
        const auto fim = textos.back();
        textos.pop_back();
        FontMeasure medida(standardReportFont());
        QStringList linhas;
        for (const auto &texto : textos) {
            const QString e_mais = u' ' + texto.line.section(u' ', 0, 0);
            QVERIFY(linhas.isEmpty() || medida.advance(linhas.last() + e_mais) > largura);
            QVERIFY(texto.area.width() <= largura);
            QCOMPARE(texto.area.left(), esquerda);
            linhas << texto.line;
        }
        QCOMPARE(linhas.join(u' '), aviso);
        QCOMPARE(fim.area.top(), textos.front().area.top() + 1200);
        for (const ReportPage::Item &item : pages.page(0).items)
            QVERIFY(!item.screenOnly);
    }

    void um_registo_que_continua_esta_na_pagina_em_que_comecou()
    {
        Juntar(u"Ana"_s, Linhas(100));
        Juntar(u"Rui"_s, {});
        const QString cresce = u"<detail><row height='300'><text width='9000' height='300' grow='yes'>{T.Obs}</text>"
                               "</row><row height='%1'><text width='900' height='300'>{T.Nome}</text></row></detail>"_s;
        const auto por_linhas = Relatorio(cresce.arg(300));
        QCOMPARE(por_linhas->pageOf(1), 2);
        QCOMPARE(por_linhas->pageOf(0), 0);
        const auto por_tamanho = Relatorio(
            u"<detail><row height='6000'><text width='900' height='300'>{T.Nome}</text></row>"
            "<row height='6000'/></detail>"_s);
        QCOMPARE(por_tamanho->pageOf(1), 2);
        QCOMPARE(por_tamanho->pageOf(0), 0);
        QCOMPARE(por_tamanho->page(2).lines(), QStringList{u"Rui"_s});
    }

    void so_se_acham_as_paginas_ate_ao_registo_que_se_quer()
    {
        Juntar_Muitos(100);
        const auto pages = Relatorio(uma_linha);
        QCOMPARE(pages->pageOf(34), 3);
        QCOMPARE(pages->found(), 4);
        QCOMPARE(pages->page(6).lines().first(), u"Nome 61"_s);
        QCOMPARE(pages->found(), 7);
        QVERIFY(!pages->complete());
    }

    void so_os_textos_com_campos_sao_colunas_e_a_cabeca_pode_ter_um_campo()
    {
        Juntar(u"Ana"_s, u"nota"_s, u"a.png"_s);
        Juntar(u"Rui"_s, {});
        const ReportRows rows = Relatorio(u"<detail><row height='300'><text head='De {T.Nome}'>{T.Nome}</text>"
                                          "<text>fixo</text><picture>{T.Foto}</picture><line/></row></detail>"_s)
                                    ->rows();
        QCOMPARE(rows.heads, QStringList{u"De Ana"_s});
        QCOMPARE(rows.records, (std::vector<std::vector<QString>>{{u"Ana"_s}, {u"Rui"_s}}));
    }

    // At three hundred dots to the inch, as printers have them.
    void uma_fotografia_vai_para_o_ficheiro_so_com_os_pontos_que_se_imprimem_data()
    {
        QTest::addColumn<QSize>("fotografia");
        QTest::addColumn<QSize>("pontos");
        QTest::newRow("larger") << QSize(1200, 900) << QSize(300, 225);
        QTest::newRow("too wide alone") << QSize(600, 150) << QSize(300, 75);
        QTest::newRow("too high alone") << QSize(150, 600) << QSize(75, 300);
        QTest::newRow("as large") << QSize(300, 300) << QSize(300, 300);
        QTest::newRow("smaller") << QSize(120, 90) << QSize(120, 90);
        QTest::newRow("a stroke of one dot") << QSize(1200, 1) << QSize(300, 1);
        QTest::newRow("an upright one") << QSize(1, 1200) << QSize(1, 300);
    }
    void uma_fotografia_vai_para_o_ficheiro_so_com_os_pontos_que_se_imprimem()
    {
        QFETCH(const QSize, fotografia);
        QFETCH(const QSize, pontos);
        Guardar_Foto(fotografia.width(), fotografia.height());
        Juntar(u"Ana"_s, {}, u"foto.png"_s);
        const auto pages = Relatorio(u"<detail><row height='3000'><picture width='1440' height='1440'>"
                                     "{T.Foto}</picture></row></detail>"_s);
        QVERIFY(Tem_No_Pdf(*pages, pontos.width(), pontos.height()));
    }

    // Fifteen twips to each of its dots, unless the place is smaller.
    void uma_fotografia_ocupa_o_seu_tamanho_no_ecra_ou_o_lugar_que_ha_data()
    {
        QTest::addColumn<QSize>("fotografia");
        QTest::addColumn<QSize>("ocupa"); // in twips, of 2000 by 2000
        QTest::newRow("small") << QSize(40, 20) << QSize(600, 300);
        QTest::newRow("too wide alone") << QSize(200, 100) << QSize(2000, 1000);
        QTest::newRow("too high alone") << QSize(100, 200) << QSize(1000, 2000);
        QTest::newRow("too large") << QSize(400, 400) << QSize(2000, 2000);
    }
    void uma_fotografia_ocupa_o_seu_tamanho_no_ecra_ou_o_lugar_que_ha()
    {
        QFETCH(const QSize, fotografia);
        QFETCH(const QSize, ocupa);
        Guardar_Foto(fotografia.width(), fotografia.height());
        Juntar(u"Ana"_s, {}, u"foto.png"_s);
        const auto pages = Relatorio(
            u"<detail><row height='3000'><picture width='2000' height='2000'>{T.Foto}</picture></row></detail>"_s);
        const QImage folha = Pintar(*pages, 0, ReportPages::OnPaper);
        QRect vermelho;
        for (int y = 0; y < folha.height(); ++y)
            for (int x = 0; x < folha.width(); ++x)
                if (folha.pixelColor(x, y) == QColor(Qt::red)) vermelho |= QRect(x, y, 1, 1);
        QCOMPARE(vermelho, QRect(QPoint(150 - ocupa.width() / 20, 175), ocupa / 20)); // at the top right
    }

    void o_que_se_pinta_tem_a_sua_cor_e_deixa_o_pintor_como_estava()
    {
        Juntar(u"Ana"_s, {});
        const auto pages = Relatorio(
            u"<font name='g' size='60' colour='#00ff00'/><detail><row height='4000'>"
            "<line top='200' width='4000' thickness='200' colour='#ff0000'/>"
            "<box top='1000' width='2000' height='1000' thickness='100' colour='#0000ff'/>"
            "<text top='2400' left='3000' width='5000' height='1600' font='g'>\u2588\u2588</text></row></detail>"_s);
        constexpr double escala = 0.05;
        QImage folha((pages->paper() * escala).toSize(), QImage::Format_RGB32);
        folha.fill(Qt::white);
        QPainter pintor(&folha);
        pintor.scale(escala, escala);
        pintor.setBrush(Qt::yellow);
        pintor.setPen(Qt::cyan);
        const QFont letra = pintor.font();
        pages->paint(pintor, 0, ReportPages::OnPaper);
        QCOMPARE(pintor.pen().color(), QColor(Qt::cyan));
        QCOMPARE(pintor.brush().color(), QColor(Qt::yellow));
        QCOMPARE(pintor.font(), letra);
        pintor.end();
        QCOMPARE(folha.pixelColor(100, 185), QColor(Qt::red));
        QCOMPARE(folha.pixelColor(50, 250), QColor(Qt::blue));  // the left side of the frame
        QCOMPARE(folha.pixelColor(100, 250), QColor(Qt::white)); // and nothing within
        int verdes = 0;
        for (int y = 290; y < 380; ++y)
            for (int x = 200; x < 320; ++x)
                if (folha.pixelColor(x, y) == QColor(Qt::green)) ++verdes;
        QVERIFY(verdes > 100);
    }

    void cada_texto_pinta_se_com_a_sua_letra()
    {
        Juntar(u"Ana"_s, {});
        const auto alturas = [&](const QString &letras) { // of what is painted in either half of the sheet
            const auto pages = Relatorio(u"<font name='g' size='40'/><detail><row height='2000'>"_s + letras +
                                         u"</row></detail>"_s);
            const QImage folha = Pintar(*pages, 0, ReportPages::OnPaper);
            std::array<int, 2> vistas{};
            for (std::size_t lado = 0; lado < 2; ++lado)
                for (int y = 0; y < folha.height(); ++y)
                    for (int x = 0; x < folha.width() / 2; ++x)
                        if (qGray(folha.pixel(x + static_cast<int>(lado) * folha.width() / 2, y)) < 200) {
                            ++vistas[lado];
                            break;
                        }
            return vistas;
        };
        const QString grande = u"<text left='%1' width='4000' height='1000' font='g'>H</text>"_s;
        const QString pequena = u"<text left='%1' width='4000' height='1000'>H</text>"_s;
        const auto primeiro = alturas(grande.arg(0) + pequena.arg(5500));
        const auto depois = alturas(pequena.arg(5500) + grande.arg(0));
        QCOMPARE(depois, primeiro);
        QVERIFY(primeiro[0] > 3 * primeiro[1] && primeiro[1] > 0);
    }

    void os_sinais_que_nao_se_veem_sao_espacos_e_os_outros_ficam()
    {
        Juntar(u"a\tb\x1f" "c d"_s, {});
        QCOMPARE(Relatorio(uma_linha)->page(0).lines(), QStringList{u"a b c d"_s});
    }

    void um_acento_solto_mede_se_com_a_sua_letra()
    {
        FontMeasure medida(standardReportFont());
        const QFontMetricsF letra(standardReportFont());
        for (const QString &texto :
             {u"e\u0300a"_s, u"\u0301"_s, u"и\u0306"_s, u"Ж\u0483"_s, u"王小"_s, u"a\u0530"_s})
            QCOMPARE(medida.advance(texto), letra.horizontalAdvance(texto));
        QCOMPARE(medida.advance({}), 0.0);
    }

    // To its last twip.
    void o_que_cabe_na_largura_fica_numa_linha_inteira()
    {
        FontMeasure medida(standardReportFont());
        const QString texto = u"nnnn nnnn"_s;
        Juntar(texto, texto);
        const QString faixa = u"<detail><row height='900'><text width='%1' height='300'>{T.Nome}</text>"
                              "<text width='%1' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s;
        const QString largura = QString::number(medida.advance(texto), 'g', 17);
        QCOMPARE(Relatorio(faixa.arg(largura))->page(0).lines(), (QStringList{texto, texto}));
        const QString menos = QString::number(medida.advance(texto) - 1, 'g', 17);
        const QStringList partido = Relatorio(faixa.arg(menos))->page(0).lines();
        QVERIFY(partido.value(0).endsWith(u'…'));
        QCOMPARE(partido.sliced(1), (QStringList{u"nnnn"_s, u"nnnn"_s}));
    }

    void um_texto_baixo_tem_uma_linha_e_um_de_duas_tem_duas()
    {
        Juntar(u"um\ndois"_s, {});
        const auto com = [&](double altura) {
            return Relatorio(u"<detail><row height='900'><text width='5000' height='%1'>{T.Nome}</text></row>"
                             "</detail>"_s.arg(altura, 0, 'g', 17))
                ->page(0)
                .lines();
        };
        QCOMPARE(com(2 * Passo() - 1), QStringList{u"um dois"_s});
        QCOMPARE(com(2 * Passo()), (QStringList{u"um"_s, u"dois"_s}));
        QCOMPARE(com(10), QStringList{u"um dois"_s}); // too low for any
    }

    // However little stands before it.
    void o_que_comeca_uma_pagina_comeca_a_sempre_data()
    {
        QTest::addColumn<QString>("antes");
        QTest::addColumn<int>("paginas");
        QTest::newRow("nothing") << QString() << 3;
        QTest::newRow("one twip") << u"<reportheader height='1'/>"_s << 4;
    }
    void o_que_comeca_uma_pagina_comeca_a_sempre()
    {
        QFETCH(const QString, antes);
        Juntar_Muitos(3);
        QTEST(Relatorio(antes + u"<detail newpage='yes' height='1'/>"_s)->count(), "paginas");
    }

    void a_cabeca_da_continuacao_esta_tambem_sobre_a_segunda_linha_de_um_registo()
    {
        Juntar(u"Ana"_s, Linhas(5));
        const QString continua =
            u"<continued><row height='600'><text width='5000' height='300'>({T.Nome})</text></row></continued>"_s;
        const auto por_tamanho =
            Relatorio(continua + u"<detail><row height='6000'/><row height='6000'><text width='5000' height='300'>x"
                                 "</text></row></detail>"_s);
        QCOMPARE(por_tamanho->page(1).lines(), (QStringList{u"(Ana)"_s, u"x"_s}));
        const auto por_linhas =
            Relatorio(continua + u"<reportheader height='%1'/><detail><row height='300'><text width='5000' "
                                 "height='300' grow='yes'>{T.Obs}</text></row></detail>"_s.arg(
                                     qRound(10'000 - 1.5 * Passo())));
        QCOMPARE(por_linhas->page(0).lines(), QStringList{u"linha 1"_s});
        QCOMPARE(por_linhas->page(1).lines(),
                 QStringList{u"(Ana)"_s} + Linhas(5).split(u"\r\n"_s).sliced(1));
        QCOMPARE(por_linhas->pageOf(0), 0);
    }

    void duas_colunas_estao_lado_a_lado()
    {
        Juntar_Muitos(3);
        const QString duas = u"<detail columns='2' width='3000' height='%1' first='rotulo'><row height='300'>"
                             "<text width='2000' height='300'>{T.Nome}</text></row></detail>"_s;
        QCOMPARE(Lugares(Relatorio(duas.arg(4000))->page(0)),
                 (QStringList{u"Nome 1: 0, 0"_s, u"Nome 2: 3000, 0"_s, u"Nome 3: 0, 4000"_s}));
        // Where none has room, none is left free either.
        QCOMPARE(Lugares(Relatorio(duas.arg(11'000), {{u"rotulo"_s, u"2"_s}})->page(0)).first(), u"Nome 1: 0, 0"_s);
    }

    void um_texto_vazio_que_cresce_toma_so_a_altura_da_sua_linha()
    {
        Juntar(u"Ana"_s, {});
        QCOMPARE(Lugares(Relatorio(u"<detail><row height='100'><text width='5000' height='100' grow='yes'>{T.Obs}"
                                   "</text></row><row height='300'><text width='5000' height='300'>fim</text></row>"
                                   "</detail>"_s)
                             ->page(0)),
                 QStringList{u"fim: 0, 100"_s});
    }

    // Below its own head, which is a hundred twips high.
    void um_texto_que_cresce_so_comeca_onde_tem_uma_linha_data()
    {
        QTest::addColumn<double>("resta");
        QTest::addColumn<int>("ficam");
        QTest::newRow("less than its head") << 50.0 << 0;
        QTest::newRow("its head alone") << 100.0 << 0;
        QTest::newRow("all but a line") << 99 + Passo() << 0;
        QTest::newRow("a line") << 100 + Passo() << 1;
        QTest::newRow("two") << 100 + 2 * Passo() << 2;
    }
    void um_texto_que_cresce_so_comeca_onde_tem_uma_linha()
    {
        QFETCH(const double, resta);
        QFETCH(const int, ficam);
        Juntar(u"Ana"_s, Linhas(5));
        const auto pages = Relatorio(
            u"<detail><row height='%1'><text width='5000' height='300'>{T.Nome}</text></row>"
            "<row height='400'><text top='100' width='5000' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s
                .arg(10'000 - resta, 0, 'g', 17));
        const QStringList todas = Linhas(5).split(u"\r\n"_s);
        QCOMPARE(pages->page(0).lines(), QStringList{u"Ana"_s} + todas.first(ficam));
        QCOMPARE(pages->page(1).lines(), todas.sliced(ficam));
    }

    // With what stands above and below the text that grows: five lines, a hundred twips and six hundred.
    void um_registo_que_fica_junto_precisa_de_tudo_o_que_a_sua_linha_tem_data()
    {
        QTest::addColumn<int>("a_mais");
        QTest::addColumn<int>("pagina");
        QTest::newRow("room for all") << 0 << 0;
        QTest::newRow("one twip less") << 1 << 1;
    }
    void um_registo_que_fica_junto_precisa_de_tudo_o_que_a_sua_linha_tem()
    {
        QFETCH(const int, a_mais);
        QFETCH(const int, pagina);
        Juntar(u"Ana"_s, Linhas(5));
        const auto pages = Relatorio(
            u"<reportheader height='%1'/><detail together='yes'><row height='1000'>"
            "<text top='100' width='5000' height='300' grow='yes'>{T.Obs}</text></row></detail>"_s.arg(
                qFloor(10'000 - 700 - 5 * Passo()) + a_mais));
        QCOMPARE(pages->page(pagina).lines(), Linhas(5).split(u"\r\n"_s));
    }
};

MORVEX_TESTE(TestReportPages)
#include "test_ReportPages.moc"
