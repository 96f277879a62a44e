#include "options/page.h"
#include "plot/functionplot.h"

/// What the life plot shows: the probability plot, or a function of the fitted lines on plain axes.

namespace {

constexpr PlaceOf kind = placeof<&Session::functionPlot>;

constexpr Item items[] = {
    pickitem('F', {Word::Probability, Word::Plot}, kind, probabilityPlot),
    pickitem('A', {"ACH", Word::Aggregate, Word::Cumulative, Word::Hazard}, kind, cumulativeHazardPlot),
    pickitem('C', {"CDF", Word::Cumulative, Word::Distribution, "(", Word::Linear, ")"}, kind,
             distributionPlot),
    pickitem('H', {"HDF (= PDF / RDF)", Word::Hazard}, kind, hazardPlot),
    pickitem('P', {"PDF (= d[CDF] / dX)", Word::Probability, Word::Density}, kind, densityPlot),
    pickitem('R', {"RDF (= 1 - CDF)", Word::Reliability, Word::Distribution}, kind, reliabilityPlot),
    pickitem('T', {Word::Total, Word::Picture, "(P +", Word::Histogram, ")"}, kind, totalPlot),
    pickitem('U', {Word::Occurrence, Word::Histogram, "+", Word::Suspension}, kind, histogramPlot),
    pickitem('W', {Word::Suspension, Word::Histogram}, kind, suspensionPlot),
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
