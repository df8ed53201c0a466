// The pictures that the database itself holds. A contact's column Fotografia names one "bd:<sha1>.<ext>"; all
// else that stands there is the path of a file.
#pragma once

#include <QByteArray>
#include <QString>

class DE;

bool E_Da_Base(const QString &Fotografia);

// The name of those bytes, a picture in that format as the toolkit calls it: the same bytes always by the
// same name.
QString Nome_Na_Base(const QByteArray &bytes, const QByteArray &formato);

struct FotografiaParaABase {
    QString nome;
    QByteArray bytes;
};
// A picture as a database that several desks share keeps it: as it is, or, where it takes more than 2 MB,
// scaled to 1,600 points at the longer side and a JPEG. Raises Failure for bytes that are no picture.
FotografiaParaABase Preparar_Para_A_Base(const QByteArray &bytes);

class FotografiasDaBase
{
public:
    explicit FotografiasDaBase(DE &de) : de_(de) {}

    // The name as the column has it. It tells the bytes: one that is there already stays as it is. Raises
    // Failure where the database takes no picture.
    void Guardar(const QString &Fotografia, const QByteArray &bytes);

    // Empty for the path of a file, and where the database has no picture of that name, or is an older one
    // that has none at all.
    QByteArray Ler(const QString &Fotografia);

private:
    DE &de_;
};
