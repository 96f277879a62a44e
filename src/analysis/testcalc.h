#pragma once

/// Planning of a demonstration test for a Weibull line of known slope beta > 0. A goal is the reliability R
/// at a life; the line that just meets it has the scale eta_goal. Everything goes by logarithms and is held
/// to 1E+300. Abernethy, The New Weibull Handbook, ch. 6; Nelson, Accelerated Testing (1990).

/// Scale of the line with reliability R, inside (0, 1), at a life > 0: life / (-ln R)^(1 / beta). 0 for bad
/// input, here and below.
double goalscale(double life, double reliability, double beta);

/// Reliability of a line at a life, exp(-(life / eta)^beta).
double reliabilityat(double life, double eta, double beta);

/// Life at which a line has reliability R, eta (-ln R)^(1 / beta).
double lifeat(double reliability, double eta, double beta);

/// Test time of each of n items, none of which may fail, to demonstrate eta_goal with a confidence of so many
/// percent: eta_goal (-ln(1 - C) / n)^(1 / beta).
double zerofailuretime(double etaGoal, double beta, double items, double confidence);

/// Whole number of items to be tested for a time each without a failure: -ln(1 - C) (eta_goal / time)^beta,
/// rounded up.
double zerofailureitems(double etaGoal, double beta, double time, double confidence);

/// What the data have shown so far: the logarithm of the sum of q t^beta, when there are any, and failures.
struct TestedSoFar {
    bool any = false;
    double logSum = 0;
    double failures = 0;
};

/// Test time of each of `items` additional items, with no failure more, until eta_goal is demonstrated with
/// the confidence: the sum that is wanted, eta_goal^beta chi2(C, 2r + 2) / 2, less the one that is there,
/// shared out. Negative where the data have demonstrated it already: what could have been spared.
double additionaltime(const TestedSoFar& tested, double etaGoal, double beta, double items,
                      double confidence);

/// Test Output Requirement for the current set: asks for the word of its unit, the goals, the confidence, the
/// additional items and the usage by month, and reports five numbered outputs. Without a slope it tells
/// "Beta <= 0". A goal that the data have reached already is told, and the questions come again.
void testcalc();
