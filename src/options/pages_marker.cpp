#include <string>

#include "options/page.h"
#include "plot/markerline.h"
#include "shell/markerentry.h"
#include "shell/plotpress.h"

/// Marker lines: entered by their parameters, or by points that they pass.

namespace {

constexpr double percent = 100;

bool askpoint(const char* which, double& x, double& p) {
    double occurrence = p * percent;
    const double low = session.dist == weibull || session.dist == lognormal ? 1e-30 : noLowLimit;
    if (!asknumberwithin({Word::Point, which, "X-", Word::Value}, x, low, static_cast<double>(noHighLimit)))
        return false;
    if (!asknumberwithin({Word::Point, which, Word::Occurrence, "%"}, occurrence, 1e-12, 100 - 1e-9))
        return false;
    p = occurrence / percent;
    return true;
}

bool askslope(double& beta) {
    const double least = session.dist == lognormal ? 1.0001 : 1e-6;
    return asknumberwithin({parametername(session.dist, 2)}, beta, least, 1e9);
}

bool enterparameters() {
    FamilyLine line = currentline();
    double eta = 100, beta = 2;
    const double low = session.dist == weibull || session.dist == lognormal ? 1e-30 : noLowLimit;
    if (!asknumberwithin({parametername(session.dist, 1)}, eta, low, static_cast<double>(noHighLimit)))
        return false;
    if (!askslope(beta)) return false;
    line.eta = eta;
    line.beta = beta;
    return markerkeep(line);
}

bool enterslope() {
    double beta = 2, x = 100, p = 0.1;
    return askslope(beta) && askpoint("#1", x, p) && markerkeep(linewithslope(x, p, beta));
}

bool enterpoints() {
    double x1 = 100, p1 = 0.1, x2 = 200, p2 = 0.5;
    return askpoint("#1", x1, p1) && askpoint("#2", x2, p2) && markerkeep(linethrough(x1, p1, x2, p2));
}

/// Two presses on the plot are the points that the line passes.
bool bypresses() {
    plotpressbegin(markerLineMode);
    return false;
}

bool any() { return !markerlines().empty(); }

bool deleteone() {
    std::vector<std::string> labels;
    const auto markers = markerlines();
    for (const MarkerLine& marker : markers) labels.push_back(marker.label);
    const int chosen = choosefrom({Word::Marker, Word::Line, Word::Delete}, labels);
    if (chosen < 0) return false;
    markerdelete(markers[static_cast<std::size_t>(chosen)].line);
    return true;
}

bool deleteall() {
    markerclear();
    return true;
}

constexpr Item items[] = {
    actionitem('Q', {Word::Enter, Word::Parameter}, enterparameters),
    actionitem('R', {Word::Enter, Word::Slope, "+", Word::Point, Word::On, Word::Line}, enterslope),
    actionitem('S', {Word::Enter, Word::Point, "#1", Word::On, Word::Line, "+", Word::Point, "#2"},
               enterpoints),
    actionitem('T', {Word::Add, Word::Line, Word::By, Word::Plot, Word::Select}, bypresses)
        .leaving()
        .when([] { return session.functionPlot == 0; }),
    actionitem('D', {Word::Delete, Word::Marker, Word::Line}, deleteone).when(any),
    actionitem('N', {Word::None, "...", Word::Delete, Word::All}, deleteall).when(any),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {{OptionPage::markerLine, {Word::Marker, Word::Line}, items}};

} // namespace

std::span<const Page> markerpages() { return pages; }
