// A server of tests/servidores, in a folder of its own; it ends with the object.
#pragma once

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTemporaryDir>
#include <unistd.h>

class Servidor
{
public:
    explicit Servidor(const char *script)
        : script_(QStringLiteral(MORVEX_SERVIDORES "/") + QLatin1StringView(script))
    {
        QFile::setPermissions(pasta_.path(),
                              QFile::permissions(pasta_.path()) | QFile::ExeGroup | QFile::ExeOther);
    }
    ~Servidor() { Correr("stop"); }
    Servidor(const Servidor &) = delete;
    Servidor &operator=(const Servidor &) = delete;

    // Why it cannot run on this machine; empty where it can.
    static QString Falta(const QStringList &programas)
    {
        if (::geteuid() != 0) return QStringLiteral("the test's servers must run as root");
        for (const QString &programa : programas)
            if (QStandardPaths::findExecutable(programa).isEmpty() &&
                QStandardPaths::findExecutable(programa, {QStringLiteral("/usr/sbin")}).isEmpty())
                return programa + QStringLiteral(" is not installed");
        return {};
    }

    static quint16 Porta_Livre()
    {
        QTcpServer prova;
        prova.listen(QHostAddress::LocalHost);
        return prova.serverPort();
    }

    bool Correr(const char *comando, const QStringList &argumentos = {})
    {
        return QProcess::execute(script_, QStringList{QLatin1StringView(comando), Pasta()} + argumentos) == 0;
    }

    // What the command prints.
    QString Perguntar(const char *comando)
    {
        QProcess processo;
        processo.start(script_, {QLatin1StringView(comando), Pasta()});
        processo.waitForFinished();
        return QString::fromUtf8(processo.readAllStandardOutput()).trimmed();
    }

    QString Pasta() const { return pasta_.path(); }

private:
    QString script_;
    QTemporaryDir pasta_{QDir::temp().filePath(QStringLiteral("mXXXXXX"))}; // short: sockets stand in it
};
