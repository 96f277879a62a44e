#pragma once

/// Decoding and ordering of the points of one set, before it is ranked.

/// Decodes every point of set k (type, data value), puts the points in order of value and counts them by
/// type. At a tie a failure comes before a suspension, and points stay in order of entry otherwise; an
/// interval stands at the middle of its plot values, where the regression places it.
/// Fills pointTypes, pointOrder and the counts of the set.
void orderset(int k);

/// Plot X of every point of set k for the family in force and the set's threshold, into pointPlotX.
/// To be called again after a change of t0.
void placepoints(int k);

/// Upper end of an interval point, without the threshold.
double pointupper(int k, int j);

/// True for the grouped rows, which carry their own positions: probit and Kaplan-Meier input.
bool groupedinput();
