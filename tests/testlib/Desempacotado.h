// A large sample, kept packed by xz, unpacked into a folder of its own while one lives.
#pragma once

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

class Desempacotado
{
public:
    explicit Desempacotado(const QString &pacote)
        : caminho_(pasta_.filePath(QFileInfo(pacote).completeBaseName()))
    {
        QProcess xz;
        xz.setStandardOutputFile(caminho_);
        xz.start(QStringLiteral("xz"), {QStringLiteral("-dc"), pacote});
        if (!xz.waitForFinished() || xz.exitStatus() != QProcess::NormalExit || xz.exitCode() != 0)
            qFatal("xz cannot unpack %s", qPrintable(pacote));
    }
    const QString &Caminho() const { return caminho_; }

private:
    QTemporaryDir pasta_;
    QString caminho_;
};
