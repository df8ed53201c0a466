// The pane of the options with the look of a new memo: a sample, and the font and the colour for it. Both
// take effect for the session as soon as they are picked.
#pragma once

#include <QObject>

class Geral;
class QDialog;
struct Platform;
namespace Ui
{
class frmOpcoes;
}

class PaineMemos final : public QObject
{
public:
    // The controls are those of the form, which owns the pane.
    PaineMemos(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral, Platform &platform);

    // Raises Failure where a setting doesn't convert.
    void Preencher();

    // What the sample shows, to config.ini and to the process.
    void Escrever();

private:
    void cmdFonte_Click();
    void cmdCor_Click();

    QDialog &opcoes_;
    const Ui::frmOpcoes &controlos_;
    Geral &geral_;
    Platform &platform_;
};
