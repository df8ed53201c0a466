// Contacts as the rows of a table for another program. The program itself finds in it all that it wrote, but
// the photograph: a table has no place for one.
#pragma once

#include "csv/CsvWriter.h"

#include <QString>

struct ContactoParaCartao;

class TabelaDeSaida
{
public:
    // For a spreadsheet the names of the columns are in that language ("AlemaoDE"); for other programs they
    // are those that web books and mail programs know, whatever it is.
    TabelaDeSaida(CsvDialect dialecto, QString idioma);

    QByteArray Inicio() const; // with the names
    QByteArray Linha(const ContactoParaCartao &contacto) const;

private:
    CsvDialect dialecto_;
    QString idioma_;
};
