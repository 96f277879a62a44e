#pragma once

#include "plot/transforms.h"

/// Small-sample corrections of a likelihood fit. With r failures and C4(r) the unbiasing factor of the
/// standard deviation:
///
///   mleN-1   Lognormal, Normal: spread * sqrt(r / (r - 1)) / C4(r), r > 1; Weibull, Gumbel: none
///   RBAmd    Weibull beta * C4^3.5
///   RBAmu    Weibull beta * C4^6
///   RBApb    Weibull beta * C4^3.52, eta / C4^0.217
///   RBAjjm   Weibull beta * C4^(0.985 r + 3.71)
///
/// Gumbel takes the factor on one over its scale; Lognormal and Normal take that of mleN-1 under every name.
/// Abernethy, The New Weibull Handbook, ch. 5.
struct BiasCorrection {
    int variant = 0;   ///< mleVariant
    double factor = 1; ///< of the Weibull slope, of 1/scale (Gumbel), of the spread (Lognormal, Normal)
    double etaDivisor = 1;
};

/// The correction of a family for r failures; none for r below the least that it needs.
BiasCorrection biascorrection(int family, int variant, double r);

/// That of the current set by the method in force: none at a fixed slope.
BiasCorrection currentcorrection();

FamilyLine corrected(FamilyLine line, const BiasCorrection& correction);
FamilyLine uncorrected(FamilyLine line, const BiasCorrection& correction);
