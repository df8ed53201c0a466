// The rows of a test of one caption: the columns "lingua" and "legenda", in the order of the languages.
#pragma once

#include "data/Idiomas.h"

#include <array>
#include <QString>
#include <QTest>

inline void Nas_Sete_Linguas(const std::array<QString, idiomas::todos.size()> &legendas)
{
    QTest::addColumn<QString>("lingua");
    QTest::addColumn<QString>("legenda");
    for (std::size_t i = 0; i < legendas.size(); ++i) {
        const char *lingua = idiomas::todos[i].coluna;
        QTest::newRow(lingua) << QString::fromLatin1(lingua) << legendas[i];
    }
}
