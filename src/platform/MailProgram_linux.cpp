#include "platform/MailProgram.h"

#include <QCoreApplication>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
// The keys of the entry's first section, without those in a language of their own.
QHash<QString, QString> keysOf(const QString &desktopEntry)
{
    QHash<QString, QString> keys;
    QFile file(desktopEntry);
    if (!file.open(QIODevice::ReadOnly)) return keys;
    bool inside = false;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QString text = line.trimmed();
        if (text.startsWith(u'[')) inside = text == "[Desktop Entry]"_L1;
        const qsizetype equals = text.indexOf(u'=');
        if (!inside || equals < 0 || text.startsWith(u'#')) continue;
        keys.insert(text.left(equals).trimmed(), text.mid(equals + 1).trimmed());
    }
    return keys;
}

// The arguments of a command line: parted by blanks, held together by double quotes, within which a backslash
// takes the next character as it stands.
QStringList argumentsOf(const QString &line)
{
    static const QRegularExpression piece(uR"((?:"(?:[^"\\]|\\.)*"|[^\s"])+)"_s);
    static const QRegularExpression quote(uR"(\\(.)|")"_s);
    QStringList arguments;
    for (auto found = piece.globalMatch(line); found.hasNext();)
        arguments << found.next().captured().replace(quote, u"\\1"_s);
    return arguments;
}

bool belongsToALetter(const QString &argument)
{
    static const QRegularExpression fieldCode(u"%[a-zA-Z]"_s);
    return argument.contains(fieldCode) || argument.endsWith("-compose"_L1) ||
           argument.endsWith("-composer"_L1);
}

void startCommandOf(const QString &entryName)
{
    const QString entry = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entryName);
    QStringList command = entry.isEmpty() ? QStringList() : mailProgramCommand(entry);
    if (command.isEmpty()) return;
    QProcess process;
    process.setProgram(command.takeFirst());
    process.setArguments(command);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.startDetached();
}
} // namespace

QStringList mailProgramCommand(const QString &desktopEntry)
{
    const QHash<QString, QString> keys = keysOf(desktopEntry);
    // A backslash counts once for the file and once more for the command line.
    QStringList command = argumentsOf(QString(keys.value(u"Exec"_s)).replace("\\\\"_L1, "\\"_L1));
    command.replaceInStrings(u"%c"_s, keys.value(u"Name"_s));
    command.removeIf(belongsToALetter);
    return command.replaceInStrings(u"%%"_s, u"%"_s);
}

void startMailProgram()
{
    auto *question = new QProcess(QCoreApplication::instance());
    QObject::connect(question, &QProcess::finished, question, [question] {
        const QString entry = QString::fromUtf8(question->readAllStandardOutput()).trimmed();
        if (!entry.isEmpty()) startCommandOf(entry);
        question->deleteLater();
    });
    QObject::connect(question, &QProcess::errorOccurred, question, &QObject::deleteLater);
    question->start(u"xdg-mime"_s, {u"query"_s, u"default"_s, u"x-scheme-handler/mailto"_s});
}
