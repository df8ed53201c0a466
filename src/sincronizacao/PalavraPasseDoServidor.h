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

    // Nothing where the store is locked or has lost it. Empty is a password too.
    std::optional<QString> Ler(const ContaSincronizada &conta);
    // Puts it where it belongs; the account tells the rest, and is to be kept afterwards. Without an address
    // there is nothing that it would open, and it is nowhere any more.
    void Guardar(ContaSincronizada &conta, const QString &senha);
    // Takes that user's out of the desktop's store.
    void Esquecer(const QString &IdUtilizador);

private:
    QString Chave(const QString &IdUtilizador);

    Geral &geral_;
    SecretStore &segredos_;
};
