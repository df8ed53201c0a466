// Nothing can be mounted here.
#pragma once

#include <QString>
#include <QTemporaryDir>

class DiscoPequeno
{
public:
    static void Preparar() {}
    explicit DiscoPequeno(int) {}
    bool Montado() const { return false; }
    bool Tornar_So_De_Leitura() { return false; }
    QString Pasta() const { return pasta_.path(); }
    QString Ficheiro(const QString &nome) const { return pasta_.filePath(nome); }

private:
    QTemporaryDir pasta_;
};
