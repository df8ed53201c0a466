#include "session/frmLogin.h"

#include "controls/Scale.h"
#include "data/Codificar_Pass.h"
#include "data/Geral.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

namespace
{
// The row of cmdVerUsers that a name and a scrambled password match: the recordset stops there, or at its
// end.
bool Procurar_Utilizador(Recordset &rs, const QString &Utilizador, const QString &codificada)
{
    for (; !rs.Eof(); rs.MoveNext())
        if (rs.Fields("Utilizador").textOrEmpty() == Utilizador &&
            rs.Fields("Pass").textOrEmpty() == codificada)
            return true;
    return false;
}
} // namespace

frmLogin::frmLogin(Geral &geral, Platform &platform) : geral_(geral), platform_(platform)
{
    setupUi(this);
    scale::apply(*this);
    connect(txtUser, &QLineEdit::textChanged, this, &frmLogin::txtUser_Change);
    connect(cmdOk, &QPushButton::clicked, this, &frmLogin::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &frmLogin::cmdCancelar_Click);
    connect(this, &QDialog::finished, this, &frmLogin::Form_Unload);

    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    // Without a database there are no words either; the first attempt to log in tells why.
    skipFailure([&] { Label1->setText(geral_.Ler_Idioma(94)); });
    skipFailure([&] { Label2->setText(geral_.Ler_Idioma(90) + u':'); });
    skipFailure([&] { cmdCancelar->setText(geral_.Ler_Idioma(43)); });
}

void frmLogin::Fixar_Utilizador(const QString &Utilizador)
{
    txtUser->setText(Utilizador);
    txtUser->setEnabled(false);
    txtPass->setFocus();
}

void frmLogin::txtUser_Change() { cmdOk->setEnabled(!txtUser->text().isEmpty()); }

void frmLogin::cmdOk_Click()
{
    endOnFailure(platform_.boxes, platform_.process, [&] { Entrar(); });
}

void frmLogin::Entrar()
{
    Recordset &rs = geral_.de.Abrir("cmdVerUsers");
    if (!Procurar_Utilizador(rs, txtUser->text(), Codificar_Pass(txtPass->text()))) {
        rs.Close();
        return Recusar();
    }
    if (!geral_.SessaoActual.Utilizador.isEmpty()) {
        Q_EMIT Reaberta(windowTitle());
    } else {
        geral_.SessaoActual = Sessao_Da_Linha(rs);
        rs.Close();
    }
    accept();
}

void frmLogin::Recusar()
{
    platform_.boxes.show(geral_.Ler_Idioma(101), box::stop, u"Login"_s, this);
    txtPass->setFocus();
    txtPass->selectAll(); // the next try replaces it
}

void frmLogin::cmdCancelar_Click() { reject(); }

void frmLogin::reject()
{
    if (geral_.SessaoActual.Utilizador.isEmpty()) platform_.process.end();
    QDialog::reject();
}

void frmLogin::Form_Unload()
{
    if (geral_.SessaoActual.Utilizador.isEmpty())
        platform_.process.end();
    else
        geral_.temporizadores.Gerir_Temporizadores(u"start"_s);
}
