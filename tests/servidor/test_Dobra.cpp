// How letters are folded as the file folds them, from the small letters that a server makes: without a server.
#include "platform/Failure.h"
#include "servidor/Dobra.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
// A server that makes each letter what the file folds it to.
LetrasPequenas Como_O_Ficheiro()
{
    LetrasPequenas letras{u"C.utf8"_s, {}};
    for (char32_t letra = 1; letra <= 0xFFFF; ++letra)
        if (const QChar dita(static_cast<char16_t>(letra)); !dita.isSurrogate() && dita.toCaseFolded() != dita)
            letras.pequenas.insert(dita.unicode(), dita.toCaseFolded().unicode());
    return letras;
}

QStringList Partes(const Dobra &dobra)
{
    return {dobra.diferentes, dobra.antes, dobra.guardadas, dobra.depois, dobra.dobradas};
}
} // namespace

class TestDobra : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void um_servidor_que_dobra_como_o_ficheiro_nao_precisa_de_mais()
    {
        QCOMPARE(Partes(Dobra_De(Como_O_Ficheiro())), QStringList(5, QString()));
    }

    void uma_letra_que_o_servidor_deixa_como_esta_dobra_se_depois()
    {
        LetrasPequenas letras = Como_O_Ficheiro();
        letras.pequenas.remove(u'É');
        letras.pequenas.remove(u'Σ');
        QCOMPARE(Partes(Dobra_De(letras)), (QStringList{u"ÉΣ"_s, {}, {}, u"ÉΣ"_s, u"éσ"_s}));
    }

    void uma_letra_que_o_servidor_faz_outra_e_guardada_antes()
    {
        LetrasPequenas letras = Como_O_Ficheiro();
        letras.pequenas[u'I'] = u'ı';
        QCOMPARE(Partes(Dobra_De(letras)),
                 (QStringList{u"I"_s, u"I"_s, QString(QChar(0xFDD0)), QString(QChar(0xFDD0)), u"i"_s}));
    }

    // What folds to the same comes out the same, whichever of the two the server takes.
    void uma_letra_que_o_servidor_faz_outra_da_mesma_dobra_e_so_diferente()
    {
        LetrasPequenas letras = Como_O_Ficheiro();
        letras.pequenas[u'Σ'] = u'ς';
        QCOMPARE(Partes(Dobra_De(letras)).constFirst(), u"Σ"_s);
        QCOMPARE(Dobra_De(letras).antes, QString());
    }

    void trinta_e_duas_letras_tem_lugar_e_mais_uma_e_recusada()
    {
        LetrasPequenas letras = Como_O_Ficheiro();
        for (char16_t letra = u'A'; letra <= u'Z'; ++letra)
            letras.pequenas[letra] = u'ı';
        for (char16_t letra = u'А'; letra < u'А' + 6; ++letra)
            letras.pequenas[letra] = u'ı';
        const Dobra dobra = Dobra_De(letras);
        QCOMPARE(dobra.antes.size(), 32);
        QCOMPARE(dobra.guardadas.back(), QChar(0xFDEF)); // the last of the places that no text uses
        QCOMPARE(dobra.dobradas, u"abcdefghijklmnopqrstuvwxyzабвгде"_s);
        letras.pequenas[u'Я'] = u'ı';
        try {
            Dobra_De(letras);
            QFAIL("no failure");
        } catch (const Failure &falha) {
            QCOMPARE(falha.description(), u"The server's small letters differ too much"_s);
        }
    }

    void a_funcao_so_troca_letras_onde_um_texto_as_tem_data()
    {
        QTest::addColumn<QStringList>("partes");
        QTest::addColumn<QString>("corpo");
        const QString pequeno = u"lower(t COLLATE \"C.utf8\")"_s;
        QTest::newRow("none differ") << QStringList(5, QString()) << pequeno;
        QTest::newRow("after")
            << QStringList{u"É"_s, {}, {}, u"É"_s, u"é"_s}
            << u"CASE WHEN t COLLATE \"C\" ~ '[É]' THEN translate(%1, 'É', 'é') ELSE %1 END"_s.arg(pequeno);
        QTest::newRow("before and after")
            << QStringList{u"I"_s, u"I"_s, u"#"_s, u"#"_s, u"i"_s}
            << u"CASE WHEN t COLLATE \"C\" ~ '[I]' THEN translate(lower(translate(t, 'I', '#') COLLATE \"C.utf8\"), "
               "'#', 'i') ELSE %1 END"_s.arg(pequeno);
    }
    void a_funcao_so_troca_letras_onde_um_texto_as_tem()
    {
        QFETCH(QStringList, partes);
        QFETCH(QString, corpo);
        const Dobra dobra{partes[0], partes[1], partes[2], partes[3], partes[4]};
        QCOMPARE(Sql_Dobrar(u"C.utf8"_s, dobra),
                 u"CREATE OR REPLACE FUNCTION morvex_dobrar(t text) RETURNS text LANGUAGE sql IMMUTABLE PARALLEL SAFE "
                 "AS $morvex$ SELECT "_s + corpo + u" $morvex$"_s);
    }
};

MORVEX_TESTE(TestDobra)
#include "test_Dobra.moc"
