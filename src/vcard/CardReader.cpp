#include "vcard/CardReader.h"

#include "vcard/CardLines.h"
#include "vcard/CardText.h"

#include <algorithm>
#include <utility>

namespace
{
bool isCard(QByteArrayView value) { return value.trimmed().compare("VCARD", Qt::CaseInsensitive) == 0; }

// Each card keeps the file in which its lines stand.
CardBytes bytesOf(const CardLines::Line &line)
{
    return line.joined ? CardBytes::Passing : CardBytes::Lasting;
}

bool saysNothing(const Card &card)
{
    return std::none_of(card.properties().begin(), card.properties().end(), [](const CardProperty &property) {
        return property.name() != "VERSION" && property.name() != "PRODID" && property.name() != "REV";
    });
}

// Puts the lines of a file together to cards. A card may begin inside of another: as the agent of that
// person, who is none of the book's, or because an END is missing.
class Assembly
{
public:
    Assembly(QByteArray file, QByteArray fallback)
        : file_(std::move(file)), fallback_(std::make_shared<const QByteArray>(std::move(fallback)))
    {
    }

    void take(const CardLines::Line &line);
    std::vector<Card> takeWhole();
    CardFile finish();

private:
    struct Open {
        Card card;
        std::size_t rank; // among the beginnings
        bool isAgent = false;
        bool isFull = false;
        bool takesRows = true; // the last property is what stands right before this place of the file
    };

    void begin(const CardLines::Line &line, bool isAgent);
    void end(const CardLines::Line &line);
    void add(const CardLines::Line &line, CardHead head);
    void addRow(const CardLines::Line &line);
    void deliver(Open open);
    void note(qsizetype line, CardFault::Kind kind) { faults_.push_back({line, kind}); }

    QByteArray file_;
    std::shared_ptr<const QByteArray> fallback_; // shared by all properties
    std::vector<Open> open_;                     // the innermost last
    std::vector<std::pair<std::size_t, Card>> done_;
    std::vector<CardFault> faults_;
    std::size_t beginnings_ = 0;
    bool isAstray_ = false; // the last line was outside of all cards
};

void Assembly::begin(const CardLines::Line &line, bool isAgent)
{
    if (!open_.empty()) {
        open_.back().card.setMixed();
        open_.back().takesRows = false;
    }
    open_.push_back({Card(file_, {line.begin, line.end, line.number}), beginnings_++, isAgent});
    isAstray_ = false;
}

void Assembly::end(const CardLines::Line &line)
{
    Open last = std::move(open_.back());
    open_.pop_back();
    last.card.close(line.end);
    deliver(std::move(last));
}

void Assembly::deliver(Open open)
{
    if (open.isAgent) return;
    if (saysNothing(open.card)) note(open.card.line(), CardFault::Kind::NothingInIt);
    done_.emplace_back(open.rank, std::move(open.card));
}

void Assembly::add(const CardLines::Line &line, CardHead head)
{
    Open &card = open_.back();
    card.takesRows = false;
    if (line.tooLong) {
        note(line.number, CardFault::Kind::PropertyTooLong);
        return;
    }
    if (card.card.properties().size() >= CardReader::mostProperties) {
        if (!card.isFull) note(card.card.line(), CardFault::Kind::TooManyProperties);
        card.isFull = true;
        return;
    }
    card.card.add(CardProperty(std::move(head), line.bytes, {line.begin, line.end, line.number}, fallback_,
                               bytesOf(line)));
    card.takesRows = true;
}

// No property: a comment, or more of the value before it. Behind a card inside this one, and behind
// properties that were left out, it would join one that it does not belong to.
void Assembly::addRow(const CardLines::Line &line)
{
    Open &card = open_.back();
    if (!card.takesRows || line.bytes.trimmed().startsWith('#')) return;
    card.takesRows = card.card.joinRow(line.bytes, line.end);
    if (!card.takesRows) note(line.number, CardFault::Kind::PropertyTooLong);
}

void Assembly::take(const CardLines::Line &line)
{
    CardHead head(line.bytes, bytesOf(line));
    const QByteArrayView value = head.isWhole() ? line.bytes.sliced(head.length() + 1) : QByteArrayView();
    if (head.isWhole() && head.name() == "BEGIN" && isCard(value)) {
        const bool isAgent = !open_.empty() && !open_.back().card.properties().empty() &&
                             open_.back().card.properties().back().name() == "AGENT" &&
                             open_.back().card.properties().back().rawValue().trimmed().isEmpty();
        begin(line, isAgent);
    } else if (open_.empty()) {
        if (!isAstray_) note(line.number, CardFault::Kind::OutsideOfCard);
        isAstray_ = true;
    } else if (head.isWhole() && head.name() == "END" && isCard(value)) {
        end(line);
    } else if (head.isWhole() && head.name() == "AGENT" &&
               value.trimmed().compare("BEGIN:VCARD", Qt::CaseInsensitive) == 0) {
        begin(line, true);
    } else if (head.isWhole()) {
        add(line, std::move(head));
    } else {
        addRow(line);
    }
}

std::vector<Card> Assembly::takeWhole()
{
    std::vector<Card> cards;
    if (!open_.empty()) return cards;
    const auto before = [](const auto &a, const auto &b) { return a.first < b.first; };
    if (!std::is_sorted(done_.begin(), done_.end(), before)) std::sort(done_.begin(), done_.end(), before);
    cards.reserve(done_.size());
    for (auto &[rank, card] : done_)
        cards.push_back(std::move(card));
    done_.clear();
    return cards;
}

CardFile Assembly::finish()
{
    for (Open &open : open_) {
        if (!open.isAgent) note(open.card.line(), CardFault::Kind::EndMissing);
        deliver(std::move(open));
    }
    open_.clear();
    std::stable_sort(faults_.begin(), faults_.end(),
                     [](const CardFault &a, const CardFault &b) { return a.line < b.line; });
    return {takeWhole(), std::move(faults_)};
}
} // namespace

CardReader::CardReader(QByteArray fallbackCharset) : fallback_(std::move(fallbackCharset)) {}

CardFile CardReader::read(const QByteArray &file) const
{
    CardReading reading(file, fallback_);
    while (reading.advance(file.size())) {
    }
    return reading.take();
}

struct CardReading::State {
    State(const QByteArray &file, QByteArray fallback)
        : plain(plainCardBytes(file)),
          lines(plain),
          assembly(plain, fallback.isEmpty() ? QByteArray(usualCardCharset) : std::move(fallback))
    {
    }

    QByteArray plain; // the lines and the cards are views of it
    CardLines lines;
    Assembly assembly;
    qsizetype passed = 0;
};

CardReading::CardReading(const QByteArray &file, QByteArray fallbackCharset)
    : state_(std::make_unique<State>(file, std::move(fallbackCharset)))
{
}

CardReading::~CardReading() = default;

bool CardReading::advance(qsizetype bytes)
{
    const qsizetype wanted = state_->passed + bytes;
    CardLines::Line line;
    do {
        if (!state_->lines.next(line)) {
            state_->passed = state_->plain.size();
            return false;
        }
        state_->assembly.take(line);
        state_->passed = line.end;
    } while (state_->passed < wanted);
    return true;
}

int CardReading::percent() const
{
    return state_->plain.isEmpty() ? 100 : static_cast<int>(100 * state_->passed / state_->plain.size());
}

std::vector<Card> CardReading::takeWhole() { return state_->assembly.takeWhole(); }

CardFile CardReading::take() { return state_->assembly.finish(); }
