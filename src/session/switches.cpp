#include "session/switches.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "data/textpieces.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

constexpr std::string_view switchLetters = "abcdefghijkmopqrstuvwxyz0123456789";
/// Switches whose value may hold blanks: folders, files, titles, lists and the request.
constexpr std::string_view longValues = "abcdfkst2";
constexpr std::string_view pathValues = "acdt"; ///< those among them that a program start gives as one word
constexpr char lastSwitch = '0';
constexpr std::string_view undefined = ": Undefined sequence ";

bool isblank(char c) { return c == ' ' || c == '\t'; }
bool isquote(char c) { return c == '\'' || c == '"'; }

bool switchat(std::string_view line, std::size_t at) {
    if (at > 0 && !isblank(line[at - 1]) && line[at - 1] != ';') return false;
    if (at + 1 >= line.size() || !std::isalnum(static_cast<unsigned char>(line[at + 1]))) return false;
    if (line[at] == '-') return true;
    const bool alone = at + 2 == line.size() || isblank(line[at + 2]) || isquote(line[at + 2]);
    return line[at] == '/' && alone;
}

/// Reads a line from left to right.
class LineReader {
public:
    explicit LineReader(std::string_view text) : line(text) {}

    bool done() {
        while (at < line.size() && (isblank(line[at]) || line[at] == ';')) ++at;
        return at >= line.size();
    }
    std::size_t place() const { return at + 1; }
    bool atswitch() const { return switchat(line, at); }

    /// A dash with something behind it.
    bool atdash() const { return line[at] == '-' && at + 1 < line.size() && !isblank(line[at + 1]); }

    char letter() {
        const char c = line[at + 1];
        at += 2;
        return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }

    /// One value: up to the next switch or ";", or only one word.
    std::string value(bool oneWord) {
        while (at < line.size() && isblank(line[at])) ++at;
        if (at < line.size() && isquote(line[at])) return quoted();
        const std::size_t begin = at;
        if (at < line.size() && line[at] == '[') at = bracketend();
        while (at < line.size() && line[at] != ';' && !switchat(line, at) && !(oneWord && isblank(line[at])))
            ++at;
        return singleblanks(line.substr(begin, at - begin));
    }

    /// The word at hand, whatever it is.
    std::string word() {
        if (isquote(line[at])) return quoted();
        const std::size_t begin = at;
        while (at < line.size() && !isblank(line[at])) ++at;
        return std::string(line.substr(begin, at - begin));
    }

private:
    std::string quoted() {
        const char quote = line[at];
        const std::size_t begin = at + 1;
        const std::size_t end = std::min(line.find(quote, begin), line.size());
        at = std::min(end + 1, line.size());
        return std::string(line.substr(begin, end - begin));
    }

    std::size_t bracketend() const {
        int depth = 0;
        for (std::size_t i = at; i < line.size(); ++i) {
            if (line[i] == '[') ++depth;
            if (line[i] == ']' && --depth == 0) return i + 1;
        }
        return line.size();
    }

    static std::string singleblanks(std::string_view text) {
        std::string out;
        for (const char c : text)
            if (!isblank(c) || (!out.empty() && out.back() != ' ')) out += isblank(c) ? ' ' : c;
        if (out.ends_with(' ')) out.pop_back();
        return out;
    }

    std::string_view line;
    std::size_t at = 0;
};

bool isnone(std::string_view text) {
    constexpr std::string_view none = "NONE";
    return std::equal(text.begin(), text.end(), none.begin(), none.end(),
                      [](unsigned char a, char b) { return std::toupper(a) == b; });
}

} // namespace

std::string linefrom(std::span<const std::string> words) {
    std::string line;
    bool path = false; // the word before is a switch that takes a file or a folder, which is one word
    for (std::string_view word : words) {
        if (!line.empty()) line += ' ';
        const bool whole =
            std::exchange(path, word.size() == 2 && switchat(word, 0)
                                    && pathValues.find(lowercase(word.substr(1))) != std::string_view::npos);
        if (switchat(word, 0)) {
            line += word.substr(0, 2);
            word.remove_prefix(2);
        }
        const bool plain =
            !whole && (word.starts_with('[') || word.find_first_of(" \t;'\"") == std::string_view::npos);
        const char quote = word.find('"') == std::string_view::npos ? '"' : '\'';
        if (plain)
            line += word;
        else
            line.append(1, quote).append(word).append(1, quote);
    }
    return line;
}

std::vector<SwitchText> switchsplit(std::string_view line) {
    std::vector<SwitchText> found;
    session.msg.clear();
    LineReader reader(line);
    while (!reader.done()) {
        const std::size_t place = reader.place();
        if (!reader.atswitch()) {
            const bool sequence = reader.atdash();
            const std::string word = reader.word();
            if (sequence)
                compose(session.msg, AsTyped{word}, undefined, static_cast<int>(place));
            else
                found.push_back({0, word, place});
            continue;
        }
        const char letter = reader.letter();
        std::string value = reader.value(longValues.find(letter) == std::string_view::npos);
        const bool none = isnone(value);
        if (none) value.clear();
        if (switchLetters.find(letter) == std::string_view::npos)
            compose(session.msg, "-", std::string_view(&letter, 1), undefined, static_cast<int>(place));
        else if (letter == lastSwitch)
            break;
        else
            found.push_back({letter, std::move(value), place, none});
    }
    return found;
}
