#pragma once

#include <span>
#include <string>
#include <string_view>

#include "shell/words.h"

/// The prompt calls: the caller fills the registers msg, menuTitle, menuItem, menuCount and menuChoice,
/// calls, and reads the answer from the same registers. In a script run each call answers at once.

void menuclear(); ///< empties menuItem up to menuCount and sets menuCount to 0

/// Shows the page of menuItem with msg as lead; menuChoice, msg and u take the choice: 0 and an empty msg on
/// cancel. A page with an identity in menuPage becomes the activeMode.
void menushow();
void menushowgo();    ///< the same, opened where the page of this identity was left
void menushowsmall(); ///< with 3 item lines of space
void menushowlarge(); ///< with 4 item lines of space

/// An item that begins with one letter and three dots; any other is a heading that cannot be picked.
bool itempickable(std::string_view item);
/// Number of the first item that a key picks, in either case; 0 when there is none.
int itemofkey(std::span<const std::string> items, char key);

void tellok();    ///< message box: shows msg under menuTitle; all registers stay as they were
void tellerror(); ///< tellok with the header of the current page joined and two line ends before the text

/// Questions: u = the number of the answer from 1. The menu registers stay as they were, and a cancelled
/// question is answered by its last item.
void askyesno();       ///< msg + "?": Yes, No
void askyesnocancel(); ///< msg + "?": Yes, No, Cancel
void askokcancel();    ///< msg: OK, Cancel

/// Number entry: msg is the lead; the default is u, or ud where promptKind is 1, and the answer comes in
/// both. A cancel gives noAnswer and an empty msg; a text that is no number the default. Limits are the
/// caller's.
void numberprompt();
void numberpromptonplot(); ///< the same, standing over the plot

void textprompt(); ///< text entry: msg is the lead, then the typed text, or noAnswerText on cancel
void textprompt(std::string_view present); ///< the same, opened with the present text
void slidershow(); ///< a value between promptMin and promptMax: u in and out; noAnswer on cancel
void colorpick();  ///< a colour of the palette: its number in u, in and out; noAnswer on cancel

void statusline(); ///< shows msg, cleaned, as the caption of the main window

/// The failure reporter: shows the location text in msg with the numbered calculation error and its cause,
/// clears the failure and lets the routine go on. 5 negative log or power, 6 overflow, 9 index.
void reportfault(int number);

/// Lets the ground floors tell of their faults through the prompt calls. Called once before the first run.
void installreporters();
