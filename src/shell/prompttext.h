#pragma once

#include <string>
#include <string_view>

#include "session/session.h"
#include "shell/words.h"

/// What the prompt calls share. In a script run nobody looks: each call answers at once.
inline bool scriptmode() { return !session.scriptRequest.empty(); }

inline std::string cleaned(std::string_view text) {
    std::string shown(text);
    wordclean(shown);
    return shown;
}

/// The header as a window shows it: menuTitle without its mark, or the product name.
std::string headertext();
