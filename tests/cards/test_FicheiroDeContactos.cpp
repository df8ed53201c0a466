// A foreign file on its way into memory: what is cards, what is a table, and what is too large for either.
#include "cards/FicheiroDeContactos.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using Estado = FicheiroDeContactos::Estado;

namespace
{
// A file of that name with these bytes, and as long as told: a hole at its end takes no room on the disk.
struct Ficheiro {
    explicit Ficheiro(const QString &nome, const QByteArray &bytes, qint64 comprimento = 0)
        : caminho(pasta.filePath(nome))
    {
        QFile ficheiro(caminho);
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size() ||
            (comprimento > 0 && !ficheiro.resize(comprimento)))
            qFatal("no file");
    }
    FicheiroDeContactos Ler() const { return FicheiroDeContactos::Ler(caminho); }

    QTemporaryDir pasta;
    QString caminho;
};

const QByteArray cartao = "BEGIN:VCARD\r\nFN:Ana\r\nEND:VCARD\r\n";
} // namespace

class TestFicheiroDeContactos : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_nome_ou_o_que_esta_dentro_diz_se_e_uma_tabela_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("tabela");
        for (const char *nome : {"a.vcf", "A.VCF", "a.vcard", "a.b.vcf"})
            QTest::newRow(nome) << QString::fromLatin1(nome) << QByteArray("Nome;Fax\n") << false;
        for (const char *nome : {"a.csv", "a.txt", "a.vct", "vcf"})
            QTest::newRow(nome) << QString::fromLatin1(nome) << QByteArray("Nome;Fax\n") << true;
        const auto no_texto = [](const char *caso, const QByteArray &bytes, bool tabela) {
            QTest::newRow(caso) << u"a.txt"_s << bytes << tabela;
        };
        no_texto("cartões", cartao, false);
        no_texto("em minúsculas", cartao.toLower(), false);
        no_texto("com brancos", "BEGIN : VCARD\r\n", false);
        no_texto("com outra coisa pelo meio", "BEGIN:xVCARD\r\n", true);
        const QString utf16 = QString::fromLatin1(cartao);
        no_texto("UTF-16", QByteArray(reinterpret_cast<const char *>(utf16.utf16()), 2 * utf16.size()),
                 false);
        no_texto("no fim do que se olha", QByteArray(4096 - 11, 'x') + cartao, false);
        no_texto("já depois disso", QByteArray(4096 - 10, 'x') + cartao, true);
        no_texto("nada", QByteArray(), true);
    }
    void o_nome_ou_o_que_esta_dentro_diz_se_e_uma_tabela()
    {
        QFETCH(QString, nome);
        QFETCH(QByteArray, bytes);
        const FicheiroDeContactos lido = Ficheiro(nome, bytes).Ler();
        QTEST(lido.E_Tabela(), "tabela");
        QVERIFY(lido.Leitura() == Estado::Lido);
        QCOMPARE(lido.Bytes(), bytes);
        QCOMPARE(lido.Limite(), qint64{lido.E_Tabela() ? 48 : 192} * 1024 * 1024);
    }

    void o_que_nao_e_ficheiro_nao_se_le()
    {
        const Ficheiro um(u"a.vcf"_s, cartao);
        for (const QString &caminho : {um.pasta.path(), um.pasta.filePath(u"nada.vcf"_s), QString()}) {
            const FicheiroDeContactos lido = FicheiroDeContactos::Ler(caminho);
            QVERIFY(lido.Leitura() == Estado::Ilegivel);
            QVERIFY(lido.Bytes().isEmpty());
        }
    }

    void um_ficheiro_le_se_ate_ao_limite_e_de_um_maior_nada_fica_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<qint64>("limite");
        QTest::newRow("tabela") << u"a.csv"_s << (qint64{48} << 20);
        QTest::newRow("cartões") << u"a.vcf"_s << (qint64{192} << 20);
    }
    void um_ficheiro_le_se_ate_ao_limite_e_de_um_maior_nada_fica()
    {
        QFETCH(QString, nome);
        QFETCH(qint64, limite);
        const FicheiroDeContactos cabe = Ficheiro(nome, "Nome", limite).Ler();
        QVERIFY(cabe.Leitura() == Estado::Lido);
        QCOMPARE(cabe.Bytes().size(), limite);
        const FicheiroDeContactos maior = Ficheiro(nome, "Nome", limite + 1).Ler();
        QVERIFY(maior.Leitura() == Estado::Grande);
        QVERIFY(maior.Bytes().isEmpty());
    }

    void o_que_vem_sem_ficheiro_sao_cartoes_com_o_mesmo_limite()
    {
        const FicheiroDeContactos um = FicheiroDeContactos::Com(cartao);
        QVERIFY(um.Leitura() == Estado::Lido && !um.E_Tabela());
        QCOMPARE(um.Bytes(), cartao);
        const FicheiroDeContactos cabe =
            FicheiroDeContactos::Com(QByteArray(FicheiroDeContactos::maior, 'x'));
        QVERIFY(cabe.Leitura() == Estado::Lido);
        const FicheiroDeContactos maior =
            FicheiroDeContactos::Com(QByteArray(FicheiroDeContactos::maior + 1, 'x'));
        QVERIFY(maior.Leitura() == Estado::Grande);
        QVERIFY(maior.Bytes().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestFicheiroDeContactos)
#include "test_FicheiroDeContactos.moc"
