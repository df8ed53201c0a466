// Words of the platform's own in every language of the program: of its errors, its preview window, its
// progress. They stand in the code because the services that say them know no table of texts.
#pragma once

#include <array>
#include <QString>

// One meaning, in this order: Portuguese of Portugal, Portuguese of Brazil, English, Spanish, Italian,
// French, German.
using Translations = std::array<const char16_t *, 7>;

// The one in the language of that name ("AlemaoDE"); an unknown name reads as English.
QString translated(const Translations &words, const QString &language);
