#include "expression/functionfile.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <system_error>
#include <type_traits>
#include <vector>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "expression/functionrun.h"
#include "expression/functiontext.h"
#include "expression/program.h"
#include "platform/files.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr std::string_view firstLine = "FUNCTION 1";
constexpr std::string_view codeKey = "CODE";
constexpr std::string_view literalsKey = "LITERALS";

/// The lines with one number each.
struct Field {
    std::string_view key;
    float Expression::*place;
};
constexpr Field fields[] = {
    {"K", &Expression::fk}, {"XLOW", &Expression::fxlow}, {"XHIGH", &Expression::fxhigh}};

/// A finite number that fills the whole text.
template <class T>
std::optional<T> numberof(std::string_view text) {
    T value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, value);
    if (fault != std::errc() || stop != end) return std::nullopt;
    if constexpr (std::is_floating_point_v<T>)
        if (!std::isfinite(value)) return std::nullopt;
    return value;
}

/// The text behind a key and a blank; nothing when the line has another key.
std::optional<std::string_view> valueofkey(std::string_view line, std::string_view key) {
    if (!line.starts_with(key)) return std::nullopt;
    line.remove_prefix(key.size());
    if (line.empty() || line[0] != ' ') return std::nullopt;
    return trimmed(line);
}

/// The line with the number of a field, or one whose key this version does not know.
bool takefield(Expression& read, std::string_view line) {
    for (const Field& field : fields)
        if (const auto text = valueofkey(line, field.key)) {
            const auto number = numberof<float>(*text);
            if (number) read.*field.place = *number;
            return number.has_value();
        }
    return true;
}

/// The numbers, one a line, behind their count.
bool takeliterals(Expression& read, std::string_view countText, std::string_view& rest) {
    const auto count = numberof<std::size_t>(countText);
    if (!count || *count > rest.size()) return false; // a number needs a byte at least
    read.flits = {0};
    for (std::size_t i = 0; i < *count; ++i) {
        const auto number = numberof<double>(trimmed(takeline(rest)));
        if (!number) return false;
        read.flits.push_back(*number);
    }
    read.flitcount = static_cast<float>(*count);
    return true;
}

bool takeline(Expression& read, std::string_view line, std::string_view& rest) {
    if (const auto text = valueofkey(line, codeKey)) {
        const auto fcode = functionspelled(*text);
        if (fcode) read.fcode = *fcode;
        return fcode.has_value();
    }
    if (const auto text = valueofkey(line, literalsKey)) return takeliterals(read, *text, rest);
    return takefield(read, line);
}

/// The tokens make a function, and every number has its token.
bool sound(const Expression& read) {
    std::size_t numbers = 0;
    for (std::size_t at = 0; at < read.fcode.size(); at += 2) numbers += read.fcode.compare(at, 2, "00") == 0;
    const auto literals = std::span(read.flits).subspan(1);
    return numbers == literals.size()
           && functionprogram(read.fcode, literals, modRemainder).fault == FunctionFault::none;
}

void tellfile(Word what, const std::string& path) {
    const Keep keep{session.msg};
    compose(session.msg, Word::Cannot, " ", what, " ", Word::File, ": ", AsTyped{path});
    tellok();
}

} // namespace

std::string functionfiletext() {
    const auto spelling = functionspelling(session.fcode);
    if (!spelling) return {};
    std::string text(firstLine);
    text += "\r\n";
    ((text += codeKey) += ' ') += *spelling + "\r\n";
    for (const Field& field : fields) {
        (text += field.key) += ' ';
        appendtrimmed(text, session.*field.place);
        text += "\r\n";
    }
    const auto literals = functionliterals();
    ((text += literalsKey) += ' ') += std::to_string(literals.size()) + "\r\n";
    for (const double literal : literals) {
        appendtrimmed(text, literal);
        text += "\r\n";
    }
    return text;
}

bool functionfiletake(std::string_view text) {
    if (trimmed(takeline(text)) != firstLine) return false;
    Expression read = session;
    read.fcode.clear();
    read.flits = {0};
    read.flitcount = 0;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeline(text));
        if (!takeline(read, line, text)) return false;
    }
    if (!sound(read)) return false;
    static_cast<Expression&>(session) = std::move(read);
    functionkeep();
    return true;
}

bool functionsave(const std::string& path) {
    const std::string text = functionfiletext();
    if (!text.empty() && writefile(path, text)) return true;
    tellfile(Word::Save, path);
    return false;
}

bool functionopen(const std::string& path) {
    const auto text = readregular(path);
    if (text && functionfiletake(*text)) return true;
    tellfile(Word::Open, path);
    return false;
}
