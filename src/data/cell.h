#pragma once

#include <string>
#include <string_view>

/// Data cells: "X x Y x Q x Z _ label", and the point records that they become.

/// A cell cut into its fields. A missing or empty quantity counts as 1, every other missing field as 0.
struct Cell {
    float x = 0, y = 0, quantity = 1, z = 0;
    std::string_view label; ///< text behind the first "_"
    bool hasValue = false;  ///< false when no number stands where X is expected: the cell is no point
};

/// Cuts one cell string. The view in `label` points into `text`. No allocation.
Cell cellsplit(std::string_view text);

/// Stores a cell as point j of set k. False when it holds no value, or j is beyond maxPoints: it is dropped.
bool cellstore(const Cell& cell, int k, int j);

/// Appends point j of set k in the four-field text form: "6x0x3x0", "28x1x1x0_026".
void celltext(std::string& text, int k, int j);

/// Classifies the point in xyz (X) and xyz2 (Z) of set k into the result; may rewrite both.
/// `asStored` true: the point is shown or stored as it stands, and a minus sign on X is not read.
int pointclassify(bool asStored, int k);

/// Looks at a new cell's text in msg before it is stored. May change inputType after asking. True when the
/// session must be rebuilt.
bool cellformcheck();

/// Label of a point in msg; msg stays as it was for a set above 24, and is empty for a point outside 1 to
/// maxPoints.
void pointlabelget(int k, int j);
void pointlabelput(int k, int j, std::string_view label);

/// Removes set k: the sets above it move down by one, lastRow falls by sg.
void setdelete(int k);
