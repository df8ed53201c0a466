#include "platform/ToolkitLanguage.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace
{
struct Word {
    const char *english;
    const char16_t *portuguese;
};

// clang-format off
constexpr std::array words = std::to_array<Word>({
    {"Save", u"Guardar"},
    {"Save All", u"Guardar tudo"},
    {"Reset", u"Repor"},
    {"Restore Defaults", u"Repor predefinições"},
    {"Files", u"Ficheiros"},
    {"Files of type:", u"Ficheiros do tipo:"},
    {"List View", u"Vista de lista"},
    {"Change to list view mode", u"Mudar para a vista de lista"},
    {"Detail View", u"Vista de detalhes"},
    {"Change to detail view mode", u"Mudar para a vista de detalhes"},
    {"Create a New Folder", u"Criar uma nova pasta"},
    {"Save As", u"Guardar como"},
    {"File &name:", u"&Nome do ficheiro:"},
    {"&Save", u"&Guardar"},
    {"All Files (*)", u"Todos os ficheiros (*)"},
    {"All files (*)", u"Todos os ficheiros (*)"},
    {"&Rename", u"Mudar o &nome"},
    {"&Delete", u"&Eliminar"},
    {"Show &hidden files", u"Mostrar ficheiros &ocultos"},
    {"&New Folder", u"Nova &pasta"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nPasta não encontrada.\nVerifique se o nome da pasta está certo."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nFicheiro não encontrado.\nVerifique se o nome do ficheiro está certo."},
    {"%1 already exists.\nDo you want to replace it?", u"%1 já existe.\nDeseja substituí-lo?"},
    {"Delete", u"Eliminar"},
    {"'%1' is write protected.\nDo you want to delete it anyway?",
     u"'%1' está protegido contra escrita.\nDeseja eliminá-lo mesmo assim?"},
    {"Are you sure you want to delete '%1'?", u"Deseja mesmo eliminar '%1'?"},
    {"Could not delete directory.", u"Não foi possível eliminar a pasta."},
    {"My Computer", u"O meu computador"},
    {"%1 File", u"Ficheiro %1"},
    {"File Folder", u"Pasta de ficheiros"},
    {"Invalid filename", u"Nome de ficheiro inválido"},
    {"Select Font", u"Escolher fonte"},
    {"Stri&keout", u"&Rasurado"},
    {"Wr&iting System", u"S&istema de escrita"},
    {"Select Color", u"Escolher cor"},
    {"&Pick Screen Color", u"E&scolher uma cor do ecrã"},
    {"Cursor at %1, %2\nPress ESC to cancel", u"Cursor em %1, %2\nPrima ESC para cancelar"},
    {"Print To File ...", u"Imprimir para ficheiro..."},
    {"Print to File (PDF)", u"Imprimir para ficheiro (PDF)"},
    {"Local file", u"Ficheiro local"},
    {"Write PDF file", u"Gravar ficheiro PDF"},
    {"%1 is a directory.\nPlease choose a different file name.",
     u"%1 é uma pasta.\nEscolha outro nome de ficheiro."},
    {"File %1 is not writable.\nPlease choose a different file name.",
     u"Não é possível escrever no ficheiro %1.\nEscolha outro nome de ficheiro."},
    {"%1 already exists.\nDo you want to overwrite it?", u"%1 já existe.\nDeseja substituí-lo?"},
    {"Output &file:", u"Ficheiro de &saída:"},
    {"Preview", u"Pré-visualização"},
    {"Current Page", u"Página actual"},
    {"Output Settings", u"Definições de saída"},
    {"Color", u"Cores"},
    {"Duplex Printing", u"Frente e verso"},
    {"Page Layout", u"Disposição da página"},
    {"Portrait", u"Vertical"},
    {"Landscape", u"Horizontal"},
    {"Reverse landscape", u"Horizontal invertida"},
    {"Reverse portrait", u"Vertical invertida"},
    {"Scroll here", u"Deslocar para aqui"},
    {"Left edge", u"Extremo esquerdo"},
    {"Right edge", u"Extremo direito"},
    {"Top", u"Início"},
    {"Bottom", u"Fim"},
    {"Scroll left", u"Deslocar para a esquerda"},
    {"Scroll right", u"Deslocar para a direita"},
    {"Scroll up", u"Deslocar para cima"},
    {"Scroll down", u"Deslocar para baixo"},
    {"Cu&t", u"Cor&tar"},
    {"Select All", u"Seleccionar tudo"},
    {"&Select All", u"&Seleccionar tudo"},
    {"Selection", u"Selecção"},
    {"Copy &Link Location", u"Copiar o endereço da &ligação"},
});
// clang-format on

// What it does not hold, the next translator is asked for. The names of keys stay as they stand on them.
class WordsOfPortugal final : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        const auto found = std::find_if(words.begin(), words.end(),
                                        [&](const Word &word) { return qstrcmp(word.english, source) == 0; });
        const bool key = qstrcmp(context, "QShortcut") == 0;
        return found == words.end() || key ? QString() : QString::fromUtf16(found->portuguese);
    }
};

constexpr auto ours = "toolkit"_L1; // marks the translators that come from here

void install(QTranslator *translator)
{
    translator->setObjectName(ours);
    QCoreApplication::installTranslator(translator);
}
} // namespace

void useToolkitLanguage(const QString &code, bool ofPortugal)
{
    QCoreApplication &application = *QCoreApplication::instance();
    qDeleteAll(application.findChildren<QTranslator *>(ours, Qt::FindDirectChildrenOnly));
    auto *translator = new QTranslator(&application);
    const bool loaded =
        translator->load(u"qtbase_"_s + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath));
    if (loaded)
        install(translator);
    else
        delete translator;
    if (loaded && ofPortugal) install(new WordsOfPortugal(&application));
}
