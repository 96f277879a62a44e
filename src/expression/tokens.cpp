#include "expression/tokens.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "data/textpieces.h"
#include "expression/rules.h"
#include "numeric/matherror.h"
#include "session/expressionstate.h"

namespace {

using enum TokenKind;
constexpr int divisionFault = 11; ///< a remainder of a division by 0

constexpr Token list[] = {
    {0, "", "00", number},
    {1, "x", "VA", operand},
    {2, "y", "VB", operand},
    {3, "pi", "CP", operand},
    {4, "phi", "CG", operand},
    {5, "xL", "VL", operand},
    {6, "yL", "Vl", operand},
    {7, "j", "Cj", operand},
    {8, "n", "Cn", operand},
    {11, "+", "O+", additive, nullptr, sumrule},
    {12, "-", "O-", additive, nullptr, differencerule},
    {13, "*", "O*", multiplicative, nullptr, productrule},
    {14, "/", "O/", multiplicative, nullptr, quotientrule},
    {15, "att", "OT", multiplicative, nullptr, anglerule},
    {16, "max", "OH", multiplicative, nullptr, greaterrule},
    {17, "min", "OL", multiplicative, nullptr, lesserrule},
    {18, "mod", "Om", multiplicative, nullptr, remainderrule, divisionFault},
    {19, "^", "O^", power, nullptr, powerrule},
    {20, "ichi^2", "20", multiplicative, nullptr, chisquarerule, inputChecked},
    {41, "abs(", "Fg", function, absrule},
    {42, "atan(", "FA", function, atanrule},
    {43, "cos(", "Ft", function, cosrule},
    {44, "exp(", "FC", function, exprule},
    {45, "int(", "Fe", function, intrule},
    {46, "ln(", "Fi", function, lnrule},
    {47, "sin(", "Fl", function, sinrule},
    {48, "sqr(", "FS", function, sqrrule},
    {49, "tan(", "F2", function, tanrule},
    {50, "csh(", "FT", function, cshrule},
    {51, "ddx(", "FX", memory},
    {52, "f!(", "Fd", function, factorialrule},
    {53, "log(", "Ff", function, logrule},
    {54, "prd(", "FL", memory},
    {55, "Sdx(", "F*", memory},
    {56, "snh(", "FI", function, snhrule},
    {57, "sum(", "FY", memory},
    {58, "tnh(", "F+", function, tnhrule},
    {59, "acos(", "FZ", function, acosrule},
    {60, "asin(", "Fc", function, asinrule},
    {61, "acsh(", "Fs", function, acshrule},
    {62, "asnh(", "Fx", function, asnhrule},
    {63, "atnh(", "Fy", function, atnhrule},
    {64, "sgn(", "Fz", function, sgnrule},
    {65, "PDFn(", "F1", function, pdfnrule},
    {66, "CDFn(", "Fn", function, cdfnrule},
    {67, "PDFw(", "FN", function, pdfwrule},
    {68, "CDFw(", "Fw", function, cdfwrule},
    {69, "PDFx(", "FW", function, pdfxrule},
    {70, "CDFx(", "Fv", function, cdfxrule},
    {71, "gamma(", "FV", function, gammarule, nullptr, inputChecked},
    {72, "C4(", "FG", function, c4rule},
    {73, "PDFl(", "F4", function, pdflrule},
    {74, "CDFl(", "F5", function, cdflrule},
    {88, "(", "L(", open},
    {89, ")", "L)", close},
    {90, "x0", "V0", column},
    {91, "x1", "V1", column},
    {92, "x2", "V2", column},
    {93, "x3", "V3", column},
    {94, "x4", "V4", column},
    {95, "x5", "V5", column},
    {96, "x6", "V6", column},
    {97, "x7", "V7", column},
    {98, "x8", "V8", column},
    {99, "x9", "V9", column},
};

constexpr int codes = 100;

/// Place of each code in the list, from 1; 0 for a code that is no token.
constexpr auto places = [] {
    std::array<uint8_t, codes> found{};
    for (std::size_t i = 0; i < std::size(list); ++i)
        found[static_cast<std::size_t>(list[i].code)] = static_cast<uint8_t>(i + 1);
    return found;
}();

/// What typed text begins with, in the order in which it is tried: an earlier entry hides a later one.
struct Typed {
    std::string_view letters;
    int code;
};
constexpr Typed typedlist[] = {
    {"ICHI^2", 20}, {"MA", 16},   {"MI", 17},   {"MO", 18},   {"ATT", 15},  {"PDFN", 65}, {"CDFN", 66},
    {"PDFW", 67},   {"CDFW", 68}, {"PDFX", 69}, {"CDFX", 70}, {"PDFL", 73}, {"CDFL", 74}, {"ATA", 42},
    {"ACO", 59},    {"ASI", 60},  {"ACS", 61},  {"ASN", 62},  {"ATN", 63},  {"GAM", 71},  {"PI", 3},
    {"PH", 4},      {"XL", 5},    {"YL", 6},    {"AB", 41},   {"CO", 43},   {"EX", 44},   {"IN", 45},
    {"LN", 46},     {"SI", 47},   {"SQ", 48},   {"TA", 49},   {"CS", 50},   {"DD", 51},   {"LO", 53},
    {"PR", 54},     {"C4", 72},   {"SD", 55},   {"SN", 56},   {"SU", 57},   {"TN", 58},   {"SG", 64},
};

} // namespace

std::span<const Token> tokens() { return list; }

const Token* tokenofcode(int code) {
    if (code < 0 || code >= codes) return nullptr;
    const std::size_t place = places[static_cast<std::size_t>(code)];
    return place ? &list[place - 1] : nullptr;
}

const Token* tokenofspelling(std::string_view text) {
    const auto found = std::find_if(std::begin(list), std::end(list),
                                    [&](const Token& token) { return text.starts_with(token.spelling); });
    return found == std::end(list) ? nullptr : found;
}

int codeat(std::string_view fcode, std::size_t at) {
    const auto digit = [](char c) { return c >= '0' && c <= '9'; };
    if (at + 2 > fcode.size() || !digit(fcode[at]) || !digit(fcode[at + 1])) return -1;
    return (fcode[at] - '0') * 10 + (fcode[at + 1] - '0');
}

std::string_view tokentext(const Token& token, int16_t mode) {
    if (oftwosets(mode) && token.code == xToken) return "A";
    if (oftwosets(mode) && token.code == yToken) return "B";
    if (mode < functionY && token.code == yToken) return "k";
    return token.text;
}

const Token* tokenoftyped(std::string_view upper, int16_t mode) {
    const auto begun = std::find_if(std::begin(typedlist), std::end(typedlist),
                                    [&](const Typed& typed) { return upper.starts_with(typed.letters); });
    if (begun != std::end(typedlist)) return tokenofcode(begun->code);
    if (upper == "F!") return tokenofcode(52);
    // What one or two letters name in full: the operands of the row.
    const auto named = std::find_if(std::begin(list), std::end(list), [&](const Token& token) {
        return isoperand(token.kind) && token.kind != number && uppercase(tokentext(token, mode)) == upper;
    });
    return named == std::end(list) ? nullptr : named;
}
