#pragma once

#include <span>
#include <vector>

#include "curvefit/models.h"
#include "session/visualstate.h"

/// Values of fitted curves.

/// The polynomial with these coefficients from the constant up, x^k by repeated multiplication. Where the
/// logarithm of a term's magnitude reaches 600 the term is dropped and the sum stops growing.
double polynomialvalue(std::span<const double> coefficients, double x);

/// Value of one of the models 10 to 13 with {ln(a), ln(b)}, of the power model {ln(a), b}. Model 13 gives the
/// y for an x: y = ln(b) / (ln(x) - ln(a)). Its exponent is held to 600 on both sides. Not-a-number where the
/// model has no value at x.
double logarithmicvalue(const CurveModel& model, std::span<const double> coefficients, double x);

/// ln(a) and ln(b) of one of the models 10 to 13, ln(a) and b of the power model. A set's curve holds a
/// itself, unless its noLogarithm is on, and ln(b), which has no bounds that data could reach.
std::vector<double> straightline(const SetCurve& curve);

/// Value of the fitted curve at x; not-a-number for a set without a curve and outside its domain.
double fitusex2y(const SetCurve& curve, double x);
