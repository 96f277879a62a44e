#pragma once

#include <array>
#include <cstdint>
#include <string>

/// How a set's cells are read.
enum InputType : int16_t { standard0 = 0, insp1 = 1, prbt2 = 2, prbt3 = 3, km4 = 4, intv5 = 5 };

/// Plotting positions.
enum RankMethod : int {
    binomialRank = 1,
    meanRank,
    hazenRank,
    blomRank,
    kaplanMeierRank,
    suppliedRank,
    benardRank
};

/// Choices of the user that outlive a run.
struct Options {
    int16_t inputType = standard0;     ///< input form of the life data (InputType)
    int16_t negativeXAllowed = 0;      ///< 1: a negative X is a value; 0: a minus sign marks a suspension
    int16_t groupingOption = 0;        ///< grouped rows: 1 "n", no difference from sample to sample; 2 "d"
    float rankMethod = benardRank;     ///< plotting position (RankMethod)
    float popPortion = 0;              ///< fraction of the population at risk; 0 the whole population
    int16_t batchActive = 0;           ///< 1: the partial-affected option is in force
    int16_t findThreshold = 0;         ///< 1: a threshold t0 is searched
    int16_t scaleAsRecorded = 0;       ///< 1: the plot keeps the recorded scale when a t0 is in force
    int16_t thresholdByRegression = 0; ///< 1: the threshold of a likelihood fit is the one rr finds
    int16_t normalCandidate = 0;       ///< 1: the distribution analysis tries the Normal, too
    int16_t variableSlopes = 0;        ///< variable-slope set-ups of a likelihood fit
    int16_t intervalPlot = 0;          ///< 1: the points of an X-Y plot may be intervals

    int16_t distributionAsked = 0; ///< 1: the run is followed by the choice among families
    int16_t mixtureAsked = 0;      ///< 4 or 5: by a fit of two failure modes, without or with a portion
    int16_t gridAsked = 0;         ///< 1: by the table of the likelihood
    int16_t fitMeasure = 1;        ///< 1 r^2 with ccc^2, 2 pve%, 3 pAD%, else r alone

    /// Significant digits by UseClass: general, parameter, slope, axis, fit.
    std::array<int16_t, 5> maskDigits = {6, 6, 5, 4, 4};

    std::string decimalSeparator = "."; ///< of the session's numbers as typed
    std::string fileDecimal = ".";      ///< of the file being read
    std::string displayDecimal = ".";   ///< of numbers as shown
    std::string groupSeparator;         ///< between thousands in the system's format; empty for none
    std::string exportDecimal = ".";    ///< of numbers in exported and imported text

    std::string languageFile; ///< file that stands for the language in force; empty for English
};
