#pragma once

/// Weibayes: a Weibull line of known slope. With the slope given, the data are one sum, and the scale follows
/// from it: eta = (Sum q t^beta / r)^(1 / beta) for r failures. It is the maximum of the likelihood at that
/// slope; a set without any failure can be analysed too.
/// Abernethy, The New Weibull Handbook, ch. 6.

/// The sum of q t^beta as a logarithm, so that no power overflows.
class WeibayesSum {
public:
    explicit WeibayesSum(double slope) : beta(slope) {}

    /// Adds q units of age t. q <= 0, t <= 0, a slope that is none and a term with an exponent of 700 or more
    /// fail the whole sum.
    void add(double q, double t);

    bool valid() const { return beta > 0 && !empty; }
    double logarithm() const { return logSum; }

private:
    double beta; ///< 0 once the sum has failed
    double logSum = 0;
    bool empty = true;
};

/// Scale for a sum, a slope and r failures, whole or not. 0 for r <= 0, a slope that is none, a scale too
/// small for the form (ln(1/r) / beta of 80 or more) and one beyond a double.
double weibayesscale(double logSum, double beta, double r);

/// Failures that stand in the formula: those there are; without any, one for a confidence of 0 and else
/// -ln(1 - confidence / 100), by which eta is the lower limit at that confidence. A confidence outside 0 to
/// 100, or of 100, counts as 50.
double weibayesfailures(double failures, double confidence);

/// Lower limit of eta with a confidence of so many percent after r failures, r whole or not:
/// (Sum / (chi2(confidence, 2r + 2) / 2))^(1 / beta); for r = 0 the same as -ln(1 - confidence / 100)
/// failures. A limit of 50 percent is the median, one of 5 the upper limit at 95. Every failure counts, as it
/// does in the sum: for many the chi-square value is that of its cube-root form (chi2inv). 0 for a confidence
/// outside (0, 100) and for an r that is infinite or not a number.
double weibayeslimit(double logSum, double beta, double r, double confidence);

/// The data of a set as one sum, additions included.
struct WeibayesData {
    WeibayesSum sum;
    double failures = 0; ///< occurrences, discoveries and intervals, with those added
};

/// Set k, which has been ordered, less its threshold: an exact age counts as it is, a discovery at half its
/// age, an interval at its middle; a suspension below the threshold tells nothing. Added failures and
/// suspensions have the value of the last point in order.
///
/// With the Dauser form (wbPlan 3) the suspensions are added at RSUSP instead, and the last failure enters at
/// LFAIL in place of its own value.
WeibayesData weibayesdata(int k, double beta);

/// Puts what is to be added in order: failures and suspensions exclude each other, failures first, and then
/// take the confidence to 50; a confidence outside its range is 50.
void weibayescheck();

/// True when something is to be added to the data, or the Dauser form is in force.
bool weibayesadditions();

/// False, and told, for a Dauser form that lacks LFAIL (where the set has a failure) or RSUSP.
bool weibayesready(int k);

/// eta and beta of the current set at fixedSlope; beta 0 marks the failure.
void weibayescalc();
