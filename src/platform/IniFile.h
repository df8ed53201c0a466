// An initialisation file of sections and key=value lines, in the code page 1252, or in UTF-8 with a mark at
// its beginning as long as a letter in it needs that, by the operating system's reading rules: sections and
// keys in any case, blanks round both trimmed, one pair of quotes round a value dropped, the first of two
// equal keys wins. Comments and unknown lines survive every write.
#pragma once

#include <QString>
#include <QStringList>

class IniFile
{
public:
    static constexpr int longestValue = 254; // what a read returns at most, in characters

    explicit IniFile(QString path);

    const QString &path() const { return path_; }
    bool exists() const;

    // The key's value, empty where the file, the section or the key isn't there.
    QString read(const QString &section, const QString &key) const;

    // What the file held when it was read, for who asks for many keys of one moment.
    class Reading
    {
    public:
        QString value(const QString &section, const QString &key) const;

    private:
        friend class IniFile;
        explicit Reading(QStringList lines) : lines_(std::move(lines)) {}
        QStringList lines_;
    };
    Reading reading() const;

    // Writes one key; an empty value keeps the key. Line breaks within a value become blanks, since a value
    // is one line. The old file is replaced in one step or not at all; false when it could not be.
    bool write(const QString &section, const QString &key, const QString &value);

private:
    QString path_;
};
