#include "data/datafileoptions.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "data/datafilesections.h"
#include "data/filelines.h"
#include "data/filevalue.h"
#include "data/numbertext.h"
#include "numeric/sngguard.h"
#include "session/distribution.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

using S = Session;
using enum FileKind;

constexpr double percent = 100; ///< fractions in the file, percent in the session
constexpr double highestLevel = 0.999999;

// ---- conditions ----

bool lifesession() { return session.progSide == lifeSide; }
bool samemode() { return session.fileSide == session.progSide; }
bool lifefile() { return lifesession() && session.fileSide == lifeSide; }
bool lifedata() { return lifefile() && session.fileHasData == 1; }
bool visualfile() { return !lifesession() && session.fileSide == visualSide; }
/// A list without a view has 0 for its angles, which would be a view of its own.
bool spacefile() { return visualfile() && session.plotKind == spacePlot; }
bool batchoff() { return session.batchActive == 0; }
bool weibullfamily() { return session.dist == weibull; }
/// A threshold is found on the life side alone, and not among discoveries of the interval form.
bool carriesthreshold() {
    return lifesession() && !(session.inputType == intv5 && session.fileDiscovery == 1);
}

// ---- what becomes of a number ----

double magnitude(double value) { return std::fabs(value); }
double negativevalues(double value) {
    if (!lifesession()) return 1;
    return (session.dist == normal || session.dist == gumbel) && value == 1 ? 1 : 0;
}
double wholestep(double value) {
    const bool several = session.fileRows > session.fileStride;
    return value < 0.1 && several ? 1.0 / 6 : value;
}
constexpr double dropped = std::numeric_limits<double>::quiet_NaN(); ///< within no limits
double wholenumber(double value) { return value == std::floor(value) ? value : dropped; }
double notminusone(double value) { return value == -1 ? dropped : value; }
double parameterchoice(double value) {
    const double most = session.dist == weibull || session.dist == gumbel ? 6 : 3;
    return value >= 0 && value <= most && value == std::floor(value) ? value : dropped;
}

double plotkindof(double value) {
    for (const PlotKind kind : {barsStacked, barsSideBySide, bars3D, pie2D, pie3D, spacePlot})
        if (value == static_cast<double>(kind)) return value;
    return xyPlot;
}

// ---- positions of their own shape ----

std::string writeside() { return valueline(session.progSide); }

/// A file of the other side is taken as its data alone: what it said of the analysis belongs to that side.
void readside(std::string_view line) {
    int16_t side = 0;
    takevalue(line, side);
    if (side != lifeSide && side != visualSide) return;
    session.fileSide = side;
    if (samemode()) return;
    resetoptions();
    session.axisTitleY = "% CDF Occurrence";
    if (!lifesession() || session.fileHasData == 0 || session.quietRead != 0) return;
    compose(session.msg, Word::File, " ", Word::Import, " ", Word::Data, " ", Word::As, " ", Word::Probit,
            " ", Word::Format);
    askyesno();
    if (session.u != 1) return;
    session.fileConvert = 1;
    session.inputType = prbt3;
}

std::string writefamily() {
    switch (session.dist) {
    case lognormal: return "LogNormal";
    case normal: return "Normal";
    case gumbel: return session.gumbeltype > 0 ? "Gumbel+" : "Gumbel-";
    default: return "Weibull";
    }
}
void readfamily(std::string_view line) {
    const auto choice = distributionof(line);
    if (!choice) return;
    if (choice->dist != session.dist) session.replotNeeded = 1;
    session.dist = choice->dist;
    session.gumbeltype = choice->gumbeltype;
    session.fixedSlope = choice->fixedSlope;
}

std::string writemethod() { return session.fitMethodSaved == maximumLikelihood ? "2" : "1"; }
void readmethod(std::string_view line) {
    const double method = readentry(line).value;
    if (method == 1 || method == 2) session.fitMethod = session.fitMethodSaved = static_cast<float>(method);
}

/// Codes of a single point in files: a hundred a method, with the percentage of the point beside it.
constexpr double lowestPoint = 51, highestPoint = 549;

std::string writebounds() { return valueline(session.confMethod); }
void readbounds(std::string_view line) {
    const double code = readentry(line).value;
    const double size = std::fabs(code);
    if (code != std::floor(code)) return;
    if (code == static_cast<double>(simulationBounds)) {
        session.confMethod = pivotalBounds;
        session.replotNeeded = 1;
    } else if (size > 0 && size < 7) {
        session.confMethod = static_cast<int16_t>(code);
    } else if (code < 0 && size >= lowestPoint && size <= highestPoint) {
        const double method = std::clamp(std::floor((size + 50) / 100), 1.0, 5.0);
        const double point = size - 100 * method;
        session.confMethod = static_cast<int16_t>(-method);
        if (point != 0) session.singleP = (point > 0 ? point : 100 + point) / percent;
    }
}

/// What the code of the method alone cannot say: no bounds, and the plain simulation.
enum BoundChoice : int { untold = 0, noneChosen = 1, simulationChosen = 2 };
std::string writeboundchoice() {
    if (session.confMethod == noBounds) return valueline(noneChosen);
    return valueline(session.confMethod == simulationBounds ? simulationChosen : untold);
}
void readboundchoice(std::string_view line) {
    int16_t choice = untold;
    takevalue(line, choice);
    if (choice == noneChosen) session.confMethod = noBounds;
    if (choice == simulationChosen) session.confMethod = simulationBounds;
}

float levelof(std::string_view line) {
    return static_cast<float>(checkedlevel(readentry(line).value) * percent);
}

/// A percentage is written as the shorter fraction that gives it back.
template <auto Member>
std::string writelevel() {
    std::string digits;
    appendtrimmed(digits, session.*Member);
    const double level = checkedlevel(readnumber(digits).value / percent);
    const std::string line = valueline(static_cast<float>(level));
    return levelof(line) == session.*Member ? line : valueline(level);
}
template <auto Member>
void readlevel(std::string_view line) {
    session.*Member = levelof(line);
}

std::string writechoice() { return valueline(session.reportChoice); }
void readchoice(std::string_view line) {
    const auto choice = static_cast<int16_t>(readentry(line).value == 1 ? 1 : 0);
    if (choice == session.reportChoice) return;
    if (session.fileRows > 0 && session.quietRead == 0) {
        compose(session.msg, Word::Select, " ", Word::Plot, "/", Word::Report, " ", Word::As, " ",
                Word::File);
        askyesno();
        if (session.u != 1) return;
    }
    session.reportChoice = choice;
}

/// Without a set there is nothing that the override could be for.
std::string writeoverride() {
    const bool serves = !lifesession() || setcount() > 0;
    return valueline(serves ? readentry(session.programKept[64]).value : 0);
}
void readoverride(std::string_view line) { session.programKept[64] = valueline(readentry(line).value); }

/// The reliability flag stands beside the scale itself, which knows more forms of it.
bool reliability() { return session.yScaleKind % 2 == 1; }
std::string writereliability() { return valueline(reliability() ? 1 : 0); }
void readreliability(std::string_view line) {
    if (!lifesession() || (readentry(line).value != 0) == reliability()) return;
    session.yScaleKind = static_cast<int16_t>(session.yScaleKind + (reliability() ? -1 : 1));
}

/// The width of the report follows the availability while it is not given itself.
std::string writewidth() {
    const auto& kept = session.programKept;
    const std::string& own = readentry(kept[40]).value > 0 ? kept[40] : kept[36];
    return readentry(own).value > 0 ? own : "0";
}
void readwidth(std::string_view line) {
    if (readentry(line).value > 0) session.programKept[40] = line;
}

std::string writeportion() { return lifesession() ? valueline(session.popPortion) : "0"; }
void readportion(std::string_view line) {
    const float portion = sngguard(readentry(line).value);
    const bool serves = lifesession() && portion >= 0 && portion <= 1;
    session.popPortion = serves ? portion : 0;
    if (serves || portion == 0) return;
    std::string note;
    compose(note, Word::Partial, " % [BATCH] 0 ... ", Word::Difference);
    (session.fileNotes += session.fileNotes.empty() ? "" : "\n") += note;
}

/// The smallest-extreme form, -1, follows from the family's name.
std::string writegumbel() { return valueline(session.gumbeltype); }
void readgumbel(std::string_view line) {
    const double type = readentry(line).value;
    if (type == 0 || type == 1) session.gumbeltype = static_cast<int16_t>(type);
}

std::string writethreshold() { return valueline(carriesthreshold() && session.findThreshold == 1 ? 1 : 0); }
void readthreshold(std::string_view line) {
    session.findThreshold = carriesthreshold() && readentry(line).value == 1 ? 1 : 0;
}

std::string writerecurrent() { return valueline(setcount() > 0 ? session.RecurrentIDQTY(1) : 0.0f); }
void readnothing(std::string_view) {}

// ---- the table ----

constexpr double whole = 32000;

constexpr ProgramField fields[] = {
    {.position = 1, .name = "progSide", .write = writeside, .read = readside},
    {.position = 2, .name = "dist", .kind = str, .when = lifefile, .write = writefamily, .read = readfamily},
    {.position = 3, .name = "analysisMethod", .when = lifefile, .write = writemethod, .read = readmethod},
    {.position = 4, .name = "confidenceMethod", .when = lifefile, .write = writebounds, .read = readbounds},
    {.position = 5,
     .name = "confLow",
     .kind = r4,
     .when = lifefile,
     .write = writelevel<&S::confLow>,
     .read = readlevel<&S::confLow>},
    {.position = 6,
     .name = "confHigh",
     .kind = r4,
     .when = lifefile,
     .write = writelevel<&S::confHigh>,
     .read = readlevel<&S::confHigh>},
    {.position = 7,
     .name = "inputType",
     .at = placeof<&S::inputType>,
     .low = 0,
     .high = 5,
     .when = samemode,
     .settle = wholenumber},
    {.position = 8, .name = "reportChoice", .write = writechoice, .read = readchoice},
    {.position = 9, .name = "spareA", .kind = r4},
    {.position = 10, .name = "usageRate", .kind = r4, .when = samemode},
    {.position = 11,
     .name = "riskStep",
     .kind = r4,
     .at = placeof<&S::riskStep>,
     .low = 0,
     .settle = wholestep},
    {.position = 12,
     .name = "legendPlace",
     .at = placeof<&S::legendPlace>,
     .low = 0,
     .high = 1,
     .shown = true},
    {.position = 13, .name = "bCount", .at = placeof<&S::barCount>, .shown = true},
    {.position = 14, .name = "pointHide", .at = placeof<&S::pointHide>, .low = 0, .high = 1, .shown = true},
    {.position = 15,
     .name = "pointLabelsShown",
     .at = placeof<&S::pointLabelsShown>,
     .low = 0,
     .high = 1,
     .shown = true},
    {.position = 16,
     .name = "negativeXAllowed",
     .at = placeof<&S::negativeXAllowed>,
     .settle = negativevalues},
    {.position = 17, .name = "parameterChoice", .settle = parameterchoice},
    {.position = 18, .name = "rankSmoothing"},
    {.position = 19, .name = "mixtureOn", .at = placeof<&S::mixFlag>, .low = 0, .high = 1},
    {.position = 20, .name = "mixKind", .at = placeof<&S::mixKind>, .low = 0, .high = 7},
    {.position = 21, .name = "mixtureAsked", .at = placeof<&S::mixtureAsked>, .low = 0, .high = 7},
    {.position = 22, .name = "mixture option", .kind = r4},
    {.position = 29, .name = "fitFirstCoef", .kind = r4},
    {.position = 31, .name = "growthMethod", .when = batchoff},
    {.position = 35, .name = "availabilityA", .kind = r4},
    {.position = 36, .name = "availabilityB", .kind = r4, .when = samemode},
    {.position = 37, .name = "reportFont", .kind = str},
    {.position = 38, .name = "reportFontSize", .kind = r4, .low = 1e-9},
    {.position = 39, .name = "reportStyleA", .settle = notminusone},
    {.position = 40, .name = "reportWidth", .kind = r4, .write = writewidth, .read = readwidth},
    {.position = 41, .name = "reportStyleB", .settle = notminusone},
    {.position = 42, .name = "risk window", .kind = r4, .settle = magnitude},
    {.position = 43, .name = "risk window", .kind = r4, .settle = magnitude},
    {.position = 44, .name = "risk window", .kind = r4, .settle = magnitude},
    {.position = 45, .name = "risk window", .settle = magnitude},
    {.position = 46, .name = "risk option", .kind = r4, .when = samemode},
    {.position = 47, .name = "risk option", .kind = r4},
    {.position = 48, .name = "risk option", .low = 0, .high = 720},
    {.position = 49, .name = "risk option", .low = 0, .high = 720},
    {.position = 50, .name = "fitTermCount", .at = placeof<&S::fitTermCount>, .low = 0, .high = whole},
    {.position = 51, .name = "fitEquationName", .kind = str, .at = placeof<&S::fitEquationName>},
    {.position = 56, .name = "family option", .when = batchoff},
    {.position = 57, .name = "family option", .when = batchoff},
    {.position = 58, .name = "gumbeltype", .write = writegumbel, .read = readgumbel},
    {.position = 60, .name = "family option", .when = weibullfamily},
    {.position = 61, .name = "file's report flag"},
    {.position = 62, .name = "confidenceRounding", .settle = checkedlevel},
    {.position = 63,
     .name = "reliabilityFlag",
     .when = lifesession,
     .write = writereliability,
     .read = readreliability},
    {.position = 64, .name = "sampleSizeOverride", .write = writeoverride, .read = readoverride},
    {.position = 65, .name = "test-plan target", .kind = r8},
    {.position = 66, .name = "test-plan target", .kind = r8},
    {.position = 67, .name = "testPlanChoice"},
    {.position = 68, .name = "0", .settle = [](double) { return 0.0; }},
    {.position = 69, .name = "0", .settle = [](double) { return 0.0; }},
    {.position = 70, .name = "tPercent", .write = writeportion, .read = readportion},
    {.position = 71, .name = "yScaleKind", .at = placeof<&S::yScaleKind>, .low = 0, .high = 5},
    {.position = 72, .name = "fixedSlope", .kind = r4, .at = placeof<&S::fixedSlope>, .low = 0, .high = 1e6},
    {.position = 73, .name = "mleVariant", .at = placeof<&S::mleVariant>, .low = 0, .high = 5},
    {.position = 74, .name = "rrSwap", .at = placeof<&S::rrSwap>, .low = 0, .high = 1},
    {.position = 75, .name = "rankMethod", .at = placeof<&S::rankMethod>, .low = 1, .high = 7},
    {.position = 76, .name = "aval file", .kind = str},
    {.position = 77, .name = "rate file", .kind = str},
    {.position = 78, .name = "groupingOption", .at = placeof<&S::groupingOption>, .low = 0, .high = 2},
    {.position = 79, .name = "fitMeasure", .at = placeof<&S::fitMeasure>, .low = 0, .high = 9},
    {.position = 80, .name = "scaleAsRecorded", .at = placeof<&S::scaleAsRecorded>, .low = 0, .high = 1},
    {.position = 81,
     .name = "thresholdByRegression",
     .at = placeof<&S::thresholdByRegression>,
     .low = 0,
     .high = 1},
    {.position = 82, .name = "fisherForm", .at = placeof<&S::fisherForm>, .low = 0, .high = 2},
    {.position = 83, .name = "rndStart", .kind = r4, .at = placeof<&S::rndStart>, .low = 0},
    {.position = 84, .name = "mcCount", .kind = r4, .at = placeof<&S::mcCount>, .low = 1, .high = whole},
    {.position = 85, .name = "confAuto", .at = placeof<&S::confAuto>, .low = 0, .high = 1},
    {.position = 86, .name = "normalCandidate", .at = placeof<&S::normalCandidate>, .low = 0, .high = 1},
    {.position = 87, .name = "variableSlopes", .at = placeof<&S::variableSlopes>, .low = 0, .high = whole},
    {.position = 88,
     .name = "boundChoice",
     .when = lifefile,
     .write = writeboundchoice,
     .read = readboundchoice},
    {.position = 89, .name = "distributionAsked", .at = placeof<&S::distributionAsked>, .low = 0, .high = 1},
    {.position = 90, .name = "gridAsked", .at = placeof<&S::gridAsked>, .low = 0, .high = 1},
    {.position = 91, .name = "intervalPlot", .at = placeof<&S::intervalPlot>, .low = 0, .high = 1},
    {.position = 92,
     .name = "singleP",
     .kind = r8,
     .at = placeof<&S::singleP>,
     .low = 1e-9,
     .high = 1 - 1e-9},
    {.position = 93,
     .name = "groupDisplay",
     .at = placeof<&S::groupDisplay>,
     .low = 0,
     .high = 1,
     .shown = true},
    {.position = 94, .name = "marksize", .at = placeof<&S::marksize>, .low = 0, .high = 20, .shown = true},
    {.position = 95, .name = "markFixed", .at = placeof<&S::markFixed>, .low = 0, .high = 1, .shown = true},
    {.position = 96, .name = "linewidth", .at = placeof<&S::linewidth>, .low = 1, .high = 9, .shown = true},
    {.position = 97, .name = "colormode", .at = placeof<&S::colormode>, .low = 0, .high = 1, .shown = true},
    {.position = 98,
     .name = "plotMode",
     .at = placeof<&S::plotMode>,
     .low = 1,
     .high = whole,
     .when = samemode},
    {.position = 103, .name = "usageChoice", .at = placeof<&S::usageChoice>, .low = 0, .high = 6},
    {.position = 107, .name = "recurrentIdQty", .write = writerecurrent, .read = readnothing},
    {.position = 108, .name = "xLimitLow", .kind = r8, .at = placeof<&S::xLimitLow>},
    {.position = 109, .name = "xLimitHigh", .kind = r8, .at = placeof<&S::xLimitHigh>},
    {.position = 110, .name = "yLimitLow", .kind = r8, .at = placeof<&S::yLimitLow>},
    {.position = 111, .name = "yLimitHigh", .kind = r8, .at = placeof<&S::yLimitHigh>},
    {.position = 112, .name = "manualScale", .at = placeof<&S::manualScale>, .low = 0, .high = 1},
    {.position = 115, .name = "testQty", .at = placeof<&S::testQty>, .low = 2, .high = whole},
    {.position = 116, .name = "testLast", .at = placeof<&S::testLast>, .low = 1, .high = whole},
    {.position = 117, .name = "LFAIL", .kind = r8, .at = placeof<&S::LFAIL>, .low = -9.123e32},
    {.position = 118, .name = "RSUSP", .kind = r8, .at = placeof<&S::RSUSP>, .low = -9.123e32},
    {.position = 119,
     .name = "digitsGeneral",
     .at = placeof<&S::maskDigits, 0>,
     .low = 1,
     .high = 17,
     .shown = true},
    {.position = 120,
     .name = "digitsParameter",
     .at = placeof<&S::maskDigits, 1>,
     .low = 1,
     .high = 17,
     .shown = true},
    {.position = 121,
     .name = "digitsSlope",
     .at = placeof<&S::maskDigits, 2>,
     .low = 1,
     .high = 17,
     .shown = true},
    {.position = 122,
     .name = "digitsAxis",
     .at = placeof<&S::maskDigits, 3>,
     .low = 1,
     .high = 17,
     .shown = true},
    {.position = 123,
     .name = "digitsFit",
     .at = placeof<&S::maskDigits, 4>,
     .low = 1,
     .high = 17,
     .shown = true},
    {.position = 129, .name = "t0Mode", .write = writethreshold, .read = readthreshold},
    {.position = 130,
     .name = "plotKind",
     .at = placeof<&S::plotKind>,
     .when = visualfile,
     .settle = plotkindof,
     .elseKept = true},
    {.position = 131,
     .name = "zLimitLow",
     .kind = r8,
     .at = placeof<&S::zLimitLow>,
     .when = visualfile,
     .elseKept = true},
    {.position = 132,
     .name = "zLimitHigh",
     .kind = r8,
     .at = placeof<&S::zLimitHigh>,
     .when = visualfile,
     .elseKept = true},
    {.position = 133,
     .name = "rangeLimit",
     .kind = r8,
     .at = placeof<&S::rangeLimit>,
     .low = 0,
     .when = visualfile,
     .elseKept = true},
    {.position = 134,
     .name = "viewTurn",
     .kind = r4,
     .at = placeof<&S::viewTurn>,
     .low = 0,
     .high = 90,
     .when = spacefile,
     .elseKept = true},
    {.position = 135,
     .name = "viewTilt",
     .kind = r4,
     .at = placeof<&S::viewTilt>,
     .low = 0,
     .high = 90,
     .when = spacefile,
     .elseKept = true},
    {.position = 138, .name = "option", .low = 1, .high = 2},
    {.position = 139, .name = "wbConf", .at = placeof<&S::wbConf>, .low = 0, .high = 100},
    {.position = 140, .name = "wbFail", .kind = r8, .at = placeof<&S::wbFail>, .low = 0},
    {.position = 141, .name = "wbSusp", .kind = r8, .at = placeof<&S::wbSusp>, .low = 0},
    {.position = 142,
     .name = "weibayesChoice",
     .at = placeof<&S::wbPlan>,
     .low = 0,
     .high = 3,
     .when = batchoff},
    {.position = 144, .name = "life-stress option", .kind = r8},
    {.position = 145, .name = "life-stress option", .kind = r8},
    {.position = 146, .name = "life-stress option", .kind = r8},
    {.position = 147, .name = "risk option", .when = lifedata},
    {.position = 148,
     .name = "plannedReplacement",
     .kind = r4,
     .at = placeof<&S::plannedReplacement>,
     .low = 0},
    {.position = 149,
     .name = "unplannedReplacement",
     .kind = r4,
     .at = placeof<&S::unplannedReplacement>,
     .low = 0},
    {.position = 157, .name = "usage step"},
    {.position = 158, .name = "lastInputFile", .kind = str},
    {.position = 159, .name = "lastOutputFile", .kind = str},
    {.position = 160, .name = "xValueForecast", .kind = r8},
    {.position = 161, .name = "forecastSpan", .kind = r4},
    {.position = 163, .name = "analysis option", .low = 1e-9},
};

const ProgramField* fieldat(int position) {
    const auto found = std::lower_bound(std::begin(fields), std::end(fields), position,
                                        [](const ProgramField& field, int p) { return field.position < p; });
    return found != std::end(fields) && found->position == position ? found : nullptr;
}

bool applies(const ProgramField& field) { return !field.when || field.when(); }

/// The field that a line of the list stands for in the session in hand.
const ProgramField* fieldinforce(int position) {
    const ProgramField* field = fieldat(position);
    return field && field->elseKept && !applies(*field) ? nullptr : field;
}

std::string emptyline(const ProgramField* field) { return field && field->kind == str ? "" : "0"; }

double numberin(const ProgramField& field) {
    return std::visit(
        []<class T>(T* held) {
            if constexpr (std::is_same_v<T, std::string>)
                return 0.0;
            else
                return static_cast<double>(*held);
        },
        field.at(session));
}

void putnumber(const ProgramField& field, double value) {
    std::visit(
        [value]<class T>(T* held) {
            if constexpr (std::is_same_v<T, float>)
                *held = sngguard(value);
            else if constexpr (std::is_same_v<T, double>)
                *held = value;
            else if constexpr (!std::is_same_v<T, std::string>)
                *held = static_cast<T>(std::clamp(std::trunc(value), -32768.0, 32767.0));
        },
        field.at(session));
}

std::string* textin(const ProgramField& field) {
    if (field.kind != str) return nullptr;
    if (!field.at) return &session.programKept[static_cast<std::size_t>(field.position)];
    const Place place = field.at(session);
    std::string* const* held = std::get_if<std::string*>(&place);
    return held ? *held : nullptr;
}

/// The number as the file shall hold it; nothing when the conditions keep it out.
bool settled(const ProgramField& field, double& value) {
    if (!applies(field)) return false;
    if (field.settle) value = field.settle(value);
    return value >= field.low && value <= field.high;
}

std::string linefor(const ProgramField& field) {
    std::string line;
    double value = numberin(field);
    if (!settled(field, value)) return "0";
    const Place place = field.at(session);
    if (std::holds_alternative<float*>(place))
        appendvalue(line, sngguard(value));
    else
        appendvalue(line, value);
    return line;
}

/// A line without a field in the session, as it was read while its conditions hold.
std::string keptline(const ProgramField* field, int position) {
    const std::string& kept = session.programKept[static_cast<std::size_t>(position)];
    if (kept.empty()) return emptyline(field);
    if (!field) return kept;
    double value = readentry(kept).value;
    const double before = value;
    if (!settled(*field, value)) return "0";
    return value == before ? kept : valueline(value);
}

std::string programline(int position) {
    const ProgramField* field = fieldinforce(position);
    if (field && field->write) return applies(*field) ? field->write() : emptyline(field);
    if (field && field->kind == str) return applies(*field) ? *textin(*field) : std::string();
    return field && field->at ? linefor(*field) : keptline(field, position);
}

void taketext(const ProgramField& field, std::string_view line) {
    if (!line.empty() || field.at) *textin(field) = line;
}

void takekept(const ProgramField* field, int position, std::string_view line) {
    std::string& kept = session.programKept[static_cast<std::size_t>(position)];
    double value = readentry(line).value;
    const double before = value;
    if (field && !settled(*field, value)) return;
    kept = value == before ? std::string(line) : valueline(value);
}

void takeoption(int position, std::string_view line) {
    const ProgramField* field = fieldinforce(position);
    if (field && !applies(*field)) return;
    if (field && field->read) return field->read(line);
    if (field && field->kind == str) return taketext(*field, line);
    if (!field || !field->at) return takekept(field, position, line);
    double value = readentry(line).value;
    if (settled(*field, value)) putnumber(*field, value);
}

} // namespace

std::span<const ProgramField> programfields() { return fields; }

double checkedlevel(double fraction) { return std::clamp(fraction, 0.0, highestLevel); }

void resetoptions() {
    static Session standard;
    for (const ProgramField& field : fields)
        if (field.at && !field.shown) {
            const Place from = field.at(standard);
            std::visit([&]<class T>(T* held) { *held = *std::get<T*>(from); }, field.at(session));
        }
    session.dist = standard.dist;
    session.fitMethod = session.fitMethodSaved = standard.fitMethod;
    session.confMethod = standard.confMethod;
    session.confLow = session.confHigh = 0;
    session.gumbeltype = standard.gumbeltype;
    session.findThreshold = 0;
    session.popPortion = 0;
    session.negativeXAllowed = lifesession() ? 0 : 1;
    session.plotMode = lifesession() ? 1 : 2;
    session.replotNeeded = 1;
}

void programwrite() {
    linewrite(valueline(programCount));
    for (int position = 1; position <= programCount; ++position) {
        std::string line;
        appendvalue(line, programline(position));
        linewrite(line);
    }
}

bool programread() {
    const int number = sectionat(programTag, 0);
    std::string_view line;
    const double count = sectionline(number, line) ? readentry(line).value : 0;
    if (!(count >= 1)) {
        session.u = listAborted;
        return false;
    }
    if (count < fewestOptions) resetoptions();
    const bool exact = count <= 2 * programCount && countholds(number, count);
    for (int position = 1; position <= count; ++position) {
        if (exact)
            line = nextline();
        else if (!sectionline(number, line))
            break;
        if (position <= programCount) takeoption(position, line);
    }
    return true;
}
