#include "session/CamposUtilizador.h"

#include "data/Codificar_Pass.h"
#include "data/Geral.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

namespace
{
// Case counts, as it does at the login.
bool Existe_Utilizador(Geral &geral, const QString &Utilizador)
{
    Recordset &rs = geral.de.Abrir("cmdVerUsers");
    while (!rs.Eof() && rs.Fields("Utilizador").textOrEmpty() != Utilizador)
        rs.MoveNext();
    const bool existe = !rs.Eof();
    rs.Close();
    return existe;
}
} // namespace

CamposUtilizador::CamposUtilizador(QWidget *dono) : QWidget(dono)
{
    setupUi(this);
    setFocusProxy(txtUser);
}

void CamposUtilizador::Legendar(Geral &geral)
{
    lblUser->setText(geral.Ler_Idioma(94));
    lblPass1->setText(geral.Ler_Idioma(90) + u':');
    lblPass2->setText(geral.Ler_Idioma(91));
    FrameDireitos->setTitle(geral.Ler_Idioma(99));
    cbAdicionar->setText(geral.Ler_Idioma(95));
    cbEditar->setText(geral.Ler_Idioma(96));
    cbEliminar->setText(geral.Ler_Idioma(97));
    cbGrupos->setText(geral.Ler_Idioma(98));
    cbUtilizadores->setText(geral.Ler_Idioma(103));
    cbSystemTray->setText(geral.Ler_Idioma(92));
}

void CamposUtilizador::Fixar_Direitos()
{
    for (QCheckBox *caixa : Direitos())
        caixa->setEnabled(false);
}

bool CamposUtilizador::Aceitar(Geral &geral, Platform &platform, const QString &nome_actual) const
{
    if (txtPass1->text() != txtPass2->text()) return Recusar(geral, platform, 93, *txtPass2);
    const QString nome = txtUser->text();
    if (nome != nome_actual && Existe_Utilizador(geral, nome)) return Recusar(geral, platform, 100, *txtUser);
    return true;
}

bool CamposUtilizador::Recusar(Geral &geral, Platform &platform, qint16 texto, QLineEdit &recusado) const
{
    platform.boxes.show(geral.Ler_Idioma(texto), box::stop, window());
    recusado.setFocus();
    recusado.selectAll(); // what is typed next replaces it
    return false;
}

QString CamposUtilizador::Senha_Codificada() const { return Codificar_Pass(txtPass1->text()); }

std::array<QCheckBox *, 5> CamposUtilizador::Direitos() const
{
    return {cbAdicionar, cbEditar, cbEliminar, cbGrupos, cbUtilizadores};
}

QString Valor(const QCheckBox &caixa) { return caixa.isChecked() ? u"1"_s : u"0"_s; }
