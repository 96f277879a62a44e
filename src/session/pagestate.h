#pragma once

#include <cstdint>

/// What is explained of a command beside the plot.
enum InformationDisplay : int16_t {
    labelledInformation = 0, ///< floating label and tool tips
    tooltipInformation = 1,  ///< tool tips alone
    noInformation = 2
};

/// Grid lines of a plot.
enum GridLines : int16_t { allGridLines = 0, heavyGridLines = 1, noGridLines = 2 };

/// Choices of the option pages that no other part of the session owns.
struct PageState {
    int16_t outputKind = 'W';                         ///< letter of the output device that the user chose
    float printPercent = 100;                         ///< of the page that a printed plot takes
    int16_t totalReport = 0;                          ///< 1: the report goes out with a copied plot
    int16_t informationDisplay = labelledInformation; ///< InformationDisplay
    int16_t informationBig = 1;       ///< 1: explanations in full, 0: the name of the command alone
    int16_t gridLines = allGridLines; ///< GridLines
    int16_t fitLinesHidden = 0;       ///< 1: the plot has no fitted lines
    int16_t pointInterval = 1;        ///< every so manieth point of a set is drawn
    int16_t linePoints = 120;         ///< steps of a fitted line that is a curve

    /// Goal and means of a demonstration test; 0 not given.
    double planSlope = 0; ///< 0: the slope of the set
    double planLife = 0, planReliability = 0.9, planConfidence = 50, planTime = 0, planItems = 4;

    /// Limits of a process; noAnswer for none.
    double processLower = -9.123e+32, processUpper = -9.123e+32;
    double processShift = 0;  ///< of the mean, in standard deviations, towards the nearer limit
    int16_t processParts = 1; ///< 1: shares beyond the limits as parts per million
    int16_t processIndex = 1; ///< 1: and the performance index
};
