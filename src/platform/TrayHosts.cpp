#include "platform/TrayHosts.h"

TrayHosts::TrayHosts(QObject *parent) : QObject(parent) {}
TrayHosts::~TrayHosts() = default;

void TrayHosts::watch()
{
    if (watch_) return;
    watch_ = TrayHostsWatch::ofThisSystem([this] { Q_EMIT changed(); });
    watch_->begin();
}

bool TrayHosts::onSelection() const { return watch_ && watch_->onSelection(); }
bool TrayHosts::onBus() const { return watch_ && watch_->onBus(); }
