#include "contacts/frmEmail.h"

#include "contacts/WebsiteEmail.h"
#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

namespace
{
// An address as a caption: its & is no mnemonic mark.
QString Como_Legenda(QString endereco) { return endereco.replace(u'&', u"&&"_s); }
} // namespace

frmEmail::frmEmail(Geral &geral, Platform &platform, QString email1, QString email2,
                   QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      email1_(std::move(email1)),
      email2_(std::move(email2)),
      pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    for (QRadioButton *opcao : {OptionEmail1, OptionEmail2})
        connect(opcao, &QRadioButton::toggled, this, &frmEmail::Option_Click);
    connect(cmdOk, &QPushButton::clicked, this, &frmEmail::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmEmail::Form_Unload);

    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(55)));
    lblLegenda1->setText(geral_.Ler_Idioma(58));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    OptionEmail1->setText(Como_Legenda(email1_));
    OptionEmail2->setText(Como_Legenda(email2_));
}

void frmEmail::Option_Click() { cmdOk->setEnabled(true); }

void frmEmail::cmdOk_Click()
{
    Escrever_Email(platform_.shell, OptionEmail1->isChecked() ? email1_ : email2_);
    accept();
}

void frmEmail::Form_Unload() { pausa_.Retomar(); }
