// Words of the platform's own in every language of the program: of its errors, its preview window, its
// progress. They stand in the code because the services that say them know no table of texts.
#pragma once

#include <array>
#include <QString>
#include <QStringList>

// One meaning, in this order: Portuguese of Portugal, Portuguese of Brazil, English, Spanish, Italian,
// French, German.
using Translations = std::array<const char16_t *, 7>;

// The language of that kind of name which the desktop's user prefers, by codes such as "pt-BR" with the best
// first; English where none of the seven is among them.
QString languageOf(const QStringList &codes);

// That language where it is one of the seven, otherwise the desktop's: for words that come before a language
// is active.
QString spokenLanguage(const QString &active);

// The one in the language of that name ("AlemaoDE"); an unknown name reads as English.
QString translated(const Translations &words, const QString &language);
