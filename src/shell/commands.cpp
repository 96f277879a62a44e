#include "shell/commands.h"

#include "platform/platform.h"
#include "session/session.h"
#include "session/undo.h"
#include "shell/calcplot.h"
#include "shell/commandactions.h"
#include "shell/commandtable.h"
#include "shell/dropmenu.h"
#include "shell/gridedit.h"
#include "shell/prompts.h"
#include "shell/shellbusy.h"

namespace {

constexpr int helpNumber = 21;
constexpr int aboutNumber = 91;
constexpr int mixtureNumber = 60;
constexpr int briefly = 200; ///< ms that the first press of a command explains it

void closepopups() {
    if (platform) platform->window().closepopups();
}

void forceclosed() {
    if (session.dropMenuOpen == dropClosed) return;
    session.dropMenuOpen = dropForcedClosed;
    dropmenu();
}

void explain(int number, int milliseconds) {
    if (!platform) return;
    const std::string text = session.informationBig == 1 ? commandtip(number) : commandname(number);
    platform->window().explain(number, text, milliseconds);
}

/// Commands that show something and leave the grid alone: an entry stays open.
bool looksonly(int number) { return number == helpNumber || number == aboutNumber; }

bool numbered(int number) { return number >= 0 && number < commandNumbers; }

} // namespace

void commanddispatch() {
    if (session.shellBusy > 0) return;
    const ShellBusy busy;
    const int number = session.commandNo;
    const bool secondary = session.commandButton == secondaryPress;
    closepopups();
    if (number != helpNumber && !secondary) forceclosed();
    if (secondary) {
        explain(number, 0);
        return;
    }
    const Command* const command = numbered(number) ? commandof(number) : nullptr;
    if (!command) return;
    if (!looksonly(number)) gridsettle();
    command->run();
    if (number != mixtureNumber) session.mixtureAsked = 0;
}

void runcommand(int number) {
    session.commandNo = static_cast<int16_t>(number);
    session.commandButton = primaryPress;
    commanddispatch();
}

void iconpress(int number, int button) {
    if (session.shellBusy > 0 || !numbered(number)) return;
    closepopups();
    if (session.dropMenuOpen == dropShown) {
        forceclosed();
        return;
    }
    if (platform) platform->window().pendingevents();
    session.commandNo = static_cast<int16_t>(number);
    session.commandButton = button == secondaryPress ? secondaryPress : primaryPress;
    int16_t& seen = session.commandSeen[static_cast<std::size_t>(number)];
    const bool labelled = session.informationDisplay == labelledInformation;
    if (seen == 0 && labelled && session.commandButton == primaryPress) explain(number, briefly);
    seen = 1;
    commanddispatch();
}

void editaction(int action) {
    switch (action) {
    case editDelete:
    case editCut:
    case editCopy: gridcopy(action); break;
    case editPaste: gridpaste(); break;
    case editUndo: undo(); break;
    case editRedo: redo(); break;
    default: break;
    }
}
