#pragma once

#include "analysis/logterm.h"
#include "plot/transforms.h"

/// The points of a set as what they tell of the life distribution, on the data scale less the threshold.

/// Units of one point or row.
struct LifeTerm {
    Known known = Known::exactly;
    double weight = 0;
    double low = 0, high = 0; ///< high of intervals only
};

/// Point j of set k, which has been ordered. Input types 0, 1 and 5.
LifeTerm termofpoint(int k, int j);

/// What one row of probit or Kaplan-Meier input tells: `failed` units below x, or between former and x, and
/// `survived` units above x.
struct GroupedRow {
    double x = 0;
    double failed = 0, survived = 0;
    bool increment = false; ///< true when the failures lie between former and x
    double former = 0;

    LifeTerm failures() const {
        return increment ? LifeTerm{Known::between, failed, former, x} : LifeTerm{Known::below, failed, x, 0};
    }
    LifeTerm survivors() const { return {Known::above, survived, x, 0}; }
};

/// Walks the rows of grouped input in order of value.
///
/// Probit rows of quantities are samples of their own: Q failed of Z. Rows of percentages are one sample seen
/// again: each row adds the failures since the row before it, and the last the units that are left. For
/// Kaplan-Meier rows the failures add up from row to row, and the units at risk are those that have neither
/// failed by the row nor left the test before it; rows of suspensions alone add nothing themselves.
class GroupedRows {
public:
    explicit GroupedRows(int set);
    bool next(GroupedRow& row); ///< false behind the last row

private:
    bool quantityrow(int j, GroupedRow& row) const;
    bool percentrow(int j, GroupedRow& row);
    bool kaplanmeierrow(int j, GroupedRow& row);

    int k, points, m = 0;
    double atRisk;          ///< Kaplan-Meier: units that have not failed yet
    double leaving = 0;     ///< and those of them that leave the test at the value in hand
    double failedSoFar = 0; ///< failures of the rows before
    double formerX = 0, formerShare = 0;
};

/// Portion of the population that can fail, 1 for the whole.
double portionatrisk();

/// A line as location and scale of a standard distribution, in x or, where `logarithmic`, in ln x.
struct StandardLine {
    Shape shape = Shape::smallest;
    bool logarithmic = false;
    double location = 0, scale = 0;

    /// Value on the plot scale; minus infinity for what no logarithm reaches.
    double plotvalue(double x) const;
    double z(double x) const { return (plotvalue(x) - location) / scale; }
};

/// scale is 0 or not a number for a line that is no line.
StandardLine standardline(const FamilyLine& line);
FamilyLine familyline(int16_t family, int16_t extreme, double location, double scale);
