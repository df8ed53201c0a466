#include "vcard/CardWriter.h"

#include "vcard/CardContent.h"
#include "vcard/CardGroups.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
// Line breaks become one sign, a tab a blank; other control characters go.
QString withoutControls(const QString &text)
{
    QString plain;
    plain.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar sign = text[i];
        if (sign == u'\r')
            plain += i + 1 < text.size() && text[i + 1] == u'\n' ? QString() : u"\n"_s;
        else if (sign == u'\t')
            plain += u' ';
        else if (sign == u'\n' || sign.category() != QChar::Other_Control)
            plain += sign;
    }
    return plain;
}

QByteArray escaped(const QString &text)
{
    QString safe = withoutControls(text);
    safe.replace(u'\\', "\\\\"_L1).replace(u'\n', "\\n"_L1).replace(u',', "\\,"_L1).replace(u';', "\\;"_L1);
    return safe.toUtf8();
}

QByteArray joined(const QStringList &pieces, char separator)
{
    QByteArrayList safe;
    for (const QString &piece : pieces)
        safe << escaped(piece);
    return safe.join(separator);
}

// A value that is more than one word of letters stands in quotation marks, and none can stand in it.
QByteArray parameterValue(const QString &value)
{
    QString safe = withoutControls(value);
    safe.replace(u'\n', u' ').remove(u'"');
    const bool isWord = std::all_of(safe.begin(), safe.end(), [](QChar sign) {
        return sign.isLetterOrNumber() || sign == u'-' || sign == u'_' || sign == u'/' || sign == u'.';
    });
    return isWord ? safe.toUtf8() : '"' + safe.toUtf8() + '"';
}

bool isInsideCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

void appendFolded(QByteArray &lines, const QByteArray &line)
{
    constexpr qsizetype longest = 75; // octets, the blank of a fold included
    for (qsizetype at = 0; at < line.size();) {
        qsizetype end = std::min(line.size(), at + (at == 0 ? longest : longest - 1));
        while (end < line.size() && end > at + 1 && isInsideCharacter(line[end]))
            --end;
        if (at > 0) lines += ' ';
        lines.append(line.constData() + at, end - at);
        lines += "\r\n";
        at = end;
    }
}

// The last word is the family's; a single one is the given name.
QStringList partsOfName(const QString &shown)
{
    const QString name = shown.simplified();
    const qsizetype last = name.lastIndexOf(u' ');
    return {last < 0 ? QString() : name.sliced(last + 1), last < 0 ? name : name.first(last), {}, {}, {}};
}
} // namespace

CardWriter::CardWriter(CardVersion version, int firstGroup)
    : version_(version == CardVersion::V40 ? CardVersion::V40 : CardVersion::V30), group_(firstGroup)
{
}

void CardWriter::line(const QByteArray &name, const Parameters &parameters, const QByteArray &value)
{
    QByteArray line = name;
    for (const Parameter &parameter : parameters) {
        QByteArrayList values;
        for (const QString &each : parameter.values)
            values << parameterValue(each);
        line += ';' + parameter.name + '=' + values.join(',');
    }
    appendFolded(lines_, line + ':' + value);
}

void CardWriter::text(const QByteArray &name, const QString &value, const Parameters &parameters)
{
    line(name, parameters, escaped(value));
}

void CardWriter::parts(const QByteArray &name, const QStringList &parts, const Parameters &parameters)
{
    line(name, parameters, joined(parts, ';'));
}

void CardWriter::list(const QByteArray &name, const QStringList &values, const Parameters &parameters)
{
    line(name, parameters, joined(values, ','));
}

void CardWriter::uri(const QByteArray &name, const QString &value, const Parameters &parameters)
{
    line(name, parameters, withoutControls(value).remove(u'\n').toUtf8());
}

CardWriter::Parameters CardWriter::parametersOf(const QStringList &types, int preference) const
{
    QStringList words = types;
    words.removeAll(u"pref"_s);
    Parameters parameters;
    constexpr int least = 100;
    if (isVersion4() && preference <= least) parameters.push_back({"PREF", {QString::number(preference)}});
    if (!isVersion4()) {
        for (QString &word : words)
            word = word.toUpper();
        if (preference == 1) words << u"PREF"_s;
    }
    if (!words.isEmpty()) parameters.push_back({"TYPE", words});
    return parameters;
}

// The name in a group of its own, in which the label is written at once.
QByteArray CardWriter::labelled(const QByteArray &name, const QString &label)
{
    if (label.isEmpty()) return name;
    const QByteArray group = "item" + QByteArray::number(group_++) + '.';
    text(group + "X-ABLabel", label);
    return group + name;
}

void CardWriter::entry(const QByteArray &name, const CardEntry &entry)
{
    text(labelled(name, entry.label), entry.value, parametersOf(entry.types, entry.preference));
}

void CardWriter::website(const CardEntry &entry)
{
    uri(labelled("URL", entry.label), entry.value, parametersOf(entry.types, entry.preference));
}

void CardWriter::address(const CardAddress &address)
{
    parts(labelled("ADR", address.label),
          {address.box, address.extended, address.street, address.city, address.region, address.code,
           address.country},
          parametersOf(address.types, address.preference));
}

void CardWriter::birthday(const CardDate &date)
{
    Parameters parameters;
    if (date.year == 0 && !isVersion4()) parameters.push_back({"X-APPLE-OMIT-YEAR", {u"1604"_s}});
    line("BDAY", parameters, cardDateText(date, isVersion4()).toLatin1());
}

void CardWriter::photo(const CardPhoto &photo)
{
    if (photo.bytes.isEmpty()) {
        uri("PHOTO", photo.uri, isVersion4() ? Parameters() : Parameters{{"VALUE", {u"uri"_s}}});
        return;
    }
    const QString kind = QString::fromLatin1(pictureKind(photo.bytes));
    if (isVersion4()) {
        const QString type = kind.isEmpty() ? u"application/octet-stream"_s : u"image/"_s + kind;
        line("PHOTO", {}, "data:" + type.toLatin1() + ";base64," + photo.bytes.toBase64());
        return;
    }
    Parameters parameters{{"ENCODING", {u"b"_s}}};
    if (!kind.isEmpty()) parameters.push_back({"TYPE", {kind.toUpper()}});
    line("PHOTO", parameters, photo.bytes.toBase64());
}

void CardWriter::names(const CardContent &content)
{
    const QString shown = shownName(content);
    text("FN", shown.isEmpty() ? u"?"_s : shown);
    if (content.name)
        parts("N", {content.name->family, content.name->given, content.name->middle, content.name->prefix,
                    content.name->suffix});
    else if (!isVersion4()) // which asks for it
        parts("N", partsOfName(shown));
    if (!content.nicknames.isEmpty()) list("NICKNAME", content.nicknames);
    if (!content.organisation.isEmpty()) parts("ORG", content.organisation);
}

void CardWriter::group(const CardContent &content)
{
    if (!content.isGroup) return;
    const QByteArray prefix = isVersion4() ? "" : "X-ADDRESSBOOKSERVER-";
    text(prefix + "KIND", u"group"_s);
    for (const QString &member : content.members)
        uri(prefix + "MEMBER", u"urn:uuid:"_s + member);
}

void CardWriter::content(const CardContent &content)
{
    if (content.uid) text("UID", *content.uid);
    group(content);
    names(content);
    for (const CardEntry &phone : content.phones)
        entry("TEL", phone);
    for (const CardEntry &email : content.emails)
        entry("EMAIL", email);
    for (const CardEntry &each : content.websites)
        website(each);
    for (const CardAddress &each : content.addresses)
        address(each);
    for (const QString &label : content.addressLabels) {
        if (!isVersion4()) text("LABEL", label);
        if (isVersion4() && content.addresses.empty()) parts("ADR", {{}, {}, label, {}, {}, {}, {}});
    }
    for (const CardBirthday &each : content.birthdays)
        each.date ? birthday(*each.date) : text("BDAY", each.text, {{"VALUE", {u"text"_s}}});
    if (!content.categories.isEmpty()) list("CATEGORIES", content.categories);
    for (const CardEntry &note : content.notes)
        entry("NOTE", note);
    for (const CardPhoto &each : content.photos)
        photo(each);
}

QByteArray CardWriter::card() const
{
    const QByteArray version = isVersion4() ? "4.0" : "3.0";
    return "BEGIN:VCARD\r\nVERSION:" + version + "\r\n" + lines_ + "END:VCARD\r\n";
}

QByteArray writtenCard(const CardContent &content, CardVersion version)
{
    CardWriter writer(version);
    writer.content(content);
    return writer.card();
}
