#include "platform/Dialogs.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>

namespace
{
std::optional<QString> chosen(const QString &path)
{
    return path.isEmpty() ? std::nullopt : std::optional(path);
}
} // namespace

QString toolkitFilter(const QString &filter)
{
    const QStringList parts = filter.split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString patterns = QString(parts[i + 1]).replace(u';', u' ');
        const QString description = parts[i].section(u'(', 0, 0).trimmed(); // the toolkit adds the patterns itself
        entries << description + QStringLiteral(" (") + patterns + u')';
    }
    return entries.join(QStringLiteral(";;"));
}

std::optional<QString> DesktopDialogs::openFile(const QString &filter, const QString &folder, QWidget *owner)
{
    return chosen(QFileDialog::getOpenFileName(owner, {}, folder, toolkitFilter(filter)));
}

std::optional<QString> DesktopDialogs::saveFile(const QString &filter, const QString &file, QWidget *owner)
{
    const QFileInfo proposed(file);
    QFileDialog dialog(owner, {}, proposed.path(), toolkitFilter(filter));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(proposed.suffix());
    dialog.selectFile(proposed.fileName());
    return dialog.exec() == QDialog::Accepted ? chosen(dialog.selectedFiles().value(0)) : std::nullopt;
}

std::optional<QString> DesktopDialogs::folder(const QString &title, const QString &start, QWidget *owner)
{
    return chosen(QFileDialog::getExistingDirectory(owner, title, start));
}

std::optional<QFont> DesktopDialogs::font(const QFont &start, QWidget *owner)
{
    bool accepted = false;
    const QFont font = QFontDialog::getFont(&accepted, start, owner);
    return accepted ? std::optional(font) : std::nullopt;
}

std::optional<QColor> DesktopDialogs::colour(const QColor &start, QWidget *owner)
{
    const QColor colour = QColorDialog::getColor(start, owner);
    return colour.isValid() ? std::optional(colour) : std::nullopt;
}

std::optional<QString> DesktopDialogs::input(const QString &prompt, const QString &title, QWidget *owner)
{
    bool accepted = false;
    const QString text = QInputDialog::getText(owner, title, prompt, QLineEdit::Normal, {}, &accepted);
    return accepted ? std::optional(text) : std::nullopt;
}
