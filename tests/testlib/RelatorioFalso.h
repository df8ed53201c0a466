// A report control that keeps a record of what was said to it, in order: "ReportFileName lista.rpt" and so
// on. Paths are recorded by their file name alone.
#pragma once

#include "platform/Failure.h"
#include "report/ReportControl.h"

#include <functional>
#include <QFileInfo>
#include <QStringList>

class RelatorioFalso final : public ReportControl
{
public:
    void setReportFileName(const QString &path) override
    {
        Anotar("ReportFileName", QFileInfo(path).fileName());
    }
    void setParameterFields(int index, const QString &field) override
    {
        Anotar("ParameterFields", QString::number(index) + u' ' + field);
    }
    void setConnect(const QString &path) override { Anotar("Connect", QFileInfo(path).fileName()); }
    void setDataFiles(int index, const QString &path) override
    {
        Anotar("DataFiles", QString::number(index) + u' ' + QFileInfo(path).fileName());
    }
    void ReplaceSelectionFormula(const QString &formula) override
    {
        Anotar("ReplaceSelectionFormula", formula);
    }
    void setSortFields(int index, const QString &field) override
    {
        Anotar("SortFields", QString::number(index) + u' ' + field);
    }
    void setDestination(int destination) override { Anotar("Destination", QString::number(destination)); }
    void setPrintFileType(int type) override { Anotar("PrintFileType", QString::number(type)); }
    void setWindowTitle(const QString &title) override { Anotar("WindowTitle", title); }
    void setWindowState(int state) override { Anotar("WindowState", QString::number(state)); }
    void setWindowShowPrintBtn(bool shown) override { Anotar("WindowShowPrintBtn", QString::number(shown)); }
    void setWindowShowRefreshBtn(bool shown) override
    {
        Anotar("WindowShowRefreshBtn", QString::number(shown));
    }
    void setWindowShowSearchBtn(bool shown) override
    {
        Anotar("WindowShowSearchBtn", QString::number(shown));
    }
    void PrinterSelect() override { Anotar("PrinterSelect", {}); }
    void setAction(int action) override
    {
        Anotar("Action", QString::number(action));
        if (ao_correr) ao_correr();
        if (falha)
            throw Failure(Failure::FileNotFound, QStringLiteral("report"), QStringLiteral("no such file"));
    }

    QStringList historia;
    bool falha = false;              // the run fails
    std::function<void()> ao_correr; // looks on while it runs

    // What was said to that member, in order.
    QStringList Ditos(const QString &membro) const
    {
        QStringList valores;
        for (const QString &linha : historia)
            if (linha == membro || linha.startsWith(membro + u' '))
                valores << linha.sliced(membro.size()).trimmed();
        return valores;
    }

private:
    void Anotar(const char *membro, const QString &valor)
    {
        historia << (QString::fromLatin1(membro) + u' ' + valor).trimmed();
    }
};
