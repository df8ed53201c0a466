// An older database of this program, a Jet 4 file, opened for reading.
// It may be damaged: each access is checked, each walk is bounded by the size of the file, and whatever is
// wrong raises Failure and nothing else. A table is read on its own, so one that is damaged leaves the others
// alone.
#pragma once

#include "jet/JetPages.h"

#include <map>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

class JetFile
{
public:
    // Null, yes or no, whole number, number, text, date with time (as the clock showed it, without a zone).
    using Cell = std::variant<std::monostate, bool, qint64, double, QString, QDateTime>;

    struct Table {
        QStringList columns;
        std::vector<std::vector<Cell>> rows; // each as long as `columns`, in the order of the file
    };

    // Who takes a table as it is read: once its columns, then row by row.
    class Sink
    {
    public:
        virtual ~Sink() = default;
        virtual void columns(const QStringList &names) = 0;
        virtual void row(const std::vector<Cell> &cells) = 0; // as long as the columns
    };

    // A sound table's rows take no more bytes than the file has, and so do its texts and its cells. A damaged
    // one may read the same bytes over and over: beyond that many for each byte of the file it is not read.
    static constexpr qint64 bytesOfAByte = 3;

    // Raises Failure for a file that cannot be opened or is no such database, for one with a password, and
    // for one whose catalogue is damaged.
    explicit JetFile(const QString &path);

    // The user's own tables.
    QStringList tables() const;

    // A whole table, its name in any case of letters. Raises Failure where it isn't there and where anything
    // in it is damaged: rows that are left of it are never given as all. A column whose type none of the
    // program's tables has reads as Null.
    Table read(const QString &name) const;
    // The same for rows that need not stand in memory together. What was handed on before a Failure is no
    // table.
    void read(const QString &name, Sink &sink) const;

private:
    quint32 definitionOf(const QString &name) const;

    JetPages pages_;
    std::map<QString, quint32> definitions_; // page of its definition by the folded name
    QStringList names_;
};
