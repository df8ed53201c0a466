// The pane of the options that says what happens at the start: of the computer, and of the program.
#pragma once

#include <QObject>

class Geral;
class QDialog;
struct Platform;
namespace Ui
{
class frmOpcoes;
}

class PaineArranque final : public QObject
{
public:
    // The controls are those of the form, which owns the pane.
    PaineArranque(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral, Platform &platform);

    void Preencher();

    // To config.ini, to the process and to the programs that start with the desktop. With neither answer to
    // the first question set, that one is left as it is.
    void Escrever();

private:
    void Escrever_Autorun();
    void Escrever_Minimizar();
    void Escrever_Messenger();

    const Ui::frmOpcoes &controlos_;
    Geral &geral_;
    Platform &platform_;
};
