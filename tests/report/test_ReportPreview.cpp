// The window of the preview: its commands, its keys, and where the sheets lie on their ground.
#include "report/ReportPages.h"
#include "report/ReportPreview.h"
#include "report/ReportView.h"
#include "report/ReportWords.h"
#include "store/NewDatabase.h"
#include "testlib/Pinturas.h"
#include "testlib/Teste.h"

#include <memory>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSet>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStyle>
#include <QTemporaryDir>
#include <QToolBar>
#include <QToolButton>
#include <QWheelEvent>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr int a_volta = 16; // pixels of ground round a sheet

template<class T> T &Parte(const QWidget &janela, const char *nome)
{
    T *parte = janela.findChild<T *>(QLatin1StringView(nome));
    if (!parte) qFatal("there is no %s", nome);
    return *parte;
}
ReportView &Vista(const ReportPreview &janela) { return *janela.findChild<ReportView *>(); }

QRgb Cor(const QImage &visto, int x, int y) { return visto.pixel(x, y); }

// The sheet in pixels, as the view shows it now.
QSize Folha(const ReportPreview &janela)
{
    const ReportView &vista = Vista(janela);
    return (janela.pages()->paper() * (vista.zoom() * vista.logicalDpiX() / 1440.0)).toSize();
}
} // namespace

class TestReportPreview : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;

    // As many pages as records, on A4 unless another paper is named.
    std::shared_ptr<ReportPages> Paginas(int registos, const QString &papel = {},
                                         const QString &dentro = u"<text width='5000' height='300'>{T.Nome}</text>"_s,
                                         const ReportLayout::HeldPictures &guardadas = {})
    {
        const QString caminho = folder_.filePath(u"r.rpt"_s);
        const QString base = folder_.filePath(u"base%1.mdb"_s.arg(registos));
        QFile file(caminho);
        if (file.open(QIODevice::WriteOnly))
            file.write((u"<report title='Lista' table='T'>"_s + papel + u"<detail newpage='yes'><row height='300'>"_s +
                        dentro + u"</row></detail></report>"_s)
                           .toUtf8());
        file.close();
        if (!QFile::exists(base))
            createDatabase(base, {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT)"_s,
                                  u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
                                  "%1) INSERT INTO T SELECT i, 'Nome ' || i FROM n WHERE i <= %1"_s.arg(registos)});
        const ReportDefinition definition = readReportDefinition(caminho);
        return std::make_shared<ReportPages>(definition, ReportData(definition, base, {}, {u"+{T.ID}"_s}),
                                             QHash<QString, QString>{}, QDate(2027, 2, 1), QString(), guardadas);
    }
    // So many, with lines to be broken on each, that they are not found while the window is being shown.
    static constexpr int muitas = 200'000;
    std::shared_ptr<ReportPages> Muitas()
    {
        return Paginas(muitas, {}, u"<text width='5000' height='300' grow='yes'>{T.Nome}</text>"_s);
    }
    std::shared_ptr<ReportPages> Todas(int registos)
    {
        auto paginas = Paginas(registos);
        paginas->count();
        return paginas;
    }
    // What stands on a bar, in its order: the names of its parts, the words of those that have none, and a
    // stroke for a line between two groups.
    static QStringList Na_Barra(const QToolBar &barra)
    {
        QStringList partes;
        for (QAction *accao : barra.actions()) {
            const QWidget *parte = barra.widgetForAction(accao);
            const auto *letras = qobject_cast<const QLabel *>(parte);
            partes << (accao->isSeparator()               ? u"|"_s
                       : !accao->objectName().isEmpty()   ? accao->objectName()
                       : !parte->objectName().isEmpty()   ? parte->objectName()
                       : letras                           ? letras->text()
                                                          : QString());
        }
        return partes;
    }
    static std::unique_ptr<ReportPreview> Janela(std::shared_ptr<ReportPages> paginas,
                                                 const ReportPreview::Look &como = {
                                                     .language = u"InglesUK"_s})
    {
        auto janela = std::make_unique<ReportPreview>(std::move(paginas), como, nullptr);
        janela->setAttribute(Qt::WA_DeleteOnClose, false);
        janela->show();
        QCoreApplication::processEvents();
        return janela;
    }
    static void Rodar(ReportView &vista, QPoint quanto, Qt::KeyboardModifiers teclas)
    {
        QWheelEvent roda({10, 10}, vista.mapToGlobal(QPointF(10, 10)), {}, quanto, Qt::NoButton, teclas,
                         Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(vista.viewport(), &roda);
    }

private Q_SLOTS:
    void cada_comando_tem_texto_tecla_e_dica_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("tip");
        QTest::newRow("first") << u"First page"_s << u"Ctrl+Home"_s << u"First page (Ctrl+Home)"_s;
        QTest::newRow("previous") << u"Previous page"_s << u"Ctrl+PgUp"_s << u"Previous page (Ctrl+PgUp)"_s;
        QTest::newRow("next") << u"Next page"_s << u"Ctrl+PgDown"_s << u"Next page (Ctrl+PgDown)"_s;
        QTest::newRow("last") << u"Last page"_s << u"Ctrl+End"_s << u"Last page (Ctrl+End)"_s;
        QTest::newRow("zoomOut") << u"Zoom out"_s << u"Ctrl+-"_s << u"Zoom out (Ctrl+-)"_s;
        QTest::newRow("zoomIn") << u"Zoom in"_s << u"Ctrl++; Ctrl+="_s << u"Zoom in (Ctrl++)"_s;
        QTest::newRow("fitWidth") << u"Page width"_s << u"Ctrl+1"_s << u"Page width (Ctrl+1)"_s;
        QTest::newRow("wholePage") << u"Whole page"_s << u"Ctrl+0"_s << u"Whole page (Ctrl+0)"_s;
        QTest::newRow("print") << u"Print"_s << u"Ctrl+P"_s << u"Print (Ctrl+P)"_s;
        QTest::newRow("pdf") << u"Save as PDF"_s << u"Ctrl+S"_s << u"Save as PDF (Ctrl+S)"_s;
        QTest::newRow("refresh") << u"Refresh"_s << u"F5"_s << u"Refresh (F5)"_s;
        QTest::newRow("close") << u"Close"_s << QKeySequence(QKeySequence::Close).toString()
                               << u"Close (%1)"_s.arg(QKeySequence(QKeySequence::Close).toString());
    }
    void cada_comando_tem_texto_tecla_e_dica()
    {
        const auto janela = Janela(Todas(2), {.language = u"InglesUK"_s, .refresh = true});
        const auto &comando = Parte<QAction>(*janela, QTest::currentDataTag());
        QTEST(comando.text(), "text");
        QTEST(QKeySequence::listToString(comando.shortcuts()), "keys");
        QTEST(comando.toolTip(), "tip");
    }

    void os_passos_de_pagina_e_o_zoom_mostram_um_sinal()
    {
        const auto janela = Janela(Todas(2));
        for (const char *nome : {"first", "previous", "next", "last"})
            QVERIFY2(!Parte<QAction>(*janela, nome).icon().isNull(), nome);
        const auto sinal = [&](const char *nome, QStyle::StandardPixmap qual) {
            return Parte<QAction>(*janela, nome).icon().pixmap(16).toImage() ==
                   janela->style()->standardIcon(qual).pixmap(16).toImage();
        };
        QVERIFY(sinal("first", QStyle::SP_MediaSkipBackward) &&
                sinal("previous", QStyle::SP_MediaSeekBackward));
        QVERIFY(sinal("next", QStyle::SP_MediaSeekForward) && sinal("last", QStyle::SP_MediaSkipForward));
        QCOMPARE(Parte<QAction>(*janela, "zoomOut").iconText(), u"\u2212"_s);
        QCOMPARE(Parte<QAction>(*janela, "zoomIn").iconText(), u"+"_s);
    }

    void a_janela_abre_com_o_seu_tamanho_e_o_teclado_nas_folhas()
    {
        ReportPreview janela(Todas(2), {.language = u"InglesUK"_s}, nullptr);
        QCOMPARE(janela.size(), QSize(1000, 800));
        QVERIFY(janela.testAttribute(Qt::WA_DeleteOnClose));
        QVERIFY(janela.isWindow());
        QCOMPARE(janela.focusWidget(), &Vista(janela));
        QCOMPARE(janela.centralWidget(), &Vista(janela));
        QCOMPARE(Vista(janela).focusPolicy(), Qt::StrongFocus);
        QCOMPARE(Vista(janela).accessibleName(), u"Page"_s);
    }

    // A menu of the toolkit's own would let a person hide the bars.
    void as_barras_nao_tem_menu_e_ficam_onde_estao()
    {
        const auto janela = Janela(Todas(2));
        const auto barras = janela->findChildren<QToolBar *>();
        QCOMPARE(barras.size(), 2);
        for (const QToolBar *barra : barras) {
            QCOMPARE(barra->contextMenuPolicy(), Qt::PreventContextMenu);
            QVERIFY(!barra->isMovable());
        }
    }

    void a_caixa_das_paginas_toma_o_numero_quando_ele_esta_escrito()
    {
        const auto janela = Janela(Todas(12));
        auto &caixa = Parte<QSpinBox>(*janela, "page");
        QCOMPARE(caixa.minimum(), 1);
        QCOMPARE(caixa.maximum(), 12);
        QCOMPARE(caixa.accessibleName(), u"Page"_s);
        QCOMPARE(caixa.alignment(), Qt::AlignRight);
        QCOMPARE(caixa.buttonSymbols(), QAbstractSpinBox::NoButtons);
        caixa.selectAll();
        QTest::keyClicks(&caixa, u"11"_s);
        QCOMPARE(Vista(*janela).page(), 0);
        QTest::keyClick(&caixa, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 10);
    }

    void as_paginas_contam_se_e_as_que_faltam_sao_tres_pontos()
    {
        ReportPreview janela(Paginas(400), {.language = u"InglesUK"_s}, nullptr);
        QCOMPARE(Parte<QLabel>(janela, "count").text(), u" / 1\u2026 "_s);
        QTRY_VERIFY(janela.pages()->complete());
        QCOMPARE(Parte<QLabel>(janela, "count").text(), u" / 400 "_s);
        QVERIFY(Parte<QAction>(janela, "next").isEnabled() && Parte<QAction>(janela, "last").isEnabled());
        QStringList ditos;
        for (const QLabel *dito : janela.findChildren<QLabel *>())
            ditos << dito->text();
        QVERIFY(ditos.contains(u" Page "_s));
    }

    void para_tras_e_para_a_frente_so_onde_ha_paginas()
    {
        const auto janela = Janela(Todas(3));
        const auto ligados = [&] {
            QString quais;
            for (const char *nome : {"first", "previous", "next", "last"})
                quais += QLatin1StringView(Parte<QAction>(*janela, nome).isEnabled() ? "1" : "0");
            return quais;
        };
        QCOMPARE(ligados(), u"0011"_s);
        Parte<QAction>(*janela, "next").trigger();
        QCOMPARE(ligados(), u"1111"_s);
        Parte<QAction>(*janela, "next").trigger();
        QCOMPARE(ligados(), u"1100"_s);
        const auto so_uma = Janela(Todas(1));
        for (const char *nome : {"first", "previous", "next", "last"})
            QVERIFY2(!Parte<QAction>(*so_uma, nome).isEnabled(), nome);
    }

    void cada_botao_de_saida_pede_o_seu()
    {
        const auto janela = Janela(Todas(2), {.language = u"InglesUK"_s, .refresh = true});
        QStringList pedidos;
        connect(janela.get(), &ReportPreview::printWanted, this, [&] { pedidos << u"print"_s; });
        connect(janela.get(), &ReportPreview::pdfWanted, this, [&] { pedidos << u"pdf"_s; });
        connect(janela.get(), &ReportPreview::refreshWanted, this, [&] { pedidos << u"refresh"_s; });
        for (const char *nome : {"print", "pdf", "refresh"})
            Parte<QAction>(*janela, nome).trigger();
        QCOMPARE(pedidos, (QStringList{u"print"_s, u"pdf"_s, u"refresh"_s}));
        Parte<QAction>(*janela, "close").trigger();
        QVERIFY(!janela->isVisible());
    }

    // A hidden command must not answer its key either.
    void o_que_nao_se_pede_nao_esta_e_nao_responde_data()
    {
        QTest::addColumn<bool>("sim");
        QTest::newRow("none") << false;
        QTest::newRow("all") << true;
    }
    void o_que_nao_se_pede_nao_esta_e_nao_responde()
    {
        QFETCH(bool, sim);
        const auto janela =
            Janela(Todas(2), {.language = u"InglesUK"_s, .print = sim, .refresh = sim, .search = sim});
        for (const char *nome : {"print", "refresh"}) {
            QCOMPARE(Parte<QAction>(*janela, nome).isVisible(), sim);
            QCOMPARE(Parte<QAction>(*janela, nome).isEnabled(), sim);
        }
        QStringList pedidos;
        connect(janela.get(), &ReportPreview::printWanted, this, [&] { pedidos << u"print"_s; });
        connect(janela.get(), &ReportPreview::refreshWanted, this, [&] { pedidos << u"refresh"_s; });
        QVERIFY(QTest::qWaitForWindowActive(janela.get()));
        QTest::keyClick(janela.get(), Qt::Key_P, Qt::ControlModifier);
        QTest::keyClick(janela.get(), Qt::Key_F5);
        QCOMPARE(pedidos, sim ? QStringList({u"print"_s, u"refresh"_s}) : QStringList());
        QCOMPARE(janela->findChild<QLineEdit *>(u"search"_s) != nullptr, sim);
        if (!sim) return;
        const auto &texto = Parte<QLineEdit>(*janela, "search");
        QCOMPARE(texto.placeholderText(), u"Find"_s);
        QCOMPARE(texto.accessibleName(), u"Find"_s);
        QCOMPARE(texto.maximumWidth(), 200);
    }
    void sem_mais_nada_dito_imprime_se_e_nao_se_actualiza_nem_procura()
    {
        const ReportPreview::Look como;
        QVERIFY(como.print && !como.refresh && !como.search);
    }

    void o_que_nao_se_acha_deixa_a_pagina()
    {
        const auto janela = Janela(Todas(12), {.language = u"InglesUK"_s, .search = true});
        Vista(*janela).goTo(4);
        auto &texto = Parte<QLineEdit>(*janela, "search");
        texto.setText(u"falta"_s);
        QTest::keyClick(&texto, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 4);
        texto.setText(u"NOME 1"_s); // the first one, then those behind it
        QList<int> achadas;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(&texto, Qt::Key_Return);
            achadas << Vista(*janela).page();
        }
        QCOMPARE(achadas, (QList<int>{0, 9, 10, 11, 0}));
    }
    void com_paginas_novas_procura_se_desde_o_principio()
    {
        const auto janela = Janela(Todas(12), {.language = u"InglesUK"_s, .search = true});
        auto &texto = Parte<QLineEdit>(*janela, "search");
        texto.setText(u"nome"_s);
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(&texto, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 2);
        janela->setPages(Todas(12));
        QTest::keyClick(&texto, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 0);
    }

    void cada_passo_do_zoom_e_um_quarto()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(1 / vista.zoom());
        QCOMPARE(vista.zoom(), 1.0);
        Parte<QAction>(*janela, "zoomIn").trigger();
        QCOMPARE(vista.zoom(), 1.25);
        Parte<QAction>(*janela, "zoomOut").trigger();
        Parte<QAction>(*janela, "zoomOut").trigger();
        QCOMPARE(vista.zoom(), 0.8);
        Rodar(vista, {0, 120}, Qt::ControlModifier);
        QCOMPARE(vista.zoom(), 1.0);
        Rodar(vista, {0, -120}, Qt::ControlModifier);
        QCOMPARE(vista.zoom(), 0.8);
        Rodar(vista, {120, 0}, Qt::ControlModifier);
        QCOMPARE(vista.zoom(), 0.8);
    }
    void o_zoom_vai_de_um_decimo_a_oito_vezes()
    {
        const auto janela = Janela(Todas(3));
        Vista(*janela).zoomBy(1000);
        QCOMPARE(Vista(*janela).zoom(), 8.0);
        Vista(*janela).zoomBy(0.0001);
        QCOMPARE(Vista(*janela).zoom(), 0.1);
    }

    // Sixteen pixels on either side, at the screen's own dots an inch.
    void a_largura_e_a_pagina_inteira_enchem_a_janela_e_seguem_na()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        const QSizeF natural = janela->pages()->paper() * (vista.logicalDpiX() / 1440.0);
        const auto largo = [&] { return (vista.viewport()->width() - 2 * a_volta) / natural.width(); };
        const auto alto = [&] { return (vista.viewport()->height() - 2 * a_volta) / natural.height(); };
        QVERIFY(alto() < largo());
        QCOMPARE(vista.zoom(), alto());
        Parte<QAction>(*janela, "fitWidth").trigger();
        QCOMPARE(vista.zoom(), largo());
        janela->resize(700, 800);
        QCoreApplication::processEvents();
        QCOMPARE(vista.zoom(), largo());
        Parte<QAction>(*janela, "wholePage").trigger();
        QCOMPARE(vista.zoom(), qMin(largo(), alto()));
        janela->resize(500, 800);
        QCoreApplication::processEvents();
        QVERIFY(largo() < alto());
        QCOMPARE(vista.zoom(), largo());
        vista.zoomBy(1.25);
        const double escolhido = vista.zoom();
        janela->resize(900, 600);
        QCoreApplication::processEvents();
        QCOMPARE(vista.zoom(), escolhido);
    }

    void a_barra_de_deslocar_vai_ate_ao_fundo_da_ultima_folha()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(2 / vista.zoom());
        const QSize folha = (janela->pages()->paper() * (2 * vista.logicalDpiX() / 1440.0)).toSize();
        QCOMPARE(vista.verticalScrollBar()->maximum(),
                 3 * (folha.height() + a_volta) + a_volta - vista.viewport()->height());
        QCOMPARE(vista.horizontalScrollBar()->maximum(),
                 folha.width() + 2 * a_volta - vista.viewport()->width());
        QCOMPARE(vista.verticalScrollBar()->minimum(), 0);
        QCOMPARE(vista.horizontalScrollBar()->minimum(), 0);
        QCOMPARE(vista.verticalScrollBar()->pageStep(), vista.viewport()->height());
        QCOMPARE(vista.horizontalScrollBar()->pageStep(), vista.viewport()->width());
        QCOMPARE(vista.verticalScrollBar()->singleStep(), 60);
        QCOMPARE(vista.horizontalScrollBar()->singleStep(), 60);
        QCOMPARE(vista.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    }

    void enquanto_se_acham_paginas_a_barra_de_deslocar_cresce()
    {
        const auto janela = Janela(Paginas(300));
        QTRY_VERIFY(janela->pages()->complete());
        QCoreApplication::processEvents();
        const ReportView &vista = Vista(*janela);
        const int folha =
            (janela->pages()->paper() * (vista.zoom() * vista.logicalDpiX() / 1440.0)).toSize().height();
        QCOMPARE(vista.verticalScrollBar()->maximum(),
                 300 * (folha + a_volta) + a_volta - vista.viewport()->height());
    }

    void numa_folha_mais_larga_do_que_a_janela_anda_se_para_o_lado()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(3 / vista.zoom());
        const int passo =
            (janela->pages()->paper() * (3 * vista.logicalDpiX() / 1440.0)).toSize().height() + a_volta;
        vista.horizontalScrollBar()->setValue(10);
        const QImage visto = vista.viewport()->grab().toImage();
        QCOMPARE(Cor(visto, a_volta - 10, 200), qRgb(255, 255, 255));
        QCOMPARE(Cor(visto, a_volta - 11, 200), vista.palette().color(QPalette::Mid).rgb());
        QTest::keyClick(&vista, Qt::Key_End); // to the top of the last page
        QCOMPARE(vista.verticalScrollBar()->value(), 2 * passo);
    }

    void as_teclas_andam_nas_folhas()
    {
        const auto janela = Janela(Todas(5));
        ReportView &vista = Vista(*janela);
        const QScrollBar &barra = *vista.verticalScrollBar();
        const int passo = vista.viewport()->height();
        QTest::keyClick(&vista, Qt::Key_PageDown);
        QCOMPARE(barra.value(), passo);
        QTest::keyClick(&vista, Qt::Key_Space);
        QCOMPARE(barra.value(), 2 * passo);
        QTest::keyClick(&vista, Qt::Key_PageUp);
        QCOMPARE(barra.value(), passo);
        QTest::keyClick(&vista, Qt::Key_Down);
        QCOMPARE(barra.value(), passo + 60);
        QTest::keyClick(&vista, Qt::Key_End);
        QCOMPARE(vista.page(), 4);
        QTest::keyClick(&vista, Qt::Key_Home);
        QCOMPARE(barra.value(), 0);
    }

    // A page counts once its top has passed the upper third.
    void a_pagina_e_a_que_esta_no_terco_de_cima()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        const int passo =
            (janela->pages()->paper() * (vista.zoom() * vista.logicalDpiX() / 1440.0)).toSize().height() +
            a_volta;
        const int ate = passo + a_volta - vista.viewport()->height() / 3;
        vista.verticalScrollBar()->setValue(ate - 1);
        QCOMPARE(vista.page(), 0);
        QCOMPARE(Parte<QSpinBox>(*janela, "page").value(), 1);
        vista.verticalScrollBar()->setValue(ate);
        QCOMPARE(vista.page(), 1);
        QCOMPARE(Parte<QSpinBox>(*janela, "page").value(), 2);
    }

    void cada_folha_e_branca_e_tem_sombra_a_direita_e_em_baixo()
    {
        const auto janela = Janela(Todas(2));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.3 / vista.zoom()); // both are in view
        const QSize folha = (janela->pages()->paper() * (0.3 * vista.logicalDpiX() / 1440.0)).toSize();
        const QImage visto = vista.viewport()->grab().toImage();
        const int esquerda = (vista.viewport()->width() - folha.width()) / 2;
        const QRgb fundo = Cor(visto, 1, 1);
        const QRgb sombra = vista.palette().color(QPalette::Dark).rgb();
        QCOMPARE(fundo, vista.palette().color(QPalette::Mid).rgb());
        QVERIFY(sombra != fundo);
        for (const int topo : {a_volta, 2 * a_volta + folha.height()}) {
            const int direita = esquerda + folha.width();
            const int base = topo + folha.height();
            QCOMPARE(Cor(visto, direita - 1, topo), qRgb(255, 255, 255)); // no letter stands in these corners
            QCOMPARE(Cor(visto, esquerda, base - 1), qRgb(255, 255, 255));
            QCOMPARE(Cor(visto, direita - 1, base - 1), qRgb(255, 255, 255));
            QCOMPARE(Cor(visto, esquerda - 1, topo), fundo);
            QCOMPARE(Cor(visto, esquerda, topo - 1), fundo);
            QCOMPARE(Cor(visto, direita + 1, base), sombra);
            QCOMPARE(Cor(visto, direita + 2, base), fundo);
            QCOMPARE(Cor(visto, direita, base + 2), sombra);
            QCOMPARE(Cor(visto, direita, base + 3), fundo);
            QCOMPARE(Cor(visto, direita + 1, topo + 2), fundo);
            QCOMPARE(Cor(visto, direita + 1, topo + 3), sombra);
        }
    }

    void as_letras_de_uma_folha_crescem_com_ela()
    {
        const auto janela = Janela(Todas(1));
        ReportView &vista = Vista(*janela);
        const auto letras = [&](double zoom) { // within the sheet
            vista.zoomBy(zoom / vista.zoom());
            const QSize folha = (janela->pages()->paper() * (zoom * vista.logicalDpiX() / 1440.0)).toSize();
            const QPoint canto((vista.viewport()->width() - folha.width()) / 2, a_volta);
            const QImage visto = vista.viewport()->grab(QRect(canto, folha) & vista.viewport()->rect()).toImage();
            QRect escuro;
            for (int y = 0; y < visto.height(); ++y)
                for (int x = 0; x < visto.width(); ++x)
                    if (qGray(Cor(visto, x, y)) < 160) escuro |= QRect(x, y, 1, 1);
            return escuro;
        };
        const QRect pequenas = letras(0.3);
        const QRect grandes = letras(0.6);
        QVERIFY(pequenas.isValid());
        QVERIFY2(qAbs(grandes.left() - 2 * pequenas.left()) <= 3, qPrintable(QString::number(grandes.left())));
        QVERIFY2(qAbs(grandes.top() - 2 * pequenas.top()) <= 4, qPrintable(QString::number(grandes.top())));
        QVERIFY2(qAbs(grandes.width() - 2 * pequenas.width()) <= 6, qPrintable(QString::number(grandes.width())));
    }

    void uma_folha_ja_passada_nao_se_ve_e_a_que_sai_por_cima_ve_se_ate_ao_fim()
    {
        const auto janela = Janela(Todas(4));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.3 / vista.zoom());
        janela->resize(1000, 300);
        QCoreApplication::processEvents();
        const QSize folha = (janela->pages()->paper() * (0.3 * vista.logicalDpiX() / 1440.0)).toSize();
        vista.verticalScrollBar()->setValue(a_volta + folha.height() - 1); // one row of the first one is left
        const QImage visto = vista.viewport()->grab().toImage();
        const int meio = vista.viewport()->width() / 2;
        QCOMPARE(Cor(visto, meio, 0), qRgb(255, 255, 255));
        QCOMPARE(Cor(visto, meio, 4), vista.palette().color(QPalette::Mid).rgb());
        QCOMPARE(Cor(visto, meio, 1 + a_volta), qRgb(255, 255, 255));
    }

    void os_comandos_estao_nas_barras_por_esta_ordem()
    {
        const auto janela = Janela(Todas(2), {.language = u"InglesUK"_s, .refresh = true, .search = true});
        const auto barras = janela->findChildren<QToolBar *>();
        QCOMPARE(Na_Barra(*barras.value(0)),
                 (QStringList{u"first"_s, u"previous"_s, u" Page "_s, u"page"_s, u"count"_s, u"next"_s, u"last"_s,
                              u"|"_s, u"zoomOut"_s, u"zoomIn"_s, u"fitWidth"_s, u"wholePage"_s}));
        QCOMPARE(Na_Barra(*barras.value(1)), (QStringList{u"print"_s, u"pdf"_s, u"refresh"_s, u"search"_s, u"|"_s,
                                                          u"close"_s}));
    }

    // Some of them show a sign alone, which says nothing to a screen reader.
    void cada_botao_tem_o_seu_texto_por_nome()
    {
        const auto janela = Janela(Todas(2), {.language = u"InglesUK"_s, .refresh = true});
        int botoes = 0;
        for (const QToolBar *barra : janela->findChildren<QToolBar *>())
            for (QAction *accao : barra->actions()) {
                const auto *botao = qobject_cast<QToolButton *>(barra->widgetForAction(accao));
                if (!botao) continue;
                ++botoes;
                QCOMPARE(botao->accessibleName(), accao->text());
            }
        QCOMPARE(botoes, 12);
    }

    // Two hundred pixels beside letters of eleven, and as many more beside larger ones.
    void o_lugar_do_texto_que_se_procura_cresce_com_a_letra()
    {
        const QFont antes = QApplication::font();
        const auto repor = qScopeGuard([&] { QApplication::setFont(antes); });
        for (const int letra : {11, 13, 22}) {
            QFont outra = antes;
            outra.setPixelSize(letra);
            QApplication::setFont(outra);
            const auto janela = Janela(Todas(2), {.language = u"InglesUK"_s, .search = true});
            QCOMPARE(Parte<QLineEdit>(*janela, "search").maximumWidth(), 200 * letra / 11);
        }
    }

    void as_duas_barras_ficam_lado_a_lado_enquanto_a_largura_chega_ate_ao_fim()
    {
        const auto janela = Janela(Todas(2));
        const auto barras = janela->findChildren<QToolBar *>();
        const int palavras = barras[0]->sizeHint().width() + barras[1]->sizeHint().width();
        for (const auto &[largura, cabem] : {std::pair{palavras, true}, {palavras - 1, false}, {palavras, true}}) {
            janela->resize(largura, 600);
            QCoreApplication::processEvents();
            QCOMPARE(janela->width(), largura);
            QCOMPARE(barras[0]->y() == barras[1]->y(), cabem);
        }
    }

    void as_teclas_de_que_a_janela_nada_sabe_ficam_para_outros()
    {
        const auto janela = Janela(Todas(2));
        QKeyEvent letra(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
        QCoreApplication::sendEvent(janela.get(), &letra);
        QVERIFY(!letra.isAccepted());
        QVERIFY(janela->isVisible());
    }

    void sem_registos_procurar_nao_faz_nada()
    {
        const auto janela = Janela(Todas(0), {.language = u"InglesUK"_s, .search = true});
        auto &texto = Parte<QLineEdit>(*janela, "search");
        texto.setText(u"nome"_s);
        QTest::keyClick(&texto, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 0);
    }

    void procura_se_em_todos_os_campos()
    {
        auto paginas = Paginas(12, {}, u"<text width='5000' height='300'>{T.ID} {T.Nome}</text>"_s);
        paginas->count();
        const auto janela = Janela(paginas, {.language = u"InglesUK"_s, .search = true});
        auto &texto = Parte<QLineEdit>(*janela, "search");
        texto.setText(u"nome 7"_s);
        QTest::keyClick(&texto, Qt::Key_Return);
        QCOMPARE(Vista(*janela).page(), 6);
    }

    // What is sought may stand on a page that nobody has found yet.
    void procura_se_tambem_nas_paginas_por_achar()
    {
        const auto janela = Janela(Muitas(), {.language = u"InglesUK"_s, .search = true});
        auto &texto = Parte<QLineEdit>(*janela, "search");
        texto.setText(u"nome %1"_s.arg(muitas - 1));
        const int achadas = janela->pages()->found();
        QTest::keyClick(&texto, Qt::Key_Return);
        QVERIFY(achadas < muitas - 1 && !janela->pages()->complete());
        QCOMPARE(Vista(*janela).page(), muitas - 2);
    }

    // In slices, for whoever turns the wheel meanwhile.
    void as_paginas_acham_se_aos_poucos()
    {
        const auto janela = Janela(Muitas());
        QVERIFY(!janela->pages()->complete());
        const ReportView &vista = Vista(*janela);
        QSignalSpy ditas(&vista, &ReportView::pagesFound);
        Pinturas pinturas(*vista.viewport());
        pinturas.Feitas();
        QTRY_VERIFY_WITH_TIMEOUT(janela->pages()->complete(), 60'000);
        QVERIFY(ditas.size() > 2);
        for (qsizetype i = 0; i < ditas.size(); ++i) {
            QCOMPARE(ditas[i].at(1).toBool(), i + 1 == ditas.size());
            QVERIFY(i == 0 || ditas[i].at(0).toInt() > ditas[i - 1].at(0).toInt());
        }
        QCOMPARE(ditas.last().at(0).toInt(), muitas);
        QVERIFY(pinturas.Feitas() > 0); // each sheet can say now how many there are
    }

    void o_que_muda_na_vista_pinta_se_logo()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        Pinturas pinturas(*vista.viewport());
        pinturas.Feitas();
        QCOMPARE(pinturas.Feitas(), 0);
        vista.zoomBy(0.5);
        QVERIFY(pinturas.Feitas() > 0);
        vista.zoomBy(2);
        pinturas.Feitas();
        vista.verticalScrollBar()->setValue(50);
        QVERIFY(pinturas.Feitas() > 0);
        janela->setPages(Todas(2));
        QVERIFY(pinturas.Feitas() > 0);
    }

    void paginas_novas_enchem_a_janela_outra_vez_e_dizem_se_na_barra()
    {
        const auto janela = Janela(Todas(3));
        const ReportView &vista = Vista(*janela);
        const double de_pe = vista.zoom();
        auto deitadas = Paginas(5, u"<paper orientation='landscape'/>"_s);
        deitadas->count();
        janela->setPages(deitadas);
        const QSizeF natural = deitadas->paper() * (vista.logicalDpiX() / 1440.0);
        QCOMPARE(vista.zoom(), qMin((vista.viewport()->width() - 2 * a_volta) / natural.width(),
                                    (vista.viewport()->height() - 2 * a_volta) / natural.height()));
        QVERIFY(vista.zoom() != de_pe);
        QCOMPARE(Parte<QLabel>(*janela, "count").text(), u" / 5 "_s);
        QCOMPARE(Parte<QSpinBox>(*janela, "page").maximum(), 5);
        QVERIFY(Parte<QAction>(*janela, "next").isEnabled());
        janela->setPages(Todas(1));
        QVERIFY(!Parte<QAction>(*janela, "next").isEnabled());
    }

    void uma_vista_sem_folhas_esta_na_primeira()
    {
        ReportView vista;
        vista.show();
        QCoreApplication::processEvents();
        QCOMPARE(vista.page(), 0);
        QCOMPARE(vista.zoom(), 1.0);
        vista.fitWidth();
        QCOMPARE(vista.zoom(), 1.0);
    }

    void com_uma_folha_pequena_no_alto_a_pagina_e_ela()
    {
        const auto janela = Janela(Todas(2));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.1 / vista.zoom());
        QVERIFY(2 * (Folha(*janela).height() + a_volta) < vista.viewport()->height()); // both end above the middle
        QCOMPARE(vista.page(), 1);
        janela->setPages(Todas(1));
        vista.zoomBy(0.1 / vista.zoom());
        QCOMPARE(vista.page(), 0);
    }

    void o_zoom_deixa_a_vista_no_mesmo_lugar_da_sua_folha()
    {
        const auto janela = Janela(Todas(9));
        ReportView &vista = Vista(*janela);
        QScrollBar &barra = *vista.verticalScrollBar();
        for (const double factor : {2.0, 0.5, 1.25}) {
            const int passo = Folha(*janela).height() + a_volta;
            barra.setValue(4 * passo + passo / 3);
            const double lugar = static_cast<double>(barra.value()) / passo;
            vista.zoomBy(factor);
            QCOMPARE(barra.value(), qRound(lugar * (Folha(*janela).height() + a_volta)));
        }
    }

    void o_que_passa_da_folha_nao_suja_o_fundo()
    {
        const auto janela = Janela(Paginas(1, {}, u"<line top='100' width='40000' thickness='400'/>"_s));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.3 / vista.zoom());
        const QImage visto = vista.viewport()->grab().toImage();
        const int esquerda = (vista.viewport()->width() - Folha(*janela).width()) / 2;
        const int direita = esquerda + Folha(*janela).width();
        QCOMPARE(Cor(visto, direita - 1, a_volta + 1), qRgb(0, 0, 0));
        QCOMPARE(Cor(visto, direita + 10, a_volta + 1), vista.palette().color(QPalette::Mid).rgb());
    }

    void um_traco_inclinado_nao_tem_degraus()
    {
        const auto janela = Janela(Paginas(1, {}, u"<line top='1500' width='9000' height='3000' thickness='30'/>"_s));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.5 / vista.zoom());
        const QImage visto = vista.viewport()->grab().toImage();
        const QRect folha({(vista.viewport()->width() - Folha(*janela).width()) / 2, a_volta}, Folha(*janela));
        QSet<QRgb> cores;
        for (int x = folha.left(); x < folha.left() + 200; ++x)
            for (int y = folha.top(); y < folha.top() + 200; ++y)
                cores << Cor(visto, x, y);
        QVERIFY2(cores.size() > 4, qPrintable(QString::number(cores.size()))); // white, the ink, and all between
    }

    // A picture of a page is asked for as the page is painted.
    void so_se_pintam_as_folhas_que_se_veem()
    {
        QStringList pedidas;
        auto paginas = Paginas(40, {}, u"<picture width='900' height='300'>{T.Nome}</picture>"_s,
                               [&](const QString &nome) {
                                   pedidas << nome;
                                   return QByteArray();
                               });
        paginas->count();
        const auto janela = Janela(paginas);
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.3 / vista.zoom());
        janela->resize(1000, 700);
        QCoreApplication::processEvents();
        const int passo = Folha(*janela).height() + a_volta;
        vista.verticalScrollBar()->setValue(20 * passo + 1); // of one sheet the shadow alone is left
        QCoreApplication::processEvents();
        pedidas.clear();
        vista.viewport()->grab();
        QStringList vistas;
        for (int i = 19; i * passo + a_volta - vista.verticalScrollBar()->value() < vista.viewport()->height(); ++i)
            vistas << u"Nome %1"_s.arg(i + 1);
        QVERIFY(vistas.size() > 1 && vistas.size() < 10);
        pedidas.removeDuplicates();
        QCOMPARE(pedidas, vistas);
    }

    void de_uma_folha_que_so_comeca_na_ultima_linha_ve_se_essa_linha()
    {
        const auto janela = Janela(Todas(4));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.3 / vista.zoom());
        janela->resize(1000, 300);
        QCoreApplication::processEvents();
        const int ultima = vista.viewport()->height() - 1;
        vista.verticalScrollBar()->setValue(a_volta + Folha(*janela).height() + a_volta - ultima);
        const int meio = vista.viewport()->width() / 2;
        QCOMPARE(Cor(vista.viewport()->grab().toImage(), meio, ultima), qRgb(255, 255, 255));
        QCOMPARE(Cor(vista.viewport()->grab().toImage(), meio, ultima - 1),
                 vista.palette().color(QPalette::Mid).rgb());
    }

    void a_roda_sem_Ctrl_anda_nas_folhas()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        const double antes = vista.zoom();
        Rodar(vista, {0, -120}, Qt::NoModifier);
        QVERIFY(vista.verticalScrollBar()->value() > 0);
        QCOMPARE(vista.zoom(), antes);
    }

    void o_menor_passo_da_roda_com_Ctrl_ja_amplia()
    {
        const auto janela = Janela(Todas(3));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(1 / vista.zoom());
        Rodar(vista, {0, 1}, Qt::ControlModifier);
        QCOMPARE(vista.zoom(), 1.25);
        Rodar(vista, {0, -1}, Qt::ControlModifier);
        QCOMPARE(vista.zoom(), 1.0);
    }

    void abaixo_da_ultima_folha_so_ha_fundo()
    {
        const auto janela = Janela(Todas(2));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(0.2 / vista.zoom());
        const int passo = Folha(*janela).height() + a_volta;
        QVERIFY(3 * passo < vista.viewport()->height());
        const QImage visto = vista.viewport()->grab().toImage();
        const int meio = vista.viewport()->width() / 2;
        QCOMPARE(Cor(visto, meio, 2 * passo - 1), qRgb(255, 255, 255)); // the second one
        QCOMPARE(Cor(visto, meio, 3 * passo - 1), vista.palette().color(QPalette::Mid).rgb());
    }

    void cada_passo_de_pagina_vai_ao_alto_da_sua_folha()
    {
        const auto janela = Janela(Todas(5));
        ReportView &vista = Vista(*janela);
        vista.zoomBy(3 / vista.zoom()); // each sheet is higher than the window
        const int passo = Folha(*janela).height() + a_volta;
        const auto depois_de = [&](const char *nome) {
            Parte<QAction>(*janela, nome).trigger();
            return vista.verticalScrollBar()->value();
        };
        QCOMPARE(depois_de("last"), 4 * passo);
        QCOMPARE(depois_de("previous"), 3 * passo);
        QCOMPARE(depois_de("first"), 0);
        QCOMPARE(depois_de("next"), passo);
    }
};

MORVEX_TESTE(TestReportPreview)
#include "test_ReportPreview.moc"
