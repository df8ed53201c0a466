#include "online/frmPopupEmail.h"

#include "controls/Scale.h"

namespace
{
constexpr int tempo_limite = 12000;         // ms that a card stays which the cycle leaves alone
constexpr int tempo_limite_do_ciclo = 5000; // ms from the moment when the cycle wrote on it
} // namespace

frmPopupEmail::frmPopupEmail(QWidget &janela, const QString &texto) : RisingCard(janela, tempo_limite)
{
    setupUi(this);
    scale::apply(*this);
    setAttribute(Qt::WA_DeleteOnClose);
    StatusLabel->setText(texto);
    TimerTimeout.setEnabled(true);
    rise();
}

void frmPopupEmail::Reiniciar_TimerTimeout()
{
    TimerTimeout.setEnabled(false);
    TimerTimeout.setInterval(tempo_limite_do_ciclo);
    TimerTimeout.setEnabled(true);
}
