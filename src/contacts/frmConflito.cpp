#include "contacts/frmConflito.h"

#include "contacts/TrechoQueDifere.h"
#include "controls/ComboBox.h"
#include "controls/Scale.h"
#include "controls/SpokenName.h"
#include "data/Geral.h"
#include "platform/Caption.h"
#include "platform/Failure.h"
#include "platform/Picture.h"

#include <QHeaderView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{
enum Coluna_Da_Lista { coluna_campo, coluna_la, coluna_aqui, coluna_fica };
enum Escolha { escolha_aqui, escolha_la };

constexpr int largura_do_campo = 110; // in pixels, as below
constexpr int largura_da_escolha = 150;
constexpr int altura_da_linha = 26;
constexpr QSize maior_imagem(120, 90);

// A smaller one stays as it is.
QPixmap Miniatura(const Picture &imagem, qreal densidade)
{
    const QSize lugar = scale::scaled(maior_imagem);
    const QSize natural = imagem.naturalSize();
    const bool cabe = natural.width() <= lugar.width() && natural.height() <= lugar.height();
    const QSize vista = cabe ? natural : natural.scaled(lugar, Qt::KeepAspectRatio);
    QImage desenho = imagem.image((QSizeF(vista) * densidade).toSize().expandedTo({1, 1}));
    desenho.setDevicePixelRatio(densidade);
    return QPixmap::fromImage(desenho);
}
} // namespace

frmConflito::frmConflito(Geral &geral, const QString &facto, const CamposDisputados &campos, QWidget *dono)
    : QDialog(dono), geral_(geral)
{
    setupUi(this);
    scale::apply(*this);
    lvCampos->setColumnWidth(coluna_campo, scale::scaled(largura_do_campo));
    lvCampos->setColumnWidth(coluna_fica, scale::scaled(largura_da_escolha));
    QHeaderView &colunas = *lvCampos->header();
    colunas.setStretchLastSection(false); // the two sides share what room there is
    for (const int lado : {coluna_la, coluna_aqui})
        colunas.setSectionResizeMode(lado, QHeaderView::Stretch);
    connect(cmdMeus, &QAbstractButton::clicked, this, &frmConflito::cmdMeus_Click);
    connect(cmdDeles, &QAbstractButton::clicked, this, &frmConflito::cmdDeles_Click);
    connect(cmdGuardar, &QAbstractButton::clicked, this, &QDialog::accept);
    connect(cmdVoltar, &QAbstractButton::clicked, this, &QDialog::reject);

    Escrever_Textos(facto);
    QWidget *antes = lvCampos;
    for (const auto &[lugar, campo] : campos) {
        ComboBox *escolha = Mostrar(campo);
        escolhas_[lugar] = escolha;
        setTabOrder(antes, escolha);
        antes = escolha; // what follows the list, the buttons, follows the last one
    }
    lvCampos->setCurrentItem(lvCampos->topLevelItem(0));
}

void frmConflito::Escrever_Textos(const QString &facto)
{
    setWindowTitle(withoutMnemonic(geral_.Ler_Idioma(420)));
    Label1->setText(facto);
    Label2->setText(geral_.Ler_Idioma(422));
    cmdMeus->setText(geral_.Ler_Idioma(425));
    cmdDeles->setText(geral_.Ler_Idioma(426));
    cmdGuardar->setText(geral_.Ler_Idioma(427));
    cmdVoltar->setText(geral_.Ler_Idioma(428));
    lvCampos->setAccessibleName(windowTitle());
    lvCampos->setHeaderLabels(
        {geral_.Ler_Idioma(383), geral_.Ler_Idioma(423), geral_.Ler_Idioma(424), geral_.Ler_Idioma(382)});
}

ComboBox *frmConflito::Mostrar(const CampoDisputado &campo)
{
    auto *item = new QTreeWidgetItem(lvCampos, {campo.rotulo});
    item->setSizeHint(coluna_campo, {0, scale::scaled(altura_da_linha)});
    if (campo.imagem) {
        Mostrar_Imagem(*item, coluna_la, campo.la, campo);
        Mostrar_Imagem(*item, coluna_aqui, campo.aqui, campo);
    } else {
        item->setText(coluna_la, Trecho_Que_Difere(campo.la, campo.aqui));
        item->setText(coluna_aqui, Trecho_Que_Difere(campo.aqui, campo.la));
    }
    return Acrescentar_Escolha(*item);
}

// Who does not see it hears where it lies. A row without one has none here either.
void frmConflito::Mostrar_Imagem(QTreeWidgetItem &item, int coluna, const QString &nome,
                                 const CampoDisputado &campo)
{
    item.setData(coluna, Qt::AccessibleTextRole, nome);
    item.setToolTip(coluna, nome);
    if (nome.isEmpty()) return;
    const auto por = [&](const Picture &imagem) {
        item.setData(coluna, Qt::DecorationRole, Miniatura(imagem, devicePixelRatioF()));
    };
    onFailure([&] { por(campo.imagem(nome)); },
              [&](const Failure &) {
                  skipFailure([&] { por(Picture(geral_.Ficheiro(u"fotoerro_small.jpg"_s))); });
              });
}

ComboBox *frmConflito::Acrescentar_Escolha(QTreeWidgetItem &item)
{
    auto *caixa = new ComboBox(lvCampos);
    setSpokenName(*caixa, item.text(coluna_campo));
    for (const qint16 texto : {qint16{424}, qint16{423}}) // in the order of Escolha
        caixa->AddItem(geral_.Ler_Idioma(texto));
    caixa->setCurrentIndex(escolha_aqui);
    if (item.data(coluna_la, Qt::DecorationRole).isNull() &&
        item.data(coluna_aqui, Qt::DecorationRole).isNull())
        lvCampos->setItemWidget(&item, coluna_fica, caixa);
    else
        Por_No_Alto(item, *caixa);
    return caixa;
}

// Beside a picture a choice is no higher than elsewhere. A row is never higher than the widget in it may be,
// so one without that limit lies between.
void frmConflito::Por_No_Alto(QTreeWidgetItem &item, ComboBox &caixa)
{
    auto *lugar = new QWidget(lvCampos);
    auto *pilha = new QVBoxLayout(lugar);
    pilha->setContentsMargins({});
    pilha->addWidget(&caixa);
    pilha->addStretch();
    lvCampos->setItemWidget(&item, coluna_fica, lugar);
}

void frmConflito::Escolher_Todos(int escolha)
{
    for (const auto &[lugar, caixa] : escolhas_)
        caixa->setCurrentIndex(escolha);
}

void frmConflito::cmdMeus_Click() { Escolher_Todos(escolha_aqui); }

void frmConflito::cmdDeles_Click() { Escolher_Todos(escolha_la); }

EncontroDeLinhas::Lugares frmConflito::Deles() const
{
    EncontroDeLinhas::Lugares deles;
    for (const auto &[lugar, caixa] : escolhas_)
        if (caixa->currentIndex() == escolha_la) deles.insert(lugar);
    return deles;
}
