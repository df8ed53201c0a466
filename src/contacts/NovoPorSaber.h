// A new contact over whose writing a server went away: whether it arrived is known once the server is back. One
// that did is not written twice.
#pragma once

#include <functional>
#include <QString>

class DE;

class NovoPorSaber
{
public:
    explicit NovoPorSaber(DE &de) : de_(de) {}

    // Runs what writes a contact of that name, and raises what it raises.
    void Vigiar(const QString &Nome, const std::function<void()> &escrever);

    // What became of the write is known now, and not for long.
    void Servidor_De_Volta();

    // The ID under which the contact arrived, the last one of its name. Empty where none did, or where somebody
    // has taken it away since.
    QString ID();

    void Esquecer() { chegou_ = false; }

private:
    DE &de_;
    QString Nome_;
    bool por_saber_ = false;
    bool chegou_ = false;
};
