// What later starts say to the first one while it is busy.
#include "platform/InstancePlace.h"

#include <QDir>
#include <QFile>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class TestInstancePlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messages_come_once_and_in_the_order_in_which_they_were_said()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"morvex-0123"_s);
        QLocalSocket caller;
        const QList<QByteArray> said{"first", QByteArray("sec\0nd", 6), "third"};
        for (const QByteArray &message : said)
            instance_place::say(caller, path, message);
        QCOMPARE(instance_place::heard(caller, path), said);
        QVERIFY(QDir(folder.path()).isEmpty());
        QCOMPARE(instance_place::heard(caller, path), QList<QByteArray>()); // the second goes, who was heard
        QCOMPARE(instance_place::heard(caller, path), QList<QByteArray>());
        QCOMPARE(instance_place::heard(caller, path),
                 QList<QByteArray>{QByteArray()}); // one who said nothing
    }

    void more_than_ten_messages_keep_their_order()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"morvex-0123"_s);
        QLocalSocket caller;
        QList<QByteArray> said;
        for (int i = 0; i < 12; ++i) {
            said << QByteArray::number(i);
            instance_place::say(caller, path, said.constLast());
        }
        QCOMPARE(instance_place::heard(caller, path), said);
        for (int i = 1; i < said.size(); ++i) // the others go, who were heard
            QCOMPARE(instance_place::heard(caller, path), QList<QByteArray>());
    }

    void a_message_that_is_still_being_written_waits()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"morvex-0123"_s);
        QFile half(path + u".000000000.00000000000000000000000000000000.call.AbCdEf"_s);
        QVERIFY(half.open(QIODevice::WriteOnly) && half.write("hal") == 3);
        half.close();
        QLocalSocket caller;
        QCOMPARE(instance_place::heard(caller, path), QList<QByteArray>{QByteArray()});
        QVERIFY(half.exists());
    }

    void one_path_has_one_name_in_whatever_letters_and_strokes_it_is_written()
    {
        const QString name = instance_place::socketName(u"C:/Users/Inês/Temp/morvex-1"_s);
        QCOMPARE(instance_place::socketName(uR"(c:\users\INÊS\temp\MORVEX-1)"_s), name);
        QVERIFY(instance_place::socketName(u"C:/Users/Rui/Temp/morvex-1"_s) != name);
        QVERIFY(!name.contains(u'/') && !name.contains(u'\\') && !name.contains(u':'));
    }

    void each_program_hears_its_own()
    {
        const QTemporaryDir folder;
        QLocalSocket caller;
        instance_place::say(caller, folder.filePath(u"morvex-1"_s), "one");
        instance_place::say(caller, folder.filePath(u"morvex-12"_s), "twelve");
        QCOMPARE(instance_place::heard(caller, folder.filePath(u"morvex-1"_s)), QList<QByteArray>{"one"});
        QCOMPARE(instance_place::heard(caller, folder.filePath(u"morvex-12"_s)), QList<QByteArray>{"twelve"});
    }
};

QTEST_GUILESS_MAIN(TestInstancePlace)
#include "test_InstancePlace.moc"
