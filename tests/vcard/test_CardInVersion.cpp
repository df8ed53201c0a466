// A card written in another version says the same.
#include "testlib/Teste.h"
#include "vcard/CardInVersion.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

namespace
{
Card Um(const QByteArray &bytes) { return CardReader().read(bytes).cards.front(); }

const QByteArray linhas =
    "UID:u-1\r\nFN:Ana\r\nFN:Anna\r\nN:Sá;Ana;;;\r\nNICKNAME:Nita\r\nORG:Firma;Loja\r\nORG:Outra\r\n"
    "item1.TEL;TYPE=CELL:911\r\nitem1.X-ABLabel:Da praia\r\nEMAIL:a@b\r\nURL:http://x/?a=1,2;3\r\n"
    "ADR;TYPE=HOME:;;Rua A\\, 1;Porto;;4000;\r\nCATEGORIES:a,b\r\nNOTE:um\\; dois\\nlinhas\r\n"
    "item2.X-COISA;X-P=q:a;b\\,c\r\nitem2.X-ABLabel:Minha\r\nTITLE:Chefe\r\n";
} // namespace

class TestCardInVersion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_cartao_diz_o_mesmo_na_outra_versao()
    {
        for (const auto &[de, para] :
             {std::pair("3.0", CardVersion::V40), std::pair("4.0", CardVersion::V30)}) {
            const Card antigo = Um(Cartao(linhas, de));
            const Card novo = Um(inVersion(antigo, para));
            QCOMPARE(novo.version(), para);
            CardContent esperado = contentOf(antigo);
            QCOMPARE(contentOf(novo), esperado);
            QCOMPARE(novo.all("ORG").size(), std::size_t{2});
            QCOMPARE(novo.all("FN").size(), std::size_t{2});
            QCOMPARE(novo.all("FN").at(1)->text(), u"Anna"_s);
            const CardProperty &coisa = *novo.first("X-COISA");
            QCOMPARE(coisa.rawValue(), QByteArray("a;b\\,c"));
            QCOMPARE(coisa.head().value("X-P"), QByteArray("q"));
            QCOMPARE(novo.label(coisa), u"Minha"_s);
            QCOMPARE(novo.all("X-ABLABEL").size(), std::size_t{2});
        }
    }

    void o_aniversario_e_a_preferencia_tomam_a_forma_da_versao()
    {
        const QByteArray nova = inVersion(
            Um(Cartao("FN:A\r\nTEL;TYPE=PREF,CELL:1\r\nBDAY;X-APPLE-OMIT-YEAR=1604:1604-03-04\r\n")),
            CardVersion::V40);
        QVERIFY2(nova.contains("BDAY:--0304\r\n"), nova);
        QVERIFY2(nova.contains("TEL;PREF=1;TYPE=cell:1\r\n"), nova);
        const QByteArray velha = inVersion(Um(nova), CardVersion::V30);
        QVERIFY2(velha.contains("BDAY;X-APPLE-OMIT-YEAR=1604:1604-03-04\r\n"), velha);
        QVERIFY2(velha.contains("TEL;TYPE=CELL,PREF:1\r\n"), velha);
    }

    void as_imagens_e_outros_bytes_passam()
    {
        const QByteArray jpeg = QByteArray::fromHex("ffd8ffe000104a464946000101").toBase64();
        const QByteArray nova = inVersion(Um(Cartao("FN:A\r\nPHOTO;ENCODING=b;TYPE=JPEG:" + jpeg +
                                                    "\r\nKEY;ENCODING=b;TYPE=X509;X-P=q:AAEC\r\nX-Y;TYPE=z:1\r\n")),
                                          CardVersion::V40);
        QVERIFY2(nova.contains("PHOTO:data:image/jpeg;base64,"), nova);
        QVERIFY2(nova.contains("KEY;X-P=q:data:application/octet-stream;base64,AAEC\r\n"), nova);
        QVERIFY2(nova.contains("X-Y;TYPE=z:1\r\n"), nova);
        QCOMPARE(contentOf(Um(inVersion(Um(nova), CardVersion::V30))).photos.front().bytes.toBase64(), jpeg);
    }

    void um_cartao_da_mesma_versao_fica_byte_por_byte()
    {
        const QByteArray bytes = Cartao("fn:Ana\r\nX-A;b=c: d\r\n", "4.0");
        QCOMPARE(inVersion(Um(bytes), CardVersion::V40), bytes);
    }

    void um_cartao_de_2_1_chega_a_4_0()
    {
        const Card novo = Um(inVersion(Um(Cartao("N:Sá;Ana;;;\r\nTEL;CELL:1\r\n", "2.1")), CardVersion::V40));
        QCOMPARE(novo.version(), CardVersion::V40);
        QCOMPARE(shownName(contentOf(novo)), u"Ana Sá"_s);
        QCOMPARE(contentOf(novo).phones.front().types, QStringList{u"cell"_s});
    }
};

MORVEX_TESTE(TestCardInVersion)
#include "test_CardInVersion.moc"
