// The start of the program: its steps in their order. A step that fails is skipped and the next one runs.
#pragma once

#include <functional>
#include <vector>

class CicloCorreio;
class Geral;
class Janela;
class Lembretes;
class ListaContactos;
class Memos;
class Presenca;
class Recordset;
class SystemTray;
struct Platform;

class Arranque
{
public:
    struct Passo {
        const char *nome;
        std::function<void()> executar;
    };

    // The shares of the window that the start brings to life.
    struct Partes {
        ListaContactos &lista;
        Memos &memos;
        SystemTray &tray;
        Lembretes &lembretes;
        Presenca &presenca;
        CicloCorreio &correio;
    };

    Arranque(Janela &janela, Geral &geral, Platform &platform, const Partes &partes);

    // What a start does, from the first step to the last. They live no longer than it.
    std::vector<Passo> Passos() &;

    void Executar();

    // Another desk has taken the session's user away: says so, and lets somebody in anew.
    void Entrar_De_Novo();

    // Another desk has changed the configuration that all share.
    void Seguir_Configuracao();

private:
    void Escrever_Data();
    void Escolher_Idioma();
    void Ler_Configuracao();
    void Ler_TblConfig();
    Recordset &Abrir_TblConfig();
    void Semear_O_Servidor();
    void Iniciar_Sessao();
    void Ler_Configuracao_Do_Utilizador();
    void Dar_Todos_Os_Direitos();
    void Escrever_Titulo();
    void Confirmar_Opcoes();
    void Atribuir_Legendas();
    void Preencher_Filtro();
    void Restaurar_Memos();
    void Adicionar_Icone();
    void Avisar_Aniversarios();
    void Minimizar();
    void Sincronizar_Messenger();
    void Mostrar_frmLoading();
    void Iniciar_Correio();

    bool Ha_Utilizadores();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    Partes partes_;
};
