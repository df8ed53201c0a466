// What becomes of a row that two people have changed: a table of all that can meet in one field, and what is
// told apart of several.
#include "data/EncontroDeLinhas.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
using Lugares = EncontroDeLinhas::Lugares;

// A name, and a date of three columns that are one field.
const EncontroDeLinhas::Campos nome_e_data{{0}, {1, 2, 3}};

QStringList Linha(const char *celulas) { return QString::fromLatin1(celulas).split(u'|'); }
} // namespace

class TestEncontroDeLinhas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void o_que_se_encontra_num_campo_data()
    {
        QTest::addColumn<QString>("antes");
        QTest::addColumn<QString>("mostrada");
        QTest::addColumn<QString>("aqui");
        QTest::addColumn<QString>("la");
        QTest::addColumn<QString>("junta");
        QTest::addColumn<bool>("disputada");
        const auto caso = [](const char *nome, const char *antes, const char *mostrada, const char *aqui,
                             const char *la, const char *junta, bool disputada) {
            QTest::newRow(nome) << antes << mostrada << aqui << la << junta << disputada;
        };
        caso("ninguem mudou", "a", "a", "a", "a", "a", false);
        caso("so aqui", "a", "a", "b", "a", "b", false);
        caso("so la", "a", "a", "a", "b", "b", false);
        caso("os dois para o mesmo", "a", "a", "b", "b", "b", false);
        caso("os dois para coisas diferentes", "a", "a", "b", "c", "b", true);
        caso("aqui esvaziado", "a", "a", "", "a", "", false);
        caso("la esvaziado", "a", "a", "a", "", "", false);
        caso("aqui esvaziado e la mudado", "a", "a", "", "c", "", true);
        caso("aqui mudado e la esvaziado", "a", "a", "b", "", "b", true);
        caso("vazio e enchido dos dois lados", "", "", "b", "c", "b", true);
        caso("so as maiusculas mudaram la", "ana", "ana", "ana", "Ana", "Ana", false);
        caso("as maiusculas dos dois lados", "ana", "ana", "Ana", "ANA", "Ana", true);
        caso("o editor mostra cortado e ninguem mexe", "abc", "ab", "ab", "abc", "abc", false);
        caso("o editor mostra cortado e la mudou", "abc", "ab", "ab", "xyz", "xyz", false);
        caso("o editor mostra cortado e aqui mudou", "abc", "ab", "b", "abc", "b", false);
        caso("o editor mostra cortado e ambos mudaram", "abc", "ab", "b", "xyz", "b", true);
    }
    void o_que_se_encontra_num_campo()
    {
        QFETCH(QString, antes);
        QFETCH(QString, mostrada);
        QFETCH(QString, aqui);
        QFETCH(QString, la);
        QFETCH(QString, junta);
        QFETCH(bool, disputada);
        const EncontroDeLinhas encontro({{0}}, {antes}, {mostrada});
        QCOMPARE(encontro.Disputados({aqui}, {la}), disputada ? Lugares{0} : Lugares());
        QCOMPARE(encontro.Juntas({aqui}, {la}), QStringList{junta});
        QCOMPARE(encontro.Juntas({aqui}, {la}, {0}), QStringList{disputada ? la : junta});
        QCOMPARE(encontro.Mudou_Aqui({aqui}), aqui != mostrada);
        QCOMPARE(encontro.Mudou_La({la}), la != antes);
    }

    void cada_lado_muda_o_seu_campo_e_os_dois_ficam()
    {
        const EncontroDeLinhas encontro(nome_e_data, Linha("Ana|1|2|1980"), Linha("Ana|1|2|1980"));
        const QStringList aqui = Linha("Ana Sousa|1|2|1980");
        const QStringList la = Linha("Ana|1|2|1981");
        QCOMPARE(encontro.Disputados(aqui, la), Lugares());
        QCOMPARE(encontro.Juntas(aqui, la), Linha("Ana Sousa|1|2|1981"));
    }

    // Joined by columns they would make a 31st of February.
    void colunas_de_um_campo_nao_se_misturam()
    {
        const EncontroDeLinhas encontro(nome_e_data, Linha("Ana|30|1|1980"), Linha("Ana|30|1|1980"));
        const QStringList aqui = Linha("Ana|31|1|1980");
        const QStringList la = Linha("Ana|28|2|1980");
        QCOMPARE(encontro.Disputados(aqui, la), Lugares{1});
        QCOMPARE(encontro.Juntas(aqui, la), Linha("Ana|31|1|1980"));
        QCOMPARE(encontro.Juntas(aqui, la, {1}), Linha("Ana|28|2|1980"));
    }

    void colunas_diferentes_de_um_so_campo_sao_disputa()
    {
        const EncontroDeLinhas encontro(nome_e_data, Linha("Ana|30|1|1980"), Linha("Ana|30|1|1980"));
        QCOMPARE(encontro.Disputados(Linha("Ana|31|1|1980"), Linha("Ana|30|2|1980")), Lugares{1});
    }

    void de_varios_disputados_cada_um_fica_como_foi_escolhido()
    {
        const EncontroDeLinhas encontro({{0}, {1}, {2}, {3}}, Linha("a|b|c|d"), Linha("a|b|c|d"));
        const QStringList aqui = Linha("A|B|c|DD");
        const QStringList la = Linha("1|2|3|d");
        QCOMPARE(encontro.Disputados(aqui, la), (Lugares{0, 1}));
        QCOMPARE(encontro.Juntas(aqui, la, {1}), Linha("A|2|3|DD"));
        QCOMPARE(encontro.Juntas(aqui, la, {0, 1}), Linha("1|2|3|DD"));
    }

    void o_que_nao_esta_em_disputa_nao_se_deixa_ao_outro()
    {
        const EncontroDeLinhas encontro({{0}, {1}}, Linha("a|b"), Linha("a|b"));
        QCOMPARE(encontro.Juntas(Linha("A|b"), Linha("a|2"), {0, 1}), Linha("A|2"));
    }
};

MORVEX_TESTE(TestEncontroDeLinhas)
#include "test_EncontroDeLinhas.moc"
