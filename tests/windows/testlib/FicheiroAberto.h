// Whether a process has a file open: any does that keeps it from being opened for oneself alone.
#pragma once

#include <QDir>
#include <windows.h>

// An open file keeps its place.
constexpr bool um_aberto_troca_se = false;

inline bool Tem_Aberto(qint64, const QString &ficheiro)
{
    HANDLE so_meu = CreateFileW(QDir::toNativeSeparators(ficheiro).toStdWString().c_str(), GENERIC_READ, 0,
                                nullptr, OPEN_EXISTING, 0, nullptr);
    if (so_meu == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(so_meu);
    return false;
}
