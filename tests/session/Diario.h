// A diary of the writes to the database, kept by the database itself: tells in which order a form wrote.
#pragma once

#include "testlib/Sistema.h"

class Diario
{
public:
    Diario(Sistema &sistema, const QStringList &tabelas) : sistema_(sistema)
    {
        using namespace Qt::StringLiterals;
        sistema_.Escrever(u"CREATE TABLE Diario (ID INTEGER PRIMARY KEY, Escrita TEXT)"_s);
        for (const QString &tabela : tabelas)
            for (const QString &accao : {u"UPDATE"_s, u"DELETE"_s, u"INSERT"_s})
                sistema_.Escrever(u"CREATE TRIGGER Diario_%1_%2 AFTER %2 ON %1 BEGIN "
                                  "INSERT INTO Diario (Escrita) VALUES ('%2 %1'); END"_s.arg(tabela, accao));
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
