#pragma once

#include "session/visualstate.h"

/// Writes a fitted curve as a function of x, in tokens with their numbers, into its code and literals; both
/// are empty for a set without a curve. Its values are those of fitusex2y, but for exp( which is 0 where its
/// argument is beyond 70.
///
/// A polynomial is a sum of terms "c*x^k". Where such a product may come so close to 0 that the product rule
/// of functions takes it for too big, the term is "x^k/(1/c)", which has no such limit. The models 10 to 12
/// are exp( with the straight line inside; model 13, whose line gives x for a y, is solved for y:
/// "ln(b)/(ln(x)-ln(a))".
void fitfunction(SetCurve& curve);
