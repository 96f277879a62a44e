#pragma once

/// The bounds of set k, which has just been fitted: the step of a run behind its line.
///
/// With confAuto the method is chosen by rule for the one active set and stays in confMethod: Normal or
/// Lognormal, complete: normal theory; up to 20 occurrences likelihood ratio for a likelihood fit and pivotal
/// simulation for rank regression; from 21 on Fisher. Weibayes lines, and grouped rows under any method but
/// the likelihood ratio or with a known slope, have methods of their own.
///
/// Calls the method with the parameters of the line in the registers, gives back what it may have changed,
/// then drops the points that lie at or below 0 where no negative data are allowed, and those on the wrong
/// side of the line; likewise the bounds of the parameters that leave the estimate out. Fills the two bound
/// rows, paramLow, paramHigh and setBoundLabel, and sets ifylcnf to 9 when a row has points. A set of one
/// point is told of and has none. Escape takes the bounds of the set away, and calcError is then -1.
void boundsofset(int k);
