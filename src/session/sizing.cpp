#include "session/sizing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr float fewestPoints = 35;
constexpr double largestExponent = 10;

void tellshortage() {
    compose(session.msg, Word::Not, " ", Word::Enough, " ", Word::Free, " ", Word::Memory, " ", Word::Setup,
            " ", Word::Change, " ", Word::Possible, "?");
    tellok();
}

/// What the user chose of the sets.
class SetChoices {
public:
    SetChoices() {
        for (int k = 1; k <= static_cast<int>(session.maxSets); ++k)
            sets.push_back({session.FITKIND(k), session.lineHide(k), session.curveType(k), session.t0(k)});
    }
    void putback() const {
        for (std::size_t i = 0; i < sets.size() && static_cast<float>(i) < session.maxSets; ++i) {
            const int k = static_cast<int>(i) + 1;
            session.FITKIND(k) = sets[i].fitKind;
            session.lineHide(k) = sets[i].hidden;
            session.curveType(k) = sets[i].curve;
            session.t0(k) = sets[i].threshold;
        }
    }

private:
    struct Choice {
        int16_t fitKind, hidden;
        std::string curve;
        float threshold;
    };
    std::vector<Choice> sets;
};

} // namespace

float pointswanted() { return std::floor(arraybudget() / session.maxRowsBase); }

bool sizearrays() {
    session.budgetShare = 1;
    session.sizeExponent = std::clamp<int16_t>(session.sizeExponent, 1, 10);
    while (pointswanted() >= fewestPoints) {
        if (allocatearrays()) return true;
        if (session.sizeExponent > 0) {
            --session.sizeExponent;
            tellshortage();
        } else {
            session.budgetShare /= 2;
        }
    }
    tellshortage();
    session.maxPoints = 0;
    return false;
}

void raisefor(double sets, double points) {
    const double wanted = sets * points * static_cast<double>(session.sg);
    const double present = static_cast<double>(session.maxRowsBase) * static_cast<double>(pointswanted());
    const double steps = wanted >= present ? std::floor(std::log2(wanted / present) + 1) : 0;
    session.sizeExponent =
        static_cast<int16_t>(std::min(largestExponent, static_cast<double>(session.sizeExponent) + steps));
    // Few sets of many points are a small product; each set needs its room all the same.
    while (static_cast<double>(pointswanted()) < points && session.sizeExponent < 10) ++session.sizeExponent;
}

bool roomfor(std::size_t cells) {
    const auto wanted = static_cast<double>(cells);
    if (static_cast<double>(session.maxPoints) >= wanted) return true;
    while (static_cast<double>(pointswanted()) < wanted && session.sizeExponent < 10) ++session.sizeExponent;
    const SetChoices choices;
    if (!sizearrays()) return false;
    choices.putback();
    return true;
}
