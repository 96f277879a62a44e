#pragma once

#include <string>
#include <string_view>

/// Names for kinds and scales of an X-Y plot, for those who have no menu.

/// Takes the kind of that name: as points, lines, both, bars, a pie or in space, for every set. False for a
/// name that is none.
bool takeplotkind(std::string_view name);

/// Takes the axis pair of that name.
bool takeplotscale(std::string_view name);

/// True for a name that is one.
bool isplotkind(std::string_view name);
bool isplotscale(std::string_view name);

/// All names, a blank between them.
std::string plotkindnames();
std::string plotscalenames();
