// Tables of other programs: their encodings, delimiters, quotes and first rows.
#include "csv/CsvCells.h"
#include "csv/CsvDetection.h"
#include "csv/CsvReader.h"
#include "testlib/TempoGasto.h"
#include "testlib/Teste.h"

#include <QStringEncoder>

using namespace Qt::StringLiterals;
using Linhas = std::vector<QStringList>;

class TestCsvReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Greek letters have no zeros among their bytes.
    void a_marca_diz_que_e_utf_16_mesmo_onde_nenhuma_letra_e_latina()
    {
        const QByteArray grande = QByteArray::fromHex("feff03a903bc03ad03b303b1");
        const QByteArray pequeno = QByteArray::fromHex("fffea903bc03ad03b303b103");
        for (const QByteArray &ficheiro : {grande, pequeno}) {
            const CsvText lido = csvText(ficheiro);
            QCOMPARE(lido.text, u"Ωμέγα"_s);
            QCOMPARE(lido.encoding, QByteArray("utf-16"));
        }
    }

    void a_codificacao_descobre_se_data()
    {
        QTest::addColumn<QByteArray>("ficheiro");
        QTest::addColumn<QByteArray>("codificacao");
        const QString texto = u"Nome;Número\r\nJosé;1\r\n"_s;
        QStringEncoder menor(QStringEncoder::Utf16LE);
        QStringEncoder maior(QStringEncoder::Utf16BE);
        QTest::newRow("marca") << "\xEF\xBB\xBF" + texto.toUtf8() << QByteArray("utf-8-sig");
        QTest::newRow("UTF-8") << texto.toUtf8() << QByteArray("utf-8");
        QTest::newRow("UTF-16 LE com marca")
            << QByteArray("\xFF\xFE" + QByteArray(menor(texto))) << QByteArray("utf-16");
        QTest::newRow("UTF-16 LE sem marca") << QByteArray(menor(texto)) << QByteArray("utf-16");
        QTest::newRow("UTF-16 BE com marca")
            << QByteArray("\xFE\xFF" + QByteArray(maior(texto))) << QByteArray("utf-16");
        QTest::newRow("UTF-16 BE sem marca") << QByteArray(maior(texto)) << QByteArray("utf-16");
        QTest::newRow("1252") << texto.toLatin1() << QByteArray("cp1252");
    }
    void a_codificacao_descobre_se()
    {
        QFETCH(QByteArray, ficheiro);
        QFETCH(QByteArray, codificacao);
        const CsvTable tabela = readCsv(ficheiro);
        QCOMPARE(tabela.encoding, codificacao);
        QCOMPARE(tabela.rows, (Linhas{{u"Nome"_s, u"Número"_s}, {u"José"_s, u"1"_s}}));
    }

    // UTF-16 without a mark: a third of the first four hundred bytes are zeros, all on one side.
    void os_zeros_dizem_que_e_utf_16_data()
    {
        QTest::addColumn<QByteArray>("ficheiro");
        QTest::addColumn<QByteArray>("codificacao");
        const auto z = [](const char *bytes, qsizetype quantos) { return QByteArray(bytes, quantos); };
        QTest::newRow("duas letras") << z("a\0b\0", 4) << QByteArray("utf-16");
        QTest::newRow("duas letras ao contrário") << z("\0a\0b", 4) << QByteArray("utf-16");
        QTest::newRow("menos do que duas letras") << z("a\0", 2) << QByteArray("utf-8");
        QTest::newRow("um terço certo") << z("a\0b\0cd", 6) << QByteArray("utf-16");
        QTest::newRow("menos de um terço") << z("a\0bcde", 6) << QByteArray("utf-8");
        QTest::newRow("dos dois lados") << z("a\0bc\0d", 6) << QByteArray("utf-8");
        const QByteArray letra("\0a", 2);
        QTest::newRow("um zero depois dos primeiros quatrocentos")
            << letra.repeated(133) + QByteArray(134, 'a') + letra << QByteArray("utf-8");
        QTest::newRow("o mesmo zero entre eles")
            << letra.repeated(134) + QByteArray(134, 'a') << QByteArray("utf-16");
    }
    void os_zeros_dizem_que_e_utf_16()
    {
        QFETCH(QByteArray, ficheiro);
        QTEST(csvText(ficheiro).encoding, "codificacao");
    }

    void a_codificacao_escolhida_le_se_sem_a_marca_e_a_desconhecida_byte_por_byte()
    {
        QCOMPARE(csvText("\xEF\xBB\xBFZ\xC3\xA9", "utf-8").text, u"Zé"_s);
        QCOMPARE(csvText("Z\xE9", "mais-nenhuma").text, u"Zé"_s);
        QCOMPARE(csvText("Z\xE9", "mais-nenhuma").encoding, QByteArray("mais-nenhuma"));
    }

    // Which has letters where the older standard has none.
    void o_que_nao_e_utf_e_da_europa_ocidental()
    {
        const CsvText lido = csvText("\x80 Z\xE9 \x9C");
        QCOMPARE(lido.text, u"€ Zé œ"_s);
        QCOMPARE(lido.encoding, QByteArray("cp1252"));
    }

    void o_que_a_pessoa_escolheu_vale_mais_do_que_o_descoberto()
    {
        const CsvTable tabela = readCsv("\xA3ukasz;a,b\n", {"windows-1250", u',', true});
        QCOMPARE(tabela.rows, (Linhas{{u"Łukasz;a"_s, u"b"_s}}));
        QVERIFY(tabela.hasHeader);
        QCOMPARE(tabela.encoding, QByteArray("windows-1250"));
    }

    void o_separador_e_aquele_em_que_mais_linhas_concordam_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QChar>("separador");
        QTest::newRow("vírgula") << u"a,b\nc,d;e\n"_s << QChar(u',');
        QTest::newRow("ponto e vírgula") << u"nome;nota\nAna;um, dois\nRui;um, dois, três\n"_s << QChar(u';');
        QTest::newRow("tabulador") << u"a\tb, c\nd\te\n"_s << QChar(u'\t');
        QTest::newRow("barra") << u"a|b\nc|d\n"_s << QChar(u'|');
        QTest::newRow("entre aspas não conta") << u"\"a;b\",\"c;d\"\n\"e;f\",g\n"_s << QChar(u',');
        QTest::newRow("uma só coluna") << u"a\nb\n"_s << QChar(u',');
        QTest::newRow("quase só uma coluna") << u"a\nb\nc\nd;e\n"_s << QChar(u';');
        QTest::newRow("empate") << u"a,b;c\n"_s << QChar(u',');
        QTest::newRow("mais células na mesma linha") << u"a,b;c;d\n"_s << QChar(u';');
        QTest::newRow("só as primeiras vinte linhas contam")
            << u"a,b\n"_s.repeated(10) + u"a;b\n"_s.repeated(10) + u"a;b\n"_s << QChar(u',');
        QTest::newRow("entre as primeiras vinte decide a maioria")
            << u"a,b\n"_s.repeated(9) + u"a;b\n"_s.repeated(10) << QChar(u';');
    }
    void o_separador_e_aquele_em_que_mais_linhas_concordam()
    {
        QFETCH(QString, texto);
        QFETCH(QChar, separador);
        QCOMPARE(csvDelimiter(texto), separador);
    }

    void a_linha_do_separador_vale_e_nao_e_da_tabela()
    {
        for (const char *linha : {"sep=|\r\n", "\xEF\xBB\xBFSEP=|\n", "\"sep=|\"\r\n"}) {
            const CsvTable tabela = readCsv(linha + QByteArray("a;b|c\r\n"));
            QCOMPARE(tabela.delimiter, QChar(u'|'));
            QCOMPARE(tabela.rows, (Linhas{{u"a;b"_s, u"c"_s}}));
        }
        for (const char *linha : {"sep=;", "sep=; \t", "sep=;\r", "sep=;\n"}) {
            QString texto = QString::fromLatin1(linha);
            QCOMPARE(takeSeparatorLine(texto), QChar(u';'));
            QCOMPARE(texto, QString());
        }
        QString nenhuma = u"a\nsep=;\n"_s;
        QVERIFY(takeSeparatorLine(nenhuma).isNull());
        QCOMPARE(nenhuma, u"a\nsep=;\n"_s);
        QCOMPARE(readCsv("\"sep=\"\r\n").rows, Linhas{QStringList{u"sep="_s}});
        QCOMPARE(readCsv("sep=erado,a\n").rows, (Linhas{{u"sep=erado"_s, u"a"_s}}));
    }

    void as_aspas_valem_so_no_inicio_da_celula_data()
    {
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QStringList>("celulas");
        QTest::newRow("separador") << u"\"a,b\",c"_s << QStringList{u"a,b"_s, u"c"_s};
        QTest::newRow("dobradas") << u"\"a \"\"b\"\"\",c"_s << QStringList{u"a \"b\""_s, u"c"_s};
        QTest::newRow("no meio") << u"5\" disco,c"_s << QStringList{u"5\" disco"_s, u"c"_s};
        QTest::newRow("mudança de linha") << u"\"a\r\nb\nc\",d\r\n"_s << QStringList{u"a\nb\nc"_s, u"d"_s};
        QTest::newRow("mudanças de linha de outros sistemas")
            << u"\"a\rb\r\r\nc\",d"_s << QStringList{u"a\nb\n\nc"_s, u"d"_s};
        QTest::newRow("depois de fechadas") << u"\"a\"b,c"_s << QStringList{u"ab"_s, u"c"_s};
        QTest::newRow("nunca fechadas") << u"\"a,b\nc"_s << QStringList{u"a,b\nc"_s};
        QTest::newRow("vazias") << u"\"\",,"_s << QStringList{QString(), QString(), QString()};
        QTest::newRow("só uma vazia") << u"\"\"\n"_s << QStringList{QString()};
    }
    void as_aspas_valem_so_no_inicio_da_celula()
    {
        QFETCH(QString, texto);
        QFETCH(QStringList, celulas);
        QCOMPARE(csvCells(texto, u','), Linhas{celulas});
    }

    void as_linhas_vazias_nao_contam_e_as_outras_podem_ter_tamanhos_diferentes()
    {
        QCOMPARE(csvCells(u"a,b,c\r\n\r\nd\r\re,f\n\n\n,\n", u','),
                 (Linhas{{u"a"_s, u"b"_s, u"c"_s}, {u"d"_s}, {u"e"_s, u"f"_s}, {QString(), QString()}}));
        QVERIFY(csvCells(u"", u',').empty());
    }

    void uma_linha_acaba_em_cr_em_lf_ou_nos_dois_e_a_seguinte_comeca_logo_atras()
    {
        const Linhas tres{{u"a"_s}, {u"b"_s, u"c"_s}, {QString()}};
        for (const auto &fim : {u"\r"_s, u"\n"_s, u"\r\n"_s})
            QCOMPARE(csvCells(u"a%1b,c%1\"\"%1"_s.arg(fim), u','), tres);
    }

    void a_primeira_linha_e_de_nomes_se_nao_tem_dados_data()
    {
        QTest::addColumn<QByteArray>("ficheiro");
        QTest::addColumn<bool>("nomes");
        QTest::newRow("nomes") << QByteArray("Nome,E-mail 1 - Value,Phone 2\nAna,x,1\n") << true;
        QTest::newRow("correio") << QByteArray("Ana,ana@exemplo.pt\n") << false;
        QTest::newRow("número") << QByteArray("Ana,912345678\n") << false;
        QTest::newRow("número com espaços") << QByteArray("Ana,+351 912 345 678\n") << false;
        QTest::newRow("data") << QByteArray("Ana,4/3/75\n") << false;
        QTest::newRow("endereço") << QByteArray("Ana,http://exemplo.pt\n") << false;
        QTest::newRow("endereço cifrado") << QByteArray("Ana,https://exemplo.pt\n") << false;
        QTest::newRow("página") << QByteArray("Ana,WWW.exemplo.pt\n") << false;
        QTest::newRow("página no meio") << QByteArray("Ana,ver www.exemplo.pt\n") << true;
        QTest::newRow("cinco algarismos") << QByteArray("Ana,12345\n") << true;
        QTest::newRow("seis algarismos") << QByteArray("Ana,a123456b\n") << false;
        QTest::newRow("número partido") << QByteArray("Ana,(21) 345-6\n") << false;
        QTest::newRow("data com ano primeiro") << QByteArray("Ana,1975-3-4\n") << false;
        QTest::newRow("data com espaços à volta") << QByteArray("Ana, 4.3.75 \n") << false;
        QTest::newRow("data curta") << QByteArray("Ana,4/3/7\n") << false;
        QTest::newRow("data curta dentro de um nome") << QByteArray("Ana,no 4/3/7\n") << true;
        QTest::newRow("vazio") << QByteArray() << false;
    }
    void a_primeira_linha_e_de_nomes_se_nao_tem_dados()
    {
        QFETCH(QByteArray, ficheiro);
        QFETCH(bool, nomes);
        QCOMPARE(readCsv(ficheiro).hasHeader, nomes);
    }

    void uma_tabela_por_ler_nao_tem_nomes() { QVERIFY(!CsvTable().hasHeader); }

    void o_apostrofo_que_guarda_de_formulas_sai()
    {
        QCOMPARE(readCsv("'=1+1,'@x,\"'\tz\",''=y,'aqui,+351\n").rows,
                 (Linhas{{u"=1+1"_s, u"@x"_s, u"\tz"_s, u"'=y"_s, u"'aqui"_s, u"+351"_s}}));
    }

    void uma_tabela_grande_leva_um_tempo_proporcional()
    {
        const auto tempo = [](int linhas) {
            const QByteArray ficheiro = QByteArray("\"a \"\"b\"\"\",c;d,'e,\"f\ng\"\r\n").repeated(linhas);
            return Tempo_Gasto([&] { readCsv(ficheiro); });
        };
        constexpr int poucas = 5000;
        constexpr int vezes = 16;
        QCOMPARE(readCsv(QByteArray("a,b\n").repeated(poucas)).rows.size(), std::size_t{poucas});
        QVERIFY(tempo(poucas * vezes) < tempo(poucas) * vezes * 5);
    }
};

MORVEX_TESTE(TestCsvReader)
#include "test_CsvReader.moc"
