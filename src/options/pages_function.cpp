#include "options/page.h"
#include "plot/functionplot.h"
#include "plot/window.h"

/// What the life plot shows: the probability plot, or a function of the fitted lines on plain axes.

namespace {

template <FunctionPlot Kind>
bool inforce() {
    return session.functionPlot == Kind;
}
/// The limits of a zoom are those of other axes.
template <FunctionPlot Kind>
bool take() {
    if (inforce<Kind>()) return false;
    session.functionPlot = Kind;
    LOCKZOOMOUT();
    return true;
}
template <FunctionPlot Kind>
constexpr Item kinditem(char letter, const Label& label) {
    return pickitem(letter, label, inforce<Kind>, take<Kind>);
}

constexpr Item items[] = {
    kinditem<probabilityPlot>('F', {Word::Probability, Word::Plot}),
    kinditem<cumulativeHazardPlot>('A', {"ACH", Word::Aggregate, Word::Cumulative, Word::Hazard}),
    kinditem<distributionPlot>('C', {"CDF", Word::Cumulative, Word::Distribution, "(", Word::Linear, ")"}),
    kinditem<hazardPlot>('H', {"HDF (= PDF / RDF)", Word::Hazard}),
    kinditem<densityPlot>('P', {"PDF (= d[CDF] / dX)", Word::Probability, Word::Density}),
    pageitem('Q', {"QLC", Word::Quality, Word::Limit, Word::Comparison, Word::For, Word::Process},
             OptionPage::processLimits),
    kinditem<reliabilityPlot>('R', {"RDF (= 1 - CDF)", Word::Reliability, Word::Distribution}),
    kinditem<totalPlot>('T', {Word::Total, Word::Picture, "(P +", Word::Histogram, ")"}),
    kinditem<histogramPlot>('U', {Word::Occurrence, Word::Histogram, "+", Word::Suspension}),
    kinditem<suspensionPlot>('W', {Word::Suspension, Word::Histogram}),
    exititem('Z', {Word::No, Word::Change, "...", Word::Data, Word::Only}),
};

constexpr Page pages[] = {
    {.page = OptionPage::functionPlot,
     .title = {Word::Additional, Word::Probability, Word::Plot, Word::Options},
     .items = items,
     .list = true},
};

} // namespace

std::span<const Page> functionpages() { return pages; }
