#include "platform/CommandLine.h"

#include "platform/Translations.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
// clang-format off
constexpr Translations aboutProgram{
    u"Agenda de contactos com despertador e vigia do correio.",
    u"Agenda de contatos com despertador e monitor de e-mails.",
    u"Contact book with an alarm clock and a mail watcher.",
    u"Agenda de contactos con despertador y aviso de correo.",
    u"Rubrica con sveglia e controllo della posta.",
    u"Carnet d’adresses avec réveil et surveillance du courrier.",
    u"Adressbuch mit Wecker und E-Mail-Überwachung."};
constexpr Translations aboutHelp{
    u"Mostra esta ajuda e termina.",
    u"Mostra esta ajuda e encerra.",
    u"Shows this help and ends.",
    u"Muestra esta ayuda y termina.",
    u"Mostra questo aiuto e termina.",
    u"Affiche cette aide et se termine.",
    u"Zeigt diese Hilfe an und beendet sich."};
constexpr Translations aboutVersion{
    u"Mostra a versão e termina.",
    u"Mostra a versão e encerra.",
    u"Shows the version and ends.",
    u"Muestra la versión y termina.",
    u"Mostra la versione e termina.",
    u"Affiche la version et se termine.",
    u"Zeigt die Version an und beendet sich."};
constexpr Translations aboutMinimized{
    u"Começa na área de notificação, sem mostrar a janela.",
    u"Inicia na bandeja do sistema, sem mostrar a janela.",
    u"Starts in the notification area, without showing the window.",
    u"Se inicia en la bandeja del sistema, sin mostrar la ventana.",
    u"Si avvia nell’area di notifica, senza mostrare la finestra.",
    u"Démarre dans la zone de notification, sans afficher la fenêtre.",
    u"Startet im Infobereich, ohne das Fenster zu zeigen."};
constexpr Translations aboutFiles{
    u"Ficheiros a importar: contactos (.vcf, .csv) ou dados de uma versão anterior (.mdb, .dat).",
    u"Arquivos a importar: contatos (.vcf, .csv) ou dados de uma versão anterior (.mdb, .dat).",
    u"Files to import: contacts (.vcf, .csv) or data of an earlier release (.mdb, .dat).",
    u"Archivos que importar: contactos (.vcf, .csv) o datos de una versión anterior (.mdb, .dat).",
    u"File da importare: contatti (.vcf, .csv) o dati di una versione precedente (.mdb, .dat).",
    u"Fichiers à importer\u00a0: contacts (.vcf, .csv) ou données d’une version antérieure (.mdb, .dat).",
    u"Zu importierende Dateien: Kontakte (.vcf, .csv) oder Daten einer früheren Version (.mdb, .dat)."};
constexpr Translations filesName{
    u"ficheiros", u"arquivos", u"files", u"archivos", u"file", u"fichiers", u"Dateien"};
constexpr Translations unknownOption{
    u"Opção desconhecida:",
    u"Opção desconhecida:",
    u"Unknown option:",
    u"Opción desconocida:",
    u"Opzione sconosciuta:",
    u"Option inconnue\u00a0:",
    u"Unbekannte Option:"};
constexpr Translations unknownKind{
    u"Não é possível abrir ficheiros deste tipo:",
    u"Não é possível abrir arquivos deste tipo:",
    u"Files of this kind cannot be opened:",
    u"No se pueden abrir archivos de este tipo:",
    u"Non è possibile aprire file di questo tipo:",
    u"Il est impossible d’ouvrir les fichiers de ce type\u00a0:",
    u"Dateien dieser Art können nicht geöffnet werden:"};
constexpr Translations noFile{
    u"O ficheiro não existe:",
    u"O arquivo não existe:",
    u"The file does not exist:",
    u"El archivo no existe:",
    u"Il file non esiste:",
    u"Le fichier n’existe pas\u00a0:",
    u"Die Datei ist nicht vorhanden:"};
constexpr Translations seeHelp{
    u"As opções são mostradas por: morvex --help",
    u"As opções são mostradas por: morvex --help",
    u"The options are shown by: morvex --help",
    u"Las opciones se muestran con: morvex --help",
    u"Le opzioni sono mostrate da: morvex --help",
    u"Les options sont affichées par\u00a0: morvex --help",
    u"Die Optionen zeigt: morvex --help"};
// clang-format on

// What the toolkit and the session manager put on the line for the toolkit alone: it is let pass, and no help
// tells of it.
void letToolkitOptionsPass(QCommandLineParser &parser)
{
    const auto add = [&](const char *name, const QString &value) {
        QCommandLineOption option(QString::fromLatin1(name), {}, value);
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    };
    for (const char *flag : {"reverse", "sync", "nograb", "dograb"})
        add(flag, {});
    for (const char *withValue :
         {"platform", "platformpluginpath", "platformtheme", "plugin", "style", "stylesheet", "session",
          "display", "geometry", "qwindowgeometry", "title", "qwindowtitle", "icon", "qwindowicon", "name"})
        add(withValue, u"value"_s);
}

// Why one file cannot be opened; empty where it can.
QString objectionTo(const QFileInfo &file, const QStringList &endings, const QString &language)
{
    const auto about = [&](const Translations &words) {
        return translated(words, language) + u' ' + QDir::toNativeSeparators(file.filePath());
    };
    if (!endings.contains(file.suffix().toLower())) return about(unknownKind);
    return file.exists() && !file.isDir() ? QString() : about(noFile);
}
} // namespace

CommandLine::CommandLine(const QStringList &words, const QStringList &endings, const QString &version,
                         const QString &language)
{
    const auto say = [&](const Translations &what) { return translated(what, language); };
    const QCommandLineOption help({u"h"_s, u"help"_s}, say(aboutHelp));
    const QCommandLineOption versionAsked({u"v"_s, u"version"_s}, say(aboutVersion));
    const QCommandLineOption minimized(u"minimized"_s, say(aboutMinimized));
    QCommandLineParser parser;
    parser.setApplicationDescription(say(aboutProgram));
    parser.setSingleDashWordOptionMode(
        QCommandLineParser::ParseAsLongOptions); // as the toolkit's are written
    parser.addOptions({help, versionAsked, minimized});
    letToolkitOptionsPass(parser);
    parser.addPositionalArgument(say(filesName), say(aboutFiles), u'[' + say(filesName) + u"...]"_s);

    const bool understood = parser.parse(words);
    QString objection;
    if (!parser.unknownOptionNames().isEmpty())
        objection = say(unknownOption) + u' ' + parser.unknownOptionNames().constFirst();
    else if (!understood)
        objection = parser.errorText();
    for (const QString &name : parser.positionalArguments()) {
        const QFileInfo file(name);
        if (objection.isEmpty()) objection = objectionTo(file, endings, language);
        files_ << QDir::cleanPath(file.absoluteFilePath());
    }
    minimized_ = parser.isSet(minimized);

    if (!objection.isEmpty()) {
        kind_ = Kind::Refusal;
        text_ = objection + u'\n' + say(seeHelp) + u'\n';
    } else if (parser.isSet(help) || parser.isSet(versionAsked)) {
        kind_ = Kind::Answer;
        text_ = parser.isSet(help) ? parser.helpText() : u"Morvex "_s + version + u'\n';
    }
}
