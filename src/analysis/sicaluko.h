#pragma once

#include "plot/transforms.h"

/// A test that is ended at one failure of a group, with the slope known: the line goes through the age of
/// that failure at its median rank. Abernethy, The New Weibull Handbook, ch. 6; Benard and Bos-Levenbach,
/// Statistica Neerlandica 7 (1953) 163.

/// Plotted position of failure `sequence` of a group of `quantity` units, (s - 0.3) / (N + 0.4).
double groupposition(double quantity, double sequence);

/// Location of the line with the family and slope of `line` through an age at that position. 0 where there is
/// none: an age that is not positive, a slope that is none, a sequence outside 1 to the quantity.
double groupscale(const FamilyLine& line, double age, double quantity, double sequence);

/// Sica-Luko: asks for the test quantity (at least 2), the sequence of the last failure (1 to that) and its
/// age, and reports the line of the set in hand with the correction, eta over the age. Quantity and sequence
/// are kept in testQty and testLast, the line in eta and beta. The first failure makes it a Weibull line. A
/// set without a slope is told; a cancel changes nothing.
void sicaluko();

/// Sudden death: groups of so many units, each test ended at the first failure of its group. The same line
/// with sequence 1.
void suddendeath();

/// The slope that a set's test is planned by: the fixed one, else that of its line; 0 for none.
double knownslope(int k);
