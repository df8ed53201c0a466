// The notice of due tasks: a card that rises, sounds, stays until it is clicked, and sinks once the alert
// card that the click opens has been dealt with. There is one at a time; the latest due task is written over
// the others.
#pragma once

#include "controls/RisingCard.h"
#include "ui_frmPopup.h"

class frmTarefas;
class Geral;
class Recordset;
class ReportControl;
struct Platform;

class frmPopup final : public RisingCard, public Ui::frmPopup
{
    Q_OBJECT
public:
    frmPopup(Geral &geral, Platform &platform, QWidget &janela, ReportControl &relatorio);

    // Closes the alert card without acknowledging, if it is open.
    void Fechar_Cartao();

    // Whether the alert card is open.
    bool Tem_Cartao() const { return cartao_ != nullptr; }

    // Has a screen reader say what the notice shows now.
    void Anunciar();

    Timer TimerPisca{500, false}; // runs as long as the card does; nothing blinks

Q_SIGNALS:
    // The task of that ID, due on that day ("dd-mm-yyyy") at that time ("hh:mm"), is to be silent for so
    // long.
    void Adiada(const QString &ID, const QString &Data, const QString &Hora, int minutos);

private:
    void Form_Unload();
    void Form_Click();

    bool Preencher_Cartao(frmTarefas &cartao);
    void Preencher_Repeticao(frmTarefas &cartao, const QString &IDRepeticao);

    Geral &geral_;
    Platform &platform_;
    QWidget &janela_;
    ReportControl &relatorio_;     // the alert card's
    frmTarefas *cartao_ = nullptr; // while it is open
};
