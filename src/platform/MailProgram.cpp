#include "platform/MailProgram.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace
{
QString execLine(const QString &desktopEntry)
{
    QFile file(desktopEntry);
    if (!file.open(QIODevice::ReadOnly)) return {};
    static const QRegularExpression exec(u"^\\[Desktop Entry\\][^\\[]*?^Exec=(.*?)\\s*$"_s,
                                         QRegularExpression::MultilineOption |
                                             QRegularExpression::DotMatchesEverythingOption);
    const auto match = exec.match(QString::fromUtf8(file.readAll()));
    return match.captured(1);
}

bool belongsToALetter(const QString &argument)
{
    static const QRegularExpression fieldCode(u"^%[a-zA-Z]$"_s);
    return fieldCode.match(argument).hasMatch() || argument.endsWith("-compose"_L1) ||
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
    QStringList command = QProcess::splitCommand(execLine(desktopEntry));
    command.removeIf(belongsToALetter);
    return command;
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
