// The connection to a database file: what it opens, what it refuses, what it does to a statement.
#include "store/CleanCopy.h"
#include "store/Connection.h"
#include "store/Row.h"
#include "store/NewDatabase.h"
#include "testlib/DiscoCheio.h"
#include "testlib/MemoriaPedida.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>
#include <thread>

using namespace Qt::StringLiterals;

class TestConnection : public QObject
{
    Q_OBJECT

    static constexpr qint64 paciencia = 12000; // ms: one wait in vain takes 5,000

    QTemporaryDir folder_;
    QString path_;
    Connection connection_;

    static QString Fonte(const QString &path) { return u"Data Source='%1'"_s.arg(path); }

    void Escrever_Ficheiro(const QByteArray &bytes) const
    {
        QFile file(path_);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QStringList Nomes(const QString &where, const std::vector<StoreValue> &values = {})
    {
        Recordset rs = connection_.query(u"SELECT Nome FROM T "_s + where, values);
        QStringList names;
        for (; !rs.Eof(); rs.MoveNext())
            names << rs.Fields("Nome").text();
        return names;
    }
    // Another connection to the same file, which begins with that statement.
    void Abrir_Outra(Connection &outra, const QString &sql = {}) const
    {
        outra.setConnectionString(Fonte(path_));
        outra.Open();
        if (!sql.isEmpty()) outra.execute(sql, {});
    }
    // What is said when that is asked: where it arose, what happened.
    static QString Dito(const std::function<void()> &trabalho)
    {
        QString dito;
        onFailure(trabalho, [&dito](const Failure &falha) { dito = falha.source() + u": "_s + falha.description(); });
        return dito;
    }
    static FileCopy Copia(const QString &ficheiro)
    {
        FileCopy copia;
        copia.file = ficheiro;
        return copia;
    }
    // Whether that passes where somebody holds the file for a moment.
    bool Espera_Um_Momento(const std::function<void()> &trabalho)
    {
        Connection outra;
        Abrir_Outra(outra, u"BEGIN EXCLUSIVE"_s);
        std::thread solta([&outra] {
            QThread::msleep(300);
            outra.execute(u"ROLLBACK"_s, {});
        });
        const bool passou = skipFailure(trabalho);
        solta.join();
        return passou;
    }
    bool Escrita_Espera_Um_Momento()
    {
        return Espera_Um_Momento([this] { connection_.execute(u"DELETE FROM T WHERE ID<0"_s, {}); });
    }
    void Criar_Tabela()
    {
        createDatabase(
            path_,
            {u"CREATE TABLE T (ID INTEGER PRIMARY KEY AUTOINCREMENT, Nome TEXT COLLATE MORVEX) STRICT"_s});
        connection_.setConnectionString(Fonte(path_));
        connection_.Open();
        for (const QString &name : {u"Álvaro"_s, u"ANDRÉ"_s, u"Zita"_s})
            connection_.execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {name});
    }

    // Rows of few pairs, of which the first holds nothing: a name that tells its place, and a day and a month.
    void Criar_Datas(int quantas)
    {
        createDatabase(path_, {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT, D TEXT COLLATE MORVEX, "
                               "M TEXT COLLATE MORVEX) STRICT"_s});
        connection_.setConnectionString(Fonte(path_));
        connection_.Open();
        connection_.execute(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) "
                            "INSERT INTO T SELECT i, printf('%05d', ? - i), "
                            "CASE i % 4 WHEN 1 THEN NULL WHEN 2 THEN '' ELSE CAST(i % 4 AS TEXT) END, "
                            "CASE i % 3 WHEN 1 THEN NULL WHEN 2 THEN 'a' ELSE 'A' END FROM n"_s,
                            {qint64{quantas}, qint64{quantas}});
    }

    struct Perguntadas {
        QStringList pares; // "first/second", in the order of letters
        QStringList nomes; // of the rows that came
        bool ha = false;
    };
    Perguntadas Perguntar(const QString &sql, const QString &colunas, const QString &querida)
    {
        Perguntadas p;
        p.ha = connection_.rowsWanted(
            sql, {}, colunas,
            [&](std::string_view a, std::string_view b) {
                p.pares << QString::fromUtf8(a) + u'/' + QString::fromUtf8(b);
                return p.pares.last() == querida;
            },
            [&](const Row &linha) { p.nomes << linha.field(0).text(); });
        p.pares.sort();
        return p;
    }
    const QString datas_ = u"SELECT Nome FROM T WHERE ID > 0 ORDER BY Nome"_s;

private Q_SLOTS:
    void init() { path_ = folder_.filePath(u"base.mdb"_s); }
    void cleanup()
    {
        connection_.Close();
        QFile::remove(path_);
    }

    void o_que_nao_e_uma_base_nao_abre_nem_e_alterado_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("a line of text") << QByteArray("rubbish\n");
        QTest::newRow("rubbish of a page") << QByteArray(8192, 'x');
        QTest::newRow("half a header") << QByteArray("SQLite format 3\0", 16);
    }
    void o_que_nao_e_uma_base_nao_abre_nem_e_alterado()
    {
        QFETCH(QByteArray, bytes);
        Escrever_Ficheiro(bytes);
        connection_.setConnectionString(Fonte(path_));
        VERIFICAR_FALHA(connection_.Open(), Failure::StoreError);
        QVERIFY(!connection_.isOpen());
        QFile file(path_);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), bytes);
    }

    void ficheiro_em_falta_nao_e_criado()
    {
        connection_.setConnectionString(Fonte(path_));
        VERIFICAR_FALHA(connection_.Open(), Failure::StoreError);
        QVERIFY(!QFile::exists(path_));
    }

    void cadeia_de_ligacao_partida_nao_abre_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << u""_s;
        QTest::newRow("no source") << u"Provider=X"_s;
        QTest::newRow("no quotes") << u"Data Source=%1"_s;
        QTest::newRow("quote in the path") << u"Data Source='%1'x'"_s;
        QTest::newRow("not closed") << u"Data Source='%1"_s;
    }
    void cadeia_de_ligacao_partida_nao_abre()
    {
        QFETCH(QString, text);
        Criar_Tabela();
        connection_.Close();
        connection_.setConnectionString(text.replace(u"%1"_s, path_));
        VERIFICAR_FALHA(connection_.Open(), Failure::StoreError);
    }

    void uma_ligacao_fechada_recusa_instrucoes()
    {
        VERIFICAR_FALHA(connection_.execute(u"DELETE FROM T"_s, {}), Failure::StoreError);
        VERIFICAR_FALHA(connection_.query(u"SELECT 1"_s, {}), Failure::StoreError);
    }

    void nada_esta_contado_antes_de_escrever_e_com_a_ligacao_fechada()
    {
        const auto verificar = [this] {
            QCOMPARE(connection_.undone(), 0);
            QCOMPARE(connection_.written(u"DELETE FROM T"_s), 0);
            QCOMPARE(connection_.lostWrites(), 0);
            QCOMPARE(connection_.fateOf(1), Fate::None);
        };
        verificar();
        Criar_Tabela();
        verificar();
    }

    void cada_recusa_diz_o_que_aconteceu()
    {
        QCOMPARE(Dito([this] { connection_.execute({}, {}); }), u"Connection: The connection is closed"_s);
        connection_.setConnectionString(u"Provider=X"_s);
        QCOMPARE(Dito([this] { connection_.Open(); }), u"Connection: The connection string is broken: Provider=X"_s);
        connection_.setDataSource(path_);
        QCOMPARE(Dito([this] { connection_.Open(); }), u"Connection: The database was not found: "_s + path_);
        Escrever_Ficheiro({});
        QCOMPARE(Dito([this] { connection_.Open(); }), u"Connection: The file is no database: "_s + path_);
        QCOMPARE(Dito([this] { connection_.OpenCopyInMemory(); }), u"Connection: The file is no database: "_s + path_);
        QCOMPARE(Dito([this] { createDatabase(path_, {}); }), path_ + u": The file exists already: "_s + path_);
        QVERIFY(QFile::remove(path_));
        Criar_Tabela();
        QCOMPARE(Dito([this] { connection_.query(u"SELECT ? + ?"_s, {qint64{1}}); }),
                 u"Connection: 1 values for 2 parameters"_s);
        QCOMPARE(Dito([this] { connection_.execute(u"SELECT 1"_s, {}); }),
                 u"SELECT 1: A statement that should only write has rows"_s);
        QCOMPARE(Dito([this] {
                     connection_.rows(u"SELECT 1 AS N"_s, {}, [](const Row &linha) { linha.column("M"); });
                 }),
                 u"Row: No column named M"_s);
        QCOMPARE(Dito([this] { connection_.query(u"SELECT wanted(1, 2)"_s, {}); }),
                 u"SELECT wanted(1, 2): Nobody says what is wanted"_s);
        QCOMPARE(Dito([this] { connection_.copyTo(Copia(path_)); }),
                 path_ + u": The file exists already: "_s + path_);
    }

    void quem_tem_o_ficheiro_por_um_momento_espera_se()
    {
        Criar_Tabela();
        QVERIFY(Escrita_Espera_Um_Momento());
        Connection copia;
        copia.setDataSource(path_);
        QVERIFY(Espera_Um_Momento([&copia] { copia.OpenCopyInMemory(); }));
        QVERIFY(Espera_Um_Momento([&copia] { copia.Open(); }));
    }

    void iguais_like_e_ordem_seguem_as_regras_do_texto()
    {
        Criar_Tabela();
        QCOMPARE(Nomes(u"WHERE Nome=?"_s, {u"andré"_s}), QStringList{u"ANDRÉ"_s});
        QCOMPARE(Nomes(u"WHERE Nome=?"_s, {u"andre"_s}), QStringList{});
        QCOMPARE(Nomes(u"WHERE Nome LIKE ?"_s, {u"%ál%"_s}), QStringList{u"Álvaro"_s});
        QCOMPARE(Nomes(u"WHERE ID LIKE ?"_s, {u"2"_s}), QStringList{u"ANDRÉ"_s});
        QCOMPARE(Nomes(u"ORDER BY Nome"_s), (QStringList{u"Álvaro"_s, u"ANDRÉ"_s, u"Zita"_s}));
        QCOMPARE(Nomes(u"WHERE NULL LIKE ?"_s, {u"%"_s}), QStringList{});
        QCOMPARE(Nomes(u"WHERE NULL NOT LIKE ?"_s, {u"Z"_s}), QStringList{});
        QCOMPARE(Nomes(u"WHERE Nome NOT LIKE ?"_s, {StoreValue()}), QStringList{});
    }

    void cada_valor_vai_como_o_que_e_e_nenhum_fica_para_a_vez_seguinte()
    {
        Criar_Tabela();
        const QString sql = u"SELECT ? AS a, typeof(?) AS b"_s;
        const auto linha = [&](const StoreValue &um, const StoreValue &outro) {
            return connection_.query(sql, {um, outro}).Row();
        };
        QCOMPARE(linha(1.5, 2.5), QStringList({u"1.5"_s, u"real"_s}));
        QCOMPARE(linha(StoreValue(), StoreValue()), QStringList({u"<Null>"_s, u"null"_s}));
        QCOMPARE(linha(qint64{7}, u"x"_s), QStringList({u"7"_s, u"text"_s}));
        QCOMPARE(linha(QByteArray("b"), QByteArray("b")), QStringList({u"b"_s, u"blob"_s}));
    }

    void o_que_uma_escrita_levou_nao_fica_em_memoria()
    {
        constexpr std::size_t uma = 100'000;
        Criar_Tabela();
        const QString texto(qsizetype{uma}, u'x');
        const memoria::Medida medida;
        for (int i = 0; i < 200; ++i)
            connection_.execute(u"UPDATE T SET Nome=? WHERE ID<0"_s, {texto});
        const std::size_t mais = medida.Maximo();
        if (!memoria::Medida::Possivel()) QSKIP("nobody measures here");
        QVERIFY2(mais < 20 * uma, qPrintable(QString::number(mais)));
        QVERIFY(memoria::Medida::Tirada(mais, uma / 2));
    }

    void quem_so_olha_le_e_nao_escreve()
    {
        Criar_Tabela();
        Connection olhar;
        olhar.setDataSource(path_);
        olhar.OpenReadOnly();
        QCOMPARE(olhar.query(u"SELECT * FROM T"_s, {}).RecordCount(), 3);
        Failure::Kind especie = Failure::Kind::Other;
        onFailure([&] { olhar.execute(u"DELETE FROM T"_s, {}); },
                  [&](const Failure &falha) { especie = falha.kind(); });
        QCOMPARE(especie, Failure::Kind::DatabaseReadOnly);
        QCOMPARE(Nomes({}).size(), 3);
    }

    void delete_com_asterisco_apaga_linhas_inteiras()
    {
        Criar_Tabela();
        connection_.execute(u"DELETE * FROM T WHERE ID=?"_s, {qint64{2}});
        QCOMPARE(Nomes(u"ORDER BY ID"_s), (QStringList{u"Álvaro"_s, u"Zita"_s}));
        connection_.execute(u" delete *  from T"_s, {});
        QCOMPARE(Nomes(u""_s), QStringList{});
    }

    void um_contador_nao_repete_numeros()
    {
        Criar_Tabela();
        connection_.execute(u"DELETE * FROM T"_s, {});
        connection_.execute(u"INSERT INTO T (Nome) VALUES ('x')"_s, {});
        QCOMPARE(connection_.query(u"SELECT ID FROM T"_s, {}).Fields("ID").number(), 4);
    }

    void a_marca_muda_com_o_que_qualquer_um_escreve()
    {
        Criar_Tabela();
        Connection outra;
        Abrir_Outra(outra);
        const Connection::Mark antes = connection_.mark();
        QVERIFY(!(antes == Connection::Mark()));
        QCOMPARE(Nomes({}).size(), 3);
        QVERIFY(connection_.mark() == antes); // reading changes nothing
        outra.execute(u"INSERT INTO T (Nome) VALUES ('de fora')"_s, {});
        const Connection::Mark de_fora = connection_.mark();
        QVERIFY(!(de_fora == antes));
        connection_.execute(u"INSERT INTO T (Nome) VALUES ('daqui')"_s, {});
        QVERIFY(!(connection_.mark() == de_fora));
        connection_.Close();
        connection_.Open();
        QVERIFY(!(connection_.mark() == antes));
        QVERIFY(!(connection_.mark() == de_fora));
    }

    void um_erro_da_instrucao_traz_a_instrucao_e_a_ligacao_continua()
    {
        Criar_Tabela();
        try {
            connection_.query(u"SELECT Apelido FROM T"_s, {});
            QFAIL("no failure");
        } catch (const Failure &failure) {
            QCOMPARE(failure.number(), static_cast<int>(Failure::StoreError));
            QCOMPARE(failure.source(), u"SELECT Apelido FROM T"_s);
            QVERIFY(failure.description().contains(u"Apelido"_s));
        }
        VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {}), Failure::StoreError);
        VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (ID, Nome) VALUES (1, 'x')"_s, {}),
                        Failure::StoreError);
        QCOMPARE(Nomes(u""_s).size(), 3);
    }

    void um_tipo_errado_falha_na_escrita()
    {
        Criar_Tabela();
        VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (ID) VALUES (?)"_s, {u"abc"_s}),
                        Failure::StoreError);
    }

    void um_conjunto_de_linhas_nao_tranca_o_ficheiro_e_sobrevive_a_ligacao()
    {
        Criar_Tabela();
        Recordset rs = connection_.query(u"SELECT Nome FROM T ORDER BY ID"_s, {});
        Connection other;
        Abrir_Outra(other, u"DELETE * FROM T"_s);
        connection_.Close();
        QCOMPARE(rs.RecordCount(), 3);
        QCOMPARE(rs.Fields("Nome").text(), u"Álvaro"_s);
    }

    void textos_longos_e_de_qualquer_lingua_voltam_inteiros()
    {
        Criar_Tabela();
        const QString text = u"Ł 漢 😀 '\"; DROP TABLE T\r\n"_s.repeated(1000);
        connection_.execute(u"UPDATE T SET Nome=? WHERE ID=1"_s, {text});
        QCOMPARE(Nomes(u"WHERE ID=1"_s), QStringList{text});
    }

    void uma_base_existente_nao_e_criada_por_cima()
    {
        Criar_Tabela();
        VERIFICAR_FALHA(createDatabase(path_, {u"CREATE TABLE U (ID INTEGER)"_s}), Failure::StoreError);
        QCOMPARE(Nomes(u""_s).size(), 3);
    }

    void escritas_juntas_estao_no_ficheiro_no_fim_e_uma_recusada_nao_toca_nas_outras()
    {
        constexpr int muitas = 4500; // more than one portion
        Criar_Tabela();
        Connection outra;
        Abrir_Outra(outra);
        connection_.gathering([&] {
            for (int i = 0; i < muitas; ++i)
                connection_.execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {QString::number(i)});
            VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (ID) VALUES (?)"_s, {u"x"_s}),
                            Failure::StoreError);
            QCOMPARE(Nomes(u"WHERE Nome='7'"_s), QStringList{u"7"_s}); // seen here at once
        });
        Recordset rs = outra.query(u"SELECT count(*) AS n FROM T"_s, {});
        QCOMPARE(rs.Fields("n").number(), muitas + 3);
        connection_.execute(u"DELETE FROM T"_s, {}); // alone again
        QCOMPARE(outra.query(u"SELECT ID FROM T"_s, {}).RecordCount(), 0);
    }

    void uma_falha_que_acaba_o_trabalho_guarda_o_que_veio_antes()
    {
        Criar_Tabela();
        VERIFICAR_FALHA(connection_.gathering([&] {
            connection_.execute(u"INSERT INTO T (Nome) VALUES ('antes')"_s, {});
            throw Failure(5, u"teste"_s, u"acaba"_s);
        }),
                        5);
        connection_.Close();
        connection_.Open();
        QCOMPARE(Nomes(u"WHERE Nome='antes'"_s).size(), 1);
    }

    // The disk takes some of them. What one write after the other would have brought there is there.
    void num_disco_que_se_enche_fica_tudo_o_que_veio_antes_da_primeira_falha()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        constexpr int muitas = 500;
        constexpr rlim_t folga = 64 * 1024;
        Criar_Tabela();
        const QString texto(1000, u'x');
        int falha = 0;
        {
            const DiscoCheio disco(static_cast<rlim_t>(QFileInfo(path_).size()) + folga);
            try {
                connection_.gathering([&] {
                    for (int i = 0; i < muitas; ++i)
                        connection_.execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {texto});
                });
            } catch (const Failure &f) {
                falha = f.number();
            }
        }
        QCOMPARE(falha, static_cast<int>(Failure::StoreError));
        connection_.Close();
        connection_.Open();
        Recordset rs = connection_.query(u"SELECT count(*) AS n, max(ID) AS m FROM T"_s, {});
        const int ficaram = rs.Fields("n").number();
        QVERIFY2(ficaram > 3 + 20 && ficaram < muitas, qPrintable(QString::number(ficaram)));
        QCOMPARE(rs.Fields("m").number(), ficaram); // none is missing in between
        QCOMPARE(connection_.query(u"PRAGMA integrity_check"_s, {}).Row(), QStringList{u"ok"_s});
    }

    // A copy of the one file must be a whole database: no side files, and each write on the disk when it
    // returns.
    void experimentar_a_escrita_nao_deixa_rasto()
    {
        Criar_Tabela();
        const qint64 tamanho = QFileInfo(path_).size();
        connection_.tryWriting();
        QCOMPARE(QFileInfo(path_).size(), tamanho);
        QVERIFY(!QFileInfo::exists(path_ + u"-journal"_s));
        QCOMPARE(connection_.query(u"SELECT name FROM sqlite_master WHERE name='Trial'"_s, {}).RecordCount(),
                 0);
        connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {});
        QCOMPARE(Nomes(u"WHERE Nome='Nova'"_s), QStringList{u"Nova"_s});
    }

    void num_disco_cheio_experimentar_a_escrita_falha_e_depois_escreve_se_de_novo()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Criar_Tabela();
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(path_).size()));
            VERIFICAR_FALHA(connection_.tryWriting(), Failure::StoreError);
        }
        {
            constexpr int pouco = 30000; // room for a page or two is not enough
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(path_).size()) + pouco);
            VERIFICAR_FALHA(connection_.tryWriting(), Failure::StoreError);
        }
        connection_.tryWriting();
        connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {});
        QCOMPARE(connection_.query(u"PRAGMA integrity_check"_s, {}).Fields("integrity_check").text(),
                 u"ok"_s);
    }

    void o_que_e_tudo_ou_nada_fica_inteiro_ou_nao_fica()
    {
        Criar_Tabela();
        const QString inserir = u"INSERT INTO T (Nome) VALUES (?)"_s;
        const int antes = connection_.written(inserir);
        VERIFICAR_FALHA(connection_.allOrNothing([&] {
            connection_.execute(inserir, {u"Bia"_s});
            connection_.execute(inserir, {u"Bia"_s, u"a mais"_s});
        }),
                        Failure::StoreError);
        QCOMPARE(Nomes(u"WHERE Nome='Bia'"_s), QStringList());
        QCOMPARE(connection_.written(inserir), antes);

        connection_.allOrNothing([&] {
            connection_.execute(inserir, {u"Bia"_s});
            connection_.execute(inserir, {u"Rui"_s});
        });
        QCOMPARE(connection_.written(inserir), antes + 2);
        Connection outra; // nothing is left locked
        Abrir_Outra(outra, u"DELETE FROM T WHERE Nome='Rui'"_s);
        QCOMPARE(Nomes(u"WHERE Nome IN ('Bia', 'Rui')"_s), QStringList(u"Bia"_s));
    }

    void uma_tranca_espera_se_uma_vez_ate_que_uma_escrita_passe()
    {
        Criar_Tabela();
        Connection outra;
        Abrir_Outra(outra, u"BEGIN EXCLUSIVE"_s);
        QElapsedTimer relogio;
        relogio.start();
        connection_.waitingOnce([&] {
            for (int i = 0; i < 20; ++i) {
                VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {}),
                                Failure::StoreError);
                VERIFICAR_FALHA(connection_.query(u"SELECT * FROM T"_s, {}), Failure::StoreError);
            }
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(QString::number(relogio.elapsed())));
            outra.execute(u"ROLLBACK"_s, {});
            connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {});
            QVERIFY(Escrita_Espera_Um_Momento());
        });
        QCOMPARE(Nomes(u"WHERE Nome='Nova'"_s), QStringList{u"Nova"_s});
    }

    void uma_recusa_que_nao_e_de_uma_tranca_nao_gasta_a_espera()
    {
        Criar_Tabela();
        connection_.waitingOnce([&] {
            VERIFICAR_FALHA(connection_.execute(u"INSERT INTO T (ID) VALUES (1)"_s, {}), Failure::StoreError);
            QVERIFY(Escrita_Espera_Um_Momento());
        });
    }

    // A reader lets a portion begin, but not reach the file: that is known before the first of its writes.
    void um_leitor_espera_se_uma_vez_por_muito_que_a_porcao_cresca()
    {
        constexpr int mais_do_que_a_memoria = 1500;
        Criar_Tabela();
        Connection leitor;
        Abrir_Outra(leitor, u"BEGIN"_s);
        QCOMPARE(leitor.query(u"SELECT * FROM T"_s, {}).RecordCount(), 3);
        QElapsedTimer relogio;
        relogio.start();
        connection_.waitingOnce([&] {
            skipFailure([&] {
                connection_.gathering([&] {
                    for (int i = 0; i < mais_do_que_a_memoria && relogio.elapsed() < paciencia; ++i)
                        skipFailure([&] {
                            connection_.execute(u"INSERT INTO T (Nome) VALUES (?)"_s, {QString(3000, u'n')});
                        });
                });
            });
            QVERIFY2(relogio.elapsed() < paciencia, qPrintable(QString::number(relogio.elapsed())));
            leitor.execute(u"ROLLBACK"_s, {});
            connection_.gathering([&] { connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {}); });
            QVERIFY(Escrita_Espera_Um_Momento());
        });
        QCOMPARE(Nomes({}).size(), 4);
    }

    void so_uma_escrita_que_chegou_ao_ficheiro_devolve_a_paciencia()
    {
        Criar_Tabela();
        Connection leitor;
        Abrir_Outra(leitor, u"BEGIN"_s);
        QCOMPARE(leitor.query(u"SELECT * FROM T"_s, {}).RecordCount(), 3);
        QElapsedTimer relogio;
        relogio.start();
        connection_.waitingOnce([&] {
            for (int i = 0; i < 4; ++i) {
                connection_.execute(u"BEGIN"_s, {});
                connection_.execute(u"INSERT INTO T (Nome) VALUES ('Nova')"_s, {}); // not in the file yet
                VERIFICAR_FALHA(connection_.execute(u"COMMIT"_s, {}), Failure::StoreError);
                connection_.execute(u"ROLLBACK"_s, {});
            }
        });
        QVERIFY2(relogio.elapsed() < paciencia, qPrintable(QString::number(relogio.elapsed())));
        leitor.execute(u"ROLLBACK"_s, {});
        QVERIFY(Escrita_Espera_Um_Momento()); // who comes afterwards waits anew
    }

    // Of a portion that the disk undid only what went into the file after all counts.
    void conta_se_o_que_esta_no_ficheiro_e_nada_mais()
    {
        if (!DiscoCheio::Possivel()) QSKIP("no disk can be filled here");
        Criar_Tabela();
        const QString inserir = u"INSERT INTO T (Nome) VALUES (?)"_s;
        const int antes = connection_.written(inserir);
        {
            const DiscoCheio cheio(static_cast<rlim_t>(QFileInfo(path_).size()) + 100000);
            skipFailure([&] {
                connection_.gathering([&] {
                    for (int i = 0; i < 100; ++i)
                        skipFailure([&] { connection_.execute(inserir, {QString(5000, u'n')}); });
                });
            });
        }
        const int escritas = connection_.written(inserir) - antes;
        QVERIFY2(escritas > 0 && escritas < 100, qPrintable(QString::number(escritas)));
        QVERIFY(connection_.undone() > 0);
        QCOMPARE(Nomes(u"WHERE Nome LIKE 'nnn%'"_s).size(), escritas);
    }

    // Until it is written it stands in memory.
    void uma_porcao_com_muitos_bytes_escreve_se_antes_de_ter_muitas_linhas()
    {
        Criar_Tabela();
        connection_.execute(u"CREATE TABLE B (Bytes BLOB)"_s, {});
        Connection outra;
        outra.setConnectionString(Fonte(path_));
        outra.Open();
        const auto quantas = u"SELECT count(*) AS n FROM B"_s;
        const QString inserir = u"INSERT INTO B VALUES (?)"_s;
        connection_.gathering([&] {
            for (int porcao = 1; porcao <= 2; ++porcao) {
                for (int i = 0; i < 15; ++i)
                    connection_.execute(inserir, {QByteArray(1 << 20, 'b')});
                connection_.execute(inserir, {QByteArray((1 << 20) - 1, 'b')});
                QCOMPARE(connection_.written(inserir), (porcao - 1) * 17); // a byte is missing
                connection_.execute(inserir, {QByteArray("b")});
                QCOMPARE(outra.query(quantas, {}).Fields("n").number(), porcao * 17);
            }
            connection_.execute(inserir, {QByteArray("pouco")});
        });
        QCOMPARE(outra.query(quantas, {}).Fields("n").number(), 35);
    }

    void uma_porcao_com_muitas_linhas_escreve_se_antes_do_fim()
    {
        constexpr int porcao = 8000;
        Criar_Tabela();
        const QString inserir = u"INSERT INTO T (Nome) VALUES ('Nova')"_s;
        connection_.gathering([&] {
            for (int i = 1; i < porcao; ++i)
                connection_.execute(inserir, {});
            QCOMPARE(connection_.written(inserir), 0);
            connection_.execute(inserir, {});
            QCOMPARE(connection_.written(inserir), porcao);
        });
    }

    void uma_copia_em_memoria_nao_prende_o_ficheiro()
    {
        Criar_Tabela();
        Connection copia;
        copia.setConnectionString(Fonte(path_));
        copia.OpenCopyInMemory();
        connection_.execute(u"DELETE FROM T"_s, {});
        QCOMPARE(copia.query(u"SELECT * FROM T"_s, {}).RecordCount(), 3);
        connection_.Close();
        QVERIFY(QFile::remove(path_));
        QStringList nomes;
        copia.each(u"SELECT Nome FROM T ORDER BY Nome"_s, {},
                   [&](const Recordset &linha) { nomes << linha.Fields("Nome").text(); });
        QCOMPARE(nomes, (QStringList{u"Álvaro"_s, u"ANDRÉ"_s, u"Zita"_s}));
    }

    void uma_copia_em_memoria_de_um_ficheiro_estragado_nao_abre()
    {
        Criar_Tabela();
        connection_.execute(u"CREATE TABLE Errada (Valor INTEGER CHECK (Valor > 0))"_s, {});
        connection_.query(u"PRAGMA ignore_check_constraints=ON"_s, {});
        connection_.execute(u"INSERT INTO Errada (Valor) VALUES (-1)"_s, {});
        Connection copia;
        copia.setConnectionString(Fonte(path_));
        VERIFICAR_FALHA(copia.OpenCopyInMemory(), Failure::StoreError);
        QVERIFY(!copia.isOpen());
        QCOMPARE(Dito([&copia] { copia.OpenCopyInMemory(); }),
                 path_ + u": The database is damaged: CHECK constraint failed in Errada"_s);
        const QString ficheiro = folder_.filePath(u"copia.mdb"_s);
        const QString danificada = ficheiro + u": The copy is damaged: CHECK constraint failed in Errada"_s;
        QCOMPARE(Dito([&] { connection_.copyTo(Copia(ficheiro)); }), danificada);
        QVERIFY(!QFile::exists(ficheiro));
        QCOMPARE(Dito([&] { compactDatabase(path_, ficheiro); }), danificada);
        QVERIFY(QFile::remove(ficheiro));
    }

    void uma_copia_para_ficheiro_diz_no_fim_que_esta_inteira()
    {
        Criar_Tabela();
        const QString ficheiro = folder_.filePath(u"inteira.mdb"_s);
        QList<int> ditos;
        FileCopy copia = Copia(ficheiro);
        copia.progress = [&ditos](int percentagem) { ditos << percentagem; };
        connection_.copyTo(copia);
        QCOMPARE(ditos, QList<int>{100});
        QVERIFY(QFile::remove(ficheiro));
        compactDatabase(path_, ficheiro);
        Connection inteira;
        inteira.setDataSource(ficheiro);
        inteira.Open();
        QCOMPARE(inteira.query(u"SELECT * FROM T"_s, {}).RecordCount(), 3);
        inteira.Close();
        QVERIFY(QFile::remove(ficheiro));
    }

    void um_ficheiro_copia_se_por_cima_de_outro_e_conhece_se_pelas_suas_moradas()
    {
        Criar_Tabela();
        const QString ficheiro = folder_.filePath(u"outro.mdb"_s);
        QVERIFY(!isSameFile(path_, ficheiro)); // there is none
        QCOMPARE(Dito([&] { copyOver(ficheiro, path_); }), ficheiro + u": The file could not be read: "_s + ficheiro);
        copyOver(path_, ficheiro);
        QVERIFY(!isSameFile(path_, ficheiro));
        QVERIFY(isSameFile(path_, folder_.filePath(u"./base.mdb"_s)));
        QCOMPARE(QFileInfo(ficheiro).size(), QFileInfo(path_).size());
        const QString sem_pasta = folder_.filePath(u"nenhuma/outro.mdb"_s);
        QCOMPARE(Dito([&] { copyOver(path_, sem_pasta); }),
                 sem_pasta + u": The file could not be written: "_s + sem_pasta);
        QVERIFY(QFile::remove(ficheiro));
    }

    void uma_base_em_memoria_nao_passa_do_tamanho_que_lhe_deram()
    {
        Connection memoria;
        memoria.OpenInMemory(100000);
        memoria.execute(u"CREATE TABLE T (B BLOB)"_s, {});
        memoria.execute(u"INSERT INTO T VALUES (?)"_s, {QByteArray(50000, 'x')});
        VERIFICAR_FALHA(memoria.execute(u"INSERT INTO T VALUES (?)"_s, {QByteArray(50000, 'x')}),
                        Failure::StoreError);
    }

    void uma_base_em_memoria_toma_os_bytes_que_lhe_deram()
    {
        constexpr qint64 bytes = 40 * 4096;
        Connection memoria;
        memoria.OpenInMemory(bytes);
        memoria.execute(u"CREATE TABLE T (B BLOB)"_s, {});
        while (skipFailure([&] { memoria.execute(u"INSERT INTO T VALUES (zeroblob(1000))"_s, {}); })) {}
        const int paginas = memoria.query(u"PRAGMA page_count"_s, {}).Fields("page_count").number();
        const int tamanho = memoria.query(u"PRAGMA page_size"_s, {}).Fields("page_size").number();
        QCOMPARE(qint64{paginas} * tamanho, bytes);
    }

    void uma_vista_e_uma_tabela_de_outrem_sao_estranhas_em_qualquer_caixa()
    {
        Criar_Tabela();
        connection_.execute(u"CREATE VIEW V AS SELECT 1 AS ID"_s, {});
        QVERIFY(!connection_.anyForeign({u"T"_s, u"nenhuma"_s}));
        QVERIFY(connection_.anyForeign({u"T"_s, u"v"_s}));
        connection_.execute(u"CREATE VIRTUAL TABLE F USING fts5(a)"_s, {});
        QVERIFY(connection_.anyForeign({u"f"_s}));
        QVERIFY(!connection_.anyForeign({}));
    }

    void um_ficheiro_de_base_conhece_se_pelo_principio()
    {
        Criar_Tabela();
        QFile ficheiro(path_);
        QVERIFY(ficheiro.open(QIODevice::ReadOnly));
        QVERIFY(Connection::beginsLikeOne(ficheiro.read(32)));
        QVERIFY(!Connection::beginsLikeOne("SQLite format 2"));
        QVERIFY(!Connection::beginsLikeOne({}));
    }

    void as_linhas_que_passam_trazem_o_que_cada_celula_guarda()
    {
        Criar_Tabela();
        QStringList linhas;
        connection_.rows(u"SELECT ID, Nome, NULL AS Nada, 1.5 AS Meio, 'outro' AS nome FROM T WHERE ID<?"_s,
                         {qint64{3}}, [&](const Row &linha) {
                             const auto nome = linha.utf8(linha.column("NOME"));
                             QVERIFY(linha.field(linha.column("Nada")).isNull());
                             QVERIFY(linha.utf8(linha.column("Nada")).empty());
                             QCOMPARE(linha.field(linha.column("Meio")).real(), 1.5);
                             linhas << QString::number(linha.field(linha.column("id")).number()) + u'|' +
                                           QString::fromUtf8(nome) + u'|' +
                                           linha.field(linha.column("Nome")).text();
                         });
        QCOMPARE(linhas, (QStringList{u"1|Álvaro|Álvaro"_s, u"2|ANDRÉ|ANDRÉ"_s}));
    }

    void os_bytes_de_uma_celula_sao_os_que_la_estao()
    {
        Criar_Tabela();
        connection_.rows(u"SELECT x'620063' AS b, NULL AS n, 'é' AS t, 7 AS i"_s, {}, [](const Row &linha) {
            QCOMPARE(QByteArray(linha.bytes(0).data(), 3), QByteArray("b\0c", 3));
            QCOMPARE(linha.bytes(0).size(), 3U);
            QCOMPARE(linha.field(0).bytes(), QByteArray("b\0c", 3));
            QVERIFY(linha.bytes(1).empty());
            QCOMPARE(linha.bytes(2), "é");
            QCOMPARE(linha.number(3), 7);
        });
    }

    void so_as_linhas_queridas_passam_pela_ordem_pedida()
    {
        Criar_Tabela();
        const QString sql = u"SELECT Nome FROM T WHERE ID > 0"_s;
        QStringList perguntas;
        QStringList passadas;
        connection_.rowsWanted(
            sql + u" ORDER BY Nome DESC"_s, {}, u"Nome, NULL"_s,
            [&](std::string_view nome, std::string_view nulo) {
                perguntas << QString::fromUtf8(nome) + QString::number(nulo.size());
                return nome != "ANDRÉ";
            },
            [&](const Row &linha) { passadas << linha.field(0).text(); });
        QCOMPARE(passadas, (QStringList{u"Zita"_s, u"Álvaro"_s}));
        perguntas.sort();
        QCOMPARE(perguntas, (QStringList{u"ANDRÉ0"_s, u"Zita0"_s, u"Álvaro0"_s}));
        const auto ninguem = [](std::string_view, std::string_view) { return false; };
        const auto nada = [](const Row &) {};
        QVERIFY(connection_.rowsWanted(sql, {}, u"Nome, Nome"_s, ninguem, nada)); // there are, none wanted
        QVERIFY(connection_.rowsWanted(sql + u" ORDER BY Nome"_s, {}, u"Nome, Nome"_s, ninguem, nada));
        QVERIFY(!connection_.rowsWanted(sql + u" AND ID > 99"_s, {}, u"Nome, Nome"_s, ninguem, nada));
        passadas.clear();
        connection_.rowsWanted(
            sql, {}, u"Nome, Nome"_s, [](std::string_view nome, std::string_view) { return nome == "Zita"; },
            [&](const Row &linha) { passadas << linha.field(0).text(); });
        QCOMPARE(passadas, QStringList(u"Zita"_s));
        VERIFICAR_FALHA(connection_.rows(sql + u" AND wanted(Nome, NULL)"_s, {}, [](const Row &) {}),
                        Failure::StoreError); // nobody says it now
    }

    void com_um_indice_dos_pares_pergunta_se_por_eles_e_nao_por_cada_linha()
    {
        Criar_Datas(60);
        for (const QString &querida : {u"/"_s, u"/a"_s, u"3/"_s, u"3/A"_s, u"0/a"_s, u"9/9"_s}) {
            const Perguntadas sem = Perguntar(datas_, u"T.D, T.M"_s, querida);
            QCOMPARE(sem.pares.size(), 60);
            connection_.indexPairs(u"Pares"_s, u"T.D, T.M"_s);
            connection_.indexPairs(u"Pares"_s, u"T.D, T.M"_s); // it is there already
            const Perguntadas com = Perguntar(datas_, u"T.D, T.M"_s, querida);
            QStringList uma_vez = sem.pares;
            uma_vez.removeDuplicates();
            QStringList perguntados = com.pares;
            QCOMPARE(perguntados.removeDuplicates(), uma_vez.size()); // to count them, and to find them
            QCOMPARE(perguntados, uma_vez);
            QCOMPARE(uma_vez, (QStringList{u"/"_s, u"/A"_s, u"/a"_s, u"0/"_s, u"0/A"_s, u"0/a"_s, u"3/"_s, u"3/A"_s,
                                           u"3/a"_s}));
            QCOMPARE(com.nomes, sem.nomes);
            QCOMPARE(com.nomes.isEmpty(), querida == u"9/9"_s);
            QVERIFY(com.ha);
            connection_.execute(u"DROP INDEX Pares"_s, {});
        }
    }

    void o_indice_dos_pares_de_outras_colunas_nao_conta()
    {
        Criar_Datas(60);
        connection_.indexPairs(u"Pares"_s, u"T.M, T.D"_s);
        connection_.execute(u"CREATE INDEX Outro ON T (D, M)"_s, {});
        QCOMPARE(Perguntar(datas_, u"T.D, T.M"_s, u"3/A"_s).pares.size(), 60);
        connection_.indexPairs(u"Outro2"_s, u"T.D, T.M"_s);
        QCOMPARE(Perguntar(datas_, u"D, M"_s, u"3/A"_s).pares.size(), 60); // of no table
        QCOMPARE(Perguntar(datas_, u"T.D, M"_s, u"3/A"_s).pares.size(), 60);
        QCOMPARE(Perguntar(datas_, u"T.D, T.M"_s, u"3/A"_s).pares.size(), 18);
    }

    void havendo_muitas_queridas_le_se_tudo_pela_ordem()
    {
        Criar_Datas(12 * 1000); // of each pair a thousand
        connection_.indexPairs(u"Pares"_s, u"T.D, T.M"_s);
        const Perguntadas mil = Perguntar(datas_, u"T.D, T.M"_s, u"3/A"_s);
        QCOMPARE(mil.nomes.size(), 1000);
        QCOMPARE(mil.pares.size(), 18);
        connection_.execute(u"INSERT INTO T VALUES (20000, '99999', '3', 'A')"_s, {});
        const Perguntadas mais = Perguntar(datas_, u"T.D, T.M"_s, u"3/A"_s);
        QVERIFY(mais.pares.size() > 12001); // each row, behind the pairs that were counted
        QCOMPARE(mais.nomes, mil.nomes + QStringList{u"99999"_s});
    }

    void o_numero_da_linha_acrescentada_e_o_do_contador()
    {
        Criar_Tabela();
        connection_.execute(u"CREATE TABLE C (ID INTEGER PRIMARY KEY AUTOINCREMENT, N TEXT)"_s, {});
        QCOMPARE(connection_.highestId(u"C"_s), 0);
        connection_.execute(u"INSERT INTO C (N) VALUES ('a')"_s, {});
        connection_.execute(u"INSERT INTO C (ID, N) VALUES (41, 'b')"_s, {});
        QCOMPARE(connection_.lastId(), 41);
        connection_.execute(u"DELETE FROM C WHERE ID = 41"_s, {});
        QCOMPARE(connection_.highestId(u"C"_s), 41); // given once is given
        connection_.giveAgainBehind(u"C"_s, 1);
        connection_.execute(u"INSERT INTO C (N) VALUES ('c')"_s, {});
        QCOMPARE(connection_.lastId(), 2);
        QCOMPARE(connection_.highestId(u"C"_s), 2);
    }

    void as_colunas_vem_pela_ordem_da_tabela_e_de_nenhuma_nao_vem()
    {
        Criar_Tabela();
        QCOMPARE(connection_.columns(u"t"_s), (QStringList{u"ID"_s, u"Nome"_s}));
        QCOMPARE(connection_.columns(u"Nada"_s), QStringList());
    }

    void os_passos_do_esquema_contam_se_no_ficheiro()
    {
        Criar_Tabela();
        QCOMPARE(connection_.schemaNumber(), 0);
        connection_.setSchemaNumber(7);
        QCOMPARE(connection_.schemaNumber(), 7);
        QCOMPARE(connection_.query(u"PRAGMA user_version"_s, {}).Fields("user_version").number(), 7);
        connection_.Close();
        QVERIFY(QFile::remove(path_));
        createDatabase(path_, {u"CREATE TABLE T (ID INTEGER)"_s}, 1);
        connection_.Open();
        QCOMPARE(connection_.schemaNumber(), 1);
    }
    void os_passos_voltam_atras_com_tudo_o_resto()
    {
        Criar_Tabela();
        connection_.setSchemaNumber(3);
        skipFailure([&] {
            connection_.allOrNothing([&] {
                connection_.setSchemaNumber(4);
                throw Failure(7, {}, {});
            });
        });
        QCOMPARE(connection_.schemaNumber(), 3);
    }
    void os_indices_sao_os_da_tabela_e_de_nenhuma_nao_vem()
    {
        Criar_Tabela();
        QCOMPARE(connection_.indexes(u"t"_s), QStringList());
        connection_.execute(u"CREATE INDEX Idx ON T (Nome)"_s, {});
        connection_.execute(u"CREATE TABLE Outra (Nome TEXT UNIQUE)"_s, {});
        QCOMPARE(connection_.indexes(u"t"_s), QStringList{u"Idx"_s});
        QCOMPARE(connection_.indexes(u"Nada"_s), QStringList());
    }

    void os_nomes_e_os_textos_escrevem_se_como_o_ficheiro_os_le()
    {
        Criar_Tabela();
        connection_.execute(uR"(CREATE TABLE "a""b" (N INTEGER, T TEXT))"_s, {});
        connection_.execute(uR"(INSERT INTO "a""b" VALUES (NULL, 'b'), (2, 'A'))"_s, {});
        const Dialect &dialecto = connection_.dialect();
        QStringList linhas;
        connection_.rows(u"SELECT %1 AS n FROM %2 ORDER BY T%3, %4"_s.arg(
                             dialecto.asText(dialecto.name(u"N"_s)), dialecto.name(u"a\"b"_s),
                             dialecto.byOurOrder, dialecto.rowOrder),
                         {}, [&](const Row &linha) { linhas << linha.field(0).text(); });
        QCOMPARE(linhas, (QStringList{u"2"_s, QString()}));
    }

    void a_morada_de_um_servidor_nao_e_um_caminho()
    {
        QVERIFY(Connection::isAddress(u"postgresql://morvex@servidor/morvex"_s));
        QVERIFY(Connection::isAddress(u"Postgres://servidor"_s));
        QVERIFY(!Connection::isAddress(u"/tmp/postgresql://x"_s));
        QVERIFY(!Connection::isAddress(u"postgresql:/x"_s));
        Connection outra;
        outra.setDataSource(u"/a/b.mdb"_s);
        QVERIFY(!outra.isServer());
        QCOMPARE(outra.file(), u"/a/b.mdb"_s);
        outra.setDataSource(u"postgresql://morvex@servidor/morvex"_s);
        QVERIFY(outra.isServer());
        QCOMPARE(outra.connectionString(), u"postgresql://morvex@servidor/morvex"_s);
    }

    void uma_falha_a_meio_das_linhas_nao_deixa_o_ficheiro_trancado()
    {
        Criar_Tabela();
        int vistas = 0;
        VERIFICAR_FALHA(connection_.rows(u"SELECT Nome FROM T"_s, {},
                                         [&](const Row &linha) {
                                             ++vistas;
                                             linha.column("ID");
                                         }),
                        Failure::ItemNotFound);
        QCOMPARE(vistas, 1);
        Connection other;
        Abrir_Outra(other, u"DELETE FROM T"_s); // waits for a lock in vain, and fails
        QCOMPARE(Nomes(u""_s), QStringList());
    }

    void quem_larga_a_memoria_le_o_mesmo_de_novo()
    {
        Connection().releaseMemory(); // without a file there is none
        Criar_Tabela();
        const QStringList antes = Nomes(u"ORDER BY ID"_s);
        connection_.releaseMemory();
        QCOMPARE(Nomes(u"ORDER BY ID"_s), antes);
        QCOMPARE(antes.size(), 3);
    }

    void o_diario_e_desfeito_e_cada_escrita_vai_ao_disco()
    {
        Criar_Tabela();
        QCOMPARE(connection_.query(u"PRAGMA synchronous"_s, {}).Fields("synchronous").number(), 2);
        QCOMPARE(connection_.query(u"PRAGMA journal_mode"_s, {}).Fields("journal_mode").text(), u"delete"_s);
        QCOMPARE(QDir(folder_.path()).entryList(QDir::Files), QStringList{u"base.mdb"_s});
    }
};

MORVEX_TESTE(TestConnection)
#include "test_Connection.moc"
