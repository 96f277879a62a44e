#pragma once

#include <span>
#include <string>

/// The command line: an optional data file, then switches "-x value". A value is everything up to the next
/// switch, may stand against its letter ("-m2"), and the word NONE stands for no value. Only recorded here:
/// cmdFile, cmdDistribution, cmdMethod, cmdInput, cmdSide. False when a switch or a value is wrong; msg then
/// says which.
///   -p  side: a text beginning with V the visual side, any other the life side
///   -i  input type: 0 standard, 1 insp1, 2 prbt2, 3 prbt3, 4 km4, 5 intv5
///   -m  method, plain or in parentheses: 1 rr, 2 rrs, 3 mle, 4 mleN-1, 5 RBAmd, 6 RBAmu, 7 RBApb, 8 RBAjjm
///   -e  distribution: a name, then "3" or "3AR" for a threshold, or "(n)" for a fixed slope
bool cmdparse(std::span<const std::string> arguments);

/// Puts the recorded values into the session's options.
void cmdapply();
