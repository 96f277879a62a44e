#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// What the logic asks of a desktop. Small abstract interfaces, each one subject; the headless platform
/// answers as a script run must, tests answer from a script, the desktop with windows.

/// One letter-keyed page, texts cleaned and ready to show.
struct MenuPage {
    std::string_view header;            ///< window header
    std::string_view lead;              ///< lead text; may hold line ends
    std::span<const std::string> items; ///< item texts, "A...Activate"
    int preset = 0;                     ///< number of the default item, from 1; 0 none
    int rows = 0;                       ///< item lines of space; 0 as many as fit
    std::string_view accept = {};       ///< word of the accept button
    std::string_view cancel = {};       ///< word of the cancel button; empty: no such button
    int* scroll = nullptr;              ///< first row shown, from 0, in and out; null: from the top
};

/// Entry of a number. The arrows and the line under the entry follow shell/numberentry.h.
struct NumberPage {
    std::string_view header;
    std::string_view lead;
    std::string_view value; ///< the default, with the decimal symbol of the display
    std::string_view more;  ///< word of the arrow up
    std::string_view lower; ///< word of the arrow down
    bool overPlot = false;  ///< stands over the plot
};

/// Entry of a text, with what was typed before to choose from.
struct TextPage {
    std::string_view header;
    std::string_view lead;
    std::span<const std::string> recent;
    std::string_view value = {}; ///< text that the entry opens with
};

/// A value chosen between two ends.
struct SliderPage {
    std::string_view header;
    std::string_view lead;
    double low = 0, high = 0, value = 0;
};

/// One colour out of the session's, 0xRRGGBB by colour number.
struct ColorPage {
    std::string_view header;
    std::string_view lead;
    std::span<const int32_t> colors;
    int preset = 0; ///< colour number
};

/// A dialog of the desktop that names a file.
struct FilePage {
    std::string_view header;
    std::string_view filter;    ///< name and pattern of each kind by turns, "|" between them
    std::string_view folder;    ///< where it opens, in native form
    std::string_view name = {}; ///< what it proposes
};

class Prompts {
public:
    virtual ~Prompts() = default;
    /// Shows a page; the number of the chosen item from 1, or 0 on cancel.
    virtual int menu(const MenuPage& page) = 0;
    /// Shows a text with one OK.
    virtual void message(std::string_view header, std::string_view text) = 0;
    /// The text in the entry when it was accepted; nothing on cancel. So the other entries.
    virtual std::optional<std::string> number(const NumberPage& page) = 0;
    virtual std::optional<std::string> text(const TextPage& page) = 0;
    virtual std::optional<double> slider(const SliderPage& page) = 0;
    virtual std::optional<int> color(const ColorPage& page) = 0;
    /// The file chosen, in native form; nothing on cancel. A name to save to has been confirmed where a file
    /// of that name stands already.
    virtual std::optional<std::string> openfile(const FilePage& page) = 0;
    virtual std::optional<std::string> savefile(const FilePage& page) = 0;
};

/// Pages of the tabbed view.
enum class ViewTab { plot, report, help };

inline constexpr double progressOver = 2;

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

    // What only a window can show; the others have nothing to do.
    /// Shows a text in the floating label beside the icon of the command; 0 ms: until the next event.
    virtual void explain(int /*command*/, std::string_view /*text*/, int /*milliseconds*/) {}
    virtual void repaintmenu() {}     ///< the drop-down as the session has it: open, another one, closed
    virtual void repaintcell() {}     ///< cell in hand, selection and edit box as the session has them
    virtual void showview(ViewTab) {} ///< opens the tabbed view
    virtual void showabout() {}       ///< the start window as about box
    virtual void retitle() {}         ///< all texts again, after a change of the language, font or colours
    /// Part of a long run that is done, 0 to 1; progressOver: the gauge goes.
    virtual void progress(double /*done*/) {}
    virtual void leave() {} ///< closes the window without a question
};

/// How a print went.
enum class PrintEnd { printed, cancelled, failed, noPrinter };

/// Paper, by the printer dialog of the desktop.
class Printer {
public:
    virtual ~Printer() = default;
    /// The plot: `fine` composed for the page at the printer's resolution, else as the screen shows it.
    /// `percent` of the page that it takes, centred.
    virtual PrintEnd printplot(bool fine, double percent) = 0;
    virtual PrintEnd printtext(std::string_view header, std::string_view text) = 0;
};

class Clock {
public:
    virtual ~Clock() = default;
    virtual std::string date() = 0; ///< today's date, ISO 8601
    virtual std::string time() = 0; ///< the time of day, "14:05"
};

/// The machine around the program: its environment, its folders and files, other programs. Paths in the
/// program's own form (platform/paths.h).
class System {
public:
    virtual ~System() = default;
    /// Value of an environment variable by its Windows name: APPDATA, TEMP, TMP, HOMEDRIVE, HOMEPATH or any
    /// other; nothing when it is not set.
    virtual std::optional<std::string> environment(std::string_view name) = 0;
    /// A number in the format of the system's own settings.
    virtual std::string numbertext(double value, int decimals) = 0;
    virtual std::string programfile() = 0; ///< the running executable
    virtual std::string currentfolder() = 0;
    virtual bool enterfolder(const std::string& folder) = 0;
    virtual bool makefolder(const std::string& folder) = 0; ///< with those above it; true when it is there
    virtual bool folderexists(const std::string& folder) = 0;
    virtual bool fileexists(const std::string& path) = 0;
    /// True when a file of that name can be made in the folder; it is taken away again.
    virtual bool writable(const std::string& folder, const std::string& testname) = 0;
    /// Names of the files of a folder that fit a pattern with * and ?, in order.
    virtual std::vector<std::string> files(const std::string& folder, std::string_view pattern) = 0;
    virtual bool removefile(const std::string& path) = 0;
    /// Starts another program and does not wait for it. False when there is no such program.
    virtual bool start(const std::string& program, std::span<const std::string> arguments) = 0;
};

class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual std::optional<std::string> text() = 0; ///< nothing when it holds no text
    virtual bool settext(std::string_view text) = 0;
    virtual bool setpicture(std::string_view svg) = 0;
    /// A picture with a text beside it, for programs that take no picture. Where the clipboard holds one
    /// thing at a time, the picture is what stays.
    virtual bool setboth(std::string_view text, std::string_view svg) {
        return settext(text) && setpicture(svg);
    }
};

/// Kinds of pictures that need more than text.
class Pictures {
public:
    virtual ~Pictures() = default;
    /// Paints a picture into a file of the kind that its extension names: .bmp, .png, .pdf. False when this
    /// platform cannot, or the file cannot be written; a file of that name then stays as it was.
    virtual bool bitmap(const std::string& path, std::string_view svg, int across, int down) = 0;
};

class Platform {
public:
    virtual ~Platform() = default;
    virtual Prompts& prompts() = 0;
    virtual MainWindow& window() = 0;
    virtual Clock& clock() = 0;
    virtual System& system() = 0;
    virtual Clipboard& clipboard() = 0;
    virtual Pictures& pictures() = 0;
    virtual Printer* printer() { return nullptr; } ///< null where there is no paper
};

/// The platform in force. Set once before anything asks; a null platform answers nothing.
extern Platform* platform;
