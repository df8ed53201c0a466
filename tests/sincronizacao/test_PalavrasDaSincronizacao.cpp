// What a person reads of a run: why it failed, what it came to, what became of single contacts.
#include "sincronizacao/PalavrasDaSincronizacao.h"

#include "data/Geral.h"
#include "sincronizacao/MemoriaDaSincronizacao.h"
#include "sincronizacao/ResultadoDaSincronizacao.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using R = ResultadoDaSincronizacao;
using Fim = R::Fim;
using Kind = RemoteError::Kind;

R Com(Fim fim, const QList<std::pair<int R::*, int>> &contagens = {}, Kind erro = Kind::None)
{
    R r;
    r.fim = fim;
    r.erro.kind = erro;
    for (const auto &[contagem, quantos] : contagens)
        r.*contagem = quantos;
    return r;
}
} // namespace

class TestPalavrasDaSincronizacao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_falha_tem_as_suas_palavras_data()
    {
        QTest::addColumn<int>("especie");
        QTest::addColumn<int>("texto");
        const std::pair<Kind, int> casos[]{
            {Kind::None, 546},        {Kind::Address, 531},     {Kind::NoNetwork, 532},
            {Kind::NoSuchHost, 533},  {Kind::Refused, 534},     {Kind::Interrupted, 535},
            {Kind::TimedOut, 536},    {Kind::Certificate, 537}, {Kind::Unencrypted, 538},
            {Kind::Elsewhere, 542},   {Kind::Password, 540},    {Kind::Forbidden, 541},
            {Kind::NotFound, 542},    {Kind::NoBook, 543},      {Kind::Changed, 546},
            {Kind::NotAccepted, 557}, {Kind::NoRoom, 544},      {Kind::TooBig, 545},
            {Kind::Malformed, 545},   {Kind::Server, 546}};
        for (const auto &[especie, texto] : casos)
            QTest::addRow("%d", static_cast<int>(especie)) << static_cast<int>(especie) << texto;
    }
    void cada_falha_tem_as_suas_palavras()
    {
        QFETCH(int, especie);
        QFETCH(int, texto);
        Sistema s;
        const RemoteError erro{static_cast<Kind>(especie), 0, u"na"_s};
        QCOMPARE(palavras_da_sincronizacao::Do_Erro(s.geral, erro), s.Texto(texto));
    }

    void cada_fim_tem_as_suas_palavras_e_as_contagens_seguem_se_data()
    {
        QTest::addColumn<R>("resultado");
        QTest::addColumn<QString>("dito"); // numbers of texts, with what stands in them
        QTest::newRow("nothing to do") << Com(Fim::Feita) << u"521"_s;
        QTest::newRow("each count in its place") << Com(Fim::Feita, {{&R::adicionados, 1},
                                                                     {&R::alterados, 2},
                                                                     {&R::eliminados, 3},
                                                                     {&R::adicionados_la, 4},
                                                                     {&R::alterados_la, 5},
                                                                     {&R::eliminados_la, 6}})
                                                 << u"520 1 2 3 4 5 6"_s;
        QTest::newRow("only there") << Com(Fim::Feita, {{&R::eliminados_la, 6}}) << u"520 0 0 0 0 0 6"_s;
        QTest::newRow("conflicts, waiting and refused")
            << Com(Fim::Feita, {{&R::alterados, 2}, {&R::conflitos, 7}, {&R::retidos, 8}, {&R::recusados, 9}})
            << u"520 0 2 0 0 0 0;522 7;523 8;524 9"_s;
        QTest::newRow("only waiting is not the same on both sides")
            << Com(Fim::Feita, {{&R::retidos, 1}}) << u"523 1"_s;
        QTest::newRow("only refused neither") << Com(Fim::Feita, {{&R::recusados, 1}}) << u"524 1"_s;
        QTest::newRow("cancelled") << Com(Fim::Cancelada) << u"527"_s;
        QTest::newRow("cancelled after something")
            << Com(Fim::Cancelada, {{&R::alterados_la, 1}}) << u"527;520 0 0 0 0 1 0"_s;
        QTest::newRow("another run") << Com(Fim::Noutro) << u"560"_s;
        QTest::newRow("another choice") << Com(Fim::OutraEscolha) << u"561"_s;
        QTest::newRow("failed") << Com(Fim::Erro, {}, Kind::TimedOut) << u"536"_s;
        QTest::newRow("failed after something")
            << Com(Fim::Erro, {{&R::adicionados, 1}, {&R::recusados, 2}}, Kind::NoRoom)
            << u"544;520 1 0 0 0 0 0;524 2"_s;
        QTest::newRow("to be asked") << Com(Fim::Perguntar) << u"552"_s;
        QTest::newRow("no group") << Com(Fim::SemGrupo) << u"547"_s;
        QTest::newRow("the database") << Com(Fim::Base) << u"548"_s;
    }
    void cada_fim_tem_as_suas_palavras_e_as_contagens_seguem_se()
    {
        QFETCH(R, resultado);
        QFETCH(QString, dito);
        Sistema s;
        QStringList frases;
        for (const QString &frase : dito.split(u';')) {
            QStringList partes = frase.split(u' ');
            QString texto = s.Texto(partes.takeFirst().toInt());
            for (const QString &numero : std::as_const(partes))
                texto = texto.arg(numero);
            frases << texto;
        }
        QCOMPARE(palavras_da_sincronizacao::Do_Resultado(s.geral, resultado), frases.join(u' '));
    }

    void cada_ocorrencia_tem_as_suas_palavras_data()
    {
        QTest::addColumn<int>("que");
        QTest::addColumn<int>("texto");
        QTest::newRow("back there") << static_cast<int>(Ocorrencia::EliminadoLa) << 554;
        QTest::newRow("back here") << static_cast<int>(Ocorrencia::EliminadoAqui) << 555;
        QTest::newRow("no right") << static_cast<int>(Ocorrencia::SemDireito) << 556;
        QTest::newRow("not taken") << static_cast<int>(Ocorrencia::Recusado) << 557;
        QTest::newRow("no room") << static_cast<int>(Ocorrencia::NaoCabe) << 558;
        QTest::newRow("no card") << static_cast<int>(Ocorrencia::Ilegivel) << 559;
        QTest::newRow("not handed over") << static_cast<int>(Ocorrencia::NaoRecebido) << 526;
        QTest::newRow("of a later program") << 99 << 559;
    }
    void cada_ocorrencia_tem_as_suas_palavras()
    {
        QFETCH(int, que);
        QFETCH(int, texto);
        Sistema s;
        const Ocorrencia ocorrencia{
            static_cast<Ocorrencia::Que>(que), 1, u"Ana"_s, u"Fax"_s, u"a"_s, u"b"_s, {}};
        QCOMPARE(palavras_da_sincronizacao::Da_Ocorrencia(s.geral, ocorrencia), s.Texto(texto));
    }

    void um_conflito_diz_o_campo_o_que_ficou_e_o_que_esta_nas_observacoes_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("rotulo");
        QTest::newRow("a mobile") << u"Telemovel2"_s << u"Telemóvel"_s;
        QTest::newRow("a telephone") << u"Telefone1"_s << u"Telefone"_s;
        QTest::newRow("the birthday") << u"Dia"_s << QString();
        QTest::newRow("no column") << u"Signo"_s << u"Signo"_s;
    }
    void um_conflito_diz_o_campo_o_que_ficou_e_o_que_esta_nas_observacoes()
    {
        QFETCH(QString, campo);
        QFETCH(QString, rotulo);
        Sistema s;
        const QString dito = palavras_da_sincronizacao::Da_Ocorrencia(
            s.geral, {Ocorrencia::Conflito, 1, u"Ana"_s, campo, u"nosso"_s, u"deles"_s, {}});
        if (rotulo.isEmpty())
            QVERIFY2(dito.contains(u"“deles”"_s) && !dito.startsWith(campo), qPrintable(dito));
        else
            QCOMPARE(dito, s.Texto(553).arg(rotulo, u"deles"_s, u"nosso"_s));
    }
};

MORVEX_TESTE(TestPalavrasDaSincronizacao)
#include "test_PalavrasDaSincronizacao.moc"
