#include "carddav/ChangesRun.h"

#include "carddav/DavBodies.h"
#include "carddav/Href.h"

#include <algorithm>

namespace
{
// A list has the book itself at least. Without it, it would make all that it lacks look deleted; and some
// servers answer with a list even to the question for what is not there.
RemoteError errorOfList(const DavAnswer &answer)
{
    const bool isList = answer.isMultistatus() && !answer.responses.isEmpty();
    const auto isBook = [](const DavResponse &one) { return one.isCollection || one.isBook; };
    const auto isGone = [](const DavResponse &one) { return one.status == 404 || one.status == 410; };
    if (isList && std::any_of(answer.responses.cbegin(), answer.responses.cend(), isBook)) return {};
    if (isList && std::all_of(answer.responses.cbegin(), answer.responses.cend(), isGone))
        return {RemoteError::Kind::NotFound, answer.status, {}};
    return {RemoteError::Kind::Malformed, answer.status, QStringLiteral("no list of cards")};
}
} // namespace

ChangesRun::ChangesRun(DavConnection &connection, RemoteBook::ChangesAnswer answer)
    : connection_(connection), answer_(std::move(answer))
{
}

void ChangesRun::start(const QByteArray &token)
{
    whole_ = token.isEmpty();
    askSince(token);
}

void ChangesRun::askSince(const QByteArray &token)
{
    token_ = token;
    usedTokens_ << token;
    connection_.send(dav::syncCollection(connection_.address(), token), this,
                     [self = shared_from_this()](const DavAnswer &answer) { self->answered(answer); });
}

void ChangesRun::answered(const DavAnswer &answer)
{
    const bool isOfTheWay = answer.error.concernsAll() || answer.error.kind == RemoteError::Kind::TooBig;
    const bool isLost = answer.status / 100 == 3; // among redirects
    const bool isBroken =
        answer.status == 207 && answer.error; // what answers so would not do better otherwise
    if (isOfTheWay || isLost || isBroken) return answer_(answer.error, {});
    if (!answer.isMultistatus()) return refused();
    if (!take(answer)) return finish(answer.syncToken);
    // A server that holds something back says from where to go on. One that does not get on is asked
    // otherwise.
    if (answer.syncToken.isEmpty() || usedTokens_.contains(answer.syncToken)) return askForList();
    askSince(answer.syncToken);
}

// The server has forgotten the token, or does not know such questions at all. What it says to that is of
// great variety, so one by one the next way is tried; the last one's answer holds.
void ChangesRun::refused()
{
    if (token_.isEmpty()) return askForList();
    states_.clear();
    order_.clear();
    whole_ = true;
    if (usedTokens_.contains(QByteArray())) return askForList();
    askSince({});
}

void ChangesRun::askForList()
{
    states_.clear();
    order_.clear();
    whole_ = true;
    connection_.send(dav::propfind(connection_.address(), "1", "<D:resourcetype/><D:getetag/>"), this,
                     [self = shared_from_this()](const DavAnswer &answer) { self->listed(answer); });
}

void ChangesRun::listed(const DavAnswer &answer)
{
    if (answer.error) return answer_(answer.error, {});
    const RemoteError error = errorOfList(answer);
    if (error) return answer_(error, {});
    if (take(answer))
        return answer_({RemoteError::Kind::Server, 507, QStringLiteral("the list of cards is cut off")}, {});
    finish({});
}

bool ChangesRun::take(const DavAnswer &answer)
{
    bool heldBack = false;
    const QString own = normalHref(answer.url, answer.url.path(QUrl::FullyEncoded));
    for (const DavResponse &one : answer.responses) {
        const QString href = normalHref(answer.url, one.href);
        if (one.status == 507) heldBack = true;
        const bool isFolder = one.isCollection || href.endsWith(u'/') || href == own || href + u'/' == own;
        if (one.href.isEmpty() || one.status == 507 || isFolder) continue;
        if (!states_.contains(href)) order_ << href;
        const bool removed = one.status == 404 || one.status == 410;
        states_[href] = {removed ? QByteArray() : one.etag, removed};
    }
    return heldBack;
}

void ChangesRun::finish(const QByteArray &token)
{
    RemoteChanges changes;
    changes.whole = whole_;
    changes.token = token;
    for (const QString &href : order_) {
        const State state = states_.value(href);
        if (!state.removed)
            changes.changed << RemoteMember{href, state.etag};
        else if (!whole_)
            changes.removed << href;
    }
    answer_({}, changes);
}
