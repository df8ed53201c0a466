// Damaged card files: whatever is done to one, it is read in a moment, and what was read survives being
// written.
#include "testlib/Estragador.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"
#include "vcard/CardNormalForm.h"
#include "vcard/CardPatch.h"
#include "vcard/CardWriter.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

namespace
{
QList<QByteArray> Originais()
{
    const QByteArray foto =
        QByteArray("\xFF\xD8\xFF\xE0 uma fotografia qualquer, bastante comprida para se dobrar")
            .repeated(4)
            .toBase64();
    QByteArray dobrada;
    for (qsizetype i = 0; i < foto.size(); i += 72)
        dobrada += foto.sliced(i, qMin<qsizetype>(72, foto.size() - i)) + "\r\n ";
    return {
        Cartao(
            "FN:Ana Sá\r\nN:Sá;Ana;;Dr.;\r\nitem1.TEL;TYPE=CELL,pref:+351 "
            "91\r\nitem1.X-ABLabel:_$!<Home>!$_\r\n"
            "ADR;TYPE=\"home,work\":;;R. \\; "
            "1\\n2;Porto;;4000;PT\r\nBDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29\r\n"
            "CATEGORIES:a,b\\,c\r\nNOTE:um te\r\n xto\r\nURL:http\\://a.pt\r\nPHOTO;ENCODING=b;TYPE=JPEG:" +
            dobrada + "\r\n"),
        Cartao("N;CHARSET=windows-1252;ENCODING=QUOTED-PRINTABLE:S=E1;Ana=3B=\r\nMaria;;;\r\nTEL;CELL;VOICE:"
               "1\r\n"
               "AGENT:\r\nBEGIN:VCARD\r\nFN:Rui\r\nEND:VCARD\r\nNOTE;QUOTED-PRINTABLE:fim=\r\nEMAIL;INTERNET:"
               "a@b\r\n"
               "LABEL;QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=0D=0A=\r\noutra\r\nPHOTO;JPEG;BASE64:\r\n" +
                   foto.first(72) + "\r\n" + foto.sliced(72) + "\r\n\r\n",
               "2.1"),
        Cartao(
            "KIND:group\r\nFN;PREF=1:Família\r\nMEMBER:urn:uuid:a\r\nTEL;VALUE=uri;PREF=2:tel:+1-2;ext=3\r\n"
            "BDAY:--0304\r\nPHOTO:data:image/png;base64,iVBORw0KGgo=\r\nX-A;B=\"c:d;e\":f\r\n",
            "4.0"),
    };
}

QList<QByteArray> Pedacos()
{
    return {"\r\n",
            "\n",
            "\r",
            "=\r\n",
            "\r\n ",
            ":",
            ";",
            "\"",
            "\\",
            ",",
            "\xC3",
            QByteArray(1, '\0'),
            "=",
            "=3",
            "BEGIN:VCARD\n",
            "END:VCARD\n",
            "AGENT:\n",
            "item1.",
            "--",
            "data:",
            ";ENCODING=b",
            ";CHARSET=utf-16",
            ";QUOTED-PRINTABLE"};
}
} // namespace

class TestCartoesEstragados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nenhum_estrago_para_o_leitor_nem_perde_um_cartao_ao_escrever()
    {
        Estragador estragador(Pedacos());
        double mais_lento = 0; // microseconds
        qsizetype cartoes = 0;
        for (int i = 0; i < Estragador::Quantos(); ++i) {
            const QList<QByteArray> originais = Originais();
            const QByteArray ficheiro =
                estragador(originais.at(i % originais.size()) + originais.at((i / 3) % 3));
            CardFile lido;
            mais_lento = std::max(mais_lento, Tempo_Gasto([&] { lido = CardReader().read(ficheiro); }, 1));
            for (const Card &cartao : lido.cards) {
                ++cartoes;
                const CardContent conteudo = contentOf(cartao);
                for (const CardVersion versao : {CardVersion::V30, CardVersion::V40}) {
                    const CardFile relido = CardReader().read(writtenCard(conteudo, versao));
                    QCOMPARE(relido.cards.size(), 1U);
                    QVERIFY(relido.faults.empty());
                    QCOMPARE(contentOf(relido.cards.front()).phones.size(), conteudo.phones.size());
                }
                const CardFile inteiro = CardReader().read(cartao.source());
                QCOMPARE(inteiro.cards.size(), 1U);
                QCOMPARE(normalForm(inteiro.cards.front()), normalForm(cartao));
                QVERIFY(!patchedCard(cartao, {cartao.first("TEL")}, "TEL:1\r\n").isEmpty());
            }
        }
        qInfo("%d files, %lld cards, the slowest %.1f ms", Estragador::Quantos(),
              static_cast<long long>(cartoes), mais_lento / 1000);
        QVERIFY(cartoes > Estragador::Quantos());
        constexpr double um_segundo = 1e6;
        QVERIFY(mais_lento < um_segundo);
    }
};

MORVEX_TESTE(TestCartoesEstragados)
#include "test_cartoes_estragados.moc"
