// The command line of morvex-servidor, read: an order, or what is answered in its place.
#pragma once

#include "ferramentas/PalavrasDoServidor.h"

#include <QStringList>

struct OrdemAoServidor {
    enum class Que { Criar, Atualizar, Mudar, Trazer, Verificar, Ajuda, Versao, Recusa };
    Que que = Que::Recusa;
    QString morada;
    QString ficheiro;
    QString posto = QStringLiteral("morvex");
    QString idioma; // pt, br, en, fr; empty where it is to be asked for
    bool vazia = false;
    QString recusa; // why the line is not understood
};

// The words behind the program's name.
OrdemAoServidor Ler_Linha(const QStringList &palavras_da_linha, palavras::Lingua lingua);
