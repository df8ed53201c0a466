// What later starts say to the first one while it is busy.
#include "platform/InstancePlace.h"

#include <QLocalSocket>
#include <QtTest>

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
