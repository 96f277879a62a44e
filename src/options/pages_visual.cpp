#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "options/limits.h"
#include "options/page.h"
#include "plot/shown.h"
#include "plot/spaceplot.h"
#include "plot/window.h"

/// How an X-Y plot shows the sets: kind of plot, curves, scales, and the view of space.

namespace {

using S = Session;

bool onxyside() { return session.progSide != lifeSide; }

// ---- kind of curve ----

struct CurveName {
    char kind;
    Label name;
};
constexpr CurveName curveNames[] = {
    {pointCurve, {Word::Point}}, {lineCurve, {Word::Line}}, {mixedCurve, {Word::Point, "+", Word::Line}}};

const CurveName& nameofcurve(int k) {
    const char kind = curvekindof(k);
    return *std::find_if(std::begin(curveNames), std::end(curveNames),
                         [kind](const CurveName& one) { return one.kind == kind; });
}

void appendcurve(std::string& text, int k) { append(text, nameofcurve(k).name); }

bool samecurves() {
    for (int k = 2; k <= setcount(); ++k)
        if (curvekindof(k) != curvekindof(1)) return false;
    return true;
}

/// The kind that all sets have; where they differ, none.
void appendcurves(std::string& text) {
    if (samecurves())
        appendcurve(text, 1);
    else
        text += "...";
}

bool takecurve(int k, char kind) {
    if (curvekindof(k) == kind) return false;
    session.curveType(k).assign(1, kind);
    return true;
}

/// The sets and all of them together; a choice turns the kind of one over to the next.
bool choosecurves() {
    bool changed = false;
    for (;;) {
        std::vector<std::string> names;
        for (int k = 0; k <= setcount(); ++k) {
            std::string& name = names.emplace_back();
            if (k == 0)
                extend(name, Word::All, " = ");
            else
                extend(name, Word::Set, " ", k, " = ");
            if (k == 0)
                appendcurves(name);
            else
                appendcurve(name, k);
            wordclean(name);
        }
        const int chosen = choosefrom({Word::Curve, Word::Type}, names);
        if (chosen < 0) return changed;
        const auto at = &nameofcurve(std::max(chosen, 1)) - curveNames;
        const char next = curveNames[static_cast<std::size_t>(at + 1) % std::size(curveNames)].kind;
        for (int k = 1; k <= setcount(); ++k)
            if (chosen == 0 || k == chosen) changed = takecurve(k, next) || changed;
    }
}

bool anysets() { return onxyside() && setcount() > 0; }

// ---- kind of plot ----

struct KindName {
    PlotKind kind;
    Label name;
};
constexpr KindName kindNames[] = {
    {barsStacked, {Word::Bar, Word::Stacked}},
    {barsSideBySide, {Word::Bar, Word::Side, "-", Word::By, "-", Word::Side}},
    {bars3D, {Word::Bar, "3D"}},
    {pie2D, {Word::Pie, "2D"}},
    {pie3D, {Word::Pie, "3D"}},
    {spacePlot, {"XYZ 3D"}},
};

void appendkind(std::string& text) {
    const auto found = std::find_if(std::begin(kindNames), std::end(kindNames),
                                    [](const KindName& one) { return session.plotKind == one.kind; });
    if (found == std::end(kindNames))
        text += "XY";
    else
        append(text, found->name);
}

constexpr PlaceOf kind = placeof<&S::plotKind>;

constexpr Item kindItems[] = {
    pickitem('X', {"XY 2D", "[", Word::Standard, "]"}, kind, xyPlot),
    pickitem('A', kindNames[0].name, kind, barsStacked),
    pickitem('D', kindNames[1].name, kind, barsSideBySide),
    pickitem('E', kindNames[2].name, kind, bars3D),
    pickitem('F', kindNames[3].name, kind, pie2D),
    pickitem('G', kindNames[4].name, kind, pie3D),
    pageitem('Z', kindNames[5].name, OptionPage::plot3D).when(haszvalues),
};

// ---- scales ----

struct ScaleName {
    float pair;
    Label name;
};
constexpr ScaleName scaleNames[] = {{0, {Word::Linear}},        {3, {Word::Log, "-", Word::Log}},
                                    {1, {Word::Log, "-", "X"}}, {2, {Word::Log, "-", "Y"}},
                                    {5, {"Arrhenius-X"}},       {4, {"Arrhenius-Y"}}};

void appendscale(std::string& text) {
    const auto found = std::find_if(std::begin(scaleNames), std::end(scaleNames),
                                    [](const ScaleName& one) { return session.xyscale == one.pair; });
    append(text, found == std::end(scaleNames) ? scaleNames[0].name : found->name);
}

template <int Pair>
bool scaleinforce() {
    return static_cast<int>(session.xyscale) == Pair;
}

/// A limit at or below zero has no place on a logarithmic or reciprocal axis: the zoom is left.
bool limitslost() {
    const auto lost = [](double limit, bool (*hasplace)(double)) { return limit != 0 && !hasplace(limit); };
    return lost(session.xLimitLow, hasplotx) || lost(session.xLimitHigh, hasplotx)
           || lost(session.yLimitLow, hasploty) || lost(session.yLimitHigh, hasploty);
}

template <int Pair>
bool takescale() {
    if (scaleinforce<Pair>()) return false;
    session.xyscale = Pair;
    if (limitslost()) LOCKZOOMOUT();
    return true;
}
template <int Pair>
constexpr Item scaleitem(char letter, Label label) {
    return pickitem(letter, label, scaleinforce<Pair>, takescale<Pair>);
}

constexpr Item scaleItems[] = {
    scaleitem<0>('S', {Word::Standard, Word::Linear, "...", Word::No, Word::Log}),
    scaleitem<3>('L', {Word::Log, "-", Word::Log, "... X-", Word::PlotScale, Word::Log, ", Y-",
                       Word::PlotScale, Word::Log}),
    scaleitem<1>('M', {Word::Log, "-X ... Y-", Word::PlotScale, Word::Linear}),
    scaleitem<2>('N', {Word::Log, "-Y ... X-", Word::PlotScale, Word::Linear}),
    scaleitem<5>('X', {"Arrhenius-X ... X-", Word::PlotScale, " -1/X, Y-", Word::PlotScale, Word::Log}),
    scaleitem<4>('Y', {"Arrhenius-Y ... Y-", Word::PlotScale, " -1/Y, X-", Word::PlotScale, Word::Log}),
};

constexpr Item curveAndScaleItems[] = {
    actionitem('C',
               {Word::Curve, Word::Type, Word::For, "XY", Word::Plot, "(", Word::Point, "/", Word::Line, ")"},
               choosecurves)
        .shows(appendcurves)
        .when(anysets),
    pageitem('P', {Word::Plot, Word::Type}, OptionPage::plotKind).shows(appendkind).when(onxyside),
    pageitem('S', {Word::PlotScale, Word::Type, Word::For, "XY", Word::Plot}, OptionPage::scaleKind)
        .shows(appendscale)
        .when(onxyside),
    exititem('X', {Word::Exit}),
};

// ---- the view of space ----

struct SpaceLimit {
    Label lead;
    double Session::*low;
    double Session::*high;
    bool lower;
    double& end() const { return session.*(lower ? low : high); }
};
constexpr SpaceLimit spaceLimits[] = {
    {{"X-", Word::Lower, Word::Limit}, &S::xLimitLow, &S::xLimitHigh, true},
    {{"X-", Word::Upper, Word::Limit}, &S::xLimitLow, &S::xLimitHigh, false},
    {{"Z-", Word::Lower, Word::Limit}, &S::zLimitLow, &S::zLimitHigh, true},
    {{"Z-", Word::Upper, Word::Limit}, &S::zLimitLow, &S::zLimitHigh, false},
};

template <std::size_t Which>
bool asklimit() {
    const SpaceLimit& limit = spaceLimits[Which];
    double value = limit.end();
    if (!askaxislimit(limit.lead, LimitAxis::x, value)) return false;
    if (limit.lower ? limitscross(value, session.*limit.high) : limitscross(session.*limit.low, value)) {
        tell(Word::Lower, " >= ", Word::Upper);
        return false;
    }
    return std::exchange(limit.end(), value) != value;
}
template <std::size_t Which>
void appendlimit(std::string& text) {
    appendaxislimit(text, LimitAxis::x, spaceLimits[Which].end());
}
template <std::size_t Which>
constexpr Item limititem(char letter) {
    return actionitem(letter, spaceLimits[Which].lead, asklimit<Which>).shows(appendlimit<Which>);
}

bool showspace() {
    const bool changed = session.plotKind != spacePlot;
    session.plotKind = spacePlot;
    return changed;
}

constexpr Item spaceItems[] = {
    acceptitem('A', {Word::Display, "3D", Word::Plot}, showspace),
    limititem<0>('H'),
    limititem<1>('I'),
    limititem<2>('J'),
    limititem<3>('K'),
    numberitem('R', {"Z-", Word::Range, Word::Limit, "(", Word::Maximum, "-", Word::Lower, ")"},
               placeof<&S::rangeLimit>, 0, noHighLimit)
        .shows([](std::string& text) {
            if (session.rangeLimit > 0)
                appendshown(text, session.rangeLimit, 12);
            else
                append(text, Word::No);
        }),
    wholeitem('T', {Word::Rotation, Word::Angle}, placeof<&S::viewTurn>, 0, 90),
    wholeitem('V', {Word::View, Word::Angle}, placeof<&S::viewTilt>, 0, 90),
    exititem('X', {Word::Exit}),
};

constexpr PlaceOf spacePlaces[] = {placeof<&S::xLimitLow>, placeof<&S::xLimitHigh>, placeof<&S::zLimitLow>,
                                   placeof<&S::zLimitHigh>};

constexpr Page pages[] = {
    {OptionPage::curveAndScale, {Word::Curve, Word::And, Word::PlotScale, Word::Type}, curveAndScaleItems},
    {.page = OptionPage::scaleKind,
     .title = {Word::PlotScale, Word::Type},
     .items = scaleItems,
     .list = true},
    {.page = OptionPage::plotKind, .title = {Word::Plot, Word::Type}, .items = kindItems, .list = true},
    {.page = OptionPage::plot3D, .title = {"3D", Word::Plot}, .items = spaceItems, .also = spacePlaces},
};

} // namespace

std::span<const Page> visualpages() { return pages; }
