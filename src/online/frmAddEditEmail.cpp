#include "online/frmAddEditEmail.h"

#include "controls/Controls.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/Codificar_Email.h"

using namespace Qt::StringLiterals;

frmAddEditEmail::frmAddEditEmail(Geral &geral, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      nova_(geral.de, "TblEmails", {"Email", "ServerName", "Username", "IdUtilizador"})
{
    setupUi(this);
    scale::apply(*this);
    connect(&Timer1, &QTimer::timeout, this, &frmAddEditEmail::Timer1_Timer);
    connect(cmdOk, &QPushButton::clicked, this, &frmAddEditEmail::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmAddEditEmail::reject);
    for (QWidget *controlo : findChildren<QWidget *>())
        controlo->installEventFilter(this);

    Atribuir_Legendas();
    if (geral_.ModoEmail == "Edit"_L1) Mostrar_Conta();
}

void frmAddEditEmail::Atribuir_Legendas()
{
    lbl1->setText(geral_.Ler_Idioma(243));
    lbl2->setText(geral_.Ler_Idioma(244));
    lbl3->setText(geral_.Ler_Idioma(250));
    lbl4->setText(geral_.Ler_Idioma(90));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    if (geral_.ModoEmail == "Add"_L1) setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(248)));
    if (geral_.ModoEmail == "Edit"_L1) setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(249)));
}

// The boxes take the row as it is stored, the scrambled password too.
void frmAddEditEmail::Mostrar_Conta()
{
    setWindowIcon(IconEditarEmail->icon());
    Recordset &rs = geral_.de.Abrir("cmdDadosEmail", {QString::number(geral_.IDContaEmail)});
    txtEmail->setText(rs.Fields("Email").textOrEmpty());
    txtServerName->setText(rs.Fields("ServerName").textOrEmpty());
    txtUsername->setText(rs.Fields("Username").textOrEmpty());
    txtPalavraPasse->setText(rs.Fields("PalavraPasse").textOrEmpty());
    rs.Close();
}

void frmAddEditEmail::Timer1_Timer()
{
    cmdOk->setEnabled(!txtEmail->text().isEmpty() && !txtServerName->text().isEmpty() &&
                      !txtUsername->text().isEmpty() && !txtPalavraPasse->text().isEmpty());
}

bool frmAddEditEmail::eventFilter(QObject *controlo, QEvent *event)
{
    if (event->type() == QEvent::KeyRelease) Form_KeyUp();
    return QDialog::eventFilter(controlo, event);
}

void frmAddEditEmail::Form_KeyUp()
{
    Timer1_Timer();
    if (cmdOk->isEnabled()) cmdOk->setDefault(true);
}

void frmAddEditEmail::cmdOk_Click()
{
    const QString email = txtEmail->text();
    const QString servidor = txtServerName->text();
    const QString conta = txtUsername->text();
    const QString utilizador = geral_.SessaoActual.IdUtilizador;
    const auto senha = [this] { return Codificar_Email(txtPalavraPasse->text(), geral_.SaidaEmail); };
    const auto inserir = [&] {
        geral_.de.Executar("cmdInserirEmail", {email, servidor, conta, senha(), utilizador});
    };
    const auto actualizar = [&](const QString &ID) {
        geral_.de.Executar("cmdUpdateEmail", {email, servidor, conta, senha(), ID, utilizador});
    };
    if (geral_.ModoEmail == "Add"_L1)
        nova_.Gravar({email, servidor, conta, utilizador}, inserir, actualizar);
    else if (geral_.ModoEmail == "Edit"_L1)
        actualizar(QString::number(geral_.IDContaEmail));
    accept();
}
