#pragma once

#include "analysis/linesearch.h"

/// True when lines are fitted by likelihood: the method in force, or at a fixed slope the one that was
/// chosen.
bool bylikelihood();

/// The maximum likelihood fit of the current set, which has been ordered, by the family, fixed slope, input
/// type and population portion in force: eta, beta and logLik out, then the bias correction of the variant in
/// force is on eta and beta. Weibull failures and suspensions go by maxlyknewton, everything else, and what
/// that gives up, by the search for location and scale. beta in is the slope to start from.
///
/// The search works on copies that are centred and scaled: the session's data are never touched. Any end but
/// found leaves eta and beta as they were.
SearchEnd maxlyk();
