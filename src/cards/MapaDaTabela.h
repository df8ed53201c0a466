// Which column of a foreign table means what, as a form can show and change it, and as it is remembered for
// the next table whose columns have the same names.
#pragma once

#include "csv/CsvFields.h"
#include "csv/CsvValues.h"

#include <optional>
#include <QStringList>
#include <vector>

class CsvHeaders;
class ReadWriteINI;

struct MapaDaTabela {
    std::vector<CsvColumn> colunas; // one a column of the table; Unknown goes to Obs with its name
    std::optional<DateOrder> ordem; // nothing chosen: told by the dates themselves

    bool operator==(const MapaDaTabela &) const = default;

    // As the names tell; a table without names has unknown columns only.
    static MapaDaTabela Proposto(const QStringList &nomes, const CsvHeaders &conhecidos);
};

// In the section csv of config.ini, by the set of the names, in whatever order the columns stand.
class MapasGuardados
{
public:
    static constexpr qsizetype mais_colunas = 126; // of a table that is remembered: a value is one short line

    explicit MapasGuardados(ReadWriteINI &ini) : ini_(ini) {}

    void Guardar(const QStringList &nomes, const MapaDaTabela &mapa);
    // The remembered one, else the one that the names tell.
    MapaDaTabela Ler(const QStringList &nomes, const CsvHeaders &conhecidos);

private:
    ReadWriteINI &ini_;
};
