// What a statement becomes for a server: text against text.
#include "store/postgres/PostgresDialect.h"

#include <QTest>

using namespace Qt::StringLiterals;

class test_PostgresDialect : public QObject
{
    Q_OBJECT

private:
    static void Rows()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("said");
    }
    static void Row(const char *name, const QString &sql, const QString &said)
    {
        QTest::newRow(name) << sql << said;
    }
    static void Check()
    {
        QFETCH(QString, sql);
        QFETCH(QString, said);
        QCOMPARE(postgres::said(sql), said);
    }

private Q_SLOTS:
    void what_both_understand_stays_as_it_is_data()
    {
        QTest::addColumn<QString>("sql");
        for (const char *sql :
             {"SELECT COUNT(ID) AS TotalEmails FROM TblEmails",
              "SELECT DISTINCT a FROM t GROUP BY a HAVING count(*) > 1", "SELECT t.* FROM t",
              "UPDATE t SET a = -1", "", "SELECT 'ORDER BY a LIKE ?' AS x",
              "INSERT INTO t (a) VALUES (1) ON CONFLICT (a) DO NOTHING",
              "SELECT \"a?\" FROM t -- ? LIKE 'x'"})
            QTest::newRow(sql) << QString::fromLatin1(sql);
    }
    void what_both_understand_stays_as_it_is()
    {
        QFETCH(QString, sql);
        QCOMPARE(postgres::said(sql), sql);
    }

    void delete_loses_its_star_data()
    {
        Rows();
        Row("star", u"DELETE * FROM TblLista WHERE ID=?"_s, u"DELETE FROM TblLista WHERE ID=$1"_s);
        Row("any case and blanks", u"  delete\n*  from t"_s, u"  delete\nfrom t"_s);
        Row("no blank behind it", u"DELETE *FROM t"_s, u"DELETE FROM t"_s);
        Row("none", u"DELETE FROM t"_s, u"DELETE FROM t"_s);
        Row("not behind it", u"DELETE * t"_s, u"DELETE * t"_s);
        Row("elsewhere", u"SELECT 2 * 3"_s, u"SELECT 2 * 3"_s);
    }
    void delete_loses_its_star() { Check(); }

    void values_are_numbered_outside_of_quotes_data()
    {
        Rows();
        Row("in order", u"VALUES (?, ?,?)"_s, u"VALUES ($1, $2,$3)"_s);
        Row("in a text", u"SELECT '?', ?, 'it''s ?', ?"_s, u"SELECT '?', $1, 'it''s ?', $2"_s);
        Row("in a name", u"SELECT \"a?\"\"b?\", ?"_s, u"SELECT \"a?\"\"b?\", $1"_s);
        Row("in a comment", u"SELECT ? /* ? */, ? -- ?\n, ?"_s, u"SELECT $1 /* ? */, $2 -- ?\n, $3"_s);
        Row("a line of comment", u"SELECT 1\n-- ?\n, ?"_s, u"SELECT 1\n-- ?\n, $1"_s);
        Row("empty comments", u"--\n?/**/?"_s, u"--\n$1/**/$2"_s);
        Row("ten", u"?,?,?,?,?,?,?,?,?,?"_s, u"$1,$2,$3,$4,$5,$6,$7,$8,$9,$10"_s);
    }
    void values_are_numbered_outside_of_quotes() { Check(); }

    void like_compares_folded_texts_data()
    {
        Rows();
        const QString folded =
            u"morvex_dobrar(%1::text) COLLATE \"C\" LIKE morvex_dobrar(%2::text) COLLATE \"C\" ESCAPE ''"_s;
        Row("column", u"SELECT 1 FROM t WHERE (Nome LIKE ?) AND b=?"_s,
            u"SELECT 1 FROM t WHERE ("_s + folded.arg(u"Nome"_s, u"$1"_s) + u") AND b=$2"_s);
        Row("of a table", u"WHERE t.Nome like ?"_s,
            u"WHERE "_s + folded.arg(u"t.Nome"_s, u"$1"_s).replace(u"LIKE"_s, u"like"_s));
        Row("two", u"WHERE a LIKE ? OR b LIKE ? ORDER BY a"_s,
            u"WHERE "_s + folded.arg(u"a"_s, u"$1"_s) + u" OR "_s + folded.arg(u"b"_s, u"$2"_s) +
                u" ORDER BY a NULLS FIRST"_s);
        Row("not", u"WHERE a NOT LIKE 'x%'"_s,
            u"WHERE "_s + folded.arg(u"a"_s, u"'x%'"_s).replace(u"LIKE"_s, u"NOT LIKE"_s));
        Row("brackets", u"WHERE (a || b) LIKE ?"_s, u"WHERE "_s + folded.arg(u"(a || b)"_s, u"$1"_s));
        Row("call", u"WHERE x AND coalesce(a, '') LIKE ?"_s,
            u"WHERE x AND "_s + folded.arg(u"coalesce(a, '')"_s, u"$1"_s));
        Row("quoted name", u"WHERE \"a\".\"b\" LIKE ?"_s,
            u"WHERE "_s + folded.arg(u"\"a\".\"b\""_s, u"$1"_s));
        for (const char *before : {"x AND", "x OR", "NOT", "SELECT", "a JOIN u ON", "CASE WHEN", "WHERE", "where"})
            Row(before, QLatin1String(before) + u" (a) LIKE ?"_s,
                QLatin1String(before) + u' ' + folded.arg(u"(a)"_s, u"$1"_s)); // no call of that name
        for (const char *left : {"a", "(a || b)", "coalesce(a, '')", "'x'", "a.b"}) // it need not stand behind anything
            Row(left, QLatin1String(left) + u" LIKE ?"_s, folded.arg(QLatin1String(left), u"$1"_s));
        Row("brackets behind a sign", u"SELECT 1, (a) LIKE ?"_s, u"SELECT 1, "_s + folded.arg(u"(a)"_s, u"$1"_s));
        Row("a quote within the text", u"WHERE a LIKE 'it''s'"_s, u"WHERE "_s + folded.arg(u"a"_s, u"'it''s'"_s));
        Row("what is no operand", u"WHERE a LIKE 1 + ?"_s, u"WHERE a LIKE 1 + $1"_s);
        Row("a number", u"WHERE 1 LIKE ?"_s, u"WHERE 1 LIKE $1"_s);
        Row("nothing before it", u"LIKE ?"_s, u"LIKE $1"_s);
        Row("a column before a word", u"? LIKE a OR b"_s, folded.arg(u"$1"_s, u"a"_s) + u" OR b"_s);
        Row("a name with a dollar", u"WHERE a$b LIKE ?"_s, u"WHERE "_s + folded.arg(u"a$b"_s, u"$1"_s));
        Row("quoted words", u"SELECT \"LIKE\" FROM t"_s, u"SELECT \"LIKE\" FROM t"_s);
        Row("value against column", u"WHERE ? LIKE a.b"_s, u"WHERE "_s + folded.arg(u"$1"_s, u"a.b"_s));
    }
    void like_compares_folded_texts() { Check(); }

    void null_is_the_smallest_in_each_order_data()
    {
        Rows();
        Row("key", u"SELECT a FROM t ORDER BY a"_s, u"SELECT a FROM t ORDER BY a NULLS FIRST"_s);
        Row("keys", u"ORDER BY a, t.b"_s, u"ORDER BY a NULLS FIRST, t.b NULLS FIRST"_s);
        Row("words", u"ORDER BY a ASC , b DESC"_s, u"ORDER BY a ASC NULLS FIRST , b DESC NULLS LAST"_s);
        Row("limit", u"order by a LIMIT ?"_s, u"order by a NULLS FIRST LIMIT $1"_s);
        Row("end", u"ORDER BY a;"_s, u"ORDER BY a NULLS FIRST;"_s);
        for (const char *rest : {" OFFSET 3", " FETCH FIRST ROW ONLY", " FOR UPDATE", " UNION SELECT 1", "; SELECT 2"})
            Row(rest, u"ORDER BY a"_s + QLatin1String(rest), u"ORDER BY a NULLS FIRST"_s + QLatin1String(rest));
        Row("a comment between", u"ORDER BY a -- LIMIT\n, b"_s, u"ORDER BY a NULLS FIRST -- LIMIT\n, b NULLS FIRST"_s);
        Row("calls", u"ORDER BY f(a, b), c"_s, u"ORDER BY f(a, b) NULLS FIRST, c NULLS FIRST"_s);
        Row("inside",
            u"SELECT (SELECT a FROM u ORDER BY a LIMIT 1), (SELECT b FROM u ORDER BY b) FROM t ORDER BY 1"_s,
            u"SELECT (SELECT a FROM u ORDER BY a NULLS FIRST LIMIT 1), (SELECT b FROM u ORDER BY b NULLS "
            u"FIRST) FROM t "
            "ORDER BY 1 NULLS FIRST"_s);
        Row("said already", u"ORDER BY a NULLS LAST, b NULLS FIRST"_s,
            u"ORDER BY a NULLS LAST, b NULLS FIRST"_s);
        Row("a column's name", u"SELECT ordem FROM t"_s, u"SELECT ordem FROM t"_s);
    }
    void null_is_the_smallest_in_each_order() { Check(); }

    void the_last_row_is_asked_of_the_session()
    {
        QCOMPARE(postgres::said(u"VALUES (last_insert_rowid(), ?)"_s), u"VALUES (coalesce(morvex_ultimo_id(), 0), $1)"_s);
        QCOMPARE(postgres::said(u"last_insert_rowid()"_s), u"coalesce(morvex_ultimo_id(), 0)"_s);
        QCOMPARE(postgres::said(u"SELECT 'last_insert_rowid()'"_s), u"SELECT 'last_insert_rowid()'"_s);
    }

    void the_order_of_bytes_has_its_name()
    {
        QCOMPARE(postgres::said(u"WHERE a COLLATE BINARY NOT IN (SELECT b FROM t)"_s),
                 u"WHERE a COLLATE \"C\" NOT IN (SELECT b FROM t)"_s);
        QCOMPARE(postgres::said(u"COLLATE BINARY"_s), u"COLLATE \"C\""_s);
        QCOMPARE(postgres::said(u"ORDER BY a COLLATE MORVEX"_s), u"ORDER BY a COLLATE MORVEX NULLS FIRST"_s);
    }

    void a_quote_that_is_not_closed_ends_with_the_statement()
    {
        QCOMPARE(postgres::said(u"SELECT 'a ?"_s), u"SELECT 'a ?"_s);
        QCOMPARE(postgres::said(u"SELECT ? /* ?"_s), u"SELECT $1 /* ?"_s);
    }

    void the_values_are_counted()
    {
        QCOMPARE(postgres::parameters(u"SELECT '?' , ? /* ? */ , ?"_s), 2);
        QCOMPARE(postgres::parameters(u"SELECT 1"_s), 0);
    }
};

QTEST_APPLESS_MAIN(test_PostgresDialect)
#include "test_PostgresDialect.moc"
