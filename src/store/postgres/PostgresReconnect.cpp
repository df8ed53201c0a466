#include "store/postgres/PostgresReconnect.h"

#include <algorithm>

PostgresReconnect::PostgresReconnect(PostgresAddress address, QStringList settings, PostgresPatience patience)
    : address_(std::move(address)),
      settings_(std::move(settings)),
      patience_(std::move(patience))
{
    nextTry_.setSingleShot(true);
    tooLong_.setSingleShot(true);
    connect(&nextTry_, &QTimer::timeout, this, &PostgresReconnect::beginTry);
    connect(&tooLong_, &QTimer::timeout, this, &PostgresReconnect::giveUpTry);
}

PostgresReconnect::~PostgresReconnect() { stop(); }

void PostgresReconnect::begin()
{
    active_ = true;
    tries_ = 0;
    nextTry_.start(patience_.tries.front());
}

void PostgresReconnect::stop()
{
    active_ = false;
    nextTry_.stop();
    endTry();
}

void PostgresReconnect::beginTry()
{
    ++tries_;
    tooLong_.start(patience_.opening);
    try {
        opening_ = std::make_unique<PostgresOpening>(address_, settings_);
        watch();
    } catch (const Failure &) {
        giveUpTry();
    }
}

void PostgresReconnect::proceed()
{
    try {
        opening_->step();
        if (opening_->waits() != PostgresOpening::Waits::NoMore) return watch();
    } catch (const Failure &) {
        return giveUpTry();
    }
    PostgresConnection connection = opening_->taken();
    stop();
    opened(std::move(connection));
}

// The library may have taken another socket, and waits for another direction.
void PostgresReconnect::watch()
{
    if (notifier_ != nullptr) {
        notifier_->setEnabled(false);
        notifier_->deleteLater();
    }
    const bool toRead = opening_->waits() == PostgresOpening::Waits::ToRead;
    notifier_ = new QSocketNotifier(opening_->socket(), toRead ? QSocketNotifier::Read : QSocketNotifier::Write, this);
    connect(notifier_, &QSocketNotifier::activated, this, &PostgresReconnect::proceed);
}

void PostgresReconnect::giveUpTry()
{
    endTry();
    const auto next = std::min(static_cast<std::size_t>(tries_), patience_.tries.size() - 1);
    nextTry_.start(patience_.tries[next]);
}

// The notifier goes first: it must not watch a number that may soon be another socket's.
void PostgresReconnect::endTry()
{
    tooLong_.stop();
    if (notifier_ != nullptr) {
        notifier_->setEnabled(false);
        notifier_->deleteLater();
        notifier_ = nullptr;
    }
    opening_.reset();
}
