// A run of bytes out of a file that may be damaged: every reach is checked. Numbers are little-endian.
#pragma once

#include "platform/Failure.h"

#include <QByteArrayView>
#include <QtEndian>
#include <type_traits>

// What a damaged or foreign file raises.
[[noreturn]] inline void raiseDamage(const char *what)
{
    throw Failure(Failure::StoreError, QStringLiteral("JetFile"), QString::fromLatin1(what));
}

class Bytes
{
public:
    explicit Bytes(QByteArrayView view) : view_(view) {}

    qsizetype size() const { return view_.size(); }
    const char *data() const { return view_.data(); }

    // All of these raise Failure for what lies outside.
    template<class Number> Number number(qsizetype at) const
    {
        return qFromLittleEndian<Number>(part(at, sizeof(Number)).data());
    }
    quint8 u8(qsizetype at) const { return number<quint8>(at); }
    quint16 u16(qsizetype at) const { return number<quint16>(at); }
    quint32 u32(qsizetype at) const { return number<quint32>(at); }
    Bytes part(qsizetype at, qsizetype length) const
    {
        if (at < 0 || length < 0 || at > size() || length > size() - at)
            raiseDamage("a value reaches out of its place");
        return Bytes(view_.sliced(at, length));
    }
    Bytes from(qsizetype at) const { return part(at, size() - at); }

private:
    QByteArrayView view_;
};
