#pragma once

#include <span>

#include "analysis/lifeterms.h"

/// How a search for the maximum of a likelihood ended.
enum class SearchEnd {
    found,
    noMaximum, ///< the likelihood rises without end, or towards a line that is none
    truncated, ///< the limit of passes was reached
    escaped
};

/// Asked now and then within a search; true ends it.
using Interrupted = bool (*)();

/// Location and scale on the plot scale at which the likelihood of the terms is largest.
struct LineSearch {
    SearchEnd end = SearchEnd::noMaximum;
    double location = 0, scale = 0;
};

/// Largest likelihood of a line over terms on the plot scale (ln x for Weibull and Lognormal). fixedScale
/// other than 0: the scale is known, the location is searched. portion: the part of the population that can
/// fail, 1 for all.
///
/// With z = rate * y - shift the log likelihood of exact, censored and interval data is concave in (shift,
/// rate) for every shape here, so that Newton's method with a step that is halved until it climbs finds the
/// one maximum from anywhere; with a portion below 1 a ridge is put on a curvature that is not. The data are
/// centred and scaled first: shifting or stretching them shifts and stretches the answer, no more. Complete
/// samples of the bell have their mean and root mean square deviation at once.
/// No maximum, told before any step, when some age lies where every failure can lie and no survivor above it:
/// the likelihood then grows for ever as the scale shrinks. Result to some 1e-12 relative. Burridge, J. R.
/// Statist. Soc. B 43 (1981) 41; Pratt, J. Am. Statist. Assoc. 76 (1981) 103; Lawless, Statistical Models and
/// Methods for Lifetime Data (2003), ch. 4 and 5.
LineSearch maximumlikelihood(Shape shape, std::span<const LifeTerm> terms, double portion, double fixedScale,
                             Interrupted interrupted);
