#include <string>

#include "options/page.h"
#include "plot/markerline.h"

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

/// Keeps a line under a label that the user types, or its parameters.
bool keepline(const FamilyLine& line) {
    if (!(line.beta > 0)) {
        tell(Word::Line, " ", Word::Not, " ", Word::Possible);
        return false;
    }
    std::string parameters;
    extend(parameters, parametername(session.dist, 1), "=");
    appendshown(parameters, line.eta, 5);
    extend(parameters, " ", parametername(session.dist, 2), "=");
    appendshown(parameters, line.beta, 5);
    wordclean(parameters);
    compose(session.msg, Word::Marker, " ", Word::Line, " ", Word::Label, " (", AsTyped{parameters}, ")");
    textprompt();
    const std::string label = session.msg == noAnswerText || session.msg.empty() ? parameters : session.msg;
    if (markeradd(line.eta, line.beta, label) != 0) return true;
    tell(Word::Marker, " ", Word::Line, " ", Word::Quantity, " ", Word::Too, " ", Word::Big);
    return false;
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
    return keepline(line);
}

bool enterslope() {
    double beta = 2, x = 100, p = 0.1;
    return askslope(beta) && askpoint("#1", x, p) && keepline(linewithslope(x, p, beta));
}

bool enterpoints() {
    double x1 = 100, p1 = 0.1, x2 = 200, p2 = 0.5;
    return askpoint("#1", x1, p1) && askpoint("#2", x2, p2) && keepline(linethrough(x1, p1, x2, p2));
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
    actionitem('D', {Word::Delete, Word::Marker, Word::Line}, deleteone).when(any),
    actionitem('N', {Word::None, "...", Word::Delete, Word::All}, deleteall).when(any),
    exititem('X', {Word::Exit}),
};

constexpr Page pages[] = {{OptionPage::markerLine, {Word::Marker, Word::Line}, items}};

} // namespace

std::span<const Page> markerpages() { return pages; }
