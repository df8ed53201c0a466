// What the program was told when it was started. It is read before anything else runs, and needs neither a
// display nor data.
#pragma once

#include <QString>
#include <QStringList>

class CommandLine
{
public:
    enum class Kind {
        Run,
        Answer,  // the help or the version: text() is all that was asked for
        Refusal, // text() says what could not be understood
    };

    // What is read it by: the words with the program's own first, the endings of files that can be opened, in
    // small letters, and the language of the texts by its name ("AlemaoDE"). An application object must
    // exist.
    CommandLine(const QStringList &words, const QStringList &endings, const QString &version,
                const QString &language);

    Kind kind() const { return kind_; }
    const QString &text() const { return text_; }

    // To start in the notification area without showing the window.
    bool minimized() const { return minimized_; }

    // Absolute paths, in the order in which they were given; each was there when the line was read.
    const QStringList &files() const { return files_; }

private:
    Kind kind_ = Kind::Run;
    QString text_;
    bool minimized_ = false;
    QStringList files_;
};
