#include "data/reportgoodness.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "data/cell.h"
#include "data/methodlabels.h"
#include "data/report.h"

namespace {

constexpr int secondColumn = 25;
constexpr int thirdColumn = 50;
constexpr double highestPrinted = 99.9999;
constexpr double fewFailures = 14; ///< below, pve has rows of its own for each count

void reportpve(int k) {
    const double percent = session.pvePercent(k);
    compose(session.msg, "pve%=");
    if (percent <= 0) {
        append(session.msg, "0");
    } else {
        appendpercent(session.msg, percent, failurecount(k) < fewFailures);
        appendtenpercentmark(session.msg, "pve%", percent, false);
    }
    const std::string text = session.msg;
    reportend(secondColumn, text);
}

/// The two lines of the test, and its grade; the text "No ... For Data Type" for a set without a value.
void reportad(int k) {
    const double percent = session.pADPercent(k);
    if (!(percent > 0)) {
        report(Word::No, " pAD% ", Word::For, " ", Word::Data, " ", Word::Type);
        return;
    }
    report("[", familyname(session.dist), "P] ", Word::Modified, " Anderson-Darling ", Word::For, " ",
           Word::Set, " ", k);
    compose(session.msg, Word::Modified, " Anderson-Darling P-", Word::Value, " pAD% = ");
    appendpercent(session.msg, percent, true);
    append(session.msg, " (");
    appendadgrade(session.msg, percent);
    append(session.msg, ")");
    appendtenpercentmark(session.msg, "pAD%", percent, true);
    reportline();
    report(Word::From, " A2 [", Word::Modified, " ", Word::For, " ", Word::Sample, " ", Word::Size,
           "] = ", Reported{session.modifiedA2(k)});
}

} // namespace

bool byregression(int k) { return !(session.LOGLYKMLE(k) > noLowLimit); }

void appendpercent(std::string& text, double percent, bool fine) {
    const double least = fine ? 0.1 : 1;
    if (percent > highestPrinted)
        append(text, ">99.9999");
    else if (percent < least)
        append(text, fine ? "<.1" : "<1");
    else
        append(text, std::min(99.99, std::round(percent * 100) / 100));
}

void appendtenpercentmark(std::string& text, std::string_view label, double percent, bool urgent) {
    if (percent < 10)
        extend(text, " (", label, urgent ? "<10!!)" : "<10!)");
    else
        extend(text, " (", Word::OK, ")");
}

void appendadgrade(std::string& text, double percent) {
    if (percent < 1)
        append(text, Word::Bad);
    else if (percent < 5)
        extend(text, Word::Very, " ", Word::Poor);
    else if (percent < 10)
        append(text, Word::Poor);
    else if (percent < 50)
        append(text, Word::Acceptable);
    else if (percent < 80)
        append(text, Word::Good);
    else
        extend(text, Word::Very, " ", Word::Good);
}

void appenddifferencegrade(std::string& text, double confidence) {
    if (confidence >= 95)
        append(text, Word::Strong);
    else if (confidence >= 90)
        append(text, Word::Probable);
    else if (confidence >= 80)
        append(text, Word::Possible);
}

void appenddifference(std::string& text, double pFF) {
    if (!(pFF >= 0)) {
        extend(text, Word::No, " LR ", Word::Test, " ", Word::Results);
        return;
    }
    extend(text, " pFF-", Word::Difference, " [%] = ");
    if (pFF < 1)
        append(text, "<1.0");
    else
        appendpercent(text, pFF, false);
    std::string grade;
    appenddifferencegrade(grade, 100 - pFF);
    if (!grade.empty()) extend(text, " (", grade, ")");
}

bool twosetsasked() {
    return setcount() == 2 && session.lineHide(1) == 0 && session.lineHide(2) == 0
           && std::abs(session.confMethod) == likelihoodBounds;
}

void reportcorrelationtest(int k) {
    if (session.fitMeasure != 1 || !byregression(k)) {
        report();
        return;
    }
    const double critical = session.cccSquared(k);
    const double rSquared = session.setCorrelation(k) * session.setCorrelation(k);
    reportcell(thirdColumn, "ccc^2=", Reported{critical});
    if (critical <= 0)
        report();
    else if (rSquared < critical)
        report(" (r^2<ccc^2!)");
    else
        report(" (", Word::OK, ")");
}

void reportgoodness(int k) {
    if ((session.fitMeasure == 1 || session.fitMeasure == 2) && byregression(k)) reportpve(k);
    if (session.fitMeasure == 3) reportad(k);
}
