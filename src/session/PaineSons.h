// The pane of the options with the sound of each event. A sound that is picked takes effect for the session
// at once.
#pragma once

#include <QObject>

class Geral;
class QDialog;
struct Platform;
namespace Ui
{
class frmOpcoes;
}

class PaineSons final : public QObject
{
public:
    // The controls are those of the form, which owns the pane.
    PaineSons(QDialog &opcoes, const Ui::frmOpcoes &controlos, Geral &geral, Platform &platform);

    void Preencher();
    void Escrever(); // the sounds that somebody picked, to config.ini

private:
    void comboEventos_Click();
    void cmdPlay_Click();
    void cmdProcurarSom_Click();

    bool Escolhido_O_Email() const;

    QDialog &opcoes_;
    const Ui::frmOpcoes &controlos_;
    Geral &geral_;
    Platform &platform_;
};
