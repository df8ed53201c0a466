#include "reminders/frmAniversarios.h"

#include "contacts/DisposicaoCartao.h"
#include "contacts/Fotografia.h"
#include "controls/Controls.h"
#include "controls/IconRoom.h"
#include "controls/Scale.h"
#include "controls/Units.h"
#include "data/Geral.h"
#include "data/Traduzir.h"
#include "platform/Failure.h"
#include "reminders/ProximosAniversarios.h"

#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace
{
enum Coluna { coluna_nome, coluna_data, coluna_id }; // the last one is hidden

constexpr int largura_do_nome = 186; // pixels
constexpr int altura_da_linha = 18;

// In twips.
constexpr QRectF caixa_da_foto{5250, 360, cartao::foto_width, cartao::foto_height};

constexpr Translations sem_aniversarios{u"Não há aniversários nos próximos dias.",
                                        u"Não há aniversários nos próximos dias.",
                                        u"There are no birthdays in the coming days.",
                                        u"No hay cumpleaños en los próximos días.",
                                        u"Nei prossimi giorni non ci sono compleanni.",
                                        u"Il n’y a aucun anniversaire dans les prochains jours.",
                                        u"In den nächsten Tagen gibt es keine Geburtstage."};

constexpr qint16 texto_antes_de_janeiro = 13;
constexpr int meses = 12;
} // namespace

frmAniversarios::frmAniversarios(Geral &geral, QWidget &janela)
    : geral_(geral), janela_(janela), pausa_(geral.temporizadores)
{
    setupUi(this);
    scale::apply(*this);
    ListViewAniversarios->setColumnWidth(coluna_nome, scale::scaled(largura_do_nome));
    ListViewAniversarios->hideColumn(coluna_id);
    ListViewAniversarios->setItemDelegateForColumn(coluna_nome, new IconRoom(ListViewAniversarios));
    connect(ListViewAniversarios, &QTreeWidget::itemSelectionChanged, this,
            &frmAniversarios::ListViewAniversarios_ItemClick);
    connect(cmdFechar, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QDialog::finished, this, &frmAniversarios::Form_Unload);

    Label1->setText(geral_.Ler_Idioma(175));
    setWindowTitle(Label1->text());
    ListViewAniversarios->setAccessibleName(Label1->text());
    ListViewAniversarios->setEmptyText(Traduzir(sem_aniversarios, geral_));
    cmdFechar->setText(geral_.Ler_Idioma(135));
}

void frmAniversarios::PreencherAniversarios(const std::vector<Aniversariante> &pessoas)
{
    const QSignalBlocker sem_seleccao(ListViewAniversarios);
    ListViewAniversarios->clear();
    ListViewAniversarios->setHeaderLabels({geral_.Ler_Idioma(27), geral_.Ler_Idioma(177), QString()});
    const QString de = u' ' + geral_.Ler_Idioma(176) + u' ';
    for (const Aniversariante &pessoa : pessoas) {
        auto *item = new QTreeWidgetItem(ListViewAniversarios,
                                         {pessoa.Nome, pessoa.Dia + de + Nome_Do_Mes(pessoa.Mes), pessoa.ID});
        item->setSizeHint(coluna_nome, {0, scale::scaled(altura_da_linha)});
        if (pessoa.hoje) item->setIcon(coluna_nome, QIcon(u":/imagens/toolbar/aniversarios.svg"_s));
    }
    ListViewAniversarios->clearSelection();
}

// By the text and not by the number: a month that is stored as "01" has no name here.
QString frmAniversarios::Nome_Do_Mes(const QString &Mes)
{
    for (qint16 mes = 1; mes <= meses; ++mes)
        if (Mes == QString::number(mes))
            return geral_.Ler_Idioma(static_cast<qint16>(texto_antes_de_janeiro + mes));
    return {};
}

void frmAniversarios::ListViewAniversarios_ItemClick()
{
    if (!ListViewAniversarios->selectedItems().isEmpty()) Mostrar_Foto();
}

void frmAniversarios::Mostrar_Foto()
{
    const QTreeWidgetItem *item = ListViewAniversarios->selectedItems().value(0);
    if (item != nullptr)
        Mostrar_Fotografia_Do_Contacto(item->text(coluna_id));
    else if (ListViewAniversarios->topLevelItemCount() > 0) // to select it shows its picture
        ListViewAniversarios->setCurrentItem(ListViewAniversarios->topLevelItem(0));
}

void frmAniversarios::Mostrar_Fotografia_Do_Contacto(const QString &ID)
{
    const auto mostrar = [&] {
        Recordset &rs = geral_.de.Abrir("cmdEditarNome", {ID});
        const QString Fotografia = rs.Fields("Fotografia").textOrEmpty();
        rs.Close();
        if (Fotografia.isEmpty()) return Mostrar_Na_Caixa(u"semfoto_big.jpg"_s);
        image1_ = Imagem_Da_Fotografia(geral_, Fotografia);
        const QSizeF natural = QSizeF(image1_.naturalSize()) * twipsPerPixel;
        QRectF lugar({}, cartao::Redimensionar_Foto(natural));
        lugar.moveCenter(caixa_da_foto.center());
        Mostrar_Fotografia(*Thumb, image1_, lugar);
    };
    onFailure(mostrar,
              [&](const Failure &) { skipFailure([&] { Mostrar_Na_Caixa(u"fotoerro_big.jpg"_s); }); });
}

// A picture of the program's own folder over the whole box.
void frmAniversarios::Mostrar_Na_Caixa(const QString &ficheiro)
{
    image1_ = Picture(geral_.Ficheiro(ficheiro));
    Mostrar_Fotografia(*Thumb, image1_, caixa_da_foto);
}

void frmAniversarios::Form_Unload()
{
    pausa_.Retomar();
    janela_.setEnabled(true);
}
