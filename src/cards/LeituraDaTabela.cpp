#include "cards/LeituraDaTabela.h"

#include "csv/CsvValues.h"
#include "data/ReadWriteINI.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
bool E_De_Numeros(CsvField campo)
{
    return campo == CsvField::Phone || campo == CsvField::Mobile || campo == CsvField::Fax;
}
} // namespace

LeituraDaTabela::LeituraDaTabela(QByteArray ficheiro, ReadWriteINI &ini, ContactosDaTabela::Opcoes opcoes)
    : ficheiro_(std::move(ficheiro)), ini_(ini), opcoes_(std::move(opcoes))
{
    Ler({});
}

void LeituraDaTabela::Ler(const CsvChoice &escolha)
{
    const std::optional<DateOrder> ordem = mapa_.ordem;
    const bool e_a_primeira = mapa_.colunas.empty();
    escolha_ = escolha;
    tabela_ = readCsv(ficheiro_, escolha_);
    ordens_.clear();
    Propor();
    if (!e_a_primeira) mapa_.ordem = ordem;
    Contar_Estragados();
}

// Those of the first row; blank ones for columns that the rows in view have besides.
QStringList LeituraDaTabela::Nomes() const
{
    QStringList nomes = Primeira() == 1 ? tabela_.rows.front() : QStringList();
    qsizetype colunas = nomes.size();
    for (std::size_t i = 0; i < Mostradas(); ++i)
        colunas = std::max(colunas, tabela_.rows[Primeira() + i].size());
    nomes.resize(std::min(colunas, mais_colunas));
    return nomes;
}

void LeituraDaTabela::Propor()
{
    const QStringList nomes = Nomes();
    // Columns without names are nobody's: what was said of others of their number tells nothing of these.
    mapa_ = Primeira() == 1 ? MapasGuardados(ini_).Ler(nomes, conhecidos_)
                            : MapaDaTabela::Proposto(nomes, conhecidos_);
    proposto_ = mapa_;
    for (const Dita &dita : ditas_) {
        qsizetype onde = dita.nome.isEmpty() ? -1 : nomes.indexOf(dita.nome);
        if (onde < 0 && dita.de_quantas == mapa_.colunas.size()) onde = static_cast<qsizetype>(dita.coluna);
        if (onde >= 0) mapa_.colunas[static_cast<std::size_t>(onde)] = dita.campo;
    }
}

// What was found out besides, such as which number a "Phone 2" has, comes back with the first choice.
void LeituraDaTabela::Por_Coluna(std::size_t coluna, const CsvColumn &campo)
{
    const CsvColumn &proposta = proposto_.colunas.at(coluna);
    const bool e_a_proposta = campo.field == proposta.field && campo.place == proposta.place;
    const Dita dita{coluna, mapa_.colunas.size(), Nomes().value(static_cast<qsizetype>(coluna)),
                    e_a_proposta ? proposta : campo};
    std::erase_if(ditas_, [&](const Dita &outra) {
        return outra.coluna == coluna && outra.de_quantas == dita.de_quantas;
    });
    ditas_.push_back(dita);
    mapa_.colunas[coluna] = dita.campo;
}

QString LeituraDaTabela::Nome(std::size_t coluna) const
{
    const QString nome =
        Primeira() == 0 ? QString() : tabela_.rows.front().value(static_cast<qsizetype>(coluna)).simplified();
    return nome.isEmpty() ? QString::number(coluna + 1) : nome;
}

QString LeituraDaTabela::Celula(std::size_t linha, std::size_t coluna) const
{
    return tabela_.rows.at(Primeira() + linha).value(static_cast<qsizetype>(coluna));
}

// Of the rows in view alone, but with the order of dates that the whole column has.
ContactoDaLinha LeituraDaTabela::Contacto(std::size_t linha) const
{
    CsvTable vista{tabela_.encoding, tabela_.delimiter, tabela_.hasHeader, {}};
    if (Primeira() == 1) vista.rows.push_back(tabela_.rows.front());
    vista.rows.push_back(tabela_.rows.at(Primeira() + linha));
    MapaDaTabela mapa = mapa_;
    for (std::size_t i = 0; i < mapa.colunas.size() && !mapa.ordem; ++i)
        if (mapa.colunas[i].field == CsvField::Birthday) mapa.ordem = Ordem_Das_Datas(i);
    return ContactosDaTabela(std::move(vista), std::move(mapa), opcoes_).Ler(0);
}

DateOrder LeituraDaTabela::Ordem_Das_Datas(std::size_t coluna) const
{
    if (const auto achada = ordens_.find(coluna); achada != ordens_.end()) return achada->second;
    QStringList datas;
    for (std::size_t linha = Primeira(); linha < tabela_.rows.size(); ++linha)
        datas << tabela_.rows[linha].value(static_cast<qsizetype>(coluna));
    return ordens_[coluna] = dateOrder(datas, opcoes_.usual);
}

QStringList LeituraDaTabela::Nomes_Ambiguos() const
{
    QStringList nomes = Primeira() == 1 ? Nomes() : QStringList();
    nomes.removeIf([this](const QString &nome) { return !conhecidos_.isAmbiguous(nome); });
    nomes.removeDuplicates();
    return nomes;
}

void LeituraDaTabela::Contar_Estragados()
{
    estragados_.assign(mapa_.colunas.size(), {});
    for (std::size_t linha = Primeira(); linha < tabela_.rows.size(); ++linha) {
        const QStringList &celulas = tabela_.rows[linha];
        const std::size_t quantas = std::min(static_cast<std::size_t>(celulas.size()), estragados_.size());
        for (std::size_t i = 0; i < quantas; ++i) {
            const QString &celula = celulas[static_cast<qsizetype>(i)];
            if (!celula.contains(u'+') || !isScientificNumber(celula)) continue;
            if (estragados_[i].quantos++ == 0) estragados_[i].primeiro = celula.trimmed();
        }
    }
}

std::pair<std::size_t, QString> LeituraDaTabela::Numeros_Estragados() const
{
    Estragados todos;
    for (std::size_t i = 0; i < estragados_.size(); ++i) {
        if (!E_De_Numeros(mapa_.colunas[i].field)) continue;
        if (todos.quantos == 0) todos.primeiro = estragados_[i].primeiro;
        todos.quantos += estragados_[i].quantos;
    }
    return {todos.quantos, todos.primeiro};
}

void LeituraDaTabela::Guardar() const
{
    if (Primeira() == 1) MapasGuardados(ini_).Guardar(Nomes(), mapa_);
}
