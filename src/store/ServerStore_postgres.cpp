#include "store/postgres/PostgresStore.h"
#include "store/ServerStore.h"

QString server_store::shown(const QString &address) { return PostgresAddress::shown(address); }

std::unique_ptr<Store> server_store::open(const QString &address) { return PostgresStore::open(address); }

std::unique_ptr<Store> server_store::openReadOnly(const QString &address)
{
    return PostgresStore::openReadOnly(address);
}
