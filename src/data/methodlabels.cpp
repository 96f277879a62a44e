#include "data/methodlabels.h"

#include <cmath>

#include "session/session.h"
#include "shell/words.h"

namespace {

std::string_view variantname(int variant) {
    static constexpr std::string_view names[] = {"mle", "mmleN-1", "RBAmd", "RBAmu", "RBApb", "RBAjjm"};
    return names[variant >= 0 && variant <= 5 ? variant : 0];
}

/// Mark of the input type behind the method, and for grouped rows the letter of the grouping option.
void appendinputmark(std::string& text) {
    static constexpr std::string_view marks[] = {"", "/insp1", "/prbt2", "/prbt3", "/km4", "/intv5"};
    const int type = session.inputType;
    if (type < 0 || type > intv5) return;
    text += marks[type];
    const bool grouped = type >= prbt2 && type <= km4;
    if (grouped && session.groupingOption == 1) text += 'n';
    if (grouped && session.groupingOption == 2) text += 'd';
}

/// Units added to a Weibayes line: " + 2 F", " + 3 S". Grouped rows take none.
void appendadded(std::string& text) {
    const float added = session.wbFail > 0 ? session.wbFail : session.wbSusp;
    const bool grouped = session.inputType >= prbt2 && session.inputType <= km4;
    if (added <= 0 || grouped) return;
    extend(text, " + ", added, session.wbFail > 0 ? " F" : " S");
}

} // namespace

std::string_view familyname(int family) {
    static constexpr std::string_view names[] = {"", "Weibull", "LogNormal", "Normal", "Gumbel"};
    return family >= weibull && family <= gumbel ? names[family] : names[0];
}

void appendfamily(std::string& text) {
    if (session.dist == lognormal && session.fixedSlope > 0) text += 'B';
    text += familyname(session.dist);
    if (session.dist == gumbel && session.gumbeltype != 0) text += session.gumbeltype > 0 ? '+' : '-';
}

void appendmethod(std::string& text) {
    if (session.fitMethod == maximumLikelihood) {
        text += variantname(session.mleVariant);
        return;
    }
    text += session.rrSwap > 0 ? "rrs" : "rr";
}

void appendstatus(std::string& text, int k) {
    const bool likelihood = session.fitMethod == maximumLikelihood;
    if (likelihood)
        text += variantname(session.setCorrected(k) == 1 ? session.mleVariant : 0);
    else
        text += session.rrSwap > 0 ? "rrs" : "rr";
    appendinputmark(text);
    if (session.t0(k) != 0) {
        text += "/t0";
        if (likelihood) text += session.thresholdByRegression == 1 ? "~r" : "~m";
    }
    if (session.popPortion != 0) {
        text += "/tP%=";
        append(text, std::round(static_cast<double>(session.popPortion) * 1000) / 10);
    }
    if (likelihood && session.variableSlopes != 0) text += "/VS";
}

void appendletter(std::string& text, int k) {
    const float slope = session.fixedSlope;
    switch (session.dist) {
    case weibull:
        if (slope > 0) {
            text += session.wbPlan == 3 && session.wbSusp > 0 ? "DS"
                    : slope == 1                              ? "E"
                    : slope == 2                              ? "R"
                                                              : "WB";
            appendadded(text);
        } else
            text += static_cast<char>('A' + (k - 1) % 26);
        break;
    case lognormal:
        if (slope > 0) text += 'B';
        break;
    case gumbel:
        text += 'G';
        if (session.gumbeltype != 0) text += session.gumbeltype > 0 ? '+' : '-';
        break;
    default: break;
    }
}

void appendinput(std::string& text, int inputType) {
    switch (inputType) {
    case insp1: append(text, Word::Inspect), text += " (insp1)"; break;
    case prbt2:
    case prbt3:
        append(text, Word::Probit), text += ' ';
        append(text, Word::Grouped), text += inputType == prbt2 ? " (prbt2)" : " (prbt3)";
        break;
    case km4: text += "Kaplan-Meier ", append(text, Word::Grouped), text += " (km4)"; break;
    case intv5: append(text, Word::Interval), text += " (intv5)"; break;
    default:
        append(text, Word::Standard), text += ' ', append(text, Word::Point), text += '-',
            append(text, Word::By), text += '-', append(text, Word::Point);
        break;
    }
}

std::string_view rankcode(int rankMethod) {
    static constexpr std::string_view codes[] = {"br", "mr", "hr", "nr", "kr"};
    return rankMethod >= binomialRank && rankMethod <= kaplanMeierRank ? codes[rankMethod - 1] : "rr";
}

std::string_view rankname(int rankMethod) {
    static constexpr std::string_view names[] = {"Hazen", "Blom", "Kaplan-Meier"};
    if (rankMethod == binomialRank) return word(Word::Binomial);
    if (rankMethod == meanRank) return word(Word::Mean);
    return rankMethod >= hazenRank && rankMethod <= kaplanMeierRank ? names[rankMethod - hazenRank]
                                                                    : "Benard";
}
