#include "shell/numberentry.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "session/session.h"
#include "shell/prompttext.h"

namespace {

constexpr int16_t doubleKind = 1;
constexpr int mostSingle = 29;
constexpr int mostDouble = 299;
constexpr int repeatsBeforeDoubling = 10;

/// Ten to a whole exponent, correctly rounded: a power routine may be off by a digit.
double tento(int exponent) {
    char text[8] = {'1', 'e'};
    const auto end = std::to_chars(text + 2, text + sizeof text, exponent).ptr;
    double value = 1;
    std::from_chars(text, end, value);
    return value;
}

} // namespace

double incrementstep() {
    const int most = session.promptKind == doubleKind ? mostDouble : mostSingle;
    if (std::abs(int{session.incrementExp}) > most) session.incrementExp = 0;
    const double step = tento(session.incrementExp);
    session.increment = sngguard(step);
    return step;
}

void incrementchange(int by) {
    session.incrementExp = static_cast<int16_t>(std::clamp(session.incrementExp + by, -400, 400));
    incrementstep();
}

std::string incrementline() {
    std::string step;
    appendtrimmed(step, incrementstep());
    wordnumber(step);
    std::string line;
    extend(line, Word::Change, " ", Word::Increment, " = ", AsTyped{step});
    wordclean(line);
    return line;
}

std::string numberstepped(std::string_view entry, int direction, int held) {
    constexpr int digitsOfDouble = 15;
    std::string text(entry);
    wordnumberback(text);
    const double step = incrementstep() * (held >= repeatsBeforeDoubling ? 2 : 1);
    const double value = readentry(text).value + direction * step;
    text.clear();
    // The digits beyond the type's own would show the rounding of the sum.
    if (session.promptKind == doubleKind)
        appendsignificant(text, value, digitsOfDouble);
    else
        appendtrimmed(text, static_cast<float>(std::fabs(value) <= noHighLimit ? value : sngguard(value)));
    wordnumber(text);
    return text;
}
