// What a list without rows says, to the eye and to a screen reader.
#include "controls/Contrast.h"
#include "controls/ListBox.h"
#include "controls/ListView.h"
#include "controls/Palettes.h"
#include "testlib/Teste.h"

#include <QAccessible>

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
