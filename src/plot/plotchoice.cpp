#include "plot/plotchoice.h"

#include <algorithm>
#include <iterator>

#include "session/session.h"

namespace {

struct KindName {
    std::string_view name;
    PlotKind kind;
    char curve; ///< kind of curve of every set
};
constexpr KindName kindNames[] = {{"xy", xyPlot, pointCurve},           {"line", xyPlot, lineCurve},
                                  {"mixed", xyPlot, mixedCurve},        {"bars", barsSideBySide, pointCurve},
                                  {"stacked", barsStacked, pointCurve}, {"bars3d", bars3D, pointCurve},
                                  {"pie", pie2D, pointCurve},           {"pie3d", pie3D, pointCurve},
                                  {"space", spacePlot, pointCurve}};

struct ScaleName {
    std::string_view name;
    float pair; ///< xyscale
};
constexpr ScaleName scaleNames[] = {{"linear", 0}, {"loglog", 3},      {"logx", 1},
                                    {"logy", 2},   {"arrhenius-x", 5}, {"arrhenius-y", 4}};

template <class Names>
auto* named(const Names& names, std::string_view name) {
    const auto found = std::find_if(std::begin(names), std::end(names),
                                    [name](const auto& one) { return one.name == name; });
    return found == std::end(names) ? nullptr : found;
}

template <class Names>
std::string listed(const Names& names) {
    std::string list;
    for (const auto& one : names) (list += list.empty() ? "" : " ") += one.name;
    return list;
}

} // namespace

bool isplotkind(std::string_view name) { return named(kindNames, name) != nullptr; }
bool isplotscale(std::string_view name) { return named(scaleNames, name) != nullptr; }

bool takeplotkind(std::string_view name) {
    const KindName* const one = named(kindNames, name);
    if (!one) return false;
    session.plotKind = one->kind;
    for (int k = 1; k <= static_cast<int>(session.maxSets); ++k) session.curveType(k).assign(1, one->curve);
    return true;
}

bool takeplotscale(std::string_view name) {
    const ScaleName* const one = named(scaleNames, name);
    if (one) session.xyscale = one->pair;
    return one != nullptr;
}

std::string plotkindnames() { return listed(kindNames); }
std::string plotscalenames() { return listed(scaleNames); }
