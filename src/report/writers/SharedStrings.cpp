#include "report/writers/SharedStrings.h"

#include "report/writers/LittleEndian.h"

#include <algorithm>

namespace
{
constexpr quint32 stringTable = 0xFC, continuation = 0x3C;
constexpr qsizetype longestRecord = 8224;

// The records of the table, of which the last one is open. Its length is written when it closes.
class Chain
{
public:
    explicit Chain(QByteArray &book) : book_(book) { open(stringTable); }
    ~Chain() { close(); }
    Chain(const Chain &) = delete;
    Chain &operator=(const Chain &) = delete;

    qsizetype room() const { return begin_ + longestRecord - book_.size(); }
    void next()
    {
        close();
        open(continuation);
    }

private:
    void open(quint32 record)
    {
        put16(book_, record);
        put16(book_, 0);
        begin_ = book_.size();
    }
    void close() { overwrite16(book_, begin_ - 2, static_cast<quint32>(book_.size() - begin_)); }

    QByteArray &book_;
    qsizetype begin_ = 0;
};

bool isWide(const QString &text)
{
    return text.size() > longestRecord - 3 ||
           std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() > 0xFF; });
}

// A text that does not fit begins a record of its own, and only one that no record could hold breaks: behind
// the break the option byte stands again. Such a long one is always wide. More could be packed into a record,
// but some readers lose their way in texts that break otherwise.
void putText(QByteArray &book, Chain &chain, const QString &text)
{
    const bool wide = isWide(text);
    const qsizetype letterBytes = wide ? 2 : 1;
    if (chain.room() < 3 + text.size() * letterBytes) chain.next();
    put16(book, static_cast<quint32>(text.size()));
    put8(book, wide);
    for (qsizetype i = 0; i < text.size();) {
        if (chain.room() < letterBytes) {
            chain.next();
            put8(book, wide);
        }
        for (const qsizetype last = std::min(text.size(), i + chain.room() / letterBytes); i < last; ++i) {
            if (wide)
                put16(book, text[i].unicode());
            else
                put8(book, text[i].unicode());
        }
    }
}
} // namespace

quint32 SharedStrings::number(const QString &text)
{
    ++uses_;
    const auto [place, isNew] = numbers_.try_emplace(text, static_cast<quint32>(texts_.size()));
    if (isNew) texts_.push_back(text);
    return place->second;
}

void SharedStrings::write(QByteArray &book) const
{
    Chain chain(book);
    put32(book, uses_);
    put32(book, static_cast<quint32>(texts_.size()));
    for (const QString &text : texts_)
        putText(book, chain, text);
}
