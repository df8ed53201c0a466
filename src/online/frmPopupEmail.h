// The card that tells of new mail, of a failed check, or that one is under way. It goes away by itself.
#pragma once

#include "controls/RisingCard.h"
#include "ui_frmPopupEmail.h"

class frmPopupEmail final : public RisingCard, public Ui::frmPopupEmail
{
    Q_OBJECT
public:
    // Rises at once with the first text.
    frmPopupEmail(QWidget &janela, const QString &texto);

    // Holds the card for five seconds more, from now.
    void Reiniciar_TimerTimeout();
};
