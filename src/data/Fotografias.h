// The pictures that the database itself holds. A contact's column Fotografia names one "bd:<sha1>.<ext>"; all
// else that stands there is the path of a file.
#pragma once

#include <QByteArray>
#include <QString>

class DE;

bool E_Da_Base(const QString &Fotografia);

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
