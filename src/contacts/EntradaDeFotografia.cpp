#include "contacts/EntradaDeFotografia.h"

#include "contacts/FotografiaNova.h"
#include "platform/Translations.h"

#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>

namespace
{
constexpr Translations colar{u"Co&lar fotografia", u"Co&lar foto",         u"&Paste Photograph",
                             u"&Pegar fotografía", u"I&ncolla fotografia", u"Co&ller la photo",
                             u"Foto &einfügen"};

const QMimeData *Na_Area_De_Transferencia() { return QGuiApplication::clipboard()->mimeData(); }

bool Ha_Fotografia_Para_Colar()
{
    const QMimeData *dados = Na_Area_De_Transferencia();
    return dados != nullptr && Pode_Ser_Fotografia(*dados);
}

// What has a text as well is the field's.
bool E_Da_Fotografia(const QKeyEvent &tecla)
{
    return tecla.matches(QKeySequence::Paste) && Ha_Fotografia_Para_Colar() &&
           !Na_Area_De_Transferencia()->hasText();
}
} // namespace

EntradaDeFotografia::EntradaDeFotografia(QWidget &form, QLabel &Thumb) : QObject(&form), Thumb_(Thumb)
{
    Thumb_.setAcceptDrops(true);
    Thumb_.setContextMenuPolicy(Qt::ActionsContextMenu);
    Thumb_.addAction(&Colar_);
    Colar_.setShortcut(QKeySequence::Paste);
    Permitir_Colar();
    connect(&Colar_, &QAction::triggered, this, &EntradaDeFotografia::Colar_Click);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &EntradaDeFotografia::Permitir_Colar);
    Thumb_.installEventFilter(this);
    for (QLineEdit *campo : form.findChildren<QLineEdit *>())
        campo->installEventFilter(this);
    for (QPlainTextEdit *campo : form.findChildren<QPlainTextEdit *>())
        campo->installEventFilter(this);
}

void EntradaDeFotografia::Legendar(const QString &lingua) { Colar_.setText(translated(colar, lingua)); }

void EntradaDeFotografia::Permitir_Colar() { Colar_.setEnabled(Ha_Fotografia_Para_Colar()); }

void EntradaDeFotografia::Colar_Click()
{
    if (Ha_Fotografia_Para_Colar()) Q_EMIT Veio(*Na_Area_De_Transferencia());
}

bool EntradaDeFotografia::eventFilter(QObject *alvo, QEvent *evento)
{
    switch (evento->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return alvo == &Thumb_ && Receber(*static_cast<QDropEvent *>(evento));
    case QEvent::ShortcutOverride:
        if (!E_Da_Fotografia(*static_cast<QKeyEvent *>(evento))) return false;
        evento->ignore(); // the field doesn't hear of it, and the entry does
        return true;
    default:
        return false;
    }
}

// A copy: what is moved the other program would delete.
bool EntradaDeFotografia::Receber(QDropEvent &evento)
{
    if (!Pode_Ser_Fotografia(*evento.mimeData()) || !evento.possibleActions().testFlag(Qt::CopyAction)) {
        evento.ignore();
        return true;
    }
    evento.setDropAction(Qt::CopyAction);
    evento.accept();
    if (evento.type() == QEvent::Drop) Q_EMIT Veio(*evento.mimeData());
    return true;
}
