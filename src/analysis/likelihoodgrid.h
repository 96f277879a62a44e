#pragma once

/// Limits of the table: the values of one parameter between which it is spread.
struct GridLimits {
    double low = 0, high = 0;
};

/// Values of one parameter, the other held at the fit, at which the log likelihood has fallen by `drop` from
/// the fit of the current set. `second`: of beta, else of eta. Spread factors of a Lognormal line stay above
/// 1, positive parameters above 0. To 1e-6 of the distance; a side without such a value ends where 200
/// doublings of the first step, a hundredth of the parameter's own scale, have come.
GridLimits gridlimits(bool second, double drop);

/// Reports the log likelihood of the current set over a grid of its two parameters: "Likelihood Value Grid",
/// the limits as "L=" and "U=", and one line for each value of the first parameter. The limits lie where the
/// likelihood has fallen by 3, half the 98.6 percent point of chi-square with one degree of freedom. A set
/// without a line has no table.
void likelihoodgrid();
