#include "expression/functiontext.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "data/numbertext.h"
#include "data/textpieces.h"
#include "expression/tokens.h"
#include "session/session.h"

namespace {

bool digit(char c) { return c >= '0' && c <= '9'; }
bool letter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool blank(char c) { return c == ' ' || c == '\t'; }

void appendliteral(std::string& text, double value) {
    if (value < 0) text += '(';
    appendtrimmed(text, value);
    if (value < 0) text += ')';
}

/// An operator that is a word needs blanks around it.
bool isword(const Token& token) { return token.binary && letter(token.text[0]); }

void appendcode(std::string& fcode, int code) {
    fcode += static_cast<char>('0' + code / 10);
    fcode += static_cast<char>('0' + code % 10);
}

/// Reads typed text from left to right.
class TypedReader {
public:
    TypedReader(std::string_view text, int16_t functionMode, bool operand)
        : rest(trimmed(text)),
          whole(rest.size()),
          mode(functionMode),
          operandNext(operand) {}

    std::optional<FunctionTokens> read() {
        if (rest.empty()) return std::nullopt;
        if (operandNext && isnumber()) return found;
        while (!rest.empty())
            if (!readpart()) return std::nullopt;
        return found;
    }

private:
    /// Length of the decimal symbol at a place, when a digit follows or stands before it.
    std::size_t symbolat(std::size_t at) const {
        const std::string_view text = rest.substr(std::min(at, rest.size()));
        if (text.starts_with('.')) return 1;
        const std::string& symbol = session.decimalSeparator;
        return !symbol.empty() && text.starts_with(symbol) ? symbol.size() : 0;
    }
    bool digitat(std::size_t at) const { return at < rest.size() && digit(rest[at]); }
    bool numberat(std::size_t at) const {
        return digitat(at) || (symbolat(at) && digitat(at + symbolat(at)));
    }

    /// Takes the number at the start, its sign included; false, and nothing taken, when none stands there.
    bool takenumber() {
        std::size_t at = rest[0] == '-' || rest[0] == '+' ? 1 : 0;
        if (!numberat(at)) return false;
        std::string plain;
        if (rest[0] == '-') plain += '-';
        const auto digits = [&] {
            while (digitat(at)) plain += rest[at++];
        };
        digits();
        if (const std::size_t symbol = symbolat(at)) {
            plain += '.';
            at += symbol;
            digits();
        }
        if (at < rest.size() && (rest[at] == 'e' || rest[at] == 'E')) {
            const std::size_t sign = at + 1 < rest.size() && (rest[at + 1] == '-' || rest[at + 1] == '+');
            if (digitat(at + 1 + sign)) {
                plain += 'e';
                if (sign) plain += rest[at + 1];
                at += 1 + sign;
                digits();
            }
        }
        double value = 0;
        const char* end = plain.data() + plain.size();
        const auto [stop, fault] = std::from_chars(plain.data(), end, value);
        if (fault != std::errc() || stop != end || !std::isfinite(value)) return false;
        found.literals.push_back(value);
        rest.remove_prefix(at);
        add(numberToken);
        return true;
    }

    /// The whole text is one number.
    bool isnumber() {
        const std::string_view text = rest;
        if (takenumber() && rest.empty()) return true;
        rest = text;
        found = {};
        return false;
    }

    bool readpart() {
        const char c = rest[0];
        if (blank(c)) {
            rest.remove_prefix(1);
            return true;
        }
        if (letter(c)) return readname();
        const bool signedNumber = afterOperator && (c == '-' || c == '+') && numberat(1);
        if (signedNumber || numberat(0)) return takenumber();
        return readsign();
    }

    bool readsign() {
        static constexpr struct {
            std::string_view text;
            int code;
        } signs[] = {{"**", 19}, {"+", 11}, {"-", 12}, {"*", 13}, {"/", 14}, {"^", 19}, {"(", 88}, {")", 89}};
        for (const auto& sign : signs)
            if (rest.starts_with(sign.text)) {
                rest.remove_prefix(sign.text.size());
                add(sign.code);
                return true;
            }
        return false;
    }

    /// Letters and digits from the start, with the marks that belong to two of the names.
    std::string takename() {
        constexpr std::size_t longest = 32;
        constexpr std::string_view quantile = "ICHI^2";
        if (uppercase(rest.substr(0, quantile.size())) == quantile) return cut(quantile.size());
        std::size_t at = 0;
        while (at < rest.size() && (letter(rest[at]) || digit(rest[at]))) ++at;
        if (at < rest.size() && rest[at] == '!') ++at;
        return at <= longest ? cut(at) : std::string();
    }
    std::string cut(std::size_t length) {
        std::string name = uppercase(rest.substr(0, length));
        rest.remove_prefix(length);
        return name;
    }

    bool readname() {
        const bool first = rest.size() == whole;
        const std::string name = takename();
        const Token* token = tokenoftyped(name, mode);
        if (!token) return false;
        const std::size_t behind = rest.find_first_not_of(" \t");
        const bool bracket = behind != std::string_view::npos && rest[behind] == '(';
        if (opensbracket(token->kind)) {
            if (bracket) rest.remove_prefix(behind + 1);
            // "sin x+1" may mean two things; a name at the end opens its bracket and waits for more.
            else if (behind != std::string_view::npos)
                return false;
        } else if (!(first && rest.empty()) && !uppercase(tokentext(*token, mode)).starts_with(name)) {
            return false; // "pix" would lose its x
        }
        add(token->code);
        return true;
    }

    void add(int code) {
        appendcode(found.fcode, code);
        afterOperator = isoperator(tokenofcode(code)->kind);
    }

    std::string_view rest;
    std::size_t whole;
    int16_t mode;
    bool operandNext;
    bool afterOperator = false;
    FunctionTokens found;
};

} // namespace

std::string functiontext(std::string_view fcode, std::span<const double> literals, int16_t mode) {
    std::string text;
    std::size_t used = 0;
    for (std::size_t at = 0; at < fcode.size(); at += 2) {
        const Token* token = tokenofcode(codeat(fcode, at));
        const bool missing = token && token->kind == TokenKind::number && used == literals.size();
        if (!token || missing)
            text += '?';
        else if (token->kind == TokenKind::number)
            appendliteral(text, literals[used++]);
        else if (isword(*token))
            ((text += ' ') += token->text) += ' ';
        else
            text += tokentext(*token, mode);
    }
    return text;
}

std::optional<FunctionTokens> typedtokens(std::string_view text, int16_t mode, bool operandNext) {
    return TypedReader(text, mode, operandNext).read();
}

std::optional<std::string> functionspelling(std::string_view fcode) {
    std::string spelling;
    for (std::size_t at = 0; at < fcode.size(); at += 2) {
        const Token* token = tokenofcode(codeat(fcode, at));
        if (!token) return std::nullopt;
        spelling += token->spelling;
    }
    return spelling;
}

std::optional<std::string> functionspelled(std::string_view spelling) {
    std::string fcode;
    for (; !spelling.empty(); spelling.remove_prefix(2)) {
        const Token* token = tokenofspelling(spelling);
        if (!token) return std::nullopt;
        appendcode(fcode, token->code);
    }
    return fcode;
}
