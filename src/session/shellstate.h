#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// The drop-downs of the main window, in their order on the bar.
enum DropMenu : int16_t { fileMenu, editMenu, optionsMenu, analysisMenu, toolsMenu, helpMenu };
inline constexpr int dropMenus = 6;

/// The states of a drop-down: closed and open, and those in passing that close it by force and redraw the
/// bar.
enum DropState : int16_t { dropClosed = 0, dropShown = 1, dropForcedClosed = -1, dropBarRedrawn = -2 };

/// How a command was asked for. A secondary press explains it and runs nothing.
enum CommandButton : int16_t { primaryPress = 1, secondaryPress = 2 };

inline constexpr int commandNumbers = 92; ///< commands 0 to 91

/// State of the command layer.
struct ShellState {
    int16_t commandNo = 0;                 ///< the command being dispatched
    int16_t commandButton = primaryPress;  ///< CommandButton
    int16_t dropMenuOpen = dropClosed;     ///< DropState
    int16_t dropMenuIndex = fileMenu;      ///< DropMenu
    int16_t dropMenuItem = 0;              ///< highlighted item of the open drop-down, from 0
    int16_t shellBusy = 0;                 ///< above 0 while a command runs: further events return at once
    int16_t leaving = 0;                   ///< 1: the exit sequence has gone through
    int16_t controlHeld = 0;               ///< 1 while the Ctrl key is down
    std::array<int16_t, 93> commandSeen{}; ///< 1: the command has been explained at its first press
    int16_t pageChanged = 0;               ///< 1: an option page has changed a setting
};

/// State of the data grid as a window: the cell in hand, the selection, the edit box.
struct GridView {
    int32_t gridRow = 1;     ///< row of the cell under edit: point, from 1; 0 the headings
    int32_t gridCol = 1;     ///< its column: set, from 1
    int32_t gridMarkRow = 1; ///< the other corner of the selection
    int32_t gridMarkCol = 1;
    int16_t gridMarked = 0;       ///< 1: a range is selected, else the cell in hand alone
    int16_t gridSelecting = 0;    ///< 1: a drag over cells is going on
    int16_t gridEditOpen = 0;     ///< 1: the edit box stands over the cell in hand
    std::string gridEditText;     ///< what stands in it
    int16_t gridVisibleRows = 20; ///< cells that the window has room for
    int16_t gridVisibleCols = 3;
    int32_t categoryRow = 0; ///< first row of the process-category block of the comparison input; 0 none
    int32_t activeSet = 1;   ///< set that pages and keys act on
};

/// What the desktop remembers from one start to the next, beside the rectangle of the window.
struct DesktopState {
    std::array<int16_t, 2> paneSizes{};   ///< widths of grid and plot; 0 not saved
    int16_t surroundings = 0;             ///< 0 as the system says, 1 light, 2 dark
    std::vector<std::string> recentFiles; ///< data files opened or saved, the latest first
    static constexpr std::size_t recentMax = 19;
};
