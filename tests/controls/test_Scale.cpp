// The scale of the forms: places and sizes follow the letters, and what outgrows the screen scrolls.
#include "controls/Scale.h"
#include "controls/Units.h"
#include "testlib/Teste.h"

#include <QCheckBox>
#include <QDialog>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{
constexpr int duplas = 2 * scale::standardLetters;

template<class Controlo> Controlo *Novo(QWidget &pai, const char *nome)
{
    auto *controlo = new Controlo(&pai);
    controlo->setObjectName(QLatin1StringView(nome));
    return controlo;
}

// A form as a designer draws it: a fixed size, and places in pixels of the standard.
struct Formulario : QDialog {
    explicit Formulario(QSize tamanho = {200, 100})
    {
        resize(tamanho);
        setMinimumSize(tamanho);
        setMaximumSize(tamanho);
        rotulo->setGeometry(10, 20, 30, 40);
        botao->setGeometry(tamanho.width() - 50, tamanho.height() - 30, 40, 20);
        botao->setIcon(QIcon(u":/imagens/morvex.svg"_s));
        botao->setIconSize({12, 12});
    }

    QLabel *rotulo = Novo<QLabel>(*this, "rotulo");
    QPushButton *botao = Novo<QPushButton>(*this, "botao");
};

// The size of a window that fills the screen together with its frame.
QSize Lugar_No_Ecra()
{
    QDialog form;
    form.resize(200, 100);
    form.show();
    return form.screen()->availableGeometry().size() - (form.frameGeometry().size() - form.size());
}

// As a designer gives them to a form.
template<class Disposicao> Disposicao *Nova_Disposicao(QWidget &form, int margem)
{
    auto *disposicao = new Disposicao(&form);
    disposicao->setObjectName("disposicao"_L1);
    disposicao->setContentsMargins(margem, margem + 1, margem + 2, margem + 3);
    return disposicao;
}

const QScrollArea *Area(const QWidget &form) { return form.findChild<QScrollArea *>(); }
} // namespace

class TestScale : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { scale::setLetters(scale::standardLetters); }

    // A desktop tells its letters in points or in pixels; twelve of these are the standard, and eleven the
    // form's.
    void as_letras_seguem_as_do_ambiente_data()
    {
        QTest::addColumn<double>("pontos");
        QTest::addColumn<int>("em_pixels");
        QTest::addColumn<double>("por_polegada");
        QTest::addColumn<int>("letras");
        QTest::newRow("the standard") << 9.0 << 0 << 96.0 << 11;
        QTest::newRow("a third larger") << 12.0 << 0 << 96.0 << 15;
        QTest::newRow("twice as large") << 18.0 << 0 << 96.0 << 22;
        QTest::newRow("twice the dots") << 9.0 << 0 << 192.0 << 22;
        QTest::newRow("fewer dots") << 18.0 << 0 << 72.0 << 17;
        QTest::newRow("smaller") << 6.0 << 0 << 96.0 << 11;
        QTest::newRow("three times as large") << 27.0 << 0 << 96.0 << 33;
        QTest::newRow("larger than three times") << 40.0 << 0 << 96.0 << 33;
        QTest::newRow("in pixels, the standard") << 0.0 << 12 << 192.0 << 11;
        QTest::newRow("in pixels, larger") << 0.0 << 24 << 192.0 << 22;
        QTest::newRow("in pixels, one") << 0.0 << 1 << 96.0 << 11;
    }
    void as_letras_seguem_as_do_ambiente()
    {
        QFETCH(double, pontos);
        QFETCH(int, em_pixels);
        QFETCH(double, por_polegada);
        QFont fonte;
        if (em_pixels > 0)
            fonte.setPixelSize(em_pixels);
        else
            fonte.setPointSizeF(pontos);
        QTEST(scale::lettersFor(fonte, por_polegada), "letras");
    }

    void em_letras_normais_nada_muda()
    {
        Formulario form;
        scale::apply(form);
        QCOMPARE(form.size(), QSize(200, 100));
        QCOMPARE(form.rotulo->geometry(), QRect(10, 20, 30, 40));
        QCOMPARE(form.botao->iconSize(), QSize(12, 12));
        QCOMPARE(pixels(2415), 161);
        QCOMPARE(twips(161), 2415);
    }

    void em_letras_duplas_tudo_e_duas_vezes_maior()
    {
        scale::setLetters(duplas);
        Formulario form;
        scale::apply(form);
        QCOMPARE(form.font().pixelSize(), duplas);
        QCOMPARE(form.size(), QSize(400, 200));
        QCOMPARE(form.minimumSize(), QSize(400, 200));
        QCOMPARE(form.maximumSize(), QSize(400, 200));
        QCOMPARE(form.rotulo->geometry(), QRect(20, 40, 60, 80));
        QCOMPARE(form.botao->iconSize(), QSize(24, 24));
    }

    void um_recuo_de_um_so_pixel_tambem_cresce()
    {
        scale::setLetters(duplas);
        Formulario form;
        form.rotulo->setIndent(1);
        scale::apply(form);
        QCOMPARE(form.rotulo->indent(), 2);
    }

    void letras_de_um_tamanho_proprio_crescem_as_outras_sao_as_da_aplicacao()
    {
        scale::setLetters(duplas);
        Formulario form;
        QFont letras = form.rotulo->font();
        for (const double pontos : {10.0, 1.0}) {
            letras.setPointSizeF(pontos);
            form.rotulo->setFont(letras);
            Formulario outro;
            outro.rotulo->setFont(letras);
            scale::apply(outro);
            QCOMPARE(outro.rotulo->font().pointSizeF(), 2 * pontos);
            QCOMPARE(outro.botao->font().pixelSize(), duplas);
        }
    }

    void onde_as_letras_nao_sao_em_pixels_a_escala_e_a_do_desenho()
    {
        QFont letras = QApplication::font();
        letras.setPointSizeF(20);
        QApplication::setFont(letras);
        QCOMPARE(scale::factor(), 1.0);
    }

    void as_margens_e_os_espacos_de_uma_disposicao_crescem()
    {
        scale::setLetters(duplas);
        QDialog em_grelha;
        auto *grelha = Nova_Disposicao<QGridLayout>(em_grelha, 3);
        grelha->setHorizontalSpacing(5);
        grelha->setVerticalSpacing(7);
        scale::apply(em_grelha);
        QCOMPARE(grelha->contentsMargins(), QMargins(6, 8, 10, 12));
        QCOMPARE(grelha->horizontalSpacing(), 10);
        QCOMPARE(grelha->verticalSpacing(), 14);

        QDialog em_pares;
        auto *pares = Nova_Disposicao<QFormLayout>(em_pares, 1);
        pares->setHorizontalSpacing(1);
        pares->setVerticalSpacing(2);
        scale::apply(em_pares);
        QCOMPARE(pares->contentsMargins(), QMargins(2, 4, 6, 8));
        QCOMPARE(pares->horizontalSpacing(), 2);
        QCOMPARE(pares->verticalSpacing(), 4);

        for (const int espaco : {0, 1, 6}) {
            QDialog em_coluna;
            auto *coluna = Nova_Disposicao<QVBoxLayout>(em_coluna, 0);
            coluna->setSpacing(espaco);
            scale::apply(em_coluna);
            QCOMPARE(coluna->contentsMargins(), QMargins(0, 2, 4, 6));
            QCOMPARE(coluna->spacing(), 2 * espaco);
        }
    }

    void os_limites_de_um_controlo_e_as_colunas_de_uma_lista_crescem()
    {
        scale::setLetters(duplas);
        Formulario form;
        form.botao->setMinimumSize(30, 15);
        form.botao->setMaximumSize(60, QWIDGETSIZE_MAX);
        auto *lista = Novo<QTreeView>(form, "lista");
        lista->header()->setDefaultSectionSize(70);
        scale::apply(form);
        QCOMPARE(form.botao->minimumSize(), QSize(60, 30));
        QCOMPARE(form.botao->maximumSize(), QSize(120, QWIDGETSIZE_MAX));
        QCOMPARE(lista->header()->defaultSectionSize(), 140);
    }

    // What the toolkit makes inside a control has no name of the design, and a window is a form of its own.
    void so_cresce_o_que_e_do_desenho_do_formulario()
    {
        scale::setLetters(duplas);
        Formulario form;
        QLabel sem_nome(&form);
        auto *do_ambiente = Novo<QLabel>(form, "qt_interior");
        auto *janela = Novo<QDialog>(form, "janela");
        for (QWidget *outro : {static_cast<QWidget *>(&sem_nome), static_cast<QWidget *>(do_ambiente),
                               static_cast<QWidget *>(janela)})
            outro->setGeometry(10, 20, 30, 40);
        scale::apply(form);
        QCOMPARE(sem_nome.geometry(), QRect(10, 20, 30, 40));
        QCOMPARE(do_ambiente->geometry(), QRect(10, 20, 30, 40));
        QCOMPARE(janela->geometry(), QRect(10, 20, 30, 40));
    }

    void uma_medida_em_twips_volta_a_si_em_qualquer_tamanho()
    {
        for (int letras = scale::standardLetters; letras <= scale::standardLetters * scale::largestFactor;
             ++letras) {
            scale::setLetters(letras);
            QCOMPARE(pixels(twips(640)), 640);
            QCOMPARE(pixels(9600), scale::scaled(640));
        }
    }

    void vizinhos_que_se_tocam_continuam_a_tocar_se()
    {
        for (int letras = scale::standardLetters; letras <= scale::standardLetters * scale::largestFactor;
             ++letras) {
            scale::setLetters(letras);
            Formulario form;
            form.botao->setGeometry(40, 20, 33, 40);
            scale::apply(form);
            QCOMPARE(form.rotulo->geometry().right() + 1, form.botao->x());
        }
    }

    void a_marca_de_uma_caixa_cresce_com_as_letras()
    {
        QCheckBox pequena(u"a"_s);
        const int antes = pequena.style()->pixelMetric(QStyle::PM_IndicatorWidth);
        scale::setLetters(duplas);
        QCOMPARE(QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth), 2 * antes);
        scale::setLetters(scale::standardLetters);
        QCOMPARE(QApplication::style()->pixelMetric(QStyle::PM_IndicatorWidth), antes);
    }

    void um_formulario_que_cabe_nao_se_desloca_por_dentro()
    {
        Formulario form;
        scale::apply(form);
        form.show();
        QCOMPARE(Area(form), nullptr);
    }

    void um_formulario_a_que_nada_sobra_nao_se_desloca_e_com_mais_um_pixel_ja()
    {
        const QSize lugar = Lugar_No_Ecra();
        for (const QSize mais : {QSize(0, 0), QSize(1, 0), QSize(0, 1)}) {
            Formulario form(lugar + mais);
            scale::apply(form);
            form.show();
            QCOMPARE(Area(form) != nullptr, mais != QSize(0, 0));
        }
    }

    void quem_cabe_com_letras_normais_fica_onde_o_puseram_e_quem_se_desloca_vem_para_o_ecra()
    {
        const QRect ecra = Formulario().screen()->availableGeometry();
        const QPoint ao_lado(ecra.right() - 20, ecra.bottom() - 20);
        Formulario cabe;
        scale::apply(cabe);
        cabe.move(ao_lado);
        cabe.show();
        QCOMPARE(cabe.pos(), ao_lado);
        Formulario nao_cabe({3000, 100});
        scale::apply(nao_cabe);
        nao_cabe.move(ao_lado);
        nao_cabe.show();
        QVERIFY(ecra.contains(nao_cabe.geometry()));
    }

    void um_formulario_guardado_no_ecra_continua_a_ouvir_as_teclas()
    {
        Formulario form;
        scale::apply(form);
        form.show();
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
    }

    void um_formulario_de_letras_grandes_que_podia_ser_menor_encolhe_ate_caber()
    {
        scale::setLetters(duplas);
        for (const QSize tamanho : {QSize(3000, 100), QSize(100, 3000)}) {
            QDialog form;
            form.resize(tamanho);
            scale::apply(form);
            form.show();
            QCOMPARE(Area(form), nullptr);
            QCOMPARE(form.size(), (2 * tamanho).boundedTo(Lugar_No_Ecra()));
        }
    }

    void um_formulario_maior_do_que_o_ecra_cabe_nele_e_desloca_se_por_dentro()
    {
        Formulario form({3000, 2000});
        scale::apply(form);
        form.show();
        const QSize ecra = form.screen()->availableGeometry().size();
        QVERIFY(form.frameGeometry().width() <= ecra.width() &&
                form.frameGeometry().height() <= ecra.height());
        QVERIFY(Area(form) != nullptr);
        QVERIFY(form.botao->isVisible());
        QCOMPARE(form.botao->geometry(), QRect(2950, 1970, 40, 20));
        QVERIFY(form.botao->visibleRegion().isEmpty());
        const_cast<QScrollArea *>(Area(form))->ensureWidgetVisible(form.botao);
        QCOMPARE(form.botao->visibleRegion().boundingRect().size(), QSize(40, 20));
    }

    void o_teclado_leva_um_formulario_que_se_desloca_ao_seu_controlo()
    {
        Formulario form({3000, 2000});
        auto *primeiro = Novo<QPushButton>(form, "primeiro");
        QWidget::setTabOrder(primeiro, form.botao);
        primeiro->setFocus();
        scale::apply(form);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QCOMPARE(form.focusWidget(), primeiro);
        QTest::keyClick(primeiro, Qt::Key_Tab);
        QCOMPARE(form.focusWidget(), form.botao);
        QVERIFY(!form.botao->visibleRegion().isEmpty());
    }

    void um_formulario_disposto_por_si_tambem_se_desloca()
    {
        QDialog form;
        auto *disposicao = new QVBoxLayout(&form);
        disposicao->setSizeConstraint(QLayout::SetFixedSize);
        auto *alto = Novo<QLabel>(form, "alto");
        alto->setMinimumSize(100, 3000);
        disposicao->addWidget(alto);
        auto *botao = Novo<QPushButton>(form, "botao");
        disposicao->addWidget(botao);
        scale::apply(form);
        form.show();
        QVERIFY(form.height() <= form.screen()->availableGeometry().height());
        QVERIFY(Area(form) != nullptr && botao->isVisible());
        QCOMPARE(Area(form)->horizontalScrollBar()->maximum(), 0);
        QVERIFY(Area(form)->verticalScrollBar()->maximum() > 2000);
    }

    void o_que_se_desloca_toma_o_lugar_que_ha()
    {
        QDialog form;
        auto *disposicao = new QVBoxLayout(&form);
        auto *alto = Novo<QLabel>(form, "alto");
        alto->setMinimumSize(100, 3000);
        disposicao->addWidget(alto);
        scale::apply(form);
        form.show();
        QVERIFY(Area(form) != nullptr);
        form.resize(form.width() + 200, form.height());
        QVERIFY(Area(form)->viewport()->width() > 300);
        QCOMPARE(Area(form)->widget()->width(), Area(form)->viewport()->width());
    }

    void um_formulario_so_largo_demais_nao_se_desloca_para_baixo()
    {
        QDialog form;
        auto *disposicao = new QVBoxLayout(&form);
        auto *texto = Novo<QLabel>(form, "texto");
        texto->setWordWrap(true);
        texto->setText(u"palavra "_s.repeated(400));
        disposicao->addWidget(texto);
        auto *largo = Novo<QLabel>(form, "largo");
        largo->setMinimumSize(900, 20);
        disposicao->addWidget(largo);
        form.resize(1100, 500);
        scale::apply(form);
        form.show();
        QVERIFY(Area(form) != nullptr);
        QVERIFY(form.height() >= 500);
        QVERIFY(Area(form)->horizontalScrollBar()->maximum() > 0);
        QCOMPARE(Area(form)->verticalScrollBar()->maximum(), 0);
    }

    void uma_janela_com_menu_desloca_so_o_que_tem_dentro()
    {
        QMainWindow janela;
        auto *dentro = new QWidget;
        dentro->setMinimumSize(3000, 2000);
        janela.setCentralWidget(dentro);
        scale::apply(janela);
        janela.show();
        QVERIFY(janela.width() <= janela.screen()->availableGeometry().width());
        QCOMPARE(Area(janela), janela.centralWidget());
        QCOMPARE(Area(janela)->widget(), dentro);
        QVERIFY(dentro->isVisible());
        QCOMPARE(dentro->size(), QSize(3000, 2000));
    }

    // The other direction has all the room that it wants: the bar takes nothing of it.
    void um_formulario_so_largo_de_mais_mostra_toda_a_sua_altura()
    {
        Formulario form({3000, 100});
        scale::apply(form);
        form.show();
        QVERIFY(Area(form) != nullptr);
        const int barra = Area(form)->horizontalScrollBar()->sizeHint().height();
        QCOMPARE(form.height(), 100 + barra);
        QCOMPARE(Area(form)->viewport()->height(), 100);
        QCOMPARE(Area(form)->verticalScrollBar()->maximum(), 0);
    }

    void um_formulario_so_alto_de_mais_mostra_toda_a_sua_largura()
    {
        Formulario form({200, 3000});
        scale::apply(form);
        form.show();
        QVERIFY(Area(form) != nullptr);
        const int barra = Area(form)->verticalScrollBar()->sizeHint().width();
        QCOMPARE(form.width(), 200 + barra);
        QCOMPARE(Area(form)->viewport()->width(), 200);
        QCOMPARE(Area(form)->horizontalScrollBar()->maximum(), 0);
    }

    void uma_janela_com_menu_tem_lugar_para_ele_acima_do_que_se_desloca()
    {
        QMainWindow janela;
        janela.menuBar()->addMenu(u"Menu"_s)->addAction(u"Sair"_s);
        auto *dentro = new QWidget;
        dentro->setMinimumSize(3000, 200);
        janela.setCentralWidget(dentro);
        scale::apply(janela);
        janela.show();
        QVERIFY(Area(janela) != nullptr);
        QVERIFY(janela.menuBar()->height() > 0);
        const int barra = Area(janela)->horizontalScrollBar()->sizeHint().height();
        QCOMPARE(janela.height(), janela.menuBar()->height() + 200 + barra);
        QCOMPARE(Area(janela)->viewport()->height(), 200);
        QCOMPARE(Area(janela)->verticalScrollBar()->maximum(), 0);
    }

    // Without the menu it would fit.
    void uma_janela_alta_de_mais_so_com_o_menu_mostra_toda_a_sua_largura()
    {
        QMainWindow janela;
        janela.menuBar()->addMenu(u"Menu"_s)->addAction(u"Sair"_s);
        auto *dentro = new QWidget;
        constexpr int moldura = 32; // at most
        dentro->setMinimumSize(300, janela.screen()->availableGeometry().height() - moldura - 5);
        janela.menuBar()->setFixedHeight(2 * moldura);
        janela.setCentralWidget(dentro);
        scale::apply(janela);
        janela.show();
        QVERIFY(Area(janela) != nullptr);
        QVERIFY(Area(janela)->verticalScrollBar()->maximum() > 0);
        QCOMPARE(Area(janela)->viewport()->width(), 300);
        QCOMPARE(Area(janela)->horizontalScrollBar()->maximum(), 0);
    }

    void um_formulario_que_se_torna_mais_alto_do_que_o_ecra_desloca_se_a_partir_dai()
    {
        Formulario form;
        scale::apply(form);
        form.show();
        form.setFixedHeight(3000);
        QVERIFY(Area(form) != nullptr);
        QVERIFY(form.height() <= form.screen()->availableGeometry().height());
        QCOMPARE(Area(form)->widget()->height(), 3000);
        form.setFixedHeight(2000);
        QCOMPARE(Area(form)->widget()->height(), 2000);
        QVERIFY(form.height() <= form.screen()->availableGeometry().height());
    }

    // It has no bar where what it shows now has just the room.
    void um_formulario_que_se_desloca_torna_se_tao_pequeno_como_o_que_mostra()
    {
        const QSize lugar = Lugar_No_Ecra();
        Formulario alto({200, 3000});
        scale::apply(alto);
        alto.show();
        for (const int altura : {500, lugar.height()}) {
            alto.setFixedHeight(altura);
            QCOMPARE(alto.size(), QSize(200, altura));
        }
        alto.setFixedHeight(lugar.height() + 1);
        const int barra = Area(alto)->verticalScrollBar()->sizeHint().width();
        QCOMPARE(alto.size(), QSize(200 + barra, lugar.height()));

        Formulario largo({lugar.width(), 3000});
        scale::apply(largo);
        largo.show();
        largo.setFixedHeight(100);
        QCOMPARE(largo.size(), QSize(lugar.width(), 100));
    }

    void um_formulario_que_cresce_para_fora_do_ecra_e_trazido_para_dentro()
    {
        Formulario form({3000, 100});
        scale::apply(form);
        const QRect ecra = form.screen()->availableGeometry();
        form.move(ecra.left(), ecra.bottom() - 200);
        form.show();
        form.setFixedHeight(400);
        QVERIFY(ecra.contains(form.geometry()));
    }

    void um_formulario_de_letras_grandes_nao_fica_ao_lado_do_ecra()
    {
        scale::setLetters(duplas);
        Formulario form;
        scale::apply(form);
        const QRect ecra = form.screen()->availableGeometry();
        form.move(ecra.right() - 20, ecra.bottom() - 20);
        form.show();
        QVERIFY(ecra.contains(form.geometry()));
    }

    void um_formulario_que_esta_no_ecra_fica_onde_esta()
    {
        scale::setLetters(duplas);
        Formulario form;
        scale::apply(form);
        form.move(100, 120);
        form.show();
        QCOMPARE(form.geometry().topLeft(), QPoint(100, 120));
    }

    void um_formulario_acima_do_ecra_vem_para_o_seu_canto()
    {
        scale::setLetters(duplas);
        Formulario form;
        scale::apply(form);
        form.move(-300, -500);
        form.show();
        QCOMPARE(form.pos(), form.screen()->availableGeometry().topLeft());
    }

    // What has no frame is a card or a splash: it is never wrapped.
    void o_que_nao_tem_moldura_fica_como_e()
    {
        Formulario form({3000, 2000});
        form.setWindowFlag(Qt::FramelessWindowHint);
        scale::apply(form);
        form.show();
        QCOMPARE(Area(form), nullptr);
        QCOMPARE(form.size(), QSize(3000, 2000));
    }
};

MORVEX_TESTE(TestScale)
#include "test_Scale.moc"
