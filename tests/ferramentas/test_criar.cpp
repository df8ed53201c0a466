// The build's own programs that make what is shipped: how they end, and what they leave where they fail.
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCriar : public QObject
{
    Q_OBJECT

    const QString textos_ = QStringLiteral(MORVEX_RAIZ "/resources/textos/TblIdiomas.tsv");

    struct Fim {
        int codigo = -1;
        QByteArray queixa;
    };

    static Fim Correr(const QString &programa, const QStringList &argumentos)
    {
        QProcess processo;
        processo.start(programa, argumentos);
        processo.waitForFinished();
        return {processo.exitCode(), processo.readAllStandardError()};
    }

    static QByteArray Ler(const QString &caminho)
    {
        QFile ficheiro(caminho);
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray();
    }

    static void Escrever(const QString &caminho, const QByteArray &texto)
    {
        QFile ficheiro(caminho);
        QVERIFY(ficheiro.open(QIODevice::WriteOnly) && ficheiro.write(texto) == texto.size());
    }

private Q_SLOTS:
    void com_argumentos_a_mais_ou_a_menos_dizem_como_se_usam()
    {
        const QList<std::pair<QString, QByteArray>> programas{
            {QStringLiteral(CRIAR_BD), "usage: criar_bd <TblIdiomas.tsv> <version> <morvex.mdb>\n"},
            {QStringLiteral(CRIAR_MANUAL),
             "usage: criar_manual <folder of the source> <TblIdiomas.tsv> <folder of the pages>\n"}};
        for (const auto &[programa, uso] : programas)
            for (const qsizetype quantos : {0, 2, 4}) {
                const Fim fim = Correr(programa, QStringList(quantos, textos_));
                QCOMPARE(fim.codigo, 2);
                QCOMPARE(fim.queixa, uso);
            }
    }

    void uma_base_de_dados_nova_toma_o_lugar_da_antiga()
    {
        const QTemporaryDir pasta;
        const QString base = pasta.filePath(u"morvex.mdb"_s);
        Escrever(base, "old");
        Escrever(base + u".nova"_s, "left by one that was stopped");
        const Fim fim = Correr(QStringLiteral(CRIAR_BD), {textos_, u"9.8.7"_s, base});
        QCOMPARE(fim.codigo, 0);
        QCOMPARE(fim.queixa, QByteArray());
        QVERIFY(Ler(base).startsWith("SQLite format 3"));
        QVERIFY(Ler(base).contains("9.8.7"));
        QCOMPARE(QDir(pasta.path()).entryList(QDir::Files), QStringList{u"morvex.mdb"_s});
    }

    void o_que_falha_e_dito_e_a_antiga_fica()
    {
        const QTemporaryDir pasta;
        const QString base = pasta.filePath(u"morvex.mdb"_s);
        Escrever(base, "old");
        const Fim sem_textos = Correr(QStringLiteral(CRIAR_BD), {pasta.filePath(u"nada.tsv"_s), u"1"_s, base});
        QCOMPARE(sem_textos.codigo, 1);
        QVERIFY2(sem_textos.queixa.startsWith("criar_bd: ") && sem_textos.queixa.endsWith("\n"),
                 sem_textos.queixa.constData());
        QCOMPARE(Ler(base), QByteArray("old"));

        QVERIFY(QDir(pasta.path()).mkpath(u"ocupada.mdb/por_outro"_s)); // nothing takes the place of a full folder
        QCOMPARE(Correr(QStringLiteral(CRIAR_BD), {textos_, u"1"_s, pasta.filePath(u"ocupada.mdb"_s)}).codigo, 1);
        QCOMPARE(QDir(pasta.path()).entryList(QDir::Files), QStringList{u"morvex.mdb"_s});
    }

    void um_manual_sem_fonte_falha_e_di_lo()
    {
        const QTemporaryDir pasta;
        const Fim fim = Correr(QStringLiteral(CRIAR_MANUAL),
                               {pasta.filePath(u"nada"_s), textos_, pasta.filePath(u"manual"_s)});
        QCOMPARE(fim.codigo, 1);
        QVERIFY2(fim.queixa.startsWith("criar_manual: ") && fim.queixa.endsWith("nada/pt.md\n"),
                 fim.queixa.constData());
        QVERIFY(!QDir(pasta.filePath(u"manual"_s)).exists());
    }
};

QTEST_GUILESS_MAIN(TestCriar)
#include "test_criar.moc"
