#include "session/TeclaDeAjuda.h"

#include "session/Ajuda.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace
{
bool E_A_Tecla(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress) return false;
    const auto &tecla = static_cast<const QKeyEvent &>(event);
    return tecla.key() == Qt::Key_F1 && tecla.modifiers() == Qt::NoModifier && !tecla.isAutoRepeat();
}

// The form that holds the control: a question or a file dialog belongs to the form that asked.
QString Formulario_De(const QWidget *controlo)
{
    for (; controlo != nullptr; controlo = controlo->parentWidget())
        for (const QString &nome :
             {controlo->objectName(), QString::fromLatin1(controlo->metaObject()->className())})
            if (!ajuda::PaginaDoFormulario(nome).isEmpty()) return nome;
    return {};
}
} // namespace

TeclaDeAjuda::TeclaDeAjuda(QObject &dono, const Geral &geral, Platform &platform)
    : QObject(&dono), geral_(geral), platform_(platform)
{
    qApp->installEventFilter(this);
}

bool TeclaDeAjuda::eventFilter(QObject *object, QEvent *event)
{
    if (!object->isWidgetType() || !E_A_Tecla(*event)) return QObject::eventFilter(object, event);
    ajuda::Formulario(geral_, platform_, Formulario_De(static_cast<QWidget *>(object)));
    return true;
}
