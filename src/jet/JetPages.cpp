#include "jet/JetPages.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <QFile>
#include <QFileInfo>
#include <utility>

namespace
{
constexpr qint64 largestFile = qint64{2} << 30; // the format knows none beyond

constexpr int versionAt = 0x14;
constexpr quint8 jet4 = 1;
constexpr int encodedFrom = 0x18; // of the header, always with the same key
constexpr int encodedTo = 0x98;
constexpr quint32 headerKey = 0x6b39dac7;
constexpr int pageKeyAt = 0x3e;
constexpr int passwordAt = 0x42;
constexpr int passwordLength = 40;
constexpr int createdAt = 0x72;

constexpr int rowCountAt = 12;
constexpr int offsetsAt = 14;
constexpr quint16 offsetMask = 0x1fff;
constexpr quint16 deletedFlag = 0x8000;
constexpr quint16 movedFlag = 0x4000;

// The RC4 cipher with a key of four bytes, in place.
void rc4(quint32 number, char *bytes, qsizetype length)
{
    std::array<quint8, 4> key;
    qToLittleEndian(number, key.data());
    std::array<quint8, 256> state;
    std::iota(state.begin(), state.end(), quint8{0});
    quint8 j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = static_cast<quint8>(j + state[i] + key[i % key.size()]);
        std::swap(state[i], state[j]);
    }
    quint8 i = j = 0;
    for (qsizetype at = 0; at < length; ++at) {
        j = static_cast<quint8>(j + state[++i]);
        std::swap(state[i], state[j]);
        const auto mask = state[static_cast<quint8>(state[i] + state[j])];
        bytes[at] = static_cast<char>(static_cast<quint8>(bytes[at]) ^ mask);
    }
}
} // namespace

JetPages::JetPages(const QString &path)
{
    if (!QFileInfo(path).isFile()) raiseDamage("no file"); // a pipe would be waited for
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) raiseDamage("the file cannot be opened");
    if (file.size() < pageSize || file.size() > largestFile) raiseDamage("no database: its size");
    file_ = file.readAll();
    count_ = static_cast<quint32>(file_.size() / pageSize);
    if (count_ == 0 || !QByteArrayView(file_).sliced(4).startsWith("Standard Jet DB"))
        raiseDamage("no database");
    if (header().u8(versionAt) != jet4) raiseDamage("a database of another version");
    decodeHeader();
    refusePassword();
    decodePages();
}

void JetPages::decodeHeader() { rc4(headerKey, file_.data() + encodedFrom, encodedTo - encodedFrom); }

// The password is masked with the day on which the file was made; without one nothing but zeros is left.
void JetPages::refusePassword() const
{
    const auto created = qFromLittleEndian<double>(header().part(createdAt, sizeof(double)).data());
    constexpr double limit = 0x7fffffff;
    const auto day = static_cast<qint32>(created >= -limit && created <= limit ? created : 0);
    std::array<char, sizeof(day)> mask;
    qToLittleEndian(day, mask.data());
    const Bytes password = header().part(passwordAt, passwordLength);
    for (std::size_t i = 0; i < passwordLength; ++i)
        if (password.data()[i] != mask[i % mask.size()]) raiseDamage("the database has a password");
}

void JetPages::decodePages()
{
    const quint32 key = header().u32(pageKeyAt);
    if (key == 0) return;
    for (quint32 number = 1; number < count_; ++number)
        rc4(key ^ number, file_.data() + qsizetype{number} * pageSize, pageSize);
}

Bytes JetPages::page(quint32 number) const
{
    if (number >= count_) raiseDamage("a page lies beyond the end of the file");
    return Bytes(QByteArrayView(file_).sliced(qsizetype{number} * pageSize, pageSize));
}

int JetPages::rowCount(quint32 number) const { return page(number).u16(rowCountAt); }

// Rows fill their page from its end; each ends where the one before it begins.
JetPages::Row JetPages::row(Pointer place) const
{
    const Bytes page = this->page(place.page);
    if (page.u8(0) != dataPage || place.row >= rowCount(place.page)) raiseDamage("there is no such row");
    const auto offset = [&](int row) { return page.u16(offsetsAt + 2 * row); };
    const quint16 flags = offset(place.row);
    const int start = flags & offsetMask;
    const int end = place.row == 0 ? pageSize : offset(place.row - 1) & offsetMask;
    return {page.part(start, end - start), (flags & deletedFlag) != 0, (flags & movedFlag) != 0};
}
