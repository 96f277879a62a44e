#pragma once

#include <cstddef>

/// Number of allocations through operator new since the start of the process. The difference over a stretch
/// of code tells how often it allocated.
std::size_t allocationcount();
