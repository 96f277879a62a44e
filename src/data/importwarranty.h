#pragma once

#include "data/importread.h"

/// Warranty tables in the Nevada form: each row a production period, with the quantity produced and behind it
/// the returns by period. A name of the period may stand in front; it must not be a plain number, except for
/// years that follow one another.
///
/// Columns are periods of the calendar, and row i begins to be observed with column i: what is returned in
/// column j was in use for j - i + 1 periods, and a cell left of that diagonal is empty or 0. With m columns,
/// what was never returned of row i is suspended at age m - i + 1. A table whose row i has exactly m - i + 1
/// columns is written by age instead: column j holds the returns at age j. Counts of the same age are added
/// up; rows that no column has observed say nothing. A row with more returns than were produced, or with
/// returns before its production, is unreadable. An empty line begins the next table and set.
/// S. Wu, Warranty data analysis: a review, Quality and Reliability Engineering International 28 (2012) 795.
///
/// Of inputType standard0 and insp1 the points are ages with quantities; of intv5 the intervals in which the
/// returns fell.
void readwarranty(std::string_view normalised, std::int16_t inputType, const ImportOptions& options,
                  ImportedData& data);
