// What a card says of a person: names, dates, preferences, groups.
#include "testlib/Teste.h"
#include "vcard/CardGroups.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

class TestCardContent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_aniversario_le_se_em_todas_as_formas_data()
    {
        QTest::addColumn<QByteArray>("linha");
        QTest::addColumn<int>("dia");
        QTest::addColumn<int>("mes");
        QTest::addColumn<int>("ano");
        QTest::newRow("com traços") << QByteArray("BDAY:1975-03-04") << 4 << 3 << 1975;
        QTest::newRow("sem traços") << QByteArray("BDAY:19750304") << 4 << 3 << 1975;
        QTest::newRow("sem zeros") << QByteArray("BDAY:1975-3-4") << 4 << 3 << 1975;
        QTest::newRow("com hora") << QByteArray("BDAY:1975-03-04T12:00:00Z") << 4 << 3 << 1975;
        QTest::newRow("sem traços com hora") << QByteArray("BDAY:19750304T120000+0100") << 4 << 3 << 1975;
        QTest::newRow("sem ano") << QByteArray("BDAY:--0304") << 4 << 3 << 0;
        QTest::newRow("sem ano com traço") << QByteArray("BDAY:--03-04") << 4 << 3 << 0;
        QTest::newRow("1604 com parâmetro")
            << QByteArray("BDAY;X-APPLE-OMIT-YEAR=1604:1604-02-29") << 29 << 2 << 0;
        QTest::newRow("outro ano a omitir")
            << QByteArray("BDAY;X-APPLE-OMIT-YEAR=1896:1896-02-29") << 29 << 2 << 0;
        QTest::newRow("outro ano que não o dito")
            << QByteArray("BDAY;X-APPLE-OMIT-YEAR=1604:1975-03-04") << 4 << 3 << 1975;
        QTest::newRow("1604 só") << QByteArray("BDAY:1604-03-04") << 4 << 3 << 0;
    }
    void o_aniversario_le_se_em_todas_as_formas()
    {
        QFETCH(QByteArray, linha);
        QFETCH(int, dia);
        QFETCH(int, mes);
        QFETCH(int, ano);
        const CardContent lido = Conteudo(linha + "\r\n");
        QCOMPARE(lido.birthdays.size(), 1U);
        QCOMPARE(lido.birthdays.front().date, (CardDate{dia, mes, ano}));
    }

    void o_que_nao_e_uma_data_fica_texto_data()
    {
        QTest::addColumn<QByteArray>("linha");
        QTest::addColumn<QString>("texto");
        QTest::newRow("texto") << QByteArray("BDAY;VALUE=text:1975-03-04 ou por aí")
                               << u"1975-03-04 ou por aí"_s;
        QTest::newRow("dia que não há") << QByteArray("BDAY:1975-02-29") << u"1975-02-29"_s;
        QTest::newRow("mês que não há") << QByteArray("BDAY:--1304") << u"--1304"_s;
        QTest::newRow("só o ano") << QByteArray("BDAY:1975") << u"1975"_s;
    }
    void o_que_nao_e_uma_data_fica_texto()
    {
        QFETCH(QByteArray, linha);
        QFETCH(QString, texto);
        const CardContent lido = Conteudo(linha + "\r\n");
        QCOMPARE(lido.birthdays.size(), 1U);
        QCOMPARE(lido.birthdays.front(), (CardBirthday{texto, {}}));
    }

    void sem_nome_formatado_fala_se_o_nome_ou_o_que_houver_data()
    {
        QTest::addColumn<QByteArray>("linhas");
        QTest::addColumn<QString>("nome");
        const QByteArray partes = "N:Sousa;Ana;Maria;Dr.;Jr.\r\n";
        QTest::newRow("formatado") << "FN:Aninhas\r\n" + partes << u"Aninhas"_s;
        QTest::newRow("o preferido") << QByteArray("FN:A\r\nFN;PREF=2:B\r\nFN;PREF=1:C\r\n") << u"C"_s;
        QTest::newRow("vazio") << "FN: \r\n" + partes << u"Dr. Ana Maria Sousa Jr."_s;
        QTest::newRow("sem ele") << partes << u"Dr. Ana Maria Sousa Jr."_s;
        QTest::newRow("alcunha") << QByteArray("N:;;;;\r\nEMAIL:a@b.pt\r\nORG:Firma\r\nNICKNAME:Nita,Ana\r\n")
                                 << u"Nita"_s;
        QTest::newRow("firma") << QByteArray("FN:\r\nTEL:1\r\nEMAIL:a@b.pt\r\nORG:Firma;Loja\r\n")
                               << u"Firma"_s;
        QTest::newRow("correio") << QByteArray("TEL:1\r\nEMAIL:a@b.pt\r\n") << u"a@b.pt"_s;
        QTest::newRow("número") << QByteArray("TEL:tel:+351-1\r\n") << u"+351-1"_s;
        QTest::newRow("nada") << QByteArray("NOTE:x\r\n") << QString();
    }
    void sem_nome_formatado_fala_se_o_nome_ou_o_que_houver()
    {
        QFETCH(QByteArray, linhas);
        QFETCH(QString, nome);
        QCOMPARE(shownName(Conteudo(linhas)), nome);
    }

    void um_grupo_nao_e_uma_pessoa_e_da_o_seu_nome_aos_membros()
    {
        const CardFile ficheiro = CardReader().read(
            Cartao("KIND:group\r\nFN:Família\r\nMEMBER:urn:uuid:a1\r\nMEMBER:b2\r\n", "4.0") +
            Cartao(
                "X-ADDRESSBOOKSERVER-KIND:GROUP\r\nFN:Clube\r\nX-ADDRESSBOOKSERVER-MEMBER:urn:uuid:b2\r\n") +
            Cartao("KIND:individual\r\nFN:Ana\r\nUID:a1\r\n", "4.0"));
        std::vector<CardContent> cartoes;
        for (const Card &cartao : ficheiro.cards)
            cartoes.push_back(contentOf(cartao));
        QVERIFY(cartoes.at(0).isGroup);
        QVERIFY(cartoes.at(1).isGroup);
        QVERIFY(!cartoes.at(2).isGroup);
        const auto grupos = groupsByMember(cartoes);
        QCOMPARE(grupos.value(plainUid(*cartoes.at(2).uid)), QStringList{u"Família"_s});
        QCOMPARE(grupos.value(u"b2"_s), (QStringList{u"Família"_s, u"Clube"_s}));
    }

    void so_um_rotulo_com_a_moldura_inteira_a_perde_data()
    {
        QTest::addColumn<QString>("rotulo");
        QTest::newRow("_$!<Home>!$_") << u"Home"_s;
        QTest::newRow("_$!<Home") << u"_$!<Home"_s;
        QTest::newRow("Home>!$_") << u"Home>!$_"_s;
        QTest::newRow("_$!<>!$_") << u""_s;
    }
    void so_um_rotulo_com_a_moldura_inteira_a_perde()
    {
        const QByteArray escrito = QTest::currentDataTag();
        QTEST(Conteudo("a.TEL:1\r\na.X-ABLabel:" + escrito + "\r\n").phones.front().label, "rotulo");
    }

    void o_preferido_vem_primeiro_e_os_outros_por_ordem()
    {
        const CardContent lido =
            Conteudo("TEL:1\r\nTEL;TYPE=pref:2\r\nTEL;PREF=50:3\r\nTEL;PREF:4\r\nTEL:5\r\n");
        QCOMPARE(byPreference(lido.phones), (std::vector<std::size_t>{1, 3, 2, 0, 4}));
        QCOMPARE(lido.phones.at(2).preference, 50);
        QCOMPARE(byPreference(Conteudo("TEL:1\r\nTEL;PREF=1:2\r\n").phones), (std::vector<std::size_t>{1, 0}));
        QCOMPARE(Conteudo("ADR:;;Rua\r\n").addresses.front().preference, CardAddress().preference);
    }

    void um_numero_escrito_como_endereco_le_se_como_numero()
    {
        QCOMPARE(phoneNumber(u"tel:+351-91%20234;ext=7"_s), u"+351-91 234 x7"_s);
        QCOMPARE(phoneNumber(u"TEL:112;phone-context=pt"_s), u"112"_s);
        QCOMPARE(phoneNumber(u"+351 912 345;7"_s), u"+351 912 345;7"_s);
    }

    void as_listas_dividem_se_nas_virgulas_que_nao_sao_texto()
    {
        const CardContent lido =
            Conteudo("CATEGORIES:Amigos,Casa\\, jardim, ,Clube\r\nCATEGORIES:Trabalho\r\n");
        QCOMPARE(lido.categories, (QStringList{u"Amigos"_s, u"Casa, jardim"_s, u"Clube"_s, u"Trabalho"_s}));
    }

    void uma_morada_tem_sete_partes_e_as_que_faltam_sao_vazias()
    {
        const CardContent lido =
            Conteudo("ADR;TYPE=home:cx;ext;R. \\; 1\\nFrente;Porto;N;4000;PT;a mais\r\nADR:;;Rua\r\n");
        const CardAddress &morada = lido.addresses.at(0);
        QCOMPARE(
            (QStringList{morada.box, morada.extended, morada.street, morada.city, morada.region, morada.code,
                         morada.country}),
            (QStringList{u"cx"_s, u"ext"_s, u"R. ; 1\nFrente"_s, u"Porto"_s, u"N"_s, u"4000"_s, u"PT"_s}));
        QCOMPARE(morada.types, QStringList{u"home"_s});
        QCOMPARE(lido.addresses.at(1).street, u"Rua"_s);
        QCOMPARE(lido.addresses.at(1).country, QString());
    }

    void o_que_nao_tem_lugar_proprio_fica_entre_os_outros()
    {
        const CardContent lido =
            Conteudo("TITLE:Chefe\r\nitem1.IMPP;TYPE=home:xmpp:a@b\r\nitem1.X-ABLabel:Jabber\r\n");
        QCOMPARE(lido.others.size(), 2U);
        QCOMPARE(lido.others.at(0), (OtherProperty{"TITLE", {u"Chefe"_s, {}, 101, {}}}));
        QCOMPARE(lido.others.at(1), (OtherProperty{"IMPP", {u"xmpp:a@b"_s, {u"home"_s}, 101, u"Jabber"_s}}));
    }

    void o_envelope_tem_o_seu_lugar_e_a_moldura_de_outra_coisa_nao_e_de_ninguem()
    {
        const CardContent lido = Conteudo("LABEL:Rua 1\\nBeja\r\nBEGIN:VEVENT\r\nNOTE:VCARD\r\nEND:VEVENT\r\n");
        QCOMPARE(lido.addressLabels, std::vector{u"Rua 1\nBeja"_s});
        QCOMPARE(Valores(lido.notes), QStringList{u"VCARD"_s});
        QVERIFY(lido.others.empty());
    }
};

MORVEX_TESTE(TestCardContent)
#include "test_CardContent.moc"
