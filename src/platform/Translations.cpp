#include "platform/Translations.h"

namespace
{
constexpr Translations names{u"PortuguesPT", u"PortuguesBR", u"InglesUK", u"EspanholES",
                             u"ItalianoIT",  u"FrancesFR",   u"AlemaoDE"};
constexpr std::size_t english = 2;
} // namespace

QString translated(const Translations &words, const QString &language)
{
    std::size_t number = english;
    for (std::size_t i = 0; i < names.size(); ++i)
        if (language == QStringView(names[i])) number = i;
    return QString::fromUtf16(words[number]);
}
