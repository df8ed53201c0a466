// The short texts of the mail checker's errors, one by one in each language.
#include "mail/MailTexts.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Text {
    MailError error;
    std::array<const char16_t *, 7> said;
};
constexpr std::array languages{"PortuguesPT", "PortuguesBR", "InglesUK", "EspanholES",
                               "ItalianoIT",  "FrancesFR",   "AlemaoDE"};
constexpr Text texts[] = {
    {MailError::Address,
     {u"servidor mal escrito", u"nome de servidor inválido", u"server name not valid",
      u"nombre de servidor no válido", u"nome del server errato", u"nom de serveur invalide",
      u"Servername ungültig"}},
    {MailError::NotFound,
     {u"servidor desconhecido", u"servidor desconhecido", u"server not found", u"servidor desconocido",
      u"server sconosciuto", u"serveur introuvable", u"Server nicht gefunden"}},
    {MailError::Unreachable,
     {u"sem ligação ao servidor", u"sem conexão com o servidor", u"cannot connect",
      u"sin conexión al servidor", u"connessione non riuscita", u"connexion impossible",
      u"keine Verbindung"}},
    {MailError::TimedOut,
     {u"o servidor não responde", u"o servidor não responde", u"the server does not answer",
      u"el servidor no responde", u"il server non risponde", u"le serveur ne répond pas",
      u"Server antwortet nicht"}},
    {MailError::Closed,
     {u"ligação interrompida", u"conexão interrompida", u"connection lost", u"conexión interrumpida",
      u"connessione interrotta", u"connexion interrompue", u"Verbindung getrennt"}},
    {MailError::Refused,
     {u"utilizador ou palavra-passe recusados", u"usuário ou senha recusados", u"name or password refused",
      u"usuario o contraseña rechazados", u"nome utente o password rifiutati",
      u"identifiant ou mot de passe refusé", u"Benutzername oder Kennwort abgelehnt"}},
    {MailError::Busy,
     {u"caixa de correio ocupada", u"caixa postal ocupada", u"mailbox busy", u"buzón ocupado",
      u"casella di posta occupata", u"boîte aux lettres occupée", u"Postfach belegt"}},
    {MailError::Certificate,
     {u"certificado sem confiança", u"certificado não confiável", u"certificate not trusted",
      u"certificado no fiable", u"certificato non attendibile", u"certificat non fiable",
      u"Zertifikat nicht vertrauenswürdig"}},
    {MailError::NotEncrypted,
     {u"ligação já não é segura", u"conexão não é mais segura", u"connection no longer secure",
      u"la conexión ya no es segura", u"connessione non più sicura", u"la connexion n’est plus sécurisée",
      u"Verbindung nicht mehr sicher"}},
    {MailError::Garbled,
     {u"resposta sem sentido", u"resposta sem sentido", u"answer not understood", u"respuesta incomprensible",
      u"risposta incomprensibile", u"réponse incompréhensible", u"Antwort unverständlich"}},
};
} // namespace

class TestMailTexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void each_error_is_said_in_each_language_data()
    {
        QTest::addColumn<int>("language");
        for (std::size_t i = 0; i < languages.size(); ++i)
            QTest::newRow(languages[i]) << static_cast<int>(i);
    }
    void each_error_is_said_in_each_language()
    {
        QFETCH(const int, language);
        const auto i = static_cast<std::size_t>(language);
        for (const Text &text : texts)
            QCOMPARE(mailErrorText(text.error, QString::fromLatin1(languages[i])),
                     QString::fromUtf16(text.said[i]));
    }
    void no_error_says_nothing() { QCOMPARE(mailErrorText(MailError::None, u"InglesUK"_s), QString()); }
};

MORVEX_TESTE(TestMailTexts)
#include "test_MailTexts.moc"
