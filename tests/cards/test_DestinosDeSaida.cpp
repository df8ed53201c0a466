// Where contacts go that leave the book: how their files are called, and that none of another is lost.
#include "cards/DestinosDeSaida.h"

#include "testlib/FalhaDita.h"
#include "testlib/OutrosNomes.h"
#include "testlib/Teste.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
struct Pasta {
    void Por(const QString &nome, const QByteArray &bytes = "velho") const
    {
        QFile ficheiro(Caminho(nome));
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size()) qFatal("no file");
    }
    QByteArray Bytes(const QString &nome) const
    {
        QFile ficheiro(Caminho(nome));
        return ficheiro.open(QIODevice::ReadOnly) ? ficheiro.readAll() : QByteArray("<none>");
    }
    QString Caminho(const QString &nome) const { return QDir(pasta.path()).filePath(nome); }
    QStringList Nomes() const
    {
        return QDir(pasta.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    }
    QTemporaryDir pasta;
};
} // namespace

class TestDestinosDeSaida : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_nome_de_ficheiro_serve_em_todos_os_sistemas_data()
    {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("ficheiro");
        QTest::newRow("como está") << u"Ana Sá (2).x"_s << u"Ana Sá (2).x"_s;
        QTest::newRow("o que separa") << u"a/b\\c:d*e?f\"g<h>i|j"_s << u"a_b_c_d_e_f_g_h_i_j"_s;
        QTest::newRow("letra e acento") << u"Sa\u0301"_s << u"S\u00e1"_s;
        QTest::newRow("o que não se vê") << u"A\u0001n\u007fa\u202e\u200fB"_s << u"AnaB"_s;
        QTest::newRow("brancos") << u"  Ana   Sá "_s << u"Ana Sá"_s;
        QTest::newRow("pontos à volta") << u".. .Ana.Sá. ."_s << u"Ana.Sá"_s;
        QTest::newRow("só pontos") << u"..."_s << u"_"_s;
        QTest::newRow("nada") << QString() << u"_"_s;
        QTest::newRow("cem letras") << QString(100, u'a') << QString(100, u'a');
        QTest::newRow("cento e uma") << QString(101, u'a') << QString(100, u'a');
        QTest::newRow("duzentos bytes") << QString(66, u'漢') + u"aa"_s << QString(66, u'漢') + u"aa"_s;
        QTest::newRow("duzentos e um") << QString(67, u'漢') << QString(66, u'漢');
        QTest::newRow("duzentos e dois") << u'a' + QString(67, u'漢') << u'a' + QString(66, u'漢');
        QTest::newRow("um carácter de duas metades") << u"😀"_s.repeated(51) << u"😀"_s.repeated(50);
        QTest::newRow("um branco na ponta do corte") << QString(99, u'a') + u" b"_s << QString(99, u'a');
        for (const auto &aparelho :
             {u"con"_s, u"PRN"_s, u"aux"_s, u"nul"_s, u"Com1"_s, u"lpt9"_s, u"con.txt"_s, u"aux.x"_s})
            QTest::newRow(qPrintable(aparelho)) << aparelho << u'_' + aparelho;
        for (const auto &nome : {u"console"_s, u"com"_s, u"com12"_s, u"Falcon"_s, u"nul a"_s, u"o aux.txt"_s})
            QTest::newRow(qPrintable(nome)) << nome << nome;
    }
    void um_nome_de_ficheiro_serve_em_todos_os_sistemas()
    {
        QFETCH(QString, nome);
        QTEST(Nome_De_Ficheiro(nome), "ficheiro");
    }

    void cada_contacto_tem_o_seu_ficheiro_e_os_homonimos_sao_numerados()
    {
        const Pasta p;
        NumaPasta destino(p.pasta.path(), u"vcf"_s);
        const QStringList nomes{u"Ana"_s, u"Ana"_s, u"ANA"_s, u"Rui"_s, u"rui (2)"_s, u"Rui"_s, u"Ana"_s};
        for (const QString &nome : nomes)
            destino.Juntar(nome, nome.toUtf8());
        destino.Concluir();
        QCOMPARE(p.Nomes(), (QStringList{u"ANA (3).vcf"_s, u"Ana (2).vcf"_s, u"Ana (4).vcf"_s, u"Ana.vcf"_s,
                                         u"Rui (3).vcf"_s, u"Rui.vcf"_s, u"rui (2).vcf"_s}));
        QCOMPARE(p.Bytes(u"ANA (3).vcf"_s), QByteArray("ANA"));
    }

    void um_ficheiro_que_la_esta_fica_como_esta_qualquer_que_seja_a_sua_forma()
    {
        const Pasta p;
        p.Por(u"ANA.VCF"_s);
        p.Por(u"Sa\u0301.vcf"_s); // as some systems write it: the letter, and behind it its mark
        QVERIFY(QDir(p.pasta.path()).mkdir(u"Eva.vcf"_s));
        const QStringList antes = p.Nomes();
        NumaPasta destino(p.pasta.path(), u"vcf"_s);
        for (const auto &nome : {u"Ana"_s, u"Sá"_s, u"Eva"_s})
            destino.Juntar(nome, "novo");
        destino.Concluir();
        for (const auto &nome : {u"Ana (2).vcf"_s, u"Sá (2).vcf"_s, u"Eva (2).vcf"_s})
            QCOMPARE(p.Bytes(nome), QByteArray("novo"));
        QCOMPARE(p.Bytes(u"ANA.VCF"_s), QByteArray("velho"));
        QCOMPARE(p.Nomes().size(), antes.size() + 3);
    }

    void um_atalho_para_nada_tambem_ocupa_o_seu_nome()
    {
        if (!outros_nomes::ha_atalhos) QSKIP("there are no links here");
        const Pasta p;
        QVERIFY(outros_nomes::Fazer_Atalho(p.Caminho(u"nada"_s), p.Caminho(u"Ana.vcf"_s)));
        NumaPasta destino(p.pasta.path(), u"vcf"_s);
        destino.Juntar(u"Ana"_s, "novo");
        destino.Concluir();
        QCOMPARE(p.Nomes(), (QStringList{u"Ana (2).vcf"_s, u"Ana.vcf"_s}));
    }

    void o_que_nao_se_conclui_nao_deixa_rasto()
    {
        const Pasta p;
        p.Por(u"Ana.vcf"_s);
        {
            NumaPasta pasta(p.pasta.path(), u"vcf"_s);
            pasta.Juntar(u"Ana"_s, "novo");
            pasta.Juntar(u"Rui"_s, "novo");
            QCOMPARE(p.Nomes().size(), 3);
            NumFicheiro ficheiro(p.Caminho(u"Ana.vcf"_s));
            ficheiro.Juntar({}, "novo");
        }
        QCOMPARE(p.Nomes(), QStringList{u"Ana.vcf"_s});
        QCOMPARE(p.Bytes(u"Ana.vcf"_s), QByteArray("velho"));
    }

    void num_ficheiro_vem_tudo_pela_ordem_e_toma_o_lugar_do_velho()
    {
        const Pasta p;
        p.Por(u"saida"_s);
        NumFicheiro ficheiro(p.Caminho(u"saida"_s));
        ficheiro.Juntar(u"Ana"_s, "um");
        ficheiro.Juntar(u"Rui"_s, "dois");
        ficheiro.Concluir();
        QCOMPARE(p.Bytes(u"saida"_s), QByteArray("umdois"));
        QCOMPARE(p.Nomes(), QStringList{u"saida"_s});
    }

    void o_que_nao_se_escreve_e_uma_falha_que_diz_o_ficheiro()
    {
        const Pasta p;
        const QString nenhuma = p.Caminho(u"nenhuma"_s);
        const auto dita = [](const QString &caminho) {
            return QStringList{caminho, u"The file can't be written: "_s + caminho};
        };
        const QString ficheiro = QDir(nenhuma).filePath(u"Ana.vcf"_s);
        QCOMPARE(teste::Falha_Dita([&] { NumaPasta(nenhuma, u"vcf"_s).Juntar(u"Ana"_s, "novo"); }),
                 dita(ficheiro));
        QCOMPARE(teste::Falha_Dita([&] { NumFicheiro(ficheiro).Juntar({}, "novo"); }), dita(ficheiro));
        QCOMPARE(teste::Falha_Dita([&] { NumFicheiro(ficheiro).Concluir(); }), dita(ficheiro));
        VERIFICAR_FALHA(NumFicheiro(ficheiro).Concluir(), Failure::PathFileAccess);
    }
};

MORVEX_TESTE(TestDestinosDeSaida)
#include "test_DestinosDeSaida.moc"
