#pragma once

#include <functional>
#include <span>

/// Search for the threshold t0 of a set: the values less t0 follow the line.

/// How a search ended, and where.
struct ThresholdSearch {
    enum class End { found, noOptimum, escaped } end = End::noOptimum;
    double t0 = 0;
};

/// The measure of a trial, the larger the better; noMeasure for a trial without a line.
using ThresholdMeasure = std::function<double(double)>;
inline constexpr double noMeasure = -9e30;

/// Largest measure over thresholds below `first`, the smallest value of a set whose values span `range`.
///
/// Scans of twelve trials, each a step below the one before, the first from `first` with a tenth of the
/// range. A trial at or beyond `first` is moved to first - |first|/10000. The best trial of a scan is the
/// centre of the next: beyond its last trials with twice the step when it stood among those, else about it
/// with a fifth. Ends after 49 scans, or after more than 14 when fine steps did not change the best.
///
/// likelihood: a scan ends at the second fall in a row, and a fall from the first trial on is no maximum
/// where a rise follows: the likelihood of a threshold is without bound as it nears the smallest failure
/// (Hill, JASA 58 (1963) 72; Cheng and Amin, J. R. Statist. Soc. B 45 (1983) 394), and the estimate is the
/// local maximum (Griffiths, Appl. Statist. 29 (1980) 58). No optimum: where there is none but that rise,
/// where the best recedes beyond 10000 ranges, the limit without threshold, and where it comes nearer to
/// `first` than the spacing of singles over the larger of `first` and the range: that is the border itself.
/// To about 1e-7 of the range.
ThresholdSearch searchthreshold(const ThresholdMeasure& measure, double first, double range, bool likelihood);

/// True when the run searches thresholds: asked for, and of a family without a location of its own.
bool thresholdsearched();

/// Search for the one threshold that several sets share, which have been ordered. `measure` is that of the
/// sets with the trial on all of them, which also holds for the optimum afterwards. No optimum below 3
/// failures and for a single value. Leaves the sets with the last trial otherwise.
ThresholdSearch searchsets(std::span<const int> sets, const std::function<double()>& measure,
                           bool likelihood);

/// Finds the threshold of set k, which has been ordered, by the method in force: largest r^2 at rr, largest
/// log likelihood at mle unless thresholdByRegression asks for the one of rr. t0(k) is the optimum, kept
/// below the first value in single precision. False, with t0(k) zero: no optimum, told; or Escape, which
/// clears the bounds of every set. Normal and Gumbel lines have a location already: told, t0 is 0, true.
bool findthreshold(int k);
