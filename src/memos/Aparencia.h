// How a note looks, from the texts in which settings and rows hold it.
#pragma once

#include <QFont>

class QColor;
class QString;
class QWidget;

// All of these raise Failure for a text that is no number or no truth value.
// The size is in points, with "." or "," as the decimal sign.
QFont Fonte_De_Memo(const QString &FontName, const QString &FontSize, const QString &FontBold,
                    const QString &FontItalic);
QColor Cor_De_Memo(const QString &CorFundo);

// The background, with letters that can be read on it.
void Pintar_Memo(QWidget &controlo, const QColor &fundo);
// A line on it: darker than the note, whatever its colour.
void Pintar_Linha(QWidget &linha);

// A truth value as the texts hold it.
QString Texto_Logico(bool valor);
