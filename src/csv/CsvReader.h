// Reads a table of contacts as another program has exported it.
#pragma once

#include <optional>
#include <QByteArray>
#include <QChar>
#include <QStringList>
#include <vector>

// What a person has set right; all else is found out.
struct CsvChoice {
    QByteArray encoding; // a name such as "windows-1250"; empty for none chosen
    QChar delimiter;     // null for none chosen
    std::optional<bool> hasHeader;
};

struct CsvTable {
    QByteArray encoding; // as CsvText has it
    QChar delimiter;
    bool hasHeader = false;
    std::vector<QStringList> rows; // the header too; rows may differ in length
};

CsvTable readCsv(const QByteArray &file, const CsvChoice &choice = {});
