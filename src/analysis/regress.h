#pragma once

/// The regression walk: from the ordered points of the set in hand (session.currentSet) to plotting positions
/// in Y, mean ranks in plotRank, and the seven sums of session.sums.

/// Clears the sums, chooses the walk and runs it. A set at rr whose largest value is at least 50000, or whose
/// quantity is at least 1e6, goes by group, because the walk by unit is linear in the total quantity:
/// standard input is told so and, for this set, changed to inspection; inspection and interval input stay
/// what they are. Grouped rows are points of their own and never change.
void regressselect();

/// Positions of a set that gets no line: the same walks without a notice or a change.
void regresspositions();

/// Walk by unit: every unit of a quantity is a point of its own, with its own rank and weight 1.
void regresscalcw0();

/// Walk by group: a quantity is one point with its mean rank (inspection: its last rank) and its weight.
void regresscalcwfreq();

/// Adds one point of plot coordinates x, y to the sums. With inspection input a point at the plot X of the
/// point before takes its place: at one inspection age only the last cumulative value counts. A point with no
/// place on the axis, or whose sums would overflow, is left out.
void regressaccum(double weight, double x, double y);
