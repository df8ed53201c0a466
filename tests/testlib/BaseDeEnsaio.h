// A database of its own on the tests' server (morvex_com_postgres), empty, and dropped at the end.
#pragma once

#include "store/postgres/ServerSession.h"

#include <QCoreApplication>
#include <QFile>

class BaseDeEnsaio
{
public:
    // Why there is none on this machine; empty where there is.
    static QString Falta()
    {
        return Morada().isEmpty() ? QStringLiteral("no database server is installed here") : QString();
    }

    BaseDeEnsaio()
    {
        static int quantas = 0;
        nome_ = QStringLiteral("ensaio_%1_%2").arg(QCoreApplication::applicationPid()).arg(++quantas);
        ServerSession(Morada()).run(
            QStringLiteral("CREATE DATABASE %1 OWNER morvex_dono TEMPLATE template0").arg(nome_));
    }
    ~BaseDeEnsaio()
    {
        try {
            ServerSession(Morada()).run(QStringLiteral("DROP DATABASE %1 WITH (FORCE)").arg(nome_));
        } catch (const std::exception &falha) {
            qWarning("%s", falha.what());
        }
    }
    BaseDeEnsaio(const BaseDeEnsaio &) = delete;
    BaseDeEnsaio &operator=(const BaseDeEnsaio &) = delete;

    const QString &Nome() const { return nome_; }
    // The addresses of who owns it, of a desk, and of the server's own administrator.
    QString Da_Dona() const { return De(QStringLiteral("morvex_dono")); }
    QString Do_Posto() const { return De(QStringLiteral("morvex")); }
    QString Do_Administrador() const { return De(QStringLiteral("morvex_ensaio")); }

private:
    static QString Morada()
    {
        QFile ficheiro(qEnvironmentVariable("MORVEX_POSTGRES") + QStringLiteral("/morada"));
        return ficheiro.open(QIODevice::ReadOnly) ? QString::fromUtf8(ficheiro.readAll()).trimmed()
                                                  : QString();
    }
    QString De(const QString &quem) const
    {
        QString morada = Morada();
        morada.replace(QStringLiteral("morvex_ensaio@"), quem + QLatin1Char('@'));
        return morada.section(QLatin1Char('/'), 0, 2) + QLatin1Char('/') + nome_;
    }

    QString nome_;
};
