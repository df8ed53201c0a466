#include "carddav/BookSearch.h"

#include "carddav/DavBodies.h"
#include "carddav/Href.h"

#include <algorithm>

namespace
{
constexpr qsizetype mostPlaces = 30;
constexpr auto atIt = "<D:resourcetype/><D:displayname/><D:current-user-privilege-set/>"
                      "<D:current-user-principal/><C:addressbook-home-set/>";
constexpr auto inIt = "<D:resourcetype/><D:displayname/><D:current-user-privilege-set/>";

QString lastPiece(const QUrl &address)
{
    return address.path(QUrl::FullyDecoded).section(u'/', -1, -1, QString::SectionSkipEmpty);
}
} // namespace

Discovery::Search::Search(const QUrl &start, const RemoteAccount &account, const RemoteLimits &limits,
                          Answer answer)
    : connection_(start, account, limits), answer_(std::move(answer))
{
}

void Discovery::Search::start()
{
    const QUrl start = connection_.address();
    if (start.isEmpty()) {
        error_ = {RemoteError::Kind::Address, 0, {}};
        return connection_.later([this] { finish(); });
    }
    for (const QUrl &url : {start, addressAt(start, QStringLiteral("/.well-known/carddav")),
                            addressAt(start, QStringLiteral("/"))}) {
        places_.push_back({url, Look::AtIt});
        places_.push_back({url, Look::InIt});
    }
    next();
}

void Discovery::Search::next()
{
    while (!places_.empty()) {
        const Place place = places_.front();
        places_.pop_front();
        const QString key = place.url.toString(QUrl::FullyEncoded) + QString::number(int(place.look));
        if (seen_.contains(key) || seen_.size() >= mostPlaces) continue;
        seen_ << key;
        const bool deep = place.look == Look::InIt;
        return connection_.send(dav::propfind(place.url, deep ? "1" : "0", deep ? inIt : atIt), this,
                                [this, place](const DavAnswer &answer) { answered(place, answer); });
    }
    finish();
}

void Discovery::Search::answered(const Place &place, const DavAnswer &answer)
{
    const bool isFirst = std::exchange(isFirst_, false);
    if (answer.error) {
        note(answer.error);
        const bool ends =
            answer.error.kind == RemoteError::Kind::Password ||
            (isFirst && answer.error.concernsAll() && answer.error.kind != RemoteError::Kind::Elsewhere);
        return ends ? finish() : next();
    }
    if (answer.isMultistatus()) {
        if (takeBooks(answer)) return finish();
        follow(place, answer);
    }
    next();
}

bool Discovery::Search::takeBooks(const DavAnswer &answer)
{
    for (const DavResponse &one : answer.responses) {
        if (!one.isBook) continue;
        const QUrl address = addressNamed(answer.url, one.href);
        const auto isSame = [&address](const FoundBook &book) { return book.address == address; };
        if (std::any_of(books_.cbegin(), books_.cend(), isSame)) continue;
        books_ << FoundBook{address, one.name.isEmpty() ? lastPiece(address) : one.name,
                            !one.tellsRights || one.mayWrite, isExposed(address)};
    }
    return !books_.isEmpty();
}

// The homes come before all that was still to be looked at; but what lies in the place itself before them.
void Discovery::Search::follow(const Place &place, const DavAnswer &answer)
{
    std::deque<Place> found;
    for (const DavResponse &one : answer.responses)
        for (const QString &home : one.homes)
            found.push_back({addressNamed(answer.url, home), Look::InIt});
    for (const DavResponse &one : answer.responses)
        if (!one.principal.isEmpty()) found.push_back({addressNamed(answer.url, one.principal), Look::AtIt});
    const bool lookInside = place.look == Look::AtIt;
    if (lookInside) found.push_front({answer.url, Look::InIt});
    places_.insert(places_.begin(), found.begin(), found.end());
}

void Discovery::Search::note(const RemoteError &error)
{
    using Kind = RemoteError::Kind;
    const bool tellsNothing = error.kind == Kind::NotFound || error.kind == Kind::NoBook ||
                              error.kind == Kind::Malformed || error.kind == Kind::Changed;
    if (!error_ && !tellsNothing) error_ = error;
    if (error.kind == Kind::Password) error_ = error;
}

void Discovery::Search::finish()
{
    const Answer told = answer_;
    const QList<FoundBook> books = books_;
    RemoteError error = books.isEmpty() ? error_ : RemoteError{};
    if (books.isEmpty() && !error) error = {RemoteError::Kind::NoBook, 0, connection_.address().toString()};
    told(error, books); // behind which there may be no search any more
}
