// The way out that nobody chose in the program: the desktop's session ends, or a signal comes. What is not
// saved is saved or kept, the icon goes, the database is closed, and the process ends.
#pragma once

#include "platform/SessionEnd.h"

class Geral;
struct Platform;

class FimDaSessao final : public QObject
{
    Q_OBJECT
public:
    FimDaSessao(SessionEnd &fim, Geral &geral, Platform &platform);

private:
    void Sessao_Acaba(SessionEnd::Logout &saida);
    void Terminar();

    Geral &geral_;
    Platform &platform_;
    bool a_terminar_ = false; // the last events of the process may bring a second call
};
