// The arithmetic of the card: its two tables, the height of the notes, the size and place of the photograph.
#include "contacts/DisposicaoCartao.h"
#include "testlib/Teste.h"

class TestDisposicaoCartao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void as_duas_tabelas_dao_o_lugar_de_cada_linha_data()
    {
        QTest::addColumn<int>("top");
        QTest::addColumn<int>("left");
        constexpr int tops[]{2820, 3160, 3500, 3840, 4180, 4520, 4860, 5200, 5540,
                             5880, 2820, 3160, 3500, 3840, 4180, 4520, 4860};
        for (int i = 0; i < 17; ++i)
            QTest::addRow("%d", i + 1) << tops[i] << (i < 10 ? 420 : 5160);
    }
    void as_duas_tabelas_dao_o_lugar_de_cada_linha()
    {
        QFETCH(int, top);
        QFETCH(int, left);
        const int linha = QByteArray(QTest::currentDataTag()).toInt();
        QCOMPARE(cartao::Posicao_Top(linha), std::optional(top));
        QCOMPARE(cartao::Posicao_Left(linha), std::optional(left));
    }

    void fora_de_1_a_17_nao_ha_lugar()
    {
        for (const int linha : {-1, 0, 18, 32767}) {
            QVERIFY(!cartao::Posicao_Top(linha));
            QVERIFY(!cartao::Posicao_Left(linha));
        }
    }

    void a_altura_das_notas_segue_a_Linha_Card_data()
    {
        QTest::addColumn<int>("Linha_Card");
        QTest::addColumn<int>("altura");
        QTest::addColumn<int>("linha_das_notas");
        QTest::newRow("2") << 2 << 3400 << 11;
        QTest::newRow("11") << 11 << 3400 << 11;
        QTest::newRow("12") << 12 << 3000 << 12;
        QTest::newRow("13") << 13 << 2700 << 13;
        QTest::newRow("15") << 15 << 2000 << 15;
        QTest::newRow("16") << 16 << 1635 << 16;
        QTest::newRow("17") << 17 << 1300 << 17;
    }
    void a_altura_das_notas_segue_a_Linha_Card()
    {
        QFETCH(int, Linha_Card);
        QFETCH(int, altura);
        QFETCH(int, linha_das_notas);
        QCOMPARE(cartao::Altura_Obs(Linha_Card), std::optional(altura));
        const int pe = *cartao::Posicao_Top(linha_das_notas) + altura;
        QVERIFY2(pe >= 6155 && pe <= 6220, qPrintable(QString::number(pe)));
    }

    void a_linha_14_nao_muda_a_altura() { QVERIFY(!cartao::Altura_Obs(14)); }

    void a_foto_cabe_por_divisores_inteiros_data()
    {
        QTest::addColumn<QSizeF>("natural");
        QTest::addColumn<QSizeF>("ajustada");
        QTest::newRow("2416 por 100 desce a metade") << QSizeF(2416, 100) << QSizeF(1208, 50);
        QTest::newRow("a medida exacta da caixa fica") << QSizeF(2415, 2325) << QSizeF(2415, 2325);
        QTest::newRow("uma pequena nunca cresce") << QSizeF(150, 90) << QSizeF(150, 90);
        QTest::newRow("alta de mais por um") << QSizeF(100, 2326) << QSizeF(50, 1163);
        QTest::newRow("a parte inteira da divisao") << QSizeF(4833, 2327) << QSizeF(1611, 775);
        QTest::newRow("a parte inteira da largura") << QSizeF(4835, 2325) << QSizeF(1611, 775);
        QTest::newRow("a parte inteira ja cabe") << QSizeF(2415.5, 100) << QSizeF(2415, 100);
        QTest::newRow("muito grande") << QSizeF(60000, 45000) << QSizeF(2400, 1800);
    }
    void a_foto_cabe_por_divisores_inteiros()
    {
        QFETCH(QSizeF, natural);
        QFETCH(QSizeF, ajustada);
        QCOMPARE(cartao::Redimensionar_Foto(natural), ajustada);
    }

    void a_foto_fica_no_meio_da_caixa()
    {
        QCOMPARE(cartao::Lugar_Da_Foto({1208, 50}), QRectF(5883.5, 1527.5, 1208, 50));
        QCOMPARE(cartao::Lugar_Da_Foto({2415, 2325}), QRectF(5280, 390, 2415, 2325));
    }

    void a_foto_por_omissao_enche_a_caixa_dez_twips_mais_abaixo()
    {
        QCOMPARE(cartao::foto_por_omissao, QRectF(5280, 400, 2415, 2325));
    }
};

MORVEX_TESTE(TestDisposicaoCartao)
#include "test_DisposicaoCartao.moc"
