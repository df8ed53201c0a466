// Cuts a card file into its logical lines: one a property, however it was broken into lines of the file. All
// is done in bytes, since a fold may stand in the middle of a character, and in one pass.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

class CardLines
{
public:
    // A longer property is passed over, its bytes are not kept.
    static constexpr qsizetype longestProperty = qsizetype{16} * 1024 * 1024;

    struct Line {
        QByteArrayView bytes; // unfolded; good until the next line is asked for
        qsizetype number = 0; // of its first line in the file, from 1
        qsizetype begin = 0;  // its bytes in the file, line ends included
        qsizetype end = 0;
        bool tooLong = false; // bytes hold no more than its beginning
        bool joined = false;  // of several rows: bytes are not the file's own
    };

    // The bytes must live as long as this.
    explicit CardLines(QByteArrayView file) : file_(file) {}

    // False at the end of the file. Empty lines are none.
    bool next(Line &line);

private:
    enum class Disguise { None, QuotedPrintable, Base64 };
    struct Row {
        QByteArrayView bytes;
        qsizetype next = 0; // where the row behind it begins
    };

    Row rowAt(qsizetype at);
    bool goesOn(const Line &line, Row row, bool &withBlank);
    void append(Line &line, QByteArrayView bytes);
    void take(Line &line, const Row &row);
    void join(Line &line);

    QByteArrayView file_;
    qsizetype at_ = 0;
    qsizetype number_ = 1;
    qsizetype lineFeed_ = -1;       // the next one behind at_, so that none is looked for twice
    qsizetype carriageReturn_ = -1; // the same
    QByteArray joined_;             // of a line of several rows
    bool isJoined_ = false;
    bool isDisguiseKnown_ = false;
    Disguise disguise_ = Disguise::None;
};
