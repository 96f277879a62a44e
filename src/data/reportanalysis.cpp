#include "data/reportanalysis.h"

#include "data/boundvalues.h"
#include "data/datetext.h"
#include "data/methodlabels.h"
#include "data/report.h"
#include "data/reportgoodness.h"
#include "data/reportranks.h"
#include "data/settitle.h"
#include "plot/transforms.h"
#include "shell/prompts.h"

namespace {

// Columns of the fit block.
constexpr int secondColumn = 25;
constexpr int thirdColumn = 50;

std::string filename() {
    std::string name;
    return session.fileName.empty() ? compose(name, Word::None) : compose(name, AsTyped{session.fileName});
}

Word sidename() { return session.progSide == lifeSide ? Word::Life : Word::Plotting; }

/// Heading of every block: side, file, and which of how many lines this is.
void reportheading(int line, int lines) {
    report();
    report(Word::Analysis, " ", Word::Report, " (", sidename(), ")");
    if (session.fileNameShown == 1) reportcell(0, Word::File, " = ", filename());
    reportend(57, "(", line, " ", Word::Of, " ", lines, ")");
    report();
}

void reportset(int k) {
    const auto& messages = session.setMessages[static_cast<std::size_t>(k)];
    reportcell(0, Word::By, " - ", Word::Set, " ", k, messages.empty() ? "" : " !!");
    reportcell(50, Word::Date);
    reportend(57, ": ", datetext());
    if (const auto title = titleofset(k); !title.empty()) report(Word::Title, ": ", AsTyped{title});
    for (const std::string& message : messages) reportnotice(message);
}

/// Family and parameters of the line.
void reportparameters(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    report();
    compose(session.msg, ";");
    appendfamily(session.msg);
    if (session.fixedSlope > 0 && session.dist == weibull)
        extend(session.msg, " (",
               session.fixedSlope == 1   ? std::string_view(word(Word::Exponential))
               : session.fixedSlope == 2 ? "Rayleigh"
                                         : "Weibayes",
               ")");
    reportline();
    reportcell(secondColumn, parametername(session.dist, 1), "=", Reported{session.etaFit(row, 1)});
    reportend(thirdColumn, parametername(session.dist, 2), "=", Reported{session.betaFit(row, 1)});
}

/// What was added to a Weibayes line, and the confidence that stands for the failures it has none of.
void reportweibayes(int k) {
    if (session.dist != weibull || session.fixedSlope <= 0) return;
    const bool added = session.wbFail > 0 || session.wbSusp > 0;
    const bool failed =
        session.countOccr(k) + session.countDisc(k) + session.countIntv(k) + session.wbFail > 0;
    if (failed && !added) return;
    reportcell(0, session.lineLabelA(k));
    if (failed)
        report();
    else
        reportend(secondColumn, "wbcnf = ", session.wbConf);
}

/// Mean of the occurrences. It has bounds of its own where it is the parameter: a Normal set by normal
/// theory.
void reportmean(int k) {
    if (!(session.occurrenceMean(k) > noLowLimit)) return;
    reportcell(0, Word::Mean, " (", Word::Occurrence, " ", Word::Sum,
               ")=", Reported{session.occurrenceMean(k)});
    if (session.dist == normal && session.setBoundLabel(k) == "nr") {
        if (session.paramLow(k, 1) > noLowLimit) reportcell(0, "  >", Reported{session.paramLow(k, 1)});
        if (session.paramHigh(k, 1) > noLowLimit) reportcell(0, "  <", Reported{session.paramHigh(k, 1)});
    }
    report();
}

/// Counts and threshold.
void reportcounts(int k) {
    reportmean(k);
    const auto counts = [k](const auto&... lead) {
        report(lead..., Word::Total, " =", session.countQuantity(k), "  ", Word::Occurrence, "=",
               session.countOccr(k), " (Susp=", session.countSusp(k), " Disc=", session.countDisc(k),
               " Intv=", session.countIntv(k), ")");
    };
    if (session.setFitted(k) == 1)
        counts();
    else
        counts(Word::Not, " ", Word::Fit, ": ");
    if (session.t0(k) == 0) return;
    reportcell(0, "  ", AsTyped{session.thresholdName}, "=", Reported{session.t0(k)});
    if (session.scaleAsRecorded == 1)
        report(" (", Word::PlotScale, " ", Word::As, " ", Word::Recorded, ")");
    else
        report();
}

/// Confidence and method of the bounds, and the bounds of the parameters.
void reportbounds(int k) {
    if (!hasbounds(k)) return;
    reportend(0, "c%=", boundconfidence(), " ", session.setBoundLabel(k));
    for (const int j : {1, 2}) {
        const double low = session.paramLow(k, j);
        const double high = session.paramHigh(k, j);
        if (!(low > noLowLimit) && !(high > noLowLimit)) continue;
        reportcell(3, parametername(session.dist, j));
        if (low > noLowLimit) reportcell(secondColumn, "(-)=", Reported{low});
        if (high > noLowLimit) reportcell(thirdColumn, "(+)=", Reported{high});
        report();
    }
}

// Columns of the B life table: the value, and its bounds behind it.
constexpr int valueColumn = 14;
constexpr int lowerColumn = 30;
constexpr int upperColumn = 46;

void reportblifehead(int k) {
    report();
    reportcell(4, "B%");
    reportcell(valueColumn + 1, Word::Median, " ", Word::Value);
    if (hasbounds(k)) {
        const ValueBounds percent = valuepercentages(k);
        if (percent.low > 0) reportcell(lowerColumn + 1, percent.low, "% ", Word::Lower);
        if (percent.high > 0) reportcell(upperColumn + 1, percent.high, "% ", Word::Upper);
    }
    report();
}

/// The value by which each percentage of the population has failed, and its bounds.
void reportblives(int k) {
    const int row = static_cast<int>(rowofset(static_cast<float>(k)));
    const Keep keep{session.eta, session.beta, session.ud};
    session.eta = session.etaFit(row, 1);
    session.beta = session.betaFit(row, 1);
    reportblifehead(k);
    for (const double percent : reportlevels()) {
        session.ud = percent / 100;
        txp2xd();
        reportcell(3, ReportedColumn{percent});
        reportcell(valueColumn, ReportedColumn{session.ud + session.t0(k)});
        const ValueBounds bounds = valuebounds(k, percent / 100);
        if (bounds.low > noLowLimit) reportcell(lowerColumn, ReportedColumn{bounds.low});
        if (bounds.high > noLowLimit) reportcell(upperColumn, ReportedColumn{bounds.high});
        report();
    }
}

void reportblock(int k, int lines) {
    reportheading(k, lines);
    if (session.lineHide(k) != 0) {
        report(Word::Set, " ", Word::Not, " ", Word::Active, " (", Word::Zoom, " / ", Word::Hide, " = ",
               Word::Yes, ")");
        return;
    }
    reportset(k);
    if (session.ranksOnly == 1) {
        reportranks(k);
        return;
    }
    if (session.setFitted(k) == 1) {
        reportparameters(k);
        reportweibayes(k);
        reportfit(k);
    }
    reportcounts(k);
    if (session.setFitted(k) != 1) return;
    reportbounds(k);
    reportblives(k);
}

/// Sums over the sets of a summary.
struct Totals {
    double quantity = 0;
    double occurrences = 0;
    double time = 0;
};

void addset(Totals& totals, int k) {
    totals.quantity += session.progSide == lifeSide ? session.countQuantity(k) : pointcount(k);
    totals.occurrences += session.countOccr(k) + session.countDisc(k) + session.countIntv(k);
    totals.time += session.timeTotal(k);
}

/// What the summary says of one set.
void reportsetofmany(int k, int sets) {
    if (const auto title = titleofset(k); title.empty())
        reportcell(8, Word::Set, ": ", k);
    else
        reportcell(8, Word::Set, ": ", AsTyped{title});
    reportend(57, "(", k, " ", Word::Of, " ", sets, ")");
    if (session.fileNameShown == 1) reportend(8, Word::File, " = ", filename());
    if (!session.setLabel(k).empty()) reportend(8, Word::Label, ": ", session.setLabel(k));
}

} // namespace

void reportnotice(std::string_view notice) {
    for (const char* mark = "!! "; !notice.empty(); mark = "   ") {
        const auto end = notice.find('\n');
        report(mark, AsTyped{notice.substr(0, end)});
        notice.remove_prefix(end == std::string_view::npos ? notice.size() : end + 1);
    }
}

void reportsetup() {
    report(Word::Setup, ": ", Word::Dimension, " = ", session.maxSets, "x", session.maxPoints, ", ",
           Word::Equations, " = ", session.maxLines);
    if (session.setMessages.empty()) return;
    for (const std::string& message : session.setMessages[0]) reportnotice(message);
}

void reportfit(int k) {
    if (session.LOGLYKMLE(k) > noLowLimit) report("mle (LL)=", Reported{session.LOGLYKMLE(k)});
    reportcell(0, Word::Correlation, "(r)=", Reported{session.setCorrelation(k)});
    reportcell(secondColumn, "r^2=", Reported{session.setCorrelation(k) * session.setCorrelation(k)});
    reportcorrelationtest(k);
    reportgoodness(k);
    compose(session.msg, ";", Word::Method, "=", session.setLabel(k));
    if (hasbounds(k)) extend(session.msg, " (", session.setBoundLabel(k), ")");
    reportline();
    if (session.fitMethod == rankRegression
        && !(session.setInputType(k) >= prbt2 && session.setInputType(k) <= km4))
        reportcell(secondColumn, Word::Plot, " ", Word::Point, "=",
                   rankname(static_cast<int>(session.rankMethod)), " (",
                   rankcode(static_cast<int>(session.rankMethod)), ")");
    reportcell(thirdColumn, Word::Input, "=");
    session.msg.clear();
    appendinput(session.msg, session.setInputType(k));
    reportline();
}

void reportanalysis() {
    const int lines = setcount();
    for (int k = 1; k <= lines; ++k) reportblock(k, lines);
    if (!twosetsasked()) return;
    std::string difference;
    appenddifference(difference, session.PVALUEFF(1));
    report();
    report(difference);
}

void reportsummary() {
    const int sets = setcount();
    if (sets == 0) {
        compose(session.msg, "iii= ", Word::Set, " = 0");
        tellok();
        return;
    }
    Totals totals;
    for (int k = 1; k <= sets; ++k) addset(totals, k);
    report();
    report(Word::Summary, " ", Word::Report);
    if (session.fileNameShown == 1) report(Word::File, " = ", filename());
    report(Word::Set, " ", Word::Quantity, " = ", sets, "  ", Word::Total, " =", totals.quantity);
    for (int k = 1; k <= sets; ++k) reportsetofmany(k, sets);
    reportcell(10, Word::Occurrence, " ", Word::Total, " =", totals.occurrences);
    reportend(44, Word::Time, " ", Word::Total, " =", Reported{totals.time});
    report();
    report(Word::Results, ":");
    report(Word::Total, " ", Word::Item, " ", Word::Quantity, " = ", totals.quantity);
    report(Word::Total, " ", Word::Event, " ", Word::Quantity, " = ", totals.occurrences);
}
