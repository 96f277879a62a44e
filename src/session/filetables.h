#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/table.h"

/// Six pairs of a set's or line's range values. The first four pairs are singles held wide.
using RangePairs = std::array<double, 12>;

/// Tables of growth, process reliability, curve fits and forecasts, as a data file keeps them with the
/// points. Set-indexed unless said otherwise.
struct FileTables {
    List<std::string> curveType;     ///< kind of curve of each set, told by its first letter
    List<RangePairs> setRange;       ///< range values of each set: setRangeA to setRangeF
    List<RangePairs> lineRange;      ///< the same of each line above the sets, by line
    List<float> NINSPECT;            ///< inspection counts
    List<double> DUANEC, DUANEI;     ///< constants and index of the Duane line
    List<std::vector<float>> DUANEX; ///< cumulative time at each event or interval end
    List<std::vector<float>> DUANEY; ///< cumulative events there
    List<std::string> IRECURSET;     ///< form of the recurrent events
    List<float> RecurrentIDQTY;      ///< units among them
    List<float> RELMARKER, SDEVMARKER, CORRCOEFMARKER, PVEMARKER; ///< marks of the lines on the plot
    List<std::vector<float>> PVEMARKERS;                          ///< list beside the last of them
    List<float> PVESET1, PVESET2;                                 ///< the two columns of the pve table
    List<float> FITI;                                             ///< index of the fitted curve
    List<std::string> BARRINDEXREL;                               ///< reliability index of the process
    List<std::string> BARREFF;                                    ///< its efficiency

    std::vector<double> plotB;                     ///< B-values shown on the plot
    std::vector<double> reportValue;               ///< and in the report
    std::vector<std::string> columnText;           ///< free text lines on the plot, at most 200
    std::vector<float> POINTMARKERX, POINTMARKERY; ///< places of the point markers
    std::array<float, 4> FITIXSAVE{};              ///< indices of the curve fit, from 1
    std::vector<std::string> FITO1;                ///< its options

    /// Data by which a curve fit was brought to a common scale.
    struct Normalising {
        double a = 0;
        float b = 0;
        std::string text;
        float c = 0, d = 0;
        double e = 0, f = 0;
        float g = 0;
        bool operator==(const Normalising&) const = default;
    };
    std::array<Normalising, 11> NORMXD{}; ///< from 1

    int16_t fitTermCount = 0;    ///< terms of the fitted equation
    std::string fitEquationName; ///< and its name; empty for none

    std::vector<float> riskUsageRate1, riskProdRate1; ///< second risk tables, by step
    std::array<float, 61> riskParamFactor{};          ///< factor on the usage of each step, from 1
    std::array<float, 61> riskParamFactor1{};
    float riskStep = 0.16666667f; ///< risk time step
};
