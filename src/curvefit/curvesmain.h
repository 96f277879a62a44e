#pragma once

#include <string>
#include <vector>

/// The curve fits of a cycle: register routines over the kernels.

/// Fits the curve of every shown set of the visual side whose FITKIND asks for one, into session.curves(k).
/// What stood there before is cleared; a set that gets no curve is told why. Where the run asks for one kind
/// of every set (fitKindList[0], see curvewords.h), FITKIND takes it first.
///
/// SOLCOEF takes the coefficients of the first curve, and the lists before it move back, when they changed.
void curvesmain();

/// True when set k has a fitted curve.
bool hascurve(int k);

/// True when every shown set that asks for a curve has one; there are none to ask for off the visual side.
bool curvesstand();

/// A cell that gets its Y from the curve of its set.
struct FilledCell {
    int set = 0, point = 0; ///< both from 1
    std::size_t place = 0;  ///< in the set's column of the grid, from 0
    float y = 0;
    std::string text; ///< the cell with its Y
};

/// The cells without Y that the curves can fill, when session.fillMissing asks for it; it asks once, so that
/// an undo does not fill them again. The label of a filled cell ends with fillLabel. A set whose coefficients
/// do not tell its curve precisely is told and not filled, and so is a run without any curve. The grid stands
/// untouched.
std::vector<FilledCell> curvefills();

/// Puts them into the grid, and then, once the former data have been kept for undo, into the points.
void curvefillsput(const std::vector<FilledCell>& fills);
void curvefillstake(const std::vector<FilledCell>& fills);

/// The curves in the report: of each set its line, its coefficients in full, and what it was made of.
void reportcurves();
