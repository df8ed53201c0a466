#include "carddav/Discovery.h"

#include "carddav/BookSearch.h"

Discovery::Discovery(QString address, RemoteAccount account, const RemoteLimits &limits)
    : address_(std::move(address)), account_(std::move(account)), limits_(limits)
{
}

Discovery::~Discovery() = default;

void Discovery::start(Answer answer)
{
    const auto url = remoteAddress(address_);
    search_ = std::make_unique<Search>(url.value_or(QUrl()), account_, limits_, std::move(answer));
    search_->start();
}
