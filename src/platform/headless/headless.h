#pragma once

#include <string>
#include <vector>

#include "platform/system.h"

/// The platform without a desktop: prompts answer as a script run must, window calls do nothing, the
/// clipboard is the pair of standard streams.
class HeadlessPlatform : public Platform,
                         private Prompts,
                         private MainWindow,
                         private Clock,
                         private Clipboard,
                         private Pictures {
public:
    explicit HeadlessPlatform(std::string startedAs = {}) : machine(std::move(startedAs)) {}

    std::vector<std::string> messages; ///< what the user would have been told, in order, without headers

    Prompts& prompts() override { return *this; }
    MainWindow& window() override { return *this; }
    Clock& clock() override { return *this; }
    System& system() override { return machine; }
    Clipboard& clipboard() override { return *this; }
    Pictures& pictures() override { return *this; }

private:
    NativeSystem machine;

    int menu(const MenuPage& page) override; ///< the default item, else the first; 0 for a page of none
    void message(std::string_view header, std::string_view text) override;
    std::optional<std::string> number(const NumberPage& page) override { return std::string(page.value); }
    std::optional<std::string> text(const TextPage&) override {
        return std::nullopt;
    } ///< there is no default
    std::optional<double> slider(const SliderPage& page) override { return page.value; }
    std::optional<int> color(const ColorPage& page) override { return page.preset; }
    std::optional<std::string> openfile(const FilePage&) override { return std::nullopt; }
    std::optional<std::string> savefile(const FilePage&) override { return std::nullopt; }

    void caption(std::string_view) override {}
    void readswitches() override {}
    void closepopups() override {}
    void repainticons() override {}
    void repaintgrid() override {}
    void repaintplot() override {}
    bool pendingevents() override { return false; }

    std::string date() override;
    std::string time() override;

    std::optional<std::string> text() override; ///< of standard input, once
    bool settext(std::string_view text) override;
    bool setpicture(std::string_view svg) override { return settext(svg); }
    bool bitmap(const std::string&, std::string_view, int, int) override { return false; }
};
