#include "platform/report/TextWidth.h"

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

int letterWidth(char32_t letter)
{
    if (letter < 0x300) return 1;
    const QChar::Category category = QChar::category(letter);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
        category == QChar::Other_Format)
        return 0;
    return std::any_of(doubleWidth.begin(), doubleWidth.end(),
                       [letter](const Range &range) { return letter >= range.first && letter <= range.last; })
               ? 2
               : 1;
}

// Walks over the letters, of which those outside of the first plane take two places in the text.
struct Letter {
    Letter(QStringView text, qsizetype at)
    {
        const bool pair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        places = pair ? 2 : 1;
        width = letterWidth(pair ? QChar::surrogateToUcs4(text[at], text[at + 1]) : text[at].unicode());
    }
    qsizetype places;
    int width;
};

int lineWidth(QStringView line)
{
    int width = 0;
    for (qsizetype i = 0; i < line.size();) {
        const Letter letter(line, i);
        width += letter.width;
        i += letter.places;
    }
    return width;
}

// Where the line breaks at the latest: behind its last blank that fits, or in the middle of a word without
// one.
qsizetype breakOf(QStringView line, int width)
{
    qsizetype blank = 0;
    int used = 0;
    for (qsizetype i = 0; i < line.size();) {
        const Letter letter(line, i);
        used += letter.width;
        if (used > width && !line[i].isSpace())
            return blank > 0 ? blank : std::max<qsizetype>(i, letter.places);
        i += letter.places;
        if (line[i - 1].isSpace()) blank = i;
    }
    return line.size();
}
} // namespace

int textWidth(QStringView text)
{
    int width = 0;
    for (const QStringView line : text.tokenize(u'\n'))
        width = std::max(width, lineWidth(line));
    return width;
}

QStringList wrappedLines(const QString &text, int width)
{
    QStringList lines;
    for (QStringView line : QStringView(text).tokenize(u'\n')) {
        do {
            const qsizetype end = breakOf(line, width);
            lines << line.first(end).toString();
            line = line.sliced(end);
        } while (!line.isEmpty());
    }
    return lines;
}
