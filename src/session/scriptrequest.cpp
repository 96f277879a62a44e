#include "session/scriptrequest.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "session/session.h"
#include "shell/words.h"

namespace {

constexpr std::string_view letters = "ADEPRBCFIQ";
constexpr std::array<std::string_view, 5> valueWords = {"MTBF", "RATE", "SURV", "EXPR", "AVAL"};
constexpr BoundCode codes[] = {{"BN", noBounds},      {"BV", -fisherBounds},     {"BI", binomialBounds},
                               {"FM", fisherBounds},  {"LR", likelihoodBounds},  {"MC", simulationBounds},
                               {"PV", pivotalBounds}, {"NC", normalTheoryBounds}};

bool boundcode(std::string_view text) {
    return std::any_of(std::begin(codes), std::end(codes),
                       [&](const BoundCode& one) { return one.code == text; });
}

template <std::size_t N>
bool oneof(const std::array<std::string_view, N>& list, std::string_view text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

/// A piece of a request.
struct Token {
    enum Kind { word, quoted, file, settings } kind;
    std::string text;
};

/// Takes the text between a mark and its partner; the rest without one.
std::string enclosed(std::string_view& text, char close) {
    const auto end = std::min(text.find(close, 1), text.size());
    std::string inside(text.substr(1, end - 1));
    text.remove_prefix(std::min(end + 1, text.size()));
    return inside;
}

Token nexttoken(std::string_view& text) {
    switch (text.front()) {
    case '[': return {Token::file, std::string(trimmed(enclosed(text, ']')))};
    case '{': return {Token::settings, enclosed(text, '}')};
    case '"': return {Token::quoted, enclosed(text, '"')};
    case '\'': return {Token::quoted, enclosed(text, '\'')};
    default: break;
    }
    const auto end = std::min(text.find_first_of(" \t[{\"'"), text.size());
    const std::string word(text.substr(0, end));
    text.remove_prefix(end);
    return {Token::word, word};
}

/// Without the brackets around the whole.
std::string_view unbracketed(std::string_view text) {
    text = trimmed(text);
    if (!text.starts_with('[')) return text;
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '[') ++depth;
        if (text[i] == ']' && --depth == 0)
            return i + 1 == text.size() ? trimmed(text.substr(1, i - 1)) : text;
    }
    return trimmed(text.substr(1));
}

bool isfilename(std::string_view text) { return text.find_first_of(".\\/:") != std::string_view::npos; }

/// True for a word of command letters alone.
bool packed(std::string_view upper) { return upper.find_first_not_of(letters) == std::string_view::npos; }

/// Builds a request token by token.
class Builder {
public:
    /// False for a token that has no place.
    bool take(const Token& token) {
        switch (token.kind) {
        case Token::settings: request.settings += " " + token.text; return true;
        case Token::file: request.files.push_back(token.text); return true;
        case Token::quoted: return takefile(token.text);
        default: return takeword(token.text);
        }
    }

    ScriptRequest finished() {
        ScriptCommand last = request.commands.empty() ? ScriptCommand{} : request.commands.back();
        const bool behind = request.commands.size() > 1 && last.file.empty();
        const bool ending = behind && (last.word == "C" || (last.word == "D" && exchanged()));
        if (ending) {
            (last.word == "D" ? request.deleteInput : request.clipboardHelper) = true;
            request.commands.pop_back();
        }
        return request;
    }

private:
    /// Only what one program wrote for another may be deleted: never a user's file for a letter too many.
    bool exchanged() const {
        const auto temporary = [](const std::string& file) { return uppercase(file).ends_with(".TMP"); };
        return std::all_of(request.files.begin(), request.files.end(), temporary);
    }

    bool takefile(const std::string& name) {
        if (request.commands.empty() || !request.commands.back().file.empty()) return false;
        request.commands.back().file = name;
        return true;
    }

    bool takeword(const std::string& word) {
        const std::string upper = uppercase(word);
        const bool first = request.side == 0 && request.commands.empty() && request.files.empty();
        if (first && (upper == "VXV" || upper == "WVW")) {
            request.side = upper.front();
            return true;
        }
        if (request.commands.empty() && request.method.empty() && request.side != 'V' && boundcode(upper)) {
            request.method = upper;
            return true;
        }
        if (oneof(valueWords, upper)) {
            request.commands.push_back({upper, ""});
            return true;
        }
        if (isfilename(word)) return takefile(word);
        if (!packed(upper)) return false;
        for (const char letter : upper) request.commands.push_back({std::string(1, letter), ""});
        return true;
    }

    ScriptRequest request;
};

// ---- script files ----

/// A name of a script file and the series or text it sets.
struct ScriptName {
    std::string_view name;
    std::vector<std::string> ScriptFile::*texts = nullptr;
    std::string ScriptFile::*text = nullptr;
    std::vector<double> ScriptFile::*numbers = nullptr;
};
constexpr ScriptName scriptNames[] = {
    {"FILE", &ScriptFile::files},
    {"BVALUEIN%", nullptr, nullptr, &ScriptFile::bLevels},
    {"BVALUEOUTFILE", nullptr, &ScriptFile::bLevelFile},
    {"RISKINUSAGE", nullptr, nullptr, &ScriptFile::usages},
    {"RISKNEXTOUTFILE", nullptr, &ScriptFile::riskFile},
};

/// Sets a value of a series, which grows up to its index.
bool setvalue(std::vector<double>& series, std::size_t index, std::string_view text) {
    constexpr std::size_t most = 1000;
    const NumberText number = readnumber(text);
    if (!number.readable || index < 1 || index > most) return false;
    if (series.size() < index) series.resize(index, noAnswer);
    series[index - 1] = number.value;
    return true;
}

class ScriptReader {
public:
    bool take(std::string_view line) {
        const auto equals = line.find('=');
        const auto colon = line.find(':');
        if (equals != std::string_view::npos && (colon == std::string_view::npos || equals < colon))
            return takename(uppercase(trimmed(line.substr(0, equals))), trimmed(line.substr(equals + 1)));
        if (!series || colon == std::string_view::npos) return false;
        const NumberText index = readnumber(line.substr(0, colon));
        return index.readable && index.value >= 1 && index.value < 1e6
               && setvalue(script.*series, static_cast<std::size_t>(index.value),
                           trimmed(line.substr(colon + 1)));
    }

    ScriptFile script;

private:
    bool takename(const std::string& name, std::string_view value) {
        for (const ScriptName& known : scriptNames) {
            if (known.name != name) continue;
            series = known.numbers;
            if (known.texts) (script.*known.texts).emplace_back(value);
            if (known.text) script.*known.text = value;
            return !known.numbers || setvalue(script.*known.numbers, 1, value);
        }
        return false;
    }

    std::vector<double> ScriptFile::*series = nullptr; ///< the one named last
};

} // namespace

std::span<const BoundCode> boundcodes() { return codes; }

std::optional<ScriptRequest> requestof(std::string_view text) {
    std::string_view rest = unbracketed(text);
    if (rest.starts_with('@')) {
        ScriptRequest file;
        rest = trimmed(rest.substr(1));
        const bool quoted =
            rest.size() > 1 && (rest.front() == '"' || rest.front() == '\'') && rest.back() == rest.front();
        file.scriptFile = quoted ? rest.substr(1, rest.size() - 2) : rest;
        return file;
    }
    Builder builder;
    while (!(rest = trimmed(rest)).empty()) {
        const Token token = nexttoken(rest);
        if (builder.take(token)) continue;
        compose(session.msg, Word::Unknown, ": ", AsTyped{token.text});
        return std::nullopt;
    }
    return builder.finished();
}

std::optional<ScriptFile> scriptfileof(std::string_view text) {
    ScriptReader reader;
    bool first = true;
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    while (!text.empty()) {
        const std::string_view line = trimmed(takeline(text));
        if (line.empty()) continue;
        const bool good = first ? uppercase(line) == "WV-SCRIPT" : reader.take(line);
        first = false;
        if (good) continue;
        compose(session.msg, Word::Unknown, ": ", AsTyped{line});
        return std::nullopt;
    }
    if (!first) return reader.script;
    compose(session.msg, Word::Not, " ", Word::Enough, " ", Word::Data);
    return std::nullopt;
}
