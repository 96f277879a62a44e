#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

#include "expression/functionfixture.h"
#include "expression/rules.h"
#include "expression/tokens.h"
#include "numeric/constants.h"
#include "support/reference.h"
#include "support/told.h"

namespace {

using Rows = std::vector<FunctionRow>;

Rows rowsof(const std::vector<double>& xs) {
    Rows rows;
    for (const double x : xs) {
        FunctionRow row;
        row.x = x;
        row.row = static_cast<double>(rows.size() + 1);
        row.rows = static_cast<double>(xs.size());
        rows.push_back(row);
    }
    return rows;
}

TEST(FunctionLevels, PowerBindsStrongestAndEveryLevelRunsFromTheLeft) {
    EXPECT_EQ(valueof("2^3^2"), 64);
    EXPECT_EQ(valueof("2+3*4^2"), 50);
    EXPECT_EQ(valueof("20-5-3"), 12);
    EXPECT_EQ(valueof("100/5*2"), 40);
    EXPECT_EQ(valueof("2*3^2*2"), 36);
    EXPECT_EQ(valueof("7 max 3+1"), 8);
    EXPECT_EQ(valueof("7 mod 4*2"), 6);
    EXPECT_EQ(valueof("(2+3)*(4-1)"), 15);
    EXPECT_EQ(valueof("2**3"), 8);
}

TEST(FunctionLevels, ASignAtTheStartOfABracketTakesFromZero) {
    EXPECT_EQ(valueof("-2^2+0"), -4);
    EXPECT_EQ(valueof("3*(-2)"), -6);
    EXPECT_EQ(valueof("exp(-1)"), std::exp(-1.0));
    EXPECT_EQ(valueof("+5-2"), 3);
}

TEST(FunctionLevels, ANumberTypedWithItsSignKeepsItWithinAPower) {
    EXPECT_EQ(valueof("2^-2"), .25);
    EXPECT_EQ(valueof("3*-2+1"), -5);
    EXPECT_EQ(valueof("5--2"), 7);
}

TEST(FunctionOperands, StandForTheRowTheColumnAndTheConstants) {
    const double columns[] = {10, 11, 12, 13, 14, 15, 16, 17, 18, 19};
    const FunctionRow row{2, 3, 7, 8, 4, 9, columns};
    EXPECT_EQ(valueof("x", row), 2);
    EXPECT_EQ(valueof("y", row), 3);
    EXPECT_EQ(valueof("xL", row), 7);
    EXPECT_EQ(valueof("yL", row), 8);
    EXPECT_EQ(valueof("j", row), 4);
    EXPECT_EQ(valueof("n", row), 9);
    EXPECT_EQ(valueof("pi"), 3.14159265358);
    EXPECT_EQ(valueof("phi"), 0.61803398875);
    EXPECT_EQ(valueof("x0", row), 10);
    EXPECT_EQ(valueof("x9-x3", row), 6);
}

TEST(FunctionOperators, ATooBigOrTooSmallProductIsASentinelWithItsSign) {
    EXPECT_EQ(valueof("1e20*1e20"), 9e30);
    EXPECT_EQ(valueof("1e20*(-1e20)"), -9e30);
    EXPECT_EQ(valueof("1e-20*1e-20"), 9e30);
    EXPECT_EQ(valueof("0*1e300"), 0);
    EXPECT_EQ(valueof("1e29*9"), 1e29 * 9);
    EXPECT_EQ(valueof("9.2e29*1"), 9.2e29); // exp(69) is 9.2538E+29
    EXPECT_EQ(valueof("9.3e29*1"), 9e30);
    EXPECT_EQ(valueof("1.1e-30*1"), 1.1e-30); // exp(-69) is 1.0806E-30
    EXPECT_EQ(valueof("1.07e-30*1"), 9e30);
}

TEST(FunctionOperators, ADivisionByZeroIsADivisionByAMillionth) {
    EXPECT_EQ(valueof("3/0"), 3 / 1e-6);
    EXPECT_EQ(valueof("0/0"), 0);
    EXPECT_EQ(faultof("3/0"), 0);
}

TEST(FunctionOperators, TheAngleLiesInItsQuadrant) {
    EXPECT_EQ(valueof("1 att 1"), std::atan(1.0));
    EXPECT_EQ(valueof("1 att (-1)"), std::atan(-1.0) + sessionPi);
    EXPECT_EQ(valueof("(-1) att (-1)"), std::atan(1.0) - sessionPi);
    EXPECT_EQ(valueof("(-1) att 1"), std::atan(-1.0));
    EXPECT_EQ(valueof("2 att 0"), sessionPi / 2);
    EXPECT_EQ(valueof("(-2) att 0"), -sessionPi / 2);
    EXPECT_EQ(valueof("0 att 0"), 0);
    EXPECT_EQ(valueof("0 att (-3)"), sessionPi);
}

TEST(FunctionOperators, TakeTheGreaterAndTheLesser) {
    EXPECT_EQ(valueof("3 max 5"), 5);
    EXPECT_EQ(valueof("3 min 5"), 3);
    EXPECT_EQ(valueof("5 max 3 min 4"), 4);
}

TEST(FunctionOperators, TheRemainderIsThatOfTheNearestWholeNumbers) {
    EXPECT_EQ(valueof("7 mod 4"), 3);
    EXPECT_EQ(valueof("7.4 mod 3.6"), 3);
    EXPECT_EQ(valueof("(-7) mod 4"), -3);
    EXPECT_EQ(valueof("2.5 mod 10"), 2); // halves go to the even number
    EXPECT_EQ(valueof("3.5 mod 10"), 4);
    EXPECT_EQ(faultof("7 mod .4"), 11);
}

TEST(FunctionOperators, ThePowerOfANegativeNeedsAWholeExponent) {
    EXPECT_EQ(valueof("(-2)^3"), -8);
    EXPECT_EQ(faultof("(-2)^.5"), 5);
    EXPECT_EQ(faultof("0^(-1)"), 5);
    EXPECT_EQ(faultof("1e200^2"), 6);
    EXPECT_EQ(valueof("0^0"), 1);
}

// Chi-square quantiles: tables of any statistics text; 3.841459 and 18.307038 at 95 percent.
TEST(FunctionOperators, TheInverseChiSquareRoundsItsDegreesOfFreedom) {
    EXPECT_NEAR(valueof(".95 ichi^2 1"), 3.841459, 1e-6);
    EXPECT_NEAR(valueof(".95 ichi^2 10.4"), 18.307038, 2e-6);
    EXPECT_EQ(valueof(".95 ichi^2 10"), static_cast<float>(valueof(".95 ichi^2 10")));
}

TEST(FunctionOperators, AQuantileOutsideItsDomainHasNoValueAndIsNotToldByTheRoutine) {
    const Told told;
    EXPECT_NE(faultof("1.5 ichi^2 3"), 0);
    EXPECT_NE(faultof("gamma(0)"), 0);
    EXPECT_NE(faultof("gamma(-3)"), 0);
    EXPECT_TRUE(Told::texts().empty());
}

struct Example {
    const char* text;
    double expected;
};

// Values from the definitions, by hand or from standard tables to the digits given.
constexpr Example examples[] = {
    {"abs(-3)", 3},
    {"atan(1)", 0.78539816339744831},
    {"cos(0)", 1},
    {"exp(1)", 2.7182818284590452},
    {"exp(70)", 2.5154386709191669e30},
    {"exp(71)", 0},
    {"exp(-71)", 0},
    {"int(2.7)", 2},
    {"int(-2.1)", -3},
    {"ln(1)", 0},
    {"ln(0)", -9e14},
    {"ln(-1)", -9e14},
    {"sin(1)", 0.8414709848078965},
    {"sqr(9)", 3},
    {"sqr(-4)", -2},
    {"tan(1)", 1.5574077246549022},
    {"csh(1)", 1.5430806348152437},
    {"csh(-70)", 9e14},
    {"f!(0)", 1},
    {"f!(5)", 120},
    {"f!(2.5)", -2},
    {"f!(-3)", 0},
    {"f!(29)", 8.841761993739702e30},
    {"f!(30)", 8.84e30},
    {"f!(30.5)", -8.84e30},
    {"log(1000)", 3},
    {"log(0)", -9e14},
    {"snh(1)", 1.1752011936438014},
    {"snh(70)", 9e14},
    {"snh(-70)", -9e14},
    {"tnh(1)", 0.7615941559557649},
    {"tnh(70)", 1},
    {"tnh(-70)", -1},
    {"acos(0)", 1.570796},
    {"acos(.5)", 1.570796 - 0.52359877559829887},
    {"acos(1)", 1.570796 - 1.5693821131146521},
    {"acos(2)", 1.570796 - 1.5693821131146521},
    {"asin(.5)", 0.52359877559829887},
    {"asin(1)", 1.5693821131146521},
    {"asin(-2)", -1.5693821131146521},
    {"acsh(2)", 1.3169578969248167},
    {"asnh(1)", 0.88137358701954303},
    {"asnh(-1e9)", -21.416413017506358},
    {"atnh(.5)", 0.54930614433405485},
    {"atnh(1)", 7.2543286192620472},
    {"sgn(-5)", -1},
    {"sgn(0)", 0},
    {"sgn(.1)", 1},
    {"CDFn(0)", .5},
    {"CDFn(1.959963984540054)", .975},
    {"PDFw(0)", 0.36787944117144233},
    {"PDFw(84)", 0},
    {"CDFw(0)", 0.63212055882855768},
    {"CDFw(-20)", 2.0611536202957e-9},
    {"CDFw(84)", 1},
    {"CDFw(-84)", 0},
    {"PDFx(0)", 0.36787944117144233},
    {"CDFx(0)", 0.36787944117144233},
    {"CDFx(84)", 1},
    {"CDFx(-84)", 0},
    {"gamma(5)", 24},
    {"gamma(.5)", 1.7724538509055160},
    {"C4(2)", 0.79788456080286536},
    {"C4(1)", 0},
    {"PDFl(0)", 0},
    {"CDFl(1)", .5},
    {"CDFl(-1)", 0},
};

TEST(FunctionRules, GiveTheirValuesAndSentinels) {
    for (const Example& example : examples)
        EXPECT_NEAR(valueof(example.text), example.expected, 2e-10 * std::fabs(example.expected))
            << example.text;
}

TEST(FunctionRules, TheNormalDensityStandsUndividedInTheLognormalOne) {
    EXPECT_NEAR(valueof("PDFn(0)"), 0.3989422804014327, 1e-11);
    EXPECT_NEAR(valueof("PDFl(1)"), 0.3989422804014327, 1e-11);
    EXPECT_EQ(valueof("PDFl(exp(2))"), valueof("PDFn(ln(exp(2)))"));
}

TEST(FunctionRules, TheInverseHyperbolicCosineStaysJustAboveItsBranch) {
    EXPECT_NEAR(valueof("acsh(1)"), 0.0014142134,
                1e-9); // acosh(1.000001), by its series sqrt(2 h) (1 - h/12)
    EXPECT_EQ(valueof("acsh(-7)"), valueof("acsh(1)"));
}

TEST(FunctionMemories, SumAndProductRunOverTheRows) {
    EXPECT_EQ(valuesof("sum(x)", rowsof({1, 2, 3})), (std::vector<double>{1, 3, 6}));
    EXPECT_EQ(valuesof("prd(x)", rowsof({2, 3, 4})), (std::vector<double>{2, 6, 24}));
    EXPECT_EQ(valuesof("prd(x)", rowsof({1e20, -1e20, 2})), (std::vector<double>{1e20, -9e30, -9e30}));
}

TEST(FunctionMemories, TwoOfAKindAreIndependent) {
    EXPECT_EQ(valuesof("sum(x)-sum(1)", rowsof({1, 2, 3})), (std::vector<double>{0, 1, 3}));
    EXPECT_EQ(valuesof("sum(sum(x))", rowsof({1, 2, 3})), (std::vector<double>{1, 4, 10}));
}

TEST(FunctionMemories, TheDerivativeIsTheSlopeFromTheRowBefore) {
    EXPECT_EQ(valuesof("ddx(x^2)", rowsof({1, 2, 4})), (std::vector<double>{0, 3, 6}));
}

TEST(FunctionMemories, ARowAtTheSameXRepeatsTheSlope) {
    const Rows rows{{1, 1}, {2, 5}, {2, 9}, {3, 6}};
    EXPECT_EQ(valuesof("ddx(y)", rows), (std::vector<double>{0, 4, 4, 1}));
}

TEST(FunctionMemories, TheIntegralAddsTrapezoids) {
    EXPECT_EQ(valuesof("Sdx(2*x)", rowsof({1, 2, 4})), (std::vector<double>{0, 3, 15}));
}

TEST(FunctionMemories, StartAgainWithEachRun) {
    const auto rows = rowsof({1, 2, 3});
    EXPECT_EQ(valuesof("sum(x)", rows), valuesof("sum(x)", rows));
}

TEST(FunctionMod, SettingOneGivesThePlaceOfAProbabilityOnTheAxisOfAFamily) {
    // ln(-ln(1 - p)) on the Weibull axis, the normal quantile on the other two.
    EXPECT_NEAR(valuesof(".5 mod 1", {{}}, modPlotPlace)[0], std::log(std::numbers::ln2), 1e-14);
    EXPECT_NEAR(valuesof(".975 mod 3", {{}}, modPlotPlace)[0], 1.959963984540054, 1e-12);
    EXPECT_TRUE(std::isnan(valuesof(".5 mod 7", {{}}, modPlotPlace)[0]));
}

TEST(FunctionMod, SettingTwoGivesThePlottingPositionOfARankInASample) {
    const auto before =
        std::exchange(rankPosition, [](double N, double r, double& result) { result = (r - 0.5) / N; });
    EXPECT_EQ(valuesof("3 mod 10", {{}}, modRankPosition)[0], .25);
    EXPECT_TRUE(std::isnan(valuesof("3 mod 0", {{}}, modRankPosition)[0]));
    rankPosition = before;
}

TEST(FunctionMod, EveryOtherSettingIsTheRemainder) {
    EXPECT_EQ(valuesof("7 mod 4", {{}}, 3)[0], 3);
    const auto before = std::exchange(rankPosition, nullptr);
    EXPECT_EQ(valuesof("7 mod 4", {{}}, modRankPosition)[0], 3);
    rankPosition = before;
}

TEST(FunctionProgramOf, ClosesTheBracketsThatAreLeftOpen) {
    EXPECT_EQ(valueof("2*(3+sqr(16"), 14);
    EXPECT_EQ(programof("2*(3+sqr(16").openBrackets, 2);
    EXPECT_EQ(programof("2*(3+sqr(16))").openBrackets, 0);
}

TEST(FunctionProgramOf, RefusesTokensWhereTheyCannotStand) {
    EXPECT_EQ(faultoftokens(""), FunctionFault::empty);
    EXPECT_EQ(faultoftokens("0102"), FunctionFault::malformed);     // x y
    EXPECT_EQ(faultoftokens("0188"), FunctionFault::malformed);     // x (
    EXPECT_EQ(faultoftokens("13"), FunctionFault::malformed);       // *
    EXPECT_EQ(faultoftokens("01131201"), FunctionFault::malformed); // x * - x
    EXPECT_EQ(faultoftokens("8889"), FunctionFault::malformed);     // ( )
    EXPECT_EQ(faultoftokens("0189"), FunctionFault::malformed);     // x )
    EXPECT_EQ(faultoftokens("09"), FunctionFault::malformed);       // no token
    EXPECT_EQ(faultoftokens("010"), FunctionFault::malformed);      // half a token
    EXPECT_EQ(faultoftokens("0x"), FunctionFault::malformed);
    EXPECT_EQ(faultoftokens("0111"), FunctionFault::unfinished);       // x +
    EXPECT_EQ(faultoftokens("47"), FunctionFault::unfinished);         // sin(
    EXPECT_EQ(faultoftokens("001100", {1}), FunctionFault::noLiteral); // one number for two
}

TEST(FunctionProgramOf, NamesTheTokenAtFault) { EXPECT_EQ(functionprogram("01110213", {}, 0).place, 4u); }

TEST(FunctionProgramOf, HasThirtyTwoDepths) {
    const auto nested = [](int brackets) {
        std::string fcode;
        for (int i = 0; i < brackets; ++i) fcode += i % 2 ? "88" : "41";
        return functionprogram(fcode + "01", {}, 0).fault;
    };
    EXPECT_EQ(nested(31), FunctionFault::none);
    EXPECT_EQ(nested(32), FunctionFault::tooDeep);
}

TEST(FunctionProgramOf, TakesTenThousandTokens) {
    std::string fcode = "01";
    for (int i = 0; i < 10000; ++i) fcode += "1101";
    const FunctionProgram program = functionprogram(fcode, {}, 0);
    ASSERT_EQ(program.fault, FunctionFault::none);
    EXPECT_EQ(functionrow(program, {1}, {}).value, 10001);
}

TEST(FunctionProgramOf, FillsEveryLevelOfEveryDepthWithoutHarm) {
    std::string fcode;
    for (int i = 0; i < 31; ++i)
        fcode += "0111011301"
                 "1988"; // x + x * x ^ (
    fcode += "0111011301"
             "1901";
    const FunctionProgram program = functionprogram(fcode, {}, 0);
    ASSERT_EQ(program.fault, FunctionFault::none);
    EXPECT_EQ(functionrow(program, {1}, {}).value, 2);
}

// As the curve fitter writes them: exp(ln a + b * ln x), a polynomial in powers.
TEST(FunctionProgramOf, RunsTheTokensOfAFittedCurve) {
    const FunctionProgram power = functionprogram("44"
                                                  "00"
                                                  "11"
                                                  "00134601"
                                                  "89"
                                                  "89",
                                                  std::vector{0.5, 2.0}, 0);
    ASSERT_EQ(power.fault, FunctionFault::none);
    EXPECT_NEAR(functionrow(power, {3}, {}).value, std::exp(0.5) * 9, 1e-13);
    const FunctionProgram cubic = functionprogram("00"
                                                  "11"
                                                  "001301"
                                                  "11"
                                                  "001301"
                                                  "1900",
                                                  std::vector{1., 2., 3., 2.}, 0);
    EXPECT_EQ(functionrow(cubic, {2}, {}).value, 17);
    const FunctionProgram reciprocal = functionprogram("44"
                                                       "00"
                                                       "11"
                                                       "00"
                                                       "1401",
                                                       std::vector{1., 2.}, 0);
    EXPECT_EQ(functionrow(reciprocal, {4}, {}).value, std::exp(1.5));
}

} // namespace
