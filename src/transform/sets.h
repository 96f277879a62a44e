#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/gridpoints.h"
#include "options/page.h"

/// The sets of the grid as the transforms take and give them.

/// Sets that have a point, in order.
std::vector<int> setswithpoints();

/// Asks for one of these sets; the only one is taken without a question. 0 on a cancel, or, told, when no set
/// has a point. `wanted` stands first in the question where it has points.
int askset(const Label& title, int wanted);

/// The same with all sets at once as the first choice, which is `allsets`.
inline constexpr int allsets = -1;
int asksets(const Label& title);

/// Changes the grid as one step that an undo takes back: `change` returns true when it changed it. The
/// results of the session are those of the grid when it is called. False when nothing changed.
bool changegrid(const std::function<bool()>& change);

/// What a rule makes of the point at a row of the grid, from index 0: false leaves the cell as it stands. A
/// rule that reads Y has no result where the point has none; one that does not read it keeps it missing.
using PointRule = std::function<bool(std::size_t row, GridPoint& point)>;

/// Rewrites the points of a set in place. A cell that is no point stays as it is, and so does one that has no
/// result; how many these are is told once. False when no cell was written.
bool rewriteset(int set, const PointRule& rule);

/// Makes a new set behind the last one out of points, told where there is no room for it. False then, and
/// when there are no points.
bool appendset(const std::vector<Cell>& points, std::string_view title);

/// The points that a rule makes of those of a set, in order; those without a result are left out and told
/// once.
std::vector<Cell> pointsmadeof(int set, const PointRule& rule);

/// Puts a result into a field of a point; false, and the field as it was, when no cell can hold it.
bool putresult(float& field, double value);
