#include "interchange/frmImportar2.h"

#include "contacts/Preencher_Grupos.h"
#include "controls/ListBox.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "platform/Platform.h"

using namespace Qt::StringLiterals;

frmImportar2::frmImportar2(Geral &geral, Platform &platform, Intercambio &intercambio, QWidget &janela)
    : geral_(geral), platform_(platform), intercambio_(intercambio), janela_(janela)
{
    setupUi(this);
    scale::apply(*this);
    connect(ComboGrupos, &ComboBox::Click, this, &frmImportar2::ComboGrupos_Click);
    connect(cmdSeguinte, &QAbstractButton::clicked, this, &frmImportar2::cmdSeguinte_Click);
    connect(cmdCancelar, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmImportar2::Form_Unload);
    Form_Load();
}

void frmImportar2::Form_Load()
{
    geral_.temporizadores.Gerir_Temporizadores(u"stop"_s);
    Label1->setText(geral_.Ler_Idioma(83));
    Label2->setText(geral_.Ler_Idioma(85));
    cmdSeguinte->setText(geral_.Ler_Idioma(71));
    cmdCancelar->setText(geral_.Ler_Idioma(43));
    ComboGrupos->Clear();
    Preencher_Grupos(geral_, *ComboGrupos, DadosDoItem::Sem);
    ComboGrupos->setListIndex(0);
}

void frmImportar2::Form_Unload()
{
    geral_.temporizadores.Gerir_Temporizadores(u"start"_s);
    janela_.setEnabled(true);
}

// A group that has gone meanwhile leaves no ID: nothing is ever put into another one than the one shown.
void frmImportar2::ComboGrupos_Click()
{
    txtGrupoID->clear();
    Recordset &rs = geral_.de.Abrir("cmdVerIDGrupo", {ComboGrupos->currentText()});
    txtGrupoID->setText(rs.Fields("ID").text());
    rs.Close();
}

// A record that can't be cut, or that the database refuses, ends the process; those before it are stored.
void frmImportar2::cmdSeguinte_Click()
{
    endOnFailure(platform_.boxes, platform_.process, [this] {
        geral_.de.Juntar_Por_Ordem([this] {
            for (int i = 0; i < ListaMorvex43->ListCount(); ++i)
                Guardar(ListaMorvex43->List(i));
        });
        Q_EMIT intercambio_.ContactosMudados();
        accept();
    });
}

void frmImportar2::Guardar(const QString &registo)
{
    const auto campo = registo_morvex::Separar(registo);
    const auto n = [&](std::size_t numero) -> const QString & { return campo[numero - 1]; };
    const QString vazio;
    geral_.de.Executar("cmdAdicionarNome", {n(1), n(2), n(12), n(3), n(4), n(13), vazio, n(9),
                                            registo_morvex::Numero_Do_Mes(n(10)), vazio, n(6), vazio, n(7),
                                            n(8), n(11), n(16), txtGrupoID->text()});
}
