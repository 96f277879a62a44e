#pragma once

#include "shell/calcplot.h"
#include "shell/commands.h"
#include "support/lifefixture.h"
#include "support/scriptedplatform.h"
#include "support/workfolder.h"

/// A session on the life side under a platform that answers from a script, as the main window drives it.
class ShellTest : public LifeTest {
protected:
    ScriptedPlatform desk;
    WorkFolder folder; ///< takes the settings, the temporary files and the test's own

    ShellTest() { session.configPath = session.tempPath = session.dataPath = folder.path("") + "\\"; }

    /// Fills the first set and runs the cycle; what the window was told so far is forgotten.
    void given(const Cells& cells) {
        life(cells);
        desk.windowCalls.clear();
    }

    /// A key of the main window.
    static void key(int code) {
        session.u = static_cast<float>(code);
        keydispatch();
    }
    static void keyup(int code) {
        session.u = static_cast<float>(code);
        keyrelease();
    }
    static void withcontrol(int code) {
        key(17);
        key(code);
        keyup(17);
    }
    static void command(int number, int button = 1) {
        session.commandNo = static_cast<int16_t>(number);
        session.commandButton = static_cast<int16_t>(button);
        commanddispatch();
    }
    static const Cells& column(std::size_t set = 0) { return session.gridCells.at(set); }

    /// Calls of the window that begin with a text.
    int calls(const std::string& begin) const {
        int count = 0;
        for (const std::string& call : desk.windowCalls) count += call.starts_with(begin) ? 1 : 0;
        return count;
    }
};
