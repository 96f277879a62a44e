#include "data/htmlwrapper.h"

#include "data/filelines.h"
#include "data/textpieces.h"
#include "session/session.h"
#include "shell/prompts.h"
#include "shell/words.h"

namespace {

constexpr std::string_view generatorMark = "Tarnbrook(TM)";
constexpr std::string_view programMark = "OmniVANEX";

/// A line of the head, and the mark that must stand in it when it is read.
struct HeadLine {
    std::string_view text;
    std::string_view mark = {};
};
constexpr HeadLine head[] = {
    {"<HTML>"},
    {"<HEAD>"},
    {R"html(<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=windows-1252">)html"},
    {R"html(<META NAME="Generator" CONTENT="Tarnbrook(TM)">)html", generatorMark},
    {"<TITLE>OmniVANEX/WinVANEX_Data</TITLE>", programMark},
    {"</HEAD>"},
    {"<BODY>"},
    {""},
    {R"(<FONT FACE="Courier New" SIZE=2>)"},
};
constexpr std::string_view tail[] = {"</FONT></BODY>", "</HTML>"};

/// Lines of the page itself, outside its paragraphs.
template <class Lines, class Text>
void writebare(const Lines& lines, Text text) {
    const Keep kept(session.htmlMode);
    session.htmlMode = plainLines;
    for (const auto& line : lines) linewrite(text(line));
}

} // namespace

std::optional<std::string> restoredlines(std::string_view text) {
    constexpr std::size_t shortest = 7, longest = 90000;
    if (text.size() < shortest || text.size() > longest) return std::nullopt;
    if (!uppercase(text.substr(0, 6)).starts_with("<HTML>")) return std::nullopt;
    if (text.find('\r') != std::string_view::npos || text.find('\n') == std::string_view::npos)
        return std::nullopt;
    compose(session.msg, "CHR$(13) Character Removed From File ... I Will Attempt Restore");
    tellok();
    std::string restored;
    restored.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
        if (c == '\n') restored += '\r';
        restored += c;
    }
    return restored;
}

bool skipwrapperhead() {
    const Keep kept(session.htmlMode);
    session.htmlMode = plainLines;
    for (const HeadLine& line : std::span(head).subspan(1))
        if (nextline().find(line.mark) == std::string_view::npos) return false;
    return true;
}

void wrapperhead() {
    writebare(head, [](const HeadLine& line) { return line.text; });
}
void wrappertail() {
    writebare(tail, [](std::string_view line) { return line; });
}
