// What a list without rows says, to the eye and to a screen reader.
#include "controls/Contrast.h"
#include "controls/ListBox.h"
#include "controls/ListView.h"
#include "controls/Palettes.h"
#include "controls/RowsView.h"
#include "testlib/Pinturas.h"
#include "testlib/Teste.h"

#include <QAccessible>
#include <QStandardItemModel>

using namespace Qt::StringLiterals;

namespace
{
const QString frase = u"Não existem contactos na lista."_s;

QString Descricao(QWidget &list)
{
    return QAccessible::queryAccessibleInterface(&list)->text(QAccessible::Description);
}

// The strongest letters on the picture of the list's rows, against their ground; 1 without any.
double Contraste(const QAbstractItemView &list)
{
    const QImage picture = list.viewport()->grab().toImage();
    const QColor ground = list.viewport()->palette().color(list.viewport()->backgroundRole());
    double best = 1;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            best = std::max(best, contrast(picture.pixelColor(x, y), ground));
    return best;
}

// From the first row of the picture with letters to the last one; 0 without any.
int Altura_Das_Letras(const QAbstractItemView &list)
{
    const QImage picture = list.viewport()->grab().toImage();
    const QRgb ground = picture.pixel(0, 0);
    int first = -1;
    int last = -2;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixel(x, y) != ground) {
                if (first < 0) first = y;
                last = y;
            }
    return last - first + 1;
}

// What the list paints with a row in it is more than what it paints without.
template<class Lista> void Verificar_Que_As_Linhas_Se_Veem(Lista &list, const std::function<void()> &encher)
{
    list.resize(200, 100);
    const QImage sem = list.viewport()->grab().toImage();
    encher();
    QVERIFY(list.viewport()->grab().toImage() != sem);
}
} // namespace

class TestEmptyText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { qApp->setPalette(lightPalette(qApp->style()->standardPalette())); }

    void uma_lista_sem_linhas_di_lo_e_nao_ganha_nenhuma()
    {
        ListBox list;
        list.resize(200, 200);
        QCOMPARE(Contraste(list), 1.0);
        list.setEmptyText(frase);
        QCOMPARE(list.ListCount(), 0);
        QCOMPARE(Descricao(list), frase);
        QVERIFY(Contraste(list) > 1.5);
    }

    void com_a_primeira_linha_cala_se_e_sem_a_ultima_volta_a_dize_lo()
    {
        ListBox list;
        list.setEmptyText(frase);
        list.AddItem(u"Ana"_s);
        QCOMPARE(Descricao(list), QString());
        list.RemoveItem(0);
        QCOMPARE(Descricao(list), frase);
        {
            const ListBox::Filling filling(list);
            list.AddItem(u"Ana"_s);
        }
        QCOMPARE(Descricao(list), QString());
        list.Clear();
        QCOMPARE(Descricao(list), frase);
    }

    void com_linhas_nada_se_pinta_sobre_elas()
    {
        ListBox com, sem;
        for (ListBox *list : {&com, &sem}) {
            list->resize(200, 200);
            list->AddItem(u"Ana"_s);
        }
        com.setEmptyText(frase);
        QCOMPARE(com.viewport()->grab().toImage(), sem.viewport()->grab().toImage());
    }

    void uma_lista_de_colunas_tambem_o_diz()
    {
        ListView list;
        list.resize(300, 200);
        QCOMPARE(Contraste(list), 1.0);
        list.setEmptyText(frase);
        QCOMPARE(list.topLevelItemCount(), 0);
        QCOMPARE(Descricao(list), frase);
        QVERIFY(Contraste(list) > 1.5);
        list.addTopLevelItem(new QTreeWidgetItem({u"Ana"_s}));
        QCOMPARE(Descricao(list), QString());
        list.clear();
        QCOMPARE(Descricao(list), frase);
    }

    void uma_lista_de_colunas_com_linhas_vai_se_sem_voltar_a_dize_lo()
    {
        auto list = std::make_unique<ListView>();
        list->setEmptyText(frase);
        list->addTopLevelItem(new QTreeWidgetItem({u"Ana"_s}));
        list.reset();
        QVERIFY(list == nullptr);
    }

    void as_letras_leem_se_na_paleta_clara_e_na_escura()
    {
        for (const QPalette &palette : {lightPalette(qApp->style()->standardPalette()), darkPalette()}) {
            qApp->setPalette(palette);
            ListBox list;
            list.resize(200, 200);
            list.setEmptyText(frase);
            QVERIFY2(Contraste(list) >= readableContrast, qPrintable(QString::number(Contraste(list))));
        }
    }

    void as_letras_sao_mais_discretas_do_que_as_de_uma_linha()
    {
        ListBox list;
        list.resize(400, 200);
        list.setEmptyText(frase);
        const QPalette &palette = list.viewport()->palette();
        QVERIFY(Contraste(list) < contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)) - 1);
    }

    // Some desktops' quiet letters are strong ones that let the ground through.
    void letras_transparentes_leem_se_a_mesma()
    {
        QPalette palette = lightPalette(qApp->style()->standardPalette());
        palette.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 40));
        qApp->setPalette(palette);
        ListBox list;
        list.resize(400, 200);
        list.setEmptyText(frase);
        QVERIFY2(Contraste(list) >= readableContrast, qPrintable(QString::number(Contraste(list))));
    }

    void a_frase_precisa_de_oito_pixels_de_cada_lado_para_caber_numa_linha()
    {
        ListBox list;
        list.setFrameShape(QFrame::NoFrame);
        list.setEmptyText(frase);
        list.resize(1000, 200);
        const int uma_linha = Altura_Das_Letras(list);
        QVERIFY(uma_linha > 0);
        const int precisa =
            list.fontMetrics().boundingRect(QRect(0, 0, 1000, 200), Qt::TextWordWrap, frase).width();
        list.resize(precisa + 16, 200);
        QCOMPARE(Altura_Das_Letras(list), uma_linha);
        list.resize(precisa + 15, 200);
        QVERIFY(Altura_Das_Letras(list) > uma_linha);
    }

    void uma_lista_que_se_ve_mostra_logo_outra_frase()
    {
        ListBox list;
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QTest::qWait(50);
        const Pinturas pinturas(*list.viewport());
        list.setEmptyText(frase);
        QTRY_VERIFY(pinturas.vezes > 0);
    }

    void as_linhas_veem_se_em_qualquer_lista_de_colunas()
    {
        ListView list;
        list.setHeaderHidden(true);
        Verificar_Que_As_Linhas_Se_Veem(list, [&] { list.addTopLevelItem(new QTreeWidgetItem({u"Ana"_s})); });
        QStandardItemModel model;
        RowsView rows;
        rows.setHeaderHidden(true);
        rows.setModel(&model);
        Verificar_Que_As_Linhas_Se_Veem(rows, [&] { model.appendRow(new QStandardItem(u"Ana"_s)); });
    }

    void uma_lista_que_espera_pelas_suas_linhas_nao_diz_nada()
    {
        RowsView rows;
        rows.resize(200, 100);
        rows.setEmptyText(frase);
        QCOMPARE(Contraste(rows), 1.0);
        rows.setModel(nullptr);
        QCOMPARE(Contraste(rows), 1.0);
        QCOMPARE(Descricao(rows), QString());
    }

    void uma_lista_cujas_linhas_vem_de_fora_tambem_o_diz()
    {
        QStandardItemModel model;
        RowsView rows;
        rows.resize(300, 200);
        rows.setModel(&model);
        rows.setEmptyText(frase);
        QCOMPARE(rows.model(), &model);
        QCOMPARE(Descricao(rows), frase);
        QVERIFY(Contraste(rows) > 1.5);
        model.appendRow(new QStandardItem(u"Ana"_s));
        QCOMPARE(Descricao(rows), QString());
    }

    void numa_lista_de_colunas_as_linhas_sao_todas_iguais_sem_nada_a_esquerda()
    {
        QStandardItemModel model;
        for (const QString &texto : {u"uma"_s, u"duas\nlinhas"_s})
            model.appendRow(new QStandardItem(texto));
        RowsView rows;
        rows.resize(300, 200);
        rows.setModel(&model);
        const auto lugar = [&](int row) { return rows.visualRect(model.index(row, 0)); };
        QVERIFY(lugar(0).height() > 0);
        QCOMPARE(lugar(1).height(), lugar(0).height());
        QCOMPARE(lugar(0).left(), 0); // no place for what would open a row
        QVERIFY(rows.allColumnsShowFocus());
    }

    void uma_frase_comprida_fica_inteira_numa_lista_estreita()
    {
        ListBox list;
        list.resize(90, 200);
        list.setEmptyText(frase);
        const QImage picture = list.viewport()->grab().toImage();
        const QColor ground = list.viewport()->palette().color(list.viewport()->backgroundRole());
        for (int y = 0; y < picture.height(); ++y)
            for (const int x : {0, picture.width() - 1})
                QCOMPARE(picture.pixelColor(x, y).rgb(), ground.rgb());
    }
};

MORVEX_TESTE(TestEmptyText)
#include "test_EmptyText.moc"
