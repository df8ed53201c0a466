#include "platform/CredentialStore.h"

#include <memory>
#include <windows.h>

#include <wincred.h> // knows nothing without what stands before it

namespace
{
// Beside the secrets of all other programs.
std::wstring targetOf(const QString &key) { return (QStringLiteral("Morvex/") + key).toStdWString(); }

struct Freed {
    void operator()(CREDENTIALW *credential) const { CredFree(credential); }
};
} // namespace

std::optional<QString> CredentialStore::read(const QString &key)
{
    CREDENTIALW *found = nullptr;
    if (CredReadW(targetOf(key).c_str(), CRED_TYPE_GENERIC, 0, &found) == 0) return std::nullopt;
    const std::unique_ptr<CREDENTIALW, Freed> credential(found);
    return QString::fromUtf8(reinterpret_cast<const char *>(credential->CredentialBlob),
                             static_cast<qsizetype>(credential->CredentialBlobSize));
}

bool CredentialStore::write(const QString &key, const QString &label, const QString &secret)
{
    std::wstring target = targetOf(key);
    std::wstring name = label.toStdWString();
    QByteArray bytes = secret.toUtf8();
    CREDENTIALW credential{};
    credential.Type = CRED_TYPE_GENERIC;
    credential.TargetName = target.data();
    credential.UserName = name.data();
    credential.CredentialBlobSize = static_cast<DWORD>(bytes.size());
    credential.CredentialBlob = reinterpret_cast<LPBYTE>(bytes.data());
    credential.Persist = CRED_PERSIST_LOCAL_MACHINE;
    return CredWriteW(&credential, 0) != 0;
}

void CredentialStore::remove(const QString &key) { CredDeleteW(targetOf(key).c_str(), CRED_TYPE_GENERIC, 0); }
