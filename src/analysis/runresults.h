#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "session/session.h"

/// Holds the used part of a table and puts it back at the end of the scope.
template <class T>
class KeepTable {
public:
    /// Rows 0 to lastRow, of each the columns 0 to lastColumn; what lies outside the table does not count.
    KeepTable(Table<T>& kept, std::ptrdiff_t lastRow, std::ptrdiff_t lastColumn)
        : table(kept),
          rows(std::min(lastRow, kept.firstbound()) + 1),
          width(std::min(lastColumn, kept.secondbound()) + 1) {
        cells.reserve(static_cast<std::size_t>(rows * width));
        for (std::ptrdiff_t i = 0; i < rows; ++i) {
            const auto row = table.row(i).first(static_cast<std::size_t>(width));
            cells.insert(cells.end(), row.begin(), row.end());
        }
    }
    ~KeepTable() {
        for (std::ptrdiff_t i = 0; i < rows; ++i)
            std::copy_n(cells.begin() + i * width, width, table.row(i).begin());
    }
    KeepTable(const KeepTable&) = delete;
    KeepTable& operator=(const KeepTable&) = delete;

private:
    Table<T>& table;
    std::ptrdiff_t rows, width;
    std::vector<T> cells;
};

/// What a run of the analysis leaves behind by set, row and line: counts, order, positions, parameters,
/// thresholds, labels, goodness and bounds. A run within a run writes over all of it; to hold it costs less
/// than to make it again, and gives simulated bounds back as they were. Scalars are the caller's to keep.
class KeepResults {
public:
    KeepResults();
    ~KeepResults();
    KeepResults(const KeepResults&) = delete;
    KeepResults& operator=(const KeepResults&) = delete;

private:
    std::ptrdiff_t sets, lines, points;

    std::vector<List<float>> floats;
    std::vector<List<double>> doubles;
    std::vector<List<int16_t>> flags;
    std::vector<List<std::string>> texts;

    KeepTable<double> etaFit, betaFit, paramA, paramB, paramLow, paramHigh, plotX;
    KeepTable<float> X, Y, entryX, entryY, plotRank;
    KeepTable<int32_t> order;
    KeepTable<int16_t> types;
};
