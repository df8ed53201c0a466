// The program's look over the toolkit's style: pictures of boxes, their buttons, the tab with the keyboard,
// and pictures that show on light windows and dark ones.
#include "controls/Contrast.h"
#include "controls/Palettes.h"
#include "testlib/Teste.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDir>
#include <QDirIterator>
#include <QIcon>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QThreadPool>

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

const QStyle &Proprio() { return *qApp->style(); }
const QStyle &Simples() { return *static_cast<const QProxyStyle *>(qApp->style())->baseStyle(); }

// Drawn on a window of that palette, by somebody who has just filled something with yellow.
QImage Pintura(const QPalette &paleta, const std::function<void(QPainter &)> &pintar)
{
    QImage imagem(60, 40, QImage::Format_RGB32);
    imagem.fill(paleta.color(QPalette::Window));
    QPainter painter(&imagem);
    painter.setPen(Qt::red);
    painter.setBrush(Qt::yellow);
    pintar(painter);
    return imagem;
}

template<class Opcao> Opcao Nova_Opcao(const QPalette &paleta, QStyle::State estado)
{
    Opcao opcao;
    opcao.rect = QRect(5, 5, 40, 20);
    opcao.palette = paleta;
    opcao.state = estado;
    return opcao;
}

QPalette Clara() { return lightPalette(qApp->style()->standardPalette()); }

// A scroll bar of 16 by 200 pixels, or 200 by 16, half way along.
struct Barra {
    Barra(const QPalette &paleta, Qt::Orientation orientacao)
    {
        opcao.palette = paleta;
        opcao.orientation = orientacao;
        opcao.rect = orientacao == Qt::Vertical ? QRect(0, 0, 16, 200) : QRect(0, 0, 200, 16);
        opcao.state = QStyle::State_Enabled;
        opcao.state.setFlag(QStyle::State_Horizontal, orientacao == Qt::Horizontal);
        opcao.subControls = QStyle::SC_All;
        opcao.maximum = 100;
        opcao.pageStep = 50;
        opcao.sliderPosition = opcao.sliderValue = 50;
    }

    QRect Lugar(QStyle::SubControl parte) const
    {
        return Proprio().subControlRect(QStyle::CC_ScrollBar, &opcao, parte);
    }
    QImage Imagem() const
    {
        QImage imagem(opcao.rect.size(), QImage::Format_RGB32);
        imagem.fill(Qt::magenta);
        QPainter painter(&imagem);
        Proprio().drawComplexControl(QStyle::CC_ScrollBar, &opcao, &painter);
        return imagem;
    }
    QImage Imagem(QStyle::SubControl parte) const { return Imagem().copy(Lugar(parte)); }
    QColor Cor(const QPoint &lugar) const { return Imagem().pixelColor(lugar); }
    QColor Cor_No_Meio(QStyle::SubControl parte) const { return Cor(Lugar(parte).center()); }
    // Beside the arrow, and in the slider, at its end.
    QColor Cor_Na_Ponta(QStyle::SubControl parte) const
    {
        const QRect lugar = Lugar(parte);
        return Cor({lugar.left() + 2, lugar.top()});
    }
    QColor Cor_Na_Margem_Do_Cursor(int pixels) const
    {
        const QPoint meio = Lugar(QStyle::SC_ScrollBarSlider).center();
        return Cor(opcao.orientation == Qt::Vertical ? QPoint(pixels, meio.y()) : QPoint(meio.x(), pixels));
    }
    // Pixels of that part that stand out from its corner.
    int Desenhados(QStyle::SubControl parte) const
    {
        const QImage imagem = Imagem(parte);
        int desenhados = 0;
        for (int y = 0; y < imagem.height(); ++y)
            for (int x = 0; x < imagem.width(); ++x)
                if (contrast(imagem.pixelColor(x, y), imagem.pixelColor(0, 0)) >= visible) ++desenhados;
        return desenhados;
    }

    QStyleOptionSlider opcao;
};

int Linhas_De_Execucao()
{
    return static_cast<int>(QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size());
}

constexpr QStyle::State ligado = QStyle::State_Enabled;
constexpr QStyle::State com_teclado = QStyle::State_Enabled | QStyle::State_HasFocus;
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

    void uma_palavra_passe_mostra_asteriscos()
    {
        QLineEdit caixa(u"abc"_s);
        caixa.setEchoMode(QLineEdit::Password);
        QCOMPARE(caixa.displayText(), u"***"_s);
    }

    void as_partes_de_uma_barra_veem_se_data()
    {
        QTest::addColumn<QPalette>("paleta");
        QTest::addColumn<Qt::Orientation>("orientacao");
        for (const auto orientacao : {Qt::Vertical, Qt::Horizontal}) {
            QTest::addRow("light %d", orientacao) << Clara() << orientacao;
            QTest::addRow("dark %d", orientacao) << darkPalette() << orientacao;
            for (const auto &[nota, fundo] : {std::pair{"yellow", QColor(Qt::yellow)}, {"blue", QColor(Qt::darkBlue)}}) {
                QPalette paleta = Clara();
                setGround(paleta, fundo);
                QTest::addRow("%s note %d", nota, orientacao) << paleta << orientacao;
            }
        }
    }
    void as_partes_de_uma_barra_veem_se()
    {
        QFETCH(QPalette, paleta);
        QFETCH(Qt::Orientation, orientacao);
        Barra barra(paleta, orientacao);
        const QColor calha = barra.Cor_No_Meio(QStyle::SC_ScrollBarAddPage);
        const QColor cursor = barra.Cor_No_Meio(QStyle::SC_ScrollBarSlider);
        QVERIFY(contrast(cursor, calha) >= visible);
        QVERIFY(barra.Desenhados(QStyle::SC_ScrollBarSubLine) > 5);
        QVERIFY(barra.Desenhados(QStyle::SC_ScrollBarAddLine) > 5);
        QCOMPARE(barra.Cor_Na_Margem_Do_Cursor(1), calha);
        QCOMPARE(barra.Cor_Na_Margem_Do_Cursor(2), cursor);
    }

    void sob_o_ponteiro_e_agarrada_uma_parte_ve_se_mais_data()
    {
        QTest::addColumn<QStyle::SubControl>("parte");
        QTest::newRow("slider") << QStyle::SC_ScrollBarSlider;
        QTest::newRow("up") << QStyle::SC_ScrollBarSubLine;
        QTest::newRow("down") << QStyle::SC_ScrollBarAddLine;
    }
    void sob_o_ponteiro_e_agarrada_uma_parte_ve_se_mais()
    {
        QFETCH(QStyle::SubControl, parte);
        Barra barra(Clara(), Qt::Vertical);
        const int parada = barra.Cor_Na_Ponta(parte).lightness();
        barra.opcao.activeSubControls = parte;
        const int sob_o_ponteiro = barra.Cor_Na_Ponta(parte).lightness();
        barra.opcao.state |= QStyle::State_Sunken;
        const int agarrada = barra.Cor_Na_Ponta(parte).lightness();
        QVERIFY(parada > sob_o_ponteiro && sob_o_ponteiro > agarrada);
        barra.opcao.activeSubControls = QStyle::SC_ScrollBarAddPage;
        QCOMPARE(barra.Cor_Na_Ponta(parte).lightness(), parada);
    }

    void uma_barra_sem_para_onde_ir_nao_tem_cursor()
    {
        Barra barra(Clara(), Qt::Vertical);
        const QColor calha = barra.Cor_No_Meio(QStyle::SC_ScrollBarAddPage);
        barra.opcao.maximum = barra.opcao.minimum;
        for (const int y : {30, 100, 170})
            QCOMPARE(barra.Cor({8, y}), calha);
    }

    void as_setas_apontam_para_cima_e_para_baixo()
    {
        const Barra barra(Clara(), Qt::Vertical);
        const QImage cima = barra.Imagem(QStyle::SC_ScrollBarSubLine);
        QCOMPARE(cima.mirrored(), barra.Imagem(QStyle::SC_ScrollBarAddLine));
        std::vector<int> larguras; // of the arrow, from its top
        for (int y = 0; y < cima.height(); ++y) {
            int largura = 0;
            for (int x = 0; x < cima.width(); ++x)
                if (contrast(cima.pixelColor(x, y), cima.pixelColor(0, 0)) >= visible) ++largura;
            if (largura > 0) larguras.push_back(largura);
        }
        QVERIFY(larguras.size() > 1 && larguras.front() < larguras.back());
    }

    void as_setas_apontam_para_os_lados_da_escrita()
    {
        Barra barra(Clara(), Qt::Horizontal);
        QImage direita = barra.Imagem(QStyle::SC_ScrollBarAddLine);
        QCOMPARE(barra.Imagem(QStyle::SC_ScrollBarSubLine).mirrored(true, false), direita);
        barra.opcao.direction = Qt::RightToLeft;
        QCOMPARE(barra.Imagem(QStyle::SC_ScrollBarSubLine), direita);
    }

    void uma_barra_comprida_pinta_se_sem_linhas_de_execucao()
    {
        QWidget janela;
        QScrollBar barra(Qt::Vertical, &janela);
        barra.setGeometry(0, 0, 16, 600);
        barra.setRange(0, 1000);
        QThreadPool::globalInstance()->waitForDone();
        const int antes = Linhas_De_Execucao();
        if (antes == 0) QSKIP("this system does not list a program's threads");
        janela.grab();
        QCOMPARE(Linhas_De_Execucao(), antes);
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

    void a_moldura_tem_um_pixel_mais_escuro_do_que_a_janela()
    {
        QPalette paleta = Clara();
        paleta.setColor(QPalette::Window, QColor(0xf0f0f0));
        const auto opcao = Nova_Opcao<QStyleOptionFrame>(paleta, ligado);
        const QImage imagem =
            Pintura(paleta, [&](QPainter &p) { Proprio().drawPrimitive(QStyle::PE_Frame, &opcao, &p); });
        for (int y = 0; y < imagem.height(); ++y)
            for (int x = 0; x < imagem.width(); ++x) {
                const bool na_linha =
                    opcao.rect.contains(x, y) && !opcao.rect.adjusted(1, 1, -1, -1).contains(x, y);
                QCOMPARE(imagem.pixelColor(x, y), QColor(na_linha ? 0xb9b9b9 : 0xf0f0f0));
            }
    }

    void a_lista_de_uma_caixa_de_escolha_tem_a_moldura_do_estilo_simples()
    {
        QComboBox caixa;
        caixa.addItem(u"um"_s);
        caixa.show();
        caixa.showPopup();
        const QWidget *de_fora = caixa.view()->parentWidget();
        const auto opcao = Nova_Opcao<QStyleOptionFrame>(Clara(), ligado);
        const auto com = [&](const QStyle &estilo, const QWidget *widget) {
            return Pintura(Clara(),
                           [&](QPainter &p) { estilo.drawPrimitive(QStyle::PE_Frame, &opcao, &p, widget); });
        };
        QCOMPARE(com(Proprio(), de_fora), com(Simples(), de_fora));
        QVERIFY(com(Proprio(), &caixa) != com(Simples(), &caixa));
    }

    void um_campo_numa_janela_clara_ou_com_o_teclado_e_o_do_estilo_simples()
    {
        for (const auto &[paleta, estado] :
             {std::pair(Clara(), ligado), std::pair(Clara(), com_teclado), std::pair(darkPalette(), com_teclado)}) {
            const auto opcao = Nova_Opcao<QStyleOptionFrame>(paleta, estado);
            const auto com = [&](const QStyle &estilo) {
                return Pintura(paleta,
                               [&](QPainter &p) { estilo.drawPrimitive(QStyle::PE_FrameLineEdit, &opcao, &p); });
            };
            QCOMPARE(com(Proprio()), com(Simples()));
        }
    }

    void numa_janela_escura_um_campo_tem_por_cima_uma_linha_clara_de_cantos_redondos()
    {
        const QPalette paleta = darkPalette();
        const auto opcao = Nova_Opcao<QStyleOptionFrame>(paleta, ligado);
        const QImage esperada = Pintura(paleta, [&](QPainter &p) {
            Simples().drawPrimitive(QStyle::PE_FrameLineEdit, &opcao, &p);
            p.setRenderHint(QPainter::Antialiasing);
            p.setPen(QColor(0x515456));
            p.setBrush(Qt::NoBrush);
            p.drawRoundedRect(QRectF(5.5, 5.5, 39, 19), 2, 2);
        });
        QCOMPARE(Pintura(paleta,
                         [&](QPainter &p) { Proprio().drawPrimitive(QStyle::PE_FrameLineEdit, &opcao, &p); }),
                 esperada);
    }

    void uma_marca_numa_janela_clara_e_a_do_estilo_simples_e_numa_escura_tem_contorno_data()
    {
        QTest::addColumn<bool>("redonda");
        QTest::addColumn<bool>("escura");
        QTest::addColumn<bool>("activa");
        for (const bool redonda : {false, true})
            for (const bool escura : {false, true})
                for (const bool activa : {false, true})
                    QTest::addRow("%s, %s, %s", redonda ? "one of many" : "yes or no", escura ? "dark" : "light",
                                  activa ? "on" : "off")
                        << redonda << escura << activa;
    }
    void uma_marca_numa_janela_clara_e_a_do_estilo_simples_e_numa_escura_tem_contorno()
    {
        QFETCH(const bool, redonda);
        QFETCH(const bool, escura);
        QFETCH(const bool, activa);
        const QPalette paleta = escura ? darkPalette() : Clara();
        const auto elemento = redonda ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox;
        auto opcao = Nova_Opcao<QStyleOptionButton>(paleta, activa ? ligado : QStyle::State_None);
        opcao.rect = QRect(5, 5, 16, 16);
        const QColor contorno = activa ? readableOn(paleta.color(QPalette::Light), paleta.color(QPalette::Window))
                                       : paleta.color(QPalette::Disabled, QPalette::WindowText);
        const QImage esperada = Pintura(paleta, [&](QPainter &p) {
            Simples().drawPrimitive(elemento, &opcao, &p);
            if (!escura) return;
            p.setRenderHint(QPainter::Antialiasing);
            p.setPen(contorno);
            p.setBrush(Qt::NoBrush);
            const QRectF lugar(5.5, 5.5, 15, 15);
            redonda ? p.drawEllipse(lugar) : p.drawRect(lugar);
        });
        QCOMPARE(Pintura(paleta, [&](QPainter &p) { Proprio().drawPrimitive(elemento, &opcao, &p); }), esperada);
    }

    void so_o_separador_com_o_teclado_tem_moldura_tres_pixels_para_dentro()
    {
        const QPalette paleta = Clara();
        for (const QStyle::State estado : {ligado, com_teclado}) {
            auto separador = Nova_Opcao<QStyleOptionTab>(paleta, estado);
            separador.text = u"Sons"_s;
            const QImage esperada = Pintura(paleta, [&](QPainter &p) {
                Simples().drawControl(QStyle::CE_TabBarTabLabel, &separador, &p);
                if (estado == ligado) return;
                p.setPen(paleta.color(QPalette::WindowText));
                p.setBrush(Qt::NoBrush);
                p.drawRect(8, 8, 33, 13);
            });
            QCOMPARE(Pintura(paleta,
                             [&](QPainter &p) { Proprio().drawControl(QStyle::CE_TabBarTabLabel, &separador, &p); }),
                     esperada);
        }
        auto botao = Nova_Opcao<QStyleOptionButton>(paleta, com_teclado);
        botao.text = u"Sons"_s;
        const auto com = [&](const QStyle &estilo) {
            return Pintura(paleta, [&](QPainter &p) { estilo.drawControl(QStyle::CE_PushButtonLabel, &botao, &p); });
        };
        QCOMPARE(com(Proprio()), com(Simples()));
    }

    void o_resto_e_como_o_estilo_simples_o_quer()
    {
        for (const auto pergunta : {QStyle::SH_UnderlineShortcut, QStyle::SH_Menu_MouseTracking,
                                    QStyle::SH_ItemView_ArrowKeysNavigateIntoChildren, QStyle::SH_EtchDisabledText})
            QCOMPARE(Proprio().styleHint(pergunta), Simples().styleHint(pergunta));
        QVERIFY(Proprio().styleHint(QStyle::SH_UnderlineShortcut) != 0);
        QCOMPARE(Proprio().styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons), 0);
        QCOMPARE(Simples().name(), u"fusion"_s);
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

// The desktop, or who starts the program, may ask for another style: it keeps its own.
int main(int argc, char **argv)
{
    qputenv("QT_STYLE_OVERRIDE", "windows");
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    TestStyle testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_Style.moc"
