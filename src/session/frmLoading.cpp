#include "session/frmLoading.h"

#include "data/Geral.h"

namespace
{
constexpr int cheia = 100;
}

frmLoading::frmLoading(Geral &geral) : QWidget(nullptr, Qt::Dialog)
{
    setupUi(this);
    connect(&Timer1, &QTimer::timeout, this, &frmLoading::Timer1_Timer);
    Label1->setText(geral.Ler_Idioma(242));
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
