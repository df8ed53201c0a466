// One property of a card: its head taken apart, and its value as it was written, to be asked for as text, as
// the parts of a structure, as a list or as bytes.
#pragma once

#include <initializer_list>
#include <memory>
#include <optional>
#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringList>
#include <vector>

struct CardParameter {
    QByteArray name; // upper case; a word without a name has been given the one it stands for
    QByteArrayList values;
};

// A name of the format's own, in any case of letters. Others may be private ones, or words of a text.
bool isKnownCardProperty(QByteArrayView name);

// Whether bytes that are handed over are there for as long as what is made of them, and need not be copied.
enum class CardBytes { Passing, Lasting };

// What stands before the colon of a logical line.
class CardHead
{
public:
    explicit CardHead(QByteArrayView line, CardBytes bytes = CardBytes::Passing);

    bool isWhole() const { return length_ >= 0; } // there is a colon, and before it a name
    qsizetype length() const { return length_; }  // without the colon

    const QByteArray &group() const { return group_; } // as written; empty without one
    const QByteArray &name() const { return name_; }   // upper case
    const std::vector<CardParameter> &parameters() const { return parameters_; }

    // The values of all parameters of that name, in their order.
    QByteArrayList values(QByteArrayView parameter) const;
    // The first of them; empty without one.
    QByteArray value(QByteArrayView parameter) const;

    bool isQuotedPrintable() const;
    bool isBase64() const;

private:
    void readName(QByteArrayView text);
    void readParameter(QByteArrayView text);
    QByteArrayList valuesIn(QByteArrayView text) const;
    bool isEncoded(std::initializer_list<const char *> names) const;

    CardBytes bytes_;
    qint32 length_ = -1;
    QByteArray group_;
    QByteArray name_;
    std::vector<CardParameter> parameters_;
};

class CardProperty
{
public:
    // Where it stands in its file.
    struct Place {
        qsizetype begin = 0; // bytes, line ends included
        qsizetype end = 0;
        qsizetype line = 0; // from 1
    };

    // The line behind the head, in an encoding of that name where the property itself names none.
    CardProperty(CardHead head, QByteArrayView line, Place place,
                 std::shared_ptr<const QByteArray> fallbackCharset, CardBytes bytes = CardBytes::Passing);

    const QByteArray &name() const { return head_.name(); }
    const CardHead &head() const { return head_; }
    // Unfolded, still encoded; it may be the file's own bytes, which stand no longer than the card.
    const QByteArray &rawValue() const { return value_; }
    const Place &place() const { return place_; }

    // The types in lower case, sorted, each once.
    QStringList types() const;
    // 1 is liked best, 100 least, 101 stands for none said.
    int preference() const { return preference(types()); }
    int preference(const QStringList &types) const; // for who has asked for the types already

    QString text() const;            // the whole value, its escapes resolved
    QStringList parts() const;       // divided at ";"
    QStringList list() const;        // divided at ","
    QByteArray decodedBytes() const; // quoted-printable and base64 resolved, nothing else

    // A row of the file that is no property: a raw line break in the value, which goes on with it.
    // False where it would become too long; nothing has changed then.
    bool joinRow(QByteArrayView row, qsizetype end);

private:
    QStringList divided(char separator) const;

    CardHead head_;
    QByteArray value_;
    Place place_;
    std::shared_ptr<const QByteArray> fallback_;
};
