// How a run came out, as it is remembered and judged.
#include "sincronizacao/ResultadoDaSincronizacao.h"

#include "testlib/Teste.h"

#include <QTest>

using namespace Qt::StringLiterals;

using Contagem = int ResultadoDaSincronizacao::*;
Q_DECLARE_METATYPE(Contagem)

class TestResultadoDaSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_contagem_sozinha_diz_de_que_lado_mudou_data()
    {
        using R = ResultadoDaSincronizacao;
        QTest::addColumn<Contagem>("contagem");
        QTest::addColumn<bool>("aqui");
        QTest::addColumn<bool>("la");
        QTest::newRow("added here") << &R::adicionados << true << false;
        QTest::newRow("changed here") << &R::alterados << true << false;
        QTest::newRow("deleted here") << &R::eliminados << true << false;
        QTest::newRow("added there") << &R::adicionados_la << false << true;
        QTest::newRow("changed there") << &R::alterados_la << false << true;
        QTest::newRow("deleted there") << &R::eliminados_la << false << true;
        QTest::newRow("a conflict") << &R::conflitos << false << false;
        QTest::newRow("withheld") << &R::retidos << false << false;
        QTest::newRow("refused") << &R::recusados << false << false;
    }
    void cada_contagem_sozinha_diz_de_que_lado_mudou()
    {
        QFETCH(Contagem, contagem);
        ResultadoDaSincronizacao resultado;
        resultado.*contagem = 1;
        QTEST(resultado.Mudou_Aqui(), "aqui");
        QTEST(resultado.Mudou_La(), "la");
    }

    // A database outlives the program that wrote it.
    void o_que_um_programa_anterior_escreveu_le_se()
    {
        const auto r = ResultadoDaSincronizacao::Do_Texto(
            u"{\"adicionados\":1,\"adicionados_la\":4,\"alterados\":2,\"alterados_la\":5,\"cautela\":true,"
            "\"conflitos\":7,\"de_quantos\":11,\"eliminados\":3,\"eliminados_la\":6,\"erro\":10,\"fim\":3,"
            "\"la\":true,\"quantos\":10,\"recusados\":9,\"retidos\":8}"_s);
        QCOMPARE(r.fim, ResultadoDaSincronizacao::Fim::Perguntar);
        QCOMPARE(r.erro.kind, RemoteError::Kind::Password);
        QVERIFY(r.com_cautela && r.pergunta_la);
        const QList<int> contagens{r.adicionados,  r.alterados,        r.eliminados,         r.adicionados_la,
                                   r.alterados_la, r.eliminados_la,    r.conflitos,          r.retidos,
                                   r.recusados,    r.pergunta_quantos, r.pergunta_de_quantos};
        QCOMPARE(contagens, (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    }

    void o_que_se_escreve_e_o_que_se_le()
    {
        const auto texto =
            u"{\"adicionados\":1,\"adicionados_la\":4,\"alterados\":2,\"alterados_la\":5,\"cautela\":"
            "true,\"conflitos\":7,\"de_quantos\":11,\"eliminados\":3,\"eliminados_la\":6,\"erro\":10,"
            "\"fim\":3,\"la\":true,\"quantos\":10,\"recusados\":9,\"retidos\":8}"_s;
        QCOMPARE(ResultadoDaSincronizacao::Do_Texto(texto).Texto(), texto);
    }

    void um_novo_nao_conta_nada()
    {
        QCOMPARE(ResultadoDaSincronizacao().Texto(),
                 u"{\"adicionados\":0,\"adicionados_la\":0,\"alterados\":0,\"alterados_la\":0,\"cautela\":"
                 "false,\"conflitos\":0,\"de_quantos\":0,\"eliminados\":0,\"eliminados_la\":0,\"erro\":0,"
                 "\"fim\":0,\"la\":false,\"quantos\":0,\"recusados\":0,\"retidos\":0}"_s);
    }

    void lixo_le_se_como_nada()
    {
        const auto r = ResultadoDaSincronizacao::Do_Texto(u"isto nao e nada"_s);
        QCOMPARE(r.fim, ResultadoDaSincronizacao::Fim::Feita);
        QVERIFY(!r.Mudou_Aqui() && !r.Mudou_La() && !r.erro);
    }
};

MORVEX_TESTE(TestResultadoDaSincronizacao)
#include "test_ResultadoDaSincronizacao.moc"
