// The widths of the letters of one font that stand alone and never join: Latin, Greek, Cyrillic. Each is
// measured when it is first met: texts are made of few letters, and asking the font takes a hundred times as
// long.
#pragma once

#include <array>

class LetterWidths
{
public:
    LetterWidths() { widths_.fill(unknown); }

    static constexpr bool holds(char32_t letter) { return letter < letters; }

    // Of a letter that it holds. The work measures it.
    template<class Work> double of(char32_t letter, const Work &measured)
    {
        double &width = widths_[letter];
        if (width == unknown) width = measured();
        return width;
    }

private:
    static constexpr double unknown = -1;
    static constexpr char32_t letters = 0x530;
    std::array<double, letters> widths_;
};
