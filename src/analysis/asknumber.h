#pragma once

#include <optional>

#include "session/session.h"
#include "shell/prompts.h"

/// Asks for a number with a default; nothing on a cancel. The lead is composed from the parts.
template <class... Parts>
std::optional<double> asknumber(double preset, const Parts&... lead) {
    const Keep keep{session.promptKind};
    session.promptKind = 1;
    compose(session.msg, lead...);
    session.ud = preset;
    numberprompt();
    if (session.ud == noAnswer) return std::nullopt;
    return session.ud;
}
