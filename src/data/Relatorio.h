// What reports are told alike, whoever asks for them: where the data lie, which record, and how the preview
// looks.
#pragma once

#include <QtGlobal>

class Geral;
class QString;
class ReportControl;

namespace relatorio
{
// A session without a path takes the database of the program's folder, and keeps that path.
void Indicar_Base(Geral &geral, ReportControl &controlo);
void Indicar_Base(const QString &caminho, ReportControl &controlo);

// The records of one contact alone.
QString Seleccao_Do_Contacto(qint16 IDContacto);

// The next run goes to a maximised preview window of that title.
void Pre_Visualizar(const QString &titulo, ReportControl &controlo);
} // namespace relatorio
