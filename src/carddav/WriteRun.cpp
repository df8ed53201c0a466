#include "carddav/WriteRun.h"

#include "carddav/CardAnswer.h"
#include "carddav/DavBodies.h"
#include "carddav/Href.h"

WriteRun::WriteRun(DavConnection &connection, QString href, RemoteBook::WrittenAnswer answer)
    : connection_(connection), href_(std::move(href)), answer_(std::move(answer))
{
}

void WriteRun::send(const DavRequest &request, Step then)
{
    connection_.send(request, this, [self = shared_from_this(), then](const DavAnswer &answer) {
        (self.get()->*then)(answer);
    });
}

void WriteRun::create(const QByteArray &card)
{
    DavRequest request = dav::put(addressAt(connection_.address(), href_), card);
    request.headers << std::pair<QByteArray, QByteArray>("If-None-Match", "*");
    send(request, &WriteRun::written);
}

void WriteRun::replace(const QByteArray &etag, const QByteArray &card)
{
    DavRequest request = dav::put(addressAt(connection_.address(), href_), card);
    request.headers << std::pair<QByteArray, QByteArray>("If-Match", etag.isEmpty() ? QByteArray("*") : etag);
    send(request, &WriteRun::replaced);
}

void WriteRun::remove(const QByteArray &etag)
{
    DavRequest request = dav::remove(addressAt(connection_.address(), href_));
    if (!etag.isEmpty()) request.headers << std::pair<QByteArray, QByteArray>("If-Match", etag);
    send(request, &WriteRun::removed);
}

// What does not exist cannot be in the state that was expected either.
void WriteRun::replaced(const DavAnswer &answer)
{
    if (answer.error.kind != RemoteError::Kind::NotFound) return written(answer);
    RemoteError gone = answer.error;
    gone.kind = RemoteError::Kind::Changed;
    answer_(gone, {});
}

void WriteRun::written(const DavAnswer &answer)
{
    if (answer.error) return answer_(answer.error, {});
    if (answer.status != 200 && answer.status != 201 && answer.status != 204)
        return answer_({RemoteError::Kind::Malformed, answer.status, QStringLiteral("not written")}, {});
    if (!answer.location.isEmpty()) href_ = normalHref(answer.url, QString::fromUtf8(answer.location));
    if (!answer.etag.isEmpty()) return answer_({}, {href_, answer.etag, {}});
    send(dav::get(addressAt(connection_.address(), href_)), &WriteRun::fetched);
}

void WriteRun::fetched(const DavAnswer &answer)
{
    const RemoteError error = errorOfCard(answer);
    if (error) return answer_(error, {});
    answer_({}, {href_, answer.etag, answer.body});
}

void WriteRun::removed(const DavAnswer &answer)
{
    if (answer.error.kind == RemoteError::Kind::NotFound) return answer_({}, {});
    if (answer.error.kind != RemoteError::Kind::Changed) return answer_(answer.error, {});
    // Many servers say the same to a card that is gone as to one that was changed.
    send(dav::propfind(addressAt(connection_.address(), href_), "0", "<D:getetag/>"), &WriteRun::looked);
}

void WriteRun::looked(const DavAnswer &answer)
{
    const bool isGone = answer.error.kind == RemoteError::Kind::NotFound ||
                        (answer.isMultistatus() && answer.responses.size() == 1 &&
                         answer.responses.constFirst().status == 404);
    if (isGone) return answer_({}, {});
    if (answer.error.concernsAll()) return answer_(answer.error, {});
    answer_({RemoteError::Kind::Changed, 412, {}}, {});
}
