#include "session/settingstable.h"

#include <array>
#include <utility>

namespace {

template <std::size_t Family, std::size_t Which>
Place parameterName(Session& s) {
    return &s.parameterNames[Family][Which];
}

using S = Session;
constexpr double percent = 100; ///< fractions in the file, percent in the session

constexpr Setting com[] = {{1, "", placeof<&S::serialBaud>, 50, 1e6},
                           {2, "", placeof<&S::serialLine>},
                           {3, "", placeof<&S::serialDataBits>, 5, 8},
                           {4, "", placeof<&S::serialStopBits>, 1, 2}};
constexpr FixedLine laser[] = {{1, "0"}, {2, "1"}, {3, "1"}, {4, "0"}};
constexpr FixedLine ports[] = {{1, "LPT1"}, {2, "LPT2"}, {3, "COM1"}};
constexpr Setting path[] = {{1, "", placeof<&S::dataPath>},
                            {2, "", placeof<&S::programPath>, 0, 0, 1, {}, true},
                            {3, "", placeof<&S::dataPath>, 0, 0, 1, {}, true},
                            {5, "", placeof<&S::lastFile>},
                            {6, "", placeof<&S::extraPaths>}};
constexpr FixedLine pathFixed[] = {{4, "NOT-USED"}};
constexpr Setting prog[] = {{1, "", placeof<&S::equationsName>}};
constexpr FixedLine pen[] = {{1, "1"}, {2, "2"}};
constexpr Setting font[] = {{1, "", placeof<&S::fontName>}};
constexpr Setting pts[] = {{1, "", placeof<&S::maxPoints>, 0, 0, 1, {}, true}};
constexpr FixedLine ptsFixed[] = {{2, "0"}};
constexpr Setting occur[] = {{1, "", placeof<&S::occurMark>}};
constexpr Setting method[] = {{1, "fitMethod", placeof<&S::fitMethodSaved>, 1, 2},
                              {2, "mleVariant", placeof<&S::mleVariant>, 0, 5}};
constexpr Setting datamethod[] = {{1, "groupingOption", placeof<&S::groupingOption>, 0, 2}};

/// Positions 1 to 262. A number without a row here belongs to a page that is still to come, or to another
/// version: its line is kept as it was read.
constexpr Setting newparam[] = {
    {1, "dist", placeof<&S::dist>, 1, 4},
    {2, "gumbeltype", placeof<&S::gumbeltype>, -1, 1},
    {3, "rrSwap", placeof<&S::rrSwap>, 0, 1},
    {4, "rankMethod", placeof<&S::rankMethod>, 1, 7},
    {5, "fitMeasure", placeof<&S::fitMeasure>, 0, 9},
    {6, "scaleAsRecorded", placeof<&S::scaleAsRecorded>, 0, 1},
    {7, "thresholdByRegression", placeof<&S::thresholdByRegression>, 0, 1},
    {8, "fisherForm", placeof<&S::fisherForm>, 0, 2},
    {9, "rndStart", placeof<&S::rndStart>, 0, 9e30},
    {10, "mcCount", placeof<&S::mcCount>, 1, 32000},
    {11, "wbConf", placeof<&S::wbConf>, 0, 100},
    {12, "wbFail", placeof<&S::wbFail>, 0, 9e30},
    {13, "wbSusp", placeof<&S::wbSusp>, 0, 9e30},
    {14, "wbPlan", placeof<&S::wbPlan>, 0, 3},
    {15, "inputType", placeof<&S::inputType>, 0, 5},
    {16, "confAuto", placeof<&S::confAuto>, 0, 1},
    {17, "confLow", placeof<&S::confLow>, 0, 99.9999, percent},
    {18, "confHigh", placeof<&S::confHigh>, 0, 99.9999, percent},
    {19, "confMethod", placeof<&S::confMethod>, -100, 6},
    {20, "", placeof<&S::languageFile>},
    {21, "digitsGeneral", placeof<&S::maskDigits, 0>, 1, 17},
    {22, "digitsParameter", placeof<&S::maskDigits, 1>, 1, 17},
    {23, "digitsSlope", placeof<&S::maskDigits, 2>, 1, 17},
    {24, "digitsAxis", placeof<&S::maskDigits, 3>, 1, 17},
    {25, "digitsFit", placeof<&S::maskDigits, 4>, 1, 17},
    {29, "exportDecimal", placeof<&S::exportDecimal>, 0, 0, 1, ". ,"},
    {30, "yScaleKind", placeof<&S::yScaleKind>, 0, 5},
    {31, "pointHide", placeof<&S::pointHide>, 0, 1},
    {32, "pointLabelsShown", placeof<&S::pointLabelsShown>, 0, 1},
    {33, "legendPlace", placeof<&S::legendPlace>, 0, 1},
    {34, "groupDisplay", placeof<&S::groupDisplay>, 0, 1},
    {35, "xyscale", placeof<&S::xyscale>, 0, 5},
    {36, "", placeof<&S::dateFormat, 0>},
    {37, "", placeof<&S::dateFormat, 1>},
    {38, "", placeof<&S::dateFormat, 2>},
    {39, "marksize", placeof<&S::marksize>, 0, 20},
    {40, "markFixed", placeof<&S::markFixed>, 0, 1},
    {41, "linewidth", placeof<&S::linewidth>, 1, 9},
    {42, "colormode", placeof<&S::colormode>, 0, 1},
    {43, "plotspeed", placeof<&S::plotspeed>, -100, 100},
    {44, "testQty", placeof<&S::testQty>, 2, 32000},
    {45, "testLast", placeof<&S::testLast>, 1, 32000},
    {46, "plannedReplacement", placeof<&S::plannedReplacement>, 0, 9e30},
    {47, "unplannedReplacement", placeof<&S::unplannedReplacement>, 0, 9e30},
    {48, "", placeof<&S::firstRunStage>, 0, 2},
    {49, "", placeof<&S::skipStartScreen>, 0, 1},
    {50, "", placeof<&S::settingsWritten>, 0, 1},
    {51, "", placeof<&S::windowRect, 0>, -32000, 32000},
    {52, "", placeof<&S::windowRect, 1>, -32000, 32000},
    {53, "", placeof<&S::windowRect, 2>, 0, 32000},
    {54, "", placeof<&S::windowRect, 3>, 0, 32000},
    {55, "outputPort", placeof<&S::outputPort>, 1, 6},
    {56, "", placeof<&S::paneSizes, 0>, 0, 32000},
    {57, "", placeof<&S::paneSizes, 1>, 0, 32000},
    {58, "", placeof<&S::surroundings>, 0, 2},
    {59, "", placeof<&S::outputKind>, 'A', 'Z'},
    {60, "printPercent", placeof<&S::printPercent>, 10, 100},
    {61, "totalReport", placeof<&S::totalReport>, 0, 1},
    {62, "", placeof<&S::informationDisplay>, 0, 2},
    {63, "", placeof<&S::informationBig>, 0, 1},
    {64, "gridLines", placeof<&S::gridLines>, 0, 2},
    {65, "fitLinesHidden", placeof<&S::fitLinesHidden>, 0, 1},
    {66, "pointInterval", placeof<&S::pointInterval>, 1, 1000},
    {67, "linePoints", placeof<&S::linePoints>, 10, 1000},
    {68, "processShift", placeof<&S::processShift>, 0, 10},
    {69, "processParts", placeof<&S::processParts>, 0, 1},
    {70, "processIndex", placeof<&S::processIndex>, 0, 1},
    {71, "plotKind", placeof<&S::plotKind>, 'A', 'Z'},
    {72, "curveExtrapolated", placeof<&S::curveExtrapolated>, 0, 1},
    {73, "viewTurn", placeof<&S::viewTurn>, 0, 90},
    {74, "viewTilt", placeof<&S::viewTilt>, 0, 90},
    {75, "scientificScale", placeof<&S::scientificScale>, 0, 1},
    {76, "equalScales", placeof<&S::equalScales>, 0, 1},
    {77, "xValuesShown", placeof<&S::xValuesShown>, 0, 1},
    {78, "yValuesShown", placeof<&S::yValuesShown>, 0, 1},
    {79, "", placeof<&S::ordinatesInGrid>, 0, 1},
    {80, "", placeof<&S::orderCaution>, 0, 1},
    {81, "", placeof<&S::saveCaution>, 0, 1},
    {82, "fileNameShown", placeof<&S::fileNameShown>, 0, 1},
    {83, "clockShown", placeof<&S::clockShown>, 0, 1},
    {84, "dateSymbol", placeof<&S::dateSymbol>, ' ', '~'},
    {85, "", placeof<&S::templateFile>},
    {86, "", placeof<&S::openMerges>, 0, 1},
    {87, "fitLineTruncated", placeof<&S::fitLineTruncated>, 0, 1},
    {88, "labelPointers", placeof<&S::labelPointers>, 0, 1},
    {89, "penCount", placeof<&S::penCount>, 1, 8},
    {90, "ranksOnly", placeof<&S::ranksOnly>, 0, 1},
    {91, "dataColumns", placeof<&S::dataColumns>, 0, 1},
    {229, "mtbfName", placeof<&S::mtbfName>},
};

/// Options that follow the data at hand: a script sets them, the file does not keep them.
constexpr Setting dataOptions[] = {
    {0, "fixedSlope", placeof<&S::fixedSlope>, 0, 1e6},
    {0, "singleP", placeof<&S::singleP>, 1e-9, 1 - 1e-9},
    {0, "normalCandidate", placeof<&S::normalCandidate>, 0, 1},
    {0, "distributionAnalysis", placeof<&S::distributionAsked>, 0, 1},
    {0, "mixtureFit", placeof<&S::mixtureAsked>, 0, 7},
    {0, "likelihoodGrid", placeof<&S::gridAsked>, 0, 1},
    {0, "popPortion", placeof<&S::popPortion>, 0, 1},
    {0, "negativeXAllowed", placeof<&S::negativeXAllowed>, 0, 1},
    {0, "findThreshold", placeof<&S::findThreshold>, 0, 1},
    {0, "xLimitLow", placeof<&S::xLimitLow>},
    {0, "xLimitHigh", placeof<&S::xLimitHigh>},
    {0, "yLimitLow", placeof<&S::yLimitLow>},
    {0, "yLimitHigh", placeof<&S::yLimitHigh>},
    {0, "plotTitle", placeof<&S::titleWanted>},
    {0, "titleSecond", placeof<&S::titleSecond>},
    {0, "axisTitleX", placeof<&S::axisTitleX>},
    {0, "axisTitleY", placeof<&S::axisTitleY>},
};

constexpr Setting parameterNames[] = {
    {1, "", parameterName<0, 0>},  {2, "", parameterName<0, 1>},         {3, "", parameterName<1, 0>},
    {4, "", parameterName<1, 1>},  {5, "", parameterName<2, 0>},         {6, "", parameterName<2, 1>},
    {7, "", parameterName<3, 0>},  {8, "", parameterName<3, 1>},         {9, "", parameterName<4, 0>},
    {10, "", parameterName<4, 1>}, {11, "", placeof<&S::thresholdName>},
};

constexpr Setting exponent[] = {{1, "", placeof<&S::sizeExponent>, 1, 10}};

/// Colour numbers from 1: number 0 is the paper.
template <std::size_t... I>
constexpr std::array<Setting, sizeof...(I)> paletterows(std::index_sequence<I...>) {
    return {Setting{static_cast<int>(I) + 1, "", placeof<&S::palette, I + 1>, 0, 0xFFFFFF}...};
}
constexpr auto colors = paletterows(std::make_index_sequence<std::tuple_size_v<Palette> - 1>());

constexpr Section sections[] = {
    {"COM", 4, com, {}},
    {"LASER", 4, {}, laser},
    {"PORTS", 3, {}, ports},
    {"PATH", 6, path, pathFixed},
    {"PROG", 1, prog, {}},
    {"PEN", 2, {}, pen},
    {"FONT", 1, font, {}},
    {"PTS", 2, pts, ptsFixed},
    {"OCCUR", 1, occur, {}},
    {"METHOD", 2, method, {}},
    {"NEWPARAM", 262, newparam, {}},
    {"DATAMETHOD", 1, datamethod, {}},
    {"RISKUSAGERATE()", 720, {}, {}, &S::riskUsageRate},
    {"RISKPRODRATE()", 720, {}, {}, &S::riskProdRate},
    {"FYLLIBRCOMMTITLESOUT()", 200, {}, {}, nullptr, &S::libraryTitles},
    {"FYLOLDSOUT()", 200, {}, {}, nullptr, &S::formerNames},
    {"FYLPARAMNAMEOUT()", 11, parameterNames, {}},
    {"XFILEFORMER()", static_cast<int>(S::formerMax), {}, {}, nullptr, &S::XFILEFORMER},
    {"RECENTFILES", static_cast<int>(S::recentMax), {}, {}, nullptr, &S::recentFiles},
    {"SIZEEXPONENT", 1, exponent, {}},
    {"COLORS", static_cast<int>(colors.size()), colors, {}},
};

} // namespace

std::span<const Section> settingsections() { return sections; }

std::span<const Setting> dataoptions() { return dataOptions; }
