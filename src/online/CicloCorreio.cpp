#include "online/CicloCorreio.h"

#include "data/Geral.h"
#include "data/Inteiro.h"
#include "data/Tocar_Som.h"
#include "janela/Janela.h"
#include "data/Codificar_Email.h"
#include "online/frmPopupEmail.h"
#include "platform/Failure.h"
#include "platform/Platform.h"

#include <QAction>
#include <QMainWindow>

using namespace Qt::StringLiterals;

CicloCorreio::CicloCorreio(Janela &janela, Geral &geral, Platform &platform)
    : QObject(&janela),
      janela_(janela),
      geral_(geral),
      platform_(platform),
      lstEmails(*janela.lstEmails),
      lblTemporizador(*janela.lblTemporizador)
{
    Temporizadores &t = geral_.temporizadores;
    t.TimerMailNotification3.setTimerType(Qt::PreciseTimer); // one notice must not cut the other short
    connect(&t.TimerMailNotification, &QTimer::timeout, this, &CicloCorreio::TimerMailNotification_Timer);
    connect(&t.TimerMailNotification3, &QTimer::timeout, this, &CicloCorreio::TimerMailNotification3_Timer);
    connect(&t, &Temporizadores::IniciarMail, this, &CicloCorreio::IniciarMail);
    connect(&t, &Temporizadores::ReiniciarMail, this, &CicloCorreio::ReiniciarMail);
    connect(&t, &Temporizadores::RecolherPopupEmail, this, [this] {
        if (popup_) popup_->sink();
    });
    connect(&lblTemporizador, &Label::Change, this, &CicloCorreio::lblTemporizador_Change);
    for (QAction *comando : {janela.mnuMailNotification, janela.keyCheckMail})
        connect(comando, &QAction::triggered, this, &CicloCorreio::mnuMailNotification_Click);
}

CicloCorreio::~CicloCorreio() { delete popup_; }

bool CicloCorreio::Activo() const { return geral_.EmailNotifyActivo == 1; }

void CicloCorreio::IniciarMail()
{
    if (!Activo()) return;
    lblTemporizador.setCaption(QString::number(geral_.EmailNotifyMinutos));
    geral_.temporizadores.TimerMailNotification.setEnabled(true);
    if (lstEmails.ListCount() == 0) skipFailure([this] { Preencher_Fila(); });
}

void CicloCorreio::Preencher_Fila()
{
    Recordset &rs = geral_.de.Abrir("cmdListarEmails", {geral_.SessaoActual.IdUtilizador});
    for (; !rs.Eof(); rs.MoveNext())
        lstEmails.AddItem(rs.Fields("ID").text());
    rs.Close();
}

void CicloCorreio::ReiniciarMail()
{
    if (!Activo()) return;
    if (lstEmails.ListCount() == 0)
        geral_.temporizadores.TimerMailNotification.setEnabled(true);
    else
        VerificarConta();
}

void CicloCorreio::TimerMailNotification_Timer()
{
    lblTemporizador.setCaption(QString::number(lblTemporizador.text().toInt() - 1));
}

void CicloCorreio::lblTemporizador_Change()
{
    if (lblTemporizador.text() != "0"_L1) return;
    geral_.temporizadores.TimerMailNotification.setEnabled(false);
    VerificarConta();
}

// The account stays in the queue: it goes when the next one is wanted. One that is gone by now, or can't be
// read, is passed over without a word.
void CicloCorreio::VerificarConta()
{
    platform_.mail.setActivo(false);
    while (lstEmails.ListCount() > 0 && !skipFailure([this] { Entregar_Primeira_Conta(); }))
        lstEmails.RemoveItem(0);
    geral_.temporizadores.TimerMailNotification3.setEnabled(true);
}

void CicloCorreio::Entregar_Primeira_Conta()
{
    lstEmails.setListIndex(0);
    geral_.IDContaEmail = Inteiro(lstEmails.List(0));
    Recordset &rs = geral_.de.Abrir("cmdDadosEmail", {QString::number(geral_.IDContaEmail)});
    EmailActual = rs.Fields("Email").textOrEmpty();
    platform_.mail.setServidor(rs.Fields("ServerName").textOrEmpty());
    platform_.mail.setConta(rs.Fields("Username").textOrEmpty());
    platform_.mail.setSenha(Descodificar_Email(rs.Fields("PalavraPasse").textOrEmpty()));
    rs.Close();
    platform_.mail.setActivo(true);
}

void CicloCorreio::TimerMailNotification3_Timer()
{
    geral_.ErroMail = platform_.mail.Falhou() ? 1 : 0;
    if (geral_.ErroMail != 0)
        Mostrar_Falha();
    else if (platform_.mail.TemCorreio())
        Mostrar_Correio();
    Avancar_Fila();
}

void CicloCorreio::Mostrar_Falha()
{
    const QString texto = EmailActual + u" ("_s + platform_.mail.TextoErro() + u')';
    frmPopupEmail &popup = Popup();
    popup.StatusLabel->setText(texto);
    Parar_Verificacao();
    popup.Reiniciar_TimerTimeout();
    popup.announce(texto);
}

void CicloCorreio::Mostrar_Correio()
{
    const qint16 mensagens = platform_.mail.NumeroMensagens();
    frmPopupEmail &popup = Popup();
    const QString palavra = geral_.Ler_Idioma(mensagens == 1 ? 258 : 259);
    popup.StatusLabel->setText(QString::number(mensagens) + u' ' + palavra + u" ("_s + EmailActual + u')');
    Tocar_Som(platform_.sound, Som_Do_Email(geral_));
    popup.Reiniciar_TimerTimeout();
    popup.announce(popup.StatusLabel->text());
    Parar_Verificacao();
}

void CicloCorreio::Parar_Verificacao()
{
    platform_.mail.setActivo(false);
    geral_.temporizadores.TimerMailNotification3.setEnabled(false);
}

void CicloCorreio::Avancar_Fila()
{
    const int contas = lstEmails.ListCount();
    if (contas > 0) lstEmails.RemoveItem(0);
    if (contas > 1)
        VerificarConta();
    else
        IniciarMail();
}

// The user's own check, at once.
void CicloCorreio::mnuMailNotification_Click()
{
    platform_.mail.setActivo(false);
    lstEmails.Clear();
    geral_.temporizadores.TimerVerificacaoEmail.setEnabled(true);
    IniciarMail();
    VerificarConta();
    Popup();
}

// The one card, which loads at its first notice. The next one brings it back if it is on its way down.
frmPopupEmail &CicloCorreio::Popup()
{
    if (popup_)
        popup_->stayUp();
    else
        Carregar_Popup();
    return *popup_;
}

void CicloCorreio::Carregar_Popup()
{
    geral_.temporizadores.TimerMailNotification.setEnabled(false);
    if (EmailActual.isEmpty()) geral_.ErroMail = 1; // there is no account yet
    const QString texto = EmailActual.isEmpty() ? geral_.Ler_Idioma(260)
                                                : EmailActual + u" ("_s + geral_.Ler_Idioma(261) + u')';
    popup_ = new frmPopupEmail(janela_, texto);
    connect(popup_, &RisingCard::Click, this, &CicloCorreio::Popup_Click);
    connect(popup_, &RisingCard::Unloaded, this, [this] { popup_.clear(); });
    popup_->show();
    popup_->announce(texto);
}

bool CicloCorreio::Responder() { return popup_ && popup_->answer(); }

void CicloCorreio::Popup_Click()
{
    if (geral_.ErroMail == 0) return platform_.shell.openMailProgram();
    popup_->close();
    Q_EMIT Abrir_Opcoes();
}
