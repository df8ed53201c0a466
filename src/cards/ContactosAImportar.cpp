#include "cards/ContactosAImportar.h"

#include "data/Geral.h"

#include <QFont>

ContactosAImportar::ContactosAImportar(Geral &geral, QObject *dono)
    : QAbstractTableModel(dono),
      cabecalhos_{geral.Ler_Idioma(27), geral.Ler_Idioma(303), geral.Ler_Idioma(304), geral.Ler_Idioma(305),
                  geral.Ler_Idioma(306)},
      estados_{geral.Ler_Idioma(301), geral.Ler_Idioma(300), geral.Ler_Idioma(302), geral.Ler_Idioma(299)}
{
}

void ContactosAImportar::Mostrar(ImportacaoDeContactos *importacao)
{
    beginResetModel();
    importacao_ = importacao;
    endResetModel();
}

void ContactosAImportar::Escolher(int linha, Escolha escolha, std::size_t com)
{
    ContactoAImportar &contacto = importacao_->Contactos().at(static_cast<std::size_t>(linha));
    contacto.escolha = escolha;
    contacto.com = com;
    Q_EMIT dataChanged(index(linha, 0), index(linha, quantas_colunas - 1));
}

void ContactosAImportar::Alternar(int linha)
{
    const ContactoAImportar &contacto = importacao_->Contactos().at(static_cast<std::size_t>(linha));
    const bool junta = contacto.veredicto == Veredicto::Completa && juntar_;
    const Escolha ligada = junta ? Escolha::Juntar : Escolha::Novo;
    Escolher(linha, contacto.escolha == Escolha::Saltar ? ligada : Escolha::Saltar, contacto.com);
}

void ContactosAImportar::Juntar_Aos_Existentes(bool juntar)
{
    juntar_ = juntar;
    if (rowCount() == 0) return;
    for (ContactoAImportar &contacto : importacao_->Contactos())
        if (contacto.veredicto == Veredicto::Completa && contacto.escolha != Escolha::Novo)
            contacto.escolha = juntar ? Escolha::Juntar : Escolha::Saltar;
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, quantas_colunas - 1));
}

QString ContactosAImportar::Nome_De(std::size_t lugar) const
{
    return importacao_->Colunas_De(lugar)[Coluna::Nome];
}

int ContactosAImportar::rowCount(const QModelIndex &pai) const
{
    return pai.isValid() || importacao_ == nullptr ? 0 : static_cast<int>(importacao_->Contactos().size());
}

int ContactosAImportar::columnCount(const QModelIndex &pai) const
{
    return pai.isValid() ? 0 : quantas_colunas;
}

QString ContactosAImportar::Texto(const ContactoAImportar &contacto, int coluna) const
{
    const ColunasDoContacto &colunas = contacto.fonte.lido.colunas;
    switch (coluna) {
    case Nome:
        return colunas[Coluna::Nome];
    case Numero:
        for (const Coluna numero : {Coluna::Telemovel1, Coluna::Telefone1, Coluna::Fax})
            if (!colunas[numero].isEmpty()) return colunas[numero];
        return {};
    case Email:
        return colunas[Coluna::Email1];
    case Estado:
        return estados_.at(static_cast<std::size_t>(contacto.veredicto));
    default:
        return contacto.quem.empty() ? QString() : Nome_De(contacto.quem.at(contacto.com));
    }
}

QVariant ContactosAImportar::data(const QModelIndex &indice, int papel) const
{
    const ContactoAImportar &contacto = importacao_->Contactos().at(static_cast<std::size_t>(indice.row()));
    if (papel == Qt::CheckStateRole && indice.column() == Nome)
        return contacto.escolha == Escolha::Saltar ? Qt::Unchecked : Qt::Checked;
    if (papel == Qt::DisplayRole || papel == Qt::ToolTipRole) return Texto(contacto, indice.column());
    return {};
}

bool ContactosAImportar::setData(const QModelIndex &indice, const QVariant & /*valor*/, int papel)
{
    if (papel != Qt::CheckStateRole) return false;
    Alternar(indice.row());
    return true;
}

QVariant ContactosAImportar::headerData(int seccao, Qt::Orientation sentido, int papel) const
{
    if (sentido != Qt::Horizontal || papel != Qt::DisplayRole) return {};
    return cabecalhos_.value(seccao);
}

Qt::ItemFlags ContactosAImportar::flags(const QModelIndex &indice) const
{
    const Qt::ItemFlags base = QAbstractTableModel::flags(indice);
    return indice.column() == Nome ? base | Qt::ItemIsUserCheckable : base;
}
