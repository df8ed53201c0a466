// A report control: told piece by piece what to run and where to, then run. It knows nothing of what it
// prints, and keeps every value until another is given: nothing resets it between two runs.
#pragma once

#include <QString>

class ReportControl
{
public:
    enum DestinationValue { Screen = 0, Printer = 1, File = 2 };
    enum FileType { Text = 2, Document = 17, Spreadsheet = 25 };
    static constexpr int maximised = 2;

    virtual ~ReportControl() = default;

    // The definition to run.
    virtual void setReportFileName(const QString &path) = 0;
    // A named parameter of the definition: "name;value;TRUE".
    virtual void setParameterFields(int index, const QString &field) = 0;
    // The database, for the control as a whole and for the report's table of that index.
    virtual void setConnect(const QString &path) = 0;
    virtual void setDataFiles(int index, const QString &path) = 0;
    // Which records: "{Table.Field}=5" and the like; empty for all. Takes the place of any earlier one.
    virtual void ReplaceSelectionFormula(const QString &formula) = 0;
    // "+{Table.Field}" ascending, "-{Table.Field}" descending.
    virtual void setSortFields(int index, const QString &field) = 0;

    virtual void setDestination(int destination) = 0;
    virtual void setPrintFileType(int type) = 0;
    virtual void setWindowTitle(const QString &title) = 0;
    virtual void setWindowState(int state) = 0;
    virtual void setWindowShowPrintBtn(bool shown) = 0;
    virtual void setWindowShowRefreshBtn(bool shown) = 0;
    virtual void setWindowShowSearchBtn(bool shown) = 0;

    // Lets the person choose a printer. A cancel changes nothing and stops nothing.
    virtual void PrinterSelect() = 0;

    // 1 runs the report: returns when the engine has finished or has opened its window. Raises Failure for a
    // definition that is missing or broken, and for data that cannot be read.
    virtual void setAction(int action) = 0;
};
