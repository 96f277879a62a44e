#include "platform/qt/keymap.h"

#include <QKeyEvent>
#include <algorithm>
#include <iterator>

#include "session/session.h"
#include "shell/commands.h"

namespace {

struct KeyPair {
    int key, code;
};
constexpr KeyPair pairs[] = {{Qt::Key_Return, 13}, {Qt::Key_Enter, 13},  {Qt::Key_Escape, 27},
                             {Qt::Key_Left, 37},   {Qt::Key_Up, 38},     {Qt::Key_Right, 39},
                             {Qt::Key_Down, 40},   {Qt::Key_Delete, 46}, {Qt::Key_F1, 112},
                             {Qt::Key_F2, 113},    {Qt::Key_F3, 114}};

} // namespace

int virtualkey(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) return key;
    const auto* const found = std::find_if(std::begin(pairs), std::end(pairs),
                                           [key](const KeyPair& pair) { return pair.key == key; });
    return found == std::end(pairs) ? 0 : found->code;
}

bool secondarykey(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu
           || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

bool dispatchkey(const QKeyEvent& event) {
    const int code = virtualkey(event.key());
    constexpr auto others = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (code == 0 || (event.modifiers() & others)) return false;
    session.u = static_cast<float>(code);
    keydispatch();
    return true;
}
