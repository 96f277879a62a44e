#pragma once

#include <string>

/// From a user's action to a command. Every way in, icon, drop-down letter, key, comes here; a window hands
/// its events over and repaints from the session. All of them return at once while a command runs
/// (shellBusy).

/// Runs commandNo by commandButton. Closes pop-ups and an open drop-down; a secondary press shows the
/// explanation and changes nothing. A number without a command does nothing.
void commanddispatch();

/// Runs the command of a number, as a primary press.
void runcommand(int number);

/// Press of an icon by mouse: closes an open drop-down and does no more; else dispatches the command, which
/// at its first press is explained for 0.2 seconds.
void iconpress(int number, int button);

/// A key of the main window, its virtual-key code in u: 112 F1, 113 F2, 114 F3, 27 Esc, 46 Del, 13 Enter, 37
/// to 40 arrows, 16 Shift, 17 Ctrl (held until keyrelease), letters and digits by their upper-case code.
void keydispatch();
void keyrelease(); ///< the key in u goes up: only Ctrl is told apart

/// The green check mark: accept and go on, by activeMode.
void checkmark();

/// What the edit actions of the drop-down do: 1 delete, 2 cut, 3 copy, 4 paste, 5 undo, 6 redo.
enum EditAction : int { editDelete = 1, editCut, editCopy, editPaste, editUndo, editRedo };
void editaction(int action);

/// Asks about unsaved results and goes on or not. True when the program is to end: leaving is set, and the
/// window told. `ask` puts "Exit" as a question before.
bool exitsequence(bool ask);

/// Opens a data file by name, as the dialog of Open, a drop on the window or the list of recent files gives
/// it: the active results are kept on the former list. False when nothing was read; the session is as it was.
bool openrecovered(const std::string& name); ///< a file of lefttemporaries, as data that no file holds
bool openfile(const char* name);

/// Saves to the session's own file, or asks for a name. False when nothing was saved.
bool savefile();
bool savefileas();

/// The page behind the wizard button: the ways to bring data in.
void datawizard();
