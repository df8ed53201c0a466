#include "csv/CsvCells.h"

namespace
{
class Cutter
{
public:
    Cutter(QStringView text, QChar delimiter) : text_(text), delimiter_(delimiter) {}

    bool isAtEnd() const { return at_ >= text_.size(); }

    // The next row, where the end is not reached; a line that is empty gives none.
    QStringList row()
    {
        QStringList cells;
        bool isLast = false;
        const bool isQuoted = text_[at_] == u'"'; // the first of them
        while (!isLast) {
            cells << cell();
            isLast = isAtEnd() || text_[at_] != delimiter_;
            // Left where it is the LF would make one more row, which is none and takes its time.
            if (isLast && text_.sliced(at_).startsWith(u"\r\n")) ++at_;
            if (!isAtEnd()) ++at_;
        }
        const bool isEmpty = cells.size() == 1 && cells.constFirst().isEmpty() && !isQuoted;
        return isEmpty ? QStringList() : cells;
    }

private:
    bool isEndOfCell() const
    {
        return isAtEnd() || text_[at_] == delimiter_ || text_[at_] == u'\n' || text_[at_] == u'\r';
    }

    QString quoted()
    {
        QString cell;
        for (++at_; !isAtEnd(); ++at_) {
            if (text_[at_] == u'"') {
                ++at_;
                if (isAtEnd() || text_[at_] != u'"') break;
            }
            cell += text_[at_];
        }
        // However the file breaks its lines, and a lone CR between two of them.
        return cell.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    }

    QString cell()
    {
        QString cell = !isAtEnd() && text_[at_] == u'"' ? quoted() : QString();
        const qsizetype begin = at_;
        while (!isEndOfCell())
            ++at_;
        return cell.append(text_.sliced(begin, at_ - begin));
    }

    QStringView text_;
    QChar delimiter_;
    qsizetype at_ = 0;
};

bool looksLikeFormula(const QString &cell)
{
    qsizetype first = 0;
    while (first < cell.size() && cell[first] == u'\'')
        ++first;
    return first < cell.size() && QStringView(u"=@\t\r").contains(cell[first]);
}
} // namespace

std::vector<QStringList> csvCells(QStringView text, QChar delimiter, std::size_t mostRows)
{
    std::vector<QStringList> rows;
    Cutter cutter(text, delimiter);
    while (!cutter.isAtEnd() && rows.size() < mostRows)
        if (QStringList row = cutter.row(); !row.isEmpty()) rows.push_back(std::move(row));
    return rows;
}

QString guardedCell(const QString &cell) { return looksLikeFormula(cell) ? u'\'' + cell : cell; }

QString unguardedCell(const QString &cell)
{
    return cell.startsWith(u'\'') && looksLikeFormula(cell) ? cell.sliced(1) : cell;
}
