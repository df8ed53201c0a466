// The contacts of a file as rows of a list: the first column carries the tick of those that come.
#pragma once

#include "interchange/ImportacaoDeContactos.h"

#include <QAbstractTableModel>

class Geral;

class ContactosAImportar final : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Lugar { Nome, Numero, Email, Estado, IgualA, quantas_colunas };

    ContactosAImportar(Geral &geral, QObject *dono);

    // Null for none.
    void Mostrar(ImportacaoDeContactos *importacao);

    // The tick of a row: off, it is skipped; on, it comes as its state says.
    void Alternar(int linha);
    void Escolher(int linha, Escolha escolha, std::size_t com = 0);
    // Of all that complete somebody, and about whom nobody has decided otherwise.
    void Juntar_Aos_Existentes(bool juntar);

    QString Nome_De(std::size_t lugar) const;

    int rowCount(const QModelIndex &pai = {}) const override;
    int columnCount(const QModelIndex &pai = {}) const override;
    QVariant data(const QModelIndex &indice, int papel) const override;
    bool setData(const QModelIndex &indice, const QVariant &valor, int papel) override;
    QVariant headerData(int seccao, Qt::Orientation sentido, int papel) const override;
    Qt::ItemFlags flags(const QModelIndex &indice) const override;

private:
    QString Texto(const ContactoAImportar &contacto, int coluna) const;

    ImportacaoDeContactos *importacao_ = nullptr;
    QStringList cabecalhos_;
    std::array<QString, 4> estados_; // by Veredicto
    bool juntar_ = true;
};
