// The program's look over the toolkit's style: pictures of boxes, their buttons, the tab with the keyboard,
// and pictures that show on light windows and dark ones.
#include "controls/Contrast.h"
#include "controls/Palettes.h"
#include "testlib/Teste.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDirIterator>
#include <QIcon>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace
{
constexpr double visible = 3; // the contrast that a drawing needs

QImage Desenho(const QString &ficheiro, const QColor &fundo)
{
    constexpr int lado = 96;
    QImage imagem(lado, lado, QImage::Format_ARGB32);
    imagem.fill(fundo);
    QPainter painter(&imagem);
    QIcon(ficheiro).paint(&painter, imagem.rect());
    return imagem;
}

// How much of what is drawn stands out from that window, in percent of the drawing.
int Parte_Que_Se_Ve(const QString &ficheiro, const QColor &janela)
{
    const QImage so = Desenho(ficheiro, Qt::transparent);
    const QImage desenho = Desenho(ficheiro, janela);
    constexpr int quase_nada = 25; // of 255: the soft edge of a line
    int desenhados = 0;
    int vistos = 0;
    for (int y = 0; y < desenho.height(); ++y)
        for (int x = 0; x < desenho.width(); ++x) {
            if (so.pixelColor(x, y).alpha() < quase_nada) continue;
            ++desenhados;
            if (contrast(desenho.pixelColor(x, y), janela) >= visible) ++vistos;
        }
    return desenhados == 0 ? 0 : 100 * vistos / desenhados;
}
} // namespace

class TestStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { setDark(false); }

    void a_moldura_de_uma_lista_ve_se_dos_quatro_lados_em_qualquer_densidade_data()
    {
        QTest::addColumn<double>("densidade");
        for (const double densidade : {1.0, 1.25, 1.5, 1.75, 2.0})
            QTest::addRow("%g", densidade) << densidade;
    }
    void a_moldura_de_uma_lista_ve_se_dos_quatro_lados_em_qualquer_densidade()
    {
        QFETCH(double, densidade);
        QWidget janela;
        QListView lista(&janela);
        lista.setGeometry(8, 50, 321, 132);
        janela.resize(400, 200);
        QImage imagem((QSizeF(janela.size()) * densidade).toSize(), QImage::Format_RGB32);
        imagem.setDevicePixelRatio(densidade);
        janela.render(&imagem);
        const QRectF lugar(QPointF(lista.pos()) * densidade, QSizeF(lista.size()) * densidade);
        // Neither window nor list, within two pixels of the edge, half way along it.
        const auto ve_se = [&](QPointF meio, QPoint para_dentro) {
            for (int i = -2; i <= 2; ++i) {
                const QColor cor = imagem.pixelColor(meio.toPoint() + i * para_dentro);
                if (cor != lista.palette().color(QPalette::Base) &&
                    cor != janela.palette().color(QPalette::Window))
                    return true;
            }
            return false;
        };
        QVERIFY(ve_se({lugar.center().x(), lugar.top()}, {0, 1}));
        QVERIFY(ve_se({lugar.center().x(), lugar.bottom()}, {0, 1}));
        QVERIFY(ve_se({lugar.left(), lugar.center().y()}, {1, 0}));
        QVERIFY(ve_se({lugar.right(), lugar.center().y()}, {1, 0}));
    }

    void um_campo_tem_moldura_que_se_ve_em_qualquer_janela_data()
    {
        QTest::addColumn<QPalette>("paleta");
        QTest::addColumn<QWidget *(*)()>("novo");
        QPalette preta = darkPalette();
        for (const auto papel : {QPalette::Window, QPalette::Base, QPalette::Button})
            preta.setColor(papel, Qt::black);
        const QMap<QString, QPalette> paletas{{u"light"_s, lightPalette(qApp->style()->standardPalette())},
                                              {u"dark"_s, darkPalette()},
                                              {u"black"_s, preta}};
        const QMap<QString, QWidget *(*)()> campos{
            {u"line"_s, [] { return static_cast<QWidget *>(new QLineEdit); }},
            {u"text"_s, [] { return static_cast<QWidget *>(new QPlainTextEdit); }},
            {u"list"_s, [] { return static_cast<QWidget *>(new QListView); }},
            {u"choice"_s, [] { return static_cast<QWidget *>(new QComboBox); }},
            {u"date"_s, [] { return static_cast<QWidget *>(new QDateEdit); }}};
        for (auto paleta = paletas.begin(); paleta != paletas.end(); ++paleta)
            for (auto campo = campos.begin(); campo != campos.end(); ++campo)
                QTest::addRow("%s, %s", qPrintable(campo.key()), qPrintable(paleta.key()))
                    << paleta.value() << campo.value();
    }
    void um_campo_tem_moldura_que_se_ve_em_qualquer_janela()
    {
        QFETCH(QPalette, paleta);
        using Novo = QWidget *(*)();
        QFETCH(Novo, novo);
        constexpr double bastante = 1.5;
        QWidget janela;
        janela.setPalette(paleta);
        janela.resize(200, 80);
        QWidget *campo = novo();
        campo->setParent(&janela);
        campo->setGeometry(20, 20, 120, 24);
        const QImage imagem = janela.grab().toImage();
        const auto visto = [&](QPoint meio, QPoint para_dentro) {
            double melhor = 1;
            for (int i = 0; i <= 1; ++i)
                melhor = std::max(melhor, contrast(imagem.pixelColor(meio + i * para_dentro),
                                                   paleta.color(QPalette::Window)));
            return melhor;
        };
        const QRect lugar = campo->geometry();
        QVERIFY(visto({lugar.left(), lugar.center().y()}, {1, 0}) >= bastante);
        QVERIFY(visto({lugar.center().x(), lugar.top()}, {0, 1}) >= bastante);
        QVERIFY(visto({lugar.center().x(), lugar.bottom()}, {0, -1}) >= bastante);
    }

    void uma_marca_vazia_ve_se_numa_janela_escura_data()
    {
        QTest::addColumn<bool>("redonda");
        QTest::newRow("one of many") << true;
        QTest::newRow("yes or no") << false;
    }
    void uma_marca_vazia_ve_se_numa_janela_escura()
    {
        QFETCH(bool, redonda);
        setDark(true);
        const std::unique_ptr<QAbstractButton> marca(
            redonda ? static_cast<QAbstractButton *>(new QRadioButton) : new QCheckBox);
        marca->resize(30, 20);
        const QImage imagem = marca->grab().toImage();
        double melhor = 1;
        for (int x = 0; x < imagem.width(); ++x)
            melhor = std::max(melhor, contrast(imagem.pixelColor(x, imagem.height() / 2),
                                               marca->palette().color(QPalette::Window)));
        QVERIFY2(melhor >= visible, qPrintable(QString::number(melhor)));
    }

    void as_caixas_tem_figuras_da_mesma_familia_data()
    {
        QTest::addColumn<QMessageBox::Icon>("icone");
        QTest::addColumn<QString>("ficheiro");
        QTest::newRow("question") << QMessageBox::Question << u"pergunta"_s;
        QTest::newRow("information") << QMessageBox::Information << u"informacao"_s;
        QTest::newRow("warning") << QMessageBox::Warning << u"aviso"_s;
        QTest::newRow("error") << QMessageBox::Critical << u"erro"_s;
    }
    void as_caixas_tem_figuras_da_mesma_familia()
    {
        QFETCH(QMessageBox::Icon, icone);
        QFETCH(QString, ficheiro);
        QMessageBox caixa(icone, u"Título"_s, u"Texto"_s);
        const QPixmap vista = caixa.iconPixmap();
        QVERIFY(!vista.isNull());
        const QIcon propria(u":/imagens/caixa/%1.svg"_s.arg(ficheiro));
        QCOMPARE(vista.toImage(), propria.pixmap(vista.size()).toImage());
    }

    void os_botoes_das_paginas_tem_cada_um_a_sua_figura_data()
    {
        QTest::addColumn<QStyle::StandardPixmap>("botao");
        QTest::addColumn<QString>("ficheiro");
        QTest::newRow("first") << QStyle::SP_MediaSkipBackward << u"primeira"_s;
        QTest::newRow("previous") << QStyle::SP_MediaSeekBackward << u"anterior"_s;
        QTest::newRow("next") << QStyle::SP_MediaSeekForward << u"seguinte"_s;
        QTest::newRow("last") << QStyle::SP_MediaSkipForward << u"ultima"_s;
    }
    void os_botoes_das_paginas_tem_cada_um_a_sua_figura()
    {
        QFETCH(QStyle::StandardPixmap, botao);
        QFETCH(QString, ficheiro);
        const QSize lado(32, 32);
        const QImage vista = qApp->style()->standardIcon(botao).pixmap(lado).toImage();
        QVERIFY(!vista.isNull());
        QCOMPARE(vista, QIcon(u":/imagens/paginas/%1.svg"_s.arg(ficheiro)).pixmap(lado).toImage());
    }

    void os_botoes_das_caixas_sao_como_os_dos_formularios()
    {
        QMessageBox caixa(QMessageBox::Question, u"Título"_s, u"Texto"_s, QMessageBox::Yes | QMessageBox::No);
        caixa.show();
        for (const QAbstractButton *botao : caixa.buttons())
            QVERIFY(botao->icon().isNull());
    }

    void o_separador_com_o_teclado_distingue_se_data()
    {
        QTest::addColumn<bool>("escuro");
        QTest::newRow("claro") << false;
        QTest::newRow("escuro") << true;
    }
    void o_separador_com_o_teclado_distingue_se()
    {
        QFETCH(bool, escuro);
        setDark(escuro);
        QWidget janela;
        QTabBar barra(&janela);
        QPushButton outro(&janela);
        outro.move(0, 60);
        barra.addTab(u"Sons"_s);
        barra.addTab(u"Memos"_s);
        janela.resize(200, 100);
        janela.show();
        QVERIFY(QTest::qWaitForWindowActive(&janela));
        outro.setFocus();
        const QImage sem = barra.grab().toImage();
        barra.setFocus();
        const QImage com = barra.grab().toImage();
        int mudados = 0;
        for (int y = 0; y < com.height(); ++y)
            for (int x = 0; x < com.width(); ++x)
                if (contrast(com.pixelColor(x, y), sem.pixelColor(x, y)) >= visible) ++mudados;
        const QRect separador = barra.tabRect(barra.currentIndex());
        QVERIFY2(mudados > separador.width(),
                 qPrintable(QString::number(mudados))); // more than one side of it
    }

    // Whoever draws goes on with the pen that he had.
    void o_que_o_estilo_desenha_deixa_o_pincel_como_estava()
    {
        QImage imagem(60, 40, QImage::Format_RGB32);
        QPainter painter(&imagem);
        painter.setPen(Qt::red);
        painter.setBrush(Qt::yellow);
        const QPainter::RenderHints antes = painter.renderHints();
        const auto como_estava = [&] {
            return painter.pen() == QPen(Qt::red) && painter.brush() == QBrush(Qt::yellow) &&
                   painter.renderHints() == antes;
        };
        QStyleOptionTab separador;
        separador.rect = imagem.rect();
        separador.palette = darkPalette();
        separador.state = QStyle::State_Enabled | QStyle::State_HasFocus;
        qApp->style()->drawControl(QStyle::CE_TabBarTabLabel, &separador, &painter);
        QVERIFY(como_estava());
        QStyleOptionButton marca;
        marca.rect = QRect(2, 2, 16, 16);
        marca.palette = darkPalette();
        marca.state = QStyle::State_Enabled;
        qApp->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &marca, &painter);
        QVERIFY(como_estava());
        QStyleOptionFrame campo;
        campo.rect = imagem.rect();
        campo.palette = darkPalette();
        campo.state = QStyle::State_Enabled;
        qApp->style()->drawPrimitive(QStyle::PE_FrameLineEdit, &campo, &painter);
        QVERIFY(como_estava());
    }

    void cada_figura_ve_se_em_janelas_claras_e_escuras_data()
    {
        QTest::addColumn<QString>("ficheiro");
        for (QDirIterator it(u":/imagens"_s, {u"*.svg"_s}, QDir::Files, QDirIterator::Subdirectories);
             it.hasNext();) {
            const QString ficheiro = it.next();
            QTest::newRow(qPrintable(ficheiro)) << ficheiro;
        }
    }
    void cada_figura_ve_se_em_janelas_claras_e_escuras()
    {
        QFETCH(QString, ficheiro);
        const QPalette claras = lightPalette(qApp->style()->standardPalette());
        const int basta =
            ficheiro.contains("bandeiras"_L1) ? 10 : 20; // percent: an outline; a flag's is thin
        for (const QColor &janela :
             {claras.color(QPalette::Window), QColor(Qt::white), darkPalette().color(QPalette::Window),
              darkPalette().color(QPalette::Button), QColor(Qt::black)}) {
            const int parte = Parte_Que_Se_Ve(ficheiro, janela);
            QVERIFY2(parte >= basta, qPrintable(u"%1 on %2: %3 %"_s.arg(ficheiro, janela.name()).arg(parte)));
        }
    }

private:
    static void setDark(bool dark) { static_cast<Application *>(qApp)->setDark(dark); }
};

MORVEX_TESTE(TestStyle)
#include "test_Style.moc"
