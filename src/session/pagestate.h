#pragma once

#include <cstdint>
#include <string>
#include <vector>

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
    int16_t scientificScale = 0;      ///< 1: the labels of the axes are written with a power of ten
    int16_t equalScales = 0;          ///< 1: a unit of X is as long as one of Y on a plain X-Y plot
    int16_t xValuesShown = 1;         ///< 1: the X axis has labels
    int16_t yValuesShown = 1;         ///< 1: the Y axis has labels
    int16_t ordinatesInGrid = 0;      ///< 1: the status line tells the ordinate of the cell in hand
    int16_t orderCaution = 0;         ///< 1: data that are not in the order of X are told
    int16_t saveCaution = 1;          ///< 1: data that are not saved are asked about before they go
    int16_t fileNameShown = 1;        ///< 1: the results name their file
    int16_t clockShown = 0;           ///< 1: the results bear the time of day beside the date
    int16_t dateSymbol = '-';         ///< between the pieces of a date
    std::string templateFile;         ///< data file whose labels and style new data begin with; empty: none
    int16_t openMerges = 0;           ///< 1: a file that is opened joins the data, 0: takes their place
    int16_t fitLineTruncated = 0;     ///< 1: a fitted line ends with the data
    int16_t labelPointers = 0;   ///< 1: a label that has no room beside its point stands off, with a line
    int16_t penCount = 8;        ///< pens of the plotter
    int16_t ranksOnly = 0;       ///< 1: the report is the table of ranks alone
    int16_t dataColumns = 0;     ///< 1: data go out as columns of numbers, 0: as the cells of the grid
    std::vector<double> pressed; ///< places X, Y pressed so far on the plot, for an action that needs more

    /// Goal and means of a demonstration test; 0 not given.
    double planSlope = 0; ///< 0: the slope of the set
    double planLife = 0, planReliability = 0.9, planConfidence = 50, planTime = 0, planItems = 4;

    /// Limits of a process; noAnswer for none.
    double processLower = -9.123e+32, processUpper = -9.123e+32;
    double processShift = 0;  ///< of the mean, in standard deviations, towards the nearer limit
    int16_t processParts = 1; ///< 1: shares beyond the limits as parts per million
    int16_t processIndex = 1; ///< 1: and the performance index
};
