#include "platform/ErrorText.h"

#include "platform/Failure.h"
#include "platform/Translations.h"

namespace
{
struct Words {
    Failure::Kind kind;
    Translations words;
};

// clang-format off
constexpr std::array table{
    Words{Failure::Kind::DatabaseMissing,
          {u"A base de dados não foi encontrada. Ligue o disco em que ela está ou reponha o ficheiro, e inicie o programa outra vez.",
           u"O banco de dados não foi encontrado. Conecte o disco em que ele está ou restaure o arquivo, e inicie o programa de novo.",
           u"The database was not found. Connect the disk that it is on or put the file back, and start the program again.",
           u"No se encontró la base de datos. Conecte el disco en el que está o reponga el archivo, e inicie el programa de nuevo.",
           u"Il database non è stato trovato. Collegare il disco su cui si trova o rimettere il file al suo posto, e riavviare il programma.",
           u"La base de données est introuvable. Connectez le disque sur lequel elle se trouve ou remettez le fichier en place, puis relancez le programme.",
           u"Die Datenbank wurde nicht gefunden. Schließen Sie das Laufwerk an, auf dem sie liegt, oder legen Sie die Datei zurück, und starten Sie das Programm neu."}},
    Words{Failure::Kind::DatabaseLocked,
          {u"Outro programa está a usar a base de dados. Feche-o, ou espere um momento, e tente outra vez.",
           u"Outro programa está usando o banco de dados. Feche-o, ou espere um momento, e tente de novo.",
           u"Another program is using the database. Close it, or wait a moment, and try again.",
           u"Otro programa está usando la base de datos. Ciérrelo, o espere un momento, e inténtelo de nuevo.",
           u"Un altro programma sta usando il database. Chiuderlo, o attendere un momento, e riprovare.",
           u"Un autre programme utilise la base de données. Fermez-le, ou patientez un instant, puis réessayez.",
           u"Ein anderes Programm benutzt die Datenbank. Schließen Sie es oder warten Sie einen Moment, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::DatabaseReadOnly,
          {u"Não é possível escrever na base de dados: o ficheiro, a pasta ou o disco está protegido contra escrita. Retire a protecção, ou peça a quem cuida do computador que lhe deixe escrever ali, e tente outra vez.",
           u"Não é possível gravar no banco de dados: o arquivo, a pasta ou o disco está protegido contra gravação. Retire a proteção, ou peça a quem cuida do computador permissão para gravar ali, e tente de novo.",
           u"The database cannot be written: the file, its folder or the disk is write-protected. Remove the protection, or ask whoever looks after the computer for the right to write there, and try again.",
           u"No se puede escribir en la base de datos: el archivo, la carpeta o el disco está protegido contra escritura. Quite la protección, o pida permiso para escribir allí a quien cuida del ordenador, e inténtelo de nuevo.",
           u"Non è possibile scrivere nel database: il file, la cartella o il disco è protetto da scrittura. Togliere la protezione, o chiedere a chi si occupa del computer il permesso di scrivere lì, e riprovare.",
           u"Impossible d’écrire dans la base de données : le fichier, son dossier ou le disque est protégé en écriture. Retirez la protection, ou demandez à la personne qui s’occupe de l’ordinateur le droit d’y écrire, puis réessayez.",
           u"In die Datenbank kann nicht geschrieben werden: Die Datei, ihr Ordner oder der Datenträger ist schreibgeschützt. Heben Sie den Schutz auf, oder bitten Sie den Betreuer des Computers um das Schreibrecht, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::DatabaseForbidden,
          {u"Não é possível abrir a base de dados: falta a licença para ler o ficheiro ou a pasta. Peça-a a quem cuida do computador e tente outra vez.",
           u"Não é possível abrir o banco de dados: falta permissão para ler o arquivo ou a pasta. Peça-a a quem cuida do computador e tente de novo.",
           u"The database cannot be opened: the right to read the file or its folder is missing. Ask whoever looks after the computer for it, and try again.",
           u"No se puede abrir la base de datos: falta permiso para leer el archivo o la carpeta. Pídalo a quien cuida del ordenador e inténtelo de nuevo.",
           u"Non è possibile aprire il database: manca il permesso di leggere il file o la cartella. Chiederlo a chi si occupa del computer e riprovare.",
           u"Impossible d’ouvrir la base de données : il manque le droit de lire le fichier ou son dossier. Demandez-le à la personne qui s’occupe de l’ordinateur, puis réessayez.",
           u"Die Datenbank kann nicht geöffnet werden: Das Recht, die Datei oder ihren Ordner zu lesen, fehlt. Bitten Sie den Betreuer des Computers darum, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::DatabaseDamaged,
          {u"O ficheiro está danificado ou não é uma base de dados deste programa. Ponha no seu lugar uma cópia de segurança.",
           u"O arquivo está danificado ou não é um banco de dados deste programa. Ponha uma cópia de segurança no lugar dele.",
           u"The file is damaged, or is no database of this program. Put a backup copy in its place.",
           u"El archivo está dañado o no es una base de datos de este programa. Ponga en su lugar una copia de seguridad.",
           u"Il file è danneggiato o non è un database di questo programma. Mettere al suo posto una copia di sicurezza.",
           u"Le fichier est endommagé ou n’est pas une base de données de ce programme. Mettez une copie de sauvegarde à sa place.",
           u"Die Datei ist beschädigt oder keine Datenbank dieses Programms. Legen Sie eine Sicherungskopie an ihre Stelle."}},
    Words{Failure::Kind::DatabaseNewer,
          {u"A base de dados foi escrita por uma versão mais recente do programa. Instale essa versão para a abrir.",
           u"O banco de dados foi gravado por uma versão mais recente do programa. Instale essa versão para abri-lo.",
           u"The database was written by a newer version of the program. Install that version to open it.",
           u"La base de datos fue escrita por una versión más reciente del programa. Instale esa versión para abrirla.",
           u"Il database è stato scritto da una versione più recente del programma. Installare quella versione per aprirlo.",
           u"La base de données a été écrite par une version plus récente du programme. Installez cette version pour l’ouvrir.",
           u"Die Datenbank wurde von einer neueren Version des Programms geschrieben. Installieren Sie diese Version, um sie zu öffnen."}},
    Words{Failure::Kind::DiskFull,
          {u"O disco está cheio. Liberte espaço e tente outra vez: o que estava a fazer não foi gravado.",
           u"O disco está cheio. Libere espaço e tente de novo: o que você estava fazendo não foi gravado.",
           u"The disk is full. Free some space and try again: what you were doing was not stored.",
           u"El disco está lleno. Libere espacio e inténtelo de nuevo: lo que estaba haciendo no se ha guardado.",
           u"Il disco è pieno. Liberare spazio e riprovare: ciò che si stava facendo non è stato salvato.",
           u"Le disque est plein. Libérez de l’espace et réessayez : ce que vous faisiez n’a pas été enregistré.",
           u"Der Datenträger ist voll. Schaffen Sie Platz und versuchen Sie es noch einmal: Was Sie gerade taten, wurde nicht gespeichert."}},
    Words{Failure::Kind::DatabaseOlder,
          {u"A base de dados do servidor é mais antiga do que este programa. Peça a quem cuida do servidor que a actualize com «morvex-servidor atualizar».",
           u"O banco de dados do servidor é mais antigo do que este programa. Peça a quem cuida do servidor que o atualize com “morvex-servidor atualizar”.",
           u"The server’s database is older than this program. Ask whoever looks after the server to update it with “morvex-servidor atualizar”.",
           u"La base de datos del servidor es más antigua que este programa. Pida a quien cuida del servidor que la actualice con «morvex-servidor atualizar».",
           u"Il database del server è più vecchio di questo programma. Chiedere a chi si occupa del server di aggiornarlo con «morvex-servidor atualizar».",
           u"La base de données du serveur est plus ancienne que ce programme. Demandez à la personne qui s’occupe du serveur de la mettre à jour avec « morvex-servidor atualizar ».",
           u"Die Datenbank des Servers ist älter als dieses Programm. Bitten Sie den Betreuer des Servers, sie mit „morvex-servidor atualizar“ zu aktualisieren."}},
    Words{Failure::Kind::AddressBroken,
          {u"O endereço do servidor não se entende. Escreva-o assim: postgresql://utilizador@servidor/base",
           u"O endereço do servidor não pode ser entendido. Escreva-o assim: postgresql://usuario@servidor/base",
           u"The address of the server cannot be understood. Write it like this: postgresql://user@server/database",
           u"No se entiende la dirección del servidor. Escríbala así: postgresql://usuario@servidor/base",
           u"L’indirizzo del server non è comprensibile. Scriverlo così: postgresql://utente@server/database",
           u"L’adresse du serveur est incompréhensible. Écrivez-la ainsi : postgresql://utilisateur@serveur/base",
           u"Die Adresse des Servers ist nicht zu verstehen. Schreiben Sie sie so: postgresql://benutzer@server/datenbank"}},
    Words{Failure::Kind::PasswordInAddress,
          {u"O endereço do servidor não pode conter a palavra-passe: qualquer pessoa a poderia ler. Retire-a do endereço e guarde-a no ficheiro ~/.pgpass, que só o seu utilizador pode ler.",
           u"O endereço do servidor não pode conter a senha: qualquer pessoa poderia lê-la. Retire-a do endereço e guarde-a no arquivo ~/.pgpass, que só o seu usuário pode ler.",
           u"The address of the server must not contain the password: anybody could read it. Take it out of the address and keep it in the file ~/.pgpass, which only your user can read.",
           u"La dirección del servidor no puede contener la contraseña: cualquiera podría leerla. Quítela de la dirección y guárdela en el archivo ~/.pgpass, que solo su usuario puede leer.",
           u"L’indirizzo del server non può contenere la password: chiunque potrebbe leggerla. Toglierla dall’indirizzo e conservarla nel file ~/.pgpass, che solo il proprio utente può leggere.",
           u"L’adresse du serveur ne doit pas contenir le mot de passe : n’importe qui pourrait le lire. Retirez-le de l’adresse et gardez-le dans le fichier ~/.pgpass, que seul votre utilisateur peut lire.",
           u"Die Adresse des Servers darf das Kennwort nicht enthalten: Jeder könnte es lesen. Nehmen Sie es aus der Adresse heraus und bewahren Sie es in der Datei ~/.pgpass auf, die nur Ihr Benutzer lesen kann."}},
    Words{Failure::Kind::ServerUnknown,
          {u"Não há nenhum servidor com esse nome. Verifique o nome no endereço e a ligação à rede.",
           u"Não há nenhum servidor com esse nome. Verifique o nome no endereço e a conexão com a rede.",
           u"There is no server of that name. Check the name in the address, and the network.",
           u"No hay ningún servidor con ese nombre. Compruebe el nombre en la dirección y la conexión a la red.",
           u"Non esiste un server con questo nome. Verificare il nome nell’indirizzo e la rete.",
           u"Aucun serveur ne porte ce nom. Vérifiez le nom dans l’adresse et la connexion au réseau.",
           u"Es gibt keinen Server dieses Namens. Prüfen Sie den Namen in der Adresse und das Netz."}},
    Words{Failure::Kind::ServerRefused,
          {u"O servidor não aceita ligações: a base de dados não está a correr nele, ou a porta é outra. Tente outra vez daqui a pouco, ou fale com quem cuida do servidor.",
           u"O servidor não aceita conexões: o banco de dados não está rodando nele, ou a porta é outra. Tente de novo daqui a pouco, ou fale com quem cuida do servidor.",
           u"The server takes no connections: the database is not running on it, or the port is another one. Try again in a moment, or tell whoever looks after the server.",
           u"El servidor no acepta conexiones: la base de datos no está en marcha en él, o el puerto es otro. Inténtelo de nuevo dentro de un momento, o hable con quien cuida del servidor.",
           u"Il server non accetta connessioni: il database non vi è in funzione, o la porta è un’altra. Riprovare tra poco, o rivolgersi a chi si occupa del server.",
           u"Le serveur n’accepte pas de connexion : la base de données n’y est pas en marche, ou le port est un autre. Réessayez dans un instant, ou parlez-en à la personne qui s’occupe du serveur.",
           u"Der Server nimmt keine Verbindungen an: Die Datenbank läuft dort nicht, oder der Anschluss ist ein anderer. Versuchen Sie es gleich noch einmal, oder sagen Sie dem Betreuer des Servers Bescheid."}},
    Words{Failure::Kind::ServerCertificate,
          {u"Não está provado que este é o servidor certo: o certificado falta, ou não é o dele. Não foi enviado nada. Peça a quem cuida do servidor o certificado certo.",
           u"Não está provado que este é o servidor certo: o certificado falta, ou não é o dele. Nada foi enviado. Peça o certificado certo a quem cuida do servidor.",
           u"It is not proved that this is the right server: the certificate is missing, or is not its own. Nothing was sent. Ask whoever looks after the server for the right certificate.",
           u"No está probado que este sea el servidor correcto: falta el certificado, o no es el suyo. No se ha enviado nada. Pida el certificado correcto a quien cuida del servidor.",
           u"Non è provato che questo sia il server giusto: il certificato manca, o non è il suo. Non è stato inviato nulla. Chiedere il certificato giusto a chi si occupa del server.",
           u"Rien ne prouve que ce soit le bon serveur : le certificat manque, ou n’est pas le sien. Rien n’a été envoyé. Demandez le bon certificat à la personne qui s’occupe du serveur.",
           u"Es ist nicht erwiesen, dass das der richtige Server ist: Das Zertifikat fehlt oder ist nicht seines. Es wurde nichts gesendet. Bitten Sie den Betreuer des Servers um das richtige Zertifikat."}},
    Words{Failure::Kind::ServerForbidden,
          {u"O servidor não deixa entrar este utilizador, ou não a partir deste computador. Fale com quem cuida do servidor.",
           u"O servidor não deixa este usuário entrar, ou não a partir deste computador. Fale com quem cuida do servidor.",
           u"The server does not let this user in, or not from this computer. Tell whoever looks after the server.",
           u"El servidor no deja entrar a este usuario, o no desde este ordenador. Hable con quien cuida del servidor.",
           u"Il server non lascia entrare questo utente, o non da questo computer. Rivolgersi a chi si occupa del server.",
           u"Le serveur ne laisse pas entrer cet utilisateur, ou pas depuis cet ordinateur. Parlez-en à la personne qui s’occupe du serveur.",
           u"Der Server lässt diesen Benutzer nicht ein, oder nicht von diesem Computer aus. Sagen Sie dem Betreuer des Servers Bescheid."}},
    Words{Failure::Kind::ServerPassword,
          {u"A palavra-passe do servidor está errada. Corrija-a no ficheiro ~/.pgpass.",
           u"A senha do servidor está errada. Corrija-a no arquivo ~/.pgpass.",
           u"The password of the server is wrong. Correct it in the file ~/.pgpass.",
           u"La contraseña del servidor es incorrecta. Corríjala en el archivo ~/.pgpass.",
           u"La password del server è sbagliata. Correggerla nel file ~/.pgpass.",
           u"Le mot de passe du serveur est faux. Corrigez-le dans le fichier ~/.pgpass.",
           u"Das Kennwort des Servers ist falsch. Berichtigen Sie es in der Datei ~/.pgpass."}},
    Words{Failure::Kind::ServerNoPassword,
          {u"O servidor pede uma palavra-passe, e não há nenhuma guardada para ele. Escreva-a no ficheiro ~/.pgpass, numa linha assim: servidor:porta:base:utilizador:palavra-passe",
           u"O servidor pede uma senha, e não há nenhuma guardada para ele. Escreva-a no arquivo ~/.pgpass, numa linha assim: servidor:porta:base:usuario:senha",
           u"The server asks for a password, and none is kept for it. Write it into the file ~/.pgpass, on a line like this: server:port:database:user:password",
           u"El servidor pide una contraseña, y no hay ninguna guardada para él. Escríbala en el archivo ~/.pgpass, en una línea así: servidor:puerto:base:usuario:contraseña",
           u"Il server chiede una password, e per esso non ne è conservata nessuna. Scriverla nel file ~/.pgpass, in una riga così: server:porta:database:utente:password",
           u"Le serveur demande un mot de passe, et aucun n’est gardé pour lui. Écrivez-le dans le fichier ~/.pgpass, sur une ligne comme celle-ci : serveur:port:base:utilisateur:mot-de-passe",
           u"Der Server verlangt ein Kennwort, und für ihn ist keines hinterlegt. Schreiben Sie es in die Datei ~/.pgpass, in eine Zeile wie diese: server:port:datenbank:benutzer:kennwort"}},
    Words{Failure::Kind::ServerPasswordFile,
          {u"Outras pessoas podem ler o ficheiro ~/.pgpass, e por isso a palavra-passe não foi lida. Tire-lhes essa licença com «chmod 600 ~/.pgpass» e tente outra vez.",
           u"Outras pessoas podem ler o arquivo ~/.pgpass, e por isso a senha não foi lida. Retire essa permissão com “chmod 600 ~/.pgpass” e tente de novo.",
           u"Other people may read the file ~/.pgpass, and so the password was not looked at. Take that right away with “chmod 600 ~/.pgpass”, and try again.",
           u"Otras personas pueden leer el archivo ~/.pgpass, y por eso no se ha leído la contraseña. Quíteles ese permiso con «chmod 600 ~/.pgpass» e inténtelo de nuevo.",
           u"Altre persone possono leggere il file ~/.pgpass, e perciò la password non è stata letta. Togliere loro il permesso con «chmod 600 ~/.pgpass» e riprovare.",
           u"D’autres personnes peuvent lire le fichier ~/.pgpass, et le mot de passe n’a donc pas été lu. Retirez-leur ce droit avec « chmod 600 ~/.pgpass », puis réessayez.",
           u"Andere können die Datei ~/.pgpass lesen, deshalb wurde das Kennwort nicht gelesen. Nehmen Sie ihnen dieses Recht mit „chmod 600 ~/.pgpass“, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::ServerNoDatabase,
          {u"O servidor responde, mas não tem nenhuma base de dados com esse nome. Verifique o nome no fim do endereço.",
           u"O servidor responde, mas não tem nenhum banco de dados com esse nome. Verifique o nome no fim do endereço.",
           u"The server answers, but has no database of that name. Check the name at the end of the address.",
           u"El servidor responde, pero no tiene ninguna base de datos con ese nombre. Compruebe el nombre al final de la dirección.",
           u"Il server risponde, ma non ha un database con questo nome. Verificare il nome alla fine dell’indirizzo.",
           u"Le serveur répond, mais n’a pas de base de données de ce nom. Vérifiez le nom à la fin de l’adresse.",
           u"Der Server antwortet, hat aber keine Datenbank dieses Namens. Prüfen Sie den Namen am Ende der Adresse."}},
    Words{Failure::Kind::ServerLost,
          {u"Sem ligação ao servidor. O que escreveu continua aqui: espere que o servidor volte e tente outra vez.",
           u"Sem conexão com o servidor. O que você escreveu continua aqui: espere o servidor voltar e tente de novo.",
           u"No connection to the server. What you have written is still here: wait for the server to come back, and try again.",
           u"Sin conexión con el servidor. Lo que ha escrito sigue aquí: espere a que el servidor vuelva e inténtelo de nuevo.",
           u"Nessuna connessione al server. Ciò che si è scritto è ancora qui: attendere che il server torni e riprovare.",
           u"Pas de connexion au serveur. Ce que vous avez écrit est toujours là : attendez le retour du serveur, puis réessayez.",
           u"Keine Verbindung zum Server. Was Sie geschrieben haben, ist noch da: Warten Sie, bis der Server zurück ist, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::ServerLibraryMissing,
          {u"Falta neste computador a biblioteca que fala com servidores. Instale o pacote libpq5, ou peça-o a quem cuida do computador, e tente outra vez.",
           u"Falta neste computador a biblioteca que fala com servidores. Instale o pacote libpq5, ou peça-o a quem cuida do computador, e tente de novo.",
           u"The library that speaks with servers is missing on this computer. Install the package libpq5, or ask whoever looks after the computer to, and try again.",
           u"Falta en este ordenador la biblioteca que habla con servidores. Instale el paquete libpq5, o pídaselo a quien cuida del ordenador, e inténtelo de nuevo.",
           u"Su questo computer manca la libreria che parla con i server. Installare il pacchetto libpq5, o chiederlo a chi si occupa del computer, e riprovare.",
           u"Il manque à cet ordinateur la bibliothèque qui parle avec les serveurs. Installez le paquet libpq5, ou demandez-le à la personne qui s’occupe de l’ordinateur, puis réessayez.",
           u"Auf diesem Computer fehlt die Bibliothek, die mit Servern spricht. Installieren Sie das Paket libpq5, oder bitten Sie den Betreuer des Computers darum, und versuchen Sie es noch einmal."}},
    Words{Failure::Kind::ServersNotReached,
          {u"Esta edição do programa não chega a servidores: trabalha só com um ficheiro. Ponha o caminho de um ficheiro no lugar do endereço, nas opções ou em config.ini.",
           u"Esta edição do programa não acessa servidores: trabalha só com um arquivo. Ponha o caminho de um arquivo no lugar do endereço, nas opções ou em config.ini.",
           u"This edition of the program reaches no servers: it works with a file alone. Put the path of a file in the place of the address, in the options or in config.ini.",
           u"Esta edición del programa no llega a servidores: solo trabaja con un archivo. Ponga la ruta de un archivo en lugar de la dirección, en las opciones o en config.ini.",
           u"Questa edizione del programma non raggiunge i server: lavora soltanto con un file. Mettere il percorso di un file al posto dell’indirizzo, nelle opzioni o in config.ini.",
           u"Cette édition du programme n’accède à aucun serveur\u00a0: elle ne travaille qu’avec un fichier. Mettez le chemin d’un fichier à la place de l’adresse, dans les options ou dans config.ini.",
           u"Diese Ausgabe des Programms erreicht keine Server: Sie arbeitet nur mit einer Datei. Setzen Sie in den Optionen oder in config.ini den Pfad einer Datei an die Stelle der Adresse."}},
};
// clang-format on

// The first characters alone are looked at: a description may hold a whole file.
QString readable(const QString &text, qsizetype longest)
{
    QString shown = text.left(longest);
    for (QChar &character : shown)
        if (character.category() == QChar::Other_Control && character != u'\n') character = u' ';
    constexpr qsizetype mostLines = 12;
    shown = shown.trimmed().section(u'\n', 0, mostLines - 1);
    if (!shown.isEmpty() && shown.back().isHighSurrogate()) shown.chop(1);
    return text.size() > longest || text.count(u'\n') >= mostLines ? shown + u'…' : shown;
}
} // namespace

ErrorText errorText(const Failure &failure, const QString &language)
{
    constexpr qsizetype longestDescription = 600;
    constexpr qsizetype longestSource = 200;
    QString details = QString::number(failure.number());
    if (!failure.source().isEmpty())
        details += QStringLiteral(" · ") + readable(failure.source(), longestSource);
    const QString description = readable(failure.description(), longestDescription);
    for (const Words &known : table)
        if (known.kind == failure.kind())
            return {translated(known.words, language), details + u'\n' + description};
    return {description, details};
}
