// What of a card is put into a code, and what is left out for want of room.
#include "interchange/ConteudoDoQR.h"
#include "testlib/Teste.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

namespace
{
CardContent De_Volta(const QByteArray &bytes)
{
    const CardFile ficheiro = CardReader().read(bytes);
    if (ficheiro.cards.size() != 1 || !ficheiro.faults.empty()) qFatal("not one card without a fault");
    return contentOf(ficheiro.cards.front());
}

const QByteArray tudo = "UID:u-1\r\nFN:Ana Maria Sá\r\nN:Sá;Ana;Maria;;\r\nNICKNAME:Nita\r\n"
                        "TEL;TYPE=CELL:911\r\nitem1.TEL;TYPE=HOME:211\r\nitem1.X-ABLabel:Da praia\r\n"
                        "EMAIL:a@b\r\nORG:Firma;Loja\r\nURL:http://x/?a=1,2\r\n"
                        "ADR;TYPE=HOME:;;Rua A;Porto;;4000;\r\nLABEL:Rua A\r\nNOTE:segredo\r\n"
                        "BDAY:1975-03-04\r\nCATEGORIES:Família\r\nX-COISA:coisa\r\n"
                        "PHOTO;ENCODING=b;TYPE=PNG:iVBORw0KGgo=\r\n";
} // namespace

class TestConteudoDoQR : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leva_o_que_um_telefone_usa_e_mais_nada()
    {
        const QByteArray bytes = Conteudo_Do_QR(Conteudo(tudo));
        QVERIFY(bytes.startsWith("BEGIN:VCARD\r\nVERSION:3.0\r\n"));
        const CardContent lido = De_Volta(bytes);
        QCOMPARE(lido.formattedName, u"Ana Maria Sá"_s);
        QCOMPARE(lido.name, (CardName{u"Sá"_s, u"Ana"_s, u"Maria"_s, {}, {}}));
        QCOMPARE(Valores(lido.phones), (QStringList{u"911"_s, u"211"_s}));
        QCOMPARE(lido.phones[0].types, QStringList{u"cell"_s});
        QCOMPARE(Valores(lido.emails), QStringList{u"a@b"_s});
        QCOMPARE(lido.organisation, (QStringList{u"Firma"_s, u"Loja"_s}));
        QCOMPARE(Valores(lido.websites), QStringList{u"http://x/?a=1,2"_s});
        QCOMPARE(lido.addresses.size(), std::size_t{1});
        QCOMPARE(lido.addresses[0].city, u"Porto"_s);
        for (const QByteArray nunca : {"NOTE", "segredo", "PHOTO", "UID", "NICKNAME", "BDAY", "CATEGORIES",
                                       "X-COISA", "LABEL", "X-ABLabel", "item"})
            QVERIFY2(!bytes.contains(nunca), nunca);
    }

    void a_firma_vem_antes_da_pagina_e_esta_antes_da_morada()
    {
        CardContent cheio = Conteudo(tudo);
        const QString longo(200, u'x'); // of which one finds room
        cheio.organisation = {longo};
        cheio.websites[0].value = longo;
        cheio.addresses[0].street = longo;
        const CardContent com_firma = De_Volta(Conteudo_Do_QR(cheio));
        QCOMPARE(com_firma.organisation, QStringList{longo});
        QVERIFY(com_firma.websites.empty() && com_firma.addresses.empty());
        cheio.organisation.clear();
        const CardContent com_pagina = De_Volta(Conteudo_Do_QR(cheio));
        QCOMPARE(Valores(com_pagina.websites), QStringList{longo});
        QVERIFY(com_pagina.addresses.empty());
        cheio.websites.clear();
        QCOMPARE(De_Volta(Conteudo_Do_QR(cheio)).addresses.front().street, longo);
    }

    void o_que_nao_cabe_nao_tira_o_lugar_ao_que_vem_depois()
    {
        CardContent cheio = Conteudo(tudo);
        cheio.organisation = {QString(600, u'x')};
        const CardContent lido = De_Volta(Conteudo_Do_QR(cheio));
        QVERIFY(lido.organisation.isEmpty());
        QCOMPARE(lido.websites.size(), std::size_t{1});
        QCOMPARE(lido.addresses.size(), std::size_t{1});
    }

    void fica_abaixo_de_quinhentos_bytes_com_o_que_quer_que_seja()
    {
        for (const char16_t *letra : {u"a", u"ã", u"漢", u"😀"}) {
            CardContent cheio;
            cheio.formattedName = QString::fromUtf16(letra).repeated(10'000);
            cheio.name = CardName{*cheio.formattedName, *cheio.formattedName, {}, {}, {}};
            CardEntry entrada;
            for (int i = 0; i < 200; ++i) {
                entrada.value = QString::number(900'000'000 + i);
                cheio.phones.push_back(entrada);
                entrada.value = QString::fromUtf16(letra).repeated(i) + u"@x"_s;
                cheio.emails.push_back(entrada);
            }
            const QByteArray bytes = Conteudo_Do_QR(cheio);
            QVERIFY2(bytes.size() < 500, QByteArray::number(bytes.size()));
            const CardContent lido = De_Volta(bytes);
            QVERIFY(cheio.formattedName->startsWith(*lido.formattedName));
            QVERIFY(lido.formattedName->size() >= 54);
        }
    }

    void quatrocentos_e_noventa_e_nove_ainda_cabem()
    {
        CardContent pagina;
        pagina.formattedName = u"Ana"_s;
        CardEntry entrada;
        qsizetype maior = 0;
        for (int letras = 100; letras < 500; ++letras) {
            entrada.value = QString(letras, u'x');
            pagina.websites = {entrada};
            const QByteArray bytes = Conteudo_Do_QR(pagina);
            if (bytes.contains("URL")) maior = std::max(maior, bytes.size());
        }
        QCOMPARE(maior, qsizetype{499});
    }

    void um_cartao_sem_nome_nem_valores_tem_o_que_se_ve_em_vez_do_nome()
    {
        CardContent vazio;
        CardEntry entrada;
        entrada.value = u"911"_s;
        vazio.phones = {CardEntry(), entrada};
        vazio.emails = {CardEntry()};
        const QByteArray bytes = Conteudo_Do_QR(vazio);
        QCOMPARE(De_Volta(bytes).formattedName, u"911"_s);
        QCOMPARE(bytes.count("TEL"), 1);
        QVERIFY(!bytes.contains("EMAIL"));
    }
};

MORVEX_TESTE(TestConteudoDoQR)
#include "test_ConteudoDoQR.moc"
