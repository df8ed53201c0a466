// The drop-down list: no choice until one is made, an assignment counts as a click, letters choose nothing.
#include "controls/ComboBox.h"
#include "testlib/Teste.h"

#include <QAbstractItemView>

using namespace Qt::StringLiterals;

class TestComboBox : public QObject
{
    Q_OBJECT

    static void Encher(ComboBox &combo)
    {
        for (const QString &text : {u"Amigos"_s, u"Colegas"_s, u"Outros"_s}) {
            combo.AddItem(text);
            combo.SetItemData(combo.NewIndex(), 10 * combo.ListCount());
        }
    }

private Q_SLOTS:
    void comeca_sem_escolha_e_encher_nao_e_clique()
    {
        ComboBox combo;
        QSignalSpy clicks(&combo, &ComboBox::Click);
        Encher(combo);
        QCOMPARE(combo.ListCount(), 3);
        QCOMPARE(combo.ListIndex(), -1);
        QCOMPARE(combo.List(1), u"Colegas"_s);
        QCOMPARE(combo.ItemData(1), 20);
        QCOMPARE(clicks.size(), 0);
    }

    void a_escolha_fica_quando_entra_mais_uma_linha()
    {
        ComboBox combo;
        Encher(combo);
        combo.setListIndex(2);
        combo.AddItem(u"Novos"_s);
        QCOMPARE(combo.ListIndex(), 2);
        QCOMPARE(combo.ItemData(combo.NewIndex()), 0);
    }

    void atribuir_o_indice_vale_um_clique_mesmo_que_fique_igual()
    {
        ComboBox combo;
        Encher(combo);
        QSignalSpy clicks(&combo, &ComboBox::Click);
        combo.setListIndex(1);
        combo.setListIndex(1);
        QCOMPARE(clicks.size(), 2);
        combo.setListIndex(-1);
        QCOMPARE(combo.ListIndex(), -1);
        QCOMPARE(clicks.size(), 2);
    }

    void um_indice_fora_da_lista_e_um_erro()
    {
        ComboBox combo;
        Encher(combo);
        VERIFICAR_FALHA(combo.setListIndex(3), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(combo.setListIndex(-2), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(combo.ItemData(3), Failure::InvalidPropertyValue);
        VERIFICAR_FALHA(combo.ItemData(-1), Failure::InvalidPropertyValue);
    }

    void um_erro_diz_a_lista_e_a_linha_que_falta()
    {
        ComboBox combo;
        combo.setObjectName("cboTipo"_L1);
        Encher(combo);
        const auto dito = [&combo](const std::function<void()> &accao) {
            try {
                accao();
            } catch (const Failure &failure) {
                return failure.source() == combo.objectName() ? failure.description() : failure.source();
            }
            return u"nada"_s;
        };
        QCOMPARE(dito([&] { combo.setListIndex(3); }), u"No row 3"_s);
        QCOMPARE(dito([&] { combo.ItemData(-1); }), u"No row -1"_s);
        QCOMPARE(dito([&] { combo.ChooseText(u"Família"_s); }), u"No row Família"_s);
        QCOMPARE(combo.ListIndex(), -1);
    }

    void um_texto_escolhe_a_sua_linha_com_um_clique()
    {
        ComboBox combo;
        Encher(combo);
        combo.AddItem(u"Amigos"_s);
        QSignalSpy clicks(&combo, &ComboBox::Click);
        combo.ChooseText(u"Outros"_s);
        QCOMPARE(combo.ListIndex(), 2);
        combo.ChooseText(u"Amigos"_s);
        QCOMPARE(combo.ListIndex(), 0);
        QCOMPARE(clicks.size(), 2);
        QCOMPARE(combo.ChosenItemData(), u"10"_s);
    }

    void tambem_a_primeira_linha_e_uma_linha()
    {
        ComboBox combo;
        Encher(combo);
        QCOMPARE(combo.ItemData(0), 10);
        QSignalSpy clicks(&combo, &ComboBox::Click);
        combo.setListIndex(0);
        QCOMPARE(combo.ListIndex(), 0);
        QCOMPARE(clicks.size(), 1);
    }

    void limpar_tira_linhas_e_escolha()
    {
        ComboBox combo;
        Encher(combo);
        combo.setListIndex(0);
        combo.Clear();
        QCOMPARE(combo.ListCount(), 0);
        QCOMPARE(combo.ListIndex(), -1);
    }

    void as_setas_escolhem_e_as_letras_nao()
    {
        ComboBox combo;
        Encher(combo);
        combo.setListIndex(0);
        combo.show();
        QSignalSpy clicks(&combo, &ComboBox::Click);
        QTest::keyClicks(&combo, u"oc7"_s);
        QCOMPARE(combo.ListIndex(), 0);
        QCOMPARE(clicks.size(), 0);
        QTest::keyClick(&combo, Qt::Key_Down);
        QCOMPARE(combo.ListIndex(), 1);
        QCOMPARE(clicks.size(), 1);
    }

    void o_espaco_abre_a_lista()
    {
        ComboBox combo;
        Encher(combo);
        combo.show();
        QTest::keyClick(&combo, Qt::Key_Space);
        QTRY_VERIFY(combo.view()->isVisible());
    }

    void nem_na_lista_aberta_as_letras_escolhem()
    {
        ComboBox combo;
        Encher(combo);
        combo.setListIndex(0);
        combo.show();
        combo.showPopup();
        QTRY_VERIFY(combo.view()->isVisible());
        QSignalSpy clicks(&combo, &ComboBox::Click);
        QTest::keyClicks(combo.view(), u"oc7"_s);
        QCOMPARE(combo.view()->currentIndex().row(), 0);
        QTest::keyClick(combo.view(), Qt::Key_Down);
        QTest::keyClick(combo.view(), Qt::Key_Return);
        QCOMPARE(combo.ListIndex(), 1);
        QCOMPARE(clicks.size(), 1);
    }
};

MORVEX_TESTE(TestComboBox)
#include "test_ComboBox.moc"
