#pragma once

/// Bounds of the current set by simulation, after its fit: method 4 (mc) or 5 (pv) of confMethod.
///
/// mcCount samples, at most 32000, are drawn from the fitted line and fitted as the set was: the set's size,
/// plotting positions, direction, bias correction and known slope. Every unit gets a life; a suspended unit
/// that outlives its suspension is suspended there, and where the set ends with a suspension, which was then
/// the end of the observation, so is any other. A sample without a line is drawn again.
///
/// mc: the bound at probability p is the sample quantile x_p at the confidence. pv: the quantile of the pivot
/// (x_p - location)/scale of the parent's x_p by the sample's line on the plot scale, put on the fitted line.
/// For complete data the pivots do not depend on the parameters, and the bounds are exact but for the count
/// of samples. eta and beta have the same from (0 - location)/scale and scale. Lawless, Statistical Models
/// and Methods for Lifetime Data (2003), 4.1 and E; Thoman, Bain and Antle, Technometrics 11 (1969) 445.
///
/// Results: the bound rows of the asked sides, paramLow and paramHigh, setBoundLabel, and the r^2 of the
/// samples in mcCorrelations. A locked rndStart gives the same digits every run. Escape ends the simulation
/// with the samples done, if they suffice for both confidences: then it is used up, and the count is told.
///
/// A negative confMethod makes no curve but the single point at singleP.
///
/// Points with discoveries or intervals, grouped rows, tied inspection rows and a portion of the population
/// are told to be not possible: their samples would need the plan of the inspections.
void confidmc();

/// Starts the program's random source from rndStart: the same digits for the same number, from the clock for
/// 0. The first values are passed over, because small starts begin near zero together.
void startsimulation();

/// Samples to be made: mcCount as a whole number from 1 to 32000.
int simulationcount();
