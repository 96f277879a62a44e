#pragma once

#include <string_view>

#include "shell/words.h"

/// The prompt calls: the caller fills the registers msg, menuTitle, menuItem, menuCount and menuChoice,
/// calls, and reads the answer from the same registers. In a script run each call answers at once.

void menuclear();  ///< empties menuItem up to menuCount and sets menuCount to 0
void menushow();   ///< shows the page of menuItem with msg as lead; menuChoice, msg and u take the choice
void tellok();     ///< message box: shows msg under menuTitle; all registers stay as they were
void tellerror();  ///< tellok with the header of the current page joined and two line ends before the text
void askyesno();   ///< asks msg + "?"; u = 1 for Yes, 2 for No; the menu registers stay as they were
void statusline(); ///< shows msg, cleaned, as the caption of the main window

/// The failure reporter: shows the location text in msg with the numbered calculation error and its cause,
/// clears the failure and lets the routine go on. 5 negative log or power, 6 overflow, 9 index.
void reportfault(int number);

/// Lets the ground floors tell of their faults through the prompt calls. Called once before the first run.
void installreporters();
