#include "store/postgres/PostgresDialect.h"

#include <algorithm>
#include <QList>

using namespace Qt::StringLiterals;

namespace
{
enum class Kind { Blank, Word, Quoted, Text, Number, Parameter, Sign };

struct Token {
    Kind kind = Kind::Blank;
    QString text;

    bool is(QLatin1StringView word) const
    {
        return kind == Kind::Word && text.compare(word, Qt::CaseInsensitive) == 0;
    }
    bool is(char16_t sign) const { return kind == Kind::Sign && text == QChar(sign); }
};

bool beginsWord(QChar c) { return c.isLetter() || c == u'_'; }
bool continuesWord(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$'; }

template<class Belongs> qsizetype behind(QStringView sql, qsizetype place, const Belongs &belongs)
{
    while (place < sql.size() && belongs(sql[place]))
        ++place;
    return place;
}

// A quote that stands twice does not end what it began.
qsizetype behindQuotes(QStringView sql, qsizetype place)
{
    const QChar quote = sql[place];
    for (++place; place < sql.size(); ++place) {
        if (sql[place] != quote) continue;
        if (!sql.sliced(place + 1).startsWith(quote)) return place + 1;
        ++place;
    }
    return place;
}

qsizetype behindComment(QStringView sql, qsizetype place)
{
    const bool line = sql[place] == u'-';
    const qsizetype end = sql.indexOf(line ? QLatin1StringView("\n") : QLatin1StringView("*/"), place + 2);
    return end < 0 ? sql.size() : end + (line ? 1 : 2);
}

// What begins at that place, and where it ends.
std::pair<Kind, qsizetype> next(QStringView sql, qsizetype place)
{
    const QChar c = sql[place];
    const QStringView rest = sql.sliced(place);
    if (c.isSpace()) return {Kind::Blank, behind(sql, place, [](QChar x) { return x.isSpace(); })};
    if (rest.startsWith("--"_L1) || rest.startsWith("/*"_L1)) return {Kind::Blank, behindComment(sql, place)};
    if (c == u'\'') return {Kind::Text, behindQuotes(sql, place)};
    if (c == u'"') return {Kind::Quoted, behindQuotes(sql, place)};
    if (c == u'?') return {Kind::Parameter, place + 1};
    if (c.isDigit())
        return {Kind::Number, behind(sql, place, [](QChar x) { return continuesWord(x) || x == u'.'; })};
    if (beginsWord(c)) return {Kind::Word, behind(sql, place, continuesWord)};
    return {Kind::Sign, place + 1};
}

QList<Token> tokens(const QString &sql)
{
    QList<Token> list;
    for (qsizetype place = 0; place < sql.size();) {
        const auto [kind, end] = next(sql, place);
        list << Token{kind, sql.sliced(place, end - place)};
        place = end;
    }
    return list;
}

// A statement as its tokens; blanks between them are passed over.
class Statement
{
public:
    explicit Statement(const QString &sql) : list_(tokens(sql)) {}

    QString text() const
    {
        QString all;
        for (const Token &token : list_)
            all += token.text;
        return all;
    }

    void dropStar()
    {
        const qsizetype first = from(0);
        const qsizetype star = after(first);
        if (at(first).is("DELETE"_L1) && at(star).is(u'*') && at(after(star)).is("FROM"_L1)) {
            list_[star].text.clear();
            list_[star].kind = Kind::Blank;
            if (list_[star + 1].kind == Kind::Blank) list_[star + 1].text.clear(); // FROM stands behind it
        }
    }

    void foldLikes()
    {
        for (qsizetype i = 0; i < list_.size(); ++i)
            if (list_[i].is("LIKE"_L1)) foldLike(i);
    }

    void orderNullsAsSmallest()
    {
        for (qsizetype i = 0; i < list_.size(); ++i)
            if (list_[i].is("ORDER"_L1) && at(after(i)).is("BY"_L1)) orderNulls(after(after(i)));
    }

    void askSessionForLastRow()
    {
        for (qsizetype i = 0; i < list_.size(); ++i) {
            const qsizetype closing = after(after(i));
            if (!list_[i].is("last_insert_rowid"_L1) || !at(closing).is(u')')) continue;
            list_[i].text = u"coalesce(morvex_ultimo_id"_s;
            list_[closing].text = u"), 0)"_s;
        }
    }

    void nameCollation()
    {
        for (qsizetype i = 0; i < list_.size(); ++i) {
            const qsizetype name = after(i);
            if (list_[i].is("COLLATE"_L1) && at(name).is("BINARY"_L1))
                list_[name] = {Kind::Quoted, u"\"C\""_s};
        }
    }

    int numberParameters()
    {
        int number = 0;
        for (Token &token : list_)
            if (token.kind == Kind::Parameter) token.text.replace(u'?', u'$' + QString::number(++number));
        return number;
    }

private:
    Token at(qsizetype place) const { return list_.value(place); }

    // The place of a token that is no blank, from there on or back; beyond the end where there is none.
    qsizetype from(qsizetype place) const
    {
        while (place < list_.size() && list_[place].kind == Kind::Blank)
            ++place;
        return place;
    }
    qsizetype after(qsizetype place) const { return from(place + 1); }
    qsizetype before(qsizetype place) const
    {
        do
            --place;
        while (place >= 0 && list_[place].kind == Kind::Blank);
        return place;
    }

    bool isName(qsizetype place) const
    {
        return at(place).kind == Kind::Word || at(place).kind == Kind::Quoted;
    }

    qsizetype openingOf(qsizetype closing) const
    {
        int depth = 0;
        for (qsizetype i = closing; i >= 0; --i) {
            if (list_[i].is(u')')) ++depth;
            if (list_[i].is(u'(') && --depth == 0) return i;
        }
        return -1;
    }

    // Where the operand begins that ends there; -1 where that is none.
    qsizetype operandBackFrom(qsizetype end) const
    {
        qsizetype start = end;
        if (at(end).is(u')')) {
            start = openingOf(end);
            const qsizetype name = before(start);
            static const QStringList noCalls{u"AND"_s, u"OR"_s,   u"NOT"_s,   u"WHERE"_s,
                                             u"ON"_s,  u"WHEN"_s, u"SELECT"_s};
            if (name < 0 || !isName(name) || noCalls.contains(at(name).text.toUpper())) return start;
            start = name;
        } else if (!isName(end)) {
            return at(end).kind == Kind::Parameter || at(end).kind == Kind::Text ? end : -1;
        }
        while (at(before(start)).is(u'.') && isName(before(before(start))))
            start = before(before(start));
        return start;
    }

    // Where the operand ends that begins there.
    qsizetype operandFrom(qsizetype start) const
    {
        if (at(start).kind == Kind::Parameter || at(start).kind == Kind::Text) return start;
        if (!isName(start)) return -1;
        qsizetype end = start;
        while (at(after(end)).is(u'.') && isName(after(after(end))))
            end = after(after(end));
        return end;
    }

    void fold(qsizetype first, qsizetype last)
    {
        list_[first].text.prepend("morvex_dobrar("_L1);
        list_[last].text += "::text) COLLATE \"C\""_L1;
    }

    void foldLike(qsizetype like)
    {
        qsizetype leftEnd = before(like);
        if (at(leftEnd).is("NOT"_L1)) leftEnd = before(leftEnd);
        const qsizetype leftStart = operandBackFrom(leftEnd);
        const qsizetype right = after(like);
        const qsizetype rightEnd = operandFrom(right);
        if (leftStart < 0 || rightEnd < 0) return;
        fold(leftStart, leftEnd);
        fold(right, rightEnd);
        list_[rightEnd].text += " ESCAPE ''"_L1;
    }

    bool endsOrder(qsizetype place) const
    {
        static const QStringList behindOrder{u"LIMIT"_s, u"OFFSET"_s, u"FETCH"_s, u"FOR"_s, u"UNION"_s};
        return place >= list_.size() || at(place).is(u';') ||
               (at(place).kind == Kind::Word && behindOrder.contains(at(place).text.toUpper()));
    }

    // The keys of one ORDER BY, up to its end or the bracket that holds it.
    void orderNulls(qsizetype place)
    {
        int depth = 0;
        for (;; place = after(place)) {
            const bool key = depth == 0 && (endsOrder(place) || at(place).is(u',') || at(place).is(u')'));
            if (key) endKey(before(place));
            if (key && !at(place).is(u',')) return;
            depth += at(place).is(u'(') ? 1 : at(place).is(u')') ? -1 : 0;
        }
    }

    void endKey(qsizetype last)
    {
        if (at(last).is("FIRST"_L1) || at(last).is("LAST"_L1)) return;
        list_[last].text += at(last).is("DESC"_L1) ? " NULLS LAST"_L1 : " NULLS FIRST"_L1;
        list_[last].kind = Kind::Word;
    }

    QList<Token> list_;
};
} // namespace

QString postgres::said(const QString &sql)
{
    Statement statement(sql);
    statement.dropStar();
    statement.numberParameters();
    statement.nameCollation();
    statement.askSessionForLastRow();
    statement.foldLikes();
    statement.orderNullsAsSmallest();
    return statement.text();
}

int postgres::parameters(const QString &sql) { return Statement(sql).numberParameters(); }
