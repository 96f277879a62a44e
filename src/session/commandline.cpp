#include "session/commandline.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "platform/paths.h"
#include "session/confidencetext.h"
#include "session/distribution.h"
#include "session/session.h"
#include "session/switches.h"
#include "shell/words.h"

namespace {

// ---- values ----

/// A number and nothing behind it; "#" ends a value. Nothing readable gives false.
bool numberin(std::string_view text, double& value) {
    if (text.ends_with('#')) text.remove_suffix(1);
    if (text.empty() || text.find_first_not_of("0123456789.+-eE") != std::string_view::npos) return false;
    const NumberText number = readnumber(text);
    if (number.readable) value = number.value;
    return number.readable;
}

/// A whole number from low to high, plain or in parentheses.
bool wholein(std::string_view text, int low, int high, int16_t& value) {
    if (text.size() > 2 && text.front() == '(' && text.back() == ')') text = text.substr(1, text.size() - 2);
    double number = 0;
    if (!numberin(text, number) || number != std::floor(number) || number < low || number > high)
        return false;
    value = static_cast<int16_t>(number);
    return true;
}

/// Numbers with "_", a comma or a blank between them.
bool numbersin(std::string_view text, std::vector<double>& values) {
    std::vector<double> read;
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of("_, "), text.size());
        double value = 0;
        if (!numberin(text.substr(0, end), value)) return false;
        read.push_back(value);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    values = read;
    return !read.empty();
}

bool limitsin(std::string_view text, std::vector<double>& values) {
    std::vector<double> read;
    if (!numbersin(text, read) || read.size() != 4) return false;
    values = read;
    return true;
}

char capital(std::string_view text) {
    return text.empty() ? '\0' : static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
}

// ---- the switches ----

template <std::string CommandFields::*Member>
bool textinto(std::string_view value) {
    session.*Member = value;
    return !value.empty();
}

template <CommandMark Mark>
bool markinto(std::string_view value) {
    return numberin(value, session.cmdMarks[Mark]);
}

bool takeside(std::string_view value) {
    if (value.empty()) return false;
    // A path names the program's folder, and no side.
    if (value.find_first_of("\\/:") != std::string_view::npos) return true;
    session.cmdSide = capital(value) == 'V' ? visualSide : lifeSide;
    return true;
}

bool takedistribution(std::string_view value) {
    if (!distributionof(value)) return false;
    session.cmdDistribution = value;
    return true;
}

bool takeconfidence(std::string_view value) {
    if (!confidenceof(value)) return false;
    session.cmdConfidence = value;
    return true;
}

/// -j names the input by a letter as well: A or W standard, B inspection, C interval.
bool takeinputletter(std::string_view value) {
    const std::string_view letters = "ABCW";
    constexpr int16_t inputs[] = {standard0, insp1, intv5, standard0};
    const auto letter = letters.find(capital(value));
    if (letter == std::string_view::npos) return wholein(value, standard0, intv5, session.cmdInput);
    if (value.size() > 1) return wholein(value.substr(1), standard0, intv5, session.cmdInput);
    session.cmdInput = inputs[letter];
    return true;
}

bool takeplotchoice(std::string_view value) {
    if (value.size() != 1 || std::string_view("ACHPQRSTUVY").find(capital(value)) == std::string_view::npos)
        return false;
    session.cmdPlotChoice = capital(value);
    return true;
}

bool takesize(std::string_view value) {
    std::vector<double> size;
    if (!numbersin(value, size) || size.size() != 2 || !(size[0] >= 1) || !(size[1] >= 1)) return false;
    session.cmdSets = sngguard(size[0]);
    session.cmdPoints = sngguard(size[1]);
    return true;
}

bool takesamples(std::string_view value) {
    double samples = 0;
    if (!numberin(value, samples) || !(samples >= 1)) return false;
    session.cmdSamples = sngguard(samples);
    return true;
}

template <std::size_t Line>
bool takeline(std::string_view value) {
    const char kind = capital(value);
    if (kind != 'B' && kind != 'X' && kind != 'R') return false;
    value.remove_prefix(1);
    if (value.starts_with('_')) value.remove_prefix(1);
    if (!value.empty() && !numberin(value, session.cmdLineAt[Line])) return false;
    session.cmdLine[Line] = kind;
    return true;
}

bool takeplot(std::string_view value) {
    if (capital(value) != 'N' && capital(value) != 'P') return false;
    session.cmdPlot = capital(value) == 'P' ? 1 : 0;
    return true;
}

bool takewindow(std::string_view value) {
    double number = 0;
    if (!numberin(value, number)) return false;
    session.cmdShowWindow = number != 0 ? 1 : 0;
    return true;
}

bool takerequest(std::string_view value) {
    session.scriptRequest = value;
    return !value.empty();
}

bool takenothing(std::string_view) { return true; }

/// A switch: `take` records its value, empty when there is none.
struct Switch {
    char letter;
    bool (*take)(std::string_view value);
};

/// In the order in which they are taken, whatever their order on the line.
constexpr Switch switches[] = {
    {'c', textinto<&CommandFields::cmdConfig>},
    {'t', textinto<&CommandFields::cmdTemp>},
    {'d', textinto<&CommandFields::cmdData>},
    {'i', [](std::string_view value) { return wholein(value, standard0, intv5, session.cmdInput); }},
    {'m', [](std::string_view value) { return wholein(value, 1, 8, session.cmdMethod); }},
    {'e', takedistribution},
    {'f', textinto<&CommandFields::cmdTitle>},
    {'k', textinto<&CommandFields::cmdTitleSecond>},
    {'a', textinto<&CommandFields::cmdOptionFile>},
    {'w', takeplotchoice},
    {'v', takenothing},
    {'s', takerequest},
    {'z', [](std::string_view value) { return limitsin(value, session.cmdLimits); }},
    {'p', takeside},
    {'h', takewindow},
    {'r', takesize},
    {'b', takeconfidence},
    {'q', markinto<startMark>},
    {'u', markinto<reportMark>},
    {'g', takesamples},
    {'x', [](std::string_view value) { return numbersin(value, session.cmdX); }},
    {'y', [](std::string_view value) { return numbersin(value, session.cmdY); }},
    {'j', takeinputletter},
    {'o', markinto<optionMark>},
    {'1', [](std::string_view value) { return limitsin(value, session.cmdRanges); }},
    {'2', [](std::string_view value) { return numbersin(value, session.cmdScale); }},
    {'3', markinto<scriptMark3>},
    {'4', markinto<scriptMark4>},
    {'5', markinto<scriptMark5>},
    {'6', takeline<0>},
    {'7', takeline<1>},
    {'8', takeplot},
    {'9', takenothing},
};

constexpr SwitchHelp help[] = {
    {'p', "W | V", "side: W life data, V X-Y data (the default; vanexw means -p W)"},
    {'i', "N", "input: 0 standard, 1 inspection, 2 and 3 probit, 4 Kaplan-Meier, 5 interval"},
    {'j', "N", "the same, or A standard, B inspection, C interval, W standard"},
    {'m', "N", "method: 1 rr, 2 rrs, 3 mle, 4 mleN-1, 5 RBAmd, 6 RBAmu, 7 RBApb, 8 RBAjjm"},
    {'e', "NAME",
     "distribution: WEIBULL, LOGNORMAL, NORMAL, NORMAL+ (values may be negative), GUMBEL-,\n"
     "GUMBEL+, EXPONENTIAL, RAYLEIGH, WEIBAYES; behind it 3 for a threshold, 3AR for one\n"
     "with the scale as recorded, or (n) for a known slope: WEIBULL(2.5)"},
    {'b', "LIST",
     "bounds: M1 binomial, M2 Fisher matrix, M3 likelihood ratio, M4 Monte Carlo,\n"
     "M5 pivotal, M6 normal theory; D90 double-sided, L95 lower, U95 upper, A95 either\n"
     "side; T100 a known threshold: M2D90, M3L95"},
    {'g', "N", "samples of a simulation; maximum likelihood unless -m says otherwise"},
    {'x', "A[_B...]", "values at which SURV and RATE are asked for"},
    {'f', "TEXT", "title of the plot"},
    {'k', "TEXT", "its second line"},
    {'z', "A_B_C_D", "limits of the plot: X low and high, Y low and high; 0 automatic"},
    {'1', "A_B_C_D#", "the same"},
    {'8', "N | P", "no plot, or a plot (the default)"},
    {'r', "SETS_POINTS", "room for so many sets of so many points"},
    {'s', "[REQUEST]", "script request: [WVW [data.txt] R results.txt]; [@FILE] runs a script file"},
    {'a', "FILE", "option file for this run"},
    {'c', "FOLDER", "folder of the settings file VANEX.INI"},
    {'d', "FOLDER", "folder of data files"},
    {'t', "FOLDER", "folder of temporary files"},
    {'h', "1", "the main window opens after a script run"},
    {'y', "A[_B...]",
     "start values of Y, kept for the run, as are the plot choice -w LETTER, the fixed\n"
     "places -2, the line fits -6 and -7 and the marks -q, -u, -o, -3, -4, -5"},
    {'v', "", "and -9: without effect"},
    {'0', "", "ends the switches"},
};

/// The last of that letter; null when it was not given.
const SwitchText* switchof(std::span<const SwitchText> given, char letter) {
    const SwitchText* found = nullptr;
    for (const SwitchText& one : given)
        if (one.letter == letter) found = &one;
    return found;
}

bool takefile(std::span<const SwitchText> given) {
    for (const SwitchText& one : given) {
        if (one.letter != 0) continue;
        if (!session.cmdFile.empty()) {
            compose(session.msg, Word::Unknown, ": ", AsTyped{one.value});
            return false;
        }
        session.cmdFile = one.value;
    }
    return true;
}

// ---- taking effect ----

/// What -m stands for, from 1.
struct Method {
    float fitMethod;
    float rrSwap;
    int16_t mleVariant;
};
constexpr Method methods[] = {{rankRegression, 0, 0},    {rankRegression, 1, 0},    {maximumLikelihood, 0, 0},
                              {maximumLikelihood, 0, 1}, {maximumLikelihood, 0, 2}, {maximumLikelihood, 0, 3},
                              {maximumLikelihood, 0, 4}, {maximumLikelihood, 0, 5}};

void applymethod() {
    constexpr int16_t plainLikelihood = 3;
    const int16_t number = session.cmdMethod > 0    ? session.cmdMethod
                           : session.cmdSamples > 0 ? plainLikelihood
                                                    : 0;
    if (number == 0) return;
    const Method& method = methods[number - 1];
    session.fitMethod = session.fitMethodSaved = method.fitMethod;
    session.rrSwap = method.rrSwap;
    session.mleVariant = method.mleVariant;
}

void applydistribution() {
    const auto choice = distributionof(session.cmdDistribution);
    if (!choice) return;
    session.dist = choice->dist;
    session.gumbeltype = choice->gumbeltype;
    session.fixedSlope = choice->fixedSlope;
    if (choice->negative) session.negativeXAllowed = 1;
    session.findThreshold = choice->threshold ? 1 : 0;
    session.scaleAsRecorded = choice->asRecorded ? 1 : 0;
}

void applyconfidence() {
    if (session.cmdConfidence.empty()) return;
    const auto choice = confidenceof(session.cmdConfidence);
    if (!choice) return;
    session.confMethod = choice->method;
    session.confLow = sngguard(choice->low);
    session.confHigh = sngguard(choice->high);
    session.confAuto = choice->automatic ? 1 : 0;
    if (choice->threshold != 0)
        for (int k = 1; k <= static_cast<int>(session.maxSets); ++k)
            session.t0(k) = sngguard(choice->threshold);
}

void applyplot() {
    if (!session.cmdTitle.empty()) session.titleWanted = session.cmdTitle;
    if (!session.cmdTitleSecond.empty()) session.titleSecond = session.cmdTitleSecond;
    const std::vector<double>& limits = session.cmdLimits.empty() ? session.cmdRanges : session.cmdLimits;
    if (limits.size() != 4) return;
    session.xLimitLow = limits[0];
    session.xLimitHigh = limits[1];
    session.yLimitLow = limits[2];
    session.yLimitHigh = limits[3];
}

} // namespace

std::span<const SwitchHelp> switchhelp() { return help; }

bool cmdparse(std::string_view line) {
    const std::vector<SwitchText> given = switchsplit(line);
    const std::string undefined = session.msg;
    if (!takefile(given)) return false;
    for (const Switch& one : switches) {
        const SwitchText* const text = switchof(given, one.letter);
        if (!text || text->none || one.take(text->value)) continue;
        std::string note;
        if (text->value.empty())
            compose(note, Word::No, " ", Word::Value, ": -", one.letter);
        else
            compose(note, Word::Unknown, ": -", one.letter, " ", AsTyped{text->value});
        wordclean(note);
        session.cmdNotes.push_back(note);
    }
    session.msg = undefined;
    return undefined.empty();
}

bool cmdparse(std::span<const std::string> words) { return cmdparse(linefrom(words)); }

void cmdapply() {
    if (session.cmdInput >= 0) session.inputType = session.cmdInput;
    if (!session.cmdData.empty()) session.dataPath = withbackslash(session.cmdData);
    if (session.cmdSamples > 0) session.mcCount = std::min(session.cmdSamples, 32000.0f);
    applymethod();
    applydistribution();
    applyconfidence();
    applyplot();
}
