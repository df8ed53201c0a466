// Where the database is: the one place that decides it. Whoever needs the file asks here.
#pragma once

#include <QString>

class CaminhoDaBase
{
public:
    // Over the process-wide CaminhoBD, which outlives this and which the start fills; the folder is the
    // program's own.
    CaminhoDaBase(QString &CaminhoBD, QString pasta);

    // The file that CaminhoBD names, or morvex.mdb of the folder while it names none. Changes nothing.
    QString Caminho() const;

    // The same, and CaminhoBD names it from then on.
    const QString &Fixar();

    // What config.ini says. Where it says nothing CaminhoBD stays: in the session of a first run the database
    // is open before its path is written anywhere.
    void Tomar(const QString &definicao);

    // CaminhoBD names another file from now on, before the first command or after the connection was closed.
    // Returns what it named until then.
    QString Trocar(const QString &ficheiro);

private:
    QString *CaminhoBD_;
    QString pasta_;
};
