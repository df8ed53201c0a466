// A foreign table while a person settles how it is to be read: what it says is kept beside what was found
// out, and outlives another reading as far as it still fits.
#pragma once

#include "cards/TabelaEscolhida.h"

#include <map>
#include <optional>
#include <QByteArray>
#include <QStringList>

class ReadWriteINI;

class LeituraDaTabela
{
public:
    static constexpr std::size_t linhas_mostradas = 20;
    static constexpr qsizetype mais_colunas = 2000; // what lies beyond goes to Obs

    // Reads the file at once. The labels are written in that language.
    LeituraDaTabela(QByteArray ficheiro, ReadWriteINI &ini, ContactosDaTabela::Opcoes opcoes);

    // Reads it again, as a person wants it. A column keeps what the person has said of it: by its name,
    // else by its place among as many.
    void Ler(const CsvChoice &escolha);
    void Por_Coluna(std::size_t coluna, const CsvColumn &campo);
    void Por_Ordem(std::optional<DateOrder> ordem) { mapa_.ordem = ordem; }

    const CsvChoice &Escolha() const { return escolha_; }
    const CsvTable &Tabela() const { return tabela_; }
    const MapaDaTabela &Mapa() const { return mapa_; }
    std::size_t Colunas() const { return mapa_.colunas.size(); }
    QString Nome(std::size_t coluna) const; // its number where the table has no name for it

    std::size_t Quantos() const { return tabela_.rows.size() - Primeira(); }
    std::size_t Mostradas() const { return std::min(Quantos(), linhas_mostradas); }
    QString Celula(std::size_t linha, std::size_t coluna) const;
    ContactoDaLinha Contacto(std::size_t linha) const; // of those that are shown, as it will be

    QStringList Nomes_Ambiguos() const; // of this table
    // Numbers that a spreadsheet has spoilt in columns of numbers, and the first of them.
    std::pair<std::size_t, QString> Numeros_Estragados() const;

    // Remembers the map for the next table of these names.
    void Guardar() const;
    TabelaEscolhida Escolhida() const { return {tabela_, mapa_, opcoes_}; }

private:
    struct Dita { // by the person, of a column
        std::size_t coluna;
        std::size_t de_quantas;
        QString nome;
        CsvColumn campo;
    };
    struct Estragados {
        std::size_t quantos = 0;
        QString primeiro;
    };

    std::size_t Primeira() const { return tabela_.hasHeader && !tabela_.rows.empty() ? 1 : 0; }
    QStringList Nomes() const;
    void Propor();
    void Contar_Estragados();
    DateOrder Ordem_Das_Datas(std::size_t coluna) const;

    QByteArray ficheiro_;
    ReadWriteINI &ini_;
    ContactosDaTabela::Opcoes opcoes_;
    CsvHeaders conhecidos_;
    CsvChoice escolha_;
    CsvTable tabela_;
    MapaDaTabela proposto_;
    MapaDaTabela mapa_;
    std::vector<Dita> ditas_;            // the last one counts
    std::vector<Estragados> estragados_; // one a column
    mutable std::map<std::size_t, DateOrder> ordens_;
};
