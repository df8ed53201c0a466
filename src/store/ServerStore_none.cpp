// For a build without the library that speaks with servers: it says so.
#include "platform/Failure.h"
#include "platform/Translations.h"
#include "store/ServerStore.h"

#include <QUrl>

namespace
{
// clang-format off
constexpr Translations noServers{
    u"Esta edição do programa não chega a servidores: trabalha só com um ficheiro. Escolha um ficheiro no lugar do endereço.",
    u"Esta edição do programa não acessa servidores: trabalha só com um arquivo. Escolha um arquivo no lugar do endereço.",
    u"This edition of the program reaches no servers: it works with a file alone. Choose a file in the place of the address.",
    u"Esta edición del programa no llega a servidores: solo trabaja con un archivo. Elija un archivo en lugar de la dirección.",
    u"Questa edizione del programma non raggiunge i server: lavora soltanto con un file. Scegliere un file al posto dell’indirizzo.",
    u"Cette édition du programme n’accède à aucun serveur\u00a0: elle ne travaille qu’avec un fichier. Choisissez un fichier à la place de l’adresse.",
    u"Diese Ausgabe des Programms erreicht keine Server: Sie arbeitet nur mit einer Datei. Wählen Sie an der Stelle der Adresse eine Datei."};
// clang-format on

// In the desktop's language: which one is active is not known here.
[[noreturn]] void raise(const QString &address)
{
    throw Failure(Failure::StoreError, server_store::shown(address),
                  translated(noServers, spokenLanguage({})));
}
} // namespace

QString server_store::shown(const QString &address)
{
    const QUrl url(address.trimmed());
    const QString nothingToShow = QStringLiteral("postgresql://…");
    return url.isValid() ? url.toString(QUrl::RemovePassword | QUrl::RemoveQuery | QUrl::RemoveFragment)
                         : nothingToShow;
}

std::unique_ptr<Store> server_store::open(const QString &address) { raise(address); }

std::unique_ptr<Store> server_store::openReadOnly(const QString &address) { raise(address); }
