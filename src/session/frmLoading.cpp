#include "session/frmLoading.h"

#include "controls/Scale.h"
#include "data/Geral.h"

#include <QEvent>

namespace
{
constexpr int cheia = 100;
}

frmLoading::frmLoading(Geral &geral, QWidget *dono) : QWidget(dono, Qt::Dialog)
{
    setupUi(this);
    scale::apply(*this);
    connect(&Timer1, &QTimer::timeout, this, &frmLoading::Timer1_Timer);
    Label1->setText(geral.Ler_Idioma(242));
    ProgressBar1->setAccessibleName(Label1->text());
    if (dono != nullptr) dono->installEventFilter(this);
}

// Told of its owner before that is on the screen, it waits for a moment.
bool frmLoading::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Show) QMetaObject::invokeMethod(this, &QWidget::raise, Qt::QueuedConnection);
    return false;
}

int frmLoading::Valor() const { return ProgressBar1->value(); }
void frmLoading::setValor(int valor) { ProgressBar1->setValue(valor); }

void frmLoading::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    Timer1.setEnabled(true);
}

void frmLoading::Timer1_Timer()
{
    if (Valor() < cheia) return setValor(Valor() + 1);
    Timer1.setEnabled(false);
    close();
}
