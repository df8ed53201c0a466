// A diary of the writes to the database, kept by the database itself: tells in which order a form wrote.
#pragma once

#include "testlib/Sistema.h"

class Diario
{
public:
    Diario(Sistema &sistema, const QStringList &tabelas) : sistema_(sistema)
    {
        using namespace Qt::StringLiterals;
        const bool num_servidor = Connection::isAddress(sistema_.Base());
        sistema_.Escrever(u"CREATE TABLE Diario (ID %1 PRIMARY KEY, Escrita TEXT)"_s.arg(num_servidor ? u"serial"_s
                                                                                                     : u"INTEGER"_s));
        if (num_servidor)
            sistema_.Escrever(u"CREATE FUNCTION escrever_diario() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER "
                              "AS 'BEGIN INSERT INTO Diario (Escrita) VALUES (TG_ARGV[0]); RETURN NULL; END'"_s);
        for (const QString &tabela : tabelas)
            for (const QString &accao : {u"UPDATE"_s, u"DELETE"_s, u"INSERT"_s})
                sistema_.Escrever(
                    (num_servidor ? u"CREATE TRIGGER Diario_%1_%2 AFTER %2 ON %1 FOR EACH ROW "
                                    "EXECUTE FUNCTION escrever_diario('%2 %1')"_s
                                  : u"CREATE TRIGGER Diario_%1_%2 AFTER %2 ON %1 FOR EACH ROW BEGIN "
                                    "INSERT INTO Diario (Escrita) VALUES ('%2 %1'); END"_s)
                        .arg(tabela, accao));
    }

    // "UPDATE TblMemos" and the like, once for each statement however many rows it met.
    QStringList Escritas()
    {
        QStringList escritas = sistema_.Linhas(QStringLiteral("SELECT Escrita FROM Diario ORDER BY ID"));
        escritas.erase(std::unique(escritas.begin(), escritas.end()), escritas.end());
        return escritas;
    }

private:
    Sistema &sistema_;
};
