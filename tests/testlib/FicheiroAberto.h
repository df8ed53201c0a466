// Whether a process has a file open, and what that means to others.
#pragma once

#include <QDir>
#include <QFileInfo>

// Whether an open file can be replaced by another: the test is skipped where it cannot.
constexpr bool um_aberto_troca_se = true;

inline bool Tem_Aberto(qint64 processo, const QString &ficheiro)
{
    const QDir abertos(QStringLiteral("/proc/%1/fd").arg(processo));
    for (const QFileInfo &um : abertos.entryInfoList(QDir::Files | QDir::System))
        if (um.symLinkTarget() == QFileInfo(ficheiro).canonicalFilePath()) return true;
    return false;
}
