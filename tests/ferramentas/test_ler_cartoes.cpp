// The program that shows what the readers of foreign contact files make of one.
#include "vcard/CardReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestLerCartoes : public QObject
{
    Q_OBJECT

    struct Resposta {
        int codigo = -1;
        QList<QJsonObject> linhas;
        QByteArray queixa;
    };

    QTemporaryDir pasta_;

    static Resposta Correr(const QStringList &argumentos)
    {
        QProcess processo;
        processo.start(QStringLiteral(LER_CARTOES), argumentos);
        processo.waitForFinished();
        Resposta resposta{processo.exitCode(), {}, processo.readAllStandardError()};
        for (const QByteArray &linha : processo.readAllStandardOutput().split('\n'))
            if (!linha.isEmpty()) resposta.linhas << QJsonDocument::fromJson(linha).object();
        return resposta;
    }

    QString Escrito(const QString &nome, const QByteArray &texto) const
    {
        QFile ficheiro(pasta_.filePath(nome));
        if (ficheiro.open(QIODevice::WriteOnly)) ficheiro.write(texto);
        return ficheiro.fileName();
    }

    // Of a list that has apostrophes for its quotation marks.
    static QJsonArray Lista(const QByteArray &json)
    {
        return QJsonDocument::fromJson(QByteArray(json).replace('\'', '"')).array();
    }

private Q_SLOTS:
    void um_cartao_mostra_tudo_o_que_o_leitor_leu_dele()
    {
        const QString ficheiro = Escrito(
            u"a.vcf"_s,
            "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:u-1\r\nFN:Ana Silva\r\nN:Silva;Ana;Maria;Dra.;Neta\r\n"
            "TEL;TYPE=cell:912345678\r\nEMAIL;TYPE=home:ana@example.org\r\nURL:https://example.org/\r\n"
            "NOTE:uma\r\nADR:1;2;3;4;5;6;7\r\nCATEGORIES:um,dois\r\nPHOTO;ENCODING=b;TYPE=JPEG:QUJD\r\n"
            "PHOTO;VALUE=uri:https://example.org/a.jpg\r\nEND:VCARD\r\n");
        const Resposta resposta = Correr({u"json"_s, ficheiro});
        QCOMPARE(resposta.codigo, 0);
        QCOMPARE(resposta.linhas.size(), 1);
        QCOMPARE(resposta.linhas[0][u"file"_s].toString(), ficheiro);
        QCOMPARE(resposta.linhas[0][u"faults"_s].toArray(), QJsonArray());
        QCOMPARE(resposta.linhas[0][u"cards"_s].toArray().size(), 1);
        const QJsonObject cartao = resposta.linhas[0][u"cards"_s][0].toObject();
        QCOMPARE(cartao[u"fn"_s].toString(), u"Ana Silva"_s);
        QCOMPARE(cartao[u"uid"_s].toString(), u"u-1"_s);
        QCOMPARE(cartao[u"n"_s].toArray(), Lista("['Silva','Ana','Maria','Dra.','Neta']"));
        QCOMPARE(cartao[u"tel"_s].toArray(), Lista("[{'value':'912345678','types':['cell']}]"));
        QCOMPARE(cartao[u"email"_s].toArray(), Lista("[{'value':'ana@example.org','types':['home']}]"));
        QCOMPARE(cartao[u"url"_s].toArray(), Lista("[{'value':'https://example.org/'}]"));
        QCOMPARE(cartao[u"note"_s].toArray(), Lista("[{'value':'uma'}]"));
        QCOMPARE(cartao[u"adr"_s].toArray(), Lista("[['1','2','3','4','5','6','7']]"));
        QCOMPARE(cartao[u"categories"_s].toArray(), Lista("['um','dois']"));
        QCOMPARE(cartao[u"photo"_s].toArray(),
                 Lista("[{'bytes':3,'sha1':'3c01bdbb26f358bab27f267924aa2c9a03fcfdb8'},"
                       "{'uri':'https://example.org/a.jpg'}]"));
        QCOMPARE(cartao[u"columns"_s][u"Nome"_s].toString(), u"Ana Silva"_s);
        QCOMPARE(cartao[u"columns"_s][u"Telemovel1"_s].toString(), u"912345678"_s);
        QCOMPARE(cartao[u"columns"_s][u"Website"_s].toString(), u"https://example.org/"_s);
        QCOMPARE(cartao[u"columns"_s].toObject().size(), 17);
    }

    void um_cartao_com_falta_diz_a_linha()
    {
        const QString ficheiro = Escrito(u"falta.vcf"_s, "a line outside\r\n\r\nBEGIN:VCARD\r\nFN:Rui\r\n");
        const Resposta resposta = Correr({u"json"_s, ficheiro});
        QCOMPARE(resposta.codigo, 0);
        const QJsonArray faltas = resposta.linhas[0][u"faults"_s].toArray();
        QCOMPARE(faltas.size(), 2);
        QCOMPARE(faltas[0][u"line"_s].toInt(), 1);
        QCOMPARE(faltas[0][u"kind"_s].toInt(), static_cast<int>(CardFault::Kind::OutsideOfCard));
        QCOMPARE(faltas[1][u"line"_s].toInt(), 3);
        QCOMPARE(faltas[1][u"kind"_s].toInt(), static_cast<int>(CardFault::Kind::EndMissing));
        const QJsonObject cartao = resposta.linhas[0][u"cards"_s][0].toObject();
        QVERIFY(!cartao.contains(u"uid"_s) && !cartao.contains(u"n"_s));
    }

    void cada_tabela_fica_numa_linha()
    {
        const QString uma = Escrito(u"uma.csv"_s, "Name;Phone\r\nAna;912345678\r\n");
        const QString outra = Escrito(u"outra.csv"_s, "Name,Phone\r\nRui,21\r\n");
        const Resposta resposta = Correr({u"csv"_s, uma, outra});
        QCOMPARE(resposta.codigo, 0);
        QCOMPARE(resposta.linhas.size(), 2);
        QCOMPARE(resposta.linhas[0][u"delimiter"_s].toString(), u";"_s);
        QVERIFY(resposta.linhas[0][u"header"_s].toBool());
        QVERIFY(!resposta.linhas[0][u"encoding"_s].toString().isEmpty());
        QCOMPARE(resposta.linhas[0][u"cells"_s].toArray(), Lista("[['Name','Phone'],['Ana','912345678']]"));
        QCOMPARE(resposta.linhas[1][u"file"_s].toString(), outra);
        QCOMPARE(resposta.linhas[1][u"delimiter"_s].toString(), u","_s);
    }

    void o_que_nao_se_pode_ler_diz_qual()
    {
        const Resposta resposta = Correr({u"csv"_s, pasta_.filePath(u"nada.csv"_s)});
        QCOMPARE(resposta.codigo, 1);
        QVERIFY2(resposta.queixa.contains("nada.csv cannot be read"), resposta.queixa.constData());
    }

    void sem_especie_ou_sem_ficheiro_diz_como_se_usa()
    {
        const QString ficheiro = Escrito(u"b.csv"_s, "a,b\r\n");
        for (const QStringList &argumentos : {QStringList{}, {u"csv"_s}, {u"json"_s}, {u"xml"_s, ficheiro}}) {
            const Resposta resposta = Correr(argumentos);
            QCOMPARE(resposta.codigo, 2);
            QVERIFY(resposta.queixa.startsWith("usage: ler_cartoes"));
            QVERIFY(resposta.linhas.isEmpty());
        }
    }
};

QTEST_GUILESS_MAIN(TestLerCartoes)
#include "test_ler_cartoes.moc"
