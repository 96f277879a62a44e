#include "numeric/matherror.h"

#include <string>

#include <gtest/gtest.h>

#include "support/told.h"

TEST(MathErrors, TextOfTheTableComesFirstAndTheDetailDirectlyBehindIt) {
    const Told told;
    matherror(MathError::excessiveIterationsOf, "chi2inv");
    ASSERT_EQ(Told::texts().size(), 1u);
    EXPECT_EQ(Told::texts()[0], "Excessive iterations: chi2inv");
}

TEST(MathErrors, EveryNumberHasItsText) {
    EXPECT_EQ(matherrortext(MathError::invalidInput), "Invalid input");
    EXPECT_EQ(matherrortext(MathError::inputsOutOfBounds), "Inputs out of bounds");
    EXPECT_EQ(matherrortext(MathError::excessiveIterations), "Excessive iterations");
    EXPECT_EQ(matherrortext(MathError::excessiveIterationsOf), "Excessive iterations: ");
    EXPECT_EQ(matherrortext(MathError::arrayTooSmallToSolve), "Array too small to solve");
    EXPECT_EQ(matherrortext(MathError::arrayTooSmall), "Array too small");
    EXPECT_EQ(matherrortext(MathError::undefinedArray), "Undefined Array");
    EXPECT_EQ(matherrortext(MathError::singularMatrix), "Singular Matrix");
    EXPECT_EQ(matherrortext(MathError::singularMatrixUnsolved), "Singular Matrix cannot be solved");
    EXPECT_EQ(matherrortext(MathError::matrixProblem), "Matrix Problem");
    EXPECT_EQ(matherrortext(MathError::matrixSolution), "Error in Matrix Solution");
    EXPECT_EQ(matherrortext(MathError::error), "Error: ");
    EXPECT_EQ(matherrortext(MathError::undetermined), "Undetermined Error");
    EXPECT_EQ(matherrortext(MathError::undeterminedOf), "Undetermined Error:  ");
}

TEST(MathErrors, NumberOutsideTheTableIsUndetermined) {
    EXPECT_EQ(matherrortext(static_cast<MathError>(99)), "Undetermined Error");
    EXPECT_EQ(matherrortext(static_cast<MathError>(-1)), "Undetermined Error");
}

TEST(MathErrors, LongDetailIsCut) {
    const Told told;
    matherror(MathError::error, std::string(5000, 'x'));
    ASSERT_EQ(Told::texts().size(), 1u);
    EXPECT_EQ(Told::texts()[0], "Error: " + std::string(400 - 7, 'x'));
}

TEST(MathErrors, WithoutATellerAFailureIsSilent) {
    ASSERT_EQ(tellmatherror, nullptr);
    matherror(MathError::invalidInput, "nobody listens");
}
