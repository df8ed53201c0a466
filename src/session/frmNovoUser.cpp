#include "session/frmNovoUser.h"

#include "controls/Scale.h"
#include "data/Geral.h"
#include "platform/Platform.h"
#include "session/PosseDosDados.h"

using namespace Qt::StringLiterals;

frmNovoUser::frmNovoUser(Geral &geral, Platform &platform, QWidget *dono)
    : QDialog(dono),
      geral_(geral),
      platform_(platform),
      novo_(geral.de, "TblUsers", {"Utilizador", "Pass"}),
      pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    connect(campos->txtUser, &QLineEdit::textChanged, this, &frmNovoUser::txtUser_Change);
    connect(cmdOk, &QPushButton::clicked, this, &frmNovoUser::cmdOk_Click);
    connect(cmdCancelar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmNovoUser::Form_Unload);

    setWindowTitle(geral_.Ler_Idioma(89));
    campos->Legendar(geral_);
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    Propor_Primeiro_Utilizador();
}

void frmNovoUser::Form_Unload() { pausa_.Retomar(); }

void frmNovoUser::txtUser_Change() { cmdOk->setEnabled(!campos->txtUser->text().isEmpty()); }

void frmNovoUser::Propor_Primeiro_Utilizador()
{
    Recordset &rs = geral_.de.Abrir("cmdVerUsers");
    if (rs.RecordCount() == 0) {
        campos->txtUser->setText(u"Admin"_s);
        campos->txtUser->selectAll();
        for (QCheckBox *caixa : campos->Direitos())
            caixa->setChecked(true);
        campos->Fixar_Direitos();
    }
    rs.Close();
}

void frmNovoUser::cmdOk_Click()
{
    if (!campos->Aceitar(geral_, platform_, novo_.Chegada().value(0))) return;
    const QString Utilizador = campos->txtUser->text();
    Adicionar_Utilizador(Utilizador);
    Escrever_Configuracao(Ler_Id(Utilizador));
    Entregar_Ao_Primeiro();
    accept();
}

// The running session takes over the tray preference, whoever the new user is, and the name if it has none.
// Its owner value stays: what the first user gets, that user sees from the next login on.
void frmNovoUser::Adicionar_Utilizador(const QString &Utilizador)
{
    const CamposUtilizador &c = *campos;
    Sessao &sessao = geral_.SessaoActual;
    sessao.PedirPassSystemTray = c.cbSystemTray->isChecked();
    const QString senha = c.Senha_Codificada();
    const auto inserir = [&] {
        geral_.de.Executar("cmdAdicionarUser",
                           {Utilizador, senha, Valor(*c.cbSystemTray), Valor(*c.cbAdicionar), Valor(*c.cbEditar),
                            Valor(*c.cbEliminar), Valor(*c.cbGrupos), Valor(*c.cbUtilizadores)});
    };
    novo_.Gravar({Utilizador, senha}, inserir, [&](const QString &ID) {
        geral_.de.Executar("cmdUpdateUser",
                           {Utilizador, senha, Valor(*c.cbSystemTray), Valor(*c.cbAdicionar), Valor(*c.cbEditar),
                            Valor(*c.cbEliminar), Valor(*c.cbGrupos), Valor(*c.cbUtilizadores), ID});
    });
    if (sessao.Utilizador.isEmpty()) sessao.Utilizador = Utilizador;
}

// The store finds names in any case of letters, and there may be an "ana" beside the new "Ana".
QString frmNovoUser::Ler_Id(const QString &Utilizador)
{
    Recordset &rs = geral_.de.Abrir("cmdVerIDUtilizador", {Utilizador});
    while (rs.Fields("Utilizador").text() != Utilizador)
        rs.MoveNext();
    QString id = rs.Fields("ID").text();
    rs.Close();
    return id;
}

void frmNovoUser::Escrever_Configuracao(const QString &id)
{
    geral_.ini.Escrever_Ini(u"emailnotify"_s + id, u"activo"_s, u"1"_s);
    geral_.ini.Escrever_Ini(u"emailnotify"_s + id, u"minutos"_s, u"60"_s);
    geral_.ini.Escrever_Ini(u"messenger"_s + id, u"activo"_s, u"0"_s);
}

void frmNovoUser::Entregar_Ao_Primeiro()
{
    Recordset &rs = geral_.de.Abrir("cmdVerUsers");
    if (rs.RecordCount() == 1) Entregar_Tudo(geral_, rs.Fields("ID").text());
    rs.Close();
}
