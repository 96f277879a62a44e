#pragma once

#include <span>

#include "analysis/lifeterms.h"

/// Do two sets come from one line? The likelihood ratio test: each set with a line of its own against both
/// with one. Cox and Hinkley, Theoretical Statistics (1974), ch. 9; Lawless, Statistical Models and Methods
/// for Lifetime Data (2003), ch. 5.

/// Largest log likelihood of a line over terms on the plot scale; noAnswer when there is no maximum, and when
/// a term has no place on that scale. A density is that of the plot scale, so that only differences over the
/// same values mean anything.
double largestloglikelihood(Shape shape, std::span<const LifeTerm> terms, double portion, double fixedScale);

/// p-value in percent of twice a log likelihood ratio, 100 (1 - P(T)) with P the chi-square distribution of
/// so many degrees of freedom. A negative T counts as 0.
double likelihoodratiopvalue(double T, double dof);

/// The test of sets 1 and 2 for the family, fixed slope and input type in force, into PVALUEFF of both as
/// pFF%, by likelihood whatever the method of the fits. Where thresholds are searched, that is a parameter as
/// the others: each set alone has its own, both together share one, every one of them searched anew. Else
/// each set counts less the threshold that it has. noAnswer for fewer than 3 failures altogether and when one
/// of the lines or thresholds does not exist. The degrees of freedom are the parameters that one line has
/// fewer than two: 2, one less at a fixed slope, one more when thresholds are searched. Puts the sets in
/// order; nothing else of the session changes.
void twosettest();
