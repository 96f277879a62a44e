#include "support/reference.h"

#include <gtest/gtest.h>

#include <map>

#include "curvefit/fitsolve.h"
#include "curvefit/fitstats.h"

namespace {

/// The rows of each data set of the table.
std::map<std::string, std::vector<FitRow>> datasets(const ReferenceTable& table) {
    std::map<std::string, std::vector<FitRow>> sets;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        if (table.number(i, "model") != 0) continue;
        auto& rows = sets[std::string(table.text(i, "dataset"))];
        const auto index = static_cast<std::size_t>(table.number(i, "index"));
        if (rows.size() <= index) rows.resize(index + 1);
        const std::string_view quantity = table.text(i, "quantity");
        (quantity == "x"   ? rows[index].x
         : quantity == "y" ? rows[index].y
                           : rows[index].weight) = table.number(i, "value");
    }
    return sets;
}

} // namespace

/// Every model by Householder QR in 60 digits. Order 9 a hundred thousand from zero has coefficients of 1e39
/// that cancel; each is right by itself. The logarithms and reciprocals of those abscissas differ by no more
/// than 1.6e-4 of 11.5: their own rounding as doubles, 2^-53, stands 1e5 times as large in the results.
TEST(CurveReference, CoefficientsAndFiguresAreThoseOfSixtyDigits) {
    const ReferenceTable table = reference("curvefit.csv");
    const auto sets = datasets(table);
    ErrorSummary polynomials, curves, crowded;
    for (std::size_t i = 0; i < table.rows.size(); ++i) {
        const int code = static_cast<int>(table.number(i, "model"));
        if (code == 0) continue;
        const std::string name(table.text(i, "dataset"));
        const CurveModel model = *modelofcode(code);
        const FitSolution fit = fitsolve(sets.at(name), model);
        ASSERT_EQ(fit.state, FitState::solved) << name << " " << code;
        const FitStatistics statistics = fitstats(sets.at(name), fit.fitted, model.parameters());
        const std::string_view quantity = table.text(i, "quantity");
        const double actual = quantity == "r" ? statistics.r
                              : quantity == "coefficient"
                                  ? fit.coefficients[static_cast<std::size_t>(table.number(i, "index"))]
                                  : statistics.standardError;
        const bool polynomial = model.ispolynomial() || quantity == "r";
        ErrorSummary& errors = polynomial ? polynomials : name == "far" ? crowded : curves;
        errors.add(actual, table.number(i, "value"), name + " " + std::to_string(code));
    }
    polynomials.expectwithin(1e-13);
    curves.expectwithin(1e-13);
    crowded.expectwithin(1e-10);
}
