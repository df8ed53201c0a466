// The user's mail program: what of a desktop entry is started, and how it is found.
#include "platform/MailProgram.h"
#include "testlib/SaidaDesviada.h"
#include "testlib/Teste.h"

#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace
{
void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

void writeProgram(const QString &path, const QByteArray &script)
{
    write(path, "#!/bin/sh\n" + script);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::ExeOwner);
}

// A desktop of its own: a folder of programs that stands alone on PATH, and one of desktop entries.
struct Desktop {
    Desktop() : pathBefore(qgetenv("PATH")), dataBefore(qgetenv("XDG_DATA_HOME"))
    {
        QDir(folder.path()).mkpath(u"applications"_s);
        qputenv("PATH", folder.path().toUtf8());
        qputenv("XDG_DATA_HOME", folder.path().toUtf8());
    }
    ~Desktop()
    {
        qputenv("PATH", pathBefore);
        qputenv("XDG_DATA_HOME", dataBefore);
    }

    // The entry's program writes down what it was started with.
    void addEntry(const QString &name)
    {
        writeProgram(folder.filePath(u"letters"_s), "echo spoke\necho spoke >&2\nprintf '%s|' \"$@\" > '" + seenFile().toUtf8() +
                                                        ".tmp'\n/bin/mv '" + seenFile().toUtf8() + ".tmp' '" +
                                                        seenFile().toUtf8() + "'\n");
        write(folder.filePath(u"applications/"_s + name),
              "[Desktop Entry]\nName[pt]=Cartas\nExec=letters --quiet %u\n");
    }
    QString seenFile() const { return folder.filePath(u"seen"_s); }
    QByteArray seen() const
    {
        QFile file(seenFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir folder;
    QByteArray pathBefore, dataBefore;
};
} // namespace

class TestMailProgram : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void the_command_is_the_program_without_a_letter_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<QStringList>("command");
        const auto row = [](const char *name, const QByteArray &entry, const QStringList &command) {
            QTest::newRow(name) << entry << command;
        };
        const QByteArray head = "[Desktop Entry]\nType=Application\nName[de]=Post\nName=Mail\n";
        row("bare", head + "Exec=letters\n", {u"letters"_s});
        row("address", head + "Exec=letters %u\n", {u"letters"_s});
        row("addresses", head + "Exec=/opt/letters/bin/letters %U\n", {u"/opt/letters/bin/letters"_s});
        row("composer", head + "Exec=letters --compose %u\n", {u"letters"_s});
        row("old composer", head + "Exec=letters -compose %u\n", {u"letters"_s});
        row("composer window", head + "Exec=letters --composer %u\n", {u"letters"_s});
        row("address within an option", head + "Exec=letters --to=%u\n", {u"letters"_s});
        row("options that stay", head + "Exec=letters --profile home -v %U\n",
            {u"letters"_s, u"--profile"_s, u"home"_s, u"-v"_s});
        row("name of the program", head + "Exec=letters --title %c %u\n",
            {u"letters"_s, u"--title"_s, u"Mail"_s});
        row("quotes", head + "Exec=\"/opt/my letters/run\" \"a \\\\\"b\\\\\" \\\\$c\" %u\n",
            {u"/opt/my letters/run"_s, u"a \"b\" $c"_s});
        row("percent", head + "Exec=letters 100%% %u\n", {u"letters"_s, u"100%"_s});
        row("spaces and line ends", "[Desktop Entry]\r\nExec = letters  %u \r\n", {u"letters"_s});
        row("before any section", "Exec=letters\n", {});
        row("a word alone", head + "Exec=letters\nExec\n# Exec\n", {u"letters"_s});
        row("actions come after",
            head + "Exec=letters %u\n[Desktop Action compose]\nExec=letters -compose\nName=Write\n",
            {u"letters"_s});
        row("an action alone", "[Desktop Action compose]\nExec=letters -compose\n", {});
        row("a comment", "[Desktop Entry]\n#Exec=wrong\nExec=letters\n", {u"letters"_s});
        row("no command", head, {});
        row("empty", "", {});
        row("no text", QByteArray("\0\1\2\xff=", 5), {});
    }
    void the_command_is_the_program_without_a_letter()
    {
        QFETCH(QByteArray, entry);
        QFETCH(QStringList, command);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"mail.desktop"_s);
        write(path, entry);
        QCOMPARE(mailProgramCommand(path), command);
    }

    void an_entry_that_is_not_there_has_no_command()
    {
        QVERIFY(mailProgramCommand(u"/nowhere/mail.desktop"_s).isEmpty());
    }

    void the_desktop_is_asked_for_the_program_of_mail_addresses()
    {
        Desktop desktop;
        desktop.addEntry(u"letters.desktop"_s);
        writeProgram(desktop.folder.filePath(u"xdg-mime"_s),
                     "[ \"$*\" = 'query default x-scheme-handler/mailto' ] && echo letters.desktop\n");
        startMailProgram();
        QTRY_COMPARE(desktop.seen(), QByteArray("--quiet|"));
    }

    void what_the_mail_program_says_does_not_come_out_of_this_one()
    {
        Desktop desktop;
        desktop.addEntry(u"letters.desktop"_s);
        writeProgram(desktop.folder.filePath(u"xdg-mime"_s), "echo letters.desktop\n");
        QByteArray said;
        {
            const SaidaDesviada outputs;
            startMailProgram();
            [[maybe_unused]] const bool inTime = QTest::qWaitFor([&] { return !desktop.seen().isEmpty(); });
            said = outputs.Dito();
        }
        QCOMPARE(desktop.seen(), QByteArray("--quiet|"));
        QCOMPARE(said, QByteArray());
    }

    void a_desktop_that_takes_its_time_is_not_waited_for()
    {
        Desktop desktop;
        desktop.addEntry(u"letters.desktop"_s);
        writeProgram(desktop.folder.filePath(u"xdg-mime"_s), "/bin/sleep 2\necho letters.desktop\n");
        QElapsedTimer clock;
        clock.start();
        startMailProgram();
        QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
        QTRY_COMPARE(desktop.seen(), QByteArray("--quiet|"));
    }

    void where_nothing_handles_mail_nothing_happens_data()
    {
        QTest::addColumn<QByteArray>("script"); // of xdg-mime; empty where there is none
        QTest::newRow("no service") << QByteArray();
        QTest::newRow("no answer") << QByteArray("true\n");
        QTest::newRow("an entry that is gone") << QByteArray("echo gone.desktop\n");
        QTest::newRow("an error") << QByteArray("exit 4\n");
    }
    void where_nothing_handles_mail_nothing_happens()
    {
        QFETCH(QByteArray, script);
        Desktop desktop;
        desktop.addEntry(u"letters.desktop"_s);
        if (!script.isEmpty()) writeProgram(desktop.folder.filePath(u"xdg-mime"_s), script);
        startMailProgram();
        QTest::qWait(300);
        QCOMPARE(desktop.seen(), QByteArray());
        QVERIFY(QCoreApplication::instance()->findChildren<QProcess *>().isEmpty());
    }
};

MORVEX_TESTE(TestMailProgram)
#include "test_MailProgram.moc"
