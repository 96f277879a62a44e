#include "data/filelines.h"

#include <algorithm>

#include "data/numbertext.h"
#include "data/utf8.h"
#include "session/session.h"

namespace {

constexpr std::string_view paragraph = "<P>", paragraphEnd = "</P>";
constexpr std::size_t heldBytes = 1 << 16;

struct Input {
    std::string text;
    std::string rewritten; ///< a line that is not in the text as it reads
    std::size_t place = 0;
    std::size_t feed = 0; ///< the first LF not before `place`, or the end of the text; 0 not known
};
Input input;

struct Output {
    TextSink* sink = nullptr;
    std::string held;
    bool whole = true;
};
Output output;

void flush() {
    if (output.sink && output.whole) output.whole = output.sink->write(output.held);
    output.held.clear();
}

/// What stands between the paragraph marks; a line without them counts as empty.
std::string_view unwrapped(std::string_view line) {
    if (line.ends_with(paragraphEnd)) line.remove_suffix(paragraphEnd.size());
    if (!line.starts_with(paragraph)) return {};
    return line.substr(paragraph.size());
}

/// End of the line that starts at the place: the first CR or LF, or the end of the text. The LF found is
/// kept, so that a text of lone CRs is walked once and not once a line.
std::size_t lineend(Input& in) {
    const std::string_view text = in.text;
    if (in.feed < in.place || in.feed == 0) in.feed = std::min(text.find('\n', in.place), text.size());
    const std::size_t within = text.substr(in.place, in.feed - in.place).find('\r');
    return within == std::string_view::npos ? in.feed : in.place + within;
}

template <class Number>
void appendwithsymbol(std::string& line, Number value) {
    const std::size_t begin = line.size();
    appendtrimmed(line, value);
    if (session.decimalSeparator == ".") return;
    if (const auto point = line.find('.', begin); point != std::string::npos)
        line.replace(point, 1, session.decimalSeparator);
}

template <class Number>
void writenumber(Number value) {
    std::string line;
    appendwithsymbol(line, value);
    linewrite(line);
}

} // namespace

void inputtext(std::string text) {
    input = {};
    input.text = unicodetext(std::move(text));
    session.eofFlag = 0;
}

bool inputopen(const std::string& path) {
    auto text = readfile(path);
    if (!text) {
        inputclose();
        return false;
    }
    inputtext(std::move(*text));
    return true;
}

void inputclose() { input = {}; }

std::size_t inputplace() { return input.place; }
void inputseek(std::size_t place) {
    input.place = std::min(place, input.text.size());
    input.feed = 0;
    session.eofFlag = 0;
}
std::string_view inputrest() { return std::string_view(input.text).substr(input.place); }

std::string_view nextline() {
    const std::string_view text = input.text;
    if (input.place >= text.size()) {
        session.eofFlag = 1;
        return {};
    }
    const std::size_t end = lineend(input);
    const std::string_view line = text.substr(input.place, end - input.place);
    input.place = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
    if (session.htmlMode != wrapperReading) return line;
    const std::string_view inside = unwrapped(line);
    if (inside.find("&#") == std::string_view::npos) return inside;
    input.rewritten = withoutnumbers(inside);
    return input.rewritten;
}

void lineget() { session.msg = nextline(); }

void lineread() {
    lineget();
    numberread();
}

void r8read() { lineread(); }

void outputbegin(TextSink& sink) {
    output.sink = &sink;
    output.whole = true;
    output.held.clear();
}

bool outputend() {
    flush();
    output.sink = nullptr;
    return output.whole;
}

void linewrite(std::string_view line) {
    const bool wrapped = session.htmlMode == wrapperWriting;
    if (wrapped) output.held += paragraph;
    const auto beyond = [](char c) { return c <= 0 || c == '&'; };
    if (wrapped && std::any_of(line.begin(), line.end(), beyond))
        output.held += aswestern(line); // as the head of the page declares
    else
        output.held += line;
    if (wrapped) output.held += paragraphEnd;
    output.held += "\r\n";
    if (output.held.size() >= heldBytes) flush();
}

void textwrite(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    linewrite(line);
}

void numwrite(float value) { writenumber(value); }
void numwrite(double value) { writenumber(value); }

void appendfilenumber(std::string& line, float value) { appendwithsymbol(line, value); }
void appendfilenumber(std::string& line, double value) { appendwithsymbol(line, value); }
