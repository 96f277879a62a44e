#pragma once

/// The routine through which every life data set passes: takes the sets of the session in order, decides for
/// each whether a line is possible, fits it by the method in force and stores the results by set and line.
/// Reads and writes the session state. calcError: 0 clean, 1 stop this set, -1 stop the run after this set;
/// Escape (abortCode 27) ends the run with the results so far.
void calcsmain();

/// Puts family, method and Gumbel type in order before a run: an unknown code falls back to the standard
/// (Weibull, rr, no variant), and the Gumbel type is -1 for every other family.
void methodcheck();
