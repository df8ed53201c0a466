#include "session/BaseDesaparecida.h"

#include "data/Geral.h"
#include "data/Idiomas.h"
#include "data/ValorLongo.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/ToolkitLanguage.h"
#include "platform/Translations.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
// The texts of the program lie in the very file that is missing.
// clang-format off
constexpr Translations pergunta{
    u"A base de dados não foi encontrada:\r\n%1\r\n\r\nDeseja indicar onde está agora o ficheiro?",
    u"O banco de dados não foi encontrado:\r\n%1\r\n\r\nDeseja indicar onde o arquivo está agora?",
    u"The database was not found:\r\n%1\r\n\r\nDo you want to choose the file where it is now?",
    u"No se encontró la base de datos:\r\n%1\r\n\r\n¿Desea indicar dónde está ahora el archivo?",
    u"Il database non è stato trovato:\r\n%1\r\n\r\nIndicare dove si trova ora il file?",
    u"La base de données est introuvable :\r\n%1\r\n\r\nVoulez-vous indiquer où se trouve le fichier maintenant ?",
    u"Die Datenbank wurde nicht gefunden:\r\n%1\r\n\r\nMöchten Sie angeben, wo die Datei jetzt liegt?"};
constexpr Translations filtro{
    u"Bases de dados", u"Bancos de dados", u"Databases", u"Bases de datos", u"Database", u"Bases de données",
    u"Datenbanken"};
// clang-format on

bool Falta(Geral &geral)
{
    return !geral.de.Num_Servidor() && !QFileInfo::exists(geral.de.Base().Caminho());
}

bool Quer_Indicar(const QString &caminho, Platform &platform, const QString &lingua)
{
    return platform.boxes.show(translated(pergunta, lingua).arg(caminho), box::exclamation | box::yesNo,
                               nullptr) == answer::yes;
}

// A file that turns out to be no database changes nothing.
bool Serve(const QString &ficheiro, Geral &geral, Platform &platform)
{
    if (!Cabe_No_Ini(ficheiro)) {
        Recusar_Valor_Longo(ficheiro, geral, platform, nullptr);
        return false;
    }
    const QString anterior = geral.de.Base().Trocar(ficheiro);
    bool serve = true;
    onFailure([&] { geral.de.Abrir("cmdVerConfig").Close(); },
              [&](const Failure &falha) {
                  platform.boxes.showError(falha);
                  geral.de.Fechar_Ligacao(); // it may have opened, and be another program's
                  geral.de.Base().Trocar(anterior);
                  serve = false;
              });
    return serve;
}
} // namespace

void base_desaparecida::Procurar(Geral &geral, Platform &platform)
{
    const QString lingua = spokenLanguage(geral.IdiomaActual);
    while (Falta(geral)) {
        useToolkitLanguage(QString::fromUtf16(idiomas::Procurar(lingua)->codigo), lingua == "PortuguesPT"_L1);
        const QString caminho = geral.de.Base().Caminho();
        if (!Quer_Indicar(caminho, platform, lingua)) return;
        const auto ficheiro = platform.dialogs.openFile(translated(filtro, lingua) + u"|*.mdb"_s,
                                                        QFileInfo(caminho).path(), nullptr);
        if (ficheiro && Serve(*ficheiro, geral, platform))
            geral.ini.Escrever_Ini(u"basedados"_s, u"caminhobd"_s, *ficheiro);
    }
}
