// Cards as they are written: what the format asks for, and nothing lost when they are read again.
#include "testlib/Teste.h"
#include "vcard/CardWriter.h"
#include "vcard/Cartoes.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace
{
CardContent Completo()
{
    CardContent c;
    c.formattedName = u"Dr. Ana Maria Sá; Filha"_s;
    c.name = CardName{u"Sá"_s, u"Ana, a"_s, u"Maria"_s, u"Dr."_s, u"Filha\\x"_s};
    c.nicknames = {u"Nita"_s, u"A,B"_s};
    c.organisation = {u"Firma; Lda"_s, u"Loja"_s};
    c.phones = {{u"+351 912 345 678"_s, {u"cell"_s}, 1, {}},
                {u"221234567"_s, {u"fax"_s, u"work"_s}, 101, u"Da loja"_s},
                {u"1"_s, {}, 101, {}}};
    c.emails = {{u"ana@exemplo.pt"_s, {u"home"_s}, 101, {}}};
    c.websites = {{u"http://exemplo.pt/a,b;c?d=\\e"_s, {}, 101, u"blogue"_s}};
    c.notes = {{u"um\ndois\n\n\"três\" \\n"_s, {}, 101, {}}};
    c.addresses = {
        {{}, {}, u"R. da Sé, 1\nFrente"_s, u"Porto"_s, {}, u"4000-001"_s, u"PT"_s, {u"home"_s}, 101, {}}};
    c.birthdays = {{u"1975-03-04"_s, CardDate{4, 3, 1975}}};
    c.categories = {u"Família"_s, u"Casa, jardim"_s};
    c.photos = {{QByteArray::fromBase64("iVBORw0KGgoAAAANSUhEUgAAAAEAAAAB"), {}}};
    c.uid = u"urn:uuid:1;2,3"_s;
    return c;
}

CardContent Relido(const CardContent &conteudo, CardVersion versao)
{
    const CardFile ficheiro = CardReader().read(writtenCard(conteudo, versao));
    if (ficheiro.cards.size() != 1 || !ficheiro.faults.empty()) qFatal("the written card cannot be read");
    return contentOf(ficheiro.cards.front());
}

// What the versions write differently and mean alike.
CardContent Sem_Formas(CardContent conteudo)
{
    for (CardEntry &telefone : conteudo.phones)
        telefone.types.removeAll(u"pref"_s);
    for (CardBirthday &aniversario : conteudo.birthdays)
        if (aniversario.date) aniversario.text.clear();
    return conteudo;
}

QByteArrayList Linhas(const QByteArray &cartao) { return cartao.split('\n'); }
} // namespace

class TestCardWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_que_se_escreve_le_se_igual_data()
    {
        QTest::addColumn<int>("versao");
        QTest::newRow("3.0") << static_cast<int>(CardVersion::V30);
        QTest::newRow("4.0") << static_cast<int>(CardVersion::V40);
    }
    void o_que_se_escreve_le_se_igual()
    {
        QFETCH(int, versao);
        const CardContent lido = Relido(Completo(), static_cast<CardVersion>(versao));
        QVERIFY(Sem_Formas(lido) == Sem_Formas(Completo()));
        QVERIFY(lido.others.empty());
    }

    void a_versao_3_0_e_a_de_omissao_e_diz_se()
    {
        QVERIFY(writtenCard(Completo()).startsWith("BEGIN:VCARD\r\nVERSION:3.0\r\n"));
        QVERIFY(writtenCard(Completo(), CardVersion::V40).startsWith("BEGIN:VCARD\r\nVERSION:4.0\r\n"));
        QVERIFY(writtenCard(Completo()).endsWith("\r\nEND:VCARD\r\n"));
    }

    void as_linhas_tem_75_octetos_no_maximo_e_dobram_entre_caracteres()
    {
        for (int deslocamento = 0; deslocamento < 8; ++deslocamento) {
            CardContent conteudo;
            conteudo.formattedName = u"Ana"_s;
            const QString texto = QString(deslocamento, u'x') + u"é€😀ção"_s.repeated(40);
            conteudo.notes = {{texto, {}, 101, {}}};
            const QByteArray cartao = writtenCard(conteudo);
            bool dobrou = false;
            for (QByteArray linha : Linhas(cartao).mid(0, Linhas(cartao).size() - 1)) {
                QVERIFY(linha.endsWith('\r'));
                linha.chop(1);
                QVERIFY(linha.size() <= 75);
                dobrou = dobrou || linha.size() > 70;
                QVERIFY(QUtf8StringView(linha).isValidUtf8());
            }
            QVERIFY(dobrou);
            QCOMPARE(Relido(conteudo, CardVersion::V30).notes.front().value, texto);
        }
    }

    void uma_linha_so_se_dobra_quando_esta_cheia()
    {
        CardContent conteudo;
        conteudo.formattedName = u"Ana"_s;
        conteudo.notes = {{QString(75 + 74 + 74 - 5, u'x'), {}, 101, {}}}; // "NOTE:" comes before it
        QList<qsizetype> octetos;
        for (const QByteArray &linha : Linhas(writtenCard(conteudo)))
            if (linha.contains("xx")) octetos << linha.trimmed().size() + (linha.startsWith(' ') ? 1 : 0);
        QCOMPARE(octetos, (QList<qsizetype>{75, 75, 75}));
    }

    void nenhum_caracter_de_controlo_se_escreve()
    {
        CardContent conteudo = Completo();
        conteudo.notes = {{u"a\tb\u0001c\r\nd\re\u007Ff\u0085"_s, {}, 101, u"um\nrótulo\u0007"_s}};
        conteudo.websites = {{u"http://a\r\nTEL:1"_s, {u"ho\r\nme"_s}, 101, {}}};
        const CardContent lido = Relido(conteudo, CardVersion::V30);
        QCOMPARE(lido.notes.front().value, u"a bc\nd\nef"_s);
        QCOMPARE(lido.notes.front().label, u"um\nrótulo"_s);
        QCOMPARE(lido.phones.size(), 3U);
        const QByteArray escrito = writtenCard(conteudo).replace("\r\n", "");
        for (const char byte : escrito)
            QVERIFY(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F);
    }

    void os_separadores_de_um_texto_escapam_se_e_os_de_um_endereco_da_web_nao()
    {
        CardWriter escritor;
        escritor.text("NOTE", u"a,b;c\\d\ne"_s);
        escritor.uri("URL", u"http://a/?b,c;d"_s);
        QCOMPARE(escritor.lines(), QByteArray("NOTE:a\\,b\\;c\\\\d\\ne\r\nURL:http://a/?b,c;d\r\n"));
    }

    void um_aniversario_sem_ano_escreve_se_como_cada_versao_o_le()
    {
        CardWriter tres(CardVersion::V30);
        tres.birthday({29, 2, 0});
        QCOMPARE(tres.lines(), QByteArray("BDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29\r\n"));
        CardWriter quatro(CardVersion::V40);
        quatro.birthday({4, 3, 0});
        quatro.birthday({4, 3, 1975});
        QCOMPARE(quatro.lines(), QByteArray("BDAY:--0304\r\nBDAY:19750304\r\n"));
    }

    void um_aniversario_que_nao_e_uma_data_escreve_se_como_texto()
    {
        CardContent conteudo;
        conteudo.formattedName = u"Ana"_s;
        conteudo.birthdays = {{u"na Primavera"_s, {}}};
        for (const CardVersion versao : {CardVersion::V30, CardVersion::V40})
            QVERIFY(writtenCard(conteudo, versao).contains("\r\nBDAY;VALUE=text:na Primavera\r\n"));
    }

    void um_fim_de_linha_no_fim_do_texto_e_um_so()
    {
        for (const QString &fim : {u"\r\n"_s, u"\n"_s, u"\r"_s}) {
            CardWriter escritor;
            escritor.text("NOTE", u"a"_s + fim);
            QCOMPARE(escritor.lines(), QByteArray("NOTE:a\\n\r\n"));
        }
    }

    void os_tipos_e_a_preferencia_escrevem_se_como_cada_versao_os_quer()
    {
        const CardEntry telefone{u"1"_s, {u"cell"_s, u"pref"_s, u"x y:z"_s}, 1, {}};
        CardWriter tres(CardVersion::V30);
        tres.entry("TEL", telefone);
        QCOMPARE(tres.lines(), QByteArray("TEL;TYPE=CELL,\"X Y:Z\",PREF:1\r\n"));
        CardWriter quatro(CardVersion::V40);
        quatro.entry("TEL", telefone);
        QCOMPARE(quatro.lines(), QByteArray("TEL;PREF=1;TYPE=cell,\"x y:z\":1\r\n"));
    }

    void a_menor_das_preferencias_ainda_se_escreve_e_um_rotulo_tem_o_seu_grupo()
    {
        CardWriter quatro(CardVersion::V40);
        quatro.entry("TEL", {u"1"_s, {}, 100, {}});
        quatro.entry("TEL", {u"2"_s, {}, 101, u"loja"_s});
        quatro.entry("TEL", {u"3"_s, {}, 101, u"casa"_s});
        QCOMPARE(quatro.lines(), QByteArray("TEL;PREF=100:1\r\nitem1.X-ABLabel:loja\r\nitem1.TEL:2\r\n"
                                            "item2.X-ABLabel:casa\r\nitem2.TEL:3\r\n"));
    }

    void um_tipo_de_uma_so_palavra_dispensa_as_aspas()
    {
        CardWriter quatro(CardVersion::V40);
        quatro.entry("TEL", {u"1"_s, {u"a-b"_s, u"a_b"_s, u"a/b"_s, u"a.b"_s, u"a+b"_s, u"a1"_s}, 101, {}});
        QCOMPARE(quatro.lines(), QByteArray("TEL;TYPE=a-b,a_b,a/b,a.b,\"a+b\",a1:1\r\n"));
    }

    void a_fotografia_vai_nos_seus_bytes_ou_no_seu_endereco()
    {
        const CardPhoto bytes{"GIF89a", {}};
        const CardPhoto endereco{{}, u"http://a/x.png"_s};
        CardWriter tres(CardVersion::V30);
        tres.photo(bytes);
        tres.photo(endereco);
        QCOMPARE(tres.lines(),
                 QByteArray("PHOTO;ENCODING=b;TYPE=GIF:R0lGODlh\r\nPHOTO;VALUE=uri:http://a/x.png\r\n"));
        CardWriter quatro(CardVersion::V40);
        quatro.photo(bytes);
        quatro.photo({"?", {}});
        quatro.photo(endereco);
        QCOMPARE(quatro.lines(), QByteArray("PHOTO:data:image/gif;base64,R0lGODlh\r\n"
                                            "PHOTO:data:application/octet-stream;base64,Pw==\r\n"
                                            "PHOTO:http://a/x.png\r\n"));
    }

    void ha_sempre_um_nome_e_na_versao_3_0_tambem_as_suas_partes()
    {
        CardContent conteudo;
        conteudo.formattedName = u"  "_s;
        QVERIFY(writtenCard(conteudo).contains("\r\nFN:?\r\n"));
        conteudo.formattedName = u"Ana Maria  Sousa"_s;
        QVERIFY(writtenCard(conteudo).contains("\r\nN:Sousa;Ana Maria;;;\r\n"));
        QVERIFY(!writtenCard(conteudo, CardVersion::V40).contains("\r\nN:"));
        conteudo.formattedName = u"Firma"_s;
        QVERIFY(writtenCard(conteudo).contains("\r\nN:;Firma;;;\r\n"));
    }

    // 4.0 knows a label only as the street of an address, and has no use for it beside one.
    void um_rotulo_de_morada_escreve_se_como_cada_versao_o_conhece()
    {
        CardContent conteudo;
        conteudo.formattedName = u"Ana"_s;
        conteudo.addressLabels = {u"Rua 1\nBeja"_s};
        const QByteArray rotulo = "LABEL:Rua 1\\nBeja\r\n";
        const QByteArray morada = "ADR:;;Rua 1\\nBeja;;;;\r\n";
        QVERIFY(writtenCard(conteudo).contains(rotulo));
        QVERIFY(!writtenCard(conteudo).contains("ADR"));
        QVERIFY(writtenCard(conteudo, CardVersion::V40).contains(morada));
        QVERIFY(!writtenCard(conteudo, CardVersion::V40).contains("LABEL"));
        conteudo.addresses = {{{}, {}, u"Rua 2"_s, {}, {}, {}, {}, {}, 101, {}}};
        QVERIFY(writtenCard(conteudo).contains("ADR:;;Rua 2;;;;\r\n" + rotulo));
        QCOMPARE(writtenCard(conteudo, CardVersion::V40).count("ADR"), 1);
        QVERIFY(!writtenCard(conteudo, CardVersion::V40).contains("Rua 1"));
    }

    void um_grupo_escreve_se_como_cada_versao_o_conhece()
    {
        CardContent grupo;
        grupo.formattedName = u"Família"_s;
        grupo.isGroup = true;
        grupo.members = {u"a1"_s};
        QVERIFY(writtenCard(grupo).contains("X-ADDRESSBOOKSERVER-MEMBER:urn:uuid:a1\r\n"));
        QVERIFY(writtenCard(grupo, CardVersion::V40).contains("\r\nMEMBER:urn:uuid:a1\r\n"));
        for (const CardVersion versao : {CardVersion::V30, CardVersion::V40}) {
            QVERIFY(Relido(grupo, versao).isGroup);
            QCOMPARE(Relido(grupo, versao).members, grupo.members);
        }
    }
};

MORVEX_TESTE(TestCardWriter)
#include "test_CardWriter.moc"
