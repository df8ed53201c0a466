// Older cards become cards of version 3.0 that say the same.
#include "testlib/Teste.h"
#include "vcard/CardVersion3.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

namespace
{
Card Um(const QByteArray &bytes) { return CardReader().read(bytes).cards.front(); }
} // namespace

class TestCardVersion3 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_cartao_antigo_diz_o_mesmo_em_3_0()
    {
        const Card antigo = Um(Cartao("N;CHARSET=windows-1252;ENCODING=QUOTED-PRINTABLE:S=E1;Ana=3B;;;\r\n"
                                      "item1.TEL;CELL;VOICE:1\r\nitem1.X-ABLabel:Casa, minha\r\n"
                                      "CATEGORIES:a,b\r\nURL:http://a,b;c\r\nPHOTO;JPEG;BASE64:/9j/4AAQ\r\n"
                                      "ADR;HOME:;;Rua, 1;Porto;;;\r\nNOTE:um; dois\r\nX-Y:a;b\r\n",
                                      "2.1"));
        const Card novo = Um(toVersion3(antigo));
        QCOMPARE(novo.version(), CardVersion::V30);
        QCOMPARE(contentOf(novo), contentOf(antigo));
        QCOMPARE(novo.all("X-Y").front()->parts(), (QStringList{u"a"_s, u"b"_s}));
        QVERIFY(!toVersion3(antigo).contains("CHARSET"));
        QVERIFY(!toVersion3(antigo).contains("QUOTED"));
    }

    // What a text, a list, an address in the web and a structure divide differs.
    void cada_propriedade_escreve_se_como_3_0_a_divide()
    {
        const QByteArray valor = "a,b;c\\n";
        for (const char *nome : {"FN", "NOTE", "TITLE", "ROLE", "TEL", "EMAIL", "LABEL", "BDAY", "TZ", "UID", "REV",
                                 "MAILER", "X-ABLABEL"})
            QCOMPARE(toVersion3(Um(Cartao(nome + (':' + valor) + "\r\n", "2.1"))),
                     Cartao(nome + QByteArray(":a\\,b\\;c\\n\r\n")));
        for (const char *nome : {"CATEGORIES", "NICKNAME"})
            QCOMPARE(toVersion3(Um(Cartao(nome + (':' + valor) + "\r\n", "2.1"))),
                     Cartao(nome + QByteArray(":a,b\\;c\\n\r\n")));
        for (const char *nome : {"N", "ADR", "ORG", "X-Y"})
            QCOMPARE(toVersion3(Um(Cartao(nome + (':' + valor) + "\r\n", "2.1"))),
                     Cartao(nome + QByteArray(":a\\,b;c\\n\r\n")));
        for (const char *cabeca : {"URL", "X-Y;VALUE=url", "X-Y;VALUE=URI"})
            QCOMPARE(toVersion3(Um(Cartao(cabeca + QByteArray(":http://a,b;c\r\n"), "2.1"))),
                     Cartao(cabeca + QByteArray(":http://a,b;c\r\n")));
    }

    void os_parametros_e_o_grupo_passam_e_os_bytes_dizem_que_o_sao()
    {
        QCOMPARE(toVersion3(Um(Cartao("a.TEL;CELL;X-P=q;CHARSET=utf-8:1\r\nPHOTO;JPEG;BASE64:/9j/4AAQ\r\n", "2.1"))),
                 Cartao("a.TEL;TYPE=CELL;X-P=q:1\r\nPHOTO;TYPE=JPEG;ENCODING=b:/9j/4AAQ\r\n"));
    }

    void um_cartao_de_3_0_ou_4_0_fica_como_esta()
    {
        for (const char *versao : {"3.0", "4.0"}) {
            const QByteArray bytes = Cartao("fn:Ana\r\nX-A;b=c: d\r\n", versao);
            QCOMPARE(toVersion3(Um(bytes)), bytes);
        }
    }
};

MORVEX_TESTE(TestCardVersion3)
#include "test_CardVersion3.moc"
