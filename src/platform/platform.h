#pragma once

#include <span>
#include <string>
#include <string_view>

/// What the logic asks of a desktop. Small abstract interfaces, each one subject; the headless platform
/// answers as a script run must, tests answer from a script, the desktop with windows.

/// One letter-keyed page, texts cleaned and ready to show.
struct MenuPage {
    std::string_view header;            ///< window header
    std::string_view lead;              ///< lead text; may hold line ends
    std::span<const std::string> items; ///< item texts, "A...Activate"
    int preset = 0;                     ///< number of the default item, from 1; 0 none
};

class Prompts {
public:
    virtual ~Prompts() = default;
    /// Shows a page; the number of the chosen item from 1, or 0 on cancel.
    virtual int menu(const MenuPage& page) = 0;
    /// Shows a text with one OK.
    virtual void message(std::string_view header, std::string_view text) = 0;
};

class MainWindow {
public:
    virtual ~MainWindow() = default;
    virtual void caption(std::string_view text) = 0; ///< status caption; ignored while no window is visible
    virtual void readswitches() = 0;                 ///< takes the toggles beside the plot into the settings
    virtual void closepopups() = 0;  ///< hides the floating labels and tool tips over the plot
    virtual void repainticons() = 0; ///< icon strip, window title and wizard button
    virtual void repaintgrid() = 0;  ///< grid and headings
    virtual void repaintplot() = 0;  ///< draws the plot of the session's side
    /// Lets pending window events run. True when the user pressed Escape.
    virtual bool pendingevents() = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual std::string date() = 0; ///< today's date as the report prints it, ISO 8601
};

class Platform {
public:
    virtual ~Platform() = default;
    virtual Prompts& prompts() = 0;
    virtual MainWindow& window() = 0;
    virtual Clock& clock() = 0;
};

/// The platform in force. Set once before anything asks; a null platform answers nothing.
extern Platform* platform;
