#pragma once

#include <span>

/// The bounds of a set as the report, the results and the plot read them from its rows.

/// True when set k has bounds.
bool hasbounds(int k);

/// Rows of the two curves of set k.
int lowboundrow(int k);
int highboundrow(int k);

/// Confidence of the bounds in percent: between the sides, or of the one that is asked.
double boundconfidence();

/// Lower and upper bound of the value x at a probability, with the percentages they stand for; noAnswer where
/// there is none. Curves of bounds of x have a point at the probability. Binomial, probit and Greenwood
/// curves are bounds of the probability at the points: x is where they cross the probability, straight
/// between points on the plot, and it is the high curve, which stands left, that gives the lower x.
struct ValueBounds {
    double low, high;
};
ValueBounds valuebounds(int k, double p);

/// Percentages of the lower and the upper bound of a value, in the sense of valuebounds; 0 for none.
ValueBounds valuepercentages(int k);

/// Percentages of the population that the report tells the values of: those that the user named, else the
/// usual ones; a list with anything but percentages in it counts as none.
std::span<const double> reportlevels();
