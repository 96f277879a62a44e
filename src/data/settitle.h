#pragma once

#include <string_view>

/// The name of set k; empty while its title is only the number of its row.
std::string_view titleofset(int k);
