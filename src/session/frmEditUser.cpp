#include "session/frmEditUser.h"

#include "contacts/Preencher_Utilizadores.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

frmEditUser::frmEditUser(Geral &geral, Platform &platform, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform)
{
    setupUi(this);
    scale::apply(*this);
    connect(ComboUsers, &ComboBox::Click, this, &frmEditUser::ComboUsers_Click);
    connect(campos->txtUser, &QLineEdit::textChanged, this, &frmEditUser::txtUser_Change);
    connect(cmdOk, &QPushButton::clicked, this, &frmEditUser::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmEditUser::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Acrescentar_Utilizadores(geral_, *ComboUsers);
    ComboUsers->setListIndex(0);
    setWindowTitle(geral_.Ler_Idioma(104));
    Label1->setText(geral_.Ler_Idioma(105));
    campos->Legendar(geral_);
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    Fixar_Direitos_Do_Unico();
}

// "stop", and not "start": the alarm and the dot stay off until a form that says "start" has been closed.
void frmEditUser::Form_Unload() { geral_.temporizadores.Gerir_Temporizadores(u"stop"_s); }

// The only user can't lose a right.
void frmEditUser::Fixar_Direitos_Do_Unico()
{
    Recordset &rs = geral_.de.Abrir("cmdVerUsers");
    if (rs.RecordCount() == 1) campos->Fixar_Direitos();
    rs.Close();
}

void frmEditUser::ComboUsers_Click()
{
    Recordset &rs = geral_.de.Abrir("cmdEditarUser", {ComboUsers->ChosenItemData()});
    campos->txtUser->setText(rs.Fields("Utilizador").textOrEmpty());
    for (QLineEdit *senha : {campos->txtPass1, campos->txtPass2})
        senha->setText(rs.Fields("Pass").textOrEmpty());
    campos->cbAdicionar->setChecked(rs.Fields("Adicionar").yes());
    campos->cbEditar->setChecked(rs.Fields("Editar").yes());
    campos->cbEliminar->setChecked(rs.Fields("Eliminar").yes());
    campos->cbGrupos->setChecked(rs.Fields("Grupos").yes());
    campos->cbUtilizadores->setChecked(rs.Fields("Utilizadores").yes());
    campos->cbSystemTray->setChecked(rs.Fields("SystemTray").yes());
    rs.Close();
}

// Nobody could log in under an empty name.
void frmEditUser::txtUser_Change() { cmdOk->setEnabled(!campos->txtUser->text().isEmpty()); }

void frmEditUser::cmdOk_Click()
{
    if (!campos->Aceitar(geral_, platform_, ComboUsers->currentText())) return;
    Gravar();
    accept();
}

// The rights of the running session stay as they are, and its name; the tray preference alone follows,
// whichever user was edited.
void frmEditUser::Gravar()
{
    const CamposUtilizador &c = *campos;
    geral_.SessaoActual.PedirPassSystemTray = c.cbSystemTray->isChecked();
    geral_.de.Executar("cmdUpdateUser",
                       {c.txtUser->text(), c.Senha_Codificada(), Valor(*c.cbSystemTray),
                        Valor(*c.cbAdicionar), Valor(*c.cbEditar), Valor(*c.cbEliminar), Valor(*c.cbGrupos),
                        Valor(*c.cbUtilizadores), ComboUsers->ChosenItemData()});
}
