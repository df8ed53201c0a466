// A contact as a new card, and as the card that was kept of it.
#include "cards/CartaoDoContacto.h"
#include "cards/ContactoDoCartao.h"
#include "cards/RotulosDoCartao.h"
#include "testlib/Teste.h"
#include "vcard/CardNormalForm.h"
#include "vcard/Cartoes.h"

#include <QBuffer>
#include <QImage>

using namespace Qt::StringLiterals;
using C = Coluna;

namespace
{
const QString ingles = u"InglesUK"_s;

Card Um_Cartao(const QByteArray &bytes)
{
    const CardFile ficheiro = CardReader().read(bytes);
    if (ficheiro.cards.size() != 1) qFatal("%zu cards and not one", ficheiro.cards.size());
    return ficheiro.cards.front();
}

ContactoLido Lido(const QByteArray &bytes, const QStringList &grupos = {}, const QString &idioma = ingles)
{
    return ContactoDoCartao(idioma, {grupos, {}, false}).Ler(Um_Cartao(bytes));
}

// As it stands in the book after its import.
ContactoParaCartao No_Livro(const QByteArray &bytes, const QStringList &grupos = {},
                            const QString &idioma = ingles)
{
    const ContactoLido lido = Lido(bytes, grupos, idioma);
    return {lido.colunas, lido.Grupo, {}, lido.Fotografia};
}

ContactoParaCartao Cheio()
{
    ContactoParaCartao contacto;
    ColunasDoContacto &c = contacto.colunas;
    c.valores = {u"Ana; Sá, \\ Lda"_s,
                 u"211"_s,
                 u"212"_s,
                 u"213"_s,
                 u"911"_s,
                 u"912"_s,
                 u"913"_s,
                 u"29"_s,
                 u"2"_s,
                 u"1980"_s,
                 u"a@b"_s,
                 u"c@d"_s,
                 u"http://x/?a=1,2;3"_s,
                 u"Rua A\r\n4000 Porto"_s,
                 u"uma nota\r\noutra; linha"_s,
                 {},
                 {}};
    contacto.Grupo = u"Família"_s;
    contacto.UID = u"u-1"_s;
    QImage imagem(2, 2, QImage::Format_RGB32);
    imagem.fill(Qt::red);
    QBuffer ficheiro(&contacto.Fotografia);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, "PNG");
    return contacto;
}

const QByteArray guardado =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:u-9\r\nFN:Ana Sá\r\nN:Sá;Ana;;;\r\n"
    "item1.TEL;TYPE=CELL;X-A=b:+351 911\r\nitem1.X-ABLabel:Meu\r\nTEL;TYPE=WORK:212\r\n"
    "TEL;TYPE=HOME:213\r\nTEL;TYPE=HOME:214\r\nEMAIL:a@b\r\nEMAIL:c@d\r\nEMAIL:e@f\r\n"
    "ADR;TYPE=WORK:;;Rua A;Porto;;4000;\r\nBDAY:1975-03-04\r\nNOTE:uma nota\r\n"
    "CATEGORIES:Família,Clube\r\nX-COISA;Y=z:coisa\r\nTITLE:Chefe\r\nEND:VCARD\r\n";
} // namespace

class TestCartaoDoContacto : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_contacto_volta_igual_de_um_cartao_novo()
    {
        for (const CardVersion versao : {CardVersion::V30, CardVersion::V40}) {
            ContactoParaCartao contacto = Cheio();
            const QByteArray bytes = CartaoDoContacto(ingles, versao).Novo(contacto);
            const ContactoLido lido = Lido(bytes, {u"Família"_s});
            QVERIFY(lido.colunas[C::Fotografia].startsWith(u"bd:"_s));
            QCOMPARE(lido.Fotografia, contacto.Fotografia);
            contacto.colunas[C::Fotografia] = lido.colunas[C::Fotografia];
            QCOMPARE(lido.colunas.valores, contacto.colunas.valores);
            QCOMPARE(lido.Grupo, u"Família"_s);
            QCOMPARE(contentOf(Um_Cartao(bytes)).uid, u"u-1"_s);
        }
    }

    void um_cartao_novo_por_inteiro()
    {
        ContactoParaCartao contacto = Cheio();
        contacto.Fotografia.clear();
        QCOMPARE(CartaoDoContacto(ingles).Novo(contacto),
                 Cartao("UID:u-1\r\nFN:Ana\\; Sá\\, \\\\ Lda\r\nN:Lda;Ana\\; Sá\\, \\\\;;;\r\n"
                        "TEL;TYPE=HOME,VOICE:211\r\nTEL;TYPE=WORK,VOICE:212\r\nTEL;TYPE=HOME,FAX:213\r\n"
                        "TEL;TYPE=CELL:911\r\nTEL;TYPE=CELL:912\r\nTEL;TYPE=CELL:913\r\n"
                        "EMAIL:a@b\r\nEMAIL:c@d\r\nURL:http://x/?a=1,2;3\r\n"
                        "ADR:;;Rua A\\n4000 Porto;;;;\r\nLABEL:Rua A\\n4000 Porto\r\nBDAY:1980-02-29\r\n"
                        "CATEGORIES:Família\r\nNOTE:uma nota\\noutra\\; linha\r\n"));
    }

    void um_aniversario_sem_ano_volta_sem_ano()
    {
        for (const CardVersion versao : {CardVersion::V30, CardVersion::V40}) {
            ContactoParaCartao contacto;
            contacto.colunas[C::Nome] = u"Ana"_s;
            contacto.colunas[C::Dia] = u"29"_s;
            contacto.colunas[C::Mes] = u"2"_s;
            QCOMPARE(Lido(CartaoDoContacto(ingles, versao).Novo(contacto)).colunas.valores,
                     contacto.colunas.valores);
        }
    }

    void um_dia_sem_mes_ou_um_mes_sem_dia_nao_sai()
    {
        for (const C coluna : {C::Dia, C::Mes}) {
            ContactoParaCartao contacto;
            contacto.colunas[C::Nome] = u"Ana"_s;
            contacto.colunas[coluna] = u"2"_s;
            QVERIFY(!CartaoDoContacto(ingles).Novo(contacto).contains("BDAY"));
        }
    }

    void uma_fotografia_doutro_formato_sai_em_jpeg()
    {
        ContactoParaCartao contacto = Cheio();
        const QImage imagem = QImage::fromData(contacto.Fotografia);
        contacto.Fotografia.clear();
        QBuffer ficheiro(&contacto.Fotografia);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        QVERIFY(imagem.save(&ficheiro, "BMP"));
        QVERIFY(Lido(CartaoDoContacto(ingles).Novo(contacto)).colunas[C::Fotografia].endsWith(u".jpg"_s));
        contacto.Fotografia = "nada";
        QVERIFY(contentOf(Um_Cartao(CartaoDoContacto(ingles).Novo(contacto))).photos.empty());
    }

    void uma_fotografia_de_um_formato_que_os_telefones_leem_sai_como_esta()
    {
        QImage imagem(40, 30, QImage::Format_RGB32); // of which a second compression would make other bytes
        for (int x = 0; x < imagem.width(); ++x)
            for (int y = 0; y < imagem.height(); ++y)
                imagem.setPixel(x, y, qRgb(x * 6, y * 8, x * y % 256));
        QByteArray jpeg;
        QBuffer ficheiro(&jpeg);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && imagem.save(&ficheiro, "JPEG", 20));
        const QByteArray gif =
            QByteArray::fromBase64("R0lGODlhAQABAIAAAAAAAP///yH5BAEAAAAALAAAAAABAAEAAAIBRAA7");
        for (const QByteArray &bytes : {Cheio().Fotografia, jpeg, gif}) {
            ContactoParaCartao contacto = Cheio();
            contacto.Fotografia = bytes;
            const CardContent conteudo = contentOf(Um_Cartao(CartaoDoContacto(ingles).Novo(contacto)));
            QCOMPARE(conteudo.photos.size(), 1U);
            QCOMPARE(conteudo.photos.front().bytes, bytes);
        }
    }

    void sem_mudancas_o_cartao_guardado_sai_byte_por_byte()
    {
        const QStringList grupos{u"Família"_s};
        QCOMPARE(CartaoDoContacto(ingles, CardVersion::V30, grupos)
                     .Remendado(No_Livro(guardado, grupos), guardado),
                 guardado);
    }

    void o_bloco_reconhece_se_noutra_lingua_e_nao_sai_na_nota()
    {
        for (const QString &idioma : rotulos_do_cartao::Idiomas()) {
            const QByteArray bytes =
                CartaoDoContacto(ingles).Remendado(No_Livro(guardado, {}, idioma), guardado);
            QCOMPARE(bytes, guardado);
        }
    }

    void so_muda_no_cartao_a_propriedade_cuja_coluna_mudou_data()
    {
        QTest::addColumn<int>("coluna");
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QByteArray>("velha");
        QTest::addColumn<QByteArray>("nova");
        const auto caso = [](const char *nome, C coluna, const QString &valor, const char *velha,
                             const char *nova) {
            QTest::newRow(nome) << static_cast<int>(coluna) << valor << QByteArray(velha) << QByteArray(nova);
        };
        caso("telefone", C::Telefone2, u"299"_s, "TEL;TYPE=HOME:213\r\n", "TEL;TYPE=HOME:299\r\n");
        caso("telefone tirado", C::Telefone1, {}, "TEL;TYPE=WORK:212\r\n", "");
        caso("email", C::Email2, u"n@n"_s, "EMAIL:c@d\r\n", "EMAIL:n@n\r\n");
        caso("morada", C::Morada, u"Rua B\r\nLisboa"_s, "ADR;TYPE=WORK:;;Rua A;Porto;;4000;\r\n",
             "ADR;TYPE=WORK:;;Rua B\\nLisboa;;;;\r\n");
        caso("dia", C::Dia, u"5"_s, "BDAY:1975-03-04\r\n", "BDAY:1975-03-05\r\n");
        caso("nome", C::Nome, u"Ana Rita Sá"_s, "FN:Ana Sá\r\nN:Sá;Ana;;;\r\n",
             "FN:Ana Rita Sá\r\nN:Sá;Ana Rita;;;\r\n");
        caso("website", C::Website, u"http://n;1"_s, "END:VCARD\r\n", "URL:http://n;1\r\nEND:VCARD\r\n");
        caso("fax", C::Fax, u"215"_s, "END:VCARD\r\n", "TEL;TYPE=HOME,FAX:215\r\nEND:VCARD\r\n");
    }
    void so_muda_no_cartao_a_propriedade_cuja_coluna_mudou()
    {
        QFETCH(int, coluna);
        QFETCH(QString, valor);
        QFETCH(QByteArray, velha);
        QFETCH(QByteArray, nova);
        ContactoParaCartao contacto = No_Livro(guardado);
        contacto.colunas[static_cast<C>(coluna)] = valor;
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, guardado),
                 QByteArray(guardado).replace(velha, nova));
    }

    void um_website_mudado_toma_o_lugar_do_seu_e_deixa_os_outros()
    {
        const QByteArray com_dois =
            QByteArray(guardado).replace("END:", "URL;TYPE=WORK:a.pt\r\nURL:b.pt\r\nEND:");
        ContactoParaCartao contacto = No_Livro(com_dois);
        QCOMPARE(contacto.colunas[C::Website], u"a.pt"_s);
        contacto.colunas[C::Website] = u"n.pt"_s;
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_dois),
                 QByteArray(com_dois).replace("a.pt", "n.pt"));
        contacto.colunas[C::Website].clear();
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_dois),
                 QByteArray(com_dois).replace("URL;TYPE=WORK:a.pt\r\n", ""));
    }

    void um_numero_mudado_conserva_os_tipos_e_o_rotulo()
    {
        ContactoParaCartao contacto = No_Livro(guardado);
        contacto.colunas[C::Telemovel1] = u"999"_s;
        const Card cartao = Um_Cartao(CartaoDoContacto(ingles).Remendado(contacto, guardado));
        const CardEntry entrada = contentOf(cartao).phones.front();
        QCOMPARE(entrada.value, u"999"_s);
        QCOMPARE(entrada.types, QStringList{u"cell"_s});
        QCOMPARE(entrada.label, u"Meu"_s);
    }

    void com_a_morada_vai_a_etiqueta_que_era_dela_e_ficam_as_das_outras()
    {
        const QByteArray da_outra = "LABEL;TYPE=HOME:Rua de Casa\r\n";
        const QByteArray com_etiquetas =
            QByteArray(guardado).replace("BDAY", "LABEL;TYPE=WORK:Rua A\\nPorto\r\n" + da_outra + "BDAY");
        ContactoParaCartao contacto = No_Livro(com_etiquetas);
        contacto.colunas[C::Morada] = u"Rua B"_s;
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_etiquetas),
                 QByteArray(guardado)
                     .replace("ADR;TYPE=WORK:;;Rua A;Porto;;4000;\r\n", "ADR;TYPE=WORK:;;Rua B;;;;\r\n" + da_outra));
    }

    void onde_so_ha_etiquetas_a_morada_mudada_toma_o_lugar_da_sua_e_as_outras_ficam()
    {
        const QByteArray so_etiquetas = Cartao("FN:Ana\r\nLABEL;TYPE=WORK:Rua A\r\nLABEL;TYPE=HOME:Rua de Casa\r\n");
        ContactoParaCartao contacto = No_Livro(so_etiquetas);
        QCOMPARE(contacto.colunas[C::Morada], u"Rua A"_s);
        contacto.colunas[C::Morada] = u"Rua B"_s;
        const QByteArray novo = CartaoDoContacto(ingles).Remendado(contacto, so_etiquetas);
        QCOMPARE(novo, Cartao("FN:Ana\r\nADR:;;Rua B;;;;\r\nLABEL;TYPE=HOME:Rua de Casa\r\n"));
        QCOMPARE(Lido(novo).colunas.valores, contacto.colunas.valores); // the other one still stands in Obs
    }

    void uma_nota_mudada_sai_sem_o_bloco_e_com_o_que_a_pessoa_lhe_juntou()
    {
        ContactoParaCartao contacto = No_Livro(guardado);
        contacto.colunas[C::Obs].replace(u"uma nota"_s, u"outra nota"_s);
        contacto.colunas[C::Obs] += u"\r\nescrito abaixo"_s;
        const QByteArray bytes = CartaoDoContacto(ingles).Remendado(contacto, guardado);
        const CardContent conteudo = contentOf(Um_Cartao(bytes));
        QCOMPARE(conteudo.notes.size(), 1U);
        QCOMPARE(conteudo.notes.front().value,
                 u"outra nota\n--- Further details of the contact ---\nescrito abaixo"_s);
        QCOMPARE(Lido(bytes).colunas[C::Obs].count(u"---"_s), 2);
    }

    void so_a_nota_ou_so_uma_linha_mudada_tambem_sai()
    {
        const QStringList grupos{u"Família"_s};
        const auto nota = [&](const QString &velho, const QString &novo) {
            ContactoParaCartao contacto = No_Livro(guardado, grupos);
            contacto.colunas[C::Obs].replace(velho, novo);
            return CartaoDoContacto(ingles, CardVersion::V30, grupos).Remendado(contacto, guardado);
        };
        QCOMPARE(nota(u"uma nota"_s, u"outra nota"_s),
                 QByteArray(guardado).replace("NOTE:uma nota", "NOTE:outra nota"));
        QCOMPARE(nota(u"Categories: Clube"_s, u"Categories: Clube\r\nescrito abaixo"_s),
                 QByteArray(guardado).replace("NOTE:uma nota",
                                              "NOTE:uma nota\\n--- Further details of the contact ---\\n"
                                              "escrito abaixo"));
    }

    void uma_nota_de_varias_linhas_volta_com_todas_por_cima_do_bloco()
    {
        const QByteArray de_duas =
            QByteArray(guardado).replace("NOTE:uma nota", "NOTE:uma nota\\nde duas linhas");
        ContactoParaCartao contacto = No_Livro(de_duas);
        QVERIFY(contacto.colunas[C::Obs].startsWith(
            u"uma nota\r\nde duas linhas\r\n--- Further details of the contact ---\r\n"_s));
        contacto.colunas[C::Obs].replace(u"de duas"_s, u"de mais de duas"_s);
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, de_duas),
                 QByteArray(de_duas).replace("de duas", "de mais de duas"));
    }

    void a_fotografia_so_sai_do_cartao_onde_outra_ou_nenhuma_toma_o_seu_lugar()
    {
        const QByteArray com_uma = QByteArray(guardado).replace(
            "END:", "PHOTO;ENCODING=b;TYPE=PNG:" + Cheio().Fotografia.toBase64() + "\r\nEND:");
        ContactoParaCartao contacto = No_Livro(com_uma);
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_uma), com_uma);
        contacto.colunas[C::Fotografia] = u"outra.png"_s;
        contacto.Fotografia.clear(); // it can't be read
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_uma), com_uma);
        QImage outra(3, 1, QImage::Format_RGB32);
        outra.fill(Qt::green);
        QBuffer ficheiro(&contacto.Fotografia);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && outra.save(&ficheiro, "PNG"));
        QCOMPARE(
            contentOf(Um_Cartao(CartaoDoContacto(ingles).Remendado(contacto, com_uma))).photos.front().bytes,
            contacto.Fotografia);
        contacto.colunas[C::Fotografia].clear();
        contacto.Fotografia.clear();
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, com_uma), guardado);
    }

    void o_grupo_novo_vem_a_frente_uma_so_vez_e_um_que_o_cartao_ja_diz_nao_o_muda()
    {
        const auto com = [](const QStringList &grupos, const QString &grupo) {
            ContactoParaCartao contacto = No_Livro(guardado, grupos);
            contacto.Grupo = grupo;
            return CartaoDoContacto(ingles, CardVersion::V30, grupos).Remendado(contacto, guardado);
        };
        const auto categorias = [](const QByteArray &linha) {
            return QByteArray(guardado).replace("CATEGORIES:Família,Clube\r\n", linha);
        };
        QCOMPARE(com({u"Amigos"_s}, u"Amigos"_s), categorias("CATEGORIES:Amigos,Família,Clube\r\n"));
        QCOMPARE(com({u"Família"_s}, u"Clube"_s), categorias("CATEGORIES:Clube\r\n"));
        QCOMPARE(com({}, u"Clube"_s), guardado);
        QCOMPARE(com({u"Família"_s}, {}), categorias("CATEGORIES:Clube\r\n"));
    }

    void o_grupo_mudado_troca_a_sua_categoria_e_deixa_as_outras()
    {
        const QStringList grupos{u"Família"_s, u"Amigos"_s};
        ContactoParaCartao contacto = No_Livro(guardado, grupos);
        contacto.Grupo = u"Amigos"_s;
        const QByteArray bytes =
            CartaoDoContacto(ingles, CardVersion::V30, grupos).Remendado(contacto, guardado);
        QCOMPARE(bytes, QByteArray(guardado).replace("CATEGORIES:Família,Clube", "CATEGORIES:Amigos,Clube"));
    }

    void um_cartao_guardado_de_versao_antiga_sai_em_3_0_com_tudo()
    {
        const QByteArray antigo =
            Cartao("FN;CHARSET=windows-1252:Jos\xE9\r\nTEL;CELL:911\r\nX-COISA;A=b:c;d\r\n"
                   "NOTE;ENCODING=QUOTED-PRINTABLE;CHARSET=UTF-8:=C3=A9=0D=0Afim\r\n",
                   "2.1");
        ContactoParaCartao contacto = No_Livro(antigo);
        contacto.colunas[C::Telemovel1] = u"922"_s;
        QCOMPARE(
            CartaoDoContacto(ingles).Remendado(contacto, antigo),
            QByteArray("BEGIN:VCARD\r\nVERSION:3.0\r\nFN:José\r\nTEL;TYPE=CELL:922\r\nX-COISA;A=b:c;d\r\n"
                       "NOTE:é\\nfim\r\nEND:VCARD\r\n"));
    }

    void um_uid_so_entra_onde_nao_ha()
    {
        ContactoParaCartao contacto = No_Livro(guardado);
        contacto.UID = u"novo"_s;
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, guardado), guardado);
        const QByteArray sem = QByteArray(guardado).replace("UID:u-9\r\n", "");
        QVERIFY(CartaoDoContacto(ingles).Remendado(contacto, sem).contains("\r\nUID:novo\r\n"));
        const QByteArray vazio = QByteArray(guardado).replace("UID:u-9", "UID:");
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, vazio),
                 QByteArray(guardado).replace("UID:u-9", "UID:novo"));
    }

    void o_que_nao_e_cartao_da_um_cartao_novo()
    {
        const ContactoParaCartao contacto = Cheio();
        QCOMPARE(CartaoDoContacto(ingles).Remendado(contacto, "lixo"),
                 CartaoDoContacto(ingles).Novo(contacto));
    }
};

MORVEX_TESTE(TestCartaoDoContacto)
#include "test_CartaoDoContacto.moc"
