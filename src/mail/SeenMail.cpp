#include "mail/SeenMail.h"

#include "platform/ReplaceFile.h"

#include <QCryptographicHash>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
QString hashed(const QString &text)
{
    constexpr qsizetype enough = 32; // hex digits
    return QString::fromLatin1(
        QCryptographicHash::hash(text.toUtf8(), QCryptographicHash::Sha256).toHex().left(enough));
}

QString keyOf(const QString &mailbox, const QString &uid) { return hashed(mailbox + u'\n' + uid); }
} // namespace

SeenMail::SeenMail(QString path) : path_(std::move(path))
{
    QFile file(path_);
    if (file.open(QIODevice::ReadOnly)) entries_ = QJsonDocument::fromJson(file.readAll()).object();
}

int SeenMail::countNew(const QString &mailbox, const Pop3Check::Result &result) const
{
    const QJsonObject known = entry(mailbox);
    if (!result.hasUids) return std::max(0, result.messages - known[u"count"_s].toInt());
    QSet<QString> seen;
    for (const auto &uid : known[u"uids"_s].toArray())
        seen.insert(uid.toString());
    return static_cast<int>(std::count_if(result.uids.begin(), result.uids.end(), [&](const QString &uid) {
        return !seen.contains(keyOf(mailbox, uid));
    }));
}

void SeenMail::announce(const QString &mailbox, const Pop3Check::Result &result)
{
    QJsonArray uids;
    for (const QString &uid : result.uids)
        uids.append(keyOf(mailbox, uid));
    QJsonObject changed = entry(mailbox);
    changed[u"uids"_s] = uids;
    changed[u"count"_s] = result.messages;
    store(mailbox, changed);
}

Pop3Check::Trust SeenMail::trust(const QString &mailbox) const
{
    const QJsonObject known = entry(mailbox);
    return {known[u"tls"_s].toBool(), known[u"certificate"_s].toString().toLatin1()};
}

void SeenMail::remember(const QString &mailbox, const Pop3Check::Trust &trust)
{
    QJsonObject changed = entry(mailbox);
    changed[u"tls"_s] = trust.encryptedBefore;
    changed[u"certificate"_s] = QString::fromLatin1(trust.fingerprint);
    if (changed != entry(mailbox)) store(mailbox, changed);
}

QJsonObject SeenMail::entry(const QString &mailbox) const { return entries_[hashed(mailbox)].toObject(); }

// Where the folder cannot be written, the knowledge lives as long as the process.
void SeenMail::store(const QString &mailbox, const QJsonObject &changed)
{
    entries_[hashed(mailbox)] = changed;
    const bool isNew = !QFile::exists(path_);
    if (isNew) QFile(path_).open(QIODevice::NewOnly, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    replaceFile(path_, QJsonDocument(entries_).toJson(QJsonDocument::Compact));
}
