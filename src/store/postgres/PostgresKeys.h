// The keys of writes: each is kept by the transaction that it stands for, and tells later whether that one arrived.
#pragma once

#include <QString>
#include <QUuid>

namespace postgres
{
inline QString newKey() { return QUuid::createUuid().toString(QUuid::WithoutBraces); }

inline const QString keepKey = QStringLiteral("INSERT INTO gravacoes (chave) VALUES ($1::uuid)");

// The same for what writes to several tables: one of these at a time. In another order than a second one they would
// wait for one another.
inline const QString keepKeyAlone =
    QStringLiteral("INSERT INTO gravacoes (chave) SELECT $1::uuid FROM pg_advisory_xact_lock(2004)");
inline const QString alone = QStringLiteral("SELECT pg_advisory_xact_lock(2004)");

// Waits for a transaction with that key that still runs, and keeps one that has not begun from ever writing. Where
// the key was free a second one beside it says who has taken it, for the answer to this may be lost as well.
inline const QString takeKey =
    QStringLiteral("WITH taken AS (INSERT INTO gravacoes (chave) VALUES ($1::uuid) ON CONFLICT DO NOTHING RETURNING 1) "
                   "INSERT INTO gravacoes (chave) SELECT $2::uuid FROM taken");
// How many milliseconds that may take. For this transaction alone.
inline const QString waitForLocks = QStringLiteral("SELECT set_config('lock_timeout', $1, true)");
// A row where that key is there.
inline const QString findKey = QStringLiteral("SELECT 1 FROM gravacoes WHERE chave = $1::uuid");

// An insert and its key in one statement, so that neither is there without the other. The key knows the row, whose
// number is given to no other one while a key knows it: it counts while that row stands.
inline QString keepForLong(const QString &insert, std::size_t parameter)
{
    return QStringLiteral("WITH morvex_linha AS (%1 RETURNING tableoid, id) INSERT INTO gravacoes (chave, quando, tabela, "
                          "linha) SELECT $%2::uuid, now() + interval '30 days', (SELECT relname FROM pg_catalog.pg_class "
                          "WHERE oid = morvex_linha.tableoid), id FROM morvex_linha")
        .arg(insert, QString::number(parameter));
}
// Those of rows that stand. The others are gone when this has answered.
inline const QString findLongKept = QStringLiteral("SELECT morvex_chaves_de_pe()::text AS key");
inline const QString dropKeys =
    QStringLiteral("DELETE FROM gravacoes WHERE chave = ANY (string_to_array($1, ',')::uuid[])");

inline const QString savePoint = QStringLiteral("SAVEPOINT morvex");
inline const QString release = QStringLiteral("RELEASE SAVEPOINT morvex");
inline const QString backToSavePoint = QStringLiteral("ROLLBACK TO SAVEPOINT morvex");

// Keys of yesterday: nobody asks for them any more.
inline const QString forgetOldKeys = QStringLiteral("DELETE FROM gravacoes WHERE quando < now() - interval '1 day'");
} // namespace postgres
