// Who is who: contacts that come in, against those that are there. MORVEX_DUPLICADOS sets how many variations
// are tried; what each of them has to give is known from the way in which it is made.
#include "cards/ChavesDoContacto.h"
#include "cards/RegraDosDuplicados.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <algorithm>
#include <QSet>
#include <random>

using namespace Qt::StringLiterals;
using C = Coluna;
using V = Veredicto;

namespace
{
ColunasDoContacto Contacto(std::initializer_list<std::pair<C, QString>> valores)
{
    ColunasDoContacto contacto;
    for (const auto &[coluna, valor] : valores)
        contacto[coluna] = valor;
    return contacto;
}

ColunasDoContacto Com(ColunasDoContacto contacto, std::initializer_list<std::pair<C, QString>> valores)
{
    for (const auto &[coluna, valor] : valores)
        contacto[coluna] = valor;
    return contacto;
}

RegraDosDuplicados Livro(const std::vector<ColunasDoContacto> &contactos)
{
    RegraDosDuplicados regra(u"InglesUK"_s);
    for (const ColunasDoContacto &contacto : contactos)
        regra.Juntar(contacto);
    return regra;
}

const ColunasDoContacto &Ana()
{
    static const ColunasDoContacto ana = Contacto({{C::Nome, u"Ana Maria Conceição Silva"_s},
                                                   {C::Telemovel1, u"+351 912 345 678"_s},
                                                   {C::Telefone1, u"212 345 678"_s},
                                                   {C::Email1, u"ana@exemplo.pt"_s}});
    return ana;
}

V Para_A_Ana(const ColunasDoContacto &quem) { return Livro({Ana()}).Decidir(quem).veredicto; }

// People no two of whom share a name, a number or a mail.
class Gerador
{
public:
    ColunasDoContacto Pessoa(int i)
    {
        const QStringList proprios{u"José"_s, u"Ângela"_s, u"Günther"_s, u"Conceição"_s, u"Zoë"_s, u"Rui"_s};
        return Contacto(
            {{C::Nome, u"%1 Meio%2 Família%3"_s.arg(proprios[Ao_Acaso(6)], Letras(i), Letras(i + 7))},
             {C::Telemovel1, u"+351 91%1"_s.arg(i, 7, 10, QChar(u'0'))},
             {C::Telefone1, u"+351 21%1"_s.arg(i, 7, 10, QChar(u'0'))},
             {C::Email1, u"p%1@example.org"_s.arg(i)},
             {C::Morada, u"Rua %1"_s.arg(i)}});
    }
    int Ao_Acaso(int limite) { return static_cast<int>(acaso_() % static_cast<std::uint32_t>(limite)); }

private:
    static QString Letras(int numero)
    {
        QString letras;
        for (; numero > 0; numero /= 20)
            letras += QChar(u'b' + numero % 20);
        return letras;
    }
    std::mt19937 acaso_{19750304};
};

struct Variacao {
    const char *nome;
    ColunasDoContacto contacto;
    V esperado;
};

QString Primeiro_E_Ultimo(const QString &nome)
{
    return nome.section(u' ', 0, 0) + u' ' + nome.section(u' ', -1);
}

Variacao Variar(const ColunasDoContacto &b, int qual, int i)
{
    const QString outro_numero = u"+351 96%1"_s.arg(i, 7, 10, QChar(u'0'));
    QString algarismos = b[C::Telemovel1].sliced(5);
    const QString invertido = b[C::Nome].section(u' ', -1) + u", "_s + b[C::Nome].section(u' ', 0, -2);
    QString simples = b[C::Nome].normalized(QString::NormalizationForm_KD).toUpper();
    simples.removeIf([](QChar sinal) { return sinal.isMark(); });
    switch (qual) {
    case 0:
        return {"igual", b, V::Igual};
    case 1:
        return {"sem indicativo", Com(b, {{C::Telemovel1, algarismos}}), V::Igual};
    case 2:
        return {"00351", Com(b, {{C::Telemovel1, u"00351."_s + algarismos}}), V::Igual};
    case 3:
        return {"sem acentos", Com(b, {{C::Nome, simples}}), V::Igual};
    case 4:
        return {"apelido primeiro", Com(b, {{C::Nome, invertido}}), V::Igual};
    case 5:
        return {"sem nome do meio", Com(b, {{C::Nome, Primeiro_E_Ultimo(b[C::Nome])}}), V::Igual};
    case 6:
        return {"mail novo", Com(b, {{C::Email2, u"n%1@example.net"_s.arg(i)}}), V::Completa};
    case 7:
        return {"cônjuge",
                Contacto({{C::Nome, u"Hermengarda "_s + b[C::Nome].section(u' ', -1)},
                          {C::Telefone1, b[C::Telefone1]}}),
                V::Talvez};
    case 8:
        return {"homónimo", Contacto({{C::Nome, b[C::Nome]}, {C::Telemovel1, outro_numero}}), V::Talvez};
    case 9:
        return {"só nome", Contacto({{C::Nome, b[C::Nome]}}), V::Igual};
    case 10:
        return {"meio omitido, número de casa",
                Contacto({{C::Nome, Primeiro_E_Ultimo(b[C::Nome])}, {C::Telefone1, b[C::Telefone1]}}),
                V::Talvez};
    default:
        return {"outra pessoa",
                Contacto({{C::Nome, u"Outra Pessoa%1"_s.arg(i)}, {C::Telemovel1, outro_numero}}), V::Novo};
    }
}
constexpr int variacoes = 12;

int Quantas()
{
    constexpr int na_suite = 2000;
    const int pedidas = qEnvironmentVariableIntValue("MORVEX_DUPLICADOS");
    return pedidas > 0 ? pedidas : na_suite;
}
} // namespace

class TestRegraDosDuplicados : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_mesmo_nome_com_um_numero_ou_um_mail_e_a_mesma_pessoa()
    {
        for (const auto &[coluna, valor] :
             {std::pair(C::Telemovel2, u"912345678"_s), std::pair(C::Fax, u"00351 21 234 56 78"_s),
              std::pair(C::Email2, u" ANA@exemplo.pt "_s)}) {
            const auto quem = Contacto({{C::Nome, u"SILVA, Ana Maria da Conceicao"_s}, {coluna, valor}});
            QCOMPARE(Para_A_Ana(quem), V::Igual);
        }
    }

    void so_o_nome_so_o_numero_ou_so_o_mail_deixam_se_a_pessoa()
    {
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, Ana()[C::Nome]}, {C::Telefone1, u"999999999"_s}})),
                 V::Talvez);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, u"Rui"_s}, {C::Telefone1, u"212345678"_s}})), V::Talvez);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, u"Rui"_s}, {C::Email1, u"ana@exemplo.pt"_s}})), V::Talvez);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, u"Rui"_s}, {C::Email1, u"rui@exemplo.pt"_s}})), V::Novo);
    }

    void quem_so_tem_nome_e_igual_so_se_tudo_o_que_diz_ja_esta_la()
    {
        const ColunasDoContacto nome = Contacto({{C::Nome, Ana()[C::Nome]}});
        const auto ana = Com(Ana(), {{C::Morada, u"Rua Á"_s}, {C::Fotografia, u"ana.jpg"_s}});
        const auto julgado = [&](C coluna, const QString &valor) {
            return Livro({ana}).Decidir(Com(nome, {{coluna, valor}})).veredicto;
        };
        QCOMPARE(Livro({ana}).Decidir(nome).veredicto, V::Igual);
        QCOMPARE(julgado(C::Morada, u"RUA A"_s), V::Igual);
        QCOMPARE(julgado(C::Fotografia, u"outra.jpg"_s), V::Igual);
        for (const C coluna : {C::Telefone1, C::Telefone2, C::Fax, C::Telemovel1, C::Telemovel2,
                               C::Telemovel3, C::Website, C::Morada, C::Obs, C::Dia, C::Mes, C::Ano})
            QCOMPARE(julgado(coluna, u"12"_s), V::Talvez);
        QCOMPARE(Livro({Ana()}).Decidir(Com(nome, {{C::Fotografia, u"ana.jpg"_s}})).veredicto, V::Talvez);
    }

    void um_numero_com_menos_de_sete_algarismos_nao_prova_nada()
    {
        const auto curto = [](const QString &numero) {
            const auto um = Contacto({{C::Nome, u"Rui"_s}, {C::Telefone1, numero}});
            return Livro({Com(um, {{C::Nome, u"Ana"_s}})}).Decidir(um).veredicto;
        };
        QCOMPARE(curto(u"123456"_s), V::Novo);
        QCOMPARE(curto(u"1234567"_s), V::Talvez);
    }

    void a_chave_de_um_numero_sao_os_seus_ultimos_nove_algarismos_sem_os_zeros_do_estrangeiro_data()
    {
        QTest::addColumn<QString>("chave");
        QTest::newRow("+351 912 345 678") << u"912345678"_s;
        QTest::newRow("00351912345678") << u"912345678"_s;
        QTest::newRow("00 1234567") << u"1234567"_s;
        QTest::newRow("00 123456") << QString();
        QTest::newRow("1234567") << u"1234567"_s;
        QTest::newRow("123456") << QString();
        QTest::newRow("012345678") << u"012345678"_s;
        QTest::newRow("sem algarismos") << QString();
    }
    void a_chave_de_um_numero_sao_os_seus_ultimos_nove_algarismos_sem_os_zeros_do_estrangeiro()
    {
        QTEST(ChavesDoContacto::Do_Numero(QString::fromUtf8(QTest::currentDataTag())), "chave");
    }

    void palavras_curtas_tem_cada_uma_a_sua_chave()
    {
        QSet<ChaveCurta> chaves;
        constexpr int letras = 26;
        for (int i = 0; i < letras * letras * letras; ++i)
            chaves.insert(ChavesDoContacto::De_Um_Texto(QString::number(i, letras).rightJustified(3, u'.')));
        QCOMPARE(chaves.size(), qsizetype{letras} * letras * letras);
        QVERIFY(!chaves.contains(0));
        QCOMPARE(ChavesDoContacto::De_Um_Texto({}), ChaveCurta{0});
    }

    void um_zero_a_frente_e_de_outro_numero()
    {
        const auto com = [](const QString &nome, const QString &numero) {
            return Contacto({{C::Nome, nome}, {C::Telefone1, numero}});
        };
        QCOMPARE(Livro({com(u"Ana"_s, u"1234567"_s)}).Decidir(com(u"Rui"_s, u"01234567"_s)).veredicto,
                 V::Novo);
    }

    void um_numero_noutros_algarismos_e_o_mesmo()
    {
        const auto quem = Contacto({{C::Nome, Ana()[C::Nome]}, {C::Telemovel1, u"٩١٢٣٤٥٦٧٨"_s}});
        QCOMPARE(Para_A_Ana(quem), V::Igual);
        const Decisao decisao = Livro({Ana()}).Decidir(Com(quem, {{C::Morada, u"Rua B"_s}}));
        QCOMPARE(decisao.preenchidas, std::vector<C>{C::Morada});
    }

    void um_mail_com_acentos_nao_olha_a_maiusculas()
    {
        const auto com = [](const QString &email) {
            return Contacto({{C::Nome, u"Rui"_s}, {C::Email1, email}});
        };
        QCOMPARE(Livro({com(u"josé@exemplo.pt"_s)}).Decidir(com(u"JOSÉ@EXEMPLO.PT "_s)).veredicto, V::Igual);
        QCOMPARE(Livro({com(u"josé@exemplo.pt"_s)}).Decidir(com(u"jose@exemplo.pt"_s)).veredicto, V::Talvez);
    }

    void um_nome_e_o_mesmo_so_com_as_mesmas_palavras_as_mesmas_vezes()
    {
        const auto mesmo = [](const QString &um, const QString &outro) {
            return Livro({Contacto({{C::Nome, um}})}).Decidir(Contacto({{C::Nome, outro}})).veredicto ==
                   V::Igual;
        };
        QVERIFY(mesmo(u"Ana Rui Silva"_s, u"Silva, Rui Ana"_s));
        QVERIFY(!mesmo(u"Ana Ana Silva"_s, u"Ana Silva Silva"_s));
        QVERIFY(!mesmo(u"Ana Silva"_s, u"Ana Ana Silva"_s));
        QVERIFY(!mesmo(u"Ab Cd"_s, u"Ad Cb"_s));
        QVERIFY(!mesmo(u"Ab Cd"_s, u"Abc D"_s));
        QVERIFY(!mesmo(u"de da"_s, u"do e"_s)); // no name is left of either
    }

    void as_palavras_pequenas_e_os_titulos_nao_fazem_outro_nome_data()
    {
        QTest::addColumn<QString>("palavra");
        for (const char *palavra : {"de", "da", "do", "dos", "das", "e", "di", "del", "von", "van", "Dr.", "Dra.",
                                    "Eng.", "Sr.", "Sra.", "Mr", "Mrs"})
            QTest::newRow(palavra) << QString::fromLatin1(palavra);
    }
    void as_palavras_pequenas_e_os_titulos_nao_fazem_outro_nome()
    {
        QFETCH(QString, palavra);
        const auto com = [](const QString &nome) { return Contacto({{C::Nome, nome}}); };
        QCOMPARE(Livro({com(u"Ana Silva"_s)}).Decidir(com(u"Ana %1 Silva"_s.arg(palavra))).veredicto, V::Igual);
        QCOMPARE(Livro({com(u"Ana Silva"_s)}).Decidir(com(u"Ana Rui Silva"_s)).veredicto, V::Novo);
    }

    void um_nome_contido_no_outro_com_outro_telemovel_deixa_se_a_pessoa()
    {
        const ColunasDoContacto so_de_casa = Contacto(
            {{C::Nome, u"Ana Silva"_s}, {C::Telemovel1, u"961 111 111"_s}, {C::Telefone1, u"212 345 678"_s}});
        QCOMPARE(Para_A_Ana(so_de_casa), V::Talvez);
        QCOMPARE(Para_A_Ana(Com(so_de_casa, {{C::Telemovel2, u"912 345 678"_s}})), V::Completa);
    }

    void quem_alem_do_nome_so_tem_um_numero_curto_e_igual_a_si_mesmo()
    {
        const ColunasDoContacto posto = Contacto({{C::Nome, u"Posto da Praia"_s}, {C::Telefone1, u"112"_s}});
        QCOMPARE(Livro({posto}).Decidir(posto).veredicto, V::Igual);
    }

    void um_uid_que_dois_tem_e_do_ultimo()
    {
        RegraDosDuplicados regra(u"InglesUK"_s);
        regra.Juntar(Ana(), u"u-1"_s);
        regra.Juntar(Contacto({{C::Nome, u"Rui Costa"_s}}), u"u-1"_s);
        QCOMPARE(regra.Decidir(Contacto({{C::Nome, u"Zé"_s}}), u"u-1"_s).quem, std::vector<std::size_t>{1});
    }

    void uma_chave_em_mais_de_tres_contactos_nao_prova_nada()
    {
        std::vector<ColunasDoContacto> livro;
        const auto da_firma = [](const QString &nome) {
            return Contacto(
                {{C::Nome, nome}, {C::Telefone1, u"213000000"_s}, {C::Email1, u"info@firma.pt"_s}});
        };
        for (const auto &nome : {u"Um"_s, u"Dois"_s, u"Três"_s})
            livro.push_back(da_firma(nome));
        QCOMPARE(Livro(livro).Decidir(da_firma(u"Novo"_s)).veredicto, V::Talvez);
        QCOMPARE(Livro(livro).Decidir(da_firma(u"Um"_s)).veredicto, V::Igual);
        livro.push_back(da_firma(u"Quatro"_s));
        QCOMPARE(Livro(livro).Decidir(da_firma(u"Novo"_s)).veredicto, V::Novo);
        QCOMPARE(Livro(livro).Decidir(da_firma(u"Um"_s)).veredicto, V::Talvez);
    }

    void um_nome_contido_no_outro_precisa_de_um_telemovel_ou_de_um_mail()
    {
        const QString parte = u"Ana Silva"_s;
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, parte}, {C::Telemovel1, u"912345678"_s}})), V::Igual);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, parte}, {C::Email1, u"ana@exemplo.pt"_s}})), V::Igual);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, parte}, {C::Telefone1, u"212345678"_s}})), V::Talvez);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, u"Ana"_s}, {C::Telemovel1, u"912345678"_s}})), V::Talvez);
        QCOMPARE(Para_A_Ana(Contacto({{C::Nome, u"Ana Costa"_s}, {C::Telemovel1, u"912345678"_s}})),
                 V::Talvez);
    }

    void aniversarios_diferentes_deixam_se_a_pessoa()
    {
        const auto com_data = [](const QString &dia) {
            return Com(Ana(), {{C::Dia, dia}, {C::Mes, u"3"_s}});
        };
        QCOMPARE(Livro({com_data(u"4"_s)}).Decidir(com_data(u"4"_s)).veredicto, V::Igual);
        QCOMPARE(Livro({com_data(u"4"_s)}).Decidir(com_data(u"5"_s)).veredicto, V::Talvez);
        const auto noutro_mes = Com(com_data(u"4"_s), {{C::Mes, u"5"_s}});
        QCOMPARE(Livro({com_data(u"4"_s)}).Decidir(noutro_mes).veredicto, V::Talvez);
        QCOMPARE(Livro({com_data(u"4"_s)}).Decidir(Ana()).veredicto, V::Igual); // who says none says no other one
        QCOMPARE(Livro({Ana()}).Decidir(com_data(u"4"_s)).veredicto, V::Completa);
        // Only the one whose number it is, and no namesake.
        const auto homonima = Contacto({{C::Nome, Ana()[C::Nome]}});
        QCOMPARE(Livro({com_data(u"4"_s), homonima}).Decidir(noutro_mes).quem, std::vector<std::size_t>{0});
    }

    void quem_so_tem_nome_e_tem_dois_homonimos_deixa_se_a_pessoa()
    {
        const auto nome = Contacto({{C::Nome, Ana()[C::Nome]}});
        const Decisao decisao = Livro({Ana(), nome}).Decidir(nome);
        QCOMPARE(decisao.veredicto, V::Talvez);
        QCOMPARE(decisao.quem, (std::vector<std::size_t>{0, 1}));
    }

    void quem_alem_do_nome_tem_o_numero_da_firma_nao_e_so_nome()
    {
        std::vector<ColunasDoContacto> firma;
        for (const auto &nome : {u"Um Silva"_s, u"Dois Silva"_s, u"Três Silva"_s, u"Quatro Silva"_s})
            firma.push_back(Contacto({{C::Nome, nome}, {C::Telefone1, u"213000000"_s}}));
        QCOMPARE(Livro(firma).Decidir(firma.front()).veredicto, V::Talvez);
    }

    void um_mail_de_brancos_nao_prova_nada()
    {
        const auto em_branco = [](const QString &nome) { return Contacto({{C::Nome, nome}, {C::Email1, u" "_s}}); };
        QCOMPARE(Livro({em_branco(u"Rui"_s)}).Decidir(em_branco(u"Ana"_s)).veredicto, V::Novo);
    }

    void quem_foi_completado_reconhece_se_pelo_que_recebeu()
    {
        RegraDosDuplicados regra(u"InglesUK"_s);
        regra.Juntar(Ana());
        regra.Completar(0, Com(Ana(), {{C::Telemovel2, u"961111111"_s}, {C::Email2, u"nova@exemplo.pt"_s}}));
        for (const auto &[coluna, valor] :
             {std::pair(C::Fax, u"961111111"_s), {C::Email1, u"nova@exemplo.pt"_s}, {C::Telefone2, u"212345678"_s}})
            QCOMPARE(regra.Decidir(Contacto({{C::Nome, u"Rui"_s}, {coluna, valor}})).quem, std::vector<std::size_t>{0});
        QCOMPARE(regra.Decidir(Contacto({{C::Nome, Ana()[C::Nome]}, {C::Fax, u"961111111"_s}})).veredicto, V::Igual);
    }

    void a_ordem_das_palavras_de_um_nome_contido_nao_importa()
    {
        QStringList inteiro{u"Ana"_s, u"Luz"_s, u"Maria"_s, u"Silva"_s}; // every order of them
        do {
            const auto ela = Contacto({{C::Nome, inteiro.join(u' ')}, {C::Telemovel1, u"912345678"_s}});
            for (const auto &parte : {u"Ana Silva"_s, u"Silva Ana"_s})
                QCOMPARE(Livro({ela}).Decidir(Com(ela, {{C::Nome, parte}})).veredicto, V::Igual);
            QCOMPARE(Livro({ela}).Decidir(Com(ela, {{C::Nome, u"Ana Ana"_s}})).veredicto, V::Talvez); // one word
        } while (std::next_permutation(inteiro.begin(), inteiro.end()));
    }

    void varios_candidatos_deixam_se_a_pessoa()
    {
        const Decisao decisao = Livro({Ana(), Ana()}).Decidir(Ana());
        QCOMPARE(decisao.veredicto, V::Talvez);
        QCOMPARE(decisao.quem, (std::vector<std::size_t>{0, 1}));
    }

    void o_mesmo_uid_e_a_mesma_pessoa_com_outro_nome()
    {
        RegraDosDuplicados regra(u"InglesUK"_s);
        regra.Juntar(Ana(), u"u-1"_s);
        const auto casada = Contacto({{C::Nome, u"Ana Costa"_s}});
        QCOMPARE(regra.Decidir(casada, u"u-1"_s).veredicto, V::Igual);
        QCOMPARE(regra.Decidir(casada, u"u-2"_s).veredicto, V::Novo);
    }

    void completar_enche_so_o_que_esta_vazio_e_nao_substitui_nada()
    {
        const auto quem = Com(Ana(), {{C::Telemovel1, u"912345678"_s},
                                      {C::Telemovel2, u"961111111"_s},
                                      {C::Telefone1, u"219999999"_s},
                                      {C::Morada, u"Rua B"_s},
                                      {C::Dia, u"4"_s},
                                      {C::Mes, u"3"_s},
                                      {C::Obs, u"nota nova"_s}});
        const Decisao decisao =
            Livro({Com(Ana(), {{C::Website, u"w"_s}, {C::Obs, u"nota"_s}})}).Decidir(quem);
        QCOMPARE(decisao.veredicto, V::Completa);
        QCOMPARE(decisao.quem, std::vector<std::size_t>{0});
        QCOMPARE(decisao.completado, Com(Ana(), {{C::Telefone2, u"219999999"_s},
                                                 {C::Telemovel2, u"961111111"_s},
                                                 {C::Morada, u"Rua B"_s},
                                                 {C::Dia, u"4"_s},
                                                 {C::Mes, u"3"_s},
                                                 {C::Website, u"w"_s},
                                                 {C::Obs, u"nota\r\nnota nova"_s}}));
        QCOMPARE(decisao.preenchidas,
                 (std::vector<C>{C::Telefone2, C::Telemovel2, C::Dia, C::Mes, C::Morada, C::Obs}));
    }

    void cada_coluna_sozinha_ja_completa_e_a_que_la_esta_fica_data()
    {
        QTest::addColumn<int>("coluna");
        QTest::addColumn<QString>("nova");
        QTest::addColumn<QString>("outra"); // what the other may have there already
        const auto caso = [](C coluna, const QString &nova, const QString &outra) {
            const auto lugar = static_cast<std::size_t>(coluna);
            QTest::newRow(ColunasDoContacto::na_tabela[lugar]) << static_cast<int>(coluna) << nova << outra;
        };
        for (const C numero : ColunasDoContacto::numeros)
            caso(numero, u"211111111"_s, u"211 111 111"_s);
        for (const C email : ColunasDoContacto::emails)
            caso(email, u"a@b.pt"_s, u"A@b.pt"_s);
        caso(C::Website, u"a.pt"_s, u"b.pt"_s);
        caso(C::Morada, u"Rua A"_s, u"Rua B"_s);
        caso(C::Dia, u"4"_s, u"5"_s);
        caso(C::Obs, u"nota"_s, u"uma nota"_s);
        caso(C::Fotografia, u"a.jpg"_s, u"b.jpg"_s);
    }
    void cada_coluna_sozinha_ja_completa_e_a_que_la_esta_fica()
    {
        QFETCH(int, coluna);
        QFETCH(QString, nova);
        QFETCH(QString, outra);
        const auto qual = static_cast<C>(coluna);
        const ColunasDoContacto ana = Contacto({{C::Nome, u"Ana"_s}});
        const ColunasDoContacto quem = Contacto({{C::Nome, u"Outra"_s}, {qual, nova}});
        const Decisao vazia = RegraDosDuplicados::Juntos(u"InglesUK"_s, quem, ana);
        QCOMPARE(vazia.veredicto, V::Completa);
        QCOMPARE(vazia.preenchidas.size(), std::size_t{1});
        QCOMPARE(vazia.completado[vazia.preenchidas.front()], nova);
        const ColunasDoContacto cheia = Com(ana, {{qual, outra}});
        const Decisao dita = RegraDosDuplicados::Juntos(u"InglesUK"_s, quem, cheia);
        QCOMPARE(dita.veredicto, V::Igual);
        QVERIFY(dita.completado == cheia);
    }

    void a_unica_coluna_que_falta_tambem_se_enche()
    {
        constexpr std::array colunas{C::Website, C::Morada, C::Dia, C::Fotografia};
        for (const C qual : colunas) {
            ColunasDoContacto ana = Contacto({{C::Nome, u"Ana"_s}});
            for (const C outra : colunas)
                if (outra != qual) ana[outra] = u"1"_s;
            const Decisao decisao =
                RegraDosDuplicados::Juntos(u"InglesUK"_s, Contacto({{C::Nome, u"Ana"_s}, {qual, u"2"_s}}), ana);
            QCOMPARE(decisao.preenchidas, std::vector<C>{qual});
        }
    }

    void o_que_sao_so_brancos_nao_enche_nada()
    {
        const ColunasDoContacto ana = Contacto({{C::Nome, u"Ana"_s}});
        const Decisao decisao = RegraDosDuplicados::Juntos(
            u"InglesUK"_s, Com(ana, {{C::Telefone1, u"  "_s}, {C::Email1, u" "_s}, {C::Website, u"a.pt"_s}}), ana);
        QCOMPARE(decisao.preenchidas, std::vector<C>{C::Website});
    }

    void o_que_o_outro_tem_noutra_especie_nao_vem_outra_vez()
    {
        const ColunasDoContacto ana = Contacto({{C::Nome, u"Ana Silva"_s}, {C::Telefone1, u"912345678"_s}});
        const Decisao decisao = RegraDosDuplicados::Juntos(
            u"InglesUK"_s, Com(ana, {{C::Telefone1, {}}, {C::Telemovel1, u"+351 912345678"_s}}), ana);
        QCOMPARE(decisao.veredicto, V::Igual);
        QCOMPARE(decisao.quem, std::vector<std::size_t>{0});
        QVERIFY(decisao.completado == ana);
        const Decisao com_morada = RegraDosDuplicados::Juntos(
            u"InglesUK"_s,
            Com(ana, {{C::Telefone1, {}}, {C::Telemovel1, u"+351 912345678"_s}, {C::Morada, u"Rua B"_s}}),
            ana);
        QCOMPARE(com_morada.preenchidas, std::vector<C>{C::Morada});
    }

    void uma_coluna_so_com_espacos_esta_livre()
    {
        const ColunasDoContacto ana = Contacto({{C::Nome, u"Ana Silva"_s}, {C::Telemovel1, u"  "_s}});
        const Decisao decisao =
            RegraDosDuplicados::Juntos(u"InglesUK"_s, Com(ana, {{C::Telemovel1, u"912345678"_s}}), ana);
        QCOMPARE(decisao.completado[C::Telemovel1], u"912345678"_s);
    }

    void um_numero_sem_lugar_livre_vai_para_obs_e_uma_so_vez()
    {
        const auto cheia = Com(Ana(), {{C::Telefone2, u"213333333"_s}});
        const auto quem = Com(Ana(), {{C::Telefone2, u"214444444"_s}});
        const Decisao decisao = Livro({cheia}).Decidir(quem);
        QCOMPARE(decisao.preenchidas, std::vector<C>{C::Obs});
        QVERIFY(decisao.completado[C::Obs].endsWith(u"\r\nPhone: 214444444"_s));
        QCOMPARE(Livro({decisao.completado}).Decidir(quem).veredicto, V::Igual);
    }

    void o_que_foi_completado_e_igual_a_segunda_vez()
    {
        const auto quem = Com(Ana(), {{C::Obs, u"n\r\n--- Further details of the contact ---\r\nA: b"_s}});
        const Decisao decisao = Livro({Com(Ana(), {{C::Obs, u"m"_s}})}).Decidir(quem);
        QCOMPARE(decisao.veredicto, V::Completa);
        QCOMPARE(Livro({decisao.completado}).Decidir(quem).veredicto, V::Igual);
    }

    void quem_vem_duas_vezes_no_mesmo_ficheiro_reconhece_se()
    {
        RegraDosDuplicados regra(u"InglesUK"_s);
        QCOMPARE(regra.Decidir(Ana()).veredicto, V::Novo);
        regra.Juntar(Ana());
        QCOMPARE(regra.Decidir(Ana()).veredicto, V::Igual);
    }

    void nenhuma_variacao_se_junta_a_quem_nao_e()
    {
        Gerador gerador;
        RegraDosDuplicados regra(u"InglesUK"_s);
        std::vector<ColunasDoContacto> livro;
        constexpr int pessoas = 2000;
        for (int i = 1; i <= pessoas; ++i) {
            livro.push_back(gerador.Pessoa(i));
            regra.Juntar(livro.back());
        }
        for (int n = 0; n < Quantas(); ++n) {
            const auto i = static_cast<std::size_t>(gerador.Ao_Acaso(pessoas));
            const Variacao variacao = Variar(livro[i], n % variacoes, n);
            const Decisao decisao = regra.Decidir(variacao.contacto);
            QVERIFY2(decisao.veredicto == variacao.esperado, variacao.nome);
            if (variacao.esperado != V::Novo) QCOMPARE(decisao.quem, std::vector<std::size_t>{i});
        }
    }

    void dez_mil_contactos_comparam_se_em_menos_de_meio_segundo()
    {
        Gerador gerador;
        std::vector<ColunasDoContacto> livro;
        constexpr int pessoas = 10000;
        for (int i = 1; i <= pessoas; ++i)
            livro.push_back(gerador.Pessoa(i));
        const RegraDosDuplicados regra = Livro(livro);
        std::size_t iguais = 0;
        const double gasto = Tempo_Gasto([&] {
            iguais = 0;
            for (const ColunasDoContacto &contacto : livro)
                if (regra.Decidir(contacto).veredicto == V::Igual) ++iguais;
        });
        qInfo("10,000 compared with 10,000 in %.0f ms", gasto / 1000);
        QCOMPARE(iguais, livro.size());
        constexpr double meio_segundo = 5e5;
        QVERIFY(gasto < meio_segundo);
    }
};

MORVEX_TESTE(TestRegraDosDuplicados)
#include "test_RegraDosDuplicados.moc"
