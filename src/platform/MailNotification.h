// Watches one mailbox at a time. Give it server, account and password, set it active, and read the result later:
// it works on by itself and never blocks the interface thread.
#pragma once

#include <QString>

class MailNotification
{
public:
    virtual ~MailNotification() = default;

    // True begins to watch with the three values as they are now. False stops at once and clears what is read
    // below; it always comes before new values are given.
    virtual void setActivo(bool activo) = 0;
    virtual void setServidor(const QString &servidor) = 0;
    virtual void setConta(const QString &conta) = 0;
    virtual void setSenha(const QString &senha) = 0;

    virtual bool Falhou() const = 0;        // the last check ended in an error
    virtual QString TextoErro() const = 0;  // its text, as the user is to read it
    // Whether there are messages that were not announced before. Reading true counts as announcing them.
    virtual bool TemCorreio() = 0;
    virtual qint16 NumeroMensagens() const = 0;
};
