#include "session/frmSobre.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"

frmSobre::frmSobre(Geral &geral, QWidget *dono) : QDialog(dono)
{
    setupUi(this);
    scale::apply(*this);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::accept);
    setWindowTitle(withoutMnemonic(geral.Ler_Idioma(156)));
    lblVersao->setText(geral.VersaoBD);
    cmdFechar->setText(geral.Ler_Idioma(135));
}
