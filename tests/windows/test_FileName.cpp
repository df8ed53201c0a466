// The store's files on paths as Windows has them.
#include "store/Connection.h"
#include "store/NewDatabase.h"
#include "store/sqlite/FileName.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestFileName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void a_path_is_told_as_it_stands_only_where_it_is_long_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("name");
        const QString long_(250, u'a');
        QTest::newRow("short") << u"C:/dados/morvex.mdb"_s << u"C:/dados/morvex.mdb"_s;
        QTest::newRow("long") << u"C:/"_s + long_ + u"/m.mdb"_s << u"\\\\?\\C:\\"_s + long_ + u"\\m.mdb"_s;
        QTest::newRow("share") << u"//servidor/pasta/"_s + long_
                               << u"\\\\?\\UNC\\servidor\\pasta\\"_s + long_;
        QTest::newRow("marked") << u"\\\\?\\C:\\"_s + long_ << u"\\\\?\\C:\\"_s + long_;
    }
    void a_path_is_told_as_it_stands_only_where_it_is_long()
    {
        QFETCH(QString, path);
        QFETCH(QString, name);
        QCOMPARE(QString::fromStdString(storeFileName(path)), name);
    }

    void a_database_lies_deep_and_in_any_alphabet()
    {
        const QTemporaryDir folder;
        QString deep = folder.path();
        while (deep.size() < 300)
            deep += u"/uma pasta Łódź 日本"_s;
        QVERIFY(QDir().mkpath(deep));
        const QString path = deep + u"/agenda.mdb"_s;
        createDatabase(path, {u"CREATE TABLE t (a TEXT) STRICT"_s});
        Connection connection;
        connection.setDataSource(path);
        connection.Open();
        connection.execute(u"INSERT INTO t VALUES (?)"_s, {QString(u"João"_s)});
        QCOMPARE(connection.query(u"SELECT a FROM t"_s, {}).Fields("a").text(), u"João"_s);
    }
};

QTEST_GUILESS_MAIN(TestFileName)
#include "test_FileName.moc"
