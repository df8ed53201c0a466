#include "carddav/FetchRun.h"

#include "carddav/CardAnswer.h"
#include "carddav/DavBodies.h"
#include "carddav/Href.h"

namespace
{
constexpr qsizetype mostAtOnce = 100;
}

FetchRun::FetchRun(DavConnection &connection, bool &asksMany, RemoteBook::CardsPortion portion,
                   RemoteBook::EndAnswer end)
    : connection_(connection),
      era_(&connection),
      asksMany_(asksMany),
      portion_(std::move(portion)),
      end_(std::move(end))
{
}

void FetchRun::start(const QStringList &hrefs)
{
    open_ = hrefs;
    open_.removeDuplicates();
    next();
}

void FetchRun::next()
{
    asked_ = open_.mid(0, mostAtOnce);
    open_ = open_.mid(asked_.size());
    if (asked_.isEmpty()) return finish({});
    if (asksMany_)
        askForMany();
    else
        askSingly();
}

void FetchRun::askForMany()
{
    connection_.send(dav::multiget(connection_.address(), asked_), this,
                     [self = shared_from_this()](const DavAnswer &answer) { self->manyCame(answer); });
}

void FetchRun::manyCame(const DavAnswer &answer)
{
    if (answer.error.concernsAll()) return finish(answer.error);
    // Too much or a slip in one card spoils this answer; a refusal, all that would follow.
    if (!answer.isMultistatus() && answer.status != 207 && answer.error.kind != RemoteError::Kind::TooBig)
        asksMany_ = false;
    QList<RemoteCard> cards;
    if (answer.isMultistatus()) {
        for (const DavResponse &one : answer.responses) {
            const QString href = normalHref(answer.url, one.href);
            const bool isGone = one.status == 404 || one.status == 410;
            const bool isThere = one.hasCard && !one.card.trimmed().isEmpty();
            if ((!isGone && !isThere && !one.isCardTooBig) || asked_.removeAll(href) == 0) continue;
            cards << (isGone ? RemoteCard{href, {}, {}, {RemoteError::Kind::NotFound, one.status, {}}}
                             : RemoteCard{href, one.etag, one.card, {}});
            if (one.isCardTooBig) cards.last().error = {RemoteError::Kind::TooBig, 0, {}};
        }
    }
    const DavEra era = era_;
    if (!cards.isEmpty()) portion_(cards);
    if (era.isOver()) return;
    if (asked_.isEmpty()) return next();
    askSingly();
}

void FetchRun::askSingly()
{
    single_ = asked_.size();
    for (const QString &href : std::as_const(asked_))
        connection_.send(
            dav::get(addressAt(connection_.address(), href)), this,
            [self = shared_from_this(), href](const DavAnswer &answer) { self->oneCame(href, answer); });
}

void FetchRun::oneCame(const QString &href, const DavAnswer &answer)
{
    if (answer.error.concernsAll()) return finish(answer.error);
    const DavEra era = era_;
    portion_({{href, answer.etag, answer.error ? QByteArray() : answer.body, errorOfCard(answer)}});
    if (era.isOver()) return;
    if (--single_ == 0) next();
}

void FetchRun::finish(const RemoteError &error)
{
    const auto end = end_;
    connection_.withdraw(this);
    end(error);
}
