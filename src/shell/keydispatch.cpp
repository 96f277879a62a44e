#include <algorithm>
#include <cmath>

#include "platform/platform.h"
#include "session/session.h"
#include "shell/commands.h"
#include "shell/dropmenu.h"
#include "shell/gridedit.h"

namespace {

/// Virtual-key codes.
enum Key : int {
    enterKey = 13,
    shiftKey = 16,
    controlKey = 17,
    escapeKey = 27,
    leftKey = 37,
    upKey = 38,
    rightKey = 39,
    downKey = 40,
    deleteKey = 46,
    f1Key = 112,
    f2Key = 113,
    f3Key = 114
};

struct ControlKey {
    char letter;
    int number; ///< command; 0 redo, which has none
};
constexpr ControlKey controlKeys[] = {{'X', 79}, {'C', 82}, {'V', 83}, {'Z', 81}, {'Y', 0}};

bool letterkey(int key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

void control(int key) {
    for (const ControlKey& pair : controlKeys)
        if (pair.letter == key && pair.number > 0)
            runcommand(pair.number);
        else if (pair.letter == key)
            editaction(editRedo);
}

void movehighlight(int by) {
    const int count = static_cast<int>(dropmenuitems(session.dropMenuIndex).size());
    if (count == 0) return;
    session.dropMenuItem = static_cast<int16_t>((session.dropMenuItem + by + count) % count);
    session.dropMenuOpen = dropBarRedrawn;
    dropmenu();
}

/// A key while a drop-down is open.
void menukey(int key) {
    switch (key) {
    case leftKey: dropmenupress((session.dropMenuIndex + dropMenus - 1) % dropMenus); break;
    case rightKey: dropmenupress((session.dropMenuIndex + 1) % dropMenus); break;
    case upKey: movehighlight(-1); break;
    case downKey: movehighlight(1); break;
    case enterKey: dropmenuchoose(session.dropMenuItem); break;
    case escapeKey:
        session.dropMenuOpen = dropForcedClosed;
        dropmenu();
        break;
    default:
        if (letterkey(key)) menuletter(static_cast<char>(key));
    }
}

void escape() {
    if (session.gridEditOpen != 0) {
        gridleave();
    } else if (session.activeMode != 0) {
        session.activeMode = 0;
        if (platform) platform->window().repainticons();
    } else {
        exitsequence(true);
    }
}

void idlekey(int key) {
    switch (key) {
    case f1Key: runcommand(21); break;
    case f2Key: runcommand(91); break;
    case f3Key:
        gridsettle();
        gridstatistics();
        break;
    case escapeKey: escape(); break;
    case deleteKey: runcommand(80); break;
    case enterKey: runcommand(23); break;
    default:
        if (letterkey(key)) menuletter(static_cast<char>(key));
    }
}

} // namespace

void keydispatch() {
    if (session.shellBusy > 0) return;
    const int key = static_cast<int>(std::clamp(session.u, 0.0f, 65535.0f));
    if (key == shiftKey) return;
    if (key == controlKey) {
        session.controlHeld = 1;
        return;
    }
    if (session.controlHeld != 0)
        control(key);
    else if (session.dropMenuOpen == dropShown)
        menukey(key);
    else
        idlekey(key);
}

void keyrelease() {
    if (static_cast<int>(session.u) == controlKey) session.controlHeld = 0;
}
