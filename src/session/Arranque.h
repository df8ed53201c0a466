// The start of the program: its steps in their order. A step that fails is skipped and the next one runs.
#pragma once

#include <functional>
#include <vector>

class Geral;
class ListaContactos;
class QMainWindow;
class SystemTray;
struct Platform;

class Arranque
{
public:
    struct Passo {
        const char *nome;
        std::function<void()> executar;
    };

    Arranque(QMainWindow &janela, Geral &geral, Platform &platform, ListaContactos &lista, SystemTray &tray);

    // What a start does, from the first step to the last.
    std::vector<Passo> Passos();

    void Executar();

private:
    void Escrever_Data();
    void Escolher_Idioma();
    void Ler_Configuracao();
    void Ler_TblConfig();
    void Iniciar_Sessao();
    void Ler_Configuracao_Do_Utilizador();
    void Dar_Todos_Os_Direitos();
    void Escrever_Titulo();
    void Atribuir_Legendas();
    void Preencher_Filtro();
    void Adicionar_Icone();
    void Minimizar();

    bool Ha_Utilizadores();

    QMainWindow &janela_;
    Geral &geral_;
    Platform &platform_;
    ListaContactos &lista_;
    SystemTray &tray_;
};
