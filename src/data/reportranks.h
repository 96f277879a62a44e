#pragma once

/// Table of the plotted points of set k in the order of value: number, value, what it is, quantity, mean
/// adjusted rank, plotting position in percent. Suspensions stand in their place, without a rank. Nothing for
/// a set without plotting positions.
void reportranks(int k);
