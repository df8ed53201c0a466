// The schema on a real server: what it makes of rows, numbers, notices, versions and rights.
#include "data/PassosDoEsquema.h"
#include "platform/Failure.h"
#include "platform/TextOrder.h"
#include "servidor/BaseNoServidor.h"
#include "servidor/EsquemaNoServidor.h"
#include "store/postgres/PostgresDialect.h"
#include "store/postgres/PostgresOpening.h"
#include "testlib/BaseDeEnsaio.h"
#include "testlib/Teste.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace
{
// The notices that others hear.
class Ouvinte
{
public:
    explicit Ouvinte(const QString &morada)
        : ligacao_(openNow(PostgresAddress(morada), {}, Deadline(std::chrono::seconds(60))))
    {
        const PostgresResult resposta(libpq::exec(ligacao_.get(), "LISTEN morvex"));
    }

    QStringList Ouvidos()
    {
        QStringList ouvidos;
        const PostgresResult resposta(libpq::exec(ligacao_.get(), "SELECT 1")); // what was announced before comes with the answer
        while (PGnotify *aviso = libpq::notifies(ligacao_.get())) {
            ouvidos << QString::fromUtf8(aviso->extra);
            libpq::freemem(aviso);
        }
        return ouvidos;
    }

private:
    PostgresConnection ligacao_;
};
} // namespace

class test_EsquemaNoServidor : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<BaseDeEnsaio> base_;
    std::unique_ptr<ServerSession> dona_;
    std::unique_ptr<ServerSession> posto_;

    qint64 Numero(ServerSession &quem, const QString &sql)
    {
        return quem.query(u"SELECT ("_s + sql + u") AS n"_s).Fields("n").number();
    }
    qint64 Novo(ServerSession &quem, const QString &nome = u"x"_s)
    {
        quem.query(u"INSERT INTO TblLista (Nome, Grupo) VALUES ($1, 1)"_s, {nome});
        return Numero(quem, u"SELECT morvex_ultimo_id()"_s);
    }
    static bool Recusa(ServerSession &quem, const QString &sql)
    {
        return !skipFailure([&] { quem.run(sql); });
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (const QString falta = BaseDeEnsaio::Falta(); !falta.isEmpty()) QSKIP(qPrintable(falta));
    }
    void init()
    {
        base_ = std::make_unique<BaseDeEnsaio>();
        dona_ = std::make_unique<ServerSession>(base_->Da_Dona());
        dona_->together([&] { base_no_servidor::Criar(*dona_, u"morvex"_s); });
        posto_ = std::make_unique<ServerSession>(base_->Do_Posto());
    }
    void cleanup()
    {
        posto_.reset();
        dona_.reset();
        base_.reset();
    }

    void o_primeiro_numero_e_um_e_o_seguinte_vem_atras()
    {
        QCOMPARE(Novo(*posto_), 1);
        QCOMPARE(Novo(*posto_), 2);
        QCOMPARE(Numero(*posto_, u"SELECT morvex_maior_id('TblLista')"_s), 2);
    }

    void o_numero_de_uma_linha_eliminada_nao_volta()
    {
        for (int i = 0; i < 3; ++i)
            Novo(*posto_);
        posto_->run(u"DELETE FROM TblLista WHERE ID >= 2"_s);
        QCOMPARE(Novo(*posto_), 4);
        posto_->run(u"DELETE FROM TblLista"_s);
        QCOMPARE(Numero(*posto_, u"SELECT morvex_maior_id('TblLista')"_s), 4);
        QCOMPARE(Novo(*posto_), 5);
    }

    void o_que_foi_desfeito_ou_recusado_nao_gasta_numeros()
    {
        Novo(*posto_);
        posto_->run(u"BEGIN"_s);
        QCOMPARE(Novo(*posto_), 2);
        QCOMPARE(Novo(*posto_), 3);
        posto_->run(u"ROLLBACK"_s);
        QVERIFY(Recusa(*posto_, u"INSERT INTO TblLista (ID, Nome) VALUES (1, 'outra')"_s));
        QVERIFY(Recusa(*posto_, u"INSERT INTO TblLista (Grupo) VALUES ('x')"_s));
        QCOMPARE(Numero(*posto_, u"SELECT morvex_ultimo_id()"_s), 1);
        QCOMPARE(Novo(*posto_), 2);
    }

    void um_numero_dado_leva_o_contador_consigo()
    {
        posto_->run(u"INSERT INTO TblLista (ID, Nome) VALUES (40, 'dado')"_s);
        QCOMPARE(Numero(*posto_, u"SELECT morvex_ultimo_id()"_s), 40);
        QCOMPARE(Novo(*posto_), 41);
        posto_->run(u"INSERT INTO TblLista (ID, Nome) VALUES (7, 'abaixo')"_s);
        QCOMPARE(Novo(*posto_), 42);
        posto_->run(u"DELETE FROM TblLista WHERE ID = 42"_s);
        posto_->run(u"DELETE FROM TblLista WHERE ID = 40"_s);
        QCOMPARE(Novo(*posto_), 43);
    }

    void os_numeros_de_tras_dao_se_outra_vez()
    {
        for (int i = 0; i < 5; ++i)
            Novo(*posto_);
        posto_->run(u"DELETE FROM TblLista WHERE ID > 3"_s);
        posto_->query(u"SELECT morvex_voltar_a('TblLista', 3)"_s);
        QCOMPARE(Novo(*posto_), 4);
        posto_->query(u"SELECT morvex_voltar_a('TblLista', 1)"_s); // the table still holds four
        QCOMPARE(Novo(*posto_), 5);
    }

    void cada_tabela_com_contador_tem_o_seu()
    {
        int contadores = 0;
        for (const Tabela &tabela : esquema::Tabelas()) {
            if (esquema_no_servidor::Contador(tabela).isEmpty()) continue;
            ++contadores;
            const QString nome = esquema_no_servidor::Nome(tabela);
            dona_->run(u"INSERT INTO %1 DEFAULT VALUES"_s.arg(nome));
            QCOMPARE(Numero(*dona_, u"SELECT id FROM "_s + nome), 1);
        }
        QCOMPARE(contadores, 9);
    }

    void dois_postos_ao_mesmo_tempo_nao_recebem_o_mesmo_numero()
    {
        ServerSession outro(base_->Do_Posto());
        outro.run(u"SET lock_timeout = '200ms'"_s);
        posto_->run(u"BEGIN"_s);
        QCOMPARE(Novo(*posto_), 1);
        QVERIFY(Recusa(outro, u"INSERT INTO TblLista (Nome) VALUES ('espera')"_s));
        posto_->run(u"COMMIT"_s);
        QCOMPARE(Novo(outro), 2);
    }

    void muitas_linhas_numa_so_transaccao_nao_custam_ao_quadrado()
    {
        const auto medir = [&](int quantas) {
            QElapsedTimer relogio;
            relogio.start();
            dona_->together([&] {
                dona_->run(
                    u"INSERT INTO TblLista (Nome) SELECT 'n' FROM generate_series(1, %1)"_s.arg(quantas));
            });
            return relogio.elapsed();
        };
        const qint64 poucas = std::max<qint64>(medir(2000), 20);
        const qint64 muitas = medir(20000);
        QVERIFY2(muitas < 40 * poucas, qPrintable(u"%1 ms, %2 ms"_s.arg(poucas).arg(muitas)));
        QCOMPARE(Numero(*dona_, u"SELECT max(id) FROM tbllista"_s), 22000);
    }

    void o_aviso_diz_a_tabela_o_que_foi_e_quais()
    {
        Ouvinte ouvinte(base_->Do_Posto());
        Novo(*posto_);
        Novo(*posto_);
        posto_->run(u"UPDATE TblLista SET Nome = 'y'"_s);
        posto_->run(u"DELETE FROM TblLista WHERE ID = 2"_s);
        posto_->run(u"INSERT INTO TblGrupos (NomeGrupo) VALUES ('g')"_s);
        posto_->run(u"UPDATE TblConfig SET Idioma = 'x'"_s); // touches no row
        posto_->run(u"INSERT INTO TblCartoes (IDContacto) VALUES (9)"_s);
        posto_->run(u"INSERT INTO TblFotografias (Nome) VALUES ('a')"_s);
        posto_->run(u"INSERT INTO TblDiferentes (IDContacto, IDOutro) VALUES (1, 2)"_s);
        QCOMPARE(ouvinte.Ouvidos(), QStringList({u"tbllista i 1"_s, u"tbllista i 2"_s, u"tbllista u 1,2"_s,
                                                 u"tbllista d 2"_s, u"tblgrupos i 1"_s, u"tblcartoes i 9"_s,
                                                 u"tblfotografias i *"_s, u"tbldiferentes i *"_s}));
    }

    void a_presenca_nao_e_uma_mudanca()
    {
        Novo(*posto_);
        Ouvinte ouvinte(base_->Do_Posto());
        posto_->run(u"UPDATE TblLista SET MSNMessenger = '1' WHERE ID = 1"_s);
        QCOMPARE(ouvinte.Ouvidos(), QStringList());
        QCOMPARE(Numero(*posto_, u"SELECT versao FROM TblLista"_s), 0);
        posto_->run(u"UPDATE TblLista SET Obs = 'o', MSNMessenger = '2' WHERE ID = 1"_s);
        QCOMPARE(ouvinte.Ouvidos(), QStringList({u"tbllista u 1"_s}));
        QCOMPARE(Numero(*posto_, u"SELECT versao FROM TblLista"_s), 1);
    }

    void mais_de_cem_linhas_nao_se_nomeiam()
    {
        Ouvinte ouvinte(base_->Do_Posto());
        posto_->run(u"INSERT INTO TblLista (Nome) SELECT 'n' FROM generate_series(1, 100)"_s);
        QCOMPARE(ouvinte.Ouvidos().value(0).count(u','), 99);
        posto_->run(u"INSERT INTO TblLista (Nome) SELECT 'n' FROM generate_series(1, 101)"_s);
        posto_->run(u"UPDATE TblLista SET Nome = 'm'"_s);
        posto_->run(u"DELETE FROM TblLista"_s);
        QCOMPARE(ouvinte.Ouvidos(), QStringList({u"tbllista i *"_s, u"tbllista u *"_s, u"tbllista d *"_s}));
    }

    void os_textos_e_as_repeticoes_nao_avisam()
    {
        Ouvinte ouvinte(base_->Do_Posto());
        posto_->run(u"INSERT INTO TblRepeticao (Nome) VALUES ('r')"_s);
        dona_->run(u"INSERT INTO TblIdiomas (ID) VALUES (1)"_s);
        QCOMPARE(ouvinte.Ouvidos(), QStringList());
    }

    // Of a change that nobody is told of, every row has to be looked at; and the server goes on as it began,
    // with the plan for few.
    void uma_mudanca_de_todas_as_linhas_acaba_depressa()
    {
        dona_->run(u"INSERT INTO TblLista (Nome) SELECT 'n' FROM generate_series(1, 20000)"_s);
        for (int i = 0; i < 10; ++i)
            dona_->run(u"UPDATE TblLista SET MSNMessenger = '0' WHERE ID = 1"_s);
        dona_->run(u"SET statement_timeout = '25s'"_s);
        dona_->run(u"UPDATE TblLista SET Nome = 'm'"_s);
        dona_->run(u"UPDATE TblLista SET MSNMessenger = '1'"_s);
        QCOMPARE(Numero(*dona_, u"SELECT count(*) FROM tbllista WHERE versao = 1 AND msnmessenger = '1'"_s),
                 20000);
    }

    void a_versao_conta_em_quatro_tabelas()
    {
        for (const QString &tabela : {u"TblLista"_s, u"TblTarefas"_s, u"TblMemos"_s, u"TblUsers"_s}) {
            posto_->run(u"INSERT INTO %1 (Utilizador) VALUES ('1')"_s.arg(tabela).replace(
                u"TblLista (Utilizador)"_s, u"TblLista (Nome)"_s));
            const QString coluna = tabela == "TblLista"_L1 ? u"Nome"_s : u"Utilizador"_s;
            posto_->run(u"UPDATE %1 SET %2 = '2'"_s.arg(tabela, coluna));
            posto_->run(u"UPDATE %1 SET %2 = '3'"_s.arg(tabela, coluna));
            QCOMPARE(Numero(*posto_, u"SELECT versao FROM "_s + tabela), 2);
        }
    }

    // Of each table by itself, for their numbers are alike.
    void uma_chave_vale_enquanto_a_sua_linha_esta_de_pe()
    {
        const auto chaves = [&] {
            QStringList ultimas;
            for (Recordset rs = posto_->query(u"SELECT right(c::text, 1) FROM morvex_chaves_de_pe() c ORDER BY 1"_s);
                 !rs.Eof(); rs.MoveNext())
                ultimas << rs.Row().constFirst();
            return ultimas.join(u' ');
        };
        const QString chave = u"INSERT INTO gravacoes (chave, quando, tabela, linha) VALUES "
                              "('00000000-0000-0000-0000-00000000000%1', now() + interval '%2', '%3', %4)"_s;
        posto_->run(u"INSERT INTO gravacoes (chave) VALUES ('00000000-0000-0000-0000-000000000000')"_s); // no row's
        Novo(*posto_); // 1
        Novo(*posto_);
        posto_->run(u"INSERT INTO TblMemos (Utilizador) VALUES (1)"_s);
        posto_->run(chave.arg(u"1"_s, u"30 days"_s, u"tbllista"_s, u"1"_s));
        posto_->run(chave.arg(u"2"_s, u"1 minute"_s, u"tbllista"_s, u"2"_s));
        posto_->run(chave.arg(u"3"_s, u"-1 minute"_s, u"tbllista"_s, u"2"_s));
        posto_->run(chave.arg(u"4"_s, u"30 days"_s, u"tblmemos"_s, u"1"_s));
        QCOMPARE(chaves(), u"1 2 4"_s);
        posto_->run(u"DELETE FROM TblLista WHERE ID = 1"_s);
        QCOMPARE(chaves(), u"2 4"_s);
        posto_->run(u"DELETE FROM TblMemos"_s);
        QCOMPARE(chaves(), u"2"_s);
        QCOMPARE(Numero(*posto_, u"SELECT count(*) FROM gravacoes"_s), 2);
    }

    void um_numero_que_se_da_outra_vez_nao_traz_a_chave_da_linha_antiga()
    {
        const qint64 numero = Novo(*posto_);
        posto_->run(u"INSERT INTO gravacoes (chave, quando, tabela, linha) VALUES "
                    "('00000000-0000-0000-0000-000000000001', now() + interval '30 days', 'tbllista', %1)"_s.arg(numero));
        posto_->run(u"DELETE FROM TblLista"_s);
        posto_->run(u"SELECT morvex_voltar_a('TblLista', %1)"_s.arg(numero - 1));
        QCOMPARE(Novo(*posto_), numero);
        QVERIFY(posto_->query(u"SELECT morvex_chaves_de_pe()"_s).Eof());
    }

    void o_posto_pode_o_que_precisa_e_nada_mais()
    {
        posto_->run(
            u"SELECT * FROM TblIdiomas; SELECT * FROM morvex_esquema; UPDATE TblConfig SET Remetente = 'r'"_s);
        posto_->run(u"INSERT INTO gravacoes (chave) VALUES ('00000000-0000-0000-0000-000000000001')"_s);
        posto_->run(u"SELECT 1 FROM gravacoes; DELETE FROM gravacoes"_s);
        for (const char *sql :
             {"DELETE FROM TblIdiomas", "UPDATE TblIdiomas SET PortuguesPT = ''",
              "INSERT INTO TblConfig (Idioma) VALUES ('x')", "DELETE FROM TblConfig", "DROP TABLE TblLista",
              "TRUNCATE TblLista", "CREATE TABLE minha (a integer)",
              "CREATE TEMPORARY TABLE minha (a integer)",
              "CREATE FUNCTION minha() RETURNS integer LANGUAGE sql AS 'SELECT 1'",
              "UPDATE morvex_esquema SET numero = 99", "SELECT * FROM morvex_contadores",
              "UPDATE morvex_contadores SET ultimo = 99", "ALTER TABLE TblLista DISABLE TRIGGER USER",
              "UPDATE gravacoes SET chave = chave", "CREATE SCHEMA minha"})
            QVERIFY2(Recusa(*posto_, QString::fromLatin1(sql)), sql);
    }

    void quem_nao_e_posto_nem_entra()
    {
        ServerSession administrador(base_->Do_Administrador());
        const QString estranho = u"estranho_"_s + base_->Nome();
        administrador.run(u"CREATE ROLE %1 LOGIN"_s.arg(estranho));
        QCOMPARE(Numero(administrador,
                        u"SELECT has_database_privilege('%1', current_database(), 'CONNECT')::integer"_s.arg(
                            estranho)),
                 0);
        administrador.run(u"DROP ROLE "_s + estranho);
    }

    void o_numero_do_esquema_esta_numa_so_linha()
    {
        QCOMPARE(base_no_servidor::Numero(*posto_), esquema::versao);
        QVERIFY(Recusa(*dona_, u"INSERT INTO morvex_esquema (numero) VALUES (1)"_s));
    }

    void a_ordem_e_a_dos_nomes_e_nulo_vem_primeiro()
    {
        for (const QString &nome : {u"Zé"_s, u"ana"_s, u"Ânia"_s, u"ANA"_s, u"andre"_s, u"André"_s})
            Novo(*posto_, nome);
        posto_->run(u"INSERT INTO TblLista (Grupo) VALUES (1)"_s);
        QStringList ordem;
        for (Recordset rs =
                 posto_->query(postgres::said(u"SELECT Nome, ID FROM TblLista ORDER BY Nome, ID"_s));
             !rs.Eof(); rs.MoveNext())
            ordem << (rs.Fields("Nome").isNull() ? u"-"_s : rs.Fields("Nome").text());
        QCOMPARE(ordem,
                 QStringList({u"-"_s, u"ana"_s, u"ANA"_s, u"andre"_s, u"André"_s, u"Ânia"_s, u"Zé"_s}));
    }

    // Whether it pays is the server's to say, by the size of the book; here, that the index has all it takes.
    void a_lista_le_se_do_indice_sem_ordenar()
    {
        posto_->run(u"SET enable_sort = off"_s);
        dona_->run(
            u"INSERT INTO TblLista (Nome, Obs, Grupo) SELECT md5(i::text), repeat('nota ', 60), 1 FROM generate_series(1, 5000) i"_s);
        dona_->run(u"VACUUM ANALYZE TblLista"_s);
        QString plano;
        for (Recordset rs = posto_->query(
                 u"EXPLAIN "_s + postgres::said(u"SELECT ID, Nome, Grupo FROM TblLista ORDER BY Nome, ID"_s));
             !rs.Eof(); rs.MoveNext())
            plano += rs.Row().join(u' ') + u'\n';
        QVERIFY2(plano.contains(u"Index Only Scan using morvex_nomes"_s) && !plano.contains(u"Sort"_s),
                 qPrintable(plano));
    }

    void por_em_dia_repete_se_sem_mudar_nada()
    {
        Novo(*posto_, u"fica"_s);
        base_no_servidor::Acerto acerto;
        dona_->together([&] { acerto = base_no_servidor::Por_Em_Dia(*dona_, u"morvex"_s); });
        QCOMPARE(acerto.antes, esquema::versao);
        QVERIFY(acerto.textos > 300);
        dona_->together([&] { acerto = base_no_servidor::Por_Em_Dia(*dona_, u"morvex"_s); });
        QCOMPARE(acerto.textos, 0);
        QVERIFY(!acerto.ordem);
        QCOMPARE(Novo(*posto_), 2);
    }

    void por_em_dia_da_as_chaves_a_sua_linha()
    {
        dona_->run(u"DROP FUNCTION morvex_chaves_de_pe(); ALTER TABLE gravacoes DROP COLUMN tabela, "
                   "DROP COLUMN linha; UPDATE morvex_esquema SET numero = 3"_s);
        posto_->run(u"INSERT INTO gravacoes (chave) VALUES ('00000000-0000-0000-0000-000000000001')"_s);
        dona_->together([&] { base_no_servidor::Por_Em_Dia(*dona_, u"morvex"_s); });
        QCOMPARE(base_no_servidor::Numero(*dona_), 4);
        posto_->run(u"INSERT INTO gravacoes (chave, tabela, linha) VALUES "
                    "('00000000-0000-0000-0000-000000000002', 'tbllista', 7)"_s);
        QVERIFY(posto_->query(u"SELECT morvex_chaves_de_pe()"_s).Eof());
        QCOMPARE(Numero(*posto_, u"SELECT count(*) FROM gravacoes"_s), 1);
    }

    void por_em_dia_traz_as_tabelas_de_cada_passo()
    {
        dona_->run(
            u"DROP TABLE TblFotografias, TblCartoes, TblDiferentes; UPDATE morvex_esquema SET numero = 0"_s);
        base_no_servidor::Acerto acerto;
        dona_->together([&] { acerto = base_no_servidor::Por_Em_Dia(*dona_, u"morvex"_s); });
        QCOMPARE(acerto.antes, 0);
        QCOMPARE(base_no_servidor::Numero(*dona_), esquema::versao);
        posto_->run(
            u"INSERT INTO TblCartoes (IDContacto) VALUES (1); INSERT INTO TblDiferentes VALUES (1, 2)"_s);
    }

    void por_em_dia_recusa_uma_base_de_um_programa_mais_novo()
    {
        dona_->run(u"UPDATE morvex_esquema SET numero = 99"_s);
        try {
            dona_->together([&] { base_no_servidor::Por_Em_Dia(*dona_, u"morvex"_s); });
            QFAIL("no failure");
        } catch (const Failure &falha) {
            QCOMPARE(falha.kind(), Failure::Kind::DatabaseNewer);
        }
    }

    void criar_recusa_o_que_nao_serve()
    {
        QVERIFY(
            !skipFailure([&] { dona_->together([&] { base_no_servidor::Criar(*dona_, u"morvex"_s); }); }));
        const BaseDeEnsaio outra;
        ServerSession dona(outra.Da_Dona());
        QVERIFY(!skipFailure(
            [&] { dona.together([&] { base_no_servidor::Criar(dona, u"nao_ha_tal_papel"_s); }); }));
        QVERIFY(
            !skipFailure([&] { dona.together([&] { base_no_servidor::Criar(dona, u"morvex_dono"_s); }); }));
        QCOMPARE(base_no_servidor::Numero(dona), -1); // nothing of it stays behind
        dona.together([&] { base_no_servidor::Criar(dona, u"morvex"_s); });
        QCOMPARE(base_no_servidor::Numero(dona), esquema::versao);
    }
};

MORVEX_TESTE(test_EsquemaNoServidor)
#include "test_EsquemaNoServidor.moc"
