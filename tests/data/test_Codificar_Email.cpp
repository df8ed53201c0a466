// The scrambling of mail passwords: what it keeps, and what it loses.
#include "data/Codificar_Email.h"
#include "testlib/Teste.h"

#include <QRandomGenerator>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
const QString simbolos = u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"_s;

QString Codificar(const QString &simples)
{
    QString saida;
    return Codificar_Email(simples, saida);
}
} // namespace

class TestCodificarEmail : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_tabela_e_uma_permutacao_com_pontos_fixos()
    {
        const QString trocados = Codificar(simbolos);
        QCOMPARE(trocados.size(), simbolos.size());
        QCOMPARE(QSet<QChar>(trocados.begin(), trocados.end()),
                 QSet<QChar>(simbolos.begin(), simbolos.end()));
        QString fixos;
        for (qsizetype i = 0; i < simbolos.size(); ++i)
            if (trocados[i] == simbolos[i]) fixos += simbolos[i];
        QCOMPARE(fixos, u"gkR7"_s);
    }

    // Databases in use were written with it.
    void a_tabela_nunca_muda()
    {
        QCOMPARE(Codificar(simbolos), u"jU9cEygA6LkDfbP2dw8pStCZml3Q5KIuasoMnhvxYX0RezNHTi41BGJWFrV7Oq"_s);
    }

    void com_os_62_simbolos_volta_ao_que_era()
    {
        for (const QString &senha : {simbolos, u"Segredo7"_s, u"a"_s, u"ZZZ000aaa"_s, QString()}) {
            QCOMPARE(Codificar(senha).size(), senha.size());
            QCOMPARE(Descodificar_Email(Codificar(senha)), senha);
        }
    }

    // Any text of the 62 symbols, of any length that a box takes and beyond.
    void textos_ao_acaso_guardam_o_comprimento_e_voltam_ao_que_eram()
    {
        QRandomGenerator acaso(20270201); // the same ones in every run
        for (int vez = 0; vez < 2000; ++vez) {
            QString senha;
            for (quint32 falta = acaso.bounded(120U); falta > 0; --falta)
                senha += simbolos[acaso.bounded(simbolos.size())];
            const QString codificada = Codificar(senha);
            QCOMPARE(codificada.size(), senha.size());
            QCOMPARE(Descodificar_Email(codificada), senha);
            QCOMPARE(Codificar(Descodificar_Email(senha)), senha);
        }
    }

    void as_maiusculas_contam()
    {
        QVERIFY(Codificar(u"a"_s) != Codificar(u"A"_s));
        QCOMPARE(Descodificar_Email(Codificar(u"aA"_s)), u"aA"_s);
    }

    void um_branco_ou_um_acento_repete_o_anterior_data()
    {
        QTest::addColumn<QString>("senha");
        QTest::addColumn<QString>("restaurada");
        QTest::newRow("branco") << u"ab cd"_s << u"abbcd"_s;
        QTest::newRow("acento") << u"senhaç7"_s << u"senhaa7"_s;
        QTest::newRow("dois seguidos") << u"x--y"_s << u"xxxy"_s;
        QTest::newRow("no fim") << u"abc!"_s << u"abcc"_s;
    }
    void um_branco_ou_um_acento_repete_o_anterior()
    {
        QFETCH(QString, senha);
        QFETCH(QString, restaurada);
        QCOMPARE(Codificar(senha).size(), senha.size());
        QCOMPARE(Descodificar_Email(Codificar(senha)), restaurada);
    }

    void no_principio_vale_o_que_saiu_da_ultima_vez()
    {
        QString saida;
        const QString primeira = Codificar_Email(u"abc"_s, saida);
        const QString segunda = Codificar_Email(u"?x"_s, saida);
        QCOMPARE(segunda.left(1), primeira.right(1));
        QCOMPARE(Descodificar_Email(segunda), u"cx"_s);
    }

    void no_principio_da_primeira_vez_nao_sai_nada()
    {
        QCOMPARE(Codificar(u"??x"_s), Codificar(u"x"_s));
        QCOMPARE(Codificar(u"???"_s), QString());
    }

    void descodificar_um_sinal_estranho_no_principio_nao_da_nada()
    {
        QCOMPARE(Descodificar_Email(u"?"_s + Codificar(u"ab"_s)), u"ab"_s);
        QCOMPARE(Descodificar_Email(Codificar(u"a"_s) + u"?"_s + Codificar(u"b"_s)), u"aab"_s);
    }

    void codificar_duas_vezes_nao_e_descodificar() { QVERIFY(Codificar(Codificar(simbolos)) != simbolos); }
};

MORVEX_TESTE(TestCodificarEmail)
#include "test_Codificar_Email.moc"
