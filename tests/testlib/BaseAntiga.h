// A database as programs before the first step of the schema made it: nine tables, the first texts, and no
// number.
#pragma once

#include "testlib/Sistema.h"

inline void Envelhecer(Sistema &s)
{
    for (const QString &sql :
         {QStringLiteral("DROP TABLE TblFotografias"), QStringLiteral("DROP TABLE TblCartoes"),
          QStringLiteral("DROP TABLE TblDiferentes"), QStringLiteral("DROP TABLE TblSincronizacao"),
          QStringLiteral("DROP TABLE TblSincronizados"), QStringLiteral("DROP TABLE TblOcorrencias"),
          QStringLiteral("DELETE FROM TblIdiomas WHERE ID >= 274"), QStringLiteral("PRAGMA user_version=0"),
          QStringLiteral("VACUUM")})
        s.Escrever(sql);
}
