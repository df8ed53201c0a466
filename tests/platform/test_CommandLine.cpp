// What the program understands of the words it was started with, and what it says to the others.
#include "platform/CommandLine.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Kind = CommandLine::Kind;

namespace
{
CommandLine Linha(const QStringList &palavras, const QString &idioma = u"InglesUK"_s)
{
    return {QStringList{u"morvex"_s} + palavras, {u"mdb"_s, u"vcf"_s}, u"1.2.3"_s, idioma};
}
} // namespace

class TestCommandLine : public QObject
{
    Q_OBJECT

    QTemporaryDir pasta_;

    QString Ficheiro(const QString &nome) const
    {
        QFile ficheiro(pasta_.filePath(nome));
        return ficheiro.open(QIODevice::WriteOnly) ? ficheiro.fileName() : QString();
    }

private Q_SLOTS:
    void sem_palavras_o_programa_corre_a_vista()
    {
        const CommandLine linha = Linha({});
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(!linha.minimized());
        QVERIFY(linha.files().isEmpty());
        QCOMPARE(linha.text(), QString());
    }

    void minimized_corre_escondido()
    {
        const CommandLine linha = Linha({u"--minimized"_s});
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(linha.minimized());
    }

    void a_versao_e_uma_linha()
    {
        for (const QString &palavra : {u"--version"_s, u"-v"_s}) {
            const CommandLine linha = Linha({palavra});
            QCOMPARE(linha.kind(), Kind::Answer);
            QCOMPARE(linha.text(), u"Morvex 1.2.3\n"_s);
        }
    }

    void a_ajuda_diz_tudo_o_que_se_pode_pedir_e_nada_do_que_e_do_toolkit()
    {
        for (const QString &palavra : {u"--help"_s, u"-h"_s}) {
            const CommandLine linha = Linha({palavra});
            QCOMPARE(linha.kind(), Kind::Answer);
            for (const char *dito : {"--help", "--version", "--minimized", "[files...]", ".mdb"})
                QVERIFY2(linha.text().contains(QLatin1StringView(dito)), dito);
            QVERIFY(!linha.text().contains(u"--platform"_s));
        }
    }

    void cada_lingua_tem_a_sua_ajuda_e_as_suas_recusas()
    {
        QSet<QString> ditos;
        for (const char *idioma : {"PortuguesPT", "PortuguesBR", "InglesUK", "EspanholES", "ItalianoIT",
                                   "FrancesFR", "AlemaoDE"}) {
            const QString nome = QString::fromLatin1(idioma);
            ditos << Linha({u"--help"_s}, nome).text() << Linha({u"a.doc"_s}, nome).text();
        }
        QCOMPARE(ditos.size(), 2 * 7);
    }

    // Those of Brazil may well be those of Portugal.
    void cada_frase_tem_a_sua_lingua()
    {
        QMap<QString, QSet<QString>> ditas; // each sentence as every language says it
        const QStringList linguas{u"PortuguesPT"_s, u"InglesUK"_s,  u"EspanholES"_s,
                                  u"ItalianoIT"_s,  u"FrancesFR"_s, u"AlemaoDE"_s};
        for (const QString &lingua : linguas) {
            const QStringList ajuda = Linha({u"--help"_s}, lingua).text().split(u'\n');
            ditas[u"what the program is"_s] << ajuda.value(1);
            for (const QString &palavra : {u"--help"_s, u"--version"_s, u"--minimized"_s, u".mdb"_s})
                ditas[palavra] << ajuda.filter(palavra).value(0);
            for (const QString &recusada : {u"--nada"_s, u"a.doc"_s, u"/falta.mdb"_s}) {
                const QStringList linhas = Linha({recusada}, lingua).text().split(u'\n');
                ditas[recusada] << linhas.value(0);
                ditas[recusada + u", help"_s] << linhas.value(1);
            }
        }
        for (auto dita = ditas.cbegin(); dita != ditas.cend(); ++dita) {
            const QStringList todas = dita.value().values();
            QVERIFY2(todas.size() == linguas.size(), qPrintable(dita.key() + u": "_s + todas.join(u" | "_s)));
        }
    }

    void uma_opcao_desconhecida_e_recusada_com_o_seu_nome_data()
    {
        QTest::addColumn<QStringList>("palavras");
        QTest::newRow("alone") << QStringList{u"--minimised"_s};
        QTest::newRow("beside help") << QStringList{u"--help"_s, u"--minimised"_s};
        QTest::newRow("in one dash") << QStringList{u"-minimised"_s};
    }
    void uma_opcao_desconhecida_e_recusada_com_o_seu_nome()
    {
        QFETCH(QStringList, palavras);
        const CommandLine linha = Linha(palavras);
        QCOMPARE(linha.kind(), Kind::Refusal);
        QVERIFY(linha.text().startsWith(u"Unknown option: minimised\n"_s));
        QVERIFY(linha.text().contains(u"--help"_s));
    }

    void um_valor_onde_nao_ha_nenhum_e_recusado()
    {
        QCOMPARE(Linha({u"--minimized=sim"_s}).kind(), Kind::Refusal);
    }

    void as_opcoes_do_toolkit_passam()
    {
        const CommandLine linha = Linha({u"-platform"_s, u"offscreen"_s, u"-style"_s, u"fusion"_s,
                                         u"-reverse"_s, u"-session"_s, u"10a_1"_s, u"-name"_s, u"x"_s});
        QCOMPARE(linha.text(), QString());
        QCOMPARE(linha.kind(), Kind::Run);
        QVERIFY(linha.files().isEmpty());
    }

    void os_ficheiros_vem_na_sua_ordem_com_o_caminho_inteiro()
    {
        const QString a = Ficheiro(u"agenda antiga.mdb"_s), b = Ficheiro(u"Ângela.VCF"_s);
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(pasta_.path()));
        const CommandLine linha =
            Linha({u"./Ângela.VCF"_s, a, u"../"_s + QDir(pasta_.path()).dirName() + u"/Ângela.VCF"_s});
        QVERIFY(QDir::setCurrent(antes));
        QCOMPARE(linha.kind(), Kind::Run);
        QCOMPARE(linha.files(), (QStringList{b, a, b}));
    }

    void depois_de_dois_tracos_um_nome_pode_comecar_por_um()
    {
        Ficheiro(u"--version.vcf"_s);
        const QString antes = QDir::currentPath();
        QVERIFY(QDir::setCurrent(pasta_.path()));
        const CommandLine linha = Linha({u"--"_s, u"--version.vcf"_s});
        QVERIFY(QDir::setCurrent(antes));
        QCOMPARE(linha.files(), QStringList{pasta_.filePath(u"--version.vcf"_s)});
    }

    void uma_terminacao_desconhecida_e_recusada_mesmo_entre_outras()
    {
        const QString bom = Ficheiro(u"a.mdb"_s);
        for (const QString &nome : {u"carta.doc"_s, u"mdb"_s, u"a.mdb.bak"_s}) {
            const QString mau = Ficheiro(nome);
            const CommandLine linha = Linha({bom, mau});
            QCOMPARE(linha.kind(), Kind::Refusal);
            QVERIFY2(linha.text().startsWith(u"Files of this kind cannot be opened: "_s + mau),
                     qPrintable(nome));
        }
    }

    void um_ficheiro_que_nao_ha_ou_e_uma_pasta_e_recusado()
    {
        QVERIFY(QDir(pasta_.path()).mkdir(u"pasta.mdb"_s));
        for (const QString &nome : {u"falta.mdb"_s, u"pasta.mdb"_s}) {
            const CommandLine linha = Linha({pasta_.filePath(nome)});
            QCOMPARE(linha.kind(), Kind::Refusal);
            QVERIFY(linha.text().startsWith(u"The file does not exist: "_s + pasta_.filePath(nome)));
        }
    }
};

MORVEX_TESTE(TestCommandLine)
#include "test_CommandLine.moc"
