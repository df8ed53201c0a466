#include "vcard/CardNormalForm.h"

#include "vcard/Card.h"
#include "vcard/CardDecoding.h"
#include "vcard/CardPhoto.h"

#include <algorithm>

namespace
{
QByteArray normalHead(const CardHead &head)
{
    QByteArrayList parameters;
    for (const CardParameter &parameter : head.parameters()) {
        if (parameter.name == "CHARSET" || parameter.name == "ENCODING")
            continue; // of the writing, not of the value
        for (const QByteArray &values : parameter.values)
            for (const QByteArray &value : values.split(','))
                parameters << parameter.name + '=' + value.toUpper();
    }
    std::sort(parameters.begin(), parameters.end());
    parameters.erase(std::unique(parameters.begin(), parameters.end()), parameters.end());
    QByteArray line = head.group().isEmpty() ? head.name() : head.group().toUpper() + '.' + head.name();
    for (const QByteArray &parameter : parameters)
        line += ';' + parameter;
    return line;
}

// Divided at its own separators, each piece escaped in one way.
QByteArray normalValue(const CardProperty &property)
{
    if (property.head().isBase64()) return property.decodedBytes().toBase64();
    QStringList parts = property.parts();
    for (QString &part : parts)
        part.replace(u'\\', QStringLiteral("\\\\"))
            .replace(u';', QStringLiteral("\\;"))
            .replace(u'\n', QStringLiteral("\\n"));
    return parts.join(u';').trimmed().toUtf8();
}
} // namespace

QByteArray normalForm(const Card &card)
{
    QByteArrayList lines;
    for (const CardProperty &property : card.properties())
        if (property.name() != "REV" && property.name() != "PRODID")
            lines << normalHead(property.head()) + ':' + normalValue(property);
    std::sort(lines.begin(), lines.end());
    return lines.join('\n');
}
