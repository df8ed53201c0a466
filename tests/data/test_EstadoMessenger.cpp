// What each presence code means and looks like.
#include "data/EstadoMessenger.h"
#include "testlib/Teste.h"

#include <QIcon>

using namespace Qt::StringLiterals;

namespace
{
QImage Vista(const QIcon &icone) { return icone.pixmap(QSize(32, 32)).toImage(); }
} // namespace

class TestEstadoMessenger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_codigo_tem_a_sua_figura_e_o_seu_sentido_data()
    {
        QTest::addColumn<QString>("codigo");
        QTest::addColumn<int>("imagem");
        QTest::addColumn<bool>("ligado");
        QTest::addColumn<bool>("presente");
        QTest::newRow("none") << u""_s << 8 << false << false;
        QTest::newRow("unknown to the messenger") << u"0"_s << 8 << false << false;
        QTest::newRow("offline") << u"1"_s << 21 << true << false;
        QTest::newRow("online") << u"2"_s << 18 << true << true;
        QTest::newRow("busy") << u"10"_s << 19 << true << true;
        QTest::newRow("idle") << u"18"_s << 20 << true << true;
        QTest::newRow("away") << u"34"_s << 20 << true << true;
        QTest::newRow("a code that nobody knows") << u"77"_s << 18 << true << true;
    }
    void cada_codigo_tem_a_sua_figura_e_o_seu_sentido()
    {
        QFETCH(QString, codigo);
        QFETCH(int, imagem);
        QFETCH(bool, ligado);
        QFETCH(bool, presente);
        QCOMPARE(estado_messenger::Imagem(codigo), imagem);
        QCOMPARE(estado_messenger::Ligado(codigo), ligado);
        QCOMPARE(estado_messenger::Presente(codigo), presente);

        const QImage botao = Vista(QIcon(u":/imagens/toolbar/messenger_%1.svg"_s.arg(imagem)));
        const QImage correio = Vista(QIcon(u":/imagens/card/email.svg"_s));
        QVERIFY(!botao.isNull() && !correio.isNull() && botao != correio);
        QCOMPARE(Vista(estado_messenger::Botao(codigo)), botao);
        QCOMPARE(Vista(estado_messenger::Retrato(codigo)), ligado ? botao : correio);
    }
};

MORVEX_TESTE(TestEstadoMessenger)
#include "test_EstadoMessenger.moc"
