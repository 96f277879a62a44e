#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// A table of tests/reference: "#" lines are its provenance, then one line of column names, then rows.
struct ReferenceTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;

    /// Cell of a row by column name; empty, and a test failure, when there is no such column.
    std::string_view text(std::size_t row, std::string_view column) const;
    /// The same as a number; an empty or unreadable cell is not a number and makes every comparison fail.
    double number(std::size_t row, std::string_view column) const;
    /// True when the cell is empty, for values beyond the range of a double.
    bool empty(std::size_t row, std::string_view column) const { return text(row, column).empty(); }
};

/// Reads tests/reference/`file`. A file that is missing, has no rows or has a row of the wrong width is a
/// test failure, so that no comparison passes over nothing.
ReferenceTable reference(std::string_view file);

/// Collects relative errors against expected values and keeps the worst place.
struct ErrorSummary {
    std::size_t count = 0;
    double largest = 0;
    double squares = 0;
    std::string worst;

    /// Relative error of `actual`; absolute where `expected` is 0. Not-a-number counts as infinite.
    void add(double actual, double expected, std::string_view place);
    double rms() const;
    /// Expects at least one comparison and none beyond the tolerance; prints largest, rms and worst place
    /// on failure, and always when VANEX_SHOW_ERRORS is set in the environment.
    void expectwithin(double tolerance) const;
};
