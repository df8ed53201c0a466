#include "vcard/Card.h"

#include <utility>

using namespace Qt::StringLiterals;

Card::Card(QByteArray file, CardProperty::Place begin) : file_(std::move(file)), begin_(begin) {}

void Card::add(CardProperty property)
{
    constexpr std::size_t usual = 7; // most cards have no more: room for them at once
    if (properties_.empty()) properties_.reserve(usual);
    properties_.push_back(std::move(property));
}

bool Card::joinRow(QByteArrayView row, qsizetype end)
{
    return properties_.empty() || properties_.back().joinRow(row, end);
}

void Card::close(qsizetype end) { end_ = end; }

CardVersion Card::version() const
{
    const CardProperty *said = first("VERSION");
    const QByteArray number = said == nullptr ? QByteArray() : said->rawValue().trimmed();
    if (number.startsWith('4')) return CardVersion::V40;
    return number.startsWith('3') ? CardVersion::V30 : CardVersion::V21;
}

const CardProperty *Card::first(QByteArrayView name) const
{
    for (const CardProperty &property : properties_)
        if (property.name() == name) return &property;
    return nullptr;
}

std::vector<const CardProperty *> Card::all(QByteArrayView name) const
{
    std::vector<const CardProperty *> found;
    for (const CardProperty &property : properties_)
        if (property.name() == name) found.push_back(&property);
    return found;
}

QString Card::label(const CardProperty &property) const
{
    const QByteArray &group = property.head().group();
    if (group.isEmpty()) return {};
    for (const CardProperty &other : properties_) {
        if (other.name() != "X-ABLABEL" || other.head().group().compare(group, Qt::CaseInsensitive) != 0)
            continue;
        QString label = other.text().trimmed();
        if (label.startsWith("_$!<"_L1) && label.endsWith(">!$_"_L1)) label = label.sliced(4).chopped(4);
        return label;
    }
    return {};
}

QByteArray Card::source() const
{
    if (isWhole()) return file_.sliced(begin_.begin, end_ - begin_.begin);
    QByteArray bytes = "BEGIN:VCARD\r\n";
    for (const CardProperty &property : properties_) {
        const CardProperty::Place &place = property.place();
        const char first = file_[place.begin];
        if (first == ' ' || first == '\t') bytes += "\r\n"; // or it would go on with the one before
        bytes += QByteArrayView(file_).sliced(place.begin, place.end - place.begin);
        if (bytes.endsWith('\r')) bytes += '\n'; // or it would be one line end with what comes behind it
        if (!bytes.endsWith('\n')) bytes += "\r\n";
        // What stood between them is gone, so an empty line says where a disguised value is over.
        if (property.head().isQuotedPrintable() || property.head().isBase64()) bytes += "\r\n";
    }
    return bytes + "END:VCARD\r\n";
}
