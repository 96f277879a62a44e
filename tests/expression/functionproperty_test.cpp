#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "expression/functionfixture.h"
#include "expression/tokens.h"

namespace {

/// A function as a tree, read by recursive descent, a routine a level: nothing of it is shared with the
/// program but the codes.
struct Node {
    int code = 0;
    double literal = 0;
    std::unique_ptr<Node> left, right;
};
using Tree = std::unique_ptr<Node>;

class Descent {
public:
    Descent(const std::string& tokens, const std::vector<double>& numbers)
        : fcode(tokens),
          literals(numbers) {}
    Tree read() { return sums(); }

private:
    int next() const { return at < fcode.size() ? std::stoi(fcode.substr(at, 2)) : -1; }
    int take() {
        const int code = next();
        at += 2;
        return code;
    }
    Tree joined(int code, Tree left, Tree right) {
        auto node = std::make_unique<Node>();
        node->code = code;
        node->left = std::move(left);
        node->right = std::move(right);
        return node;
    }
    Tree sums() {
        Tree tree;
        if (next() == 11 || next() == 12)
            tree = std::make_unique<Node>(); // the number 0
        else
            tree = products();
        while (next() == 11 || next() == 12) {
            const int code = take();
            tree = joined(code, std::move(tree), products());
        }
        return tree;
    }
    static bool multiplies(int code) { return (code >= 13 && code <= 18) || code == 20; }
    Tree products() {
        Tree tree = powers();
        while (multiplies(next())) {
            const int code = take();
            tree = joined(code, std::move(tree), powers());
        }
        return tree;
    }
    Tree powers() {
        Tree tree = primary();
        while (next() == 19) {
            take();
            tree = joined(19, std::move(tree), primary());
        }
        return tree;
    }
    Tree primary() {
        const int code = take();
        if (code >= 40 && code <= 88) {
            Tree inner = sums();
            if (next() == 89) take();
            return code == 88 ? std::move(inner) : joined(code, std::move(inner), nullptr);
        }
        auto node = std::make_unique<Node>();
        node->code = code;
        if (code == 0) node->literal = literals[used++];
        return node;
    }

    const std::string& fcode;
    const std::vector<double>& literals;
    std::size_t at = 0, used = 0;
};

constexpr double nothing = NAN;

double product(double a, double b) {
    if (a == 0 || b == 0) return a * b;
    if (std::fabs(std::log(std::fabs(a)) + std::log(std::fabs(b))) <= 69) return a * b;
    return std::signbit(a) == std::signbit(b) ? 9e30 : -9e30;
}

double angle(double w, double s) {
    constexpr double pi = 3.14159265358;
    if (s == 0) return w == 0 ? 0 : std::copysign(pi / 2, w);
    double result = std::atan(w / s);
    if (s < 0) result += w < 0 ? -pi : pi;
    return result;
}

/// The rules as they are stated, value by value. Inverse chi-square is left to its own tests.
double operate(int code, double w, double s) {
    switch (code) {
    case 11: return w + s;
    case 12: return w - s;
    case 13: return product(w, s);
    case 14: return w / (s == 0 ? 1e-6 : s);
    case 15: return angle(w, s);
    case 16: return std::max(w, s);
    case 17: return std::min(w, s);
    case 18: return std::nearbyint(s) == 0 ? nothing : std::fmod(std::nearbyint(w), std::nearbyint(s));
    default: return w == 0 && s < 0 ? nothing : std::pow(w, s);
    }
}

double held(double w) { return std::fabs(w) < 1 ? w : w < 0 ? -0.999999 : 0.999999; }

double apply(int code, double w) {
    switch (code) {
    case 41: return w < 0 ? -w : w;
    case 42: return std::atan(w);
    case 43: return std::cos(w);
    case 44: return std::fabs(w) > 70 ? 0 : std::exp(w);
    case 45: return std::floor(w);
    case 46: return w > 0 ? std::log(w) : -9e14;
    case 47: return std::sin(w);
    case 48: return w < 0 ? -std::sqrt(-w) : std::sqrt(w);
    case 49: return std::tan(w);
    case 53: return w > 0 ? std::log(w) / std::log(10.0) : -9e14;
    case 56: return std::fabs(w) > 69 ? std::copysign(9e14, w) : std::sinh(w);
    case 58: return std::fabs(w) > 69 ? std::copysign(1., w) : std::tanh(w);
    case 60: return std::asin(held(w));
    case 63: return std::atanh(held(w));
    default: return w > 0 ? 1 : w < 0 ? -1 : 0; // 64
    }
}

double evaluate(const Node& node, double x, double y) {
    if (!node.left) {
        switch (node.code) {
        case 1: return x;
        case 2: return y;
        case 3: return 3.14159265358;
        case 4: return 0.61803398875;
        default: return node.literal;
        }
    }
    const double w = evaluate(*node.left, x, y);
    if (!std::isfinite(w)) return nothing;
    if (!node.right) return apply(node.code, w);
    const double s = evaluate(*node.right, x, y);
    if (!std::isfinite(s)) return nothing;
    const double result = operate(node.code, w, s);
    return std::isfinite(result) ? result : nothing;
}

/// Writes functions by the grammar: operands and operators in turn, brackets, a sign now and then.
class Writer {
public:
    explicit Writer(uint32_t seed) : random(seed) {}
    std::string fcode;
    std::vector<double> literals;

    void write(int depth) {
        if (chance(6)) fcode += chance(2) ? "11" : "12";
        primary(depth);
        for (int more = pick(5); more > 0; --more) {
            static const std::vector<std::string> operators = {"11", "12", "13", "14", "15", "16",
                                                               "17", "18", "19", "19", "13"};
            fcode += operators[static_cast<std::size_t>(pick(static_cast<int>(operators.size())))];
            primary(depth);
        }
    }

private:
    int pick(int n) { return static_cast<int>(random() % static_cast<uint32_t>(n)); }
    bool chance(int n) { return pick(n) == 0; }
    void primary(int depth) {
        static const std::vector<std::string> opens = {"41", "42", "43", "44", "45", "46", "47", "48", "49",
                                                       "53", "56", "58", "60", "63", "64", "88", "88", "88"};
        if (depth < 6 && chance(3)) {
            fcode += opens[static_cast<std::size_t>(pick(static_cast<int>(opens.size())))];
            write(depth + 1);
            fcode += "89";
        } else if (chance(2)) {
            fcode += "00";
            literals.push_back(pick(200) / 8.0 - 5);
        } else {
            fcode += "0" + std::to_string(1 + pick(4));
        }
    }
    std::mt19937 random;
};

TEST(FunctionProperty, RandomFunctionsAgreeWithATreeToTheLastBit) {
    int values = 0, without = 0;
    for (uint32_t seed = 1; seed <= 4000; ++seed) {
        Writer writer(seed);
        writer.write(1);
        if (seed % 3 == 0)
            while (writer.fcode.ends_with("89")) writer.fcode.resize(writer.fcode.size() - 2);
        const FunctionProgram program = functionprogram(writer.fcode, writer.literals, 0);
        ASSERT_EQ(program.fault, FunctionFault::none) << writer.fcode;
        const Tree tree = Descent(writer.fcode, writer.literals).read();
        for (const double x : {-2.5, 0.0, 0.75, 12.0}) {
            FunctionRow row;
            row.x = x;
            row.y = 3 - x;
            const FunctionValue got = functionrow(program, row, {});
            const double expected = evaluate(*tree, row.x, row.y);
            ASSERT_EQ(got.fault != 0, std::isnan(expected)) << writer.fcode << " at " << x;
            if (got.fault) {
                ++without;
                continue;
            }
            ++values;
            ASSERT_EQ(got.value, expected)
                << functiontext(writer.fcode, writer.literals, functionY) << " at " << x;
        }
    }
    EXPECT_GT(values, 8000);
    EXPECT_GT(without, 100);
}

TEST(FunctionProperty, TheTextShownReadsBackToTheSameValues) {
    for (uint32_t seed = 1; seed <= 1000; ++seed) {
        Writer writer(seed);
        writer.write(1);
        const std::string text = functiontext(writer.fcode, writer.literals, functionY);
        const auto again = typedtokens(text, functionY, true);
        ASSERT_TRUE(again) << text;
        const FunctionProgram first = functionprogram(writer.fcode, writer.literals, 0);
        const FunctionProgram second = functionprogram(again->fcode, again->literals, 0);
        ASSERT_EQ(second.fault, FunctionFault::none) << text;
        FunctionRow row;
        row.x = 1.25;
        const FunctionValue a = functionrow(first, row, {}), b = functionrow(second, row, {});
        ASSERT_EQ(a.value, b.value) << text;
        ASSERT_EQ(a.fault, b.fault) << text;
    }
}

TEST(FunctionProperty, SpellingsReadBackToTheSameTokens) {
    for (const Token& token : tokens())
        for (const Token& other : tokens()) {
            const auto spelling = functionspelling(std::to_string(100 + token.code).substr(1)
                                                   + std::to_string(100 + other.code).substr(1));
            ASSERT_TRUE(spelling);
            EXPECT_EQ(functionspelled(*spelling), std::to_string(100 + token.code).substr(1)
                                                      + std::to_string(100 + other.code).substr(1));
        }
}

TEST(FunctionProperty, AnyByteStringIsReadOrRefused) {
    std::mt19937 random(7);
    const std::string alphabet = "0123456789xyk()+-*/^.,eE sinmaxpiPDF!\xff\n";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (int n = static_cast<int>(random() % 12); n > 0; --n)
            text += alphabet[random() % alphabet.size()];
        if (const auto typed = typedtokens(text, static_cast<int16_t>(i % 4), i % 2 == 0)) {
            EXPECT_EQ(typed->fcode.size() % 2, 0u);
            EXPECT_NE(faultoftokens(typed->fcode, typed->literals), FunctionFault::noLiteral) << text;
        }
        faultoftokens(text);
        functiontext(text, {}, functionY);
        functionspelled(text);
    }
}

} // namespace
