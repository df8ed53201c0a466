#include "cards/ModelosDaTabela.h"

#include "cards/CamposDaTabela.h"
#include "cards/LeituraDaTabela.h"
#include "controls/Contrast.h"

#include <QApplication>
#include <QComboBox>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{
std::size_t Coluna_De(const QModelIndex &indice) { return static_cast<std::size_t>(indice.column()); }

// Of what goes to Obs: paler than the rest, and still to be read.
QBrush Cinzento()
{
    const QPalette paleta = QApplication::palette();
    const QColor fundo = paleta.color(QPalette::Base);
    const QColor letras = paleta.color(QPalette::Text);
    const auto entre = [](int a, int b) { return (3 * a + 2 * b) / 5; };
    const QColor pelo_meio(entre(letras.red(), fundo.red()), entre(letras.green(), fundo.green()),
                           entre(letras.blue(), fundo.blue()));
    constexpr int luz = 160; // per cent: the shine that the style gives a button at its top
    return readableOn(readableOn(pelo_meio, fundo), paleta.color(QPalette::Button).lighter(luz));
}

int Quantas_Colunas(const LeituraDaTabela &leitura, const QModelIndex &pai)
{
    return pai.isValid() ? 0 : static_cast<int>(leitura.Colunas());
}
} // namespace

QString Celula_A_Vista(const QString &celula)
{
    constexpr qsizetype mais_letras = 200;
    QString vista = celula.left(mais_letras);
    for (QChar &sinal : vista)
        if (sinal.category() == QChar::Other_Control) sinal = u' ';
    return celula.size() > mais_letras ? vista.simplified() + u'…' : vista.simplified();
}

void ModeloDosCampos::Refrescar()
{
    beginResetModel();
    endResetModel();
}

QStringList ModeloDosCampos::Palavras() const
{
    QStringList palavras;
    for (const CsvColumn &campo : campos_da_tabela::Todos())
        palavras << campos_da_tabela::Palavra(campo, geral_);
    return palavras;
}

int ModeloDosCampos::rowCount(const QModelIndex &pai) const
{
    return !pai.isValid() && leitura_.Colunas() > 0 ? 1 : 0;
}

int ModeloDosCampos::columnCount(const QModelIndex &pai) const { return Quantas_Colunas(leitura_, pai); }

QVariant ModeloDosCampos::data(const QModelIndex &indice, int papel) const
{
    if (!indice.isValid()) return {};
    const CsvColumn &campo = leitura_.Mapa().colunas.at(Coluna_De(indice));
    switch (papel) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return campos_da_tabela::Palavra(campo, geral_);
    case Qt::EditRole:
        return campos_da_tabela::Escolha_De(campo);
    case Qt::ForegroundRole:
        if (!campos_da_tabela::Vai_Para_Obs(campo)) return {};
        return Cinzento();
    default:
        return {};
    }
}

bool ModeloDosCampos::setData(const QModelIndex &indice, const QVariant &escolha, int papel)
{
    const std::vector<CsvColumn> &todos = campos_da_tabela::Todos();
    const int qual = escolha.toInt();
    if (papel != Qt::EditRole || qual < 0 || qual >= static_cast<int>(todos.size())) return false;
    leitura_.Por_Coluna(Coluna_De(indice), todos[static_cast<std::size_t>(qual)]);
    Q_EMIT dataChanged(indice, indice);
    return true;
}

QVariant ModeloDosCampos::headerData(int seccao, Qt::Orientation direccao, int papel) const
{
    if (direccao != Qt::Horizontal || (papel != Qt::DisplayRole && papel != Qt::ToolTipRole)) return {};
    return Celula_A_Vista(leitura_.Nome(static_cast<std::size_t>(seccao)));
}

Qt::ItemFlags ModeloDosCampos::flags(const QModelIndex &indice) const
{
    return QAbstractTableModel::flags(indice) | Qt::ItemIsEditable;
}

void ModeloDasLinhas::Refrescar()
{
    beginResetModel();
    endResetModel();
}

int ModeloDasLinhas::rowCount(const QModelIndex &pai) const
{
    return pai.isValid() ? 0 : static_cast<int>(leitura_.Mostradas());
}

int ModeloDasLinhas::columnCount(const QModelIndex &pai) const { return Quantas_Colunas(leitura_, pai); }

QVariant ModeloDasLinhas::data(const QModelIndex &indice, int papel) const
{
    if (!indice.isValid()) return {};
    if (papel == Qt::DisplayRole || papel == Qt::ToolTipRole)
        return Celula_A_Vista(leitura_.Celula(static_cast<std::size_t>(indice.row()), Coluna_De(indice)));
    if (papel == Qt::ForegroundRole &&
        campos_da_tabela::Vai_Para_Obs(leitura_.Mapa().colunas.at(Coluna_De(indice))))
        return Cinzento();
    return {};
}

QVariant ModeloDasLinhas::headerData(int seccao, Qt::Orientation direccao, int papel) const
{
    if (direccao != Qt::Horizontal || papel != Qt::DisplayRole) return {};
    return Celula_A_Vista(leitura_.Nome(static_cast<std::size_t>(seccao)));
}

void EscolhaDoCampo::paint(QPainter *pintor, const QStyleOptionViewItem &opcao,
                           const QModelIndex &indice) const
{
    QStyleOptionComboBox caixa;
    caixa.rect = opcao.rect;
    caixa.palette = opcao.palette;
    caixa.fontMetrics = opcao.fontMetrics;
    caixa.direction = opcao.direction;
    caixa.state = (opcao.state | QStyle::State_Enabled) & ~QStyle::State_Selected;
    caixa.currentText = indice.data(Qt::DisplayRole).toString();
    const QVariant cor = indice.data(Qt::ForegroundRole);
    if (cor.isValid())
        for (const QPalette::ColorRole papel : {QPalette::Text, QPalette::ButtonText, QPalette::WindowText})
            caixa.palette.setBrush(papel, cor.value<QBrush>());
    const QStyle &estilo = *opcao.widget->style();
    estilo.drawComplexControl(QStyle::CC_ComboBox, &caixa, pintor, opcao.widget);
    estilo.drawControl(QStyle::CE_ComboBoxLabel, &caixa, pintor, opcao.widget);
}

QWidget *EscolhaDoCampo::createEditor(QWidget *dono, const QStyleOptionViewItem & /*opcao*/,
                                      const QModelIndex &indice) const
{
    auto *caixa = new QComboBox(dono);
    caixa->addItems(modelo_.Palavras());
    caixa->setAccessibleName(modelo_.headerData(indice.column(), Qt::Horizontal, Qt::DisplayRole).toString());
    auto *eu = const_cast<EscolhaDoCampo *>(this);
    connect(caixa, &QComboBox::activated, eu, [eu, caixa] {
        Q_EMIT eu->commitData(caixa);
        Q_EMIT eu->closeEditor(caixa);
    });
    // Its list at once: with the arrows alone the first one would be the choice.
    QMetaObject::invokeMethod(caixa, &QComboBox::showPopup, Qt::QueuedConnection);
    return caixa;
}

void EscolhaDoCampo::setEditorData(QWidget *editor, const QModelIndex &indice) const
{
    static_cast<QComboBox *>(editor)->setCurrentIndex(indice.data(Qt::EditRole).toInt());
}

// A column of which nothing was chosen stays what it was found to be.
void EscolhaDoCampo::setModelData(QWidget *editor, QAbstractItemModel *modelo,
                                  const QModelIndex &indice) const
{
    const int escolha = static_cast<QComboBox *>(editor)->currentIndex();
    if (escolha >= 0 && escolha != indice.data(Qt::EditRole).toInt())
        modelo->setData(indice, escolha, Qt::EditRole);
}
