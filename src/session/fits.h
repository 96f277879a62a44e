#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/table.h"

/// Distribution families. A negative code names the three-parameter form inside the distribution analysis.
enum Dist : int16_t { weibull = 1, lognormal = 2, normal = 3, gumbel = 4 };

/// Fit methods, the first index of the parameter tables.
inline constexpr float rankRegression = 1;
inline constexpr float maximumLikelihood = 2;

/// Type of one decoded point.
enum PointType : int16_t { Occr = 0, Susp = 1, Disc = 2, Intv = 3, intvComplement = 4 };

/// What became of each set, and the line last computed. Set-indexed unless said otherwise.
struct Fits {
    int16_t dist = weibull;  ///< family (Dist)
    int16_t gumbeltype = -1; ///< Gumbel: -1 smallest extreme, +1 largest extreme, 0 no choice
    float fixedSlope = 0;    ///< known slope: 0 free; Weibull 1 exponential, 2 Rayleigh, other Weibayes
    float fitMethod = rankRegression;
    float fitMethodSaved = rankRegression; ///< method that a run gives back at its end
    int16_t mleVariant = 0;                ///< 0 mle, 1 mleN-1, 2 RBAmd, 3 RBAmu, 4 RBApb, 5 RBAjjm
    float rrSwap = 0;                      ///< above 0: the regression direction is reversed (rrs)

    int currentSet = 0; ///< set in hand, k = row / sg

    double eta = 0;  ///< location-type parameter of the current line
    double beta = 0; ///< shape or spread parameter of the current line
    float rFit = 0;  ///< correlation of the current line

    double logLik = 0;              ///< log likelihood of the trial line last evaluated
    double dLdEta = 0, dLdBeta = 0; ///< and its slopes
    int16_t loglykErrorTold = 0;    ///< 1 when this run has told of a suspension at zero
    int16_t minimumTold = 0;        ///< 1 when it has told of a trial without a likelihood

    int16_t mixFlag = 0; ///< 1 when the mixed model is in force
    int16_t mixKind = 0; ///< 4 two components, 5 two with a portion, 7 three with a portion
    List<float> mixEtas, mixBetas, mixPortions; ///< components of a mixture, from 1

    Table<double> etaFit, betaFit; ///< (row of the set, j): j = 1 the fit, 2 the alternate fit
    List<float> t0;                ///< threshold
    List<double> setCorrelation;   ///< r of the set's line
    List<double> countOccr, countSusp, countDisc, countIntv; ///< quantities by point type
    List<double> countQuantity;                              ///< sum of quantities
    List<double> occurrenceMean;                             ///< mean value of the occurrences
    List<double> timeTotal;                                  ///< sum of all values, by quantity
    List<double> sampleSd; ///< sample standard deviation on the plot scale of a complete set, else 0
    List<float> rSquaredMinusCcc;
    List<int16_t> setInputType; ///< input type that the set was analysed as
    List<int16_t> setPlaced;    ///< 1 when the points of the set have plotting positions
    List<int16_t> setFitted;    ///< 1 when the set has a line
    List<int16_t> setCorrected; ///< 1 when that line carries the bias correction of the mle variant
    List<std::string> setLabel; ///< status word: "rr", "rrs/insp1", "mle/t0~r", …
    std::vector<std::vector<std::string>> setMessages; ///< what the user was told about the set in this run

    List<int16_t> FITKIND;               ///< kind of fit of each set on the visual side
    std::array<float, 11> fitKindList{}; ///< the kinds offered
    int16_t fitKindCount = 10;
    List<float> CI;               ///< confidence level
    List<double> LOGLYKMLE;       ///< log likelihood of a likelihood fit; noAnswer for any other
    List<float> PVALUE, PVALUEFF; ///< p-values in percent: of the fit and of the comparison of two sets
    List<float> cccSquared;       ///< critical r^2 of the family and the failure count
    List<float> pvePercent;       ///< pve%: share of samples of the family that fit no better
    List<float> pADPercent;       ///< pAD%: p-value of the Anderson-Darling test; noAnswer for none
    List<double> modifiedA2;      ///< its statistic, modified for the sample size; 0 for none
    List<float> ETABARR1, BETABARR1, ETABARR2, BETABARR2; ///< process reliability lines
    Table<float> BARRXA, BARRYA;                          ///< process reliability points
    List<float> BARRN;                                    ///< and their count
    List<std::string> DUANEGROWTHS;                       ///< growth text
    List<std::string> CRAMERVONMISESTEXTS;                ///< test text
};

/// The weighted sums of one regression walk.
///
/// Sx, Sxx and Sxy are taken about originX, the plot X of the first point accumulated: data far from zero
/// (Normal data of 100000 ± 1) would else lose their digits in the difference of two large sums. Slope and
/// correlation do not depend on the origin; the crossing point is moved back by it.
struct RegressionSums {
    double n = 0; ///< sum of weights
    double Sx = 0, Sxx = 0, Sy = 0, Syy = 0, Sxy = 0;
    double prevX = 0, prevY = 0, prevWeight = 0; ///< the point last accumulated
    double originX = 0;
    int suspLines = 0; ///< suspended lines met
    int rows = 0;      ///< points walked
};
