#include "data/Idiomas.h"

#include <QString>
#include <algorithm>

const Idioma *idiomas::Procurar(QStringView coluna)
{
    const auto idioma = std::find_if(todos.begin(), todos.end(),
                                     [&](const Idioma &i) { return coluna == QLatin1String(i.coluna); });
    return idioma == todos.end() ? nullptr : &*idioma;
}
