#pragma once

#include <span>
#include <vector>

/// Runs of the session's function over the rows of a set, or over its X range.

/// Evaluates the function for every row of the target set and writes the results into its cells: X with
/// functionX and functionTwoSets, else Y. With functionCurve x is the target's own and the second operand k.
/// Else x and y come from functionSet; with functionTwoSets x and y are the X of functionSet and
/// functionSetB, with functionTwoSetsY their Y, for the rows that both have. A row without a Y that the
/// function reads has no result; the last y is that of the last point that has one. Rows are those of the
/// grid; a cell that is no point is passed over, and j counts the points. A target without a cell at a row
/// gets one there.
///
/// A row that has no result keeps what stands in its cell, and the run goes on; what went wrong is told once
/// at the end. Where a minus sign marks a suspension, x is the value without it and the mark stays; a result
/// that is not above 0 cannot stand there.
///
/// False when nothing was written: the function cannot run, the target is none, or no row had a result. Told;
/// the saved copy of the function then takes the place of the working one. Also false, and silent, within
/// another run.
bool functionrun(int target);

/// A point of the curve.
struct FunctionPoint {
    float x = 0, y = 0;
};

/// Part of the plane that is shown, on the data scales. Low not below high: no limit in that direction.
struct FunctionWindow {
    double xlow = 0, xhigh = 0, ylow = 0, yhigh = 0;
};

/// The curve of the function over fxlow to fxhigh in equal steps, with k as its second operand. A point
/// outside the window is left out, and so is one without a result, which is told once. Empty, told and with
/// the saved copy in place when the function cannot run or has no point at all to give.
std::vector<FunctionPoint> functioncurve(int points, const FunctionWindow& window);

/// The numbers of the session's function, the first of them at index 0.
std::span<const double> functionliterals();

/// Keeps the function as the saved copy, brackets closed first.
void functionkeep();
/// Brings the saved copy back. Without one the working copy stays.
void functionundo();
/// Adds the close brackets that are missing at the end.
void functionclose();
