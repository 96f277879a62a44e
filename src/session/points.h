#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "session/table.h"

/// The data points, and the working copies of a run. Row-indexed: X, Y, n, plotRank. Set-indexed: the rest.
/// The point index runs from 1 in the order of entry; pointOrder gives the order of value.
struct Points {
    static constexpr int labelledSets = 24;

    Table<float> X;  ///< abscissa, or life value: negative for a suspension unless negativeXAllowed
    Table<float> Y;  ///< ordinate; on the life side the plotted probability once the set is analysed
    Table<float> v1; ///< quantity: identical points that the record stands for
    Table<float> v2; ///< Z field: sample size, upper end of an interval, third coordinate, or a sentinel
    List<float> n;   ///< points of each row; rows beyond 48 do not exist

    /// Labels of sets 1 to 24, a list a set; a list takes its size when its first label is kept.
    std::array<std::vector<std::string>, labelledSets + 1> pointLabels;

    Table<float> entryX, entryY; ///< X and Y as entered, before the analysis overwrites Y
    Table<float> W2X, W2Y;       ///< second point table of a data file
    List<float> W2n;             ///< its point counts

    Table<float> plotRank;     ///< mean adjusted rank of each point
    Table<int32_t> pointOrder; ///< pointOrder(set, 1..): the points in order of value
    Table<int16_t> pointTypes; ///< decoded type of each point (PointType)
    Table<double> pointPlotX;  ///< plot X of each point, less the threshold; intervals at their middle
    List<uint64_t> orderKeys;  ///< work space of the ordering, one set at a time
};
