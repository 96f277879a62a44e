#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The data grid as the user works on it: entry, selection, cut, copy and paste. Rows are points from 1, row
/// 0 the headings; columns are sets from 1. Everything acts on session.gridRow, gridCol and the selection.

/// How a cell is shown beside its text.
enum class CellMark { none, suspended, discovered, interval, unreadable };

/// A range of cells, corners in order.
struct CellRange {
    int firstRow, firstCol, lastRow, lastCol;
};

int gridrows();    ///< rows to show: the longest set and a margin, at most what the arrays have room for
int gridcolumns(); ///< sets to show
std::string gridcell(int set, int point); ///< text of a cell; empty outside the data
/// What stands behind the text of a cell: the plotting position of its point, "   12.9 %", where that is
/// wanted and known. Empty for a set with cells that are no points, and after a change until the next cycle.
std::string gridordinate(int set, int point);
CellMark gridmark(int set, int point); ///< what its point is
std::string gridheading(int set);      ///< heading of a set: its title, or its number
std::string gridformat();              ///< the heading line: what a cell holds under the input method
CellRange gridselection();             ///< the selected range, or the cell in hand

/// Entry: `gridedit` opens the edit box over the cell in hand with its text, or with what was typed first;
/// `gridcommit`, the Enter key, takes gridEditText into the cell, closes the box and moves a row down; on an
/// empty cell it starts the cycle instead. A cell with a problem stays as typed and is told. `gridleave`
/// closes the box and leaves the cell as it was. True when a cell changed.
void gridedit();
void gridedit(std::string_view typed);
bool gridcommit();
void gridleave();
void gridsettle(); ///< takes an open entry into its cell and stays there: before a command looks at the grid

/// Moves the cell in hand, committing an open entry before; `extend` keeps the other corner of the selection.
void gridmove(int rows, int columns, bool extend = false);
void gridgo(int row, int column, bool extend = false); ///< the same to a place, as a press of the mouse

/// Takes a cell in hand, alone, for a command that goes on with it.
void gridhold(int row, int column);

void gridheadingpress(int set);        ///< selects the set and asks for its heading
void gridexplain(int row, int column); ///< secondary press on a cell: the set's points and the quick choices

/// Delete, cut or copy of the selection: 1, 2, 3. False when the user gave it up or the clipboard refused.
bool gridcopy(int mode);
/// Pastes the clipboard at the cell in hand. False, and told, when it holds nothing that can be read or more
/// than there is room for; the grid then is as it was.
bool gridpaste();

/// The grid, or a part of it, as tab-separated text: a note on the columns, a header row, a row a point.
std::string gridtext();
std::string gridtext(const CellRange& range);

/// Cells of such a text, a column a set; nothing for any other text.
std::optional<std::vector<std::vector<std::string>>> gridtextread(std::string_view text);

void telltoobig(); ///< "Point Quantity Too Big ... View Setup"

/// Rebuilds the text of one cell, or of all, from the session's arrays.
void gridput(int set, int point);
void gridputall();

void gridstatistics(); ///< the page of the active set: number of points, extremes, and points to change
