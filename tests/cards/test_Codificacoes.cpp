// The encodings that a person can choose for a foreign file.
#include "cards/Codificacoes.h"

#include "data/Idiomas.h"
#include "platform/TextEncoding.h"

#include <QSet>
#include <QtTest>

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

    void a_palavra_e_a_da_lingua()
    {
        QStringList palavras;
        for (const Idioma &lingua : idiomas::todos)
            palavras << codificacoes::Palavra("windows-1257", QString::fromLatin1(lingua.coluna));
        const QString nome = u" (windows-1257)"_s;
        QCOMPARE(palavras, (QStringList{u"Báltico"_s + nome, u"Báltico"_s + nome, u"Baltic"_s + nome,
                                        u"Báltico"_s + nome, u"Baltico"_s + nome, u"Balte"_s + nome,
                                        u"Baltisch"_s + nome}));
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
