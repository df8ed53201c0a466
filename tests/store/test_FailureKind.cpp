// What a failure of the database means for the person: each kind met on a real file.
#include "platform/Failure.h"
#include "store/Connection.h"
#include "store/NewDatabase.h"
#include "testlib/DiscoPequeno.h"
#include "testlib/FicheiroAberto.h"
#include "testlib/SemPrivilegios.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using enum Failure::Kind;

namespace
{
QString Fonte(const QString &path) { return u"Data Source='%1'"_s.arg(path); }

void Criar(const QString &path)
{
    createDatabase(path, {u"CREATE TABLE T (Nome TEXT) STRICT"_s, u"INSERT INTO T VALUES ('Ana')"_s});
}

void Abrir(Connection &ligacao, const QString &path)
{
    ligacao.setConnectionString(Fonte(path));
    ligacao.Open();
}

void Trocar_Bytes(const QString &path, qint64 lugar, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !file.seek(lugar) || file.write(bytes) != bytes.size())
        qFatal("the file cannot be harmed");
}

// The kind of the failure that comes, nothing where none does.
std::optional<Failure::Kind> Falha_De(const std::function<void()> &trabalho)
{
    std::optional<Failure::Kind> kind;
    onFailure(trabalho, [&kind](const Failure &failure) { kind = failure.kind(); });
    return kind;
}

void Escrever(Connection &ligacao) { ligacao.execute(u"INSERT INTO T VALUES ('Rui')"_s, {}); }
} // namespace

Q_DECLARE_METATYPE(Failure::Kind)

class TestFailureKind : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> folder_;

    QString Base() const { return folder_->filePath(u"base.mdb"_s); }
    std::optional<Failure::Kind> Ao_Abrir() const
    {
        return Falha_De([this] {
            Connection ligacao;
            Abrir(ligacao, Base());
        });
    }

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }

    void uma_base_boa_nao_falha_e_um_erro_da_instrucao_nao_e_de_nenhum_tipo()
    {
        Criar(Base());
        Connection ligacao;
        QCOMPARE(Falha_De([&] {
                     Abrir(ligacao, Base());
                     Escrever(ligacao);
                 }),
                 std::nullopt);
        QCOMPARE(Falha_De([&] { ligacao.query(u"SELECT Apelido FROM T"_s, {}); }), Other);
    }

    // Whoever wrote it last: an error of a statement is never laid at a newer program's door.
    void um_erro_da_instrucao_numa_base_que_um_programa_mais_novo_escreveu_tambem_nao()
    {
        Criar(Base());
        Trocar_Bytes(Base(), 96, QByteArray("\x7f\xff\xff\xff", 4));
        Connection ligacao;
        Abrir(ligacao, Base());
        QCOMPARE(Falha_De([&] { ligacao.query(u"SELECT Apelido FROM T"_s, {}); }), Other);
    }

    void ficheiro_em_falta() { QCOMPARE(Ao_Abrir(), DatabaseMissing); }

    void ficheiro_que_desaparece_com_a_ligacao_aberta()
    {
        if (!um_aberto_troca_se) QSKIP("an open file keeps its name here");
        Criar(Base());
        Connection ligacao;
        Abrir(ligacao, Base());
        QVERIFY(QFile::rename(Base(), folder_->filePath(u"outra.mdb"_s)));
        QCOMPARE(Falha_De([&] { Escrever(ligacao); }), DatabaseMissing);
    }

    void pasta_em_vez_de_ficheiro()
    {
        QVERIFY(QDir().mkpath(Base()));
        QCOMPARE(Ao_Abrir(), DatabaseForbidden);
    }

    void trancado_por_outro()
    {
        Criar(Base());
        Connection outra;
        Abrir(outra, Base());
        outra.execute(u"BEGIN EXCLUSIVE"_s, {});
        QCOMPARE(Ao_Abrir(), DatabaseLocked);
        outra.execute(u"COMMIT"_s, {});
        QCOMPARE(Ao_Abrir(), std::nullopt);
    }

    void o_que_nao_e_uma_base_esta_danificado_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("no bytes") << QByteArray();
        QTest::newRow("rubbish") << QByteArray(8192, 'x');
    }
    void o_que_nao_e_uma_base_esta_danificado()
    {
        QFETCH(QByteArray, bytes);
        QFile file(Base());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
        file.close();
        QCOMPARE(Ao_Abrir(), DatabaseDamaged);
    }

    void uma_pagina_estragada_esta_danificada()
    {
        Criar(Base());
        Trocar_Bytes(Base(), 4096, QByteArray(4096, '\x55')); // the table's own page
        Connection ligacao;
        Abrir(ligacao, Base());
        QCOMPARE(Falha_De([&] { ligacao.query(u"SELECT Nome FROM T"_s, {}); }), DatabaseDamaged);
    }

    void uma_base_de_um_programa_mais_novo_data()
    {
        QTest::addColumn<int>("lugar");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QByteArray>("definicao"); // in the place of the word TABLE
        QTest::addColumn<Failure::Kind>("kind");
        QTest::newRow("format of the file") << 19 << QByteArray("\x03") << QByteArray() << DatabaseNewer;
        QTest::newRow("format of the definitions")
            << 44 << QByteArray("\0\0\0\x05", 4) << QByteArray() << DatabaseNewer;
        QTest::newRow("a definition not understood, by a newer one")
            << 96 << QByteArray("\x7f\xff\xff\xff", 4) << QByteArray("FUTUR") << DatabaseNewer;
        QTest::newRow("an older format of the file")
            << 19 << QByteArray("\x02") << QByteArray("FUTUR") << DatabaseDamaged;
        QTest::newRow("a definition not understood, by this one")
            << 96 << QByteArray() << QByteArray("FUTUR") << DatabaseDamaged;
        QTest::newRow("a definition not understood, by an older one")
            << 96 << QByteArray("\0\0\0\x01", 4) << QByteArray("FUTUR") << DatabaseDamaged;
    }
    void uma_base_de_um_programa_mais_novo()
    {
        QFETCH(int, lugar);
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, definicao);
        QFETCH(Failure::Kind, kind);
        Criar(Base());
        Trocar_Bytes(Base(), lugar, bytes);
        if (!definicao.isEmpty()) {
            QFile file(Base());
            QVERIFY(file.open(QIODevice::ReadOnly));
            const qsizetype onde = file.readAll().indexOf("TABLE T");
            QVERIFY(onde > 0);
            Trocar_Bytes(Base(), onde, definicao);
        }
        QCOMPARE(Ao_Abrir(), kind);
    }

    void o_cabecalho_basta_para_se_conhecer_um_programa_mais_novo()
    {
        constexpr qint64 cabecalho = 100;
        Criar(Base());
        Trocar_Bytes(Base(), 19, QByteArray("\x03"));
        QVERIFY(QFile::resize(Base(), cabecalho));
        QCOMPARE(Ao_Abrir(), DatabaseNewer);
        QVERIFY(QFile::resize(Base(), cabecalho - 1));
        QCOMPARE(Ao_Abrir(), DatabaseDamaged);
    }

    void sem_licenca_data()
    {
        QTest::addColumn<int>("pasta");
        QTest::addColumn<int>("ficheiro");
        QTest::addColumn<Failure::Kind>("kind");
        QTest::newRow("read-only file") << 0x7777 << 0x4444 << DatabaseReadOnly;
        QTest::newRow("read-only folder") << 0x5555 << 0x6666 << DatabaseReadOnly;
        QTest::newRow("unreadable file") << 0x7777 << 0x0000 << DatabaseForbidden;
    }
    void sem_licenca()
    {
        QFETCH(int, pasta);
        QFETCH(int, ficheiro);
        QFETCH(Failure::Kind, kind);
        Criar(Base());
        QFile::setPermissions(Base(), QFile::Permissions(ficheiro));
        QFile::setPermissions(folder_->path(), QFile::Permissions(pasta));
        bool possivel = false;
        std::optional<Failure::Kind> falha;
        {
            const SemPrivilegios ninguem;
            possivel = ninguem.Possivel();
            if (possivel)
                falha = Falha_De([this] {
                    Connection ligacao;
                    Abrir(ligacao, Base());
                    Escrever(ligacao);
                });
        }
        QFile::setPermissions(folder_->path(), QFile::Permissions(0x7777));
        if (!possivel) QSKIP("the rights of an administrator cannot be put off here");
        QCOMPARE(falha, kind);
    }

    void num_disco_so_de_leitura()
    {
        DiscoPequeno disco(256);
        if (!disco.Montado()) QSKIP("this machine lets nobody mount a small disk");
        const QString base = disco.Ficheiro(u"base.mdb"_s);
        Criar(base);
        Connection ligacao;
        QVERIFY(disco.Tornar_So_De_Leitura());
        Abrir(ligacao, base);
        QCOMPARE(Falha_De([&] { Escrever(ligacao); }), DatabaseReadOnly);
    }

    void num_disco_cheio()
    {
        const DiscoPequeno disco(64);
        if (!disco.Montado()) QSKIP("this machine lets nobody mount a small disk");
        const QString base = disco.Ficheiro(u"base.mdb"_s);
        Criar(base);
        Connection ligacao;
        Abrir(ligacao, base);
        QCOMPARE(Falha_De([&] { ligacao.execute(u"INSERT INTO T VALUES (?)"_s, {QString(200'000, u'x')}); }),
                 DiskFull);
    }
};

int main(int argc, char **argv)
{
    DiscoPequeno::Preparar();
    teste::CaixasDaAplicacao caixas;
    Application application(argc, argv, caixas);
    TestFailureKind testes;
    return QTest::qExec(&testes, argc, argv);
}
#include "test_FailureKind.moc"
