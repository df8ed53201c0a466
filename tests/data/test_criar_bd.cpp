// The tool that makes the shipped database: a new one takes the place of the old one as a whole.
#include "store/Connection.h"
#include "testlib/Teste.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
struct Oficina {
    // A table of one text, which is all that the tool asks of it.
    int Criar(const QString &texto)
    {
        QFile tabela(pasta.filePath(u"textos.tsv"_s));
        if (!tabela.open(QIODevice::WriteOnly)) return -1;
        tabela.write("ID\tUso\tPortuguesPT\n1\tmenu\t" + texto.toUtf8() + '\n');
        tabela.close();
        QProcess criar;
        criar.start(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/criar_bd"_s,
                    {tabela.fileName(), u"1.0"_s, base});
        criar.waitForFinished();
        return criar.exitStatus() == QProcess::NormalExit ? criar.exitCode() : -1;
    }
    QString Texto() const
    {
        Connection ligacao;
        ligacao.setConnectionString(u"Data Source='%1'"_s.arg(base));
        ligacao.OpenReadOnly();
        return ligacao.query(u"SELECT PortuguesPT FROM TblIdiomas"_s, {}).Fields("PortuguesPT").text();
    }
    QStringList Ficheiros() const { return QDir(pasta.path()).entryList(QDir::Files); }

    QTemporaryDir pasta;
    QString base = pasta.filePath(u"morvex.mdb"_s);
};
} // namespace

class TestCriarBd : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quem_le_a_antiga_durante_a_troca_le_a_inteira()
    {
        Oficina o;
        QCOMPARE(o.Criar(u"antigo"_s), 0);
        QCOMPARE(o.Texto(), u"antigo"_s);
        QFile leitor(o.base); // in the middle of a copy
        QVERIFY(leitor.open(QIODevice::ReadOnly));
        const QByteArray antes = leitor.readAll();
        QCOMPARE(o.Criar(u"novo"_s), 0);
        QCOMPARE(o.Texto(), u"novo"_s);
        leitor.seek(0);
        QCOMPARE(leitor.readAll(), antes);
        QCOMPARE(o.Ficheiros(), (QStringList{u"morvex.mdb"_s, u"textos.tsv"_s}));
    }

    void com_outros_argumentos_diz_como_se_chama_e_nada_faz()
    {
        for (const QStringList &argumentos : {QStringList(), QStringList{u"a"_s, u"b"_s},
                                              QStringList{u"a"_s, u"b"_s, u"c.mdb"_s, u"d"_s}}) {
            QTemporaryDir pasta;
            QProcess criar;
            criar.setWorkingDirectory(pasta.path());
            criar.start(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/criar_bd"_s, argumentos);
            QVERIFY(criar.waitForFinished());
            QCOMPARE(criar.exitCode(), 2);
            QCOMPARE(criar.readAllStandardError(), "usage: criar_bd <TblIdiomas.tsv> <version> <morvex.mdb>\n");
            QVERIFY(QDir(pasta.path()).isEmpty());
        }
    }

    void a_falha_di_se_com_o_nome_do_programa()
    {
        QTemporaryDir pasta;
        QProcess criar;
        criar.start(qEnvironmentVariable("MORVEX_ENVIADOS") + u"/criar_bd"_s,
                    {u"nenhuns.tsv"_s, u"1.0"_s, pasta.filePath(u"morvex.mdb"_s)});
        QVERIFY(criar.waitForFinished());
        QCOMPARE(criar.exitCode(), 1);
        const QByteArray dito = criar.readAllStandardError();
        QVERIFY2(dito.startsWith("criar_bd: ") && dito.contains("nenhuns.tsv"), dito.constData());
        QVERIFY(QDir(pasta.path()).isEmpty());
    }

    void uma_tabela_de_textos_errada_deixa_a_antiga_como_estava()
    {
        Oficina o;
        QCOMPARE(o.Criar(u"antigo"_s), 0);
        QCOMPARE(o.Criar(u"uma célula\ta mais"_s), 1);
        QCOMPARE(o.Texto(), u"antigo"_s);
        QCOMPARE(o.Ficheiros(), (QStringList{u"morvex.mdb"_s, u"textos.tsv"_s}));
    }
};

MORVEX_TESTE(TestCriarBd)
#include "test_criar_bd.moc"
