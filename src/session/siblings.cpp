#include "session/siblings.h"

#include <algorithm>
#include <vector>

#include "data/datafilesave.h"
#include "data/textpieces.h"
#include "platform/platform.h"
#include "session/findfile.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

struct SideProgram {
    char side;
    std::string_view name, tag;
};
constexpr SideProgram sides[] = {
    {'W', "VANEXW.EXE", "WVW"}, {'V', "VANEXV.EXE", "VXV"}, {'Y', "VANEXY.EXE", "VXY"}};

std::string nativename(std::string_view name) {
    std::string native = lowercase(name);
    if (native.ends_with(".exe")) native.resize(native.size() - 4);
    return native;
}

bool tellmissing(std::string_view name) {
    compose(session.msg, Word::Cannot, " ", Word::Open, " ", Word::File, ": ", AsTyped{name});
    tellok();
    return false;
}

} // namespace

std::string programof(std::string_view name) {
    const std::string named = session.programPath + std::string(name);
    if (platform && platform->system().fileexists(named)) return named;
    return session.programPath + nativename(name);
}

bool spawn(std::string_view name, std::span<const std::string> arguments) {
    std::vector<std::string> words(arguments.begin(), arguments.end());
    const bool ofFamily = uppercase(name).starts_with("VANEX");
    if (ofFamily && !session.tempPath.empty()) {
        words.emplace_back("-t");
        words.push_back(session.tempPath);
    }
    return platform && platform->system().start(programof(name), words);
}

bool sidestart(char side, std::string_view commands) {
    const auto* const program = std::find_if(std::begin(sides), std::end(sides),
                                             [&](const SideProgram& one) { return one.side == side; });
    if (program == std::end(sides)) return false;
    const std::string file = temppath("-x.tmp");
    if (!snapshotwrite(file)) return tellmissing(file);
    const std::string request =
        "[" + std::string(program->tag) + " [" + file + "] " + std::string(commands) + " D]";
    const std::string arguments[] = {"-s", request};
    return spawn(program->name, arguments) || tellmissing(program->name);
}
