// A large sample, kept packed: the build has unpacked it, for nothing here can. This is a copy in a folder of
// its own.
#pragma once

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

class Desempacotado
{
public:
    explicit Desempacotado(const QString &pacote)
        : caminho_(pasta_.filePath(QFileInfo(pacote).completeBaseName()))
    {
        const QString feito =
            QStringLiteral(MORVEX_DESEMPACOTADOS "/") + QFileInfo(pacote).completeBaseName();
        if (!QFile::copy(feito, caminho_)) qFatal("%s was not unpacked", qPrintable(pacote));
    }
    const QString &Caminho() const { return caminho_; }

private:
    QTemporaryDir pasta_;
    QString caminho_;
};
