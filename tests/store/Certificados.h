// Certificates for a test's server: made in a moment, and trusted by nobody else.
#pragma once

#include "store/TabelaNoServidor.h"

#include <QFileInfo>
#include <QProcess>
#include <QThread>

namespace certificados
{
// Makes FILE.crt and FILE.key for that name, signed by the authority's or by nobody else. Returns what went wrong.
inline QString Fazer(const QString &ficheiro, const QString &nome, const QString &autoridade = {})
{
    QStringList palavras{QStringLiteral("req"),   QStringLiteral("-x509"),    QStringLiteral("-newkey"),
                         QStringLiteral("rsa:2048"), QStringLiteral("-nodes"), QStringLiteral("-days"),
                         QStringLiteral("2"),     QStringLiteral("-subj"),    QStringLiteral("/CN=") + nome,
                         QStringLiteral("-keyout"), ficheiro + QStringLiteral(".key"),
                         QStringLiteral("-out"),  ficheiro + QStringLiteral(".crt")};
    if (!autoridade.isEmpty())
        palavras << QStringLiteral("-addext") << QStringLiteral("subjectAltName=DNS:") + nome
                 << QStringLiteral("-addext") << QStringLiteral("basicConstraints=CA:FALSE") << QStringLiteral("-CA")
                 << autoridade + QStringLiteral(".crt") << QStringLiteral("-CAkey")
                 << autoridade + QStringLiteral(".key");
    QProcess processo;
    processo.start(QStringLiteral("openssl"), palavras);
    processo.waitForFinished();
    return processo.exitCode() == 0 ? QString() : QString::fromUtf8(processo.readAllStandardError());
}

// Has the server encipher with that certificate from now on: each new connection that asks for it. What the server
// reads must belong to its own user. Returns what went wrong.
inline QString Dar_Ao_Servidor(const QUrl &servidor, const QString &certificado)
{
    const auto dizer = [&](const char *sql) {
        return TabelaNoServidor::Correr_Em(servidor, QString::fromLatin1(sql));
    };
    const QString dados = dizer("SHOW data_directory");
    const QFileInfo dono(dados + QStringLiteral("/PG_VERSION"));
    for (const QString &fim : {QStringLiteral(".crt"), QStringLiteral(".key")}) {
        const QString alvo = dados + QStringLiteral("/ensaio") + fim;
        QFile::remove(alvo);
        if (!QFile::copy(certificado + fim, alvo)) return alvo;
        QFile::setPermissions(alvo, QFile::ReadOwner | QFile::WriteOwner);
        if (::chown(alvo.toUtf8().constData(), dono.ownerId(), dono.groupId()) != 0) return alvo;
    }
    dizer("ALTER SYSTEM SET ssl_cert_file = 'ensaio.crt'");
    dizer("ALTER SYSTEM SET ssl_key_file = 'ensaio.key'");
    dizer("ALTER SYSTEM SET ssl = on");
    dizer("SELECT pg_reload_conf()");
    for (int vez = 0; vez < 50 && dizer("SHOW ssl") != QStringLiteral("on"); ++vez)
        QThread::msleep(50); // each connection has it once the server has read it
    return {};
}
} // namespace certificados
