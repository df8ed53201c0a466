#include "report/Spooler.h"

#include <memory>
#include <QPrinter>
#include <vector>
#include <windows.h>
#include <winspool.h>

namespace
{
struct Closed {
    void operator()(void *printer) const { ClosePrinter(printer); }
};
using Handle = std::unique_ptr<void, Closed>;

Handle opened(const QPrinter &printer)
{
    std::wstring name = printer.printerName().toStdWString();
    HANDLE handle = nullptr;
    return Handle(OpenPrinterW(name.data(), &handle, nullptr) != 0 ? handle : nullptr);
}

// This process's user's youngest job of that title; null where the spooler has it no more.
struct Found {
    std::vector<BYTE> room;
    const JOB_INFO_1W *job = nullptr;
};

Found jobOf(HANDLE printer, const QString &title)
{
    constexpr DWORD most = 100;
    Found found;
    DWORD needed = 0;
    DWORD jobs = 0;
    EnumJobsW(printer, 0, most, 1, nullptr, 0, &needed, &jobs);
    found.room.resize(needed);
    if (needed == 0 || EnumJobsW(printer, 0, most, 1, found.room.data(), needed, &needed, &jobs) == 0)
        return found;
    const auto *first = reinterpret_cast<const JOB_INFO_1W *>(found.room.data());
    for (const JOB_INFO_1W *job = first; job != first + jobs; ++job)
        if (job->pDocument != nullptr && QString::fromWCharArray(job->pDocument) == title &&
            (found.job == nullptr || job->JobId > found.job->JobId))
            found.job = job;
    return found;
}
} // namespace

// The spooler holds the job from its beginning, and lets go of it before its last page is there.
void spooler::drop(QPrinter *printer, const std::function<void()> &endPainter)
{
    if (printer != nullptr) {
        if (const Handle handle = opened(*printer)) {
            const Found found = jobOf(handle.get(), printer->docName());
            if (found.job != nullptr) SetJobW(handle.get(), found.job->JobId, 0, nullptr, JOB_CONTROL_DELETE);
        }
    }
    endPainter();
}

// A job that the spooler has no more is printed already.
bool spooler::tookJob(const QPrinter &printer)
{
    const Handle handle = opened(printer);
    if (!handle) return false;
    const Found found = jobOf(handle.get(), printer.docName());
    constexpr DWORD refused = JOB_STATUS_ERROR | JOB_STATUS_DELETED | JOB_STATUS_DELETING;
    return found.job == nullptr || (found.job->Status & refused) == 0;
}
