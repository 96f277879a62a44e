#include "shell/savename.h"

#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

/// True when no file of the name is there, or it may be written over.
bool mayreplace(const std::string& name) {
    constexpr float yes = 1;
    if (!platform || !platform->system().fileexists(name)) return true;
    const Keep keep{session.msg, session.menuTitle, session.u};
    session.menuTitle.clear();
    compose(session.msg, Word::File, " ", Word::Already, " ", Word::Present, ": ", AsTyped{name}, " ... ",
            Word::Change);
    askyesno();
    return session.u == yes;
}

} // namespace

std::optional<std::string> extendedname(std::string name, std::string_view extension) {
    if (nameof(name).find('.') != std::string::npos) return name;
    name += extension;
    if (!mayreplace(name)) return std::nullopt;
    return name;
}
