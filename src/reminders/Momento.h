// The moment of a task as text: "dd-mm-yyyy" and "hh:mm", as the forms show it and the commands take it.
#pragma once

#include <QDate>
#include <QString>
#include <QTime>

QString Texto_Da_Data(QDate data);
QString Texto_Da_Hora(QTime hora);

// Back again. Raise Failure (type mismatch) for a text that is no date or no time of day.
QDate Data_Do_Texto(const QString &texto);
QTime Hora_Do_Texto(const QString &texto);
