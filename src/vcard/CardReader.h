// Reads the cards of a file, of the versions 2.1, 3.0 and 4.0, as programs really write them. Nothing in a
// file stops it: what is wrong is noted with its line, and all the rest is delivered.
#pragma once

#include "vcard/Card.h"

#include <memory>

// What was wrong at a line of a file.
struct CardFault {
    enum class Kind {
        PropertyTooLong,   // it, or what goes on with it at that line, was left out
        TooManyProperties, // the card has no more of them than the limit
        EndMissing,        // the card has all up to the end of the file or of the card around it
        NothingInIt,       // the card has no more than a frame
        OutsideOfCard,     // lines that belong to none were left out
    };
    qsizetype line = 0; // from 1; of the card's BEGIN where the whole card is meant
    Kind kind = Kind::NothingInIt;

    bool operator==(const CardFault &) const = default;
};

struct CardFile {
    std::vector<Card> cards;       // in the order of their beginnings
    std::vector<CardFault> faults; // in the order of the lines
};

class CardReader
{
public:
    static constexpr std::size_t mostProperties = 5000; // of a card

    // The encoding of what is not UTF-8 and does not say what it is.
    explicit CardReader(QByteArray fallbackCharset = {});

    CardFile read(const QByteArray &file) const;

private:
    QByteArray fallback_;
};

// The same in portions, for who has something else to do between them.
class CardReading
{
public:
    explicit CardReading(const QByteArray &file, QByteArray fallbackCharset = {});
    ~CardReading();

    // Reads on until so many bytes of the file have passed; a property is never divided. False once all of
    // the file is read.
    bool advance(qsizetype bytes);

    int percent() const; // of the file's bytes that have passed

    // The cards that are whole by now and were not given out before, in their order. While one is open, which
    // others may yet prove to stand inside of, there are none.
    std::vector<Card> takeWhole();

    // What is left once all of the file is read: the cards that were not given out, and all faults. Only
    // once.
    CardFile take();

private:
    struct State;
    std::unique_ptr<State> state_;
};
