// The card that tells that a run of synchronising failed. It goes away by itself.
#pragma once

#include "controls/RisingCard.h"
#include "ui_frmPopupSincronizacao.h"

class frmPopupSincronizacao final : public RisingCard, public Ui::frmPopupSincronizacao
{
    Q_OBJECT
public:
    // Rises at once.
    frmPopupSincronizacao(QWidget &janela, const QString &texto);
};
