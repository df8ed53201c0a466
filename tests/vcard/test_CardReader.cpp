// How programs really write cards: encodings, line ends, folds, disguises, and files that are not whole.
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"
#include "vcard/CardLines.h"
#include "vcard/Cartoes.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;
using Kind = CardFault::Kind;

namespace
{
QByteArray Codificado(const QString &texto, QStringEncoder::Encoding qual)
{
    QStringEncoder codificador(qual);
    return codificador(texto);
}

QByteArray Ana(const QByteArray &fim = "\r\n")
{
    return "BEGIN:VCARD" + fim + "VERSION:3.0" + fim + "FN:Ana" + fim + "NOTE:um" + fim + "END:VCARD" + fim;
}

QString Nota(const QByteArray &linhas, const QByteArray &versao = "3.0")
{
    return Valores(Conteudo(linhas, versao).notes).join(u'|');
}
} // namespace

class TestCardReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_codificacao_do_ficheiro_ve_se_pela_marca_ou_pelos_zeros_data()
    {
        QTest::addColumn<QByteArray>("ficheiro");
        const QByteArray utf8 = Cartao("FN:Zé Ñandú\r\n");
        const QString texto = QString::fromUtf8(utf8);
        QTest::newRow("UTF-8 com marca") << "\xEF\xBB\xBF" + utf8;
        QTest::newRow("UTF-8 sem marca") << utf8;
        QTest::newRow("UTF-16 LE com marca") << "\xFF\xFE" + Codificado(texto, QStringEncoder::Utf16LE);
        QTest::newRow("UTF-16 BE com marca") << "\xFE\xFF" + Codificado(texto, QStringEncoder::Utf16BE);
        QTest::newRow("UTF-16 LE sem marca") << Codificado(texto, QStringEncoder::Utf16LE);
        QTest::newRow("UTF-16 BE sem marca") << Codificado(texto, QStringEncoder::Utf16BE);
    }
    void a_codificacao_do_ficheiro_ve_se_pela_marca_ou_pelos_zeros()
    {
        QFETCH(QByteArray, ficheiro);
        const CardFile lido = CardReader().read(ficheiro);
        QCOMPARE(Nomes(lido), QStringList{u"Zé Ñandú"_s});
        QVERIFY(lido.faults.empty());
    }

    void num_cartao_2_1_cada_propriedade_tem_a_sua_codificacao()
    {
        const CardContent lido = Conteudo("FN;CHARSET=windows-1251:\xC0\xED\xED\xE0\r\n"
                                          "NOTE;CHARSET=UTF-8:\xC3\xA9\r\n",
                                          "2.1");
        QCOMPARE(*lido.formattedName, u"Анна"_s);
        QCOMPARE(Valores(lido.notes), QStringList{u"é"_s});
        QCOMPARE(Conteudo("N;CHARSET=windows-1251:\xC0\xED\xED\xE0;\xC0\r\n", "2.1").name,
                 (CardName{u"Анна"_s, u"А"_s, {}, {}, {}}));
    }

    void uma_linha_acaba_em_qualquer_fim_de_linha_data()
    {
        QTest::addColumn<QByteArray>("fim");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("CR CR LF") << QByteArray("\r\r\n");
    }
    void uma_linha_acaba_em_qualquer_fim_de_linha()
    {
        QFETCH(QByteArray, fim);
        const CardFile lido = CardReader().read(Ana(fim) + Ana("\r\n") + Ana(fim));
        QCOMPARE(Nomes(lido), (QStringList{u"Ana"_s, u"Ana"_s, u"Ana"_s}));
        QCOMPARE(Valores(contentOf(lido.cards.front()).notes), QStringList{u"um"_s});
        QCOMPARE(lido.cards.at(1).line(), 6);
        const CardFile com_linha_vazia = CardReader().read(fim + Ana(fim));
        QCOMPARE(Nomes(com_linha_vazia), QStringList{u"Ana"_s});
        QCOMPARE(com_linha_vazia.cards.front().line(), 2);
        QVERIFY(com_linha_vazia.faults.empty());
    }

    // Behind the sign of a soft break a program may leave a few blanks, and not a line of them.
    void uma_quebra_citada_tem_oito_espacos_no_maximo()
    {
        const auto lido = [](qsizetype espacos) {
            return Conteudo("NOTE;QUOTED-PRINTABLE:ver=" + QByteArray(espacos, ' ') + "\r\nisto: sim\r\n", "2.1");
        };
        QCOMPARE(Valores(lido(8).notes), QStringList{u"veristo: sim"_s});
        QVERIFY(lido(8).others.empty());
        QCOMPARE(Valores(lido(9).notes), QStringList{u"ver"_s});
        QCOMPARE(lido(9).others.size(), 1U);
    }

    void um_igual_antes_de_uma_dobra_fica_onde_nada_e_citado()
    {
        QCOMPARE(Nota("NOTE:x=\r\n y\r\n"), u"x=y"_s);
        QCOMPARE(Nota("NOTE;QUOTED-PRINTABLE:=41b\r\n c\r\n"), u"Abc"_s);
    }

    void so_uma_linha_de_base_64_continua_uma_imagem_data()
    {
        QTest::addColumn<bool>("continua");
        for (const char *linha : {"a", "z", "A", "Z", "0", "9", "+", "/", "=", " QUI= "})
            QTest::newRow(linha) << true;
        for (const char *linha : {"A.B", "-", "_", "A B", "@", "["})
            QTest::newRow(linha) << false;
    }
    void so_uma_linha_de_base_64_continua_uma_imagem()
    {
        QFETCH(bool, continua);
        const QByteArray linha = QByteArray(QTest::currentDataTag());
        const CardFile lido = CardReader().read(Cartao("PHOTO;BASE64:QUJD\r\n" + linha + "\r\n", "2.1"));
        const QByteArray sinal = linha.startsWith(' ') ? linha.sliced(1) : linha; // a fold loses its blank
        QCOMPARE(lido.cards.front().first("PHOTO")->rawValue(), "QUJD" + QByteArray(continua ? "" : "\n") + sinal);
    }

    void uma_dobra_pode_partir_um_caracter() { QCOMPARE(Nota("NOTE:caf\xC3\r\n \xA9\r\n"), u"café"_s); }

    void a_dobra_perde_um_so_espaco()
    {
        QCOMPARE(Nota("NOTE:cidade\r\n  de\r\n \tPorto\r\n"), u"cidade de\tPorto"_s);
        QCOMPARE(Nota("NOTE:uma\r\n\t palavra\r\n"), u"uma palavra"_s);
    }

    void as_linhas_da_moldura_podem_ter_espacos_minusculas_e_dobras()
    {
        const QByteArray cartao = "begin : vcard  \r\nversion:3.0\r\nfn:Ana\r\nEnd:V\r\n CARD \r\n"
                                  "BEGIN:\r\n VCARD\r\nFN:Rui\r\nEND : VCARD\r\n";
        const CardFile lido = CardReader().read(cartao);
        QCOMPARE(Nomes(lido), (QStringList{u"Ana"_s, u"Rui"_s}));
        QVERIFY(lido.faults.empty());
    }

    void o_texto_citado_continua_sem_espaco_e_pode_parecer_uma_propriedade()
    {
        const CardContent lido = Conteudo("ADR;HOME;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=\r\n"
                                          ";=\r\n;=\r\nPra=C3=A7a 2;=\r\nUlm;=\r\nN;=\r\n89073;=\r\n\r\n"
                                          "FN;QUOTED-PRINTABLE:Ana=\r\n Sousa\r\n",
                                          "2.1");
        QCOMPARE(lido.addresses.size(), 1U);
        QCOMPARE(lido.addresses.front().street, u"Praça 2"_s);
        QCOMPARE(lido.addresses.front().city, u"Ulm"_s);
        QCOMPARE(lido.addresses.front().region, u"N"_s);
        QCOMPARE(lido.addresses.front().code, u"89073"_s);
        QCOMPARE(*lido.formattedName, u"Ana Sousa"_s);
        QCOMPARE(Nota("NOTE;QUOTED-PRINTABLE:ver =\r\nisto: sim\r\n", "2.1"), u"ver isto: sim"_s);
    }

    void um_igual_que_nao_esconde_nada_fica()
    {
        QCOMPARE(Nota("NOTE;QUOTED-PRINTABLE:x=y, 1 = 2, =4z=\r\n=41\r\n", "2.1"), u"x=y, 1 = 2, =4zA"_s);
    }

    // Behind a soft break a row is the text's, unless it is a property by its name.
    void depois_de_uma_quebra_citada_so_um_nome_conhecido_e_uma_propriedade_data()
    {
        QTest::addColumn<bool>("propriedade");
        for (const char *linha : {"TEL:1", "TEL;CELL:1", "b.TEL:1", ".TEL:1", "X-Y:1", "x-y:1"})
            QTest::newRow(linha) << true;
        for (const char *linha : {";b.TEL:1", "b.c.TEL:1", "TELX:1", "X-A B:1", "X:1", ":1", "TEL", "# b"})
            QTest::newRow(linha) << false;
    }
    void depois_de_uma_quebra_citada_so_um_nome_conhecido_e_uma_propriedade()
    {
        QFETCH(bool, propriedade);
        const QByteArray linha = QTest::currentDataTag();
        const QString nota = Nota("NOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n" + linha + "\r\n");
        QCOMPARE(nota, propriedade ? u"a"_s : u"a"_s + QString::fromLatin1(linha));
    }

    void um_igual_no_fim_nao_engole_a_propriedade_seguinte()
    {
        const CardContent lido = Conteudo("NOTE;ENCODING=QUOTED-PRINTABLE:fim=\r\n"
                                          "TEL;CELL:912345678\r\n"
                                          "NOTE;ENCODING=QUOTED-PRINTABLE:outro=\r\n"
                                          "item1.X-COR:azul\r\n"
                                          "NOTE;ENCODING=QUOTED-PRINTABLE:resto=\r\n",
                                          "2.1");
        QCOMPARE(Valores(lido.phones), QStringList{u"912345678"_s});
        QCOMPARE(Valores(lido.notes), (QStringList{u"fim"_s, u"outro"_s, u"resto"_s}));
        QCOMPARE(lido.others.size(), 1U);
    }

    void o_texto_citado_e_dividido_antes_de_ser_descodificado()
    {
        const CardContent lido =
            Conteudo("N;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:S=C3=\r\n=A1;Ana=3BMaria;;;\r\n", "2.1");
        QCOMPARE(lido.name->family, u"Sá"_s);
        QCOMPARE(lido.name->given, u"Ana;Maria"_s);
    }

    void lido_aos_poucos_um_ficheiro_da_o_mesmo_que_de_uma_vez()
    {
        const QByteArray ficheiro = Cartao("FN:Ana\r\nNOTE:dob\r\n rada\r\nsolta\r\nAGENT:\r\nBEGIN:VCARD\r\n"
                                           "FN:Agente\r\nEND:VCARD\r\nTEL;TYPE=\"a,b\":1\r\n") +
                                    "lixo\r\n" + Cartao("FN:Rui\r\n") + "BEGIN:VCARD\r\nFN:Fora\r\n" +
                                    Cartao("FN:Dentro\r\n") + "TEL:2\r\n" + Cartao("FN:Eva\r\n") +
                                    "\r\n \r\n";
        const CardFile inteiro = CardReader().read(ficheiro);
        QCOMPARE(inteiro.cards.size(), 5U);
        for (qsizetype bytes = 1; bytes < ficheiro.size(); ++bytes) {
            CardReading leitura(ficheiro);
            std::vector<Card> cartoes;
            for (bool ha_mais = true; ha_mais;) {
                const int antes = leitura.percent();
                ha_mais = leitura.advance(bytes);
                QVERIFY(leitura.percent() >= antes);
                for (Card &cartao : leitura.takeWhole())
                    cartoes.push_back(std::move(cartao));
            }
            QCOMPARE(leitura.percent(), 100);
            CardFile resto = leitura.take();
            for (Card &cartao : resto.cards)
                cartoes.push_back(std::move(cartao));
            QCOMPARE(cartoes.size(), inteiro.cards.size());
            for (std::size_t i = 0; i < cartoes.size(); ++i) {
                QCOMPARE(contentOf(cartoes[i]), contentOf(inteiro.cards[i]));
                QCOMPARE(cartoes[i].source(), inteiro.cards[i].source());
            }
            QCOMPARE(resto.faults, inteiro.faults);
        }
    }

    void uma_porcao_acaba_na_linha_que_a_completa()
    {
        CardReading leitura("BEGIN:VCARD\nVERSION:3.0\nFN:Ana\nEND:VCARD\n"); // of 12, 12, 7 and 10 bytes
        QCOMPARE(leitura.percent(), 0);
        QVERIFY(leitura.advance(12));
        QCOMPARE(leitura.percent(), 100 * 12 / 41);
        QVERIFY(leitura.advance(13));
        QCOMPARE(leitura.percent(), 100 * 31 / 41);
        QVERIFY(leitura.advance(1));
        QCOMPARE(leitura.percent(), 100);
        QVERIFY(!leitura.advance(1));
        QCOMPARE(CardReading({}).percent(), 100);
    }

    void um_cartao_so_e_inteiro_quando_nenhum_esta_aberto()
    {
        CardReading leitura("BEGIN:VCARD\r\nFN:Fora\r\n" + Cartao("FN:Dentro\r\n") +
                            "END:VCARD\r\nNOTE:x\r\n");
        int linhas = 0;
        std::vector<Card> cartoes;
        while (cartoes.empty() && leitura.advance(1)) {
            cartoes = leitura.takeWhole();
            ++linhas;
        }
        QCOMPARE(linhas, 7);
        QCOMPARE(cartoes.size(), 2U);
        QCOMPARE(contentOf(cartoes[0]).formattedName, u"Fora"_s);
        QVERIFY(leitura.takeWhole().empty());
    }

    // They are handed on to whoever keeps them, when the file may be gone.
    void os_bytes_de_uma_propriedade_nao_sao_os_do_ficheiro()
    {
        const QByteArray ficheiro = Cartao("X-A;TYPE=cOr:inteiro\r\n");
        const CardFile lido = CardReader().read(ficheiro);
        const CardProperty &propriedade = *lido.cards.front().first("X-A");
        const QByteArray bytes = propriedade.decodedBytes();
        QCOMPARE(bytes, QByteArray("inteiro"));
        QVERIFY(bytes.constData() < ficheiro.constBegin() || bytes.constData() >= ficheiro.constEnd());
        QCOMPARE(propriedade.types(), QStringList{u"cor"_s});
    }

    void uma_quebra_de_linha_citada_e_um_so_sinal_no_texto_e_em_cada_parte()
    {
        const CardContent lido = Conteudo("NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab\r\n"
                                          "ADR;ENCODING=QUOTED-PRINTABLE:;;Rua 1=0D=0A2.=BA;Beja;;;\r\n"
                                          "CATEGORIES;ENCODING=QUOTED-PRINTABLE:um=0D=0Adois,outro\r\n",
                                          "2.1");
        QCOMPARE(lido.notes.front().value, u"a\nb"_s);
        QCOMPARE(lido.addresses.front().street, u"Rua 1\n2.º"_s);
        QCOMPARE(lido.categories, (QStringList{u"um\ndois"_s, u"outro"_s}));
    }

    void a_codificacao_nomeada_vale_se_os_bytes_concordarem_data()
    {
        QTest::addColumn<QByteArray>("linha");
        QTest::addColumn<QString>("texto");
        QTest::newRow("Shift_JIS") << QByteArray("FN;CHARSET=Shift_JIS:\x95\x5C\x8E\xA6") << u"表示"_s;
        QTest::newRow("KOI8-R") << QByteArray("FN;CHARSET=KOI8-R:\xE1\xCE\xCE\xC1") << u"Анна"_s;
        QTest::newRow("desconhecida e UTF-8") << QByteArray("FN;CHARSET=blabla:\xC3\xA9") << u"é"_s;
        QTest::newRow("desconhecida e não UTF-8") << QByteArray("FN;CHARSET=Murks:M\xFCller") << u"Müller"_s;
        QTest::newRow("UTF-8 que o não é") << QByteArray("FN;CHARSET=UTF-8:M\xFCller") << u"Müller"_s;
        QTest::newRow("Latin-1 com aspas de Windows")
            << QByteArray("FN;CHARSET=ISO-8859-1:\x93x\x94") << u"“x”"_s;
        QTest::newRow("UTF-8 cortado")
            << QByteArray("FN:\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9\xC3") << u"éééé\uFFFD"_s;
    }
    void a_codificacao_nomeada_vale_se_os_bytes_concordarem()
    {
        QFETCH(QByteArray, linha);
        QFETCH(QString, texto);
        QCOMPARE(*Conteudo(linha + "\r\n", "2.1").formattedName, texto);
    }

    void sem_nome_nem_utf_8_vale_a_codificacao_que_a_pessoa_escolheu()
    {
        const QByteArray cartao = Cartao("FN:\xA3ukasz\r\n", "2.1");
        QCOMPARE(Nomes(CardReader().read(cartao)), QStringList{u"£ukasz"_s});
        QCOMPARE(Nomes(CardReader("windows-1250").read(cartao)), QStringList{u"Łukasz"_s});
    }

    void os_parametros_antigos_nao_tem_nome()
    {
        const CardContent lido = Conteudo("TEL;CELL;VOICE:1\r\n"
                                          "FN;QUOTED-PRINTABLE:S=E1\r\n"
                                          "PHOTO;BASE64:iVBORw0KGgo=\r\n",
                                          "2.1");
        QCOMPARE(lido.phones.front().types, (QStringList{u"cell"_s, u"voice"_s}));
        QCOMPARE(*lido.formattedName, u"Sá"_s);
        QCOMPARE(lido.photos.front().bytes, QByteArray("\x89PNG\r\n\x1A\n"));
    }

    void os_tipos_dizem_o_mesmo_nas_tres_formas_data()
    {
        QTest::addColumn<QByteArray>("cabeca");
        QTest::newRow("lista") << QByteArray("TEL;TYPE=home,CELL");
        QTest::newRow("repetidos") << QByteArray("TEL;TYPE=home;TYPE=cell");
        QTest::newRow("entre aspas") << QByteArray("TEL;type=\"HOME,cell\"");
    }
    void os_tipos_dizem_o_mesmo_nas_tres_formas()
    {
        QFETCH(QByteArray, cabeca);
        const CardContent lido = Conteudo(cabeca + ":1\r\n");
        QCOMPARE(lido.phones.front().types, (QStringList{u"cell"_s, u"home"_s}));
    }

    void dois_pontos_entre_aspas_nao_acabam_a_cabeca()
    {
        const CardContent lido = Conteudo("NOTE;X-A=\"um: dois; tres\";LANGUAGE=pt:texto\r\n"
                                          "TEL;X-A=\"aberta:123\r\n");
        QCOMPARE(Valores(lido.notes), QStringList{u"texto"_s});
        QCOMPARE(Valores(lido.phones), QStringList{u"123"_s});
    }

    void o_grupo_da_o_rotulo_a_qualquer_propriedade()
    {
        const CardContent lido = Conteudo("item1.TEL:1\r\nITEM1.X-ABLabel:_$!<Home>!$_\r\n"
                                          "item2.EMAIL:a@b.pt\r\nitem2.X-ABLABEL:Da mãe\r\n"
                                          "item3.URL:http://x\r\nitem3.X-ABLabel:blogue\r\n"
                                          "TEL:2\r\n");
        QCOMPARE(lido.phones.at(0).label, u"Home"_s);
        QCOMPARE(lido.emails.at(0).label, u"Da mãe"_s);
        QCOMPARE(lido.websites.at(0).label, u"blogue"_s);
        QCOMPARE(lido.phones.at(1).label, QString());
        QVERIFY(lido.others.empty());
    }

    void os_escapes_resolvem_se_e_outras_barras_ficam_data()
    {
        QTest::addColumn<QByteArray>("escrito");
        QTest::addColumn<QString>("texto");
        QTest::newRow("linhas") << QByteArray("a\\nb\\Nc") << u"a\nb\nc"_s;
        QTest::newRow("separadores") << QByteArray("a\\,b\\;c") << u"a,b;c"_s;
        QTest::newRow("barra") << QByteArray("a\\\\n") << u"a\\n"_s;
        QTest::newRow("dois pontos") << QByteArray("a\\:b") << u"a:b"_s;
        QTest::newRow("aspas") << QByteArray("\\\"a\\\"") << u"\"a\""_s;
        QTest::newRow("outra letra") << QByteArray("C:\\temp\\") << u"C:\\temp\\"_s;
    }
    void os_escapes_resolvem_se_e_outras_barras_ficam()
    {
        QFETCH(QByteArray, escrito);
        QFETCH(QString, texto);
        for (const char *versao : {"2.1", "3.0", "4.0"})
            QCOMPARE(Nota("NOTE:" + escrito + "\r\n", versao), texto);
    }

    void um_endereco_da_web_perde_as_barras_mesmo_dobradas()
    {
        const CardContent lido =
            Conteudo("URL:http\\://a.pt\r\nURL:http\\\\\\://b.pt\r\nURL:http\\\\://c.pt\r\n");
        QCOMPARE(Valores(lido.websites), (QStringList{u"http://a.pt"_s, u"http://b.pt"_s, u"http://c.pt"_s}));
    }

    void a_fotografia_le_se_em_todas_as_formas_data()
    {
        QTest::addColumn<QByteArray>("linhas");
        const QByteArray png = "iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB";
        const QByteArray meio = png.first(16) + "\r\n";
        QTest::newRow("dobrada") << "PHOTO;ENCODING=b;TYPE=PNG:" + meio + " " + png.sliced(16) + "\r\n";
        QTest::newRow("sem espaço até uma linha vazia")
            << "PHOTO;PNG;ENCODING=BASE64:\r\n" + meio + png.sliced(16) + "\r\n\r\n";
        QTest::newRow("data: com codificação") << "PHOTO;ENCODING=b:data:image/png;base64," + png + "\r\n";
        QTest::newRow("data: escapado") << "PHOTO;VALUE=uri:data:image/png\\;base64\\," + png + "\r\n";
        QTest::newRow("binário sem codificação") << "PHOTO;VALUE=BINARY:" + png + "\r\n";
        QTest::newRow("sem palavra nenhuma") << "PHOTO:" + png + "\r\n";
        QTest::newRow("diz que é um endereço") << "PHOTO;VALUE=uri;TYPE=PNG:" + png + "\r\n";
    }
    void a_fotografia_le_se_em_todas_as_formas()
    {
        QFETCH(QByteArray, linhas);
        const CardContent lido = Conteudo(linhas + "FN:Ana\r\n");
        QCOMPARE(lido.photos.size(), 1U);
        QCOMPARE(lido.photos.front().bytes, QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB"));
        QCOMPARE(*lido.formattedName, u"Ana"_s);
    }

    void uma_fotografia_traz_os_bytes_em_qualquer_disfarce_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("PHOTO;ENCODING=QUOTED-PRINTABLE:GIF8=39a") << QByteArray("GIF89a");
        QTest::newRow("PHOTO;ENCODING=b:Pw==") << QByteArray("?"); // of no known kind
        QTest::newRow("PHOTO;VALUE=uri:data:\\,GIF8\\;\\:\\,%39") << QByteArray("GIF8;:,9");
    }
    void uma_fotografia_traz_os_bytes_em_qualquer_disfarce()
    {
        const CardContent lido = Conteudo(QByteArray(QTest::currentDataTag()) + "\r\n");
        QCOMPARE(lido.photos.size(), 1U);
        QTEST(lido.photos.front().bytes, "bytes");
    }

    void uma_fotografia_noutro_lugar_fica_um_endereco()
    {
        const CardContent lido = Conteudo("PHOTO;VALUE=uri:http://a.pt/x.jpg\r\n"
                                          "PHOTO;ENCODING=b:https://b.pt/y.png\r\nPHOTO:\r\n"
                                          "PHOTO;VALUE=uri:file:///etc/passwd\r\n");
        QCOMPARE(lido.photos.size(), 3U);
        QCOMPARE(lido.photos.at(0), (CardPhoto{{}, u"http://a.pt/x.jpg"_s}));
        QCOMPARE(lido.photos.at(1), (CardPhoto{{}, u"https://b.pt/y.png"_s}));
        QCOMPARE(lido.photos.at(2), (CardPhoto{{}, u"file:///etc/passwd"_s}));
    }

    void uma_linha_sem_dois_pontos_continua_o_valor_e_um_cardinal_e_comentario()
    {
        QCOMPARE(Nota("NOTE:rua um\r\nporta dois\r\n# escrito por alguém\r\ne três\r\nFN:Ana\r\n"),
                 u"rua um\nporta dois\ne três"_s);
        QCOMPARE(Nota("NOTE:ver\r\numa frase: com dois pontos\r\n"), u"ver\numa frase: com dois pontos"_s);
    }

    void o_cartao_de_um_agente_nao_conta()
    {
        for (const QByteArray &abertura :
             QByteArrayList{"AGENT:\r\nBEGIN:VCARD\r\n", "AGENT:BEGIN:VCARD\r\n"}) {
            const CardFile lido = CardReader().read(
                Cartao("FN:Ana\r\n" + abertura + "FN:Rui\r\nTEL:1\r\nEND:VCARD\r\nTEL:2\r\n", "2.1"));
            QCOMPARE(Nomes(lido), QStringList{u"Ana"_s});
            QCOMPARE(Valores(contentOf(lido.cards.front()).phones), QStringList{u"2"_s});
            QVERIFY(lido.faults.empty());
        }
    }

    void onde_falta_um_fim_todos_os_cartoes_se_entregam_por_ordem()
    {
        const CardFile lido = CardReader().read("BEGIN:VCARD\nFN:Ana\nBEGIN:VCARD\nFN:Rui\nEND:VCARD\n"
                                                "BEGIN:VCARD\nFN:Eva\nTEL:3\n");
        QCOMPARE(Nomes(lido), (QStringList{u"Ana"_s, u"Rui"_s, u"Eva"_s}));
        QCOMPARE(lido.faults, (std::vector<CardFault>{{1, Kind::EndMissing}, {6, Kind::EndMissing}}));
    }

    void uma_propriedade_com_mais_de_16_MiB_fica_de_fora()
    {
        const QByteArray grande(CardLines::longestProperty + 1, 'a');
        const CardFile lido = CardReader().read(Cartao("FN:Ana\r\nNOTE:" + grande + "\r\nTEL:1\r\n") + Ana());
        QCOMPARE(Nomes(lido), (QStringList{u"Ana"_s, u"Ana"_s}));
        QCOMPARE(Valores(contentOf(lido.cards.front()).phones), QStringList{u"1"_s});
        QVERIFY(contentOf(lido.cards.front()).notes.empty());
        QCOMPARE(lido.faults, (std::vector<CardFault>{{4, Kind::PropertyTooLong}}));
    }

    // The line may be as long as that, head and all; a value that grows by stray rows as well, less a byte.
    void o_limite_de_16_MiB_e_exacto_data()
    {
        QTest::addColumn<QByteArray>("meio");
        QTest::addColumn<int>("a_mais"); // bytes of the file that the limit does not count
        QTest::newRow("numa linha") << QByteArray("a") << 0;
        QTest::newRow("dobrada") << QByteArray("a\r\n ") << 3;
        QTest::newRow("por linhas soltas") << QByteArray("\r\n~") << 6;
    }
    void o_limite_de_16_MiB_e_exacto()
    {
        QFETCH(QByteArray, meio);
        QFETCH(int, a_mais);
        constexpr qsizetype limite = qsizetype{16} * 1024 * 1024;
        for (const int demais : {0, 1}) {
            QByteArray linha = "NOTE:" + meio;
            linha += QByteArray(limite + a_mais + demais - linha.size(), 'a');
            const CardFile lido = CardReader().read(Cartao(linha + "\r\nTEL:1\r\n"));
            QCOMPARE(lido.faults.size(), demais == 0 ? 0U : 1U);
        }
    }

    void uma_propriedade_de_varias_linhas_tem_o_mesmo_limite_data()
    {
        QTest::addColumn<QByteArray>("cabeca");
        QTest::addColumn<QByteArray>("dobra");
        QTest::newRow("dobrada") << QByteArray("NOTE:") << QByteArray("\r\n ");
        QTest::newRow("citada") << QByteArray("NOTE;QUOTED-PRINTABLE:") << QByteArray("=\r\n");
        QTest::newRow("fotografia sem espaços") << QByteArray("PHOTO;BASE64:") << QByteArray("\r\n");
    }
    void uma_propriedade_de_varias_linhas_tem_o_mesmo_limite()
    {
        QFETCH(QByteArray, cabeca);
        QFETCH(QByteArray, dobra);
        const QByteArray linhas = cabeca + (QByteArray(100000, 'a') + dobra).repeated(170) + "\r\n";
        const CardFile lido = CardReader().read(Cartao(linhas + "FN:Ana\r\n"));
        QCOMPARE(Nomes(lido), QStringList{u"Ana"_s});
        QCOMPARE(lido.cards.front().properties().size(), 2U);
        QCOMPARE(lido.faults, (std::vector<CardFault>{{3, Kind::PropertyTooLong}}));
    }

    void linhas_soltas_sem_fim_param_no_mesmo_limite()
    {
        const QByteArray linhas =
            "NOTE:x\r\n" + (QByteArray(100000, ' ') + "~\r\n").sliced(1).prepend('~').repeated(170);
        const CardFile lido = CardReader().read(Cartao(linhas + "FN:Ana\r\n"));
        QCOMPARE(Nomes(lido), QStringList{u"Ana"_s});
        QCOMPARE(lido.faults.size(), 1U);
        QCOMPARE(lido.faults.front().kind, Kind::PropertyTooLong);
        QVERIFY(lido.cards.front().first("NOTE")->rawValue().size() <= CardLines::longestProperty);
    }

    void uma_linha_solta_nao_se_junta_ao_que_esta_antes_de_outro_cartao_ou_do_que_ficou_de_fora()
    {
        const CardFile lido = CardReader().read(
            Cartao("NOTE:um\r\nAGENT:\r\nBEGIN:VCARD\r\nFN:Rui\r\nEND:VCARD\r\nsolta\r\nTEL:1\r\nNOTE:" +
                   QByteArray(CardLines::longestProperty + 1, 'a') + "\r\nperdida\r\n"));
        QCOMPARE(lido.cards.size(), 1U);
        const CardContent conteudo = contentOf(lido.cards.front());
        QCOMPARE(Valores(conteudo.notes), QStringList{u"um"_s});
        QCOMPARE(Valores(conteudo.phones), QStringList{u"1"_s});
        QCOMPARE(CardReader().read(lido.cards.front().source()).cards.size(), 1U);
    }

    void uma_linha_solta_atras_de_um_cartao_no_meio_nao_e_de_ninguem()
    {
        const CardFile lido = CardReader().read(Cartao("NOTE:um\r\n" + Ana() + "solta\r\nTEL:1\r\nsolta\r\n"));
        QCOMPARE(lido.cards.size(), 2U);
        QCOMPARE(Valores(contentOf(lido.cards.front()).notes), QStringList{u"um"_s});
        QCOMPARE(Valores(contentOf(lido.cards.front()).phones), QStringList{u"1\nsolta"_s});
        QVERIFY(lido.faults.empty());
    }

    void um_cartao_nao_tem_mais_de_5000_propriedades()
    {
        QByteArray linhas = "FN:Ana\r\n";
        for (int i = 0; i < 6000; ++i)
            linhas += "TEL:" + QByteArray::number(i) + "\r\n";
        const CardFile lido = CardReader().read(Cartao(linhas) + Ana());
        QCOMPARE(lido.cards.size(), 2U);
        QCOMPARE(lido.cards.front().properties().size(), 5000U);
        QCOMPARE(lido.faults, (std::vector<CardFault>{{1, Kind::TooManyProperties}}));
    }

    void desdobrar_leva_um_tempo_proporcional_ao_tamanho_data()
    {
        QTest::addColumn<QByteArray>("cabeca");
        QTest::addColumn<QByteArray>("dobra");
        QTest::newRow("fotografia") << QByteArray("PHOTO;ENCODING=b:") << QByteArray("AAAA\r\n ");
        QTest::newRow("espaços") << QByteArray("NOTE;QUOTED-PRINTABLE:") << QByteArray("\r\n    ");
        QTest::newRow("citado") << QByteArray("NOTE;QUOTED-PRINTABLE:") << QByteArray("=\r\na");
        QTest::newRow("sem dois pontos") << QByteArray("NOTE") << QByteArray("=\r\n ");
        QTest::newRow("linhas soltas") << QByteArray("NOTE:") << QByteArray("\r\nA");
        QTest::newRow("só CR") << QByteArray("NOTE:") << QByteArray("\r\rab");
        QTest::newRow("parâmetros") << QByteArray("NOTE") << QByteArray(";\"A=\"");
        QTest::newRow("aspas abertas") << QByteArray("NOTE") << QByteArray(";\"");
        QTest::newRow("cartões abertos") << QByteArray("NOTE:\r\n") << QByteArray("BEGIN:VCARD\r\n");
    }
    void desdobrar_leva_um_tempo_proporcional_ao_tamanho()
    {
        QFETCH(QByteArray, cabeca);
        QFETCH(QByteArray, dobra);
        const auto tempo = [&](int vezes) {
            const QByteArray ficheiro = Cartao(cabeca + dobra.repeated(vezes) + "\r\nFN:Ana\r\n");
            return Tempo_Gasto([&] { CardReader().read(ficheiro); }, 2);
        };
        constexpr int poucas = 20000;
        constexpr int vezes = 16;
        constexpr double medida = 1000; // below a millisecond the clock says nothing
        // Sixteen times as much would take 256 times as long if each fold were paid for by those before it.
        QVERIFY(tempo(poucas * vezes) < std::max(tempo(poucas), medida) * vezes * 5);
    }

    void um_cartao_estragado_nao_para_o_ficheiro_e_a_sua_linha_fica_dita()
    {
        const QByteArray ficheiro = "lixo\r\nmais: lixo\r\n" + Ana() +
                                    "BEGIN:VCARD\r\nVERSION:3.0\r\nEND:VCARD\r\n" + "TEL:perdido\r\n" + Ana();
        const CardFile lido = CardReader().read(ficheiro);
        QCOMPARE(lido.cards.size(), 3U);
        QCOMPARE(Nomes(lido), (QStringList{u"Ana"_s, QString(), u"Ana"_s}));
        QCOMPARE(lido.faults,
                 (std::vector<CardFault>{
                     {1, Kind::OutsideOfCard}, {8, Kind::NothingInIt}, {11, Kind::OutsideOfCard}}));
    }

    void o_que_um_programa_diz_de_si_nao_diz_nada_de_ninguem()
    {
        const CardFile lido = CardReader().read(Cartao("PRODID:x\r\nREV:1\r\n") + "BEGIN:VCARD\r\nVERSION:3.0\r\n");
        QCOMPARE(lido.faults, (std::vector<CardFault>{
                                  {1, Kind::NothingInIt}, {6, Kind::EndMissing}, {6, Kind::NothingInIt}}));
    }

    void um_ficheiro_vazio_nao_tem_cartoes()
    {
        for (const auto *bytes : {"", "\r\n\r\n", "\xEF\xBB\xBF"}) {
            const CardFile lido = CardReader().read(bytes);
            QVERIFY(lido.cards.empty());
            QVERIFY(lido.faults.empty());
        }
    }
};

MORVEX_TESTE(TestCardReader)
#include "test_CardReader.moc"
