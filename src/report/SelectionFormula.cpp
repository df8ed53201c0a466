#include "report/SelectionFormula.h"

#include "platform/Failure.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr int deepest = 100; // parentheses and "not" within one another

// Reads the formula once from left to right; each function takes what it names and leaves the rest.
class Parser
{
public:
    Parser(const QString &formula, const FieldSql &fieldSql) : text_(formula), fieldSql_(fieldSql) {}

    SelectionCondition whole()
    {
        skipBlanks();
        if (atEnd()) return {};
        condition_.sql = alternatives();
        if (!atEnd()) raise(u"the end or \"and\" or \"or\" was expected"_s);
        return std::move(condition_);
    }

private:
    bool atEnd() const { return place_ == text_.size(); }
    QChar here() const { return atEnd() ? QChar() : text_[place_]; }

    [[noreturn]] void raise(const QString &what) const { raise(what, place_); }
    [[noreturn]] static void raise(const QString &what, qsizetype place)
    {
        throw Failure(Failure::InvalidPropertyValue, u"SelectionFormula"_s,
                      u"The selection formula is wrong at position %1: %2"_s.arg(place + 1).arg(what));
    }

    void skipBlanks()
    {
        while (!atEnd() && here().isSpace())
            ++place_;
    }

    bool takeWord(QLatin1StringView word)
    {
        const QStringView rest = QStringView(text_).mid(place_);
        if (!rest.startsWith(word, Qt::CaseInsensitive)) return false;
        if (rest.size() > word.size() && (rest[word.size()].isLetterOrNumber() || rest[word.size()] == u'_'))
            return false;
        place_ += word.size();
        skipBlanks();
        return true;
    }

    bool takeSign(QChar sign)
    {
        if (here() != sign) return false;
        ++place_;
        skipBlanks();
        return true;
    }

    QString alternatives()
    {
        QString sql = conjunction();
        while (takeWord("or"_L1))
            sql += u" OR "_s + conjunction();
        return sql;
    }

    QString conjunction()
    {
        QString sql = term();
        while (takeWord("and"_L1))
            sql += u" AND "_s + term();
        return sql;
    }

    QString term()
    {
        if (depth_ == deepest) raise(u"too much within one another"_s);
        ++depth_;
        QString sql = takeWord("not"_L1) ? u"NOT "_s + term() : takeSign(u'(') ? group() : comparison();
        --depth_;
        return sql;
    }

    QString group()
    {
        const QString sql = alternatives();
        if (!takeSign(u')')) raise(u"\")\" was expected"_s);
        return u'(' + sql + u')';
    }

    QString comparison()
    {
        const QString left = field();
        const QString sign = comparisonSign();
        condition_.values.push_back(literal());
        return u'(' + left + sign + u"?)"_s;
    }

    QString field()
    {
        const qsizetype begin = place_;
        const qsizetype end = text_.indexOf(u'}', begin);
        if (here() != u'{') raise(u"a field in braces was expected"_s);
        if (end < 0) raise(u"the brace is not closed"_s);
        const QStringView name = QStringView(text_).mid(begin + 1, end - begin - 1);
        const qsizetype dot = name.indexOf(u'.');
        if (dot < 0) raise(u"a field is written {Table.Field}"_s);
        QString sql = fieldSql_(name.left(dot).toString(), name.mid(dot + 1).toString());
        if (sql.isEmpty()) raise(u"there is no field %1"_s.arg(name));
        place_ = end + 1;
        skipBlanks();
        return sql;
    }

    QString comparisonSign()
    {
        for (const auto &sign : {"<>"_L1, "<="_L1, ">="_L1, "="_L1, "<"_L1, ">"_L1}) {
            if (!QStringView(text_).mid(place_).startsWith(sign)) continue;
            place_ += sign.size();
            skipBlanks();
            return sign;
        }
        raise(u"one of = <> < <= > >= was expected"_s);
    }

    StoreValue literal()
    {
        StoreValue value = here() == u'\'' || here() == u'"' ? StoreValue(quoted()) : number();
        skipBlanks();
        return value;
    }

    QString quoted()
    {
        const qsizetype begin = place_;
        const QChar quote = here();
        QString text;
        for (++place_; !atEnd(); ++place_) {
            if (here() != quote) {
                text += here();
            } else {
                ++place_;
                if (here() != quote || atEnd()) return text;
                text += quote;
            }
        }
        raise(u"the quoted text is not closed"_s, begin);
    }

    void takeDigits()
    {
        while (here() >= u'0' && here() <= u'9')
            ++place_;
    }

    StoreValue number()
    {
        const qsizetype begin = place_;
        if (here() == u'-' || here() == u'+') ++place_;
        const qsizetype digits = place_;
        takeDigits();
        if (place_ == digits) raise(u"a number or a quoted text was expected"_s, begin);
        if (here() == u'.') {
            ++place_;
            takeDigits();
        }
        const QString text = text_.mid(begin, place_ - begin);
        bool whole = false;
        bool valid = false;
        const qint64 exact = text.toLongLong(&whole);
        const double real = text.toDouble(&valid);
        if (!valid || here().isLetterOrNumber() || here() == u'_' || here() == u'.')
            raise(u"this is no number"_s, begin);
        return whole ? StoreValue(exact) : StoreValue(real);
    }

    const QString &text_;
    const FieldSql &fieldSql_;
    SelectionCondition condition_;
    qsizetype place_ = 0;
    int depth_ = 0;
};
} // namespace

SelectionCondition compileSelection(const QString &formula, const FieldSql &fieldSql)
{
    return Parser(formula, fieldSql).whole();
}
