// The desktop of a test: a stand-in for each of its services, and the clock of a Monday morning.
#pragma once

#include "platform/Platform.h"
#include "testlib/Falsos.h"

struct AmbienteFalso {
    RelogioFalso relogio{QDateTime({2027, 2, 1}, {9, 0})};
    CaixasFalsas caixas;
    DialogosFalsos dialogos;
    ShellFalsa shell;
    SomFalso som;
    RegistoFalso registo;
    CorreioFalso correio;
    MensageiroFalso mensageiro;
    ProcessoFalso processo;
    TabuleiroFalso tabuleiro;
    SegredosFalsos segredos;
    Platform plataforma{relogio, caixas,  dialogos,   shell,    som,
                        registo, correio, mensageiro, processo, tabuleiro, segredos};
};
