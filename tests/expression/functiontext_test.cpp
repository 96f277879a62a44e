#include "expression/functiontext.h"

#include <gtest/gtest.h>

#include "expression/tokens.h"
#include "session/session.h"

namespace {

std::string tokensof(std::string_view text, int16_t mode = functionY, bool operandNext = true) {
    const auto typed = typedtokens(text, mode, operandNext);
    return typed ? typed->fcode : "refused";
}

struct Match {
    const char* typed;
    const char* fcode;
};

// First letters and the token that each must find; where one entry of the list begins like another, the order
// of the list decides.
constexpr Match matches[] = {
    {"+", "11"},      {"-", "12"},      {"*", "13"},    {"/", "14"},     {"^", "19"},    {"**", "19"},
    {"ICHI^2", "20"}, {"ichi^2", "20"}, {"ma", "16"},   {"max", "16"},   {"mi", "17"},   {"MOD", "18"},
    {"att", "15"},    {"pdfn", "65"},   {"cdfn", "66"}, {"pdfw", "67"},  {"cdfw", "68"}, {"pdfx", "69"},
    {"cdfx", "70"},   {"pdfl", "73"},   {"cdfl", "74"}, {"ata", "42"},   {"atan", "42"}, {"aco", "59"},
    {"asi", "60"},    {"acs", "61"},    {"asn", "62"},  {"atn", "63"},   {"gam", "71"},  {"pi", "03"},
    {"ph", "04"},     {"xl", "05"},     {"yL", "06"},   {"ab", "41"},    {"co", "43"},   {"cosine", "43"},
    {"ex", "44"},     {"in", "45"},     {"ln", "46"},   {"si", "47"},    {"sq", "48"},   {"ta", "49"},
    {"cs", "50"},     {"dd", "51"},     {"lo", "53"},   {"pr", "54"},    {"c4", "72"},   {"sd", "55"},
    {"sn", "56"},     {"su", "57"},     {"tn", "58"},   {"sg", "64"},    {"f!", "52"},   {"x", "01"},
    {"Y", "02"},      {"j", "07"},      {"n", "08"},    {"(", "88"},     {")", "89"},    {"x0", "90"},
    {"X9", "99"},     {"5", "00"},      {"sin(", "47"}, {"sin (", "47"},
};

TEST(TypedText, FindsATokenByItsFirstLetters) {
    for (const Match& match : matches) EXPECT_EQ(tokensof(match.typed), match.fcode) << match.typed;
}

TEST(TypedText, RefusesWhatIsNoToken) {
    for (const char* text : {"",  " ",    "ichi", "ich",     "a",     "m",       "f",  "z",     "k",    "x10",
                             "?", "x y,", "1,5",  "sin x+1", "pix+1", "xsin(x)", "\"", "1e999", "0x10", "#"})
        EXPECT_EQ(tokensof(text), "refused") << text;
}

TEST(TypedText, TakesAWholePiece) {
    const auto typed = typedtokens("2*x + sin( x ) ^ 1.5e1", functionY, true);
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->fcode, "00130111470189"
                            "1900");
    EXPECT_EQ(typed->literals, (std::vector<double>{2, 15}));
}

TEST(TypedText, KeepsTheSignOfANumberWhereAnOperandComesNext) {
    const auto alone = typedtokens("-5", functionY, true);
    ASSERT_TRUE(alone);
    EXPECT_EQ(alone->fcode, "00");
    EXPECT_EQ(alone->literals, std::vector<double>{-5});
    const auto behind = typedtokens("-5", functionY, false);
    ASSERT_TRUE(behind);
    EXPECT_EQ(behind->fcode, "1200");
    EXPECT_EQ(behind->literals, std::vector<double>{5});
}

TEST(TypedText, ReadsTheDecimalSymbolOfTheSession) {
    const Keep keep{session.decimalSeparator};
    session.decimalSeparator = ",";
    const auto typed = typedtokens("2,5*x+,5", functionY, true);
    ASSERT_TRUE(typed);
    EXPECT_EQ(typed->literals, (std::vector<double>{2.5, .5}));
    EXPECT_EQ(typedtokens("2.5", functionY, true)->literals, std::vector<double>{2.5});
    session.decimalSeparator = ".";
    EXPECT_FALSE(typedtokens("2,5*x", functionY, true));
}

TEST(TypedText, NamesTheOperandsByTheMode) {
    EXPECT_EQ(tokensof("k*x", functionCurve), "021301");
    EXPECT_EQ(tokensof("y", functionCurve), "refused");
    EXPECT_EQ(tokensof("k", functionY), "refused");
    EXPECT_EQ(tokensof("A/B", functionTwoSets), "011402");
    EXPECT_EQ(tokensof("x", functionTwoSets), "refused");
}

TEST(FunctionText, ShowsTheFunctionInTheNamesOfTheMode) {
    const std::vector<double> two{2};
    EXPECT_EQ(functiontext("00130111470189", two, functionY), "2*x+sin(x)");
    EXPECT_EQ(functiontext("0116021802", {}, functionY), "x max y mod y");
    EXPECT_EQ(functiontext("0111021290", {}, functionTwoSets), "A+B-x0");
    EXPECT_EQ(functiontext("0113025201", {}, functionCurve), "x*kf!(x");
}

TEST(FunctionText, PutsANegativeNumberInBrackets) {
    EXPECT_EQ(functiontext("001900", std::vector{-2.0, 0.5}, functionY), "(-2)^.5");
}

TEST(FunctionText, ShowsWhatIsNoTokenAsAQuestion) {
    EXPECT_EQ(functiontext("0109", {}, functionY), "x?");
    EXPECT_EQ(functiontext("0011", {}, functionY), "?+");
    EXPECT_EQ(functiontext("1", {}, functionY), "?");
}

TEST(FunctionSpelling, IsTwoLettersAToken) {
    EXPECT_EQ(functionspelling("00130111470189"), "00O*VAO+FlVAL)");
    EXPECT_EQ(functionspelled("00O*VAO+FlVAL)"), "00130111470189");
    EXPECT_EQ(functionspelling("012001"), "VA20VA");
    EXPECT_EQ(functionspelled("VLVl"), "0506");
    EXPECT_EQ(functionspelling(""), "");
}

TEST(FunctionSpelling, RefusesWhatIsNone) {
    EXPECT_FALSE(functionspelled("VAx"));
    EXPECT_FALSE(functionspelled("V"));
    EXPECT_FALSE(functionspelled("01"));
    EXPECT_FALSE(functionspelling("09"));
    EXPECT_FALSE(functionspelling("1"));
}

} // namespace
