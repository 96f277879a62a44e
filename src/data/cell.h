#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Data cells: "X x Y x Q x Z _ label", and the point records that they become.
///
/// "x", "X" and "*" separate the fields; a carriage return, line feed or tab ends the cell. Marks before X
/// stand for a Z: ">100" is a suspension at 100, "<100" a discovery, ">10<20" or "<20>10" an interval from
/// 10 to 20. A Z that is given itself, other than 0, is stronger than a mark.

/// A cell cut into its fields. A missing or empty quantity counts as 1, every other missing field as 0. The
/// reserved numbers of the prompts and of the reader are no values: such a field counts as empty.
struct Cell {
    float x = 0, y = 0, quantity = 1, z = 0;
    std::string_view label; ///< text behind the first "_", blanks included
    bool hasValue = false;  ///< false when no number stands where X is expected: the cell is no point
    bool hasY = true;       ///< false when no number stands in the second field
};

/// Cuts one cell string. The view in `label` points into `text`. No allocation.
Cell cellsplit(std::string_view text);

/// What pointTypes holds, on the visual side, of a point whose cell has no Y. It counts as 0, but it was not
/// measured: no plot shows it, no fit takes it, and a file keeps it missing.
inline constexpr int16_t noOrdinate = 9;

/// False for such a point.
bool hasordinate(int k, int j);

/// Stores a cell as point j of set k, its label included; n of the row is the caller's. False when the cell
/// holds no value, or j is beyond maxPoints or k beyond maxSets: it is dropped. Allocates only for a label.
bool cellstore(const Cell& cell, int k, int j);

/// Appends point j of set k in the four-field text form: "6x0x3x0", "28x1x1x0_026". X and Y as entered: the
/// analysis puts the plotted position into Y.
void celltext(std::string& text, int k, int j);

/// Classifies the point in xyz (X) and xyz2 (Z) of set k into the result, a PointType; may rewrite both.
/// `asStored` true: the point is shown or stored as it stands, and a minus sign on X is not read.
int pointclassify(bool asStored, int k);

/// True when a negative X is a value, not a suspension mark: in the interval form when negative values are
/// allowed, else for the families that run over the whole line besides.
bool negativedata();

/// Data value of point j of set k, before any threshold: X where a negative X is a value, else its size.
double pointvalue(int k, int j);

/// Quantity of point j of set k: v1 as a whole number, anything below 1 taken as 1.
double pointquantity(int k, int j);

/// Failures of set k, which has been ordered: what failed at a known age, within an interval or before one.
double failurecount(int k);

/// Looks at a new cell's text in msg before it is stored, and leaves msg as it was. May change inputType or
/// intervalPlot after asking. True when the session must be rebuilt.
bool cellformcheck();

/// Label of a point in msg; msg stays as it was for a set without labels, and is empty for a point outside 1
/// to maxPoints.
void pointlabelget(int k, int j);

/// Keeps a label. A set without labels, or a point outside 1 to maxPoints, keeps none.
void pointlabelput(int k, int j, std::string_view label);

/// Removes set k, its cells in the grid included: everything that belongs to the sets above it moves down by
/// one, lastRow falls by sg.
void setdelete(int k);
