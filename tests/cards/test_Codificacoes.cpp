// The encodings that a person can choose for a foreign file.
#include "cards/Codificacoes.h"

#include "data/Idiomas.h"
#include "platform/TextEncoding.h"

#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

class TestCodificacoes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cada_uma_le_se()
    {
        for (const char *nome : codificacoes::nomes)
            QVERIFY2(decodedText({}, nome).known, nome);
    }

    void cada_uma_tem_uma_palavra_sua_em_cada_lingua()
    {
        for (const Idioma &lingua : idiomas::todos) {
            const QString idioma = QString::fromLatin1(lingua.coluna);
            QSet<QString> palavras;
            for (const char *nome : codificacoes::nomes) {
                const QString palavra = codificacoes::Palavra(nome, idioma);
                QVERIFY2(palavra.startsWith("UTF-"_L1) ||
                             palavra.endsWith(u" (%1)"_s.arg(QLatin1StringView(nome))),
                         qPrintable(palavra));
                palavras.insert(palavra);
            }
            QCOMPARE(palavras.size(), static_cast<qsizetype>(codificacoes::nomes.size()));
        }
    }

    void a_palavra_de_cada_uma_esta_escrita_em_cada_lingua_data()
    {
        QTest::addColumn<QString>("juntas"); // in the order of the languages
        QTest::newRow("windows-1252")
            << u"Europa Ocidental|Europa Ocidental|Western Europe|Europa occidental|"
               "Europa occidentale|Europe occidentale|Westeuropa"_s;
        QTest::newRow("ISO-8859-15") << u"Europa Ocidental|Europa Ocidental|Western Europe|Europa occidental|"
                                        "Europa occidentale|Europe occidentale|Westeuropa"_s;
        QTest::newRow("windows-1250")
            << u"Europa Central|Europa Central|Central Europe|Europa central|Europa centrale|"
               "Europe centrale|Mitteleuropa"_s;
        QTest::newRow("windows-1251")
            << u"Cirílico|Cirílico|Cyrillic|Cirílico|Cirillico|Cyrillique|Kyrillisch"_s;
        QTest::newRow("KOI8-R") << u"Cirílico|Cirílico|Cyrillic|Cirílico|Cirillico|Cyrillique|Kyrillisch"_s;
        QTest::newRow("windows-1253") << u"Grego|Grego|Greek|Griego|Greco|Grec|Griechisch"_s;
        QTest::newRow("windows-1254") << u"Turco|Turco|Turkish|Turco|Turco|Turc|Türkisch"_s;
        QTest::newRow("windows-1255") << u"Hebraico|Hebraico|Hebrew|Hebreo|Ebraico|Hébreu|Hebräisch"_s;
        QTest::newRow("windows-1256") << u"Árabe|Árabe|Arabic|Árabe|Arabo|Arabe|Arabisch"_s;
        QTest::newRow("windows-1257") << u"Báltico|Báltico|Baltic|Báltico|Baltico|Balte|Baltisch"_s;
        QTest::newRow("macintosh")
            << u"Mac antigo|Mac antigo|Older Mac|Mac antiguo|Mac meno recente|Ancien Mac|"
               "Älterer Mac"_s;
        QTest::newRow("Shift_JIS") << u"Japonês|Japonês|Japanese|Japonés|Giapponese|Japonais|Japanisch"_s;
        QTest::newRow("EUC-JP") << u"Japonês|Japonês|Japanese|Japonés|Giapponese|Japonais|Japanisch"_s;
        QTest::newRow("GB18030")
            << u"Chinês simplificado|Chinês simplificado|Simplified Chinese|Chino simplificado|"
               "Cinese semplificato|Chinois simplifié|Chinesisch, vereinfacht"_s;
        QTest::newRow("Big5")
            << u"Chinês tradicional|Chinês tradicional|Traditional Chinese|Chino tradicional|"
               "Cinese tradizionale|Chinois traditionnel|Chinesisch, traditionell"_s;
        QTest::newRow("EUC-KR") << u"Coreano|Coreano|Korean|Coreano|Coreano|Coréen|Koreanisch"_s;
    }
    void a_palavra_de_cada_uma_esta_escrita_em_cada_lingua()
    {
        const QByteArray nome = QTest::currentDataTag();
        QFETCH(QString, juntas);
        const QStringList palavras = juntas.split(u'|');
        for (std::size_t i = 0; i < idiomas::todos.size(); ++i)
            QCOMPARE(codificacoes::Palavra(nome, QString::fromLatin1(idiomas::todos[i].coluna)),
                     u"%1 (%2)"_s.arg(palavras[static_cast<qsizetype>(i)], QString::fromLatin1(nome)));
    }

    void o_que_se_descobriu_tambem_tem_palavra()
    {
        QCOMPARE(codificacoes::Palavra("utf-8-sig", u"InglesUK"_s), u"UTF-8"_s);
        QCOMPARE(codificacoes::Palavra("utf-16", u"InglesUK"_s), u"UTF-16"_s);
        QCOMPARE(codificacoes::Palavra("cp1252", u"InglesUK"_s), u"Western Europe (windows-1252)"_s);
    }

    void o_primeiro_lugar_nao_escolhe_nenhuma()
    {
        QCOMPARE(codificacoes::Do_Lugar(-1), QByteArray());
        QCOMPARE(codificacoes::Do_Lugar(0), QByteArray());
        QCOMPARE(codificacoes::Do_Lugar(1), QByteArray(codificacoes::nomes.front()));
        QCOMPARE(codificacoes::Do_Lugar(static_cast<int>(codificacoes::nomes.size())),
                 QByteArray(codificacoes::nomes.back()));
    }
};

QTEST_GUILESS_MAIN(TestCodificacoes)
#include "test_Codificacoes.moc"
