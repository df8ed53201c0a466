// The seven languages: column of TblIdiomas, name in the options, code of the help pages.
#pragma once

#include <QStringView>
#include <array>

struct Idioma {
    const char *coluna;     // the identifier, as TblConfig.Idioma holds it
    const char16_t *nome;   // as the user reads it
    const char16_t *ajuda;  // two letters
    const char16_t *codigo; // of the toolkit's translation
    bool disponivel;        // can be chosen at the first run
};

namespace idiomas
{
inline constexpr std::array todos{
    Idioma{"PortuguesPT", u"Português (Portugal)", u"pt", u"pt_BR", true},
    Idioma{"PortuguesBR", u"Português (Brasil)", u"br", u"pt_BR", true},
    Idioma{"InglesUK", u"English", u"uk", u"en", true},
    Idioma{"EspanholES", u"Español", u"es", u"es", false},
    Idioma{"ItalianoIT", u"Italiano", u"it", u"it", false},
    Idioma{"FrancesFR", u"Français", u"fr", u"fr", true},
    Idioma{"AlemaoDE", u"Deutsch", u"de", u"de", false},
};

// The language with that identifier, compared exactly; null where there is none.
const Idioma *Procurar(QStringView coluna);
} // namespace idiomas
