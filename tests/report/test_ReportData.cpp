// The snapshot of a report's records: what is read, in which order, and what is refused.
#include "report/ReportData.h"
#include "store/Connection.h"
#include "store/NewDatabase.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestReportData : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;
    QString base_;
    ReportDefinition definition_;

    QStringList Nomes(const QString &selection, const QStringList &sort = {u"+{T.Nome}"_s}) const
    {
        const ReportData data(definition_, base_, selection, sort);
        QStringList nomes;
        for (std::size_t i = 0; i < data.size(); ++i)
            nomes << data.field(i, 0);
        return nomes;
    }

    // What is said of what there is not; nothing where all is there.
    QString Dito(const ReportDefinition &definition, const QStringList &sort = {}) const
    {
        try {
            ReportData(definition, base_, {}, sort);
        } catch (const Failure &failure) {
            return failure.number() == Failure::ItemNotFound
                       ? failure.source() + u": "_s + failure.description()
                       : QString::number(failure.number());
        }
        return {};
    }

private Q_SLOTS:
    void initTestCase()
    {
        base_ = folder_.filePath(u"base.mdb"_s);
        createDatabase(
            base_,
            {u"CREATE TABLE T (ID INTEGER PRIMARY KEY, Nome TEXT COLLATE MORVEX, Grupo INTEGER, \"O'Neill\" TEXT) STRICT"_s,
             u"CREATE TABLE G (ID INTEGER PRIMARY KEY, Nome TEXT COLLATE MORVEX) STRICT"_s,
             u"INSERT INTO G VALUES (1, 'Amigos'), (2, 'Firma'), (3, 'D''Artagnan')"_s,
             u"INSERT INTO T VALUES (1, 'Zita', 1, NULL), (2, 'Álvaro', 2, 'x'), (3, 'ana', 1, ''), (4, 'Ana', 9, '')"_s});
        definition_.table = u"T"_s;
        definition_.lookups = {{u"G"_s, u"ID"_s, u"Grupo"_s, {}}};
        definition_.fields = {
            {u"T"_s, u"Nome"_s}, {u"T"_s, u"Grupo"_s}, {u"G"_s, u"Nome"_s}, {u"T"_s, u"O'Neill"_s}};
    }

    void sem_seleccao_vao_todos_por_ordem_do_nome()
    {
        QCOMPARE(Nomes({}), (QStringList{u"Álvaro"_s, u"ana"_s, u"Ana"_s, u"Zita"_s}));
    }
    void por_ordem_inversa_e_por_dois_campos()
    {
        QCOMPARE(Nomes({}, {u"-{T.Nome}"_s}), (QStringList{u"Zita"_s, u"ana"_s, u"Ana"_s, u"Álvaro"_s}));
        QCOMPARE(Nomes({}, {u"+{T.Grupo}"_s, u"-{T.ID}"_s}),
                 (QStringList{u"ana"_s, u"Zita"_s, u"Álvaro"_s, u"Ana"_s}));
    }
    void a_seleccao_escolhe_os_registos_data()
    {
        QTest::addColumn<QString>("selection");
        QTest::addColumn<QStringList>("names");
        const auto caso = [](const char *nome, const QString &selection, const QStringList &names) {
            QTest::newRow(nome) << selection << names;
        };
        caso("um grupo", u"{T.Grupo}=1"_s, {u"ana"_s, u"Zita"_s});
        caso("um contacto", u"{T.ID} =2"_s, {u"Álvaro"_s});
        caso("ninguem", u"{T.ID} =123"_s, {});
        caso("maiusculas nao contam", u"{T.Nome}='ANA'"_s, {u"ana"_s, u"Ana"_s});
        caso("acentos contam", u"{T.Nome}='Alvaro'"_s, {});
        caso("numero entre plicas", u"{T.Grupo}='2'"_s, {u"Álvaro"_s});
        caso("campo consultado", u"{G.Nome}='firma'"_s, {u"Álvaro"_s});
        caso("e, ou, nao", u"not ({T.Grupo}=1 or {T.Grupo}=2) and {T.ID}>0"_s, {u"Ana"_s});
        caso("nome do campo em maiusculas", u"{t.GRUPO}=2"_s, {u"Álvaro"_s});
        caso("campo com plica", u"{T.O'Neill}='x'"_s, {u"Álvaro"_s});
        caso("texto que parece comando", u"{T.Nome}='x'' OR 1=1 --'"_s, {});
    }
    void a_seleccao_escolhe_os_registos()
    {
        QFETCH(QString, selection);
        QTEST(Nomes(selection), "names");
    }
    void uma_consulta_que_nada_encontra_e_texto_vazio()
    {
        const ReportData data(definition_, base_, u"{T.ID}=4"_s, {});
        QCOMPARE(data.field(0, 1), u"9"_s);
        QCOMPARE(data.field(0, 2), QString());
    }
    void nulo_e_texto_vazio()
    {
        const ReportData data(definition_, base_, u"{T.ID}=1"_s, {});
        QCOMPARE(data.field(0, 3), QString());
    }
    void uma_consulta_por_valor_fixo()
    {
        ReportDefinition fixa = definition_;
        fixa.lookups = {{u"G"_s, u"Nome"_s, {}, u"FIRMA"_s}};
        fixa.fields = {{u"G"_s, u"ID"_s}};
        const ReportData data(fixa, base_, {}, {});
        QCOMPARE(data.size(), 4U);
        QCOMPARE(data.field(3, 0), u"2"_s);
    }
    void um_valor_fixo_com_plica_nao_parte_o_comando()
    {
        ReportDefinition fixa = definition_;
        fixa.lookups = {{u"G"_s, u"Nome"_s, {}, u"' OR '1'='1"_s}};
        fixa.fields = {{u"G"_s, u"ID"_s}};
        QCOMPARE(ReportData(fixa, base_, {}, {}).field(0, 0), QString());
    }
    void um_valor_fixo_com_plica_acha_o_seu_registo()
    {
        ReportDefinition fixa = definition_;
        fixa.lookups = {{u"G"_s, u"Nome"_s, {}, u"D'Artagnan"_s}};
        fixa.fields = {{u"G"_s, u"ID"_s}};
        QCOMPARE(ReportData(fixa, base_, {}, {}).field(0, 0), u"3"_s);
    }
    void um_relatorio_sem_campos_tem_os_seus_registos()
    {
        ReportDefinition so_texto = definition_;
        so_texto.fields.clear();
        QCOMPARE(ReportData(so_texto, base_, {}, {}).size(), 4U);
        QCOMPARE(ReportData(so_texto, base_, u"{T.ID}=99"_s, {}).size(), 0U);
    }
    void nada_e_escrito_nem_fica_trancado()
    {
        QFile file(base_);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray antes = file.readAll();
        file.close();
        const ReportData data(definition_, base_, {}, {});
        Connection other;
        other.setConnectionString(u"Data Source='%1'"_s.arg(base_));
        other.Open();
        other.execute(u"BEGIN EXCLUSIVE"_s, {});
        other.execute(u"ROLLBACK"_s, {});
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), antes);
    }

    void o_que_nao_existe_e_recusado()
    {
        ReportDefinition outra = definition_;
        outra.fields = {{u"T"_s, u"Pass"_s}};
        QCOMPARE(Dito(outra), u"ReportData: The database has no field T.Pass"_s);
        outra = definition_;
        outra.table = u"Nada"_s;
        QCOMPARE(Dito(outra), u"ReportData: The database has no table Nada"_s);
        outra = definition_;
        const QString tabela = outra.lookups[0].table;
        outra.lookups[0].key = u"ID) --"_s;
        QCOMPARE(Dito(outra),
                 u"ReportData: The look-up of %1 names a field that isn't there: ID) --"_s.arg(tabela));
        outra = definition_;
        outra.lookups[0].field = u"Nada"_s;
        QCOMPARE(Dito(outra),
                 u"ReportData: The look-up of %1 names a field that isn't there: Nada"_s.arg(tabela));
    }
    void uma_ordem_errada_e_recusada_data()
    {
        QTest::addColumn<QString>("sort");
        for (const char *sort : {"{T.Nome}", "+T.Nome", "+{T.Pass}", "+{T.Nome", "+{T.Nomes", "x{T.Nome}",
                                 "+{T.Nome} DESC, (SELECT 1)", "+", "+{}"})
            QTest::newRow(sort) << QString::fromLatin1(sort);
    }
    void uma_ordem_errada_e_recusada()
    {
        QFETCH(QString, sort);
        QCOMPARE(Dito(definition_, {sort}), u"ReportData: There is no such field to sort by: "_s + sort);
    }
    void um_campo_de_outra_tabela_na_seleccao_e_recusado()
    {
        VERIFICAR_FALHA(Nomes(u"{sqlite_master.name}='T'"_s), Failure::InvalidPropertyValue);
    }
    void uma_base_que_falta_e_recusada()
    {
        VERIFICAR_FALHA(ReportData(definition_, folder_.filePath(u"nada.mdb"_s), {}, {}),
                        Failure::StoreError);
    }
};

MORVEX_TESTE(TestReportData)
#include "test_ReportData.moc"
