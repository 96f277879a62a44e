#include <string>

#include "expression/functionedit.h"
#include "expression/functionfile.h"
#include "expression/functionrun.h"
#include "options/page.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "transform/transforms.h"

/// Transforms of X-Y data, and the typed function on the plot.

namespace {

using S = Session;

/// A transform leaves the page: its result is to be seen.
bool never() { return false; }
constexpr Item transformitem(char letter, const Label& label, bool (*run)()) {
    return pickitem(letter, label, never, run);
}

constexpr Item transformItems[] = {
    transformitem('1', {Word::New, "X = F(", Word::Former, "X ...", Word::Former, "Y)"}, functiontox),
    transformitem('2', {Word::New, "Y = F(", Word::Former, "X ...", Word::Former, "Y)"}, functiontoy),
    transformitem(
        '3',
        {Word::New, "X = F(", Word::Former, "X ...", Word::Former, "Y) ...", Word::Set, "A,", Word::Set, "B"},
        functionoftwox),
    transformitem('4', {Word::New, "Y = F(Y", Word::From, Word::Set, "A, Y", Word::From, Word::Set, "B)"},
                  functionoftwoy),
    transformitem('5', {Word::New, "X", Word::For, Word::Set, "B = Y", Word::From, Word::Set, "A"},
                  axisofset),
    transformitem('6', {Word::Total, "Y-", Word::Value, "...", Word::Sum, "(Y)"}, totalofsets),
    transformitem(
        '7',
        {Word::Plot, Word::Of, Word::Set, "1", Word::Data, "vs.", Word::Set, "2", Word::Fit, Word::Results},
        dataagainstfit),
    transformitem('8', {Word::Difference, "...", Word::Set, "1", Word::Data, " -", Word::Set, "2", Word::Fit},
                  datalessfit),
    transformitem('A',
                  {Word::Rectangular, Word::To, Word::Polar, "... (X vs. Y)", Word::To, "(", Word::Angle,
                   "[°] vs.", Word::Radius, ")"},
                  rectangulartopolar),
    transformitem('B',
                  {Word::Polar, Word::To, Word::Rectangular, "... (", Word::Angle, "[°] vs.", Word::Radius,
                   ")", Word::To, "(X vs. Y)"},
                  polartorectangular),
    transformitem('H', {Word::Histogram, Word::Of, "1-", Word::Axis}, histogramofaxis),
    pageitem('I', {Word::Interval, Word::Transform}, OptionPage::intervalTransform),
    transformitem('J', {Word::Histogram, Word::From, "2-", Word::Axis}, histogramofboth),
    transformitem('P', {Word::Polar, Word::Rotation, Word::About, "0-0"}, rotation),
    transformitem('R',
                  {Word::Order, Word::By, "X-", Word::Value, "...", Word::Small, "X <", Word::Middle, "X <",
                   Word::Big, "X"},
                  orderbyx),
    transformitem('S', {Word::Swap, Word::Axis, "... X <---> Y"}, swapaxes),
    exititem('X', {Word::Exit}),
};

constexpr Item intervalItems[] = {
    exititem('A', {Word::No, Word::Change, "... X + Y", Word::Already, Word::Cumulative}),
    transformitem('B', {Word::Interval, "X", Word::Only, "[Y", Word::Already, Word::Cumulative, "]"},
                  intervalx),
    transformitem('C', {Word::Interval, "Y", Word::Only, "[X", Word::Already, Word::Cumulative, "]"},
                  intervaly),
    transformitem('D', {Word::Interval, "X +", Word::Interval, "Y ...", Word::Transform}, intervalboth),
    exititem('X', {Word::Exit}),
};

// ---- the typed function ----

bool hasfunction() { return !session.fcode.empty(); }
bool hassaved() { return !session.fcodeSaved.empty() && session.fcodeSaved != session.fcode; }

/// On this page the function is that of the plot, with k for its second operand.
template <bool (*Act)()>
bool ofplot() {
    const Keep keep{session.functionMode};
    session.functionMode = functionCurve;
    return Act();
}

void appendfunction(std::string& text) {
    constexpr std::size_t shown = 60;
    const Keep keep{session.functionMode};
    session.functionMode = functionCurve;
    std::string line = functionline().substr(1); // behind a blank of its own
    if (line.size() > shown) line = "... " + line.substr(line.size() - shown);
    append(text, AsTyped{line});
}

void appendrange(std::string& text) {
    appendshown(text, session.fxlow, 7);
    text += " ... ";
    appendshown(text, session.fxhigh, 7);
}

/// The function is gone from the plot; the saved copy brings it back.
bool resetfunction() {
    session.fcode.clear();
    session.flits = {0};
    session.flitcount = 0;
    session.functionShown = 0;
    return true;
}

bool undofunction() {
    functionundo();
    return true;
}

bool savefunction() {
    functionsaveoffer();
    return false;
}

bool getfunction() {
    if (!platform) return false;
    std::string header;
    wordclean(compose(header, Word::Get, " ", Word::Function, " ", Word::File));
    const std::string folder = nativepath(session.dataPath);
    const auto native = platform->prompts().openfile(
        {.header = header, .filter = "Function (*.fun)|*.fun|All (*.*)|*.*", .folder = folder});
    return native && !native->empty() && functionopen(ownpath(*native));
}

constexpr Item functionItems[] = {
    exititem('A', {Word::OK, "...", Word::Activate}),
    actionitem('F', {Word::Function, Word::Input}, ofplot<functionedit>).shows(appendfunction),
    actionitem('R', {"X-", Word::Range}, functionrange).shows(appendrange),
    actionitem('K', {"k-", Word::Value}, functionk).shows([](std::string& text) {
        appendshown(text, session.fk, 7);
    }),
    flipitem('P', {Word::Function, Word::On, Word::Plot}, placeof<&S::functionShown>).when(hasfunction),
    actionitem('1', {Word::New, "X = F(", Word::Former, "X ...", Word::Former, "Y)"}, functiontox),
    actionitem('2', {Word::New, "Y = F(", Word::Former, "X ...", Word::Former, "Y)"}, functiontoy),
    actionitem('3', {Word::New, "Y = F(", Word::Former, "X ... k)"}, functionwithk).when(hasfunction),
    actionitem('S', {Word::Function, Word::Save, Word::To, Word::File}, savefunction).when(hasfunction),
    actionitem('G', {Word::Get, Word::Function, Word::From, Word::File}, getfunction),
    actionitem('U', {Word::Undo, "...", Word::Former, Word::Function}, undofunction).when(hassaved),
    actionitem('N', {Word::None, "...", Word::Reset}, resetfunction).when(hasfunction),
    exititem('X', {Word::Exit, "...", Word::OK}),
};

constexpr Page pages[] = {
    {.page = OptionPage::transform, .title = {Word::Transform}, .items = transformItems, .list = true},
    {.page = OptionPage::intervalTransform,
     .title = {Word::Interval, Word::Transform},
     .items = intervalItems,
     .list = true},
    {OptionPage::function, {Word::Function}, functionItems},
};

} // namespace

std::span<const Page> transformpages() { return pages; }
