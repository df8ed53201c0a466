#include "platform/IniFile.h"

#include "platform/ReplaceFile.h"
#include "platform/TextEncoding.h"

#include <optional>
#include <QFile>
#include <QStringList>

namespace
{
constexpr char codePage[] = "windows-1252";
constexpr char utf8Mark[] = "\xef\xbb\xbf";

QString decoded(const QByteArray &bytes)
{
    if (bytes.startsWith(utf8Mark))
        return QString::fromUtf8(QByteArrayView(bytes).sliced(std::size(utf8Mark) - 1));
    return decodedText(bytes, codePage).text;
}

// In the code page, where what reads it back is the same text.
QByteArray encoded(const QString &text)
{
    const QByteArray bytes = encodedText(text, codePage);
    return decoded(bytes) == text ? bytes : utf8Mark + text.toUtf8();
}

// The file as lines without their ends; an absent file has none. Nothing for a file that cannot be read.
std::optional<QStringList> linesOf(const QString &path)
{
    QFile file(path);
    if (!file.exists()) return QStringList();
    if (!file.open(QIODevice::ReadOnly)) return std::nullopt;
    QString text = decoded(file.readAll());
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    if (text.endsWith(u'\n')) text.chop(1);
    return text.isEmpty() ? QStringList() : text.split(u'\n');
}

std::optional<QStringView> sectionIn(QStringView line)
{
    line = line.trimmed();
    if (!line.startsWith(u'[')) return std::nullopt;
    const qsizetype end = line.indexOf(u']');
    return end < 0 ? std::nullopt : std::optional(line.mid(1, end - 1).trimmed());
}

struct Entry {
    QStringView key;
    QStringView value;
};

std::optional<Entry> entryIn(QStringView line)
{
    line = line.trimmed();
    const qsizetype equals = line.indexOf(u'=');
    if (line.startsWith(u';') || equals < 0) return std::nullopt;
    return Entry{line.left(equals).trimmed(), line.mid(equals + 1).trimmed()};
}

QStringView withoutQuotes(QStringView value)
{
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == u'"' || value.front() == u'\'');
    return quoted ? value.mid(1, value.size() - 2) : value;
}

bool equalNames(QStringView a, QStringView b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

// Lines [first, end) below the section's head; end is one past its last line that isn't blank.
struct Range {
    qsizetype first;
    qsizetype end;
};

std::optional<Range> findSection(const QStringList &lines, QStringView section)
{
    for (qsizetype head = 0; head < lines.size(); ++head) {
        const auto name = sectionIn(lines[head]);
        if (!name || !equalNames(*name, section)) continue;
        qsizetype end = head + 1;
        for (qsizetype i = head + 1; i < lines.size() && !sectionIn(lines[i]); ++i)
            if (!lines[i].trimmed().isEmpty()) end = i + 1;
        return Range{head + 1, end};
    }
    return std::nullopt;
}

std::optional<qsizetype> findKey(const QStringList &lines, Range range, QStringView key)
{
    for (qsizetype i = range.first; i < range.end; ++i) {
        const auto entry = entryIn(lines[i]);
        if (entry && equalNames(entry->key, key)) return i;
    }
    return std::nullopt;
}

QString oneLine(QString value) { return value.replace(u'\r', u' ').replace(u'\n', u' '); }
} // namespace

IniFile::IniFile(QString path) : path_(std::move(path)) {}

bool IniFile::exists() const { return QFile::exists(path_); }

QString IniFile::Reading::value(const QString &section, const QString &key) const
{
    const auto range = findSection(lines_, section);
    const auto line = range ? findKey(lines_, *range, key) : std::nullopt;
    return line ? withoutQuotes(entryIn(lines_[*line])->value).left(longestValue).toString() : QString();
}

IniFile::Reading IniFile::reading() const { return Reading(linesOf(path_).value_or(QStringList())); }

QString IniFile::read(const QString &section, const QString &key) const
{
    return reading().value(section, key);
}

bool IniFile::write(const QString &section, const QString &key, const QString &value)
{
    const auto before = linesOf(path_);
    if (!before) return false; // what cannot be read would be lost
    QStringList lines = *before;
    const QString text = key + u'=' + oneLine(value);
    if (const auto range = findSection(lines, section)) {
        if (const auto line = findKey(lines, *range, key))
            lines[*line] = text;
        else
            lines.insert(range->end, text);
    } else {
        if (!lines.isEmpty()) lines << QString();
        lines << u'[' + section + u']' << text;
    }
    return replaceFile(path_, encoded(lines.join(QLatin1String("\r\n")) + QLatin1String("\r\n")));
}
