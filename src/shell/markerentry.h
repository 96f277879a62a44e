#pragma once

#include "plot/transforms.h"

/// Keeps a marker line under a label that the user types, or its parameters. False, and told, for a line that
/// is none and where there is no room.
bool markerkeep(const FamilyLine& line);
