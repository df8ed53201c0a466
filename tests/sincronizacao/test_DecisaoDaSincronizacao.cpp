// What becomes of a contact and its card, for everything that can have happened to either.
#include "sincronizacao/DecisaoDaSincronizacao.h"

#include "testlib/Teste.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
const QStringList nomes{u"nada"_s,   u"receber"_s,     u"receber novo"_s, u"juntar"_s,   u"apagar aqui"_s,
                        u"enviar"_s, u"enviar novo"_s, u"apagar la"_s,    u"esquecer"_s, u"reter"_s};

Circunstancias Com(const QString &palavra)
{
    Circunstancias c;
    c.cautela = palavra == u"cautela"_s;
    c.adicionar = palavra != u"sem adicionar"_s;
    c.editar = palavra != u"sem editar"_s;
    c.eliminar = palavra != u"sem eliminar"_s;
    return c;
}
} // namespace

class TestDecisaoDaSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Nine cells: here equal, changed, deleted; in each, there equal, changed, deleted.
    void cada_caso_tem_a_sua_accao_data()
    {
        QTest::addColumn<QString>("circunstancia");
        QTest::addColumn<QString>("accoes");
        QTest::newRow("all rights")
            << u""_s
            << u"nada,receber,apagar aqui;enviar,juntar,enviar novo;apagar la,receber "
               "novo,esquecer"_s;
        QTest::newRow("old memory") << u"cautela"_s
                                    << u"nada,receber,enviar novo;enviar,juntar,enviar novo;receber "
                                       "novo,receber novo,esquecer"_s;
        QTest::newRow("may not add") << u"sem adicionar"_s
                                     << u"nada,receber,apagar aqui;enviar,juntar,enviar novo;apagar "
                                        "la,reter,esquecer"_s;
        QTest::newRow("may not edit") << u"sem editar"_s
                                      << u"nada,reter,apagar aqui;enviar,reter,enviar novo;apagar la,receber "
                                         "novo,esquecer"_s;
        QTest::newRow("may not delete") << u"sem eliminar"_s
                                        << u"nada,receber,reter;enviar,juntar,enviar novo;apagar la,receber "
                                           "novo,esquecer"_s;
    }
    void cada_caso_tem_a_sua_accao()
    {
        QFETCH(QString, circunstancia);
        QFETCH(QString, accoes);
        QStringList linhas;
        for (const Lado aqui : {Lado::Igual, Lado::Mudado, Lado::Apagado}) {
            QStringList linha;
            for (const Lado la : {Lado::Igual, Lado::Mudado, Lado::Apagado})
                linha << nomes.at(static_cast<int>(Decidir(aqui, la, Com(circunstancia))));
            linhas << linha.join(u',');
        }
        QCOMPARE(linhas.join(u';'), accoes);
    }

    void sem_circunstancias_nao_ha_cautela_e_tudo_se_pode()
    {
        QCOMPARE(Decidir(Lado::Igual, Lado::Apagado), Accao::ApagarAqui);
        QCOMPARE(Decidir(Lado::Apagado, Lado::Igual), Accao::ApagarLa);
        QCOMPARE(Decidir(Lado::Igual, Lado::Mudado), Accao::Receber);
        QCOMPARE(Decidir(Lado::Apagado, Lado::Mudado), Accao::ReceberNovo);
    }

    void mais_de_metade_e_mais_de_dez_sao_demasiadas_data()
    {
        QTest::addColumn<int>("eliminadas");
        QTest::addColumn<int>("de_quantas");
        QTest::addColumn<bool>("demasiadas");
        QTest::newRow("ten of ten") << 10 << 10 << false;
        QTest::newRow("eleven of eleven") << 11 << 11 << true;
        QTest::newRow("exactly half") << 50 << 100 << false;
        QTest::newRow("one more than half") << 51 << 100 << true;
        QTest::newRow("none") << 0 << 0 << false;
        QTest::newRow("eleven of twenty-two") << 11 << 22 << false;
        QTest::newRow("eleven of twenty-one") << 11 << 21 << true;
    }
    void mais_de_metade_e_mais_de_dez_sao_demasiadas()
    {
        QFETCH(int, eliminadas);
        QFETCH(int, de_quantas);
        QTEST(Sao_Demasiadas(eliminadas, de_quantas), "demasiadas");
    }
};

MORVEX_TESTE(TestDecisaoDaSincronizacao)
#include "test_DecisaoDaSincronizacao.moc"
