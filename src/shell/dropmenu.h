#pragma once

#include <string>
#include <vector>

/// The drop-downs of the main window: letters, labels and what they do, as one table.

/// Opens the drop-down dropMenuIndex, redraws it, or closes it, by dropMenuOpen; the window repaints.
void dropmenu();
/// Opens one, or closes it where it is the one that is open.
void dropmenupress(int index);

std::string dropmenutitle(int index);              ///< "File"
std::vector<std::string> dropmenuitems(int index); ///< "N...New ... Clear Data", of the session's side

/// Takes a letter chosen in the open drop-down, or typed with none open, in either case. True when it stood
/// for something.
bool menuletter(char letter);

/// Runs item `number`, from 0, of the open drop-down.
void dropmenuchoose(int number);
