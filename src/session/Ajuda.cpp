#include "session/Ajuda.h"

#include "data/Geral.h"
#include "data/Idiomas.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

#include <algorithm>
#include <array>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
// clang-format off
constexpr Translations sem_manual{
    u"O manual não foi encontrado. Volte a instalar o Morvex para o repor.",
    u"O manual não foi encontrado. Instale o Morvex novamente para recuperá-lo.",
    u"The manual was not found. Install Morvex again to restore it.",
    u"No se encontró el manual. Vuelva a instalar Morvex para recuperarlo.",
    u"Il manuale non è stato trovato. Installare di nuovo Morvex per ripristinarlo.",
    u"Le manuel est introuvable. Réinstallez Morvex pour le rétablir.",
    u"Das Handbuch wurde nicht gefunden. Installieren Sie Morvex neu, um es wiederherzustellen."};

struct PaginaDe {
    const char16_t *formulario;
    const char16_t *pagina;
};

constexpr std::array paginas = std::to_array<PaginaDe>({
    {u"frmLoading", u"primeiros-passos"}, {u"frmOpcoes", u"primeiros-passos"},
    {u"frmSeleccionarIdioma", u"primeiros-passos"}, {u"frmSobre", u"primeiros-passos"},
    {u"Main", u"contactos"}, {u"frmAddEdit", u"contactos"}, {u"frmEmail", u"contactos"},
    {u"frmProcurar", u"contactos"}, {u"frmVerImagem", u"contactos"},
    {u"frmLogin", u"grupos-e-utilizadores"}, {u"frmNovoUser", u"grupos-e-utilizadores"},
    {u"frmEditUser", u"grupos-e-utilizadores"}, {u"frmDeleteUser", u"grupos-e-utilizadores"},
    {u"frmNovoGrupo", u"grupos-e-utilizadores"}, {u"frmEditGroup", u"grupos-e-utilizadores"},
    {u"frmDeleteGroup", u"grupos-e-utilizadores"},
    {u"frmAddEditTarefa", u"lembretes"}, {u"frmListaTarefas", u"lembretes"}, {u"frmTarefas", u"lembretes"},
    {u"frmPopup", u"lembretes"}, {u"frmAniversarios", u"lembretes"},
    {u"frmMemo", u"memos"},
    {u"frmAddEditEmail", u"correio-e-messenger"}, {u"frmPopupEmail", u"correio-e-messenger"},
    {u"frmImprimir", u"impressao"}, {u"frmEnvelope", u"impressao"}, {u"frmEtiquetas", u"impressao"},
    {u"ReportPreview", u"impressao"},
    {u"frmImportar", u"importar-e-exportar"}, {u"frmImportar2", u"importar-e-exportar"},
    {u"frmCampos", u"importar-e-exportar"}, {u"frmDuplicados", u"importar-e-exportar"},
    {u"frmImportarContactos", u"importar-e-exportar"},
    {u"frmImportarMDB", u"importar-e-exportar"}, {u"frmExportar", u"importar-e-exportar"},
    {u"frmExportarContactos", u"importar-e-exportar"}, {u"frmQR", u"importar-e-exportar"},
    {u"frmSincronizar", u"importar-e-exportar"}, {u"frmPopupSincronizacao", u"importar-e-exportar"},
    {u"frmBackup", u"copia-de-seguranca"},
    {u"frmConflito", u"varios-postos"},
});
// clang-format on

bool De_Ninguem(QStringView servidor) { return servidor.endsWith(".invalid"_L1); }

QString Na_Web(QStringView servidor, const QString &caminho)
{
    return u"http://"_s + servidor.toString() + caminho;
}

void Abrir_Pagina(const Geral &geral, Platform &platform, const QString &pagina)
{
    const QString lingua = spokenLanguage(geral.IdiomaActual);
    const QString codigo = QString::fromUtf16(idiomas::Procurar(lingua)->ajuda);
    const QString ficheiro = u"%1/%2/%3.html"_s.arg(geral.PastaDoManual, codigo, pagina);
    if (!geral.PastaDoManual.isEmpty() && QFileInfo::exists(ficheiro))
        platform.shell.open(ficheiro);
    else
        platform.boxes.show(translated(sem_manual, lingua), box::exclamation, nullptr);
}
} // namespace

// The page on the web is one for all languages.
void ajuda::TopicosAjuda(const Geral &geral, Platform &platform, QStringView servidor)
{
    if (De_Ninguem(servidor))
        Abrir_Pagina(geral, platform, u"index"_s);
    else
        platform.shell.open(Na_Web(servidor, u"/morvex/ajuda.php"_s));
}

void ajuda::Sugerir(const Geral &geral, Platform &platform, QStringView servidor)
{
    if (De_Ninguem(servidor))
        Abrir_Pagina(geral, platform, u"sugerir"_s);
    else
        platform.shell.open(Na_Web(servidor, u"/sugerir.htm"_s));
}

void ajuda::Leiame(const Geral &geral, Platform &platform)
{
    platform.shell.open(geral.Ficheiro(u"leiame.txt"_s));
}

QString ajuda::PaginaDoFormulario(QStringView nome)
{
    const auto linha =
        std::find_if(paginas.begin(), paginas.end(), [&](const PaginaDe &p) { return nome == p.formulario; });
    return linha == paginas.end() ? QString() : QString::fromUtf16(linha->pagina);
}

void ajuda::Formulario(const Geral &geral, Platform &platform, QStringView nome)
{
    const QString pagina = PaginaDoFormulario(nome);
    Abrir_Pagina(geral, platform, pagina.isEmpty() ? u"index"_s : pagina);
}
