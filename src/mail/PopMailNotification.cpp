#include "mail/PopMailNotification.h"

#include "mail/MailTexts.h"

#include <algorithm>
#include <limits>

namespace
{
constexpr int busyTimesTolerated = 2;
} // namespace

PopMailNotification::PopMailNotification(const QString &memory, std::function<QString()> language)
    : PopMailNotification(memory, std::move(language), Pace{})
{
}

PopMailNotification::PopMailNotification(const QString &memory, std::function<QString()> language,
                                         const Pace &pace)
    : seen_(memory), language_(std::move(language)), pace_(pace)
{
    next_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, &PopMailNotification::check);
}

PopMailNotification::~PopMailNotification() { delete check_; }

void PopMailNotification::setActivo(bool activo)
{
    next_.stop();
    if (check_) check_->deleteLater();
    check_ = nullptr;
    clear();
    if (!activo) return;
    const auto last = lastGood_.constFind(mailbox());
    const qint64 rest = pace_.afterGoodCheck.count();
    const qint64 since = last == lastGood_.constEnd() ? rest : last->elapsed();
    next_.start(std::chrono::milliseconds(std::max<qint64>(0, rest - since)));
}

void PopMailNotification::clear()
{
    error_ = MailError::None;
    newMessages_ = 0;
    announced_ = false;
    result_ = {};
}

QString PopMailNotification::TextoErro() const
{
    return Falhou() ? mailErrorText(error_, language_()) : QString();
}

bool PopMailNotification::TemCorreio()
{
    if (newMessages_ == 0) return false;
    if (!announced_) seen_.announce(mailbox(), result_);
    announced_ = true;
    return true;
}

void PopMailNotification::check()
{
    const auto server = MailServer::parse(server_);
    if (!server) return failed(MailError::Address);
    check_ = new Pop3Check(*server, user_, password_, seen_.trust(mailbox()), pace_.limits, this);
    // A check that was stopped may still have a word on the way: only the present one is heard.
    connect(check_, &Pop3Check::succeeded, this,
            [this, mine = check_.data()](const Pop3Check::Result &result) {
                if (mine == check_) succeeded(result);
            });
    connect(check_, &Pop3Check::failed, this, [this, mine = check_.data()](MailError error) {
        if (mine == check_) failed(error);
    });
    check_->start();
}

void PopMailNotification::succeeded(const Pop3Check::Result &result)
{
    check_->deleteLater();
    check_ = nullptr;
    busy_.remove(mailbox());
    lastGood_[mailbox()].start();
    error_ = MailError::None;
    result_ = result;
    announced_ = false;
    newMessages_ = static_cast<qint16>(
        std::min<int>(seen_.countNew(mailbox(), result), std::numeric_limits<qint16>::max()));
    seen_.remember(mailbox(), result.trust);
    next_.start(
        std::max<std::chrono::milliseconds>(pace_.betweenChecks, std::chrono::seconds(result.loginDelay)));
}

void PopMailNotification::failed(MailError error)
{
    if (check_) check_->deleteLater();
    check_ = nullptr;
    next_.start(pace_.betweenChecks);
    if (error != MailError::Busy)
        busy_.remove(mailbox());
    else if (++busy_[mailbox()] <= busyTimesTolerated)
        return;
    error_ = error;
    newMessages_ = 0;
}
