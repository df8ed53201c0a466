// Watches one mailbox at a time. Give it server, account and password, set it active, and read the result
// later: it works on by itself and never blocks the interface thread.
#pragma once

#include "platform/mail/Pop3Check.h"
#include "platform/mail/SeenMail.h"

#include <functional>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

class MailNotification final : public QObject
{
    Q_OBJECT
public:
    // The file remembers what was announced. The language of the error texts is asked for at each error.
    MailNotification(const QString &memory, std::function<QString()> language, QObject *parent = nullptr);
    ~MailNotification() override;

    // True begins to watch with the three values as they are now; while it watches it looks again after a
    // minute or as much as the server wants. False stops at once and clears what is read below.
    void Activo(bool activo);
    void Servidor(const QString &servidor) { server_ = servidor; }
    void Conta(const QString &conta) { user_ = conta; }
    void Senha(const QString &senha) { password_ = senha; }

    bool Falhou() const { return error_ != MailError::None; }
    QString TextoErro() const;
    // Whether there are messages that were not announced before. Reading true counts as announcing them: they
    // are never new again, not even after a restart.
    bool TemCorreio();
    qint16 NumeroMensagens() const { return newMessages_; }

private:
    void check();
    void succeeded(const Pop3Check::Result &result);
    void failed(MailError error);
    void clear();
    QString mailbox() const { return server_ + u'\n' + user_; }

    SeenMail seen_;
    std::function<QString()> language_;
    QString server_, user_, password_;

    QPointer<Pop3Check> check_;
    QTimer next_;
    QHash<QString, QElapsedTimer> lastGood_; // by mailbox
    QHash<QString, int> busy_;               // times running that a mailbox was busy

    MailError error_ = MailError::None;
    qint16 newMessages_ = 0;
    bool announced_ = false;
    Pop3Check::Result result_;
};
