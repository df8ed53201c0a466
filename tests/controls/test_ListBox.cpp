// The list box: rows with a number of their own, the order of a sorted one, and what counts as a click.
#include "controls/ListBox.h"
#include "testlib/Pinturas.h"
#include "testlib/Teste.h"

#include <QHelpEvent>
#include <QScrollBar>
#include <QTextDocumentFragment>
#include <QToolTip>

using namespace Qt::StringLiterals;

class TestListBox : public QObject
{
    Q_OBJECT

    static void Encher(ListBox &list, const QStringList &texts)
    {
        for (const QString &text : texts) {
            list.AddItem(text);
            list.setItemData(list.NewIndex(), static_cast<int>(text.size()));
        }
    }
    // Each with its place, counted from 1.
    static ListItems Juntas(const QStringList &texts)
    {
        ListItems items;
        for (const QString &text : texts)
            items.append(text.toStdString(), items.count() + 1);
        return items;
    }
    static QStringList Textos(const ListBox &list)
    {
        QStringList texts;
        for (int i = 0; i < list.ListCount(); ++i)
            texts << list.List(i) + u':' + QString::number(list.ItemData(i));
        return texts;
    }
    static QPoint Ponto(const ListBox &list, int row)
    {
        return list.visualRect(list.model()->index(row, 0)).center();
    }
    // What the tip says when the mouse rests there.
    static QString Dica(const ListBox &list, QPoint place)
    {
        QToolTip::hideText();
        if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) return u"an old one"_s;
        QHelpEvent rests(QEvent::ToolTip, place, list.viewport()->mapToGlobal(place));
        QCoreApplication::sendEvent(list.viewport(), &rests);
        if (!QToolTip::isVisible()) return {};
        return QTextDocumentFragment::fromHtml(QToolTip::text()).toPlainText().replace(QChar::Nbsp, u' ');
    }

private Q_SLOTS:
    void as_linhas_ficam_pela_ordem_em_que_chegam()
    {
        ListBox list;
        QCOMPARE(list.NewIndex(), -1);
        Encher(list, {u"b"_s, u"aa"_s});
        QCOMPARE(Textos(list), (QStringList{u"b:1"_s, u"aa:2"_s}));
        QCOMPARE(list.NewIndex(), 1);
        QCOMPARE(list.ListIndex(), -1);
    }

    void uma_lista_ordenada_poe_cada_linha_no_seu_lugar()
    {
        ListBox list;
        list.setSorted(true);
        Encher(list, {u"Zita"_s, u"ana"_s, u"Álvaro!"_s, u"Ana B"_s});
        QCOMPARE(Textos(list), (QStringList{u"Álvaro!:7"_s, u"ana:3"_s, u"Ana B:5"_s, u"Zita:4"_s}));
        QCOMPARE(list.NewIndex(), 2);
    }

    void de_nomes_iguais_o_novo_fica_atras()
    {
        ListBox list;
        list.setSorted(true);
        for (int number = 1; number <= 3; ++number) {
            list.AddItem(number == 2 ? u"ANA"_s : u"Ana"_s);
            list.setItemData(list.NewIndex(), number);
        }
        QCOMPARE(Textos(list), (QStringList{u"Ana:1"_s, u"ANA:2"_s, u"Ana:3"_s}));
    }

    void atribuir_o_indice_vale_um_clique_mesmo_que_fique_igual()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        QSignalSpy clicks(&list, &ListBox::Click);
        list.setListIndex(1);
        QCOMPARE(list.ListIndex(), 1);
        QCOMPARE(clicks.size(), 1);
        list.setListIndex(1);
        QCOMPARE(clicks.size(), 2);
        list.setListIndex(-1);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(clicks.size(), 2);
    }

    void um_indice_fora_da_lista_e_um_erro()
    {
        ListBox list;
        Encher(list, {u"a"_s});
        VERIFICAR_FALHA(list.setListIndex(1), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(list.setListIndex(-2), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(list.List(1), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(list.ItemData(-1), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(list.setItemData(1, 7), Failure::InvalidPropertyValue);
        for (const int index : {-1, 1}) {
            VERIFICAR_FALHA(list.List(index), Failure::InvalidPropertyValue);
            VERIFICAR_FALHA(list.ListUtf8(index), Failure::InvalidPropertyValue);
            VERIFICAR_FALHA(list.ItemData(index), Failure::InvalidPropertyValue);
            VERIFICAR_FALHA(list.setItemData(index, 7), Failure::InvalidPropertyValue);
            VERIFICAR_FALHA(list.RemoveItem(index), Failure::InvalidPropertyValue);
        }
        QCOMPARE(list.ListCount(), 1);
        QCOMPARE(QString::fromUtf8(list.ListUtf8(0).data(), 1), u"a"_s);
    }

    void um_erro_diz_a_lista_e_a_linha_que_falta()
    {
        ListBox list;
        list.setObjectName("lstGrupos"_L1);
        try {
            list.setListIndex(7);
            QFAIL("there was one");
        } catch (const Failure &failure) {
            QCOMPARE(failure.source(), u"lstGrupos"_s);
            QCOMPARE(failure.description(), u"No row 7"_s);
        }
    }

    void tirar_uma_linha_tira_essa_e_nao_e_um_clique()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"bb"_s, u"ccc"_s, u"dddd"_s});
        list.setListIndex(2);
        QSignalSpy clicks(&list, &ListBox::Click);
        QSignalSpy removed(list.model(), &QAbstractItemModel::rowsRemoved);
        list.RemoveItem(2);
        QCOMPARE(Textos(list), (QStringList{u"a:1"_s, u"bb:2"_s, u"dddd:4"_s}));
        QCOMPARE(clicks.size(), 0);
        QCOMPARE(removed.size(), 1);
    }

    // A row has no rows of its own.
    void as_linhas_estao_todas_a_mesma_altura()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        QCOMPARE(list.model()->rowCount(list.model()->index(0, 0)), 0);
    }

    void uma_linha_comprida_de_mais_diz_se_numa_dica_e_nao_faz_deslizar_a_lista()
    {
        QWidget janela;
        janela.setToolTip(u"janela"_s);
        ListBox list(&janela);
        Encher(list, {u"curta"_s, u"uma linha <b>muito</b> mais comprida"_s});
        janela.show();
        const QModelIndex comprida = list.model()->index(1, 0);
        const int moldura = 2 * list.frameWidth();
        const int largura = list.sizeHintForIndex(comprida).width();
        list.resize(largura + moldura, 150);
        QCOMPARE(list.viewport()->width(), largura);
        QCOMPARE(Dica(list, Ponto(list, 1)), QString()); // it has just the room
        list.resize(largura + moldura - 1, 150);
        QCOMPARE(Dica(list, Ponto(list, 1)), list.List(1));
        QCOMPARE(Dica(list, Ponto(list, 0)), QString());
        QCOMPARE(Dica(list, QPoint(5, 140)), QString()); // below the rows
        QVERIFY(!list.horizontalScrollBar()->isVisible());
    }

    void o_que_deixa_de_estar_escolhido_ve_se_logo()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        list.setListIndex(1);
        list.show();
        QVERIFY(QTest::qWaitForWindowExposed(&list));
        QTest::qWait(50);
        const Pinturas pinturas(*list.viewport());
        list.setListIndex(-1);
        QTRY_VERIFY(pinturas.vezes > 0);
    }

    void a_linha_escolhida_segue_o_seu_texto()
    {
        ListBox list;
        list.setSorted(true);
        Encher(list, {u"b"_s});
        list.setListIndex(0);
        QSignalSpy clicks(&list, &ListBox::Click);
        list.AddItem(u"a"_s);
        QCOMPARE(list.ListIndex(), 1);
        QCOMPARE(clicks.size(), 0);
    }

    void limpar_tira_a_escolha_sem_clique()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        list.setListIndex(0);
        QSignalSpy clicks(&list, &ListBox::Click);
        list.Clear();
        QCOMPARE(list.ListCount(), 0);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.NewIndex(), -1);
        QCOMPARE(clicks.size(), 0);
    }

    void cada_premir_do_rato_numa_linha_e_um_clique()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        for (int times = 1; times <= 2; ++times) {
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Ponto(list, 1));
            QCOMPARE(clicks.size(), times);
        }
        QCOMPARE(list.ListIndex(), 1);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Ponto(list, 0));
        QCOMPARE(clicks.size(), 3);
    }

    void as_setas_andam_com_um_clique_por_linha()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s, u"c"_s});
        list.setListIndex(0);
        list.show();
        QSignalSpy clicks(&list, &ListBox::Click);
        QTest::keyClick(&list, Qt::Key_Down);
        QTest::keyClick(&list, Qt::Key_End);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(list.ListIndex(), 2);
        QCOMPARE(clicks.size(), 2);
    }

    void duplo_clique_e_botao_direito_tem_os_seus_sinais()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        list.show();
        QSignalSpy doubles(&list, &ListBox::DblClick);
        QSignalSpy lefts(&list, &QListView::clicked);
        QSignalSpy rights(&list, &ListBox::RightButtonUp);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Ponto(list, 0));
        QCOMPARE(lefts.size(), 1);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, Ponto(list, 0));
        QCOMPARE(doubles.size(), 1);
        QTest::mouseClick(list.viewport(), Qt::RightButton, {}, Ponto(list, 1));
        QCOMPARE(rights.size(), 1);
        QCOMPARE(rights[0][0].toPoint(), list.viewport()->mapToGlobal(Ponto(list, 1)));
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint(), Qt::NoModifier);
        QCoreApplication::sendEvent(list.viewport(), &menuKey);
        QCOMPARE(rights.size(), 2);
    }

    void encher_de_uma_vez_da_a_mesma_lista()
    {
        ListBox list;
        list.setSorted(true);
        QSignalSpy begun(list.model(), &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy resets(list.model(), &QAbstractItemModel::modelReset);
        QSignalSpy inserted(list.model(), &QAbstractItemModel::rowsInserted);
        {
            const ListBox::Filling filling(list);
            Encher(list, {u"c"_s, u"a"_s, u"b"_s});
            QCOMPARE(begun.size(), 1);
            QCOMPARE(resets.size(), 0);
        }
        QCOMPARE(resets.size(), 1);
        QCOMPARE(inserted.size(), 0); // none by itself
        QCOMPARE(Textos(list), (QStringList{u"a:1"_s, u"b:1"_s, u"c:1"_s}));
        QCOMPARE(list.model()->rowCount(), 3);
        list.setListIndex(2);
        QCOMPARE(list.currentIndex().data().toString(), u"c"_s);
        list.AddItem(u"d"_s);
        QCOMPARE(inserted.size(), 1);
    }

    void as_linhas_veem_se()
    {
        ListBox vazia;
        ListBox list;
        Encher(list, {u"uma linha"_s});
        for (ListBox *cada : {&vazia, &list})
            cada->resize(200, 100);
        const QRect linha = list.visualRect(list.model()->index(0, 0));
        QVERIFY(list.grab(linha).toImage() != vazia.grab(linha).toImage());
    }

    // A name with a line break in it is no taller than the others.
    void todas_as_linhas_tem_a_mesma_altura()
    {
        ListBox list;
        Encher(list, {u"uma"_s, u"duas\nlinhas"_s, u"outra"_s});
        list.show();
        const auto altura = [&](int row) { return list.visualRect(list.model()->index(row, 0)).height(); };
        QVERIFY(altura(0) > 0);
        QCOMPARE(altura(1), altura(0));
        QCOMPARE(altura(2), altura(0));
    }

    void dezenas_de_milhares_de_linhas_juntas_chegam_inteiras()
    {
        ListItems items;
        const auto texto = [](int linha) { return u"Ângela %1"_s.arg(linha).toUtf8(); };
        constexpr int quantas = 40000;
        for (int i = 0; i < quantas; ++i)
            items.append(texto(i).toStdString(), -i);
        QCOMPARE(items.count(), quantas);
        for (int i = 0; i < quantas; ++i)
            if (items.text(i) != texto(i).toStdString() || items.data(i) != -i) QFAIL(qPrintable(texto(i)));
        items.append(std::string(100000, 'x'), 7); // longer than all before it
        QCOMPARE(items.text(quantas), std::string(100000, 'x'));
        QCOMPARE(items.text(quantas - 1), texto(quantas - 1).toStdString());
    }

    void so_as_linhas_que_ha_tem_indice()
    {
        ListBox list;
        Encher(list, {u"a"_s, u"b"_s});
        const QAbstractItemModel &model = *list.model();
        for (const int row : {0, 1}) {
            QCOMPARE(model.index(row, 0).row(), row);
            QCOMPARE(model.index(row, 0).column(), 0);
            QCOMPARE(model.index(row, 0).model(), &model);
            QVERIFY(!model.index(row, 0, model.index(0, 0)).isValid());
        }
        for (const auto &[row, column] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 1}})
            QCOMPARE(model.index(row, column), QModelIndex());
    }

    void linhas_trazidas_juntas_tomam_o_lugar_das_que_havia()
    {
        ListBox list;
        Encher(list, {u"antiga"_s});
        list.setListIndex(0);
        QSignalSpy begun(list.model(), &QAbstractItemModel::modelAboutToBeReset);
        QSignalSpy resets(list.model(), &QAbstractItemModel::modelReset);
        list.setItems(Juntas({u"b"_s, u"Álvaro"_s}));
        QCOMPARE(Textos(list), (QStringList{u"b:1"_s, u"Álvaro:2"_s}));
        QCOMPARE(begun.size(), 1);
        QCOMPARE(resets.size(), 1);
        QCOMPARE(list.ListIndex(), -1);
        QCOMPARE(list.NewIndex(), -1);
    }

    void uma_lista_ordenada_ordena_as_que_vem_juntas_e_deixa_as_iguais_como_vieram()
    {
        ListBox list;
        list.setSorted(true);
        list.setItems(Juntas({u"Zita"_s, u"ana"_s, u"Álvaro"_s, u"ANA"_s}));
        QCOMPARE(Textos(list), (QStringList{u"Álvaro:3"_s, u"ana:2"_s, u"ANA:4"_s, u"Zita:1"_s}));
    }

    void o_que_muda_numa_lista_nao_muda_na_que_tem_as_mesmas_linhas()
    {
        ListBox list;
        ListBox twin;
        twin.setSorted(true);
        const ListItems items = Juntas({u"Álvaro"_s, u"Zita"_s});
        list.setItems(items);
        twin.setItems(items);
        QCOMPARE(static_cast<const void *>(twin.ListUtf8(1).data()),
                 static_cast<const void *>(list.ListUtf8(1).data())); // the very same letters
        twin.AddItem(u"Éva 漢 😀"_s);
        twin.setItemData(0, 7);
        list.RemoveItem(0);
        QCOMPARE(Textos(list), QStringList{u"Zita:2"_s});
        QCOMPARE(Textos(twin), (QStringList{u"Álvaro:7"_s, u"Éva 漢 😀:0"_s, u"Zita:2"_s}));
        list.AddItem(u"漢"_s);
        QCOMPARE(Textos(list), (QStringList{u"Zita:2"_s, u"漢:0"_s}));
    }
};

MORVEX_TESTE(TestListBox)
#include "test_ListBox.moc"
