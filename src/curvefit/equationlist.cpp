#include "curvefit/equationlist.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "expression/program.h"
#include "platform/files.h"
#include "session/session.h"
#include "shell/prompts.h"

namespace {

constexpr std::string_view nameKey = "EqnsName=";
constexpr std::string_view equationKey = "Eqns";

/// The tokens make a function, and every number has its token.
bool issound(const FunctionTokens& equation) {
    std::size_t numbers = 0;
    for (std::size_t at = 0; at < equation.fcode.size(); at += 2)
        numbers += equation.fcode.compare(at, 2, "00") == 0;
    const auto finite = [](double literal) { return std::isfinite(literal); };
    return numbers == equation.literals.size()
           && std::all_of(equation.literals.begin(), equation.literals.end(), finite)
           && functionprogram(equation.fcode, equation.literals, modRemainder).fault == FunctionFault::none;
}

/// A whole text as a number that is finite.
template <class T>
std::optional<T> numberof(std::string_view text) {
    T number{};
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Takes the next word off a text.
std::string_view takeword(std::string_view& text) {
    text = trimmed(text);
    const auto end = std::min(text.find_first_of(" \t"), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

std::optional<FunctionTokens> equationof(std::string_view text) {
    const auto code = functionspelled(takeword(text));
    if (!code) return std::nullopt;
    FunctionTokens equation{*code, {}};
    for (std::string_view word = takeword(text); !word.empty(); word = takeword(text)) {
        const auto number = numberof<double>(word);
        if (!number) return std::nullopt;
        equation.literals.push_back(*number);
    }
    return issound(equation) ? std::optional(std::move(equation)) : std::nullopt;
}

/// The number behind "Eqns" and the text behind "=", where the line has that form.
struct NumberedLine {
    std::size_t number;
    std::string_view text;
};
std::optional<NumberedLine> numberedline(std::string_view line) {
    const auto equals = line.find('=');
    if (!line.starts_with(equationKey) || equals == std::string_view::npos) return std::nullopt;
    const auto number = numberof<std::size_t>(line.substr(equationKey.size(), equals - equationKey.size()));
    if (!number) return std::nullopt;
    return NumberedLine{*number, line.substr(equals + 1)};
}

/// Reads the lines of a block up to its end.
std::optional<EquationList> blockof(std::string_view text) {
    EquationList list;
    std::map<std::size_t, FunctionTokens> numbered;
    while (!text.empty()) {
        const std::string_view line = trimmed(takeline(text));
        if (line == "}") {
            for (auto& [number, equation] : numbered) list.equations.push_back(std::move(equation));
            return list;
        }
        if (line.starts_with(nameKey)) list.name = trimmed(line.substr(nameKey.size()));
        const auto one = numberedline(line);
        if (!one) continue;
        auto equation = equationof(one->text);
        const bool inside = one->number >= 1 && one->number <= mostEquations;
        if (!equation || !inside || !numbered.emplace(one->number, std::move(*equation)).second)
            return std::nullopt;
    }
    return std::nullopt;
}

void tellfile(Word what, const std::string& path) {
    const Keep keep{session.msg, session.menuTitle};
    session.menuTitle.clear();
    compose(session.msg, Word::Cannot, " ", what, " ", Word::File, ": ", AsTyped{path});
    tellok();
}

} // namespace

std::string equationlisttext(const EquationList& list) {
    std::string name = list.name;
    std::replace_if(
        name.begin(), name.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    std::string text = "{\r\n";
    ((text += nameKey) += trimmed(name)) += "\r\n";
    std::size_t number = 0;
    for (const FunctionTokens& equation : list.equations) {
        const auto spelling = functionspelling(equation.fcode);
        if (!spelling || !issound(equation) || number == mostEquations) continue;
        (((text += equationKey) += std::to_string(++number)) += '=') += *spelling;
        for (const double literal : equation.literals) appendtrimmed(text += ' ', literal);
        text += "\r\n";
    }
    return text + "}\r\n";
}

std::optional<EquationList> equationlistof(std::string_view text) {
    while (!text.empty())
        if (trimmed(takeline(text)) == "{") return blockof(text);
    return std::nullopt;
}

EquationList equationsofcurves() {
    EquationList list;
    list.name = session.fileName;
    for (int k = 1; k <= setcount(); ++k)
        if (const SetCurve& curve = session.curves(k); !curve.code.empty())
            list.equations.push_back({curve.code, curve.literals});
    return list;
}

bool equationssave(const std::string& path) {
    const EquationList list = equationsofcurves();
    if (!list.equations.empty() && writefile(path, equationlisttext(list))) return true;
    tellfile(Word::Save, path);
    return false;
}

std::optional<EquationList> equationsopen(const std::string& path) {
    const auto text = readregular(path);
    auto list = text ? equationlistof(*text) : std::nullopt;
    if (!list || list->equations.empty()) {
        tellfile(Word::Open, path);
        return std::nullopt;
    }
    return list;
}
