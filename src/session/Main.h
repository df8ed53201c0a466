// The main window and the hub of the program. It makes the classes that own the shares of its window, joins
// them, runs the start and opens the forms; the rules lie with those classes.
#pragma once

#include "janela/Janela.h"

#include <memory>

class Arranque;
class AvisosDosPostos;
class CartaoContacto;
class CicloCorreio;
class CrystalReport;
class EdicaoContacto;
class FilaDeFicheiros;
class Geral;
class Lembretes;
class LugarDaJanela;
class ListaContactos;
class Memos;
class Presenca;
class ProcuraRapida;
class Sincronizador;
class SystemTray;
struct Platform;

class Main final : public Janela
{
    Q_OBJECT
public:
    Main(Geral &geral, Platform &platform);
    ~Main() override;

    // The steps of the start over this window.
    Arranque Inicio();

    // The whole start: afterwards the window is shown, or hidden in the tray if the user wants it so.
    void Carregar();

    // The program was started a second time: what stands in front comes forward, be it the window, through
    // the login if it is locked, a form that waits for an answer, or what a notice that stands there leads
    // to. The files are opened as soon as they can be.
    void Chamar(const QStringList &ficheiros = {});

    // Files to open once the start is over.
    void Abrir_Depois(const QStringList &ficheiros);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void Ligar_Menus();
    void Ligar_Teclas();
    void Ligar_Avisos(EdicaoContacto &edicao);
    void Mostrar_Sem_Servidor(bool sem);
    void Largar_Memoria();
    bool Responder_A_Aviso(); // whether a notice stood there to be answered

    void timerPonto_Timer();
    void Pintar_Ponto();
    void Opcoes_Click();
    void Sobre_Click();

    Geral &geral_;
    Platform &platform_;
    const std::unique_ptr<CrystalReport> CrystalReport1;     // of the list, the envelope and the export
    const std::unique_ptr<CrystalReport> relatorioDaTarefa_; // of the alert card alone
    CartaoContacto *cartao_;                                 // children of the window, like all that follow
    LugarDaJanela *lugar_;
    ListaContactos *lista_;
    SystemTray *tray_;
    Lembretes *lembretes_;
    Memos *memos_;
    Presenca *presenca_;
    CicloCorreio *correio_;
    ProcuraRapida *procuraRapida_;
    FilaDeFicheiros *fila_;
    Sincronizador *sincronizador_;
    AvisosDosPostos *avisos_;
    bool EstadoPonto = false; // lit: the phase of the blinking dot
};
