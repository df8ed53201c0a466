// Where a window stands when the screen that it stood on is gone.
#include "controls/ReachablePlace.h"
#include "testlib/Teste.h"

class TestReachablePlace : public QObject
{
    Q_OBJECT

    static constexpr int altura_do_titulo = 16;
    static constexpr QSize tamanho{185, 93};

private Q_SLOTS:
    void um_lugar_ao_alcance_fica_e_outro_e_trazido_o_menos_possivel_data()
    {
        const QList<QRect> um{{0, 0, 800, 600}};
        const QList<QRect> dois{{0, 0, 800, 600}, {800, 100, 1000, 500}};
        QTest::addColumn<QList<QRect>>("ecras");
        QTest::addColumn<QPoint>("lugar");
        QTest::addColumn<QPoint>("esperado");
        QTest::newRow("inside") << um << QPoint(100, 100) << QPoint(100, 100);
        QTest::newRow("partly inside to the right") << um << QPoint(740, 100) << QPoint(740, 100);
        QTest::newRow("partly inside to the left") << um << QPoint(-125, 100) << QPoint(-125, 100);
        QTest::newRow("only the title inside") << um << QPoint(100, 584) << QPoint(100, 584);
        QTest::newRow("far to the right") << um << QPoint(5000, 100) << QPoint(740, 100);
        QTest::newRow("far to the left") << um << QPoint(-5000, 100) << QPoint(-125, 100);
        QTest::newRow("below") << um << QPoint(100, 4000) << QPoint(100, 584);
        QTest::newRow("title above the top") << um << QPoint(100, -20) << QPoint(100, 0);
        QTest::newRow("beyond a corner") << um << QPoint(3000, -3000) << QPoint(740, 0);
        QTest::newRow("on the second screen") << dois << QPoint(1700, 300) << QPoint(1700, 300);
        QTest::newRow("nearest to the second screen") << dois << QPoint(1500, 0) << QPoint(1500, 100);
        QTest::newRow("nearest to the first screen") << dois << QPoint(-1000, 10) << QPoint(-125, 10);
        const QList<QRect> com_um_vao{{0, 0, 800, 600}, {1001, 0, 800, 600}};
        QTest::newRow("as near to one as to the other") << com_um_vao << QPoint(808, 10) << QPoint(740, 10);
        QTest::newRow("no screen at all") << QList<QRect>{} << QPoint(5000, 5000) << QPoint(5000, 5000);
    }
    void um_lugar_ao_alcance_fica_e_outro_e_trazido_o_menos_possivel()
    {
        QFETCH(QList<QRect>, ecras);
        QFETCH(QPoint, lugar);
        QFETCH(QPoint, esperado);
        QCOMPARE(reachablePlace({lugar, tamanho}, altura_do_titulo, ecras), esperado);
    }

    void uma_janela_mais_estreita_do_que_uma_pega_fica_toda_ao_alcance()
    {
        const QRect ecra(0, 0, 800, 600);
        QCOMPARE(reachablePlace({900, 50, 20, 20}, altura_do_titulo, {ecra}), QPoint(780, 50));
        QCOMPARE(reachablePlace({-90, 50, 20, 20}, altura_do_titulo, {ecra}), QPoint(0, 50));
    }

    void um_ecra_menor_do_que_o_titulo_recebe_o_canto()
    {
        QCOMPARE(reachablePlace({500, 500, 185, 93}, altura_do_titulo, {{0, 0, 40, 10}}), QPoint(-20, 0));
    }
};

MORVEX_TESTE(TestReachablePlace)
#include "test_ReachablePlace.moc"
