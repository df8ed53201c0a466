#include "session/ServidorAusente.h"

#include "data/Geral.h"
#include "platform/ErrorText.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

using namespace Qt::StringLiterals;

namespace
{
// Nothing has been written yet that could still be there.
// clang-format off
constexpr Translations ninguem_respondeu{
    u"O servidor não respondeu a tempo. Verifique a ligação à rede, ou espere que o servidor volte.",
    u"O servidor não respondeu a tempo. Verifique a conexão com a rede, ou espere o servidor voltar.",
    u"The server did not answer in time. Check the network, or wait for the server to come back.",
    u"El servidor no ha respondido a tiempo. Compruebe la conexión a la red, o espere a que el servidor vuelva.",
    u"Il server non ha risposto in tempo. Verificare la rete, o attendere che il server torni.",
    u"Le serveur n’a pas répondu à temps. Vérifiez la connexion au réseau, ou attendez le retour du serveur.",
    u"Der Server hat nicht rechtzeitig geantwortet. Prüfen Sie das Netz, oder warten Sie, bis der Server zurück ist."};
// clang-format on

bool Do_Servidor(Failure::Kind razao)
{
    using enum Failure::Kind;
    switch (razao) {
    case DatabaseOlder:
    case AddressBroken:
    case PasswordInAddress:
    case ServerUnknown:
    case ServerRefused:
    case ServerCertificate:
    case ServerForbidden:
    case ServerPassword:
    case ServerNoPassword:
    case ServerPasswordFile:
    case ServerNoDatabase:
    case ServerLost:
    case ServerLibraryMissing:
    case ServersNotReached:
        return true;
    default:
        return false;
    }
}

bool Quer_Tentar_De_Novo(const Failure &falha, const Geral &geral, Platform &platform)
{
    return platform.boxes.show(servidor_ausente::Palavras(falha, geral), box::stop | box::retryLeave, nullptr) ==
           answer::retry;
}
} // namespace

QString servidor_ausente::Palavras(const Failure &falha, const Geral &geral)
{
    const QString lingua = spokenLanguage(geral.IdiomaActual);
    const ErrorText texto = errorText(falha, lingua);
    const bool calado = falha.kind() == Failure::Kind::ServerLost;
    return (calado ? translated(ninguem_respondeu, lingua) : texto.words) + u"\r\n\r\n"_s + texto.details;
}

void servidor_ausente::Insistir(Geral &geral, Platform &platform, const std::function<void()> &pedido)
{
    while (true) {
        try {
            return pedido();
        } catch (const Failure &falha) {
            if (!geral.de.Num_Servidor() || !Do_Servidor(falha.kind())) throw;
            if (!Quer_Tentar_De_Novo(falha, geral, platform)) {
                platform.process.end();
                throw;
            }
        }
        geral.de.Base().Tomar(geral.ini.Ler_Ini(u"basedados"_s, u"caminhobd"_s)); // somebody may have mended it
    }
}
