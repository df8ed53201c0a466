// The head of a line taken apart: names, parameters, encodings, types; and the disguises of a value.
#include "vcard/CardDate.h"
#include "vcard/CardDecoding.h"
#include "vcard/CardGroups.h"
#include "vcard/CardPhoto.h"
#include "vcard/CardProperty.h"
#include "vcard/CardText.h"

#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
CardProperty Propriedade(const QByteArray &linha)
{
    static const auto nenhuma = std::make_shared<const QByteArray>();
    return CardProperty(CardHead(linha), linha, {}, nenhuma);
}
} // namespace

class TestCardProperty : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void os_nomes_do_formato_conhecem_se_em_quaisquer_letras()
    {
        const QByteArrayList nomes =
            QByteArray(
                "BEGIN END VERSION FN N NICKNAME PHOTO BDAY ADR LABEL TEL EMAIL MAILER TZ GEO TITLE ROLE "
                "LOGO AGENT ORG NOTE REV SOUND URL UID KEY CATEGORIES CLASS PRODID SORT-STRING IMPP KIND "
                "MEMBER SOURCE GENDER LANG ANNIVERSARY RELATED FBURL CALURI")
                .split(' ');
        QCOMPARE(nomes.size(), 40);
        for (const QByteArray &nome : nomes) {
            QVERIFY2(isKnownCardProperty(nome) && isKnownCardProperty(nome.toLower()), nome);
            QVERIFY2(!isKnownCardProperty(nome + 'X') && !isKnownCardProperty("X-" + nome), nome);
        }
        QVERIFY(!isKnownCardProperty(""));
    }

    void uma_cabeca_tem_um_nome_de_letras_algarismos_e_tracos_data()
    {
        QTest::addColumn<QByteArray>("linha");
        QTest::addColumn<QByteArray>("nome"); // none for what is no head
        QTest::addColumn<QByteArray>("grupo");
        const auto linha = [](const char *texto, const char *nome, const char *grupo = "") {
            QTest::newRow(texto) << QByteArray(texto) << QByteArray(nome) << QByteArray(grupo);
        };
        linha("tel:1", "TEL");
        linha("X-a_Z-09:1", "X-A_Z-09");
        linha(" TEL ;CELL:1", "TEL");
        linha("item1.TEL:1", "TEL", "item1");
        linha("a.b.TEL:1", "TEL", "a.b");
        linha(" a . TEL:1", "TEL", "a");
        linha(".TEL:1", "TEL");
        linha("x-az:1", "X-AZ");
        linha("TEL,CELL:1", "TEL");
        linha("N,CELL:1", "N");
        linha("X-TEL,CELL:1", "");
        linha(",CELL:1", "");
        linha("TEL X:1", "");
        linha("TEL/:1", "");
        linha("TEL@:1", "");
        linha("TEL[:1", "");
        linha("TEL`:1", "");
        linha("TEL{:1", "");
        linha("[TEL:1", "");
        linha(":1", "");
        linha("TEL", "");
        linha("", "");
    }
    void uma_cabeca_tem_um_nome_de_letras_algarismos_e_tracos()
    {
        QFETCH(QByteArray, linha);
        const CardHead cabeca(linha);
        QTEST(cabeca.name(), "nome");
        QTEST(cabeca.group(), "grupo");
        QCOMPARE(cabeca.isWhole(), !cabeca.name().isEmpty());
        QCOMPARE(cabeca.length(), cabeca.isWhole() ? linha.indexOf(':') : -1);
    }

    void uma_cabeca_tem_64_KiB_no_maximo()
    {
        const auto com = [](qsizetype bytes) { return CardHead("X" + QByteArray(bytes - 1, 'a') + ":1"); };
        QVERIFY(com(64 * 1024 - 1).isWhole()); // with the colon
        QVERIFY(!com(64 * 1024).isWhole());
    }

    void as_aspas_guardam_dois_pontos_e_pontos_e_virgulas_se_se_fecham()
    {
        QCOMPARE(CardHead("TEL;X=\"a:b;c\";Y=d:1").values("X"), QByteArrayList{"a:b;c"});
        QCOMPARE(CardHead("TEL;X=\"a:b;c\";Y=d:1").value("Y"), QByteArray("d"));
        QCOMPARE(CardHead("TEL;X=\"a:b\":1").length(), 11);
        QCOMPARE(CardHead("TEL;X=\"a:1").length(), 8); // never closed
        QCOMPARE(CardHead("TEL;X=a,\"b,c\" ,d:1").values("X"), (QByteArrayList{"a", "b,c", "d"}));
        QCOMPARE(CardHead("TEL;X=\"a\",\"b\":1").values("X"), (QByteArrayList{"a", "b"}));
        QCOMPARE(CardHead("TEL;X=a,b,:1").values("X"), (QByteArrayList{"a", "b", ""}));
        QCOMPARE(CardHead("TEL;X=\" a \":1").value("X"), QByteArray(" a "));
        QCOMPARE(CardHead("TEL;=x:1").values("TYPE"), QByteArrayList{"=x"});
        QCOMPARE(CardHead("TEL;X=a;X=b:1").values("X"), (QByteArrayList{"a", "b"}));
        QCOMPARE(CardHead("TEL;X=a;X=b:1").value("X"), QByteArray("a"));
        QVERIFY(CardHead("TEL;X=a:1").value("Y").isEmpty() && CardHead("TEL;X=a:1").values("Y").isEmpty());
        QCOMPARE(CardHead("TEL;;X=a:1").parameters().size(), 1U);
        QCOMPARE(CardHead("TEL; type = home :1").value("TYPE"), QByteArray("home"));
    }

    void uma_palavra_sem_nome_diz_de_que_fala_data()
    {
        QTest::addColumn<QByteArray>("nome");
        for (const char *palavra : {"QUOTED-PRINTABLE", "BASE64", "B", "8BIT", "7BIT", "base64"})
            QTest::newRow(palavra) << QByteArray("ENCODING");
        for (const char *palavra : {"URL", "URI", "INLINE", "CONTENT-ID", "CID", "url"})
            QTest::newRow(palavra) << QByteArray("VALUE");
        for (const char *palavra : {"CELL", "HOME", "PREF", "Q", "BINARY"})
            QTest::newRow(palavra) << QByteArray("TYPE");
    }
    void uma_palavra_sem_nome_diz_de_que_fala()
    {
        QFETCH(QByteArray, nome);
        const QByteArray palavra = QTest::currentDataTag();
        QCOMPARE(CardHead("NOTE;" + palavra + ":x").value(nome), palavra);
    }

    void o_disfarce_do_valor_diz_se_de_muitas_maneiras_data()
    {
        QTest::addColumn<bool>("citado");
        QTest::addColumn<bool>("base64");
        QTest::newRow("ENCODING=QUOTED-PRINTABLE") << true << false;
        QTest::newRow("encoding=quoted-printable") << true << false;
        QTest::newRow("ENCODING=Q") << true << false;
        QTest::newRow("QUOTED-PRINTABLE") << true << false;
        QTest::newRow("ENCODING=BASE64") << false << true;
        QTest::newRow("ENCODING=b") << false << true;
        QTest::newRow("BASE64") << false << true;
        QTest::newRow("VALUE=BINARY") << false << true;
        QTest::newRow("VALUE=binary") << false << true;
        QTest::newRow("VALUE=BINARY;ENCODING=8BIT") << false << false;
        QTest::newRow("ENCODING=8BIT") << false << false;
        QTest::newRow("ENCODING=8BIT;ENCODING=Q") << true << false;
        QTest::newRow("TYPE=B") << false << false;
        QTest::newRow("VALUE=URI") << false << false;
    }
    void o_disfarce_do_valor_diz_se_de_muitas_maneiras()
    {
        const CardHead cabeca("NOTE;" + QByteArray(QTest::currentDataTag()) + ":x");
        QTEST(cabeca.isQuotedPrintable(), "citado");
        QTEST(cabeca.isBase64(), "base64");
    }

    void a_preferencia_vai_de_1_a_100_e_101_e_nenhuma_data()
    {
        QTest::addColumn<int>("preferencia");
        QTest::newRow("TEL;PREF=1") << 1;
        QTest::newRow("TEL;PREF=0") << 1;
        QTest::newRow("TEL;PREF=-3") << 1;
        QTest::newRow("TEL;PREF=99") << 99;
        QTest::newRow("TEL;PREF=100") << 100;
        QTest::newRow("TEL;PREF=101") << 100;
        QTest::newRow("TEL;PREF=yes") << 1;
        QTest::newRow("TEL;TYPE=pref") << 1;
        QTest::newRow("TEL;PREF") << 1;
        QTest::newRow("TEL;TYPE=home") << 101;
        QTest::newRow("TEL") << 101;
    }
    void a_preferencia_vai_de_1_a_100_e_101_e_nenhuma()
    {
        QTEST(Propriedade(QByteArray(QTest::currentDataTag()) + ":1").preference(), "preferencia");
    }

    void os_tipos_vem_em_minusculas_por_ordem_e_uma_vez()
    {
        const QByteArrayList usuais{"cell",   "fax",  "home",  "internet", "main",
                                    "mobile", "pref", "voice", "work"};
        for (const QByteArray &tipo : usuais)
            QCOMPARE(Propriedade("TEL;TYPE=" + tipo.toUpper() + ":1").types(),
                     QStringList{QString::fromLatin1(tipo)});
        QCOMPARE(Propriedade("TEL;WORK;TYPE=\"Home, cell,,\";TYPE=ÇA,home;X=fax:1").types(),
                 (QStringList{u"cell"_s, u"home"_s, u"work"_s, u"ça"_s}));
        for (const QByteArray &quase : QByteArrayList{"celm", "homf", "faxx", "wor", "fay"})
            QCOMPARE(Propriedade("TEL;TYPE=" + quase + ":1").types(), QStringList{QString::fromLatin1(quase)});
        QCOMPARE(Propriedade("TEL:1").types(), QStringList{});
    }

    void o_valor_divide_se_onde_nao_esta_escapado()
    {
        QCOMPARE(Propriedade("N:a\\;b;c,d;;e").parts(), (QStringList{u"a;b"_s, u"c,d"_s, u""_s, u"e"_s}));
        QCOMPARE(Propriedade("X:a\\,b,c;d").list(), (QStringList{u"a,b"_s, u"c;d"_s}));
        QCOMPARE(Propriedade("N;QUOTED-PRINTABLE:a=3Bb;c=0D=0Ad").parts(),
                 (QStringList{u"a;b"_s, u"c\nd"_s}));
        QCOMPARE(Propriedade("X;BASE64:QU I=").decodedBytes(), QByteArray("AB"));
        QCOMPARE(Propriedade("X;QUOTED-PRINTABLE:=41=\r\nB").decodedBytes(), QByteArray("AB"));
        QCOMPARE(Propriedade("X:=41").decodedBytes(), QByteArray("=41"));
    }

    void um_igual_so_esconde_o_que_lhe_segue_se_for_um_codigo_data()
    {
        QTest::addColumn<QByteArray>("lido");
        const auto linha = [](const char *escrito, const char *lido) {
            QTest::newRow(escrito) << QByteArray(lido);
        };
        linha("=4A=4a=0F=f0", "JJ\x0F\xF0");
        linha("=/1=:1=@1=G1=`1=g1", "=/1=:1=@1=G1=`1=g1");
        linha("=1/=1G=1g", "=1/=1G=1g");
        linha("a=4", "a=4");
        linha("a=", "a");
        linha("a= \t", "a");
        linha("a=\nb", "ab");
        linha("a=\r\nb", "ab");
        linha("a=\rb", "ab");
        linha("a= \t\r\nb", "ab");
        linha("a= b", "a= b");
    }
    void um_igual_so_esconde_o_que_lhe_segue_se_for_um_codigo()
    {
        QTEST(decodedQuotedPrintable(QTest::currentDataTag()), "lido");
    }

    void uma_barra_so_esconde_os_sinais_que_dividem()
    {
        QCOMPARE(unescapedCardText(u"a\\nb\\Nc\\,d\\;e\\:f\\\"g\\\\h\\xi\\"), u"a\nb\nc,d;e:f\"g\\h\\xi\\"_s);
        QCOMPARE(unescapedCardText(u"a,b"), u"a,b"_s);
    }

    void o_que_nao_e_base_64_nao_da_nada()
    {
        QCOMPARE(decodedBase64("QUI="), QByteArray("AB"));
        QCOMPARE(decodedBase64(" Q U\tI\r\n"), QByteArray("AB"));
        QCOMPARE(decodedBase64("QUI*"), QByteArray());
    }

    void um_uid_vale_sem_o_que_lhe_poem_a_frente()
    {
        QCOMPARE(plainUid(u" urn:uuid:a-b "_s), u"a-b"_s);
        QCOMPARE(plainUid(u"URN:UUID:a-b"_s), u"a-b"_s);
        QCOMPARE(plainUid(u"uuid:a-b"_s), u"uuid:a-b"_s);
    }

    void uma_virgula_antes_do_primeiro_parametro_vale_um_ponto_e_virgula()
    {
        const CardProperty telefone = Propriedade("TEL,CELL;X-P=,a,\"b\":1");
        QCOMPARE(telefone.name(), QByteArray("TEL"));
        QCOMPARE(telefone.types(), QStringList{u"cell"_s});
        QCOMPARE(telefone.head().values("X-P"), (QByteArrayList{"", "a", "b"}));
        QCOMPARE(telefone.text(), u"1"_s);
    }

    void uma_virgula_a_cabeca_nao_acaba_a_lista_dos_tipos()
    {
        QCOMPARE(Propriedade("TEL;TYPE=\",home\":1").types(), QStringList{u"home"_s});
        QCOMPARE(Propriedade("TEL;TYPE=\"work,,home,\":1").types(), (QStringList{u"home"_s, u"work"_s}));
    }

    void o_formato_de_uma_imagem_ve_se_pelos_primeiros_bytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const auto linha = [](const char *formato, const char *rotulo, const QByteArray &bytes) {
            QTest::newRow(rotulo) << bytes << QByteArray(formato);
        };
        QTest::addColumn<QByteArray>("formato");
        linha("jpeg", "JPEG", "\xFF\xD8\xFF");
        linha("png", "PNG", "\x89PNG");
        linha("gif", "GIF", "GIF89a");
        linha("bmp", "BMP", "BM...");
        linha("webp", "WebP", "RIFF....WEBP");
        linha("tiff", "TIFF de Intel", QByteArray("II*\0", 4));
        linha("tiff", "TIFF de Motorola", QByteArray("MM\0*", 4));
        linha("", "um som", "RIFF....WAVE");
        linha("", "RIFF cortado", "RIFF....WEB");
        linha("", "só o fim", "XIFF....WEBP");
        linha("", "TIFF às avessas", QByteArray("II\0*", 4));
        linha("", "nada", "");
    }
    void o_formato_de_uma_imagem_ve_se_pelos_primeiros_bytes()
    {
        QFETCH(QByteArray, bytes);
        QTEST(pictureKind(bytes), "formato");
    }

    void uma_data_por_preencher_nao_diz_nada() { QCOMPARE(CardDate(), (CardDate{0, 0, 0})); }

    void um_grupo_diz_que_o_e()
    {
        QVERIFY(isGroupKind(Propriedade("KIND:group")));
        QVERIFY(isGroupKind(Propriedade("X-ADDRESSBOOKSERVER-KIND: Group ")));
        QVERIFY(!isGroupKind(Propriedade("KIND:individual")));
        QVERIFY(!isGroupKind(Propriedade("ROLE:group")));
    }

    // A name that says less than what programs write under it stands for the code page.
    void a_codificacao_nomeada_toma_se_pelo_que_os_programas_escrevem_data()
    {
        QTest::addColumn<QByteArray>("tomada");
        for (const char *nome : {"iso-8859-1", "ISO-8859-1", "latin1", "us-ascii", "ascii", "ansi", " ANSI "})
            QTest::newRow(nome) << QByteArray("windows-1252");
        for (const char *nome : {"windows-1250", "koi8-r"})
            QTest::newRow(nome) << QByteArray(nome);
        for (const char *nome : {"utf-8", "UTF8", "mais-nenhuma"}) // which these bytes are not
            QTest::newRow(nome) << QByteArray("de reserva");
    }
    void a_codificacao_nomeada_toma_se_pelo_que_os_programas_escrevem()
    {
        QTEST(charsetOfCardBytes("Jos\xE9", QTest::currentDataTag(), "de reserva"), "tomada");
    }

    void uns_poucos_sinais_estragados_nao_tiram_o_utf_8()
    {
        const QByteArray certos = "é€😀";
        QCOMPARE(charsetOfCardBytes(certos + '\xE9', {}, "x"), QByteArray()); // three of four
        QCOMPARE(charsetOfCardBytes("éé\xE9", {}, "x"), QByteArray("x"));     // two of three are too few
        QCOMPARE(charsetOfCardBytes("ééé\xE9", {}, "x"), QByteArray());
        QCOMPARE(charsetOfCardBytes("é\xE2\x82", {}, "x"), QByteArray("x")); // one cut short
        QCOMPARE(charsetOfCardBytes("\xE9ééé", {}, "x"), QByteArray());
        QCOMPARE(charsetOfCardBytes("é\x80", {}, "x"), QByteArray("x"));
        QCOMPARE(charsetOfCardBytes("abc", {}, "x"), QByteArray());
        // The first and the last character of two, three and four bytes.
        for (const char *sinal : {"\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xEF\x80\x80", "\xF0\x90\x80\x80",
                                  "\xF4\x8F\xBF\xBF"})
            QCOMPARE(charsetOfCardBytes(QByteArray(sinal).repeated(3) + '\xE9', {}, "x"), QByteArray());
        QCOMPARE(charsetOfCardBytes("\xC1\xBF\xF5\x80\x80\x80", {}, "x"), QByteArray("x"));
    }

    void os_zeros_de_uma_cabeca_dizem_que_e_utf_16()
    {
        QCOMPARE(plainCardBytes("\xEF\xBB\xBFNOTE"), QByteArray("NOTE"));
        QCOMPARE(plainCardBytes(QByteArray("A\0B\0", 4)), QByteArray("AB"));
        QCOMPARE(plainCardBytes(QByteArray("\0A\0B", 4)), QByteArray("AB"));
        QCOMPARE(plainCardBytes(QByteArray("A\0", 2)), QByteArray("A\0", 2));
        QCOMPARE(plainCardBytes(QByteArray("\xFF\xFE"
                                           "A\0",
                                           4)),
                 QByteArray("A"));
        QCOMPARE(plainCardBytes(QByteArray("\xFE\xFF\0A", 4)), QByteArray("A"));
        QCOMPARE(plainCardBytes(QByteArray("\xFE\xFF\xFE\xFF\0A", 6)), QByteArray("A")); // told twice
        QCOMPARE(plainCardBytes(QByteArray("A\0B\0CD", 6)), QByteArray("AB䑃"));
        // A third is enough, and only the first 64 bytes are looked at.
        const QByteArray um("\0a", 2);
        QCOMPARE(plainCardBytes(um.repeated(21) + QByteArray(22, 'a') + um.repeated(9)).size(),
                 21 * 2 + 22 + 9 * 2);
        QCOMPARE(plainCardBytes(um.repeated(22) + QByteArray(20, 'a')).size(), 22 + 10 * 3);
    }
};

MORVEX_TESTE(TestCardProperty)
#include "test_CardProperty.moc"
