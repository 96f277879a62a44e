#pragma once

/// Bounds of grouped rows, current set. For a row with the proportion p and a deviate z of each side's
/// percentage, below 0 under 50 percent: p + z s, with
///
///   probit (input 2, 3)      s^2 = p (1 - p) / m with the row's sample m
///   Kaplan-Meier (input 4)   s = (1 - p) sqrt(sum d / (m (m - d))), d failures among m at risk, to this row
///
/// X is the row's data value. A result at or below 0 becomes 1e-6, one at or above 1 0.999999. Rows with
/// nothing or all failed have no bounds of their own: their s would be 0.
/// Greenwood, Reports on Public Health 33 (1926); Lawless, Statistical Models and Methods for Lifetime Data
/// (2003), 3.2.
void confidprobitkm();
