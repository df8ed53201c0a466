#include "session/Ajuda.h"

#include "data/Geral.h"
#include "data/Idiomas.h"
#include "platform/Shell.h"

using namespace Qt::StringLiterals;

namespace
{
QString Pagina(const QString &caminho) { return u"http://"_s + QLatin1StringView(MORVEX_WEB_HOST) + caminho; }
} // namespace

// The page is one for all languages, so the language's code is worked out and not passed on.
void ajuda::TopicosAjuda(const Geral &geral, Shell &shell)
{
    [[maybe_unused]] const Idioma *idioma = idiomas::Procurar(geral.IdiomaActual);
    shell.open(Pagina(u"/morvex/ajuda.php"_s));
}

void ajuda::Sugerir(Shell &shell) { shell.open(Pagina(u"/sugerir.htm"_s)); }

void ajuda::Leiame(const Geral &geral, Shell &shell) { shell.open(geral.Ficheiro(u"leiame.txt"_s)); }
