#include "interchange/frmImportar2.h"

#include "contacts/Preencher_Grupos.h"
#include "controls/ListBox.h"
#include "controls/Scale.h"
#include "data/Geral.h"
#include "data/LinhasJaVindas.h"
#include "interchange/AvisosDaFusao.h"
#include "interchange/Intercambio.h"
#include "interchange/RegistoMorvex.h"
#include "platform/Failure.h"
#include "platform/Platform.h"
#include "platform/Translations.h"

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
        if (!Importar()) return;
        Q_EMIT intercambio_.ContactosMudados();
        accept();
    });
}

// A server that goes away leaves the form open for another try, which goes on where this one ended. False
// then.
bool frmImportar2::Importar()
{
    LinhasJaVindas vindas(geral_.de);
    const int antes = geral_.de.Escritos("cmdAdicionarNome");
    try {
        geral_.de.Juntar_Por_Ordem([&] {
            for (int i = 0; i < ListaMorvex43->ListCount(); ++i)
                Guardar(vindas, ListaMorvex43->List(i));
        });
    } catch (const Failure &falha) {
        if (falha.kind() != Failure::Kind::ServerLost) {
            skipFailure([&] { vindas.Acabou(); }); // as on a file: what comes next begins anew
            throw;
        }
        const int guardados = vindas.Quantas() + geral_.de.Escritos("cmdAdicionarNome") - antes;
        platform_.boxes.show(avisos_da_fusao::Servidor_Perdido(guardados, ListaMorvex43->ListCount(),
                                                               avisos_da_fusao::Onde_Se_Guardou(geral_.de),
                                                               spokenLanguage(geral_.IdiomaActual)),
                             box::exclamation, windowTitle(), this);
        return false;
    }
    skipFailure([&] { vindas.Acabou(); });
    return true;
}

void frmImportar2::Guardar(LinhasJaVindas &vindas, const QString &registo)
{
    const auto campo = registo_morvex::Separar(registo);
    if (vindas.Tomar(u"registo"_s, {txtGrupoID->text(), registo})) return;
    const auto n = [&](std::size_t numero) -> const QString & { return campo[numero - 1]; };
    const QString vazio;
    vindas.Executar("cmdAdicionarNome",
                    {n(1), n(2), n(12), n(3), n(4), n(13), vazio, n(9), registo_morvex::Numero_Do_Mes(n(10)),
                     vazio, n(6), vazio, n(7), n(8), n(11), n(16), txtGrupoID->text()});
}
