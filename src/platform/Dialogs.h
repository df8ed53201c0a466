// The desktop's dialogs for files, folders, fonts, colours and a line of text. Nothing means that the person
// cancelled, and then nothing happens.
#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <optional>

class QWidget;

class Dialogs
{
public:
    virtual ~Dialogs() = default;

    // The filter is pairs of a description and its patterns, all separated by "|", the patterns by ";":
    // "Text|*.txt;*.dat|Everything|*.*".
    virtual std::optional<QString> openFile(const QString &filter, const QString &folder, QWidget *owner) = 0;
    // Begins with that file proposed; a name without an ending receives the proposed one's. A file that exists
    // already is replaced only after a question, which the dialog itself asks.
    virtual std::optional<QString> saveFile(const QString &filter, const QString &file, QWidget *owner) = 0;
    virtual std::optional<QString> folder(const QString &title, const QString &start, QWidget *owner) = 0;
    virtual std::optional<QFont> font(const QFont &start, QWidget *owner) = 0;
    virtual std::optional<QColor> colour(const QColor &start, QWidget *owner) = 0;
    virtual std::optional<QString> input(const QString &prompt, const QString &title, QWidget *owner) = 0;
};

class DesktopDialogs final : public Dialogs
{
public:
    std::optional<QString> openFile(const QString &filter, const QString &folder, QWidget *owner) override;
    std::optional<QString> saveFile(const QString &filter, const QString &file, QWidget *owner) override;
    std::optional<QString> folder(const QString &title, const QString &start, QWidget *owner) override;
    std::optional<QFont> font(const QFont &start, QWidget *owner) override;
    std::optional<QColor> colour(const QColor &start, QWidget *owner) override;
    std::optional<QString> input(const QString &prompt, const QString &title, QWidget *owner) override;
};

// The same filter as the toolkit writes it: "Text (*.txt *.dat);;Everything (*.*)".
QString toolkitFilter(const QString &filter);
