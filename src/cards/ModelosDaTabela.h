// The two tables of frmCampos: the field of each column, in one row that is chosen from, and the first rows
// below it.
#pragma once

#include <QAbstractTableModel>
#include <QStyledItemDelegate>

class Geral;
class LeituraDaTabela;

class ModeloDosCampos final : public QAbstractTableModel
{
    Q_OBJECT
public:
    ModeloDosCampos(LeituraDaTabela &leitura, Geral &geral, QObject *dono)
        : QAbstractTableModel(dono), leitura_(leitura), geral_(geral)
    {
    }

    void Refrescar();             // the table was read anew
    QStringList Palavras() const; // of all choices

    int rowCount(const QModelIndex &pai = {}) const override;
    int columnCount(const QModelIndex &pai = {}) const override;
    QVariant data(const QModelIndex &indice, int papel) const override;
    bool setData(const QModelIndex &indice, const QVariant &escolha, int papel) override;
    QVariant headerData(int seccao, Qt::Orientation direccao, int papel) const override;
    Qt::ItemFlags flags(const QModelIndex &indice) const override;

private:
    LeituraDaTabela &leitura_;
    Geral &geral_;
};

class ModeloDasLinhas final : public QAbstractTableModel
{
    Q_OBJECT
public:
    ModeloDasLinhas(const LeituraDaTabela &leitura, QObject *dono)
        : QAbstractTableModel(dono), leitura_(leitura)
    {
    }

    void Refrescar();

    int rowCount(const QModelIndex &pai = {}) const override;
    int columnCount(const QModelIndex &pai = {}) const override;
    QVariant data(const QModelIndex &indice, int papel) const override;
    QVariant headerData(int seccao, Qt::Orientation direccao, int papel) const override;

private:
    const LeituraDaTabela &leitura_;
};

// A cell that looks like a combo box and is one while it is chosen from.
class EscolhaDoCampo final : public QStyledItemDelegate
{
    Q_OBJECT
public:
    EscolhaDoCampo(const ModeloDosCampos &modelo, QObject *dono) : QStyledItemDelegate(dono), modelo_(modelo)
    {
    }

    void paint(QPainter *pintor, const QStyleOptionViewItem &opcao, const QModelIndex &indice) const override;
    QWidget *createEditor(QWidget *dono, const QStyleOptionViewItem &opcao,
                          const QModelIndex &indice) const override;
    void setEditorData(QWidget *editor, const QModelIndex &indice) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *modelo, const QModelIndex &indice) const override;

private:
    const ModeloDosCampos &modelo_;
};

// One line of it, short, without signs that nobody can see.
QString Celula_A_Vista(const QString &celula);
