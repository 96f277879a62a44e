#include <string>
#include <utility>
#include <vector>

#include "curvefit/curvesmain.h"
#include "curvefit/equationlist.h"
#include "curvefit/models.h"
#include "data/settitle.h"
#include "expression/functionrun.h"
#include "options/page.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "shell/savename.h"

/// The fitted curves of an X-Y plot: which model for which set, how far it is drawn, and its equations.

namespace {

using S = Session;

// ---- the sets that the pages speak of ----

/// The set in hand, 0 for all: kept with the data, and so from outside.
int sethand() {
    const float kept = session.FITIXSAVE[1];
    return kept >= 1 && kept <= static_cast<float>(setcount()) ? static_cast<int>(kept) : 0;
}

template <class Use>
void setsinhand(Use use) {
    const int hand = sethand();
    for (int k = hand > 0 ? hand : 1; k <= (hand > 0 ? hand : setcount()); ++k) use(k);
}

bool anysets() { return setcount() > 0; }
bool manysets() { return setcount() > 1; }

bool chooseset() {
    std::vector<std::string> names;
    wordclean(compose(names.emplace_back(), Word::All));
    for (int k = 1; k <= setcount(); ++k)
        wordclean(compose(names.emplace_back(), Word::Set, " ", k, " ", AsTyped{titleofset(k)}));
    const int chosen = choosefrom({Word::Curve, Word::Fit, Word::For, Word::Set}, names, sethand());
    if (chosen >= 0) session.FITIXSAVE[1] = static_cast<float>(chosen);
    return false;
}

void appendset(std::string& text) {
    if (sethand() == 0)
        append(text, Word::All);
    else
        extend(text, sethand(), " ", AsTyped{titleofset(sethand())});
}

// ---- kinds of fit ----

/// The kind of all sets in hand, or -1 where they differ.
int kindinhand() {
    int kind = -2;
    setsinhand([&](int k) { kind = kind == -2 || kind == session.FITKIND(k) ? session.FITKIND(k) : -1; });
    return kind == -2 ? noFit : kind;
}

/// What is chosen here holds against what the run asked of every set.
bool takekind(int kind) {
    if (!anysets()) {
        tell(Word::No, " ", Word::Data);
        return false;
    }
    bool changed = std::exchange(session.fitKindList[0], 0.0f) != 0;
    setsinhand([&](int k) {
        changed = changed || session.FITKIND(k) != kind;
        session.FITKIND(k) = static_cast<int16_t>(kind);
    });
    return changed;
}

void appendkind(std::string& text) {
    const int kind = kindinhand();
    if (const auto model = modelofcode(kind))
        append(text, *model);
    else if (kind == noFit)
        append(text, Word::None);
    else
        text += "...";
}

template <int Kind>
bool iskind() {
    return kindinhand() == Kind;
}
template <int Kind>
bool pickkind() {
    return takekind(Kind);
}
template <int Kind>
constexpr Item kinditem(char letter, Label label) {
    return pickitem(letter, label, iskind<Kind>, pickkind<Kind>);
}

bool isorder() { return kindinhand() > cubicFit && kindinhand() <= highestOrder; }

bool pickorder() {
    double order = isorder() ? kindinhand() : 4;
    if (!asknumberwithin({Word::Polynomial, Word::Order}, order, 1, highestOrder, true)) return false;
    return takekind(static_cast<int>(order));
}

constexpr Item kindItems[] = {
    kinditem<linearFit>('1', {Word::Linear, Word::Fit}),
    kinditem<quadraticFit>('2', {Word::Quadratic, Word::Fit}),
    kinditem<cubicFit>('3', {Word::Cubic, Word::Fit}),
    kinditem<exponentialFit>('A', {Word::Exponential, Word::Fit, "... y=a*b^x"}),
    kinditem<powerFit>('B', {Word::Power, Word::Fit, "... y=a*x^b"}),
    kinditem<arrheniusXFit>('C', {"Arrhenius-X", Word::Fit, "... y=a*b^(1/x)"}),
    kinditem<arrheniusYFit>('D', {"Arrhenius-Y", Word::Fit, "... x=a*b^(1/y)"}),
    kinditem<noFit>('N', {Word::None, "...", Word::No, Word::Curve}),
    pickitem('O', {Word::Polynomial, Word::Fit, "...", Word::Order, "= n"}, isorder, pickorder),
    exititem('X', {Word::Exit}),
};

// ---- how far a curve is drawn ----

/// Over the data alone, over the whole window, or from an X on.
bool chooseextrapolation() {
    std::vector<std::string> ways(3);
    compose(ways[0], Word::No);
    compose(ways[1], Word::Yes);
    compose(ways[2], Word::Yes, " ", Word::From, " X");
    for (std::string& way : ways) wordclean(way);
    const int present = session.curveExtrapolated == 0 ? 0 : session.curveFrom == 0 ? 1 : 2;
    const int chosen = choosefrom({Word::Extrapolate, Word::By, "X-", Word::Value}, ways, present);
    if (chosen < 0) return false;
    double from = 0;
    if (chosen == 2) {
        from = session.curveFrom;
        if (!asknumberwithin({Word::Extrapolate, Word::From, "X-", Word::Value}, from, -9e29, 9e29))
            return false;
        if (from == 0) { // kept as 0 it would stand for the whole window
            tell(Word::Extrapolate, " ", Word::From, " X-", Word::Value, " = 0 ... ", Word::Not, " ",
                 Word::Possible);
            return false;
        }
    }
    const bool changed = session.curveExtrapolated != (chosen > 0) || session.curveFrom != from;
    session.curveExtrapolated = chosen > 0 ? 1 : 0;
    session.curveFrom = from;
    return changed;
}

void appendextrapolation(std::string& text) {
    append(text, session.curveExtrapolated == 0 ? Word::No : Word::Yes);
    if (session.curveExtrapolated == 0 || session.curveFrom == 0) return;
    extend(text, " ", Word::From, " ");
    appendshown(text, session.curveFrom);
}

constexpr Item extrapolationItems[] = {
    actionitem('0', {Word::Extrapolate, Word::By, "X-", Word::Value}, chooseextrapolation)
        .shows(appendextrapolation),
    kinditem<exponentialFit>('A', {Word::Exponential, "... y=a*b^x"}),
    kinditem<powerFit>('B', {Word::Power, "... y=a*x^b"}),
    kinditem<arrheniusXFit>('C', {"Arrhenius-X", "... y=a*b^(1/x)"}),
    exititem('X', {Word::Exit}),
};

// ---- fits ----

bool deletefit() { return takekind(noFit); }

bool anykind() {
    bool any = false;
    setsinhand([&](int k) { any = any || session.FITKIND(k) != noFit; });
    return any;
}

bool anycurve() {
    for (int k = 1; k <= setcount(); ++k)
        if (hascurve(k)) return true;
    return false;
}

void appendlist(std::string& text, const char* lead, const std::array<double, 11>& list) {
    std::size_t count = list.size();
    while (count > 1 && list[count - 1] == 0) --count;
    if (count == 1) return;
    extend(text, "\n", lead);
    for (std::size_t i = 1; i < count; ++i) extend(text, " ", list[i]);
}

/// The curves of the last cycle, and the coefficients of the fits before them.
bool showlastfit() {
    std::string text;
    for (int k = 1; k <= setcount(); ++k)
        if (hascurve(k)) extend(text, AsTyped{session.curves(k).text}, "\n");
    appendlist(text, "0:", session.SOLCOEF);
    appendlist(text, "-1:", session.SOLCOEFA);
    appendlist(text, "-2:", session.SOLCOEFB);
    if (text.empty()) compose(text, Word::No, " ", Word::Curve, " ", Word::Fit);
    tell(text);
    return false;
}

// ---- lists of equations ----

/// Asks for a file of equations.
template <class Ask>
std::optional<std::string> equationfile(Word what, Ask ask) {
    if (!platform) return std::nullopt;
    std::string header;
    wordclean(compose(header, what, " ", Word::Equations, " ", Word::File));
    const auto native = ask(FilePage{.header = header,
                                     .filter = "Equations (*.eqn)|*.eqn|All (*.*)|*.*",
                                     .folder = nativepath(session.dataPath)});
    if (!native || native->empty()) return std::nullopt;
    return ownpath(*native);
}

bool saveequations() {
    const auto asked =
        equationfile(Word::Save, [](const FilePage& page) { return platform->prompts().savefile(page); });
    const auto name = asked ? extendedname(*asked, ".eqn") : std::nullopt;
    if (name) equationssave(*name);
    return false;
}

/// One equation of a list becomes the function of the session, which the plot shows beside the curves.
bool getequation() {
    const auto name =
        equationfile(Word::Get, [](const FilePage& page) { return platform->prompts().openfile(page); });
    const auto list = name ? equationsopen(*name) : std::nullopt;
    if (!list) return false;
    std::vector<std::string> texts;
    for (const FunctionTokens& equation : list->equations)
        texts.push_back(functiontext(equation.fcode, equation.literals, functionY));
    const int chosen = choosefrom({Word::Equations}, texts);
    if (chosen < 0) return false;
    const FunctionTokens& equation = list->equations[static_cast<std::size_t>(chosen)];
    session.fcode = equation.fcode;
    session.flits.assign(1, 0);
    session.flits.insert(session.flits.end(), equation.literals.begin(), equation.literals.end());
    session.flitcount = static_cast<float>(equation.literals.size());
    session.functionMode = functionCurve;
    session.functionShown = 1;
    functionkeep(); // else a run without a result would bring an older function back
    return true;
}

constexpr Item curveItems[] = {
    pageitem('C', {Word::Curve, Word::Fit, Word::For, Word::Data}, OptionPage::fitKind).shows(appendkind),
    actionitem('D', {Word::Delete, Word::Curve, Word::Fit}, deletefit).when(anykind),
    pageitem('E', {Word::Extrapolate}, OptionPage::extrapolation).shows(appendextrapolation),
    flipitem('F', {Word::Point, Word::Fill}, placeof<&S::fillMissing>),
    actionitem('G', {Word::Get, Word::Equations}, getequation),
    actionitem('L', {Word::Last, Word::Fit, Word::Display}, showlastfit),
    actionitem('S', {Word::Set}, chooseset).shows(appendset).when(manysets),
    actionitem('W', {Word::Save, Word::Equations}, saveequations).when(anycurve),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {
    {OptionPage::curveFit, {Word::Curve, Word::Fit}, curveItems},
    {.page = OptionPage::fitKind,
     .title = {Word::Curve, Word::Fit, Word::Type},
     .items = kindItems,
     .list = true},
    {OptionPage::extrapolation, {Word::Extrapolate}, extrapolationItems},
};

} // namespace

std::span<const Page> curvepages() { return pages; }
