#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/platform.h"
#include "support/fakesystem.h"

/// A platform that answers from a script. Prompts must come in the order in which they are expected; one that
/// was not expected fails the test, and so does an answer left over at the end. In force while it lives.
class ScriptedPlatform : public Platform,
                         private Prompts,
                         private MainWindow,
                         private Clock,
                         private Clipboard,
                         private Pictures,
                         private Printer {
public:
    /// What a prompt showed.
    struct Shown {
        std::string header, text;
        std::vector<std::string> items; ///< none for a message
        int preset = 0;
        std::string value;          ///< default of a number entry
        std::string accept, cancel; ///< buttons of a menu
        std::string more, lower;    ///< arrows of a number entry
        int rows = 0;
        int scroll = -1; ///< where a menu opened; -1 when it is not to be kept
        bool overPlot = false;
        double low = 0, high = 0, at = 0; ///< a slider
        std::size_t colors = 0;
    };
    std::vector<Shown> shown;             ///< every prompt, in order
    std::vector<std::string> windowCalls; ///< "caption: Data", "repaintgrid", …, in order
    std::string today = "2024-02-29";
    FakeSystem machine;
    std::optional<std::string> clipboardText, clipboardPicture;
    std::vector<std::string> bitmaps; ///< files of the bitmaps painted

    ScriptedPlatform() : former(platform) { platform = this; }
    ~ScriptedPlatform() override {
        verify();
        platform = former;
    }
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;

    /// The next prompt is a menu whose lead holds the text; it gets the choice, 0 for a cancel.
    void expectmenu(std::string leadContains, int choice) {
        script.push_back({Kind::menu, std::move(leadContains), choice, {}, {}});
    }
    /// The same, by the letter of the item that is chosen; it must be there.
    void expectkey(std::string leadContains, char letter) {
        script.push_back({Kind::menu, std::move(leadContains), -letter, {}, {}});
    }
    void expectmessage(std::string textContains) {
        script.push_back({Kind::message, std::move(textContains), 0, {}, {}});
    }
    /// The next prompt is an entry whose lead holds the text; nothing is a cancel.
    void expectnumber(std::string leadContains, std::optional<std::string> typed) {
        script.push_back({Kind::number, std::move(leadContains), 0, std::move(typed), {}});
    }
    void expecttext(std::string leadContains, std::optional<std::string> typed) {
        script.push_back({Kind::text, std::move(leadContains), 0, std::move(typed), {}});
    }
    void expectslider(std::string leadContains, std::optional<double> moved) {
        script.push_back({Kind::slider, std::move(leadContains), 0, {}, moved});
    }
    void expectcolor(std::string leadContains, std::optional<double> number) {
        script.push_back({Kind::color, std::move(leadContains), 0, {}, number});
    }
    /// The next prompt is a file dialog whose header holds the text; nothing is a cancel.
    void expectfile(std::string headerContains, std::optional<std::string> chosen) {
        script.push_back({Kind::file, std::move(headerContains), 0, std::move(chosen), {}});
    }
    PrintEnd printEnd = PrintEnd::printed; ///< how every print goes
    std::vector<std::string> printed;      ///< "fine 100", "shown 50", or the text
    int scrollTo = 0;                      ///< where the user scrolls every menu that keeps its place
    /// The n-th call of pendingevents from now, counted from 1, tells of an Escape.
    void escapeat(int call) { escapeIn = call; }

    /// Fails the test for every answer left over, and forgets them.
    void verify() {
        for (const Answer& left : script)
            ADD_FAILURE() << "never asked: " << name(left.kind) << " with \"" << left.contains << '"';
        script.clear();
    }

    Prompts& prompts() override { return *this; }
    MainWindow& window() override { return *this; }
    Clock& clock() override { return *this; }
    System& system() override { return machine; }
    Clipboard& clipboard() override { return *this; }
    Pictures& pictures() override { return *this; }
    Printer* printer() override { return this; }

private:
    enum class Kind { menu, message, number, text, slider, color, file };
    struct Answer {
        Kind kind;
        std::string contains;
        int choice;
        std::optional<std::string> typed;
        std::optional<double> moved;
    };

    static const char* name(Kind kind) {
        constexpr const char* names[] = {"menu", "message", "number", "text", "slider", "color", "file"};
        return names[static_cast<std::size_t>(kind)];
    }

    Answer answer(Kind kind, std::string_view text) {
        const Answer none{kind, "", 0, {}, {}};
        if (script.empty()) {
            ADD_FAILURE() << "unexpected " << name(kind) << ": \"" << text << '"';
            return none;
        }
        const Answer next = script.front();
        script.pop_front();
        if (next.kind != kind || text.find(next.contains) == std::string_view::npos) {
            ADD_FAILURE() << name(kind) << " \"" << text << "\" came where a " << name(next.kind)
                          << " with \"" << next.contains << "\" was expected";
            return none;
        }
        return next;
    }

    Shown& show(std::string_view header, std::string_view text) {
        Shown& seen = shown.emplace_back();
        seen.header = header;
        seen.text = text;
        return seen;
    }

    static int itemof(const MenuPage& page, char letter) {
        for (std::size_t i = 0; i < page.items.size(); ++i)
            if (page.items[i].starts_with(std::string(1, letter) + "...")) return static_cast<int>(i) + 1;
        ADD_FAILURE() << "no item " << letter << " on the page \"" << page.header << '"';
        return 0;
    }

    int menu(const MenuPage& page) override {
        Shown& seen = show(page.header, page.lead);
        seen.items.assign(page.items.begin(), page.items.end());
        seen.preset = page.preset;
        seen.rows = page.rows;
        seen.accept = page.accept;
        seen.cancel = page.cancel;
        if (page.scroll) seen.scroll = std::exchange(*page.scroll, scrollTo);
        const int choice = answer(Kind::menu, page.lead).choice;
        return choice < 0 ? itemof(page, static_cast<char>(-choice)) : choice;
    }
    void message(std::string_view header, std::string_view text) override {
        show(header, text);
        answer(Kind::message, text);
    }
    std::optional<std::string> number(const NumberPage& page) override {
        Shown& seen = show(page.header, page.lead);
        seen.value = page.value;
        seen.more = page.more;
        seen.lower = page.lower;
        seen.overPlot = page.overPlot;
        return answer(Kind::number, page.lead).typed;
    }
    std::optional<std::string> text(const TextPage& page) override {
        Shown& seen = show(page.header, page.lead);
        seen.items.assign(page.recent.begin(), page.recent.end());
        seen.value = page.value;
        return answer(Kind::text, page.lead).typed;
    }
    std::optional<double> slider(const SliderPage& page) override {
        Shown& seen = show(page.header, page.lead);
        seen.low = page.low;
        seen.high = page.high;
        seen.at = page.value;
        return answer(Kind::slider, page.lead).moved;
    }
    std::optional<int> color(const ColorPage& page) override {
        Shown& seen = show(page.header, page.lead);
        seen.preset = page.preset;
        seen.colors = page.colors.size();
        const auto picked = answer(Kind::color, page.lead).moved;
        return picked ? std::optional<int>(static_cast<int>(*picked)) : std::nullopt;
    }

    std::optional<std::string> filechosen(const FilePage& page) {
        Shown& seen = show(page.header, page.filter);
        seen.value = page.name;
        return answer(Kind::file, page.header).typed;
    }
    std::optional<std::string> openfile(const FilePage& page) override { return filechosen(page); }
    std::optional<std::string> savefile(const FilePage& page) override { return filechosen(page); }

    void caption(std::string_view text) override { windowCalls.push_back("caption: " + std::string(text)); }
    void readswitches() override { windowCalls.push_back("readswitches"); }
    void closepopups() override { windowCalls.push_back("closepopups"); }
    void repainticons() override { windowCalls.push_back("repainticons"); }
    void repaintgrid() override { windowCalls.push_back("repaintgrid"); }
    void repaintplot() override { windowCalls.push_back("repaintplot"); }
    void explain(int command, std::string_view text, int) override {
        windowCalls.push_back("explain " + std::to_string(command) + ": " + std::string(text));
    }
    void repaintmenu() override { windowCalls.push_back("repaintmenu"); }
    void repaintcell() override { windowCalls.push_back("repaintcell"); }
    void showview(ViewTab tab) override {
        windowCalls.push_back("showview " + std::to_string(static_cast<int>(tab)));
    }
    void showabout() override { windowCalls.push_back("showabout"); }
    void retitle() override { windowCalls.push_back("retitle"); }
    void leave() override { windowCalls.push_back("leave"); }
    PrintEnd printplot(bool fine, double percent) override {
        printed.push_back((fine ? "fine " : "shown ") + std::to_string(static_cast<int>(percent)));
        return printEnd;
    }
    PrintEnd printtext(std::string_view, std::string_view text) override {
        printed.emplace_back(text);
        return printEnd;
    }
    bool pendingevents() override { return escapeIn > 0 && --escapeIn == 0; }

    std::string date() override { return today; }
    std::string time() override { return "14:05"; }

    std::optional<std::string> text() override { return clipboardText; }
    bool settext(std::string_view text) override {
        clipboardText = std::string(text);
        return true;
    }
    bool setpicture(std::string_view svg) override {
        clipboardPicture = std::string(svg);
        return true;
    }
    bool bitmap(const std::string& path, std::string_view, int, int) override {
        bitmaps.push_back(path);
        return true;
    }

    Platform* former;
    std::deque<Answer> script;
    int escapeIn = 0;
};
