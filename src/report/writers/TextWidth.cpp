#include "report/writers/TextWidth.h"

#include <algorithm>
#include <array>

namespace
{
struct Range {
    char32_t first, last;
};
constexpr std::array doubleWidth{
    Range{0x1100, 0x115F},   Range{0x2E80, 0x303E},   Range{0x3041, 0xA4CF}, Range{0xAC00, 0xD7A3},
    Range{0xF900, 0xFAFF},   Range{0xFE30, 0xFE6F},   Range{0xFF00, 0xFF60}, Range{0xFFE0, 0xFFE6},
    Range{0x1F300, 0x1FAFF}, Range{0x20000, 0x3FFFD},
};

bool standsAlone(char32_t letter)
{
    if (letter < 0x300) return true;
    const QChar::Category category = QChar::category(letter);
    return category != QChar::Mark_NonSpacing && category != QChar::Mark_Enclosing &&
           category != QChar::Other_Format;
}

double placesOf(char32_t letter)
{
    return std::any_of(doubleWidth.begin(), doubleWidth.end(),
                       [letter](const Range &range) { return letter >= range.first && letter <= range.last; })
               ? 2
               : 1;
}

QStringView withoutBlanksAtEnd(QStringView line)
{
    while (!line.isEmpty() && line.back().isSpace())
        line.chop(1);
    return line;
}

const TextMeasure &equalLetters()
{
    static const TextMeasure measure;
    return measure;
}
} // namespace

// Walks over the letters, of which those outside of the first plane take two places in the text.
struct TextMeasure::Letter {
    Letter(const TextMeasure &measure, QStringView text, qsizetype at)
    {
        const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        places = pair ? 2 : 1;
        width = measure.letterWidth(pair ? QChar::surrogateToUcs4(text[at], text[at + 1])
                                         : char32_t{text[at].unicode()});
    }
    qsizetype places;
    double width;
};

TextMeasure::TextMeasure(const QFont &font) : font_(font) {}

double TextMeasure::letterWidth(char32_t letter) const
{
    if (LetterWidths::holds(letter)) return near_.of(letter, [&] { return measured(letter); });
    const auto known = far_.find(letter);
    return known != far_.end() ? known->second : far_.emplace(letter, measured(letter)).first->second;
}

double TextMeasure::measured(char32_t letter) const
{
    if (!standsAlone(letter)) return 0;
    return font_ ? font_->horizontalAdvance(QString::fromUcs4(&letter, 1)) : placesOf(letter);
}

double TextMeasure::width(QStringView text) const
{
    double widest = 0;
    for (const QStringView line : text.tokenize(u'\n')) {
        double width = 0;
        for (qsizetype i = 0; i < line.size();) {
            const Letter letter(*this, line, i);
            width += letter.width;
            i += letter.places;
        }
        widest = std::max(widest, width);
    }
    return widest;
}

double TextMeasure::widestWord(QStringView text) const
{
    double widest = 0, width = 0;
    for (qsizetype i = 0; i < text.size();) {
        const Letter letter(*this, text, i);
        width = text[i].isSpace() ? 0 : width + letter.width;
        widest = std::max(widest, width);
        i += letter.places;
    }
    return widest;
}

// Where the line breaks at the latest: behind its last blank that fits, or in the middle of a word without
// one.
qsizetype TextMeasure::breakOf(QStringView line, double width) const
{
    qsizetype blank = 0;
    double used = 0;
    for (qsizetype i = 0; i < line.size();) {
        const Letter letter(*this, line, i);
        used += letter.width;
        if (used > width && !line[i].isSpace())
            return blank > 0 ? blank : std::max<qsizetype>(i, letter.places);
        i += letter.places;
        if (line[i - 1].isSpace()) blank = i;
    }
    return line.size();
}

QStringList TextMeasure::lines(const QString &text, double width) const
{
    QStringList lines;
    for (QStringView line : QStringView(text).tokenize(u'\n')) {
        do {
            const qsizetype end = breakOf(line, width);
            lines << withoutBlanksAtEnd(line.first(end)).toString();
            line = line.sliced(end);
        } while (!line.isEmpty());
    }
    return lines;
}

int textWidth(QStringView text) { return static_cast<int>(equalLetters().width(text)); }

QStringList wrappedLines(const QString &text, int width) { return equalLetters().lines(text, width); }

QString untabbed(QString text) { return text.replace(u'\t', u' '); }
