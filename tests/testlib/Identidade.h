// A certificate that no authority vouches for, made anew.
#pragma once

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QTemporaryDir>

struct Identidade {
    // False where no server can show one: the test is skipped then.
    static bool Possivel() { return true; }

    Identidade()
    {
        const QTemporaryDir pasta;
        const QString ficheiro_chave = pasta.filePath(QStringLiteral("chave"));
        const QString ficheiro_certificado = pasta.filePath(QStringLiteral("certificado"));
        QProcess::execute(QStringLiteral("openssl"),
                          QStringLiteral("req -x509 -newkey rsa:2048 -nodes -days 30 -subj /CN=localhost")
                                  .split(QLatin1Char(' ')) +
                              QStringList{QStringLiteral("-keyout"), ficheiro_chave, QStringLiteral("-out"),
                                          ficheiro_certificado});
        QFile c(ficheiro_chave);
        QFile t(ficheiro_certificado);
        if (c.open(QIODevice::ReadOnly)) chave = QSslKey(&c, QSsl::Rsa);
        if (t.open(QIODevice::ReadOnly)) certificado = QSslCertificate(&t);
    }
    QSslKey chave;
    QSslCertificate certificado;
};
