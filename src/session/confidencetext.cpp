#include "session/confidencetext.h"

#include <cctype>
#include <cmath>
#include <string>

#include "data/numbertext.h"
#include "session/session.h"

namespace {

constexpr double usualLevel = 90;
constexpr double most = normalTheoryBounds; ///< method number

/// A group of the text: a letter and the number behind it.
struct Group {
    char letter;
    bool valued = false;
    double value = 0;
};

/// Takes the first group off the text.
std::optional<Group> nextgroup(std::string_view& text) {
    Group group{static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())))};
    text.remove_prefix(1);
    std::size_t length = 0;
    while (length < text.size()
           && (std::isdigit(static_cast<unsigned char>(text[length])) || text[length] == '.'
               || (length == 0 && (text[length] == '-' || text[length] == '='))))
        ++length;
    std::string_view digits = text.substr(0, length);
    if (digits.starts_with('=')) digits.remove_prefix(1);
    if (!digits.empty()) {
        const NumberText number = readnumber(digits);
        if (!number.readable) return std::nullopt;
        group.valued = true;
        group.value = number.value;
    }
    text.remove_prefix(length);
    return group;
}

/// Takes a level of one of the sides. False when it is none.
bool takelevel(ConfidenceChoice& choice, const Group& group) {
    const double level = group.valued ? group.value : usualLevel;
    const bool twoSided = group.letter == 'D';
    if (!(level > (twoSided ? 0 : 50) - 1e-9) || !(level > 0) || !(level < 100)) return false;
    const double outside = twoSided ? (100 - level) / 2 : 100 - level;
    choice.low = group.letter == 'U' ? 0 : outside;
    choice.high = group.letter == 'L' ? 0 : 100 - outside;
    return true;
}

bool take(ConfidenceChoice& choice, const Group& group) {
    switch (group.letter) {
    case 'M':
        if (!group.valued || std::fabs(group.value) > most || group.value != std::floor(group.value))
            return false;
        choice.method = static_cast<int16_t>(group.value);
        choice.automatic = false;
        return true;
    case 'T': choice.threshold = group.value; return group.valued;
    case 'L':
    case 'D':
    case 'U':
    case 'A': return takelevel(choice, group);
    default: return false;
    }
}

} // namespace

std::optional<ConfidenceChoice> confidenceof(std::string_view text) {
    ConfidenceChoice choice;
    choice.automatic = true;
    while (!text.empty()) {
        if (text.front() == ' ' || text.front() == '_' || text.front() == ',') {
            text.remove_prefix(1);
            continue;
        }
        const auto group = nextgroup(text);
        if (!group || !take(choice, *group)) return std::nullopt;
    }
    // A method without a level, or a level without a method, still asks for bounds.
    const bool sided = choice.low > 0 || choice.high > 0;
    if (choice.method != noBounds && !sided) choice.low = (100 - usualLevel) / 2;
    if (choice.method != noBounds && !sided) choice.high = 100 - choice.low;
    if (!sided) choice.automatic = false;
    return choice;
}
