// The toolkit's own words in its dialogs: those of Portugal where the toolkit only has those of Brazil.
#include "platform/ToolkitLanguage.h"
#include "testlib/Teste.h"

using namespace Qt::StringLiterals;

namespace
{
struct Palavra {
    const char *onde;
    const char *ingles;
    const char16_t *portugal;
};

// clang-format off
constexpr Palavra palavras[] = {
    {"QPlatformTheme", "Save", u"Guardar"},
    {"QPlatformTheme", "Save All", u"Guardar tudo"},
    {"QPlatformTheme", "Reset", u"Repor"},
    {"QPlatformTheme", "Restore Defaults", u"Repor predefinições"},
    {"QFileDialog", "Files", u"Ficheiros"},
    {"QFileDialog", "Files of type:", u"Ficheiros do tipo:"},
    {"QFileDialog", "List View", u"Vista de lista"},
    {"QFileDialog", "Change to list view mode", u"Mudar para a vista de lista"},
    {"QFileDialog", "Detail View", u"Vista de detalhes"},
    {"QFileDialog", "Change to detail view mode", u"Mudar para a vista de detalhes"},
    {"QFileDialog", "Create a New Folder", u"Criar uma nova pasta"},
    {"QFileDialog", "Save As", u"Guardar como"},
    {"QFileDialog", "File &name:", u"&Nome do ficheiro:"},
    {"QFileDialog", "&Save", u"&Guardar"},
    {"QFileDialog", "All Files (*)", u"Todos os ficheiros (*)"},
    {"QFileDialog", "All files (*)", u"Todos os ficheiros (*)"},
    {"QFileDialog", "&Rename", u"Mudar o &nome"},
    {"QFileDialog", "&Delete", u"&Eliminar"},
    {"QFileDialog", "Show &hidden files", u"Mostrar ficheiros &ocultos"},
    {"QFileDialog", "&New Folder", u"Nova &pasta"},
    {"QFileDialog", "%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nPasta não encontrada.\nVerifique se o nome da pasta está certo."},
    {"QFileDialog", "%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nFicheiro não encontrado.\nVerifique se o nome do ficheiro está certo."},
    {"QFileDialog", "%1 already exists.\nDo you want to replace it?", u"%1 já existe.\nDeseja substituí-lo?"},
    {"QFileDialog", "Delete", u"Eliminar"},
    {"QLineEdit", "Delete", u"Eliminar"},
    {"QWidgetTextControl", "Delete", u"Eliminar"},
    {"QFileDialog", "'%1' is write protected.\nDo you want to delete it anyway?",
     u"'%1' está protegido contra escrita.\nDeseja eliminá-lo mesmo assim?"},
    {"QFileDialog", "Are you sure you want to delete '%1'?", u"Deseja mesmo eliminar '%1'?"},
    {"QFileDialog", "Could not delete directory.", u"Não foi possível eliminar a pasta."},
    {"QFileDialog", "My Computer", u"O meu computador"},
    {"QFileSystemModel", "My Computer", u"O meu computador"},
    {"QFileDialog", "%1 File", u"Ficheiro %1"},
    {"QFileDialog", "File Folder", u"Pasta de ficheiros"},
    {"QFileSystemModel", "Invalid filename", u"Nome de ficheiro inválido"},
    {"QFontDialog", "Select Font", u"Escolher fonte"},
    {"QFontDialog", "Stri&keout", u"&Rasurado"},
    {"QFontDialog", "Wr&iting System", u"S&istema de escrita"},
    {"QColorDialog", "Select Color", u"Escolher cor"},
    {"QColorDialog", "&Pick Screen Color", u"E&scolher uma cor do ecrã"},
    {"QColorDialog", "Cursor at %1, %2\nPress ESC to cancel", u"Cursor em %1, %2\nPrima ESC para cancelar"},
    {"QPrintDialog", "Print To File ...", u"Imprimir para ficheiro..."},
    {"QPrintDialog", "Print to File (PDF)", u"Imprimir para ficheiro (PDF)"},
    {"QPrintDialog", "Local file", u"Ficheiro local"},
    {"QPrintDialog", "Write PDF file", u"Gravar ficheiro PDF"},
    {"QPrintDialog", "%1 is a directory.\nPlease choose a different file name.",
     u"%1 é uma pasta.\nEscolha outro nome de ficheiro."},
    {"QPrintDialog", "File %1 is not writable.\nPlease choose a different file name.",
     u"Não é possível escrever no ficheiro %1.\nEscolha outro nome de ficheiro."},
    {"QPrintDialog", "%1 already exists.\nDo you want to overwrite it?",
     u"%1 já existe.\nDeseja substituí-lo?"},
    {"QPrintWidget", "Output &file:", u"Ficheiro de &saída:"},
    {"QPrintWidget", "Preview", u"Pré-visualização"},
    {"QPrintSettingsOutput", "Current Page", u"Página actual"},
    {"QPrintSettingsOutput", "Output Settings", u"Definições de saída"},
    {"QPrintSettingsOutput", "Color", u"Cores"},
    {"QPrintSettingsOutput", "Duplex Printing", u"Frente e verso"},
    {"QPageSetupWidget", "Page Layout", u"Disposição da página"},
    {"QPageSetupWidget", "Portrait", u"Vertical"},
    {"QPageSetupWidget", "Landscape", u"Horizontal"},
    {"QPageSetupWidget", "Reverse landscape", u"Horizontal invertida"},
    {"QPageSetupWidget", "Reverse portrait", u"Vertical invertida"},
    {"QScrollBar", "Scroll here", u"Deslocar para aqui"},
    {"QScrollBar", "Left edge", u"Extremo esquerdo"},
    {"QScrollBar", "Right edge", u"Extremo direito"},
    {"QScrollBar", "Top", u"Início"},
    {"QScrollBar", "Bottom", u"Fim"},
    {"QScrollBar", "Scroll left", u"Deslocar para a esquerda"},
    {"QScrollBar", "Scroll right", u"Deslocar para a direita"},
    {"QScrollBar", "Scroll up", u"Deslocar para cima"},
    {"QScrollBar", "Scroll down", u"Deslocar para baixo"},
    {"QLineEdit", "Cu&t", u"Cor&tar"},
    {"QWidgetTextControl", "Cu&t", u"Cor&tar"},
    {"QLineEdit", "Select All", u"Seleccionar tudo"},
    {"QWidgetTextControl", "Select All", u"Seleccionar tudo"},
    {"QAbstractSpinBox", "&Select All", u"&Seleccionar tudo"},
    {"QPrintSettingsOutput", "Selection", u"Selecção"},
    {"QWidgetTextControl", "Copy &Link Location", u"Copiar o endereço da &ligação"},
};
// clang-format on
} // namespace

class TestToolkitLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { useToolkitLanguage(u"en"_s); }

    void em_Portugal_os_dialogos_do_sistema_falam_portugues_de_Portugal_data()
    {
        QTest::addColumn<QByteArray>("onde");
        QTest::addColumn<QByteArray>("ingles");
        QTest::addColumn<QString>("portugal");
        for (const Palavra &palavra : palavras)
            QTest::addRow("%s: %s", palavra.onde, palavra.ingles)
                << QByteArray(palavra.onde) << QByteArray(palavra.ingles)
                << QString::fromUtf16(palavra.portugal);
    }
    void em_Portugal_os_dialogos_do_sistema_falam_portugues_de_Portugal()
    {
        QFETCH(const QByteArray, onde);
        QFETCH(const QByteArray, ingles);
        QFETCH(const QString, portugal);
        useToolkitLanguage(u"pt_BR"_s);
        const QString brasil = QCoreApplication::translate(onde, ingles);
        QVERIFY(brasil != QString::fromUtf8(ingles)); // the toolkit has such a word
        QVERIFY(brasil != portugal);
        useToolkitLanguage(u"pt_BR"_s, true);
        QCOMPARE(QCoreApplication::translate(onde, ingles), portugal);
    }
    void o_que_e_igual_nos_dois_paises_vem_do_sistema()
    {
        useToolkitLanguage(u"pt_BR"_s, true);
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancelar"_s);
    }
    void uma_tecla_chama_se_o_que_esta_escrito_nela()
    {
        useToolkitLanguage(u"pt_BR"_s, true);
        QCOMPARE(QCoreApplication::translate("QShortcut", "Delete"), u"Delete"_s);
    }
    void a_lingua_anterior_sai_de_todo()
    {
        useToolkitLanguage(u"pt_BR"_s, true);
        useToolkitLanguage(u"fr"_s);
        QCOMPARE(QCoreApplication::translate("QFileDialog", "Save As"), u"Enregistrer sous"_s);
        useToolkitLanguage(u"none"_s, true);
        QCOMPARE(QCoreApplication::translate("QFileDialog", "Save As"), u"Save As"_s);
        QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancel"_s);
    }
};

MORVEX_TESTE(TestToolkitLanguage)
#include "test_ToolkitLanguage.moc"
