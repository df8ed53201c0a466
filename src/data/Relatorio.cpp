#include "data/Relatorio.h"

#include "data/Geral.h"
#include "report/ReportControl.h"

using namespace Qt::StringLiterals;

void relatorio::Indicar_Base(Geral &geral, ReportControl &controlo)
{
    Indicar_Base(geral.de.Base().Fixar(), controlo);
}

void relatorio::Indicar_Base(const QString &caminho, ReportControl &controlo)
{
    controlo.setConnect(caminho);
    controlo.setDataFiles(0, caminho);
}

QString relatorio::Seleccao_Do_Contacto(qint16 IDContacto)
{
    return u"{TblLista.ID} ="_s + QString::number(IDContacto);
}

void relatorio::Pre_Visualizar(const QString &titulo, ReportControl &controlo)
{
    controlo.setDestination(ReportControl::Screen);
    controlo.setWindowTitle(titulo);
    controlo.setWindowState(ReportControl::maximised);
    controlo.setWindowShowPrintBtn(true);
}
