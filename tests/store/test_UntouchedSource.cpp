// A database file that is only looked at: read where it stands, or as a copy where reading alone would change it.
#include "store/UntouchedSource.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <atomic>
#include <QTemporaryDir>
#include <SQLiteCpp/SQLiteCpp.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace
{
constexpr int versao_de_leitura = 19; // 2: what is written stands in a file beside it first

QByteArray Cabeca(char versao, qsizetype bytes = 200)
{
    QByteArray cabeca(bytes, 'x');
    cabeca[versao_de_leitura] = versao;
    return cabeca;
}
} // namespace

class TestUntouchedSource : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> pasta_;

    QString Ficheiro(const QString &nome) const { return pasta_->filePath(nome); }
    QString Escrever(const QString &nome, const QByteArray &bytes) const
    {
        QFile ficheiro(Ficheiro(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size()) qFatal("cannot write");
        return ficheiro.fileName();
    }
    static QByteArray Ler(const QString &caminho)
    {
        QFile ficheiro(caminho);
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray("(none)");
    }

private Q_SLOTS:
    void init() { pasta_ = std::make_unique<QTemporaryDir>(); }

    void um_ficheiro_comum_le_se_onde_esta_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("written at once") << Cabeca(1);
        QTest::newRow("of a later version") << Cabeca(3);
        QTest::newRow("too short to say") << QByteArray(versao_de_leitura, '\2');
        QTest::newRow("nothing") << QByteArray();
    }
    void um_ficheiro_comum_le_se_onde_esta()
    {
        QFETCH(QByteArray, bytes);
        const QString caminho = Escrever(u"base.mdb"_s, bytes);
        const UntouchedSource fonte(caminho);
        QCOMPARE(fonte.path(), caminho);
        QCOMPARE(fonte.flags(), SQLite::OPEN_READONLY);
    }

    void um_que_se_escreve_a_frente_le_se_numa_copia_com_o_que_esta_ao_lado_data()
    {
        QTest::addColumn<bool>("ao_lado");
        QTest::addColumn<bool>("atalho");
        QTest::newRow("alone") << false << false;
        QTest::newRow("with a file beside it") << true << false;
        QTest::newRow("by a link in another folder") << true << true;
    }
    void um_que_se_escreve_a_frente_le_se_numa_copia_com_o_que_esta_ao_lado()
    {
        QFETCH(bool, ao_lado);
        QFETCH(bool, atalho);
        const QString base = Escrever(u"base.mdb"_s, Cabeca(2));
        if (ao_lado) Escrever(u"base.mdb-wal"_s, "ahead");
        QVERIFY(QDir(pasta_->path()).mkdir(u"outra"_s));
        const QString caminho = atalho ? Ficheiro(u"outra/atalho.mdb"_s) : base;
        if (atalho && (!QFile::link(base, caminho) || QFileInfo(caminho).canonicalFilePath().isEmpty()))
            QSKIP("no link of that name can be made here");
        QVERIFY(QFile::setPermissions(base, QFile::ReadOwner));
        QString copia;
        {
            const UntouchedSource fonte(caminho);
            copia = fonte.path();
            QVERIFY(copia != base && copia != caminho);
            QVERIFY(QFileInfo(copia).absolutePath() != pasta_->path());
            QCOMPARE(fonte.flags(), SQLite::OPEN_READWRITE);
            QCOMPARE(Ler(copia), Cabeca(2));
            QCOMPARE(Ler(copia + u"-wal"_s), ao_lado ? QByteArray("ahead") : QByteArray("(none)"));
            QVERIFY(QFile::permissions(copia).testFlag(QFile::WriteOwner)); // its reader writes to it
            QCOMPARE(UntouchedSource::bytes(caminho), ao_lado ? 205 : 200);
        }
        QVERIFY(!QFile::exists(copia)); // it goes with the object
        QVERIFY(QFile::setPermissions(base, QFile::ReadOwner | QFile::WriteOwner));
        QCOMPARE(Ler(base), Cabeca(2));
    }

    void um_que_muda_sempre_enquanto_se_le_nao_se_le()
    {
        constexpr qsizetype muitos = 8 << 20;
        const QString base = Escrever(u"base.mdb"_s, Cabeca(2, muitos));
        std::atomic<bool> fim = false;
        std::thread outro([&] {
            for (qint64 mais = 1; !fim; ++mais)
                QFile::resize(base, muitos + mais);
        });
        // On a machine with much else to do the other one may rest for as long as a reading takes.
        QStringList dito;
        QElapsedTimer relogio;
        for (relogio.start(); dito.isEmpty() && relogio.elapsed() < 30000;)
            dito = teste::Falha_Dita([&] { const UntouchedSource fonte(base); });
        fim = true;
        outro.join();
        const QString onde = QFileInfo(base).canonicalFilePath();
        QCOMPARE(dito, QStringList({onde, u"The file changes while it is read: "_s + onde}));
        const UntouchedSource depois(base);
        QCOMPARE(QFileInfo(depois.path()).size(), QFileInfo(base).size());
    }

    // Beside the file stands what cannot be copied.
    void o_que_nao_se_copia_diz_se()
    {
        const QString base = Escrever(u"base.mdb"_s, Cabeca(2));
        QVERIFY(QDir(pasta_->path()).mkdir(u"base.mdb-wal"_s));
        const QString lado = QFileInfo(base).canonicalFilePath() + u"-wal"_s;
        QCOMPARE(teste::Falha_Dita([&] { const UntouchedSource fonte(base); }),
                 QStringList({lado, u"The file could not be copied: "_s + lado}));
    }
};

MORVEX_TESTE(TestUntouchedSource)
#include "test_UntouchedSource.moc"
