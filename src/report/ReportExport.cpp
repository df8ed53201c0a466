#include "report/ReportExport.h"

#include "platform/Failure.h"
#include "platform/ReplaceFile.h"
#include "report/writers/DocumentWriter.h"
#include "report/ReportControl.h"
#include "report/writers/SpreadsheetWriter.h"
#include "report/writers/TextWriter.h"

namespace
{
QByteArray contentOf(int fileType, const ReportRows &rows)
{
    switch (fileType) {
    case ReportControl::Spreadsheet:
        return spreadsheetContent(rows);
    case ReportControl::Document:
        return documentContent(rows);
    case ReportControl::Text:
        return textContent(rows);
    default:
        throw Failure(Failure::InvalidPropertyValue, QStringLiteral("PrintFileType"),
                      QStringLiteral("There is no file type %1.").arg(fileType));
    }
}
} // namespace

void exportReport(int fileType, const ReportRows &rows, const QString &path)
{
    if (!replaceFile(path, contentOf(fileType, rows)))
        throw Failure(Failure::PathFileAccess, path, QStringLiteral("%1 can't be written.").arg(path));
}
