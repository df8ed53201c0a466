// A card on its way into the columns of a contact.
#include "cards/BlocoDeObs.h"
#include "cards/ContactoDoCartao.h"
#include "cards/NomeDobrado.h"
#include "cards/NumeroDoCartao.h"
#include "cards/RotulosDoCartao.h"
#include "testlib/Desenhos.h"
#include "testlib/Teste.h"
#include "vcard/Cartoes.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QImage>

using namespace Qt::StringLiterals;
using C = Coluna;

namespace
{
ContactoLido Lido(const QByteArray &linhas, const GruposDaImportacao &grupos = {},
                  const QString &idioma = u"InglesUK"_s)
{
    const CardFile ficheiro = CardReader().read(Cartao(linhas));
    if (ficheiro.cards.size() != 1) qFatal("%zu cards and not one", ficheiro.cards.size());
    return ContactoDoCartao(idioma, grupos).Ler(ficheiro.cards.front());
}

QString Valor(const QByteArray &linhas, C coluna) { return Lido(linhas).colunas[coluna]; }

QByteArray Imagem(const char *formato)
{
    QImage imagem(3, 2, QImage::Format_RGB32);
    imagem.fill(Qt::blue);
    QByteArray bytes;
    QBuffer ficheiro(&bytes);
    ficheiro.open(QIODevice::WriteOnly);
    imagem.save(&ficheiro, formato);
    return bytes;
}
} // namespace

class TestContactoDoCartao : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_nome_comprido_corta_se_aos_cinquenta_e_cinco_e_fica_inteiro_em_obs()
    {
        const QByteArray nome = QByteArray(56, 'a');
        const ContactoLido lido = Lido("FN:" + nome + "\r\n");
        QCOMPARE(lido.colunas[C::Nome], QString(55, u'a'));
        QVERIFY(lido.colunas[C::Obs].contains(u"Full name: "_s + QString::fromLatin1(nome)));
        QVERIFY(Valor("FN:" + QByteArray(55, 'a') + "\r\n", C::Obs).isEmpty());
    }

    void um_nome_nunca_se_corta_no_meio_de_um_caracter()
    {
        const QString nome = Valor("FN:" + QByteArray(54, 'a') +
                                       "\xF0\x9F\x98\x80"
                                       "b\r\n",
                                   C::Nome);
        QCOMPARE(nome, QString(54, u'a'));
    }

    void o_nome_preferido_e_o_que_vale_e_os_outros_ficam_em_obs()
    {
        const ContactoLido lido = Lido("FN:Outro Nome\r\nFN;PREF=1:Ana\r\nN:Sá;Ana;;Dr.ª;\r\n");
        QCOMPARE(lido.colunas[C::Nome], u"Ana"_s);
        QVERIFY(lido.linhas.contains(u"Full name: Outro Nome"_s));
        QVERIFY(lido.linhas.contains(u"Full name: Dr.ª Ana Sá"_s));
    }

    void a_parte_do_nome_que_nao_se_ve_da_o_nome_inteiro_em_obs_data()
    {
        QTest::addColumn<QByteArray>("partes"); // family, given, middle, prefix, suffix
        QTest::addColumn<bool>("falta");
        QTest::newRow("nenhuma") << QByteArray("Sá;Ana;Rita;Eng.;Jr.") << false;
        QTest::newRow("sem acentos nem maiusculas") << QByteArray("SA;ana;RITA;eng.;JR.") << false;
        QTest::newRow("apelido") << QByteArray("Sousa;Ana;Rita;Eng.;Jr.") << true;
        QTest::newRow("nome") << QByteArray("Sá;Eva;Rita;Eng.;Jr.") << true;
        QTest::newRow("do meio") << QByteArray("Sá;Ana;Luz;Eng.;Jr.") << true;
        QTest::newRow("titulo") << QByteArray("Sá;Ana;Rita;Dr.;Jr.") << true;
        QTest::newRow("fim") << QByteArray("Sá;Ana;Rita;Eng.;Neto") << true;
    }
    void a_parte_do_nome_que_nao_se_ve_da_o_nome_inteiro_em_obs()
    {
        QFETCH(QByteArray, partes);
        const ContactoLido lido = Lido("FN:Eng. Ana Rita Sá Jr.\r\nN:" + partes + "\r\n");
        QTEST(!lido.linhas.isEmpty(), "falta");
        QCOMPARE(lido.colunas[C::Nome], u"Eng. Ana Rita Sá Jr."_s);
    }

    void letras_que_nao_sao_letra_e_sinal_dobram_se_na_sua()
    {
        for (const auto &[letra, dobrada] : {std::pair(u"ø"_s, u"o"_s), std::pair(u"Ø"_s, u"o"_s),
                                             std::pair(u"ł"_s, u"l"_s), std::pair(u"Ł"_s, u"l"_s)})
            QCOMPARE(Nome_Dobrado(letra), dobrada);
        QCOMPARE(Nome_Dobrado(u"Søren Łukasz Sá"_s), u"soren lukasz sa"_s);
    }

    void o_bloco_de_obs_le_se_sem_linhas_vazias_e_com_uma_so_marca()
    {
        const BlocoDeObs bloco =
            BlocoDeObs::Separar(u"uma\rnota\n--- Further details of the contact ---\r\nA: 1\r\n  \r\n"
                                "--- Outros dados do contacto ---\r\nB: 2\r\nA: 1\r\n"_s);
        QCOMPARE(bloco.nota, u"uma\r\nnota"_s);
        QCOMPARE(bloco.linhas, (QStringList{u"A: 1"_s, u"B: 2"_s}));
        QCOMPARE(Com_CR_LF(u"a\rb\nc\r\nd"_s), u"a\r\nb\r\nc\r\nd"_s);
        QCOMPARE(Com_CR_LF(u"a\rb"_s), u"a\r\nb"_s);
    }

    void varias_partes_ficam_numa_linha_sem_as_vazias()
    {
        QCOMPARE(Lido("FN:Ana\r\nNICKNAME:Nita,Aninhas\r\nORG:Firma;;Loja\r\n").linhas,
                 (QStringList{u"Nickname: Nita, Aninhas"_s, u"Organisation: Firma, Loja"_s}));
        QCOMPARE(Lido("FN:Ana\r\nCATEGORIES:Clube,Clube\r\n").linhas, QStringList{u"Categories: Clube"_s});
    }

    void o_que_tem_palavra_nossa_vem_com_ela_data()
    {
        QTest::addColumn<int>("rotulo");
        const std::pair<const char *, Rotulo> casos[]{
            {"TITLE", Rotulo::Cargo},         {"ROLE", Rotulo::Funcao},
            {"IMPP", Rotulo::Mensagens},      {"ANNIVERSARY", Rotulo::DataEspecial},
            {"RELATED", Rotulo::Relacionado}, {"X-ANNIVERSARY", Rotulo::DataEspecial}};
        for (const auto &[nome, rotulo] : casos)
            QTest::newRow(nome) << static_cast<int>(rotulo);
    }
    void o_que_tem_palavra_nossa_vem_com_ela()
    {
        QFETCH(int, rotulo);
        const QString palavra = rotulos_do_cartao::Em(static_cast<Rotulo>(rotulo), u"InglesUK"_s);
        QCOMPARE(Lido("FN:Ana\r\n" + QByteArray(QTest::currentDataTag()) + ":valor\r\n").linhas,
                 QStringList{palavra + u": valor"_s});
    }

    void do_primeiro_aniversario_e_a_coluna_e_o_outro_fica_em_obs()
    {
        const ContactoLido lido = Lido("FN:Ana\r\nBDAY:1975-03-04\r\nBDAY:1980-05-06\r\n");
        const ColunasDoContacto &c = lido.colunas;
        QCOMPARE((QStringList{c[C::Dia], c[C::Mes], c[C::Ano]}), (QStringList{u"4"_s, u"3"_s, u"1975"_s}));
        QCOMPARE(lido.linhas, QStringList{u"Birthday: 1980-05-06"_s});
    }

    void o_que_um_programa_guarda_para_si_nao_e_do_contacto_data()
    {
        QTest::addColumn<QByteArray>("linha");
        for (const char *linha : {"REV:20240101T000000Z", "PRODID:-//x//y", "KEY:http://k", "LOGO:http://l",
                                  "SOUND:http://s", "AGENT:http://a", "SORT-STRING:Sa", "MAILER:m",
                                  "SOURCE:http://o", "CLASS:PRIVATE", "CLIENTPIDMAP:1;urn:x", "PROFILE:VCARD",
                                  "X-ABUID:1", "X-IMAGEHASH:1", "X-COISA;ENCODING=b:AAAA"})
            QTest::newRow(linha) << QByteArray(linha);
    }
    void o_que_um_programa_guarda_para_si_nao_e_do_contacto()
    {
        QFETCH(QByteArray, linha);
        QCOMPARE(Lido("FN:Ana\r\n" + linha + "\r\nX-SIGNO:Touro\r\n").linhas,
                 QStringList{u"X-SIGNO: Touro"_s});
    }

    void cada_numero_vai_para_a_coluna_da_sua_especie_data()
    {
        QTest::addColumn<QByteArray>("linha");
        QTest::addColumn<int>("coluna"); // -1: Obs
        const auto caso = [](const char *linha, int coluna) {
            QTest::newRow(linha) << QByteArray(linha) << coluna;
        };
        const auto telefone = static_cast<int>(C::Telefone1);
        const auto telemovel = static_cast<int>(C::Telemovel1);
        const auto fax = static_cast<int>(C::Fax);
        caso("TEL;TYPE=CELL:12345", telemovel);
        caso("TEL;TYPE=mobile:12345", telemovel);
        caso("TEL;TYPE=IPHONE:12345", telemovel);
        caso("TEL;TYPE=MSG:12345", telemovel);
        caso("TEL;TYPE=MSG,PREF:12345", telemovel);
        caso("TEL;TYPE=MSG,HOME:12345", telefone);
        caso("TEL;TYPE=HOME:12345", telefone);
        caso("TEL;TYPE=WORK,VOICE:12345", telefone);
        caso("TEL:12345", telefone);
        caso("TEL;TYPE=FAX,CELL:12345", fax);
        caso("item1.X-ABLabel:Telefax\r\nitem1.TEL:12345", fax);
        for (const char *linha : {"TEL;TYPE=PAGER:12345", "TEL;TYPE=CAR:12345", "TEL;TYPE=VIDEO:12345",
                                  "TEL;TYPE=TEXTPHONE:12345", "TEL;TYPE=ISDN:12345"})
            caso(linha, -1);
    }
    void cada_numero_vai_para_a_coluna_da_sua_especie()
    {
        QFETCH(QByteArray, linha);
        QFETCH(int, coluna);
        const ContactoLido lido = Lido("FN:Ana\r\n" + linha + "\r\n");
        if (coluna < 0) {
            QCOMPARE(lido.linhas.size(), 1);
            QVERIFY(lido.linhas.front().endsWith(u": 12345"_s));
        } else {
            QCOMPARE(lido.colunas[static_cast<C>(coluna)], u"12345"_s);
            QVERIFY(lido.linhas.isEmpty());
        }
    }

    void sem_tipo_um_numero_de_forma_portuguesa_e_telemovel()
    {
        for (const char *numero : {"+351 912 345 678", "00351912345678", "912345678", "(91) 2.345-67/8"})
            QCOMPARE(Valor(QByteArray("TEL:") + numero + "\r\n", C::Telemovel1), QString::fromLatin1(numero));
        for (const char *linha :
             {"TEL:212345678", "TEL:91234567", "TEL;TYPE=HOME:912345678", "TEL:+49912345678"})
            QVERIFY2(Valor(QByteArray(linha) + "\r\n", C::Telemovel1).isEmpty(), linha);
    }

    void os_numeros_enchem_se_pela_preferencia_e_depois_pelo_ficheiro()
    {
        const ContactoLido lido =
            Lido("TEL;TYPE=CELL:1\r\nTEL;TYPE=CELL;PREF=2:2\r\nTEL;TYPE=CELL;PREF=1:3\r\n"
                 "TEL;TYPE=CELL:4\r\n");
        QCOMPARE(lido.colunas[C::Telemovel1], u"3"_s);
        QCOMPARE(lido.colunas[C::Telemovel2], u"2"_s);
        QCOMPARE(lido.colunas[C::Telemovel3], u"1"_s);
        QCOMPARE(lido.linhas, QStringList{u"Mobile phone: 4"_s});
    }

    void um_telefone_a_mais_vai_para_obs_e_nunca_para_um_telemovel_livre()
    {
        const ContactoLido lido = Lido(
            "TEL;TYPE=HOME:1\r\nTEL;TYPE=WORK:2\r\nTEL;TYPE=WORK:3\r\nitem1.TEL:4\r\nitem1.X-ABLabel:Casa "
            "de praia\r\n");
        QCOMPARE(lido.colunas[C::Telefone2], u"2"_s);
        QVERIFY(lido.colunas[C::Telemovel1].isEmpty());
        QCOMPARE(lido.linhas, (QStringList{u"Phone (work): 3"_s, u"Casa de praia: 4"_s}));
    }

    void um_numero_com_mais_de_vinte_e_cinco_caracteres_vai_para_obs()
    {
        QCOMPARE(Valor("TEL;TYPE=HOME:" + QByteArray(25, '1') + "\r\n", C::Telefone1), QString(25, u'1'));
        const ContactoLido lido = Lido("TEL;TYPE=HOME:" + QByteArray(26, '1') + "\r\n");
        QVERIFY(lido.colunas[C::Telefone1].isEmpty());
        QCOMPARE(lido.linhas, QStringList{u"Phone (home): "_s + QString(26, u'1')});
    }

    void um_numero_escrito_como_endereco_le_se_como_numero()
    {
        QCOMPARE(Valor("TEL;VALUE=uri:tel:+351-91%20234;ext=7\r\n", C::Telefone1), u"+351-91 234 x7"_s);
    }

    void os_emails_enchem_se_pela_preferencia_ate_sessenta_caracteres()
    {
        const QByteArray comprido = QByteArray(52, 'a') + "@abcd.pt"; // 60
        const ContactoLido lido = Lido("EMAIL:a@b\r\nEMAIL;TYPE=pref:" + comprido + "\r\nEMAIL:x" + comprido +
                                       "\r\nEMAIL;TYPE=X400:g=a\r\nEMAIL:c@d\r\n");
        QCOMPARE(lido.colunas[C::Email1], QString::fromLatin1(comprido));
        QCOMPARE(lido.colunas[C::Email2], u"a@b"_s);
        QCOMPARE(lido.linhas, (QStringList{u"E-mail: x"_s + QString::fromLatin1(comprido), u"E-mail: g=a"_s,
                                           u"E-mail: c@d"_s}));
    }

    void um_email_comprido_demais_ou_de_outro_correio_vai_para_obs()
    {
        const QByteArray comprido = QByteArray(53, 'a') + "@abcd.pt"; // 61
        const ContactoLido lido =
            Lido("FN:Ana\r\nEMAIL:" + comprido + "\r\nEMAIL;TYPE=X400:g=a\r\nEMAIL:a@b\r\n");
        QCOMPARE(lido.colunas[C::Email1], u"a@b"_s);
        QVERIFY(lido.colunas[C::Email2].isEmpty());
        QCOMPARE(lido.linhas.size(), 2);
    }

    void a_morada_tem_uma_linha_por_parte()
    {
        QCOMPARE(Valor("ADR:Caixa;2.º;Rua A\\, 1\\nLote 2;Porto;Norte;4000;PT\r\n", C::Morada),
                 u"Rua A, 1\r\nLote 2\r\n2.º\r\nCaixa\r\n4000 Porto\r\nNorte\r\nPT"_s);
    }

    void a_morada_preferida_vale_mais_do_que_a_de_casa_e_essa_mais_do_que_as_outras()
    {
        const ContactoLido casa = Lido("ADR;TYPE=WORK:;;A;;;;\r\nADR;TYPE=HOME:;;B;C;;;\r\n");
        QCOMPARE(casa.colunas[C::Morada], u"B\r\nC"_s);
        QCOMPARE(casa.linhas, QStringList{u"Address (work): A"_s});
        QCOMPARE(Valor("ADR;TYPE=WORK,PREF:;;A;;;;\r\nADR;TYPE=HOME:;;B;;;;\r\n", C::Morada), u"A"_s);
    }

    void de_duas_moradas_de_casa_vale_a_primeira()
    {
        const ContactoLido lido = Lido("ADR;TYPE=HOME:;;A;;;;\r\nADR;TYPE=HOME:;;B;;;;\r\nADR;TYPE=WORK:;;C;;;;\r\n");
        QCOMPARE(lido.colunas[C::Morada], u"A"_s);
        QCOMPARE(lido.linhas, (QStringList{u"Address (home): B"_s, u"Address (work): C"_s}));
    }

    void um_website_enche_a_coluna_e_o_segundo_vai_para_obs()
    {
        const ContactoLido lido = Lido("URL:\r\nURL:a.pt\r\nURL;TYPE=WORK:b.pt\r\n");
        QCOMPARE(lido.colunas[C::Website], u"a.pt"_s);
        QCOMPARE(lido.linhas, QStringList{u"Website (work): b.pt"_s});
    }

    void o_que_cabe_fica_como_esta_e_um_corte_nao_deixa_brancos()
    {
        QCOMPARE(Cortado(u" ab "_s, 4), u" ab "_s);
        QCOMPARE(Cortado(u"ab cd"_s, 3), u"ab"_s);
        QCOMPARE(Cortado(u"a😀"_s, 2), u"a"_s);
        QCOMPARE(Cortado(u"a😀b"_s, 3), u"a😀"_s);
    }

    void um_bloco_junta_se_a_outro_e_diz_se_algo_veio()
    {
        BlocoDeObs bloco{u"uma nota"_s, {u"A: 1"_s}};
        QVERIFY(!bloco.Acrescentar({u"nota"_s, {u"A: 1"_s}})); // it is all there
        QCOMPARE(bloco.nota, u"uma nota"_s);
        QVERIFY(bloco.Acrescentar({u"nota"_s, {u"B: 2"_s}}));
        QVERIFY(bloco.Acrescentar({u"outra"_s, {}}));
        QCOMPARE(bloco.nota, u"uma nota\r\noutra"_s);
        QCOMPARE(bloco.linhas, (QStringList{u"A: 1"_s, u"B: 2"_s}));
        BlocoDeObs vazio;
        QVERIFY(vazio.Acrescentar({u"nota"_s, {}}));
        QCOMPARE(vazio.nota, u"nota"_s);
    }

    void a_etiqueta_so_vale_sem_morada()
    {
        QCOMPARE(Valor("LABEL:Rua A\\nPorto\r\n", C::Morada), u"Rua A\r\nPorto"_s);
        const ContactoLido lido = Lido("ADR:;;Rua A;Porto;;;\r\nLABEL:Rua A\\nPorto\r\n");
        QCOMPARE(lido.colunas[C::Morada], u"Rua A\r\nPorto"_s);
        QVERIFY(lido.linhas.isEmpty());
    }

    void o_aniversario_nao_tem_zeros_a_esquerda_nem_um_ano_que_ninguem_disse()
    {
        const ContactoLido lido = Lido("BDAY:1975-03-04\r\n");
        QCOMPARE(lido.colunas[C::Dia], u"4"_s);
        QCOMPARE(lido.colunas[C::Mes], u"3"_s);
        QCOMPARE(lido.colunas[C::Ano], u"1975"_s);
        QCOMPARE(Valor("BDAY:1604-02-29\r\n", C::Ano), QString());
        QCOMPARE(Valor("BDAY:1604-02-29\r\n", C::Dia), u"29"_s);
    }

    void um_aniversario_que_o_livro_nao_aceita_vai_para_obs()
    {
        for (const char *data : {"0050-03-04", "em Maio", "1975-02-30"}) {
            const ContactoLido lido = Lido(QByteArray("BDAY:") + data + "\r\n");
            QVERIFY2(lido.colunas[C::Dia].isEmpty(), data);
            QCOMPARE(lido.linhas, QStringList{u"Birthday: "_s + QString::fromLatin1(data)});
        }
    }

    void a_primeira_categoria_que_e_um_grupo_visivel_da_o_grupo()
    {
        const ContactoLido lido =
            Lido("CATEGORIES:Outra,familia,Amigos\r\n", {{u"Amigos"_s, u"Família"_s}, u"Geral"_s, true});
        QCOMPARE(lido.Grupo, u"Família"_s);
        QCOMPARE(lido.linhas, QStringList{u"Categories: Outra, Amigos"_s});
    }

    void sem_grupo_visivel_vale_o_escolhido_ou_cria_se_o_primeiro_que_nao_e_de_um_programa()
    {
        const QByteArray linhas = "CATEGORIES:* x,myContacts,starred,Imported 1/1,Clube\r\n";
        QCOMPARE(Lido(linhas, {{u"Amigos"_s}, u"Geral"_s, false}).Grupo, u"Geral"_s);
        QCOMPARE(Lido(linhas, {{u"Amigos"_s}, u"Geral"_s, true}).Grupo, u"Clube"_s);
        QCOMPARE(Lido("CATEGORIES:starred\r\n", {{}, u"Geral"_s, true}).Grupo, u"Geral"_s);
    }

    void uma_fotografia_tem_o_nome_da_sua_soma_e_os_seus_bytes()
    {
        const QByteArray jpeg = Imagem("JPEG");
        const ContactoLido lido = Lido("PHOTO;ENCODING=b;TYPE=PNG:" + jpeg.toBase64() + "\r\n");
        const QByteArray soma = QCryptographicHash::hash(jpeg, QCryptographicHash::Sha1).toHex();
        QCOMPARE(lido.colunas[C::Fotografia], u"bd:"_s + QString::fromLatin1(soma) + u".jpg"_s);
        QCOMPARE(lido.Fotografia, jpeg);
    }

    void uma_fotografia_que_nao_se_descodifica_nao_entra_e_diz_se()
    {
        const QByteArray estragada = Imagem("PNG").first(40);
        const ContactoLido lido = Lido("PHOTO;ENCODING=b:" + estragada.toBase64() + "\r\n");
        QVERIFY(lido.colunas[C::Fotografia].isEmpty());
        QVERIFY(lido.Fotografia.isEmpty());
        QCOMPARE(lido.problemas, QStringList{u"Photograph"_s});
    }

    void um_desenho_nao_e_uma_fotografia_e_diz_se()
    {
        const QByteArray desenho =
            "<?xml version=\"1.0\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" "
            "height=\"9\"><rect width=\"9\" height=\"9\"/></svg>";
        QCOMPARE(!QImage::fromData(desenho).isNull(), leem_se_desenhos); // it could be drawn
        const ContactoLido lido = Lido("PHOTO;ENCODING=b:" + desenho.toBase64() + "\r\n");
        QVERIFY(lido.colunas[C::Fotografia].isEmpty());
        QCOMPARE(lido.problemas, QStringList{u"Photograph"_s});
    }

    void o_endereco_de_uma_fotografia_fica_escrito_e_nao_se_segue()
    {
        QTemporaryDir pasta;
        const QString caminho = pasta.filePath(u"a.png"_s);
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write(Imagem("PNG"));
        ficheiro.close();
        for (const QString &endereco : {u"file://"_s + caminho, u"http://127.0.0.1/a.png"_s}) {
            const ContactoLido lido = Lido("PHOTO;VALUE=uri:" + endereco.toUtf8() + "\r\n");
            QVERIFY(lido.colunas[C::Fotografia].isEmpty());
            QVERIFY(lido.Fotografia.isEmpty());
            QCOMPARE(lido.linhas, QStringList{u"Photograph: "_s + endereco});
        }
    }

    void as_notas_juntam_se_e_o_resto_vem_abaixo_da_marca()
    {
        QCOMPARE(Valor("NOTE:um\\ndois\r\nNOTE:três\r\nORG:Firma;Loja\r\nTITLE:Chefe\r\n", C::Obs),
                 u"um\r\ndois\r\ntrês\r\n--- Further details of the contact ---\r\nOrganisation: Firma, "
                 "Loja\r\nJob title: Chefe"_s);
        QCOMPARE(Valor("NOTE:só\r\n", C::Obs), u"só"_s);
    }

    void o_que_e_so_do_programa_que_escreveu_o_cartao_nao_vai_para_obs()
    {
        QVERIFY(
            Lido("REV:2020\r\nPRODID:x\r\nKEY;ENCODING=b:AAAA\r\nX-ABADR:pt\r\nX-FOTO;ENCODING=b:AAAA\r\n")
                .linhas.isEmpty());
        QCOMPARE(Lido("X-SKYPE:ana\r\n").linhas, QStringList{u"X-SKYPE: ana"_s});
    }

    void um_nome_que_so_um_programa_usa_nao_vai_para_obs_data()
    {
        QTest::addColumn<QByteArray>("nome");
        for (const char *nome : {"REV", "PRODID", "KEY", "LOGO", "SOUND", "AGENT", "SORT-STRING", "MAILER", "SOURCE",
                                 "CLASS", "CLIENTPIDMAP", "PROFILE", "X-ABUID", "X-IMAGEHASH"})
            QTest::newRow(nome) << QByteArray(nome);
    }
    void um_nome_que_so_um_programa_usa_nao_vai_para_obs()
    {
        QFETCH(QByteArray, nome);
        QCOMPARE(Lido(nome + ":uma coisa\r\n").linhas, QStringList());
    }

    void o_que_o_livro_conhece_pelo_nome_leva_a_sua_palavra_data()
    {
        QTest::addColumn<QString>("palavra");
        QTest::newRow("TITLE") << u"Job title"_s;
        QTest::newRow("ROLE") << u"Role"_s;
        QTest::newRow("IMPP") << u"Instant messaging"_s;
        QTest::newRow("ANNIVERSARY") << u"Anniversary"_s;
        QTest::newRow("RELATED") << u"Related person"_s;
        QTest::newRow("X-ANNIVERSARY") << u"Anniversary"_s;
    }
    void o_que_o_livro_conhece_pelo_nome_leva_a_sua_palavra()
    {
        QFETCH(QString, palavra);
        QCOMPARE(Lido(QByteArray(QTest::currentDataTag()) + ":2001\r\n").linhas, QStringList{palavra + u": 2001"_s});
    }

    void a_marca_reconhece_se_em_todas_as_linguas_e_nao_ha_segundo_bloco()
    {
        for (const QString &idioma : rotulos_do_cartao::Idiomas()) {
            const QByteArray linhas = "FN:Ana\r\nTITLE:Chefe\r\n";
            const ContactoLido primeira = Lido(linhas, {}, idioma);
            QByteArray nota = primeira.colunas[C::Obs].toUtf8();
            nota.replace("\r\n", "\\n");
            const ContactoLido segunda = Lido("FN:Ana\r\nNOTE:" + nota + "\r\nTITLE:Chefe\r\n", {}, idioma);
            QCOMPARE(segunda.colunas[C::Obs], primeira.colunas[C::Obs]);
            const ContactoLido noutra = Lido("FN:Ana\r\nNOTE:" + nota + "\r\nROLE:x\r\n");
            QCOMPARE(noutra.colunas[C::Obs].count(u"---"_s), 2);
        }
    }

    void nada_do_que_o_cartao_diz_se_perde()
    {
        QByteArray linhas =
            "FN:Nome Dito\r\nN:Apelido;Proprio;Meio;Dr;Jr\r\nNICKNAME:Alcunha\r\nORG:Firma;Seccao\r\n"
            "LABEL:etiquetada\r\nTITLE:titulo\r\nX-COISA:coisa\r\nIMPP:sip:mensagem\r\n"
            "GEO:1\\,2\r\nBDAY:1975-03-04\r\nBDAY:nascido\r\nRELATED:tia\r\nCATEGORIES:clube,"
            "escola\r\nPHOTO;VALUE=uri:http://foto\r\nORG:Segunda\r\nANNIVERSARY:2001\r\n";
        QStringList ditos{u"Nome Dito"_s, u"Apelido"_s, u"Proprio"_s,      u"Meio"_s,        u"Dr"_s,
                          u"Jr"_s,        u"Alcunha"_s, u"Firma"_s,        u"Seccao"_s,      u"etiquetada"_s,
                          u"titulo"_s,    u"coisa"_s,   u"sip:mensagem"_s, u"1,2"_s,         u"nascido"_s,
                          u"tia"_s,       u"clube"_s,   u"escola"_s,       u"http://foto"_s, u"Segunda"_s,
                          u"2001"_s};
        for (const char *tipo : {"HOME", "WORK", "CELL", "FAX", "PAGER", "X-Y"})
            for (int i = 0; i < 5; ++i) {
                const QByteArray numero = QByteArray(tipo) + QByteArray::number(1000 + i);
                linhas += QByteArray("TEL;TYPE=") + tipo + ":" + numero + "\r\n" + "EMAIL:" + numero +
                          "@b\r\nURL:http://" + numero + "\r\nNOTE:nota " + numero + "\r\nADR;TYPE=" + tipo +
                          ":cx" + numero + ";ex" + numero + ";ru" + numero + ";ci" + numero + ";re" + numero +
                          ";co" + numero + ";pa" + numero + "\r\n";
                const QString dito = QString::fromLatin1(numero);
                ditos << dito << dito + u"@b"_s << u"http://"_s + dito << u"nota "_s + dito;
                for (const char *parte : {"cx", "ex", "ru", "ci", "re", "co", "pa"})
                    ditos << QString::fromLatin1(parte) + dito;
            }
        const QStringList colunas = [&] {
            const ContactoLido lido = Lido(linhas);
            return QStringList(lido.colunas.valores.begin(), lido.colunas.valores.end());
        }();
        const QString tudo = colunas.join(u'\n');
        for (const QString &dito : ditos)
            QVERIFY2(tudo.contains(dito), qPrintable(dito));
    }
};

MORVEX_TESTE(TestContactoDoCartao)
#include "test_ContactoDoCartao.moc"
