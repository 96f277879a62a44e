#include "session/settingstable.h"

#include <array>
#include <utility>

namespace {

template <auto Member>
Place at(Session& s) {
    return &(s.*Member);
}
template <auto Member, std::size_t I>
Place at(Session& s) {
    return &(s.*Member)[I];
}
template <std::size_t Family, std::size_t Which>
Place parameterName(Session& s) {
    return &s.parameterNames[Family][Which];
}

using S = Session;
constexpr double percent = 100; ///< fractions in the file, percent in the session

constexpr Setting com[] = {{1, "", at<&S::serialBaud>, 50, 1e6},
                           {2, "", at<&S::serialLine>},
                           {3, "", at<&S::serialDataBits>, 5, 8},
                           {4, "", at<&S::serialStopBits>, 1, 2}};
constexpr FixedLine laser[] = {{1, "0"}, {2, "1"}, {3, "1"}, {4, "0"}};
constexpr FixedLine ports[] = {{1, "LPT1"}, {2, "LPT2"}, {3, "COM1"}};
constexpr Setting path[] = {{1, "", at<&S::dataPath>},
                            {2, "", at<&S::programPath>, 0, 0, 1, {}, true},
                            {3, "", at<&S::dataPath>, 0, 0, 1, {}, true},
                            {5, "", at<&S::lastFile>},
                            {6, "", at<&S::extraPaths>}};
constexpr FixedLine pathFixed[] = {{4, "NOT-USED"}};
constexpr Setting prog[] = {{1, "", at<&S::equationsName>}};
constexpr FixedLine pen[] = {{1, "1"}, {2, "2"}};
constexpr Setting font[] = {{1, "", at<&S::fontName>}};
constexpr Setting pts[] = {{1, "", at<&S::maxPoints>, 0, 0, 1, {}, true}};
constexpr FixedLine ptsFixed[] = {{2, "0"}};
constexpr Setting occur[] = {{1, "", at<&S::occurMark>}};
constexpr Setting method[] = {{1, "fitMethod", at<&S::fitMethodSaved>, 1, 2},
                              {2, "mleVariant", at<&S::mleVariant>, 0, 5}};
constexpr Setting datamethod[] = {{1, "groupingOption", at<&S::groupingOption>, 0, 2}};

/// Positions 1 to 262. A number without a row here belongs to a page that is still to come, or to another
/// version: its line is kept as it was read.
constexpr Setting newparam[] = {
    {1, "dist", at<&S::dist>, 1, 4},
    {2, "gumbeltype", at<&S::gumbeltype>, -1, 1},
    {3, "rrSwap", at<&S::rrSwap>, 0, 1},
    {4, "rankMethod", at<&S::rankMethod>, 1, 7},
    {5, "fitMeasure", at<&S::fitMeasure>, 0, 9},
    {6, "scaleAsRecorded", at<&S::scaleAsRecorded>, 0, 1},
    {7, "thresholdByRegression", at<&S::thresholdByRegression>, 0, 1},
    {8, "fisherForm", at<&S::fisherForm>, 0, 2},
    {9, "rndStart", at<&S::rndStart>, 0, 9e30},
    {10, "mcCount", at<&S::mcCount>, 1, 32000},
    {11, "wbConf", at<&S::wbConf>, 0, 100},
    {12, "wbFail", at<&S::wbFail>, 0, 9e30},
    {13, "wbSusp", at<&S::wbSusp>, 0, 9e30},
    {14, "wbPlan", at<&S::wbPlan>, 0, 3},
    {15, "inputType", at<&S::inputType>, 0, 5},
    {16, "confAuto", at<&S::confAuto>, 0, 1},
    {17, "confLow", at<&S::confLow>, 0, 99.9999, percent},
    {18, "confHigh", at<&S::confHigh>, 0, 99.9999, percent},
    {19, "confMethod", at<&S::confMethod>, -100, 6},
    {20, "", at<&S::languageFile>},
    {21, "digitsGeneral", at<&S::maskDigits, 0>, 1, 17},
    {22, "digitsParameter", at<&S::maskDigits, 1>, 1, 17},
    {23, "digitsSlope", at<&S::maskDigits, 2>, 1, 17},
    {24, "digitsAxis", at<&S::maskDigits, 3>, 1, 17},
    {25, "digitsFit", at<&S::maskDigits, 4>, 1, 17},
    {29, "exportDecimal", at<&S::exportDecimal>, 0, 0, 1, ". ,"},
    {30, "yScaleKind", at<&S::yScaleKind>, 0, 5},
    {31, "pointHide", at<&S::pointHide>, 0, 1},
    {32, "pointLabelsShown", at<&S::pointLabelsShown>, 0, 1},
    {33, "legendPlace", at<&S::legendPlace>, 0, 1},
    {34, "groupDisplay", at<&S::groupDisplay>, 0, 1},
    {35, "xyscale", at<&S::xyscale>, 0, 5},
    {36, "", at<&S::dateFormat, 0>},
    {37, "", at<&S::dateFormat, 1>},
    {38, "", at<&S::dateFormat, 2>},
    {39, "marksize", at<&S::marksize>, 0, 20},
    {40, "markFixed", at<&S::markFixed>, 0, 1},
    {41, "linewidth", at<&S::linewidth>, 1, 9},
    {42, "colormode", at<&S::colormode>, 0, 1},
    {43, "plotspeed", at<&S::plotspeed>, -100, 100},
    {44, "testQty", at<&S::testQty>, 2, 32000},
    {45, "testLast", at<&S::testLast>, 1, 32000},
    {46, "plannedReplacement", at<&S::plannedReplacement>, 0, 9e30},
    {47, "unplannedReplacement", at<&S::unplannedReplacement>, 0, 9e30},
    {48, "", at<&S::firstRunStage>, 0, 2},
    {49, "", at<&S::skipStartScreen>, 0, 1},
    {50, "", at<&S::settingsWritten>, 0, 1},
    {51, "", at<&S::windowRect, 0>, -32000, 32000},
    {52, "", at<&S::windowRect, 1>, -32000, 32000},
    {53, "", at<&S::windowRect, 2>, 0, 32000},
    {54, "", at<&S::windowRect, 3>, 0, 32000},
    {55, "outputPort", at<&S::outputPort>, 1, 6},
    {56, "", at<&S::paneSizes, 0>, 0, 32000},
    {57, "", at<&S::paneSizes, 1>, 0, 32000},
    {58, "", at<&S::surroundings>, 0, 2},
    {59, "", at<&S::outputKind>, 'A', 'Z'},
    {60, "printPercent", at<&S::printPercent>, 10, 100},
    {61, "totalReport", at<&S::totalReport>, 0, 1},
    {62, "", at<&S::informationDisplay>, 0, 2},
    {63, "", at<&S::informationBig>, 0, 1},
    {64, "gridLines", at<&S::gridLines>, 0, 2},
    {65, "fitLinesHidden", at<&S::fitLinesHidden>, 0, 1},
    {66, "pointInterval", at<&S::pointInterval>, 1, 1000},
    {67, "linePoints", at<&S::linePoints>, 10, 1000},
    {68, "processShift", at<&S::processShift>, 0, 10},
    {69, "processParts", at<&S::processParts>, 0, 1},
    {70, "processIndex", at<&S::processIndex>, 0, 1},
    {229, "mtbfName", at<&S::mtbfName>},
};

/// Options that follow the data at hand: a script sets them, the file does not keep them.
constexpr Setting dataOptions[] = {
    {0, "fixedSlope", at<&S::fixedSlope>, 0, 1e6},
    {0, "singleP", at<&S::singleP>, 1e-9, 1 - 1e-9},
    {0, "normalCandidate", at<&S::normalCandidate>, 0, 1},
    {0, "distributionAnalysis", at<&S::distributionAsked>, 0, 1},
    {0, "mixtureFit", at<&S::mixtureAsked>, 0, 7},
    {0, "likelihoodGrid", at<&S::gridAsked>, 0, 1},
    {0, "popPortion", at<&S::popPortion>, 0, 1},
    {0, "negativeXAllowed", at<&S::negativeXAllowed>, 0, 1},
    {0, "findThreshold", at<&S::findThreshold>, 0, 1},
    {0, "xLimitLow", at<&S::xLimitLow>},
    {0, "xLimitHigh", at<&S::xLimitHigh>},
    {0, "yLimitLow", at<&S::yLimitLow>},
    {0, "yLimitHigh", at<&S::yLimitHigh>},
    {0, "plotTitle", at<&S::titleWanted>},
    {0, "titleSecond", at<&S::titleSecond>},
    {0, "axisTitleX", at<&S::axisTitleX>},
    {0, "axisTitleY", at<&S::axisTitleY>},
};

constexpr Setting parameterNames[] = {
    {1, "", parameterName<0, 0>},  {2, "", parameterName<0, 1>},    {3, "", parameterName<1, 0>},
    {4, "", parameterName<1, 1>},  {5, "", parameterName<2, 0>},    {6, "", parameterName<2, 1>},
    {7, "", parameterName<3, 0>},  {8, "", parameterName<3, 1>},    {9, "", parameterName<4, 0>},
    {10, "", parameterName<4, 1>}, {11, "", at<&S::thresholdName>},
};

constexpr Setting exponent[] = {{1, "", at<&S::sizeExponent>, 1, 10}};

/// Colour numbers from 1: number 0 is the paper.
template <std::size_t... I>
constexpr std::array<Setting, sizeof...(I)> paletterows(std::index_sequence<I...>) {
    return {Setting{static_cast<int>(I) + 1, "", at<&S::palette, I + 1>, 0, 0xFFFFFF}...};
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
