#include "printing/OpcoesRelatorio.h"

#include "contacts/Preencher_Grupos.h"
#include "controls/Controls.h"
#include "controls/ListBox.h"
#include "data/Geral.h"
#include "data/Relatorio.h"
#include "data/Traduzir.h"
#include "platform/Failure.h"
#include "platform/Translations.h"

using namespace Qt::StringLiterals;

namespace
{
const auto todos_os_grupos = u"%"_s;

constexpr Translations lista_com_grupos{u"Lista com &grupos", u"Lista com &grupos",  u"List with &groups",
                                        u"Lista con &grupos", u"Elenco con &gruppi", u"Liste avec &groupes",
                                        u"Liste mit &Gruppen"};
constexpr Translations nome_de_todos{u"Todos os grupos",  u"Todos os grupos", u"All groups",
                                     u"Todos los grupos", u"Tutti i gruppi",  u"Tous les groupes",
                                     u"Alle Gruppen"};
} // namespace

OpcoesRelatorio::OpcoesRelatorio(QWidget *dono) : QWidget(dono)
{
    setupUi(this);
    connect(ComboGrupos, &ComboBox::Click, this, &OpcoesRelatorio::ComboGrupos_Click);
    // An option is clicked by being set too, be it by a key or from outside of the form.
    connect(OptionTodos, &QRadioButton::toggled, this, [this](bool posta) {
        if (posta) OptionTodos_Click();
    });
    connect(OptionSelecionado, &QRadioButton::toggled, this, [this](bool posta) {
        if (posta) OptionSelecionado_Click();
    });
}

void OpcoesRelatorio::Carregar(Geral &geral, const ListBox &ListaNomes)
{
    geral_ = &geral;
    Legendar();
    ComboGrupos->AddItem(geral.Ler_Idioma(48));
    Preencher_Grupos(geral, *ComboGrupos, DadosDoItem::Sem);
    ComboGrupos->setListIndex(0);
    OptionSelecionado->setEnabled(ListaNomes.ListIndex() >= 0);
}

void OpcoesRelatorio::Legendar()
{
    FrameIntervalo->setTitle(withoutMnemonic(geral_->Ler_Idioma(74)));
    OptionTodos->setText(geral_->Ler_Idioma(75));
    OptionSelecionado->setText(geral_->Ler_Idioma(76));
    lblGrupo->setText(geral_->Ler_Idioma(42));
    FrameEstilo->setTitle(withoutMnemonic(geral_->Ler_Idioma(78)));
    OptionLista->setText(geral_->Ler_Idioma(79));
    OptionContactos->setText(Traduzir(lista_com_grupos, *geral_));
}

// The row for all groups has no group of its name, nor has a group that was renamed away in the meantime:
// reading its ID fails, and all groups stand for it.
void OpcoesRelatorio::ComboGrupos_Click()
{
    onFailure([this] { txtGrupoID->setText(ID_Do_Grupo()); },
              [this](const Failure &) { txtGrupoID->setText(todos_os_grupos); });
}

QString OpcoesRelatorio::ID_Do_Grupo() const
{
    Recordset &rs = geral_->de.Abrir("cmdVerIDGrupo", {ComboGrupos->currentText()});
    QString id = rs.Fields("ID").text();
    rs.Close();
    return id;
}

void OpcoesRelatorio::OptionTodos_Click()
{
    ComboGrupos->setEnabled(true);
    txtGrupoID->setEnabled(true);
}

void OpcoesRelatorio::OptionSelecionado_Click()
{
    ComboGrupos->setEnabled(false);
    ComboGrupos->setListIndex(0);
    txtGrupoID->setText(todos_os_grupos);
}

QString OpcoesRelatorio::Definicao() const
{
    if (OptionContactos->isChecked()) return geral_->Ficheiro(u"contactos.rpt"_s);
    return geral_->Ficheiro(OptionMemo->isChecked() ? u"memo.rpt"_s : u"lista.rpt"_s);
}

QString OpcoesRelatorio::Titulo() const
{
    if (OptionSelecionado->isChecked()) return withoutMnemonic(OptionSelecionado->text());
    if (txtGrupoID->text() == todos_os_grupos) return translated(nome_de_todos, geral_->IdiomaActual);
    return ComboGrupos->currentText();
}

QString OpcoesRelatorio::Seleccao() const
{
    if (OptionSelecionado->isChecked()) return relatorio::Seleccao_Do_Contacto(geral_->IDContacto);
    if (txtGrupoID->text() == todos_os_grupos) return {};
    return u"{TblLista.Grupo}="_s + txtGrupoID->text();
}
