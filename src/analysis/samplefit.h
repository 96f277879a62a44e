#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "analysis/lifeterms.h"
#include "numeric/random.h"

/// Random samples on the standard scale, location 0 and scale 1 on the plot scale, and their lines. Nothing
/// here knows the session: the same kernel serves every simulation.

/// One unit of a sample: where it failed, or where it was suspended.
struct SampleUnit {
    double z = 0;
    bool suspended = false;
};

/// How samples are drawn and fitted.
struct SamplePlan {
    Shape shape = Shape::smallest;
    bool likelihood = false; ///< maximum likelihood; else rank regression
    bool xOnY = true;        ///< direction of the regression
    int rankMethod = 7;      ///< RankMethod
    bool fixedScale = false; ///< the scale is known: 1

    /// The line the samples come from, and the bias correction that its fit carries.
    FamilyLine parent;
    int mleVariant = 0;

    /// A unit's entry is the age at which it is suspended when it has not failed before: infinite for a
    /// unit seen until it fails.
    std::vector<double> leaves;
};

/// Line of one sample, in units of the parent's scale about the parent's location.
struct SampleLine {
    double location = 0, scale = 1;
    double rSquared = 0; ///< of the points on the plot, by either method
};

/// Draws and fits samples of one plan. Allocates once, when it is made.
class SampleFitter {
public:
    explicit SampleFitter(const SamplePlan& plan);

    /// Draws a life for every unit, z = F^-1(p) with p uniform, and suspends those that outlive their limit.
    std::span<const SampleUnit> draw(RandomSource& source);

    /// Fits units in any order, as many as the plan has. False when they determine no line, by the tests that
    /// a set of data must pass: two failures for a regression with a free slope; by likelihood one, with a
    /// unit that outlived it.
    /// Regression: plotting positions of Johnson's adjusted ranks, least squares along X or Y. Likelihood:
    /// the profile equation for the smallest extreme, its mirror image for a complete sample of the largest,
    /// else the search for location and scale, to some 1e-12.
    bool fit(std::span<const SampleUnit> units, SampleLine& line);

private:
    struct PlotSums {
        double n = 0, x = 0, xx = 0, y = 0, yy = 0, xy = 0;
    };
    double positiony(double rank) const;
    void sortunits(std::span<const SampleUnit> units);
    PlotSums plotsums() const;
    bool regression(const PlotSums& sums, SampleLine& line) const;
    bool likelihood(SampleLine& line);
    bool profile(double sign, SampleLine& line);
    bool search(SampleLine& line);
    void correct(SampleLine& line) const;

    SamplePlan plan;
    StandardLine parent;
    double size;                     ///< units
    double failures = 0;             ///< of the sample in hand
    std::vector<double> wholeRankY;  ///< plot Y of the whole ranks, 1 to the size
    std::vector<double> medianRanks; ///< exact median ranks of the whole ranks, where the plan uses them
    std::vector<SampleUnit> drawn, sorted;
    std::vector<double> y, weight; ///< work space of the profile equation
    std::vector<LifeTerm> terms;   ///< and of the search
};

/// Value of the list at probability p, 0 < p < 1, by linear interpolation between the order statistics beside
/// the place (n + 1) p; not a number when that lies before the first or behind the last. The list is
/// rearranged. (n + 1) p is the place at which the next value of the same source falls below with probability
/// p exactly, whatever their distribution: a bound made by it keeps its confidence however few the samples.
/// Hyndman and Fan, The American Statistician 50 (1996) 361, definition 6.
double listvalue(std::span<double> list, double p);
