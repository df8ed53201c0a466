#include "cards/frmDuplicados.h"

#include "contacts/DesfazerEliminacao.h"
#include "controls/ComboBox.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Direitos.h"
#include "data/Geral.h"
#include "platform/Caption.h"
#include "platform/Platform.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace
{
enum Coluna_Da_Lista { coluna_campo, coluna_primeiro, coluna_segundo, coluna_fica };

constexpr int largura_do_campo = 90; // in pixels, as below
constexpr int largura_da_escolha = 150;
constexpr int altura_da_linha = 22; // room for a choice, on rows without one too

// A remark can be as long as its author liked; all of it is in the tip.
QString A_Vista(const QStringList &linhas)
{
    constexpr qsizetype mais_linhas = 8;
    constexpr qsizetype mais_letras = 300;
    const QString texto = linhas.first(std::min(linhas.size(), mais_linhas)).join(u'\n');
    const bool e_tudo = linhas.size() <= mais_linhas && texto.size() <= mais_letras;
    return e_tudo ? texto : texto.left(mais_letras) + u'…';
}

qint16 Texto_Do_Indicio(Indicio indicio)
{
    switch (indicio) {
    case Indicio::NomeEChave:
        return 386;
    case Indicio::Nome:
        return 387;
    case Indicio::Chave:
        break;
    }
    return 388;
}
} // namespace

frmDuplicados::frmDuplicados(Geral &geral, Platform &platform, DesfazerEliminacao &desfazer, QWidget *dono)
    : QDialog(dono), geral_(geral), platform_(platform), pausa_(geral.temporizadores), livro_(geral, desfazer)
{
    setupUi(this);
    scale::apply(*this);
    lvPar->setColumnWidth(coluna_campo, scale::scaled(largura_do_campo));
    lvPar->setColumnWidth(coluna_fica, scale::scaled(largura_da_escolha));
    QHeaderView &colunas = *lvPar->header();
    colunas.setStretchLastSection(false); // the two contacts share what room there is
    for (const int contacto : {coluna_primeiro, coluna_segundo})
        colunas.setSectionResizeMode(contacto, QHeaderView::Stretch);
    connect(cmdJuntar, &QAbstractButton::clicked, this, &frmDuplicados::cmdJuntar_Click);
    connect(cmdDiferentes, &QAbstractButton::clicked, this, &frmDuplicados::cmdDiferentes_Click);
    connect(cmdSaltar, &QAbstractButton::clicked, this, &frmDuplicados::cmdSaltar_Click);
    connect(cmdFechar, &QAbstractButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmDuplicados::Form_Unload);

    Escrever_Textos();
    Mostrar();
}

void frmDuplicados::Form_Unload() { pausa_.Retomar(); }

void frmDuplicados::Escrever_Textos()
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(276)));
    cmdJuntar->setText(geral_.Ler_Idioma(374));
    cmdDiferentes->setText(geral_.Ler_Idioma(375));
    cmdSaltar->setText(geral_.Ler_Idioma(376));
    cmdFechar->setText(geral_.Ler_Idioma(135));
    lvPar->setAccessibleName(windowTitle());
    lvPar->setHeaderLabels(
        {geral_.Ler_Idioma(383), geral_.Ler_Idioma(380), geral_.Ler_Idioma(381), geral_.Ler_Idioma(382)});
    lvPar->setEmptyText(geral_.Ler_Idioma(livro_.Quantos() == 0 ? 378 : 385));
}

void frmDuplicados::Mostrar()
{
    escolhas_.clear();
    lvPar->clear();
    par_ = livro_.Abrir();
    if (!par_) return Mostrar_Fim();
    Label1->setText(geral_.Ler_Idioma(377).arg(livro_.Actual() + 1).arg(livro_.Quantos()));
    Label2->setText(geral_.Ler_Idioma(Texto_Do_Indicio(par_->indicio)));
    const JuncaoDeContactos juncao = Juncao();
    for (const Linha linha : linhas_do_contacto::todas)
        Mostrar_Linha(linha, juncao);
    QWidget *antes = lvPar;
    for (const Linha linha : linhas_do_contacto::todas)
        if (const auto escolha = escolhas_.find(linha); escolha != escolhas_.end()) {
            setTabOrder(antes, escolha->second);
            antes = escolha->second;
        }
    setTabOrder(antes, cmdJuntar);
    lvPar->setCurrentItem(lvPar->topLevelItem(0));
}

void frmDuplicados::Mostrar_Fim()
{
    Label1->clear();
    Label2->clear();
    cmdFechar->setFocus();
    for (QPushButton *botao : {cmdJuntar, cmdDiferentes, cmdSaltar})
        botao->setEnabled(false);
}

void frmDuplicados::Mostrar_Linha(Linha linha, const JuncaoDeContactos &juncao)
{
    const auto valores = [&](const ColunasDoContacto &colunas, const LinhaInteira &contacto) {
        if (linha == Linha::Grupo) return QStringList{livro_.Nome_Do_Grupo(contacto)};
        return linhas_do_contacto::Valores(linha, colunas, geral_);
    };
    const QStringList um = valores(par_->colunas, par_->linha);
    const QStringList outro = valores(par_->outras_colunas, par_->outra_linha);
    if (um.isEmpty() && outro.isEmpty()) return;
    auto *item = new QTreeWidgetItem(
        lvPar, {linhas_do_contacto::Rotulo(linha, geral_), A_Vista(um), A_Vista(outro), QString()});
    item->setSizeHint(coluna_campo, {0, scale::scaled(altura_da_linha)});
    item->setToolTip(coluna_primeiro, um.join(u'\n'));
    item->setToolTip(coluna_segundo, outro.join(u'\n'));
    if (juncao.Diferem(linha)) Acrescentar_Escolha(*item, linha);
}

void frmDuplicados::Acrescentar_Escolha(QTreeWidgetItem &item, Linha linha)
{
    auto *caixa = new ComboBox(lvPar);
    setSpokenName(*caixa, item.text(coluna_campo));
    const auto acrescentar = [&](qint16 texto, Fica fica) {
        caixa->AddItem(geral_.Ler_Idioma(texto));
        caixa->SetItemData(caixa->NewIndex(), static_cast<int>(fica));
    };
    if (linha != Linha::Grupo) acrescentar(379, Fica::Ambos); // a contact is in one group
    acrescentar(380, Fica::Primeiro);
    acrescentar(381, Fica::Segundo);
    caixa->setCurrentIndex(0);
    lvPar->setItemWidget(&item, coluna_fica, caixa);
    escolhas_[linha] = caixa;
}

JuncaoDeContactos frmDuplicados::Juncao() const
{
    return {par_->colunas, par_->outras_colunas, geral_.IdiomaActual};
}

// Two rights: one contact changes, the other one goes.
void frmDuplicados::cmdJuntar_Click()
{
    const Sessao &sessao = geral_.SessaoActual;
    if (!par_ || !Tem_Direito(sessao.Editar && sessao.Eliminar, geral_, platform_, this)) return;
    JuncaoDeContactos::Escolhas escolhas;
    for (const auto &[linha, caixa] : escolhas_)
        escolhas[linha] = static_cast<Fica>(caixa->ItemData(caixa->ListIndex()));
    if (livro_.Juntar(*par_, Juncao().Juntos(escolhas))) {
        juntou_ = true;
        livro_.Seguinte();
    } else {
        platform_.boxes.show(geral_.Ler_Idioma(384), box::exclamation, windowTitle(), this);
    }
    Mostrar();
}

void frmDuplicados::cmdDiferentes_Click()
{
    if (!par_) return;
    livro_.Guardar_Diferentes(*par_);
    cmdSaltar_Click();
}

void frmDuplicados::cmdSaltar_Click()
{
    livro_.Seguinte();
    Mostrar();
}
