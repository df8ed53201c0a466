// A file in whose place another comes, while somebody has it open: what looks files over opens each new one
// for a moment.
#include "platform/ReplaceFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <thread>

using namespace Qt::StringLiterals;

class TestReplaceFile : public QObject
{
    Q_OBJECT

    QTemporaryDir folder_;

    QString written(const QByteArray &bytes) const
    {
        QFile file(folder_.filePath(u"config.ini"_s));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write");
        return file.fileName();
    }
    static QByteArray content(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<none>");
    }
    QStringList files() const { return QDir(folder_.path()).entryList(QDir::Files | QDir::Hidden); }

private Q_SLOTS:
    void a_reader_that_soon_lets_go_is_waited_for()
    {
        const QString path = written("old");
        QFile reader(path);
        QVERIFY(reader.open(QIODevice::ReadOnly));
        std::thread lettingGo([&reader] {
            QThread::msleep(120);
            reader.close();
        });
        const bool replaced = replaceFile(path, "new");
        lettingGo.join();
        QVERIFY(replaced);
        QCOMPARE(content(path), "new");
        QCOMPARE(files(), QStringList{u"config.ini"_s});
    }

    void a_reader_that_stays_keeps_the_old_file_whole_and_it_is_told()
    {
        const QString path = written("old");
        QFile reader(path);
        QVERIFY(reader.open(QIODevice::ReadOnly));
        QElapsedTimer clock;
        clock.start();
        QVERIFY(!replaceFile(path, "new"));
        QVERIFY(clock.elapsed() >= 400);
        reader.close();
        QCOMPARE(content(path), "old");
        QCOMPARE(files(), QStringList{u"config.ini"_s});
        QVERIFY(replaceFile(path, "new"));
        QCOMPARE(content(path), "new");
    }

    void nobody_waits_where_there_is_no_reader_or_no_file()
    {
        QElapsedTimer clock;
        clock.start();
        QVERIFY(replaceFile(folder_.filePath(u"new.ini"_s), "new"));
        QVERIFY(replaceFile(folder_.filePath(u"new.ini"_s), "newer"));
        QVERIFY(clock.elapsed() < 400);
        QVERIFY(QFile::remove(folder_.filePath(u"new.ini"_s)));
    }
};

QTEST_GUILESS_MAIN(TestReplaceFile)
#include "test_ReplaceFile.moc"
