#include "session/scriptoutput.h"

#include <cmath>
#include <numbers>
#include <span>

#include "analysis/lifeterms.h"
#include "analysis/logterm.h"
#include "data/datafilesave.h"
#include "data/lineequation.h"
#include "data/report.h"
#include "data/settitle.h"
#include "platform/files.h"
#include "platform/platform.h"
#include "plot/plotfile.h"
#include "plot/transforms.h"
#include "session/opendata.h"
#include "session/session.h"

namespace {

constexpr int pixelsAcross = 1200, pixelsDown = 900;

/// What report lines a writer sends, as text.
template <class Writer>
std::string reported(Writer write) {
    const Keep keep{session.reportBuffer, session.reportLine, session.reportColumn, session.reportDevice,
                    session.msg};
    session.reportDevice = reportText;
    reportstart();
    write();
    return reportastext();
}

int dataRow(int k) { return static_cast<int>(rowofset(static_cast<float>(k))); }

FamilyLine lineofset(int k) {
    FamilyLine line = currentline();
    line.eta = session.etaFit(dataRow(k), 1);
    line.beta = session.betaFit(dataRow(k), 1);
    return line;
}

/// Runs over the sets that have a line.
template <class Use>
void fittedsets(Use use) {
    for (int k = 1; k <= setcount(); ++k)
        if (session.setFitted(k) == 1) use(k);
}

/// Runs over the sets of the visual side that have a curve.
template <class Use>
void fittedcurves(Use use) {
    for (int k = 1; k <= setcount(); ++k)
        if (session.curves(k).fitmodel != 0) use(k);
}

void results() {
    fittedcurves([](int k) { reportend(1, AsTyped{session.curves(k).text}); });
    fittedsets([](int k) {
        reportcell(0, Word::Set, " ", k, ": ", parametername(session.dist, 1), "=",
                   Reported{session.etaFit(dataRow(k), 1)});
        reportcell(30, parametername(session.dist, 2), "=", Reported{session.betaFit(dataRow(k), 1)});
        reportcell(48, "t0=", Reported{session.t0(k)});
        reportcell(62, "r^2=", Reported{session.setCorrelation(k) * session.setCorrelation(k)});
        reportend(78, Word::Total, "=", session.countQuantity(k), " (Susp=", session.countSusp(k), ")");
    });
}

void equations() {
    fittedsets([](int k) { report(Word::Set, " ", k, ": ", AsTyped{lineequation(k)}); });
    bool any = false;
    fittedcurves([&any](int k) {
        reportend(1, Word::Set, " ", k, ": ", AsTyped{lineequation(k)}); // an asterisk is no note there
        any = true;
    });
    if (session.progSide != lifeSide && !any) report(noAnswerText);
}

double quantity() {
    double total = 0;
    for (int k = 1; k <= setcount(); ++k)
        total += session.progSide == lifeSide ? session.countQuantity(k) : pointcount(k);
    return total;
}

// ---- single values ----

/// Mean of a line. Weibull eta Gamma(1 + 1/beta), Lognormal eta exp(ln(beta)^2/2), Normal eta, Gumbel
/// eta -+ 0.5772 beta. Johnson, Kotz, Balakrishnan, Continuous Univariate Distributions (1994).
double meanofline(const FamilyLine& line) {
    switch (line.family) {
    case weibull: return line.eta * std::exp(std::lgamma(1 + 1 / line.beta));
    case lognormal: return line.eta * std::exp(std::log(line.beta) * std::log(line.beta) / 2);
    case normal: return line.eta;
    case gumbel: return line.eta + line.extreme * std::numbers::egamma * line.beta;
    default: return noAnswer;
    }
}

/// Survival from its own logarithm, which keeps its digits far beyond the point where 1 - F is lost.
double survivalat(const FamilyLine& line, double x) {
    const StandardLine standard = standardline(line);
    return std::exp(logabove(standard.shape, standard.z(x)));
}

/// Failure rate: density over survival, by their logarithms. 0 before anything can fail.
double rateat(const FamilyLine& line, double x) {
    const StandardLine standard = standardline(line);
    if (standard.logarithmic && x <= 0) return 0;
    const double z = standard.z(x);
    const double logRate =
        logdensity(standard.shape, z) - logabove(standard.shape, z) - std::log(standard.scale);
    return std::exp(logRate) / (standard.logarithmic ? x : 1);
}

void valueline(double value) {
    if (std::isfinite(value) && value > noLowLimit)
        report(Reported{value});
    else
        report(noAnswerText);
}

/// One value a set, or one a set and X.
struct ValueWord {
    std::string_view word;
    double (*ofLine)(const FamilyLine& line) = nullptr;
    double (*at)(const FamilyLine& line, double x) = nullptr;
};
/// EXPR and AVAL belong to the growth analysis of X-Y data.
constexpr ValueWord valueWords[] = {
    {"MTBF", meanofline}, {"SURV", nullptr, survivalat}, {"RATE", nullptr, rateat}, {"EXPR"}, {"AVAL"}};

void values(const ValueWord& word) {
    const bool life = session.progSide == lifeSide;
    bool any = false;
    if (life && (word.ofLine || word.at))
        fittedsets([&](int k) {
            const FamilyLine line = lineofset(k);
            if (word.ofLine) valueline(word.ofLine(line) + session.t0(k));
            if (word.at)
                for (const double x : session.cmdX) valueline(word.at(line, x - session.t0(k)));
            any = any || word.ofLine || !session.cmdX.empty();
        });
    if (!any) report(noAnswerText);
}

std::optional<std::string> picture() {
    std::string svg;
    if (!plotsvg(svg, pixelsAcross, pixelsDown)) return std::nullopt;
    return svg;
}

/// A command and the text it stands for.
struct TextWord {
    std::string_view word;
    std::optional<std::string> (*text)();
};
constexpr TextWord textWords[] = {
    {"A", [] { return std::optional(reportastext()); }},
    {"C", [] { return std::optional(reportastext()); }},
    {"D", [] { return std::optional(dataastext()); }},
    {"E", [] { return std::optional(reported(equations)); }},
    {"R", [] { return std::optional(reported(results)); }},
    {"Q", [] { return std::optional(reported([] { valueline(quantity()); })); }},
    {"P", picture},
    {"I", picture},
};

bool tocannot(Word what, const std::string& file) {
    compose(session.msg, Word::Cannot, " ", what, ": ", AsTyped{file});
    return false;
}

bool bitmap(const ScriptCommand& command) {
    const auto svg = picture();
    if (svg && platform && platform->pictures().bitmap(command.file, *svg, pixelsAcross, pixelsDown))
        return true;
    compose(session.msg, "Bitmap ", Word::Not, " ", Word::Possible, ": ", AsTyped{command.file});
    return false;
}

bool toclipboard(const std::string& word, const std::string& text) {
    if (!platform) return false;
    const bool isPicture = word == "P" || word == "I";
    return isPicture ? platform->clipboard().setpicture(text) : platform->clipboard().settext(text);
}

} // namespace

bool anyresult() {
    for (int k = 1; k <= setcount(); ++k)
        if (session.setFitted(k) == 1 || (session.progSide != lifeSide && pointcount(k) > 0)) return true;
    return false;
}

std::optional<std::string> outputtext(const std::string& word) {
    for (const TextWord& known : textWords)
        if (known.word == word) return known.text();
    for (const ValueWord& known : valueWords)
        if (known.word == word) return reported([&] { values(known); });
    return std::nullopt;
}

std::string blifelines(std::span<const double> percents) {
    return reported([&] {
        if (session.progSide != lifeSide) report(noAnswerText);
        fittedsets([&](int k) {
            for (const double percent : percents) {
                if (percent < noLowLimit) continue; // an index that no line has set
                reportcell(0, "B", Reported{percent}, "=");
                const bool inside = percent > 0 && percent < 100;
                const double x = quantileofp(lineofset(k), percent / 100, negdataok());
                valueline(inside ? x + static_cast<double>(session.t0(k)) : noAnswer);
            }
        });
    });
}

bool scriptoutput(const ScriptCommand& command) {
    if (command.word == "F" && command.file.empty()) {
        compose(session.msg, Word::No, " ", Word::File, " ", Word::Name);
        return false;
    }
    if (command.word == "F") return datafilesave(command.file);
    const bool picture = command.word == "P" || command.word == "I";
    if ((picture || command.word == "B") && session.cmdPlot == 0) return true;
    if (command.word == "B") return bitmap(command);
    if (picture && !command.file.empty())
        return plotfile(command.file, pixelsAcross, pixelsDown) || tocannot(Word::Plot, command.file);
    const auto text = outputtext(command.word);
    if (!text) return tocannot(Word::Plot, command.word);
    if (command.file.empty()) {
        if (toclipboard(command.word, *text)) return true;
        compose(session.msg, Word::Cannot, " ", Word::Copy, " ", Word::To, " ", Word::Clipboard);
        return false;
    }
    return writefile(command.file, *text) || tocannot(Word::Save, command.file);
}
