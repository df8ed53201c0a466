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

// Goes ahead of an insert and is one statement with it, so that neither is there without the other. The
// number of the parameter stands between the two.
inline const QString keepForLong =
    QStringLiteral("WITH morvex_chave AS (INSERT INTO gravacoes (chave, quando) VALUES ($");
inline const QString keptForLong = QStringLiteral("::uuid, now() + interval '30 days')) ");
// All other keys are of the past.
inline const QString findLongKept =
    QStringLiteral("SELECT chave::text AS key FROM gravacoes WHERE quando > now()");
inline const QString dropKeys =
    QStringLiteral("DELETE FROM gravacoes WHERE chave = ANY (string_to_array($1, ',')::uuid[])");

inline const QString savePoint = QStringLiteral("SAVEPOINT morvex");
inline const QString release = QStringLiteral("RELEASE SAVEPOINT morvex");
inline const QString backToSavePoint = QStringLiteral("ROLLBACK TO SAVEPOINT morvex");

// Keys of yesterday: nobody asks for them any more.
inline const QString forgetOldKeys = QStringLiteral("DELETE FROM gravacoes WHERE quando < now() - interval '1 day'");
} // namespace postgres
