#pragma once

#include <span>

/// Usage tables: how far vehicles of a class go in a year, as X and quantity.
struct UsageTable {
    int choice; ///< as it is kept in usageChoice
    const char* label;
    const char* file;
};
std::span<const UsageTable> usagetables();

/// Reads a table into the grid, in place of what stands there, and notes it as usageChoice. False, and told,
/// when its file is missing or not to be read; the session then is as it was. False for a choice that is
/// none.
bool usageopen(int choice);

/// The page that offers the tables.
void usagemenu();
