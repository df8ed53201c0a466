// A copy of a sound file that a test has harmed, in a place of its own; it goes with the object.
#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

class CopiaEstragada
{
public:
    explicit CopiaEstragada(const QString &nome) : caminho_(pasta_.filePath(nome)) {}

    // Holds those bytes from now on. Returns its path.
    QString Guardar(const QByteArray &bytes)
    {
        QFile ficheiro(caminho_);
        if (!ficheiro.open(QIODevice::WriteOnly) || ficheiro.write(bytes) != bytes.size())
            qFatal("cannot write");
        return caminho_;
    }

private:
    // In memory where the system has a place for that: thousands of copies are gigabytes.
    static QString Modelo()
    {
        const QString memoria = QStringLiteral("/dev/shm");
        return (QFileInfo(memoria).isWritable() ? memoria : QDir::tempPath()) + QStringLiteral("/morvex-XXXXXX");
    }

    QTemporaryDir pasta_{Modelo()};
    QString caminho_;
};
