#include "session/findpaths.h"

#include <algorithm>
#include <cctype>

#include "platform/files.h"
#include "platform/paths.h"
#include "platform/platform.h"
#include "session/session.h"
#include "session/switches.h"
#include "shell/prompts.h"

namespace {

constexpr const char* pathTest = "VX-Test.TXT";
constexpr const char* tempTest = "VXTempTestFile2011.txt";
constexpr const char* pathFile = "VXPaths.txt";
char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }

bool isblank(char c) { return c == ' ' || c == '\t'; }

std::size_t afterblanks(std::string_view line, std::size_t at) {
    while (at < line.size() && isblank(line[at])) ++at;
    return at;
}

/// Replaces "%NAME%" by the variable of the environment; an unknown name by nothing.
std::string withvariables(std::string_view text) {
    std::string out;
    for (auto open = text.find('%'); open != std::string_view::npos; open = text.find('%')) {
        const auto close = text.find('%', open + 1);
        if (close == std::string_view::npos) break;
        out += text.substr(0, open);
        if (platform)
            out += platform->system().environment(text.substr(open + 1, close - open - 1)).value_or("");
        text.remove_prefix(close + 1);
    }
    return out += text;
}

std::string variable(std::string_view name) {
    return platform ? platform->system().environment(name).value_or("") : std::string();
}

bool ispath(std::string_view text) { return text.find_first_of("\\/:") != std::string_view::npos; }

/// Takes the folder where none stands yet and this one is usable.
void take(std::string& place, std::string_view folder, const char* testname) {
    if (!place.empty() || folder.empty()) return;
    if (auto usable = pathusable(folder, testname)) place = std::move(*usable);
}

/// A folder that holds the program need not be one it can write in.
bool holdsprogram(const std::string& folder) {
    if (!platform || folder.empty()) return false;
    for (const char* pattern : {"vanex*.exe", "vanex*.ex.", "vanex*"})
        if (!platform->system().files(folder, pattern).empty()) return true;
    return false;
}

void fromswitches(std::string_view line) {
    for (const SwitchText& one : switchsplit(line)) {
        if (one.letter == 'c') take(session.configPath, one.value, pathTest);
        if (one.letter == 'p' && ispath(one.value)) take(session.programPath, one.value, pathTest);
        if (one.letter == 't') take(session.tempPath, one.value, tempTest);
    }
}

/// Lines of a key letter and a path; a "'" begins a comment.
void frompathfile() {
    if (session.configPath.empty()) return;
    const auto text = readregular(session.configPath + pathFile);
    if (!text) return;
    std::string_view rest = *text;
    while (!rest.empty()) {
        std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        line = line.substr(0, line.find('\''));
        const std::size_t key = afterblanks(line, 0);
        if (key + 1 >= line.size() || !isblank(line[key + 1])) continue;
        std::string path(line.substr(afterblanks(line, key + 1)));
        while (!path.empty() && isblank(path.back())) path.pop_back();
        if (lower(line[key]) == 'p') take(session.programPath, path, pathTest);
        if (lower(line[key]) == 't') take(session.tempPath, path, tempTest);
    }
}

void findprogram() {
    if (!session.programPath.empty() || !platform) return;
    const std::string folder = folderof(platform->system().programfile());
    session.programPath = holdsprogram(folder) ? folder : withbackslash(platform->system().currentfolder());
}

/// Asks until the folder can be written in; an empty answer gives up.
void asktemp() {
    while (session.tempPath.empty() && platform) {
        const TextPage page{
            session.productName,
            "VANEX needs a path for temporary files but cannot use the system temporary paths.  "
            "Please enter a directory (c:\\temp)",
            {}};
        const auto answer = platform->prompts().text(page);
        if (!answer || answer->empty()) return;
        take(session.tempPath, *answer, tempTest);
    }
}

void findtemp() {
    for (const char* name : {"TEMP", "TMP"}) take(session.tempPath, variable(name), tempTest);
    take(session.tempPath, session.configPath, tempTest);
    take(session.tempPath, session.programPath, tempTest);
    const std::string home = variable("HOMEDRIVE") + variable("HOMEPATH");
    if (!home.empty()) take(session.tempPath, home + "\\MYDOCU~1", tempTest);
    take(session.tempPath, home, tempTest);
    asktemp();
}

/// What stands between the first digit and those that follow.
std::string symbolin(const std::string& text, std::string_view before, std::string_view after) {
    const auto from = text.find(before);
    const auto to = text.find(after);
    if (from == std::string::npos || to == std::string::npos || to <= from) return {};
    return text.substr(from + before.size(), to - from - before.size());
}

} // namespace

std::optional<std::string> pathusable(std::string_view folder, const char* testname) {
    if (folder.empty() || !platform) return std::nullopt;
    std::string path = withvariables(folder);
    std::replace(path.begin(), path.end(), '/', '\\');
    path = withbackslash(std::move(path));
    if (path.empty() || !platform->system().writable(path, testname)) return std::nullopt;
    return path;
}

void findpaths(std::string_view line) {
    for (std::string* path : {&session.configPath, &session.programPath, &session.tempPath}) path->clear();
    fromswitches(line);
    const std::string settings = variable("APPDATA");
    if (!settings.empty()) {
        take(session.configPath, settings + "\\OmniVANEX", pathTest);
        take(session.configPath, settings, pathTest);
    }
    frompathfile();
    findprogram();
    findtemp();
    if (session.configPath.empty()) session.configPath = session.programPath;
    if (session.programPath.empty()) session.programPath = withbackslash(settings);
}

void decimalsep() {
    if (!platform) return;
    std::string symbol = symbolin(platform->system().numbertext(1.5, 1), "1", "5");
    while (symbol.empty()) {
        const TextPage page{"Unable to determine Decimal Separator",
                            "Please enter the character to be used for a decimal separator",
                            {}};
        const auto answer = platform->prompts().text(page);
        if (!answer) break;
        symbol = *answer;
    }
    if (!symbol.empty()) session.decimalSeparator = session.displayDecimal = symbol;
    session.groupSeparator = symbolin(platform->system().numbertext(1000, 0), "1", "000");
}
