#include "store/postgres/PostgresSession.h"

#include "store/postgres/PostgresNotices.h"

#include <QCoreApplication>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
// The columns that a kept text reads have become others: somebody brought the schema up to date.
constexpr std::string_view otherColumns = "0A000";
} // namespace

PostgresSession::PostgresSession(const QString &address, QStringList settings, PostgresPatience patience,
                                 const Deadline &opening)
    : patience_(std::move(patience)),
      text_(address),
      address_(address),
      settings_(std::move(settings)),
      reconnect_(address_, settings_, patience_)
{
    reconnect_.opened = [this](PostgresConnection connection) { comeBack(std::move(connection)); };
    try {
        take(openNow(address_, settings_, opening));
    } catch (const Failure &) {
        if (opening.silent()) loseOthers();
        throw;
    }
    all_.push_back(this);
}

PostgresSession::~PostgresSession()
{
    std::erase(all_, this);
    notifier_.reset(); // before the socket that it watches
}

void PostgresSession::take(PostgresConnection connection)
{
    notifier_.reset();
    ++generation_;
    link_ = std::make_unique<PostgresLink>(std::move(connection));
    link_->ahead(u"LISTEN morvex"_s);
    if (QCoreApplication::instance() == nullptr) return;
    notifier_ = std::make_unique<QSocketNotifier>(link_->socket(), QSocketNotifier::Read);
    connect(notifier_.get(), &QSocketNotifier::activated, this, &PostgresSession::hear);
}

void PostgresSession::lose()
{
    if (lost()) return;
    notifier_.reset();
    link_->drop();
    reconnect_.begin();
    reach_ = Reach::Lost;
    tellSoon();
}

bool PostgresSession::isLost(const QString &address)
{
    return std::any_of(all_.begin(), all_.end(), [&](const PostgresSession *one) {
        return one->lost() && one->text_ == address;
    });
}

// What one has waited for in vain the others would, too.
void PostgresSession::loseOthers()
{
    for (PostgresSession *one : all_)
        if (one != this && one->text_ == text_) one->lose();
}

void PostgresSession::comeBack(PostgresConnection connection)
{
    take(std::move(connection));
    try {
        if (cameBack) cameBack();
    } catch (const Failure &) {
        return lose();
    }
    reach_ = Reach::There;
    missSome();
}

bool PostgresSession::reopen(const Deadline &deadline)
{
    try {
        take(openNow(address_, settings_, deadline));
        missSome();
        return true;
    } catch (const Failure &) {
        lose();
        return false;
    }
}

void PostgresSession::ahead(const QString &sql)
{
    if (link_->alive()) link_->ahead(sql);
}

// The notifier of a connection that has gone would go on telling so.
PostgresAnswers PostgresSession::attempt(Commands commands, const Deadline &deadline)
{
    if (lost()) raiseLost({});
    try {
        PostgresAnswers answers = link_->run(commands, deadline);
        collectNotices();
        return answers;
    } catch (const Failure &) {
        notifier_.reset();
        if (deadline.silent()) loseOthers();
        throw;
    }
}

PostgresAnswers PostgresSession::lastAttempt(Commands commands, const Deadline &deadline)
{
    try {
        return attempt(commands, deadline);
    } catch (const Failure &) {
        lose();
        throw;
    }
}

PostgresAnswers PostgresSession::attemptTwice(Commands commands, const Deadline &deadline)
{
    try {
        return attempt(commands, deadline);
    } catch (const Failure &) {
        if (lost() || !reopen(deadline)) throw;
        return lastAttempt(commands, deadline);
    }
}

PostgresResult PostgresSession::ask(const PostgresCommand &command, std::chrono::milliseconds patience)
{
    const Deadline deadline = patience_.within(patience);
    const Commands one(&command, 1);
    PostgresAnswers answers = attemptTwice(one, deadline);
    if (answers.refused && stateOf(answers.refusal.get()) == otherColumns) {
        link_->forget(command.sql);
        answers = lastAttempt(one, deadline);
    }
    if (answers.refused) raiseRefusal(answers.refusal.get(), command.sql);
    return std::move(answers.results.front());
}

qint64 PostgresSession::noticed()
{
    if (notifier_) hear();
    return noticed_;
}

// Also called for what the library has read already: it hears nothing new then.
void PostgresSession::hear()
{
    if (link_->hear()) return collectNotices();
    notifier_->setEnabled(false);
    notifier_.release()->deleteLater(); // it is this one that has called
    lose();
}

void PostgresSession::collectNotices()
{
    for (const PostgresNotice &notice : link_->heard()) {
        if (notice.from == link_->process()) continue;
        ++noticed_;
        if (const auto change = changeIn(notice.payload)) note(*change);
    }
}

// What was announced while nobody listened.
void PostgresSession::missSome()
{
    ++noticed_;
    note(everythingChanged());
}

void PostgresSession::note(const StoreChange &change)
{
    if (std::find(news_.begin(), news_.end(), change) == news_.end()) news_.push_back(change);
    tellSoon();
}

void PostgresSession::tellSoon()
{
    if (telling_ || (news_.empty() && !reach_)) return;
    telling_ = true;
    QMetaObject::invokeMethod(this, [this] { tell(); }, Qt::QueuedConnection);
}

// Whoever listens may ask, and hear of more, meanwhile.
void PostgresSession::tell()
{
    telling_ = false;
    if (held_ > 0) return;
    if (const auto reach = std::exchange(reach_, {}); reach && listener_.reached) listener_.reached(*reach);
    for (const StoreChange &change : std::exchange(news_, {}))
        if (listener_.changed) listener_.changed(change);
}
