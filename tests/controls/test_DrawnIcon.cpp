// Icons that are read when they are first drawn: the same as the toolkit's own.
#include "controls/Application.h"
#include "controls/DrawnIcon.h"
#include "testlib/Teste.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

class TestDrawnIcon : public QObject
{
    Q_OBJECT

    static QImage Pintado(const QIcon &icone, QIcon::Mode modo, double densidade)
    {
        QImage imagem(QSize(60, 40) * densidade, QImage::Format_ARGB32_Premultiplied);
        imagem.setDevicePixelRatio(densidade);
        imagem.fill(Qt::yellow);
        QPainter pintor(&imagem);
        icone.paint(&pintor, QRect(0, 0, 60, 40), Qt::AlignCenter, modo);
        return imagem;
    }

private Q_SLOTS:
    void e_igual_ao_da_biblioteca_data()
    {
        QTest::addColumn<QString>("ficheiro");
        for (const char *nome :
             {"toolbar/novo_contacto", "card/telefone", "toolbar/messenger_8", "menu/sair"})
            QTest::newRow(nome) << u":/imagens/"_s + QLatin1StringView(nome) + u".svg"_s;
    }
    void e_igual_ao_da_biblioteca()
    {
        QFETCH(QString, ficheiro);
        QVERIFY(QFile::exists(ficheiro));
        const QIcon proprio = drawnIcon(ficheiro);
        const QIcon da_biblioteca(ficheiro);
        for (const QIcon::Mode modo : {QIcon::Normal, QIcon::Disabled, QIcon::Selected}) {
            for (const QSize tamanho : {QSize(16, 16), QSize(24, 24), QSize(19, 31)}) {
                QCOMPARE(proprio.pixmap(tamanho, modo).toImage(),
                         da_biblioteca.pixmap(tamanho, modo).toImage());
                QCOMPARE(proprio.actualSize(tamanho, modo), da_biblioteca.actualSize(tamanho, modo));
            }
            for (const double densidade : {1.0, 1.5, 2.0})
                QCOMPARE(Pintado(proprio, modo, densidade), Pintado(da_biblioteca, modo, densidade));
        }
        QIcon copia = proprio;
        copia.addPixmap({}); // parts from the one that it is a copy of
        QCOMPARE(copia.pixmap(24).toImage(), da_biblioteca.pixmap(24).toImage());
    }

    void e_um_icone_e_desenha_se_uma_so_vez()
    {
        const QIcon icone = drawnIcon(u":/imagens/card/fax.svg"_s);
        QVERIFY(!icone.isNull());
        const qint64 primeiro = icone.pixmap(21).cacheKey();
        QCOMPARE(icone.pixmap(21).cacheKey(), primeiro);
        QVERIFY(icone.pixmap(22).cacheKey() != primeiro);
    }

    void um_ficheiro_que_nao_ha_nao_pinta_nada()
    {
        QVERIFY(drawnIcon(u":/imagens/nenhuma.svg"_s).pixmap(16).isNull());
        QCOMPARE(Pintado(drawnIcon(u":/imagens/nenhuma.svg"_s), QIcon::Normal, 1),
                 Pintado({}, QIcon::Normal, 1));
    }

    void cada_parte_da_forma_toma_a_imagem_que_a_forma_lhe_da()
    {
        QWidget form;
        QPushButton botao(&form);
        auto *entrada = new QAction(&form);
        QPushButton sem(&form);
        botao.setProperty("imagem", u":/imagens/card/fax.svg"_s);
        entrada->setProperty("imagem", u":/imagens/menu/sair.svg"_s);
        giveDrawnIcons(form);
        QCOMPARE(botao.icon().pixmap(16).toImage(), QIcon(u":/imagens/card/fax.svg"_s).pixmap(16).toImage());
        QCOMPARE(entrada->icon().pixmap(16).toImage(),
                 QIcon(u":/imagens/menu/sair.svg"_s).pixmap(16).toImage());
        QVERIFY(sem.icon().isNull());
    }
};

MORVEX_TESTE(TestDrawnIcon)
#include "test_DrawnIcon.moc"
