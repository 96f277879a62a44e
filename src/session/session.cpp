#include "session/session.h"

#include <algorithm>
#include <cmath>

#include "session/members.h"

FaultTeller tellfault = nullptr;
MemoryAsker memorygranted = nullptr;
Session session;

namespace {

constexpr int rowCountBound = 48; ///< why a file may never raise maxRows above 48

void derivecapacities() {
    Session& s = session;
    s.sizeExponent = std::clamp<int16_t>(s.sizeExponent, 0, 10);
    s.arrayBudget = arraybudget();
    s.maxRows = s.maxRowsBase;
    s.maxPoints = std::floor(s.arrayBudget / s.maxRows);
    s.maxSets = std::floor(s.maxRows / s.sg);
    const float above = s.progSide == lifeSide ? 24 - s.maxRows / s.sg : 24 - s.lastRow / s.sg;
    s.extraLines = static_cast<int16_t>(std::clamp(std::floor(above), 0.0f, 12.0f));
    s.maxLines = s.maxSets + s.extraLines;
}

/// The upper index bounds that follow from the capacities; index 0 is allowed everywhere.
struct Bounds {
    int R, S, P, LL;
};

Bounds bounds() {
    const Session& s = session;
    return {static_cast<int>(s.maxRows + s.sg), static_cast<int>(s.maxSets) + 1,
            static_cast<int>(s.maxPoints), static_cast<int>(s.maxLines) + 2 * s.extraLines + 3};
}

bool sizepoints(const Bounds& b) {
    Session& s = session;
    for (auto& labels : s.pointLabels) {
        labels.clear();
        labels.shrink_to_fit();
    }
    bool all = s.n.size(rowCountBound) && s.W2n.size(b.S) && s.pointOrder.size(b.S, b.P)
               && s.pointTypes.size(b.S, b.P) && s.pointPlotX.size(b.S, b.P) && s.orderKeys.size(b.P);
    for (const auto table : members::rowPoints) all = all && (s.*table).size(b.R + 1, b.P);
    for (const auto table : members::setPoints) all = all && (s.*table).size(b.S + 1, b.P + 1);
    return all;
}

bool sizelines(const Bounds& b) {
    Session& s = session;
    bool all = s.rowKind.size(b.R + 1) && s.rowTitle.size(b.R + 1) && s.lineVisible.size(b.LL + 1)
               && s.lineHide.size(b.LL) && s.paramA.size(2, b.LL) && s.paramB.size(2, b.LL)
               && s.paramExtra.size(30, b.LL) && s.paramExtraSingle.size(30, b.LL);
    for (const auto list : members::lineFloats) all = all && (s.*list).size(b.LL);
    for (const auto list : members::lineTexts) all = all && (s.*list).size(b.LL);
    for (auto& ends : s.lineEnd) all = all && ends.size(2, b.LL + 14);
    for (auto& other : s.paramOther) all = all && other.size(2, b.LL);
    return all && s.lineRange.size(b.LL);
}

bool sizefits(const Bounds& b) {
    Session& s = session;
    bool all =
        s.etaFit.size(b.R, 2) && s.betaFit.size(b.R, 2) && s.BARRXA.size(10, b.S) && s.BARRYA.size(10, b.S);
    for (const auto list : members::setFlags) all = all && (s.*list).size(b.S);
    for (const auto list : members::setTexts) all = all && (s.*list).size(b.S);
    for (const auto list : members::setFloats) all = all && (s.*list).size(b.S);
    for (const auto list : members::setDoubles) all = all && (s.*list).size(b.S);
    for (const auto list : members::setLists) all = all && (s.*list).size(b.S);
    all = all && s.setRange.size(b.S) && s.curves.size(b.S);
    for (auto* limits : {&s.paramLow, &s.paramHigh}) all = all && limits->size(b.S, 2);
    for (auto* list : {&s.mixEtas, &s.mixBetas, &s.mixPortions}) all = all && list->size(s.extraLines + 1);
    s.setMessages.assign(static_cast<std::size_t>(b.S) + 1, {});
    return all;
}

/// Rows are lines by default, data rows points; a set's title is its row number until it gets a name.
void fillrows() {
    Session& s = session;
    for (int i = 0; i <= s.rowKind.bound(); ++i) {
        s.rowKind(i) = "L";
        s.rowTitle(i) = std::to_string(i);
    }
    for (int k = 1; k <= static_cast<int>(s.maxSets); ++k)
        s.rowKind(static_cast<int>(rowofset(static_cast<float>(k)))) = "P";
    s.lineVisible.fill(1);
}

/// What a file keeps of the data as a whole.
void cleartables() {
    Session& s = session;
    for (auto* values : {&s.plotB, &s.reportValue}) values->clear();
    for (auto* texts : {&s.columnText, &s.FITO1}) texts->clear();
    for (auto* places : {&s.POINTMARKERX, &s.POINTMARKERY}) places->clear();
    for (auto* line : {&s.libraryItem, &s.analysisComment}) line->clear();
    for (auto* list : {&s.SOLCOEF, &s.SOLCOEFA, &s.SOLCOEFB}) list->fill(0);
    s.FITIXSAVE.fill(0);
    s.NORMXD.fill({});
    s.firstPlotLine = 0;
}

} // namespace

void chooseside(Side side) {
    session.progSide = side;
    session.sg = side == lifeSide || side == simulationSide ? 3.0f : 1.0f;
    session.negativeXAllowed = side == lifeSide ? 0 : 1;
    session.plotMode = side == lifeSide ? 1 : 2;
}

float arraybudget() {
    const bool wide = session.progSide == lifeSide || session.progSide == simulationSide;
    return std::ldexp(wide ? 18000.0f : 6000.0f, session.sizeExponent) * session.budgetShare;
}

bool allocatearrays() {
    derivecapacities();
    const Bounds b = bounds();
    const bool all = sizepoints(b) && sizelines(b) && sizefits(b);
    if (all)
        sessionclear();
    else
        session.maxPoints = 0;
    return all;
}

void sessionclear() {
    Session& s = session;
    s.lastRow = 0;
    s.ifylcnf = 0;
    s.n.fill(0);
    s.W2n.fill(0);
    for (auto& labels : s.pointLabels) std::fill(labels.begin(), labels.end(), std::string());
    for (const auto list : members::lineFloats) (s.*list).fill(0);
    for (const auto list : members::lineTexts) (s.*list).fill({});
    for (const auto list : members::setFloats) (s.*list).fill(0);
    for (const auto list : members::setDoubles) (s.*list).fill(0);
    for (const auto list : members::setFlags) (s.*list).fill(0);
    for (const auto list : members::setTexts) (s.*list).fill({});
    for (const auto list : members::setLists) (s.*list).fill({});
    for (auto* ranges : {&s.setRange, &s.lineRange}) ranges->fill({});
    cleartables();
    for (auto* limits : {&s.paramLow, &s.paramHigh}) limits->fill(noAnswer);
    s.mcCorrelations.clear();
    for (auto* table : {&s.etaFit, &s.betaFit, &s.paramA, &s.paramB, &s.paramExtra}) table->fill(0);
    for (auto* table : {&s.BARRXA, &s.BARRYA, &s.paramExtraSingle}) table->fill(0);
    for (auto& other : s.paramOther) other.fill(0);
    for (auto& ends : s.lineEnd) ends.fill(0);
    s.lineHide.fill(0);
    for (auto& messages : s.setMessages) messages.clear();
    s.mixFlag = s.mixKind = 0;
    s.runTitle.clear();
    s.calcError = 0;
    s.abortCode = 0;
    fillrows();
}

const char* parametername(int distType, int which) {
    const auto& names = session.parameterNames[static_cast<std::size_t>(std::clamp(distType, 0, 4))];
    return names[which == 1 ? 0 : 1].c_str();
}
