// Texts with places: what stands in each of them, and which fields and parameters a text names.
#include "report/ReportText.h"
#include "testlib/FalhaDita.h"
#include "testlib/Teste.h"

#include <QHash>

using namespace Qt::StringLiterals;

class TestReportText : public QObject
{
    Q_OBJECT

    const QStringList colunas_{u"Nome"_s, u"Dia"_s, u"Hora"_s, u"Vazio"_s, u"V"_s};

    ReportText Texto(const QString &escrito) const
    {
        return {escrito, [this](const ReportField &campo) {
                    if (campo.table != "T"_L1 || !colunas_.contains(campo.column))
                        qFatal("there is no %s", qPrintable(campo.column));
                    return static_cast<std::size_t>(colunas_.indexOf(campo.column));
                }};
    }
    // What the text shows of a record whose last field has that value.
    QString Mostrado(const QString &escrito, const QString &valor = {}) const
    {
        const QStringList registo{u"Ana"_s, u"2027-12-31"_s, u"09:05:00"_s, u" "_s, valor};
        const QHash<QString, QString> parametros{{u"p"_s, u"Tel"_s}, {u"mes05"_s, u"Maio"_s}, {u"vazio"_s, {}}};
        return Texto(escrito).in({.field = [&](std::size_t campo) { return registo[static_cast<qsizetype>(campo)]; },
                                  .parameter = [&](const QString &nome) -> const QString * {
                                      const auto achado = parametros.constFind(nome);
                                      return achado == parametros.constEnd() ? nullptr : &*achado;
                                  },
                                  .page = u"3"_s,
                                  .pages = u"7"_s,
                                  .date = u"01-02-2027"_s,
                                  .pageOfPages = u"3 de 7"_s,
                                  .today = u"1 de Fevereiro"_s});
    }

private Q_SLOTS:
    void cada_lugar_mostra_o_seu_data()
    {
        QTest::addColumn<QString>("escrito");
        QTest::addColumn<QString>("mostrado");
        const auto caso = [](const char *escrito, const QString &mostrado) {
            QTest::newRow(escrito) << QString::fromLatin1(escrito) << mostrado;
        };
        caso("", {});
        caso("sem lugares", u"sem lugares"_s);
        caso("{{x}}", u"{x}"_s);
        caso("a{{", u"a{"_s);
        caso("}}b", u"}b"_s);
        caso("aabb{{{{", u"aabb{{"_s);
        caso("{T.Nome}", u"Ana"_s);
        caso("{{{T.Nome}}}", u"{Ana}"_s);
        caso("a{T.Nome}b{T.Nome}c", u"aAnabAnac"_s);
        caso("{T.Nome}{T.Dia}", u"Ana2027-12-31"_s);
        caso("{T.Dia:date}", u"31-12-2027"_s);
        caso("{T.Hora:time}", u"09:05"_s);
        caso("{T.Nome:date}{T.Nome:time}{T.Nome:00}", u"AnaAnaAna"_s); // neither a day nor an hour nor a number
        caso("{T.Vazio|Nome}", u"Ana"_s);
        caso("{T.Vazio|V|Nome}", u"Ana"_s);
        caso("{T.Nome|Dia}", u"Ana"_s);
        caso("{T.Vazio|Dia:date}", u"31-12-2027"_s);
        caso("{?p}", u"Tel"_s);
        caso("{?p}: {T.Nome}", u"Tel: Ana"_s);
        caso("[{?falta}{?vazio}]", u"[]"_s);
        caso("{page}/{pages}", u"3/7"_s);
        caso("{date}, {today}: {pageofpages}", u"01-02-2027, 1 de Fevereiro: 3 de 7"_s);
    }
    void cada_lugar_mostra_o_seu()
    {
        QFETCH(const QString, escrito);
        QTEST(Mostrado(escrito), "mostrado");
    }

    void um_algarismo_de_um_dia_ou_de_um_mes_mostra_se_com_zero_data()
    {
        QTest::addColumn<QString>("mostrado");
        for (const char algarismo : {'1', '5', '9'})
            QTest::newRow(QByteArray(1, algarismo).constData()) << u'0' + QString(QLatin1Char(algarismo));
        for (const char *valor : {"0", "10", "05", "a", ":", "/", "", "1a"})
            QTest::newRow(valor) << QString::fromLatin1(valor);
    }
    void um_algarismo_de_um_dia_ou_de_um_mes_mostra_se_com_zero()
    {
        QTEST(Mostrado(u"{T.V:00}"_s, QString::fromLatin1(QTest::currentDataTag())), "mostrado");
    }

    // By the field's value behind the beginning of its name; where there is none of that name, the value itself.
    void um_parametro_pode_ter_o_nome_num_campo_data()
    {
        QTest::addColumn<QString>("escrito");
        QTest::addColumn<QString>("mostrado");
        QTest::newRow("05") << u"{?mes{T.V}}"_s << u"Maio"_s;
        QTest::newRow("5") << u"em {?mes{T.V:00}}!"_s << u"em Maio!"_s;
        QTest::newRow("5 as it stands") << u"{?mes{T.V}}"_s << u"5 as it stands"_s;
        QTest::newRow("6") << u"{?mes{T.V:00}}"_s << u"6"_s;
        QTest::newRow("p") << u"{?{T.V}}"_s << u"Tel"_s;
    }
    void um_parametro_pode_ter_o_nome_num_campo()
    {
        QFETCH(const QString, escrito);
        QTEST(Mostrado(escrito, QString::fromLatin1(QTest::currentDataTag())), "mostrado");
    }

    void um_texto_diz_que_campos_e_que_parametros_tem()
    {
        const ReportText texto = Texto(u"{?p} {T.V|Nome} {?mes{T.Dia}} {?q}{page}"_s);
        QCOMPARE(texto.fields(), (std::vector<std::size_t>{4, 0, 1}));
        QVERIFY(texto.hasFields() && !texto.isEmpty());
        QCOMPARE(texto.parameters(), (QStringList{u"p"_s, u"q"_s}));
        QVERIFY(!Texto(u"{?p}"_s).hasFields() && Texto({}).isEmpty() && ReportText().isEmpty());
    }

    void o_que_esta_mal_escrito_e_dito_data()
    {
        QTest::addColumn<QString>("dito");
        QTest::newRow("a {T.V") << u"A brace is not closed: {T.V"_s;
        QTest::newRow("a {?m{T.V}") << u"A brace is not closed: {?m{T.V}"_s;
        QTest::newRow("a } b") << u"A brace is closed that was never opened: a } b"_s;
        QTest::newRow("{time}") << u"{time} is no place that a text may hold"_s;
        QTest::newRow("{.V}") << u"{.V} is no place that a text may hold"_s;
        QTest::newRow("{T.}") << u"{T.} is no place that a text may hold"_s;
        QTest::newRow("{T.V:euro}") << u"Fields are shown as date, time or 00, not as euro"_s;
        QTest::newRow("{?m{T.V}x}") << u"Nothing may follow the field in {?m{T.V}x}"_s;
    }
    void o_que_esta_mal_escrito_e_dito()
    {
        QFETCH(const QString, dito);
        QCOMPARE(teste::Falha_Dita([this] { Texto(QString::fromLatin1(QTest::currentDataTag())); }),
                 (QStringList{u"Report"_s, dito}));
    }
};

MORVEX_TESTE(TestReportText)
#include "test_ReportText.moc"
