// How the store compares texts: the order of names, equality, and LIKE.
#include "store/sqlite/TextRules.h"
#include "testlib/Teste.h"

#include <QLocale>

using namespace Qt::StringLiterals;

class TestTextRules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void so_a_caixa_nao_conta_data()
    {
        QTest::addColumn<QString>("a");
        QTest::addColumn<QString>("b");
        QTest::addColumn<bool>("equal");
        QTest::newRow("case") << u"ANA"_s << u"ana"_s << true;
        QTest::newRow("case of an accented letter") << u"ANDRÉ"_s << u"André"_s << true;
        QTest::newRow("case in Greek") << u"ΑΘΗΝΑ"_s << u"αθηνα"_s << true;
        QTest::newRow("case in Cyrillic") << u"МОСКВА"_s << u"Москва"_s << true;
        QTest::newRow("accent") << u"Familia"_s << u"Família"_s << false;
        QTest::newRow("cedilla") << u"Graca"_s << u"Graça"_s << false;
        QTest::newRow("trailing blank") << u"Ana"_s << u"Ana "_s << false;
        QTest::newRow("both empty") << u""_s << u""_s << true;
        QTest::newRow("one empty") << u""_s << u"a"_s << false;
        QTest::newRow("ordinal") << u"1ª"_s << u"1a"_s << false;
        QTest::newRow("exponent") << u"m²"_s << u"m2"_s << false;
        QTest::newRow("exponent in capitals") << u"M²"_s << u"m²"_s << true;
        QTest::newRow("ordinal beside case") << u"A 1ª"_s << u"a 1a"_s << false;
        QTest::newRow("full width") << u"Ａna"_s << u"Ana"_s << false;
        QTest::newRow("final sigma") << u"ΟΔΟΣ"_s << u"οδος"_s << true;
    }
    void so_a_caixa_nao_conta()
    {
        QFETCH(QString, a);
        QFETCH(QString, b);
        QFETCH(bool, equal);
        QCOMPARE(compareText(a, b) == 0, equal);
        QCOMPARE(compareText(b, a) == 0, equal);
        QCOMPARE(matchesLike(a, b), equal);
    }

    void a_forma_so_decide_o_que_o_resto_deixou_igual()
    {
        QVERIFY(compareText(u"1a B", u"1ª A") > 0);
        QVERIFY(compareText(u"1ª A", u"1a B") < 0);
        QVERIFY(compareText(u"m2", u"m²") < 0);
        QVERIFY(compareText(u"m²", u"m2") > 0);
    }

    void os_nomes_ficam_por_ordem_alfabetica_portuguesa()
    {
        const QStringList ordered{u""_s,          u"1.º Esquerdo"_s, u"alvaro"_s,  u"Álvaro"_s, u"Ana"_s,
                                  u"ana maria"_s, u"Anabela"_s,      u"Cláudia"_s, u"Damião"_s, u"Érica"_s,
                                  u"Ernesto"_s,   u"Óscar"_s,        u"Otelo"_s,   u"Zita"_s};
        QStringList sorted(ordered.crbegin(), ordered.crend());
        std::sort(sorted.begin(), sorted.end(),
                  [](const QString &a, const QString &b) { return compareText(a, b) < 0; });
        QCOMPARE(sorted, ordered);
    }

    // Swedish puts Ö behind Z.
    void a_ordem_nao_segue_a_lingua_da_maquina()
    {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::Swedish, QLocale::Sweden));
        QVERIFY(compareText(u"Öscar", u"Zita") < 0);
        QLocale::setDefault(before);
    }

    void like_com_percentagem_e_sublinhado_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("matches");
        QTest::newRow("all") << u"%"_s << u"whatever"_s << true;
        QTest::newRow("all, of nothing") << u"%"_s << u""_s << true;
        QTest::newRow("nothing, of nothing") << u""_s << u""_s << true;
        QTest::newRow("nothing, of something") << u""_s << u"a"_s << false;
        QTest::newRow("within") << u"%mari%"_s << u"Ana Maria Silva"_s << true;
        QTest::newRow("not within") << u"%mario%"_s << u"Ana Maria Silva"_s << false;
        QTest::newRow("from the start") << u"ana%"_s << u"Ana Maria"_s << true;
        QTest::newRow("not from the start") << u"maria%"_s << u"Ana Maria"_s << false;
        QTest::newRow("to the end") << u"%maria"_s << u"Ana Maria"_s << true;
        QTest::newRow("one character") << u"An_"_s << u"Ana"_s << true;
        QTest::newRow("one character within") << u"A_a"_s << u"Ana"_s << true;
        QTest::newRow("one character, none there") << u"Ana_"_s << u"Ana"_s << false;
        QTest::newRow("one character beyond 16 bits") << u"a_b"_s << u"a😀b"_s << true;
        QTest::newRow("one character beyond 16 bits at the end") << u"a_"_s << u"a😀"_s << true;
        QTest::newRow("half of a character beyond 16 bits at the end") << u"a__"_s << u"a😀"_s << false;
        QTest::newRow("a broken half at the end") << u"a_"_s << u"a"_s + QChar(0xD83D) << true;
        QTest::newRow("a first half beside a letter") << u"_"_s << QChar(0xD83D) + u"a"_s << false;
        QTest::newRow("a second half beside a letter") << u"_"_s << u"a"_s + QChar(0xDE00) << false;
        QTest::newRow("accents count") << u"%joao%"_s << u"João"_s << false;
        QTest::newRow("a run that must be tried again") << u"%aab"_s << u"aaaab"_s << true;
        QTest::newRow("two runs") << u"%a%b%"_s << u"xxaxxbxx"_s << true;
        QTest::newRow("two runs, other order") << u"%b%a%"_s << u"xxaxxbxx"_s << false;
        QTest::newRow("digits whole") << u"6"_s << u"16"_s << false;
        QTest::newRow("no other wildcard") << u"a*"_s << u"abc"_s << false;
        QTest::newRow("over line breaks") << u"%rua%porto%"_s << u"Rua Nova\r\nPorto"_s << true;
    }
    void like_com_percentagem_e_sublinhado()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, text);
        QFETCH(bool, matches);
        QCOMPARE(matchesLike(pattern, text), matches);
    }

    void o_que_esta_por_tras_do_padrao_nao_lhe_pertence()
    {
        for (const QStringView whole : {u"%a", u"%_", u"%%"})
            QVERIFY(matchesLike(whole.first(1), u"ba"));
        QVERIFY(matchesLike(QStringView(u"a%").first(1), u"a"));
    }

    // Tried out sign by sign it would not come to an end.
    void um_padrao_de_muitos_sinais_responde()
    {
        const QString text(20000, u'a');
        QVERIFY(!matchesLike(u"%a%a%a%a%a%a%a%a%b"_s, text));
        QVERIFY(matchesLike(u"%a%a%a%a%a%a%a%a%a"_s, text));
    }
};

MORVEX_TESTE(TestTextRules)
#include "test_TextRules.moc"
