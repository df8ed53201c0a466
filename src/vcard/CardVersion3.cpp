#include "vcard/CardVersion3.h"

#include "vcard/Card.h"
#include "vcard/CardWriter.h"

using namespace Qt::StringLiterals;

namespace
{
CardWriter::Parameters parametersOf(const CardProperty &property)
{
    CardWriter::Parameters parameters;
    for (const CardParameter &parameter : property.head().parameters()) {
        if (parameter.name == "CHARSET" || parameter.name == "ENCODING") continue;
        QStringList values;
        for (const QByteArray &value : parameter.values)
            values << QString::fromUtf8(value);
        parameters.push_back({parameter.name, values});
    }
    return parameters;
}

bool isAddressOfWeb(const CardProperty &property)
{
    const QByteArray value = property.head().value("VALUE").toLower();
    return property.name() == "URL" || value == "url" || value == "uri";
}

bool isText(const QByteArray &name)
{
    static const QByteArrayList texts{"FN",   "NOTE", "TITLE", "ROLE", "TEL",    "EMAIL",    "LABEL",
                                      "BDAY", "TZ",   "UID",   "REV",  "MAILER", "X-ABLABEL"};
    return texts.contains(name);
}

void write(CardWriter &writer, const CardProperty &property)
{
    const QByteArray &group = property.head().group();
    const QByteArray name = group.isEmpty() ? property.name() : group + '.' + property.name();
    CardWriter::Parameters parameters = parametersOf(property);
    if (property.head().isBase64()) {
        parameters.push_back({"ENCODING", {u"b"_s}});
        writer.uri(name, QString::fromLatin1(property.decodedBytes().toBase64()), parameters);
    } else if (isAddressOfWeb(property)) {
        writer.uri(name, property.text(), parameters);
    } else if (property.name() == "CATEGORIES" || property.name() == "NICKNAME") {
        writer.list(name, property.list(), parameters);
    } else if (isText(property.name())) {
        writer.text(name, property.text(), parameters);
    } else {
        writer.parts(name, property.parts(), parameters); // a private value may be a structure
    }
}
} // namespace

QByteArray toVersion3(const Card &card)
{
    if (card.version() != CardVersion::V21) return card.source();
    CardWriter writer(CardVersion::V30);
    for (const CardProperty &property : card.properties())
        if (property.name() != "VERSION") write(writer, property);
    return writer.card();
}
