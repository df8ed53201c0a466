// The mail cycle: a chain of timers that walks the user's accounts one at a time, hands each to the mail
// checker, looks at the result five seconds later, and raises the card with a sound when there is news. The
// order of its steps is its behaviour: which account is looked at when follows from it alone. What fails is
// told by the checker's result alone: the cycle itself shows no error.
#pragma once

#include <QObject>
#include <QPointer>

class frmPopupEmail;
class Geral;
class Janela;
class Label;
class ListBox;
struct Platform;

class CicloCorreio final : public QObject
{
    Q_OBJECT
public:
    CicloCorreio(Janela &janela, Geral &geral, Platform &platform);
    ~CicloCorreio() override;

    // Starts a new wait; fills the queue where it is empty.
    void IniciarMail();
    // Goes on at once.
    void ReiniciarMail();
    // Hands the queue's first account to the checker. Accounts that are gone leave the queue.
    void VerificarConta();

    // The click on the card, by another way than the mouse. Whether there was one to take it.
    bool Responder();

Q_SIGNALS:
    // A failed account was clicked: the user wants to mend it.
    void Abrir_Opcoes();

private:
    void TimerMailNotification_Timer();
    void TimerMailNotification3_Timer();
    void lblTemporizador_Change();
    void mnuMailNotification_Click();
    void Popup_Click();

    bool Activo() const;
    void Preencher_Fila();
    void Entregar_Primeira_Conta();
    void Mostrar_Falha();
    void Mostrar_Correio();
    void Parar_Verificacao();
    void Avancar_Fila();
    frmPopupEmail &Popup();
    void Carregar_Popup();

    Janela &janela_;
    Geral &geral_;
    Platform &platform_;
    ListBox &lstEmails;
    Label &lblTemporizador;
    QPointer<frmPopupEmail> popup_;
    QString EmailActual; // empty until the first account was taken
};
