// The library that speaks with servers, which comes when it is asked for.
#include "platform/Failure.h"
#include "store/Connection.h"
#include "store/postgres/Libpq.h"
#include "store/postgres/PostgresAddress.h"
#include "testlib/Teste.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class TestLibpq : public QObject
{
    Q_OBJECT

    static bool Carregada()
    {
        QFile maps(u"/proc/self/maps"_s);
        return maps.open(QIODevice::ReadOnly) && maps.readAll().contains("/libpq.so");
    }

private Q_SLOTS:
    // The first: what was loaded stays.
    void a_file_does_not_bring_it_and_an_address_does()
    {
        const QTemporaryDir folder;
        Connection file;
        file.OpenInMemory(1 << 20);
        QVERIFY(!file.query(u"SELECT 1"_s, {}).Eof());
        QCOMPARE(PostgresAddress::shown(folder.filePath(u"a.mdb"_s)), u"postgresql://…"_s);
        QVERIFY(!Carregada());
        QCOMPARE(PostgresAddress::shown(u"postgresql://a@b/c"_s), u"postgresql://a@b/c"_s);
        QVERIFY(Carregada());
    }
    void a_function_that_it_lacks_is_told_by_its_kind()
    {
        try {
            libpq::entry("PQthereIsNone");
            QFAIL("there is none");
        } catch (const Failure &failure) {
            QCOMPARE(failure.kind(), Failure::Kind::ServerLibraryMissing);
            QVERIFY(failure.description().contains(u"PQthereIsNone"_s));
        }
    }
    void it_is_here_where_it_can_be_loaded() { QVERIFY(libpq::isHere()); }
};

MORVEX_TESTE(TestLibpq)
#include "test_Libpq.moc"
