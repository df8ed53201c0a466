#include "platform/Translations.h"

#include <algorithm>
#include <QLocale>

namespace
{
constexpr Translations names{u"PortuguesPT", u"PortuguesBR", u"InglesUK", u"EspanholES",
                             u"ItalianoIT",  u"FrancesFR",   u"AlemaoDE"};
constexpr std::array codes{u"pt", u"pt-br", u"en", u"es", u"it", u"fr", u"de"}; // in the same order
constexpr std::size_t english = 2;

// The script, as in "pt-Latn-BR", tells none of them apart.
QString plain(const QString &code) { return code.toLower().replace(u'_', u'-').remove(QStringLiteral("-latn")); }

std::size_t numberOf(const QString &language)
{
    return static_cast<std::size_t>(std::find(names.begin(), names.end(), QStringView(language)) -
                                    names.begin());
}
} // namespace

QString languageOf(const QStringList &preferred)
{
    for (const QString &code : preferred)
        for (std::size_t i = codes.size(); i-- > 0;) // Brazil before the Portuguese of all others
            if ((plain(code) + u'-').startsWith(QString::fromUtf16(codes[i]) + u'-'))
                return QString::fromUtf16(names[i]);
    return QString::fromUtf16(names[english]);
}

QString spokenLanguage(const QString &active)
{
    return numberOf(active) < names.size() ? active : languageOf(QLocale::system().uiLanguages());
}

QString translated(const Translations &words, const QString &language)
{
    const std::size_t number = numberOf(language);
    return QString::fromUtf16(words[number < words.size() ? number : english]);
}
