// Which contacts of a book may be one person, and one contact made of two.
#include "cards/JuncaoDeContactos.h"

#include "cards/ParesDuplicados.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QRandomGenerator>
#include <set>

using namespace Qt::StringLiterals;
using enum Coluna;

namespace
{
using Campos = std::map<Coluna, QString>;

ColunasDoContacto Contacto(const Campos &campos)
{
    ColunasDoContacto colunas;
    for (const auto &[coluna, valor] : campos)
        colunas[coluna] = valor;
    return colunas;
}

std::vector<ParDuplicado> Pares(const std::vector<Campos> &contactos)
{
    ParesDuplicados procura;
    for (const Campos &campos : contactos)
        procura.Juntar(Contacto(campos));
    return procura.Pares();
}

std::vector<ParDuplicado> Um_Par(Indicio indicio) { return {{0, 1, indicio}}; }

ColunasDoContacto Juntos(const Campos &um, const Campos &outro,
                         const JuncaoDeContactos::Escolhas &escolhas = {})
{
    return JuncaoDeContactos(Contacto(um), Contacto(outro), u"PortuguesPT"_s).Juntos(escolhas);
}

const auto marca = u"--- Outros dados do contacto ---\r\n"_s;
} // namespace

class TestJuncaoDeContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nome_e_chave_em_comum_sao_o_indicio_mais_forte()
    {
        QCOMPARE(Pares({{{Nome, u"Ana da Silva"_s}, {Telemovel1, u"+351 912 345 678"_s}},
                        {{Nome, u"SILVA, Ana"_s}, {Telefone2, u"912345678"_s}}}),
                 Um_Par(Indicio::NomeEChave));
        QCOMPARE(Pares({{{Nome, u"José"_s}, {Email1, u"Z@x.example"_s}},
                        {{Nome, u"jose"_s}, {Email2, u"z@X.example"_s}}}),
                 Um_Par(Indicio::NomeEChave));
    }

    void so_o_nome_ou_so_a_chave_tambem_fazem_um_par()
    {
        QCOMPARE(Pares({{{Nome, u"Ana Silva"_s}}, {{Nome, u"Ana Silva"_s}}}), Um_Par(Indicio::Nome));
        QCOMPARE(Pares({{{Nome, u"Ana"_s}, {Telefone1, u"212345678"_s}},
                        {{Nome, u"Rui"_s}, {Fax, u"212345678"_s}}}),
                 Um_Par(Indicio::Chave));
        QCOMPARE(
            Pares({{{Nome, u"Ana"_s}, {Telefone1, u"112"_s}}, {{Nome, u"Rui"_s}, {Telefone1, u"112"_s}}}),
            std::vector<ParDuplicado>());
        QCOMPARE(Pares({{}, {}}), std::vector<ParDuplicado>());
    }

    void uma_chave_de_mais_de_tres_contactos_nao_prova_nada_sozinha()
    {
        std::vector<Campos> firma;
        for (const QString &nome : {u"Ana"_s, u"Rui"_s, u"Eva"_s})
            firma.push_back({{Nome, nome}, {Telefone1, u"212345678"_s}});
        QCOMPARE(Pares(firma).size(), std::size_t{3});
        firma.push_back({{Nome, u"Zé"_s}, {Telefone1, u"212345678"_s}});
        QCOMPARE(Pares(firma).size(), std::size_t{0});
        // Two of the firm are one all the same.
        firma.push_back({{Nome, u"Zé"_s}, {Telefone1, u"212345678"_s}});
        QCOMPARE(Pares(firma), (std::vector<ParDuplicado>{{3, 4, Indicio::NomeEChave}}));
    }

    void o_mesmo_contacto_muitas_vezes_tem_um_par_de_cada_um_com_o_primeiro()
    {
        const std::vector<ParDuplicado> pares =
            Pares(std::vector<Campos>(5, {{Nome, u"Ana"_s}, {Telefone1, u"212345678"_s}}));
        QCOMPARE(pares.size(), std::size_t{4});
        for (std::size_t i = 0; i < pares.size(); ++i)
            QCOMPARE(pares[i], (ParDuplicado{0, i + 1, Indicio::NomeEChave}));
    }

    void os_pares_mais_certos_vem_primeiro_e_cada_um_uma_vez()
    {
        const auto pares =
            Pares({{{Nome, u"Eva"_s}},
                   {{Nome, u"Ana"_s}, {Telefone1, u"212345678"_s}, {Email1, u"a@x.example"_s}},
                   {{Nome, u"Eva"_s}},
                   {{Nome, u"Ana"_s}, {Telefone1, u"212345678"_s}, {Email1, u"a@x.example"_s}}});
        QCOMPARE(pares, (std::vector<ParDuplicado>{{1, 3, Indicio::NomeEChave}, {0, 2, Indicio::Nome}}));
    }

    void trinta_e_dois_mil_contactos_comparam_se_em_tempo_linear()
    {
        const auto livro = [](int quantos) {
            auto procura = std::make_unique<ParesDuplicados>();
            for (int i = 0; i < quantos; ++i) // half of them twice, and all of one name that says nothing
                procura->Juntar(Contacto({{Nome, i % 4 < 2 ? u"Novo contacto"_s : u"Pessoa %1"_s.arg(i / 2)},
                                          {Telemovel1, u"9%1"_s.arg(10'000'000 + i / 2)},
                                          {Email1, u"p%1@x.example"_s.arg(i / 2)}}));
            return procura;
        };
        const auto tempo = [&](int quantos) {
            return Tempo_Gasto(
                [&] { QCOMPARE(livro(quantos)->Pares().size(), static_cast<std::size_t>(quantos) / 2); });
        };
        const double oito = tempo(8'000);
        const double todos = tempo(32'000);
        qInfo("8,000: %.0f ms; 32,000: %.0f ms", oito / 1000, todos / 1000);
        QVERIFY2(todos < 8 * oito, qPrintable(u"%1 of %2"_s.arg(todos).arg(oito)));
    }

    void numeros_enchem_os_lugares_livres_e_o_resto_vai_para_as_observacoes()
    {
        const ColunasDoContacto juntos =
            Juntos({{Telemovel2, u"911111111"_s}, {Fax, u"213333333"_s}, {Email1, u"a@x.example"_s}},
                   {{Telemovel1, u"922222222"_s},
                    {Telemovel2, u"+351 911 111 111"_s},
                    {Telemovel3, u"933333333"_s},
                    {Fax, u"214444444"_s},
                    {Email1, u"A@X.example"_s},
                    {Email2, u"b@x.example"_s}});
        QCOMPARE(juntos, Contacto({{Telemovel1, u"922222222"_s},
                                   {Telemovel2, u"911111111"_s},
                                   {Telemovel3, u"933333333"_s},
                                   {Fax, u"213333333"_s},
                                   {Email1, u"a@x.example"_s},
                                   {Email2, u"b@x.example"_s},
                                   {Obs, marca + u"Fax: 214444444"_s}}));
    }

    void o_mesmo_numero_escrito_de_duas_maneiras_fica_numa_so_linha()
    {
        const Campos cheio{{Telefone1, u"211111111"_s}, {Telefone2, u"222222222"_s}};
        const ColunasDoContacto junto =
            Juntos(cheio, {{Telefone1, u"233 333 333"_s}, {Telefone2, u"+351 233333333"_s}});
        QCOMPARE(junto[Obs], marca + u"Telefone: 233 333 333"_s);
    }

    // A number of one kind may well be there as one of another; where it completes, it is not written twice.
    void um_numero_que_o_outro_tem_noutra_especie_fica_nas_duas()
    {
        const ColunasDoContacto junto = Juntos({{Telefone1, u"912345678"_s}}, {{Telemovel1, u"912345678"_s}});
        QCOMPARE(junto[Telemovel1], u"912345678"_s);
        QCOMPARE(junto[Telefone1], u"912345678"_s);
    }

    void o_que_so_pode_ser_um_fica_do_primeiro_e_o_outro_nas_observacoes()
    {
        const ColunasDoContacto juntos = Juntos({{Nome, u"José"_s},
                                                 {Website, u"a.example"_s},
                                                 {Morada, u"Rua A"_s},
                                                 {Dia, u"4"_s},
                                                 {Mes, u"3"_s},
                                                 {Fotografia, u"/a.jpg"_s},
                                                 {IDGrupo, u"1"_s}},
                                                {{Nome, u"Zé"_s},
                                                 {Website, u"b.example"_s},
                                                 {Morada, u"Rua B\r\nLisboa"_s},
                                                 {Dia, u"5"_s},
                                                 {Mes, u"3"_s},
                                                 {Ano, u"1975"_s},
                                                 {Fotografia, u"bd:b.jpg"_s},
                                                 {IDGrupo, u"2"_s}});
        QCOMPARE(juntos[Nome], u"José"_s);
        QCOMPARE(juntos[Ano], QString());
        QCOMPARE(juntos[IDGrupo], u"1"_s);
        QCOMPARE(juntos[Obs], marca +
                                  u"Nome completo: Zé\r\nPágina web: b.example\r\nMorada: Rua B, Lisboa\r\n"
                                  u"Aniversário: 5/3/1975\r\nFotografia: bd:b.jpg"_s);
    }

    void o_que_um_nao_diz_vem_do_outro()
    {
        const Campos tudo{
            {Website, u"b.example"_s}, {Morada, u"Rua B"_s},        {Dia, u"5"_s},   {Mes, u"3"_s},
            {Ano, u"1975"_s},          {Fotografia, u"bd:b.jpg"_s}, {Obs, u"nota"_s}};
        QCOMPARE(Juntos({}, tudo), Contacto(tudo));
        QCOMPARE(Juntos(tudo, {}), Contacto(tudo));
        QCOMPARE(Juntos(tudo, tudo), Contacto(tudo));
    }

    void um_aniversario_sem_ano_recebe_o_do_outro()
    {
        const Campos com{{Dia, u"5"_s}, {Mes, u"3"_s}, {Ano, u"1975"_s}};
        const Campos sem{{Dia, u"5"_s}, {Mes, u"3"_s}};
        QCOMPARE(Juntos(sem, com), Contacto(com));
        QCOMPARE(Juntos(com, sem), Contacto(com));
        const ColunasDoContacto outro = Juntos(com, {{Dia, u"5"_s}, {Mes, u"3"_s}, {Ano, u"1980"_s}});
        QCOMPARE(outro[Ano], u"1975"_s);
        QCOMPARE(outro[Obs], marca + u"Aniversário: 5/3/1980"_s);
    }

    void as_observacoes_de_ambos_ficam_com_um_so_bloco()
    {
        const ColunasDoContacto juntos = Juntos({{Obs, u"uma\r\n"_s + marca + u"Cargo: a"_s}},
                                                {{Obs, u"outra\r\n"_s + marca + u"Cargo: a\r\nCargo: b"_s}});
        QCOMPARE(juntos[Obs], u"uma\r\noutra\r\n"_s + marca + u"Cargo: a\r\nCargo: b"_s);
    }

    void uma_escolha_deixa_de_fora_o_que_o_outro_diz()
    {
        const Campos um{{Nome, u"Ana"_s}, {Fax, u"211111111"_s}, {Obs, u"uma"_s}, {IDGrupo, u"1"_s}};
        const Campos outro{{Nome, u"Eva"_s}, {Fax, u"222222222"_s}, {Obs, u"outra"_s}, {IDGrupo, u"2"_s}};
        JuncaoDeContactos::Escolhas escolhas;
        for (const Linha linha : linhas_do_contacto::todas)
            escolhas[linha] = Fica::Segundo;
        QCOMPARE(Juntos(um, outro, escolhas), Contacto(outro));
        for (auto &[linha, fica] : escolhas)
            fica = Fica::Primeiro;
        QCOMPARE(Juntos(um, outro, escolhas), Contacto(um));
    }

    void ha_escolha_so_onde_ambos_dizem_coisas_diferentes()
    {
        const JuncaoDeContactos juncao(
            Contacto({{Nome, u"Ana"_s}, {Fax, u"211111111"_s}, {Telemovel1, u"912345678"_s}}),
            Contacto({{Nome, u"Eva"_s}, {Morada, u"x"_s}, {Telemovel3, u"00351912345678"_s}}),
            u"PortuguesPT"_s);
        for (const Linha linha : linhas_do_contacto::todas)
            QCOMPARE(juncao.Diferem(linha), linha == Linha::Nome);
    }

    void numeros_e_mails_comparam_se_sem_olhar_a_ordem_nem_a_repeticoes_data()
    {
        QTest::addColumn<QStringList>("um"); // the columns of the line
        QTest::addColumn<QStringList>("outro");
        QTest::addColumn<bool>("diferem");
        const QString a = u"211111111"_s;
        const QString b = u"222222222"_s;
        QTest::newRow("outra ordem") << QStringList{a, b} << QStringList{b, a} << false;
        QTest::newRow("duas vezes") << QStringList{a, u"211 111 111"_s} << QStringList{a, QString()} << false;
        QTest::newRow("noutra coluna") << QStringList{a, QString()} << QStringList{QString(), a} << false;
        QTest::newRow("mais um") << QStringList{a, QString()} << QStringList{a, b} << true;
        QTest::newRow("so brancos") << QStringList{a, QString()} << QStringList{u" "_s, QString()} << false;
    }
    void numeros_e_mails_comparam_se_sem_olhar_a_ordem_nem_a_repeticoes()
    {
        QFETCH(QStringList, um);
        QFETCH(QStringList, outro);
        QFETCH(bool, diferem);
        for (const auto &[linha, colunas] : {std::pair(Linha::Telefone, std::pair(Telefone1, Telefone2)),
                                             std::pair(Linha::Telemovel, std::pair(Telemovel2, Telemovel3)),
                                             std::pair(Linha::Email, std::pair(Email1, Email2))}) {
            const auto contacto = [&](const QStringList &valores) {
                return Contacto({{colunas.first, valores[0]}, {colunas.second, valores[1]}});
            };
            if (linha == Linha::Email) // of which a blank is a letter like others
                um.replaceInStrings(u" 111 111"_s, u"111111"_s);
            const JuncaoDeContactos juncao(contacto(um), contacto(outro), u"PortuguesPT"_s);
            QCOMPARE(juncao.Diferem(linha), diferem);
        }
    }

    void o_mesmo_dia_de_outro_mes_e_outro_aniversario()
    {
        const ColunasDoContacto juntos = Juntos({{Dia, u"5"_s}, {Mes, u"3"_s}}, {{Dia, u"5"_s}, {Mes, u"4"_s}});
        QCOMPARE(juntos, Contacto({{Dia, u"5"_s}, {Mes, u"3"_s}, {Obs, marca + u"Aniversário: 5/4"_s}}));
    }

    void o_que_nao_tem_lugar_vem_com_a_palavra_da_sua_linha()
    {
        const Campos cheio{{Telefone1, u"211111111"_s},  {Telefone2, u"222222222"_s},  {Telemovel1, u"911111111"_s},
                           {Telemovel2, u"922222222"_s}, {Telemovel3, u"933333333"_s}, {Fax, u"213333333"_s},
                           {Email1, u"a@x"_s},           {Email2, u"b@x"_s}};
        const Campos outro{{Telefone1, u"244444444"_s},
                           {Telemovel1, u"944444444"_s},
                           {Fax, u"255555555"_s},
                           {Email1, u"c@x"_s}};
        QCOMPARE(Juntos(cheio, outro)[Obs], marca + u"Telemóvel: 944444444\r\nTelefone: 244444444\r\n"
                                                    u"Fax: 255555555\r\nE-mail: c@x"_s);
    }

    void nenhum_valor_de_dois_contactos_ao_acaso_se_perde()
    {
        QRandomGenerator acaso(7);
        const auto ao_acaso = [&] {
            ColunasDoContacto colunas;
            for (QString &valor : colunas.valores)
                if (acaso.bounded(3) > 0) valor = u"v%1"_s.arg(acaso.bounded(1'000'000));
            return colunas;
        };
        for (int i = 0; i < 2000; ++i) {
            const ColunasDoContacto um = ao_acaso();
            const ColunasDoContacto outro = ao_acaso();
            const ColunasDoContacto juntos = JuncaoDeContactos(um, outro, u"AlemaoDE"_s).Juntos({});
            QString tudo;
            for (const QString &valor : juntos.valores)
                tudo += valor + u'\n';
            for (std::size_t c = 0; c < ColunasDoContacto::quantas; ++c) {
                QVERIFY(tudo.contains(um.valores[c]));
                if (static_cast<Coluna>(c) != IDGrupo) QVERIFY(tudo.contains(outro.valores[c]));
            }
        }
    }
};

MORVEX_TESTE(TestJuncaoDeContactos)
#include "test_JuncaoDeContactos.moc"
