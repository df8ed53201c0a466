#include "session/Legendas.h"

#include "controls/Controls.h"
#include "controls/ListBox.h"
#include "data/Geral.h"
#include "data/Traduzir.h"
#include "platform/Failure.h"
#include "platform/Translations.h"

#include <array>
#include <QAbstractButton>
#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace
{
enum class Lugar {
    Legenda, // of a label or button
    Dica,    // tip of a picture
    Menu,    // of a menu
    Comando, // of a menu entry
    Botao,   // tip of a toolbar button
    Nome,    // for a screen reader
    Vazia,   // of a list without rows
};

struct EntradaDeTexto {
    Lugar lugar;
    const char *controlo;
    qint16 texto;
};

using enum Lugar;

// clang-format off
constexpr std::array textos = std::to_array<EntradaDeTexto>({
    {Dica, "Thumb", 264}, {Legenda, "lblPesquisa", 3}, {Legenda, "lblGrupo", 184},
    {Dica, "imgTelefone1", 28}, {Dica, "imgTelefone2", 29}, {Dica, "imgTelemovel1", 30},
    {Dica, "imgTelemovel2", 31}, {Dica, "imgTelemovel3", 32}, {Dica, "imgAniversario", 38},
    {Dica, "imgWebsite", 34}, {Dica, "imgMorada", 36}, {Dica, "imgObservacoes", 37}, {Dica, "imgGrupo", 42},
    {Legenda, "cmdNovo", 45}, {Legenda, "cmdEditar", 46}, {Legenda, "cmdEliminar", 47},
    {Menu, "Ficheiro", 125}, {Menu, "Imprimir", 126}, {Comando, "ImprimirLista", 127},
    {Comando, "ImprimirEnvelope", 128}, {Menu, "Utilizadores", 129}, {Comando, "CriarUtilizadores", 130},
    {Comando, "EditarUtilizadores", 131}, {Comando, "EliminarUtilizadores", 132},
    {Comando, "Importar", 133}, {Comando, "Exportar", 257}, {Menu, "Grupos", 134},
    {Comando, "CriarGrupos", 130}, {Comando, "EditarGrupos", 131}, {Comando, "EliminarGrupos", 132},
    {Comando, "Fechar", 135}, {Comando, "Sair", 136}, {Menu, "Contactos", 137},
    {Comando, "NovoContacto", 138}, {Comando, "EditarContacto", 139}, {Comando, "EliminarContacto", 140},
    {Comando, "procurar", 141}, {Comando, "Email", 142}, {Comando, "Website", 143},
    {Comando, "Anterior", 144}, {Comando, "Seguinte", 145}, {Menu, "Ferramentas", 146},
    {Comando, "mnuMailNotification", 252}, {Comando, "Aniversarios", 147}, {Comando, "Memo", 148},
    {Comando, "NovaTarefa", 149}, {Comando, "ListaTarefas", 150}, {Comando, "mnuBackup", 254},
    {Comando, "Opcoes", 151}, {Menu, "Ajuda", 152}, {Comando, "TopicosAjuda", 153},
    {Comando, "Sugerir", 154}, {Comando, "Leiame", 155}, {Comando, "Sobre", 156},
    {Comando, "RightClickEditar", 131}, {Comando, "RightClickEliminar", 132},
    {Comando, "RightClickEmail", 142}, {Comando, "RightClickMessenger", 241},
    {Comando, "RightClickWebsite", 143}, {Comando, "RightClickPrintContacto", 158},
    {Comando, "RightClickEnvelope", 159}, {Comando, "SystemTrayAbrirMorvex", 157},
    {Comando, "SystemTrayProcurar", 141}, {Comando, "SystemTrayNovaTarefa", 149},
    {Comando, "SystemTrayListaTarefas", 150}, {Comando, "SystemTrayMemo", 148},
    {Comando, "SystemTraySobre", 156}, {Comando, "SystemTraySair", 136}, {Comando, "mnuMessenger", 241},
    {Botao, "novo_contacto", 138}, {Botao, "editar_contacto", 139}, {Botao, "eliminar_contacto", 140},
    {Botao, "procurar", 141}, {Botao, "imprimir", 73}, {Botao, "imprimir_envelope", 159},
    {Botao, "enviar_email", 142}, {Botao, "messenger", 241}, {Botao, "visitar_website", 143},
    {Botao, "keyCheckMail", 252}, {Botao, "aniversarios", 147}, {Botao, "memo", 148},
    {Botao, "nova_tarefa", 149}, {Botao, "cima", 144}, {Botao, "baixo", 145}, {Botao, "opcoes", 151},
    {Botao, "ajuda", 266},
    {Comando, "ImportarContactos", 274}, {Comando, "ExportarContactos", 275}, {Comando, "Duplicados", 276},
    {Comando, "Sincronizar", 500},
    {Comando, "RightClickCopiarCartao", 277}, {Comando, "RightClickQR", 278},
    {Nome, "ListaNomes", 137}, {Vazia, "ListaNomes", 2},
});
// clang-format on

// What is said in the code: a database keeps the texts that it was made with, and most are older than these
// entries. The mnemonics are unique in their menus.
struct EntradaNossa {
    const char *controlo;
    Translations palavras;
};

constexpr std::array nossas = std::to_array<EntradaNossa>({
    {"DesfazerEliminar",
     {u"Desfa&zer eliminação", u"Desfa&zer exclusão", u"&Undo Deletion", u"Des&hacer eliminación",
      u"Ann&ulla eliminazione", u"Ann&uler la suppression", u"Löschen &rückgängig machen"}},
    {"ImprimirEtiquetas",
     {u"&Etiquetas", u"&Etiquetas", u"L&abels", u"&Etiquetas", u"E&tichette", u"É&tiquettes", u"&Etiketten"}},
});

constexpr Translations idade{u"Idade", u"Idade", u"Age", u"Edad", u"Età", u"Âge", u"Alter"};

struct ImagemDeEntrada {
    const char *controlo;
    const char *ficheiro;
};

// What stands for menus and entries that come out blank: a menu bar of blank titles has no height, and the
// way out of the program leads through it. With a title a picture would hide it.
constexpr std::array imagens = std::to_array<ImagemDeEntrada>({
    {"Ficheiro", ":/imagens/menu/ficheiro.svg"},
    {"Contactos", ":/imagens/card/grupo.svg"},
    {"Ferramentas", ":/imagens/toolbar/opcoes.svg"},
    {"Ajuda", ":/imagens/toolbar/ajuda.svg"},
    {"Sair", ":/imagens/menu/sair.svg"},
    {"SystemTraySair", ":/imagens/menu/sair.svg"},
});

void Legendar(QMainWindow &janela, const QString &nome, const QString &texto)
{
    if (auto *botao = janela.findChild<QAbstractButton *>(nome))
        botao->setText(texto);
    else
        control<QLabel>(janela, nome).setText(texto);
}

// The box of the card's row to which a picture belongs, if it is one.
QWidget *Caixa_Da_Imagem(const QMainWindow &janela, const QString &imagem)
{
    if (imagem == "imgObservacoes"_L1) return janela.findChild<QWidget *>(u"txtObs"_s);
    return janela.findChild<QWidget *>(QString(imagem).replace(u"img"_s, u"txt"_s));
}

// A tip also names the control, and the box beside it, for a screen reader.
void Dar_Dica(QMainWindow &janela, const QString &nome, const QString &texto)
{
    const QString dica = withoutMnemonic(texto);
    auto &controlo = control<QWidget>(janela, nome);
    controlo.setToolTip(dica);
    controlo.setAccessibleName(dica);
    if (QWidget *caixa = Caixa_Da_Imagem(janela, nome)) caixa->setAccessibleName(dica);
}

// A tip also names the button for a screen reader.
void Dar_Dica_Ao_Botao(QMainWindow &janela, const QString &nome, const QString &dica)
{
    auto &botao = control<QAction>(janela, nome);
    botao.setToolTip(dica);
    if (QWidget *widget = control<QToolBar>(janela, u"Toolbar1"_s).widgetForAction(&botao))
        widget->setAccessibleName(dica);
}

void Atribuir_Um(QMainWindow &janela, const EntradaDeTexto &entrada, const QString &texto)
{
    const QString nome = QLatin1StringView(entrada.controlo);
    switch (entrada.lugar) {
    case Legenda:
        return Legendar(janela, nome, texto);
    case Dica:
        return Dar_Dica(janela, nome, texto);
    case Menu:
        return control<QMenu>(janela, nome).setTitle(texto);
    case Comando:
        return control<QAction>(janela, nome).setText(texto);
    case Botao:
        return Dar_Dica_Ao_Botao(janela, nome, withoutMnemonic(texto));
    case Nome:
        return control<QWidget>(janela, nome).setAccessibleName(withoutMnemonic(texto));
    case Vazia:
        return control<ListBox>(janela, nome).setEmptyText(texto);
    }
}

void Por_Imagem(QMainWindow &janela, const ImagemDeEntrada &imagem)
{
    auto *menu = janela.findChild<QMenu *>(QLatin1StringView(imagem.controlo));
    QAction &entrada =
        menu != nullptr ? *menu->menuAction() : control<QAction>(janela, QLatin1StringView(imagem.controlo));
    if (entrada.text().isEmpty()) entrada.setIcon(QIcon(QLatin1StringView(imagem.ficheiro)));
}

// Proper names, the same in every language.
void Dar_Dicas_Fixas(QMainWindow &janela)
{
    Dar_Dica(janela, u"imgFax"_s, u"Fax"_s);
    Dar_Dica(janela, u"imgEmail1"_s, u"E-mail 1"_s);
    Dar_Dica(janela, u"imgEmail2"_s, u"E-mail 2"_s);
}
} // namespace

void legendas::Atribuir(QMainWindow &janela, Geral &geral)
{
    QHash<qint64, QString> lidos;
    skipFailure([&] { lidos = geral.Ler_Todo_O_Idioma(); });
    for (const EntradaDeTexto &entrada : textos)
        skipFailure([&] {
            const auto lido = lidos.constFind(entrada.texto);
            Atribuir_Um(janela, entrada, lido == lidos.cend() ? geral.Ler_Idioma(entrada.texto) : *lido);
        });
    for (const auto &[controlo, palavras] : nossas)
        control<QAction>(janela, QLatin1StringView(controlo)).setText(Traduzir(palavras, geral));
    Dar_Dicas_Fixas(janela);
    control<QWidget>(janela, u"txtIdade"_s).setAccessibleName(Traduzir(idade, geral));
    for (const ImagemDeEntrada &imagem : imagens)
        Por_Imagem(janela, imagem);
}
