#include "session/commandline.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "data/numbertext.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

struct Distribution {
    std::string_view name;
    Dist dist;
    int16_t gumbeltype = -1;
    float fixedSlope = 0;
    int16_t negative = 0;
    bool needsSlope = false;
};

/// Longer names stand before those they begin with.
constexpr Distribution distributions[] = {
    {"EXPONENTIAL", weibull, -1, 1},
    {"EXPONEN", weibull, -1, 1},
    {"RAYLEIGH", weibull, -1, 2},
    {"WEIBAYES", weibull, -1, 0, 0, true},
    {"WEIBULL", weibull},
    {"LOGNORMAL", lognormal},
    {"LOGNORM", lognormal},
    {"NORMAL+", normal, -1, 0, 1},
    {"NORMAL", normal},
    {"GAUSSIAN", normal},
    {"GUMBEL+", gumbel, 1},
    {"GUMBEL-", gumbel, -1},
    {"GUMBEL", gumbel, -1},
    {"EXTREME+", gumbel, 1},
    {"EXTREME-", gumbel, -1},
};

/// What -m stands for, from 1.
struct Method {
    float fitMethod;
    float rrSwap;
    int16_t mleVariant;
};
constexpr Method methods[] = {{rankRegression, 0, 0},    {rankRegression, 1, 0},    {maximumLikelihood, 0, 0},
                              {maximumLikelihood, 0, 1}, {maximumLikelihood, 0, 2}, {maximumLikelihood, 0, 3},
                              {maximumLikelihood, 0, 4}, {maximumLikelihood, 0, 5}};

std::string uppercase(std::string text) {
    std::erase(text, ' ');
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::toupper(c); });
    return text;
}

/// A distribution text cut into its family and what stands behind the name.
struct Choice {
    const Distribution* family = nullptr;
    bool threshold = false;
    bool asRecorded = false;
    float slope = 0;
};

/// The number in "(n)"; 0 when there is none above 0.
float slopein(std::string_view text) {
    if (text.size() < 3 || text.front() != '(' || text.back() != ')') return 0;
    const double slope = readnumber(text.substr(1, text.size() - 2)).value;
    return slope > 1e-6 && slope < 1e6 ? static_cast<float>(slope) : 0;
}

/// A choice without a family is a wrong text.
Choice choicein(const std::string& text) {
    const std::string upper = uppercase(text);
    for (const Distribution& family : distributions) {
        if (!upper.starts_with(family.name)) continue;
        const std::string_view rest = std::string_view(upper).substr(family.name.size());
        Choice choice;
        choice.slope = slopein(rest);
        choice.threshold = rest == "3" || rest == "3AR";
        choice.asRecorded = rest == "3AR";
        const bool known = rest.empty() ? !family.needsSlope : choice.threshold || choice.slope > 0;
        const bool logSpreadZero = family.dist == lognormal && choice.slope > 0 && choice.slope <= 1;
        if (known && !logSpreadZero) choice.family = &family;
        return choice;
    }
    return {};
}

/// A whole number from low to high, plain or in parentheses; -1 when the text is anything else.
int numberin(std::string_view text, int low, int high) {
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') text = text.substr(1, text.size() - 2);
    const bool digit = text.size() == 1 && text[0] >= '0' + low && text[0] <= '0' + high;
    return digit ? text[0] - '0' : -1;
}

/// Records one switch; false when its letter or value is wrong.
bool record(char letter, const std::string& value) {
    if (uppercase(value) == "NONE") return std::string_view("pime").find(letter) != std::string_view::npos;
    switch (letter) {
    case 'p':
        session.cmdSide = uppercase(value).starts_with("V") ? visualSide : lifeSide;
        return !value.empty();
    case 'i':
        session.cmdInput = static_cast<int16_t>(numberin(value, standard0, intv5));
        return session.cmdInput >= 0;
    case 'm': session.cmdMethod = static_cast<int16_t>(numberin(value, 1, 8)); return session.cmdMethod > 0;
    case 'e':
        if (!choicein(value).family) return false;
        session.cmdDistribution = value;
        return true;
    default: return false;
    }
}

bool isswitch(std::string_view argument) { return argument.size() >= 2 && argument.front() == '-'; }

} // namespace

bool cmdparse(std::span<const std::string> arguments) {
    std::size_t i = 0;
    if (!arguments.empty() && !isswitch(arguments[0])) session.cmdFile = arguments[i++];
    while (i < arguments.size()) {
        const std::string& argument = arguments[i++];
        if (!isswitch(argument)) {
            compose(session.msg, Word::Unknown, ": ", AsTyped{argument});
            return false;
        }
        std::string value = argument.substr(2);
        // The file may follow the switches: a switch takes one word, and the first word left over is the
        // file.
        if (value.empty() && i < arguments.size() && !isswitch(arguments[i])) value = arguments[i++];
        if (!record(static_cast<char>(std::tolower(static_cast<unsigned char>(argument[1]))), value)) {
            compose(session.msg, Word::Unknown, ": ", AsTyped{argument},
                    argument.size() > 2 || value.empty() ? "" : " ",
                    AsTyped{argument.size() > 2 ? std::string_view() : std::string_view(value)});
            return false;
        }
        while (i < arguments.size() && !isswitch(arguments[i])) {
            if (!session.cmdFile.empty()) {
                compose(session.msg, Word::Unknown, ": ", AsTyped{arguments[i]});
                return false;
            }
            session.cmdFile = arguments[i++];
        }
    }
    return true;
}

void cmdapply() {
    if (session.cmdInput >= 0) session.inputType = session.cmdInput;
    if (session.cmdMethod > 0) {
        const Method& method = methods[session.cmdMethod - 1];
        session.fitMethod = session.fitMethodSaved = method.fitMethod;
        session.rrSwap = method.rrSwap;
        session.mleVariant = method.mleVariant;
    }
    const Choice choice = choicein(session.cmdDistribution);
    if (!choice.family) return;
    session.dist = choice.family->dist;
    session.gumbeltype = choice.family->gumbeltype;
    session.fixedSlope = choice.slope > 0 ? choice.slope : choice.family->fixedSlope;
    if (choice.family->negative == 1) session.negativeXAllowed = 1;
    session.findThreshold = choice.threshold ? 1 : 0;
    session.scaleAsRecorded = choice.asRecorded ? 1 : 0;
}
