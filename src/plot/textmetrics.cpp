#include "plot/textmetrics.h"

#include "data/utf8.h"

namespace {

/// Advance widths of " " to "~": DejaVu Sans 2.37, table hmtx, scaled from 2048 to 1000 units to the em.
constexpr short asciiAdvance[95] = {
    318,  401, 460, 838, 636, 950, 780, 275, 390, 390, 500, 838, 318, 361, 318, 337, //  !"#$%&'()*+,-./
    636,  636, 636, 636, 636, 636, 636, 636, 636, 636, 337, 337, 838, 838, 838, 531, // 0123456789:;<=>?
    1000, 684, 686, 698, 770, 632, 575, 775, 752, 295, 295, 656, 557, 863, 748, 787, // @ABCDEFGHIJKLMNO
    603,  787, 695, 635, 611, 732, 684, 989, 685, 611, 685, 390, 337, 390, 838, 500, // PQRSTUVWXYZ[\]^_
    500,  613, 635, 550, 635, 615, 352, 635, 634, 278, 278, 579, 278, 974, 634, 612, // `abcdefghijklmno
    635,  635, 411, 521, 392, 634, 592, 818, 592, 592, 525, 636, 337, 636, 838};     // pqrstuvwxyz{|}~

constexpr int otherAdvance = 600;
constexpr int wideAdvance = 1000;

struct Range {
    char32_t first, last;
    int advance;
};

/// Combining marks by the Unicode blocks of that name, wide characters by Unicode Standard Annex 11. The
/// first range that holds a character counts.
constexpr Range ranges[] = {
    {0x0300, 0x036F, 0},
    {0x1AB0, 0x1AFF, 0},
    {0x1DC0, 0x1DFF, 0},
    {0x20D0, 0x20FF, 0},
    {0x302A, 0x302F, 0},
    {0x3099, 0x309A, 0},
    {0xFE20, 0xFE2F, 0},
    {0x1100, 0x115F, wideAdvance},   // Hangul initials
    {0x2E80, 0x303E, wideAdvance},   // CJK radicals and punctuation
    {0x3041, 0x33FF, wideAdvance},   // kana, Hangul compatibility, CJK compatibility
    {0x3400, 0x4DBF, wideAdvance},   // CJK extension A
    {0x4E00, 0xA4CF, wideAdvance},   // CJK ideographs, Yi
    {0xA960, 0xA97F, wideAdvance},   // Hangul initials, extended
    {0xAC00, 0xD7A3, wideAdvance},   // Hangul syllables
    {0xF900, 0xFAFF, wideAdvance},   // CJK compatibility ideographs
    {0xFE30, 0xFE6F, wideAdvance},   // vertical and small forms
    {0xFF01, 0xFF60, wideAdvance},   // fullwidth forms
    {0xFFE0, 0xFFE6, wideAdvance},   // fullwidth signs
    {0x20000, 0x3FFFD, wideAdvance}, // CJK extensions B and on
};

int characteradvance(char32_t character) {
    if (character >= ' ' && character <= '~') return asciiAdvance[character - ' '];
    for (const Range& range : ranges)
        if (character >= range.first && character <= range.last) return range.advance;
    return otherAdvance;
}

} // namespace

int textadvance(std::string_view text) {
    int advance = 0;
    while (!text.empty()) advance += characteradvance(takecharacter(text));
    return advance;
}
