#include "testlib/Nomes.h"

#include "platform/Caption.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QSlider>
#include <QTabBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace
{
// What the forms keep for the program alone: values and lists that are never shown.
const QStringList nunca_mostrados{
    u"txtIDGrupo"_s,  u"txtIDTarefa"_s,   u"txtIDRepeticao"_s, u"txtGrupoID"_s,  u"txtBD"_s,
    u"txtId"_s,       u"txtLeft"_s,       u"txtTop"_s,         u"txtFontName"_s, u"txtFontSize"_s,
    u"txtFontBold"_s, u"txtFontItalic"_s, u"txtCorFundo"_s,    u"ListaNomes2"_s, u"lstEmails"_s,
    u"txtMessages"_s, u"ListaMorvex43"_s, u"semOmissao"_s};

template<class... Tipos> bool E_Um(const QObject *objecto)
{
    return (... || (qobject_cast<const Tipos *>(objecto) != nullptr));
}

// Of a control that speaks for it.
bool E_Parte(const QWidget &widget)
{
    if (E_Um<QScrollBar, QHeaderView>(&widget) || widget.inherits("QTableCornerButton")) return true;
    for (const QWidget *dono = widget.parentWidget(); dono != nullptr; dono = dono->parentWidget())
        if (E_Um<QComboBox, QAbstractSpinBox, QTabBar, QLineEdit, QMenuBar>(dono)) return true;
    return widget.objectName().startsWith("qt_toolbar_ext"_L1);
}

// A picture that takes a click, of the controls without letters.
bool E_Imagem(const QLabel &rotulo)
{
    return rotulo.cursor().shape() == Qt::PointingHandCursor &&
           (!rotulo.pixmap(Qt::ReturnByValue).isNull() || rotulo.inherits("IconLabel") ||
            rotulo.inherits("PictureLabel"));
}

bool E_Usado(const QWidget &widget)
{
    if (nunca_mostrados.contains(widget.objectName()) || E_Parte(widget)) return false;
    if (const auto *rotulo = qobject_cast<const QLabel *>(&widget)) return E_Imagem(*rotulo);
    return E_Um<QAbstractButton, QAbstractItemView, QAbstractSpinBox, QComboBox, QGroupBox, QLineEdit,
                QPlainTextEdit, QProgressBar, QSlider, QTabBar>(&widget);
}

// This toolkit takes the value of a combo box for its name, and leaves what it is to its label; without a
// label a screen reader has the description.
QString Nome_Da_Caixa(const QAccessibleInterface &caixa)
{
    for (const auto &[outro, relacao] : caixa.relations(QAccessible::Label))
        return outro->text(QAccessible::Name);
    return caixa.text(QAccessible::Description);
}

nomes::Nome Do_Controlo(QWidget &widget, const QWidget &form)
{
    const QAccessibleInterface &visto = *QAccessible::queryAccessibleInterface(&widget);
    const bool caixa = E_Um<QComboBox>(&widget);
    return {widget.objectName(), caixa ? Nome_Da_Caixa(visto) : visto.text(QAccessible::Name),
            withoutMnemonic(widget.property(E_Um<QGroupBox>(&widget) ? "title" : "text").toString()),
            visto.role(), E_Um<QToolBar>(widget.parent()) ? widget.parent() : &form};
}

void Juntar_Separadores(QTabBar &barra, QList<nomes::Nome> &todos)
{
    const QAccessibleInterface &vista = *QAccessible::queryAccessibleInterface(&barra);
    for (int i = 0; i < barra.count(); ++i)
        todos << nomes::Nome{barra.objectName() + QString::number(i), vista.child(i)->text(QAccessible::Name),
                             withoutMnemonic(barra.tabText(i)), vista.child(i)->role(), &barra};
}

void Juntar_Menu(QMenu &menu, QList<nomes::Nome> &todos)
{
    const QAccessibleInterface &visto = *QAccessible::queryAccessibleInterface(&menu);
    const QList<QAction *> entradas = menu.actions();
    for (int i = 0; i < entradas.size(); ++i)
        if (!entradas[i]->isSeparator())
            todos << nomes::Nome{entradas[i]->objectName(), visto.child(i)->text(QAccessible::Name),
                                 withoutMnemonic(entradas[i]->text()), QAccessible::MenuItem, &menu};
}
} // namespace

QList<nomes::Nome> nomes::De(QWidget &form)
{
    QList<Nome> todos;
    for (QWidget *widget : form.findChildren<QWidget *>()) {
        if (auto *menu = qobject_cast<QMenu *>(widget)) Juntar_Menu(*menu, todos);
        if (auto *barra = qobject_cast<QTabBar *>(widget)) Juntar_Separadores(*barra, todos);
        if (E_Usado(*widget)) todos << Do_Controlo(*widget, form);
    }
    return todos;
}

QStringList nomes::Faltas(const QList<Nome> &nomes)
{
    QStringList faltas;
    for (qsizetype i = 0; i < nomes.size(); ++i) {
        const Nome &um = nomes[i];
        const auto repetido = [&um](const Nome &outro) {
            return outro.nome == um.nome && outro.especie == um.especie && outro.grupo == um.grupo;
        };
        const bool do_objecto = um.nome == um.controlo && um.especie != QAccessible::MenuItem;
        if (um.nome.isEmpty() || do_objecto || um.nome.contains(u'&'))
            faltas << um.controlo + u": '"_s + um.nome + u'\'';
        else if (std::any_of(nomes.begin(), nomes.begin() + i, repetido))
            faltas << um.controlo + u": as another: "_s + um.nome;
    }
    return faltas;
}
