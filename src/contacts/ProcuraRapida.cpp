#include "contacts/ProcuraRapida.h"

#include "contacts/ListaContactos.h"
#include "data/Geral.h"
#include "data/Traduzir.h"
#include "janela/Janela.h"
#include "platform/Platform.h"

#include <algorithm>
#include <optional>
#include <QAbstractButton>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
constexpr qint16 texto_lista_vazia = 2;
constexpr qint16 texto_nenhum_contacto = 72;
constexpr Translations nenhum{u"Sem resultados",   u"Sem resultados", u"No matches",   u"Sin resultados",
                              u"Nessun risultato", u"Aucun résultat", u"Keine Treffer"};
constexpr QChar fim_do_texto = u'¦';

// Character by character, so that a name keeps its length: case does not count, accents do.
bool Igual_Em_Maiusculas(QStringView a, QStringView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](QChar x, QChar y) { return x == y || x.toUpper() == y.toUpper(); });
}

// How many characters of a name are compared. A mark that was typed cuts that short and stays in the text,
// which then begins no name.
qsizetype Comprimento(const QString &texto) { return (texto + fim_do_texto).indexOf(fim_do_texto); }

// One character of one or two bytes, which is what nearly all names are made of; none for a longer one.
std::optional<QChar> Tirar_Caracter(std::string_view &nome)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(nome[i]); };
    constexpr unsigned ascii = 0x80, segundo = 0x3F, primeiro = 0x1F;
    if (byte(0) < ascii) {
        const QChar caracter(byte(0));
        nome.remove_prefix(1);
        return caracter;
    }
    if (byte(0) < 0xC2 || byte(0) > 0xDF || nome.size() < 2 || (byte(1) & ~segundo) != ascii) return {};
    const QChar caracter((byte(0) & primeiro) << 6 | (byte(1) & segundo));
    nome.remove_prefix(2);
    return caracter;
}

// Compared where the name lies: each key asks many thousands of names, most of which differ at once.
bool Comeca_Por(std::string_view nome, QStringView texto, qsizetype comprimento)
{
    if (texto.size() > comprimento) return false;
    for (; !texto.empty() && !nome.empty(); texto = texto.mid(1)) {
        const auto caracter = Tirar_Caracter(nome);
        if (!caracter) return Igual_Em_Maiusculas(QString::fromUtf8(nome).left(texto.size()), texto);
        if (*caracter != texto.front() && caracter->toUpper() != texto.front().toUpper()) return false;
    }
    return texto.empty();
}
} // namespace

ProcuraRapida::ProcuraRapida(Janela &janela, Geral &geral, Platform &platform, ListaContactos &lista)
    : QObject(&janela),
      geral_(geral),
      platform_(platform),
      lista_(lista),
      janela_(janela),
      txtProcura(*janela.txtProcura),
      ListaNomes(*janela.ListaNomes),
      lblContador(*janela.lblContador),
      cmdEditar(*janela.cmdEditar),
      cmdEliminar(*janela.cmdEliminar)
{
    connect(&txtProcura, &QLineEdit::textChanged, this, &ProcuraRapida::txtProcura_Change);
    connect(&txtProcura, &QLineEdit::textEdited, this, [this] { escrito_ = true; });
    connect(&ListaNomes, &ListBox::Click, this, &ProcuraRapida::Calar);
    connect(ListaNomes.model(), &QAbstractItemModel::modelReset, this, &ProcuraRapida::Calar);
    txtProcura.installEventFilter(this);
}

void ProcuraRapida::txtProcura_Change()
{
    if (ListaNomes.ListCount() == 0) {
        platform_.boxes.show(geral_.Ler_Idioma(texto_lista_vazia), box::ok, janela_.windowTitle(), &janela_);
        return;
    }
    const QString texto = txtProcura.text();
    const qsizetype comprimento = Comprimento(texto);
    const int fim = ListaNomes.ListCount() - 1;
    int linha = 0;
    while (linha < fim && !Comeca_Por(ListaNomes.ListUtf8(linha), texto, comprimento))
        ++linha;
    if (Comeca_Por(ListaNomes.ListUtf8(linha), texto, comprimento))
        ListaNomes.setListIndex(linha);
    else
        Dizer_Que_Nao_Ha();
}

// The short words where the count stands, which has no room for more; the whole sentence to the mouse and to
// a screen reader, which has the keyboard in the box.
void ProcuraRapida::Dizer_Que_Nao_Ha()
{
    sem_resultados_ = true;
    const QString frase = geral_.Ler_Idioma(texto_nenhum_contacto);
    txtProcura.setToolTip(frase);
    txtProcura.setAccessibleDescription(frase);
    lblContador.setText(Traduzir(nenhum, geral_));
}

void ProcuraRapida::Calar()
{
    if (!std::exchange(sem_resultados_, false)) return;
    txtProcura.setToolTip({});
    txtProcura.setAccessibleDescription({});
    lista_.Mostrar_Contador();
}

bool ProcuraRapida::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusIn:
        txtProcura_GotFocus(static_cast<QFocusEvent *>(event)->reason());
        return false;
    case QEvent::FocusOut:
        Q_EMIT KeyPreview(true);
        return false;
    case QEvent::ShortcutOverride:
        return Deixa_Desfazer(*static_cast<QKeyEvent *>(event));
    case QEvent::KeyPress:
        Marcar_Tudo();
        return txtProcura_KeyDown(*static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

// Coming back to the window or from a menu is no new beginning: the text stays as it was being typed.
void ProcuraRapida::txtProcura_GotFocus(Qt::FocusReason razao)
{
    Q_EMIT KeyPreview(false);
    if (razao == Qt::ActiveWindowFocusReason || razao == Qt::PopupFocusReason) return;
    if (razao != Qt::MouseFocusReason) return txtProcura.selectAll();
    // Behind the press that brought the focus, for that takes the selection away again; and before a letter that
    // is already waiting, or the next one would replace it.
    por_marcar_ = true;
    QMetaObject::invokeMethod(this, &ProcuraRapida::Marcar_Tudo, Qt::QueuedConnection);
}

void ProcuraRapida::Marcar_Tudo()
{
    if (std::exchange(por_marcar_, false)) txtProcura.selectAll();
}

// The keys that undo belong to what was done last: to the text as long as it was typed after the deletion. An
// event that the box does not take finds the menu entry.
bool ProcuraRapida::Deixa_Desfazer(QKeyEvent &tecla) const
{
    if (escrito_ || !tecla.matches(QKeySequence::Undo) || !janela_.DesfazerEliminar->isEnabled())
        return false;
    tecla.ignore();
    return true;
}

// A button that is disabled takes no click.
bool ProcuraRapida::txtProcura_KeyDown(const QKeyEvent &tecla)
{
    if (tecla.modifiers() & ~Qt::KeypadModifier) return false;
    switch (tecla.key()) {
    case Qt::Key_F2:
        cmdEditar.click();
        return true;
    case Qt::Key_Delete:
        if (!cmdEliminar.isEnabled()) return false; // the box deletes text
        cmdEliminar.click();
        return true;
    case Qt::Key_Escape:
        Q_EMIT Minimizar_Tray();
        return true;
    case Qt::Key_Up:
        ListaNomes.setFocus();
        lista_.Contacto_Anterior();
        return true;
    case Qt::Key_Down:
        ListaNomes.setFocus();
        lista_.Contacto_Seguinte();
        return true;
    default:
        return false;
    }
}
