// The rows of tests that run in each language, in the order of the languages.
#pragma once

#include "data/Idiomas.h"

#include <array>
#include <QString>
#include <QTest>

// The column "idioma" alone.
inline void Em_Cada_Lingua()
{
    QTest::addColumn<QString>("idioma");
    for (const Idioma &idioma : idiomas::todos)
        QTest::newRow(idioma.coluna) << QString::fromLatin1(idioma.coluna);
}

// The columns "lingua" and "legenda": a test of one caption.
inline void Nas_Sete_Linguas(const std::array<QString, idiomas::todos.size()> &legendas)
{
    QTest::addColumn<QString>("lingua");
    QTest::addColumn<QString>("legenda");
    for (std::size_t i = 0; i < legendas.size(); ++i) {
        const char *lingua = idiomas::todos[i].coluna;
        QTest::newRow(lingua) << QString::fromLatin1(lingua) << legendas[i];
    }
}
