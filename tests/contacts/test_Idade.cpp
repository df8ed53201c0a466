// The age on the card: years counted from the first birthday, days of the month compared as texts.
#include "contacts/Idade.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

class TestIdade : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void os_anos_contam_se_assim_data()
    {
        QTest::addColumn<QString>("nascimento"); // day-month-year
        QTest::addColumn<QDate>("hoje");
        QTest::addColumn<int>("idade");
        const auto caso = [](const char *nome, const QString &nascimento, QDate hoje, int idade) {
            QTest::newRow(nome) << nascimento << hoje << idade;
        };
        caso("um dia depois do aniversario conta o ano", u"15-6-1980"_s, {2027, 6, 16}, 47);
        caso("no proprio dia conta o ano", u"15-6-1980"_s, {2027, 6, 15}, 47);
        caso("na vespera ainda nao", u"15-6-1980"_s, {2027, 6, 14}, 46);
        caso("mes anterior ainda nao", u"15-6-1980"_s, {2027, 5, 31}, 46);
        caso("mes seguinte ja conta", u"15-6-1980"_s, {2027, 7, 1}, 47);
        caso("mes de um algarismo contra um de dois", u"1-9-1980"_s, {2027, 10, 1}, 47);
        caso("mes de dois algarismos contra um de um", u"1-10-1980"_s, {2027, 9, 30}, 46);
        caso("nascido este ano com o aniversario por vir", u"20-12-2027"_s, {2027, 6, 16}, -1);
        caso("nascido este ano com o aniversario passado", u"1-6-2027"_s, {2027, 6, 16}, 0);
        caso("dia 9 conta como depois do dia 12", u"12-6-1980"_s, {2027, 6, 9}, 47);
        caso("dia 12 conta como antes do dia 9", u"9-6-1980"_s, {2027, 6, 12}, 46);
        caso("dia 2 conta como depois do dia 11", u"11-6-1980"_s, {2027, 6, 2}, 47);
        caso("zeros a esquerda nao contam", u"09-06-1980"_s, {2027, 6, 12}, 46);
        caso("29 de Fevereiro antes de ano bissexto", u"29-2-2003"_s, {2027, 3, 1}, 24);
    }
    void os_anos_contam_se_assim()
    {
        QFETCH(QString, nascimento);
        QFETCH(QDate, hoje);
        const QStringList partes = nascimento.split(u'-');
        QTEST(Calcular_Idade(partes[0], partes[1], partes[2], hoje), "idade");
    }

    void uma_data_que_nao_existe_e_falha_data()
    {
        QTest::addColumn<QString>("Dia");
        QTest::addColumn<QString>("Mes");
        QTest::addColumn<QString>("Ano");
        const auto caso = [](const char *nome, const QString &Dia, const QString &Mes, const QString &Ano) {
            QTest::newRow(nome) << Dia << Mes << Ano;
        };
        caso("29 de Fevereiro antes de ano comum", u"29"_s, u"2"_s, u"1980"_s);
        caso("31 de Abril", u"31"_s, u"4"_s, u"1980"_s);
        caso("ano sem dia", u""_s, u"4"_s, u"1980"_s);
        caso("ano sem mes", u"1"_s, u""_s, u"1980"_s);
        caso("mes 13", u"1"_s, u"13"_s, u"1980"_s);
        caso("dia em letras", u"um"_s, u"4"_s, u"1980"_s);
        caso("mes em letras", u"1"_s, u"Abril"_s, u"1980"_s);
        caso("ano em letras", u"1"_s, u"4"_s, u"mil"_s);
    }
    void uma_data_que_nao_existe_e_falha()
    {
        QFETCH(QString, Dia);
        QFETCH(QString, Mes);
        QFETCH(QString, Ano);
        VERIFICAR_FALHA(Calcular_Idade(Dia, Mes, Ano, {2027, 2, 1}), Failure::TypeMismatch);
        QCOMPARE(teste::Falha_Dita([&] { Calcular_Idade(Dia, Mes, Ano, {2027, 2, 1}); }),
                 (QStringList{u"Idade"_s, u"%1-%2-%3 has no first birthday"_s.arg(Dia, Mes, Ano)}));
    }
};

MORVEX_TESTE(TestIdade)
#include "test_Idade.moc"
