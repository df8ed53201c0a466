// Which birthdays lie within the next days.
#include "data/Geral.h"
#include "reminders/ProximosAniversarios.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct ComContactos {
    ComContactos() { s.Escrever(u"DELETE FROM TblLista"_s); }

    void Contacto(const QString &Nome, const QString &Dia, const QString &Mes)
    {
        s.Novo_Contacto({{u"Nome"_s, Nome}, {u"Dia"_s, Dia}, {u"Mes"_s, Mes}});
    }

    std::vector<Aniversariante> Proximos(QDate hoje, int dias)
    {
        s.geral.SessaoActual.IdUtilizador = u"0"_s;
        return Proximos_Aniversarios(s.geral, hoje, dias).value_or(std::vector<Aniversariante>());
    }

    // The names, with "*" behind those of today.
    QStringList Nomes(QDate hoje, int dias)
    {
        QStringList nomes;
        for (const Aniversariante &pessoa : Proximos(hoje, dias))
            nomes << pessoa.Nome + (pessoa.hoje ? u"*"_s : QString());
        return nomes;
    }

    Sistema s;
};
} // namespace

class TestProximosAniversarios : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_limite_de_dias_e_exclusivo()
    {
        ComContactos c;
        c.Contacto(u"A ontem"_s, u"9"_s, u"5"_s);
        c.Contacto(u"B hoje"_s, u"10"_s, u"5"_s);
        c.Contacto(u"C em seis"_s, u"16"_s, u"5"_s);
        c.Contacto(u"D em sete"_s, u"17"_s, u"5"_s);
        QCOMPARE(c.Nomes({2027, 5, 10}, 7), (QStringList{u"B hoje*"_s, u"C em seis"_s}));
        QCOMPARE(c.Nomes({2027, 5, 10}, 1), QStringList{u"B hoje*"_s});
    }

    void com_zero_dias_nao_ha_nenhum_nem_o_de_hoje()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"10"_s, u"5"_s);
        QVERIFY(c.Nomes({2027, 5, 10}, 0).isEmpty());
    }

    void a_30_de_dezembro_conta_se_o_2_de_janeiro()
    {
        ComContactos c;
        c.Contacto(u"A vinte e nove"_s, u"29"_s, u"12"_s);
        c.Contacto(u"B dois"_s, u"2"_s, u"1"_s);
        c.Contacto(u"C cinco"_s, u"5"_s, u"1"_s);
        c.Contacto(u"D seis"_s, u"6"_s, u"1"_s);
        QCOMPARE(c.Nomes({2027, 12, 30}, 7), (QStringList{u"B dois"_s, u"C cinco"_s}));
    }

    void com_mais_de_um_ano_de_dias_todos_contam_e_o_de_ontem_nao_e_de_hoje()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"9"_s, u"5"_s);
        c.Contacto(u"Rui"_s, u"10"_s, u"5"_s);
        QCOMPARE(c.Nomes({2027, 5, 10}, 400), (QStringList{u"Ana"_s, u"Rui*"_s}));
    }

    void sem_dia_ou_sem_mes_nunca_conta()
    {
        ComContactos c;
        c.Contacto(u"Sem mês"_s, u"10"_s, QString(u""_s));
        c.Contacto(u"Sem dia"_s, QString(u""_s), u"5"_s);
        c.Contacto(u"Nulos"_s, u"10"_s, u"5"_s);
        c.s.Escrever(u"UPDATE TblLista SET Dia=NULL, Mes=NULL WHERE Nome='Nulos'"_s);
        QVERIFY(c.Nomes({2027, 5, 10}, 400).isEmpty());
    }

    void o_que_nao_e_data_nunca_conta()
    {
        ComContactos c;
        c.Contacto(u"A"_s, u"31"_s, u"2"_s);
        c.Contacto(u"B"_s, u"dez"_s, u"5"_s);
        c.Contacto(u"C"_s, u"10"_s, u"13"_s);
        c.Contacto(u"D"_s, u"0"_s, u"1"_s);
        c.Contacto(u"E"_s, u"30"_s, u"2"_s);
        QVERIFY(c.Nomes({2027, 5, 10}, 400).isEmpty());
        QVERIFY(c.Nomes({2028, 2, 28}, 400).isEmpty());
    }

    void dia_e_mes_com_zero_a_frente_valem()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"07"_s, u"05"_s);
        QCOMPARE(c.Nomes({2027, 5, 7}, 7), QStringList{u"Ana*"_s});
    }

    void o_29_de_fevereiro_conta_a_1_de_marco_num_ano_comum()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"29"_s, u"2"_s);
        QCOMPARE(c.Nomes({2027, 3, 1}, 1), QStringList{u"Ana*"_s});
        QVERIFY(c.Nomes({2027, 2, 28}, 1).isEmpty());
        QCOMPARE(c.Nomes({2027, 2, 28}, 2), QStringList{u"Ana"_s});
    }

    void o_29_de_fevereiro_conta_no_seu_dia_num_ano_bissexto()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"29"_s, u"2"_s);
        QCOMPARE(c.Nomes({2028, 2, 29}, 1), QStringList{u"Ana*"_s});
        QVERIFY(c.Nomes({2028, 3, 1}, 1).isEmpty());
    }

    void quem_faz_anos_no_mesmo_dia_conta_todo_e_dia_e_mes_trocados_sao_outro_dia()
    {
        ComContactos c;
        c.Contacto(u"Ana"_s, u"12"_s, u"10"_s);
        c.Contacto(u"Eva"_s, u"10"_s, u"12"_s);
        c.Contacto(u"Ivo"_s, u"10"_s, u"11"_s);
        c.Contacto(u"Rui"_s, u"12"_s, u"10"_s);
        QCOMPARE(c.Nomes({2027, 10, 12}, 7), (QStringList{u"Ana*"_s, u"Rui*"_s}));
        QCOMPARE(c.Nomes({2027, 12, 8}, 7), QStringList{u"Eva"_s});
        const auto proximos = c.Proximos({2027, 10, 12}, 7);
        QVERIFY(proximos[0].ID != proximos[1].ID);
        QCOMPARE(proximos[1].Dia + u'/' + proximos[1].Mes, u"12/10"_s);
    }

    void cada_dia_do_ano_conta_na_sua_semana()
    {
        ComContactos c;
        for (QDate dia(2027, 1, 1); dia.year() == 2027; dia = dia.addDays(1))
            c.Contacto(dia.toString(u"MM-dd"_s), QString::number(dia.day()), QString::number(dia.month()));
        for (QDate hoje(2027, 1, 1); hoje < QDate(2027, 12, 25); hoje = hoje.addDays(7)) {
            QStringList nomes{hoje.toString(u"MM-dd"_s) + u'*'};
            for (int dias = 1; dias < 7; ++dias)
                nomes << hoje.addDays(dias).toString(u"MM-dd"_s);
            QCOMPARE(c.Nomes(hoje, 7), nomes);
        }
    }

    void o_que_se_parece_com_um_dia_nao_toma_o_lugar_desse_dia()
    {
        ComContactos c;
        c.Contacto(u"A"_s, u":"_s, u"1"_s); // the sign behind 9
        c.Contacto(u"B"_s, u"1"_s, u"101"_s);
        c.Contacto(u"C"_s, u"10"_s, u"1"_s);
        c.Contacto(u"D"_s, u"2"_s, u"1"_s);
        QCOMPARE(c.Nomes({2027, 1, 1}, 30), (QStringList{u"C"_s, u"D"_s}));
    }

    void a_ordem_e_a_do_comando_e_so_contam_os_grupos_visiveis()
    {
        ComContactos c;
        c.Contacto(u"Zita"_s, u"10"_s, u"5"_s);
        c.Contacto(u"Álvaro"_s, u"11"_s, u"5"_s);
        c.s.Novo_Contacto({{u"Nome"_s, u"De outro"_s},
                           {u"Dia"_s, u"10"_s},
                           {u"Mes"_s, u"5"_s},
                           {u"Grupo"_s, c.s.Novo_Grupo(u"Alheio"_s, 9)}});
        QCOMPARE(c.Nomes({2027, 5, 10}, 7), (QStringList{u"Álvaro"_s, u"Zita*"_s}));
    }
};

MORVEX_TESTE(TestProximosAniversarios)
#include "test_ProximosAniversarios.moc"
