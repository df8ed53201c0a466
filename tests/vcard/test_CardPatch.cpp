// A kept card changes where it is told to and nowhere else, and two cards that say the same compare as equal.
#include "testlib/Teste.h"
#include "vcard/CardNormalForm.h"
#include "vcard/CardPatch.h"
#include "vcard/CardWriter.h"
#include "vcard/Cartoes.h"

using namespace Qt::StringLiterals;

namespace
{
Card Lido(const QByteArray &bytes)
{
    const CardFile ficheiro = CardReader().read(bytes);
    if (ficheiro.cards.empty()) qFatal("no card");
    return ficheiro.cards.front();
}

QByteArray Escrito(const QByteArray &nome, const QString &valor)
{
    CardWriter escritor;
    escritor.text(nome, valor);
    return escritor.lines();
}

const QByteArray guardado =
    "begin:vcard\nVERSION:3.0\r\n# de outro programa\nX-COR;Tom=\"a:b\":azul\r\n"
    "item1.TEL;type=CELL:91 2\r\nitem1.X-ABLabel:dela\r\nNOTE:lon\r\n ga\n\n"
    "item2.TEL:22\r\nitem2.X-ABLabel:loja\r\nitem2.X-ABADR:pt\r\nEMAIL:a@b.pt\nend:vcard";
} // namespace

class TestCardPatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void so_a_propriedade_dada_se_substitui_e_o_resto_fica_byte_por_byte()
    {
        const Card cartao = Lido(guardado);
        QByteArray esperado = guardado;
        esperado.replace("NOTE:lon\r\n ga\n", "NOTE:nova\r\n");
        QCOMPARE(patchedCard(cartao, cartao.all("NOTE"), Escrito("NOTE", u"nova"_s)), esperado);
    }

    void sem_nada_a_substituir_as_linhas_entram_antes_do_fim()
    {
        QByteArray esperado = guardado;
        esperado.replace("end:vcard", "URL:x\r\nend:vcard");
        QCOMPARE(patchedCard(Lido(guardado), {}, "URL:x\r\n"), esperado);
        QCOMPARE(patchedCard(Lido(guardado), {}, {}), guardado);
    }

    void antes_do_fim_e_antes_dele_em_qualquer_fim_de_linha_data()
    {
        QTest::addColumn<QByteArray>("fim");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
        QTest::newRow("CR CR LF") << QByteArray("\r\r\n");
    }
    void antes_do_fim_e_antes_dele_em_qualquer_fim_de_linha()
    {
        QFETCH(QByteArray, fim);
        const QByteArray inicio = "BEGIN:VCARD" + fim + "FN:Ana" + fim;
        const CardFile ficheiro = CardReader().read(inicio + "END:VCARD" + fim + Cartao("FN:Rui\r\n"));
        QCOMPARE(ficheiro.cards.size(), 2U);
        QCOMPARE(patchedCard(ficheiro.cards.front(), {}, "URL:x\r\n"), inicio + "URL:x\r\nEND:VCARD" + fim);
    }

    void a_linha_vazia_que_acaba_um_texto_citado_sai_com_ele()
    {
        const Card cartao = Lido(Cartao("NOTE;QUOTED-PRINTABLE:a=\r\n\r\nTEL:1\r\n"));
        QCOMPARE(patchedCard(cartao, cartao.all("NOTE"), Escrito("NOTE", u"b"_s)), Cartao("NOTE:b\r\nTEL:1\r\n"));
    }

    void um_rotulo_sem_grupo_nao_e_de_ninguem_e_fica()
    {
        const QByteArray inicio = "BEGIN:VCARD\r\n";
        const QByteArray fim = "X-ABLabel:solto\r\nEND:VCARD\r\n";
        const Card cartao = Lido(inicio + "TEL:1\r\n" + fim);
        QCOMPARE(patchedCard(cartao, cartao.all("TEL"), {}), inicio + fim);
    }

    void de_varias_do_mesmo_nome_sai_so_a_dada()
    {
        const Card cartao = Lido(guardado);
        QByteArray esperado = guardado;
        esperado.replace("item2.TEL:22\r\nitem2.X-ABLabel:loja\r\n", "TEL:23\r\n");
        QCOMPARE(patchedCard(cartao, {cartao.all("TEL").at(1)}, Escrito("TEL", u"23"_s)), esperado);
    }

    void o_rotulo_sai_com_a_ultima_propriedade_do_seu_grupo()
    {
        const Card cartao = Lido(Cartao("a.TEL:1\r\na.EMAIL:b@c\r\nA.X-ABLabel:casa\r\n"));
        QCOMPARE(patchedCard(cartao, cartao.all("TEL"), {}), Cartao("a.EMAIL:b@c\r\nA.X-ABLabel:casa\r\n"));
        std::vector<const CardProperty *> as_duas = cartao.all("TEL");
        as_duas.push_back(cartao.first("EMAIL"));
        QCOMPARE(patchedCard(cartao, as_duas, {}), Cartao({}));
    }

    void a_primeira_propriedade_de_um_cartao_conta_como_as_outras()
    {
        const QByteArray inicio = "BEGIN:VCARD\r\n";
        const QByteArray fim = "END:VCARD\r\n";
        const Card primeira = Lido(inicio + "a.TEL:1\r\na.EMAIL:b@c\r\na.X-ABLabel:casa\r\n" + fim);
        QCOMPARE(patchedCard(primeira, primeira.all("TEL"), "TEL:2\r\n"),
                 inicio + "TEL:2\r\na.EMAIL:b@c\r\na.X-ABLabel:casa\r\n" + fim);
        QCOMPARE(patchedCard(primeira, primeira.all("EMAIL"), {}),
                 inicio + "a.TEL:1\r\na.X-ABLabel:casa\r\n" + fim);
        const Card rotulo = Lido(inicio + "a.X-ABLabel:casa\r\na.TEL:1\r\nNOTE:x\r\n" + fim);
        QCOMPARE(patchedCard(rotulo, rotulo.all("TEL"), {}), inicio + "NOTE:x\r\n" + fim);
    }

    void um_cartao_com_outro_dentro_remenda_se_sem_o_outro()
    {
        const QByteArray ficheiro =
            "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:Ana\r\nX-A:1\r\nBEGIN:VCARD\r\nFN:Rui\r\nEND:VCARD\r\n"
            "TEL:1";
        const Card cartao = Lido(ficheiro);
        QVERIFY(!cartao.isWhole());
        QCOMPARE(cartao.source(), Cartao("FN:Ana\r\nX-A:1\r\nTEL:1\r\n"));
        QCOMPARE(patchedCard(cartao, cartao.all("TEL"), Escrito("TEL", u"2"_s)),
                 Cartao("FN:Ana\r\nX-A:1\r\nTEL:2\r\n"));
    }

    // What another card stood between comes together, and may not grow together.
    void ao_juntar_um_cartao_nenhuma_propriedade_continua_a_de_antes_data()
    {
        QTest::addColumn<QByteArray>("antes");
        QTest::addColumn<QByteArray>("depois");
        QTest::newRow("um espaço") << QByteArray("NOTE:um\r\n") << QByteArray("\r\n TEL:1\r\n");
        QTest::newRow("um tabulador") << QByteArray("NOTE:um\r\n") << QByteArray("\r\n\tTEL:1\r\n");
        QTest::newRow("uma quebra citada")
            << QByteArray("NOTE;QUOTED-PRINTABLE:um=\r\n") << QByteArray("COR:azul\r\n");
        QTest::newRow("uma imagem") << QByteArray("PHOTO;BASE64:iVBORw0K\r\n") << QByteArray("TEL\r\n :1\r\n");
        QTest::newRow("um fim de linha partido") << QByteArray("NOTE:um\r") << QByteArray("\n\r\nTEL:1\r\n");
    }
    void ao_juntar_um_cartao_nenhuma_propriedade_continua_a_de_antes()
    {
        QFETCH(QByteArray, antes);
        QFETCH(QByteArray, depois);
        const Card cartao = Lido("BEGIN:VCARD\r\n" + antes + Cartao("FN:Rui\r\n") + depois + "END:VCARD\r\n");
        QVERIFY(!cartao.isWhole());
        QCOMPARE(cartao.properties().size(), 2U);
        const Card relido = Lido(cartao.source());
        QCOMPARE(relido.properties().size(), 2U);
        for (std::size_t i = 0; i < 2; ++i) {
            QCOMPARE(relido.properties()[i].name(), cartao.properties()[i].name());
            QCOMPARE(relido.properties()[i].rawValue(), cartao.properties()[i].rawValue());
        }
    }

    void o_original_guarda_se_como_estava_no_ficheiro()
    {
        const CardFile ficheiro = CardReader().read("lixo\n" + Cartao("FN:Z\r\n") + guardado);
        QCOMPARE(ficheiro.cards.at(0).source(), Cartao("FN:Z\r\n"));
        QCOMPARE(ficheiro.cards.at(1).source(), guardado);
    }

    void os_grupos_novos_nao_se_juntam_aos_que_ha()
    {
        const Card cartao = Lido(guardado);
        QCOMPARE(firstFreeGroup(cartao), 3);
        CardWriter escritor(CardVersion::V30, firstFreeGroup(cartao));
        escritor.entry("TEL", {u"5"_s, {}, 101, u"praia"_s});
        const Card remendado = Lido(patchedCard(cartao, {}, escritor.lines()));
        const CardContent conteudo = contentOf(remendado);
        QCOMPARE(conteudo.phones.size(), 3U);
        QCOMPARE(conteudo.phones.at(0).label, u"dela"_s);
        QCOMPARE(conteudo.phones.at(2).label, u"praia"_s);
        QCOMPARE(firstFreeGroup(Lido(Cartao("FN:x\r\n"))), 1);
    }

    void um_cartao_reescrito_por_um_servidor_compara_se_igual()
    {
        const QByteArray original =
            Cartao("FN:Ana\\, a boa\r\nTEL;TYPE=home,CELL:1\r\nitem1.EMAIL:a@b\r\n"
                   "item1.X-ABLabel:casa\r\nNOTE:um\\Ndo\r\n is\r\nREV:1\r\nPRODID:x\r\n");
        const QByteArray reescrito =
            Cartao("PRODID:y\r\nITEM1.X-ABLABEL:casa\r\nitem1.email:a@b\r\n"
                   "tel;type=CELL;type=HOME:1\r\nNOTE;CHARSET=UTF-8:um\\ndois\r\nFN:Ana, a boa\r\n"
                   "REV:2\r\n");
        QCOMPARE(normalForm(Lido(original)), normalForm(Lido(reescrito)));
    }

    void a_maneira_de_escrever_um_texto_nao_conta_e_uma_quebra_nele_nao_e_outra_linha()
    {
        const auto forma = [](const QByteArray &linhas) { return normalForm(Lido(Cartao(linhas))); };
        QCOMPARE(forma("NOTE;ENCODING=QUOTED-PRINTABLE:um=C3=A1\r\n"), forma("NOTE:umá\r\n"));
        QVERIFY(forma("NOTE:um\\nTEL:1\r\n") != forma("NOTE:um\r\nTEL:1\r\n"));
    }

    void um_parametro_dito_duas_vezes_diz_o_mesmo_que_uma()
    {
        QCOMPARE(normalForm(Lido(Cartao("TEL;TYPE=home,cell;TYPE=HOME:1\r\n"))),
                 normalForm(Lido(Cartao("TEL;TYPE=cell;TYPE=home:1\r\n"))));
    }

    void uma_diferenca_a_serio_ve_se_na_comparacao_data()
    {
        QTest::addColumn<QByteArray>("outro");
        QTest::newRow("valor") << QByteArray("TEL;TYPE=home:2\r\nN:a;b\r\n");
        QTest::newRow("tipo") << QByteArray("TEL;TYPE=work:1\r\nN:a;b\r\n");
        QTest::newRow("mais uma") << QByteArray("TEL;TYPE=home:1\r\nN:a;b\r\nNOTE:x\r\n");
        QTest::newRow("separador que é texto") << QByteArray("TEL;TYPE=home:1\r\nN:a\\;b\r\n");
    }
    void uma_diferenca_a_serio_ve_se_na_comparacao()
    {
        QFETCH(QByteArray, outro);
        const QByteArray base = "TEL;TYPE=home:1\r\nN:a;b\r\n";
        QVERIFY(normalForm(Lido(Cartao(base))) != normalForm(Lido(Cartao(outro))));
    }
};

MORVEX_TESTE(TestCardPatch)
#include "test_CardPatch.moc"
