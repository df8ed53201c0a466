// A program with windows is given no console, but may join that of whoever started it. What was led elsewhere
// (into a file, a pipe) is there from the beginning.
#include "platform/Terminal.h"

#include <QString>
#include <windows.h>

namespace
{
HANDLE handleOf(terminal::Stream stream)
{
    const DWORD which = stream == terminal::Stream::Answer ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE;
    HANDLE handle = GetStdHandle(which);
    if (handle != nullptr && handle != INVALID_HANDLE_VALUE) return handle;
    AttachConsole(ATTACH_PARENT_PROCESS);
    return CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                       nullptr);
}
} // namespace

void terminal::print(Stream stream, const QString &text)
{
    HANDLE handle = handleOf(stream);
    DWORD ignored = 0;
    if (GetConsoleMode(handle, &ignored) != 0) {
        const std::wstring words = text.toStdWString();
        WriteConsoleW(handle, words.data(), static_cast<DWORD>(words.size()), &ignored, nullptr);
    } else {
        const QByteArray bytes = text.toUtf8();
        WriteFile(handle, bytes.constData(), static_cast<DWORD>(bytes.size()), &ignored, nullptr);
    }
}

bool terminal::startedFromDesktop() { return handleOf(Stream::Complaint) == INVALID_HANDLE_VALUE; }
