#pragma once

#include <cstdint>
#include <span>

/// Two Weibull failure modes in one population, the first of which strikes a portion of it alone:
/// R(x) = R2(x) (portion R1(x) + 1 - portion). With portion 1 both strike every unit.
struct TwoModes {
    double eta[2] = {1, 1};
    double beta[2] = {1, 1};
    double portion = 1;
};

/// Units at one age: failed there or suspended.
struct ModeUnit {
    double logAge = 0;
    double weight = 1;
    bool failed = true;
};

/// Log likelihood on the natural scale of x; minus infinity for parameters that are none.
double modeslikelihood(const TwoModes& modes, std::span<const ModeUnit> units);

/// One step of the algorithm of expectation and maximisation from `modes`: never a lower likelihood. The
/// cause of each failure, and whether a unit is of the portion, are the missing data; each mode is then a
/// weighted Weibull fit. A mode left without failures, or steeper than 1000, keeps its line. portion 1 stays.
/// Dempster, Laird and Rubin, J. R. Statist. Soc. B 39 (1977) 1.
TwoModes improvedmodes(const TwoModes& modes, std::span<const ModeUnit> units);

/// Fits two modes to the current set, which has been ordered: mixKind 4 without, any other with a portion.
///
/// Random trials from the program's source, as many as the simulation makes (mcCount), in each of five
/// rounds; after a round every range shrinks to a third of the way from its end to the best. The best is
/// polished by the factors 0.7, 0.9, 1.2 and 1.4 on each parameter while the likelihood rises by 1e-6, then
/// carried to the maximum by steps of expectation and maximisation. mixEtas, mixBetas and mixPortions take
/// the modes, mixKind and mixFlag the model, logLik the likelihood; the report line gives " LL1=", the
/// likelihood of one mode, where the set has a likelihood fit, and " LL2=" that of two. A locked rndStart
/// gives the same digits every run. Told, and nothing changed: Escape, fewer than four failures, other than
/// exact failures and suspensions, a family other than Weibull, a best that gives one mode fewer than two
/// failures: such a mode grows steeper without end, and the likelihood with it.
void mixturefit();
