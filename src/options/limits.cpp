#include "options/limits.h"

#include <algorithm>

#include "plot/functionplot.h"

namespace {

/// What a probability axis shows of a failed fraction.
struct AxisUnit {
    const char* name;
    double whole;     ///< what stands for all
    bool reliability; ///< of the survivors
};
constexpr AxisUnit units[] = {{"[%]", 100, false},  {"[%]", 100, true},        {"[0 - 1]", 1, false},
                              {"[0 - 1]", 1, true}, {"[/ 1000]", 1000, false}, {"[/ 1000]", 1000, true}};

/// The unit of an axis; null for a plain one, whose values are the data's.
const AxisUnit* unitof(LimitAxis axis) {
    if (axis == LimitAxis::x || session.plotMode != 1 || functionplotted()) return nullptr;
    const auto kind =
        std::clamp<std::size_t>(static_cast<std::size_t>(session.yScaleKind), 0, std::size(units) - 1);
    return &units[kind];
}

/// A limit as the axis shows it.
double shownlimit(const AxisUnit* unit, double limit) {
    if (!unit || limit == 0) return limit;
    return unit->whole * (unit->reliability ? 1 - limit : limit);
}

double heldlimit(const AxisUnit* unit, double shown) {
    if (!unit || shown == 0) return shown;
    return unit->reliability ? 1 - shown / unit->whole : shown / unit->whole;
}

} // namespace

bool askaxislimit(const Label& lead, LimitAxis axis, double& limit) {
    constexpr double nearlyAll = 0.999999;
    const AxisUnit* const unit = unitof(axis);
    Label full = lead;
    if (unit) full.parts[full.count++] = unit->name;
    for (const LabelPart part : {LabelPart("(0 ="), LabelPart(Word::Automatic), LabelPart(")")})
        full.parts[full.count++] = part;
    const double low = unit ? 0 : noLowLimit;
    const double high = unit ? nearlyAll * unit->whole : static_cast<double>(noHighLimit);
    // The way to the unit and back leaves noise in the last digits: an answer as offered keeps the limit.
    const double preset = std::clamp(asshown(shownlimit(unit, limit), 12), low, high);
    double value = preset;
    if (!asknumberwithin(full, value, low, high)) return false;
    if (value != preset) limit = heldlimit(unit, value);
    return true;
}

void appendaxislimit(std::string& text, LimitAxis axis, double limit) {
    if (limit == 0) {
        append(text, Word::Automatic);
        return;
    }
    const AxisUnit* const unit = unitof(axis);
    appendshown(text, shownlimit(unit, limit), 12);
    if (unit) extend(text, " ", unit->name);
}

bool limitscross(double low, double high) { return low != 0 && high != 0 && low >= high; }
