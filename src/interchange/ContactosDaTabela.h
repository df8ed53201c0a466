// The rows of a foreign table as contacts. A row becomes a card first, so that one set of rules says what
// goes into which column; nothing in a row is lost but numbers that a spreadsheet has spoilt.
#pragma once

#include "csv/CsvHeaders.h"
#include "csv/CsvReader.h"
#include "interchange/ContactoDoCartao.h"
#include "interchange/MapaDaTabela.h"

struct CardContent;
struct CardEntry;

struct ContactoDaLinha {
    ContactoLido lido;
    QStringList estragados; // "3,51912E+11": numbers that were refused
};

class ContactosDaTabela
{
public:
    struct Opcoes {
        QString idioma;    // of the labels
        DateOrder usual{}; // where the dates don't tell their order
        int este_ano = 0;  // no birthday of two digits is after it
        GruposDaImportacao grupos;
    };

    // The map has one entry a column; further cells of a row are unknown ones without a name.
    ContactosDaTabela(CsvTable tabela, MapaDaTabela mapa, Opcoes opcoes);

    std::size_t Quantos() const { return tabela_.rows.size() - primeira_; }
    ContactoDaLinha Ler(std::size_t qual) const; // from 0

private:
    QString Nome_Da_Coluna(std::size_t coluna) const;
    CsvColumn Coluna_De(std::size_t coluna) const;
    void Ordens_Das_Datas();
    QString Rotulo_Da_Linha(const QStringList &linha, std::size_t coluna) const;
    CardEntry Entrada(const QStringList &linha, std::size_t coluna, const QString &valor) const;
    void Por(CardContent &conteudo, const QStringList &linha, std::size_t coluna, const QString &valor) const;
    void Por_Morada(CardContent &conteudo, const QStringList &linha, std::size_t coluna,
                    const QString &valor) const;
    void Por_Aniversario(CardContent &conteudo, std::size_t coluna, const QString &valor) const;
    void Por_Partes_Do_Aniversario(CardContent &conteudo, const QStringList &linha) const;

    CsvTable tabela_;
    MapaDaTabela mapa_;
    Opcoes opcoes_;
    std::size_t primeira_; // row that is no name
    bool tem_telemoveis_;  // a column for them
    std::vector<DateOrder> ordens_;
    CsvHeaders conhecidos_;
};
