// Where the program runs on Wine, whose TLS knows the client's part alone, no server of a test can show a
// certificate.
#pragma once

#include <QSslCertificate>
#include <QSslKey>

struct Identidade {
    static bool Possivel() { return false; }

    Identidade() {} // NOLINT(modernize-use-equals-default): as the other has it
    QSslKey chave;
    QSslCertificate certificado;
};
