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
