#include "report/DefinitionXml.h"

#include "platform/Failure.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr double longest = 100'000; // twips; no sheet of paper is longer
} // namespace

void DefinitionXml::raise(const QString &what) const
{
    throw Failure(Failure::InvalidPropertyValue, u"ReportDefinition"_s,
                  u"%1, line %2, column %3: %4"_s.arg(path_, QString::number(xml_.lineNumber()),
                                                      QString::number(xml_.columnNumber()), what));
}

void DefinitionXml::checkXml() const
{
    if (xml_.hasError()) raise(xml_.errorString());
}

void DefinitionXml::begin() { attributes_ = xml_.attributes(); }

void DefinitionXml::end() const
{
    if (!attributes_.isEmpty())
        raise(u"<%1> takes no attribute \"%2\""_s.arg(xml_.name(), attributes_.first().name()));
}

QString DefinitionXml::text(const char *name, const QString &otherwise)
{
    const auto found = std::find_if(attributes_.begin(), attributes_.end(), [&](const auto &attribute) {
        return attribute.name() == QLatin1StringView(name);
    });
    if (found == attributes_.end()) return otherwise;
    QString value = found->value().toString();
    attributes_.erase(found);
    return value;
}

QString DefinitionXml::needed(const char *name)
{
    QString value = text(name);
    if (value.isEmpty())
        raise(u"<%1> needs the attribute \"%2\""_s.arg(xml_.name(), QLatin1StringView(name)));
    return value;
}

double DefinitionXml::length(const char *name, double otherwise)
{
    const QString value = text(name);
    if (value.isEmpty()) return otherwise;
    bool valid = false;
    const double number = value.toDouble(&valid);
    if (!valid || !(number >= 0 && number <= longest))
        raise(u"\"%1\" is no length: %2"_s.arg(QLatin1StringView(name), value));
    return number;
}

bool DefinitionXml::flag(const char *name)
{
    const QString value = text(name, u"no"_s);
    if (value != "yes"_L1 && value != "no"_L1)
        raise(u"\"%1\" is yes or no, not %2"_s.arg(QLatin1StringView(name), value));
    return value == "yes"_L1;
}

int DefinitionXml::textNumber()
{
    const QString value = text("text", u"0"_s);
    bool valid = false;
    const int number = value.toInt(&valid);
    if (!valid || number < 0) raise(u"\"text\" is the number of a text, not %1"_s.arg(value));
    return number;
}

unsigned DefinitionXml::colour(const char *name, unsigned otherwise)
{
    const QString value = text(name);
    if (value.isEmpty()) return otherwise;
    bool valid = false;
    const unsigned number = QStringView(value).mid(1).toUInt(&valid, 16);
    if (!valid || value.size() != 7 || value[0] != u'#')
        raise(u"A colour is written #rrggbb, not %1"_s.arg(value));
    return number;
}

bool DefinitionXml::child()
{
    while (!xml_.atEnd()) {
        switch (xml_.readNext()) {
        case QXmlStreamReader::StartElement:
            return true;
        case QXmlStreamReader::EndElement:
            return false;
        case QXmlStreamReader::Characters:
            if (!xml_.isWhitespace()) raise(u"There is text where an element was expected"_s);
            break;
        default:
            break;
        }
    }
    checkXml();
    return false;
}

void DefinitionXml::rest()
{
    while (!xml_.atEnd())
        xml_.readNext();
    checkXml();
}

void DefinitionXml::empty()
{
    end();
    if (child()) raise(u"<%1> doesn't belong here"_s.arg(xml_.name()));
}
