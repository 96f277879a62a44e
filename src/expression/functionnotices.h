#pragma once

#include <cstddef>
#include <map>

#include "expression/program.h"

/// What the user is told about the function and its runs.

/// A result that its cell cannot hold: not a calculation error, but told with them.
inline constexpr int outsideRange = 0;

/// The rows of a run that had no result, by calculation error.
class RowFailures {
public:
    void add(int fault, double row);
    /// Tells of each kind once: the first row, the last one and how many.
    void tell(int set) const;

private:
    struct Rows {
        double first = 0, last = 0, count = 0;
    };
    std::map<int, Rows> kinds;
};

/// Rows of a set that had no result; the first of them as its row of the grid, from 0.
class RowsWithout {
public:
    void add(std::size_t row) {
        if (rows++ == 0) first = row;
    }
    /// Tells how many they are, and the first of them; nothing for none.
    void tell(int set) const;

private:
    int rows = 0;
    std::size_t first = 0;
};

void tellfunctionfault(const FunctionProgram& program); ///< a function that cannot run, and where it fails
void telltwodimensional(int set);                       ///< a target without a second coordinate
void tellnotarget();                                    ///< a target that is no set
