#pragma once

#include <cstdint>

/// The transforms of X-Y data, set by set. Each asks for what it needs, changes cells of the grid as one step
/// that an undo takes back, and is true when it did: the caller runs calcplot. Quantity, Z and label of a
/// point stay with it; a cell that is no point stays as it is.

/// Asks for a function, and runs it over a set: X or Y of each row from the row's x and y.
bool functiontox();
bool functiontoy();
/// The same from the X of two sets to the X of the first, from their Y to its Y, for the rows that both have.
bool functionoftwox();
bool functionoftwoy();
/// The function of the session as it is drawn, with its parameter k: Y of each row of a set from its x.
bool functionwithk();

bool axisofset();   ///< X of set B from the Y of set A, for the rows that both have
bool totalofsets(); ///< a new set: running sum of Y of one set, or the sum over all sets at each X

/// A new set from the data of one set and the fitted curve of another at their X: the curve over the data,
/// and the data less the curve.
bool dataagainstfit();
bool datalessfit();

bool rectangulartopolar(); ///< X becomes the angle in degrees, Y the radius
bool polartorectangular();
bool rotation(); ///< about the origin, by an angle that is asked for, in degrees and counter-clockwise
bool swapaxes();
bool orderbyx(); ///< the points of a set in order of X, each with its whole cell

bool histogramofaxis(); ///< a new set: how many of a set's X, or Y, lie in each interval; drawn as bars
bool histogramofboth(); ///< the same with the sum of the Y of the points in each interval of X

/// Coordinates that stand as intervals, each from the one of the row before, become sums down the rows.
bool intervalx();
bool intervaly();
bool intervalboth();
