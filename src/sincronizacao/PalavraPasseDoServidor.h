// The password on the server of an account: with the desktop's store of secrets where there is one, otherwise
// in the account's row, scrambled like those of the mail accounts.
#pragma once

#include <optional>
#include <QString>

class Geral;
class SecretStore;
struct ContaSincronizada;

class PalavraPasseDoServidor
{
public:
    PalavraPasseDoServidor(Geral &geral, SecretStore &segredos) : geral_(geral), segredos_(segredos) {}

    // Nothing where the store is locked or has lost it.
    std::optional<QString> Ler(const ContaSincronizada &conta);
    // Puts it where it belongs; the account tells the rest, and is to be kept afterwards.
    void Guardar(ContaSincronizada &conta, const QString &senha);

private:
    QString Chave();

    Geral &geral_;
    SecretStore &segredos_;
};
