// Selection formulas: what they become in the store, and where the wrong ones are wrong.
#include "report/SelectionFormula.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestSelectionFormula : public QObject
{
    Q_OBJECT

    static QString Coluna(const QString &table, const QString &column)
    {
        const bool conhecida = table == "T"_L1 && (column == "Nome"_L1 || column == "Grupo"_L1);
        return conhecida ? column : QString();
    }
    static QString Como_Texto(const StoreValue &value)
    {
        if (const auto *number = std::get_if<qint64>(&value)) return QString::number(*number);
        if (const auto *number = std::get_if<double>(&value)) return u"real "_s + QString::number(*number);
        return u'"' + std::get<QString>(value) + u'"';
    }

private Q_SLOTS:
    void formulas_certas_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QStringList>("values");
        const auto caso = [](const char *nome, const QString &formula, const QString &sql,
                             const QStringList &values) { QTest::newRow(nome) << formula << sql << values; };
        caso("vazia", u""_s, u""_s, {});
        caso("so espacos", u" \t\r\n "_s, u""_s, {});
        caso("igual sem espaco", u"{T.Grupo}=6"_s, u"(Grupo=?)"_s, {u"6"_s});
        caso("igual com espaco a frente", u"{T.Grupo} =123"_s, u"(Grupo=?)"_s, {u"123"_s});
        caso("igual com espaco atras", u"{T.Grupo}= 123"_s, u"(Grupo=?)"_s, {u"123"_s});
        caso("zero", u"{T.Grupo}=0"_s, u"(Grupo=?)"_s, {u"0"_s});
        caso("com zeros no fim", u"{T.Grupo}=9100"_s, u"(Grupo=?)"_s, {u"9100"_s});
        caso("diferente", u"{T.Grupo}<>6"_s, u"(Grupo<>?)"_s, {u"6"_s});
        caso("menor", u"{T.Grupo}<6"_s, u"(Grupo<?)"_s, {u"6"_s});
        caso("menor ou igual", u"{T.Grupo}<=6"_s, u"(Grupo<=?)"_s, {u"6"_s});
        caso("maior", u"{T.Grupo}>6"_s, u"(Grupo>?)"_s, {u"6"_s});
        caso("maior ou igual", u"{T.Grupo}>=6"_s, u"(Grupo>=?)"_s, {u"6"_s});
        caso("negativo", u"{T.Grupo}=-7"_s, u"(Grupo=?)"_s, {u"-7"_s});
        caso("com casas decimais", u"{T.Grupo}=8.25"_s, u"(Grupo=?)"_s, {u"real 8.25"_s});
        caso("maior do que 64 bits", u"{T.Grupo}=99999999999999999999"_s, u"(Grupo=?)"_s, {u"real 1e+20"_s});
        caso("plicas", u"{T.Nome}='Ana'"_s, u"(Nome=?)"_s, {u"\"Ana\""_s});
        caso("aspas", u"{T.Nome}=\"Ana\""_s, u"(Nome=?)"_s, {u"\"Ana\""_s});
        caso("plica dobrada", u"{T.Nome}='O''Neill'"_s, u"(Nome=?)"_s, {u"\"O'Neill\""_s});
        caso("texto vazio", u"{T.Nome}=''"_s, u"(Nome=?)"_s, {u"\"\""_s});
        caso("chaveta dentro do texto", u"{T.Nome}='{T.Grupo}'"_s, u"(Nome=?)"_s, {u"\"{T.Grupo}\""_s});
        caso("palavra dentro do texto", u"{T.Nome}='a or b'"_s, u"(Nome=?)"_s, {u"\"a or b\""_s});
        caso("e", u"{T.Grupo}=1 and {T.Nome}='x'"_s, u"(Grupo=?) AND (Nome=?)"_s, {u"1"_s, u"\"x\""_s});
        caso("ou em maiusculas", u"{T.Grupo}=1 OR {T.Grupo}=2"_s, u"(Grupo=?) OR (Grupo=?)"_s,
             {u"1"_s, u"2"_s});
        caso("nao", u"not {T.Grupo}=1"_s, u"NOT (Grupo=?)"_s, {u"1"_s});
        caso("parenteses", u"({T.Grupo}=1 or {T.Grupo}=2) and not({T.Nome}='x')"_s,
             u"((Grupo=?) OR (Grupo=?)) AND NOT ((Nome=?))"_s, {u"1"_s, u"2"_s, u"\"x\""_s});
        caso("texto que parece comando", u"{T.Nome}='''; DROP TABLE T; --'"_s, u"(Nome=?)"_s,
             {u"\"'; DROP TABLE T; --\""_s});
    }
    void formulas_certas()
    {
        QFETCH(QString, formula);
        const SelectionCondition condition = compileSelection(formula, Coluna);
        QTEST(condition.sql, "sql");
        QStringList values;
        for (const StoreValue &value : condition.values)
            values << Como_Texto(value);
        QTEST(values, "values");
    }

    void o_que_esta_errado_e_dito_por_palavras_data()
    {
        QTest::addColumn<QString>("what");
        QTest::newRow("{T.Grupo}=6)") << u"12: the end or \"and\" or \"or\" was expected"_s;
        QTest::newRow("{T.Grupo}=6 andx {T.Grupo}=7") << u"13: the end or \"and\" or \"or\" was expected"_s;
        QTest::newRow("notx {T.Grupo}=7") << u"1: a field in braces was expected"_s;
        QTest::newRow("({T.Grupo}=6") << u"13: \")\" was expected"_s;
        QTest::newRow("T.Grupo=6") << u"1: a field in braces was expected"_s;
        QTest::newRow("{T.Grupo=6") << u"1: the brace is not closed"_s;
        QTest::newRow("{Grupo}=6") << u"1: a field is written {Table.Field}"_s;
        QTest::newRow("{.Grupo}=6") << u"1: there is no field .Grupo"_s;
        QTest::newRow("{T.Pass}=6") << u"1: there is no field T.Pass"_s;
        QTest::newRow("{T.Grupo} 6") << u"11: one of = <> < <= > >= was expected"_s;
        QTest::newRow("{T.Nome}='Ana") << u"10: the quoted text is not closed"_s;
        QTest::newRow("{T.Grupo}=-") << u"11: a number or a quoted text was expected"_s;
        QTest::newRow("{T.Grupo}=6a") << u"11: this is no number"_s;
        QTest::newRow("{T.Grupo}=6_") << u"11: this is no number"_s;
    }
    void o_que_esta_errado_e_dito_por_palavras()
    {
        QFETCH(QString, what);
        try {
            compileSelection(QString::fromLatin1(QTest::currentDataTag()), Coluna);
            QFAIL("the formula was taken");
        } catch (const Failure &failure) {
            QCOMPARE(failure.source(), u"SelectionFormula"_s);
            QCOMPARE(failure.description(), u"The selection formula is wrong at position "_s + what);
        }
    }
    void cem_parenteses_ainda_se_leem_e_mais_um_nao()
    {
        const auto dentro_de = [](int quantos) {
            return QString(quantos, u'(') + u"{T.Grupo}=6"_s + QString(quantos, u')');
        };
        QVERIFY(!compileSelection(dentro_de(99), Coluna).sql.isEmpty());
        try {
            compileSelection(dentro_de(100), Coluna);
            QFAIL("the formula was taken");
        } catch (const Failure &failure) {
            QCOMPARE(failure.description(),
                     u"The selection formula is wrong at position 101: too much within one another"_s);
        }
    }

    void muitas_condicoes_umas_atras_das_outras_nao_sao_umas_dentro_das_outras()
    {
        const QStringList condicoes(150, u"{T.Grupo}=6"_s);
        QCOMPARE(compileSelection(condicoes.join(u" and "_s), Coluna).values.size(), 150U);
    }

    void formulas_erradas_data()
    {
        QTest::addColumn<QString>("formula");
        QTest::addColumn<int>("position");
        const auto caso = [](const char *nome, const QString &formula, int position) {
            QTest::newRow(nome) << formula << position;
        };
        caso("sem valor", u"{T.Grupo}="_s, 11);
        caso("sem operador", u"{T.Grupo} 6"_s, 11);
        caso("sem chavetas", u"T.Grupo=6"_s, 1);
        caso("chaveta por fechar", u"{T.Grupo=6"_s, 1);
        caso("sem ponto", u"{Grupo}=6"_s, 1);
        caso("coluna desconhecida", u"{T.Pass}=6"_s, 1);
        caso("tabela desconhecida", u"{sqlite_master.sql}=6"_s, 1);
        caso("comando na chaveta", u"{T.Grupo\"=1 OR 1=1 --}=6"_s, 1);
        caso("comando atras", u"{T.Grupo}=6; DROP TABLE T"_s, 12);
        caso("comentario atras", u"{T.Grupo}=6 --"_s, 13);
        caso("subconsulta", u"{T.Grupo}=(SELECT 1)"_s, 11);
        caso("funcao", u"{T.Grupo}=abs(1)"_s, 11);
        caso("campo a direita", u"{T.Grupo}={T.Grupo}"_s, 11);
        caso("texto por fechar", u"{T.Nome}='Ana"_s, 10);
        caso("texto por fechar com plica dobrada", u"{T.Nome}='Ana''"_s, 10);
        caso("parentese por fechar", u"({T.Grupo}=6"_s, 13);
        caso("parentese a mais", u"{T.Grupo}=6)"_s, 12);
        caso("parenteses vazios", u"()"_s, 2);
        caso("e sem segundo termo", u"{T.Grupo}=6 and "_s, 17);
        caso("palavra colada", u"{T.Grupo}=6 andx {T.Grupo}=7"_s, 13);
        caso("letras no numero", u"{T.Grupo}=6a"_s, 11);
        caso("dois pontos decimais", u"{T.Grupo}=1.2.3"_s, 11);
        caso("so o sinal", u"{T.Grupo}=-"_s, 11);
        caso("operador desconhecido", u"{T.Grupo}=!6"_s, 11);
        caso("algarismos de outra escrita", u"{T.Grupo}=\u0661"_s, 11);
        caso("zero no meio", u"{T.Grupo}=6"_s + QChar(0) + u"or"_s, 12);
        caso("cem mil parenteses", QString(100'000, u'('), 101);
        caso("cem mil negacoes", u"not "_s.repeated(100'000), 401);
    }
    void formulas_erradas()
    {
        QFETCH(QString, formula);
        QFETCH(int, position);
        try {
            compileSelection(formula, Coluna);
            QFAIL("the formula was taken");
        } catch (const Failure &failure) {
            QCOMPARE(failure.number(), int{Failure::InvalidPropertyValue});
            QVERIFY2(failure.description().contains(u"position %1:"_s.arg(position)),
                     qPrintable(failure.description()));
        }
    }
};

MORVEX_TESTE(TestSelectionFormula)
#include "test_SelectionFormula.moc"
