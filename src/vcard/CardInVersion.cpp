#include "vcard/CardInVersion.h"

#include "vcard/Card.h"
#include "vcard/CardContent.h"
#include "vcard/CardPatch.h"
#include "vcard/CardReader.h"
#include "vcard/CardVersion3.h"
#include "vcard/CardWriter.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
CardWriter::Parameters parametersOf(const CardProperty &property, bool withEncoding)
{
    CardWriter::Parameters parameters;
    for (const CardParameter &parameter : property.head().parameters()) {
        if (!withEncoding && (parameter.name == "ENCODING" || parameter.name == "TYPE")) continue;
        QStringList values;
        for (const QByteArray &value : parameter.values)
            values << QString::fromUtf8(value);
        parameters.push_back({parameter.name, values});
    }
    return parameters;
}

// Escapes are the same in both versions; bytes are not.
void writeAsItStands(CardWriter &writer, const CardProperty &property, CardVersion version)
{
    const QByteArray &group = property.head().group();
    const QByteArray name = group.isEmpty() ? property.name() : group + '.' + property.name();
    if (property.head().isBase64() && version == CardVersion::V40)
        writer.uri(name,
                   u"data:application/octet-stream;base64,"_s +
                       QString::fromLatin1(property.decodedBytes().toBase64()),
                   parametersOf(property, false));
    else
        writer.uri(name, QString::fromUtf8(property.rawValue()), parametersOf(property, true));
}

// What the content has no field for, a second firm and a second name, with the labels of their groups.
std::vector<const CardProperty *> othersOf(const Card &card, const CardContent &content)
{
    QSet<QByteArray> names;
    for (const OtherProperty &other : content.others)
        names << other.name;
    QSet<QByteArray> groups;
    bool hasFirm = false;
    std::vector<const CardProperty *> others;
    for (const CardProperty &property : card.properties()) {
        const bool isSecondFirm = property.name() == "ORG" && std::exchange(hasFirm, true);
        const bool isSecondName =
            property.name() == "FN" && property.text().trimmed() != content.formattedName;
        if (!isSecondFirm && !isSecondName && !names.contains(property.name())) continue;
        others.push_back(&property);
        if (!property.head().group().isEmpty()) groups << property.head().group();
    }
    for (const CardProperty *label : card.all("X-ABLABEL"))
        if (groups.contains(label->head().group())) others.push_back(label);
    return others;
}
} // namespace

QByteArray inVersion(const Card &card, CardVersion version)
{
    if (card.version() == version) return card.source();
    if (card.version() == CardVersion::V21) {
        const CardFile file = CardReader().read(toVersion3(card));
        return file.cards.empty() ? QByteArray() : inVersion(file.cards.front(), version);
    }
    const CardContent content = contentOf(card);
    CardWriter writer(version, firstFreeGroup(card));
    writer.content(content);
    for (const CardProperty *other : othersOf(card, content))
        writeAsItStands(writer, *other, version);
    return writer.card();
}
