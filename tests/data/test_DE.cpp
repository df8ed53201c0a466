// The one connection to the database: which file it opens and when, what happens without one, and with
// company.
#include "platform/Failure.h"
#include "store/Row.h"
#include "testlib/DiscoCheio.h"
#include "testlib/FalhaDita.h"
#include "testlib/Sistema.h"
#include "testlib/Teste.h"

#include <cstdio>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace
{
const char modo_de_copia[] = "--segunda-copia";

// Writes more than fits into memory in one transaction, says so, and waits for its end.
[[noreturn]] void Ficar_A_Meio(const QString &base)
{
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.Open();
    ligacao.execute(u"PRAGMA cache_size=10"_s, {}); // so that it reaches the file before it is whole
    ligacao.execute(u"BEGIN IMMEDIATE"_s, {});
    ligacao.execute(u"UPDATE TblGrupos SET NomeGrupo='cortado'"_s, {});
    for (int i = 0; i < 200; ++i)
        ligacao.execute(u"INSERT INTO TblGrupos (NomeGrupo) VALUES (printf('cortado %08000d', 1))"_s, {});
    std::puts("a meio");
    std::fflush(stdout);
    for (;;)
        QThread::sleep(1);
}

// What another copy of the program does to the same file: "escrever" adds a hundred groups, "escrever sem
// fim" adds some until it is killed, and both tell each that is written; "a meio" stops in the middle of a
// long write and waits for its end; a number keeps the file to itself for so many milliseconds.
int Segunda_Copia(const QString &trabalho, const QString &base)
{
    QString caminho = base;
    DE de(caminho, {});
    if (trabalho.startsWith("escrever"_L1)) {
        for (int i = 1; i <= 100 || trabalho.endsWith("sem fim"_L1); ++i) {
            de.Executar("cmdAdicionarGrupo", {u"copia"});
            std::puts("escrito");
            std::fflush(stdout);
        }
        return 0;
    }
    if (trabalho == "a meio"_L1) Ficar_A_Meio(base);
    Connection ligacao;
    ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
    ligacao.Open();
    ligacao.execute(u"BEGIN EXCLUSIVE"_s, {});
    ligacao.execute(u"INSERT INTO TblGrupos (NomeGrupo) VALUES ('da copia')"_s, {});
    std::puts("trancado");
    std::fflush(stdout);
    QThread::msleep(trabalho.toULong());
    ligacao.execute(u"COMMIT"_s, {});
    return 0;
}
} // namespace

class TestDE : public QObject
{
    Q_OBJECT

    static void Por_Base_Em(const Sistema &s, const QString &destino)
    {
        QVERIFY(QDir().mkpath(QFileInfo(destino).path()));
        QVERIFY(QFile::rename(s.Base(), destino));
    }
    static int Grupos(Geral &geral)
    {
        Recordset &rs = geral.de.Abrir("cmdListarGrupos", {u"0"});
        const int grupos = rs.RecordCount();
        rs.Close();
        return grupos;
    }
    static void Escrever_Ficheiro(const QString &caminho, const QByteArray &bytes)
    {
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly));
        ficheiro.write(bytes);
    }
    static void Arrancar_Copia(QProcess &copia, const QString &trabalho, const QString &base)
    {
        copia.start(QCoreApplication::applicationFilePath(), {QLatin1String(modo_de_copia), trabalho, base});
        QVERIFY(copia.waitForReadyRead());
    }

private Q_SLOTS:
    void caminho_vazio_passa_a_ser_o_ficheiro_ao_lado_do_programa()
    {
        SO_NUM_FICHEIRO("a path");
        Sistema s(Sistema::Estado::Vazio);
        QCOMPARE(s.geral.CaminhoBD, u""_s);
        QCOMPARE(Grupos(s.geral), 0);
        QCOMPARE(s.geral.CaminhoBD, s.Pasta() + u"/morvex.mdb"_s);
        QCOMPARE(s.geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s), u""_s);
    }

    void caminho_vazio_e_sem_ficheiro_o_primeiro_comando_falha_e_nada_nasce()
    {
        SO_NUM_FICHEIRO("a path");
        Sistema s(Sistema::Estado::Vazio);
        QVERIFY(QFile::remove(s.Base()));
        VERIFICAR_FALHA(s.geral.de.Executar("cmdUPDATETblConfig", {u"InglesUK", u"r", u"d"}),
                        Failure::StoreError);
        QVERIFY(!QFile::exists(s.Base()));
        QCOMPARE(s.geral.CaminhoBD, s.Base());
    }

    void cada_comando_seguinte_tenta_de_novo_e_falha_da_mesma_maneira()
    {
        SO_NUM_FICHEIRO("it is moved away");
        Sistema s(Sistema::Estado::Vazio);
        const QString guardada = s.Ficheiro(u"guardada.mdb"_s);
        QVERIFY(QFile::rename(s.Base(), guardada));
        for (int vez = 1; vez <= 3; ++vez)
            VERIFICAR_FALHA(Grupos(s.geral), Failure::StoreError);
        QVERIFY(QFile::rename(guardada, s.Base()));
        QCOMPARE(Grupos(s.geral), 0);
    }

    void ficheiro_que_nao_e_uma_base_falha_e_fica_como_esta_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("zero bytes") << QByteArray();
        QTest::newRow("rubbish") << QByteArray(5000, 'x');
    }
    void ficheiro_que_nao_e_uma_base_falha_e_fica_como_esta()
    {
        SO_NUM_FICHEIRO("what is in it");
        QFETCH(QByteArray, bytes);
        Sistema s(Sistema::Estado::Vazio);
        Escrever_Ficheiro(s.Base(), bytes);
        VERIFICAR_FALHA(Grupos(s.geral), Failure::StoreError);
        QCOMPARE(QFileInfo(s.Base()).size(), bytes.size());
    }

    void um_caminho_com_brancos_serve()
    {
        SO_NUM_FICHEIRO("a path");
        Sistema s(Sistema::Estado::Vazio);
        s.geral.CaminhoBD = s.Ficheiro(u"os meus dados/a base; de = todos.mdb"_s);
        Por_Base_Em(s, s.geral.CaminhoBD);
        QCOMPARE(Grupos(s.geral), 0);
    }

    void um_caminho_com_plica_parte_a_cadeia_de_ligacao()
    {
        SO_NUM_FICHEIRO("a path");
        Sistema s(Sistema::Estado::Vazio);
        s.geral.CaminhoBD = s.Ficheiro(u"dados d'Ana.mdb"_s);
        Por_Base_Em(s, s.geral.CaminhoBD);
        VERIFICAR_FALHA(Grupos(s.geral), Failure::StoreError);
    }

    // What the options write is read at the next start.
    void mudar_o_caminho_nao_muda_de_ficheiro_ate_ao_proximo_arranque()
    {
        SO_NUM_FICHEIRO("a path");
        Sistema s;
        s.geral.de.Executar("cmdAdicionarGrupo", {u"antes"});
        const QString outra = s.Ficheiro(u"outra.mdb"_s);
        QVERIFY(QFile::copy(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/morvex.mdb"_s, outra));
        s.geral.CaminhoBD = outra;
        s.geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, outra);
        QCOMPARE(Grupos(s.geral), 7);
        s.geral.de.Executar("cmdAdicionarGrupo", {u"depois"});
        QCOMPARE(s.Linhas(u"SELECT count(*) FROM TblGrupos"_s), QStringList{u"8"_s});

        Geral proximo(s.Pasta());
        proximo.CaminhoBD = proximo.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s);
        QCOMPARE(Grupos(proximo), 0);
    }

    void mudar_a_lingua_na_base_nao_muda_a_do_processo()
    {
        Sistema s;
        s.geral.de.Executar("cmdUPDATEIdioma", {u"InglesUK"});
        QCOMPARE(s.geral.IdiomaActual, u"PortuguesPT"_s);
        QCOMPARE(s.geral.Ler_Idioma(43), s.Texto(43));
    }

    void um_comando_espera_pela_escrita_de_outra_copia()
    {
        SO_NUM_FICHEIRO("its lock");
        Sistema s;
        QCOMPARE(Grupos(s.geral), 6);
        QProcess copia;
        Arrancar_Copia(copia, u"400"_s, s.Base());
        s.geral.de.Executar("cmdAdicionarGrupo", {u"nosso"});
        QVERIFY(copia.waitForFinished());
        QCOMPARE(copia.exitCode(), 0);
        QCOMPARE(s.Linhas(u"SELECT NomeGrupo FROM TblGrupos WHERE ID>6 ORDER BY ID"_s),
                 (QStringList{u"da copia"_s, u"nosso"_s}));
    }

    void um_ficheiro_trancado_por_muito_tempo_falha_e_depois_abre()
    {
        SO_NUM_FICHEIRO("its lock");
        Sistema s(Sistema::Estado::Vazio);
        QProcess copia;
        Arrancar_Copia(copia, u"6000"_s, s.Base());
        VERIFICAR_FALHA(Grupos(s.geral), Failure::StoreError);
        QVERIFY(copia.waitForFinished());
        QCOMPARE(Grupos(s.geral), 1);
    }

    void duas_copias_escrevem_ao_mesmo_tempo_e_nada_se_perde()
    {
        Sistema s;
        QProcess copia;
        Arrancar_Copia(copia, u"escrever"_s, s.Base());
        for (int i = 1; i <= 100; ++i)
            s.geral.de.Executar("cmdAdicionarGrupo", {u"nosso"});
        QVERIFY(copia.waitForFinished());
        QCOMPARE(copia.exitCode(), 0);
        QCOMPARE(
            s.Linhas(
                u"SELECT NomeGrupo, count(*) FROM TblGrupos WHERE ID>6 GROUP BY NomeGrupo ORDER BY NomeGrupo"_s),
            (QStringList{u"copia|100"_s, u"nosso|100"_s}));
    }

    void o_que_um_comando_escreveu_sobrevive_a_morte_do_processo()
    {
        SO_NUM_FICHEIRO("what a death leaves in it");
        Sistema s;
        QProcess copia;
        Arrancar_Copia(copia, u"escrever sem fim"_s, s.Base());
        constexpr qint64 vinte_linhas = 20 * sizeof("escrito");
        QTRY_VERIFY(copia.bytesAvailable() > vinte_linhas);
        copia.kill();
        QVERIFY(copia.waitForFinished());
        QCOMPARE(copia.exitStatus(), QProcess::CrashExit);
        const qsizetype ditas = copia.readAllStandardOutput().count('\n');
        QCOMPARE(s.Linhas(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
        const qsizetype escritas = s.Linhas(u"SELECT ID FROM TblGrupos WHERE NomeGrupo='copia'"_s).size();
        QVERIFY(escritas == ditas || escritas == ditas + 1);
    }

    void percorrer_um_comando_fecha_o_conjunto_que_ficou_aberto_e_da_as_mesmas_linhas()
    {
        Sistema s;
        Recordset &rs = s.geral.de.Abrir("cmdListarGrupos", {u"0"_s});
        const QString primeiro = rs.Fields("NomeGrupo").text();
        const int quantos = rs.RecordCount();
        QStringList nomes;
        s.geral.de.Percorrer("cmdListarGrupos", {u"0"_s}, [&](const Row &linha) {
            nomes << linha.field(linha.column("NomeGrupo")).text();
        });
        QCOMPARE(rs.State(), Recordset::Closed);
        QCOMPARE(nomes.size(), quantos);
        QCOMPARE(nomes.value(0), primeiro);
        VERIFICAR_FALHA(s.geral.de.Percorrer("cmdListarGrupos", {}, [](const Row &) {}), Failure::StoreError);
    }

    void um_comando_com_parametros_a_menos_diz_quantos_leva_e_fecha_o_que_ficou_aberto()
    {
        Sistema s;
        const Recordset &rs = s.geral.de.Abrir("cmdListarGrupos", {u"0"});
        QCOMPARE(rs.State(), Recordset::Open);
        const auto dito = [](const std::function<void()> &trabalho) { return teste::Falha_Dita(trabalho); };
        QCOMPARE(dito([&] { s.geral.de.Abrir("cmdListarGrupos", {}); }),
                 QStringList({u"cmdListarGrupos"_s, u"cmdListarGrupos takes 1 parameters"_s}));
        QCOMPARE(rs.State(), Recordset::Closed);
        QCOMPARE(dito([&] { s.geral.de.Executar("cmdRenameGroup", {u"a"_s, u"1"_s, u"2"_s}); }),
                 QStringList({u"cmdRenameGroup"_s, u"cmdRenameGroup takes 2 parameters"_s}));
    }

    void das_fotografias_que_se_largam_fica_a_que_um_contacto_mostra_data()
    {
        QTest::addColumn<int>("quantas");
        for (const int quantas : {0, 1, 2, 499, 500, 501, 1001})
            QTest::addRow("%d", quantas) << quantas;
    }
    void das_fotografias_que_se_largam_fica_a_que_um_contacto_mostra()
    {
        QFETCH(int, quantas);
        Sistema s;
        const QString mostrada = u"bd:mostrada.jpg"_s;
        s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Fotografia"_s, mostrada}});
        QSet<QString> nomes;
        s.geral.de.Juntar([&] {
            for (const QString &nome : {mostrada, u"bd:outra.jpg"_s})
                s.geral.de.Executar("cmdGuardarFotografia", {nome, QByteArray("x")});
            for (int i = 0; i < quantas; ++i) {
                const QString nome = i == 0 ? mostrada : u"bd:%1.jpg"_s.arg(i);
                nomes << nome;
                if (i > 0) s.geral.de.Executar("cmdGuardarFotografia", {nome, QByteArray("x")});
            }
        });
        s.geral.de.Largar_Fotografias(nomes);
        QCOMPARE(s.Linhas(u"SELECT Nome FROM TblFotografias ORDER BY Nome"_s),
                 (QStringList{mostrada, u"bd:outra.jpg"_s}));
    }

    void quem_pergunta_primeiro_se_esta_em_dia_tambem_o_sabe()
    {
        SO_NUM_FICHEIRO("a file of another program");
        Sistema s(Sistema::Estado::Vazio);
        s.Escrever(u"DROP TABLE TblMemos"_s);
        s.Escrever(u"PRAGMA user_version=0"_s);
        QString base = s.Base();
        DE de(base, s.Pasta());
        QVERIFY(!de.Em_Dia());
    }

    void os_nomes_sao_os_dos_grupos_a_vista_pela_ordem_do_comando()
    {
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        const auto grupo = [&](const QString &nome, const QString &dono) {
            s.Escrever(u"INSERT INTO TblGrupos (NomeGrupo, IdUtilizador) VALUES ('%1', %2)"_s.arg(nome, dono));
            return s.Linhas(u"SELECT max(ID) FROM TblGrupos"_s).first();
        };
        const QString meu = grupo(u"meu"_s, u"7"_s);
        const QString alheio = grupo(u"alheio"_s, u"8"_s);
        const QString de_ninguem = grupo(u"de ninguem"_s, u"NULL"_s);
        for (const QString &IDGrupo : {meu, alheio, de_ninguem, u"1"_s, u"9999"_s, u"NULL"_s, u"0"_s, meu, u"1"_s})
            s.Escrever(u"INSERT INTO TblLista (Nome, Grupo) VALUES ('%1', %2)"_s.arg(
                IDGrupo == meu ? u"Zita"_s : u"Ana"_s, IDGrupo));
        for (const QString &utilizador : {u"7"_s, u"8"_s, u"0"_s, u"5"_s}) {
            QStringList certos;
            Recordset &rs = s.geral.de.Abrir("cmdListarTodosContactos", {utilizador});
            for (; !rs.Eof(); rs.MoveNext())
                certos << rs.Fields("ID").text() + rs.Fields("Nome").text() + rs.Fields("Grupo").text();
            QStringList lidos;
            s.geral.de.Percorrer_Nomes(utilizador, [&](const Row &linha) {
                lidos << linha.field(linha.column("ID")).text() + linha.field(linha.column("Nome")).text() +
                             linha.field(linha.column("Grupo")).text();
            });
            QCOMPARE(lidos, certos);
            QCOMPARE(lidos.size(), utilizador == u"7"_s ? 4 : utilizador == u"8"_s ? 3 : 2);
            QCOMPARE(rs.State(), Recordset::Closed);
        }
    }

    void percorrer_as_que_se_querem_diz_se_ha_alguma()
    {
        Sistema s;
        s.Escrever(u"DELETE FROM TblLista"_s);
        s.Novo_Contacto({{u"Nome"_s, u"Zita"_s}, {u"Dia"_s, u"7"_s}, {u"Mes"_s, u"5"_s}});
        s.Novo_Contacto({{u"Nome"_s, u"Ana"_s}, {u"Dia"_s, u"7"_s}, {u"Mes"_s, u"6"_s}});
        s.Novo_Contacto({{u"Nome"_s, u"Rui"_s}, {u"Dia"_s, u"7"_s}, {u"Mes"_s, u"5"_s}});
        const Recordset &rs = s.geral.de.Abrir("cmdListarAniversarios", {u"0"_s});
        const auto nomes = [&](std::string_view mes) {
            QStringList lidos;
            const bool ha = s.geral.de.Percorrer_As_Que(
                "cmdListarAniversarios", u"0"_s, "TblLista.Dia, TblLista.Mes"_L1,
                [&](std::string_view Dia, std::string_view Mes) { return Dia == "7" && Mes == mes; },
                [&](const Row &linha) { lidos << linha.field(linha.column("Nome")).text(); });
            return ha ? lidos.join(u' ') : u"nenhuma"_s;
        };
        QCOMPARE(nomes("5"), u"Rui Zita"_s);
        QCOMPARE(rs.State(), Recordset::Closed);
        QCOMPARE(nomes("12"), u""_s);
        s.Escrever(u"UPDATE TblLista SET Grupo=9999"_s); // of no group, so of none that anybody sees
        QCOMPARE(nomes("5"), u"nenhuma"_s);
    }

    void experimentar_a_escrita_falha_num_disco_cheio_em_que_se_continua_a_ler()
    {
        SO_NUM_FICHEIRO("its disk");
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Sistema s;
        s.geral.de.Experimentar_Escrita();
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(s.Base()).size()));
            VERIFICAR_FALHA(s.geral.de.Experimentar_Escrita(), Failure::StoreError);
            QCOMPARE(s.geral.de.Abrir("cmdVerGrupo", {u"1"}).RecordCount(), 1);
        }
        s.geral.de.Experimentar_Escrita();
    }

    // However fast the disk is, the writer is in the middle: its journal is there, and the file has grown.
    void uma_escrita_cortada_a_meio_nao_deixa_nada()
    {
        SO_NUM_FICHEIRO("its journal");
        Sistema s;
        const QStringList antes = s.Linhas(u"SELECT * FROM TblGrupos ORDER BY ID"_s);
        const qint64 tamanho = QFileInfo(s.Base()).size();
        QProcess copia;
        Arrancar_Copia(copia, u"a meio"_s, s.Base());
        QVERIFY(QFileInfo(s.Base() + u"-journal"_s).size() > 0);
        QVERIFY(QFileInfo(s.Base()).size() > tamanho);
        QCOMPARE(copia.state(), QProcess::Running);
        copia.kill();
        QVERIFY(copia.waitForFinished());
        QCOMPARE(copia.exitStatus(), QProcess::CrashExit);
        QCOMPARE(s.Linhas(u"SELECT * FROM TblGrupos ORDER BY ID"_s), antes);
        QCOMPARE(s.Linhas(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    }
};

int main(int argc, char **argv)
{
    if (argc == 4 && qstrcmp(argv[1], modo_de_copia) == 0)
        return Segunda_Copia(QString::fromLocal8Bit(argv[2]), QString::fromLocal8Bit(argv[3]));
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    TestDE testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_DE.moc"
