// A new row whose answer a server did not give: written once, whatever became of the first try.
#include "data/FeitoPorSaber.h"
#include "data/NovaPorSaber.h"
#include "testlib/EspecieDaFalha.h"
#include "testlib/ServidorFalso.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
// A group that somebody adds at a desk.
struct Posto {
    Posto() { servidor.Servir(s.geral); }

    QString Gravar(const QString &nome, const QString &dono = u"0"_s)
    {
        return nova.Gravar(
            {nome, dono}, [&] { s.geral.de.Executar("cmdInserirGrupo", {nome, dono}); },
            [&](const QString &ID) { s.geral.de.Executar("cmdRenameGroup", {nome, ID}); });
    }
    bool Perde_Se(const QString &nome, const QString &dono = u"0"_s)
    {
        return teste::Especie_Da_Falha([&] { Gravar(nome, dono); }) == Failure::Kind::ServerLost;
    }
    void Juntar_Coral(FeitoPorSaber &feito)
    {
        feito.Correr([this] { s.geral.de.Executar("cmdAdicionarGrupo", {u"Coral"}); });
    }
    QStringList Grupos() { return s.Linhas(u"SELECT NomeGrupo, IdUtilizador FROM TblGrupos WHERE ID > 6"_s); }
    QString ID(const QString &nome)
    {
        return s.Linhas(u"SELECT max(ID) FROM TblGrupos WHERE NomeGrupo='%1'"_s.arg(nome)).value(0);
    }

    Sistema s;
    ServidorFalso servidor{s.Base()};
    NovaPorSaber nova{s.geral.de, "TblGrupos", {"NomeGrupo", "IdUtilizador"}};
};
} // namespace

class TestNovaPorSaber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sem_perda_escreve_se_de_cada_vez()
    {
        Posto p;
        QCOMPARE(p.Gravar(u"Coral"_s), QString());
        QCOMPARE(p.Gravar(u"Coral"_s), QString());
        QCOMPARE(p.Grupos(), (QStringList{u"Coral|0"_s, u"Coral|0"_s}));
    }

    void o_que_outro_perdeu_antes_nao_diz_nada_a_quem_comeca()
    {
        Posto p;
        DE &de = p.s.geral.de;
        const auto outro = [&de] { de.Executar("cmdAdicionarGrupo", {u"Outro"}); };
        p.servidor.Perder_A_Proxima_Resposta();
        QCOMPARE(teste::Especie_Da_Falha(outro), Failure::Kind::ServerLost);
        p.servidor.Voltar();
        QCOMPARE(p.nova.Chegada(), QStringList());
        QCOMPARE(p.nova.ID(), QString());
        FeitoPorSaber feito(de);
        QVERIFY(!feito.Em_Duvida() && !feito.Nao_Chegou());
        feito.Correr(outro);
        QCOMPARE(p.s.Linhas(u"SELECT count(*) FROM TblGrupos WHERE NomeGrupo='Outro'"_s), QStringList{u"2"_s});
    }

    void o_que_chegou_ou_de_que_nada_se_sabe_esta_em_duvida()
    {
        Posto p;
        FeitoPorSaber feito(p.s.geral.de);
        const auto correr = [&] { p.Juntar_Coral(feito); };
        p.servidor.Perder_A_Proxima_Resposta();
        QCOMPARE(teste::Especie_Da_Falha(correr), Failure::Kind::ServerLost);
        QVERIFY(feito.Em_Duvida() && !feito.Nao_Chegou()); // nobody knows yet
        p.servidor.Voltar();
        QVERIFY(feito.Em_Duvida() && !feito.Nao_Chegou()); // it arrived
        correr();
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    void o_que_nao_chegou_nao_esta_em_duvida()
    {
        Posto p;
        FeitoPorSaber feito(p.s.geral.de);
        const auto correr = [&] { p.Juntar_Coral(feito); };
        p.servidor.Perder_A_Proxima_Escrita();
        QCOMPARE(teste::Especie_Da_Falha(correr), Failure::Kind::ServerLost);
        p.servidor.Voltar();
        QVERIFY(!feito.Em_Duvida() && feito.Nao_Chegou());
        correr();
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    void a_que_chegou_recebe_o_que_se_mudou_desde_entao()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        QCOMPARE(p.nova.Chegada(), (QStringList{u"Coral"_s, u"0"_s}));
        const QString ID = p.ID(u"Coral"_s);
        QCOMPARE(p.nova.ID(), ID);
        QCOMPARE(p.Gravar(u"Tuna"_s), ID);
        QCOMPARE(p.Grupos(), QStringList{u"Tuna|0"_s});
        QCOMPARE(p.Gravar(u"Outra"_s), QString()); // that one is settled
        QCOMPARE(p.Grupos().size(), 2);
    }

    void a_que_nao_chegou_escreve_se()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Escrita();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        QCOMPARE(p.nova.Chegada(), QStringList());
        QCOMPARE(p.Gravar(u"Coral"_s), QString());
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    void enquanto_ninguem_sabe_falha_e_o_que_se_sabe_depois_vale()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        QVERIFY(p.Perde_Se(u"Coral"_s)); // pressed once more
        QCOMPARE(teste::Especie_Da_Falha([&] { p.nova.ID(); }), Failure::Kind::ServerLost);
        QCOMPARE(p.nova.Chegada(), QStringList());
        p.servidor.Voltar();
        QVERIFY(!p.Gravar(u"Coral"_s).isEmpty());
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    // A memo that saves itself, an alarm that is answered.
    void o_que_outros_escrevem_entretanto_nao_a_faz_esquecer()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.s.geral.de.Executar("cmdUPDATEIdioma", {u"PortuguesPT"_s});
        QVERIFY(!p.Gravar(u"Coral"_s).isEmpty());
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    void perdida_duas_vezes_e_a_segunda_que_conta()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Escrita();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Tuna"_s));
        p.servidor.Voltar();
        QCOMPARE(p.Gravar(u"Tuna"_s), p.ID(u"Tuna"_s));
        QCOMPARE(p.Grupos(), QStringList{u"Tuna|0"_s});
    }

    void a_de_outro_posto_que_so_se_parece_fica_como_esta()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s, u"3"_s));
        p.s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('CORAL', 3), ('Coral', 0)"_s);
        p.servidor.Voltar();
        const QString ID = p.Gravar(u"Tuna"_s, u"3"_s);
        QCOMPARE(ID, p.ID(u"Tuna"_s));
        QCOMPARE(p.Grupos(), (QStringList{u"Tuna|3"_s, u"CORAL|3"_s, u"Coral|0"_s}));
    }

    void de_varias_iguais_e_a_ultima()
    {
        Posto p;
        p.s.Novo_Grupo(u"Coral"_s);
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.Gravar(u"Tuna"_s);
        QCOMPARE(p.Grupos(), (QStringList{u"Coral|0"_s, u"Tuna|0"_s}));
    }

    void a_que_chegou_e_alguem_apagou_escreve_se_de_novo()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.s.Escrever(u"DELETE FROM TblGrupos WHERE ID > 6"_s);
        p.servidor.Voltar();
        QCOMPARE(p.nova.ID(), QString());
        p.Gravar(u"Coral"_s);
        QCOMPARE(p.Grupos(), QStringList{u"Coral|0"_s});
    }

    void a_actualizacao_que_se_perde_repete_se_na_mesma_linha()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.servidor.Perder_A_Proxima_Escrita();
        QVERIFY(p.Perde_Se(u"Tuna"_s));
        p.servidor.Voltar();
        p.Gravar(u"Tuna"_s);
        QCOMPARE(p.Grupos(), QStringList{u"Tuna|0"_s});
    }

    void a_actualizacao_que_chegou_sem_resposta_nao_faz_segunda_linha()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Tuna"_s));
        p.servidor.Voltar();
        p.Gravar(u"Banda"_s);
        QCOMPARE(p.Grupos(), QStringList{u"Banda|0"_s});
    }

    // Though its values are those of the next one.
    void a_que_se_resolveu_nao_serve_a_seguinte()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        QVERIFY(!p.Gravar(u"Coral"_s).isEmpty());
        QCOMPARE(p.Gravar(u"Coral"_s), QString());
        QCOMPARE(p.Grupos(), (QStringList{u"Coral|0"_s, u"Coral|0"_s}));
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Tuna"_s));
        p.servidor.Voltar();
        const QString ID = p.Gravar(u"Banda"_s);
        QCOMPARE(ID, p.ID(u"Banda"_s)); // and it is the last one that was lost
        QCOMPARE(p.Grupos(), (QStringList{u"Coral|0"_s, u"Coral|0"_s, u"Banda|0"_s}));
    }

    void a_que_alguem_apagou_depois_de_achada_escreve_se_de_novo()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Coral"_s));
        p.servidor.Voltar();
        p.servidor.Perder_A_Proxima_Resposta();
        QVERIFY(p.Perde_Se(u"Tuna"_s)); // found, and changed
        p.s.Escrever(u"DELETE FROM TblGrupos WHERE ID > 6"_s);
        p.servidor.Voltar();
        QCOMPARE(p.Gravar(u"Tuna"_s), QString());
        QCOMPARE(p.Grupos(), QStringList{u"Tuna|0"_s});
    }

    // The store may have found out by itself what became of it.
    void a_que_se_sabe_logo_ter_chegado_diz_o_seu_numero()
    {
        Posto p;
        p.servidor.Perder_A_Proxima_Resposta();
        const QString ID = p.nova.Gravar(
            {u"Coral"_s, u"0"_s},
            [&] {
                skipFailure([&] { p.s.geral.de.Executar("cmdInserirGrupo", {u"Coral"_s, u"0"_s}); });
                p.servidor.Voltar();
            },
            [](const QString &) { QFAIL("there was none before"); });
        QVERIFY(!ID.isEmpty());
        QCOMPARE(ID, p.ID(u"Coral"_s));
    }

    void outra_falha_nao_deixa_nada_por_saber()
    {
        Posto p;
        QVERIFY(!skipFailure([&] {
            p.nova.Gravar({u"Coral"_s, u"0"_s}, [] { throw Failure(7, {}, {}); }, [](const QString &) {});
        }));
        QCOMPARE(p.nova.ID(), QString());
    }
};

MORVEX_TESTE(TestNovaPorSaber)
#include "test_NovaPorSaber.moc"
