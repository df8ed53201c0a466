#include "sincronizacao/frmPopupSincronizacao.h"

#include "controls/Scale.h"

namespace
{
constexpr int tempo_limite = 15000; // ms that the card stays
}

frmPopupSincronizacao::frmPopupSincronizacao(QWidget &janela, const QString &texto)
    : RisingCard(janela, tempo_limite)
{
    setupUi(this);
    scale::apply(*this);
    setAttribute(Qt::WA_DeleteOnClose);
    StatusLabel->setText(texto);
    TimerTimeout.setEnabled(true);
    rise();
}
