// One contact of two that were changed apart.
#include "sincronizacao/JuncaoDeTres.h"

#include "testlib/Teste.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
const auto idioma = u"PortuguesPT"_s;
const auto marca = u"\r\n--- Outros dados do contacto ---\r\n"_s;

ColunasDoContacto Com(const std::vector<std::pair<Coluna, QString>> &valores)
{
    ColunasDoContacto colunas;
    colunas[Coluna::Nome] = u"Ana"_s;
    for (const auto &[coluna, valor] : valores)
        colunas[coluna] = valor;
    return colunas;
}

// The same contact before, and what has become of it.
JuntosDosTres Juntar(const ColunasDoContacto &antes, const ColunasDoContacto &aqui,
                     const ColunasDoContacto &la)
{
    return Juntar_Os_Tres({aqui, antes, la, antes}, idioma);
}
} // namespace

class TestJuncaoDeTres : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void colunas_diferentes_juntam_se_e_so_a_nossa_falta_enviar()
    {
        const auto juntos = Juntar(Com({{Coluna::Fax, u"1"_s}, {Coluna::Morada, u"Rua"_s}}),
                                   Com({{Coluna::Fax, u"2"_s}, {Coluna::Morada, u"Rua"_s}}),
                                   Com({{Coluna::Fax, u"1"_s}, {Coluna::Morada, u"Largo"_s}}));
        QCOMPARE(juntos.colunas, Com({{Coluna::Fax, u"2"_s}, {Coluna::Morada, u"Largo"_s}}));
        QCOMPARE(juntos.acordo, Com({{Coluna::Fax, u"1"_s}, {Coluna::Morada, u"Largo"_s}}));
        QVERIFY(juntos.conflitos.empty());
    }

    void na_mesma_coluna_fica_o_do_servidor_e_o_nosso_vai_para_obs()
    {
        const auto juntos =
            Juntar(Com({{Coluna::Morada, u"Rua"_s}}), Com({{Coluna::Morada, u"Largo\r\nPorto"_s}}),
                   Com({{Coluna::Morada, u"Praça"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Morada], u"Praça"_s);
        QCOMPARE(juntos.colunas[Coluna::Obs], u"--- Outros dados do contacto ---\r\nMorada: Largo, Porto"_s);
        QCOMPARE(juntos.acordo[Coluna::Obs], QString()); // it has to be sent
        QCOMPARE(juntos.conflitos.size(), 1U);
        QCOMPARE(juntos.conflitos.front().aqui, u"Largo, Porto"_s);
        QCOMPARE(juntos.conflitos.front().la, u"Praça"_s);
    }

    void o_mesmo_nos_dois_lados_nao_e_conflito_e_nada_falta_enviar()
    {
        const auto mudado = Com({{Coluna::Fax, u"2"_s}, {Coluna::Obs, u"nota"_s}});
        const auto juntos = Juntar(Com({{Coluna::Fax, u"1"_s}}), mudado, mudado);
        QCOMPARE(juntos.colunas, mudado);
        QCOMPARE(juntos.acordo, mudado);
        QVERIFY(juntos.conflitos.empty());
    }

    void o_que_um_lado_apagou_e_o_outro_escreveu_fica_escrito()
    {
        const auto antes =
            Com({{Coluna::Fax, u"1"_s}, {Coluna::Website, u"a"_s}, {Coluna::Morada, u"Rua"_s}});
        const auto juntos = Juntar(antes, Com({{Coluna::Fax, u"2"_s}, {Coluna::Morada, u"Largo"_s}}),
                                   Com({{Coluna::Website, u"b"_s}}));
        QCOMPARE(juntos.colunas,
                 Com({{Coluna::Fax, u"2"_s}, {Coluna::Website, u"b"_s}, {Coluna::Morada, u"Largo"_s}}));
        QCOMPARE(juntos.acordo, Com({{Coluna::Website, u"b"_s}})); // ours have to be sent
        QVERIFY(juntos.conflitos.empty());
    }

    void o_aniversario_e_uma_coisa_so()
    {
        const auto data = [](const QString &dia, const QString &mes) {
            return Com({{Coluna::Dia, dia}, {Coluna::Mes, mes}, {Coluna::Ano, u"1990"_s}});
        };
        const auto juntos = Juntar(data(u"1"_s, u"1"_s), data(u"2"_s, u"1"_s), data(u"1"_s, u"3"_s));
        QCOMPARE(juntos.colunas[Coluna::Dia] + u'/' + juntos.colunas[Coluna::Mes], u"1/3"_s);
        QVERIFY(juntos.colunas[Coluna::Obs].endsWith(u"2/1/1990"_s));
        QCOMPARE(juntos.conflitos.size(), 1U);
    }

    void um_aniversario_sem_ano_le_se_sem_nada_no_seu_lugar()
    {
        const auto juntos =
            Juntar(Com({}), Com({{Coluna::Dia, u"4"_s}, {Coluna::Mes, u"3"_s}}),
                   Com({{Coluna::Dia, u"5"_s}, {Coluna::Mes, u"3"_s}, {Coluna::Ano, u"1975"_s}}));
        QCOMPARE(juntos.conflitos.size(), 1U);
        QCOMPARE(juntos.conflitos.front().aqui, u"4/3"_s);
        QCOMPARE(juntos.conflitos.front().la, u"5/3/1975"_s);
    }

    void um_numero_que_mudou_de_coluna_nao_se_perde_nem_se_repete()
    {
        const auto juntos =
            Juntar(Com({}), Com({{Coluna::Telemovel1, u"912 345 678"_s}}),
                   Com({{Coluna::Telemovel1, u"960000000"_s}, {Coluna::Telemovel2, u"+351912345678"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Telemovel1], u"960000000"_s);
        QCOMPARE(juntos.colunas[Coluna::Obs], QString());
        QVERIFY(juntos.conflitos.empty());
    }

    // A card has its numbers in an order of its own.
    void o_numero_que_la_se_trocou_e_o_que_ca_sai_esteja_em_que_coluna_estiver()
    {
        const auto numeros = [](const QString &um, const QString &dois) {
            return Com({{Coluna::Telemovel1, um}, {Coluna::Telemovel2, dois}});
        };
        const auto juntos = Juntar_Os_Tres({numeros(u"911"_s, u"922"_s), numeros(u"911"_s, u"922"_s),
                                            numeros(u"944"_s, u"911"_s), numeros(u"922"_s, u"911"_s)},
                                           idioma);
        QCOMPARE(juntos.colunas, numeros(u"944"_s, u"911"_s));
        QVERIFY(Dizem_O_Mesmo(juntos.colunas, juntos.acordo));
        const auto vazio_a_frente = Juntar_Os_Tres({numeros(u""_s, u"922"_s), numeros(u""_s, u"922"_s),
                                                    numeros(u"944"_s, u""_s), numeros(u"922"_s, u""_s)},
                                                   idioma);
        QCOMPARE(vazio_a_frente.colunas, numeros(u"944"_s, u""_s));
    }

    void o_que_um_trocou_e_o_outro_tirou_fica_trocado()
    {
        const auto antes = Com({{Coluna::Telemovel1, u"911"_s}, {Coluna::Telemovel2, u"922"_s}});
        const auto juntos =
            Juntar(antes, Com({{Coluna::Telemovel1, u"911"_s}, {Coluna::Telemovel2, u"933"_s}}),
                   Com({{Coluna::Telemovel1, u"911"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Telemovel2], u"933"_s);
        QCOMPARE(juntos.acordo[Coluna::Telemovel2], QString());
        QVERIFY(juntos.conflitos.empty());
    }

    void um_numero_tirado_num_lado_nao_volta_do_outro()
    {
        const auto antes = Com({{Coluna::Telemovel1, u"911"_s}, {Coluna::Telemovel2, u"922"_s}});
        const auto juntos = Juntar(antes, Com({{Coluna::Telemovel1, u"922"_s}}),
                                   Com({{Coluna::Telemovel1, u"911"_s},
                                        {Coluna::Telemovel2, u"922"_s},
                                        {Coluna::Telemovel3, u"933"_s}}));
        QCOMPARE(juntos.colunas, Com({{Coluna::Telemovel1, u"922"_s}, {Coluna::Telemovel2, u"933"_s}}));
    }

    void um_numero_tirado_ca_e_escrito_de_outro_modo_la_fica()
    {
        const auto juntos = Juntar(Com({{Coluna::Telemovel1, u"912345678"_s}}), Com({}),
                                   Com({{Coluna::Telemovel1, u"+351 912 345 678"_s}}));
        QCOMPARE(juntos.colunas, Com({{Coluna::Telemovel1, u"+351 912 345 678"_s}}));
    }

    void do_numero_que_ambos_trocaram_fica_o_de_la_e_o_nosso_vai_para_obs_ainda_que_haja_lugar()
    {
        const auto juntos =
            Juntar(Com({{Coluna::Telemovel1, u"911"_s}}), Com({{Coluna::Telemovel1, u"922"_s}}),
                   Com({{Coluna::Telemovel1, u"933"_s}}));
        QCOMPARE(juntos.colunas,
                 Com({{Coluna::Telemovel1, u"933"_s},
                      {Coluna::Obs, u"--- Outros dados do contacto ---\r\nTelemóvel: 922"_s}}));
        QCOMPARE(juntos.conflitos.size(), 1U);
        QCOMPARE(juntos.conflitos.front().coluna, Coluna::Telemovel1);
        QCOMPARE(juntos.conflitos.front().aqui, u"922"_s);
        QCOMPARE(juntos.conflitos.front().la, u"933"_s);
    }

    void o_mesmo_numero_escrito_de_outro_modo_vem()
    {
        const auto antes = Com({{Coluna::Telemovel1, u"912345678"_s}});
        const auto juntos = Juntar(antes, antes, Com({{Coluna::Telemovel1, u"+351 912 345 678"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Telemovel1], u"+351 912 345 678"_s);
    }

    void o_numero_para_que_nao_ha_lugar_vai_para_obs_e_di_se()
    {
        const auto antes = Com({});
        const auto juntos = Juntar(antes, Com({{Coluna::Fax, u"1"_s}}), Com({{Coluna::Fax, u"2"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Fax], u"2"_s);
        QVERIFY(juntos.colunas[Coluna::Obs].endsWith(u"Fax: 1"_s));
        QCOMPARE(juntos.conflitos.size(), 1U);
    }

    void alinhar_deixa_cada_numero_onde_o_outro_o_tem()
    {
        const auto nosso = Com({{Coluna::Telemovel1, u"911"_s}, {Coluna::Telemovel2, u"933"_s}});
        const auto outro = Com({{Coluna::Telemovel1, u"922"_s}, {Coluna::Telemovel2, u"911"_s}});
        QCOMPARE(Alinhado(nosso, outro),
                 Com({{Coluna::Telemovel1, u"933"_s}, {Coluna::Telemovel2, u"911"_s}}));
    }

    void as_notas_de_ambos_ficam()
    {
        const auto juntos =
            Juntar(Com({{Coluna::Obs, u"nota"_s}}), Com({{Coluna::Obs, u"nossa\r\nsegunda"_s}}),
                   Com({{Coluna::Obs, u"deles"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Obs], u"deles"_s + marca + u"nossa\r\nsegunda"_s);
        QCOMPARE(juntos.conflitos.size(), 1U);
    }

    void a_linha_que_ambas_as_notas_tem_nao_se_repete()
    {
        const auto juntos =
            Juntar(Com({{Coluna::Obs, u"velha"_s}}), Com({{Coluna::Obs, u"comum\r\nnossa"_s}}),
                   Com({{Coluna::Obs, u"comum\r\ndela"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Obs], u"comum\r\ndela"_s + marca + u"nossa"_s);
    }

    void uma_nota_que_contem_a_outra_fica_inteira_sem_conflito()
    {
        const auto juntos = Juntar(Com({{Coluna::Obs, u"nota"_s}}), Com({{Coluna::Obs, u"nota\r\nmais"_s}}),
                                   Com({{Coluna::Obs, u"nota\r\nmais\r\nainda"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Obs], u"nota\r\nmais\r\nainda"_s);
        QVERIFY(juntos.conflitos.empty());
    }

    void uma_linha_do_bloco_que_um_lado_tirou_sai_e_as_novas_entram()
    {
        const auto obs = [](const QString &linhas) { return Com({{Coluna::Obs, u"n"_s + marca + linhas}}); };
        const auto juntos = Juntar(obs(u"Empresa: A\r\nPager: 1"_s), obs(u"Empresa: A\r\nEmail: x"_s),
                                   obs(u"Empresa: B\r\nPager: 1"_s));
        QCOMPARE(juntos.colunas[Coluna::Obs], u"n"_s + marca + u"Empresa: B\r\nEmail: x"_s);
        QVERIFY(juntos.conflitos.empty());
    }

    void a_nota_que_so_ca_mudou_e_a_linha_que_so_la_mudou_ficam_ambas()
    {
        const auto juntos = Juntar(Com({{Coluna::Obs, u"nota"_s + marca + u"Empresa: A"_s}}),
                                   Com({{Coluna::Obs, u"outra"_s + marca + u"Empresa: A"_s}}),
                                   Com({{Coluna::Obs, u"nota"_s + marca + u"Empresa: B"_s}}));
        QCOMPARE(juntos.colunas[Coluna::Obs], u"outra"_s + marca + u"Empresa: B"_s);
        QVERIFY(juntos.conflitos.empty());
    }

    void as_linhas_que_so_ca_mudaram_de_ordem_ficam_na_nossa()
    {
        const auto obs = [](const QString &linhas) { return Com({{Coluna::Obs, u"n"_s + marca + linhas}}); };
        const auto antes = obs(u"Empresa: A\r\nPager: 1"_s);
        const auto aqui = obs(u"Pager: 1\r\nEmpresa: A"_s);
        const auto juntos = Juntar(antes, aqui, antes);
        QCOMPARE(juntos.colunas, aqui);
        QCOMPARE(juntos.acordo, antes); // ours has to be sent
    }

    void cada_coluna_conta_menos_a_do_grupo()
    {
        QVERIFY(Dizem_O_Mesmo(Com({}), Com({})));
        for (std::size_t i = 0; i < ColunasDoContacto::quantas; ++i) {
            ColunasDoContacto outro = Com({});
            outro.valores.at(i) = u"outro"_s;
            QCOMPARE(Dizem_O_Mesmo(Com({}), outro), i == static_cast<std::size_t>(Coluna::IDGrupo));
        }
    }

    void sem_acordo_nada_do_que_qualquer_um_diz_se_perde()
    {
        const auto aqui = Com({{Coluna::Fax, u"1"_s}, {Coluna::Email1, u"a@x"_s}, {Coluna::Obs, u"nossa"_s}});
        const auto la =
            Com({{Coluna::Website, u"w"_s}, {Coluna::Email1, u"b@x"_s}, {Coluna::Obs, u"deles"_s}});
        const auto juntos = Juntar_Os_Tres({aqui, {}, la, {}}, idioma);
        QCOMPARE(juntos.colunas[Coluna::Fax], u"1"_s);
        QCOMPARE(juntos.colunas[Coluna::Website], u"w"_s);
        QCOMPARE(juntos.colunas[Coluna::Email1] + u' ' + juntos.colunas[Coluna::Email2], u"b@x a@x"_s);
        QCOMPARE(juntos.colunas[Coluna::Obs], u"deles"_s + marca + u"nossa"_s);
    }

    void o_grupo_e_sempre_o_de_ca()
    {
        auto aqui = Com({});
        aqui[Coluna::IDGrupo] = u"7"_s;
        const auto juntos = Juntar(Com({}), aqui, Com({{Coluna::Fax, u"1"_s}}));
        QCOMPARE(juntos.colunas[Coluna::IDGrupo], u"7"_s);
        QVERIFY(Dizem_O_Mesmo(juntos.colunas, juntos.acordo));
    }
};

MORVEX_TESTE(TestJuncaoDeTres)
#include "test_JuncaoDeTres.moc"
