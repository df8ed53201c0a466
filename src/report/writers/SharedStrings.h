// The texts of a workbook's cells, each kept once, and the chain of records in which they stand.
#pragma once

#include <QHashFunctions>
#include <QString>
#include <unordered_map>
#include <vector>

class SharedStrings
{
public:
    // What the text is called in a cell.
    quint32 number(const QString &text);

    // A record holds 8,224 bytes; a text that does not fit goes on in the next one.
    void write(QByteArray &book) const;

private:
    std::unordered_map<QString, quint32> numbers_;
    std::vector<QString> texts_; // by their numbers
    quint32 uses_ = 0;
};
