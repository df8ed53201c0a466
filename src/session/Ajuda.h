// The entries of the help menu and the help key: what leads out of the program.
#pragma once

#include <QStringView>

class Geral;
class QString;
struct Platform;

namespace ajuda
{
// With a web server of its own the build asks for the page there. A server of the reserved domain "invalid"
// is nobody's: then the installed manual is opened, in the active language.
void TopicosAjuda(const Geral &geral, Platform &platform, QStringView servidor);
void Sugerir(const Geral &geral, Platform &platform, QStringView servidor);
void Leiame(const Geral &geral, Platform &platform);

// The installed page about the form of that name; the contents where the form has none.
void Formulario(const Geral &geral, Platform &platform, QStringView nome);

// The name of that page, empty where the form has none.
QString PaginaDoFormulario(QStringView nome);
} // namespace ajuda
