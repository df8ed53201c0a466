// Watches one mailbox at a time. Give it server, account and password, set it active, and read the result
// later: it works on by itself and never blocks the interface thread.
#pragma once

#include "mail/Pop3Check.h"
#include "mail/SeenMail.h"
#include "platform/MailNotification.h"

#include <chrono>
#include <functional>
#include <QElapsedTimer>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

class PopMailNotification final : public QObject, public MailNotification
{
    Q_OBJECT
public:
    struct Pace {
        std::chrono::milliseconds betweenChecks{60000};
        std::chrono::milliseconds afterGoodCheck{15000}; // a server wants to be left alone for a while
        Pop3Check::Limits limits;
    };

    // The file remembers what was announced. The language of the error texts is asked for at each error, by
    // its identifier.
    PopMailNotification(const QString &memory, std::function<QString()> language);
    PopMailNotification(const QString &memory, std::function<QString()> language, const Pace &pace);
    ~PopMailNotification() override;

    void setActivo(bool activo) override;
    void setServidor(const QString &servidor) override { server_ = servidor; }
    void setConta(const QString &conta) override { user_ = conta; }
    void setSenha(const QString &senha) override { password_ = senha; }

    bool Falhou() const override { return error_ != MailError::None; }
    QString TextoErro() const override;
    bool TemCorreio() override;
    qint16 NumeroMensagens() const override { return newMessages_; }

private:
    void check();
    void succeeded(const Pop3Check::Result &result);
    void failed(MailError error);
    void clear();
    QString mailbox() const { return server_ + u'\n' + user_; }

    SeenMail seen_;
    std::function<QString()> language_;
    Pace pace_;
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
