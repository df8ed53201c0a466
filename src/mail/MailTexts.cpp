#include "mail/MailTexts.h"

#include "platform/Translations.h"

namespace
{
struct Texts {
    MailError error;
    Translations words;
};

constexpr std::array table{
    Texts{MailError::Address,
          {u"servidor mal escrito", u"nome de servidor inválido", u"server name not valid",
           u"nombre de servidor no válido", u"nome del server errato", u"nom de serveur invalide",
           u"Servername ungültig"}},
    Texts{MailError::NotFound,
          {u"servidor desconhecido", u"servidor desconhecido", u"server not found", u"servidor desconocido",
           u"server sconosciuto", u"serveur introuvable", u"Server nicht gefunden"}},
    Texts{MailError::Unreachable,
          {u"sem ligação ao servidor", u"sem conexão com o servidor", u"cannot connect",
           u"sin conexión al servidor", u"connessione non riuscita", u"connexion impossible",
           u"keine Verbindung"}},
    Texts{MailError::TimedOut,
          {u"o servidor não responde", u"o servidor não responde", u"the server does not answer",
           u"el servidor no responde", u"il server non risponde", u"le serveur ne répond pas",
           u"Server antwortet nicht"}},
    Texts{MailError::Closed,
          {u"ligação interrompida", u"conexão interrompida", u"connection lost", u"conexión interrumpida",
           u"connessione interrotta", u"connexion interrompue", u"Verbindung getrennt"}},
    Texts{MailError::Refused,
          {u"utilizador ou palavra-passe recusados", u"usuário ou senha recusados",
           u"name or password refused", u"usuario o contraseña rechazados",
           u"nome utente o password rifiutati", u"identifiant ou mot de passe refusé",
           u"Benutzername oder Kennwort abgelehnt"}},
    Texts{MailError::Busy,
          {u"caixa de correio ocupada", u"caixa postal ocupada", u"mailbox busy", u"buzón ocupado",
           u"casella di posta occupata", u"boîte aux lettres occupée", u"Postfach belegt"}},
    Texts{MailError::Certificate,
          {u"certificado sem confiança", u"certificado não confiável", u"certificate not trusted",
           u"certificado no fiable", u"certificato non attendibile", u"certificat non fiable",
           u"Zertifikat nicht vertrauenswürdig"}},
    Texts{MailError::NotEncrypted,
          {u"ligação já não é segura", u"conexão não é mais segura", u"connection no longer secure",
           u"la conexión ya no es segura", u"connessione non più sicura",
           u"la connexion n’est plus sécurisée", u"Verbindung nicht mehr sicher"}},
    Texts{MailError::Garbled,
          {u"resposta sem sentido", u"resposta sem sentido", u"answer not understood",
           u"respuesta incomprensible", u"risposta incomprensibile", u"réponse incompréhensible",
           u"Antwort unverständlich"}},
};
} // namespace

QString mailErrorText(MailError error, const QString &language)
{
    for (const Texts &texts : table)
        if (texts.error == error) return translated(texts.words, language);
    return {};
}
