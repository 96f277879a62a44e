#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

#include "platform/platform.h"

/// A platform that answers from a script. Prompts must come in the order in which they are expected; one that
/// was not expected fails the test, and so does an answer left over at the end. In force while it lives.
class ScriptedPlatform : public Platform, private Prompts, private MainWindow, private Clock {
public:
    /// What a prompt showed.
    struct Shown {
        std::string header, text;
        std::vector<std::string> items; ///< none for a message
        int preset = 0;
    };
    std::vector<Shown> shown;             ///< every prompt, in order
    std::vector<std::string> windowCalls; ///< "caption: Data", "repaintgrid", …, in order
    std::string today = "2024-02-29";

    ScriptedPlatform() : former(platform) { platform = this; }
    ~ScriptedPlatform() override {
        verify();
        platform = former;
    }
    ScriptedPlatform(const ScriptedPlatform&) = delete;
    ScriptedPlatform& operator=(const ScriptedPlatform&) = delete;

    /// The next prompt is a menu whose lead holds the text; it gets the choice, 0 for a cancel.
    void expectmenu(std::string leadContains, int choice) {
        script.push_back({true, std::move(leadContains), choice});
    }
    void expectmessage(std::string textContains) { script.push_back({false, std::move(textContains), 0}); }
    /// The n-th call of pendingevents from now, counted from 1, tells of an Escape.
    void escapeat(int call) { escapeIn = call; }

    /// Fails the test for every answer left over, and forgets them.
    void verify() {
        for (const Answer& left : script)
            ADD_FAILURE() << "never asked: " << (left.isMenu ? "menu" : "message") << " with \""
                          << left.contains << '"';
        script.clear();
    }

    Prompts& prompts() override { return *this; }
    MainWindow& window() override { return *this; }
    Clock& clock() override { return *this; }

private:
    struct Answer {
        bool isMenu;
        std::string contains;
        int choice;
    };

    int answer(bool isMenu, std::string_view text) {
        const char* kind = isMenu ? "menu" : "message";
        if (script.empty()) {
            ADD_FAILURE() << "unexpected " << kind << ": \"" << text << '"';
            return 0;
        }
        const Answer next = script.front();
        script.pop_front();
        if (next.isMenu != isMenu || text.find(next.contains) == std::string_view::npos) {
            ADD_FAILURE() << kind << " \"" << text << "\" came where a " << (next.isMenu ? "menu" : "message")
                          << " with \"" << next.contains << "\" was expected";
            return 0;
        }
        return next.choice;
    }

    int menu(const MenuPage& page) override {
        shown.push_back({std::string(page.header),
                         std::string(page.lead),
                         {page.items.begin(), page.items.end()},
                         page.preset});
        return answer(true, page.lead);
    }
    void message(std::string_view header, std::string_view text) override {
        shown.push_back({std::string(header), std::string(text), {}, 0});
        answer(false, text);
    }

    void caption(std::string_view text) override { windowCalls.push_back("caption: " + std::string(text)); }
    void readswitches() override { windowCalls.push_back("readswitches"); }
    void closepopups() override { windowCalls.push_back("closepopups"); }
    void repainticons() override { windowCalls.push_back("repainticons"); }
    void repaintgrid() override { windowCalls.push_back("repaintgrid"); }
    void repaintplot() override { windowCalls.push_back("repaintplot"); }
    bool pendingevents() override { return escapeIn > 0 && --escapeIn == 0; }

    std::string date() override { return today; }

    Platform* former;
    std::deque<Answer> script;
    int escapeIn = 0;
};
