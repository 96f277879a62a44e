#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "options/page.h"
#include "shell/prompts.h"

/// Confidence bounds: sides, level, method, simulation, single point.

namespace {

using S = Session;

// ---- sides and level ----

enum class Sides { none, lower, twoSided, upper };

Sides sidesinforce() {
    const bool low = session.confLow > 0;
    const bool high = session.confHigh > 0;
    if (low && high) return Sides::twoSided;
    return low ? Sides::lower : high ? Sides::upper : Sides::none;
}

/// Level in percent of the bounds in force, 90 where there are none: between the sides, or of the one side.
double level() {
    constexpr double usual = 90;
    switch (sidesinforce()) {
    case Sides::lower: return 100 - static_cast<double>(session.confLow);
    case Sides::upper: return session.confHigh;
    case Sides::twoSided: return static_cast<double>(session.confHigh) - static_cast<double>(session.confLow);
    case Sides::none: break;
    }
    return usual;
}

/// Puts sides and level in force: double-sided C has (100 - C) / 2 on each side, either side at its own level
/// C has 100 - C. Bounds that no method was chosen for are made by rule.
bool putlevel(Sides sides, double confidence, bool eachOwn = false) {
    const float lowBefore = session.confLow;
    const float highBefore = session.confHigh;
    const double outside = sides == Sides::twoSided && !eachOwn ? (100 - confidence) / 2 : 100 - confidence;
    session.confLow = sides == Sides::upper ? 0.0f : static_cast<float>(outside);
    session.confHigh = sides == Sides::lower ? 0.0f : static_cast<float>(100 - outside);
    if (session.confMethod == noBounds) session.confAuto = 1;
    return session.confLow != lowBefore || session.confHigh != highBefore;
}

constexpr double mostConfidence = 99.99;

/// Level that a question for bounds opens with. Where each side has its own, it is that of the lower side.
double presetlevel(bool eachOwn) {
    const bool low = eachOwn && session.confLow > 0;
    return asshown(low ? 100 - static_cast<double>(session.confLow) : level(), 7);
}

/// A single-sided level below 50 would be one of the other side. Sides that differ stay by the answer that
/// was offered.
bool asklevel(Sides sides, bool eachOwn = false) {
    const double least = sides == Sides::twoSided && !eachOwn ? 0.01 : 50;
    const double preset = std::clamp(presetlevel(eachOwn), least, mostConfidence);
    double value = preset;
    if (!asknumberwithin({Word::Confidence, "%"}, value, least, mostConfidence)) return false;
    if (eachOwn && value == preset && sidesinforce() == sides) return false;
    return putlevel(sides, value, eachOwn);
}

/// A level of one side; where both are in force each keeps its place, at that level of its own.
bool asksidelevel() {
    const Sides sides = sidesinforce();
    return asklevel(sides == Sides::none ? Sides::lower : sides, sides == Sides::twoSided);
}

bool isdouble() { return sidesinforce() == Sides::twoSided; }

constexpr Item kindItems[] = {
    pickitem(
        'L', {Word::Lower}, [] { return sidesinforce() == Sides::lower; },
        [] { return asklevel(Sides::lower); }),
    pickitem('D', {Word::Double}, isdouble, [] { return asklevel(Sides::twoSided); }),
    pickitem(
        'U', {Word::Upper}, [] { return sidesinforce() == Sides::upper; },
        [] { return asklevel(Sides::upper); }),
    pickitem(
        'A', {Word::Lower, "+", Word::Upper, ":", Word::Each, Word::Single, Word::Side}, [] { return false; },
        [] { return asklevel(Sides::twoSided, true); }),
};

void appendlevel(std::string& text) {
    switch (sidesinforce()) {
    case Sides::none: append(text, Word::None); return;
    case Sides::lower: append(text, Word::Lower); break;
    case Sides::twoSided: append(text, Word::Double); break;
    case Sides::upper: append(text, Word::Upper); break;
    }
    text += ' ';
    appendshown(text, level(), 6);
    text += " %";
}

// ---- method ----

struct BoundName {
    int16_t method;
    const char* code;
    Label name;
};
constexpr BoundName boundNames[] = {
    {binomialBounds, "bi", {Word::Binomial, Word::Each, Word::Point}},
    {fisherBounds, "fm", {"Fisher", Word::Matrix}},
    {likelihoodBounds, "lr", {Word::Likelihood, Word::Ratio}},
    {simulationBounds, "mc", {"Monte Carlo"}},
    {pivotalBounds, "pv", {"Monte Carlo", Word::Pivotal}},
    {normalTheoryBounds, "nr", {Word::Normal}},
};

const BoundName* boundname() {
    const auto* const found =
        std::find_if(std::begin(boundNames), std::end(boundNames),
                     [](const BoundName& one) { return one.method == std::abs(session.confMethod); });
    return found == std::end(boundNames) ? nullptr : found;
}

void appendmethodname(std::string& text) {
    const BoundName* const name = boundname();
    if (session.confAuto == 1)
        append(text, Word::Automatic);
    else if (!name)
        append(text, Word::None);
    else
        extend(text, name->name, " (", name->code, ")");
}

/// The sign asks for a single point and is kept. A method without sides still asks for bounds: 90 percent.
bool putmethod(int16_t method) {
    const int16_t before = session.confMethod;
    const int16_t autoBefore = session.confAuto;
    session.confMethod = before < 0 ? static_cast<int16_t>(-method) : method;
    session.confAuto = 0;
    if (sidesinforce() == Sides::none) putlevel(Sides::twoSided, level());
    return session.confMethod != before || autoBefore != 0;
}

bool listmethods() {
    std::vector<std::string> names;
    int present = -1;
    for (const BoundName& one : boundNames) {
        if (boundname() == &one && session.confAuto == 0) present = static_cast<int>(names.size());
        std::string& name = names.emplace_back();
        compose(name, one.name, " (", one.code, ")");
        wordclean(name);
    }
    const int chosen = choosefrom({Word::Confidence, Word::Method}, names, present);
    return chosen >= 0 && putmethod(boundNames[chosen].method);
}

bool flipautomatic() {
    session.confAuto = session.confAuto == 1 ? 0 : 1;
    if (session.confAuto == 1 && sidesinforce() == Sides::none) putlevel(Sides::twoSided, level());
    return true;
}

bool nobounds() {
    const bool changed = session.confMethod != noBounds || session.confAuto != 0 || session.confLow != 0
                         || session.confHigh != 0;
    session.confMethod = noBounds;
    session.confAuto = 0;
    session.confLow = session.confHigh = 0;
    return changed;
}

bool bysimulation() {
    const int method = std::abs(session.confMethod);
    return session.confAuto == 1 || method == simulationBounds || method == pivotalBounds;
}

void appendstart(std::string& text) {
    if (session.rndStart == 0) {
        append(text, Word::Variable);
        return;
    }
    append(text, Word::Lock);
    text += " # ";
    appendshown(text, static_cast<double>(session.rndStart), 7);
}

constexpr Item confidenceItems[] = {
    acceptitem('A', {Word::Activate}),
    pageitem('C', {Word::Type, "/", Word::Value, "[%]"}, OptionPage::limitKind).shows(appendlevel),
    actionitem('D', {Word::Input, Word::Value, Word::As, Word::Double, "-", Word::Side},
               [] { return asklevel(Sides::twoSided); }),
    actionitem('E', {Word::Input, Word::Value, Word::As, Word::Single, "-", Word::Side}, asksidelevel),
    wholeitem('F', {"Fisher", Word::Matrix, Word::Type, "(0, 1 = mb, 2 = mc)"}, placeof<&S::fisherForm>, 0, 2)
        .when([] { return std::abs(session.confMethod) == fisherBounds && session.dist == weibull; }),
    actionitem('M', {Word::Method}, listmethods).shows(appendmethodname),
    wholeitem('T', {Word::Trial, Word::Quantity, Word::For, "Monte Carlo", Word::Confidence},
              placeof<&S::mcCount>, 1, 32000)
        .when(bysimulation),
    actionitem('U', {Word::Method, Word::Automatic}, flipautomatic).shows([](std::string& text) {
        const bool chosen = session.confAuto == 1;
        extend(text, chosen ? Word::Yes : Word::No, " (/ ", chosen ? Word::No : Word::Yes, ")");
    }),
    wholeitem('V', {Word::Random, "#", Word::Start, Word::Lock, "(0 =", Word::Variable, ")"},
              placeof<&S::rndStart>, 0, 9e15)
        .shows(appendstart)
        .when(bysimulation),
    actionitem('N', {Word::None, "...", Word::Reset, Word::To, Word::Results}, nobounds),
    exititem('X', {Word::Exit}),
};
constexpr PlaceOf confidencePlaces[] = {placeof<&S::confMethod>, placeof<&S::confAuto>, placeof<&S::confLow>,
                                        placeof<&S::confHigh>};

// ---- output of single points ----

bool singlepoint() { return session.confMethod < 0; }

BoundsInForce boundsinforce() {
    return {session.confMethod, session.confAuto, session.confLow, session.confHigh};
}

/// A single point needs a method and a level and takes them where there are none; when it is given up before
/// they were changed by hand, the bounds are again those from before it.
bool flipsingle() {
    const BoundsInForce& former = session.boundsBefore;
    if (singlepoint() && boundsinforce() == session.boundsSingle) {
        session.confMethod = former.method;
        session.confAuto = former.automatic;
        session.confLow = former.low;
        session.confHigh = former.high;
        return true;
    }
    if (!singlepoint()) session.boundsBefore = boundsinforce();
    if (session.confMethod == noBounds) session.confMethod = fisherBounds;
    if (sidesinforce() == Sides::none) putlevel(Sides::twoSided, level());
    session.confAuto = 0;
    session.confMethod = static_cast<int16_t>(-session.confMethod);
    if (singlepoint()) session.boundsSingle = boundsinforce();
    return true;
}

constexpr Item boundItems[] = {
    acceptitem('A', {Word::Activate, Word::Output, Word::Options}),
    pageitem('C', {Word::Confidence, "[%]"}, OptionPage::confidence).shows(appendlevel),
    actionitem('S', {Word::Single, Word::Point}, flipsingle).shows([](std::string& text) {
        extend(text, singlepoint() ? Word::Yes : Word::No, " (/ ", singlepoint() ? Word::No : Word::Yes, ")");
    }),
    numberitem('P', {Word::Single, Word::Point, Word::Probability, "%"}, placeof<&S::singleP>, 1e-7,
               100 - 1e-7)
        .times(100)
        .when(singlepoint),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {
    {.page = OptionPage::limitKind,
     .title = {Word::Confidence, Word::Limit},
     .items = kindItems,
     .list = true},
    {.page = OptionPage::confidence,
     .title = {Word::Confidence},
     .items = confidenceItems,
     .also = confidencePlaces},
    {.page = OptionPage::bounds,
     .title = {Word::Confidence, Word::Output, Word::Options},
     .items = boundItems,
     .also = confidencePlaces},
};

} // namespace

std::span<const Page> confidencepages() { return pages; }
