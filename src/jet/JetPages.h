// The pages of a Jet 4 file: recognised, decoded where they were written encoded, and cut into rows.
// Knows nothing of tables.
#pragma once

#include "jet/Bytes.h"

#include <QByteArray>

class JetPages
{
public:
    static constexpr int pageSize = 4096;
    static constexpr quint8 dataPage = 1; // the first byte of a page that holds rows

    // Where a row lies.
    struct Pointer {
        quint32 page;
        quint16 row;
    };
    // As the file writes it: one byte of row, three of page.
    static Pointer pointerOf(quint32 number) { return {number >> 8, static_cast<quint16>(number & 0xff)}; }

    struct Row {
        Bytes data;
        bool deleted; // or the target of a moved row, which is read where it was moved from
        bool moved;   // the data is a pointer to the row itself
    };

    // Reads the whole file. Raises Failure where it is missing, too short, no Jet 4 file, or asks for a
    // password.
    explicit JetPages(const QString &path);

    quint32 count() const { return count_; }
    qint64 fileSize() const { return file_.size(); }

    // All of these raise Failure for what the file doesn't hold.
    Bytes page(quint32 number) const;
    int rowCount(quint32 page) const;
    Row row(Pointer place) const;

private:
    void decodeHeader();
    void refusePassword() const;
    void decodePages();
    Bytes header() const { return page(0); }

    QByteArray file_;
    quint32 count_ = 0;
};
