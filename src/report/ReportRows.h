// The rows of a report as plain text, for those who write them to a file: what the definition shows, in its
// order.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

struct ReportRows {
    QString title;
    QStringList heads;                         // what stands over each column
    QStringList fields;                        // the field that each column shows, as "Table.Field"
    std::vector<std::vector<QString>> records; // one text a column in each; lines are parted by line feeds
    bool sheets = false;                       // each record has a page of its own
};
